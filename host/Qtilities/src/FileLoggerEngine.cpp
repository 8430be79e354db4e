#include <Qtilities/FileLoggerEngine.h>
#include <Qtilities/Logger.h>
#include <Qtilities/makefolder.h>

#include "logline.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QRegularExpression>

#include <sys/file.h>

namespace Qtilities::Logging {

namespace {

using namespace Qt::Literals::StringLiterals;

// The files of this class in a folder, the oldest first. Those of one moment are in the order of
// their numbers.
QStringList logFiles(const QString &folder)
{
    static const QRegularExpression ours(u"^\\d{4}-\\d\\d-\\d\\d_\\d{6}_\\d+_\\d+\\.log$"_s);
    QList<std::pair<QDateTime, QString>> files;
    for (const QFileInfo &info : QDir(folder).entryInfoList(QDir::Files | QDir::NoSymLinks)) {
        if (ours.match(info.fileName()).hasMatch())
            files.append({info.lastModified(), info.fileName()});
    }
    std::sort(files.begin(), files.end());
    QStringList names;
    for (const auto &[time, name] : files)
        names.append(name);
    return names;
}

// A full disk takes the beginning of a text first and gives its reason with the rest.
bool writeAll(QFile &file, QByteArrayView text)
{
    while (!text.isEmpty()) {
        const qint64 written = file.write(text.data(), text.size());
        if (written <= 0)
            return false;
        text = text.sliced(written);
    }
    return true;
}

} // namespace

FileLoggerEngine::FileLoggerEngine(const QString &name, const QString &folder, QObject *parent)
    : LoggerEngine(name, parent),
      folderPath(QDir(folder).absolutePath()),
      start(QDateTime::currentDateTime().toString(u"yyyy-MM-dd_HHmmss"_s))
{
}

FileLoggerEngine::~FileLoggerEngine() = default;

Core::Status FileLoggerEngine::open()
{
    const Core::Status made = Core::makeFolder(folderPath);
    if (startFile())
        return {};
    // Of a folder that is missing, the file can only say that it is.
    const bool isThere = made.isOk() || QFileInfo::exists(folderPath);
    return Core::Status::io(u"Cannot write the log file \"%1\": %2"_s.arg(
        file.fileName(), isThere ? file.errorString() : made.text()));
}

void FileLoggerEngine::setLimits(qint64 bytesOfAFile, int filesKept)
{
    maximumBytes = bytesOfAFile;
    maximumFiles = filesKept;
}

bool FileLoggerEngine::startFile()
{
    file.close();
    do {
        ++number;
        file.setFileName(folderPath + u'/' + start
                         + u"_%1_%2.log"_s.arg(QCoreApplication::applicationPid())
                               .arg(number, 4, 10, QChar(u'0')));
    } while (file.exists());
    if (!file.open(QIODevice::NewOnly | QIODevice::WriteOnly | QIODevice::Unbuffered))
        return false;
    // The lock tells other processes that the file is in use.
    ::flock(file.handle(), LOCK_EX | LOCK_NB);
    removeOldFiles();
    return true;
}

void FileLoggerEngine::removeOldFiles() const
{
    QStringList files = logFiles(folderPath);
    for (qsizetype index = 0; index < files.size() && files.size() > maximumFiles;) {
        QFile old(folderPath + u'/' + files[index]);
        const bool unused =
            old.open(QIODevice::ReadOnly) && ::flock(old.handle(), LOCK_EX | LOCK_NB) == 0;
        if (unused && old.remove())
            files.removeAt(index);
        else
            ++index;
    }
}

void FileLoggerEngine::logMessage(int type, const QString &text)
{
    if (!file.isOpen())
        return;
    const QString time = QDateTime::currentDateTime().toString(Qt::ISODateWithMs) + u' ';
    const QByteArray entry = logEntry(time, type, text).toUtf8();
    const bool full = file.pos() > 0 && file.pos() + entry.size() > maximumBytes;
    if ((full && !startFile()) || !writeAll(file, entry))
        giveUp();
}

void FileLoggerEngine::giveUp()
{
    const QString reason = file.errorString();
    file.close();
    Logger::instance()->logMessage(
        QString(), Logger::Warning,
        u"Cannot write the log file \"%1\" any more: %2"_s.arg(file.fileName(), reason));
}

} // namespace Qtilities::Logging
