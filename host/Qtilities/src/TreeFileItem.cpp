#include <Qtilities/TreeFileItem.h>

#include <QFileInfo>

namespace Qtilities::CoreGui {

TreeFileItem::TreeFileItem(QObject *parent) : AbstractTreeItem(parent) { }

TreeFileItem::~TreeFileItem() = default;

QString TreeFileItem::fileName() const { return QFileInfo(actualPath()).fileName(); }

} // namespace Qtilities::CoreGui
