#include "app/editor/LineGutter.h"

#include "app/editor/shades.h"
#include "app/editor/TextEdit.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QTextBlock>
#include <QToolTip>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int leastDigits = 3;

} // namespace

LineGutter::LineGutter(TextEdit *theEdit) : QWidget(theEdit), edit(theEdit)
{
    setObjectName(u"lineNumbers"_s);
}

QSize LineGutter::sizeHint() const
{
    const auto digits = qMax<qsizetype>(leastDigits, QString::number(edit->blockCount()).size());
    const QFontMetrics metrics = edit->fontMetrics();
    return {int(digits + 2) * metrics.horizontalAdvance(u'9'), 0};
}

void LineGutter::follow(const QRect &painted, int scrolled)
{
    if (scrolled)
        scroll(0, scrolled);
    else
        update(0, painted.y(), width(), painted.height());
}

void LineGutter::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    painter.fillRect(event->rect(), shades::gutter(edit->palette()));
    painter.setFont(edit->font());
    const int current = edit->textCursor().blockNumber();
    const int right = width() - edit->fontMetrics().horizontalAdvance(u'9');
    QTextBlock block = edit->firstVisibleBlock();
    QRectF line = edit->blockBoundingGeometry(block).translated(edit->contentOffset());
    while (block.isValid() && line.top() <= event->rect().bottom()) {
        const bool isCurrent = block.blockNumber() == current;
        painter.setPen(isCurrent ? edit->palette().color(QPalette::Text)
                                 : shades::quietText(edit->palette()));
        painter.drawText(QRectF(0, line.top(), right, line.height()), Qt::AlignRight,
                         QString::number(block.blockNumber() + 1));
        if (const TextEdit::PlacedSign *sign = edit->signOf(block))
            paintSign(&painter, line, sign->severity);
        block = block.next();
        line = QRectF(line.bottomLeft(), edit->blockBoundingRect(block).size());
    }
}

// A round one for errors, a triangle for the rest, so that colour is not all that tells them apart.
void LineGutter::paintSign(QPainter *painter, const QRectF &line,
                           TextPlace::Severity severity) const
{
    const int unit = edit->fontMetrics().horizontalAdvance(u'9');
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(shades::severity(severity, edit->palette()));
    const double top = line.top() + (edit->fontMetrics().height() - unit) / 2.0;
    const QRectF place(unit / 6.0, top, unit, unit);
    if (severity == TextPlace::Error)
        painter->drawEllipse(place);
    else
        painter->drawPolygon(QPolygonF() << QPointF(place.center().x(), place.top())
                                         << place.bottomRight() << place.bottomLeft());
}

bool LineGutter::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto *help = static_cast<QHelpEvent *>(event);
    const int line = edit->cursorForPosition(QPoint(0, help->pos().y())).blockNumber() + 1;
    QToolTip::showText(help->globalPos(), edit->signText(line), this);
    return true;
}

void LineGutter::mousePressEvent(QMouseEvent *event)
{
    QTextCursor cursor = edit->cursorForPosition(QPoint(0, event->position().toPoint().y()));
    cursor.movePosition(QTextCursor::StartOfBlock);
    if (!cursor.movePosition(QTextCursor::NextBlock, QTextCursor::KeepAnchor))
        cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    edit->setTextCursor(cursor);
    edit->setFocus();
}
