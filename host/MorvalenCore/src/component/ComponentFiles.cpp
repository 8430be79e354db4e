#include "component/ComponentFiles.h"

#include "component/ComponentTree.h"
#include "component/EditCheck.h"
#include "component/ipxact.h"

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

namespace MorvalenCore {

namespace {

constexpr char generatedGroup[] = "generatedFiles";

} // namespace

ComponentFiles::ComponentFiles(ComponentTree &componentTree) : tree(componentTree) { }

QList<FileSetId> ComponentFiles::fileSets() const
{
    const QList nodes =
        tree.standardChildren(tree.standardChild(XmlTree::root, "fileSets"), "fileSet");
    QList<FileSetId> sets;
    sets.reserve(nodes.size());
    for (const XmlNode node : nodes)
        sets.append(FileSetId {{node}});
    return sets;
}

QList<FileId> ComponentFiles::files() const
{
    const QList sets = fileSets();
    QList<FileId> all;
    for (const FileSetId set : sets)
        appendFiles(set, &all);
    return all;
}

QList<FileId> ComponentFiles::files(FileSetId set) const
{
    QList<FileId> list;
    if (contains(set))
        appendFiles(set, &list);
    return list;
}

void ComponentFiles::appendFiles(FileSetId set, QList<FileId> *list) const
{
    const QList nodes = tree.standardChildren(set.node, "file");
    if (list->isEmpty())
        list->reserve(nodes.size());
    for (const XmlNode node : nodes)
        list->append(FileId {{node}});
}

bool ComponentFiles::contains(FileId file) const { return tree.xml.isAlive(file.node); }

bool ComponentFiles::contains(FileSetId set) const { return tree.xml.isAlive(set.node); }

QString ComponentFiles::name(FileSetId set) const
{
    return contains(set) ? tree.standardText(set.node, "name") : QString();
}

QStringList ComponentFiles::groups(FileSetId set) const
{
    if (!contains(set))
        return {};
    auto known = knownGroups.find(set);
    if (known == knownGroups.end()) {
        known = knownGroups.insert(set, {});
        for (const QList nodes = tree.standardChildren(set.node, "group");
             const XmlNode node : nodes)
            *known += tree.xml.text(node);
    }
    return *known;
}

bool ComponentFiles::isInGeneratedGroup(FileSetId set) const
{
    return groups(set).contains(QLatin1StringView(generatedGroup));
}

FileSetId ComponentFiles::fileSet(const QString &name) const
{
    for (const FileSetId set : fileSets()) {
        if (this->name(set) == name)
            return set;
    }
    return {};
}

FileSetId ComponentFiles::fileSet(FileId file) const
{
    return contains(file) ? FileSetId {{tree.xml.parent(file.node)}} : FileSetId {};
}

QString ComponentFiles::path(FileId file) const
{
    return contains(file) ? tree.standardText(file.node, "name") : QString();
}

QString ComponentFiles::fileType(FileId file) const
{
    if (!contains(file))
        return {};
    const XmlNode type = tree.standardChild(file.node, "fileType");
    return type != 0 ? tree.xml.text(type) : tree.standardText(file.node, "userFileType");
}

QString ComponentFiles::standardCategory(FileId file) const
{
    const FileSetId set = fileSet(file);
    const QStringList all = groups(set);
    return all.isEmpty() ? name(set) : all.first();
}

QString ComponentFiles::category(FileId file) const
{
    if (!contains(file))
        return {};
    const QString own = tree.attribute(tree.item(file.node), "category");
    return own.isEmpty() ? standardCategory(file) : own;
}

bool ComponentFiles::hasOwnCategory(FileId file) const
{
    return contains(file) && !tree.attribute(tree.item(file.node), "category").isEmpty();
}

std::optional<GeneratedInfo> ComponentFiles::generated(FileId file) const
{
    if (!contains(file))
        return {};
    const XmlNode own = tree.ownChild(tree.item(file.node), "generated");
    if (own != 0)
        return GeneratedInfo {tree.attribute(own, "by"), tree.attribute(own, "version")};
    if (isInGeneratedGroup(fileSet(file)))
        return GeneratedInfo {{}, tree.standardText(XmlTree::root, "version")};
    return {};
}

FileBuildCommand ComponentFiles::buildCommand(FileId file) const
{
    if (!contains(file))
        return {};
    const XmlNode node = tree.standardChild(file.node, "buildCommand");
    if (node == 0)
        return {};
    FileBuildCommand build;
    build.command = tree.standardText(node, "command");
    build.flags = tree.standardText(node, "flags");
    const QString replace = tree.standardText(node, "replaceDefaultFlags");
    build.replaceDefaultFlags = replace == "true"_L1 || replace == "1"_L1;
    build.targetName = tree.standardText(node, "targetName");
    return build;
}

QList<FileId> ComponentFiles::filesWithBuildCommand() const
{
    QList<FileId> list = files();
    list.removeIf([this](FileId file) { return buildCommand(file).command.isEmpty(); });
    return list;
}

Status ComponentFiles::checkPath(const QString &path) const
{
    return EditCheck().isGiven(path, u"path of a file").isCarried({path}).status();
}

Result<FileSetId> ComponentFiles::addFileSet(const QString &name)
{
    if (const Status refused =
            EditCheck().isGiven(name, u"name of a file set").isCarried({name}).status();
        !refused.isOk())
        return refused;
    const XmlNode sets = tree.ensureStandard(XmlTree::root, "fileSets");
    const XmlNode set = tree.addStandard(sets, "fileSet");
    tree.xml.setText(tree.addStandard(set, "name"), name);
    return FileSetId {{set}};
}

void ComponentFiles::removeEmpty(FileSetId set)
{
    if (!contains(set) || !files(set).isEmpty())
        return;
    const XmlNode sets = tree.xml.parent(set.node);
    tree.xml.remove(set.node);
    if (tree.xml.isNew(sets) && tree.xml.isEmpty(sets))
        tree.xml.remove(sets);
}

Result<FileId> ComponentFiles::add(const QString &path, FileSetId set)
{
    if (const Status refused = EditCheck()
                                   .isThere(contains(set), u"file set")
                                   .isGiven(path, u"path of a file")
                                   .isCarried({path})
                                   .status();
        !refused.isOk())
        return refused;
    const XmlNode file = tree.addStandard(set.node, "file");
    tree.xml.setText(tree.addStandard(file, "name"), path);
    tree.xml.setText(tree.addStandard(file, "fileType"), fileTypeOf(path));
    return FileId {{file}};
}

void ComponentFiles::remove(FileId file)
{
    if (contains(file))
        tree.xml.remove(file.node);
}

Result<FileId> ComponentFiles::move(FileId file, FileSetId set)
{
    if (const Status refused = EditCheck()
                                   .isThere(contains(file), u"file")
                                   .isThere(contains(set), u"file set")
                                   .status();
        !refused.isOk())
        return refused;
    const XmlNode copy = tree.copyStandard(file.node, set.node);
    if (copy == 0)
        return Status::unsupported(
            u"The file \"%1\" cannot be moved: the component file has comments or declarations of "
            "its own there, which would be lost."_s.arg(path(file)));
    tree.xml.remove(file.node);
    return FileId {{copy}};
}

Status ComponentFiles::setPath(FileId file, const QString &path)
{
    if (const Status refused = EditCheck()
                                   .isThere(contains(file), u"file")
                                   .isGiven(path, u"path of a file")
                                   .isCarried({path})
                                   .status();
        !refused.isOk())
        return refused;
    tree.xml.setText(tree.ensureStandard(file.node, "name"), path);
    return {};
}

Status ComponentFiles::setCategory(FileId file, const QString &category)
{
    if (const Status refused =
            EditCheck().isThere(contains(file), u"file").isCarried({category}).status();
        !refused.isOk())
        return refused;
    const bool isStandard = category.isEmpty() || category == standardCategory(file);
    const XmlNode item = isStandard ? tree.item(file.node) : tree.ensureItem(file.node);
    if (item == 0)
        return {};
    tree.setAttribute(item, "category", isStandard ? QString() : category);
    tree.prune(item);
    return {};
}

Status ComponentFiles::setGenerated(FileId file, const std::optional<GeneratedInfo> &info)
{
    const GeneratedInfo written = info.value_or(GeneratedInfo());
    if (const Status refused = EditCheck()
                                   .isThere(contains(file), u"file")
                                   .isCarried({written.by, written.version})
                                   .status();
        !refused.isOk())
        return refused;
    if (generated(file) == info)
        return {};
    if (info) {
        const XmlNode entry = tree.ensureOwn(tree.ensureItem(file.node), "generated");
        tree.setAttribute(entry, "by", written.by);
        tree.setAttribute(entry, "version", written.version);
        return {};
    }
    if (isInGeneratedGroup(fileSet(file))) {
        return Status::readOnly(
            u"The file %1 is generated, since its file set is in the group %2."_s.arg(
                path(file), QLatin1StringView(generatedGroup)));
    }
    const XmlNode entry = tree.ownChild(tree.item(file.node), "generated");
    if (entry != 0)
        tree.removeAndPrune(entry);
    return {};
}

QString ComponentFiles::fileTypeOf(const QString &path) const
{
    return Ipxact::fileTypeOf(tree.generation(), path);
}

} // namespace MorvalenCore
