// Builds that are interrupted, leave processes behind, or may not write, in processes of their own.

#include "tests/process/builds/buildcomponent.h"
#include "tests/process/Program.h"
#include "tests/TestClass.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTest>

#include <cerrno>
#include <csignal>
#include <cstddef>

#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace {

bool isAlive(const QByteArray &id)
{
    const QByteArray stat =
        Program::read(u"/proc/%1/stat"_s.arg(QString::fromLatin1(id.trimmed())));
    return !stat.isEmpty() && !stat.contains(") Z ");
}

// Whether a process has a handler of its own for a signal.
bool catches(qint64 process, int signal)
{
    const QByteArray status = Program::read(u"/proc/%1/status"_s.arg(process));
    const qsizetype at = status.indexOf("SigCgt:") + 7;
    const qulonglong caught =
        status.mid(at, status.indexOf('\n', at) - at).trimmed().toULongLong(nullptr, 16);
    return (caught >> (signal - 1) & 1) != 0;
}

// From now on this process and its children are refused handles of processes. Only what is safe
// behind a fork.
void refuseHandles(int reason)
{
    sock_filter filter[] = {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_pidfd_open, 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | (__u32(reason) & SECCOMP_RET_DATA)),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW)};
    const sock_fprog program {std::size(filter), filter};
    prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    if (prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) != 0)
        _exit(99);
}

const QByteArray longStep = "echo $$ > pid; touch there; exec sleep 1000";
const QByteArray stubbornStep = "trap '' TERM INT HUP; " + longStep;

} // namespace

class tst_BuildTrouble : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void isCancelledByASignal_data();
    void isCancelledByASignal();
    void endsAtOnceAtTheSecondSignal();
    void ignoresASignalThatItWasToldToIgnore();
    void endsWhatStepsLeaveRunning();
    void saysThatTheTargetPathIsClosed();
    void saysWhichProgramIsMissing_data();
    void saysWhichProgramIsMissing();
    void takesOddNamesOfConfigurations_data();
    void takesOddNamesOfConfigurations();
    void keepsTheConfigurationThatRuns();
    void runsWithoutHandlesOfProcesses_data();
    void runsWithoutHandlesOfProcesses();

private:
    QString inDesign(const QString &name) const { return program->path(u"soft/"_s + name); }
    QStringList words(const QString &command = u"build run"_s) const
    {
        return {u"-c"_s, u"set done [designs add {%1}]; list"_s.arg(inDesign(u"component.xml"_s)),
                u"-c"_s, command};
    }
    void makeDesign(const QByteArray &steps) const
    {
        program->write(u"soft/component.xml"_s, buildComponent(steps));
    }
    // Starts a build, and returns when its step runs.
    void startBuild(QProcess *process, const QString &shell = {}) const;
    QByteArray stepId() const { return Program::read(inDesign(u"pid"_s)); }

    std::unique_ptr<Program> program;
};

void tst_BuildTrouble::init()
{
    program = std::make_unique<Program>();
    program->write(u"soft/a.txt"_s, "a");
}

void tst_BuildTrouble::startBuild(QProcess *process, const QString &shell) const
{
    process->setProcessEnvironment(program->environment);
    const QStringList all = QStringList {u"--session"_s, program->session} + words();
    if (shell.isEmpty())
        process->start(QStringLiteral(PROGRAM), all);
    else
        process->start(u"/bin/sh"_s, QStringList {u"-c"_s, shell, QStringLiteral(PROGRAM)} + all);
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(inDesign(u"there"_s)), patient(30'000));
    QVERIFY(isAlive(stepId()));
}

void tst_BuildTrouble::isCancelledByASignal_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<bool>("hasOutput");
    QTest::newRow("signal-1 interrupted") << SIGINT << longStep << true;
    QTest::newRow("signal-2 terminated") << SIGTERM << longStep << true;
    QTest::newRow("signal-3 hung up") << SIGHUP << longStep << true;
    QTest::newRow("signal-4 a step that ignores it") << SIGINT << stubbornStep << true;
    QTest::newRow("signal-5 a step that runs alone and ignores it")
        << SIGINT << stubbornStep << false;
}

