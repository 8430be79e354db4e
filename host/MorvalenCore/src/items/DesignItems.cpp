// The members of the design's item classes that are the same for every design.

#include <MorvalenCore/DesignFile.h>
#include <MorvalenCore/DesignFolder.h>
#include <MorvalenCore/DesignProperty.h>
#include <Qtilities/statuslog.h>

using Qtilities::Logging::Logger;
using Qtilities::Logging::logStatus;

namespace MorvalenCore {

DesignFile::DesignFile(QObject *parent) : TreeFileItem(parent) { }

DesignFile::~DesignFile() = default;

DesignFolder::DesignFolder(QObject *parent) : TreeFileItem(parent) { }

DesignFolder::~DesignFolder() = default;

DesignProperty::DesignProperty(QObject *parent) : AbstractTreeItem(parent) { }

DesignProperty::~DesignProperty() = default;

void DesignProperty::setValue(const QVariant &value)
{
    logStatus(trySetValue(value), Logger::Warning);
}

} // namespace MorvalenCore
