#include "build/NinjaProcess.h"

#include "build/supervisor.h"

#include <QFileInfo>
#include <QStandardPaths>

#include <cerrno>
#include <csignal>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

namespace MorvalenCore {

namespace {

// What the supervisor understands.
constexpr char requestCancel = 'c';
constexpr char requestEndAtOnce = 'k';

// What steps see, too.
QProcessEnvironment environmentOfBuild()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"NINJA_STATUS"_s, u"\x1d%f/%t\x1d"_s);
    environment.remove(u"CLICOLOR_FORCE"_s);
    return environment;
}

// In milliseconds: how long is waited for the end of processes that were killed.
constexpr int killTime = 5000;

// Ninja's arguments, behind those of an allocation. The shell in front of them may run on another
// machine; it says that the allocation has come.
QStringList inAllocation(const QString &allocation, const QStringList &arguments)
{
    if (allocation.isEmpty())
        return arguments;
    return QStringList {
               u"/bin/sh"_s,
               u"-c"_s,
               u"exec %1 /bin/sh -c \"$@\""_s.arg(allocation),
               u"allocation"_s,
               u"echo '%1'; exec \"$@\""_s.arg(QString::fromLatin1(NinjaProcess::allocatedLine())),
               u"sh"_s}
    + arguments;
}

} // namespace

QByteArray NinjaProcess::allocatedLine()
{
    return "\x1d"
           "allocated\x1d";
}

NinjaProcess::NinjaProcess(QObject *parent) : QObject(parent) { }

NinjaProcess::~NinjaProcess()
{
    blockSignals(true);
    endNow();
}

Result<QString> NinjaProcess::findNinja()
{
    cancelled = false;
    hasEnded = false;
    reason.clear();
    left.clear();
    const QString ninja = QStandardPaths::findExecutable(u"ninja"_s);
    if (ninja.isEmpty())
        return Status::io(u"Ninja is not installed (Debian's package is ninja-build)"_s);
    return ninja;
}

void NinjaProcess::ask(const QString &folder, const QStringList &arguments)
{
    const Result<QString> ninja = findNinja();
    if (!ninja.isOk())
        return end(ninja.status());
    startChild({QStringList(ninja.value()) + arguments, folder, environmentOfBuild()});
}

void NinjaProcess::start(const QString &folder, const QStringList &arguments,
                         const QString &allocation)
{
    const Result<QString> found = findNinja();
    if (!found.isOk())
        return end(found.status());
    const QString &ninja = found.value();
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0)
        return end(Status::io(u"Ninja cannot be started: %1"_s.arg(qt_error_string(errno))));
    control = ends[0];
    told.clear();
    toldNotifier = std::make_unique<QSocketNotifier>(control, QSocketNotifier::Read);
    connect(toldNotifier.get(), &QSocketNotifier::activated, this,
            [this] { toldNotifier->setEnabled(readTold()); });
    const QStringList command =
        QStringList {supervisorProgram(), QString::number(ends[1]), QString::number(graceTime),
                     QFileInfo(ninja).fileName()}
        + inAllocation(allocation, QStringList(ninja) + arguments);
    startChild({command, folder, environmentOfBuild(), ends[1]});
}

void NinjaProcess::startChild(const ChildStartInfo &info)
{
    isUnderWay = true;
    child = std::make_unique<Child>();
    connect(child.get(), &Child::outputReady, this, &NinjaProcess::outputReady);
    connect(child.get(), &Child::errorReady, this, &NinjaProcess::errorReady);
    // Whoever hears of the end may start the next one, in the place of this child.
    connect(child.get(), &Child::ended, this, &NinjaProcess::takeEnd, Qt::QueuedConnection);
    const Status started = child->start(info);
    if (info.inherited >= 0)
        close(info.inherited);
    if (!started.isOk()) {
        reason = u"\"%1\" cannot be started: %2"_s.arg(info.command.first(), started.text());
        takeEnd();
    }
}

// The news may be those of an earlier child.
void NinjaProcess::takeEnd()
{
    if (!isUnderWay || child->isRunning())
        return;
    if (control >= 0) {
        toldNotifier->setEnabled(false);
        readTold();
        toldNotifier.release()->deleteLater();
        close(std::exchange(control, -1));
    } else {
        hasEnded = true;
        status = child->status();
    }
    end(howItEnded());
}

void NinjaProcess::end(const Status &result)
{
    isUnderWay = false;
    Q_EMIT ended(result);
}

Status NinjaProcess::howItEnded() const
{
    if (!reason.isEmpty())
        return Status::io(reason);
    if (cancelled)
        return Status::cancelled(u"The build was cancelled"_s);
    if (!hasEnded)
        return Status::io(
            u"\"%1\", which watches over builds, was ended"_s.arg(supervisorProgram()));
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        return Status::failed(u"Ninja failed"_s);
    return {};
}

// False when no more will come.
bool NinjaProcess::readTold()
{
    char bytes[4096];
    ssize_t size = 0;
    while ((size = recv(control, bytes, sizeof bytes, MSG_DONTWAIT)) > 0)
        told.append(bytes, size);
    for (qsizetype end = 0; (end = told.indexOf('\n')) >= 0; told.remove(0, end + 1))
        take(told.left(end).split('\t'));
    return size < 0;
}

// See the supervisor for what it tells.
void NinjaProcess::take(const QList<QByteArray> &fields)
{
    const QByteArray &word = fields.first();
    if (word == "error") {
        reason = u"Ninja cannot be started: %1"_s.arg(QString::fromLocal8Bit(fields.value(1)));
    } else if (word == "ended") {
        hasEnded = true;
        status = fields.value(1).toInt();
    } else if (word == "left") {
        QList<ChildProcess> processes;
        for (qsizetype at = 1; at + 1 < fields.size(); at += 2)
            processes.append({fields[at].toInt(), QString::fromUtf8(fields[at + 1])});
        if (hasEnded) {
            left = processes;
            return;
        }
        Q_EMIT endedLeftBehind(processes);
    }
}

void NinjaProcess::request(char what) const
{
    if (control < 0)
        child->send(what == requestEndAtOnce ? SIGKILL : SIGTERM);
    else if (send(control, &what, 1, MSG_NOSIGNAL) < 0)
        return;
}

void NinjaProcess::cancel()
{
    if (!child || !child->isRunning() || cancelled || hasEnded)
        return;
    cancelled = true;
    request(requestCancel);
}

void NinjaProcess::endNow()
{
    if (!isUnderWay)
        return;
    if (child->isRunning()) {
        cancelled = cancelled || !hasEnded;
        request(requestEndAtOnce);
        child->waitForEnd(killTime);
    }
    if (child->isRunning())
        child = std::make_unique<Child>(); // It is killed.
    takeEnd();
}

} // namespace MorvalenCore
