// Builds of several designs by "morvalen build", in processes of their own.

#include "tests/patience.h"
#include "tests/process/builds/buildcomponent.h"
#include "tests/process/Program.h"
#include "tests/TestClass.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>

#include <csignal>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace {

// A command that says that it has begun, and waits until so many have.
QByteArray meeting(int count)
{
    return "echo &gt;&gt; ../begun; while [ $(wc -l &lt; ../begun) -lt " + QByteArray::number(count)
        + " ]; do sleep 0.01; done; touch it $(OUTPUTS)";
}

// A command that notices others at the same time.
const QByteArray lonely = "mkdir ../alone || echo &gt; ../together; sleep 0.05; rmdir ../alone; "
                          "touch it $(OUTPUTS)";

} // namespace

class tst_SeveralBuilds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void areOneRun();
    void areUpToDateOneByOne();
    void eachHasItsLog();
    void shareTheJobs();
    void beginWithTheLongestRow();
    void shareThePools();
    void runStepsWithoutOutputsSideBySide();
    void mayNeedWhatAnotherMakes();
    void stopAtAFailure();
    void keepGoing();
    void stopBeforeOneThatCannotBeRun();
    void refuseAFileOfTwoMakers();
    void refuseALockedFolder();
    void refuseAFileOfSomebodyElse();
    void warnOfARecordThatCannotBeWritten();
    void noticeStepsOfAKilledRun();
    void areEndedByASignal();
    void carryOddNames();
    void areSpread_data();
    void areSpread();
    void aSpreadStopsAtAFailure();
    void dryRun();

private:
    void makeDesign(const QByteArray &name, const QByteArray &steps) const;
    QString in(const QString &path) const { return program->path(path); }
    // Opens the designs a, b and c, as far as they are there, then runs the command.
    Ended run(const QString &command, const QStringList &options = {}) const;
    QStringList words(const QString &command, const QStringList &options) const;

    std::unique_ptr<Program> program;
};

void tst_SeveralBuilds::init() { program = std::make_unique<Program>(); }

void tst_SeveralBuilds::makeDesign(const QByteArray &name, const QByteArray &steps) const
{
    const QString folder = QString::fromUtf8(name);
    program->write(folder + u"/in"_s, "x");
    program->write(folder + u"/component.xml"_s,
                   buildComponent(steps).replace("<ipxact:name>soft", "<ipxact:name>" + name));
}

QStringList tst_SeveralBuilds::words(const QString &command, const QStringList &options) const
{
    return options
        + QStringList {u"-c"_s,
                       u"foreach n {a b c} { set f [file join {%1} $n component.xml]; "
                       "if {[file exists $f]} { designs add $f } }"_s.arg(in(QString())),
                       u"-c"_s, command};
}

Ended tst_SeveralBuilds::run(const QString &command, const QStringList &options) const
{
    return program->run(words(command, options));
}

