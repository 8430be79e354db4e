#include "BuildFixture.h"
#include "tests/patience.h"

#include <QProcess>
#include <QTest>
#include <QTimer>

#include <csignal>

using namespace Qt::Literals::StringLiterals;
using namespace MorvalenCore;
using Result = BuildRun::Result;

namespace {

bool isAlive(const QByteArray &id)
{
    QFile stat(u"/proc/%1/stat"_s.arg(QString::fromLatin1(id.trimmed())));
    return stat.open(QIODevice::ReadOnly) && !stat.readAll().contains(") Z ");
}

// Runs, and cancels as soon as the file is there.
Result runAndCancel(BuildFixture &build, const QString &signFile)
{
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &poll, [&] {
        if (build.exists(signFile) && build.current)
            build.current->cancel();
    });
    poll.start(5);
    return build.run();
}

} // namespace

// Builds that are cancelled, and what they and their steps leave behind.
class tst_BuildEnds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void endsEverythingWhenCancelled_data();
    void endsEverythingWhenCancelled();
    void tellsWhatWasDoneBeforeItWasCancelled();
    void asksToEndWhatStartsMeanwhile();
    void leavesNoHalfMadeOutputWhenCancelled();
    void completesAfterACancelledRun();
    void endsEverythingAtOnce();
    void endsWhatStepsLeaveBehind();
    void endsWhatKeepsTheBuildWaiting_data();
    void endsWhatKeepsTheBuildWaiting();
    void leavesWhatARunningStepUses();
    void leavesHealthyStepsAloneWhileAnotherKeepsWaiting();
    void leavesDaemonsAlone_data();
    void leavesDaemonsAlone();
    void endsWithTheApplication();
    void endsWhenItsProgramIsKilled();
};

void tst_BuildEnds::endsEverythingWhenCancelled_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<bool>("hasOutput");
    const QString sleep = u"echo $$ > pid; touch there; sleep 1000"_s;
    QTest::newRow("cancel-1 a step") << sleep << true;
    QTest::newRow("cancel-2 a step that runs alone") << sleep << false;
    QTest::newRow("cancel-3 one that ignores termination")
        << u"trap '' TERM INT HUP; "_s + sleep << true;
    QTest::newRow("cancel-4 one that runs alone and ignores termination")
        << u"trap '' TERM INT HUP; "_s + sleep << false;
    QTest::newRow("cancel-5 a child in the background")
        << u"(trap '' TERM; echo $$ > parent; exec sh -c 'echo $$ > pid; touch there; sleep 1000') "
           u"& wait"_s
        << true;
    QTest::newRow("cancel-6 a child in a session of its own that ignores termination")
        << u"setsid sh -c \"trap '' TERM; echo \\$\\$ > pid; touch there; sleep 1000\" "
           u"> /dev/null 2>&1 < /dev/null & sleep 1000"_s
        << true;
    QTest::newRow("cancel-7 one that starts others when it is ended")
        << u"trap 'sh -c \"echo \\$\\$ > pid; sleep 1000\"' TERM; touch there; while :; do sleep "
           u"0.05; done"_s
        << false;
}

