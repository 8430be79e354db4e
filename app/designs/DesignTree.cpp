#include "app/designs/DesignTree.h"

#include "app/designs/DesignTreeModel.h"
#include "app/designs/DesignTreeView.h"
#include "app/designs/NoDesignPage.h"

#include <MorvalenCore/DesignManager.h>
#include <MorvalenCore/EditorManager.h>

#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QStackedLayout>
#include <QTimer>
#include <QVBoxLayout>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;
using MorvalenCore::EditorManager;
using MorvalenCore::Interfaces::IDesign;

namespace {

// While the user types, in milliseconds.
constexpr int filterDelay = 150;

QLineEdit *makeFilter(QWidget *parent)
{
    auto *filter = new QLineEdit(parent);
    filter->setObjectName(u"designFilter"_s);
    filter->setPlaceholderText(DesignTree::tr("Filter"));
    filter->setAccessibleName(DesignTree::tr("Filter"));
    filter->setToolTip(DesignTree::tr("Shows only the items with these words in their names"));
    filter->setClearButtonEnabled(true);
    return filter;
}

} // namespace

DesignTree::DesignTree(QWidget *parent)
    : QWidget(parent),
      model(new DesignTreeModel(this)),
      view(new DesignTreeView(model, this)),
      filter(makeFilter(this)),
      pages(new QStackedLayout(this))
{
    auto *treePage = new QWidget(this);
    auto *layout = new QVBoxLayout(treePage);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(filter);
    layout->addWidget(view);
    pages->addWidget(new NoDesignPage(this));
    pages->addWidget(treePage);

    auto *typing = new QTimer(this);
    typing->setSingleShot(true);
    connect(filter, &QLineEdit::textChanged, typing, [typing] { typing->start(filterDelay); });
    connect(filter, &QLineEdit::returnPressed, typing, [typing] { typing->start(0); });
    connect(typing, &QTimer::timeout, this, [this] { view->applyFilter(filter->text()); });
    filter->installEventFilter(this);

    connect(view, &DesignTreeView::rowActivated, this, &DesignTree::activate);
    connect(model, &DesignTreeModel::followed, this, &DesignTree::showTreeOrHint);
    setFocusProxy(view);
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

bool DesignTree::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != filter || event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent *>(event)->key();
    if (key == Qt::Key_Escape && !filter->text().isEmpty()) {
        filter->clear();
        return true;
    }
    if (key == Qt::Key_Down) {
        view->setFocus(Qt::ShortcutFocusReason);
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void DesignTree::showTreeOrHint()
{
    pages->setCurrentIndex(DesignManager::instance()->openDesignIds().isEmpty() ? 0 : 1);
}

void DesignTree::activate(const TreeRow &row)
{
    const IDesign *design = row.design();
    if (!design)
        return;
    if (row.kind == RowKind::Design) {
        DesignManager::instance()->setActiveDesign(design->id(u"."_s));
    } else if (const auto *file = row.file()) {
        QString error;
        if (!EditorManager::instance()->createEditorForPath(file->actualPath(), &error, QString(),
                                                            true, design->isReadOnly()))
            QMessageBox::warning(this, tr("Not Opened"), error);
    } else if (const auto *configuration = row.configuration()) {
        Q_EMIT configurationActivated(design->id(u"."_s), configuration->configurationName());
    } else if (!row.isItem()) {
        view->setExpanded(view->currentIndex(), !view->isExpanded(view->currentIndex()));
    }
}
