// What can be done with files, folders and properties.

#include "app/calls/HostCall.h"
#include "app/designs/deleting.h"
#include "app/designs/DesignTree.h"
#include "app/designs/DesignTreeView.h"
#include "app/designs/RowAction.h"
#include "app/designs/rowtexts.h"
#include "app/designs/SharedPropertiesDialog.h"
#include "app/journal/journaling.h"
#include "app/messages/messages.h"

#include <Qtilities/categorytext.h>

#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QInputDialog>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::BuildConfiguration;
using MorvalenCore::DesignFile;
using MorvalenCore::DesignFolder;
using MorvalenCore::DesignProperty;
using MorvalenCore::Interfaces::IDesign;
using Qtilities::Core::QtilitiesCategory;
using Qtilities::CoreGui::AbstractTreeItem;
using Qtilities::CoreGui::TreeFileItem;
using Qtilities::Logging::Logger;

namespace {

// The active items of one kind.
template <typename Item>
struct ActiveItems
{
    QList<QPointer<Item>> (IDesign::*get)() const;
    void (IDesign::*set)(const QList<QPointer<Item>> &items);
};

constexpr ActiveItems<DesignFile> activeFiles {&IDesign::activeFiles, &IDesign::setActiveFiles};
constexpr ActiveItems<DesignFolder> activeFolders {&IDesign::activeFolders,
                                                   &IDesign::setActiveFolders};
constexpr ActiveItems<DesignProperty> activeProperties {&IDesign::activeProperties,
                                                        &IDesign::setActiveProperties};

enum class Activation { Set, Add, Remove };

template <typename Item>
void activate(IDesign &design, const QList<TreeRow> &rows, Activation how,
              const ActiveItems<Item> &kind)
{
    QList<QPointer<Item>> chosen;
    for (const TreeRow &row : rows) {
        auto *item = qobject_cast<Item *>(row.item.data());
        if (item && row.design() == &design)
            chosen.append(item);
    }
    if (chosen.isEmpty())
        return;
    QList<QPointer<Item>> active;
    if (how != Activation::Set) {
        const QSet<const Item *> those(chosen.cbegin(), chosen.cend());
        active = (design.*kind.get)();
        active.removeIf([&those](const QPointer<Item> &item) { return those.contains(item); });
    }
    if (how != Activation::Remove)
        active += chosen;
    (design.*kind.set)(active);
}

void activate(const RowCall &call, Activation how)
{
    const HostCall attempt(call.window(), DesignTree::tr("Not Activated"));
    for (IDesign *design : rowactions::designsOf(call.rows)) {
        activate(*design, call.rows, how, activeFiles);
        activate(*design, call.rows, how, activeFolders);
        activate(*design, call.rows, how, activeProperties);
    }
    if (how == Activation::Set && call.rows.size() == 1)
        journaling::itemActivated(*call.first().design(), rowtexts::kindWord(call.first()),
                                  rowtexts::itemWord(call.first()));
    else
        journaling::remark(DesignTree::tr("The active items of the design became others"));
}

bool someAre(const RowCall &call, bool active)
{
    return std::any_of(call.rows.begin(), call.rows.end(),
                       [active](const TreeRow &row) { return row.active == active; });
}

void open(const RowCall &call)
{
    for (const TreeRow &row : call.rows)
        call.tree.activate(row);
}

// The categories that items of the kind have in the designs.
QStringList knownCategories(const RowCall &call)
{
    QStringList known;
    const auto add = [&known](const AbstractTreeItem *item) {
        const QString text = textOf(item->category());
        if (!text.isEmpty())
            known.append(text);
    };
    for (const IDesign *design : rowactions::designsOf(call.rows)) {
        if (call.first().kind == RowKind::File)
            for (const DesignFile *file : design->filesUnderNode(QString(), true))
                add(file);
        else
            for (const DesignFolder *folder : design->folders())
                add(folder);
    }
    known.removeDuplicates();
    known.sort();
    return known;
}

AbstractTreeItem *treeItem(const TreeRow &row)
{
    return qobject_cast<AbstractTreeItem *>(row.item.data());
}

void setCategory(const RowCall &call)
{
    const QList<TreeRow> rows = call.rows;
    const QString present = textOf(treeItem(call.first())->category());
    QStringList known = knownCategories(call);
    if (!known.contains(present))
        known.prepend(present);
    bool given = false;
    const QString category =
        QInputDialog::getItem(call.window(), DesignTree::tr("Category"),
                              DesignTree::tr("&Category, its levels separated by \"::\":"), known,
                              int(known.indexOf(present)), true, &given);
    if (!given)
        return;
    HostCall attempt(call.window(), DesignTree::tr("Category Not Changed"));
    for (const TreeRow &row : rows) {
        if (row.isThere()
            && attempt.takeAndLog(
                treeItem(row)->trySetCategory(Qtilities::Core::categoryFrom(category)),
                Logger::Warning))
            journaling::categorySet(*row.design(), rowtexts::kindWord(row), rowtexts::itemWord(row),
                                    category);
    }
}

void showSharedProperties(const RowCall &call)
{
    auto *dialog = new SharedPropertiesDialog(call.first(), call.window());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open();
}

QString pathOf(const TreeRow &row)
{
    const auto *item = qobject_cast<const TreeFileItem *>(row.item.data());
    return item ? QDir::toNativeSeparators(item->actualPath()) : QString();
}

void copyText(const RowCall &call)
{
    QStringList lines;
    for (const TreeRow &row : call.rows) {
        const auto *property = row.property();
        lines.append(property ? property->propertyData().value().toString() : pathOf(row));
    }
    QGuiApplication::clipboard()->setText(lines.join(u'\n'));
}

void openFolder(const RowCall &call)
{
    const QString path = pathOf(call.first());
    const QString folder =
        call.first().kind == RowKind::Folder ? path : QFileInfo(path).absolutePath();
    messages::showFolder(folder);
}

void remove(const RowCall &call)
{
    deleting::removeFromDesigns(call.rows, call.tree.removals(), call.window());
}

void rename(const RowCall &call) { call.tree.treeView()->editName(call.first()); }

void cut(const RowCall &call) { call.tree.cut(call.rows); }

void deleteFromDisk(const RowCall &call) { deleting::deleteFromDisk(call.rows, call.window()); }

constexpr unsigned paths = rowBit(RowKind::File) | rowBit(RowKind::Folder);
constexpr unsigned properties = rowBit(RowKind::Property);
constexpr unsigned items = paths | properties;

constexpr RowAction actions[] = {
    {.text = QT_TRANSLATE_NOOP("DesignTree", "&Open"), .kinds = rowBit(RowKind::File), .run = open},
    {.text = QT_TRANSLATE_NOOP("DesignTree", "Rena&me"),
     .kinds = rowBit(RowKind::File),
     .needs = RowAction::OneRow | RowAction::Writable,
     .run = rename,
     .key = Qt::Key_F2,
     .icon = ActionIcon::Rename},
    {.text = QT_TRANSLATE_NOOP("DesignTree", "&Edit Value"),
     .kinds = properties,
     .needs = RowAction::OneRow | RowAction::Writable,
     .run = open,
     .isPossible =
         [](const RowCall &call) { return !call.first().property()->propertyData().isReadOnly(); },
     .key = Qt::Key_F2},
    {.text = QT_TRANSLATE_NOOP("DesignTree", "Set &Active"),
     .kinds = items,
     .needs = RowAction::Separated,
     .run = [](const RowCall &call) { activate(call, Activation::Set); }},
    {.text = QT_TRANSLATE_NOOP("DesignTree", "A&dd to Active"),
     .kinds = items,
     .run = [](const RowCall &call) { activate(call, Activation::Add); },
     .isPossible = [](const RowCall &call) { return someAre(call, false); }},
    {.text = QT_TRANSLATE_NOOP("DesignTree", "Ta&ke from Active"),
     .kinds = items,
     .run = [](const RowCall &call) { activate(call, Activation::Remove); },
     .isPossible = [](const RowCall &call) { return someAre(call, true); }},
    {.text = QT_TRANSLATE_NOOP("DesignTree", "Ca&tegory..."),
     .kinds = paths,
     .needs = RowAction::Writable | RowAction::Separated,
     .run = setCategory},
    {.text = QT_TRANSLATE_NOOP("DesignTree", "&Shared Properties..."),
     .kinds = items,
     .needs = RowAction::OneRow,
     .run = showSharedProperties,
     .key = Qt::ALT | Qt::Key_Return},
    {.text = QT_TRANSLATE_NOOP("DesignTree", "C&ut"),
     .kinds = rowBit(RowKind::File),
     .needs = RowAction::Writable | RowAction::Separated,
     .run = cut,
     .key = Qt::CTRL | Qt::Key_X,
     .icon = ActionIcon::Cut},
    {.text = QT_TRANSLATE_NOOP("DesignTree", "Pas&te"),
     .kinds = rowBit(RowKind::File),
     .needs = RowAction::OneRow | RowAction::Writable,
     .run = [](const RowCall &call) { call.tree.paste(call.first()); },
     .isPossible = [](const RowCall &call) { return call.tree.canPaste(call.first()); },
     .key = Qt::CTRL | Qt::Key_V,
     .icon = ActionIcon::Paste},
    {.text = QT_TRANSLATE_NOOP("DesignTree", "Copy &Path"),
     .kinds = paths,
     .run = copyText,
     .key = Qt::CTRL | Qt::Key_C},
    {.text = QT_TRANSLATE_NOOP("DesignTree", "&Copy Value"),
     .kinds = properties,
     .needs = RowAction::Separated,
     .run = copyText,
     .key = Qt::CTRL | Qt::Key_C},
    {.text = QT_TRANSLATE_NOOP("DesignTree", "Open in File &Manager"),
     .kinds = paths,
     .needs = RowAction::OneRow,
     .run = openFolder,
     .icon = ActionIcon::OpenFolder},
    {.text = QT_TRANSLATE_NOOP("DesignTree", "&Remove from Design..."),
     .kinds = items,
     .needs = RowAction::Writable | RowAction::Separated,
     .run = remove,
     .isPossible = deleting::areRemovable,
     .key = Qt::Key_Delete},
    {.text = QT_TRANSLATE_NOOP("DesignTree", "De&lete from Disk..."),
     .kinds = paths,
     .needs = RowAction::Writable,
     .run = deleteFromDisk,
     .key = Qt::SHIFT | Qt::Key_Delete},
};

} // namespace

std::span<const RowAction> rowactions::ofItems() { return actions; }
