#include "console/OutputBurst.h"

#include "interp/ScriptRuns.h"

#include <QTimerEvent>

namespace {
constexpr int rhythm = 50; // milliseconds
constexpr int paintingShare = 10; // painting takes at most one part of so many of the time
} // namespace

OutputBurst::OutputBurst(QTextEdit *widget) : view(widget), cursor(widget->document())
{
    sinceClose.start();
    sinceRepaint.start();
}

QTextCursor &OutputBurst::open()
{
    if (isOpen)
        return cursor;
    isOpen = true;
    place.emplace(view);
    keepSelection();
    undoWasOn = view->document()->isUndoRedoEnabled();
    view->document()->setUndoRedoEnabled(false);
    cursor.beginEditBlock();
    deadline.start(rhythm, this);
    return cursor;
}

void OutputBurst::written()
{
    if (sinceClose.elapsed() < rhythm)
        return;
    close();
    sinceClose.start();
    // Where the host keeps its window alive, that repaints.
    if (ScriptRuns::instance() || !view->isVisible() || sinceRepaint.elapsed() < pause)
        return;
    sinceRepaint.start();
    view->viewport()->repaint();
    pause = paintingShare * sinceRepaint.elapsed();
}

void OutputBurst::close()
{
    if (!isOpen)
        return;
    isOpen = false;
    deadline.stop();
    if (place->hasMoved())
        place.emplace(view);
    cursor.endEditBlock();
    view->document()->setUndoRedoEnabled(undoWasOn);
    restoreSelection();
    place->restore();
}

void OutputBurst::timerEvent(QTimerEvent *event)
{
    if (event->timerId() == deadline.timerId())
        close();
}

// A text cursor whose end lies where text is inserted moves behind that text. For a lone cursor
// that is right, a selection must not grow.
void OutputBurst::keepSelection()
{
    const QTextCursor user = view->textCursor();
    anchor = position = QTextCursor();
    if (!user.hasSelection())
        return;
    anchor = position = user;
    anchor.setPosition(user.anchor());
    position.setPosition(user.position());
    QTextCursor &end = user.anchor() > user.position() ? anchor : position;
    end.setKeepPositionOnInsert(true);
}

void OutputBurst::restoreSelection()
{
    if (anchor.isNull())
        return;
    QTextCursor user = view->textCursor();
    if (user.anchor() != anchor.position() || user.position() != position.position()) {
        user.setPosition(anchor.position());
        user.setPosition(position.position(), QTextCursor::KeepAnchor);
        view->setTextCursor(user);
    }
    anchor = position = QTextCursor();
}
