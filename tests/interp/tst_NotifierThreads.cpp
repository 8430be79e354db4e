#include "interp/commandsManager.h"
#include "interp/QtNotifier.h"
#include "tests/TestClass.h"

#include <QApplication>
#include <QEventLoop>
#include <QSemaphore>
#include <QTimer>
#include <QtTest>

#include <ctime>
#include <functional>
#include <memory>
#include <optional>

#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace {

// A thread of Tcl's that runs a function. Its end is waited for.
class Thread
{
public:
    explicit Thread(std::function<void()> function) : work(std::move(function))
    {
        if (Tcl_CreateThread(&id, run, this, TCL_THREAD_STACK_DEFAULT, TCL_THREAD_JOINABLE)
            != TCL_OK)
            qFatal("no thread");
    }
    ~Thread()
    {
        int code = 0;
        Tcl_JoinThread(id, &code);
    }
    Q_DISABLE_COPY_MOVE(Thread)

private:
    static void run(ClientData self)
    {
        static_cast<Thread *>(self)->work();
        Tcl_ExitThread(0);
    }

    const std::function<void()> work;
    Tcl_ThreadId id = nullptr;
};

// An interpreter of its own, for another thread.
class Interpreter
{
public:
    Interpreter() : interp(Tcl_CreateInterp()) { Tcl_Init(interp); }
    ~Interpreter() { Tcl_DeleteInterp(interp); }
    Q_DISABLE_COPY_MOVE(Interpreter)

    QByteArray eval(const QByteArray &script) const
    {
        if (Tcl_EvalEx(interp, script.constData(), -1, TCL_EVAL_GLOBAL) != TCL_OK)
            return QByteArray("error: ") + Tcl_GetStringResult(interp);
        return Tcl_GetStringResult(interp);
    }

private:
    Tcl_Interp *interp;
};

// A pipe that tells a script in a worker to go on.
struct Pipe
{
    Pipe()
    {
        if (::pipe(fds) != 0)
            qFatal("no pipe");
    }
    ~Pipe()
    {
        ::close(fds[0]);
        finish();
    }
    Q_DISABLE_COPY_MOVE(Pipe)

    void finish()
    {
        if (fds[1] >= 0)
            ::close(std::exchange(fds[1], -1));
    }

    int fds[2] = {-1, -1};
};

// Waits in Tcl's event loop until something has set the flag.
void waitFor(const bool &flag)
{
    while (!flag)
        Tcl_DoOneEvent(TCL_ALL_EVENTS);
}

struct Raise
{
    Tcl_Event header;
    bool *flag;
};

int raiseFlag(Tcl_Event *event, int)
{
    *reinterpret_cast<Raise *>(event)->flag = true;
    return 1;
}

void sendFlag(Tcl_ThreadId thread, bool *flag)
{
    auto *event = reinterpret_cast<Raise *>(Tcl_Alloc(sizeof(Raise)));
    event->header.proc = raiseFlag;
    event->flag = flag;
    Tcl_ThreadQueueEvent(thread, &event->header, TCL_QUEUE_TAIL);
    Tcl_ThreadAlert(thread);
}

// A script for a worker and what it ends with.
struct Scenario
{
    const char *name;
    const char *script;
    const char *answer;
};