void tst_SeveralBuilds::areOneRun()
{
    for (const char *name : {"a", "b", "c"})
        makeDesign(
            name,
            step("one", "cp $(INPUTS) $(OUTPUTS)", "in", "$(TARGET_PATH)/1")
                + step("two", "cp $(INPUTS) $(OUTPUTS)", "$(TARGET_PATH)/1", "$(TARGET_PATH)/2"));
    const QByteArray states = "v.l.a.1.0 Completed v.l.b.1.0 Completed v.l.c.1.0 Completed\n";
    Ended ended = run(u"morvalen build -all -jobs 1"_s, {u"--log-level"_s, u"info"_s});
    QCOMPARE(ended.out, states);
    QByteArrayList lines = ended.err.split('\n');
    lines.removeIf([](const QByteArray &line) { return line.contains("initialized"); });
    std::sort(lines.begin(), lines.begin() + 6, [](const QByteArray &one, const QByteArray &two) {
        return one.mid(one.indexOf(']')) < two.mid(two.indexOf(']'));
    });
    QString log = QString::fromUtf8(lines.join('\n'));
    QCOMPARE(log.replace(QRegularExpression(u"\\[./"_s), u"[n/"_s),
             u"Info: [n/6] a: one\nInfo: [n/6] a: two\nInfo: [n/6] b: one\n"
             "Info: [n/6] b: two\nInfo: [n/6] c: one\nInfo: [n/6] c: two\n"
             "Info: The build \"Main\" of design \"a\" is complete, steps run: 2\n"
             "Info: The build \"Main\" of design \"b\" is complete, steps run: 2\n"
             "Info: The build \"Main\" of design \"c\" is complete, steps run: 2\n"_s);
    for (const QString &name : {u"a"_s, u"b"_s, u"c"_s}) {
        QCOMPARE(Program::read(in(name + u"/build/Main/2"_s)), QByteArray("x"));
        QVERIFY(QFile::exists(in(name + u"/build/Main/.morvalen_outputs"_s)));
        QVERIFY(!QFile::exists(in(name + u"/build/Main/joint.ninja"_s)));
    }
    QCOMPARE(run(u"morvalen build -all"_s, {u"--log-level"_s, u"info"_s}).err.count("up to date"),
             3);
    QFile::remove(in(u"b/build/Main/2"_s));
    ended = run(u"morvalen build -all"_s, {u"--log-level"_s, u"info"_s});
    QCOMPARE(ended.out, states);
    QVERIFY2(ended.err.contains("[1/1] b: two\n"), ended.err.constData());
}

void tst_SeveralBuilds::areUpToDateOneByOne()
{
    const QByteArray copy = step("copy", "cp $(INPUTS) $(OUTPUTS)", "in", "$(TARGET_PATH)/o")
        + step("again", "cp $(INPUTS) $(OUTPUTS)", "in", "o");
    for (const char *name : {"a", "b", "c"})
        makeDesign(name, copy);
    const QStringList info {u"--log-level"_s, u"info"_s};
    // Each by itself, all, and each by itself again, with something to do for the one in between.
    QCOMPARE(run(u"morvalen build v.l.b.1.0"_s).status, 0);
    const Ended first = run(u"morvalen build -all"_s, info);
    QVERIFY2(first.err.contains("design \"b\" is up to date"), first.err.constData());
    QCOMPARE(first.err.count("complete, steps run: 2"), 2);
    for (const QString &name : {u"a"_s, u"b"_s, u"c"_s}) {
        const Ended alone = run(u"morvalen build v.l.%1.1.0"_s.arg(name), info);
        QVERIFY2(alone.err.contains("is up to date"), alone.err.constData());
    }
    makeDesign("c", copy + step("new", "touch $(OUTPUTS)", "in", "n"));
    const Ended changed = run(u"morvalen build v.l.c.1.0"_s, info);
    QVERIFY2(changed.err.contains("] new\n"), changed.err.constData());
    QCOMPARE(run(u"morvalen build -all"_s, info).err.count("up to date"), 3);
    QVERIFY(!Program::read(in(u"a/build/Main/.ninja_log"_s)).contains("/b/"));
}

void tst_SeveralBuilds::eachHasItsLog()
{
    for (const QByteArray name : {"a", "b"})
        makeDesign(name,
                   step("say", "echo this is " + name + "; touch $(OUTPUTS)", "in", "o")
                       + step("more", "echo and more; touch $(OUTPUTS)", "o", "p"));
    QCOMPARE(run(u"morvalen build -all"_s).status, 0);
    for (const QString &name : {u"a"_s, u"b"_s}) {
        const QString log = QString::fromUtf8(Program::read(in(name + u"/build/Main/build.log"_s)));
        QCOMPARE(QString(log).replace(QRegularExpression(u"\\[./"_s), u"[n/"_s),
                 u"[n/4] %1: say\nthis is %1\n[n/4] %1: more\nand more\n"_s.arg(name));
    }
}

void tst_SeveralBuilds::shareTheJobs()
{
    for (const char *name : {"a", "b", "c"})
        makeDesign(name, step("one", meeting(6), "in", "1") + step("two", meeting(6), "in", "2"));
    QCOMPARE(run(u"morvalen build -all -jobs 6"_s),
             (Ended {0, "v.l.a.1.0 Completed v.l.b.1.0 Completed v.l.c.1.0 Completed\n", ""}));
}

