// Builds that are handed to Slurm, in both ways that docs/farm.md describes. Wants a cluster that
// it may use as it likes; scripts/with-slurm starts one.

#include "tests/patience.h"
#include "tests/process/builds/buildcomponent.h"
#include "tests/process/Program.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTest>

#include <csignal>

using namespace Qt::Literals::StringLiterals;

namespace {

// A cluster takes its time.
constexpr int longTime = patient(20'000);

// One allocation, and a request for each step in it.
const QByteArray stepByStep = "[Builds]\njobs=16\nallocation=salloc --quiet -n 16\n"
                              "launcher=srun --quiet --exact -n 1 -c 1\n";
// Ninja itself on a node, and no request for a step. Its own choice of jobs is by the processors
// that the machine really has.
const QByteArray onANode = "[Builds]\njobs=16\nallocation=srun --quiet -N 1 -c 16\n";

QByteArray outputOf(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    return process.waitForFinished(longTime) ? process.readAllStandardOutput() : "failed";
}

// Jobs that wait, run or are ending.
QByteArray jobs() { return outputOf(u"squeue"_s, {u"--noheader"_s}); }

void setNodes(const QStringList &state)
{
    outputOf(u"scontrol"_s, QStringList {u"update"_s, u"nodename=ALL"_s} + state);
}

void drainNodes() { setNodes({u"state=drain"_s, u"reason=test"_s}); }

// The nodes say at once that they are idle, but the controller gives them away only when it has
// heard from each of them again, up to a second later.
void resumeNodes()
{
    setNodes({u"state=resume"_s});
    outputOf(u"srun"_s, {u"--quiet"_s, u"-N"_s, u"2"_s, u"true"_s});
}

bool isAlive(const QByteArray &id)
{
    const QByteArray stat =
        Program::read(u"/proc/%1/stat"_s.arg(QString::fromLatin1(id.trimmed())));
    return !stat.isEmpty() && !stat.contains(") Z ");
}

QByteArray waitingFor(const QByteArray &allocation)
{
    return "Warning: Waiting for \"" + allocation + "\"\n";
}

} // namespace

class tst_Slurm : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void runsTwoHundredSteps_data() { addWays(); }
    void runsTwoHundredSteps();
    void namesTheStepThatFailed_data() { addWays(); }
    void namesTheStepThatFailed();
    void runsStepsInTheirFolderAndEnvironment_data() { addWays(); }
    void runsStepsInTheirFolderAndEnvironment();
    void asksForNothingWhenNothingIsOutdated_data() { addWays(); }
    void asksForNothingWhenNothingIsOutdated();
    void leavesNoJobWhenItIsEnded_data();
    void leavesNoJobWhenItIsEnded();
    void saysWhatItWaitsForWhenNodesAreDrained_data() { addWays(); }
    void saysWhatItWaitsForWhenNodesAreDrained();
    void spreadsDesignsOverAllocations();
    void leavesNoJobWhenASpreadIsEnded_data();
    void leavesNoJobWhenASpreadIsEnded();

private:
    static void addWays();
    QString inDesign(const QString &name) const { return program->path(u"soft/"_s + name); }
    QStringList words() const
    {
        return {u"-c"_s, u"set done [designs add {%1}]; list"_s.arg(inDesign(u"component.xml"_s)),
                u"-c"_s, u"build run"_s};
    }
    // A design of these steps, and the settings.
    void prepare(const QByteArray &steps, const QByteArray &settings) const;
    void start(QProcess *process) const;
    // Three designs, a to c, of one step each, that are to be spread. Results: the words of a run.
    QStringList prepareSpread(const QByteArray &itsStep) const;

    std::unique_ptr<Program> program;
};

void tst_Slurm::addWays()
{
    QTest::addColumn<QByteArray>("settings");
    QTest::newRow("slurm-1 step by step") << stepByStep;
    QTest::newRow("slurm-2 on a node") << onANode;
}

void tst_Slurm::initTestCase()
{
    if (qEnvironmentVariableIsEmpty("SLURM_CONF"))
        QFAIL("There is no cluster: scripts/with-slurm runs this program in one.");
}

void tst_Slurm::init()
{
    program = std::make_unique<Program>();
    program->environment.insert(u"SLURM_CONF"_s, qEnvironmentVariable("SLURM_CONF"));
    program->write(u"soft/a.txt"_s, "a");
}

void tst_Slurm::cleanup() { QTRY_COMPARE_WITH_TIMEOUT(jobs(), QByteArray(), longTime); }

void tst_Slurm::prepare(const QByteArray &steps, const QByteArray &settings) const
{
    program->write(u"soft/component.xml"_s, buildComponent(steps));
    QDir().mkpath(program->session);
    QFile file(program->session + u"/settings.ini"_s);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(settings), settings.size());
}

void tst_Slurm::start(QProcess *process) const
{
    process->setProcessEnvironment(program->environment);
    process->start(QStringLiteral(PROGRAM),
                   QStringList {u"--session"_s, program->session} + words());
}