constexpr Scenario scenarios[] = {
    {"worker-timer-1 after runs", "after 20 {set a done}; vwait a; set a", "done"},
    {"worker-timer-2 timers run in the order of their times",
     "after 30 {lappend a c; set z 1}; after 15 {lappend a b}; after 0 {lappend a a}; vwait z; "
     "set a",
     "a b c"},
    {"worker-timer-3 nothing runs before its time",
     "set t [clock microseconds]; after 30 {set a 1}; vwait a; "
     "expr {[clock microseconds] - $t >= 30000}",
     "1"},
    {"worker-timer-4 a chain of 2,000 timers of 0 ms",
     "proc step n {if {$n == 0} {set ::a done} else {after 0 step [expr {$n - 1}]}}; step 2000; "
     "vwait a; set a",
     "done"},
    {"worker-timer-5 four weeks do not disturb",
     "after 2419200000 {set a wrong}; after 10 {set a right}; vwait a; set a", "right"},
    {"worker-idle-1 idle callbacks run in order",
     "after idle {lappend a 1}; after idle {lappend a 2; set z 1}; vwait z; set a", "1 2"},
    {"worker-update-1 update returns", "after 0 {lappend a x}; update; set a", "x"},
    {"worker-pipe-1 a line through a pipe",
     "lassign [chan pipe] r w; fconfigure $w -buffering line; "
     "fileevent $r readable {gets $r a}; after 5 {puts $w hello}; vwait a; close $r; close $w; "
     "set a",
     "hello"},
    {"worker-pipe-2 the end of a pipe is seen",
     "lassign [chan pipe] r w; puts $w last; close $w; fileevent $r readable {if {[gets $r line] < "
     "0} {lappend a [eof $r]; close $r; set z 1} else {lappend a $line}}; vwait z; set a",
     "last 1"},
    {"worker-pipe-3 a megabyte without blocking",
     "lassign [chan pipe] r w; fconfigure $w -blocking 0 -translation binary; fconfigure $r "
     "-blocking 0 -translation binary; puts -nonewline $w [string repeat x 1000000]; close $w; "
     "set a 0; fileevent $r readable {incr a [string length [read $r]]; if {[eof $r]} {close $r; "
     "set z 1}}; vwait z; set a",
     "1000000"},
    {"worker-pipe-4 a handler closes the other ready channel",
     "set n 0; lassign [chan pipe] r1 w1; lassign [chan pipe] r2 w2; "
     "proc one {mine other} {incr ::n; close $other; fileevent $mine readable {}}; "
     "fileevent $r1 readable {one $r1 $r2}; fileevent $r2 readable {one $r2 $r1}; "
     "puts $w1 x; puts $w2 x; flush $w1; flush $w2; after 50 {set z 1}; vwait z; set n",
     "1"},
    {"worker-child-1 a child answers",
     "set f [open |cat r+]; fconfigure $f -blocking 0 -buffering line; "
     "fileevent $f readable {if {[gets $f line] >= 0} {set a $line}}; puts $f one; vwait a; "
     "close $f; set a",
     "one"},
    {"worker-child-2 exec", "exec sh -c {echo out}", "out"},
    {"worker-socket-1 a server and a client",
     "proc accept {c args} {fconfigure $c -blocking 0 -buffering line; fileevent $c readable "
     "[list echo $c]}; proc echo c {if {[gets $c line] >= 0} {puts $c <$line>} elseif {[eof $c]} "
     "{close $c}}; set s [socket -server accept -myaddr 127.0.0.1 0]; set c [socket 127.0.0.1 "
     "[lindex [fconfigure $s -sockname] 2]]; fconfigure $c -blocking 0 -buffering line; "
     "fileevent $c readable {if {[gets $c line] >= 0} {set a $line}}; puts $c hi; vwait a; "
     "close $c; close $s; set a",
     "<hi>"},
    {"worker-socket-2 a refused asynchronous connection",
     "set s [socket -server list -myaddr 127.0.0.1 0]; set port [lindex [fconfigure $s -sockname] "
     "2]; close $s; set c [socket -async 127.0.0.1 $port]; fileevent $c writable {set a "
     "[fconfigure "
     "$c -error]; close $c}; vwait a; set a",
     "connection refused"},
};

constexpr int farMilliseconds = 60'000;

// A mark from another thread, made by an event.
struct Marking
{
    Tcl_AsyncHandler handler;
    std::optional<Thread> thread;
};

void startMarking(ClientData data)
{
    auto *marking = static_cast<Marking *>(data);
    marking->thread.emplace([handler = marking->handler] { Tcl_AsyncMark(handler); });
}

} // namespace

// Tcl in threads beside the GUI's, with a notifier that rests.
class tst_NotifierThreads : public QObject
{
    Q_OBJECT

private:
    QByteArray eval(const QByteArray &script)
    {
        if (Tcl_EvalEx(interp, script.constData(), -1, TCL_EVAL_GLOBAL) != TCL_OK)
            return QByteArray("error: ") + Tcl_GetStringResult(interp);
        return Tcl_GetStringResult(interp);
    }

    // Marks the handler from another thread once that is asleep long enough for a wait to begin.
    static std::unique_ptr<Thread> markSoon(Tcl_AsyncHandler handler)
    {
        return std::make_unique<Thread>([handler] {
            Tcl_Sleep(50);
            Tcl_AsyncMark(handler);
        });
    }

