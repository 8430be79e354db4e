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

} // namespace MorvalenCore
