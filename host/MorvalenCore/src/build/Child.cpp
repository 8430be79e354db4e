#include "build/Child.h"

#include <QElapsedTimer>
#include <QFile>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Status;

namespace MorvalenCore {

namespace {

// How many bytes are read at once.
constexpr int part = 65'536;

// In milliseconds: how often it is looked whether a child has ended, where the system does not
// tell.
constexpr int lookTime = 10;

// Texts as the system takes them: an array that ends with a null.
class SystemTexts
{
public:
    explicit SystemTexts(const QStringList &list)
    {
        for (const QString &text : list)
            texts.append(QFile::encodeName(text));
        for (QByteArray &text : texts)
            pointers.append(text.data());
        pointers.append(nullptr);
    }

    char *const *data() const { return pointers.data(); }

private:
    QByteArrayList texts;
    QList<char *> pointers;
};

// What is done between this process and the new program.
class Spawning
{
public:
    Spawning()
    {
        posix_spawn_file_actions_init(&actions);
        posix_spawnattr_init(&attributes);
        sigset_t signals;
        sigemptyset(&signals);
        posix_spawnattr_setsigmask(&attributes, &signals);
        sigaddset(&signals, SIGPIPE);
        posix_spawnattr_setsigdefault(&attributes, &signals);
        posix_spawnattr_setflags(
            &attributes, POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
        posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    }
    ~Spawning()
    {
        posix_spawn_file_actions_destroy(&actions);
        posix_spawnattr_destroy(&attributes);
    }
    Spawning(const Spawning &) = delete;
    Spawning &operator=(const Spawning &) = delete;

    void give(int descriptor, int as)
    {
        posix_spawn_file_actions_adddup2(&actions, descriptor, as);
    }

    int run(const ChildStartInfo &info, pid_t *id)
    {
        const SystemTexts command(info.command);
        const SystemTexts environment(info.environment.toStringList());
        const QByteArray folder = QFile::encodeName(info.folder);
        posix_spawn_file_actions_addchdir_np(&actions, folder.constData());
        return posix_spawn(id, command.data()[0], &actions, &attributes, command.data(),
                           environment.data());
    }

private:
    posix_spawn_file_actions_t actions;
    posix_spawnattr_t attributes;
};

} // namespace

Child::Child(QObject *parent) : QObject(parent)
{
    output.ready = &Child::outputReady;
    errors.ready = &Child::errorReady;
    connect(&endTimer, &QTimer::timeout, this, &Child::takeEnd);
}

Child::~Child()
{
    if (isRunning()) {
        send(SIGKILL);
        waitpid(id, &endStatus, 0);
    }
    for (Pipe *pipe : {&output, &errors})
        close(*pipe);
    if (handle >= 0)
        ::close(handle);
}

bool Child::openPipe(Pipe *pipe, int *writingEnd)
{
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        return false;
    fcntl(ends[0], F_SETFL, O_NONBLOCK);
    pipe->descriptor = ends[0];
    *writingEnd = ends[1];
    pipe->notifier = std::make_unique<QSocketNotifier>(ends[0], QSocketNotifier::Read);
    connect(pipe->notifier.get(), &QSocketNotifier::activated, this,
            [this, pipe] { read(*pipe, part); });
    return true;
}

Status Child::start(const ChildStartInfo &info)
{
    int out = -1;
    int err = -1;
    int failure = openPipe(&output, &out) && openPipe(&errors, &err) ? 0 : errno;
    if (failure == 0) {
        Spawning spawning;
        spawning.give(out, STDOUT_FILENO);
        spawning.give(err, STDERR_FILENO);
        if (info.inherited >= 0)
            spawning.give(info.inherited, info.inherited);
        failure = spawning.run(info, &id);
    }
    for (const int end : {out, err}) {
        if (end >= 0)
            ::close(end);
    }
    if (failure != 0) {
        id = 0;
        close(output);
        close(errors);
        return Status::io(qt_error_string(failure));
    }
    watchForEnd();
    return {};
}

// Kernels before 5.3 know no handles of processes, and some containers refuse them.
void Child::watchForEnd()
{
    handle = int(syscall(SYS_pidfd_open, id, 0));
    if (handle < 0)
        return endTimer.start(lookTime);
    endNotifier = std::make_unique<QSocketNotifier>(handle, QSocketNotifier::Read);
    connect(endNotifier.get(), &QSocketNotifier::activated, this, &Child::takeEnd);
}

void Child::send(int signal) const
{
    if (isRunning())
        kill(id, signal);
}

void Child::read(Pipe &pipe, int most)
{
    QByteArray bytes(part, Qt::Uninitialized);
    while (pipe.descriptor >= 0 && most > 0) {
        const ssize_t size = ::read(pipe.descriptor, bytes.data(), size_t(bytes.size()));
        if (size == 0)
            close(pipe);
        if (size <= 0)
            return;
        most -= int(size);
        Q_EMIT(this->*pipe.ready)(bytes.first(size));
    }
}

void Child::close(Pipe &pipe)
{
    if (pipe.notifier) {
        pipe.notifier->setEnabled(false);
        pipe.notifier.release()->deleteLater();
    }
    if (pipe.descriptor >= 0)
        ::close(std::exchange(pipe.descriptor, -1));
}

void Child::takeEnd()
{
    if (!isRunning() || waitpid(id, &endStatus, WNOHANG) != id)
        return;
    id = 0;
    endTimer.stop();
    if (handle >= 0) {
        endNotifier->setEnabled(false);
        endNotifier.release()->deleteLater();
        ::close(std::exchange(handle, -1));
    }
    // What was written before the end is no more than what a pipe holds; others may go on writing.
    for (Pipe *pipe : {&output, &errors}) {
        if (pipe->descriptor >= 0)
            read(*pipe, fcntl(pipe->descriptor, F_GETPIPE_SZ));
        close(*pipe);
    }
    Q_EMIT ended();
}

bool Child::waitForEnd(int milliseconds)
{
    QElapsedTimer time;
    time.start();
    while (isRunning() && time.elapsed() <= milliseconds) {
        pollfd sources[] {
            {handle, POLLIN, 0}, {output.descriptor, POLLIN, 0}, {errors.descriptor, POLLIN, 0}};
        const qint64 left = std::max<qint64>(milliseconds - time.elapsed(), 0);
        poll(sources, 3, int(handle < 0 ? std::min<qint64>(left, lookTime) : left));
        if (sources[1].revents != 0)
            read(output, part);
        if (sources[2].revents != 0)
            read(errors, part);
        takeEnd();
    }
    return !isRunning();
}

} // namespace MorvalenCore
