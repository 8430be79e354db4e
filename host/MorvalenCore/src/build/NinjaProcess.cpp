#include "build/NinjaProcess.h"

#include <QEventLoop>
#include <QRandomGenerator>
#include <QStandardPaths>

#include <algorithm>
#include <csignal>
#include <unistd.h>
#ifdef Q_OS_LINUX
#    include <sys/prctl.h>
#endif

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Status;

namespace MorvalenCore {

namespace {

// In milliseconds: how often is looked whether processes are gone, whether some keep Ninja waiting,
// and how long killed ones have.
constexpr int pollInterval = 25;
constexpr int lookInterval = 500;
constexpr int killTime = 10'000;

// Between fork and exec.
void becomeLeader()
{
    setsid();
#ifdef Q_OS_LINUX
    // When this program is killed, Ninja ends its steps.
    prctl(PR_SET_PDEATHSIG, SIGTERM);
#endif
}

void send(const QList<ChildProcess> &processes, int signal)
{
    for (const ChildProcess &process : processes)
        kill(process.id, signal);
}

} // namespace

NinjaProcess::NinjaProcess(QObject *parent) : QObject(parent)
{
    process.setStandardInputFile(QProcess::nullDevice());
    process.setChildProcessModifier(becomeLeader);
    connect(&process, &QProcess::readyReadStandardOutput, this, &NinjaProcess::readAll);
    connect(&process, &QProcess::readyReadStandardError, this, &NinjaProcess::readAll);
    ending.setInterval(pollInterval);
    connect(&ending, &QTimer::timeout, this, &NinjaProcess::goOnEnding);
    looking.setInterval(lookInterval);
    connect(&looking, &QTimer::timeout, this, &NinjaProcess::lookForWaiting);
}

NinjaProcess::~NinjaProcess() { endNow(); }

Status NinjaProcess::run(const QString &folder, const QStringList &arguments)
{
    const QString program = QStandardPaths::findExecutable(u"ninja"_s);
    if (program.isEmpty())
        return Status::io(u"Ninja is not installed (Debian's package is ninja-build)"_s);
    setUp(folder);
    startAndWait(program, arguments);
    if (process.error() == QProcess::FailedToStart)
        return Status::io(u"Ninja cannot be started: %1"_s.arg(process.errorString()));
    // The loop also ends with the application's.
    endNow();
    readAll();
    return howItEnded();
}

void NinjaProcess::setUp(const QString &folder)
{
    cancelled = false;
    mark = "MORVALEN_BUILD=" + QByteArray::number(getpid()) + '-'
        + QByteArray::number(QRandomGenerator::global()->generate64(), 36);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"MORVALEN_BUILD"_s, QString::fromLatin1(mark.mid(mark.indexOf('=') + 1)));
    environment.insert(u"NINJA_STATUS"_s, u"\x1d%f/%t\x1d"_s);
    environment.remove(u"CLICOLOR_FORCE"_s);
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(folder);
}

void NinjaProcess::startAndWait(const QString &program, const QStringList &arguments)
{
    QEventLoop loop;
    connect(&process, &QProcess::finished, &loop, &QEventLoop::quit);
    connect(&process, &QProcess::errorOccurred, &loop, [&loop](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            loop.quit();
    });
    process.start(program, arguments);
    session = pid_t(process.processId());
    unseen.clear();
    keepers.clear();
    sinceStart.start();
    looking.start();
    if (process.state() != QProcess::NotRunning)
        loop.exec();
    looking.stop();
    if (process.error() != QProcess::FailedToStart && cancelled && ending.isActive()) {
        connect(this, &NinjaProcess::ended, &loop, &QEventLoop::quit);
        loop.exec();
    }
}

Status NinjaProcess::howItEnded() const
{
    if (cancelled)
        return Status::cancelled(u"The build was cancelled"_s);
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        return Status::failed(u"Ninja failed"_s);
    return {};
}

void NinjaProcess::readAll()
{
    const QByteArray output = process.readAllStandardOutput();
    if (!output.isEmpty())
        Q_EMIT outputReady(output);
    const QByteArray errors = process.readAllStandardError();
    if (!errors.isEmpty())
        Q_EMIT errorReady(errors);
}

QList<ChildProcess> NinjaProcess::processes() const { return processesOfBuild(session, mark); }

void NinjaProcess::cancel()
{
    if (process.state() == QProcess::NotRunning || cancelled)
        return;
    cancelled = true;
    beginEnding([this] { return processes(); });
}

QList<ChildProcess> NinjaProcess::endLeftBehind()
{
    const QList<ChildProcess> left = processesOfSession(session);
    if (left.isEmpty())
        return left;
    QEventLoop loop;
    connect(this, &NinjaProcess::ended, &loop, &QEventLoop::quit);
    beginEnding([this] { return processesOfSession(session); });
    loop.exec();
    if (ending.isActive())
        endAtOnce();
    return left;
}

void NinjaProcess::beginEnding(const Finder &finder)
{
    toEnd = finder;
    asked.clear();
    askToEnd(toEnd());
    sinceEnding.start();
    ending.start();
}

// Ninja takes a step for ended when nobody can write to its output any more, and would wait for
// ever for a process in the background that holds it.
void NinjaProcess::lookForWaiting()
{
    const QList<pid_t> before = std::exchange(unseen, endedChildrenOf(session));
    if (cancelled || std::none_of(before.cbegin(), before.cend(), [this](pid_t child) {
            return unseen.contains(child);
        }))
        return;
    QList<ChildProcess> fresh;
    for (const ChildProcess &child : processesThatKeepWaiting(session, mark)) {
        const auto askedAt = keepers.constFind(child.id);
        if (askedAt == keepers.cend()) {
            keepers.insert(child.id, sinceStart.elapsed());
            kill(child.id, SIGTERM);
            fresh.append(child);
        } else if (sinceStart.elapsed() - *askedAt >= graceTime) {
            kill(child.id, SIGKILL);
        }
    }
    if (!fresh.isEmpty())
        Q_EMIT endedLeftBehind(fresh);
}

// Each process once: some were started while the others were looked for.
void NinjaProcess::askToEnd(const QList<ChildProcess> &found)
{
    for (const ChildProcess &child : found) {
        if (asked.contains(child.id))
            continue;
        asked.insert(child.id);
        kill(child.id, SIGTERM);
    }
}

void NinjaProcess::goOnEnding()
{
    QList<ChildProcess> left = toEnd();
    // A process that waits for the kernel cannot be killed; nobody waits for it for ever.
    const bool givenUp = sinceEnding.elapsed() > graceTime + killTime;
    if (left.isEmpty() || givenUp) {
        ending.stop();
        Q_EMIT ended();
        return;
    }
    if (sinceEnding.elapsed() < graceTime) {
        askToEnd(left);
        return;
    }
    // Ninja ends once its steps have, and removes what they have left half done: on a busy machine
    // that takes its time.
    left.removeIf([this](const ChildProcess &child) { return child.id == session; });
    send(left, SIGKILL);
}

void NinjaProcess::endNow()
{
    if (process.state() == QProcess::NotRunning && !ending.isActive())
        return;
    cancelled = true;
    endAtOnce();
}

void NinjaProcess::endAtOnce()
{
    ending.stop();
    for (int pass = 0; pass < 50; ++pass) {
        const QList<ChildProcess> left = processes();
        if (left.isEmpty())
            break;
        send(left, SIGKILL);
        process.waitForFinished(10);
    }
    process.waitForFinished(1000);
}

} // namespace MorvalenCore
