#include "app/drawing/shapes.h"

#include <QPainter>
#include <QPainterPath>

void shapes::page(QPainter &painter)
{
    QPainterPath outline({3.5, 1.5});
    outline.lineTo(9.5, 1.5);
    outline.lineTo(12.5, 4.5);
    outline.lineTo(12.5, 14.5);
    outline.lineTo(3.5, 14.5);
    outline.closeSubpath();
    painter.drawPath(outline);
    painter.drawPolyline(QPolygonF({{9.5, 1.5}, {9.5, 4.5}, {12.5, 4.5}}));
}

void shapes::pages(QPainter &painter)
{
    painter.drawPolyline(
        QPolygonF({{5.5, 3.5}, {5.5, 1.5}, {13.5, 1.5}, {13.5, 11.5}, {11.5, 11.5}}));
    painter.drawRect(QRectF(2.5, 3.5, 8, 11));
    painter.drawLine(QPointF(4.5, 7.5), QPointF(8.5, 7.5));
    painter.drawLine(QPointF(4.5, 10.5), QPointF(8.5, 10.5));
}

void shapes::folder(QPainter &painter)
{
    painter.drawPolygon(
        QPolygonF({{1.5, 3.5}, {6.5, 3.5}, {8, 5.5}, {14.5, 5.5}, {14.5, 13.5}, {1.5, 13.5}}));
}

void shapes::gear(QPainter &painter)
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
