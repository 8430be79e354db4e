#pragma once

#include <QObject>

#include <tcl.h>

QT_BEGIN_NAMESPACE
class QSocketNotifier;
QT_END_NAMESPACE

// A descriptor that Tcl watches. It belongs to the notifier's list, which it enters at the head
// when it is made; DeleteFileHandler takes it out and deletes it, also from within its own slot.
class TclFileHandler : public QObject
{
    Q_OBJECT

public:
    explicit TclFileHandler(int descriptor);
    ~TclFileHandler() override;

    // Watches for what newMask asks for, a sum of TCL_READABLE, TCL_WRITABLE and TCL_EXCEPTION; an
    // exception is accepted and never reported.
    void setMask(int newMask);

    // Gives Tcl's procedure what became ready. The procedure may delete this.
    void deliver();

    int fd;
    int mask = 0;
    int readyMask = 0; // queued and not yet delivered
    QSocketNotifier *readNotifier = nullptr; // owned
    QSocketNotifier *writeNotifier = nullptr; // owned
    QSocketNotifier *exceptionNotifier = nullptr; // never made
    Tcl_FileProc *proc = nullptr;
    ClientData clientData = nullptr;
    TclFileHandler *next = nullptr;

public Q_SLOTS:
    // Queues an event for Tcl and lets Tcl serve it.
    void fileactive(int descriptor);

private:
    void watch(bool on);
};
