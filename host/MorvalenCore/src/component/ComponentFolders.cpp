#include "component/ComponentFolders.h"

#include "component/ComponentTree.h"
#include "component/itemcheck.h"

namespace MorvalenCore {

ComponentFolders::ComponentFolders(ComponentTree &componentTree) : tree(componentTree) { }

QList<FolderId> ComponentFolders::folders() const
{
    QList<FolderId> list;
    for (const XmlNode node : tree.ownChildren(tree.ownChild(tree.design(), "folders"), "folder"))
        list.append(FolderId {{node}});
    return list;
}

bool ComponentFolders::contains(FolderId folder) const { return tree.xml.isAlive(folder.node); }

QString ComponentFolders::path(FolderId folder) const
{
    return contains(folder) ? tree.attribute(folder.node, "path") : QString();
}

QString ComponentFolders::category(FolderId folder) const
{
    return contains(folder) ? tree.attribute(folder.node, "category") : QString();
}

FolderId ComponentFolders::add(const QString &path, const QString &category, QString *error)
{
    if (!ItemCheck::isGiven(path, u"path of a folder", error)
        || !tree.check({path, category}, error))
        return {};
    const XmlNode folders = tree.ensureOwn(tree.ensureDesign(), "folders");
    const XmlNode folder = tree.addOwn(folders, "folder");
    tree.setAttribute(folder, "path", path);
    tree.setAttribute(folder, "category", category);
    return {{folder}};
}

void ComponentFolders::remove(FolderId folder)
{
    if (contains(folder))
        tree.removeAndPrune(folder.node);
}

bool ComponentFolders::setPath(FolderId folder, const QString &path, QString *error)
{
    if (!ItemCheck::isThere(contains(folder), u"folder", error)
        || !ItemCheck::isGiven(path, u"path of a folder", error) || !tree.check({path}, error))
        return false;
    tree.setAttribute(folder.node, "path", path);
    return true;
}

bool ComponentFolders::setCategory(FolderId folder, const QString &category, QString *error)
{
    if (!ItemCheck::isThere(contains(folder), u"folder", error) || !tree.check({category}, error))
        return false;
    tree.setAttribute(folder.node, "category", category);
    return true;
}

} // namespace MorvalenCore
