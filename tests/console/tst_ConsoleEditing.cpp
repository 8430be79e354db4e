#include "ConsoleUnderTest.h"
#include "tests/TestClass.h"

#include <QClipboard>
#include <QMimeData>

using namespace Qt::Literals::StringLiterals;

// The edition zone, the command being typed, what is allowed to change and what undo takes back.
class tst_ConsoleEditing : public QObject
{
    Q_OBJECT

private:
    void type(const QString &text) { QTest::keyClicks(console.get(), text); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(console.get(), key, modifiers);
    }
    // A command that is complete when its braces are.
    void useBraces()
    {
        console->complete = [](const QString &command) {
            return command.count(u'{') == command.count(u'}');
        };
        console->run = [this](const QString &command, int *) {
            executed.append(command);
            return u"out"_s;
        };
    }

    std::unique_ptr<ConsoleUnderTest> console;
    QStringList executed;

private Q_SLOTS:
    void init()
    {
        console = std::make_unique<ConsoleUnderTest>();
        console->start();
        executed.clear();
    }

    void zoneBeginsBehindThePrompt()
    {
        type(u"ab"_s); // "Welcome\n> ab"
        for (int position = 0; position <= 12; ++position) {
            const bool expected = position >= 10;
            QVERIFY2(console->isInEditionZone(position) == expected,
                     qPrintable(QString::number(position)));
            console->moveTo(position);
            QCOMPARE(console->isInEditionZone(), expected);
            QCOMPARE(console->isSelectionInEditionZone(), expected);
        }
    }

    void zoneOfASelection_data()
    {
        QTest::addColumn<int>("anchor");
        QTest::addColumn<int>("position");
        QTest::addColumn<bool>("selection");
        QTest::addColumn<bool>("cursor");
        QTest::newRow("zone-selection-1 inside") << 10 << 12 << true << true;
        QTest::newRow("zone-selection-2 inside, backwards") << 12 << 10 << true << true;
        QTest::newRow("zone-selection-3 from the prompt") << 9 << 12 << false << true;
        QTest::newRow("zone-selection-4 to the prompt") << 12 << 9 << false << false;
        QTest::newRow("zone-selection-5 from output") << 2 << 12 << false << true;
        QTest::newRow("zone-selection-6 in output") << 2 << 5 << false << false;
    }

    void zoneOfASelection()
    {
        QFETCH(int, anchor);
        QFETCH(int, position);
        type(u"ab"_s);
        console->select(anchor, position);
        QTEST(console->isSelectionInEditionZone(), "selection");
        QTEST(console->isInEditionZone(), "cursor");
    }

    void currentCommandLeavesTheCursorAlone()
    {
        type(u"set a 1"_s);
        console->select(12, 14);
        const QString before = console->picture();
        QCOMPARE(console->getCurrentCommand(), u"set a 1"_s);
        QCOMPARE(console->picture(), before);
    }

    void currentCommandOutsideIsTheLineWithoutItsPrompt()
    {
        type(u"set a 1"_s);
        press(Qt::Key_Return);
        console->moveTo(9); // in the prompt of the command that has run
        QCOMPARE(console->getCurrentCommand(), u"set a 1"_s);
        console->moveTo(3);
        QCOMPARE(console->getCurrentCommand(), u"lcome"_s);
        console->moveTo(int(console->toPlainText().size()) - 1);
        QCOMPARE(console->getCurrentCommand(), QString());
    }

    void aCommandWiderThanTheWindowIsReadWhole()
    {
        const QString wide = u"set text {"_s + QString(2000, u'w') + u"}"_s;
        console->insertPlainText(wide);
        QCOMPARE(console->getCurrentCommand(), wide);
        console->moveTo(100);
        QCOMPARE(console->getCurrentCommand(), wide);
        console->replaceCurrentCommand(u"short"_s);
        QCOMPARE(console->picture(), u"Welcome\n> short|"_s);
    }

    void replacingTakesTheWholeCommand_data()
    {
        QTest::addColumn<int>("position");
        QTest::newRow("replace-cursor-1 behind the prompt") << 10;
        QTest::newRow("replace-cursor-2 in the middle") << 13;
        QTest::newRow("replace-cursor-3 at the end") << 17;
    }

    void replacingTakesTheWholeCommand()
    {
        QFETCH(int, position);
        type(u"set a 1"_s);
        console->moveTo(position);
        console->replaceCurrentCommand(u"puts x"_s);
        QCOMPARE(console->picture(), u"Welcome\n> puts x|"_s);
        QCOMPARE(coloursOf(*console), u"none:Welcome/#000000:> puts x/"_s);
    }

