#include "ConsoleUnderTest.h"
#include "tests/TestClass.h"

using namespace Qt::Literals::StringLiterals;

class tst_ConsoleCompletion : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<ConsoleUnderTest> console;

private Q_SLOTS:
    void init()
    {
        console = std::make_unique<ConsoleUnderTest>();
        console->start();
    }

    void tab_data()
    {
        QTest::addColumn<QString>("prefix");
        QTest::addColumn<QStringList>("candidates");
        QTest::addColumn<QString>("after");
        QTest::newRow("tab-none-1 inserts a tab character")
            << u"ignored"_s << QStringList() << u"Welcome\n> a bc\t|"_s;
        QTest::newRow("tab-one-1 replaces the command")
            << QString() << QStringList {u"abcdef"_s} << u"Welcome\n> abcdef|"_s;
        QTest::newRow("tab-one-2 keeps the prefix")
            << u"a "_s << QStringList {u"bcd"_s} << u"Welcome\n> a bcd|"_s;
        QTest::newRow("tab-one-3 an empty candidate leaves the prefix")
            << u"a "_s << QStringList {QString()} << u"Welcome\n> a |"_s;
        QTest::newRow("tab-several-1 lists them and leaves what they share")
            << QString() << QStringList({u"abc1"_s, u"abc2"_s})
            << u"Welcome\n> a bc\nabc1, abc2\n> abc|"_s;
        QTest::newRow("tab-several-2 keeps the prefix")
            << u"a "_s << QStringList({u"bcd"_s, u"bce"_s, u"bc"_s})
            << u"Welcome\n> a bc\nbcd, bce, bc\n> a bc|"_s;
        QTest::newRow("tab-several-3 nothing shared")
            << u"a "_s << QStringList({u"x"_s, u"y"_s}) << u"Welcome\n> a bc\nx, y\n> a |"_s;
        QTest::newRow("tab-several-4 an empty one among them")
            << QString() << QStringList({u"x"_s, QString(), u"xy"_s})
            << u"Welcome\n> a bc\nx, , xy\n> |"_s;
        QTest::newRow("tab-several-5 a shorter one first")
            << QString() << QStringList({u"ab"_s, u"abc"_s, u"abcd"_s})
            << u"Welcome\n> a bc\nab, abc, abcd\n> ab|"_s;
        QTest::newRow("tab-several-6 markup is text")
            << QString() << QStringList({u"<b>1</b>"_s, u"<b>2</b>"_s})
            << u"Welcome\n> a bc\n<b>1</b>, <b>2</b>\n> <b>|"_s;
    }

    void tab()
    {
        QFETCH(QString, prefix);
        QFETCH(QStringList, candidates);
        QTest::keyClicks(console.get(), u"a bc"_s);
        QString asked;
        console->suggest = [&](const QString &cmd, QString &given) {
            asked = cmd;
            given = prefix;
            return candidates;
        };
        QTest::keyClick(console.get(), Qt::Key_Tab);
        QTEST(console->picture(), "after");
        QCOMPARE(asked, u"a bc"_s);
        QCOMPARE(console->history, QStringList());
    }

    void thePrefixStartsEmpty()
    {
        QString prefix = u"not asked"_s;
        console->suggest = [&](const QString &, QString &given) {
            prefix = given;
            return QStringList {u"abc"_s};
        };
        QTest::keyClick(console.get(), Qt::Key_Tab);
        QCOMPARE(prefix, QString());
        QCOMPARE(console->picture(), u"Welcome\n> abc|"_s);
    }

    void candidatesAreGreenAndWhatFollowsIsNot()
    {
        console->suggest = [](const QString &, QString &) {
            return QStringList({u"abc1"_s, u"abc2"_s});
        };
        QTest::keyClick(console.get(), Qt::Key_Tab);
        QTest::keyClicks(console.get(), u"x"_s);
        QCOMPARE(coloursOf(*console),
                 u"none:Welcome/#000000:> /#008000:abc1, abc2/#000000:> abcx/"_s);
    }

    void undoTakesTheCompletionBackButNotTheList()
    {
        console->suggest = [](const QString &, QString &) {
            return QStringList({u"abc1"_s, u"abc2"_s});
        };
        QTest::keyClick(console.get(), Qt::Key_Tab);
        console->undo();
        QCOMPARE(console->toPlainText(), u"Welcome\n> \nabc1, abc2\n> "_s);
        console->undo();
        QCOMPARE(console->toPlainText(), u"Welcome\n> \nabc1, abc2\n> "_s);
    }

    void aCommandOfSeveralLinesKeepsItsLines()
    {
        console->complete = [](const QString &command) { return command.contains(u'}'); };
        console->suggest = [](const QString &cmd, QString &prefix) {
            prefix = cmd.first(cmd.lastIndexOf(u'\n') + 1);
            return QStringList({u"abc1"_s, u"abc2"_s});
        };
        QTest::keyClicks(console.get(), u"if {"_s);
        QTest::keyClick(console.get(), Qt::Key_Return);
        QTest::keyClicks(console.get(), u"ab"_s);
        QTest::keyClick(console.get(), Qt::Key_Tab);
        QCOMPARE(console->picture(), u"Welcome\n> if {\nab\nabc1, abc2\n> if {\nabc|"_s);
        QCOMPARE(console->getCurrentCommand(), u"if {\nabc"_s);
    }
};

TEST_CLASS(tst_ConsoleCompletion)
#include "tst_ConsoleCompletion.moc"
