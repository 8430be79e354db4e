#pragma once

#include <MorvalenCore/BuildConfiguration.h>
#include <MorvalenCore/MorvalenCoreExport.h>
#include <Qtilities/Logger.h>

#include <QList>
#include <QObject>
#include <QString>

namespace MorvalenCore {

// A step that runs, and for how long by now.
struct RunningStep
{
    QString name;
    qint64 milliseconds = 0;

    bool operator==(const RunningStep &) const = default;
};

// Tells of the builds that are under way, of whichever design, for those who show them. One per
// process. A build is cancelled by its configuration.
class MORVALENCORE_EXPORT BuildMonitor : public QObject
{
    Q_OBJECT

public:
    explicit BuildMonitor(QObject *parent = nullptr);
    ~BuildMonitor() override;

    // The one that was set, else one made on first use.
    static BuildMonitor *instance();

    // Replaces it; it stays the caller's, null brings the default back.
    static void setInstance(BuildMonitor *monitor);

    // The configurations whose builds are under way, in the order of their start.
    QList<BuildConfiguration *> running() const { return configurations; }

    // The configuration whose output is being logged; null when none is.
    BuildConfiguration *speaking() const { return speaker; }

    // Called by the configurations.
    void begin(BuildConfiguration *configuration);
    void progress(BuildConfiguration *configuration, int done, int total, const QString &step);
    void tellRunning(BuildConfiguration *configuration, const QList<RunningStep> &steps);
    void tellResults(BuildConfiguration *configuration, const QStringList &done,
                     const QStringList &failed);
    void end(BuildConfiguration *configuration);
    // Logs a line of what a build says; of none that is gone, null.
    void say(BuildConfiguration *configuration, Qtilities::Logging::Logger::MessageType type,
             const QString &text);

Q_SIGNALS:
    void started(MorvalenCore::BuildConfiguration *configuration);
    // Steps done of steps to do, and the step that this is about.
    void progressed(MorvalenCore::BuildConfiguration *configuration, int done, int total,
                    const QString &step);
    // The steps that run now, as far as that is known; told again and again.
    void stepsRun(MorvalenCore::BuildConfiguration *configuration,
                  const QList<MorvalenCore::RunningStep> &steps);
    // Which steps the run has done, and which have failed; right before it has ended.
    void stepsEnded(MorvalenCore::BuildConfiguration *configuration, const QStringList &done,
                    const QStringList &failed);
    // A line of the output of the configuration's steps, or of what is said of them. The output of
    // a step comes behind progressed() for that step.
    void said(MorvalenCore::BuildConfiguration *configuration,
              Qtilities::Logging::Logger::MessageType type, const QString &text);
    // The configuration's run state says how. It may be about to be destroyed.
    void ended(MorvalenCore::BuildConfiguration *configuration);

private:
    QList<BuildConfiguration *> configurations;
    BuildConfiguration *speaker = nullptr;
};

} // namespace MorvalenCore
