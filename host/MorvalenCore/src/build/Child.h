#pragma once

#include "build/ChildStartInfo.h"

#include <Qtilities/Status.h>

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

#include <memory>

#include <sys/types.h>

namespace MorvalenCore {

// A process that was started, with what it writes. Starting it takes the same time however much
// memory this process has, and nothing is waited for but its end. It leads a session of its own,
// reads nothing, and writes into pipes.
class Child : public QObject
{
    Q_OBJECT

public:
    explicit Child(QObject *parent = nullptr);
    // Whoever still runs is killed.
    ~Child() override;

    // The sentence of a failure is the system's reason.
    Qtilities::Core::Status start(const ChildStartInfo &info);

    bool isRunning() const { return id > 0; }
    // 0 when none runs.
    pid_t process() const { return id; }
    // As waitpid() gave it.
    int status() const { return endStatus; }

    void send(int signal) const;
    // Waits without serving events; what comes is passed on meanwhile. False when it still runs.
    bool waitForEnd(int milliseconds);

Q_SIGNALS:
    void outputReady(const QByteArray &bytes);
    void errorReady(const QByteArray &bytes);
    // All that it wrote was passed on; others may still hold its pipes.
    void ended();

private:
    // The reading end of a pipe.
    struct Pipe
    {
        int descriptor = -1;
        std::unique_ptr<QSocketNotifier> notifier;
        void (Child::*ready)(const QByteArray &bytes) = nullptr;
    };

    bool openPipe(Pipe *pipe, int *writingEnd);
    // At most about so many bytes.
    void read(Pipe &pipe, int most);
    void watchForEnd();
    void takeEnd();
    void close(Pipe &pipe);

    pid_t id = 0;
    int endStatus = 0;
    int handle = -1;
    std::unique_ptr<QSocketNotifier> endNotifier;
    QTimer endTimer;
    Pipe output;
    Pipe errors;
};

} // namespace MorvalenCore