// A row of steps that is begun last would be run alone.
void tst_SeveralBuilds::beginWithTheLongestRow()
{
    makeDesign("a",
               step("one", "touch $(OUTPUTS)", "in", "1")
                   + step("two", "touch $(OUTPUTS)", "in", "2"));
    makeDesign("b",
               step("one", "touch $(OUTPUTS)", {}, "1") + step("two", "touch $(OUTPUTS)", {}, "2")
                   + step("three", "touch $(OUTPUTS)", {}, "3"));
    const Ended ended = run(u"morvalen build -all -jobs 1"_s, {u"--log-level"_s, u"info"_s});
    QByteArrayList steps;
    for (const QByteArray &line : ended.err.split('\n')) {
        if (line.startsWith("Info: ["))
            steps.append(line.mid(6));
    }
    QCOMPARE(steps,
             (QByteArrayList {"[1/5] b: one", "[2/5] b: two", "[3/5] a: one", "[4/5] a: two",
                              "[5/5] b: three"}));
}

void tst_SeveralBuilds::shareThePools()
{
    program->write(u"session/settings.ini"_s, "[Pools]\na%20licence=1\n");
    for (const char *name : {"a", "b", "c"})
        makeDesign(name,
                   QByteArray(step("one", lonely, "in", "1") + step("two", lonely, "in"))
                       .replace("<mv:step ", "<mv:step pool=\"a licence\" "));
    const Ended ended = run(u"morvalen build -all -jobs 6"_s);
    QCOMPARE(ended.err, QByteArray());
    QCOMPARE(ended.status, 0);
    QVERIFY(!QFile::exists(in(u"together"_s)));
}

void tst_SeveralBuilds::runStepsWithoutOutputsSideBySide()
{
    for (const char *name : {"a", "b", "c"})
        makeDesign(name, step("lint", meeting(3), "in"));
    QCOMPARE(run(u"morvalen build -all -jobs 3"_s).status, 0);
}

void tst_SeveralBuilds::mayNeedWhatAnotherMakes()
{
    makeDesign("a", step("use", "cp $(INPUTS) $(OUTPUTS)", "../b/made", "used"));
    makeDesign("b", step("make", "cp $(INPUTS) $(OUTPUTS)", "in", "made"));
    QCOMPARE(run(u"morvalen build -all"_s),
             (Ended {0, "v.l.a.1.0 Completed v.l.b.1.0 Completed\n", ""}));
    QCOMPARE(Program::read(in(u"a/used"_s)), QByteArray("x"));
}

void tst_SeveralBuilds::stopAtAFailure()
{
    makeDesign("a", step("good", "touch $(OUTPUTS)", "in", "1"));
    makeDesign("b", step("bad", "exit 3", "../a/1", "1"));
    makeDesign("c",
               step("late", "touch $(OUTPUTS)", "../a/1", "1")
                   + step("later", "sleep 0.1; touch $(OUTPUTS)", "1", "2")
                   + step("last", "touch $(OUTPUTS)", "2", "3"));
    const Ended ended =
        run(u"catch {morvalen build -all -jobs 1} states; list $states $errorCode"_s);
    QCOMPARE(ended.out,
             QByteArray("{v.l.a.1.0 Completed v.l.b.1.0 Failed v.l.c.1.0 Cancelled} "
                        "{MORVALEN failed}\n"));
    const QByteArray folder = in(u"b"_s).toUtf8();
    QCOMPARE(
        ended.err,
        "Error: FAILED: " + folder + "/1 \nError: cd " + folder
            + " || exit; exit 3\n"
              "Error: The build \"Main\" of design \"b\" failed in \"bad\"\n"
              "Warning: The build \"Main\" of design \"c\" was not finished, since another one "
              "failed\n");
}

