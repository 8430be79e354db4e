#include "build/BuildRun.h"

#include "build/FolderLock.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Status;
using Qtilities::Logging::Logger;

namespace MorvalenCore {

namespace {

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
    connect(&ninja, &NinjaProcess::endedLeftBehind, this, &BuildRun::tellLeftBehind);
    patience.setSingleShot(true);
    patience.setInterval(usualPatience);
    connect(&patience, &QTimer::timeout, this, &BuildRun::tellWaiting);
}

BuildRun::~BuildRun() = default;

BuildRun::Result BuildRun::run(Kind kind)
{
    looking = kind == Kind::Look;
    const bool changesFiles = !looking;
    Status status = file.makeFolder();
    if (!status.isOk())
        return fail(status.text());
    FolderLock lock;
    if (changesFiles && !lock.take(plan.targetFolder))
        return fail(u"Another build is running in \"%1\""_s.arg(plan.targetFolder));
    status = file.write();
    if (!status.isOk())
        return fail(status.text());

    if (kind == Kind::All) {
        status = askNinja({u"-t"_s, u"clean"_s});
        if (!status.isOk())
            return resultOf(status);
    }
    if (looking)
        status = askNinja({u"-n"_s});
    else if (kind == Kind::All || !isUpToDate(&status))
        status = runSteps();
    tellLeftBehind(ninja.leftBehind());
    sortOut(status);
    return resultOf(status);
}

// Whether the steps need not be run. That is known sooner than a run with somebody to watch over it
// has begun, and no allocation is waited for.
bool BuildRun::isUpToDate(Status *ninjasEnd)
{
    looking = true;
    *ninjasEnd = askNinja({u"-n"_s});
    looking = false;
    if (ninjasEnd->isOk() && !output->shownSteps().isEmpty())
        return false;
    output = std::make_unique<BuildOutput>(plan, QString(), this);
    return true;
}

Status BuildRun::runSteps()
{
    output = std::make_unique<BuildOutput>(plan, plan.targetFolder + u"/build.log"_s, this);
    if (wasCancelled)
        return Status::cancelled(u"The build was cancelled"_s);
    QStringList arguments;
    if (options.jobs)
        arguments += {u"-j"_s, QString::number(*options.jobs)};
    if (options.keepGoing)
        arguments += {u"-k"_s, u"0"_s};
    hasWaited = hasCome = false;
    if (!options.allocation.isEmpty())
        patience.start();
    const Status status = ninja.run(plan.targetFolder, arguments, options.allocation);
    output->finish();
    patience.stop();
    if (status.kind() == Status::Kind::Failed && !options.allocation.isEmpty() && !hasCome)
        Q_EMIT message(Logger::Error,
                       u"\"%1\" has ended without running the build"_s.arg(options.allocation));
    return status;
}

Status BuildRun::askNinja(const QStringList &arguments)
{
    output = std::make_unique<BuildOutput>(plan, QString(), this);
    const Status status = ninja.ask(plan.targetFolder, arguments);
    output->finish();
    return status;
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
    if (!looking)
        Q_EMIT progressed(ended, total, plan.steps[step].name);
}

void BuildRun::line(MessageType type, const QString &text)
{
    if (!looking || type == Logger::Error)
        Q_EMIT message(type, text);
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
