#include <MorvalenCore/BuildConfiguration.h>
#include <Qtilities/statuslog.h>

#include <QMetaEnum>

using Qtilities::Core::Status;
using Qtilities::Logging::Logger;
using Qtilities::Logging::logStatus;

namespace MorvalenCore {

BuildConfiguration::BuildConfiguration(QObject *parent) : QObject(parent) { }

BuildConfiguration::~BuildConfiguration() = default;

Status BuildConfiguration::trySetTargetPath(const QString &)
{
    return Status::unsupported(
        QStringLiteral("The target path of \"%1\" cannot be changed").arg(configurationName()));
}

Status BuildConfiguration::tryRun(bool, bool)
{
    return Status::unsupported(
        QStringLiteral("The build configuration \"%1\" cannot be run").arg(configurationName()));
}

void BuildConfiguration::setTargetPath(const QString &path)
{
    logStatus(trySetTargetPath(path), Logger::Warning);
}

Status BuildConfiguration::trySetDescription(const BuildDescription &description)
{
    Q_UNUSED(description)
    return Status::unsupported(QStringLiteral("The build configuration cannot be changed"));
}

bool BuildConfiguration::setDescription(const BuildDescription &description, QString *error)
{
    const Status status = trySetDescription(description);
    return error ? status.toErrorText(error) : logStatus(status, Logger::Warning);
}

void BuildConfiguration::refresh() { logStatus(tryRefresh()); }

bool BuildConfiguration::run(bool onlyOutdated, bool dryRun)
{
    return logEnd(tryRun(onlyOutdated, dryRun));
}

bool BuildConfiguration::logEnd(const Status &ended)
{
    return logStatus(ended,
                     ended.kind() == Status::Kind::Cancelled ? Logger::Warning : Logger::Error);
}

QString BuildConfiguration::runStateToString(RunState state)
{
    return QLatin1StringView(QMetaEnum::fromType<RunState>().valueToKey(state));
}

} // namespace MorvalenCore
