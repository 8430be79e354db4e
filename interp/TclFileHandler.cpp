#include "interp/TclFileHandler.h"

#include "interp/notifierprocs.h"
#include "interp/NotifierState.h"
#include "interp/TclTimeNotifier.h"

#include <QSocketNotifier>

#include <utility>

namespace {

// Makes or deletes one of a handler's notifiers to follow the bit of its event.
void follow(TclFileHandler *handler, int newMask, int event, QSocketNotifier::Type type,
            QSocketNotifier *&socketNotifier)
{
    const bool wanted = newMask & event;
    if (wanted == bool(handler->mask & event))
        return;
    if (wanted) {
        socketNotifier = new QSocketNotifier(handler->fd, type);
        // This overload exists for connections by name only.
        QObject::connect(socketNotifier, SIGNAL(activated(int)), handler, SLOT(fileactive(int)));
        socketNotifier->setEnabled(!(handler->readyMask & event));
    } else {
        delete std::exchange(socketNotifier, nullptr);
    }
}

} // namespace

TclFileHandler::TclFileHandler(int descriptor) : fd(descriptor)
{
    next = std::exchange(notifier->firstFileHandler, this);
}

TclFileHandler::~TclFileHandler()
{
    delete readNotifier;
    delete writeNotifier;
}

void TclFileHandler::setMask(int newMask)
{
    follow(this, newMask, TCL_READABLE, QSocketNotifier::Read, readNotifier);
    follow(this, newMask, TCL_WRITABLE, QSocketNotifier::Write, writeNotifier);
    mask = newMask;
}

void TclFileHandler::fileactive(int)
{
    int event = 0;
    if (!sender())
        return;
    if (sender() == readNotifier)
        event = TCL_READABLE;
    else if (sender() == writeNotifier)
        event = TCL_WRITABLE;
    else if (sender() == exceptionNotifier)
        event = TCL_EXCEPTION;
    if (!(mask & event))
        return;
    if (readyMask & event) {
        // Still queued and ready for good: a pass that is given a time would go round on it until
        // the time is over. Not done at once, as most events are delivered before this happens,
        // and each switch costs two system calls.
        watch(false);
        return;
    }
    // Everything asked for counts as ready, not only what was seen.
    readyMask |= mask;
    notifier->found = true;
    notifier->pauseLeftTimer();
    queueFileEvent(fd);
    notifier->timeNotifier->serve(); // may delete this
}

void TclFileHandler::deliver()
{
    const int ready = mask & std::exchange(readyMask, 0);
    watch(true);
    if (ready)
        proc(clientData, ready);
}

void TclFileHandler::watch(bool on)
{
    for (QSocketNotifier *socketNotifier : {readNotifier, writeNotifier}) {
        if (socketNotifier)
            socketNotifier->setEnabled(on);
    }
}
