#include "build/BuildRun.h"

#include <QEventLoop>
#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Status;
using Qtilities::Logging::Logger;

namespace MorvalenCore {

namespace {

// When running steps are looked for, in milliseconds.
constexpr int firstLook = 200;
constexpr int lookInterval = 1000;

// In milliseconds: until the log says that an allocation is waited for.
constexpr int usualPatience = 10'000;

} // namespace

BuildRun::BuildRun(const BuildPlan &aPlan, const NinjaFile &itsFile, QObject *parent)
    : QObject(parent),
      plan(aPlan),
      file(itsFile)
{
    connect(&ninja, &NinjaProcess::outputReady, this,
            [this](const QByteArray &bytes) { output->takeOutput(bytes); });
    connect(&ninja, &NinjaProcess::errorReady, this,
            [this](const QByteArray &bytes) { output->takeErrors(bytes); });
    connect(&ninja, &NinjaProcess::ended, this, &BuildRun::takeNinjasEnd);
    connect(&ninja, &NinjaProcess::endedLeftBehind, this, &BuildRun::tellLeftBehind);
    patience.setSingleShot(true);
    patience.setInterval(usualPatience);
    connect(&looks, &QTimer::timeout, this, &BuildRun::tellRunning);
    connect(&patience, &QTimer::timeout, this, &BuildRun::tellWaiting);
}

BuildRun::~BuildRun() = default;

BuildRun::Result BuildRun::run(Kind kind)
{
    QEventLoop loop;
    connect(this, &BuildRun::ended, &loop, &QEventLoop::quit);
    start(kind);
    if (!hasEnded())
        loop.exec();
    // The loop also ends with the application's.
    if (!hasEnded())
        endNow();
    return over.value_or(Result::Failed);
}

void BuildRun::start(Kind kind)
{
    looking = kind == Kind::Look;
    const Status status = prepare(looking);
    if (!status.isOk())
        return end(fail(status.text()));
    switch (kind) {
    case Kind::Look:
        return look([this](const Status &ninjasEnd) { sortAndConclude(ninjasEnd); });
    case Kind::All:
        return ask({u"-t"_s, u"clean"_s}, [this](const Status &cleaned) {
            if (cleaned.isOk())
                runSteps();
            else
                end(resultOf(cleaned));
        });
    case Kind::Outdated:
        return runOutdated();
    }
}

Status BuildRun::prepare(bool onlyLooks)
{
    const Status status = file.makeFolder();
    if (!status.isOk())
        return status;
    if (!onlyLooks && !lock.take(plan.targetFolder))
        return Status::busy(u"Another build is running in \"%1\""_s.arg(plan.targetFolder));
    return file.write();
}

QList<BuildOutput::LogFile> BuildRun::logFiles() const
{
    return {{plan.targetFolder + u"/build.log"_s}};
}

// Whether steps need to be run is known sooner than a run with somebody to watch over it has begun,
// and no allocation is waited for.
void BuildRun::runOutdated()
{
    look([this](const Status &looked) {
        if (looked.isOk() && !shownSteps().isEmpty()) {
            stepsBegin(shownSteps());
            return runSteps();
        }
        output = std::make_unique<BuildOutput>(plan, QList<BuildOutput::LogFile>(), this);
        sortAndConclude(looked);
    });
}

void BuildRun::runSteps()
{
    output = std::make_unique<BuildOutput>(plan, logFiles(), this);
    output->setPrefix(options.prefix);
    if (wasCancelled)
        return sortAndConclude(Status::cancelled(u"The build was cancelled"_s));
    QStringList arguments = fileArguments();
    if (options.jobs)
        arguments += {u"-j"_s, QString::number(*options.jobs)};
    if (options.keepGoing)
        arguments += {u"-k"_s, u"0"_s};
    hasWaited = hasCome = false;
    if (!options.allocation.isEmpty())
        patience.start();
    next = [this](const Status &status) { takeStepsEnd(status); };
    looks.start(firstLook);
    ninja.start(plan.targetFolder, arguments, options.allocation);
}

void BuildRun::takeStepsEnd(const Status &status)
{
    patience.stop();
    looks.stop();
    if (status.kind() == Status::Kind::Failed && !options.allocation.isEmpty() && !hasCome)
        Q_EMIT message(Logger::Error,
                       u"\"%1\" has ended without running the build"_s.arg(options.allocation));
    sortAndConclude(status);
}

void BuildRun::look(const Then &then)
{
    const bool before = std::exchange(looking, true);
    ask({u"-n"_s}, [this, before, then](const Status &status) {
        looking = before;
        then(status);
    });
}

void BuildRun::ask(const QStringList &arguments, const Then &then)
{
    output = std::make_unique<BuildOutput>(plan, QList<BuildOutput::LogFile>(), this);
    next = then;
    ninja.ask(plan.targetFolder, fileArguments() + arguments);
}

void BuildRun::takeNinjasEnd(const Status &status)
{
    output->finish();
    std::exchange(next, {})(status);
}

void BuildRun::sortAndConclude(const Status &ninjasEnd)
{
    tellLeftBehind(ninja.leftBehind());
    sortOut(ninjasEnd);
    conclude(ninjasEnd);
}

void BuildRun::conclude(const Status &ninjasEnd) { end(resultOf(ninjasEnd)); }

void BuildRun::end(Result result)
{
    over = result;
    lock = {};
    Q_EMIT ended();
}

// Between two runs of Ninja there is none to be told.
void BuildRun::cancel()
{
    wasCancelled = true;
    ninja.cancel();
}

void BuildRun::endNow()
{
    wasCancelled = true;
    ninja.endNow();
}

// Tells the steps that ended well from those that did not, among them who made less than promised.
void BuildRun::sortOut(const Status &ninjasEnd)
{
    // Steps may print what looks like a failure.
    if (!ninjasEnd.isOk())
        failed = output->failedSteps();
    for (const int index : output->shownSteps()) {
        const PlannedStep &step = plan.steps[index];
        const bool begunOnly =
            ninjasEnd.kind() == Status::Kind::Cancelled && step.outputs.isEmpty();
        if (failed.contains(index) || (begunOnly && index == output->shownSteps().last()))
            continue;
        const auto missing =
            std::find_if(step.outputs.cbegin(), step.outputs.cend(),
                         [](const QString &path) { return !QFileInfo::exists(path); });
        if (looking || missing == step.outputs.cend()) {
            done.append(index);
            continue;
        }
        failed.append(index);
        Q_EMIT message(Logger::Error,
                       u"The step \"%1\" ended without an error but has not made \"%2\""_s.arg(
                           step.name, *missing));
    }
}

void BuildRun::stepShown(int step, int ended, int total)
{
    if (looking)
        return;
    Q_EMIT progressed(ended, total, plan.steps[step].name);
    // Of a step that runs alone Ninja tells when it begins.
    if (plan.steps[step].outputs.isEmpty())
        Q_EMIT stepsRun({{step, 0}});
}

void BuildRun::line(MessageType type, const QString &text)
{
    if (!looking || type == Logger::Error)
        Q_EMIT message(type, text);
}

void BuildRun::tellRunning()
{
    looks.setInterval(lookInterval);
    if (const pid_t process = ninja.process(); process > 0)
        Q_EMIT stepsRun(running.below(process));
}

void BuildRun::tellWaiting()
{
    hasWaited = true;
    Q_EMIT message(Logger::Warning, u"Waiting for \"%1\""_s.arg(options.allocation));
}

void BuildRun::allocationCame()
{
    patience.stop();
    hasCome = true;
    if (hasWaited)
        Q_EMIT message(Logger::Info, u"\"%1\" has come"_s.arg(options.allocation));
}

BuildRun::Result BuildRun::fail(const QString &text)
{
    Q_EMIT message(Logger::Error, text);
    return Result::Failed;
}

BuildRun::Result BuildRun::resultOf(const Status &ninjasEnd)
{
    switch (ninjasEnd.kind()) {
    case Status::Kind::Ok:
        return failed.isEmpty() ? Result::Completed : Result::Failed;
    case Status::Kind::Cancelled:
        return Result::Cancelled;
    case Status::Kind::Failed:
        return Result::Failed;
    default:
        return fail(ninjasEnd.text());
    }
}

void BuildRun::tellLeftBehind(const QList<ChildProcess> &processes)
{
    QStringList names;
    for (const ChildProcess &process : processes)
        names.append(u"%1 (%2)"_s.arg(process.name).arg(process.id));
    if (!names.isEmpty())
        Q_EMIT message(
            Logger::Warning,
            u"The steps left processes behind, which were ended: %1"_s.arg(names.join(u", "_s)));
}

} // namespace MorvalenCore
