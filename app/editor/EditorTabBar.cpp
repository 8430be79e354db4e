#include "app/editor/EditorTabBar.h"

#include <QContextMenuEvent>

using namespace Qt::Literals::StringLiterals;

EditorTabBar::EditorTabBar(QWidget *parent) : QTabBar(parent) { setObjectName(u"editorTabs"_s); }

void EditorTabBar::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::MiddleButton)
        pressed = tabAt(event->position().toPoint());
    else
        QTabBar::mousePressEvent(event);
}

// Only where press and release meet the same tab is it a click.
void EditorTabBar::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::MiddleButton) {
        QTabBar::mouseReleaseEvent(event);
        return;
    }
    const int index = std::exchange(pressed, -1);
    if (index >= 0 && index == tabAt(event->position().toPoint()))
        Q_EMIT tabCloseRequested(index);
}

// The menu key means the tab in front.
void EditorTabBar::contextMenuEvent(QContextMenuEvent *event)
{
    const bool byMouse = event->reason() == QContextMenuEvent::Mouse;
    const int index = byMouse ? tabAt(event->pos()) : currentIndex();
    if (index < 0)
        return;
    const QPoint below = mapToGlobal(tabRect(index).bottomLeft());
    Q_EMIT menuRequested(index, byMouse ? event->globalPos() : below);
}
