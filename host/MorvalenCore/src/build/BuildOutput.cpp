#include "build/BuildOutput.h"

#include "build/NinjaProcess.h"

#include <Qtilities/regularfile.h>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Descriptor;
using Qtilities::Core::Result;
using Qtilities::Core::Status;
using Qtilities::Logging::Logger;

namespace MorvalenCore {

BuildOutput::BuildOutput(const BuildPlan &ofPlan, const QString &logFile, BuildListener *tells)
    : plan(ofPlan),
      listener(tells),
      output([this](const QByteArray &line) { readOutput(line); }),
      errors([this](const QByteArray &line) { readError(line); }),
      path(logFile)
{
}

void BuildOutput::finish()
{
    output.finish();
    errors.finish();
    if (dropped > 0)
        listener->line(
            Logger::Warning,
            u"%1 lines are left out here; all output is in \"%2\""_s.arg(dropped).arg(path));
    for (const auto &[type, line] : kept)
        listener->line(type, shownText(line));
    kept.clear();
    if (file.isOpen())
        file.close();
}

void BuildOutput::readOutput(const QByteArray &line)
{
    if (line == NinjaProcess::allocatedLine())
        return listener->allocationCame();
    if (readStatus(line) || readNinjas(line))
        return;
    if (line.startsWith("FAILED: ")) {
        inFailure = true;
        if (!shown.isEmpty() && !failed.contains(shown.last()))
            failed.append(shown.last());
    }
    pass(inFailure ? Logger::Error : Logger::Info, line);
}

// What steps write to standard error on their own, past Ninja, and what Ninja itself does.
void BuildOutput::readError(const QByteArray &line)
{
    if (!readNinjas(line))
        pass(inFailure ? Logger::Error : Logger::Warning, line);
}

bool BuildOutput::readStatus(const QByteArray &line)
{
    if (!line.startsWith('\x1d'))
        return false;
    const qsizetype end = line.indexOf('\x1d', 1);
    const qsizetype slash = line.indexOf('/');
    if (end < 0 || slash < 0 || slash > end)
        return false;
    if (labels.isEmpty()) {
        for (const PlannedStep &step : plan.steps)
            labels.insert(step.label, int(labels.size()));
    }
    const QByteArray counts = line.mid(1, end - 1);
    // A Ninja that a step runs has inherited the form of the status line.
    const int step = labels.value(QString::fromUtf8(line.mid(end + 1)), -1);
    if (step >= 0) {
        inFailure = false;
        shown.append(step);
        listener->stepShown(step, counts.left(slash - 1).toInt(), counts.mid(slash).toInt());
    }
    pass(Logger::Info, '[' + counts + "] " + line.mid(end + 1));
    return true;
}

bool BuildOutput::readNinjas(const QByteArray &line)
{
    if (!line.startsWith("ninja: "))
        return false;
    if (line.startsWith("ninja: error: ") || line.startsWith("ninja: fatal: ")) {
        pass(Logger::Error, line);
    } else if (line.startsWith("ninja: warning: ")) {
        pass(Logger::Warning, line);
    }
    return true;
}

void BuildOutput::pass(MessageType type, const QByteArray &line)
{
    writeToFile(line);
    logged += line.size() + 1;
    if (logged <= mostLogged) {
        listener->line(type, shownText(line));
        return;
    }
    kept.emplace_back(type, line);
    keptBytes += line.size() + 1;
    while (keptBytes > mostKept) {
        keptBytes -= kept.front().second.size() + 1;
        kept.pop_front();
        ++dropped;
    }
}

void BuildOutput::writeToFile(const QByteArray &line)
{
    if (!fileIsGood || path.isEmpty())
        return;
    Status status = file.isOpen() ? Status() : openFile();
    if (status.isOk() && file.write(line + '\n') != line.size() + 1)
        status = Status::io(file.errorString());
    fileIsGood = status.isOk();
    if (!fileIsGood)
        listener->line(Logger::Warning,
                       u"The output cannot be written to \"%1\": %2"_s.arg(path, status.text()));
}

// The steps that have run may have put anything there.
Status BuildOutput::openFile()
{
    Result<Descriptor> made = Qtilities::Core::makeRegularFile(path);
    if (!made.isOk())
        return made.status();
    const bool opened =
        file.open(made.value().release(), QIODevice::WriteOnly, QFileDevice::AutoCloseHandle);
    return opened ? Status() : Status::io(file.errorString());
}

} // namespace MorvalenCore
