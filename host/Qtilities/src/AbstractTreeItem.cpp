#include <Qtilities/AbstractTreeItem.h>
#include <Qtilities/statuslog.h>

namespace Qtilities::CoreGui {

using Logging::Logger;
using Logging::logStatus;

AbstractTreeItem::AbstractTreeItem(QObject *parent) : QObject(parent) { }

AbstractTreeItem::~AbstractTreeItem() = default;

QString AbstractTreeItem::getName(const Core::Observer *) const { return objectName(); }

// An empty name is refused without a word in the log.
Core::Status AbstractTreeItem::trySetName(const QString &name)
{
    if (name.isEmpty())
        return Core::Status(Core::Status::Kind::InvalidArgument, QString());
    setObjectName(name);
    return {};
}

bool AbstractTreeItem::setName(const QString &name, Core::Observer *)
{
    return logStatus(trySetName(name), Logger::Warning);
}

bool AbstractTreeItem::setCategory(const Core::QtilitiesCategory &category)
{
    return logStatus(trySetCategory(category), Logger::Warning);
}

} // namespace Qtilities::CoreGui
