#include "ConsoleUnderTest.h"
#include "tests/TestClass.h"

#include "console/PopupCompleter.h"
#include "console/PopupListWidget.h"
#include "console/SearchStrip.h"

#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>

using namespace Qt::Literals::StringLiterals;

namespace {

class FeaturedConsole : public ConsoleUnderTest
{
public:
    QStringList suggestWord(const QString &text, QString &prefix) override
    {
        return suggestNext ? suggestNext(text, prefix)
                           : ConsoleUnderTest::suggestWord(text, prefix);
    }
    std::function<QStringList(const QString &, QString &)> suggestNext;
};

} // namespace

// What a host can switch on, with the keys and texts that users see.
class tst_ConsoleFeatures : public QObject
{
    Q_OBJECT

private:
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(console.get(), key, modifiers);
    }
    void type(const QString &text) { QTest::keyClicks(console.get(), text); }
    void run(const QString &command) { console->execCommand(command, true, true, nullptr); }
    QString line() const { return console->getCurrentCommand(); }
    QScrollBar *bar() const { return console->verticalScrollBar(); }

    SearchStrip *strip() const { return console->findChild<SearchStrip *>(); }
    QLineEdit *pattern() const { return strip()->findChild<QLineEdit *>(); }
    // What the strip says: its title and its note.
    QString stripText() const
    {
        QStringList texts;
        for (const QLabel *label : strip()->findChildren<QLabel *>())
            texts += label->text();
        return texts.join(u'|');
    }
    void openStrip(Qt::Key key)
    {
        press(key, Qt::ControlModifier);
        QVERIFY(strip());
        QVERIFY(pattern()->hasFocus());
    }
    // Does something in the popup that Tab opens.
    void tabAndThen(const std::function<void(PopupCompleter *, PopupListWidget *)> &act)
    {
        bool opened = false;
        QTimer::singleShot(0, console.get(), [&] {
            auto *popup = console->findChild<PopupCompleter *>();
            QVERIFY(popup);
            QVERIFY(QTest::qWaitForWindowExposed(popup));
            opened = true;
            act(popup, popup->findChild<PopupListWidget *>());
        });
        press(Qt::Key_Tab);
        QVERIFY(opened);
    }

    std::unique_ptr<FeaturedConsole> console;

