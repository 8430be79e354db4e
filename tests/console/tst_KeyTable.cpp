#include "console/consolekeys.h"
#include "tests/TestClass.h"

#include <QKeyEvent>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;
using consolekeys::Action;

Q_DECLARE_METATYPE(consolekeys::Action)

// The rule that chooses what a key does. What it does then is tested with the console.
class tst_KeyTable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rows_data();
    void rows();
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

TEST_CLASS(tst_KeyTable)
#include "tst_KeyTable.moc"