    static int setServed(ClientData self, Tcl_Interp *, int code)
    {
        auto *test = static_cast<tst_NotifierThreads *>(self);
        Tcl_SetVar(test->interp, "v", "served", TCL_GLOBAL_ONLY);
        test->loop.quit();
        return code;
    }

    Tcl_Interp *interp = nullptr;
    QEventLoop loop;
    QSemaphore mayWait;
    bool waitedWithoutBeingKnown = false;
    std::unique_ptr<Thread> earlyThread;
    Tcl_ThreadId earlyId = nullptr;

private Q_SLOTS:
    void initTestCase()
    {
        interp = commandsManager::getInstance(nullptr)->interp;
        Qtk_InitNotifier(qApp);
        // A thread that Tcl knows before the notifier rests.
        QSemaphore isThere;
        earlyThread = std::make_unique<Thread>([this, &isThere] {
            const Interpreter own;
            earlyId = Tcl_GetCurrentThread();
            isThere.release();
            mayWait.acquire();
            waitFor(waitedWithoutBeingKnown);
        });
        isThere.acquire();
        Qtk_LetNotifierRest();
    }

    void cleanup() { eval("foreach id [after info] {after cancel $id}"); }

    void aThreadFromBeforeTheRestIsWoken()
    {
        sendFlag(earlyId, &waitedWithoutBeingKnown);
        mayWait.release();
        earlyThread.reset();
        QVERIFY(waitedWithoutBeingKnown);
    }

    void aWaitServesAnAsynchronousHandler_data()
    {
        QTest::addColumn<QByteArray>("script");
        QTest::newRow("async-wait-1 for ever") << QByteArray("vwait v; set v");
        QTest::newRow("async-wait-2 with a far timer")
            << QByteArray("after 60000 {set v late}; vwait v; set v");
        QTest::newRow("async-wait-3 update until it comes")
            << QByteArray("set v {}; while {$v eq {}} update; set v");
        QTest::newRow("async-wait-4 in a loop without waits")
            << QByteArray("set v {}; while {$v eq {}} {}; set v");
        QTest::newRow("async-wait-5 in a nested wait")
            << QByteArray("after 0 {vwait v; set w [set v]}; vwait w; set w");
    }
    void aWaitServesAnAsynchronousHandler()
    {
        QFETCH(QByteArray, script);
        Tcl_AsyncHandler handler = Tcl_AsyncCreate(setServed, this);
        {
            const auto thread = markSoon(handler);
            QCOMPARE(eval(script), "served");
        }
        Tcl_AsyncDelete(handler);
    }

    void qtsEventLoopServesAnAsynchronousHandler()
    {
        Tcl_AsyncHandler handler = Tcl_AsyncCreate(setServed, this);
        eval("set v {}");
        {
            const auto thread = markSoon(handler);
            QTimer::singleShot(farMilliseconds, &loop, &QEventLoop::quit);
            loop.exec();
        }
        QCOMPARE(eval("set v"), "served");
        Tcl_AsyncDelete(handler);
    }

    void manyMarksInARow()
    {
        Tcl_AsyncHandler handler = Tcl_AsyncCreate(setServed, this);
        for (int i = 0; i < 200; ++i) {
            // Started by an event, so that the wait is there before the mark.
            Marking marking {handler, std::nullopt};
            Tcl_CreateTimerHandler(0, startMarking, &marking);
            QCOMPARE(eval("set v {}; vwait v; set v"), "served");
        }
        Tcl_AsyncDelete(handler);
    }

    void anEventFromAnotherThreadIsServed_data()
    {
        QTest::addColumn<bool>("inTcl");
        QTest::newRow("event-1 in Tcl's event loop") << true;
        QTest::newRow("event-2 in Qt's event loop") << false;
    }
    void anEventFromAnotherThreadIsServed()
    {
        QFETCH(bool, inTcl);
        bool arrived = false;
        const Tcl_ThreadId gui = Tcl_GetCurrentThread();
        const Thread thread([gui, &arrived] {
            Tcl_Sleep(50);
            sendFlag(gui, &arrived);
        });
        if (inTcl)
            waitFor(arrived);
        else
            QTRY_VERIFY(arrived);
        QVERIFY(arrived);
    }

