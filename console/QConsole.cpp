#include "console/QConsole.h"

#include "console/CommandHistory.h"
#include "console/ConsoleMenu.h"
#include "console/ConsoleWriter.h"
#include "console/DragAndDrop.h"
#include "console/EditionZone.h"
#include "console/Keyboard.h"
#include "console/RecordedScript.h"
#include "console/TextPlace.h"
#include "console/TypeAhead.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QFontMetricsF>
#include <QKeyEvent>
#include <QMimeData>
#include <QPointer>
#include <QTextBlock>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr int mostRichText = 100'000; // characters

// As other programs know it. Without branches, for texts of a hundred million letters.
void makePlain(QString *text)
{
    for (QChar &letter : *text) {
        const char16_t c = letter.unicode();
        const bool ends = c == QChar::ParagraphSeparator || c == QChar::LineSeparator;
        letter = QChar(ends ? u'\n' : c == QChar::Nbsp ? u' ' : c);
    }
}
} // namespace

struct QConsole::Private
{
    explicit Private(QConsole *console)
        : zone(console),
          writer(console, &zone),
          keyboard(console, &zone, &writer, &history),
          drag(console, &zone)
    {
    }

    EditionZone zone;
    ConsoleWriter writer;
    CommandHistory history;
    RecordedScript script;
    Keyboard keyboard;
    DragAndDrop drag;
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

QTextCursor QConsole::beginOutput(const QString &text, const QColor &color)
{
    d->writer.writeOutput(text, color);
    return d->writer.outputTail();
}

void QConsole::continueOutput(QTextCursor &tail, const QString &text, const QColor &color)
{
    d->writer.continueOutput(tail, text, color);
}

void QConsole::keepLightGround()
{
    QPalette light = palette();
    light.setColor(QPalette::Base, Qt::white);
    light.setColor(QPalette::Text, Qt::black);
    light.setColor(QPalette::PlaceholderText, Qt::darkGray);
    setPalette(light);
    const QColor before = std::exchange(cmdColor, QColor(Qt::black));
    if (before == cmdColor)
        return;
    QTextCharFormat black;
    black.setForeground(cmdColor);
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextFragment fragment = part.fragment();
            if (fragment.charFormat().foreground().color() != before)
                continue;
            QTextCursor cursor(document());
            cursor.setPosition(fragment.position());
            cursor.setPosition(fragment.position() + fragment.length(), QTextCursor::KeepAnchor);
            cursor.mergeCharFormat(black);
        }
    }
    // What is typed behind the first prompt.
    mergeCurrentCharFormat(black);
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
    const QPointer<QConsole> alive(this);
    const QString text = interpretCommand(modified, &res);
    if (result)
        *result = text;
    if (!alive)
        return res == 0;
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
    Q_EMIT commandTaken(command);
    if (*res == 0)
        Q_EMIT commandSucceeded(command);
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
            d->keyboard.run();
    }
}

void QConsole::forgetKeptKeys()
{
    if (d->typeAhead)
        d->typeAhead->clear();
}

QStringList QConsole::suggestWord(const QString &, QString &prefix)
{
    prefix.clear();
    return {};
}

void QConsole::setFeatures(Features features)
{
    d->keyboard.features = features;
    d->history.setRecallsAsTyped(features.testFlag(RecallAsTyped));
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

// Making rich text of very much takes seconds; whoever copies so much wants the words.
QMimeData *QConsole::createMimeDataFromSelection() const
{
    const QTextCursor cursor = textCursor();
    if (cursor.selectionEnd() - cursor.selectionStart() <= mostRichText)
        return QTextEdit::createMimeDataFromSelection();
    const int from = cursor.selectionStart();
    // Made at once, and then cut in its place: several times as fast as the cursor's own
    // selectedText(), and a copy less of what is counted in hundreds of megabytes.
    QString text = document()->toRawText();
    text.truncate(cursor.selectionEnd());
    text.remove(0, from);
    makePlain(&text);
    auto *words = new QMimeData;
    words->setText(text);
    return words;
}

void QConsole::insertFromMimeData(const QMimeData *source)
{
    if (keepsKeys()) {
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
    // The window's shortcuts come first unless the console says that the key is its own.
    if (event->type() == QEvent::ShortcutOverride
        && d->keyboard.wants(*static_cast<QKeyEvent *>(event), keepsKeys())) {
        event->accept();
        return true;
    }
    return QTextEdit::event(event);
}

bool QConsole::viewportEvent(QEvent *event)
{
    d->writer.closeBurst();
    return QTextEdit::viewportEvent(event);
}

void QConsole::resizeEvent(QResizeEvent *event)
{
    const TextPlace place(this);
    QTextEdit::resizeEvent(event);
    place.restore();
}

void QConsole::keyPressEvent(QKeyEvent *event)
{
    if (keepsKeys())
        pressWhileBusy(event);
    else
        d->keyboard.press(event);
}

// What is typed now is for the next prompt.
bool QConsole::keepsKeys() const { return d->typeAhead && isBusy(); }

// The line of the running command is no line to type into, nor to recall older commands to.
void QConsole::pressWhileBusy(QKeyEvent *event)
{
    if (event->matches(QKeySequence::Paste)) {
        paste();
        return;
    }
    if (d->keyboard.pressWhileBusy(event) || d->typeAhead->take(*event)
        || event->key() == Qt::Key_Up || event->key() == Qt::Key_Down)
        return;
    const Qt::TextInteractionFlags flags = textInteractionFlags();
    setTextInteractionFlags(flags & ~Qt::TextEditable);
    QTextEdit::keyPressEvent(event);
    setTextInteractionFlags(flags);
}

void QConsole::inputMethodEvent(QInputMethodEvent *event)
{
    if (keepsKeys())
        d->typeAhead->append(event->commitString());
    else
        d->keyboard.compose(event);
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
