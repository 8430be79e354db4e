#pragma once

#include "component/ItemId.h"

#include <QList>
#include <QString>

namespace MorvalenCore {

class ComponentTree;

// The folders of a component document, which the standard has no element for. Paths are texts as
// they were given.
class ComponentFolders
{
public:
    explicit ComponentFolders(ComponentTree &tree);

    QList<FolderId> folders() const;
    bool contains(FolderId folder) const;

    QString path(FolderId folder) const;
    // Levels joined by "::"; empty for none.
    QString category(FolderId folder) const;

    FolderId add(const QString &path, const QString &category, QString *error = nullptr);
    void remove(FolderId folder);
    bool setPath(FolderId folder, const QString &path, QString *error = nullptr);
    bool setCategory(FolderId folder, const QString &category, QString *error = nullptr);

private:
    ComponentTree &tree;
};

} // namespace MorvalenCore
