#include <MorvalenCore/BuildConfiguration.h>

#include <QMetaEnum>

namespace MorvalenCore {

BuildConfiguration::BuildConfiguration(QObject *parent) : QObject(parent) { }

BuildConfiguration::~BuildConfiguration() = default;

bool BuildConfiguration::setDescription(const BuildDescription &description, QString *error)
{
    Q_UNUSED(description)
    *error = QStringLiteral("The build configuration cannot be changed");
    return false;
}

QString BuildConfiguration::runStateToString(RunState state)
{
    return QLatin1StringView(QMetaEnum::fromType<RunState>().valueToKey(state));
}

} // namespace MorvalenCore
