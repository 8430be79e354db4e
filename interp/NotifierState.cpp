#include "interp/NotifierState.h"

#include "interp/GuiAlert.h"
#include "interp/notifierprocs.h"
#include "interp/TclFileHandler.h"
#include "interp/TclTimeNotifier.h"

#include <QTimer>

#include <utility>

NotifierState *notifier = nullptr;

NotifierState::NotifierState(QApplication *application)
    : app(application),
      timer(new QTimer(nullptr)),
      timeNotifier(new TclTimeNotifier)
{
    timer->setTimerType(Qt::PreciseTimer); // as Tcl's own; the default may be 5 % late
    QObject::connect(timer, SIGNAL(timeout()), timeNotifier, SLOT(gong()));
}

NotifierState::~NotifierState()
{
    // Another thread that ends the process must not touch what is the GUI thread's.
    if (alert && !GuiAlert::isGuiThread()) {
        [[maybe_unused]] const GuiAlert *left = alert.release();
        return;
    }
    alert.reset();
    if (timerActive)
        timer->stop();
    delete timer;
    delete timeNotifier;
    while (firstFileHandler)
        DeleteFileHandler(firstFileHandler->fd);
    notifier = nullptr;
}

TclFileHandler *NotifierState::find(int fd) const
{
    TclFileHandler *handler = firstFileHandler;
    while (handler && handler->fd != fd)
        handler = handler->next;
    return handler;
}

void NotifierState::pauseLeftTimer()
{
    if (resting || !waits || timerActive || !timer->isActive())
        return;
    timer->stop();
    timerPaused = true;
}

// Unless a script that ran meanwhile has set it.
void NotifierState::resumeTimer()
{
    if (std::exchange(timerPaused, false) && !timer->isActive())
        timer->start();
}
