#include "app/window/ScriptsView.h"

#include <QFileSystemModel>
#include <QKeyEvent>
#include <QMenu>
#include <QTreeView>
#include <QVBoxLayout>

using namespace Qt::Literals::StringLiterals;

ScriptsView::ScriptsView(const QString &scriptFolder, QWidget *parent)
    : QWidget(parent),
      folder(scriptFolder),
      tree(new QTreeView(this))
{
    tree->setObjectName(u"scripts"_s);
    tree->setAccessibleName(tr("Scripts"));
    tree->setHeaderHidden(true);
    tree->setUniformRowHeights(true);
    tree->setContextMenuPolicy(Qt::CustomContextMenu);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(tree);
    setFocusProxy(tree);
    connect(tree, &QTreeView::activated, this, &ScriptsView::edit);
    connect(tree, &QWidget::customContextMenuRequested, this, &ScriptsView::showMenu);
    tree->installEventFilter(this);
}

// The window has the same key for the script in the editor.
bool ScriptsView::eventFilter(QObject *watched, QEvent *event)
{
    const bool isPress = event->type() == QEvent::KeyPress;
    if (!isPress && event->type() != QEvent::ShortcutOverride)
        return QWidget::eventFilter(watched, event);
    if (static_cast<QKeyEvent *>(event)->keyCombination() != QKeyCombination(Qt::Key_F5))
        return QWidget::eventFilter(watched, event);
    event->accept();
    if (isPress)
        run();
    return true;
}

void ScriptsView::showEvent(QShowEvent *event)
{
    if (!model)
        makeModel();
    QWidget::showEvent(event);
}

void ScriptsView::makeModel()
{
    model = new QFileSystemModel(this);
    model->setReadOnly(true);
    model->setNameFilters({u"*.tcl"_s});
    model->setNameFilterDisables(false);
    model->setFilter(QDir::AllDirs | QDir::Files | QDir::NoDotAndDotDot);
    tree->setModel(model);
    tree->setRootIndex(model->setRootPath(folder));
    for (int column = 1; column < model->columnCount(); ++column)
        tree->hideColumn(column);
}

QString ScriptsView::scriptAt(const QModelIndex &index) const
{
    return index.isValid() && !model->isDir(index) ? model->filePath(index) : QString();
}

void ScriptsView::edit(const QModelIndex &index)
{
    const QString script = scriptAt(index);
    if (!script.isEmpty())
        Q_EMIT editWanted(script);
}

void ScriptsView::run()
{
    const QString script = scriptAt(tree->currentIndex());
    if (!script.isEmpty())
        Q_EMIT runWanted(script);
}

void ScriptsView::showMenu(const QPoint &position)
{
    const QModelIndex index = tree->indexAt(position);
    QMenu menu(this);
    if (!scriptAt(index).isEmpty()) {
        menu.addAction(tr("&Run\tF5"), this, &ScriptsView::run);
        menu.addAction(tr("&Edit"), this, [this, index] { edit(index); });
        menu.addSeparator();
    }
    menu.addAction(tr("&New Script..."), this, &ScriptsView::newWanted);
    menu.exec(tree->viewport()->mapToGlobal(position));
}
