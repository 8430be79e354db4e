#pragma once

#include <MorvalenCore/BuildDescription.h>
#include <MorvalenCore/BuildStepPropertyManager.h>
#include <MorvalenCore/MorvalenCoreExport.h>

#include <Qtilities/Status.h>

#include <QObject>
#include <QStringList>

namespace MorvalenCore {

// A named way to build a design: target path, macros and ordered steps. Owned by its design.
//
// Operations whose names begin with "try" return why they failed and log no failure. Beside each is
// the form that commands call, for which the log says why.
class MORVALENCORE_EXPORT BuildConfiguration : public QObject
{
    Q_OBJECT

public:
    enum RunState : int { Idle, Running, Completed, Failed, Cancelled };
    Q_ENUM(RunState)

    explicit BuildConfiguration(QObject *parent = nullptr);
    ~BuildConfiguration() override;

    virtual QString configurationName() const = 0;

    // The folder that the build writes to, as it was set; a relative one is of the design's
    // working folder.
    virtual QString getTargetPath() const { return {}; }
    virtual Qtilities::Core::Status trySetTargetPath(const QString &path);
    virtual void setTargetPath(const QString &path);

    // What the design keeps of it, and the steps that come on top of that: those that files of the
    // design bring along, which are changed in the files.
    virtual BuildDescription description() const { return {}; }
    virtual QList<BuildStep> stepsOfFiles() const { return {}; }
    // Changes all of it, the name included. The design refuses it when it is read-only, or another
    // configuration has that name. A run that is under way goes on as it began.
    virtual Qtilities::Core::Status trySetDescription(const BuildDescription &description);
    bool setDescription(const BuildDescription &description, QString *error);

    virtual RunState runState() const { return Idle; }

    // "Idle", "Running", "Completed", "Failed", "Cancelled".
    static QString runStateToString(RunState state);

    // Step names in the order of execution: the first count of them, or all for -1.
    virtual QStringList stepNamesInOrder(int count) const
    {
        Q_UNUSED(count)
        return {};
    }

    // Owned by the configuration; null when it knows of no macros.
    virtual const BuildStepPropertyManager *propertyManager() const { return nullptr; }

    // Looks anew at what is outdated; how the last run ended is forgotten.
    virtual Qtilities::Core::Status tryRefresh() { return {}; }
    virtual void refresh();

    // The steps that were outdated when somebody last looked, in the order of execution.
    virtual QStringList outdatedStepNames() const { return {}; }

    // Runs the build and returns when it has ended; the status says that it failed or was
    // cancelled. What it does goes to the log, line by line. A dry run only says what it would do.
    // A configuration that was destroyed meanwhile ends as cancelled, without a sentence.
    virtual Qtilities::Core::Status tryRun(bool onlyOutdated, bool dryRun);
    virtual bool run(bool onlyOutdated, bool dryRun);

    // Lets a run end soon, with all its processes. Nothing when none is under way.
    virtual void cancel() { }

protected:
    // Logs how a run ended, for a caller that cannot take it; true when it ended well.
    static bool logEnd(const Qtilities::Core::Status &ended);
};

} // namespace MorvalenCore
