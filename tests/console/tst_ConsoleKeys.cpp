#include "ConsoleUnderTest.h"
#include "tests/TestClass.h"

#include <QClipboard>

using namespace Qt::Literals::StringLiterals;

namespace {

// What stands in front of the typed text in every row: a welcome, a command and its result.
const QString head = u"Welcome\n> one\nout\n> "_s;

} // namespace

// Every row of the key table, inside and outside the edition zone. "^" is where the selection is
// anchored, "|" is where the cursor stands.
class tst_ConsoleKeys : public QObject
{
    Q_OBJECT

private:
    // Makes the console look like the picture; only the text behind the last prompt is free.
    void arrange(const QString &picture)
    {
        QString text = picture;
        const qsizetype anchorMark = text.indexOf(u'^');
        text.remove(u'^');
        const qsizetype positionMark = text.indexOf(u'|');
        text.remove(u'|');
        const qsizetype anchor = anchorMark < 0 ? positionMark
            : anchorMark > positionMark         ? anchorMark - 1
                                                : anchorMark;
        QVERIFY2(text.startsWith(head), qPrintable(picture));
        QTest::keyClicks(console.get(), text.sliced(head.size()));
        console->select(int(anchor), int(positionMark));
        QCOMPARE(console->picture(), picture);
    }

    std::unique_ptr<ConsoleUnderTest> console;
    QStringList executed;

private Q_SLOTS:
    void init()
    {
        console = std::make_unique<ConsoleUnderTest>();
        console->start();
        console->run = [](const QString &, int *) { return u"out"_s; };
        QTest::keyClicks(console.get(), u"one"_s);
        QTest::keyClick(console.get(), Qt::Key_Return);
        console->run = [this](const QString &command, int *) {
            executed.append(command);
            return u"out"_s;
        };
        executed.clear();
        QGuiApplication::clipboard()->setText(u"clip"_s);
    }

    void table_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<Qt::Key>("key");
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
        QTest::addColumn<QString>("after");

        const Qt::KeyboardModifiers none = Qt::NoModifier;
        const Qt::KeyboardModifiers shift = Qt::ShiftModifier;
        const Qt::KeyboardModifiers control = Qt::ControlModifier;
        const auto row = [](const char *name, const QString &before, Qt::Key key,
                            Qt::KeyboardModifiers modifiers, const QString &after) {
            QTest::newRow(name) << before << key << modifiers << after;
        };
        const QString inOutput = u"Wel|come\n> one\nout\n> abc"_s;
        const QString selectedOutput = u"W^elc|ome\n> one\nout\n> abc"_s;
        const QString across = u"Welcome\n> one\no^ut\n> ab|c"_s;
        const QString acrossBackwards = u"Welcome\n> one\no|ut\n> ab^c"_s;
        const QString inPrompt = u"Welcome\n> one\nout\n>| abc"_s;
        const QString atStart = head + u"|abc"_s;
        const QString atEnd = head + u"abc|"_s;
        const QString selected = head + u"a^b|c"_s;
        const QString selectedBackwards = head + u"a|b^c"_s;

        row("tab-zone-1 without a candidate it is a character", atEnd, Qt::Key_Tab, none,
            head + u"abc\t|"_s);
        row("tab-zone-2 it is inserted at the cursor", head + u"a|bc"_s, Qt::Key_Tab, none,
            head + u"a\t|bc"_s);
        row("tab-zone-3 it replaces a selection", selected, Qt::Key_Tab, none, head + u"a\t|c"_s);
        row("tab-outside-1 ignored in output", inOutput, Qt::Key_Tab, none, inOutput);
        row("tab-outside-2 ignored in the prompt", inPrompt, Qt::Key_Tab, none, inPrompt);
        row("tab-outside-3 ignored with output selected", selectedOutput, Qt::Key_Tab, none,
            selectedOutput);
        row("tab-outside-4 ignored with the prompt in the selection", across, Qt::Key_Tab, none,
            across);

