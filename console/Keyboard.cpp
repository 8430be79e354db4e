#include "console/Keyboard.h"

#include "console/CommandHistory.h"
#include "console/Completion.h"
#include "console/ConsoleWriter.h"
#include "console/EditionZone.h"
#include "console/HistorySearch.h"
#include "console/PopupCompleter.h"
#include "console/TextFind.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QPointer>
#include <QScrollBar>
#include <QTextBlock>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;
using consolekeys::Action;

namespace {
constexpr int indentation = 4;
} // namespace

QConsole::Keyboard::Keyboard(QConsole *widget, EditionZone *editionZone,
                             ConsoleWriter *consoleWriter, CommandHistory *commandHistory)
    : console(widget),
      zone(editionZone),
      writer(consoleWriter),
      history(commandHistory)
{
}

consolekeys::Place QConsole::Keyboard::place() const
{
    const QTextCursor cursor = console->textCursor();
    const QTextCursor command = zone->commandSelection();
    const QTextDocument *const document = console->document();
    const QString before = cursor.block().text().first(cursor.positionInBlock());
    consolekeys::Place here;
    here.hasSelection = cursor.hasSelection();
    here.isInZone = zone->containsSelection();
    here.hasLineAbove =
        here.isInZone && cursor.block() != document->findBlock(command.selectionStart());
    here.hasLineBelow =
        here.isInZone && cursor.block() != document->findBlock(command.selectionEnd());
    here.isInIndentation = here.hasLineAbove && before.trimmed().isEmpty();
    here.features = features;
    return here;
}

void QConsole::Keyboard::press(QKeyEvent *event)
{
    const consolekeys::Place here = place();
    if (consolekeys::copiesFirst(*event, here)) {
        event->accept();
        console->copy();
    }
    perform(consolekeys::actionOf(*event, here), event);
}

bool QConsole::Keyboard::pressWhileBusy(QKeyEvent *event)
{
    const Action action = consolekeys::actionOf(*event, place());
    if (!consolekeys::onlyLooks(action))
        return false;
    performFeature(action);
    return true;
}

bool QConsole::Keyboard::wants(const QKeyEvent &event, bool isBusy) const
{
    const Action action = consolekeys::actionOf(event, place());
    return isBusy ? consolekeys::onlyLooks(action) : consolekeys::isOfFeature(action);
}

void QConsole::Keyboard::perform(Action action, QKeyEvent *event)
{
    switch (action) {
    case Action::PassOn:
        return passOn(event);
    case Action::PassWithoutEditing:
        return passWithoutEditing(event);
    case Action::Type:
        return type(event);
    case Action::Cut:
        event->accept();
        return console->cut();
    case Action::Copy:
        return console->copy();
    case Action::Complete:
        return complete();
    case Action::DeleteBackwards:
        return deleteBackwards(event);
    case Action::Run:
        return run();
    case Action::GoHome:
        return goHome(event);
    case Action::ShowOlder:
        return showOlder();
    case Action::ShowNewer:
        return showNewer();
    default:
        return performFeature(action);
    }
}

void QConsole::Keyboard::performFeature(Action action)
{
    switch (action) {
    case Action::GoToLineStart:
        return zone->moveHome(QTextCursor::MoveAnchor);
    case Action::SelectToLineStart:
        return zone->moveHome(QTextCursor::KeepAnchor);
    case Action::GoUp:
        return moveCursor(QTextCursor::Up);
    case Action::GoDown:
        return moveCursor(QTextCursor::Down);
    case Action::BreakLine:
        console->textCursor().insertBlock();
        return console->ensureCursorVisible();
    case Action::Indent:
        return indent();
    case Action::ScrollPageUp:
        return scrollPage(QAbstractSlider::SliderPageStepSub);
    case Action::ScrollPageDown:
        return scrollPage(QAbstractSlider::SliderPageStepAdd);
    case Action::SearchHistory:
        return searchHistory();
    case Action::Find:
        return SearchStrip::open(new TextFind(console));
    case Action::ClearScreen:
        return writer->clearBeforePrompt(console->cmdColor);
    default:
        return;
    }
}

void QConsole::Keyboard::passOn(QKeyEvent *event) { console->QTextEdit::keyPressEvent(event); }

// Hands a key to the widget so that it cannot change a selection outside the edition zone. Undo and
// redo change what was typed, wherever the selection is.
void QConsole::Keyboard::passWithoutEditing(QKeyEvent *event)
{
    const bool harmless = zone->containsSelection() || event->matches(QKeySequence::Undo)
        || event->matches(QKeySequence::Redo);
    const Qt::TextInteractionFlags flags = console->textInteractionFlags();
    if (!harmless)
        console->setTextInteractionFlags(flags & ~Qt::TextEditable);
    passOn(event);
    console->setTextInteractionFlags(flags);
}

// Typing anywhere else types at the end.
void QConsole::Keyboard::type(QKeyEvent *event)
{
    if (!zone->containsSelection())
        writer->moveToEnd();
    passOn(event);
}

