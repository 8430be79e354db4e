#pragma once

#include "tests/fakes/Journal.h"

#include <MorvalenCore/BuildConfiguration.h>
#include <MorvalenCore/BuildStepPropertyManager.h>

// A build configuration whose macros are its public members by their mode.
class FakeBuildConfiguration : public MorvalenCore::BuildConfiguration,
                               private MorvalenCore::BuildStepPropertyManager
{
public:
    FakeBuildConfiguration(Journal &theJournal, const QString &theName)
        : name(theName),
          journal(theJournal)
    {
    }

    QString configurationName() const override { return name; }
    QString getTargetPath() const override { return targetPath; }
    void setTargetPath(const QString &path) override
    {
        journal.perform(callText("configuration.setTargetPath", {path}),
                        [&] { targetPath = path; });
    }
    RunState runState() const override { return state; }
    QStringList stepNamesInOrder(int count) const override
    {
        journal.perform(callText("configuration.stepNamesInOrder", {QString::number(count)}));
        return steps;
    }
    const MorvalenCore::BuildStepPropertyManager *propertyManager() const override { return this; }
    void refresh() override { journal.perform(callText("configuration.refresh")); }
    bool run(bool onlyOutdated, bool dryRun) override
    {
        return journal.perform(
            callText("configuration.run", {callWord(onlyOutdated), callWord(dryRun)}));
    }

    QString name;
    QString targetPath;
    RunState state = Idle;
    QStringList steps;
    QHash<int, QHash<QString, QString>> macros;

private:
    QHash<QString, QString> macroValues(MorvalenCore::MacroMode mode) const override
    {
        return macros.value(mode.toInt());
    }

    Journal &journal;
};