        row("backspace-zone-1 deletes", atEnd, Qt::Key_Backspace, none, head + u"ab|"_s);
        row("backspace-zone-2 deletes in the middle", head + u"a|bc"_s, Qt::Key_Backspace, none,
            head + u"|bc"_s);
        row("backspace-zone-3 swallowed behind the prompt", atStart, Qt::Key_Backspace, none,
            atStart);
        row("backspace-zone-4 swallowed on an empty line", head + u"|"_s, Qt::Key_Backspace, none,
            head + u"|"_s);
        row("backspace-zone-5 deletes the selection", selected, Qt::Key_Backspace, none,
            head + u"a|c"_s);
        row("backspace-zone-6 deletes a selection made backwards", selectedBackwards,
            Qt::Key_Backspace, none, head + u"a|c"_s);
        row("backspace-zone-7 swallowed where a selection ends behind the prompt",
            head + u"|ab^c"_s, Qt::Key_Backspace, none, head + u"|ab^c"_s);
        row("backspace-zone-8 with Shift deletes", atEnd, Qt::Key_Backspace, shift,
            head + u"ab|"_s);
        row("backspace-word-1 with Control deletes a word", head + u"puts abc|"_s,
            Qt::Key_Backspace, control, head + u"puts |"_s);
        row("backspace-word-2 never goes into the prompt", head + u" |"_s, Qt::Key_Backspace,
            control, head + u"|"_s);
        row("backspace-word-3 swallowed behind the prompt", atStart, Qt::Key_Backspace, control,
            atStart);
        row("backspace-word-4 with Control deletes the selection", selected, Qt::Key_Backspace,
            control, head + u"a|c"_s);
        row("backspace-outside-1 ignored in output", inOutput, Qt::Key_Backspace, none, inOutput);
        row("backspace-outside-2 ignored in the prompt", inPrompt, Qt::Key_Backspace, none,
            inPrompt);
        row("backspace-outside-3 ignored with output selected", selectedOutput, Qt::Key_Backspace,
            none, selectedOutput);
        row("backspace-outside-4 ignored with the prompt in the selection", across,
            Qt::Key_Backspace, none, across);
        row("backspace-outside-5 the same backwards", acrossBackwards, Qt::Key_Backspace, none,
            acrossBackwards);
        row("backspace-outside-6 a word of output stays", inOutput, Qt::Key_Backspace, control,
            inOutput);

        row("return-outside-1 ignored in output", inOutput, Qt::Key_Return, none, inOutput);
        row("return-outside-2 ignored in the prompt", inPrompt, Qt::Key_Return, none, inPrompt);
        row("return-outside-3 ignored with output selected", selectedOutput, Qt::Key_Return, none,
            selectedOutput);
        row("return-outside-4 ignored with the prompt in the selection", across, Qt::Key_Enter,
            none, across);
        row("return-outside-5 the same backwards", acrossBackwards, Qt::Key_Return, none,
            acrossBackwards);

        row("home-zone-1 goes behind the prompt and on as Down", atEnd, Qt::Key_Home, none,
            head + u"one|"_s);
        row("home-zone-2 the same from the prompt", inPrompt, Qt::Key_Home, none, head + u"one|"_s);
        row("home-outside-1 to the start of the line", inOutput, Qt::Key_Home, none,
            u"|Welcome\n> one\nout\n> abc"_s);
        row("home-outside-2 an old prompt is text", u"Welcome\n> on|e\nout\n> abc"_s, Qt::Key_Home,
            none, u"Welcome\n|> one\nout\n> abc"_s);
        row("home-outside-3 with Shift it selects", inOutput, Qt::Key_Home, shift,
            u"|Wel^come\n> one\nout\n> abc"_s);

        row("up-zone-1 the last command", atEnd, Qt::Key_Up, none, head + u"one|"_s);
        row("up-zone-2 from the middle", head + u"a|bc"_s, Qt::Key_Up, none, head + u"one|"_s);
        row("up-zone-3 with a selection", selected, Qt::Key_Up, none, head + u"one|"_s);
        row("up-outside-1 nothing in output", inOutput, Qt::Key_Up, none, inOutput);
        row("up-outside-2 nothing in the prompt", inPrompt, Qt::Key_Up, none, inPrompt);
        row("up-outside-3 nothing with the cursor in output", acrossBackwards, Qt::Key_Up, none,
            acrossBackwards);
        row("down-zone-1 the newest command", atEnd, Qt::Key_Down, none, head + u"one|"_s);
        row("down-outside-1 nothing in output", inOutput, Qt::Key_Down, none, inOutput);
        row("down-outside-2 nothing in the prompt", inPrompt, Qt::Key_Down, none, inPrompt);

