#include "interp/commandsManager.h"
#include "interp/notifierprocs.h"
#include "interp/NotifierState.h"
#include "interp/QtNotifier.h"
#include "interp/TclFileHandler.h"
#include "interp/TclTimeNotifier.h"
#include "tests/TestClass.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QSocketNotifier>
#include <QTimer>
#include <QtTest>

#include <climits>
#include <functional>

#include <sys/socket.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace {

// Two connected sockets; what is written to theirs can be read from ours.
struct SocketPair
{
    SocketPair() { ok = socketpair(AF_UNIX, SOCK_STREAM, 0, fds) == 0; }
    ~SocketPair()
    {
        DeleteFileHandler(fds[0]);
        close(fds[0]);
        close(fds[1]);
    }
    Q_DISABLE_COPY_MOVE(SocketPair)

    int ours() const { return fds[0]; }
    void write() const { QCOMPARE(::write(fds[1], "x", 1), ssize_t(1)); }
    void read() const
    {
        char byte = 0;
        QCOMPARE(::read(fds[0], &byte, 1), ssize_t(1));
    }

    int fds[2] = {-1, -1};
    bool ok = false;
};

// What a handler's procedure was called with.
struct Calls
{
    static void record(ClientData self, int mask)
    {
        static_cast<Calls *>(self)->masks.append(mask);
    }

    QList<int> masks;
};

// Keeps queued events from being served, so that they can be looked at.
struct Unserved
{
    Unserved() : mode(Tcl_SetServiceMode(TCL_SERVICE_NONE)) { }
    ~Unserved() { Tcl_SetServiceMode(mode); }
    Q_DISABLE_COPY_MOVE(Unserved)

    int mode;
};

QList<int> watchedDescriptors()
{
    QList<int> descriptors;
    for (const TclFileHandler *handler = notifier->firstFileHandler; handler;
         handler = handler->next)
        descriptors.append(handler->fd);
    return descriptors;
}

// Whether a notifier is missing, off or on.
QString stateOf(const QSocketNotifier *socketNotifier)
{
    return !socketNotifier ? u"none"_s : socketNotifier->isEnabled() ? u"on"_s : u"off"_s;
}

QString stateOf(const TclFileHandler *handler)
{
    return u"mask %1 ready %2 read %3 write %4 exception %5"_s.arg(
        QString::number(handler->mask), QString::number(handler->readyMask),
        stateOf(handler->readNotifier), stateOf(handler->writeNotifier),
        stateOf(handler->exceptionNotifier));
}

QStringList slotNames(const QMetaObject &meta)
{
    QStringList names;
    for (int index = meta.methodOffset(); index < meta.methodCount(); ++index)
        names.append(QString::fromUtf8(meta.method(index).methodSignature()));
    return names;
}

int wait(long sec, long usec)
{
    const Tcl_Time time = {sec, usec};
    return WaitForEvent(&time);
}

} // namespace

// The notifier's procedures and what each step leaves behind.
class tst_QtNotifier : public QObject
{
    Q_OBJECT

private:
    QByteArray eval(const char *script)
    {
        if (Tcl_Eval(interp, script) != TCL_OK)
            return QByteArray("error: ") + Tcl_GetStringResult(interp);
        return Tcl_GetStringResult(interp);
    }

    Tcl_Interp *interp = nullptr;

private Q_SLOTS:
    void initTestCase() { interp = commandsManager::getInstance(nullptr)->interp; }

    void beforeInstallationEveryProcedureIsHarmless()
    {
        QCOMPARE(notifier, nullptr);
        SocketPair pair;
        const Tcl_Time time = {1, 0};
        SetTimer(&time);
        SetTimer(nullptr);
        CreateFileHandler(pair.ours(), TCL_READABLE, Calls::record, nullptr);
        DeleteFileHandler(pair.ours());
        QCOMPARE(WaitForEvent(&time), 0);
        Qtk_LetNotifierRest();
        FinalizeNotifier(nullptr);
        NotifierExitHandler(nullptr);
        QCOMPARE(notifier, nullptr);
        QCOMPARE(Tcl_GetServiceMode(), TCL_SERVICE_NONE);
    }

