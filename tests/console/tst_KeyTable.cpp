#include "console/consolekeys.h"
#include "tests/TestClass.h"

#include <QKeyEvent>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;
using consolekeys::Action;

Q_DECLARE_METATYPE(consolekeys::Action)
Q_DECLARE_METATYPE(QConsole::Feature)

// The rule that chooses what a key does. What it does then is tested with the console.
class tst_KeyTable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rows_data();
    void rows();
    void features_data();
    void features();
};

void tst_KeyTable::rows_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<bool>("hasSelection");
    QTest::addColumn<bool>("isInZone");
    QTest::addColumn<Action>("action");
    QTest::addColumn<bool>("copiesFirst");
    const auto row = [](const char *name, int key, Qt::KeyboardModifiers modifiers,
                        bool hasSelection, bool isInZone, Action action, bool copies = false) {
        QTest::newRow(name) << key << modifiers << hasSelection << isInZone << action << copies;
    };
    const Qt::KeyboardModifiers none;
    const Qt::KeyboardModifiers control = Qt::ControlModifier;
    row("key-tab-1", Qt::Key_Tab, none, false, true, Action::Complete);
    row("key-backspace-1", Qt::Key_Backspace, none, false, true, Action::DeleteBackwards);
    row("key-backspace-2 with Control and a selection", Qt::Key_Backspace, control, true, true,
        Action::PassWithoutEditing);
    row("key-return-1", Qt::Key_Return, none, false, true, Action::Run);
    row("key-return-2 keypad", Qt::Key_Enter, Qt::KeypadModifier, false, true, Action::Run);
    row("key-home-1", Qt::Key_Home, Qt::ShiftModifier, true, true, Action::GoHome);
    row("key-up-1", Qt::Key_Up, none, false, false, Action::ShowOlder);
    row("key-down-1", Qt::Key_Down, none, false, true, Action::ShowNewer);
    row("key-move-1", Qt::Key_End, none, false, true, Action::PassOn);
    row("key-move-2", Qt::Key_Left, none, false, false, Action::PassOn);
    row("key-move-3", Qt::Key_Right, none, true, false, Action::PassOn);
    row("key-other-1", Qt::Key_A, none, false, false, Action::Type);
    row("key-other-2", Qt::Key_PageUp, none, false, true, Action::Type);
    row("key-modifier-1", Qt::Key_Control, none, true, false, Action::PassOn);
    row("key-modifier-2 with Control", Qt::Key_Shift, control, true, false, Action::PassOn);
    row("key-modifier-3 a dead key", Qt::Key_Dead_Acute, none, false, false, Action::PassOn);
    row("key-cut-1", Qt::Key_X, control, true, false, Action::Cut);
    row("key-cut-2 nothing selected", Qt::Key_X, control, false, true, Action::Type);
    row("key-copy-1 of the command", Qt::Key_C, control, true, true, Action::Copy, true);
    row("key-copy-2 of output", Qt::Key_C, control, true, false, Action::PassOn, true);
    row("key-copy-3 nothing selected", Qt::Key_C, control, false, true, Action::Copy);
    row("key-copy-4 with Shift", Qt::Key_C, control | Qt::ShiftModifier, true, true, Action::Copy);
    row("key-copy-5 the other key", Qt::Key_Insert, control, true, true, Action::Type, true);
    row("key-control-1 with a selection", Qt::Key_K, control, true, false,
        Action::PassWithoutEditing);
}

void tst_KeyTable::rows()
{
    QFETCH(const int, key);
    QFETCH(const Qt::KeyboardModifiers, modifiers);
    QFETCH(const bool, hasSelection);
    QFETCH(const bool, isInZone);
    const QKeyEvent event(QEvent::KeyPress, key, modifiers);
    const consolekeys::Place place {.hasSelection = hasSelection, .isInZone = isInZone};
    QTEST(consolekeys::actionOf(event, place), "action");
    QTEST(consolekeys::copiesFirst(event, place), "copiesFirst");
}

void tst_KeyTable::features_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<QConsole::Feature>("feature");
    QTest::addColumn<Action>("without");
    QTest::addColumn<Action>("with");
    const auto row = [](const char *name, int key, Qt::KeyboardModifiers modifiers,
                        QConsole::Feature feature, Action without, Action with) {
        QTest::newRow(name) << key << modifiers << feature << without << with;
    };
    const Qt::KeyboardModifiers none;
    const Qt::KeyboardModifiers shift = Qt::ShiftModifier;
    const Qt::KeyboardModifiers control = Qt::ControlModifier;
    row("feature-recall-1", Qt::Key_Up, none, QConsole::RecallAsTyped, Action::ShowOlder,
        Action::GoUp);
    row("feature-recall-2", Qt::Key_Down, none, QConsole::RecallAsTyped, Action::ShowNewer,
        Action::GoDown);
    row("feature-recall-3", Qt::Key_Home, none, QConsole::RecallAsTyped, Action::GoHome,
        Action::GoToLineStart);
    row("feature-recall-4", Qt::Key_Return, shift, QConsole::RecallAsTyped, Action::Run,
        Action::BreakLine);
    row("feature-recall-5 Return alone", Qt::Key_Return, none, QConsole::RecallAsTyped, Action::Run,
        Action::Run);
    row("feature-recall-6", Qt::Key_Home, shift, QConsole::RecallAsTyped, Action::GoHome,
        Action::SelectToLineStart);
    row("feature-indent-1", Qt::Key_Tab, none, QConsole::IndentingTab, Action::Complete,
        Action::Indent);
    row("feature-page-1", Qt::Key_PageUp, none, QConsole::ScrollingPages, Action::Type,
        Action::ScrollPageUp);
    row("feature-page-2 of the keypad", Qt::Key_PageDown, Qt::KeypadModifier,
        QConsole::ScrollingPages, Action::Type, Action::ScrollPageDown);
    row("feature-page-3 selecting", Qt::Key_PageUp, shift, QConsole::ScrollingPages, Action::Type,
        Action::Type);
    row("feature-search-1", Qt::Key_R, control, QConsole::SearchKeys, Action::Type,
        Action::SearchHistory);
    row("feature-search-2", Qt::Key_F, control, QConsole::SearchKeys, Action::Type, Action::Find);
    row("feature-search-3", Qt::Key_L, control, QConsole::SearchKeys, Action::Type,
        Action::ClearScreen);
    row("feature-search-4 with Shift", Qt::Key_L, control | shift, QConsole::SearchKeys,
        Action::Type, Action::Type);
}

// Each key without any feature, with all others, and with its own.
void tst_KeyTable::features()
{
    QFETCH(const int, key);
    QFETCH(const Qt::KeyboardModifiers, modifiers);
    QFETCH(const QConsole::Feature, feature);
    QFETCH(const Action, without);
    const QKeyEvent event(QEvent::KeyPress, key, modifiers);
    consolekeys::Place place {
        .isInZone = true, .hasLineAbove = true, .hasLineBelow = true, .isInIndentation = true};
    QCOMPARE(consolekeys::actionOf(event, place), without);
    place.features = QConsole::AllFeatures;
    place.features.setFlag(feature, false);
    QCOMPARE(consolekeys::actionOf(event, place), without);
    place.features = feature;
    QTEST(consolekeys::actionOf(event, place), "with");
    QCOMPARE(consolekeys::isOfFeature(consolekeys::actionOf(event, place)),
             consolekeys::actionOf(event, place) != without);
}

TEST_CLASS(tst_KeyTable)
#include "tst_KeyTable.moc"
