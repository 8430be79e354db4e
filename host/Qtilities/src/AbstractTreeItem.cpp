#include <Qtilities/AbstractTreeItem.h>
#include <Qtilities/statuslog.h>

namespace Qtilities::CoreGui {

using Logging::Logger;
using Logging::logStatus;

AbstractTreeItem::AbstractTreeItem(QObject *parent) : QObject(parent) { }

AbstractTreeItem::~AbstractTreeItem() = default;

QString AbstractTreeItem::getName(const Core::Observer *) const { return objectName(); }

// An empty name is refused without a word in the log. The name of an item that overrides getName
// alone is none that can be set here.
Core::Status AbstractTreeItem::trySetName(const QString &name)
{
    if (name.isEmpty())
        return Core::Status(Core::Status::Kind::InvalidArgument, QString());
    const QString before = getName();
    const QString objectBefore = objectName();
    setObjectName(name);
    if (getName() == name)
        return {};
    setObjectName(objectBefore);
    return Core::Status::unsupported(
        QStringLiteral("The item \"%1\" cannot be renamed to \"%2\"").arg(before, name));
}

bool AbstractTreeItem::setName(const QString &name, Core::Observer *)
{
    return logStatus(trySetName(name), Logger::Warning);
}

Core::Status AbstractTreeItem::trySetCategory(const Core::QtilitiesCategory &)
{
    return Core::Status::unsupported(
        QStringLiteral("The category of \"%1\" cannot be changed").arg(getName()));
}

bool AbstractTreeItem::setCategory(const Core::QtilitiesCategory &category)
{
    return logStatus(trySetCategory(category), Logger::Warning);
}

} // namespace Qtilities::CoreGui
