#include "app/drawing/actionicons.h"

#include "app/drawing/PaletteIcon.h"
#include "app/drawing/shapes.h"

#include <QPainter>
#include <QPainterPath>

namespace {

void drawRun(QPainter &painter)
{
    painter.drawPolygon(QPolygonF({{4.5, 2.5}, {12.5, 8}, {4.5, 13.5}}));
}

void drawRunAll(QPainter &painter)
{
    painter.drawPolygon(QPolygonF({{2.5, 3.5}, {8, 8}, {2.5, 12.5}}));
    painter.drawPolygon(QPolygonF({{8, 3.5}, {13.5, 8}, {8, 12.5}}));
}

void drawRunAgain(QPainter &painter)
{
    constexpr int sixteenths = 16;
    painter.drawArc(QRectF(2.5, 2.5, 11, 11), 0, -330 * sixteenths);
    painter.drawPolyline(QPolygonF({{13, 1.5}, {13, 5.5}, {9, 5.5}}));
}

void drawStop(QPainter &painter) { painter.drawRoundedRect(QRectF(3.5, 3.5, 9, 9), 1.5, 1.5); }

void drawPlus(QPainter &painter)
{
    painter.drawLine(QPointF(12, 9), QPointF(12, 15));
    painter.drawLine(QPointF(9, 12), QPointF(15, 12));
}

// Leaves its lower corner free.
void drawOpenPage(QPainter &painter)
{
    QPainterPath page({7.5, 14.5});
    page.lineTo(2.5, 14.5);
    page.lineTo(2.5, 1.5);
    page.lineTo(8.5, 1.5);
    page.lineTo(11.5, 4.5);
    page.lineTo(11.5, 7.5);
    painter.drawPath(page);
    painter.drawPolyline(QPolygonF({{8.5, 1.5}, {8.5, 4.5}, {11.5, 4.5}}));
}

void drawNewPage(QPainter &painter)
{
    drawOpenPage(painter);
    drawPlus(painter);
}

void drawNewConfiguration(QPainter &painter)
{
    painter.save();
    painter.scale(0.72, 0.72);
    shapes::gear(painter);
    painter.restore();
    drawPlus(painter);
}

void drawEdit(QPainter &painter)
{
    painter.drawPolygon(
        QPolygonF({{10.5, 2.5}, {13.5, 5.5}, {5.5, 13.5}, {2.5, 13.5}, {2.5, 10.5}}));
    painter.drawLine(QPointF(8.5, 4.5), QPointF(11.5, 7.5));
}

void drawSave(QPainter &painter)
{
    painter.drawPolygon(
        QPolygonF({{2.5, 2.5}, {11.5, 2.5}, {13.5, 4.5}, {13.5, 13.5}, {2.5, 13.5}}));
    painter.drawRect(QRectF(5.5, 2.5, 5, 3));
    painter.drawRect(QRectF(4.5, 8.5, 7, 5));
}

void drawSaveAll(QPainter &painter)
{
    painter.drawPolyline(
        QPolygonF({{4.5, 4.5}, {4.5, 1.5}, {14.5, 1.5}, {14.5, 11.5}, {11.5, 11.5}}));
    painter.translate(-0.5, 2.5);
    painter.scale(0.85, 0.85);
    drawSave(painter);
}

void drawFind(QPainter &painter)
{
    painter.drawEllipse(QPointF(6.5, 6.5), 4, 4);
    painter.drawLine(QPointF(9.5, 9.5), QPointF(14, 14));
}

void drawFindInFiles(QPainter &painter)
{
    drawOpenPage(painter);
    painter.drawEllipse(QPointF(10.5, 10.5), 2.5, 2.5);
    painter.drawLine(QPointF(12.3, 12.3), QPointF(15, 15));
}

void drawGoTo(QPainter &painter)
{
    painter.drawEllipse(QPointF(8, 8), 4.5, 4.5);
    for (int quarter = 0; quarter < 4; ++quarter) {
        painter.translate(8, 8);
        painter.rotate(90);
        painter.translate(-8, -8);
        painter.drawLine(QPointF(8, 1), QPointF(8, 5.5));
    }
}

void drawIssue(QPainter &painter)
{
    painter.drawPolygon(QPolygonF({{1.5, 13.5}, {5.5, 4.5}, {9.5, 13.5}}));
    painter.drawLine(QPointF(5.5, 8), QPointF(5.5, 10.5));
    painter.drawPoint(QPointF(5.5, 12));
    painter.drawLine(QPointF(13, 3), QPointF(13, 13.5));
}

void drawNextIssue(QPainter &painter)
{
    drawIssue(painter);
    painter.drawPolyline(QPolygonF({{11, 11.5}, {13, 13.5}, {15, 11.5}}));
}

void drawPreviousIssue(QPainter &painter)
{
    drawIssue(painter);
    painter.drawPolyline(QPolygonF({{11, 5}, {13, 3}, {15, 5}}));
}

// One side is where the keyboard goes.
void drawPanes(QPainter &painter, qreal emptyAt, qreal filledAt)
{
    const QBrush fill = painter.brush();
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(emptyAt, 3.5, 6, 9));
    painter.setBrush(fill);
    painter.drawRect(QRectF(filledAt, 3.5, 6, 9));
    painter.drawRect(QRectF(filledAt, 3.5, 6, 9));
}

