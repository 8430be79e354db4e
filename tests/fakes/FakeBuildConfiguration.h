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
    MorvalenCore::BuildDescription description() const override { return data; }
    QList<MorvalenCore::BuildStep> stepsOfFiles() const override { return fileSteps; }
    Qtilities::Core::Status
    trySetDescription(const MorvalenCore::BuildDescription &description) override
    {
        const bool changed = journal.perform(callText("configuration.setDescription"), [&] {
            data = description;
            name = data.name;
        });
        return changed ? Qtilities::Core::Status()
                       : Qtilities::Core::Status::invalidArgument(refusal);
    }
    RunState runState() const override { return state; }
    QStringList stepNamesInOrder(int count) const override
    {
        journal.perform(callText("configuration.stepNamesInOrder", {QString::number(count)}));
        return steps;
    }
    const MorvalenCore::BuildStepPropertyManager *propertyManager() const override
    {
        return hasMacros ? this : nullptr;
    }
    void refresh() override { journal.perform(callText("configuration.refresh")); }
    bool run(bool onlyOutdated, bool dryRun) override
    {
        return journal.perform(
            callText("configuration.run", {callWord(onlyOutdated), callWord(dryRun)}));
    }

    // For the window, which asks for the reason: the same calls.
    Qtilities::Core::Status trySetTargetPath(const QString &path) override
    {
        setTargetPath(path);
        return {};
    }
    Qtilities::Core::Status tryRefresh() override
    {
        refresh();
        return {};
    }
    Qtilities::Core::Status tryRun(bool onlyOutdated, bool dryRun) override
    {
        using Qtilities::Core::Status;
        return run(onlyOutdated, dryRun) ? Status()
                                         : Status::failed(QStringLiteral("It refuses that"));
    }

    QString name;
    QString targetPath;
    bool hasMacros = true;
    RunState state = Idle;
    QStringList steps;
    QHash<int, QHash<QString, QString>> macros;
    MorvalenCore::BuildDescription data {.name = name, .targetPath = {}, .macros = {}, .steps = {}};
    QList<MorvalenCore::BuildStep> fileSteps;
    QString refusal = QStringLiteral("The configuration refuses it");

private:
    QHash<QString, QString> macroValues(MorvalenCore::MacroMode mode) const override
    {
        return macros.value(mode.toInt());
    }

    Journal &journal;
};
