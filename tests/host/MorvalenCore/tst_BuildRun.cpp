#include "BuildFixture.h"
#include "tests/TestClass.h"

#include <QProcess>
#include <QTest>
#include <QTimer>

#include <fstream>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;
using namespace MorvalenCore;
using Kind = BuildRun::Kind;
using Result = BuildRun::Result;

namespace {

// Three sources, three objects, one program, and a journal of the steps that really ran.
void addProgram(BuildFixture &build)
{
    QStringList objects;
    for (const QString &name : {u"a"_s, u"b"_s, u"c"_s}) {
        build.write(name + u".src"_s, name.toUtf8());
        objects.append(u"out/%1.o"_s.arg(name));
        build.add(u"compile "_s + name, u"echo %1 >> journal; cp $(INPUTS) $(OUTPUTS)"_s.arg(name),
                  {name + u".src"_s}, {objects.last()});
    }
    build.add(u"link"_s, u"echo link >> journal; cat $(INPUTS) > $(OUTPUTS)"_s, objects,
              {u"out/program"_s});
}

QStringList sorted(QStringList list)
{
    list.sort();
    return list;
}

} // namespace

// Builds that really run.
class tst_BuildRun : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void runsWhatIsOutdated();
    void runsAllSteps();
    void looksWithoutRunning();
    void tellsProgress();
    void keepsTheWindowAlive();
    void runsAgainWhenACommandChanges();
    void runsNothingForAFileThatDidNotChange();
    void logsOutput_data();
    void logsOutput();
    void writesNoLogOverWhatAStepHasMade_data();
    void writesNoLogOverWhatAStepHasMade();
    void tellsWhichStepFailed();
    void failsWhenAnOutputWasNotMade();
    void takesNoWordsOfAStepForAFailure();
    void saysThatAnInputIsMissing();
    void saysThatNinjaIsMissing();
    void runsStepsWithoutOutputsEveryTimeInOrder();
    void showsOutputOfAStepThatRunsAloneAtOnce();
    void sendsEveryStepThroughTheLauncher();
    void readsNestedRunsOfNinja();
    void refusesASecondRunInTheSameFolder();
    void saysThatTheTargetPathCannotBeUsed();
    void usesNoFilesButItsOwn_data();
    void usesNoFilesButItsOwn();
    void keepsToFiveThousandSteps();
};

void tst_BuildRun::initTestCase()
{
    // Whoever runs the tests may have told Ninja things.
    for (const char *name : {"NINJA_STATUS", "CLICOLOR_FORCE"})
        qunsetenv(name);
}

void tst_BuildRun::runsWhatIsOutdated()
{
    BuildFixture build;
    addProgram(build);
    QCOMPARE(build.run(), Result::Completed);
    QCOMPARE(sorted(build.done),
             QStringList({u"compile a"_s, u"compile b"_s, u"compile c"_s, u"link"_s}));
    QCOMPARE(build.read(u"out/program"_s), QByteArray("abc"));

    const QDateTime untouched = build.stamp(u"out/a.o"_s);
    QCOMPARE(build.run(), Result::Completed);
    QCOMPARE(build.done, QStringList());
    QCOMPARE(build.messages, QStringList());

    QTest::qWait(20);
    build.write(u"b.src"_s, "B");
    QFile::remove(build.path(u"journal"_s));
    QCOMPARE(build.run(), Result::Completed);
    QCOMPARE(build.done, QStringList({u"compile b"_s, u"link"_s}));
    QCOMPARE(build.read(u"journal"_s), QByteArray("b\nlink\n"));
    QCOMPARE(build.read(u"out/program"_s), QByteArray("aBc"));
    QCOMPARE(build.stamp(u"out/a.o"_s), untouched);
}

void tst_BuildRun::runsAllSteps()
{
    BuildFixture build;
    addProgram(build);
    build.write(u"out/mine.txt"_s, "mine");
    QCOMPARE(build.run(), Result::Completed);
    QFile::remove(build.path(u"journal"_s));

    QCOMPARE(build.run(Kind::All), Result::Completed);
    QCOMPARE(sorted(QString::fromUtf8(build.read(u"journal"_s)).split(u'\n', Qt::SkipEmptyParts)),
             QStringList({u"a"_s, u"b"_s, u"c"_s, u"link"_s}));
    QCOMPARE(build.read(u"out/mine.txt"_s), QByteArray("mine"));
    QCOMPARE(build.read(u"a.src"_s), QByteArray("a"));
}