void tst_BuildEnds::endsEverythingWhenCancelled()
{
    QFETCH(const QString, command);
    QFETCH(const bool, hasOutput);
    BuildFixture build;
    build.write(u"i"_s, "x");
    build.write(u"pid"_s, "1000000000");
    build.add(u"long"_s, command, {u"i"_s}, hasOutput ? QStringList(u"o"_s) : QStringList());
    build.add(u"next"_s, u"touch next"_s, {}, {});
    QElapsedTimer time;
    time.start();
    QCOMPARE(runAndCancel(build, u"there"_s), Result::Cancelled);
    QVERIFY(time.elapsed() < patient(10'000));
    QVERIFY2(!isAlive(build.read(u"pid"_s)), build.read(u"pid"_s).constData());
    QVERIFY(!build.exists(u"next"_s));
    QVERIFY(!build.done.contains(u"next"_s));
}

// A step without outputs has been run when another one came behind it.
void tst_BuildEnds::tellsWhatWasDoneBeforeItWasCancelled()
{
    BuildFixture build;
    build.add(u"first"_s, u"touch first"_s, {}, {});
    build.add(u"long"_s, u"touch there; sleep 1000"_s, {}, {});
    QCOMPARE(runAndCancel(build, u"there"_s), Result::Cancelled);
    QVERIFY(build.exists(u"first"_s));
    QCOMPARE(build.done, QStringList {u"first"_s});
}

// Cancelled in the middle of starting, nothing is left for the signal that cannot be ignored.
void tst_BuildEnds::asksToEndWhatStartsMeanwhile()
{
    BuildFixture build;
    build.graceTime = 60'000;
    build.add(u"long"_s, u"sleep 1000"_s, {}, {});
    QElapsedTimer time;
    time.start();
    for (int delay = 0; delay < 20; ++delay) {
        QTimer cancelling;
        cancelling.setSingleShot(true);
        QObject::connect(&cancelling, &QTimer::timeout, &cancelling,
                         [&build] { build.current->cancel(); });
        cancelling.start(delay);
        QCOMPARE(build.run(), Result::Cancelled);
    }
    QVERIFY(time.elapsed() < build.graceTime);
}

void tst_BuildEnds::leavesNoHalfMadeOutputWhenCancelled()
{
    BuildFixture build;
    build.write(u"i"_s, "x");
    build.add(u"long"_s, u"trap '' TERM; echo half > out/o; touch there; sleep 1000"_s, {u"i"_s},
              {u"out/o"_s});
    QCOMPARE(runAndCancel(build, u"there"_s), Result::Cancelled);
    QVERIFY(!build.exists(u"out/o"_s));
}

void tst_BuildEnds::completesAfterACancelledRun()
{
    BuildFixture build;
    build.write(u"a"_s, "a");
    build.add(u"first"_s, u"touch there; sleep 1000"_s, {u"a"_s}, {u"out/b"_s});
    build.add(u"second"_s, u"cp $(INPUTS) $(OUTPUTS)"_s, {u"out/b"_s}, {u"out/c"_s});
    QCOMPARE(runAndCancel(build, u"there"_s), Result::Cancelled);
    build.request.steps[0].command = u"cp $(INPUTS) $(OUTPUTS)"_s;
    QCOMPARE(build.run(), Result::Completed);
    QCOMPARE(build.read(u"out/c"_s), QByteArray("a"));
}

void tst_BuildEnds::endsEverythingAtOnce()
{
    BuildFixture build;
    build.write(u"i"_s, "x");
    build.add(u"long"_s, u"trap '' TERM; echo $$ > pid; touch there; sleep 1000"_s, {u"i"_s},
              {u"out/o"_s});
    bool aliveAfter = true;
    QTimer poll;
    connect(&poll, &QTimer::timeout, &poll, [&] {
        if (build.exists(u"there"_s) && build.current) {
            build.current->endNow();
            aliveAfter = isAlive(build.read(u"pid"_s));
        }
    });
    poll.start(5);
    QCOMPARE(build.run(), Result::Cancelled);
    QVERIFY(!aliveAfter);
}

void tst_BuildEnds::endsWhatStepsLeaveBehind()
{
    BuildFixture build;
    build.write(u"i"_s, "x");
    build.add(u"careless"_s,
              u"sh -c \"trap '' TERM; echo \\$\\$ > pid; sleep 1000\" > /dev/null "
              u"2>&1 & while [ ! -s pid ]; do sleep 0.01; done; cp i o"_s,
              {u"i"_s}, {u"o"_s});
    QCOMPARE(build.run(), Result::Completed);
    QVERIFY(!isAlive(build.read(u"pid"_s)));
    const QString id = QString::fromUtf8(build.read(u"pid"_s)).trimmed();
    QCOMPARE(build.messages.size(), 2);
    QVERIFY2(build.messages[1].startsWith(
                 u"Warning: The steps left processes behind, which were ended: "_s)
                 && build.messages[1].contains(u"sh (%1)"_s.arg(id)),
             qPrintable(build.messages[1]));
}

void tst_BuildEnds::endsWhatKeepsTheBuildWaiting_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<bool>("hasOutput");
    const QString left = u" & while [ ! -s pid ]; do sleep 0.01; done; cp i o"_s;
    QTest::newRow("waiting-1 a process in the background")
        << u"sh -c 'echo $$ > pid; sleep 1000'"_s + left << true;
    QTest::newRow("waiting-2 one of a step that runs alone")
        << u"sh -c 'echo $$ > pid; sleep 1000'"_s + left << false;
    QTest::newRow("waiting-3 one that ignores termination")
        << u"sh -c \"trap '' TERM; echo \\$\\$ > pid; sleep 1000\""_s + left << true;
    QTest::newRow("waiting-4 one in a session of its own")
        << u"setsid sh -c 'echo $$ > pid; sleep 1000'"_s + left << true;
}

// Ninja waits as long as somebody holds a step's output.
void tst_BuildEnds::endsWhatKeepsTheBuildWaiting()
{
    QFETCH(const QString, command);
    QFETCH(const bool, hasOutput);
    BuildFixture build;
    build.write(u"i"_s, "x");
    build.add(u"careless"_s, command, {u"i"_s}, hasOutput ? QStringList(u"o"_s) : QStringList());
    build.add(u"next"_s, u"cp o p"_s, {}, {u"p"_s});
    QCOMPARE(build.run(), Result::Completed);
    QCOMPARE(build.read(u"p"_s), QByteArray("x"));
    const QString id = QString::fromUtf8(build.read(u"pid"_s)).trimmed();
    QVERIFY(!isAlive(id.toLatin1()));
    const QStringList told =
        build.messages.filter(u"Warning: The steps left processes behind, which were ended: "_s);
    QCOMPARE(told.size(), 1);
    QVERIFY2(told.first().contains(u"sh (%1)"_s.arg(id)), qPrintable(told.first()));
}

// A process that a step has sent into the background is its own affair as long as it runs.
void tst_BuildEnds::leavesWhatARunningStepUses()
{
    BuildFixture build;
    build.write(u"i"_s, "x");
    build.add(u"careless"_s, u"sleep 1000 & cp i o"_s, {u"i"_s}, {u"o"_s});
    build.add(u"careful"_s,
              u"(sh -c 'echo $$ > pid; exec sleep 1000' &); while [ -e i ] && ! grep -q Z flag; do "
              u"sleep 0.01; done; kill $(cat pid) && cp i p"_s,
              {u"i"_s}, {u"p"_s});
    QTimer poll;
    connect(&poll, &QTimer::timeout, &poll, [&] {
        if (build.exists(u"o"_s) && !build.messages.filter(u"left processes"_s).isEmpty())
            build.write(u"flag"_s, "Z");
    });
    build.write(u"flag"_s, "");
    poll.start(5);
    QCOMPARE(build.run(), Result::Completed);
    QVERIFY(build.exists(u"p"_s));
}

// Steps begin and end at any moment, also while it is looked for what another has left behind.
void tst_BuildEnds::leavesHealthyStepsAloneWhileAnotherKeepsWaiting()
{
    BuildFixture build;
    build.graceTime = 600'000;
    build.write(u"i"_s, "x");
    build.add(
        u"careless"_s,
        u"sh -c \"trap '' TERM; echo \\$\\$ > pid; while [ ! -e all ]; do sleep 0.1; done\" & "
        u"while [ ! -s pid ]; do sleep 0.01; done; cp i o"_s,
        {u"i"_s}, {u"o"_s});
    QStringList made;
    for (int step = 0; step < 4000; ++step) {
        made.append(u"out/%1"_s.arg(step));
        build.add(u"quick %1"_s.arg(step), u"true | true | cp i $(OUTPUTS)"_s, {u"i"_s},
                  {made.last()});
    }
    build.add(u"all"_s, u"touch all"_s, made, {u"all"_s});
    QCOMPARE(build.run(), Result::Completed);
    QCOMPARE(build.failed, QStringList());
    const QString keeper = u"sh (%1)"_s.arg(QString::fromUtf8(build.read(u"pid"_s)).trimmed());
    for (const QString &told : build.messages.filter(u"left processes"_s)) {
        const QStringList names = told.section(u": "_s, 2).split(u", "_s);
        for (const QString &name : names)
            QVERIFY2(name == keeper || name.startsWith(u"sleep ("_s), qPrintable(told));
    }
}

void tst_BuildEnds::leavesDaemonsAlone_data()
{
    QTest::addColumn<QStringList>("outputs");
    QTest::addColumn<QString>("shown");
    QTest::newRow("daemon-1 of a step with outputs") << QStringList(u"o"_s) << u"[1/1]"_s;
    QTest::newRow("daemon-2 of a step that runs alone") << QStringList() << u"[0/1]"_s;
}

void tst_BuildEnds::leavesDaemonsAlone()
{
    QFETCH(const QStringList, outputs);
    QFETCH(const QString, shown);
    BuildFixture build;
    build.write(u"i"_s, "x");
    build.add(u"daemon"_s,
              u"setsid sh -c 'echo $$ > pid; sleep 1000' > /dev/null 2>&1 & "
              u"while [ ! -s pid ]; do sleep 0.01; done; cp i o"_s,
              {u"i"_s}, outputs);
    QCOMPARE(build.run(), Result::Completed);
    QCOMPARE(build.messages, QStringList(u"Info: %1 daemon"_s.arg(shown)));
    const pid_t id = build.read(u"pid"_s).trimmed().toInt();
    QVERIFY(id > 0 && isAlive(QByteArray::number(id)));
    QCOMPARE(kill(-id, SIGKILL), 0);
}

void tst_BuildEnds::endsWithTheApplication()
{
    BuildFixture build;
    build.write(u"i"_s, "x");
    build.add(u"long"_s, u"echo $$ > pid; touch there; sleep 1000"_s, {u"i"_s}, {u"o"_s});
    QTimer poll;
    connect(&poll, &QTimer::timeout, &poll, [&] {
        if (build.exists(u"there"_s))
            QCoreApplication::quit();
    });
    Result result = Result::Completed;
    QTimer::singleShot(0, this, [&] {
        poll.start(5);
        result = build.run();
        poll.stop();
    });
    QCoreApplication::exec();
    QCOMPARE(result, Result::Cancelled);
    QVERIFY(!isAlive(build.read(u"pid"_s)));
}

// Another process that runs a build is killed in the middle of it.
void tst_BuildEnds::endsWhenItsProgramIsKilled()
{
    if (qEnvironmentVariableIsSet("BUILD_TO_BE_KILLED")) {
        BuildFixture build;
        build.request.workingFolder = qEnvironmentVariable("BUILD_TO_BE_KILLED");
        build.add(u"long"_s, u"echo $$ > pid; touch there; sleep 1000"_s, {}, {u"o"_s});
        build.run();
        return;
    }
    BuildFixture build;
    QProcess other;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"BUILD_TO_BE_KILLED"_s, build.request.workingFolder);
    other.setProcessEnvironment(environment);
    other.start(QCoreApplication::applicationFilePath(), {u"endsWhenItsProgramIsKilled"_s});
    QTRY_VERIFY_WITH_TIMEOUT(build.exists(u"there"_s), patient(20'000));
    QVERIFY(isAlive(build.read(u"pid"_s)));
    other.kill();
    QVERIFY(other.waitForFinished(patient(30'000)));
    QTRY_VERIFY(!isAlive(build.read(u"pid"_s)));
}

QTEST_GUILESS_MAIN(tst_BuildEnds)
#include "tst_BuildEnds.moc"
