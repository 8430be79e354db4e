#include "interp/commandsManager.h"
#include "interp/NotifierState.h"
#include "interp/QtNotifier.h"
#include "interp/ServedEvents.h"
#include "interp/TclFileHandler.h"
#include "tests/TestClass.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QEventLoop>
#include <QRandomGenerator>
#include <QTimer>
#include <QtTest>

#include <array>
#include <memory>

#include <sys/socket.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace {

// A socket pair that Tcl may watch, and the bytes on their way through it.
struct Channel
{
    Channel()
    {
        if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK, 0, fds) != 0)
            qFatal("no socket pair");
    }
    ~Channel()
    {
        unwatch();
        close(fds[0]);
        close(fds[1]);
    }
    Q_DISABLE_COPY_MOVE(Channel)

    static void take(ClientData self, int)
    {
        auto *channel = static_cast<Channel *>(self);
        char bytes[64];
        ssize_t count = 0;
        while ((count = read(channel->fds[0], bytes, sizeof bytes)) > 0)
            channel->pending -= int(count);
    }
    void watch(int mask)
    {
        Tcl_CreateFileHandler(fds[0], mask, take, this);
        watched = true;
    }
    void unwatch()
    {
        Tcl_DeleteFileHandler(fds[0]);
        watched = false;
    }
    void send()
    {
        if (write(fds[1], "x", 1) == 1)
            ++pending;
    }

    int fds[2] = {-1, -1};
    int pending = 0;
    bool watched = false;
};

// A timer of Tcl's that counts its ring.
struct Alarm
{
    static void ring(ClientData self)
    {
        auto *alarm = static_cast<Alarm *>(self);
        alarm->token = nullptr;
        ++alarm->rings;
    }
    explicit Alarm(int milliseconds) : token(Tcl_CreateTimerHandler(milliseconds, ring, this)) { }
    ~Alarm() { cancel(); }
    Q_DISABLE_COPY_MOVE(Alarm)

    void cancel() { Tcl_DeleteTimerHandler(std::exchange(token, nullptr)); }

    Tcl_TimerToken token;
    int rings = 0;
};

} // namespace

// Tcl's events among Qt's own: loops within loops, rest, and crowds.
class tst_NotifierLoops : public QObject
{
    Q_OBJECT

private:
    static int quit(void *self, Tcl_Interp *, int, const char **)
    {
        static_cast<tst_NotifierLoops *>(self)->loop.quit();
        return TCL_OK;
    }

    // As a dialog does that a script opens: an event loop of its own, for 60 ms.
    static int dialog(void *, Tcl_Interp *, int, const char **)
    {
        QEventLoop dialogLoop;
        QTimer::singleShot(60, &dialogLoop, &QEventLoop::quit);
        dialogLoop.exec();
        return TCL_OK;
    }

    // The same, as a command does that wants Tcl's events served meanwhile.
    static int servedDialog(void *self, Tcl_Interp *current, int argc, const char **argv)
    {
        const ServedEvents served;
        return dialog(self, current, argc, argv);
    }

    QByteArray eval(const char *script)
    {
        if (Tcl_EvalEx(interp, script, -1, TCL_EVAL_GLOBAL) != TCL_OK)
            return QByteArray("error: ") + Tcl_GetStringResult(interp);
        return Tcl_GetStringResult(interp);
    }

    // How often Qt's event loop wakes up in 200 ms.
    int wakeUps()
    {
        int count = 0;
        const auto counting = connect(QAbstractEventDispatcher::instance(),
                                      &QAbstractEventDispatcher::awake, this, [&] { ++count; });
        QTimer::singleShot(200, &loop, &QEventLoop::quit);
        loop.exec();
        disconnect(counting);
        return count;
    }

    // How often it wakes up until a script has called "quit".
    int passesOf(const char *script)
    {
        int count = 0;
        const auto counting = connect(QAbstractEventDispatcher::instance(),
                                      &QAbstractEventDispatcher::awake, this, [&] { ++count; });
        eval(script);
        loop.exec();
        disconnect(counting);
        return count;
    }

    static void addModes()
    {
        QTest::addColumn<bool>("resting");
        QTest::newRow("mode-1 spinning") << false;
        QTest::newRow("mode-2 resting") << true;
    }

    Tcl_Interp *interp = nullptr;
    QEventLoop loop;

private Q_SLOTS:
    void initTestCase()
    {
        commandsManager *registry = commandsManager::getInstance(nullptr);
        interp = registry->interp;
        registry->registerFunction("quit", quit, "ends the loop", this);
        registry->registerFunction("dialog", dialog, "opens a loop", nullptr);
        registry->registerFunction("served_dialog", servedDialog, "opens a loop", nullptr);
        Qtk_InitNotifier(qApp);
        Qtk_LetNotifierRest();
    }

    void init()
    {
        if (QTest::currentDataTag()) {
            QFETCH(bool, resting);
            notifier->resting = resting;
        } else {
            notifier->resting = true;
        }
        eval("set got {}");
    }

