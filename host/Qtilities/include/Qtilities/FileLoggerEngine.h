#pragma once

#include <Qtilities/LoggerEngine.h>
#include <Qtilities/Status.h>

#include <QFile>

namespace Qtilities::Logging {

// Keeps messages in files of a folder that several processes may share: every process writes files
// of its own, named by start, process id and a number, such as 2024-05-31_142501_7321_0001.log. A
// line is the time, the word for the type, a colon, and the text; further lines of a message are
// indented. Each message is in the file when logMessage returns.
//
// A file that has reached its size is followed by another one, and the oldest files in the folder
// that no process is writing any more are removed, so that the folder does not grow without bound.
class QTILITIES_EXPORT FileLoggerEngine : public LoggerEngine
{
    Q_OBJECT

public:
    FileLoggerEngine(const QString &name, const QString &folder, QObject *parent = nullptr);
    ~FileLoggerEngine() override;

    // Creates the folder and a file in it. The engine drops messages until it is open.
    Core::Status open();

    // The file that is written now; empty when none is.
    QString fileName() const { return file.isOpen() ? file.fileName() : QString(); }

    // When a file gives way to the next one, and how many files are kept; 8 MiB and 16 files.
    void setLimits(qint64 bytesOfAFile, int filesKept);

    // A message that cannot be written closes the file, and the other engines hear of it once.
    void logMessage(int type, const QString &text) override;

private:
    bool startFile();
    void removeOldFiles() const;
    void giveUp();

    QString folderPath;
    QString start;
    int number = 0;
    qint64 maximumBytes = qint64(8) * 1024 * 1024;
    int maximumFiles = 16;
    QFile file;
};

} // namespace Qtilities::Logging