void tst_BuildRun::looksWithoutRunning()
{
    BuildFixture build;
    addProgram(build);
    QCOMPARE(build.run(Kind::Look), Result::Completed);
    QCOMPARE(sorted(build.done),
             QStringList({u"compile a"_s, u"compile b"_s, u"compile c"_s, u"link"_s}));
    QCOMPARE(build.messages, QStringList());
    QCOMPARE(build.progress, QStringList());
    QVERIFY(!build.exists(u"out/a.o"_s));
    QVERIFY(!build.exists(u"journal"_s));
    QVERIFY(!build.exists(u"out/build.log"_s));

    QCOMPARE(build.run(), Result::Completed);
    QCOMPARE(build.run(Kind::Look), Result::Completed);
    QCOMPARE(build.done, QStringList());
    QTest::qWait(20);
    build.write(u"c.src"_s, "C");
    QCOMPARE(build.run(Kind::Look), Result::Completed);
    QCOMPARE(build.done, QStringList({u"compile c"_s, u"link"_s}));
    QCOMPARE(build.read(u"out/program"_s), QByteArray("abc"));
}

void tst_BuildRun::tellsProgress()
{
    BuildFixture build;
    build.write(u"0"_s, "x");
    for (int i = 0; i < 3; ++i)
        build.add(u"step %1"_s.arg(i), u"cp $(INPUTS) $(OUTPUTS)"_s, {QString::number(i)},
                  {QString::number(i + 1)});
    QCOMPARE(build.run(), Result::Completed);
    QCOMPARE(build.progress, QStringList({u"1/3 step 0"_s, u"2/3 step 1"_s, u"3/3 step 2"_s}));
    QCOMPARE(
        build.messages,
        QStringList({u"Info: [1/3] step 0"_s, u"Info: [2/3] step 1"_s, u"Info: [3/3] step 2"_s}));
    QCOMPARE(build.read(u"out/build.log"_s),
             QByteArray("[1/3] step 0\n[2/3] step 1\n[3/3] step 2\n"));
}

void tst_BuildRun::keepsTheWindowAlive()
{
    BuildFixture build;
    build.write(u"i"_s, "x");
    build.add(u"slow"_s, u"sleep 0.5; cp $(INPUTS) $(OUTPUTS)"_s, {u"i"_s}, {u"o"_s});
    int beats = 0;
    QTimer heart;
    connect(&heart, &QTimer::timeout, &heart, [&] { ++beats; });
    heart.start(10);
    QCOMPARE(build.run(), Result::Completed);
    QVERIFY2(beats > 10, qPrintable(QString::number(beats)));
}

void tst_BuildRun::runsAgainWhenACommandChanges()
{
    BuildFixture build;
    addProgram(build);
    QCOMPARE(build.run(), Result::Completed);
    build.request.steps[0].command += u" # other"_s;
    QCOMPARE(build.run(), Result::Completed);
    QCOMPARE(build.done, QStringList({u"compile a"_s, u"link"_s}));
    build.request.steps.last().name = u"join"_s;
    QCOMPARE(build.run(), Result::Completed);
    QCOMPARE(build.done, QStringList());
}

void tst_BuildRun::runsNothingForAFileThatDidNotChange()
{
    BuildFixture build;
    build.write(u"i"_s, "x");
    build.add(u"generate"_s, u"cmp -s i out/g || cp i out/g"_s, {u"i"_s}, {u"out/g"_s});
    build.add(u"use"_s, u"cp out/g out/o"_s, {u"out/g"_s}, {u"out/o"_s});
    QCOMPARE(build.run(), Result::Completed);
    QTest::qWait(20);
    build.write(u"i"_s, "x");
    QCOMPARE(build.run(), Result::Completed);
    QCOMPARE(build.done, QStringList({u"generate"_s}));
    QCOMPARE(build.run(), Result::Completed);
    QCOMPARE(build.done, QStringList());
}

