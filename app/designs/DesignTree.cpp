#include "app/designs/DesignTree.h"

#include "app/calls/DesignSelection.h"
#include "app/calls/HostCall.h"
#include "app/designs/adding.h"
#include "app/designs/arranging.h"
#include "app/designs/ComponentWatch.h"
#include "app/designs/DesignTreeModel.h"
#include "app/designs/DesignTreeView.h"
#include "app/designs/dropping.h"
#include "app/designs/ItemWatch.h"
#include "app/designs/NoDesignPage.h"
#include "app/designs/RowAction.h"
#include "app/editor/NoticeBar.h"
#include "app/journal/journaling.h"
#include "app/messages/messages.h"

#include <MorvalenCore/DesignManager.h>
#include <MorvalenCore/EditorManager.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QStackedLayout>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;
using MorvalenCore::EditorManager;
using Qtilities::Logging::Logger;

namespace {

// While the user types, in milliseconds.
constexpr int filterDelay = 150;

QLineEdit *makeFilter(QWidget *parent)
{
    auto *filter = new QLineEdit(parent);
    filter->setObjectName(u"designFilter"_s);
    filter->setPlaceholderText(DesignTree::tr("Filter"));
    filter->setAccessibleName(DesignTree::tr("Filter"));
    filter->setToolTip(DesignTree::tr(
        "Shows only the items with these words in their paths, names or categories"));
    filter->setClearButtonEnabled(true);
    return filter;
}

} // namespace

DesignTree::DesignTree(QWidget *parent)
    : QWidget(parent),
      model(new DesignTreeModel(this)),
      view(new DesignTreeView(model, this)),
      notice(new NoticeBar(this)),
      filter(makeFilter(this)),
      pages(new QStackedLayout(this))
{
    auto *treePage = new QWidget(this);
    auto *layout = new QVBoxLayout(treePage);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(notice);
    layout->addWidget(filter);
    layout->addWidget(view);
    pages->addWidget(new NoDesignPage(this));
    pages->addWidget(treePage);

    componentWatch = new ComponentWatch(notice, this);
    connect(new ItemWatch(this), &ItemWatch::touched, model, &DesignTreeModel::lookAgain);
    auto *typing = new QTimer(this);
    typing->setSingleShot(true);
    connect(filter, &QLineEdit::textChanged, typing, [typing] { typing->start(filterDelay); });
    connect(filter, &QLineEdit::returnPressed, typing, [typing] { typing->start(0); });
    connect(typing, &QTimer::timeout, this, [this] { view->applyFilter(filter->text()); });
    filter->installEventFilter(this);

    view->installEventFilter(this);
    connect(view, &DesignTreeView::rowActivated, this, &DesignTree::activate);
    connect(view, &DesignTreeView::menuAsked, this, &DesignTree::showMenu);
    followModel();
    followDesigns();
}

// What rows are asked for is done once the view has its own back.
void DesignTree::followModel()
{
    connect(model, &DesignTreeModel::valueGiven, this, &DesignTree::setValue);
    connect(
        model, &DesignTreeModel::nameGiven, this,
        [this](const TreeRow &file, const QString &name) {
            arranging::rename(file, name, window());
        },
        Qt::QueuedConnection);
    connect(model, &DesignTreeModel::pathsDropped, this,
            [this](const TreeRow &row, const QStringList &paths) {
                adding::addPaths(row, paths, window());
            });
    connect(
        model, &DesignTreeModel::rowsDropped, this,
        [this](const TreeRow &row, const QList<TreeRow> &files) {
            arranging::move(files, row, true, window());
        },
        Qt::QueuedConnection);
}

void DesignTree::followDesigns()
{
    connect(model, &DesignTreeModel::aboutToFollow, this,
            [this] { isArriving = std::exchange(hasArrival, false); });
    connect(model, &DesignTreeModel::followed, this, [this] {
        showTreeOrHint();
        if (std::exchange(isArriving, false))
            view->selectDesign(DesignManager::instance()->activeDesigns().value(0));
        // Rows that have gone are told of nowhere else.
        Q_EMIT DesignSelection::instance()->changed();
    });
    connect(DesignManager::instance(), &DesignManager::designAttached, this,
            [this] { hasArrival = true; });
    // Whoever has gone to another row meanwhile stays there.
    connect(view->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this] { hasArrival = false; });
    DesignSelection *selection = DesignSelection::instance();
    connect(view->selectionModel(), &QItemSelectionModel::selectionChanged, selection,
            &DesignSelection::changed);
    selection->setSource([this] { return view->selectedDesign(); });
}

// A value that is being edited is given when the view goes, and then there is nobody to take it.
DesignTree::~DesignTree()
{
    DesignSelection::instance()->setSource({});
    model->disconnect(this);
    view->disconnect(this);
}

void DesignTree::showEvent(QShowEvent *event)
{
    model->setWatched(true);
    QWidget::showEvent(event);
}

void DesignTree::hideEvent(QHideEvent *event)
{
    model->setWatched(false);
    QWidget::hideEvent(event);
}

// Whoever comes back from another program may have changed files there.
void DesignTree::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && isVisible()) {
        model->lookAgain();
        componentWatch->look();
    }
    QWidget::changeEvent(event);
}

bool DesignTree::eventFilter(QObject *watched, QEvent *event)
{
    const bool isKey = event->type() == QEvent::KeyPress;
    if (!isKey && event->type() != QEvent::ShortcutOverride)
        return QWidget::eventFilter(watched, event);
    auto &key = *static_cast<QKeyEvent *>(event);
    if (watched == filter)
        return isKey && filterKey(key);
    // Keys that mean something here are not left to the menus of the window.
    const bool isOurs = watched == view && runByKey(key.keyCombination(), !isKey);
    if (isOurs && !isKey)
        event->accept();
    return isOurs;
}