    void workers_data()
    {
        QTest::addColumn<QByteArray>("script");
        QTest::addColumn<QByteArray>("answer");
        for (const Scenario &row : scenarios)
            QTest::newRow(row.name) << QByteArray(row.script) << QByteArray(row.answer);
    }
    void workers()
    {
        QFETCH(QByteArray, script);
        QByteArray answer;
        {
            const Thread thread([&] { answer = Interpreter().eval(script); });
        }
        QTEST(answer, "answer");
    }

    void manyWorkersBesideABusyWindow()
    {
        constexpr int count = 8;
        QByteArray answers[count];
        eval("proc again n {set ::n $n; after 0 [list again [incr n]]}; again 0");
        std::atomic_int running = count;
        {
            std::vector<std::unique_ptr<Thread>> threads;
            for (QByteArray &answer : answers) {
                threads.push_back(std::make_unique<Thread>([&] {
                    answer = Interpreter().eval("for {set i 0} {$i < 50} {incr i} {after 1 {set a "
                                                "1}; vwait a}; set i");
                    --running;
                }));
            }
            QTRY_COMPARE_WITH_TIMEOUT(running.load(), 0, farMilliseconds);
        }
        for (const QByteArray &answer : answers)
            QCOMPARE(answer, "50");
        QVERIFY(eval("set n").toInt() > 0);
    }

    void idleWorkersSleep()
    {
        Pipe pipe;
        std::atomic_int waiting = 0;
        std::vector<std::unique_ptr<Thread>> threads;
        for (int i = 0; i < 5; ++i) {
            threads.push_back(std::make_unique<Thread>([&] {
                const Interpreter own;
                bool ended = false;
                Tcl_CreateFileHandler(
                    pipe.fds[0], TCL_READABLE,
                    [](ClientData flag, int) { *static_cast<bool *>(flag) = true; }, &ended);
                ++waiting;
                waitFor(ended);
                Tcl_DeleteFileHandler(pipe.fds[0]);
            }));
        }
        QTRY_COMPARE(waiting.load(), 5);
        QTest::qWait(50);
        const std::clock_t before = std::clock();
        Tcl_Sleep(500);
        const double spent = double(std::clock() - before) / CLOCKS_PER_SEC;
        pipe.finish();
        threads.clear();
        QVERIFY2(spent < 0.1, qPrintable(QString::number(spent)));
    }

    void aDescriptorClosedBehindAWorkersBackDoesNotKeepItAwake()
    {
        double spent = 0;
        {
            const Thread thread([&] {
                const Interpreter own;
                Pipe pipe;
                Tcl_CreateFileHandler(
                    pipe.fds[0], TCL_READABLE, [](ClientData, int) {}, nullptr);
                ::close(pipe.fds[0]);
                const std::clock_t before = std::clock();
                own.eval("after 300 {set a 1}; vwait a");
                spent = double(std::clock() - before) / CLOCKS_PER_SEC;
                Tcl_DeleteFileHandler(pipe.fds[0]);
                pipe.fds[0] = -1;
            });
        }
        QVERIFY2(spent < 0.1, qPrintable(QString::number(spent)));
    }

    void aWorkersAsynchronousHandlerIsServedInItsWait()
    {
        QSemaphore isThere;
        Tcl_AsyncHandler handler = nullptr;
        bool served = false;
        const Thread thread([&] {
            const Interpreter own;
            handler = Tcl_AsyncCreate(
                [](ClientData flag, Tcl_Interp *, int code) {
                    *static_cast<bool *>(flag) = true;
                    return code;
                },
                &served);
            isThere.release();
            waitFor(served);
            Tcl_AsyncDelete(handler);
        });
        isThere.acquire();
        Tcl_Sleep(20);
        Tcl_AsyncMark(handler);
    }

    void aRestSetAgainIsTheSame()
    {
        Qtk_InitNotifier(qApp);
        Qtk_LetNotifierRest();
        QByteArray answer;
        {
            const Thread thread(
                [&] { answer = Interpreter().eval("after 5 {set a done}; vwait a; set a"); });
        }
        QCOMPARE(answer, "done");
    }
};

TEST_CLASS(tst_NotifierThreads)

#include "tst_NotifierThreads.moc"
