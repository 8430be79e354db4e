#pragma once

#include <QWidget>

class TextEdit;

// The line numbers beside a text. A click on one selects its line.
class LineGutter : public QWidget
{
    Q_OBJECT

public:
    explicit LineGutter(TextEdit *edit);

    QSize sizeHint() const override;

    // Moves and paints with the part of the text that was scrolled or painted.
    void follow(const QRect &painted, int scrolled);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    TextEdit *edit;
};