    void installationMakesAFreshState()
    {
        Qtk_InitNotifier(qApp);
        QVERIFY(notifier);
        QCOMPARE(notifier->app, qApp);
        QCOMPARE(notifier->timerActive, 0);
        QCOMPARE(notifier->firstFileHandler, nullptr);
        QVERIFY(!notifier->resting);
        QCOMPARE(notifier->timer->parent(), nullptr);
        QVERIFY(!notifier->timer->isSingleShot());
        QCOMPARE(notifier->timer->timerType(), Qt::PreciseTimer);
        QVERIFY(!notifier->timer->isActive());
        QCOMPARE(notifier->timeNotifier->parent(), nullptr);
        QCOMPARE(notifier->timeNotifier->objectName(), u"TclTimeNotifier"_s);
        QCOMPARE(Tcl_GetServiceMode(), TCL_SERVICE_ALL);
    }

    void aLaterInstallationKeepsTheState()
    {
        NotifierState *state = notifier;
        Qtk_InitNotifier(nullptr);
        QCOMPARE(notifier, state);
        QCOMPARE(notifier->app, qApp);
    }

    void theReceiversHaveOneSlotEach()
    {
        QCOMPARE(TclFileHandler::staticMetaObject.className(), "TclFileHandler");
        QCOMPARE(slotNames(TclFileHandler::staticMetaObject), QStringList {u"fileactive(int)"_s});
        QCOMPARE(TclTimeNotifier::staticMetaObject.className(), "TclTimeNotifier");
        QCOMPARE(slotNames(TclTimeNotifier::staticMetaObject), QStringList {u"gong()"_s});
    }

    // Every test below runs in both modes of the notifier, unless its name says which.
    void init()
    {
        if (!notifier)
            return;
        notifier->resting = false;
        notifier->timer->stop();
        notifier->timerActive = 0;
        QCoreApplication::processEvents();
    }

    void cleanup()
    {
        if (notifier)
            QCOMPARE(watchedDescriptors(), QList<int>());
    }

    void setTimerStartsWithWholeMilliseconds_data()
    {
        QTest::addColumn<long>("sec");
        QTest::addColumn<long>("usec");
        QTest::addColumn<int>("interval");
        QTest::newRow("timer-set-1 nothing") << 0L << 0L << 0;
        QTest::newRow("timer-set-2 less than a millisecond") << 0L << 999L << 0;
        QTest::newRow("timer-set-3 microseconds are cut off") << 0L << 1999L << 1;
        QTest::newRow("timer-set-4 a second and 999 microseconds") << 1L << 999L << 1000;
        QTest::newRow("timer-set-5 a day") << 86400L << 500000L << 86400500;
        QTest::newRow("timer-set-6 three weeks") << 1814400L << 0L << 1814400000;
        QTest::newRow("timer-set-7 the last second that fits") << 2147482L << 999999L << 2147482999;
        QTest::newRow("timer-set-8 four weeks are asked for in parts") << 2419200L << 0L << INT_MAX;
        QTest::newRow("timer-set-9 the longest time of all") << LONG_MAX << 999999L << INT_MAX;
    }
    void setTimerStartsWithWholeMilliseconds()
    {
        QFETCH(long, sec);
        QFETCH(long, usec);
        const Tcl_Time time = {sec, usec};
        for (const bool resting : {false, true}) {
            notifier->resting = resting;
            SetTimer(&time);
            QTEST(notifier->timer->interval(), "interval");
            QVERIFY(notifier->timer->isActive());
            QVERIFY(!notifier->timer->isSingleShot());
            QCOMPARE(notifier->timerActive, 1);
        }
    }

