#include "app/issues/IssuesView.h"

#include "app/editor/placeopening.h"
#include "app/issues/IssueList.h"
#include "app/issues/IssueModel.h"
#include "app/messages/messages.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QMenu>
#include <QTreeView>
#include <QVBoxLayout>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Status;

namespace {

constexpr int messageCharacters = 90;
constexpr int fileCharacters = 24;

bool isSame(const Issue &a, const Issue &b)
{
    return a.file == b.file && a.line == b.line && a.column == b.column && a.message == b.message;
}

} // namespace

IssuesView::IssuesView(IssueList *theList, QWidget *parent)
    : QWidget(parent),
      list(theList),
      model(new IssueModel(theList, this)),
      tree(new QTreeView(this)),
      next(new QAction(tr("&Next Issue"), this)),
      previous(new QAction(tr("&Previous Issue"), this)),
      copying(new QAction(tr("&Copy"), this))
{
    tree->setObjectName(u"issues"_s);
    tree->setAccessibleName(tr("Issues"));
    tree->setModel(model);
    tree->setUniformRowHeights(true);
    tree->setAllColumnsShowFocus(true);
    tree->setContextMenuPolicy(Qt::CustomContextMenu);
    tree->setItemsExpandable(true);
    tree->header()->setStretchLastSection(true);
    const int character = fontMetrics().averageCharWidth();
    tree->setColumnWidth(IssueModel::MessageColumn, character * messageCharacters);
    tree->setColumnWidth(IssueModel::FileColumn, character * fileCharacters);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(tree);
    setFocusProxy(tree);
    makeActions();
    connect(list, &IssueList::changed, this, &IssuesView::follow);
    connect(tree, &QTreeView::clicked, this, &IssuesView::go);
    connect(tree, &QTreeView::activated, this, &IssuesView::go);
    connect(tree, &QWidget::customContextMenuRequested, this, &IssuesView::showMenu);
    follow();
}

void IssuesView::makeActions()
{
    next->setObjectName(u"nextIssue"_s);
    next->setShortcut(Qt::Key_F8);
    previous->setObjectName(u"previousIssue"_s);
    previous->setShortcut(Qt::SHIFT | Qt::Key_F8);
    connect(next, &QAction::triggered, this, [this] { step(1); });
    connect(previous, &QAction::triggered, this, [this] { step(-1); });
    copying->setShortcut(QKeySequence::Copy);
    copying->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(copying, &QAction::triggered, this, &IssuesView::copy);
    tree->addAction(copying);
}

// The issue that was chosen stays so, wherever it is now.
void IssuesView::follow()
{
    const Issue *old = model->issue(tree->currentIndex());
    const Issue chosen = old ? *old : Issue();
    model->follow();
    tree->expandAll();
    const QList<QModelIndex> issues = allIssues();
    next->setEnabled(!issues.isEmpty());
    previous->setEnabled(!issues.isEmpty());
    for (const QModelIndex &index : issues) {
        if (old && isSame(*model->issue(index), chosen))
            return tree->setCurrentIndex(index);
    }
}

QList<QModelIndex> IssuesView::allIssues() const
{
    QList<QModelIndex> all;
    for (int source = 0; source < model->rowCount(); ++source) {
        const QModelIndex above = model->index(source, 0);
        for (int row = 0; row < model->rowCount(above); ++row)
            all.append(model->index(row, 0, above));
    }
    return all;
}

// Behind the last one comes the first.
void IssuesView::step(int by)
{
    const QList<QModelIndex> all = allIssues();
    if (all.isEmpty())
        return;
    const qsizetype current = all.indexOf(tree->currentIndex().siblingAtColumn(0));
    const qsizetype count = all.size();
    const qsizetype wanted =
        current < 0 ? (by > 0 ? 0 : count - 1) : (current + by + count) % count;
    tree->setCurrentIndex(all[wanted]);
    go(all[wanted]);
}

void IssuesView::go(const QModelIndex &index)
{
    const Issue *issue = model->issue(index);
    if (!issue || issue->file.isEmpty())
        return;
    const Status shown = placeopening::show(issue->file, issue->line, issue->column);
    messages::tell(shown.isOk() ? issue->message : shown.text());
}

void IssuesView::copy() const
{
    const Issue *issue = model->issue(tree->currentIndex());
    if (issue)
        QGuiApplication::clipboard()->setText(issue->details);
}

void IssuesView::showMenu(const QPoint &position)
{
    QMenu menu(this);
    menu.addActions({copying, next, previous});
    menu.addSeparator();
    menu.addAction(tr("C&lear"), list, &IssueList::clear);
    menu.exec(tree->viewport()->mapToGlobal(position));
}
