#pragma once

#include <QPlainTextEdit>

class LineGutter;

// A plain text with line numbers beside it and the line of the cursor marked. All colours are
// the palette's.
class TextEdit : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit TextEdit(QWidget *parent = nullptr);

    // Marks places of the text that is seen, such as what a search has found, besides the line of
    // the cursor.
    void setMarks(const QList<QTextEdit::ExtraSelection> &marks);

    // Moves the cursor to a line, counted from 1, into the middle of the view; behind the last
    // line it is the last.
    void goToLine(int line);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    friend class LineGutter;

    void takeFont();
    void placeGutter();
    void showMarks();
    void breakLine();

    LineGutter *gutter;
    QList<QTextEdit::ExtraSelection> marks;
};
