#pragma once

#include "app/places/TextPlace.h"

#include <QWidget>

class TextEdit;

// The line numbers beside a text, and the signs of its lines. A click on one selects its line; the
// mouse over a sign tells what it says.
class LineGutter : public QWidget
{
    Q_OBJECT

public:
    explicit LineGutter(TextEdit *edit);

    QSize sizeHint() const override;

    // Moves and paints with the part of the text that was scrolled or painted.
    void follow(const QRect &painted, int scrolled);

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    void paintSign(QPainter *painter, const QRectF &line, TextPlace::Severity severity) const;

    TextEdit *edit;
};