bool DesignTree::filterKey(QKeyEvent &event)
{
    if (event.key() == Qt::Key_Escape && !filter->text().isEmpty())
        filter->clear();
    else if (event.key() == Qt::Key_Down)
        view->setFocus(Qt::ShortcutFocusReason);
    else
        return false;
    return true;
}

// Whether a key means something here; unless that is only asked, it is done.
bool DesignTree::runByKey(QKeyCombination key, bool onlyAsked)
{
    const QKeySequence sequence(key);
    const auto matches = [&sequence](QKeySequence::StandardKey standard) {
        return QKeySequence::keyBindings(standard).contains(sequence);
    };
    if (matches(QKeySequence::Find) || matches(QKeySequence::Refresh)) {
        if (onlyAsked)
            return true;
        if (matches(QKeySequence::Find))
            filter->setFocus(Qt::ShortcutFocusReason);
        else
            model->lookAgain();
        return true;
    }
    if (matches(QKeySequence::Undo)) {
        if (!onlyAsked)
            undo.undo(window());
        return true;
    }
    const QList<TreeRow> rows = actionRows();
    const RowAction *action = rowactions::forKey(rows, key);
    if (action && !onlyAsked)
        action->runOn({rows, *this});
    return action;
}

bool DesignTree::canRun(QKeyCombination key)
{
    if (QKeySequence::keyBindings(QKeySequence::Undo).contains(QKeySequence(key)))
        return !undo.isEmpty();
    if (QKeySequence::keyBindings(QKeySequence::SelectAll).contains(QKeySequence(key)))
        return true;
    const RowCall call {actionRows(), *this};
    if (const RowAction *action = rowactions::forKey(call.rows, key))
        return action->isEnabled(call);
    return runByKey(key, true);
}

// Whoever selects groups with some of their items means the items.
QList<TreeRow> DesignTree::actionRows() const
{
    const QList<TreeRow> all = view->selectedRows();
    QList<TreeRow> items = all;
    items.removeIf([](const TreeRow &row) { return !row.isItem(); });
    const bool hasDesign = std::any_of(
        all.cbegin(), all.cend(), [](const TreeRow &row) { return row.kind == RowKind::Design; });
    return items.isEmpty() || hasDesign ? all : items;
}

void DesignTree::cut(const QList<TreeRow> &files)
{
    cutFiles = files;
    QGuiApplication::clipboard()->setMimeData(dropping::dataOf(files));
}

bool DesignTree::canPaste(const TreeRow &target) const
{
    const QMimeData *content = QGuiApplication::clipboard()->mimeData();
    if (!content || !dropping::mayDrop(*content, target))
        return false;
    return !dropping::isOwn(*content) || arranging::mayMove(cutFiles, target);
}

void DesignTree::paste(const TreeRow &target)
{
    const QMimeData *content = QGuiApplication::clipboard()->mimeData();
    if (!content)
        return;
    if (!dropping::isOwn(*content))
        return adding::addPaths(target, dropping::paths(*content), window());
    QGuiApplication::clipboard()->clear();
    arranging::move(std::exchange(cutFiles, {}), target, false, window());
}

void DesignTree::endLooking() { model->endLooking(); }

void DesignTree::takeFocus()
{
    if (view->isVisible())
        view->setFocus(Qt::ShortcutFocusReason);
    else
        pages->currentWidget()->setFocus(Qt::ShortcutFocusReason);
}

void DesignTree::showMenu(const QPoint &globalPosition)
{
    const RowCall call {actionRows(), *this};
    const QList<const RowAction *> actions = rowactions::forRows(call.rows);
    if (actions.isEmpty())
        return;
    auto *menu = new QMenu(this);
    menu->setObjectName(u"designMenu"_s);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const RowAction *action : actions) {
        if ((action->needs & RowAction::Separated) != 0)
            menu->addSeparator();
        QAction *entry = menu->addAction(actionicons::icon(action->icon), tr(action->text));
        if (action->key != Qt::Key_unknown)
            entry->setShortcut(QKeySequence(action->key));
        entry->setShortcutVisibleInContextMenu(true);
        entry->setEnabled(action->isEnabled(call));
        connect(entry, &QAction::triggered, this, [this, action, rows = call.rows] {
            action->runOn({rows, *this});
        });
    }
    menu->popup(globalPosition);
}

void DesignTree::showTreeOrHint()
{
    pages->setCurrentIndex(DesignManager::instance()->openDesignIds().isEmpty() ? 0 : 1);
}

void DesignTree::activate(const TreeRow &row)
{
    if (!row.isThere())
        return;
    const QString id = row.design()->id(u"."_s);
    switch (row.kind) {
    case RowKind::Design:
        DesignManager::instance()->setActiveDesign(id);
        journaling::activated(id);
        break;
    case RowKind::File:
        openFile(row);
        break;
    case RowKind::Property:
        view->editValue(row);
        break;
    case RowKind::Configuration:
        Q_EMIT configurationActivated(id, row.configuration()->configurationName());
        break;
    default:
        break;
    }
}

void DesignTree::openFile(const TreeRow &row)
{
    const auto editor = EditorManager::instance()->tryCreateEditorForPath(
        row.file()->actualPath(), QString(), true, row.design()->isReadOnly());
    if (!editor.isOk())
        messages::warn(window(), tr("Not Opened"), {editor.status().text()});
}

void DesignTree::setValue(const TreeRow &row, const QVariant &value)
{
    HostCall attempt(window(), tr("Not Changed"));
    if (row.isThere() && attempt.takeAndLog(row.property()->trySetValue(value), Logger::Warning))
        journaling::propertySet(*row.design(), row.property()->getName(), value);
}
