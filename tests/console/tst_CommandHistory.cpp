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
    void commandsComeBackAsTheyWereTyped();
    void entriesThatWereChangedCountAsTheyAre();
    void whatWasTypedBeforeTheWalkComesBack();
    void theWayBackSkipsWhatIsShown();
    void searching();
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

void tst_CommandHistory::commandsComeBackAsTheyWereTyped()
{
    CommandHistory history;
    history.setRecallsAsTyped(true);
    history.add(u"proc p {} {\n  puts a\\nb\n}"_s);
    history.add(u"puts a\\nb"_s);
    QCOMPARE(history.older(QString()), u"puts a\\nb"_s);
    QCOMPARE(history.older(u"puts a\\nb"_s), u"proc p {} {\n  puts a\\nb\n}"_s);
    QCOMPARE(history.entries.at(0), u"proc p {} {\\n  puts a\\nb\\n}"_s);
    QCOMPARE(history.newer(u"proc p {} {\n  puts a\\nb\n}"_s), u"puts a\\nb"_s);
    history.setRecallsAsTyped(false);
    QCOMPARE(history.command(0), u"proc p {} {\\n  puts a\\nb\\n}"_s);
}

void tst_CommandHistory::entriesThatWereChangedCountAsTheyAre()
{
    CommandHistory history;
    history.setRecallsAsTyped(true);
    history.add(u"a\nb"_s);
    history.entries = {u"other"_s};
    QCOMPARE(history.older(QString()), u"other"_s);
}

void tst_CommandHistory::whatWasTypedBeforeTheWalkComesBack()
{
    CommandHistory history;
    history.setRecallsAsTyped(true);
    history.add(u"a"_s);
    history.add(u"b"_s);
    QCOMPARE(history.newer(u"half"_s), u"half"_s);
    QCOMPARE(history.older(u"half"_s), u"b"_s);
    QCOMPARE(history.older(u"b"_s), u"a"_s);
    QCOMPARE(history.newer(u"a"_s), u"b"_s);
    QCOMPARE(history.newer(u"b"_s), u"half"_s);
    QCOMPARE(history.newer(u"half"_s), u"half"_s);
    QCOMPARE(history.older(u"b"_s), u"a"_s);
    history.add(u"c"_s);
    QCOMPARE(history.older(QString()), u"c"_s);
    QCOMPARE(history.newer(u"c"_s), QString());
}

void tst_CommandHistory::theWayBackSkipsWhatIsShown()
{
    CommandHistory history;
    history.setRecallsAsTyped(true);
    for (const QString &command : {u"a"_s, u"b"_s, u"b"_s})
        history.add(command);
    QCOMPARE(history.older(u"half"_s), u"b"_s);
    QCOMPARE(history.older(u"b"_s), u"a"_s);
    QCOMPARE(history.newer(u"a"_s), u"b"_s);
    QCOMPARE(history.newer(u"b"_s), u"half"_s);
}

void tst_CommandHistory::searching()
{
    CommandHistory history;
    for (const QString &command : {u"set x 1"_s, u"puts X"_s, u"if 1 {\nset x 2\n}"_s, u"exit"_s})
        history.add(command);
    QCOMPARE(history.findOlder(u"set"_s, 4), 2);
    QCOMPARE(history.findOlder(u"set"_s, 2), 0);
    QCOMPARE(history.findOlder(u"set"_s, 0), -1);
    QCOMPARE(history.findOlder(u"x"_s, 2), 1);
    QCOMPARE(history.findOlder(u"y"_s, 99), -1);
}

TEST_CLASS(tst_CommandHistory)
#include "tst_CommandHistory.moc"
