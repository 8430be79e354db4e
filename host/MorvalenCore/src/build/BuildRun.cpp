#include "build/BuildRun.h"

#include "build/FolderLock.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Status;
using Qtilities::Logging::Logger;

namespace MorvalenCore {

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
}

BuildRun::~BuildRun() = default;

BuildRun::Result BuildRun::run(Kind kind)
{
    looking = kind == Kind::Look;
    Status status = file.makeFolder();
    if (!status.isOk())
        return fail(status.text());
    FolderLock lock;
    if (!looking && !lock.take(plan.targetFolder))
        return fail(u"Another build is running in \"%1\""_s.arg(plan.targetFolder));
    status = file.write();
    if (!status.isOk())
        return fail(status.text());

    if (kind == Kind::All) {
        status = runNinja({u"-t"_s, u"clean"_s}, {});
        if (!status.isOk())
            return resultOf(status);
    }
    const QString logFile = looking ? QString() : plan.targetFolder + u"/build.log"_s;
    status = runNinja(looking ? QStringList(u"-n"_s) : QStringList(), logFile);
    if (!looking && status.kind() != Status::Kind::Cancelled && !output->shownSteps().isEmpty())
        tellLeftBehind(ninja.endLeftBehind());
    sortOut(status);
    return resultOf(status);
}

Status BuildRun::runNinja(const QStringList &arguments, const QString &logFile)
{
    output = std::make_unique<BuildOutput>(plan, logFile, this);
    const Status status = ninja.run(plan.targetFolder, arguments);
    output->finish();
    return status;
}

void BuildRun::cancel() { ninja.cancel(); }

void BuildRun::endNow() { ninja.endNow(); }

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
