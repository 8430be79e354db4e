#include "BuildFixture.h"
#include "tests/TestClass.h"

#include <QTest>
#include <QTimer>

using namespace Qt::Literals::StringLiterals;
using namespace MorvalenCore;
using Kind = BuildRun::Kind;
using Result = BuildRun::Result;

namespace {

// Steps that each write down how many of them run, itself included, and then wait until that many
// have begun.
void addCounting(BuildFixture &build, int count, int untilBegun, const QString &pool = {})
{
    build.write(u"i"_s, "x");
    QDir().mkpath(build.path(u"running"_s));
    for (int step = 0; step < count; ++step) {
        build.add(u"%1 %2"_s.arg(pool).arg(step),
                  u"mkdir running/%1; ls running | wc -l >> counts; echo >> begun; "
                  "while [ $(wc -l < begun) -lt %2 ]; do sleep 0.01; done; "
                  "rmdir running/%1; touch $(OUTPUTS)"_s.arg(step)
                      .arg(untilBegun),
                  {u"i"_s}, {u"out/%1%2"_s.arg(pool).arg(step)});
        build.request.steps.last().pool = pool;
    }
}

int mostAtOnce(const BuildFixture &build)
{
    int most = 0;
    for (const QByteArray &count : build.read(u"counts"_s).split('\n'))
        most = std::max(most, count.toInt());
    return most;
}

// A command that stands in front of Ninja, and writes down what it was given.
QString allocation(const BuildFixture &build, const QByteArray &before = {})
{
    const QString path = build.path(u"allocate"_s);
    build.write(u"allocate"_s,
                "#!/bin/sh\necho allocated >> " + build.path(u"journal"_s).toUtf8() + '\n' + before
                    + "\nshift 2\n\"$@\"\nstatus=$?\necho released >> "
                    + build.path(u"journal"_s).toUtf8() + "\nexit $status\n");
    QFile::setPermissions(path, QFile::ReadOwner | QFile::ExeOwner);
    return path + u" -n '1 6'"_s;
}

} // namespace

// How many steps run at once, what comes behind a failure, and allocations.
class tst_BuildOptions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void runsAsManyStepsAtOnceAsAsked();
    void runsOneStepAfterTheOther();
    void runsNoMoreStepsOfAPoolThanItsDepth();
    void stopsAtAFailure();
    void goesOnWithWhatDoesNotDependOnAFailure();
    void runsNinjaInItsAllocation();
    void asksForNoAllocationWithoutNeed();
    void saysWhatItWaitsFor();
    void givesTheAllocationBackWhenCancelled();
    void givesTheAllocationBackAtOnce();
    void asksForNoAllocationAnyMore();
    void failsWithoutAnAllocation_data();
    void failsWithoutAnAllocation();
};

void tst_BuildOptions::runsAsManyStepsAtOnceAsAsked()
{
    BuildFixture build;
    build.options.jobs = 12;
    addCounting(build, 12, 12);
    QCOMPARE(build.run(), Result::Completed);
}

void tst_BuildOptions::runsOneStepAfterTheOther()
{
    BuildFixture build;
    build.options.jobs = 1;
    addCounting(build, 20, 1);
    QCOMPARE(build.run(), Result::Completed);
    QCOMPARE(mostAtOnce(build), 1);
}

void tst_BuildOptions::runsNoMoreStepsOfAPoolThanItsDepth()
{
    BuildFixture build;
    build.options.jobs = 16;
    build.request.pools = {{u"two licences"_s, 2}, {u"unused"_s, 1}};
    addCounting(build, 16, 2, u"two licences"_s);
    QCOMPARE(build.run(), Result::Completed);
    QCOMPARE(mostAtOnce(build), 2);
}

void tst_BuildOptions::stopsAtAFailure()
{
    BuildFixture build;
    build.options.jobs = 1;
    build.add(u"bad"_s, u"exit 1"_s, {}, {u"a"_s});
    build.add(u"other"_s, u"touch b"_s, {}, {u"b"_s});
    QCOMPARE(build.run(), Result::Failed);
    QVERIFY(!build.exists(u"b"_s));
}