    void setTimerReplacesAndClears()
    {
        const Tcl_Time first = {5, 0};
        const Tcl_Time second = {7, 0};
        SetTimer(&first);
        SetTimer(&second);
        QCOMPARE(notifier->timer->interval(), 7000);
        SetTimer(nullptr);
        QCOMPARE(notifier->timerActive, 0);
        QVERIFY(!notifier->timer->isActive());
    }

    void aTimerThatWentOffIsLeftRunningByAClearingUnlessResting_data()
    {
        QTest::addColumn<bool>("resting");
        QTest::newRow("timer-left-1 spinning") << false;
        QTest::newRow("timer-left-2 resting") << true;
    }
    void aTimerThatWentOffIsLeftRunningByAClearingUnlessResting()
    {
        QFETCH(bool, resting);
        notifier->resting = resting;
        const Tcl_Time time = {5, 0};
        {
            Unserved unserved;
            SetTimer(&time);
            notifier->timeNotifier->gong();
            QCOMPARE(notifier->timerActive, 0);
            QCOMPARE(notifier->timer->isActive(), !resting);
        }
        notifier->timer->start(5000);
        SetTimer(nullptr);
        QCOMPARE(notifier->timer->isActive(), !resting);
        QCOMPARE(notifier->timerActive, 0);
    }

    void afterStartsARepeatingTimerThatGoesOnFiring()
    {
        int gongs = 0;
        const auto counting = connect(notifier->timer, &QTimer::timeout, this, [&] { ++gongs; });
        eval("set ran 0; after 30 {incr ran}");
        QCOMPARE(notifier->timerActive, 1);
        QVERIFY(notifier->timer->interval() <= 30);
        QTRY_VERIFY(gongs >= 5);
        QCOMPARE(eval("set ran"), "1");
        QVERIFY(notifier->timer->isActive());
        disconnect(counting);
    }

    void aRestingTimerStopsWhenTclHasNoMore()
    {
        Qtk_LetNotifierRest();
        QVERIFY(notifier->resting);
        eval("set ran 0; after 5 {incr ran}");
        QTRY_COMPARE(eval("set ran"), "1");
        QVERIFY(!notifier->timer->isActive());
        QCOMPARE(notifier->timerActive, 0);
    }

    void lettingRestStopsATimerThatTclHasCleared()
    {
        notifier->timer->start(5000);
        Qtk_LetNotifierRest();
        QVERIFY(!notifier->timer->isActive());
    }

    void lettingRestLeavesATimerThatTclHasSet()
    {
        const Tcl_Time time = {5, 0};
        SetTimer(&time);
        Qtk_LetNotifierRest();
        QVERIFY(notifier->timer->isActive());
    }

    void aSpinningWaitAnswersOneAndDoesNotBlock_data()
    {
        QTest::addColumn<bool>("forever");
        QTest::addColumn<long>("sec");
        QTest::newRow("wait-spin-1 a poll") << false << 0L;
        QTest::newRow("wait-spin-2 ten minutes") << false << 600L;
        QTest::newRow("wait-spin-3 for ever") << true << 0L;
    }
    void aSpinningWaitAnswersOneAndDoesNotBlock()
    {
        QFETCH(bool, forever);
        QFETCH(long, sec);
        const Tcl_Time time = {sec, 0};
        QCOMPARE(WaitForEvent(forever ? nullptr : &time), 1);
        QCOMPARE(notifier->waits, 0);
    }

    void aPassOfNoTimeIsASinglePass_data()
    {
        QTest::addColumn<bool>("resting");
        QTest::newRow("wait-pass-1 spinning") << false;
        QTest::newRow("wait-pass-2 resting") << true;
    }
    void aPassOfNoTimeIsASinglePass()
    {
        QFETCH(bool, resting);
        notifier->resting = resting;
        int passes = 0;
        QTimer busy;
        connect(&busy, &QTimer::timeout, this, [&] { ++passes; });
        busy.start(0);
        wait(0, 0);
        QCOMPARE(passes, 1);
    }

