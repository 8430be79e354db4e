#pragma once

#include <QtGlobal>

#include <memory>

QT_BEGIN_NAMESPACE
class QApplication;
class QTimer;
QT_END_NAMESPACE

class GuiAlert;
class TclFileHandler;
class TclTimeNotifier;

// What the notifier knows. There is one in a process, made by the first Qtk_InitNotifier and
// destroyed at process exit, after the application object; until and after that, notifier is null.
struct NotifierState
{
    explicit NotifierState(QApplication *application);
    ~NotifierState();
    Q_DISABLE_COPY_MOVE(NotifierState)

    TclFileHandler *find(int fd) const; // null when Tcl watches no such descriptor

    // Lets a wait that is given a time end soon after something was found for Tcl: a short timer
    // that Tcl has cleared, and that goes on firing, would keep the pass going until the time is
    // over. The wait's end resumes the timer.
    void pauseLeftTimer();
    void resumeTimer();

    QApplication *app;
    QTimer *timer; // repeats; owned
    TclTimeNotifier *timeNotifier; // owned
    int timerActive = 0; // 1 while Tcl has a timer set
    TclFileHandler *firstFileHandler = nullptr; // newest first; owned
    std::unique_ptr<GuiAlert> alert; // of a notifier that rests

    bool resting = false; // waits block, polls may find nothing, a cleared timer stops
    int waits = 0; // how many waits are on the stack
    bool found = false; // something was found for Tcl since the innermost wait began
    bool timerPaused = false;
};

extern NotifierState *notifier;
