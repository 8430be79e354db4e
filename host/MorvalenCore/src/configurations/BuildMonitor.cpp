#include <MorvalenCore/BuildMonitor.h>

#include <Qtilities/Replaceable.h>

using Qtilities::Logging::Logger;

namespace MorvalenCore {

namespace {

Qtilities::Core::Replaceable<BuildMonitor> &slot()
{
    static auto *const theSlot = new Qtilities::Core::Replaceable<BuildMonitor>;
    return *theSlot;
}

} // namespace

BuildMonitor::BuildMonitor(QObject *parent) : QObject(parent) { }

BuildMonitor::~BuildMonitor() = default;

BuildMonitor *BuildMonitor::instance() { return slot().get(); }

void BuildMonitor::setInstance(BuildMonitor *monitor) { slot().set(monitor); }

void BuildMonitor::begin(BuildConfiguration *configuration)
{
    configurations.append(configuration);
    Q_EMIT started(configuration);
}

void BuildMonitor::progress(BuildConfiguration *configuration, int done, int total,
                            const QString &step)
{
    Q_EMIT progressed(configuration, done, total, step);
}

void BuildMonitor::say(BuildConfiguration *configuration, Logger::MessageType type,
                       const QString &text)
{
    speaker = configuration;
    if (configuration)
        Q_EMIT said(configuration, type, text);
    Logger::instance()->logMessage(QString(), type, text);
    speaker = nullptr;
}

void BuildMonitor::tellRunning(BuildConfiguration *configuration, const QList<RunningStep> &steps)
{
    Q_EMIT stepsRun(configuration, steps);
}

void BuildMonitor::tellResults(BuildConfiguration *configuration, const QStringList &done,
                               const QStringList &failed)
{
    Q_EMIT stepsEnded(configuration, done, failed);
}

void BuildMonitor::end(BuildConfiguration *configuration)
{
    configurations.removeAll(configuration);
    Q_EMIT ended(configuration);
}

} // namespace MorvalenCore
