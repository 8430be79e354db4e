#include "app/window/FocusMark.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QEvent>

#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int thickness = 2;

} // namespace

FocusMark::FocusMark(QWidget *theWindow) : QWidget(theWindow), window(theWindow)
{
    setObjectName(u"focusMark"_s);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Highlight);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    hide();
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget *, QWidget *focused) { follow(focused); });
}

// It lies beside the area, whose own parts it would be among otherwise, and goes with the window.
void FocusMark::follow(QWidget *focused)
{
    area = qobject_cast<QAbstractScrollArea *>(focused);
    if (area && area->window() != window)
        area.clear();
    watch();
    if (!area) {
        hide();
        return;
    }
    place();
    show();
    raise();
}

void FocusMark::watch()
{
    for (const QPointer<QWidget> &each : std::exchange(watched, {})) {
        if (each)
            each->removeEventFilter(this);
    }
    for (QWidget *each = area; each && each != window; each = each->parentWidget()) {
        each->installEventFilter(this);
        watched.append(each);
    }
}

void FocusMark::place()
{
    setGeometry(QRect(area->mapTo(window, QPoint(0, 0)), QSize(area->width(), thickness)));
}

bool FocusMark::eventFilter(QObject *mover, QEvent *event)
{
    const QEvent::Type type = event->type();
    if (type == QEvent::Hide && mover == area)
        hide();
    else if (type == QEvent::Resize || type == QEvent::Move || type == QEvent::Show)
        QMetaObject::invokeMethod(
            this, [this] { follow(QApplication::focusWidget()); }, Qt::QueuedConnection);
    return QWidget::eventFilter(mover, event);
}
