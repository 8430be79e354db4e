#pragma once

#include "app/editor/Indentation.h"
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

    // A second sight of the document, with the same place and signs, which must go before this one.
    TextEdit *another() const;

    // Marks places of the text that is seen, such as what a search has found, besides the line of
    // the cursor.
    void setMarks(const QList<QTextEdit::ExtraSelection> &marks);

    // Moves the cursor to a line, counted from 1, into the middle of the view; behind the last
    // line it is the last.
    void goToLine(int line) { goTo(line, 1); }
    // The same, to a column, counted from 1; behind the last one of the line it is its end.
    void goTo(int line, int column);

    // With what the lines of this text are indented.
    Indentation indentation() const;
    // What comments to the end of the line begin with; empty when there are none.
    void setCommentSign(const QString &sign) { commentSign = sign; }
    // Whether lines are indented with tabs whatever the settings say.
    void setNeedsTabs(bool needs) { needsTabs = needs; }
    bool canToggleComment() const { return !isReadOnly() && !commentSign.isEmpty(); }
    void toggleComment();

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

Q_SIGNALS:
    void signsChanged();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    friend class LineGutter;

    void takeFont();
    void placeGutter();
    void showMarks();
    void breakLine();
    void indentLines();
    void outdentLines();
    QList<QTextEdit::ExtraSelection> bracketMarks() const;

    LineGutter *gutter;
    QList<QTextEdit::ExtraSelection> marks;
    QString commentSign;
    bool needsTabs = false;
    struct PlacedSign
    {
        QTextCursor place;
        TextPlace::Severity severity;
        QString text;
    };
    const PlacedSign *signOf(const QTextBlock &block) const;
    QList<PlacedSign> signsOfLines;
};