void drawNextPane(QPainter &painter) { drawPanes(painter, 1.5, 8.5); }

void drawPreviousPane(QPainter &painter) { drawPanes(painter, 8.5, 1.5); }

void drawSplitView(QPainter &painter)
{
    painter.drawRect(QRectF(2.5, 2.5, 11, 11));
    painter.drawLine(QPointF(2.5, 8), QPointF(13.5, 8));
}

void drawComment(QPainter &painter)
{
    painter.drawLine(QPointF(1.5, 12.5), QPointF(5, 3.5));
    painter.drawLine(QPointF(4.5, 12.5), QPointF(8, 3.5));
    for (const qreal row : {4.5, 8.0, 11.5})
        painter.drawLine(QPointF(9.5, row), QPointF(14.5, row));
}

void drawSmaller(QPainter &painter)
{
    drawFind(painter);
    painter.drawLine(QPointF(4.5, 6.5), QPointF(8.5, 6.5));
}

void drawLarger(QPainter &painter)
{
    drawSmaller(painter);
    painter.drawLine(QPointF(6.5, 4.5), QPointF(6.5, 8.5));
}

void drawRename(QPainter &painter)
{
    painter.drawRect(QRectF(1.5, 5.5, 13, 5));
    painter.drawLine(QPointF(10.5, 3), QPointF(10.5, 13));
    for (const qreal end : {2.5, 13.5})
        painter.drawLine(QPointF(9, end), QPointF(12, end));
}

void drawRemove(QPainter &painter)
{
    painter.drawPolyline(QPolygonF({{6.5, 4.5}, {6.5, 2.5}, {9.5, 2.5}, {9.5, 4.5}}));
    painter.drawLine(QPointF(2.5, 4.5), QPointF(13.5, 4.5));
    painter.drawPolygon(QPolygonF({{4.5, 4.5}, {5, 14}, {11, 14}, {11.5, 4.5}}));
    painter.drawLine(QPointF(8, 7), QPointF(8, 11.5));
}

void drawCut(QPainter &painter)
{
    for (const qreal side : {4.5, 11.5})
        painter.drawEllipse(QPointF(side, 12), 2, 2);
    painter.drawLine(QPointF(5.5, 10.3), QPointF(11, 1.5));
    painter.drawLine(QPointF(10.5, 10.3), QPointF(5, 1.5));
}

void drawPaste(QPainter &painter)
{
    painter.drawRect(QRectF(3.5, 2.5, 9, 12));
    painter.drawRect(QRectF(6, 1.5, 4, 2.5));
    for (const qreal row : {7.5, 10.5})
        painter.drawLine(QPointF(5.5, row), QPointF(10.5, row));
}

void drawKeyboard(QPainter &painter)
{
    painter.drawRoundedRect(QRectF(1.5, 4.5, 13, 8), 1, 1);
    for (const qreal row : {6.5, 8.5}) {
        for (const qreal key : {4.0, 6.7, 9.3, 12.0})
            painter.drawPoint(QPointF(key, row));
    }
    painter.drawLine(QPointF(4.5, 10.5), QPointF(11.5, 10.5));
}

void drawGuide(QPainter &painter)
{
    painter.drawRect(QRectF(1.5, 2.5, 13, 11));
    painter.drawLine(QPointF(1.5, 5.5), QPointF(14.5, 5.5));
    painter.drawLine(QPointF(5.5, 5.5), QPointF(5.5, 13.5));
    painter.drawLine(QPointF(5.5, 10), QPointF(14.5, 10));
}

constexpr PaletteIcon::Shape ofActions[] = {nullptr,
                                            drawRun,
                                            drawRunAll,
                                            drawRunAgain,
                                            drawStop,
                                            drawNewPage,
                                            drawNewConfiguration,
                                            drawEdit,
                                            drawSave,
                                            drawSaveAll,
                                            shapes::folder,
                                            drawFind,
                                            drawFindInFiles,
                                            drawGoTo,
                                            drawNextIssue,
                                            drawPreviousIssue,
                                            drawNextPane,
                                            drawPreviousPane,
                                            drawSplitView,
                                            drawComment,
                                            drawLarger,
                                            drawSmaller,
                                            shapes::pages,
                                            drawRename,
                                            drawRemove,
                                            drawCut,
                                            drawPaste,
                                            drawKeyboard,
                                            drawGuide};
static_assert(std::size(ofActions) == std::size_t(ActionIcon::Last) + 1);

} // namespace

QIcon actionicons::icon(ActionIcon which)
{
    const PaletteIcon::Shape shape = ofActions[int(which)];
    return shape ? PaletteIcon::icon(shape) : QIcon();
}
