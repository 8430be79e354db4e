#include "ConsoleUnderTest.h"
#include "tests/TestClass.h"

using namespace Qt::Literals::StringLiterals;

// What enters the history, and walking it.
class tst_ConsoleHistory : public QObject
{
    Q_OBJECT

private:
    void press(Qt::Key key) { QTest::keyClick(console.get(), key); }
    QString line() const { return console->getCurrentCommand(); }

    std::unique_ptr<ConsoleUnderTest> console;

private Q_SLOTS:
    void init()
    {
        console = std::make_unique<ConsoleUnderTest>();
        console->start();
    }

    void anEmptyHistoryChangesNothing()
    {
        QTest::keyClicks(console.get(), u"abc"_s);
        for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Down}) {
            press(key);
            QCOMPARE(console->picture(), u"Welcome\n> abc|"_s);
        }
        press(Qt::Key_Home);
        QCOMPARE(console->picture(), u"Welcome\n> |abc"_s);
    }

    void upStopsAtTheOldestAndDownAtTheNewest()
    {
        for (const QString &command : {u"one"_s, u"two"_s, u"three"_s})
            console->execCommand(command, true, true, nullptr);
        const QStringList up {u"three"_s, u"two"_s, u"one"_s, u"one"_s, u"one"_s};
        for (const QString &expected : up) {
            press(Qt::Key_Up);
            QCOMPARE(line(), expected);
        }
        const QStringList down {u"two"_s, u"three"_s, u"three"_s, u"three"_s};
        for (const QString &expected : down) {
            press(Qt::Key_Down);
            QCOMPARE(line(), expected);
        }
        press(Qt::Key_Up);
        QCOMPARE(line(), u"two"_s);
    }

    void downOnAFreshPromptShowsTheNewest()
    {
        console->execCommand(u"one"_s, true, true, nullptr);
        console->execCommand(u"two"_s, true, true, nullptr);
        press(Qt::Key_Down);
        QCOMPARE(line(), u"two"_s);
    }

    void entriesEqualToTheLineAreSkipped()
    {
        console->history = {u"a"_s, u"b"_s, u"b"_s, u"c"_s, u"c"_s};
        console->historyIndex = 5;
        const QStringList up {u"c"_s, u"b"_s, u"a"_s};
        for (const QString &expected : up) {
            press(Qt::Key_Up);
            QCOMPARE(line(), expected);
        }
        const QStringList down {u"b"_s, u"c"_s, u"c"_s};
        for (const QString &expected : down) {
            press(Qt::Key_Down);
            QCOMPARE(line(), expected);
        }
    }

    void allEntriesEqualToTheLineEndAtTheOldest()
    {
        console->history = {u"a"_s, u"a"_s};
        console->historyIndex = 2;
        QTest::keyClicks(console.get(), u"a"_s);
        press(Qt::Key_Up);
        QCOMPARE(console->historyIndex, 0);
        QCOMPARE(console->picture(), u"Welcome\n> a|"_s);
        press(Qt::Key_Down);
        QCOMPARE(console->historyIndex, 1);
        QCOMPARE(console->picture(), u"Welcome\n> a|"_s);
    }

    void homePutsTheCursorBehindThePromptAndActsAsDown()
    {
        console->history = {u"one"_s, u"two"_s};
        console->historyIndex = 0;
        QTest::keyClicks(console.get(), u"abc"_s);
        press(Qt::Key_Home);
        QCOMPARE(console->picture(), u"Welcome\n> two|"_s);
        QCOMPARE(console->historyIndex, 1);
    }

    void theWalkBeginsAtTheEndAfterEachCommand()
    {
        console->execCommand(u"one"_s, true, true, nullptr);
        console->execCommand(u"two"_s, true, true, nullptr);
        press(Qt::Key_Up);
        press(Qt::Key_Up);
        QCOMPARE(console->historyIndex, 0);
        press(Qt::Key_Return);
        QCOMPARE(console->history, QStringList({u"one"_s, u"two"_s, u"one"_s}));
        QCOMPARE(console->historyIndex, 3);
        press(Qt::Key_Up);
        QCOMPARE(line(), u"one"_s);
        press(Qt::Key_Up);
        QCOMPARE(line(), u"two"_s);
    }

    void lineFeedsAreABackslashAndTheLetterN()
    {
        console->execCommand(u"if 1 {\n  a\n}"_s, true, true, nullptr);
        QCOMPARE(console->history, QStringList {u"if 1 {\\n  a\\n}"_s});
        press(Qt::Key_Up);
        QCOMPARE(line(), u"if 1 {\\n  a\\n}"_s);
    }

    void everyCommandEntersTheHistoryAndOnlyGoodOnesTheScript()
    {
        QSignalSpy executed(console.get(), &QConsole::commandExecuted);
        console->run = [](const QString &command, int *res) {
            *res = command == u"bad"_s ? 1 : 0;
            return QString();
        };
        for (const QString &command : {u"good"_s, u"bad"_s, u"two\nlines"_s})
            console->execCommand(command, true, true, nullptr);
        QCOMPARE(console->history, QStringList({u"good"_s, u"bad"_s, u"two\\nlines"_s}));
        QCOMPARE(console->recordedScript, QStringList({u"good"_s, u"two\nlines"_s}));
        QCOMPARE(executed.size(), 3);
        QCOMPARE(executed.at(0), QVariantList {u"good"_s});
        QCOMPARE(executed.at(1), QVariantList {u"bad"_s});
        QCOMPARE(executed.at(2), QVariantList {u"two\\nlines"_s});
    }

    void theBaseKnowsNoLanguage()
    {
        QConsole plain(nullptr, u"Welcome"_s);
        QVERIFY(plain.isCommandComplete(u"{"_s));
        int res = 7;
        QCOMPARE(plain.interpretCommand(u"x"_s, &res), QString());
        QCOMPARE(res, 7);
        QString prefix = u"old"_s;
        QCOMPARE(plain.suggestCommand(u"x"_s, prefix), QStringList());
        QCOMPARE(prefix, QString());
    }
};

TEST_CLASS(tst_ConsoleHistory)
#include "tst_ConsoleHistory.moc"
