#pragma once

#include "build/processtree.h"

#include <Qtilities/Status.h>

#include <QElapsedTimer>
#include <QHash>
#include <QObject>
#include <QProcess>
#include <QSet>
#include <QTimer>

#include <functional>

namespace MorvalenCore {

// One run of Ninja, with all the processes that it starts. It leads a session of its own, so that
// nothing of it survives a cancelled run, and ends when this process does.
class NinjaProcess : public QObject
{
    Q_OBJECT

public:
    explicit NinjaProcess(QObject *parent = nullptr);
    // Ends what still runs, at once.
    ~NinjaProcess() override;

    // Runs Ninja in the folder and returns when it has ended. Events are served meanwhile. One
    // run at a time. Cancelled, Failed when Ninja says so, or Io when it was not started; only the
    // last one has a sentence for the user.
    Qtilities::Core::Status run(const QString &folder, const QStringList &arguments);

    // Asks all processes of the run to end, and makes them after the grace time; run() returns
    // when none is left. Nothing when none runs.
    void cancel();

    // Ends them at once, without serving events.
    void endNow();

    // Ends what the steps have left running in the session, events being served meanwhile, and
    // says what it was. Who has made a session of its own (a daemon) stays, unless it kept Ninja
    // waiting: those are ended, and told of, during the run.
    QList<ChildProcess> endLeftBehind();

    // In milliseconds: from the request to end until the signal that cannot be ignored.
    void setGraceTime(int milliseconds) { graceTime = milliseconds; }

Q_SIGNALS:
    void endedLeftBehind(const QList<MorvalenCore::ChildProcess> &processes);
    void outputReady(const QByteArray &bytes);
    void errorReady(const QByteArray &bytes);
    // What was to be ended is gone.
    void ended();

private:
    using Finder = std::function<QList<ChildProcess>()>;

    void setUp(const QString &folder);
    // Returns when Ninja has ended, or cannot be started, and what was to be ended with it is gone.
    void startAndWait(const QString &program, const QStringList &arguments);
    Qtilities::Core::Status howItEnded() const;
    QList<ChildProcess> processes() const;
    // Ends what the finder finds, until it finds nothing.
    void beginEnding(const Finder &finder);
    void lookForWaiting();
    void askToEnd(const QList<ChildProcess> &found);
    void goOnEnding();
    void endAtOnce();
    void readAll();

    QProcess process;
    pid_t session = 0;
    QByteArray mark;
    int graceTime = 3000;
    bool cancelled = false;

    // Steps whose processes are gone, but whose end Ninja had not seen when it was looked last.
    QTimer looking;
    QList<pid_t> unseen;
    QElapsedTimer sinceStart;
    // Who kept Ninja waiting, and when it was asked to end.
    QHash<pid_t, qint64> keepers;

    Finder toEnd;
    QSet<pid_t> asked;
    QTimer ending;
    QElapsedTimer sinceEnding;
};

} // namespace MorvalenCore
