#include "app/designs/rowicons.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

namespace {

// Shapes are drawn on a field of 16 by 16.
constexpr qreal fieldSize = 16;

struct Pens
{
    QColor line;
    QColor fill;
};

Pens pensFor(QIcon::Mode mode)
{
    const QPalette palette = QApplication::palette();
    if (mode == QIcon::Selected)
        return {palette.color(QPalette::HighlightedText), Qt::transparent};
    const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
    QColor line = palette.color(group, QPalette::Text);
    line.setAlphaF(0.7F);
    QColor fill = palette.color(group, QPalette::Highlight);
    fill.setAlphaF(0.25F);
    return {line, fill};
}

void drawPage(QPainter &painter)
{
    QPainterPath page({3.5, 1.5});
    page.lineTo(9.5, 1.5);
    page.lineTo(12.5, 4.5);
    page.lineTo(12.5, 14.5);
    page.lineTo(3.5, 14.5);
    page.closeSubpath();
    painter.drawPath(page);
    painter.drawPolyline(QPolygonF({{9.5, 1.5}, {9.5, 4.5}, {12.5, 4.5}}));
}

void drawPages(QPainter &painter)
{
    painter.drawPolyline(
        QPolygonF({{5.5, 3.5}, {5.5, 1.5}, {13.5, 1.5}, {13.5, 11.5}, {11.5, 11.5}}));
    painter.drawRect(QRectF(2.5, 3.5, 8, 11));
    painter.drawLine(QPointF(4.5, 7.5), QPointF(8.5, 7.5));
    painter.drawLine(QPointF(4.5, 10.5), QPointF(8.5, 10.5));
}

void drawFolder(QPainter &painter)
{
    painter.drawPolygon(
        QPolygonF({{1.5, 3.5}, {6.5, 3.5}, {8, 5.5}, {14.5, 5.5}, {14.5, 13.5}, {1.5, 13.5}}));
}

void drawSliders(QPainter &painter)
{
    constexpr qreal rows[] {3.5, 8, 12.5};
    constexpr qreal knobs[] {10.5, 5.5, 9};
    for (int i = 0; i < 3; ++i) {
        painter.drawLine(QPointF(1.5, rows[i]), QPointF(14.5, rows[i]));
        painter.drawEllipse(QPointF(knobs[i], rows[i]), 1.6, 1.6);
    }
}

void drawTag(QPainter &painter)
{
    painter.drawPolygon(QPolygonF({{1.5, 4.5}, {9.5, 4.5}, {14, 8}, {9.5, 11.5}, {1.5, 11.5}}));
    painter.drawEllipse(QPointF(9.3, 8), 0.8, 0.8);
}

void drawGear(QPainter &painter)
{
    for (int tooth = 0; tooth < 8; ++tooth) {
        painter.save();
        painter.translate(8, 8);
        painter.rotate(45.0 * tooth);
        painter.drawLine(QPointF(0, -4.6), QPointF(0, -6.6));
        painter.restore();
    }
    painter.drawEllipse(QPointF(8, 8), 4.4, 4.4);
    painter.drawEllipse(QPointF(8, 8), 1.6, 1.6);
}

void drawChip(QPainter &painter)
{
    for (const qreal at : {5.5, 8.0, 10.5}) {
        painter.drawLine(QPointF(at, 1), QPointF(at, 15));
        painter.drawLine(QPointF(1, at), QPointF(15, at));
    }
    const QBrush fill = painter.brush();
    painter.setBrush(QApplication::palette().color(QPalette::Base));
    painter.drawRect(QRectF(3.5, 3.5, 9, 9));
    painter.setBrush(fill);
    painter.drawRect(QRectF(3.5, 3.5, 9, 9));
}

void (*const shapes[])(QPainter &) = {nullptr,    drawChip,    drawPages, drawPages,
                                      drawFolder, drawSliders, drawGear,  drawPage,
                                      drawFolder, drawTag,     drawGear};

// Crosses out what is missing.
void drawCross(QPainter &painter, const QColor &ground)
{
    constexpr QLineF lines[] {{8.5, 8.5, 14, 14}, {14, 8.5, 8.5, 14}};
    painter.setPen(QPen(ground, 4));
    painter.drawLines(lines, 2);
    painter.setPen(QPen(QColor(0xd0, 0x30, 0x30), 2));
    painter.drawLines(lines, 2);
}

class RowIconEngine : public QIconEngine
{
public:
    RowIconEngine(RowKind rowKind, bool missing) : kind(rowKind), isMissing(missing) { }

    QIconEngine *clone() const override { return new RowIconEngine(*this); }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override
    {
        const Pens pens = pensFor(mode);
        const qreal scale = std::min(rect.width(), rect.height()) / fieldSize;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.center() + QPointF(0.5, 0.5)
                           - QPointF(fieldSize, fieldSize) * scale / 2);
        painter->scale(scale, scale);
        QPen pen(pens.line, 1);
        if (isMissing)
            pen.setStyle(Qt::DotLine);
        painter->setPen(pen);
        painter->setBrush(pens.fill);
        shapes[int(kind)](*painter);
        if (isMissing)
            drawCross(*painter, QApplication::palette().color(QPalette::Base));
        painter->restore();
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }

private:
    RowKind kind;
    bool isMissing;
};

} // namespace

QIcon rowicons::icon(RowKind kind, bool isMissing)
{
    return QIcon(new RowIconEngine(kind, isMissing));
}
