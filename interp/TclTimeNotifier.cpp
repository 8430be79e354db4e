#include "interp/TclTimeNotifier.h"

#include "interp/Evaluation.h"
#include "interp/NotifierState.h"
#include "interp/ScriptRuns.h"

#include <QTimer>

#include <utility>

#include <tcl.h>

using namespace Qt::Literals::StringLiterals;

// How soon after the end of a callback that ran an event loop of its own, as a dialog does, Tcl
// serves what happened meanwhile; in milliseconds.
static constexpr int retryInterval = 10;

TclTimeNotifier::TclTimeNotifier() { setObjectName(u"TclTimeNotifier"_s); }

// While one of its callbacks runs, Tcl serves nothing. Where that callback runs in a wait, the wait
// sees to it; otherwise nobody tells when it has ended. What would be served while a script is
// being stopped would be stopped with it.
void TclTimeNotifier::serve()
{
    const ScriptRuns *runs = ScriptRuns::instance();
    if (runs && runs->isStopping()) {
        retry();
    } else if (notifier->waits) {
        Tcl_ServiceAll();
    } else if (Tcl_GetServiceMode() == TCL_SERVICE_ALL) {
        Evaluation event;
        Tcl_ServiceAll();
        event.finish(TCL_OK);
    } else {
        retry();
    }
}

void TclTimeNotifier::retry()
{
    if (std::exchange(retrying, true))
        return;
    QTimer::singleShot(retryInterval, this, [this] {
        retrying = false;
        serve();
    });
}

// A timer, not a posted event: that would wake the next wait even after it has been taken back.
void TclTimeNotifier::serveLater()
{
    if (!later.isActive())
        later.start(0, this);
}

void TclTimeNotifier::cancel() { later.stop(); }

void TclTimeNotifier::timerEvent(QTimerEvent *)
{
    later.stop();
    serve();
}

// The timer is not stopped here: it goes on at its interval until SetTimer restarts or stops it.
// Only a notifier that rests stops it, and asks Tcl for its next time.
void TclTimeNotifier::gong()
{
    notifier->timerActive = 0;
    notifier->found = true;
    if (notifier->resting)
        notifier->timer->stop();
    serve();
}
