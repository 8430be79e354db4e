#pragma once

#include <QScrollBar>
#include <QTextDocument>
#include <QTextEdit>

// Where a text widget is scrolled to, kept over a change of its text: a view that stood at its end
// follows the text, any other one stays where it is.
class ScrollPlace
{
public:
    explicit ScrollPlace(const QTextEdit *view)
        : bar(view->verticalScrollBar()),
          value(bar->value())
    {
        // Making a cursor in the last line visible leaves the margin below it out of sight.
        atEnd = value >= bar->maximum() - int(view->document()->documentMargin());
    }

    bool isAtEnd() const { return atEnd; }
    bool hasMoved() const { return bar->value() != value; }

    void restore() const { bar->setValue(atEnd ? bar->maximum() : value); }

private:
    QScrollBar *bar;
    int value;
    bool atEnd;
};
