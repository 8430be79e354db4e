#pragma once

#include <QWidget>

class FindBar;
class GoToLineBar;
class PositionBar;
class QTextDocument;
class TextEdit;

// A text with what belongs to one sight of it: below it the strips for finding and for going to a
// line, and the position of the cursor.
class TextView : public QWidget
{
    Q_OBJECT

public:
    explicit TextView(QWidget *parent = nullptr);
    // A second sight of the document of another one, at the same place.
    TextView(const TextView &other, QWidget *parent);

    TextEdit *textEdit() const { return edit; }
    PositionBar *positionBar() const { return position; }
    FindBar *search() const { return findBar; }

    // One strip at a time.
    void openFind(bool replacing);
    void openGoToLine();

    bool hasKeyboard() const;

private:
    TextView(TextEdit *edit, QWidget *parent);

    TextEdit *edit;
    FindBar *findBar;
    GoToLineBar *goToLineBar;
    PositionBar *position;
};
