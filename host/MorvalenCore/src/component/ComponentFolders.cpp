#include "component/ComponentFolders.h"

#include "component/ComponentTree.h"
#include "component/EditCheck.h"

using Qtilities::Core::Result;
using Qtilities::Core::Status;

namespace MorvalenCore {

ComponentFolders::ComponentFolders(ComponentTree &componentTree) : tree(componentTree) { }

QList<FolderId> ComponentFolders::folders() const
{
    const QList nodes = tree.ownChildren(tree.ownChild(tree.design(), "folders"), "folder");
    QList<FolderId> list;
    list.reserve(nodes.size());
    for (const XmlNode node : nodes)
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

Result<FolderId> ComponentFolders::add(const QString &path, const QString &category)
{
    if (const Status refused =
            EditCheck().isGiven(path, u"path of a folder").isCarried({path, category}).status();
        !refused.isOk())
        return refused;
    const XmlNode folders = tree.ensureOwn(tree.ensureDesign(), "folders");
    const XmlNode folder = tree.addOwn(folders, "folder");
    tree.setAttribute(folder, "path", path);
    tree.setAttribute(folder, "category", category);
    return FolderId {{folder}};
}

void ComponentFolders::remove(FolderId folder)
{
    if (contains(folder))
        tree.removeAndPrune(folder.node);
}

Status ComponentFolders::setPath(FolderId folder, const QString &path)
{
    if (const Status refused = EditCheck()
                                   .isThere(contains(folder), u"folder")
                                   .isGiven(path, u"path of a folder")
                                   .isCarried({path})
                                   .status();
        !refused.isOk())
        return refused;
    tree.setAttribute(folder.node, "path", path);
    return {};
}

Status ComponentFolders::setCategory(FolderId folder, const QString &category)
{
    if (const Status refused =
            EditCheck().isThere(contains(folder), u"folder").isCarried({category}).status();
        !refused.isOk())
        return refused;
    tree.setAttribute(folder.node, "category", category);
    return {};
}

} // namespace MorvalenCore
