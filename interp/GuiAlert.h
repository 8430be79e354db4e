#pragma once

#include <QObject>

#include <atomic>

// Wakes the GUI thread for Tcl, from whichever thread: an event was put into its queue, or an
// asynchronous handler of it was marked. Made on the GUI thread by a notifier that rests, which
// owns the only one.
class GuiAlert : public QObject
{
    Q_OBJECT

public:
    GuiAlert();
    ~GuiAlert() override;

    // Any thread may call both, also while there is no GuiAlert. One event stands for all alerts
    // that came before it is delivered.
    static void send();
    // Whether this is the thread that the last GuiAlert was made on.
    static bool isGuiThread();

protected:
    void customEvent(QEvent *event) override;

private:
    std::atomic_bool underWay = false;
};
