#include "console/QConsole.h"

#include "console/CommandHistory.h"
#include "console/Completion.h"
#include "console/consolekeys.h"
#include "console/ConsoleMenu.h"
#include "console/ConsoleWriter.h"
#include "console/DragAndDrop.h"
#include "console/EditionZone.h"
#include "console/HeightLimit.h"
#include "console/RecordedScript.h"
#include "console/TypeAhead.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QFontMetricsF>
#include <QMimeData>
#include <QPointer>

using namespace Qt::Literals::StringLiterals;

struct QConsole::Private
{
    explicit Private(QConsole *console)
        : zone(console),
          writer(console, &zone),
          drag(console, &zone),
          heightLimit(console)
    {
    }

    EditionZone zone;
    ConsoleWriter writer;
    CommandHistory history;
    RecordedScript script;
    DragAndDrop drag;
    HeightLimit heightLimit;
    TypeAhead *typeAhead = nullptr; // the console's
};

QConsole::QConsole(QWidget *parent, const QString &welcomeText)
    : QTextEdit(parent),
      d(std::make_unique<Private>(this)),
      cmdColor(QApplication::palette().brush(QPalette::Current, QPalette::Text).color()),
      errColor(Qt::red),
      outColor(Qt::blue),
      completionColor(Qt::darkGreen),
      history(d->history.entries),
      recordedScript(d->script.commands),
      historyIndex(d->history.index),
      promptParagraph(d->zone.promptParagraph)
{
    document()->setUndoRedoEnabled(false);
    setAcceptRichText(false);
    // As in a terminal, and a hundred times faster for long lines than looking for blanks.
    setWordWrapMode(QTextOption::WrapAnywhere);
    reset(welcomeText);
    setTabStopDistance(4 * QFontMetricsF(currentFont()).horizontalAdvance(u'a'));
}

QConsole::~QConsole() = default;

void QConsole::reset(const QString &welcomeText)
{
    clear();
    QFont font;
    font.setFamily(u"Courier"_s);
    // Fixed pitch even where Courier is missing, and without the ligatures and kerning that would
    // cost two fifths of the time of a line and are nothing for a column of text.
    font.setStyleHint(QFont::TypeWriter, QFont::PreferNoShaping);
    setCurrentFont(font);
    d->writer.startWith(font);
    d->writer.appendParagraph(welcomeText, d->writer.format());
    d->writer.appendParagraph(QString(), d->writer.format());
    d->writer.closeBurst();
    d->zone.reset();
    d->history.clear();
    d->script.commands.clear();
}

void QConsole::clear()
{
    d->writer.closeBurst();
    d->writer.promptIsGone();
    QTextEdit::clear();
}

void QConsole::setPrompt(const QString &newPrompt, bool display)
{
    prompt = newPrompt;
    promptLength = int(newPrompt.length());
    if (display)
        displayPrompt();
}

void QConsole::displayPrompt() { d->writer.showPrompt(prompt, cmdColor); }

void QConsole::setFont(const QFont &font) { d->writer.setFont(font); }

void QConsole::writeOutput(const QString &text, const QColor &color)
{
    d->writer.writeOutput(text, color);
}

bool QConsole::execCommand(const QString &command, bool writeCommand, bool showPrompt,
                           QString *result)
{
    QString modified = command;
    correctPathName(modified);
    if (writeCommand)
        d->writer.echo(modified, cmdColor, [this] { displayPrompt(); });
    d->writer.promptIsGone();
    d->writer.restartClock();
    int res = 0;
    const QString text = interpretCommand(modified, &res);
    if (result)
        *result = text;
    d->writer.showResult(text, res == 0 ? outColor : errColor, cmdColor);
    if (showPrompt)
        displayPrompt();
    return res == 0;
}

int QConsole::saveScript(const QString &fileName) { return d->script.save(fileName); }

int QConsole::loadScript(const QString &fileName)
{
    return RecordedScript::load(
        fileName, [this](const QString &line) { execCommand(line, true, false, nullptr); });
}

void QConsole::correctPathName(QString &text)
{
    if (text.contains(u":\\"_s))
        text.replace(u'\\', u'/');
}

QString QConsole::getCurrentCommand() const { return d->zone.command(); }

void QConsole::replaceCurrentCommand(const QString &newCommand)
{
    d->writer.closeBurst();
    QTextCursor command = d->zone.commandSelection();
    command.insertText(newCommand, d->writer.format(cmdColor));
    setTextCursor(command);
}

