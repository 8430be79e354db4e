#pragma once

#include "build/BuildPlan.h"
#include "build/LineReader.h"

#include <Qtilities/Logger.h>
#include <Qtilities/Status.h>

#include <QFile>

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

    // The file is begun with the first line, replacing the one of an earlier run.
    BuildOutput(const BuildPlan &ofPlan, const QString &logFile, BuildListener *tells);

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
    Qtilities::Core::Status openFile();

    const BuildPlan &plan;
    BuildListener *listener;
    LineReader output;
    LineReader errors;
    // To where they are in the plan.
    QHash<QString, int> labels;
    QList<int> shown;
    QList<int> failed;
    // Whether what comes is the output of a step that failed.
    bool inFailure = false;

    const QString path;
    QFile file;
    bool fileIsGood = true;
    qint64 logged = 0;
    std::deque<std::pair<MessageType, QByteArray>> kept;
    qsizetype keptBytes = 0;
    qint64 dropped = 0;
};

} // namespace MorvalenCore
