#include "configurations/buildends.h"

#include "log/hostlog.h"

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Status;

namespace MorvalenCore {

namespace {

QString quotedNames(const BuildPlan &plan, const QList<int> &steps)
{
    QStringList names;
    for (const int step : steps)
        names.append(u'"' + plan.steps[step].name + u'"');
    return names.join(u", "_s);
}

} // namespace

BuildConfiguration::RunState stateAfter(BuildRun::Result result)
{
    switch (result) {
    case BuildRun::Result::Completed:
        return BuildConfiguration::Completed;
    case BuildRun::Result::Cancelled:
        return BuildConfiguration::Cancelled;
    case BuildRun::Result::Failed:
        break;
    }
    return BuildConfiguration::Failed;
}

Status statusOf(const QString &title, const BuildPlan &plan, const BuildRun::End &end)
{
    if (end.isCutShort)
        return Status::cancelled(u"%1 was not finished, since another one failed"_s.arg(title));
    if (end.result == BuildRun::Result::Cancelled)
        return Status::cancelled(u"%1 was cancelled"_s.arg(title));
    if (end.result == BuildRun::Result::Failed && end.failed.isEmpty())
        return Status::failed(u"%1 failed"_s.arg(title));
    if (end.result == BuildRun::Result::Failed)
        return Status::failed(u"%1 failed in %2"_s.arg(title, quotedNames(plan, end.failed)));
    if (end.done.isEmpty())
        logInfo(u"%1 is up to date"_s.arg(title));
    else
        logInfo(u"%1 is complete, steps run: %2"_s.arg(title).arg(end.done.size()));
    return {};
}

} // namespace MorvalenCore
