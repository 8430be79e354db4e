#include <MorvalenCore/BuildConfiguration.h>

#include <Qtilities/Status.h>

#include <QMetaEnum>

namespace MorvalenCore {

BuildConfiguration::BuildConfiguration(QObject *parent) : QObject(parent) { }

BuildConfiguration::~BuildConfiguration() = default;

bool BuildConfiguration::setDescription(const BuildDescription &description, QString *error)
{
    Q_UNUSED(description)
    return Qtilities::Core::Status::unsupported(
               QStringLiteral("The build configuration cannot be changed"))
        .toErrorText(error);
}

QString BuildConfiguration::runStateToString(RunState state)
{
    return QLatin1StringView(QMetaEnum::fromType<RunState>().valueToKey(state));
}

} // namespace MorvalenCore
