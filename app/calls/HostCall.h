#pragma once

#include "app/calls/LogReasons.h"

#include <QPointer>
#include <QWidget>

// Calls of the host that the user asked for: brackets them, and when it ends, tells the user what
// was refused and why. A reason comes from the caller, or from the log, where the host says what it
// has no other way to say.
class HostCall
{
public:
    // The title says what was not done.
    HostCall(QWidget *window, const QString &title);
    // The user is told without waiting for an answer.
    ~HostCall();
    Q_DISABLE_COPY_MOVE(HostCall)

    // Empty when the host gave no reason but in the log.
    void refused(const QString &reason = {});

    // For a call that is refused by giving false.
    void check(bool done)
    {
        if (!done)
            refused();
    }

private:
    QPointer<QWidget> parent;
    QString title;
    LogReasons reasons;
    bool isRefused = false;
};
