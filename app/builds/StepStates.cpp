#include "app/builds/StepStates.h"

using MorvalenCore::BuildConfiguration;
using MorvalenCore::BuildMonitor;
using MorvalenCore::RunningStep;

StepStates::StepStates(QObject *parent) : QObject(parent)
{
    const BuildMonitor *monitor = BuildMonitor::instance();
    connect(monitor, &BuildMonitor::started, this, &StepStates::begin);
    connect(monitor, &BuildMonitor::progressed, this,
            [this](const BuildConfiguration *configuration, int, int, const QString &step) {
                showEnded(configuration, step);
            });
    connect(monitor, &BuildMonitor::stepsRun, this, &StepStates::showRunning);
    connect(monitor, &BuildMonitor::stepsEnded, this, &StepStates::showResults);
}

void StepStates::follow(BuildConfiguration *configuration)
{
    if (configuration == followed)
        return;
    followed = configuration;
    states.clear();
    running.clear();
    Q_EMIT changed();
}

void StepStates::begin(const BuildConfiguration *configuration)
{
    if (configuration != followed)
        return;
    states.clear();
    running.clear();
    Q_EMIT changed();
}

// Whether it ended well is known when the run is over.
void StepStates::showEnded(const BuildConfiguration *configuration, const QString &step)
{
    if (configuration != followed)
        return;
    running.removeAll(step);
    states.insert(step, tr("Ended"));
    Q_EMIT changed();
}

void StepStates::showRunning(const BuildConfiguration *configuration,
                             const QList<RunningStep> &steps)
{
    if (configuration != followed)
        return;
    for (const QString &before : std::as_const(running))
        states.insert(before, tr("Ended"));
    running.clear();
    for (const RunningStep &step : steps) {
        running.append(step.name);
        states.insert(step.name, tr("Running, %1 s").arg(step.milliseconds / 1000));
    }
    Q_EMIT changed();
}

void StepStates::showResults(const BuildConfiguration *configuration, const QStringList &done,
                             const QStringList &failed)
{
    if (configuration != followed)
        return;
    states.clear();
    running.clear();
    for (const QString &step : done)
        states.insert(step, tr("Completed"));
    for (const QString &step : failed)
        states.insert(step, tr("Failed"));
    Q_EMIT changed();
}
