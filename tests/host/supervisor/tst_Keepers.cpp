#include "supervision/Table.h"
#include "supervision/waiting.h"

#include <QTest>

using namespace Supervision;

namespace {

constexpr pid_t ninja = 10;
constexpr ino_t output = 100;
constexpr ino_t otherOutput = 101;

Process process(pid_t id, pid_t parent, bool isAlive = true)
{
    Process made;
    made.id = id;
    made.parent = parent;
    made.isAlive = isAlive;
    return made;
}

PipeHolder orphan(std::set<ino_t> written) { return {process(20, 1), {{}, written, true}}; }
PipeHolder step(std::set<ino_t> written) { return {process(30, ninja), {{}, written, true}}; }
PipeHolder endedStep() { return {process(31, ninja, false), {{}, {}, false}}; }
PipeHolder hiddenStep() { return {process(32, ninja), {{}, {}, false}}; }

} // namespace

Q_DECLARE_METATYPE(Supervision::Scene)

// Who keeps Ninja waiting, and who only seems to.
class tst_Keepers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tellsKeepersFromOthers_data();
    void tellsKeepersFromOthers();
    void findsWhatIsBelow();
    void endsWithACircle();
};

void tst_Keepers::tellsKeepersFromOthers_data()
{
    QTest::addColumn<Scene>("scene");
    QTest::addColumn<bool>("keeps");
    const Pipes reading {{output, otherOutput}, {}, true};
    QTest::newRow("keeper-1 its step has ended")
        << Scene {{orphan({output})}, reading, {endedStep()}} << true;
    QTest::newRow("keeper-2 its step is gone") << Scene {{orphan({output})}, reading, {}} << true;
    QTest::newRow("keeper-3 another step runs")
        << Scene {{orphan({output})}, reading, {endedStep(), step({otherOutput})}} << true;
    QTest::newRow("keeper-4 it holds more than the output")
        << Scene {{orphan({7, output, 800})}, reading, {endedStep()}} << true;
    QTest::newRow("healthy-1 its step runs")
        << Scene {{orphan({output})}, reading, {step({output})}} << false;
    QTest::newRow("healthy-2 its step runs, another has ended")
        << Scene {{orphan({output})}, reading, {endedStep(), step({output})}} << false;
    QTest::newRow("healthy-3 a running step has closed its output")
        << Scene {{orphan({output})}, reading, {endedStep(), step({})}} << false;
    QTest::newRow("healthy-4 a running step writes into a pipe of its own only")
        << Scene {{orphan({output})}, reading, {endedStep(), step({900})}} << false;
    QTest::newRow("healthy-5 a running step cannot be looked at")
        << Scene {{orphan({output})}, reading, {endedStep(), hiddenStep()}} << false;
    QTest::newRow("healthy-6 it holds no output")
        << Scene {{orphan({900})}, reading, {endedStep()}} << false;
    QTest::newRow("healthy-7 it reads where Ninja does")
        << Scene {{{process(20, 1), {{output}, {}, true}}}, reading, {endedStep()}} << false;
    QTest::newRow("healthy-8 nothing is left behind")
        << Scene {{}, reading, {endedStep()}} << false;
}

void tst_Keepers::tellsKeepersFromOthers()
{
    QFETCH(const Scene, scene);
    QFETCH(const bool, keeps);
    const std::vector<Process> keepers = keepersIn(scene);
    QCOMPARE(keepers.size(), size_t(keeps ? 1 : 0));
    if (keeps)
        QCOMPARE(keepers.front().id, 20);
}

void tst_Keepers::findsWhatIsBelow()
{
    const Table table({process(1, 0), process(5, 4), process(2, 1), process(4, 2), process(3, 1)});
    std::vector<pid_t> found;
    for (const Process &below : table.below(1))
        found.push_back(below.id);
    QCOMPARE(found, (std::vector<pid_t> {2, 3, 4, 5}));
    QCOMPARE(table.below(1, 2).size(), size_t(1));
    QCOMPARE(table.below(1, 2).front().id, 3);
    QCOMPARE(table.childrenOf(4).front().id, 5);
    QVERIFY(table.below(7).empty());
}

void tst_Keepers::endsWithACircle()
{
    const Table table({process(2, 3), process(3, 2)});
    QVERIFY(table.below(2).size() < 10);
}

QTEST_GUILESS_MAIN(tst_Keepers)
#include "tst_Keepers.moc"