void tst_Slurm::runsTwoHundredSteps()
{
    QFETCH(const QByteArray, settings);
    QByteArray steps;
    for (int number = 0; number < 200; ++number)
        steps += step("step " + QByteArray::number(number), "echo $SLURM_JOB_ID &gt; $(OUTPUTS)",
                      "a.txt", "$(TARGET_PATH)/" + QByteArray::number(number));
    prepare(steps, settings);
    QProcess process;
    start(&process);
    QVERIFY(process.waitForFinished(2 * longTime));
    QCOMPARE(process.readAllStandardError(), QByteArray());
    QCOMPARE(process.readAllStandardOutput(),
             QByteArray("Build configuration completed successfully\n"));
    const QByteArray job = Program::read(inDesign(u"build/Main/0"_s));
    QVERIFY(job.trimmed().toInt() > 0);
    for (int number = 0; number < 200; ++number)
        QCOMPARE(Program::read(inDesign(u"build/Main/%1"_s.arg(number))), job);
}

void tst_Slurm::namesTheStepThatFailed()
{
    QFETCH(const QByteArray, settings);
    prepare(step("good", "cp a.txt b.txt", "a.txt", "b.txt")
                + step("bad", "echo wrong; exit 3", "b.txt", "c.txt")
                + step("never", "cp c.txt d.txt", "c.txt", "d.txt"),
            settings);
    QProcess process;
    start(&process);
    QVERIFY(process.waitForFinished(longTime));
    QCOMPARE(process.exitCode(), 1);
    const QByteArray errors = process.readAllStandardError();
    QVERIFY2(errors.contains("Error: wrong\n"), errors);
    QVERIFY2(errors.contains("Error: The build \"Main\" of design \"soft\" failed in \"bad\"\n"),
             errors);
    QVERIFY(QFile::exists(inDesign(u"b.txt"_s)));
    QVERIFY(!QFile::exists(inDesign(u"d.txt"_s)));
}

void tst_Slurm::runsStepsInTheirFolderAndEnvironment()
{
    QFETCH(const QByteArray, settings);
    program->environment.insert(u"GREETING"_s, u"it's \"here\""_s);
    prepare(step("say", "pwd &gt; o; echo \"$GREETING\" &gt;&gt; o; exec sort &lt; o | tee said",
                 "a.txt", "said"),
            settings);
    QProcess process;
    start(&process);
    QVERIFY(process.waitForFinished(longTime));
    QCOMPARE(process.readAllStandardError(), QByteArray());
    QCOMPARE(process.exitCode(), 0);
    const QString folder = QFileInfo(inDesign(u"component.xml"_s)).canonicalPath();
    QByteArrayList lines = Program::read(inDesign(u"said"_s)).split('\n');
    lines.removeAll(QByteArray());
    std::sort(lines.begin(), lines.end());
    QCOMPARE(lines, (QByteArrayList {folder.toUtf8(), "it's \"here\""}));
}

void tst_Slurm::asksForNothingWhenNothingIsOutdated()
{
    QFETCH(const QByteArray, settings);
    prepare(step("copy", "cp a.txt b.txt", "a.txt", "b.txt"), settings);
    QProcess first;
    start(&first);
    QVERIFY(first.waitForFinished(longTime));
    QCOMPARE(first.exitCode(), 0);
    QTRY_COMPARE_WITH_TIMEOUT(jobs(), QByteArray(), longTime);
    // Whoever asked would wait.
    drainNodes();
    QProcess second;
    start(&second);
    const bool hasEnded = second.waitForFinished(longTime);
    resumeNodes();
    QVERIFY(hasEnded);
    QCOMPARE(second.readAllStandardError(), QByteArray());
    QCOMPARE(second.readAllStandardOutput(),
             QByteArray("Build configuration completed successfully\n"));
}

void tst_Slurm::leavesNoJobWhenItIsEnded_data()
{
    QTest::addColumn<QByteArray>("settings");
    QTest::addColumn<int>("number");
    QTest::newRow("ended-1 step by step, interrupted") << stepByStep << SIGINT;
    QTest::newRow("ended-2 step by step, killed") << stepByStep << SIGKILL;
    QTest::newRow("ended-3 on a node, interrupted") << onANode << SIGINT;
    QTest::newRow("ended-4 on a node, killed") << onANode << SIGKILL;
}

