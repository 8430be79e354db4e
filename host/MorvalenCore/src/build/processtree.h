#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <sys/types.h>

namespace MorvalenCore {

// The processes of one child that leads a session of its own.
struct ChildProcess
{
    pid_t id;
    QString name;
};

// What is alive of a session.
QList<ChildProcess> processesOfSession(pid_t session);

// What is alive of a session, of those who left it but carry the entry (NAME=VALUE) in their
// environment, and of the children of all these.
QList<ChildProcess> processesOfBuild(pid_t session, const QByteArray &entry);

// The children of a process that have ended, and that it has not taken notice of.
QList<pid_t> endedChildrenOf(pid_t parent);

// Those of the build that keep its leader (the first process of the session) waiting although the
// children that started them have ended: they hold the writing end of a pipe that the leader reads
// and none of its descendants holds.
QList<ChildProcess> processesThatKeepWaiting(pid_t leader, const QByteArray &entry);

} // namespace MorvalenCore