bool QConsole::isInEditionZone() const { return d->zone.containsCursor(); }

bool QConsole::isInEditionZone(const int &position) const { return d->zone.contains(position); }

bool QConsole::isSelectionInEditionZone() const { return d->zone.containsSelection(); }

bool QConsole::isCommandComplete(const QString &) { return true; }

QString QConsole::interpretCommand(const QString &command, int *res)
{
    if (*res == 0)
        d->script.commands.append(command);
    Q_EMIT commandExecuted(d->history.add(command));
    return QString();
}

QStringList QConsole::suggestCommand(const QString &, QString &prefix)
{
    prefix.clear();
    return {};
}

void QConsole::keepTypedKeys()
{
    if (!d->typeAhead)
        d->typeAhead = new TypeAhead(this);
}

// Each line that has ended is a command, and may take its time.
void QConsole::typeKeptKeys()
{
    while (d->typeAhead && !d->typeAhead->isEmpty() && !isBusy()) {
        QString line = d->typeAhead->takeLine();
        const bool hasEnded = line.endsWith(u'\n');
        d->writer.moveToEnd();
        textCursor().insertText(hasEnded ? line.chopped(1) : line, d->writer.format(cmdColor));
        ensureCursorVisible();
        if (hasEnded)
            runTypedCommand();
    }
}

void QConsole::forgetKeptKeys()
{
    if (d->typeAhead)
        d->typeAhead->clear();
}

void QConsole::cut()
{
    d->writer.closeBurst();
    if (isSelectionInEditionZone())
        QTextEdit::cut();
    else
        copy();
}

void QConsole::del()
{
    d->writer.closeBurst();
    if (isSelectionInEditionZone())
        textCursor().deleteChar();
}

void QConsole::insertFromMimeData(const QMimeData *source)
{
    if (d->typeAhead && isBusy()) {
        d->typeAhead->append(source->text());
        return;
    }
    d->writer.closeBurst();
    if (isSelectionInEditionZone())
        QTextEdit::insertFromMimeData(source);
}

bool QConsole::event(QEvent *event)
{
    d->writer.closeBurst();
    return QTextEdit::event(event);
}

bool QConsole::viewportEvent(QEvent *event)
{
    d->writer.closeBurst();
    return QTextEdit::viewportEvent(event);
}

// A key that its row ignores is swallowed: it neither edits nor reaches the window.
void QConsole::keyPressEvent(QKeyEvent *event)
{
    if (d->typeAhead && isBusy())
        return pressWhileBusy(event);
    using consolekeys::Action;
    const consolekeys::Place place {.hasSelection = textCursor().hasSelection(),
                                    .isInZone = isSelectionInEditionZone()};
    if (consolekeys::copiesFirst(*event, place)) {
        event->accept();
        copy();
    }
    switch (consolekeys::actionOf(*event, place)) {
    case Action::PassOn:
        return QTextEdit::keyPressEvent(event);
    case Action::PassWithoutEditing:
        return passWithoutEditing(event);
    case Action::Type:
        return typeInZone(event);
    case Action::Cut:
        event->accept();
        return cut();
    case Action::Copy:
        return copy();
    case Action::Complete:
        return complete();
    case Action::DeleteBackwards:
        return deleteBackwards(event);
    case Action::Run:
        return runTypedCommand();
    case Action::GoHome:
        return goHome(event);
    case Action::ShowOlder:
        return showOlderCommand();
    case Action::ShowNewer:
        return showNewerCommand();
    }
}

// The line of the running command is no line to type into, nor to recall older commands to.
void QConsole::pressWhileBusy(QKeyEvent *event)
{
    if (event->matches(QKeySequence::Paste)) {
        paste();
        return;
    }
    if (d->typeAhead->take(*event) || event->key() == Qt::Key_Up || event->key() == Qt::Key_Down)
        return;
    const Qt::TextInteractionFlags flags = textInteractionFlags();
    setTextInteractionFlags(flags & ~Qt::TextEditable);
    QTextEdit::keyPressEvent(event);
    setTextInteractionFlags(flags);
}

// Hands a key to the widget so that it cannot change a selection outside the edition zone. Undo and
// redo change what was typed, wherever the selection is.
void QConsole::passWithoutEditing(QKeyEvent *event)
{
    const bool harmless = isSelectionInEditionZone() || event->matches(QKeySequence::Undo)
        || event->matches(QKeySequence::Redo);
    const Qt::TextInteractionFlags flags = textInteractionFlags();
    if (!harmless)
        setTextInteractionFlags(flags & ~Qt::TextEditable);
    QTextEdit::keyPressEvent(event);
    setTextInteractionFlags(flags);
}