    void aSpinningWaitForEverIsASinglePass()
    {
        int passes = 0;
        QTimer busy;
        connect(&busy, &QTimer::timeout, this, [&] { ++passes; });
        busy.start(0);
        QCOMPARE(WaitForEvent(nullptr), 1);
        QCOMPARE(passes, 1);
    }

    void aSpinningWaitWithATimeGoesRoundWhileThereAreEvents_data()
    {
        QTest::addColumn<long>("usec");
        QTest::addColumn<int>("rounds");
        QTest::newRow("wait-round-1 one round without a time") << 0L << 1;
        QTest::newRow("wait-round-2 one round for less than a millisecond") << 999L << 1;
        QTest::newRow("wait-round-3 all rounds with a time") << 900000L << 5;
    }
    void aSpinningWaitWithATimeGoesRoundWhileThereAreEvents()
    {
        QFETCH(long, usec);
        int rounds = 0;
        // Each event brings the next one, which another round delivers.
        std::function<void()> round = [&] {
            if (++rounds < 5)
                QMetaObject::invokeMethod(this, round, Qt::QueuedConnection);
        };
        QMetaObject::invokeMethod(this, round, Qt::QueuedConnection);
        QCOMPARE(wait(0, usec), 1);
        QTEST(rounds, "rounds");
        while (rounds < 5)
            QCoreApplication::processEvents();
    }

    void aReadyDescriptorEndsASpinningWait()
    {
        SocketPair pair;
        Calls calls;
        CreateFileHandler(pair.ours(), TCL_READABLE, Calls::record, &calls);
        pair.write();
        Unserved unserved;
        QElapsedTimer clock;
        clock.start();
        QCOMPARE(wait(10, 0), 1);
        QVERIFY(clock.elapsed() < patient(5000));
        QCOMPARE(stateOf(notifier->find(pair.ours())),
                 u"mask 2 ready 2 read off write none exception none"_s);
    }

    void aRestingPollAnswersWhetherItFoundSomething()
    {
        notifier->resting = true;
        SocketPair pair;
        Calls calls;
        CreateFileHandler(pair.ours(), TCL_READABLE, Calls::record, &calls);
        QCOMPARE(wait(0, 0), 0);
        pair.write();
        QCOMPARE(wait(0, 0), 1);
        QCOMPARE(calls.masks, QList<int> {TCL_READABLE});
        pair.read();
        QCOMPARE(wait(0, 0), 0);
    }

    void aRestingPollOfABusyApplicationFindsNothing()
    {
        notifier->resting = true;
        QTimer busy;
        busy.start(0);
        QCOMPARE(wait(0, 0), 0);
        QCOMPARE(eval("update"), "");
    }

    void aRestingWaitLastsItsTime()
    {
        notifier->resting = true;
        QCoreApplication::processEvents();
        QElapsedTimer clock;
        clock.start();
        QCOMPARE(wait(0, 50000), 1);
        QVERIFY2(clock.elapsed() >= 49, qPrintable(QString::number(clock.elapsed())));
        QCOMPARE(notifier->timerActive, 0);
        QVERIFY(!notifier->timer->isActive());
    }

    void aRestingWaitEndsWithTheFirstEvent()
    {
        notifier->resting = true;
        QCoreApplication::processEvents();
        bool happened = false;
        QTimer::singleShot(20, this, [&] { happened = true; });
        QCOMPARE(WaitForEvent(nullptr), 1);
        QVERIFY(happened);
    }

    void aRestingWaitIsNotEndedByTheWaitBeforeIt()
    {
        notifier->resting = true;
        wait(0, 0);
        QElapsedTimer clock;
        clock.start();
        QCOMPARE(wait(0, 50000), 1);
        QVERIFY2(clock.elapsed() >= 49, qPrintable(QString::number(clock.elapsed())));
    }

