#pragma once

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QApplication;
class QTimer;
QT_END_NAMESPACE

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

    QApplication *app;
    QTimer *timer; // repeats; owned
    TclTimeNotifier *timeNotifier; // owned
    int timerActive = 0; // 1 while Tcl has a timer set
    TclFileHandler *firstFileHandler = nullptr; // newest first; owned

    bool resting = false; // waits block, polls may find nothing, a cleared timer stops
    int waits = 0; // how many waits are on the stack
    bool found = false; // something was found for Tcl since the innermost wait began
};

extern NotifierState *notifier;