void tst_BuildRun::logsOutput_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QStringList>("lines");
    QTest::newRow("output-1 both channels")
        << u"echo one; echo two >&2"_s << QStringList {u"one"_s, u"two"_s};
    QTest::newRow("output-2 without a last line feed")
        << u"printf 'a\\nb'"_s << QStringList {u"a"_s, u"b"_s};
    QTest::newRow("output-3 blank lines")
        << u"printf '\\na\\n\\nb\\n'"_s << QStringList {u""_s, u"a"_s, u""_s, u"b"_s};
    QTest::newRow("output-4 carriage returns")
        << u"printf '10%%\\r100%%\\ndone\\r\\n'"_s << QStringList {u"100%"_s, u"done"_s};
    QTest::newRow("output-5 beyond ASCII")
        << u"echo 'größe 日本 𝄞'"_s << QStringList {u"größe 日本 𝄞"_s};
    QTest::newRow("output-6 no UTF-8") << u"printf 'gr\\366\\337e \\303\\266 \\360\\237\\n'"_s
                                       << QStringList {u"gr\\xf6\\xdfe ö \\xf0\\x9f"_s};
    QTest::newRow("output-7 surrogates and overlong")
        << u"printf '\\355\\240\\200 \\300\\257\\n'"_s
        << QStringList {u"\\xed\\xa0\\x80 \\xc0\\xaf"_s};
    QTest::newRow("output-8 colours")
        << u"printf '\\033[1;31mred\\033[0m\\n'"_s << QStringList {u"red"_s};
    QTest::newRow("output-9 control characters")
        << u"printf 'a\\007b\\tc\\000d\\n'"_s << QStringList {u"a\\x07b\tc\\x00d"_s};
    QTest::newRow("output-10 markup") << u"echo '<b>x</b> %1'"_s << QStringList {u"<b>x</b> %1"_s};
    QTest::newRow("output-11 words of Ninja's") << u"echo 'ninja says'; echo ' ninja: x'"_s
                                                << QStringList {u"ninja says"_s, u" ninja: x"_s};
    QTest::newRow("output-12 a very long line")
        << u"head -c 40000 /dev/zero | tr '\\0' x; echo"_s
        << QStringList {QString(16384, u'x'), QString(16384, u'x'), QString(7232, u'x')};
    QTest::newRow("output-13 a very long line is not cut in a character")
        << u"i=0; while [ $i -lt 6000 ]; do printf €; i=$((i+1)); done; echo"_s
        << QStringList {QString(5461, u'€'), QString(539, u'€')};
    QTest::newRow("output-14 a U+FEFF at the front of a line, also of one that is no UTF-8")
        << u"printf '\\357\\273\\277a\\n\\357\\273\\277\\377\\n'"_s
        << QStringList {u"\ufeffa"_s, u"\ufeff\\xff"_s};
}

void tst_BuildRun::logsOutput()
{
    QFETCH(const QString, command);
    QFETCH(const QStringList, lines);
    BuildFixture build;
    build.write(u"i"_s, "x");
    build.add(u"s"_s, u"touch o; "_s + command, {u"i"_s}, {u"o"_s});
    QCOMPARE(build.run(), Result::Completed);
    QStringList expected = {u"Info: [1/1] s"_s};
    for (const QString &line : lines)
        expected.append(u"Info: "_s + line);
    QCOMPARE(build.messages, expected);
}

void tst_BuildRun::writesNoLogOverWhatAStepHasMade_data()
{
    QTest::addColumn<QString>("command");
    QTest::newRow("log-1 a pipe, which nobody reads") << u"mkfifo out/build.log"_s;
    QTest::newRow("log-2 a link out of the folder") << u"ln -s ../i out/build.log"_s;
}

