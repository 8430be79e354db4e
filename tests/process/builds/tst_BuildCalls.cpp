// The commands "builds" and "build" on designs on disk, in processes of their own.

#include "tests/process/builds/buildcomponent.h"
#include "tests/process/Program.h"
#include "tests/TestClass.h"

#include <QDir>
#include <QFile>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

const QByteArray copyStep = step("copy", "cp $(INPUTS) $(OUTPUTS)", "a.txt", "b.txt");

} // namespace

class tst_BuildCalls : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void runsAndSaysWhatCameOfIt();
    void runsAllSteps();
    void keepsTheTargetPath();
    void selectsAConfiguration();
    void failsWithTheToolsOutput();
    void failsWithoutNinja();
    void refusesACycle();
    void goesThroughTheLauncher();
    void noWordOfABuildGetsIntoTheComponent();
    void cleansWhatItMade();
    void servesEventsMeanwhile();
    void refusesASecondRunMeanwhile();
    void takesAFloodOfOutput();
    void showsProgressOnATerminal();

private:
    // Writes a design "soft" whose configuration Main has these steps.
    void makeDesign(const QByteArray &steps, const QByteArray &more = {}) const;
    QString inDesign(const QString &name) const { return program->path(u"soft/"_s + name); }
    // Opens the design, then runs the commands.
    Ended run(const QStringList &commands, const QStringList &options = {}) const;

    std::unique_ptr<Program> program;
};

void tst_BuildCalls::init()
{
    program = std::make_unique<Program>();
    program->write(u"soft/a.txt"_s, "a");
}

void tst_BuildCalls::makeDesign(const QByteArray &steps, const QByteArray &more) const
{
    program->write(u"soft/component.xml"_s, buildComponent(steps, more));
}

Ended tst_BuildCalls::run(const QStringList &commands, const QStringList &options) const
{
    QStringList words = options;
    words += {u"-c"_s, u"set done [designs add {%1}]; list"_s.arg(inDesign(u"component.xml"_s))};
    for (const QString &command : commands)
        words += {u"-c"_s, command};
    return program->run(words);
}

void tst_BuildCalls::runsAndSaysWhatCameOfIt()
{
    makeDesign(copyStep);
    QCOMPARE(run({u"build get run_state"_s, u"build run"_s, u"build get run_state"_s,
                  u"files list generated"_s, u"build refresh"_s, u"build get run_state"_s}),
             (Ended {0,
                     "Idle\nBuild configuration completed successfully\nCompleted\n\""
                         + inDesign(u"b.txt"_s).toUtf8()
                         + "\"\nBuild configuration refreshed successfully.\nIdle\n",
                     ""}));
    QCOMPARE(Program::read(inDesign(u"b.txt"_s)), QByteArray("a"));
    QVERIFY(QFile::exists(inDesign(u"build/Main/build.ninja"_s)));
}

void tst_BuildCalls::runsAllSteps()
{
    makeDesign(step("copy", "echo x &gt;&gt; journal; cp a.txt b.txt", "a.txt", "b.txt"));
    const Ended good {0, "Build configuration completed successfully\n", ""};
    QCOMPARE(run({u"build run"_s}), good);
    QCOMPARE(run({u"build run"_s}), good);
    QCOMPARE(run({u"build run FALSE"_s}), good);
    QCOMPARE(Program::read(inDesign(u"journal"_s)), QByteArray("x\n"));
    QCOMPARE(run({u"build run True"_s}), good);
    QCOMPARE(Program::read(inDesign(u"journal"_s)), QByteArray("x\nx\n"));
    QCOMPARE(run({u"build run yes"_s}),
             (Ended {1, "",
                     "Selecting if only outdated steps needs to be run is specified using \"true\" "
                     "or \"false\" (Case Insensitive)\n"}));
    QCOMPARE(Program::read(inDesign(u"journal"_s)), QByteArray("x\nx\n"));
}