    void replacingIsOneUndoStep()
    {
        console->history = {u"first"_s};
        console->historyIndex = 1;
        type(u"half"_s);
        press(Qt::Key_Up);
        QCOMPARE(console->toPlainText(), u"Welcome\n> first"_s);
        press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(console->toPlainText(), u"Welcome\n> half"_s);
        press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(console->toPlainText(), u"Welcome\n> "_s);
    }

    void undoNeverTakesThePromptOrOutput()
    {
        useBraces();
        type(u"abc"_s);
        press(Qt::Key_Return);
        for (int i = 0; i < 5; ++i)
            press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(console->picture(), u"Welcome\n> abc\nout\n> |"_s);
        for (int i = 0; i < 5; ++i)
            press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(console->picture(), u"Welcome\n> abc\nout\n> |"_s);
    }

    void undoAndRedoTypedText()
    {
        type(u"abc"_s);
        console->undo();
        QCOMPARE(console->picture(), u"Welcome\n> |"_s);
        console->redo();
        QCOMPARE(console->picture(), u"Welcome\n> abc|"_s);
    }

    void undoIsOffUntilThereIsAPrompt()
    {
        ConsoleUnderTest fresh;
        QVERIFY(!fresh.isUndoRedoEnabled());
        fresh.setPrompt(u"> "_s, false);
        QVERIFY(!fresh.isUndoRedoEnabled());
        fresh.displayPrompt();
        QVERIFY(fresh.isUndoRedoEnabled());
    }

    void cutAndDelete_data()
    {
        QTest::addColumn<int>("anchor");
        QTest::addColumn<int>("position");
        QTest::addColumn<QString>("cut");
        QTest::addColumn<QString>("del");
        QTest::addColumn<QString>("clipboard");
        const QString all = u"Welcome\n> abcd"_s;
        QTest::newRow("cut-zone-1 selection")
            << 11 << 13 << u"Welcome\n> ad"_s << u"Welcome\n> ad"_s << u"bc"_s;
        QTest::newRow("cut-zone-2 no selection")
            << 11 << 11 << all << u"Welcome\n> acd"_s << u"clip"_s;
        QTest::newRow("cut-zone-3 at the end") << 14 << 14 << all << all << u"clip"_s;
        QTest::newRow("cut-outside-1 output") << 1 << 4 << all << all << u"elc"_s;
        QTest::newRow("cut-outside-2 from output into the zone")
            << 5 << 12 << all << all << u"me\n> ab"_s;
        QTest::newRow("cut-outside-3 from the zone into output")
            << 12 << 5 << all << all << u"me\n> ab"_s;
        QTest::newRow("cut-outside-4 no selection in output") << 3 << 3 << all << all << u"clip"_s;
        QTest::newRow("cut-outside-5 in the prompt") << 9 << 9 << all << all << u"clip"_s;
    }

    void cutAndDelete()
    {
        QFETCH(int, anchor);
        QFETCH(int, position);
        QGuiApplication::clipboard()->setText(u"clip"_s);
        type(u"abcd"_s);
        console->select(anchor, position);
        console->cut();
        QTEST(console->toPlainText(), "cut");
        QTEST(QGuiApplication::clipboard()->text(), "clipboard");
        console->moveTo(10);
        console->replaceCurrentCommand(u"abcd"_s);
        console->select(anchor, position);
        console->del();
        QTEST(console->toPlainText(), "del");
    }

    void pasteOnlyIntoTheZone_data()
    {
        QTest::addColumn<int>("anchor");
        QTest::addColumn<int>("position");
        QTest::addColumn<QString>("after");
        QTest::newRow("paste-zone-1 cursor") << 11 << 11 << u"Welcome\n> aclip|bcd"_s;
        QTest::newRow("paste-zone-2 selection") << 11 << 13 << u"Welcome\n> aclip|d"_s;
        QTest::newRow("paste-outside-1 output") << 3 << 3 << u"Wel|come\n> abcd"_s;
        QTest::newRow("paste-outside-2 prompt") << 9 << 9 << u"Welcome\n>| abcd"_s;
        QTest::newRow("paste-outside-3 selected output") << 1 << 3 << u"W^el|come\n> abcd"_s;
        QTest::newRow("paste-outside-4 across") << 3 << 12 << u"Wel^come\n> ab|cd"_s;
    }

    void pasteOnlyIntoTheZone()
    {
        QFETCH(int, anchor);
        QFETCH(int, position);
        QGuiApplication::clipboard()->setText(u"clip"_s);
        type(u"abcd"_s);
        console->select(anchor, position);
        console->paste();
        QTEST(console->picture(), "after");
    }

