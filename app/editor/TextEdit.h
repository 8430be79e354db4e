#pragma once

#include "app/places/TextPlace.h"

#include <QPlainTextEdit>
#include <QTextBlock>

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
    void goToLine(int line) { goTo(line, 1); }
    // The same, to a column, counted from 1; behind the last one of the line it is its end.
    void goTo(int line, int column);

    // Signs beside lines, each with what it says. They stay with their lines while the text
    // changes.
    struct Sign
    {
        int line = 0; // counted from 1
        TextPlace::Severity severity = TextPlace::None;
        QString text;
    };
    void setSigns(const QList<Sign> &theSigns);
    // Of the line; empty when there is none.
    QString signText(int line) const;

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
    struct PlacedSign
    {
        QTextCursor place;
        TextPlace::Severity severity;
        QString text;
    };
    const PlacedSign *signOf(const QTextBlock &block) const;
    QList<PlacedSign> signsOfLines;
};