// The log is begun with the first line, which comes when a step has run.
void tst_BuildRun::writesNoLogOverWhatAStepHasMade()
{
    QFETCH(const QString, command);
    BuildFixture build;
    build.write(u"i"_s, "x");
    build.add(u"s"_s, u"rm -f out/build.log; touch out/o; "_s + command, {u"i"_s}, {u"out/o"_s});
    QCOMPARE(build.run(), Result::Completed);
    QCOMPARE(
        build.messages,
        QStringList({u"Warning: The output cannot be written to \"%1\": it is not a file"_s.arg(
                         build.path(u"out/build.log"_s)),
                     u"Info: [1/1] s"_s}));
    QCOMPARE(build.read(u"i"_s), "x");
}

void tst_BuildRun::tellsWhichStepFailed()
{
    BuildFixture build;
    build.write(u"i"_s, "x");
    build.add(u"good"_s, u"echo fine; cp i out/g"_s, {u"i"_s}, {u"out/g"_s});
    build.add(u"bad"_s, u"echo wrong >&2; exit 3"_s, {u"out/g"_s}, {u"out/b"_s});
    build.add(u"never"_s, u"cp out/b out/n"_s, {u"out/b"_s}, {u"out/n"_s});
    QCOMPARE(build.run(), Result::Failed);
    QCOMPARE(build.done, QStringList({u"good"_s}));
    QCOMPARE(build.failed, QStringList({u"bad"_s}));
    QCOMPARE(build.messages,
             QStringList({u"Info: [1/3] good"_s, u"Info: fine"_s, u"Info: [2/3] bad"_s,
                          u"Error: FAILED: %1 "_s.arg(build.path(u"out/b"_s)),
                          u"Error: cd %1 || exit; echo wrong >&2; exit 3"_s.arg(
                              build.request.workingFolder),
                          u"Error: wrong"_s}));

    build.request.steps[1].command = u"cp out/g out/b"_s;
    QCOMPARE(build.run(), Result::Completed);
    QCOMPARE(build.done, QStringList({u"bad"_s, u"never"_s}));
}

void tst_BuildRun::failsWhenAnOutputWasNotMade()
{
    BuildFixture build;
    build.write(u"i"_s, "x");
    build.add(u"lazy"_s, u"touch out/1"_s, {u"i"_s}, {u"out/1"_s, u"out/2"_s});
    QCOMPARE(build.run(), Result::Failed);
    QCOMPARE(build.failed, QStringList({u"lazy"_s}));
    QCOMPARE(build.done, QStringList());
    QCOMPARE(build.messages,
             QStringList(
                 {u"Info: [1/1] lazy"_s,
                  u"Error: The step \"lazy\" ended without an error but has not made \"%1\""_s.arg(
                      build.path(u"out/2"_s))}));
}

void tst_BuildRun::takesNoWordsOfAStepForAFailure()
{
    BuildFixture build;
    build.write(u"i"_s, "x");
    build.add(u"with"_s, u"echo 'FAILED: no'; touch o"_s, {u"i"_s}, {u"o"_s});
    build.add(u"without"_s, u"echo 'FAILED: no'"_s, {u"o"_s}, {});
    QCOMPARE(build.run(), Result::Completed);
    QCOMPARE(build.done, QStringList({u"with"_s, u"without"_s}));
    QCOMPARE(build.failed, QStringList());
}

void tst_BuildRun::saysThatAnInputIsMissing()
{
    BuildFixture build;
    build.add(u"s"_s, u"cp i out/o"_s, {u"i"_s}, {u"out/o"_s});
    QCOMPARE(build.run(), Result::Failed);
    QCOMPARE(
        build.messages,
        QStringList({u"Error: ninja: error: '%1', needed by '%2', missing and no known rule to "
                     u"make it"_s.arg(build.path(u"i"_s), build.path(u"out/o"_s))}));
}

void tst_BuildRun::saysThatNinjaIsMissing()
{
    const QByteArray path = qgetenv("PATH");
    BuildFixture build;
    qputenv("PATH", build.dir.path().toUtf8());
    const Result result = build.run();
    qputenv("PATH", path);
    QCOMPARE(result, Result::Failed);
    QCOMPARE(build.messages,
             QStringList({u"Error: Ninja is not installed (Debian's package is ninja-build)"_s}));
}