void tst_SeveralBuilds::keepGoing()
{
    makeDesign("a", step("bad", "exit 3", "in", "1") + step("behind it", "true", "1", "2"));
    makeDesign("b",
               step("good", "touch $(OUTPUTS)", "in", "1")
                   + step("better", "touch $(OUTPUTS)", "1", "2"));
    makeDesign("c", step("lost", "touch $(OUTPUTS)", "no such file", "1"));
    const Ended ended =
        run(u"catch {morvalen build -all -keep-going -jobs 1} states; set states"_s);
    QCOMPARE(ended.out, QByteArray("v.l.a.1.0 Failed v.l.b.1.0 Completed v.l.c.1.0 Failed\n"));
    QVERIFY(QFile::exists(in(u"b/2"_s)));
    QVERIFY2(
        ended.err.startsWith(
            "Error: The build \"Main\" of design \"c\" cannot be run: The step \"lost\" needs \""
            + in(u"c/no such file"_s).toUtf8()
            + "\", which is not there, and which no step makes\n"),
        ended.err.constData());
    // The same as an option of the program.
    QFile::remove(in(u"b/2"_s));
    run(u"catch {morvalen build -all -jobs 1}"_s, {u"--keep-going"_s});
    QVERIFY(QFile::exists(in(u"b/2"_s)));
}

void tst_SeveralBuilds::stopBeforeOneThatCannotBeRun()
{
    makeDesign("a", step("good", "touch $(OUTPUTS)", "in", "1"));
    makeDesign("b", step("bad", "true", "in", "1").replace("<mv:step ", "<mv:step pool=\"none\" "));
    QCOMPARE(run(u"catch {morvalen build -all} states; set states"_s),
             (Ended {0, "v.l.a.1.0 Cancelled v.l.b.1.0 Failed\n",
                     "Error: The build \"Main\" of design \"b\" cannot be run: The step \"bad\" "
                     "cannot be run: The settings have no pool \"none\"\n"
                     "Warning: The build \"Main\" of design \"a\" was not begun, since another one "
                     "failed\n"}));
    QVERIFY(!QFile::exists(in(u"a/1"_s)));
}

void tst_SeveralBuilds::refuseAFileOfTwoMakers()
{
    program->write(u"shared/x"_s, "");
    makeDesign("a", step("make", "touch $(OUTPUTS)", "in", "$(TARGET_PATH)/1"));
    program->write(u"a/b/in"_s, "");
    makeDesign("b", step("make", "touch $(OUTPUTS)", "in", "1"));
    // The second lies in the folder of the first.
    makeDesign("a", step("make", "touch $(OUTPUTS)", "in", "b/1"));
    QFile::remove(in(u"b/component.xml"_s));
    program->write(u"a/b/component.xml"_s,
                   buildComponent(step("make", "touch $(OUTPUTS)", "in", "1"))
                       .replace("<ipxact:name>soft", "<ipxact:name>b"));
    QCOMPARE(
        run(u"designs add {%1}; catch {morvalen build -all -keep-going} states; set states"_s.arg(
            in(u"a/b/component.xml"_s))),
        (Ended {0, "v.l.a.1.0 Completed v.l.b.1.0 Failed\n",
                "Error: The build \"Main\" of design \"b\" cannot be run: The step \"make\" "
                "makes \""
                    + in(u"a/b/1"_s).toUtf8() + "\", as a step of another design does\n"}));
}

void tst_SeveralBuilds::refuseALockedFolder()
{
    for (const char *name : {"a", "b"})
        makeDesign(name, step("make", "touch $(OUTPUTS)", "in", "1"));
    QDir().mkpath(in(u"b/build/Main"_s));
    const int folder =
        open(QFile::encodeName(in(u"b/build/Main"_s)).constData(), O_RDONLY | O_CLOEXEC);
    QCOMPARE(flock(folder, LOCK_EX | LOCK_NB), 0);
    QCOMPARE(run(u"catch {morvalen build -all -keep-going} states; set states"_s),
             (Ended {0, "v.l.a.1.0 Completed v.l.b.1.0 Failed\n",
                     "Error: The build \"Main\" of design \"b\" cannot be run: Another build is "
                     "running in \""
                         + in(u"b/build/Main"_s).toUtf8() + "\"\n"}));
    close(folder);
    QCOMPARE(run(u"morvalen build -all"_s).status, 0);
}

