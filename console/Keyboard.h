#pragma once

#include "console/consolekeys.h"
#include "console/QConsole.h"

#include <QAbstractSlider>
#include <QTextCursor>

class CommandHistory;
class ConsoleWriter;
class EditionZone;

// Does what a key means in a console. Which action a key stands for says the table of consolekeys.
// A key that its row ignores is swallowed: it neither edits nor reaches the window.
class QConsole::Keyboard
{
public:
    Keyboard(QConsole *widget, EditionZone *editionZone, ConsoleWriter *consoleWriter,
             CommandHistory *commandHistory);

    void press(QKeyEvent *event);

    // Does what the key means while the console is busy: what only looks. False for another key.
    bool pressWhileBusy(QKeyEvent *event);

    // What Return does.
    void run();

    // Whether a key that the window knows too is the console's, by a feature; of a busy console
    // only what pressWhileBusy does.
    bool wants(const QKeyEvent &event, bool isBusy) const;

    // Text that an input method composes or commits.
    void compose(QInputMethodEvent *event);

    QConsole::Features features;

private:
    consolekeys::Place place() const;
    void perform(consolekeys::Action action, QKeyEvent *event);
    void performFeature(consolekeys::Action action);
    void passOn(QKeyEvent *event);
    void passWithoutEditing(QKeyEvent *event);
    void type(QKeyEvent *event);
    void complete();
    void showCompletion(const QStringList &candidates, const QString &prefix);
    void completeWord();
    QString chosenOf(const QStringList &candidates);
    void deleteBackwards(QKeyEvent *event);
    void goHome(QKeyEvent *event);
    void showOlder();
    void showNewer();
    void searchHistory();
    void moveCursor(QTextCursor::MoveOperation operation);
    void indent();
    void scrollPage(QAbstractSlider::SliderAction action);

    QConsole *const console;
    EditionZone *const zone;
    ConsoleWriter *const writer;
    CommandHistory *const history;
};
