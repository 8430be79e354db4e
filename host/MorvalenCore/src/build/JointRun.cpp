#include "build/JointRun.h"

#include <QFile>
#include <QSet>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Status;
using Qtilities::Logging::Logger;

namespace MorvalenCore {

namespace {

// The steps of all plans under names of their own, in the target folder of the first.
BuildPlan joined(const QList<JointPart> &parts)
{
    BuildPlan all = parts.first().plan;
    all.steps.clear();
    for (const JointPart &part : parts) {
        for (PlannedStep step : part.plan.steps) {
            step.name.prepend(part.prefix());
            step.label.prepend(part.prefix());
            all.steps.append(step);
        }
    }
    return all;
}

QList<BuildPlan> plansOf(const QList<JointPart> &parts)
{
    QList<BuildPlan> plans;
    for (const JointPart &part : parts)
        plans.append(part.plan);
    return plans;
}

bool hasAll(const QList<int> &steps, const QList<int> &wanted)
{
    const QSet<int> all(steps.begin(), steps.end());
    return std::all_of(wanted.begin(), wanted.end(),
                       [&all](int step) { return all.contains(step); });
}

} // namespace

JointRun::JointRun(const QList<JointPart> &theParts, const NinjaFile &fileOfFirst, QObject *parent)
    : BuildRun(joined(theParts), fileOfFirst, parent),
      parts(theParts),
      log(plansOf(theParts)),
      totals(theParts.size(), 0),
      counts(theParts.size(), 0),
      ends(theParts.size())
{
    int first = 0;
    for (const JointPart &part : parts) {
        firstSteps.append(first);
        first += int(part.plan.steps.size());
    }
    connect(this, &BuildRun::stepsRun, this, &JointRun::divideRunning);
}

QString JointRun::fileName() { return u"joint.ninja"_s; }

QStringList JointRun::fileArguments() const { return {u"-f"_s, fileName()}; }

QList<BuildOutput::LogFile> JointRun::logFiles() const
{
    QList<BuildOutput::LogFile> files;
    for (qsizetype part = 0; part < parts.size(); ++part)
        files.append({parts[part].plan.targetFolder + u"/build.log"_s, firstSteps[part]});
    return files;
}

Status JointRun::prepare(bool)
{
    const Status gathered = log.gather();
    return gathered.isOk()
        ? NinjaFile::writeOwn(plan.targetFolder + u'/' + fileName(), jointFileOf(parts))
        : gathered;
}

int JointRun::partOf(int step) const
{
    return int(std::upper_bound(firstSteps.begin(), firstSteps.end(), step) - firstSteps.begin())
        - 1;
}

void JointRun::stepsBegin(const QList<int> &outdated)
{
    wanted = outdated;
    QList<QList<int>> byPart(parts.size());
    for (const int step : outdated)
        byPart[partOf(step)].append(step - firstSteps[partOf(step)]);
    for (int part = 0; part < parts.size(); ++part) {
        tell(log.doubt(part, byPart[part]));
        totals[part] = int(byPart[part].size());
        if (totals[part] > 0)
            Q_EMIT partProgressed(part, 0, totals[part], QString());
    }
}

void JointRun::stepShown(int step, int ended, int total)
{
    BuildRun::stepShown(step, ended, total);
    if (isLooking())
        return;
    speaker = partOf(step);
    Q_EMIT partProgressed(speaker, ++counts[speaker], totals[speaker],
                          parts[speaker].plan.steps[step - firstSteps[speaker]].name);
}

void JointRun::divideRunning(const QList<RunningSteps::Step> &steps)
{
    QList<QList<RunningSteps::Step>> byPart(parts.size());
    for (const RunningSteps::Step &step : steps) {
        const int part = partOf(step.index);
        byPart[part].append({step.index - firstSteps[part], step.milliseconds});
    }
    for (int part = 0; part < parts.size(); ++part)
        Q_EMIT partStepsRun(part, byPart[part]);
}

// Behind a failure, what would be run now is what was not run although it had to be.
void JointRun::conclude(const Status &ninjasEnd)
{
    const auto divideAndEnd = [this, ninjasEnd](const QList<int> &left) {
        divide(ninjasEnd, left);
        const Status given = log.giveBack();
        tell(given);
        if (given.isOk())
            QFile::remove(plan.targetFolder + u'/' + fileName());
        BuildRun::conclude(ninjasEnd);
    };
    if (ninjasEnd.kind() != Status::Kind::Failed || wanted.isEmpty())
        return divideAndEnd(wanted);
    look([this, divideAndEnd](const Status &looked) {
        divideAndEnd(looked.isOk() ? shownSteps() : wanted);
    });
}

void JointRun::divide(const Status &ninjasEnd, const QList<int> &left)
{
    QList<QList<int>> leftBy(parts.size());
    const auto sort = [this](const QList<int> &steps, const auto &listOf) {
        for (const int step : steps)
            listOf(partOf(step)).append(step - firstSteps[partOf(step)]);
    };
    sort(doneSteps(), [this](int part) -> QList<int> & { return ends[part].done; });
    sort(failedSteps(), [this](int part) -> QList<int> & { return ends[part].failed; });
    sort(left, [&leftBy](int part) -> QList<int> & { return leftBy[part]; });
    const bool wasStopped = ninjasEnd.kind() == Status::Kind::Cancelled;
    for (int part = 0; part < parts.size(); ++part) {
        End &end = ends[part];
        const bool isComplete = !wanted.isEmpty() && hasAll(end.done, leftBy[part]);
        if (!end.failed.isEmpty())
            end.result = Result::Failed;
        else if (ninjasEnd.isOk() || isComplete)
            end.result = Result::Completed;
        else if (wasStopped || !failedSteps().isEmpty())
            end.result = Result::Cancelled;
        end.isCutShort = end.result == Result::Cancelled && !wasStopped;
    }
}

void JointRun::tell(const Status &status)
{
    if (!status.isOk())
        Q_EMIT message(Logger::Warning, status.text());
}

} // namespace MorvalenCore
