#include "console/CommandHistory.h"
#include "tests/TestClass.h"

#include <QtTest>

using namespace Qt::Literals::StringLiterals;

// The entries of the history, and the walk through them.
class tst_CommandHistory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anEntryIsOneLine();
    void theWalkEndsAtTheOldestAndTheNewest();
    void equalEntriesAreSkipped();
    void aCommandBeginsTheWalkAnew();
    void clearing();
};

void tst_CommandHistory::anEntryIsOneLine()
{
    CommandHistory history;
    QVERIFY(history.isEmpty());
    QCOMPARE(history.add(u"if 1 {\n  a\n}"_s), u"if 1 {\\n  a\\n}"_s);
    QCOMPARE(history.add(QString()), QString());
    QCOMPARE(history.entries, QStringList({u"if 1 {\\n  a\\n}"_s, QString()}));
    QVERIFY(!history.isEmpty());
}

void tst_CommandHistory::theWalkEndsAtTheOldestAndTheNewest()
{
    CommandHistory history;
    for (const QString &command : {u"a"_s, u"b"_s, u"c"_s})
        history.add(command);
    QString shown;
    QStringList seen;
    for (int i = 0; i < 4; ++i)
        seen << (shown = history.older(shown));
    QCOMPARE(seen, QStringList({u"c"_s, u"b"_s, u"a"_s, u"a"_s}));
    seen.clear();
    for (int i = 0; i < 4; ++i)
        seen << (shown = history.newer(shown));
    QCOMPARE(seen, QStringList({u"b"_s, u"c"_s, u"c"_s, u"c"_s}));
}

void tst_CommandHistory::equalEntriesAreSkipped()
{
    CommandHistory history;
    for (const QString &command : {u"a"_s, u"b"_s, u"b"_s, u"c"_s})
        history.add(command);
    QCOMPARE(history.older(u"c"_s), u"b"_s);
    QCOMPARE(history.older(u"b"_s), u"a"_s);
    QCOMPARE(history.newer(u"a"_s), u"b"_s);
    QCOMPARE(history.newer(u"b"_s), u"c"_s);
    QCOMPARE(history.index, 3);
}

void tst_CommandHistory::aCommandBeginsTheWalkAnew()
{
    CommandHistory history;
    history.add(u"a"_s);
    history.add(u"b"_s);
    history.older(QString());
    history.older(u"b"_s);
    QCOMPARE(history.index, 0);
    history.add(u"c"_s);
    QCOMPARE(history.index, 3);
    QCOMPARE(history.older(QString()), u"c"_s);
}

void tst_CommandHistory::clearing()
{
    CommandHistory history;
    history.add(u"a"_s);
    history.clear();
    QVERIFY(history.isEmpty());
    QCOMPARE(history.index, 0);
}

TEST_CLASS(tst_CommandHistory)
#include "tst_CommandHistory.moc"
