#include "app/window/PaneKeys.h"

#include <QAbstractScrollArea>
#include <QAction>
#include <QApplication>
#include <QWidget>

using namespace Qt::Literals::StringLiterals;

namespace {

// What of a pane takes keys: itself, or the list or text in it, or else the first part that does.
QWidget *takerIn(QWidget *pane)
{
    if (pane->focusProxy() || pane->focusPolicy() != Qt::NoFocus)
        return pane;
    QWidget *first = nullptr;
    for (QWidget *part : pane->findChildren<QWidget *>()) {
        if (!part->isVisible() || !part->isEnabled() || (part->focusPolicy() & Qt::TabFocus) == 0)
            continue;
        if (qobject_cast<QAbstractScrollArea *>(part))
            return part;
        if (!first)
            first = part;
    }
    return first ? first : pane;
}

} // namespace

PaneKeys::PaneKeys(QWidget *window)
    : QObject(window),
      next(new QAction(tr("Ne&xt Pane"), this)),
      previous(new QAction(tr("Pre&vious Pane"), this))
{
    next->setObjectName(u"nextPane"_s);
    next->setShortcut(Qt::Key_F6);
    previous->setObjectName(u"previousPane"_s);
    previous->setShortcut(Qt::SHIFT | Qt::Key_F6);
    connect(next, &QAction::triggered, this, [this] { step(1); });
    connect(previous, &QAction::triggered, this, [this] { step(-1); });
    window->addActions({next, previous});
}

void PaneKeys::step(int distance)
{
    QList<QWidget *> shown;
    for (const QPointer<QWidget> &pane : std::as_const(panes)) {
        // What lies behind another tab is there, but nobody sees it.
        if (pane && pane->isVisible() && !pane->visibleRegion().isEmpty())
            shown.append(pane);
    }
    if (shown.isEmpty())
        return;
    const QWidget *focused = QApplication::focusWidget();
    qsizetype at = -1;
    for (qsizetype i = 0; i < shown.size(); ++i) {
        if (focused && (shown[i] == focused || shown[i]->isAncestorOf(focused)))
            at = i;
    }
    const qsizetype count = shown.size();
    const qsizetype to = at < 0 ? (distance > 0 ? 0 : count - 1) : (at + distance + count) % count;
    takerIn(shown[to])->setFocus(Qt::TabFocusReason);
}
