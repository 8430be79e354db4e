#pragma once

#include <MorvalenCore/BuildDescription.h>
#include <MorvalenCore/BuildStepPropertyManager.h>
#include <MorvalenCore/MorvalenCoreExport.h>

#include <QObject>
#include <QStringList>

namespace MorvalenCore {

// A named way to build a design: target path, macros and ordered steps. Owned by its design.
class MORVALENCORE_EXPORT BuildConfiguration : public QObject
{
    Q_OBJECT

public:
    enum RunState { Idle, Running, Completed, Failed, Cancelled };
    Q_ENUM(RunState)

    explicit BuildConfiguration(QObject *parent = nullptr);
    ~BuildConfiguration() override;

    virtual QString configurationName() const = 0;

    // The folder that the build writes to, as it was set; a relative one is of the design's
    // working folder.
    virtual QString getTargetPath() const = 0;
    virtual void setTargetPath(const QString &path) = 0;

    // What the design keeps of it, and the steps that come on top of that: those that files of the
    // design bring along, which are changed in the files.
    virtual BuildDescription description() const { return {}; }
    virtual QList<BuildStep> stepsOfFiles() const { return {}; }
    // Changes all of it, the name included. False, with nothing changed and the reason in *error,
    // when the design refuses it: it is read-only, or another configuration has that name. A run
    // that is under way goes on as it began.
    virtual bool setDescription(const BuildDescription &description, QString *error);

    virtual RunState runState() const = 0;

    // "Idle", "Running", "Completed", "Failed", "Cancelled".
    static QString runStateToString(RunState state);

    // Step names in the order of execution: the first count of them, or all for -1.
    virtual QStringList stepNamesInOrder(int count) const = 0;

    // Owned by the configuration.
    virtual const BuildStepPropertyManager *propertyManager() const = 0;

    // Looks anew at what is outdated; how the last run ended is forgotten.
    virtual void refresh() = 0;

    // The steps that were outdated when somebody last looked, in the order of execution.
    virtual QStringList outdatedStepNames() const { return {}; }

    // Runs the build and returns when it has ended; false when it failed or was cancelled, with
    // the reason in the log. A dry run only says what it would do.
    virtual bool run(bool onlyOutdated, bool dryRun) = 0;

    // Lets a run end soon, with all its processes. Nothing when none is under way.
    virtual void cancel() { }
};

} // namespace MorvalenCore
