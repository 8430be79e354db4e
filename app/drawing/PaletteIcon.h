#pragma once

#include <QIconEngine>

// A picture drawn in the colours of the palette, so that it is at home in any theme, at any size.
class PaletteIcon : public QIconEngine
{
public:
    // Draws on a field of 16 by 16, with the pen and the brush as they are set.
    using Shape = void (*)(QPainter &painter);

    explicit PaletteIcon(Shape theShape, bool missing = false) : shape(theShape), isMissing(missing)
    {
    }

    // One of something that is not there is dotted and crossed out.
    static QIcon icon(Shape shape, bool isMissing = false)
    {
        return QIcon(new PaletteIcon(shape, isMissing));
    }

    QIconEngine *clone() const override { return new PaletteIcon(*this); }
    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override;
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override;

private:
    Shape shape;
    bool isMissing;
};
