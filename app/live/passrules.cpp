#include "app/live/passrules.h"

#include "console/QtclConsole.h"

#include <QAction>
#include <QDockWidget>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMouseEvent>
#include <QScrollBar>
#include <QSizeGrip>
#include <QSplitter>
#include <QStatusBar>
#include <QTabBar>

namespace passrules {

namespace {

constexpr const char *worksProperty = "worksWhileScriptsRun";

// Menus open, modes and docks come and go.
bool works(const QAction *action)
{
    if (!action)
        return false;
    for (const QObject *owner = action; owner; owner = owner->parent()) {
        if (owner->inherits("ModeBar") || owner->inherits("QDockWidget"))
            return true;
    }
    return action->menu() || action->property(worksProperty).toBool();
}

// Whether it only shows, and never changes a design.
bool isForLooking(const QWidget *widget)
{
    for (const char *name : {"QtclConsole", "Qtilities::CoreGui::LogWidget", "HelpDock", "ModeBar",
                             "RunStatus", "IssuesView"}) {
        if (isWithin(widget, name))
            return true;
    }
    return false;
}

// What moves parts of the window, and does nothing to what they show.
bool isFrame(const QWidget *widget)
{
    return qobject_cast<const QScrollBar *>(widget) || qobject_cast<const QTabBar *>(widget)
        || qobject_cast<const QSplitterHandle *>(widget)
        || qobject_cast<const QDockWidget *>(widget) || qobject_cast<const QMainWindow *>(widget)
        || qobject_cast<const QSizeGrip *>(widget) || qobject_cast<const QMenuBar *>(widget)
        || qobject_cast<const QStatusBar *>(widget)
        || qobject_cast<const QDockWidget *>(widget->parentWidget());
}

// An answer is all that a box of messages takes, and whoever asked goes on with it.
bool isQuestion(const QWidget *widget) { return qobject_cast<QMessageBox *>(widget->window()); }

Verdict ofButton(const QWidget *widget, const QMouseEvent &event)
{
    if (const auto *menu = qobject_cast<const QMenu *>(widget)) {
        const QAction *action = menu->actionAt(event.position().toPoint());
        return !action || works(action) ? Verdict::Deliver : Verdict::Refuse;
    }
    if (isQuestion(widget) || isForLooking(widget))
        return Verdict::Deliver;
    // A middle press closes a page.
    if (isFrame(widget) && event.button() == Qt::LeftButton)
        return Verdict::Deliver;
    return event.type() == QEvent::MouseButtonRelease ? Verdict::Swallow : Verdict::Refuse;
}

bool onlyLooks(const QKeyEvent &event)
{
    switch (event.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return true;
    default:
        return event.matches(QKeySequence::Copy) || event.matches(QKeySequence::SelectAll);
    }
}

// A modifier alone does nothing.
bool isModifier(const QKeyEvent &event)
{
    return event.text().isEmpty() && event.key() >= Qt::Key_Shift
        && event.key() <= Qt::Key_ScrollLock;
}

Verdict ofKey(const QWidget *widget, const QKeyEvent &event)
{
    if (const auto *menu = qobject_cast<const QMenu *>(widget)) {
        const bool triggers = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter
            || event.key() == Qt::Key_Space || !event.text().isEmpty();
        const bool leaves = event.key() == Qt::Key_Escape;
        return !triggers || leaves || works(menu->activeAction()) ? Verdict::Deliver
                                                                  : Verdict::Refuse;
    }
    if (isQuestion(widget) || isForLooking(widget) || qobject_cast<const QMenuBar *>(widget)
        || isModifier(event) || onlyLooks(event))
        return Verdict::Deliver;
    return event.type() == QEvent::KeyPress ? Verdict::Refuse : Verdict::Swallow;
}

} // namespace

Verdict verdict(const QObject *receiver, const QEvent &event)
{
    if (event.type() == QEvent::Shortcut) {
        // Of a menu bar, an action, or an object that belongs to a widget.
        const auto *action = qobject_cast<const QAction *>(receiver);
        const auto *owner = qobject_cast<const QWidget *>(receiver->parent());
        const bool looks = !action && owner && (isForLooking(owner) || isQuestion(owner));
        return works(action) || looks || qobject_cast<const QMenuBar *>(receiver) ? Verdict::Deliver
                                                                                  : Verdict::Refuse;
    }
    const auto *widget = qobject_cast<const QWidget *>(receiver);
    if (!widget)
        return Verdict::Deliver;
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
        return ofButton(widget, static_cast<const QMouseEvent &>(event));
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        return ofKey(widget, static_cast<const QKeyEvent &>(event));
    case QEvent::Wheel:
        // Turns the values of these.
        return widget->inherits("QComboBox") || widget->inherits("QAbstractSpinBox")
            ? Verdict::Swallow
            : Verdict::Deliver;
    case QEvent::InputMethod:
        return isForLooking(widget) ? Verdict::Deliver : Verdict::Swallow;
    case QEvent::ContextMenu:
    case QEvent::DragEnter:
    case QEvent::Drop:
        return Verdict::Refuse;
    default:
        return Verdict::Deliver;
    }
}

bool isWithin(const QWidget *widget, const char *className)
{
    for (; widget; widget = widget->parentWidget()) {
        if (widget->inherits(className))
            return true;
    }
    return false;
}

void letWork(QAction *action) { action->setProperty(worksProperty, true); }

} // namespace passrules