void tst_SeveralBuilds::refuseAFileOfSomebodyElse()
{
    for (const char *name : {"a", "b", "c"})
        makeDesign(name, step("make", "touch $(OUTPUTS)", "in", "1"));
    program->write(u"b/build/Main/build.ninja"_s, "rule mine\n");
    QCOMPARE(run(u"catch {morvalen build -all -keep-going} states; set states"_s),
             (Ended {0, "v.l.a.1.0 Completed v.l.b.1.0 Failed v.l.c.1.0 Completed\n",
                     "Error: The build \"Main\" of design \"b\" cannot be run: \""
                         + in(u"b/build/Main/build.ninja"_s).toUtf8()
                         + "\" is not a file of Morvalen's; choose another target path\n"}));
    QCOMPARE(Program::read(in(u"b/build/Main/build.ninja"_s)), QByteArray("rule mine\n"));
    QVERIFY(!QFile::exists(in(u"b/1"_s)));
}

void tst_SeveralBuilds::warnOfARecordThatCannotBeWritten()
{
    makeDesign("a", step("make", "touch $(OUTPUTS)", "in", "1"));
    makeDesign("b",
               step("make", "mkdir build/Main/.morvalen_outputs; touch $(OUTPUTS)", "in", "1"));
    QCOMPARE(
        run(u"morvalen build -all"_s),
        (Ended {0, "v.l.a.1.0 Completed v.l.b.1.0 Completed\n",
                "Warning: What the build \"Main\" has made cannot be noted: Cannot write \""
                    + in(u"b/build/Main/.morvalen_outputs"_s).toUtf8() + "\": it is a folder\n"}));
    QVERIFY(Program::read(in(u"a/build/Main/.morvalen_outputs"_s)).contains("\"1\""));
}

// What a killed run has made is not taken for what an earlier command made.
void tst_SeveralBuilds::noticeStepsOfAKilledRun()
{
    const auto make = [this](const QByteArray &text) {
        makeDesign("a", step("make", "echo a &gt; $(OUTPUTS)", "in", "1"));
        makeDesign("b", step("make", "echo " + text + " &gt; $(OUTPUTS)", "in", "1"));
    };
    make("first");
    QCOMPARE(run(u"morvalen build -all"_s).status, 0);
    make("second");
    makeDesign("c", step("wait", "touch ../begun; sleep 10000", "../b/1", "1"));
    QProcess process;
    process.setProcessEnvironment(program->environment);
    process.start(QStringLiteral(PROGRAM),
                  QStringList {u"--session"_s, program->session}
                      + words(u"morvalen build -all"_s, {}));
    QTRY_VERIFY(QFile::exists(in(u"begun"_s)));
    QCOMPARE(Program::read(in(u"b/1"_s)), QByteArray("second\n"));
    process.kill();
    QVERIFY(process.waitForFinished(patient()));
    make("first");
    QCOMPARE(run(u"morvalen build v.l.b.1.0"_s).err, QByteArray());
    QCOMPARE(Program::read(in(u"b/1"_s)), QByteArray("first\n"));
}

void tst_SeveralBuilds::areEndedByASignal()
{
    makeDesign("a", step("wait", "echo &gt;&gt; ../begun; exec sleep 10000", "in", "1"));
    makeDesign("b", step("wait", "echo &gt;&gt; ../begun; exec sleep 10000", "in", "1"));
    QProcess process;
    process.setProcessEnvironment(program->environment);
    process.start(QStringLiteral(PROGRAM),
                  QStringList {u"--session"_s, program->session}
                      + words(u"morvalen build -all -jobs 2"_s, {}));
    QTRY_COMPARE(Program::read(in(u"begun"_s)), QByteArray("\n\n"));
    kill(pid_t(process.processId()), SIGTERM);
    QVERIFY(process.waitForFinished(patient()));
    QCOMPARE(process.exitStatus(), QProcess::CrashExit);
    QCOMPARE(process.exitCode(), SIGTERM);
    QCOMPARE(process.readAllStandardError(),
             QByteArray("Warning: The build \"Main\" of design \"a\" was cancelled\n"
                        "Warning: The build \"Main\" of design \"b\" was cancelled\n"));
}