void tst_BuildRun::runsStepsWithoutOutputsEveryTimeInOrder()
{
    BuildFixture build;
    build.write(u"i"_s, "x");
    build.add(u"prepare"_s, u"sleep 0.1; echo prepare >> journal"_s, {}, {});
    build.add(u"make"_s, u"sleep 0.1; echo make >> journal; cp i out/o"_s, {u"i"_s}, {u"out/o"_s});
    build.add(u"test"_s, u"echo test >> journal"_s, {u"out/o"_s}, {});
    build.add(u"report"_s, u"echo report >> journal"_s, {}, {});
    QCOMPARE(build.run(), Result::Completed);
    QCOMPARE(build.read(u"journal"_s), QByteArray("prepare\nmake\ntest\nreport\n"));
    QCOMPARE(build.done, QStringList({u"prepare"_s, u"make"_s, u"test"_s, u"report"_s}));
    QFile::remove(build.path(u"journal"_s));
    QCOMPARE(build.run(), Result::Completed);
    QCOMPARE(build.read(u"journal"_s), QByteArray("prepare\ntest\nreport\n"));
}

void tst_BuildRun::showsOutputOfAStepThatRunsAloneAtOnce()
{
    BuildFixture build;
    build.add(u"simulate"_s,
              u"echo at once; echo careful >&2; touch there; while [ -e there ]; do "
              u"sleep 0.01; done"_s,
              {}, {});
    QStringList before;
    QTimer poll;
    connect(&poll, &QTimer::timeout, &poll, [&] {
        if (build.exists(u"there"_s) && build.messages.size() > 2) {
            before = build.messages;
            QFile::remove(build.path(u"there"_s));
        }
    });
    poll.start(10);
    QCOMPARE(build.run(), Result::Completed);
    QCOMPARE(before,
             QStringList({u"Info: [0/1] simulate"_s, u"Info: at once"_s, u"Warning: careful"_s}));
}

void tst_BuildRun::sendsEveryStepThroughTheLauncher()
{
    BuildFixture build;
    build.write(u"launcher"_s,
                "#!/bin/sh\nshift\necho \"$*\" >> " + build.path(u"launched"_s).toUtf8()
                    + "\nexec \"$@\"\n");
    QFile::setPermissions(build.path(u"launcher"_s), QFile::ReadOwner | QFile::ExeOwner);
    build.request.launcher = build.path(u"launcher"_s) + u" --"_s;
    build.write(u"i"_s, "x");
    build.add(u"plain"_s, u"cp i out/1"_s, {u"i"_s}, {u"out/1"_s});
    build.add(u"list"_s, u"cp out/1 out/2 && echo it\\'s"_s, {u"out/1"_s}, {u"out/2"_s});
    build.add(u"lines"_s, u"cp out/2 out/3\necho two"_s, {u"out/2"_s}, {u"out/3"_s});
    build.add(u"none"_s, u"cat out/3"_s, {u"out/3"_s}, {});
    QCOMPARE(build.run(), Result::Completed);
    QCOMPARE(build.read(u"launched"_s),
             QByteArray("cp i out/1\n/bin/sh -c cp out/1 out/2 && echo it\\'s\n"
                        "/bin/sh -c cp out/2 out/3\necho two\ncat out/3\n"));
    QCOMPARE(build.read(u"out/3"_s), QByteArray("x"));
}

void tst_BuildRun::readsNestedRunsOfNinja()
{
    BuildFixture build;
    build.write(u"inner/build.ninja"_s,
                "rule r\n  command = touch $out\n  description = inner\n"
                "build o: r\n");
    build.add(u"nested"_s, u"ninja -C inner"_s, {}, {});
    QCOMPARE(build.run(), Result::Completed);
    QCOMPARE(build.progress, QStringList({u"0/1 nested"_s}));
    QCOMPARE(build.messages, QStringList({u"Info: [0/1] nested"_s, u"Info: [1/1] inner"_s}));
    QVERIFY(build.exists(u"inner/o"_s));
}

