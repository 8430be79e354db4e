#include "app/designs/TreeBranch.h"

#include "app/designs/TreeFilter.h"

#include <MorvalenCore/DesignManager.h>
#include <Qtilities/categorytext.h>

#include <QHash>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::BuildConfiguration;
using MorvalenCore::DesignFile;
using MorvalenCore::DesignFolder;
using MorvalenCore::DesignProperty;
using MorvalenCore::Interfaces::IDesign;
using Qtilities::CoreGui::AbstractTreeItem;
using Qtilities::CoreGui::TreeFileItem;

namespace {

QString categoryText(const AbstractTreeItem &item) { return textOf(item.category()); }

// Paths are searched as seen from the design, so that its own place does not match.
QString searchedText(const TreeFileItem &item, const QString &folder)
{
    const QString path = item.actualPath();
    const bool isInside = !folder.isEmpty() && path.startsWith(folder + u'/');
    return (isInside ? path.mid(folder.size() + 1) : path) + u'\n' + categoryText(item);
}

QString searchedText(const DesignProperty &property, const QString &)
{
    return property.getName() + u'\n' + categoryText(property);
}

QString searchedText(const BuildConfiguration &configuration, const QString &)
{
    return configuration.configurationName();
}

template <typename Item>
void addItems(TreeBranch &group, RowKind kind, const QList<Item *> &items, const QString &folder,
              const TreeFilter &filter)
{
    group.itemKind = kind;
    for (Item *item : items) {
        if (item && (filter.isEmpty() || filter.accepts(searchedText(*item, folder))))
            group.items.append(item);
    }
}

// Takes files by their nodes. Nodes that the design does not tell of come behind the others.
class NodeSorter
{
public:
    explicit NodeSorter(TreeBranch &fileGroup, const QStringList &names) : group(fileGroup)
    {
        for (const QString &name : names)
            node(name);
    }

    void take(DesignFile *file)
    {
        // Neighbours mostly share their node.
        const QString name = file->node();
        if (!last || name != last->name)
            last = node(name);
        last->items.append(file);
    }

private:
    TreeBranch *node(const QString &name)
    {
        TreeBranch *&known = byName[name];
        if (!known) {
            known = group.add(std::make_unique<TreeBranch>(RowKind::Node));
            known->name = name;
            known->itemKind = RowKind::File;
        }
        return known;
    }

    TreeBranch &group;
    QHash<QString, TreeBranch *> byName;
    TreeBranch *last = nullptr;
};

void readFiles(TreeBranch &group, const IDesign &design, const QString &folder,
               const TreeFilter &filter)
{
    NodeSorter sorter(group, filter.isEmpty() ? design.nodeNames() : QStringList());
    const QList<DesignFile *> files = design.filesUnderNode(QString(), true);
    for (DesignFile *file : files) {
        if (filter.isEmpty() || filter.accepts(searchedText(*file, folder)))
            sorter.take(file);
    }
}

QList<BuildConfiguration *> configurationsOf(const IDesign &design)
{
    QList<BuildConfiguration *> configurations;
    const QStringList names = design.buildConfigurationNames();
    for (const QString &name : names)
        configurations.append(design.buildConfiguration(name));
    return configurations;
}

template <typename Item>
void insertAll(QSet<const QObject *> &set, const QList<QPointer<Item>> &items)
{
    for (const QPointer<Item> &item : items)
        set.insert(item);
}

QSet<const QObject *> activeItems(const IDesign &design)
{
    QSet<const QObject *> active;
    insertAll(active, design.activeFiles());
    insertAll(active, design.activeFolders());
    insertAll(active, design.activeProperties());
    active.insert(design.activeBuildConfiguration());
    active.remove(nullptr);
    return active;
}

} // namespace

std::unique_ptr<TreeBranch> TreeBranch::read(IDesign &design, const TreeFilter &filter)
{
    auto branch = std::make_unique<TreeBranch>(RowKind::Design);
    branch->designObject = design.objectBase();
    branch->active = activeItems(design);

    const QString folder = design.workingFolderPath();
    const auto addGroup = [&](RowKind group) -> TreeBranch & {
        return *branch->add(std::make_unique<TreeBranch>(group));
    };
    readFiles(addGroup(RowKind::Files), design, folder, filter);
    addItems(addGroup(RowKind::Folders), RowKind::Folder, design.folders(), folder, filter);
    addItems(addGroup(RowKind::Properties), RowKind::Property, design.properties(), folder, filter);
    addItems(addGroup(RowKind::Builds), RowKind::Configuration, configurationsOf(design), folder,
             filter);
    if (!filter.isEmpty())
        std::erase_if(branch->branches, [](const auto &group) { return group->rowCount() == 0; });
    return branch;
}

std::unique_ptr<TreeBranch> TreeBranch::unread(IDesign &design)
{
    auto branch = std::make_unique<TreeBranch>(RowKind::Root);
    branch->designObject = design.objectBase();
    return branch;
}

int TreeBranch::row() const
{
    const auto found =
        std::find_if(parent->branches.cbegin(), parent->branches.cend(),
                     [this](const auto &candidate) { return candidate.get() == this; });
    return int(found - parent->branches.cbegin());
}

TreeBranch *TreeBranch::add(std::unique_ptr<TreeBranch> branch)
{
    branch->parent = this;
    branches.push_back(std::move(branch));
    return branches.back().get();
}

const TreeBranch *TreeBranch::designBranch() const
{
    const TreeBranch *branch = this;
    while (branch && branch->kind != RowKind::Design)
        branch = branch->parent;
    return branch;
}

int TreeBranch::itemCount() const
{
    int count = int(items.size());
    for (const auto &branch : branches)
        count += branch->itemCount();
    return count;
}

TreeRow TreeBranch::rowAt(int row) const
{
    if (!branches.empty())
        return branches[size_t(row)]->ownRow();
    const TreeBranch *design = designBranch();
    const QPointer<QObject> &item = items[row];
    return {itemKind, design->designObject, name, item,
            !item.isNull() && design->active.contains(item)};
}

TreeRow TreeBranch::ownRow() const
{
    const TreeBranch *design = designBranch();
    TreeRow own {kind, design ? design->designObject : nullptr, name, nullptr, false};
    if (kind == RowKind::Design) {
        const IDesign *open = own.design();
        own.active = open
            && MorvalenCore::DesignManager::instance()->activeDesigns().contains(
                const_cast<IDesign *>(open));
    }
    return own;
}