void tst_BuildCalls::keepsTheTargetPath()
{
    makeDesign(step("copy", "cp a.txt $(OUTPUTS)", "a.txt", "$(TARGET_PATH)/b.txt"));
    QCOMPARE(run({u"build get target_path"_s, u"build set target_path {out $x}"_s, u"build run"_s}),
             (Ended {1, "build/Main\nSuccessfully set target path of build configuration\n",
                     "Error: The build \"Main\" of design \"soft\" cannot be run: \""
                         + inDesign(u"out $x"_s).toUtf8()
                         + "\" names the environment variable \"x\", which is not set\n"
                           "Build configuration run failed\n"}));
    QCOMPARE(run({u"build set target_path {out it's}"_s, u"build run"_s}),
             (Ended {0,
                     "Successfully set target path of build configuration\n"
                     "Build configuration completed successfully\n",
                     ""}));
    QCOMPARE(Program::read(inDesign(u"out it's/b.txt"_s)), QByteArray("a"));
    QCOMPARE(run({u"build get target_path"_s}), (Ended {0, "out it's\n", ""}));
}

void tst_BuildCalls::selectsAConfiguration()
{
    makeDesign(copyStep, "<mv:buildConfiguration name=\"The other\"/>");
    QCOMPARE(run({u"builds list"_s, u"builds set_active {The other}"_s, u"build get target_path"_s,
                  u"build steps list"_s, u"build run"_s}),
             (Ended {0,
                     "\"Main\" \"The other\"\nSuccessfully changed active build configuration in "
                     "design \"soft\" to \"The other\"\nbuild/The other\n"
                     "Build configuration completed successfully\n",
                     ""}));
    QCOMPARE(run({u"build get target_path"_s}), (Ended {0, "build/The other\n", ""}));
}

void tst_BuildCalls::failsWithTheToolsOutput()
{
    makeDesign(step("compile", "echo 'a.txt:1: wrong' &gt;&amp;2; exit 1", "a.txt", "b.txt"));
    const QByteArray folder = program->path(u"soft"_s).toUtf8();
    QCOMPARE(run({u"build run"_s, u"build get run_state"_s}),
             (Ended {1, "",
                     "Error: FAILED: " + folder + "/b.txt \nError: cd " + folder
                         + " || exit; echo 'a.txt:1: wrong' >&2; exit 1\n"
                           "Error: a.txt:1: wrong\n"
                           "Error: The build \"Main\" of design \"soft\" failed in \"compile\"\n"
                           "Build configuration run failed\n"}));
}

void tst_BuildCalls::failsWithoutNinja()
{
    makeDesign(copyStep);
    program->environment.insert(u"PATH"_s, program->path(u"nothing"_s));
    QCOMPARE(run({u"build run"_s}),
             (Ended {1, "",
                     "Error: Ninja is not installed (Debian's package is ninja-build)\n"
                     "Error: The build \"Main\" of design \"soft\" failed\n"
                     "Build configuration run failed\n"}));
}

void tst_BuildCalls::refusesACycle()
{
    makeDesign(step("one", "x", "1", "2") + step("two", "x", "2", "1"));
    QCOMPARE(run({u"build steps list"_s, u"build run"_s}),
             (Ended {1, "\"one\" \"two\"\n",
                     "Error: The build \"Main\" of design \"soft\" cannot be run: The steps wait "
                     "for each other: \"one\" waits for \"two\" waits for \"one\"\n"
                     "Build configuration run failed\n"}));
}

void tst_BuildCalls::goesThroughTheLauncher()
{
    program->write(u"farm"_s, "#!/bin/sh\necho \"$*\" >> farm.log\nexec \"$@\"\n");
    QFile::setPermissions(program->path(u"farm"_s), QFile::ReadOwner | QFile::ExeOwner);
    program->write(u"session/settings.ini"_s,
                   "[Builds]\nlauncher=" + program->path(u"farm"_s).toUtf8() + "\n");
    makeDesign(copyStep + step("again", "cp b.txt c.txt; ls", "b.txt", "c.txt"));
    QCOMPARE(run({u"build run"_s}),
             (Ended {0, "Build configuration completed successfully\n", ""}));
    QCOMPARE(Program::read(inDesign(u"farm.log"_s)),
             QByteArray("cp a.txt b.txt\n/bin/sh -c cp b.txt c.txt; ls\n"));
}