        row("move-zone-1 End", atStart, Qt::Key_End, none, atEnd);
        row("move-zone-2 Left", atEnd, Qt::Key_Left, none, head + u"ab|c"_s);
        row("move-zone-3 Right", atStart, Qt::Key_Right, none, head + u"a|bc"_s);
        row("move-zone-4 Left goes into the prompt", atStart, Qt::Key_Left, none,
            u"Welcome\n> one\nout\n>| abc"_s);
        row("move-zone-5 Shift and Left select", atEnd, Qt::Key_Left, shift, head + u"ab|c^"_s);
        row("move-outside-1 End", inOutput, Qt::Key_End, none, u"Welcome|\n> one\nout\n> abc"_s);
        row("move-outside-2 Left", inOutput, Qt::Key_Left, none, u"We|lcome\n> one\nout\n> abc"_s);
        row("move-outside-3 Right", inOutput, Qt::Key_Right, none,
            u"Welc|ome\n> one\nout\n> abc"_s);
        row("move-outside-4 Shift and Right select", inOutput, Qt::Key_Right, shift,
            u"Wel^c|ome\n> one\nout\n> abc"_s);

        row("other-zone-1 a character is typed", atEnd, Qt::Key_X, none, head + u"abcx|"_s);
        row("other-zone-2 at the cursor", head + u"a|bc"_s, Qt::Key_X, none, head + u"ax|bc"_s);
        row("other-zone-3 over the selection", selected, Qt::Key_X, none, head + u"ax|c"_s);
        row("other-zone-4 Delete", head + u"a|bc"_s, Qt::Key_Delete, none, head + u"a|c"_s);
        row("other-zone-5 Delete a selection", selected, Qt::Key_Delete, none, head + u"a|c"_s);
        row("other-zone-6 Delete behind the prompt", atStart, Qt::Key_Delete, none,
            head + u"|bc"_s);
        row("other-zone-7 Delete a word", head + u"ab| cd"_s, Qt::Key_Delete, control,
            head + u"ab|cd"_s);
        row("other-zone-9 paste", head + u"a|bc"_s, Qt::Key_V, control, head + u"aclip|bc"_s);
        row("other-zone-10 paste with Shift and Insert", atEnd, Qt::Key_Insert, shift,
            head + u"abcclip|"_s);
        row("other-outside-1 a character is typed at the end", inOutput, Qt::Key_X, none,
            head + u"abcx|"_s);
        row("other-outside-2 the same from the prompt", inPrompt, Qt::Key_X, none,
            head + u"abcx|"_s);
        row("other-outside-3 selected output stays", selectedOutput, Qt::Key_X, none,
            head + u"abcx|"_s);
        row("other-outside-4 the prompt in the selection stays", across, Qt::Key_X, none,
            head + u"abcx|"_s);
        row("other-outside-5 the same backwards", acrossBackwards, Qt::Key_X, none,
            head + u"abcx|"_s);
        row("other-outside-6 Delete", inOutput, Qt::Key_Delete, none, atEnd);
        row("other-outside-7 Delete with output selected", selectedOutput, Qt::Key_Delete, none,
            atEnd);
        row("other-outside-8 Delete with the prompt in the selection", across, Qt::Key_Delete, none,
            atEnd);
        row("other-outside-9 Delete a word", inOutput, Qt::Key_Delete, control, atEnd);
        row("other-outside-11 paste goes to the end", inOutput, Qt::Key_V, control,
            head + u"abcclip|"_s);
        row("other-outside-12 Shift and Delete", selectedOutput, Qt::Key_Delete, shift, atEnd);