void tst_SeveralBuilds::carryOddNames()
{
    program->write(u"session/settings.ini"_s, "[Pools]\n%24p%20%22x%22=1\n");
    for (const char *name : {"a", "b"})
        makeDesign(
            name,
            QByteArray(
                step("it's: $x \"y\" #1", "cp $(INPUTS) $(OUTPUTS)", "in", "o $$1: 'x'|y")
                + step("it's: $x \"y\" #1", "cp $(INPUTS) $(OUTPUTS)", "o $$1: 'x'|y", "\\n"))
                .replace("name=\"it's: $x \"y\" #1\"", "name=\"it's: $x &quot;y&quot; #1\"")
                .replace("<mv:step ", "<mv:step pool=\"$p &quot;x&quot;\" "));
    QCOMPARE(run(u"morvalen build -all"_s),
             (Ended {0, "v.l.a.1.0 Completed v.l.b.1.0 Completed\n", ""}));
    QCOMPARE(Program::read(in(u"b/\\n"_s)), QByteArray("x"));
}

void tst_SeveralBuilds::areSpread_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<QByteArray>("command");
    QTest::newRow("spread-1 one after the other") << 1 << lonely;
    QTest::newRow("spread-2 all at once") << 3 << meeting(3);
    QTest::newRow("spread-3 more than there are") << 100 << meeting(3);
}

void tst_SeveralBuilds::areSpread()
{
    QFETCH(const int, count);
    QFETCH(const QByteArray, command);
    program->write(u"farm"_s,
                   "#!/bin/sh\necho farm >> '" + in(u"journal"_s).toUtf8() + "'\nexec \"$@\"\n");
    QFile::setPermissions(in(u"farm"_s), QFile::ReadOwner | QFile::ExeOwner);
    program->write(u"session/settings.ini"_s,
                   "[Builds]\nallocation=" + in(u"farm"_s).toUtf8() + '\n');
    for (const char *name : {"a", "b", "c"})
        makeDesign(name, step("meet", command, "in", "1"));
    QCOMPARE(run(u"morvalen build -all -spread %1"_s.arg(count)),
             (Ended {0, "v.l.a.1.0 Completed v.l.b.1.0 Completed v.l.c.1.0 Completed\n", ""}));
    QVERIFY(!QFile::exists(in(u"together"_s)));
    // Each had an allocation.
    QCOMPARE(Program::read(in(u"journal"_s)), QByteArray("farm\nfarm\nfarm\n"));
}

void tst_SeveralBuilds::aSpreadStopsAtAFailure()
{
    makeDesign("a", step("bad", "exit 3", "in", "1"));
    for (const char *name : {"b", "c"})
        makeDesign(name, step("good", "touch $(OUTPUTS)", "in", "1"));
    Ended ended = run(u"catch {morvalen build -all -spread 1} states; set states"_s);
    QCOMPARE(ended.out, QByteArray("v.l.a.1.0 Failed v.l.b.1.0 Cancelled v.l.c.1.0 Cancelled\n"));
    QVERIFY2(ended.err.endsWith("Warning: The build \"Main\" of design \"b\" was not begun, since "
                                "another one failed\nWarning: The build \"Main\" of design \"c\" "
                                "was not begun, since another one failed\n"),
             ended.err.constData());
    ended = run(u"catch {morvalen build -all -spread 1 -keep-going} states; set states"_s);
    QCOMPARE(ended.out, QByteArray("v.l.a.1.0 Failed v.l.b.1.0 Completed v.l.c.1.0 Completed\n"));
}

void tst_SeveralBuilds::dryRun()
{
    for (const char *name : {"a", "b"})
        makeDesign(name, step("make", "touch $(OUTPUTS)", "in", "1"));
    const Ended ended = run(u"morvalen build -all -dry -spread 2"_s, {u"--log-level"_s, u"info"_s});
    QCOMPARE(ended.out, QByteArray("v.l.a.1.0 Idle v.l.b.1.0 Idle\n"));
    QCOMPARE(ended.err.count("Would run \"make\""), 2);
    QVERIFY(!QFile::exists(in(u"a/1"_s)));
}

GUILESS_TEST_CLASS(tst_SeveralBuilds)
#include "tst_SeveralBuilds.moc"
