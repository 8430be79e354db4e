// The members of the design's item classes that are the same for every design.

#include <MorvalenCore/BuildConfiguration.h>
#include <MorvalenCore/DesignFile.h>
#include <MorvalenCore/DesignFolder.h>
#include <MorvalenCore/DesignProperty.h>

#include <QMetaEnum>

namespace MorvalenCore {

DesignFile::DesignFile(QObject *parent) : TreeFileItem(parent) { }

DesignFile::~DesignFile() = default;

DesignFolder::DesignFolder(QObject *parent) : TreeFileItem(parent) { }

DesignFolder::~DesignFolder() = default;

DesignProperty::DesignProperty(QObject *parent) : AbstractTreeItem(parent) { }

DesignProperty::~DesignProperty() = default;

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
