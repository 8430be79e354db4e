#pragma once

#include "build/BuildRun.h"
#include "build/JointFile.h"
#include "build/SharedLog.h"

namespace MorvalenCore {

// Carries out several plans in one run of Ninja, so that the steps of all of them run side by side:
// writes a joint.ninja with all steps into the target folder of the first and runs Ninja there. The
// folders are locked already. No file has makers in two plans, and no input is missing that
// nobody makes: Ninja would run nothing at all.
class JointRun final : public BuildRun
{
    Q_OBJECT

public:
    JointRun(const QList<JointPart> &parts, const NinjaFile &fileOfFirst,
             QObject *parent = nullptr);

    // What came of one of the plans.
    End endOf(int part) const { return ends[part]; }

    // Whose step was shown last: what is said comes from it.
    int speakingPart() const { return speaker; }

    // The name of the file.
    static QString fileName();

Q_SIGNALS:
    // The same as progressed(), of one of the plans. The step is empty before the first one.
    void partProgressed(int part, int done, int total, const QString &step);
    // The same as stepsRun(), of each of the plans.
    void partStepsRun(int part, const QList<MorvalenCore::RunningSteps::Step> &steps);

private:
    Qtilities::Core::Status prepare(bool onlyLooks) override;
    QStringList fileArguments() const override;
    QList<BuildOutput::LogFile> logFiles() const override;
    void stepsBegin(const QList<int> &outdated) override;
    void conclude(const Qtilities::Core::Status &ninjasEnd) override;
    void stepShown(int step, int ended, int total) override;

    int partOf(int step) const;
    void divideRunning(const QList<RunningSteps::Step> &steps);
    void divide(const Qtilities::Core::Status &ninjasEnd, const QList<int> &left);
    void tell(const Qtilities::Core::Status &status);

    const QList<JointPart> parts;
    // Where the steps of each begin among all.
    QList<int> firstSteps;
    SharedLog log;
    // All steps that were to be run, and how many of each part were, and have been.
    QList<int> wanted;
    QList<int> totals;
    QList<int> counts;
    int speaker = 0;
    QList<End> ends;
};

} // namespace MorvalenCore
