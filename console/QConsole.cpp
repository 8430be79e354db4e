#include "console/QConsole.h"

#include "console/HeightLimit.h"
#include "console/OutputBurst.h"

#include <QApplication>
#include <QFontMetricsF>

using namespace Qt::Literals::StringLiterals;

QConsole::QConsole(QWidget *parent, const QString &welcomeText)
    : QTextEdit(parent),
      cmdColor(QApplication::palette().brush(QPalette::Current, QPalette::Text).color()),
      errColor(Qt::red),
      outColor(Qt::blue),
      completionColor(Qt::darkGreen),
      burst(std::make_unique<OutputBurst>(this)),
      heightLimit(std::make_unique<HeightLimit>(this))
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
    textFormat = QTextCharFormat();
    textFormat.setFont(font);
    appendParagraph(welcomeText, textFormat);
    appendParagraph(QString(), textFormat);
    burst->close();
    promptParagraph = 0;
    promptColumn = 0;
    historyIndex = 0;
    history.clear();
    recordedScript.clear();
}

void QConsole::clear()
{
    burst->close();
    promptWaits = false;
    QTextEdit::clear();
}

void QConsole::setPrompt(const QString &newPrompt, bool display)
{
    prompt = newPrompt;
    promptLength = int(newPrompt.length());
    if (display)
        displayPrompt();
}

void QConsole::displayPrompt()
{
    burst->close();
    const ScrollPlace place(this);
    document()->setUndoRedoEnabled(false);
    const QTextCharFormat own = format(cmdColor);
    QTextCursor end(document());
    end.movePosition(QTextCursor::End);
    if (end.atBlockStart())
        end.setBlockCharFormat(own);
    end.insertText(prompt, own);
    setTextCursor(end);
    setTextColor(cmdColor);
    promptParagraph = end.blockNumber();
    promptColumn = end.positionInBlock();
    promptWaits = true;
    outputEnd = QTextCursor();
    document()->setUndoRedoEnabled(true);
    place.restore();
}

void QConsole::setFont(const QFont &font)
{
    burst->close();
    const bool undoWasOn = document()->isUndoRedoEnabled();
    document()->setUndoRedoEnabled(false);
    textFormat.setFont(font);
    const QTextCursor kept = textCursor();
    QTextCursor all(document());
    all.select(QTextCursor::Document);
    all.mergeBlockCharFormat(textFormat);
    all.mergeCharFormat(textFormat);
    setTextCursor(kept);
    setCurrentFont(font);
    document()->setUndoRedoEnabled(undoWasOn);
}

bool QConsole::execCommand(const QString &command, bool writeCommand, bool showPrompt,
                           QString *result)
{
    QString modified = command;
    correctPathName(modified);
    if (writeCommand)
        echo(modified);
    promptWaits = false;
    burst->restartClock();
    int res = 0;
    const QString text = interpretCommand(modified, &res);
    if (result)
        *result = text;
    showResult(text, res == 0 ? outColor : errColor);
    if (showPrompt)
        displayPrompt();
    return res == 0;
}

void QConsole::correctPathName(QString &text)
{
    if (text.contains(u":\\"_s))
        text.replace(u'\\', u'/');
}

bool QConsole::isCommandComplete(const QString &) { return true; }

QString QConsole::interpretCommand(const QString &command, int *res)
{
    if (*res == 0)
        recordedScript.append(command);
    QString entry = command;
    entry.replace(u'\n', u"\\n"_s);
    history.append(entry);
    historyIndex = int(history.size());
    Q_EMIT commandExecuted(entry);
    return QString();
}

QStringList QConsole::suggestCommand(const QString &, QString &prefix)
{
    prefix.clear();
    return {};
}
