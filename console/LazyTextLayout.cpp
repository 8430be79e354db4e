#include "console/LazyTextLayout.h"

#include <QPainter>
#include <QStyle>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>
#include <QTimerEvent>

#include <algorithm>
#include <cmath>

namespace {

// A paragraph that takes long to shape keeps its glyphs: otherwise each look at it, and each blink
// of the cursor in it, would shape it anew.
constexpr int longParagraph = 2'000;

// At least so much of the text's end is laid out exactly when all else is estimated.
constexpr int endHeight = 2'000;

constexpr double wholeText = 1e9;
constexpr double noPage = 1e6;

bool isPlainLetter(QChar c) { return c >= u' ' && c <= u'~'; }

// From a line to the next one of its paragraph, as in Qt's own layout. The paragraph's last line is
// as high as its height() says.
double pitchOf(const QTextLine &line)
{
    return std::ceil(line.ascent() + line.descent() + line.leading());
}

} // namespace

LazyTextLayout::LazyTextLayout(QTextDocument *document) : QAbstractTextDocumentLayout(document)
{
    setFont(document->defaultFont());
}

void LazyTextLayout::setFont(const QFont &newFont)
{
    font = newFont;
    QTextLayout sample(QString(100, u'x'), font);
    sample.beginLayout();
    QTextLine line = sample.createLine();
    line.setLeadingIncluded(true);
    line.setNumColumns(100);
    sample.endLayout();
    lineHeight = std::max(1, int(std::ceil(line.height())));
    linePitch = int(pitchOf(line));
    letterWidth = std::max(1.0, line.naturalTextWidth() / 100);
    estimateAll();
    announce(0, wholeText);
}

double LazyTextLayout::textWidth() const
{
    const double page = document()->pageSize().width();
    return page > 0 ? std::max(0.0, page - 2 * document()->documentMargin()) : noPage;
}

int LazyTextLayout::textHeight() const
{
    const QTextBlock last = document()->lastBlock();
    return last.firstLineNumber() + last.lineCount();
}

QSizeF LazyTextLayout::documentSize() const
{
    const double margins = 2 * document()->documentMargin();
    return {std::max(0.0, document()->pageSize().width()), textHeight() + margins};
}

QRectF LazyTextLayout::frameBoundingRect(QTextFrame *) const { return {QPointF(), documentSize()}; }

QTextBlock LazyTextLayout::blockAt(double y) const
{
    const int line = int(std::floor(y - document()->documentMargin()));
    return document()->findBlockByLineNumber(std::clamp(line, 0, textHeight() - 1));
}

int LazyTextLayout::lettersOfLine() const
{
    return std::max(1, int(std::floor(textWidth() / letterWidth)));
}

int LazyTextLayout::estimate(int length, int letters) const
{
    return lineHeight + linePitch * (std::max(0, length - 1) / letters);
}

bool LazyTextLayout::isOnePlainLine(const QTextBlock &block) const
{
    if ((block.length() - 1) * letterWidth > textWidth())
        return false;
    const QString text = block.text();
    return !text.isEmpty() && std::all_of(text.cbegin(), text.cend(), isPlainLetter);
}

// Returns the height.
int LazyTextLayout::layOut(const QTextBlock &block) const
{
    QTextLayout *const layout = block.layout();
    QTextOption option = document()->defaultTextOption();
    option.setTextDirection(block.textDirection());
    option.setAlignment(QStyle::visualAlignment(block.textDirection(), option.alignment()));
    layout->setTextOption(option);
    layout->setCacheEnabled(block.length() > longParagraph);
    double y = 0;
    double bottom = 1;
    layout->beginLayout();
    for (QTextLine line = layout->createLine(); line.isValid(); line = layout->createLine()) {
        line.setLeadingIncluded(true);
        line.setLineWidth(textWidth());
        line.setPosition(QPointF(0, y));
        bottom = y + line.height();
        y += pitchOf(line);
    }
    layout->endLayout();
    return int(std::ceil(bottom));
}

// A paragraph that is looked at turns out to be higher or lower than it was thought to be. Whoever
// looks goes on with its true height; the world is told later, since it may be painting.
void LazyTextLayout::ensureLaidOut(const QTextBlock &block) const
{
    if (block.layout()->lineCount() > 0)
        return;
    const int height = layOut(block);
    if (height == block.lineCount())
        return;
    QTextBlock(block).setLineCount(height);
    auto *self = const_cast<LazyTextLayout *>(this);
    self->staleness.start(0, self);
}

void LazyTextLayout::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != staleness.timerId())
        return;
    staleness.stop();
    announce(0, wholeText);
}

QRectF LazyTextLayout::blockBoundingRect(const QTextBlock &block) const
{
    if (!block.isValid())
        return {};
    ensureLaidOut(block);
    const double margin = document()->documentMargin();
    return {margin, margin + block.firstLineNumber(), textWidth(), double(block.lineCount())};
}

