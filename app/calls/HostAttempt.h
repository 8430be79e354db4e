#pragma once

#include <Qtilities/Logger.h>

#include <QPointer>
#include <QStringList>
#include <QWidget>

// A change that the user asked for: brackets it, and when it ends, tells the user what the host
// refused and why. A reason comes from the caller, or from the log, where the host says what it
// has no other way to say.
class HostAttempt
{
public:
    // The title says what was not done.
    HostAttempt(QWidget *window, const QString &title);
    // The user is told without waiting for an answer.
    ~HostAttempt();
    Q_DISABLE_COPY_MOVE(HostAttempt)

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
    QStringList reasons;
    bool isRefused = false;
    QMetaObject::Connection log;
};
