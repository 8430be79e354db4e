// Random walks through everything that can arrive while something else runs.
//
// MORVALEN_WALK_SEEDS=FIRST-LAST and MORVALEN_WALK_STEPS=N make other walks than the usual ones.

#include "tests/reentrancy/RandomWalk.h"
#include "tests/stories/Story.h"
#include "tests/TestClass.h"

using namespace Qt::Literals::StringLiterals;

class tst_RandomWalk : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { story = std::make_unique<Story>(); }
    void cleanupTestCase() { story.reset(); }

    void comesToRest_data();
    void comesToRest();

private:
    std::unique_ptr<Story> story;
};

void tst_RandomWalk::comesToRest_data()
{
    QTest::addColumn<quint32>("seed");
    const QString wanted = qEnvironmentVariable("MORVALEN_WALK_SEEDS", u"1-3"_s);
    const quint32 last = wanted.section(u'-', -1).toUInt();
    for (quint32 seed = wanted.section(u'-', 0, 0).toUInt(); seed <= last; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

void tst_RandomWalk::comesToRest()
{
    QFETCH(const quint32, seed);
    const int steps = qEnvironmentVariable("MORVALEN_WALK_STEPS", u"150"_s).toInt();
    RandomWalk walk(*story, seed);
    const QString wrong = walk.go(steps);
    QVERIFY2(wrong.isEmpty(),
             qPrintable(u"after %1 steps, %2"_s.arg(walk.stepsTaken()).arg(wrong)));
}

TEST_CLASS(tst_RandomWalk)
#include "tst_RandomWalk.moc"