    void cleanup()
    {
        eval("foreach id [after info] {after cancel $id}");
        QCOMPARE(notifier->firstFileHandler, nullptr);
    }

    void aRestingProcessSleepsAfterATimer()
    {
        eval("after 0 {lappend got ran}");
        QTRY_COMPARE(eval("set got"), "ran");
        const int count = wakeUps();
        QVERIFY2(count < 10, qPrintable(QString::number(count)));
    }

    void aSpinningProcessGoesOnAfterATimer()
    {
        notifier->resting = false;
        eval("after 0 {lappend got ran}");
        QTRY_COMPARE(eval("set got"), "ran");
        const int count = wakeUps();
        QVERIFY2(count > 50, qPrintable(QString::number(count)));
        notifier->timer->stop();
    }

    void aRestingWaitSleeps()
    {
        QTest::qWait(20);
        const clock_t before = clock();
        QCOMPARE(eval("after 300 {set a 1}; vwait a"), "");
        const double spent = double(clock() - before) / CLOCKS_PER_SEC;
        QVERIFY2(spent < 0.1, qPrintable(QString::number(spent)));
    }

    void aRestingChainOfShortTimersDoesNotPoll()
    {
        const int underVwait = passesOf(
            "for {set i 0} {$i < 100} {incr i} {after 1 {set a 1}; vwait a}; after 0 quit");
        QVERIFY2(underVwait < 1500, qPrintable(QString::number(underVwait)));
        const int underQt =
            passesOf("proc tick n {if {$n == 0} quit else {after 1 [list tick [incr n -1]]}}; "
                     "tick 100");
        QVERIFY2(underQt < 1500, qPrintable(QString::number(underQt)));
    }

    void aPipeIsReadInTimeBesideAFarTimer_data() { addModes(); }
    void aPipeIsReadInTimeBesideAFarTimer()
    {
        // The first wait leaves a timer, which a spinning notifier lets go on.
        for (int i = 0; i < 10; ++i) {
            eval("unset -nocomplain v; after 8 {set v 1}; vwait v");
            QCOMPARE(eval("set r [open {|sh -c {sleep 0.02; echo x}}]; set id [after 60000 {set v "
                          "late}]; fileevent $r readable {gets $r v}; vwait v; after cancel $id; "
                          "close $r; set v"),
                     "x");
        }
    }

    void updateReturnsToARestingScript()
    {
        QCOMPARE(
            eval("after 0 {lappend got timer}; after idle {lappend got idle}; update; set got"),
            "timer idle");
        QCOMPARE(eval("update idletasks; set got"), "timer idle");
    }

    void updateRunsPendingEventsOfQt()
    {
        bool ran = false;
        QMetaObject::invokeMethod(
            this, [&] { ran = true; }, Qt::QueuedConnection);
        QCOMPARE(eval("update"), "");
        QVERIFY(ran);
    }

    void updateKeepsALaterTimer()
    {
        eval("after 30 {lappend got late; quit}; update");
        loop.exec();
        QCOMPARE(eval("set got"), "late");
    }

    void aWaitEndsWhenQtRunsAScript_data() { addModes(); }
    void aWaitEndsWhenQtRunsAScript()
    {
        QTimer::singleShot(20, this, [this] { eval("set a 1"); });
        QCOMPARE(eval("vwait a; set a"), "1");
    }

    void qtLivesDuringAWait_data() { addModes(); }
    void qtLivesDuringAWait()
    {
        int ticks = 0;
        QTimer ticking;
        connect(&ticking, &QTimer::timeout, this, [&] {
            if (++ticks == 5)
                eval("set a ticked");
        });
        ticking.start(5);
        QCOMPARE(eval("vwait a; set a"), "ticked");
    }

    void eventsDuringADialogOfATimerAreServedBehindIt_data() { addModes(); }
    void eventsDuringADialogOfATimerAreServedBehindIt()
    {
        eval("proc end {} {if {[llength $::got] == 3} quit}; lassign [chan pipe] r w; "
             "fileevent $r readable {lappend got file; close $r; close $w; end}; "
             "after 0 {after 5 {lappend got timer; end}; puts $w x; flush $w; dialog; "
             "lappend got dialog}");
        loop.exec();
        QCOMPARE(eval("list [lindex $got 0] [lsort $got]"), "dialog {dialog file timer}");
    }

    void eventsDuringADialogInTheLastCallbackOfAWaitAreServedBehindIt_data() { addModes(); }
    void eventsDuringADialogInTheLastCallbackOfAWaitAreServedBehindIt()
    {
        eval("lassign [chan pipe] r w; fileevent $r readable "
             "{lappend got file; close $r; close $w; if {[llength $got] == 4} quit}; "
             "after 0 {after 5 {lappend got timer; if {[llength $got] == 4} quit}; puts $w x; "
             "flush $w; "
             "dialog; lappend got dialog; set a 1}; vwait a; lappend got waited");
        QCOMPARE(eval("set got"), "dialog waited");
        loop.exec();
        QCOMPARE(eval("lsort $got"), "dialog file timer waited");
    }

