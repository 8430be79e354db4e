#pragma once

#include <QBasicTimer>
#include <QObject>

// Lets Tcl serve its events when its timer has gone off, and when control comes back to Qt's event
// loop. The notifier owns the only one.
class TclTimeNotifier : public QObject
{
    Q_OBJECT

public:
    TclTimeNotifier();

    // Lets Tcl serve its events now, or soon after a callback of its own has ended.
    void serve();

    // The same, once, when control is back in Qt's event loop. A wait ends with this: the script
    // that waited may go on with events still queued and timers that nobody has started.
    void serveLater();

    // Takes serveLater back, as a wait does that begins: it would only wake it.
    void cancel();

public Q_SLOTS:
    void gong();

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    void retry();

    QBasicTimer later;
    bool retrying = false;
};
