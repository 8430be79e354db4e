#pragma once

#include "console/ScrollPlace.h"

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QObject>
#include <QTextCursor>

#include <optional>

// Writes many lines into a text widget at the price of few layouts.
//
// The document is laid out when an edit block ends, so all that is written within 50 ms shares one.
// The block is open between open() and close(); nothing may read the layout in between, so the
// owner calls close() before it hands any event to the widget or moves the widget's cursor. When
// neither happens a timer closes it. The output of a script that writes for long without returning
// to the event loop is painted every 50 ms, or less often where painting is slow; no event is ever
// processed for that.
//
// While the block is open undo is off, and all of the user's is left as it was: the selection, and
// the place that is scrolled to, which the user may change meanwhile. A view that stands at its end
// follows the output.
//
// The widget owns its burst and outlives it.
class OutputBurst : public QObject
{
public:
    explicit OutputBurst(QTextEdit *view);

    // The cursor to write with. It stands where it was left; writing through any other one is
    // allowed too.
    QTextCursor &open();

    // To be called after each paragraph: paints when that is due.
    void written();

    // Ends the edit block, if one is open.
    void close();

    // Counts the 50 ms until the next painting from now: what a short command writes is painted
    // once, behind the command.
    void restartClock() { sinceClose.start(); }

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    void keepSelection();
    void restoreSelection();

    QTextEdit *const view;
    QTextCursor cursor;
    QTextCursor anchor;
    QTextCursor position;
    QBasicTimer deadline;
    QElapsedTimer sinceClose;
    QElapsedTimer sinceRepaint;
    qint64 pause = 0; // milliseconds until the next painting
    bool isOpen = false;
    bool undoWasOn = false;
    std::optional<ScrollPlace> place;
};
