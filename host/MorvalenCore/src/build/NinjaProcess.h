#pragma once

#include "build/Child.h"
#include "build/ChildProcess.h"

#include <Qtilities/Status.h>

#include <QObject>
#include <QSocketNotifier>

namespace MorvalenCore {

// One run of Ninja, with all the processes that it starts. A supervisor stands between, to whom
// falls what they leave behind, so that nothing of it survives a cancelled run, or this process.
class NinjaProcess : public QObject
{
    Q_OBJECT

public:
    explicit NinjaProcess(QObject *parent = nullptr);
    // Ends what still runs, at once.
    ~NinjaProcess() override;

    // What Ninja's output begins with, as a line, when it runs in an allocation that has come.
    static QByteArray allocatedLine();

    // Runs Ninja in the folder. It has ended when with it has what its steps have left running in
    // its session. Who has made a session of its own (a daemon) stays, unless it kept Ninja
    // waiting. One run at a time. The allocation, when there is one, is a command for the shell
    // that runs the words behind it.
    void start(const QString &folder, const QStringList &arguments, const QString &allocation = {});

    // The same for what runs no steps, without anybody to watch over it.
    void ask(const QString &folder, const QStringList &arguments);

    // The process that Ninja is below of; 0 when none runs.
    pid_t process() const { return child ? child->process() : 0; }

    // What was still running when Ninja had ended, and was ended then.
    QList<ChildProcess> leftBehind() const { return left; }

    // Asks all processes of the run to end, and makes them after the grace time; the run ends when
    // none is left. Nothing when none runs.
    void cancel();

    // Ends them, and the run, at once, without serving events.
    void endNow();

    // In milliseconds: from the request to end until the signal that cannot be ignored.
    void setGraceTime(int milliseconds) { graceTime = milliseconds; }

Q_SIGNALS:
    // Cancelled, Failed when Ninja says so, or Io when it was not started or not watched to its
    // end; only the last one has a sentence for the user. It may come before a start has returned.
    void ended(const Qtilities::Core::Status &status);
    // These kept Ninja waiting for a step that has ended.
    void endedLeftBehind(const QList<MorvalenCore::ChildProcess> &processes);
    void outputReady(const QByteArray &bytes);
    void errorReady(const QByteArray &bytes);

private:
    Qtilities::Core::Result<QString> findNinja();
    void startChild(const ChildStartInfo &info);
    void takeEnd();
    void end(const Qtilities::Core::Status &result);
    void request(char what) const;
    bool readTold();
    void take(const QList<QByteArray> &fields);
    Qtilities::Core::Status howItEnded() const;

    std::unique_ptr<Child> child;
    bool isUnderWay = false;
    QString reason;
    int graceTime = 3000;
    bool cancelled = false;

    // Our end of the supervisor's socket, -1 without one, and what came over it without a line's
    // end.
    int control = -1;
    std::unique_ptr<QSocketNotifier> toldNotifier;
    QByteArray told;
    bool hasEnded = false;
    int status = 0;
    QList<ChildProcess> left;
};

} // namespace MorvalenCore
