#include <Qtilities/statuslog.h>
#include <Qtilities/TreeFileItem.h>

#include <QFileInfo>

namespace Qtilities::CoreGui {

TreeFileItem::TreeFileItem(QObject *parent) : AbstractTreeItem(parent) { }

TreeFileItem::~TreeFileItem() = default;

Core::Status TreeFileItem::trySetActualPath(const QString &)
{
    return Core::Status::unsupported(
        QStringLiteral("The path of \"%1\" cannot be changed").arg(actualPath()));
}

void TreeFileItem::setActualPath(const QString &path)
{
    Logging::logStatus(trySetActualPath(path), Logging::Logger::Warning);
}

QString TreeFileItem::fileName() const { return QFileInfo(actualPath()).fileName(); }

} // namespace Qtilities::CoreGui
