// The members of the design's item classes that are the same for every design.

#include <MorvalenCore/DesignFile.h>
#include <MorvalenCore/DesignFolder.h>
#include <MorvalenCore/DesignProperty.h>
#include <Qtilities/statuslog.h>

#include <QFileInfo>

using Qtilities::Logging::Logger;
using Qtilities::Logging::logStatus;

namespace MorvalenCore {

DesignFile::DesignFile(QObject *parent) : TreeFileItem(parent) { }

DesignFile::~DesignFile() = default;

bool DesignFile::existsOnDisk() const { return QFileInfo(actualPath()).isFile(); }

DesignFolder::DesignFolder(QObject *parent) : TreeFileItem(parent) { }

DesignFolder::~DesignFolder() = default;

bool DesignFolder::existsOnDisk() const { return QFileInfo(actualPath()).isDir(); }

DesignProperty::DesignProperty(QObject *parent) : AbstractTreeItem(parent) { }

DesignProperty::~DesignProperty() = default;

QString DesignProperty::getName(const Qtilities::Core::Observer *) const
{
    return propertyData().name();
}

Qtilities::Core::Status DesignProperty::trySetValue(const QVariant &)
{
    return Qtilities::Core::Status::unsupported(
        QStringLiteral("The value of property \"%1\" cannot be changed").arg(getName()));
}

void DesignProperty::setValue(const QVariant &value)
{
    logStatus(trySetValue(value), Logger::Warning);
}

} // namespace MorvalenCore
