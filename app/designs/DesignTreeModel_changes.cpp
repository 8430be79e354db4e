// What users change in the rows themselves: values of properties, and what they drop.

#include "app/designs/DesignTreeModel.h"
#include "app/designs/rowtexts.h"

#include <QMimeData>
#include <QUrl>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignProperty;
using MorvalenCore::Interfaces::IDesign;

namespace {

bool takesFiles(RowKind kind)
{
    constexpr RowKind others[] {RowKind::Root, RowKind::Properties, RowKind::Property,
                                RowKind::Builds, RowKind::Configuration};
    return std::find(std::begin(others), std::end(others), kind) == std::end(others);
}

} // namespace

Qt::ItemFlags DesignTreeModel::flags(const QModelIndex &index) const
{
    Qt::ItemFlags flags = QAbstractItemModel::flags(index);
    if (!index.isValid())
        return flags;
    const TreeRow given = row(index);
    if (takesFiles(given.kind))
        flags |= Qt::ItemIsDropEnabled;
    const DesignProperty *property = given.property();
    if (index.column() == DetailsColumn && property && !property->propertyData().isReadOnly())
        flags |= Qt::ItemIsEditable;
    return flags;
}

QVariant DesignTreeModel::editedValue(const TreeRow &row, int column)
{
    const DesignProperty *property = column == DetailsColumn ? row.property() : nullptr;
    return property ? property->propertyData().value() : QVariant();
}

bool DesignTreeModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::EditRole || (flags(index) & Qt::ItemIsEditable) == 0)
        return false;
    Q_EMIT valueGiven(row(index), value);
    return true;
}

QStringList DesignTreeModel::mimeTypes() const { return {u"text/uri-list"_s}; }

// A place between two rows is none of them.
bool DesignTreeModel::canDropMimeData(const QMimeData *data, Qt::DropAction, int place, int,
                                      const QModelIndex &parent) const
{
    const TreeRow target = row(parent);
    const IDesign *design = target.isThere() ? target.design() : nullptr;
    if (place >= 0 || !design || !takesFiles(target.kind) || design->isReadOnly()
        || design->workingFolderPath().isEmpty() || !data->hasUrls())
        return false;
    const QList<QUrl> urls = data->urls();
    return std::all_of(urls.begin(), urls.end(), [](const QUrl &url) { return url.isLocalFile(); });
}

bool DesignTreeModel::dropMimeData(const QMimeData *data, Qt::DropAction action, int row,
                                   int column, const QModelIndex &parent)
{
    if (!canDropMimeData(data, action, row, column, parent))
        return false;
    QStringList paths;
    const QList<QUrl> urls = data->urls();
    for (const QUrl &url : urls)
        paths.append(url.toLocalFile());
    Q_EMIT pathsDropped(this->row(parent), paths);
    return true;
}
