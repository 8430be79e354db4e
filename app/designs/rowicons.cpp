#include "app/designs/rowicons.h"

#include "app/drawing/PaletteIcon.h"
#include "app/drawing/shapes.h"

#include <QApplication>
#include <QPainter>
#include <QPalette>

namespace {

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

constexpr PaletteIcon::Shape ofKinds[] = {nullptr,        drawChip,    shapes::pages, shapes::pages,
                                          shapes::folder, drawSliders, shapes::gear,  shapes::page,
                                          shapes::folder, drawTag,     shapes::gear};

} // namespace

QIcon rowicons::icon(RowKind kind, bool isMissing)
{
    return PaletteIcon::icon(ofKinds[int(kind)], isMissing);
}