    void aRestingWaitBelowAMillisecondSleepsThroughIt()
    {
        notifier->resting = true;
        QCoreApplication::processEvents();
        QElapsedTimer clock;
        clock.start();
        QCOMPARE(wait(0, 1), 1);
        QVERIFY2(clock.nsecsElapsed() >= 900'000,
                 qPrintable(QString::number(clock.nsecsElapsed())));
    }

    void wholeMillisecondsAreRoundedUp_data()
    {
        QTest::addColumn<long>("sec");
        QTest::addColumn<long>("usec");
        QTest::addColumn<long>("wholeSec");
        QTest::addColumn<long>("wholeUsec");
        QTest::newRow("whole-1 nothing") << 0L << 0L << 0L << 0L;
        QTest::newRow("whole-2 a microsecond") << 0L << 1L << 0L << 1000L;
        QTest::newRow("whole-3 a millisecond") << 0L << 1000L << 0L << 1000L;
        QTest::newRow("whole-4 a little more") << 3L << 1001L << 3L << 2000L;
        QTest::newRow("whole-5 into the next second") << 3L << 999001L << 4L << 0L;
        QTest::newRow("whole-6 the longest time of all")
            << LONG_MAX << 999999L << LONG_MAX << 999999L;
    }
    void wholeMillisecondsAreRoundedUp()
    {
        QFETCH(long, sec);
        QFETCH(long, usec);
        const Tcl_Time whole = wholeMilliseconds({sec, usec});
        QTEST(whole.sec, "wholeSec");
        QTEST(whole.usec, "wholeUsec");
    }

