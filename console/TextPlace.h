#pragma once

#include "console/ScrollPlace.h"

#include <QTextCursor>

// What a text widget shows first, kept over a change of the layout that moves all text, such as
// another width or font: a view that stood at its end stays there, any other one begins with the
// same line.
class TextPlace
{
public:
    explicit TextPlace(QTextEdit *widget)
        : view(widget),
          place(widget),
          first(widget->cursorForPosition(QPoint(0, 0))),
          above(widget->cursorRect(first).top())
    {
    }

    void restore() const
    {
        QScrollBar *const bar = view->verticalScrollBar();
        if (place.isAtEnd())
            bar->setValue(bar->maximum());
        else
            bar->setValue(bar->value() + view->cursorRect(first).top() - above);
    }

private:
    QTextEdit *view;
    ScrollPlace place;
    QTextCursor first;
    int above; // how much of the line is in sight
};