// Typing anywhere else types at the end.
void QConsole::typeInZone(QKeyEvent *event)
{
    if (!isSelectionInEditionZone())
        d->writer.moveToEnd();
    QTextEdit::keyPressEvent(event);
}

void QConsole::inputMethodEvent(QInputMethodEvent *event)
{
    if (d->typeAhead && isBusy()) {
        d->typeAhead->append(event->commitString());
        return;
    }
    const bool types = !event->commitString().isEmpty() || !event->preeditString().isEmpty()
        || event->replacementLength() > 0;
    if (types && !isSelectionInEditionZone())
        d->writer.moveToEnd();
    QTextEdit::inputMethodEvent(event);
}

void QConsole::complete()
{
    if (!isSelectionInEditionZone())
        return;
    QString prefix;
    const QStringList candidates = suggestCommand(getCurrentCommand(), prefix);
    const Completion completion = Completion::of(candidates, prefix);
    if (completion.kind == Completion::Replacement) {
        replaceCurrentCommand(completion.text);
    } else {
        if (completion.kind == Completion::List) {
            d->writer.appendParagraph(completion.list, d->writer.format(completionColor));
            d->writer.appendParagraph(QString(), d->writer.format(cmdColor));
            d->writer.closeBurst();
            displayPrompt();
        }
        insertPlainText(completion.text);
    }
    ensureCursorVisible();
}

void QConsole::deleteBackwards(QKeyEvent *event)
{
    const QTextCursor cursor = textCursor();
    const bool atStart = cursor.position() == d->zone.begin();
    if (atStart || !isSelectionInEditionZone())
        return;
    if (event->matches(QKeySequence::DeleteStartOfWord) && !cursor.hasSelection())
        d->zone.deleteStartOfWord();
    else
        QTextEdit::keyPressEvent(event);
}

void QConsole::runTypedCommand()
{
    if (!isSelectionInEditionZone())
        return;
    verticalScrollBar()->setValue(verticalScrollBar()->maximum());
    const QString command = getCurrentCommand();
    if (isCommandComplete(command))
        execCommand(command, false, true, nullptr);
    else
        d->writer.continueCommand(cmdColor);
}

void QConsole::goHome(QKeyEvent *event)
{
    const bool selects = event->modifiers() & Qt::ShiftModifier;
    d->zone.moveHome(selects ? QTextCursor::KeepAnchor : QTextCursor::MoveAnchor);
    showNewerCommand(); // on purpose: Home goes on as Down
}

void QConsole::showOlderCommand()
{
    if (isInEditionZone() && !d->history.isEmpty())
        replaceCurrentCommand(d->history.older(getCurrentCommand()));
}

void QConsole::showNewerCommand()
{
    if (isInEditionZone() && !d->history.isEmpty())
        replaceCurrentCommand(d->history.newer(getCurrentCommand()));
}

void QConsole::mousePressEvent(QMouseEvent *event)
{
    oldPosition = textCursor().position();
    if (event->button() == Qt::MiddleButton) {
        copy();
        setTextCursor(cursorForPosition(event->position().toPoint()));
        paste();
        return;
    }
    const QTextCursor before = textCursor();
    QTextEdit::mousePressEvent(event);
    d->drag.press(*event, before);
}

// The press of the middle button has pasted; the widget would paste the selection once more.
void QConsole::mouseReleaseEvent(QMouseEvent *event)
{
    d->drag.release();
    if (event->button() != Qt::MiddleButton)
        QTextEdit::mouseReleaseEvent(event);
}

void QConsole::mouseMoveEvent(QMouseEvent *event)
{
    if (!d->drag.move(*event, [this] { return createMimeDataFromSelection(); }))
        QTextEdit::mouseMoveEvent(event);
}

void QConsole::dragMoveEvent(QDragMoveEvent *event) { d->drag.over(event); }

void QConsole::dropEvent(QDropEvent *event)
{
    d->drag.drop(event, oldPosition, [this, event] { QTextEdit::dropEvent(event); });
}

void QConsole::contextMenuEvent(QContextMenuEvent *event)
{
    const QPointer<QMenu> menu = new ConsoleMenu(this);
    menu->exec(event->globalPos());
    delete menu;
}
