#pragma once

#include <QWidget>

class QLabel;
class QSpinBox;
class TextEdit;

// The strip below a text that asks for a line and goes there. Escape goes back to the text.
class GoToLineBar : public QWidget
{
    Q_OBJECT

public:
    explicit GoToLineBar(TextEdit *edit, QWidget *parent = nullptr);

    void open();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void go();
    void leave();

    TextEdit *edit;
    QSpinBox *line;
    QLabel *lines;
};
