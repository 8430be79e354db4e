#include "app/designs/Throttle.h"
#include "tests/TestClass.h"

#include <QSignalSpy>

// Work is asked for soon, and the longer it takes, the rarer.
class tst_Throttle : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void manyRequestsAreOne();
    void aRequestDuringTheWorkIsAnother();
    void shortWorkIsNotPutOff();
    void longWorkRestsFiveTimesAsLong();
    void timeThatHasPassedIsRest();
};

void tst_Throttle::manyRequestsAreOne()
{
    Throttle throttle;
    QSignalSpy due(&throttle, &Throttle::due);
    for (int i = 0; i < 100; ++i)
        throttle.request();
    // Not before control is back in the event loop.
    QCOMPARE(due.size(), 0);
    QVERIFY(due.wait(patient()));
    QCoreApplication::processEvents();
    QCOMPARE(due.size(), 1);
}

void tst_Throttle::aRequestDuringTheWorkIsAnother()
{
    Throttle throttle;
    QSignalSpy due(&throttle, &Throttle::due);
    connect(&throttle, &Throttle::due, this, [&] {
        throttle.begin();
        if (due.size() == 1)
            throttle.request();
        throttle.end();
    });
    throttle.request();
    QTRY_COMPARE(due.size(), 2);
}

void tst_Throttle::shortWorkIsNotPutOff()
{
    Throttle throttle;
    QStringList order;
    connect(&throttle, &Throttle::due, this, [&] { order.append(QStringLiteral("due")); });
    throttle.begin();
    throttle.end();
    QTimer::singleShot(patient() / 2, this, [&] { order.append(QStringLiteral("timer")); });
    throttle.request();
    QTRY_VERIFY(!order.isEmpty());
    QCOMPARE(order.first(), QStringLiteral("due"));
}

void tst_Throttle::longWorkRestsFiveTimesAsLong()
{
    Throttle throttle;
    QSignalSpy due(&throttle, &Throttle::due);
    throttle.begin();
    QTest::qSleep(40);
    throttle.end();
    QElapsedTimer rest;
    rest.start();
    throttle.request();
    QVERIFY(due.wait(patient()));
    // A timer of some hundred milliseconds may come a twentieth too soon.
    QVERIFY2(rest.elapsed() >= 190, qPrintable(QString::number(rest.elapsed())));
}

// Timers that have both run out come in the order of their times.
void tst_Throttle::timeThatHasPassedIsRest()
{
    Throttle throttle;
    QStringList order;
    connect(&throttle, &Throttle::due, this, [&] { order.append(QStringLiteral("due")); });
    QElapsedTimer work;
    work.start();
    throttle.begin();
    QTest::qSleep(40);
    throttle.end();
    QTest::qSleep(int(6 * work.elapsed()));
    QTimer::singleShot(100, this, [&] { order.append(QStringLiteral("timer")); });
    throttle.request();
    QTRY_COMPARE(order, QStringList({QStringLiteral("due"), QStringLiteral("timer")}));
}

GUILESS_TEST_CLASS(tst_Throttle)
#include "tst_Throttle.moc"