void tst_BuildTrouble::isCancelledByASignal()
{
    QFETCH(const int, number);
    QFETCH(QByteArray, command);
    QFETCH(const bool, hasOutput);
    makeDesign(step("long", command.replace('>', "&gt;"), "a.txt", hasOutput ? "b.txt" : ""));
    QProcess process;
    startBuild(&process);
    const QByteArray id = stepId();
    QCOMPARE(::kill(pid_t(process.processId()), number), 0);
    QVERIFY(process.waitForFinished(patient(30'000)));
    QCOMPARE(process.exitStatus(), QProcess::CrashExit);
    QCOMPARE(process.exitCode(), number);
    QVERIFY(!isAlive(id));
    QCOMPARE(process.readAllStandardOutput(), QByteArray());
    QCOMPARE(process.readAllStandardError(),
             QByteArray("Warning: The build \"Main\" of design \"soft\" was cancelled\n"));
}

void tst_BuildTrouble::endsAtOnceAtTheSecondSignal()
{
    makeDesign(step("long", QByteArray(stubbornStep).replace('>', "&gt;")));
    QProcess process;
    startBuild(&process);
    const QByteArray id = stepId();
    QCOMPARE(::kill(pid_t(process.processId()), SIGINT), 0);
    // It is caught once; as soon as it is not, the next one counts.
    QTRY_VERIFY(!catches(process.processId(), SIGINT));
    QCOMPARE(::kill(pid_t(process.processId()), SIGINT), 0);
    QVERIFY(process.waitForFinished(patient(30'000)));
    QCOMPARE(process.exitCode(), SIGINT);
    QCOMPARE(process.readAllStandardError(), QByteArray());
    ::kill(pid_t(id.trimmed().toInt()), SIGKILL);
}

void tst_BuildTrouble::ignoresASignalThatItWasToldToIgnore()
{
    makeDesign(
        step("long", "echo $$ &gt; pid; touch there; while [ -e there ]; do sleep 0.01; done"));
    QProcess process;
    startBuild(&process, u"trap '' HUP; exec \"$0\" \"$@\""_s);
    QCOMPARE(::kill(pid_t(process.processId()), SIGHUP), 0);
    QVERIFY(QFile::remove(inDesign(u"there"_s)));
    QVERIFY(process.waitForFinished(patient(30'000)));
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.readAllStandardOutput(),
             QByteArray("Build configuration completed successfully\n"));
}

void tst_BuildTrouble::endsWhatStepsLeaveRunning()
{
    makeDesign(
        step("careless", "sleep 1000 &amp; echo $! &gt; pid; cp a.txt b.txt", "a.txt", "b.txt"));
    const Ended ended = program->run(words());
    const QByteArray id = stepId().trimmed();
    QCOMPARE(ended,
             (Ended {0, "Build configuration completed successfully\n",
                     "Warning: The steps left processes behind, which were ended: sleep (" + id
                         + ")\n"}));
    QVERIFY(!isAlive(id));
}

void tst_BuildTrouble::saysThatTheTargetPathIsClosed()
{
    makeDesign(step("copy", "cp a.txt $(OUTPUTS)", "a.txt", "$(TARGET_PATH)/b.txt"));
    program->dropPrivileges = true;
    const QString target = inDesign(u"build/Main"_s);
    QVERIFY(QDir().mkpath(target));
    QVERIFY(QFile::setPermissions(target, QFile::ReadOwner | QFile::ExeOwner));
    const Ended ended =
        program->run(words(u"list [catch {build run} answer] $answer [build get run_state]"_s));
    QVERIFY(QFile::setPermissions(target, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    QCOMPARE(ended,
             (Ended {0, "1 {Build configuration run failed} Failed\n",
                     "Error: Cannot write \"" + target.toUtf8()
                         + "/build.ninja\": Permission denied\nError: The build \"Main\" of design "
                           "\"soft\" failed\n"}));
    QVERIFY(QDir(target).isEmpty());
}

void tst_BuildTrouble::saysWhichProgramIsMissing_data()
{
    QTest::addColumn<QByteArray>("settings");
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<QByteArray>("shown");
    QTest::newRow("program-1 of a step")
        << QByteArray() << QByteArray("no-such-tool a.txt") << QByteArray("no-such-tool a.txt");
    QTest::newRow("program-2 a launcher")
        << QByteArray("[Builds]\nlauncher=no-such-tool -c 1\n") << QByteArray("true")
        << QByteArray("no-such-tool -c 1 true");
}

void tst_BuildTrouble::saysWhichProgramIsMissing()
{
    QFETCH(const QByteArray, settings);
    QFETCH(const QByteArray, command);
    QFETCH(const QByteArray, shown);
    program->write(u"session/settings.ini"_s, settings);
    makeDesign(step("call", command, "a.txt", "b.txt"));
    const Ended ended = program->run(words());
    QCOMPARE(ended.status, 1);
    const QByteArray folder = program->path(u"soft"_s).toUtf8();
    QCOMPARE(ended.err,
             "Error: FAILED: " + folder + "/b.txt \nError: cd " + folder + " || exit; " + shown
                 + "\nError: /bin/sh: 1: no-such-tool: not found\n"
                   "Error: The build \"Main\" of design \"soft\" failed in \"call\"\n"
                   "Build configuration run failed\n");
}

void tst_BuildTrouble::takesOddNamesOfConfigurations_data()
{
    QTest::addColumn<QByteArray>("name");
    for (const char *name : {"a blank", "it's \"quoted\"", "$HOME [exit]", "$(SHELL) $(OUTPUTS)",
                             "%HOME%", "${HOME}", "back\\slash", "-x", "ä€", "*?", "#", "~"})
        QTest::newRow(name) << QByteArray(name);
}

void tst_BuildTrouble::takesOddNamesOfConfigurations()
{
    QFETCH(const QByteArray, name);
    makeDesign({});
    program->environment.insert(u"NAME"_s, QString::fromUtf8(name));
    const Ended ended = program->run(words(
        u"set n $env(NAME); morvalen configuration add $n; "
        "morvalen step add $n $n -command {cp a.txt $(OUTPUTS)} -inputs a.txt "
        "-outputs {{$(TARGET_PATH)/o}}; morvalen macro set $n SHELL wrong; "
        "morvalen build -configuration $n; set o [lindex [morvalen files] end]; "
        "list [expr {$n in [morvalen configuration list]}] "
        "[expr {$n in [morvalen step list $n]}] [string equal [lindex [split $o /] end-1] $n] "
        "[files contains $o] [file exists $o]"_s));
    QCOMPARE(ended, (Ended {0, "1 1 1 true 1\n", ""}));
    QCOMPARE(Program::read(inDesign(u"build/"_s + QString::fromUtf8(name) + u"/o"_s)),
             QByteArray("a"));
}

// What runs is what was planned; its configuration may change meanwhile, but not go.
void tst_BuildTrouble::keepsTheConfigurationThatRuns()
{
    makeDesign(step("wait",
                    "touch there; while [ ! -e go ]; do sleep 0.01; done; cp a.txt $(OUTPUTS)",
                    "a.txt", "$(TARGET_PATH)/b.txt"));
    const Ended ended =
        program->runScript("designs add [lindex $argv 0]\n"
                           "proc try {args} { puts \"[catch $args answer] $answer\" }\n"
                           "proc look {} {\n"
                           "  if {![file exists soft/there]} { after 20 look; return }\n"
                           "  try morvalen configuration remove Main\n"
                           "  try morvalen reload -discard\n"
                           "  try morvalen step set Main wait -command false\n"
                           "  try morvalen configuration rename Main Other\n"
                           "  close [open soft/go w]\n"
                           "}\n"
                           "after 20 look\n"
                           "try morvalen build\n"
                           "puts [file tail [morvalen files -node generated]]\n"
                           "morvalen reload -discard\n",
                           {inDesign(u"component.xml"_s)});
    QCOMPARE(ended,
             (Ended {0,
                     "1 The build \"Main\" of design \"soft\" is running\n"
                     "1 The build \"Main\" of design \"soft\" is running\n0 \n0 \n"
                     "0 v.l.soft.1.0 Completed\nb.txt\n",
                     ""}));
}

void tst_BuildTrouble::runsWithoutHandlesOfProcesses_data()
{
    QTest::addColumn<int>("reason");
    QTest::newRow("handles-1 an old kernel") << ENOSYS;
    QTest::newRow("handles-2 a container that refuses them") << EPERM;
}

void tst_BuildTrouble::runsWithoutHandlesOfProcesses()
{
    QFETCH(const int, reason);
    makeDesign(
        step("careless", "sleep 1000 &amp; echo $! &gt; pid; cp a.txt b.txt", "a.txt", "b.txt")
        + step("long", QByteArray(stubbornStep).replace('>', "&gt;"), "b.txt", "c.txt"));
    QProcess process;
    process.setChildProcessModifier([reason] { refuseHandles(reason); });
    startBuild(&process);
    const QByteArray id = stepId();
    QCOMPARE(::kill(pid_t(process.processId()), SIGINT), 0);
    QVERIFY(process.waitForFinished(patient(30'000)));
    QCOMPARE(process.exitCode(), SIGINT);
    QVERIFY(!isAlive(id));
    const QByteArray errors = process.readAllStandardError();
    QVERIFY2(errors.contains("Warning: The build \"Main\" of design \"soft\" was cancelled\n"),
             errors.constData());
    QVERIFY(QFile::exists(inDesign(u"b.txt"_s)));
}

GUILESS_TEST_CLASS(tst_BuildTrouble)
#include "tst_BuildTrouble.moc"
