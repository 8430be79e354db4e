#pragma once

#include "build/BuildPlan.h"
#include "build/LineReader.h"

#include <Qtilities/Descriptor.h>
#include <Qtilities/Logger.h>

#include <QHash>

#include <deque>

namespace MorvalenCore {

// Who wants to know what Ninja says.
class BuildListener
{
public:
    using MessageType = Qtilities::Logging::Logger::MessageType;

    virtual ~BuildListener() = default;

    // A step of the plan has ended, or begins when it is one that runs alone.
    virtual void stepShown(int step, int done, int total) = 0;
    virtual void line(MessageType type, const QString &text) = 0;
    // Ninja had to wait for an allocation, and runs now.
    virtual void allocationCame() = 0;
};

// Reads what Ninja prints: tells steps from their output, and hands on every line, up to a limit;
// beyond it only the last lines, when the run is over. All of it goes to a file. Memory does not
// grow with the output.
class BuildOutput
{
public:
    // In bytes.
    static constexpr qint64 mostLogged = 2 << 20;
    static constexpr qsizetype mostKept = 32 << 10;
    static constexpr qsizetype mostUnwritten = 16 << 10;

    // A file that takes lines: it is begun with the first one, replacing that of an earlier run.
    struct LogFile
    {
        QString path;
        // The first step that it is for; those up to the next file's are, too.
        int firstStep = 0;
    };

    // Without files nothing is written. What belongs to no step goes to the first.
    BuildOutput(const BuildPlan &ofPlan, const QList<LogFile> &logFiles, BuildListener *tells);

    // Stands in front of the steps' names.
    void setPrefix(const QString &text) { prefix = text.toUtf8(); }

    void takeOutput(const QByteArray &bytes) { output.take(bytes); }
    void takeErrors(const QByteArray &bytes) { errors.take(bytes); }
    // To be called once, when Ninja has ended.
    void finish();

    // Which steps of the plan were shown, and which of them failed, in order.
    QList<int> shownSteps() const { return shown; }
    QList<int> failedSteps() const { return failed; }

private:
    using MessageType = BuildListener::MessageType;

    void readOutput(const QByteArray &line);
    void readError(const QByteArray &line);
    bool readStatus(const QByteArray &line);
    bool readNinjas(const QByteArray &line);
    void pass(MessageType type, const QByteArray &line);
    void writeToFile(const QByteArray &line);
    void chooseFile(int step);
    struct OpenFile;
    void openFile(OpenFile &log);
    void flush(OpenFile &log);
    void closeFile(OpenFile &log);
    void giveUp(OpenFile &log, const QString &reason);

    const BuildPlan &plan;
    QByteArray prefix;
    BuildListener *listener;
    LineReader output;
    LineReader errors;
    // To where they are in the plan.
    QHash<QString, int> labels;
    QList<int> shown;
    QList<int> failed;
    // Whether what comes is the output of a step that failed.
    bool inFailure = false;

    struct OpenFile
    {
        explicit OpenFile(const LogFile &log) : firstStep(log.firstStep), path(log.path) { }
        int firstStep;
        QString path;
        Qtilities::Core::Descriptor file {};
        QByteArray unwritten {};
        bool isGood = true;
    };
    std::deque<OpenFile> files;
    // Of the step that was shown last.
    OpenFile *current = nullptr;
    qint64 logged = 0;
    std::deque<std::pair<MessageType, QByteArray>> kept;
    qsizetype keptBytes = 0;
    qint64 dropped = 0;
};

} // namespace MorvalenCore