    void pastedTextIsPlain()
    {
        auto *rich = new QMimeData;
        rich->setHtml(u"<b style='color:red'>bold</b>"_s);
        rich->setText(u"bold"_s);
        QGuiApplication::clipboard()->setMimeData(rich);
        console->paste();
        QCOMPARE(coloursOf(*console), u"none:Welcome/#000000:> bold/"_s);
        QVERIFY(!console->acceptRichText());
    }

    void pastedMarkupIsText()
    {
        QGuiApplication::clipboard()->setText(u"<b>x</b>"_s);
        console->paste();
        QCOMPARE(console->toPlainText(), u"Welcome\n> <b>x</b>"_s);
    }

    void pastedLinesAreOneCommand()
    {
        useBraces();
        QGuiApplication::clipboard()->setText(u"first\nsecond"_s);
        console->paste();
        QCOMPARE(console->getCurrentCommand(), u"first\nsecond"_s);
        press(Qt::Key_Return);
        QCOMPARE(executed, QStringList {u"first\nsecond"_s});
        QCOMPARE(console->picture(), u"Welcome\n> first\nsecond\nout\n> |"_s);
    }

    void anIncompleteCommandGoesOnInTheNextLine()
    {
        useBraces();
        type(u"if 1 {"_s);
        press(Qt::Key_Return);
        QCOMPARE(console->picture(), u"Welcome\n> if 1 {\n|"_s);
        type(u"puts a"_s);
        press(Qt::Key_Return);
        type(u"}"_s);
        QCOMPARE(console->getCurrentCommand(), u"if 1 {\nputs a\n}"_s);
        QCOMPARE(executed, QStringList());
        press(Qt::Key_Return);
        QCOMPARE(executed, QStringList {u"if 1 {\nputs a\n}"_s});
        QCOMPARE(console->picture(), u"Welcome\n> if 1 {\nputs a\n}\nout\n> |"_s);
        QCOMPARE(coloursOf(*console),
                 u"none:Welcome/#000000:> if 1 {/#000000:puts a/#000000:}/#0000ff:out/"
                 "#000000:> /"_s);
        QCOMPARE(console->history, QStringList {u"if 1 {\\nputs a\\n}"_s});
        QCOMPARE(console->recordedScript, QStringList {u"if 1 {\nputs a\n}"_s});
    }

    void returnInTheMiddleOfAnIncompleteCommandGoesOnAtTheEnd()
    {
        useBraces();
        type(u"if {"_s);
        console->moveTo(11);
        press(Qt::Key_Return);
        QCOMPARE(console->picture(), u"Welcome\n> if {\n|"_s);
    }

    void continuationLinesCanBeEdited()
    {
        useBraces();
        type(u"a {"_s);
        press(Qt::Key_Return);
        type(u"xy"_s);
        press(Qt::Key_Backspace);
        press(Qt::Key_Backspace);
        QCOMPARE(console->picture(), u"Welcome\n> a {\n|"_s);
        press(Qt::Key_Backspace);
        QCOMPARE(console->picture(), u"Welcome\n> a {|"_s);
        press(Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(console->toPlainText().startsWith(u"Welcome\n> a {\n"_s));
    }

    void returnOnThePromptsLineTakesTheContinuationToo()
    {
        useBraces();
        type(u"a {"_s);
        press(Qt::Key_Return);
        type(u"b}"_s);
        console->moveTo(11);
        press(Qt::Key_Return);
        QCOMPARE(executed, QStringList {u"a {\nb}"_s});
    }

    void replacingTakesContinuationLinesToo()
    {
        useBraces();
        console->history = {u"first"_s};
        console->historyIndex = 1;
        type(u"a {"_s);
        press(Qt::Key_Return);
        type(u"b"_s);
        press(Qt::Key_Up);
        QCOMPARE(console->picture(), u"Welcome\n> first|"_s);
        press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(console->toPlainText(), u"Welcome\n> a {\nb"_s);
    }

    void homeInAContinuationLineActsAsDown()
    {
        useBraces();
        console->history = {u"first"_s};
        console->historyIndex = 1;
        type(u"a {"_s);
        press(Qt::Key_Return);
        type(u"b"_s);
        press(Qt::Key_Home);
        QCOMPARE(console->picture(), u"Welcome\n> first|"_s);
    }

    void backspaceAtTheStartOfTheDocumentsFirstPromptIsSwallowed()
    {
        ConsoleUnderTest empty {QString()};
        empty.setPrompt(u"> "_s, true);
        QCOMPARE(empty.picture(), u"> |"_s);
        QTest::keyClick(&empty, Qt::Key_Backspace);
        QCOMPARE(empty.picture(), u"> |"_s);
    }
};

TEST_CLASS(tst_ConsoleEditing)
#include "tst_ConsoleEditing.moc"