void tst_Slurm::leavesNoJobWhenItIsEnded()
{
    QFETCH(const QByteArray, settings);
    QFETCH(const int, number);
    QByteArray steps;
    for (const QByteArray name : {"1", "2", "3"})
        steps +=
            step(name, "echo $$ &gt; pid" + name + "; sleep 1000; touch " + name, "a.txt", name);
    prepare(steps, settings);
    QProcess process;
    start(&process);
    for (const QString &name : {u"pid1"_s, u"pid2"_s, u"pid3"_s})
        QTRY_VERIFY_WITH_TIMEOUT(!Program::read(inDesign(name)).isEmpty(), longTime);
    QVERIFY(!jobs().isEmpty());
    QCOMPARE(::kill(pid_t(process.processId()), number), 0);
    QVERIFY(process.waitForFinished(longTime));
    QTRY_COMPARE_WITH_TIMEOUT(jobs(), QByteArray(), longTime);
    for (const QString &name : {u"pid1"_s, u"pid2"_s, u"pid3"_s})
        QTRY_VERIFY_WITH_TIMEOUT(!isAlive(Program::read(inDesign(name))), longTime);
    if (number == SIGINT)
        QVERIFY(process.readAllStandardError().endsWith(
            "Warning: The build \"Main\" of design \"soft\" was cancelled\n"));
}

QStringList tst_Slurm::prepareSpread(const QByteArray &itsStep) const
{
    program->write(u"session/settings.ini"_s, "[Builds]\nallocation=srun --quiet -N 1 -c 4\n");
    QString open;
    for (const QByteArray name : {"a", "b", "c"}) {
        const QString folder = QString::fromLatin1(name);
        program->write(
            folder + u"/component.xml"_s,
            buildComponent(itsStep).replace("<ipxact:name>soft", "<ipxact:name>" + name));
        open += u"designs add {%1}; "_s.arg(program->path(folder + u"/component.xml"_s));
    }
    return {u"-c"_s, open + u"morvalen build -all -spread 2"_s};
}

void tst_Slurm::spreadsDesignsOverAllocations()
{
    const Ended ended =
        program->run(prepareSpread(step("say", "echo $SLURM_JOB_ID &gt; $(OUTPUTS)", {}, "job")));
    QCOMPARE(ended,
             (Ended {0, "v.l.a.1.0 Completed v.l.b.1.0 Completed v.l.c.1.0 Completed\n", ""}));
    QSet<QByteArray> allocations;
    for (const QString &name : {u"a"_s, u"b"_s, u"c"_s})
        allocations.insert(Program::read(program->path(name + u"/job"_s)));
    QCOMPARE(allocations.size(), 3);
}

void tst_Slurm::leavesNoJobWhenASpreadIsEnded_data()
{
    QTest::addColumn<int>("number");
    QTest::newRow("spread-1 interrupted") << SIGINT;
    QTest::newRow("spread-2 killed") << SIGKILL;
}

void tst_Slurm::leavesNoJobWhenASpreadIsEnded()
{
    QFETCH(const int, number);
    const QStringList all =
        prepareSpread(step("wait", "echo $$ &gt; pid; sleep 1000; touch $(OUTPUTS)", {}, "o"));
    QProcess process;
    process.setProcessEnvironment(program->environment);
    process.start(QStringLiteral(PROGRAM), QStringList {u"--session"_s, program->session} + all);
    const QStringList begun {program->path(u"a/pid"_s), program->path(u"b/pid"_s)};
    for (const QString &path : begun)
        QTRY_VERIFY_WITH_TIMEOUT(!Program::read(path).isEmpty(), longTime);
    QCOMPARE(jobs().count('\n'), 2);
    QCOMPARE(::kill(pid_t(process.processId()), number), 0);
    QVERIFY(process.waitForFinished(longTime));
    QTRY_COMPARE_WITH_TIMEOUT(jobs(), QByteArray(), longTime);
    for (const QString &path : begun)
        QTRY_VERIFY_WITH_TIMEOUT(!isAlive(Program::read(path)), longTime);
    QVERIFY(!QFile::exists(program->path(u"c/pid"_s)));
}

void tst_Slurm::saysWhatItWaitsForWhenNodesAreDrained()
{
    QFETCH(const QByteArray, settings);
    prepare(step("copy", "cp a.txt b.txt", "a.txt", "b.txt"), settings);
    drainNodes();
    QProcess process;
    QByteArray errors;
    connect(&process, &QProcess::readyReadStandardError, &process,
            [&] { errors += process.readAllStandardError(); });
    start(&process);
    const QByteArray allocation =
        settings.mid(settings.indexOf("allocation=") + 11).split('\n').first();
    const QByteArray expected = waitingFor(allocation);
    const auto hasWaited = [&] { return errors.contains(expected); };
    const bool waited = QTest::qWaitFor(hasWaited, longTime);
    const QByteArray queue = jobs();
    ::kill(pid_t(process.processId()), SIGINT);
    const bool hasEnded = process.waitForFinished(longTime);
    resumeNodes();
    QVERIFY2(waited, errors);
    QVERIFY2(!queue.isEmpty(), "the allocation is waited for");
    QVERIFY(hasEnded);
    QVERIFY(!QFile::exists(inDesign(u"b.txt"_s)));
}

QTEST_GUILESS_MAIN(tst_Slurm)
#include "tst_Slurm.moc"