private Q_SLOTS:
    void init()
    {
        console = std::make_unique<FeaturedConsole>();
        console->setFeatures(QConsole::AllFeatures);
        console->start();
    }

    void aProcedureComesBackInItsLines()
    {
        const QString procedure = u"proc p {} {\n  puts hi\n}"_s;
        run(procedure);
        press(Qt::Key_Up);
        QCOMPARE(line(), procedure);
        QCOMPARE(console->picture(),
                 u"Welcome\n> proc p {} {\n  puts hi\n}\n> proc p {} {\n  puts hi\n}|"_s);
        QCOMPARE(console->history, QStringList {u"proc p {} {\\n  puts hi\\n}"_s});
        press(Qt::Key_Return);
        QCOMPARE(console->recordedScript, QStringList({procedure, procedure}));
    }

    void linesOfARecalledCommandAreEdited()
    {
        run(u"old"_s);
        run(u"if 1 {\n  a\n}"_s);
        press(Qt::Key_Up);
        press(Qt::Key_Up);
        QVERIFY(console->picture().endsWith(u"> if 1 {\n | a\n}"_s));
        press(Qt::Key_End);
        type(u"bc"_s);
        press(Qt::Key_Return, Qt::ShiftModifier);
        type(u"  d"_s);
        QCOMPARE(line(), u"if 1 {\n  abc\n  d\n}"_s);
        press(Qt::Key_Home);
        QVERIFY(console->picture().endsWith(u"> if 1 {\n  abc\n|  d\n}"_s));
        press(Qt::Key_Down);
        QVERIFY(console->picture().endsWith(u"  d\n|}"_s));
        press(Qt::Key_Up);
        press(Qt::Key_Up);
        press(Qt::Key_Up);
        QVERIFY(console->picture().endsWith(u"> |if 1 {\n  abc\n  d\n}"_s));
        press(Qt::Key_Up);
        QCOMPARE(line(), u"old"_s);
        press(Qt::Key_Return);
        QCOMPARE(console->history.last(), u"old"_s);
    }

    void homeStaysInItsLine()
    {
        run(u"old"_s);
        type(u"abc"_s);
        press(Qt::Key_Home);
        QVERIFY(console->picture().endsWith(u"> |abc"_s));
        type(u"x"_s);
        press(Qt::Key_End);
        press(Qt::Key_Home, Qt::ShiftModifier);
        QCOMPARE(console->textCursor().selectedText(), u"xabc"_s);
        QCOMPARE(line(), u"xabc"_s);
    }

    void theHalfTypedLineIsKept()
    {
        run(u"one"_s);
        run(u"two"_s);
        type(u"half"_s);
        press(Qt::Key_Up);
        press(Qt::Key_Up);
        QCOMPARE(line(), u"one"_s);
        press(Qt::Key_Down);
        press(Qt::Key_Down);
        QCOMPARE(line(), u"half"_s);
        press(Qt::Key_Down);
        QVERIFY(console->picture().endsWith(u"\n> half|"_s));
    }

    void pagesScrollAndTheCursorStays()
    {
        for (int i = 0; i < 200; ++i)
            run(QString::number(i));
        type(u"half"_s);
        const QString before = console->picture();
        const int end = bar()->maximum();
        QCOMPARE(bar()->value(), end);
        for (int page = 1; page <= 3; ++page) {
            press(Qt::Key_PageUp);
            QCOMPARE(bar()->value(), end - page * bar()->pageStep());
        }
        press(Qt::Key_PageDown);
        QCOMPARE(bar()->value(), end - 2 * bar()->pageStep());
        QCOMPARE(console->picture(), before);
        type(u"!"_s);
        QVERIFY(console->viewport()->rect().contains(console->cursorRect()));
        QCOMPARE(line(), u"half!"_s);
    }

    void tabIndentsAContinuationLine()
    {
        console->complete = [](const QString &command) { return command.endsWith(u'}'); };
        console->suggest = [](const QString &, QString &) {
            return QStringList {u"abc"_s, u"abd"_s};
        };
        type(u"if 1 {"_s);
        press(Qt::Key_Return);
        press(Qt::Key_Tab);
        QCOMPARE(line(), u"if 1 {\n    "_s);
        type(u" "_s);
        press(Qt::Key_Tab);
        QCOMPARE(line(), u"if 1 {\n        "_s);
        type(u"x"_s);
        press(Qt::Key_Tab);
        QVERIFY(console->toPlainText().contains(u"abc, abd"_s));
    }

    void theHistoryIsSearchedWhileOneTypes()
    {
        for (const QString &command :
             {u"set xy 1"_s, u"puts a"_s, u"set x 2\nset y"_s, u"puts b"_s})
            run(command);
        type(u"half"_s);
        openStrip(Qt::Key_R);
        QCOMPARE(stripText(), u"Search the history:|"_s);
        QTest::keyClicks(pattern(), u"set x"_s);
        QCOMPARE(line(), u"set x 2\nset y"_s);
        QTest::keyClicks(pattern(), u"y"_s);
        QCOMPARE(line(), u"set xy 1"_s);
        QTest::keyClicks(pattern(), u"?"_s);
        QCOMPARE(line(), u"set xy 1"_s);
        QCOMPARE(stripText(), u"Search the history:|not found"_s);
        QTest::keyClick(pattern(), Qt::Key_Escape);
        QTRY_VERIFY(!strip());
        QCOMPARE(line(), u"half"_s);
        QVERIFY(console->hasFocus());
        QVERIFY(console->picture().endsWith(u"\n> half|"_s));
    }

    void theSearchGoesOnToOlderCommands()
    {
        for (const QString &command : {u"set a"_s, u"set b"_s, u"puts c"_s, u"set d"_s})
            run(command);
        openStrip(Qt::Key_R);
        QTest::keyClicks(pattern(), u"SET"_s);
        QCOMPARE(line(), u"set d"_s);
        QTest::keyClick(pattern(), Qt::Key_R, Qt::ControlModifier);
        QCOMPARE(line(), u"set b"_s);
        QTest::keyClick(pattern(), Qt::Key_Up);
        QCOMPARE(line(), u"set a"_s);
        QTest::keyClick(pattern(), Qt::Key_Up);
        QCOMPARE(stripText(), u"Search the history:|not found"_s);
        QTest::keyClick(pattern(), Qt::Key_Return);
        QTRY_VERIFY(!strip());
        QCOMPARE(line(), u"set a"_s);
        QCOMPARE(console->history.size(), 4);
        press(Qt::Key_Down);
        QCOMPARE(line(), u"set b"_s);
    }

    void aSearchFromOutputLeavesTheOutputAlone()
    {
        run(u"set a"_s);
        console->moveTo(2);
        openStrip(Qt::Key_R);
        QTest::keyClicks(pattern(), u"set"_s);
        QCOMPARE(console->toPlainText(), u"Welcome\n> set a\n> set a"_s);
    }

    void textIsFoundUpwards()
    {
        run(u"red one"_s);
        run(u"blue"_s);
        run(u"Red two"_s);
        openStrip(Qt::Key_F);
        QCOMPARE(stripText(), u"Find:|"_s);
        QTest::keyClicks(pattern(), u"red"_s);
        QCOMPARE(console->picture(), u"Welcome\n> red one\n> blue\n> ^Red| two\n> "_s);
        QTest::keyClick(pattern(), Qt::Key_Return);
        QCOMPARE(console->picture(), u"Welcome\n> ^red| one\n> blue\n> Red two\n> "_s);
        QTest::keyClick(pattern(), Qt::Key_F, Qt::ControlModifier);
        QCOMPARE(stripText(), u"Find:|not found"_s);
        QTest::keyClick(pattern(), Qt::Key_Return, Qt::ShiftModifier);
        QCOMPARE(stripText(), u"Find:|"_s);
        QCOMPARE(console->picture(), u"Welcome\n> red one\n> blue\n> ^Red| two\n> "_s);
        QTest::keyClick(pattern(), Qt::Key_Escape);
        QTRY_VERIFY(!strip());
        QVERIFY(console->hasFocus());
        press(Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(), u"Red"_s);
        type(u"x"_s);
        QCOMPARE(console->picture(), u"Welcome\n> red one\n> blue\n> Red two\n> x|"_s);
    }

    void whatIsSelectedIsSearchedFor()
    {
        run(u"red"_s);
        run(u"red"_s);
        console->select(16, 19);
        openStrip(Qt::Key_F);
        QCOMPARE(pattern()->text(), u"red"_s);
        QTest::keyClick(pattern(), Qt::Key_Return);
        QCOMPARE(console->picture(), u"Welcome\n> ^red|\n> red\n> "_s);
    }

    void oneStripAtATime()
    {
        openStrip(Qt::Key_F);
        console->setFocus();
        openStrip(Qt::Key_R);
        QCOMPARE(console->findChildren<SearchStrip *>().size(), 1);
        QCOMPARE(stripText(), u"Search the history:|"_s);
    }

    void clearingKeepsPromptAndCommand()
    {
        run(u"one"_s);
        type(u"half"_s);
        press(Qt::Key_Left);
        press(Qt::Key_L, Qt::ControlModifier);
        QCOMPARE(console->picture(), u"> hal|f"_s);
        QCOMPARE(line(), u"half"_s);
        QCOMPARE(console->promptParagraph, 0);
        QCOMPARE(coloursOf(*console), console->cmdColor.name() + u":> half/"_s);
        press(Qt::Key_Backspace);
        press(Qt::Key_Return);
        QCOMPARE(console->history, QStringList({u"one"_s, u"haf"_s}));
        QCOMPARE(console->picture(), u"> haf\n> |"_s);
    }

    void clearingFromOutput()
    {
        run(u"one"_s);
        console->complete = [](const QString &) { return false; };
        type(u"a"_s);
        press(Qt::Key_Return);
        type(u"b"_s);
        console->moveTo(3);
        press(Qt::Key_L, Qt::ControlModifier);
        QCOMPARE(console->picture(), u"> |a\nb"_s);
        QCOMPARE(line(), u"a\nb"_s);
    }

    void oneWordIsCompleted()
    {
        console->suggestNext = [](const QString &text, QString &prefix) {
            prefix = text.first(text.lastIndexOf(u' ') + 1);
            return text.endsWith(u"ge"_s) ? QStringList {u"get"_s} : QStringList();
        };
        type(u"design ge; x"_s);
        for (int i = 0; i < 3; ++i)
            press(Qt::Key_Left);
        press(Qt::Key_Tab);
        QVERIFY(console->picture().endsWith(u"\n> design get|; x"_s));
        press(Qt::Key_Tab);
        QVERIFY(console->picture().endsWith(u"\n> design get\t|; x"_s));
    }

    void amongSeveralWordsTheUserChooses()
    {
        console->suggestNext = [](const QString &text, QString &prefix) {
            prefix = text.first(text.lastIndexOf(u' ') + 1);
            return QStringList {u"vendor"_s, u"version"_s};
        };
        type(u"get v"_s);
        press(Qt::Key_Tab);
        QCOMPARE(line(), u"get ve"_s);
        QStringList offered;
        tabAndThen([&offered](PopupCompleter *, PopupListWidget *list) {
            for (int i = 0; i < list->count(); ++i)
                offered += list->item(i)->text();
            QTest::keyClick(list, Qt::Key_Down);
            list->setCurrentRow(1);
            QTest::keyClick(list, Qt::Key_Return);
        });
        QCOMPARE(offered, QStringList({u"vendor"_s, u"version"_s}));
        QVERIFY(console->picture().endsWith(u"\n> get version|"_s));
    }

    void aPopupThatIsClosedChangesNothing()
    {
        console->suggestNext = [](const QString &, QString &prefix) {
            prefix = u"get "_s;
            return QStringList {u"a"_s, u"b"_s};
        };
        type(u"get "_s);
        tabAndThen([](PopupCompleter *popup, PopupListWidget *) {
            QTest::keyClick(popup, Qt::Key_Escape);
        });
        QVERIFY(console->picture().endsWith(u"\n> get |"_s));
    }

    void theConsolesOwnCompletionComesFirst()
    {
        console->suggest = [](const QString &, QString &prefix) {
            prefix.clear();
            return QStringList {u"abc1"_s, u"abc2"_s};
        };
        bool asked = false;
        console->suggestNext = [&asked](const QString &, QString &) {
            asked = true;
            return QStringList {u"other"_s};
        };
        type(u"a"_s);
        press(Qt::Key_Tab);
        QCOMPARE(console->picture(), u"Welcome\n> a\nabc1, abc2\n> abc|"_s);
        QVERIFY(!asked);
    }

    // The window's shortcuts have the same keys for texts.
    void theWindowLeavesTheKeysToTheConsole()
    {
        for (const Qt::Key key : {Qt::Key_R, Qt::Key_F, Qt::Key_L}) {
            QKeyEvent event(QEvent::ShortcutOverride, key, Qt::ControlModifier);
            event.ignore();
            QApplication::sendEvent(console.get(), &event);
            QVERIFY(event.isAccepted());
            console->setFeatures({});
            event.ignore();
            QApplication::sendEvent(console.get(), &event);
            QVERIFY(!event.isAccepted());
            console->setFeatures(QConsole::AllFeatures);
        }
    }

    void moreThanRichTextIsCopiedAsText()
    {
        QString text;
        for (int i = 0; i < 20'000; ++i)
            text += QString::number(i) + u"\n"_s;
        console->run = [this, &text](const QString &, int *) {
            console->writeOutput(text.chopped(1), Qt::blue);
            return QString();
        };
        run(u"c"_s);
        press(Qt::Key_A, Qt::ControlModifier);
        console->copy();
        QCOMPARE(QGuiApplication::clipboard()->text(), console->toPlainText());
        QVERIFY(!QGuiApplication::clipboard()->mimeData()->hasHtml());
        console->select(100'030, 10);
        console->copy();
        QCOMPARE(QGuiApplication::clipboard()->text(), console->toPlainText().sliced(10, 100'020));
        console->select(10, 1'000);
        console->copy();
        QVERIFY(QGuiApplication::clipboard()->mimeData()->hasHtml());
    }
};

TEST_CLASS(tst_ConsoleFeatures)
#include "tst_ConsoleFeatures.moc"