        row("control-zone-1 cut", selected, Qt::Key_X, control, head + u"a|c"_s);
        row("control-zone-2 copy", selected, Qt::Key_C, control, selected);
        row("control-zone-3 paste over the selection", selected, Qt::Key_V, control,
            head + u"aclip|c"_s);
        row("control-zone-4 select all", selected, Qt::Key_A, control,
            u"^Welcome\n> one\nout\n> abc|"_s);
        row("control-zone-5 Delete", selected, Qt::Key_Delete, control, head + u"a|c"_s);
        row("control-outside-1 cut copies", selectedOutput, Qt::Key_X, control, selectedOutput);
        row("control-outside-2 cut copies with the prompt in the selection", across, Qt::Key_X,
            control, across);
        row("control-outside-3 the same backwards", acrossBackwards, Qt::Key_X, control,
            acrossBackwards);
        row("control-outside-4 copy", selectedOutput, Qt::Key_C, control, selectedOutput);
        row("control-outside-5 paste is refused", selectedOutput, Qt::Key_V, control,
            selectedOutput);
        row("control-outside-6 paste over the prompt is refused", across, Qt::Key_V, control,
            across);
        row("control-outside-7 Backspace is refused", selectedOutput, Qt::Key_Backspace, control,
            selectedOutput);
        row("control-outside-8 Backspace over the prompt is refused", across, Qt::Key_Backspace,
            control, across);
        row("control-outside-9 Delete is refused", selectedOutput, Qt::Key_Delete, control,
            selectedOutput);
        row("control-outside-11 Return is refused", selectedOutput, Qt::Key_Return, control,
            selectedOutput);
        row("control-outside-12 select all", selectedOutput, Qt::Key_A, control,
            u"^Welcome\n> one\nout\n> abc|"_s);
        row("control-outside-13 copy with Insert goes on as any other key", selectedOutput,
            Qt::Key_Insert, control, atEnd);
    }

    void table()
    {
        QFETCH(QString, before);
        QFETCH(Qt::Key, key);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        QFETCH(QString, after);
        arrange(before);
        QTest::keyClick(console.get(), key, modifiers);
        QCOMPARE(console->picture(), after);
        QCOMPARE(executed, QStringList());
    }

    void clipboard_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<Qt::Key>("key");
        QTest::addColumn<QString>("text");

        const QString output = u"W^elc|ome\n> one\nout\n> abc"_s;
        QTest::newRow("clipboard-cut-1 zone") << head + u"a^bc|"_s << Qt::Key_X << u"bc"_s;
        QTest::newRow("clipboard-cut-2 output") << output << Qt::Key_X << u"elc"_s;
        QTest::newRow("clipboard-copy-1 zone") << head + u"a^bc|"_s << Qt::Key_C << u"bc"_s;
        QTest::newRow("clipboard-copy-2 output") << output << Qt::Key_C << u"elc"_s;
        QTest::newRow("clipboard-copy-3 output with Insert")
            << output << Qt::Key_Insert << u"elc"_s;
        QTest::newRow("clipboard-copy-4 no selection keeps it")
            << head + u"abc|"_s << Qt::Key_C << u"clip"_s;
    }

    void clipboard()
    {
        QFETCH(QString, before);
        QFETCH(Qt::Key, key);
        QFETCH(QString, text);
        arrange(before);
        QTest::keyClick(console.get(), key, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(), text);
    }

    void returnRunsTheWholeCommand_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<Qt::Key>("key");
        QTest::newRow("return-zone-1 at the end") << head + u"abc|"_s << Qt::Key_Return;
        QTest::newRow("return-zone-2 in the middle") << head + u"a|bc"_s << Qt::Key_Return;
        QTest::newRow("return-zone-3 behind the prompt") << head + u"|abc"_s << Qt::Key_Enter;
        QTest::newRow("return-zone-4 with a selection") << head + u"^a|bc"_s << Qt::Key_Enter;
    }

    void returnRunsTheWholeCommand()
    {
        QFETCH(QString, before);
        QFETCH(Qt::Key, key);
        arrange(before);
        QTest::keyClick(console.get(), key);
        QCOMPARE(executed, QStringList {u"abc"_s});
        QCOMPARE(console->picture(), head + u"abc\nout\n> |"_s);
    }

    void shiftAndHomeSelectTheCommandWhileThereIsNoHistory()
    {
        console->history.clear();
        arrange(head + u"abc|"_s);
        QTest::keyClick(console.get(), Qt::Key_Home, Qt::ShiftModifier);
        QCOMPARE(console->picture(), head + u"|abc^"_s);
        QTest::keyClick(console.get(), Qt::Key_Home);
        QCOMPARE(console->picture(), head + u"|abc"_s);
    }

    void aBareModifierKeyLeavesCursorAndSelectionAlone_data()
    {
        QTest::addColumn<Qt::Key>("key");
        const Qt::Key keys[] = {Qt::Key_Shift,     Qt::Key_Control, Qt::Key_Alt,
                                Qt::Key_AltGr,     Qt::Key_Meta,    Qt::Key_Super_L,
                                Qt::Key_CapsLock,  Qt::Key_NumLock, Qt::Key_Multi_key,
                                Qt::Key_Dead_Acute};
        for (const Qt::Key key : keys)
            QTest::addRow("modifier-alone-%x", key) << key;
    }

    void aBareModifierKeyLeavesCursorAndSelectionAlone()
    {
        QFETCH(Qt::Key, key);
        const QString selected = u"W^elc|ome\n> one\nout\n> abc"_s;
        arrange(selected);
        for (const Qt::KeyboardModifier modifier : {Qt::NoModifier, Qt::ControlModifier}) {
            QKeyEvent press(QEvent::KeyPress, key, modifier);
            QApplication::sendEvent(console.get(), &press);
            QCOMPARE(console->picture(), selected);
        }
    }

    void undoKeysReachTheTypedTextWithOutputSelected()
    {
        arrange(u"W^elc|ome\n> one\nout\n> abc"_s);
        QTest::keyClick(console.get(), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(console->picture(), head + u"|"_s);
        console->select(1, 4);
        QTest::keyClick(console.get(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(console->picture(), head + u"abc|"_s);
    }

    void ignoredKeysDoNotReachTheWindow()
    {
        QWidget window;
        auto *inner = new ConsoleUnderTest;
        inner->setParent(&window);
        inner->setPrompt(u"> "_s, true);
        inner->moveTo(3);
        for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Backspace, Qt::Key_Return, Qt::Key_Up}) {
            QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
            QApplication::sendEvent(inner, &press);
            QVERIFY2(press.isAccepted(), qPrintable(QKeySequence(key).toString()));
        }
    }

    void composedTextIsTypedAtTheEnd()
    {
        arrange(u"W^elc|ome\n> one\nout\n> abc"_s);
        QInputMethodEvent nothing;
        QApplication::sendEvent(console.get(), &nothing);
        QCOMPARE(console->picture(), u"W^elc|ome\n> one\nout\n> abc"_s);
        QInputMethodEvent composed;
        composed.setCommitString(u"é"_s);
        QApplication::sendEvent(console.get(), &composed);
        QCOMPARE(console->picture(), head + u"abcé|"_s);
    }

    void composedTextReplacesASelectionInTheZone()
    {
        arrange(head + u"a^b|c"_s);
        QInputMethodEvent composed;
        composed.setCommitString(u"é"_s);
        QApplication::sendEvent(console.get(), &composed);
        QCOMPARE(console->picture(), head + u"aé|c"_s);
    }

    void aReplacementOfComposedTextEndsAtThePrompt_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("length");
        QTest::addColumn<QString>("after");
        const auto row = [](const char *name, const QString &typed, int from, int length,
                            const QString &after) {
            QTest::newRow(name) << typed << from << length << after;
        };
        row("replace-inside-1", u"abcd"_s, -2, 2, u"aby|"_s);
        row("replace-prompt-1 begins in it", u"x"_s, -3, 3, u"y|"_s);
        row("replace-prompt-2 ends in it", u"x"_s, -3, 1, u"yx|"_s);
        row("replace-prompt-3 nothing typed", QString(), -2, 2, u"y|"_s);
        row("replace-output-1", u"x"_s, -9, 9, u"y|"_s);
        row("replace-start-1 before the text", QString(), -200, 200, u"y|"_s);
    }

    void aReplacementOfComposedTextEndsAtThePrompt()
    {
        QFETCH(QString, typed);
        QFETCH(int, from);
        QFETCH(int, length);
        arrange(head + typed + u'|');
        QInputMethodEvent event;
        event.setCommitString(u"y"_s, from, length);
        QApplication::sendEvent(console.get(), &event);
        QFETCH(QString, after);
        QCOMPARE(console->picture(), head + after);
    }

    void pageKeysStartAtTheEndFromOutput()
    {
        arrange(u"Wel|come\n> one\nout\n> abc"_s);
        QTest::keyClick(console.get(), Qt::Key_PageDown);
        QCOMPARE(console->picture(), head + u"abc|"_s);
    }
};

TEST_CLASS(tst_ConsoleKeys)
#include "tst_ConsoleKeys.moc"
