#include <Qtilities/TreeItemBase.h>

namespace Qtilities::CoreGui {

TreeItemBase::TreeItemBase(QObject *parent) : AbstractTreeItem(parent) { }

TreeItemBase::~TreeItemBase() = default;

Core::Status TreeItemBase::trySetCategory(const Core::QtilitiesCategory &category)
{
    if (category != itemCategory) {
        itemCategory = category;
        setModificationState(true);
    }
    return {};
}

void TreeItemBase::setModificationState(bool state)
{
    if (modified == state)
        return;
    modified = state;
    Q_EMIT modificationStateChanged(modified);
}

} // namespace Qtilities::CoreGui
