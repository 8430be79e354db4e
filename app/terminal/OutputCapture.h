#pragma once

#include <QByteArray>
#include <QObject>

#include <array>
#include <atomic>
#include <mutex>
#include <thread>

// Takes what is written to the terminal through standard output and standard error, by scripts, by
// the log, by programs that scripts start, while it is on; so that it does not come between the
// characters of a line that is edited. A thread reads, so that nobody who writes ever waits.
class OutputCapture : public QObject
{
    Q_OBJECT

public:
    explicit OutputCapture(QObject *parent = nullptr);
    ~OutputCapture() override;

    // Descriptors that are no terminal are left alone.
    void setOn(bool on);

    // What has come since the last time.
    QByteArray take();

Q_SIGNALS:
    // Something has come.
    void arrived();

private:
    void run();
    bool drain();

    struct Stream
    {
        int descriptor;
        int real = -1; // the terminal, while it is on
    };
    std::array<Stream, 2> streams {{{1}, {2}}};
    int pipeEnds[2] = {-1, -1};
    int wakeEnd = -1;
    std::mutex guard;
    QByteArray pending;
    std::atomic_bool ending = false;
    bool isOn = false;
    std::thread thread; // the last one: it uses the others
};
