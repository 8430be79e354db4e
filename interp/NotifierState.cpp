#include "interp/NotifierState.h"

#include "interp/notifierprocs.h"
#include "interp/TclFileHandler.h"
#include "interp/TclTimeNotifier.h"

#include <QTimer>

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
