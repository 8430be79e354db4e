#include "build/BuildOutput.h"

#include "build/NinjaProcess.h"

#include <Qtilities/regularfile.h>

#include <algorithm>
#include <cerrno>
#include <utility>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Descriptor;
using Qtilities::Core::Result;
using Qtilities::Logging::Logger;

namespace MorvalenCore {

BuildOutput::BuildOutput(const BuildPlan &ofPlan, const QList<LogFile> &logFiles,
                         BuildListener *tells)
    : plan(ofPlan),
      listener(tells),
      output([this](const QByteArray &line) { readOutput(line); }),
      errors([this](const QByteArray &line) { readError(line); })
{
    for (const LogFile &log : logFiles)
        files.emplace_back(log);
    current = files.empty() ? nullptr : &files.front();
}

void BuildOutput::finish()
{
    output.finish();
    errors.finish();
    if (dropped > 0 && current)
        listener->line(Logger::Warning,
                       u"%1 lines are left out here; all output is in %2"_s.arg(dropped).arg(
                           files.size() > 1 ? u"the files build.log of the target paths"_s
                                            : u"\"%1\""_s.arg(current->path)));
    for (const auto &[type, line] : kept)
        listener->line(type, shownText(line));
    kept.clear();
    for (OpenFile &log : files)
        closeFile(log);
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
        chooseFile(step);
        listener->stepShown(step, counts.left(slash - 1).toInt(), counts.mid(slash).toInt());
    }
    pass(Logger::Info, '[' + counts + "] " + prefix + line.mid(end + 1));
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

void BuildOutput::chooseFile(int step)
{
    const auto next = std::find_if(files.begin(), files.end(),
                                   [step](const OpenFile &log) { return log.firstStep > step; });
    if (next != files.begin())
        current = &*std::prev(next);
}

void BuildOutput::writeToFile(const QByteArray &line)
{
    if (!current || !current->isGood)
        return;
    if (!current->file)
        openFile(*current);
    current->unwritten += line + '\n';
    if (current->unwritten.size() >= mostUnwritten)
        flush(*current);
}

// The steps that have run may have put anything there.
void BuildOutput::openFile(OpenFile &log)
{
    Result<Descriptor> made = Qtilities::Core::makeRegularFile(log.path);
    if (made.isOk())
        log.file = std::move(made).value();
    else
        giveUp(log, made.status().text());
}

void BuildOutput::flush(OpenFile &log)
{
    if (log.isGood && !log.file.write(log.unwritten))
        giveUp(log, qt_error_string(errno));
    log.unwritten.clear();
}

void BuildOutput::closeFile(OpenFile &log)
{
    if (!log.file)
        return;
    flush(log);
    if (!log.file.close() && log.isGood)
        giveUp(log, qt_error_string(errno));
}

void BuildOutput::giveUp(OpenFile &log, const QString &reason)
{
    log.isGood = false;
    listener->line(Logger::Warning,
                   u"The output cannot be written to \"%1\": %2"_s.arg(log.path, reason));
}

} // namespace MorvalenCore