// Follows a change of the text, or of what all of it is laid out by.
void LazyTextLayout::documentChanged(int from, int, int added)
{
    if (from == 0 && added >= document()->characterCount()) {
        estimateAll();
        return announce(0, wholeText);
    }
    QTextBlock first = document()->findBlock(from);
    if (!first.isValid())
        first = document()->lastBlock();
    const QTextBlock behind = measure(first, from + added);
    announce(first.firstLineNumber(), behind.isValid() ? behind.firstLineNumber() : wholeText);
}

void LazyTextLayout::estimateAll()
{
    const int letters = lettersOfLine();
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        block.clearLayout();
        const int height = estimate(block.length() - 1, letters);
        if (height != block.lineCount())
            block.setLineCount(height);
    }
    // Whoever stands at the end stays there.
    int exact = 0;
    for (QTextBlock block = document()->lastBlock(); block.isValid() && exact < endHeight;
         block = block.previous()) {
        block.setLineCount(layOut(block));
        exact += block.lineCount();
    }
}

// Returns the first paragraph that begins behind a position.
QTextBlock LazyTextLayout::measure(QTextBlock block, int to)
{
    for (; block.isValid() && block.position() <= to; block = block.next()) {
        block.clearLayout();
        const int height = isOnePlainLine(block) ? lineHeight : layOut(block);
        if (height != block.lineCount())
            block.setLineCount(height);
    }
    return block;
}

// Tells what has changed, and all that is below when the height has changed with it.
void LazyTextLayout::announce(double fromY, double toY)
{
    const int height = textHeight();
    if (height != announcedHeight) {
        announcedHeight = height;
        toY = wholeText;
        Q_EMIT documentSizeChanged(documentSize());
    }
    const double margins = 2 * document()->documentMargin();
    Q_EMIT update(QRectF(0, fromY, documentSize().width(), toY - fromY + margins));
}

void LazyTextLayout::draw(QPainter *painter, const PaintContext &context)
{
    const QRectF all(QPointF(), documentSize());
    const QRectF clip = context.clip.isValid() ? context.clip : all;
    painter->setPen(context.palette.color(QPalette::Text));
    for (QTextBlock block = blockAt(clip.top()); block.isValid(); block = block.next()) {
        const QRectF rect = blockBoundingRect(block);
        if (rect.top() > clip.bottom())
            break;
        painter->save();
        // Fonts are placed with 26 bits: the numbers must not grow with the text.
        painter->translate(rect.topLeft());
        PaintContext own = context;
        own.clip = clip.translated(-rect.topLeft());
        drawBlock(painter, own, block);
        painter->restore();
    }
}

void LazyTextLayout::drawBlock(QPainter *painter, const PaintContext &context,
                               const QTextBlock &block)
{
    const int position = block.position();
    QList<QTextLayout::FormatRange> ranges;
    for (const Selection &selection : context.selections) {
        const int start = selection.cursor.selectionStart() - position;
        const int end = selection.cursor.selectionEnd() - position;
        if (start < block.length() && end > 0 && end > start)
            ranges.append(QTextLayout::FormatRange {start, end - start, selection.format});
    }
    const QTextLayout *const layout = block.layout();
    layout->draw(painter, QPointF(), ranges, context.clip);
    const int cursor = context.cursorPosition;
    // Below -1 it is counted within the text that an input method composes.
    const bool isComposing = cursor < -1 && !layout->preeditAreaText().isEmpty();
    if (isComposing)
        layout->drawCursor(painter, QPointF(), layout->preeditAreaPosition() - (cursor + 2),
                           cursorWidth);
    else if (block.contains(cursor))
        layout->drawCursor(painter, QPointF(), cursor - position, cursorWidth);
}

int LazyTextLayout::hitTest(const QPointF &point, Qt::HitTestAccuracy accuracy) const
{
    const QTextBlock block = blockAt(point.y());
    const QRectF rect = blockBoundingRect(block);
    if (accuracy == Qt::ExactHit && !rect.contains(point))
        return -1;
    const QPointF own = point - rect.topLeft();
    const QTextLayout *const layout = block.layout();
    int line = 0;
    while (line + 1 < layout->lineCount() && layout->lineAt(line + 1).y() <= own.y())
        ++line;
    const QTextLine hit = layout->lineAt(line);
    if (accuracy == Qt::ExactHit)
        return hit.naturalTextRect().contains(own)
            ? block.position() + hit.xToCursor(own.x(), QTextLine::CursorOnCharacter)
            : -1;
    if (own.y() < 0)
        return block.position();
    if (own.y() >= rect.height())
        return block.position() + block.length() - 1;
    return block.position() + hit.xToCursor(own.x());
}