void tst_BuildRun::refusesASecondRunInTheSameFolder()
{
    BuildFixture build;
    build.write(u"i"_s, "x");
    build.add(u"slow"_s, u"touch there; while [ -e there ]; do sleep 0.01; done; cp i out/o"_s,
              {u"i"_s}, {u"out/o"_s});
    BuildFixture second;
    second.request = build.request;
    Result secondResult = Result::Completed;
    QTimer poll;
    connect(&poll, &QTimer::timeout, &poll, [&] {
        if (!build.exists(u"there"_s))
            return;
        poll.stop();
        secondResult = second.run();
        QFile::remove(build.path(u"there"_s));
    });
    poll.start(5);
    QCOMPARE(build.run(), Result::Completed);
    QCOMPARE(secondResult, Result::Failed);
    QCOMPARE(
        second.messages,
        QStringList({u"Error: Another build is running in \"%1\""_s.arg(build.path(u"out"_s))}));
    QCOMPARE(second.run(), Result::Completed);
}

void tst_BuildRun::saysThatTheTargetPathCannotBeUsed()
{
    BuildFixture build;
    build.request.targetPath = u"/proc/out"_s;
    build.add(u"s"_s, u"touch no"_s, {}, {});
    QCOMPARE(build.run(), Result::Failed);
    QCOMPARE(
        build.messages,
        QStringList(
            {u"Error: The target path \"/proc/out\" cannot be made: No such file or directory"_s}));
    QVERIFY(!build.exists(u"no"_s));

    if (geteuid() == 0)
        return;
    build.write(u"closed/x"_s, "");
    build.request.targetPath = u"closed"_s;
    QFile::setPermissions(build.path(u"closed"_s), QFile::ReadOwner | QFile::ExeOwner);
    QCOMPARE(build.run(), Result::Failed);
    QFile::setPermissions(build.path(u"closed"_s),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QCOMPARE(build.messages.size(), 1);
    QVERIFY(build.messages.first().contains(build.path(u"closed/build.ninja"_s)));
}

void tst_BuildRun::keepsToFiveThousandSteps()
{
    BuildFixture build;
    build.write(u"i"_s, "x");
    for (int i = 0; i < 5000; ++i)
        build.add(u"step %1"_s.arg(i), u"cp $(INPUTS) $(OUTPUTS)"_s, {u"i"_s},
                  {u"out/%1/%2"_s.arg(i % 50).arg(i)});
    QCOMPARE(build.run(Kind::Look), Result::Completed);
    QCOMPARE(build.done.size(), 5000);
}

void tst_BuildRun::usesNoFilesButItsOwn_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isPipe");
    for (const QString &name : {u"build.ninja"_s, u"build.log"_s, u".ninja_log"_s, u".ninja_deps"_s,
                                u".ninja_log.recompact"_s, u"step-1.sh"_s}) {
        QTest::newRow(qPrintable(u"pipe in place of "_s + name)) << name << true;
        QTest::newRow(qPrintable(u"link in place of "_s + name)) << name << false;
    }
}

// The target folder may have come with the design from anywhere.
void tst_BuildRun::usesNoFilesButItsOwn()
{
    QFETCH(const QString, name);
    QFETCH(const bool, isPipe);
    BuildFixture build;
    build.add(u"make"_s, u"echo x; touch $(OUTPUTS)"_s, {}, {u"out/a"_s});
    build.write(u"mine"_s, QByteArray());
    QVERIFY(QDir().mkpath(build.path(u"out"_s)));
    const QString path = build.path(u"out/"_s + name);
    if (isPipe)
        QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    else
        QVERIFY(QFile::link(build.path(u"mine"_s), path));

    for (const Kind kind : {Kind::Look, Kind::Outdated, Kind::All}) {
        QCOMPARE(build.run(kind), Result::Failed);
        QCOMPARE(build.messages,
                 QStringList {
                     u"Error: \"%1\" is not a regular file; nothing is built there"_s.arg(path)});
    }
    QCOMPARE(build.read(u"mine"_s), QByteArray());
    QVERIFY(!build.exists(u"out/a"_s));
}

GUILESS_TEST_CLASS(tst_BuildRun)
#include "tst_BuildRun.moc"
