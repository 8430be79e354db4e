#include "app/drawing/PaletteIcon.h"

#include <QApplication>
#include <QPainter>
#include <QPalette>

namespace {

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

void drawCross(QPainter &painter, const QColor &ground)
{
    constexpr QLineF lines[] {{8.5, 8.5, 14, 14}, {14, 8.5, 8.5, 14}};
    painter.setPen(QPen(ground, 4));
    painter.drawLines(lines, 2);
    painter.setPen(QPen(QColor(0xd0, 0x30, 0x30), 2));
    painter.drawLines(lines, 2);
}

} // namespace

void PaletteIcon::paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State)
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
    shape(*painter);
    if (isMissing)
        drawCross(*painter, QApplication::palette().color(QPalette::Base));
    painter->restore();
}

QPixmap PaletteIcon::pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state)
{
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return pixmap;
}