void tst_BuildOptions::goesOnWithWhatDoesNotDependOnAFailure()
{
    BuildFixture build;
    build.write(u"i"_s, "x");
    build.options.jobs = 1;
    build.options.keepGoing = true;
    build.add(u"bad"_s, u"exit 1"_s, {u"i"_s}, {u"a"_s});
    build.add(u"worse"_s, u"exit 2"_s, {u"i"_s}, {u"b"_s});
    build.add(u"good"_s, u"cp i c"_s, {u"i"_s}, {u"c"_s});
    build.add(u"behind"_s, u"cp a d"_s, {u"a"_s}, {u"d"_s});
    QCOMPARE(build.run(), Result::Failed);
    build.failed.sort();
    QCOMPARE(build.failed, QStringList({u"bad"_s, u"worse"_s}));
    QCOMPARE(build.done, QStringList(u"good"_s));
    QVERIFY(!build.exists(u"d"_s));
}

void tst_BuildOptions::runsNinjaInItsAllocation()
{
    BuildFixture build;
    build.write(u"i"_s, "x");
    build.options.allocation = allocation(build);
    build.add(u"copy"_s, u"cp i out/o; echo step >> journal"_s, {u"i"_s}, {u"out/o"_s});
    QCOMPARE(build.run(), Result::Completed);
    QCOMPARE(build.read(u"journal"_s), QByteArray("allocated\nstep\nreleased\n"));
    QCOMPARE(build.messages, QStringList(u"Info: [1/1] copy"_s));
    QCOMPARE(build.read(u"out/build.log"_s), QByteArray("[1/1] copy\n"));
}

void tst_BuildOptions::asksForNoAllocationWithoutNeed()
{
    BuildFixture build;
    build.write(u"i"_s, "x");
    build.add(u"copy"_s, u"cp i out/o"_s, {u"i"_s}, {u"out/o"_s});
    build.options.allocation = allocation(build);
    QCOMPARE(build.run(Kind::Look), Result::Completed);
    QVERIFY(!build.exists(u"journal"_s));
    QCOMPARE(build.run(), Result::Completed);
    QVERIFY(QFile::remove(build.path(u"journal"_s)));
    QCOMPARE(build.run(), Result::Completed);
    QVERIFY(!build.exists(u"journal"_s));
    QCOMPARE(build.done, QStringList());
    QCOMPARE(build.run(Kind::All), Result::Completed);
    QCOMPARE(build.read(u"journal"_s), QByteArray("allocated\nreleased\n"));
    QCOMPARE(build.done, QStringList(u"copy"_s));

    QVERIFY(QFile::remove(build.path(u"i"_s)));
    QVERIFY(QFile::remove(build.path(u"journal"_s)));
    QCOMPARE(build.run(), Result::Failed);
    QCOMPARE(
        build.messages,
        QStringList({u"Error: ninja: error: '%1', needed by '%2', missing and no known rule to "
                     u"make it"_s.arg(build.path(u"i"_s), build.path(u"out/o"_s))}));
    QVERIFY(!build.exists(u"journal"_s));
}

void tst_BuildOptions::saysWhatItWaitsFor()
{
    BuildFixture build;
    build.write(u"i"_s, "x");
    build.patience = 10;
    build.options.allocation = allocation(
        build, "while [ ! -e " + build.path(u"go"_s).toUtf8() + " ]; do sleep 0.01; done");
    build.add(u"copy"_s, u"cp i out/o"_s, {u"i"_s}, {u"out/o"_s});
    QTimer poll;
    connect(&poll, &QTimer::timeout, &poll, [&] {
        if (!build.messages.isEmpty())
            build.write(u"go"_s, "");
    });
    poll.start(10);
    QCOMPARE(build.run(), Result::Completed);
    const QString asked = build.options.allocation;
    QCOMPARE(build.messages,
             QStringList({u"Warning: Waiting for \"%1\""_s.arg(asked),
                          u"Info: \"%1\" has come"_s.arg(asked), u"Info: [1/1] copy"_s}));
}

