#include "design/ProcessingCycles.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::ProcessingCycles;

// Each row is a walk, a letter a step: c changes, b begins a cycle, e ends one and notifies, q ends
// one quietly. A digit in the expected text is how often was told up to there.
class tst_ProcessingCycles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tells_data();
    void tells();
};

void tst_ProcessingCycles::tells_data()
{
    QTest::addColumn<QString>("walk");
    QTest::addColumn<QString>("expected");
    QTest::newRow("cycle-none-1 a change is told at once") << u"c"_s << u"1"_s;
    QTest::newRow("cycle-none-2 each one") << u"cc"_s << u"12"_s;
    QTest::newRow("cycle-one-1 once for all, at the end") << u"bcce"_s << u"0001"_s;
    QTest::newRow("cycle-one-2 nothing changed, nothing told") << u"be"_s << u"00"_s;
    QTest::newRow("cycle-one-3 at once again behind it") << u"bcec"_s << u"0012"_s;
    QTest::newRow("cycle-quiet-1 not told, not even later") << u"bcqbe"_s << u"00000"_s;
    QTest::newRow("cycle-nested-1 the outermost end tells") << u"bbcee"_s << u"00001"_s;
    QTest::newRow("cycle-nested-2 it decides whether") << u"bbceq"_s << u"00000"_s;
    QTest::newRow("cycle-nested-3 quiet inside, told outside") << u"bcbcqe"_s << u"000001"_s;
    QTest::newRow("cycle-ends-1 an end too many is nothing") << u"ece"_s << u"011"_s;
}

void tst_ProcessingCycles::tells()
{
    QFETCH(const QString, walk);
    int told = 0;
    ProcessingCycles cycles([&told] { ++told; });
    QString result;
    for (const QChar step : walk) {
        if (step == u'c')
            cycles.changed();
        else if (step == u'b')
            cycles.begin();
        else
            cycles.end(step == u'e');
        result += QString::number(told);
    }
    QTEST(result, "expected");
}

QTEST_GUILESS_MAIN(tst_ProcessingCycles)
#include "tst_ProcessingCycles.moc"
