#pragma once

#include <Qtilities/Logger.h>
#include <Qtilities/Status.h>

#include <QPointer>
#include <QStringList>
#include <QWidget>

// Calls of the host that the user asked for: brackets them, takes what they return, and when it
// ends, tells the user what was refused and why.
class HostCall
{
public:
    using Status = Qtilities::Core::Status;
    using Logger = Qtilities::Logging::Logger;

    // The title says what was not done.
    HostCall(QWidget *window, const QString &title);
    // The user is told without waiting for an answer.
    ~HostCall();
    Q_DISABLE_COPY_MOVE(HostCall)

    // Takes the status of a call; the answer is whether it is ok.
    bool take(const Status &status);

    void take(const QList<Status> &statuses);

    // The same for one, and the log says it too, as it does when a script makes the call.
    bool takeAndLog(const Status &status, Logger::MessageType failureType = Logger::Error);

    // What a status says, a line each: its remarks, and why it failed.
    static QStringList linesOf(const Status &status);

private:
    QPointer<QWidget> parent;
    QString title;
    QStringList reasons;
};
