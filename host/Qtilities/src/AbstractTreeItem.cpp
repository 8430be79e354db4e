#include <Qtilities/AbstractTreeItem.h>

namespace Qtilities::CoreGui {

AbstractTreeItem::AbstractTreeItem(QObject *parent) : QObject(parent) { }

AbstractTreeItem::~AbstractTreeItem() = default;

QString AbstractTreeItem::getName(const Core::Observer *) const { return objectName(); }

bool AbstractTreeItem::setName(const QString &name, Core::Observer *)
{
    if (name.isEmpty())
        return false;
    setObjectName(name);
    return true;
}

} // namespace Qtilities::CoreGui