// What an input method replaces is counted from the cursor, and may begin in the prompt.
void QConsole::Keyboard::compose(QInputMethodEvent *event)
{
    const bool types = !event->commitString().isEmpty() || !event->preeditString().isEmpty()
        || event->replacementLength() > 0;
    if (types && !zone->containsSelection())
        writer->moveToEnd();
    if (!types)
        return console->QTextEdit::inputMethodEvent(event);
    const int origin = console->textCursor().selectionStart();
    const int from = origin + event->replacementStart();
    const int begin = std::max(from, zone->begin());
    const int end = std::max(from + event->replacementLength(), begin);
    QInputMethodEvent clipped(event->preeditString(), event->attributes());
    clipped.setCommitString(event->commitString(), begin - origin, end - begin);
    console->QTextEdit::inputMethodEvent(&clipped);
    event->setAccepted(clipped.isAccepted());
}

void QConsole::Keyboard::complete()
{
    if (!zone->containsSelection())
        return;
    QString prefix;
    const QStringList candidates = console->suggestCommand(zone->command(), prefix);
    if (candidates.isEmpty() && features.testFlag(QConsole::CompletionPopup))
        completeWord();
    else
        showCompletion(candidates, prefix);
    console->ensureCursorVisible();
}

void QConsole::Keyboard::showCompletion(const QStringList &candidates, const QString &prefix)
{
    const Completion completion = Completion::of(candidates, prefix);
    if (completion.kind == Completion::Replacement)
        return console->replaceCurrentCommand(completion.text);
    if (completion.kind == Completion::List) {
        writer->appendParagraph(completion.list, writer->format(console->completionColor));
        writer->appendParagraph(QString(), writer->format(console->cmdColor));
        writer->closeBurst();
        console->displayPrompt();
    }
    console->insertPlainText(completion.text);
}

// Completes the word before the cursor as far as all candidates agree. Where that is no further,
// the user chooses.
void QConsole::Keyboard::completeWord()
{
    QTextCursor word = console->textCursor();
    word.setPosition(zone->commandSelection().selectionStart());
    word.setPosition(console->textCursor().position(), QTextCursor::KeepAnchor);
    const QString before = word.selectedText().replace(QChar::ParagraphSeparator, u'\n');
    QString rest;
    const QStringList candidates = console->suggestWord(before, rest);
    if (candidates.isEmpty())
        return showCompletion({}, QString());
    const QString typed = before.sliced(rest.size());
    QString text = Completion::of(candidates, QString()).text;
    if (candidates.size() > 1 && text.size() <= typed.size()) {
        text = chosenOf(candidates);
        if (text.isEmpty())
            return;
    }
    QTextCursor place = console->textCursor();
    place.setPosition(place.position() - int(typed.size()), QTextCursor::KeepAnchor);
    place.insertText(text, writer->format(console->cmdColor));
}

// Empty when the user chose none, or when the console went meanwhile.
QString QConsole::Keyboard::chosenOf(const QStringList &candidates)
{
    const QPointer<PopupCompleter> popup = new PopupCompleter(candidates, console);
    popup->exec(console);
    const QString chosen = popup ? popup->selectedCommand() : QString();
    delete popup;
    return chosen;
}

void QConsole::Keyboard::deleteBackwards(QKeyEvent *event)
{
    const QTextCursor cursor = console->textCursor();
    const bool atStart = cursor.position() == zone->begin();
    if (atStart || !zone->containsSelection())
        return;
    if (event->matches(QKeySequence::DeleteStartOfWord) && !cursor.hasSelection())
        zone->deleteStartOfWord();
    else
        passOn(event);
}

void QConsole::Keyboard::run()
{
    if (!zone->containsSelection())
        return;
    QScrollBar *const bar = console->verticalScrollBar();
    bar->setValue(bar->maximum());
    const QString command = console->getCurrentCommand();
    if (console->isCommandComplete(command))
        console->execCommand(command, false, true, nullptr);
    else
        writer->continueCommand(console->cmdColor);
}

void QConsole::Keyboard::goHome(QKeyEvent *event)
{
    const bool selects = event->modifiers() & Qt::ShiftModifier;
    zone->moveHome(selects ? QTextCursor::KeepAnchor : QTextCursor::MoveAnchor);
    showNewer(); // on purpose: Home goes on as Down
}

void QConsole::Keyboard::showOlder()
{
    if (zone->containsCursor() && !history->isEmpty())
        console->replaceCurrentCommand(history->older(zone->command()));
}

void QConsole::Keyboard::showNewer()
{
    if (zone->containsCursor() && !history->isEmpty())
        console->replaceCurrentCommand(history->newer(zone->command()));
}

void QConsole::Keyboard::searchHistory()
{
    if (!zone->containsSelection())
        writer->moveToEnd();
    SearchStrip::open(new HistorySearch(console, history));
}

void QConsole::Keyboard::moveCursor(QTextCursor::MoveOperation operation)
{
    console->QTextEdit::moveCursor(operation);
    if (!zone->containsCursor())
        zone->moveHome(QTextCursor::MoveAnchor);
}

void QConsole::Keyboard::indent()
{
    const int column = console->textCursor().positionInBlock();
    console->insertPlainText(QString(indentation - column % indentation, u' '));
}

void QConsole::Keyboard::scrollPage(QAbstractSlider::SliderAction action)
{
    console->verticalScrollBar()->triggerAction(action);
}