void tst_BuildOptions::givesTheAllocationBackWhenCancelled()
{
    BuildFixture build;
    build.options.allocation =
        allocation(build, "trap 'echo asked >> " + build.path(u"journal"_s).toUtf8() + "' TERM");
    build.add(u"long"_s, u"trap '' TERM; echo $$ > pid; sleep 1000"_s, {}, {u"o"_s});
    QTimer poll;
    connect(&poll, &QTimer::timeout, &poll, [&] {
        if (!build.read(u"pid"_s).trimmed().isEmpty() && build.exists(u"pid"_s))
            build.current->cancel();
    });
    poll.start(10);
    QCOMPARE(build.run(), Result::Cancelled);
    QCOMPARE(build.read(u"journal"_s), QByteArray("allocated\nreleased\n"));
    QVERIFY(!QFile::exists(u"/proc/"_s + QString::fromUtf8(build.read(u"pid"_s)).trimmed()));
}

void tst_BuildOptions::givesTheAllocationBackAtOnce()
{
    BuildFixture build;
    build.options.allocation =
        allocation(build, "trap 'echo asked >> " + build.path(u"journal"_s).toUtf8() + "' TERM");
    build.add(u"long"_s, u"trap '' TERM; echo $$ > pid; sleep 1000"_s, {}, {u"o"_s});
    QTimer poll;
    connect(&poll, &QTimer::timeout, &poll, [&] {
        if (build.exists(u"pid"_s) && build.current)
            build.current->endNow();
    });
    poll.start(10);
    QCOMPARE(build.run(), Result::Cancelled);
    QCOMPARE(build.read(u"journal"_s), QByteArray("allocated\nreleased\n"));
}

void tst_BuildOptions::asksForNoAllocationAnyMore()
{
    BuildFixture build;
    build.graceTime = 600'000;
    const QByteArray folder = build.path(QString()).toUtf8();
    build.options.allocation =
        allocation(build,
                   "trap 'echo asked >> " + folder + "journal; exit 1' TERM; touch " + folder
                       + "ready; while :; do sleep 0.01; done");
    build.add(u"never"_s, u"touch o"_s, {}, {u"o"_s});
    QTimer poll;
    connect(&poll, &QTimer::timeout, &poll, [&] {
        if (build.exists(u"ready"_s))
            build.current->cancel();
    });
    poll.start(10);
    QCOMPARE(build.run(), Result::Cancelled);
    QCOMPARE(build.read(u"journal"_s), QByteArray("allocated\nasked\n"));
    QVERIFY(!build.exists(u"o"_s));
}

void tst_BuildOptions::failsWithoutAnAllocation_data()
{
    QTest::addColumn<QString>("allocation");
    QTest::addColumn<QString>("message");
    QTest::newRow("allocation-1 not installed")
        << u"no-such-allocation -n 1"_s
        << u"Warning: allocation: 1: exec: no-such-allocation: not found"_s;
    QTest::newRow("allocation-2 refused")
        << u"sh -c 'echo no nodes >&2; exit 1'"_s << u"Warning: no nodes"_s;
    QTest::newRow("allocation-3 a quote that is open")
        << u"salloc '"_s << u"Warning: allocation: 1: Syntax error: Unterminated quoted string"_s;
}

void tst_BuildOptions::failsWithoutAnAllocation()
{
    QFETCH(const QString, allocation);
    QFETCH(const QString, message);
    BuildFixture build;
    build.add(u"s"_s, u"touch o"_s, {}, {u"o"_s});
    build.options.allocation = allocation;
    QCOMPARE(build.run(), Result::Failed);
    QCOMPARE(build.messages,
             QStringList({message,
                          u"Error: \"%1\" has ended without running the build"_s.arg(allocation)}));
    QVERIFY(!build.exists(u"o"_s));
}

GUILESS_TEST_CLASS(tst_BuildOptions)
#include "tst_BuildOptions.moc"