void tst_BuildCalls::noWordOfABuildGetsIntoTheComponent()
{
    makeDesign(step("say", "echo hello"));
    const QByteArray before = Program::read(inDesign(u"component.xml"_s));
    QCOMPARE(run({u"build run"_s, u"build refresh"_s}).status, 0);
    QCOMPARE(Program::read(inDesign(u"component.xml"_s)), before);
}

void tst_BuildCalls::cleansWhatItMade()
{
    makeDesign(copyStep + step("more", "cp b.txt $(OUTPUTS)", "b.txt", "$(TARGET_PATH)/c.txt"));
    QCOMPARE(run({u"build run"_s}).status, 0);
    program->write(u"soft/build/Main/mine.txt"_s, "mine");
    const QByteArray folder = program->path(u"soft"_s).toUtf8();
    QCOMPARE(run({u"design clean"_s, u"files list"_s}),
             (Ended {0,
                     "Cleaned 2 of 2 files of design \"soft\"\nDeleted \"" + folder
                         + "/b.txt\"\nDeleted \"" + folder
                         + "/build/Main/c.txt\"\nNo files found in design \"soft\"\n",
                     ""}));
    QVERIFY(QFile::exists(inDesign(u"a.txt"_s)));
    QVERIFY(QFile::exists(inDesign(u"build/Main/mine.txt"_s)));
    QVERIFY(!QFile::exists(inDesign(u"b.txt"_s)));
}

void tst_BuildCalls::servesEventsMeanwhile()
{
    makeDesign(step("slow", "for i in 1 2 3 4 5 6 7 8 9 10; do sleep 0.05; done"));
    QCOMPARE(run({u"set ticks 0; proc tick {} {incr ::ticks; after 20 tick}; after 20 tick; "
                  u"build run"_s,
                  u"expr {$ticks > 5}"_s}),
             (Ended {0, "Build configuration completed successfully\n1\n", ""}));
}

void tst_BuildCalls::refusesASecondRunMeanwhile()
{
    makeDesign(step("slow", "touch there; while [ -e there ]; do sleep 0.01; done"));
    QCOMPARE(
        run({u"proc again {} {if {![file exists {%1}]} {after 10 again; return}; catch {build "
             u"run} ::answer; file delete {%1}}; after 10 again; build run"_s.arg(
                 inDesign(u"there"_s)),
             u"set answer"_s}),
        (Ended {0, "Build configuration completed successfully\nBuild configuration run failed\n",
                "Error: The build \"Main\" of design \"soft\" is running already\n"}));
}

void tst_BuildCalls::takesAFloodOfOutput()
{
    makeDesign(step("flood", "yes 'a line of output' | head -c 100000000; echo"));
    const Ended ended = run({u"build run"_s});
    QCOMPARE(ended.status, 0);
    QCOMPARE(ended.out, QByteArray("Build configuration completed successfully\n"));
    QVERIFY2(ended.err.startsWith("Warning: ") && ended.err.count('\n') == 1,
             ended.err.constData());
    QVERIFY(QFileInfo(inDesign(u"build/Main/build.log"_s)).size() > 100'000'000);
}

void tst_BuildCalls::showsProgressOnATerminal()
{
    makeDesign(copyStep + step("two", "cp b.txt c.txt", "b.txt", "c.txt"));
    const QStringList words {u"--session"_s, program->session, inDesign(u"component.xml"_s)};
    // "script" gives the command a terminal and writes down what it shows.
    const QString call =
        u"TERM=xterm script -qec \"'$0' $1 '$2' -c 'designs add {$3}' -c 'build run'\" "
        u"/dev/null < /dev/null"_s;
    const Ended ended = program->runShell(call, words);
    QCOMPARE(ended.status, 0);
    QVERIFY2(ended.out.contains("[1/2] copy\033[K\r[2/2] two\033[K\r\033[K\r"
                                "Build configuration completed successfully\r\n"),
             ended.out.constData());

    QFile::remove(inDesign(u"b.txt"_s));
    QString dumb = call;
    const Ended plain = program->runShell(dumb.replace(u"xterm"_s, u"dumb"_s), words);
    QCOMPARE(plain.status, 0);
    QVERIFY2(!plain.out.contains("copy"), plain.out.constData());
}

GUILESS_TEST_CLASS(tst_BuildCalls)
#include "tst_BuildCalls.moc"