    // The rest of the notifier's promises is a matter of resting, too.
    void aCommandOfATimerCanHaveEventsServed_data() { addModes(); }
    void aCommandOfATimerCanHaveEventsServed()
    {
        QFETCH(const bool, resting);
        eval("proc end {} {if {[llength $::got] == 2} quit}; "
             "after 0 {after 5 {lappend got timer; end}; served_dialog; lappend got dialog; end}");
        loop.exec();
        QCOMPARE(eval("set got"), resting ? "timer dialog" : "dialog timer");
        QCOMPARE(Tcl_GetServiceMode(), TCL_SERVICE_ALL);
    }

    void aDialogOfACommandServesTclAtOnce_data() { addModes(); }
    void aDialogOfACommandServesTclAtOnce()
    {
        QCOMPARE(eval("after 5 {lappend got timer}; dialog; lappend got dialog"), "timer dialog");
    }

    void idleWorkAndTimersLeftByAWaitRunInTheLoop_data() { addModes(); }
    void idleWorkAndTimersLeftByAWaitRunInTheLoop()
    {
        eval("after 10 {after idle {lappend got idle; after 10 {lappend got timer; quit}}; set a "
             "1}; "
             "vwait a; lappend got waited");
        QCOMPARE(eval("set got"), "waited");
        loop.exec();
        QCOMPARE(eval("set got"), "waited idle timer");
    }

    void aChannelWhoseDescriptorWasClosedCanBeClosed_data() { addModes(); }
    void aChannelWhoseDescriptorWasClosedCanBeClosed()
    {
        const QByteArray name =
            eval("lassign [chan pipe] r w; fileevent $r readable {lappend got wrong}; set r");
        ClientData handle = nullptr;
        Tcl_Channel channel = Tcl_GetChannel(interp, name.constData(), nullptr);
        QCOMPARE(Tcl_GetChannelHandle(channel, TCL_READABLE, &handle), TCL_OK);
        ::close(int(reinterpret_cast<qintptr>(handle)));
        QTest::ignoreMessage(QtWarningMsg,
                             QRegularExpression(u"^QSocketNotifier: Invalid socket.*"_s));
        QTest::qWait(20);
        QCOMPARE(eval("catch {close $r} text; close $w; set text"), "bad file number");
        QCOMPARE(eval("set got"), "");
    }

    void aCrowdOfTimersRingsOnceEach_data() { addModes(); }
    void aCrowdOfTimersRingsOnceEach()
    {
        QRandomGenerator random(42);
        std::vector<std::unique_ptr<Alarm>> alarms;
        int cancelled = 0;
        for (int i = 0; i < 5000; ++i) {
            alarms.push_back(std::make_unique<Alarm>(int(random.bounded(60))));
            Alarm &any = *alarms.at(random.bounded(quint32(alarms.size())));
            if (any.token && random.bounded(4) == 0) {
                any.cancel();
                any.rings = 1; // it will not ring any more
                ++cancelled;
            }
            if (random.bounded(50) == 0)
                QCoreApplication::processEvents();
        }
        QVERIFY(cancelled > 500);
        const auto rung = [](const std::unique_ptr<Alarm> &alarm) { return alarm->rings == 1; };
        QTRY_VERIFY(std::all_of(alarms.begin(), alarms.end(), rung));
        QTest::qWait(20);
        QVERIFY(std::all_of(alarms.begin(), alarms.end(), rung));
    }

    void aCrowdOfHandlersLosesNoByte_data() { addModes(); }
    void aCrowdOfHandlersLosesNoByte()
    {
        QRandomGenerator random(43);
        std::array<Channel, 100> channels;
        constexpr int masks[] = {TCL_READABLE, TCL_READABLE | TCL_WRITABLE, TCL_WRITABLE, 0};
        for (int i = 0; i < 20000; ++i) {
            Channel &any = channels.at(random.bounded(quint32(channels.size())));
            switch (random.bounded(6)) {
            case 0:
                any.unwatch();
                break;
            case 1:
            case 2:
                any.watch(masks[random.bounded(4)]);
                break;
            case 3:
            case 4:
                any.send();
                break;
            default:
                if (random.bounded(20) == 0)
                    QCoreApplication::processEvents();
            }
        }
        int listed = 0;
        for (const TclFileHandler *at = notifier->firstFileHandler; at; at = at->next)
            ++listed;
        QCOMPARE(listed,
                 int(std::count_if(channels.begin(), channels.end(),
                                   [](const Channel &channel) { return channel.watched; })));
        for (Channel &channel : channels)
            channel.watch(TCL_READABLE);
        QTRY_VERIFY(std::all_of(channels.begin(), channels.end(),
                                [](const Channel &channel) { return channel.pending == 0; }));
    }
};

TEST_CLASS(tst_NotifierLoops)

#include "tst_NotifierLoops.moc"