    void aReadyDescriptorEndsASpinningWaitBesideALeftTimer_data()
    {
        QTest::addColumn<int>("interval");
        QTest::newRow("left-wait-1 a timer that is always due") << 0;
        QTest::newRow("left-wait-2 a timer of 1 ms") << 1;
        QTest::newRow("left-wait-3 a slow one") << 30;
    }
    void aReadyDescriptorEndsASpinningWaitBesideALeftTimer()
    {
        QFETCH(int, interval);
        SocketPair pair;
        Calls calls;
        CreateFileHandler(pair.ours(), TCL_READABLE, Calls::record, &calls);
        notifier->timer->start(interval); // as a clearing leaves it
        pair.write();
        Unserved unserved;
        QElapsedTimer clock;
        clock.start();
        QCOMPARE(wait(60, 0), 1);
        QVERIFY(clock.elapsed() < 30'000);
        QVERIFY(notifier->timer->isActive());
        QCOMPARE(notifier->timer->interval(), interval);
        QCOMPARE(notifier->timerActive, 0);
    }

    void handlersAreListedNewestFirst()
    {
        SocketPair a;
        SocketPair b;
        SocketPair c;
        for (const SocketPair *pair : {&a, &b, &c})
            CreateFileHandler(pair->ours(), TCL_READABLE, Calls::record, nullptr);
        QCOMPARE(watchedDescriptors(), (QList<int> {c.ours(), b.ours(), a.ours()}));
        DeleteFileHandler(b.ours());
        QCOMPARE(watchedDescriptors(), (QList<int> {c.ours(), a.ours()}));
        DeleteFileHandler(b.ours());
        QCOMPARE(watchedDescriptors(), (QList<int> {c.ours(), a.ours()}));
        DeleteFileHandler(c.ours());
        QCOMPARE(watchedDescriptors(), QList<int> {a.ours()});
        DeleteFileHandler(a.ours());
        QCOMPARE(watchedDescriptors(), QList<int>());
    }

    void aHandlerCreatedAgainIsTheSameWithAnotherProcedure()
    {
        SocketPair pair;
        Calls first;
        Calls second;
        CreateFileHandler(pair.ours(), TCL_READABLE, Calls::record, &first);
        TclFileHandler *handler = notifier->find(pair.ours());
        const QSocketNotifier *readNotifier = handler->readNotifier;
        CreateFileHandler(pair.ours(), TCL_READABLE, Calls::record, &second);
        QCOMPARE(notifier->find(pair.ours()), handler);
        QCOMPARE(handler->readNotifier, readNotifier);
        QCOMPARE(handler->parent(), nullptr);
        QCOMPARE(readNotifier->parent(), nullptr);
        pair.write();
        QTRY_COMPARE(second.masks.value(0), TCL_READABLE);
        QCOMPARE(first.masks, QList<int>());
    }

    void aMaskMakesItsNotifiers_data()
    {
        QTest::addColumn<int>("before");
        QTest::addColumn<int>("after");
        QTest::addColumn<QString>("state");
        const QStringList states = {
            u"mask 0 ready 0 read none write none exception none"_s,
            u"mask 2 ready 0 read on write none exception none"_s,
            u"mask 4 ready 0 read none write on exception none"_s,
            u"mask 6 ready 0 read on write on exception none"_s,
            u"mask 8 ready 0 read none write none exception none"_s,
            u"mask 10 ready 0 read on write none exception none"_s,
            u"mask 12 ready 0 read none write on exception none"_s,
            u"mask 14 ready 0 read on write on exception none"_s,
        };
        for (int before = 0; before < 16; before += 2) {
            for (int after = 0; after < 16; after += 2) {
                QTest::addRow("mask-change-%d-%d from one mask to another", before, after)
                    << before << after << states.at(after / 2);
            }
        }
    }
    void aMaskMakesItsNotifiers()
    {
        QFETCH(int, before);
        QFETCH(int, after);
        SocketPair pair;
        CreateFileHandler(pair.ours(), before, Calls::record, nullptr);
        const TclFileHandler *handler = notifier->find(pair.ours());
        const QSocketNotifier *kept =
            before & after & TCL_READABLE ? handler->readNotifier : nullptr;
        CreateFileHandler(pair.ours(), after, Calls::record, nullptr);
        QTEST(stateOf(handler), "state");
        if (kept)
            QCOMPARE(handler->readNotifier, kept);
        if (handler->readNotifier)
            QCOMPARE(handler->readNotifier->type(), QSocketNotifier::Read);
        if (handler->writeNotifier)
            QCOMPARE(handler->writeNotifier->type(), QSocketNotifier::Write);
        DeleteFileHandler(pair.ours()); // deletes each notifier once
    }

    void onlyTheOwnNotifiersCount()
    {
        SocketPair pair;
        CreateFileHandler(pair.ours(), TCL_READABLE, Calls::record, nullptr);
        TclFileHandler *handler = notifier->find(pair.ours());
        Unserved unserved;
        handler->fileactive(pair.ours()); // without a sender
        QSocketNotifier other(pair.fds[1], QSocketNotifier::Write);
        connect(&other, SIGNAL(activated(int)), handler, SLOT(fileactive(int)));
        QTest::qWait(20);
        QCOMPARE(stateOf(handler), u"mask 2 ready 0 read on write none exception none"_s);
    }

    void oneReadinessQueuesOneEventAndMarksTheWholeMask()
    {
        SocketPair pair;
        Calls calls;
        CreateFileHandler(pair.ours(), TCL_READABLE | TCL_WRITABLE | TCL_EXCEPTION, Calls::record,
                          &calls);
        TclFileHandler *handler = notifier->find(pair.ours());
        {
            Unserved unserved;
            // Writable at once, not readable.
            QTRY_COMPARE(stateOf(handler), u"mask 14 ready 14 read off write off exception none"_s);
            QCOMPARE(calls.masks, QList<int>());
        }
        Tcl_ServiceAll();
        QCOMPARE(calls.masks, QList<int> {TCL_READABLE | TCL_WRITABLE | TCL_EXCEPTION});
        QCOMPARE(stateOf(handler), u"mask 14 ready 0 read on write on exception none"_s);
    }

    void aWritableSocketWithBothInterestsDeliversBoth()
    {
        SocketPair pair;
        Calls calls;
        CreateFileHandler(pair.ours(), TCL_READABLE | TCL_WRITABLE, Calls::record, &calls);
        QTRY_VERIFY(!calls.masks.isEmpty());
        QCOMPARE(calls.masks.first(), TCL_READABLE | TCL_WRITABLE);
    }

    void anExceptionAloneNeverFires()
    {
        SocketPair pair;
        Calls calls;
        CreateFileHandler(pair.ours(), TCL_EXCEPTION, Calls::record, &calls);
        QVERIFY(notifier->find(pair.ours()));
        pair.write();
        QTest::qWait(30);
        QCOMPARE(calls.masks, QList<int>());
    }

    void deliveryUsesTheMaskOfThatTime_data()
    {
        QTest::addColumn<int>("newMask");
        QTest::addColumn<QList<int>>("masks");
        QTest::addColumn<QString>("queued");
        QTest::newRow("deliver-mask-1 dropped")
            << 0 << QList<int>() << u"mask 0 ready 2 read none write none exception none"_s;
        QTest::newRow("deliver-mask-2 exchanged")
            << TCL_WRITABLE << QList<int>()
            << u"mask 4 ready 2 read none write on exception none"_s;
        QTest::newRow("deliver-mask-3 the same")
            << TCL_READABLE << QList<int> {TCL_READABLE}
            << u"mask 2 ready 2 read off write none exception none"_s;
    }
    void deliveryUsesTheMaskOfThatTime()
    {
        QFETCH(int, newMask);
        QFETCH(QList<int>, masks);
        SocketPair pair;
        Calls calls;
        CreateFileHandler(pair.ours(), TCL_READABLE, Calls::record, &calls);
        TclFileHandler *handler = notifier->find(pair.ours());
        pair.write();
        Unserved unserved;
        QTRY_COMPARE(stateOf(handler), u"mask 2 ready 2 read off write none exception none"_s);
        CreateFileHandler(pair.ours(), newMask, Calls::record, &calls);
        QTEST(stateOf(handler), "queued");
        Tcl_ServiceEvent(TCL_FILE_EVENTS);
        QCOMPARE(calls.masks, masks);
        QCOMPARE(handler->readyMask, 0);
    }

    void aQueuedReadinessThatIsSeenAgainSwitchesItsNotifiersOff()
    {
        SocketPair pair;
        Calls calls;
        CreateFileHandler(pair.ours(), TCL_READABLE, Calls::record, &calls);
        TclFileHandler *handler = notifier->find(pair.ours());
        pair.write();
        Unserved unserved;
        QTRY_COMPARE(stateOf(handler), u"mask 2 ready 2 read off write none exception none"_s);
        CreateFileHandler(pair.ours(), TCL_READABLE | TCL_WRITABLE, Calls::record, &calls);
        QTRY_COMPARE(stateOf(handler), u"mask 6 ready 6 read off write off exception none"_s);
        QCOMPARE(Tcl_ServiceEvent(TCL_FILE_EVENTS), 1);
        QCOMPARE(calls.masks, QList<int> {TCL_READABLE | TCL_WRITABLE});
        QCOMPARE(stateOf(handler), u"mask 6 ready 0 read on write on exception none"_s);
        QCOMPARE(Tcl_ServiceEvent(TCL_FILE_EVENTS), 1); // queued by the writable end
        QCOMPARE(calls.masks.size(), 1);
    }

    void aNotifierMadeWhileItsEventIsQueuedStaysOff()
    {
        SocketPair pair;
        Calls calls;
        CreateFileHandler(pair.ours(), TCL_READABLE, Calls::record, &calls);
        TclFileHandler *handler = notifier->find(pair.ours());
        pair.write();
        Unserved unserved;
        QTRY_COMPARE(handler->readyMask, TCL_READABLE);
        CreateFileHandler(pair.ours(), 0, Calls::record, &calls);
        CreateFileHandler(pair.ours(), TCL_READABLE, Calls::record, &calls);
        QCOMPARE(stateOf(handler), u"mask 2 ready 2 read off write none exception none"_s);
        QCOMPARE(Tcl_ServiceEvent(TCL_FILE_EVENTS), 1);
        QCOMPARE(calls.masks, QList<int> {TCL_READABLE});
        QCOMPARE(stateOf(handler), u"mask 2 ready 0 read on write none exception none"_s);
    }

    void anEventIsKeptUntilFileEventsAreAskedFor()
    {
        SocketPair pair;
        Calls calls;
        CreateFileHandler(pair.ours(), TCL_READABLE, Calls::record, &calls);
        pair.write();
        Unserved unserved;
        QTRY_COMPARE(notifier->find(pair.ours())->readyMask, TCL_READABLE);
        QCOMPARE(Tcl_ServiceEvent(TCL_TIMER_EVENTS), 0);
        QCOMPARE(calls.masks, QList<int>());
        QCOMPARE(Tcl_ServiceEvent(TCL_FILE_EVENTS), 1);
        QCOMPARE(calls.masks, QList<int> {TCL_READABLE});
        QCOMPARE(Tcl_ServiceEvent(TCL_FILE_EVENTS), 0);
    }

    void theEventOfAHandlerThatIsGoneIsDropped()
    {
        SocketPair pair;
        Calls calls;
        CreateFileHandler(pair.ours(), TCL_READABLE, Calls::record, &calls);
        pair.write();
        Unserved unserved;
        QTRY_COMPARE(notifier->find(pair.ours())->readyMask, TCL_READABLE);
        DeleteFileHandler(pair.ours());
        QCOMPARE(Tcl_ServiceEvent(TCL_FILE_EVENTS), 1);
        QCOMPARE(Tcl_ServiceEvent(TCL_FILE_EVENTS), 0);
        QCOMPARE(calls.masks, QList<int>());
    }

    void aProcedureMayDeleteItsHandler()
    {
        SocketPair pair;
        struct Self
        {
            static void run(ClientData self, int)
            {
                DeleteFileHandler(*static_cast<int *>(self));
                *static_cast<int *>(self) = -1;
            }
        };
        int fd = pair.ours();
        CreateFileHandler(fd, TCL_READABLE | TCL_WRITABLE, Self::run, &fd);
        QTRY_COMPARE(fd, -1);
        QCOMPARE(watchedDescriptors(), QList<int>());
    }

    void aDescriptorClosedBehindTheNotifiersBackIsSwitchedOff_data()
    {
        QTest::addColumn<bool>("resting");
        QTest::newRow("file-closed-1 spinning") << false;
        QTest::newRow("file-closed-2 resting") << true;
    }
    void aDescriptorClosedBehindTheNotifiersBackIsSwitchedOff()
    {
        QFETCH(bool, resting);
        notifier->resting = resting;
        Calls closedCalls;
        Calls calls;
        SocketPair closed;
        SocketPair pair;
        CreateFileHandler(closed.ours(), TCL_READABLE, Calls::record, &closedCalls);
        CreateFileHandler(pair.ours(), TCL_READABLE, Calls::record, &calls);
        ::close(closed.ours());
        QTest::ignoreMessage(QtWarningMsg,
                             QRegularExpression(u"^QSocketNotifier: Invalid socket.*"_s));
        QTest::qWait(20);
        QCOMPARE(stateOf(notifier->find(closed.ours())),
                 u"mask 2 ready 0 read off write none exception none"_s);
        pair.write();
        QTRY_VERIFY(!calls.masks.isEmpty());
        QCOMPARE(closedCalls.masks, QList<int>());
        closed.fds[0] = dup(pair.fds[1]); // its own number again, so that it is closed once
    }
};

TEST_CLASS(tst_QtNotifier)

#include "tst_QtNotifier.moc"
