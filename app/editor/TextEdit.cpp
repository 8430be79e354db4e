#include "app/editor/TextEdit.h"

#include "app/editor/brackets.h"
#include "app/editor/EditorSettings.h"
#include "app/editor/lineediting.h"
#include "app/editor/LineGutter.h"
#include "app/editor/shades.h"

#include <QKeyEvent>
#include <QWheelEvent>

using namespace Qt::Literals::StringLiterals;

TextEdit::TextEdit(QWidget *parent) : QPlainTextEdit(parent), gutter(new LineGutter(this))
{
    setObjectName(u"text"_s);
    setLineWrapMode(QPlainTextEdit::NoWrap);
    setFrameShape(QFrame::NoFrame);
    setAccessibleName(tr("Text"));
    connect(this, &QPlainTextEdit::blockCountChanged, this, &TextEdit::placeGutter);
    connect(this, &QPlainTextEdit::updateRequest, gutter, &LineGutter::follow);
    connect(this, &QPlainTextEdit::cursorPositionChanged, this, &TextEdit::showMarks);
    connect(EditorSettings::instance(), &EditorSettings::fontChanged, this, &TextEdit::takeFont);
    takeFont();
    showMarks();
}

TextEdit *TextEdit::another() const
{
    auto *sight = new TextEdit;
    sight->setDocument(document());
    sight->setReadOnly(isReadOnly());
    sight->commentSign = commentSign;
    sight->needsTabs = needsTabs;
    sight->setTextCursor(textCursor());
    const auto takeSigns = [this, sight] {
        sight->signsOfLines = signsOfLines;
        sight->gutter->update();
    };
    connect(this, &TextEdit::signsChanged, sight, takeSigns);
    takeSigns();
    return sight;
}

void TextEdit::setMarks(const QList<QTextEdit::ExtraSelection> &theMarks)
{
    marks = theMarks;
    showMarks();
}

void TextEdit::goTo(int line, int column)
{
    const QTextBlock block = document()->findBlockByNumber(qBound(1, line, blockCount()) - 1);
    QTextCursor cursor(block);
    cursor.setPosition(block.position() + qBound(1, column, block.length()) - 1);
    setTextCursor(cursor);
    centerCursor();
}

void TextEdit::setSigns(const QList<Sign> &theSigns)
{
    signsOfLines.clear();
    for (const Sign &sign : theSigns) {
        const QTextBlock block = document()->findBlockByNumber(sign.line - 1);
        if (block.isValid())
            signsOfLines.append({QTextCursor(block), sign.severity, sign.text});
    }
    gutter->update();
    Q_EMIT signsChanged();
}

QString TextEdit::signText(int line) const
{
    QStringList texts;
    for (const PlacedSign &sign : signsOfLines) {
        if (sign.place.blockNumber() == line - 1)
            texts.append(sign.text);
    }
    return texts.join(u'\n');
}

// The first one counts most.
const TextEdit::PlacedSign *TextEdit::signOf(const QTextBlock &block) const
{
    for (const PlacedSign &sign : signsOfLines) {
        if (sign.place.block() == block)
            return &sign;
    }
    return nullptr;
}

void TextEdit::resizeEvent(QResizeEvent *event)
{
    QPlainTextEdit::resizeEvent(event);
    placeGutter();
}

void TextEdit::changeEvent(QEvent *event)
{
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        showMarks();
    else if (event->type() == QEvent::FontChange)
        placeGutter();
}

void TextEdit::keyPressEvent(QKeyEvent *event)
{
    if (!isReadOnly() && event->matches(QKeySequence::InsertParagraphSeparator))
        breakLine();
    else if (!isReadOnly() && event->key() == Qt::Key_Tab && event->modifiers() == Qt::NoModifier)
        indentLines();
    else if (!isReadOnly() && event->key() == Qt::Key_Backtab)
        outdentLines();
    else
        QPlainTextEdit::keyPressEvent(event);
}

void TextEdit::wheelEvent(QWheelEvent *event)
{
    if (event->modifiers() != Qt::ControlModifier) {
        QPlainTextEdit::wheelEvent(event);
        return;
    }
    EditorSettings *settings = EditorSettings::instance();
    const int turned = event->angleDelta().y();
    if (turned != 0)
        settings->setZoom(settings->zoom() + (turned > 0 ? 1 : -1));
    event->accept();
}

Indentation TextEdit::indentation() const
{
    const EditorSettings *settings = EditorSettings::instance();
    Indentation usual = settings->indentation();
    if (needsTabs)
        usual.hasSpaces = false;
    return settings->followsText() && !needsTabs ? Indentation::of(*document(), usual) : usual;
}

void TextEdit::toggleComment()
{
    QTextCursor cursor = textCursor();
    lineediting::toggleComment(&cursor, commentSign);
    setTextCursor(cursor);
}

void TextEdit::takeFont()
{
    const EditorSettings *settings = EditorSettings::instance();
    setFont(settings->shownFont());
    setTabStopDistance(settings->indentation().width * fontMetrics().horizontalAdvance(u' '));
    placeGutter();
}

void TextEdit::placeGutter()
{
    const int width = gutter->sizeHint().width();
    setViewportMargins(width, 0, 0, 0);
    const QRect inside = contentsRect();
    gutter->setGeometry(inside.left(), inside.top(), width, inside.height());
}

void TextEdit::showMarks()
{
    QTextEdit::ExtraSelection line;
    line.format.setBackground(shades::currentLine(palette()));
    line.format.setProperty(QTextFormat::FullWidthSelection, true);
    line.cursor = textCursor();
    line.cursor.clearSelection();
    setExtraSelections(QList<QTextEdit::ExtraSelection> {line} + bracketMarks() + marks);
    gutter->update();
}

QList<QTextEdit::ExtraSelection> TextEdit::bracketMarks() const
{
    const std::optional<brackets::Pair> pair = brackets::at(textCursor());
    if (!pair)
        return {};
    QList<QTextEdit::ExtraSelection> found;
    for (const int place : {pair->here, pair->other}) {
        if (place < 0)
            continue;
        QTextEdit::ExtraSelection mark;
        mark.cursor = QTextCursor(document());
        mark.cursor.setPosition(place);
        mark.cursor.setPosition(place + 1, QTextCursor::KeepAnchor);
        mark.format.setBackground(pair->other < 0 ? shades::unmatched(palette())
                                                  : shades::found(palette()));
        found.append(mark);
    }
    return found;
}

void TextEdit::indentLines()
{
    QTextCursor cursor = textCursor();
    if (cursor.hasSelection())
        lineediting::indent(&cursor, indentation());
    else
        cursor.insertText(lineediting::toNextStep(cursor, indentation()));
    setTextCursor(cursor);
    ensureCursorVisible();
}

void TextEdit::outdentLines()
{
    QTextCursor cursor = textCursor();
    lineediting::outdent(&cursor, indentation());
    setTextCursor(cursor);
}

// The new line begins as far to the right as the old one did.
void TextEdit::breakLine()
{
    QTextCursor cursor = textCursor();
    cursor.beginEditBlock();
    cursor.removeSelectedText();
    const QString before = cursor.block().text().first(cursor.positionInBlock());
    qsizetype indent = 0;
    while (indent < before.size() && (before[indent] == u' ' || before[indent] == u'\t'))
        ++indent;
    cursor.insertBlock();
    cursor.insertText(before.first(indent));
    cursor.endEditBlock();
    setTextCursor(cursor);
    ensureCursorVisible();
}
