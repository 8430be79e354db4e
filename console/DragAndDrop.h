#pragma once

#include <QPoint>

#include <functional>
#include <optional>

class EditionZone;

QT_BEGIN_NAMESPACE
class QDragMoveEvent;
class QDropEvent;
class QMimeData;
class QMouseEvent;
class QTextCursor;
class QTextEdit;
QT_END_NAMESPACE

// What may be dragged out of a console's text and dropped into it: text outside the edition zone is
// dragged as a copy only, and nothing is dropped there.
class DragAndDrop
{
public:
    DragAndDrop(QTextEdit *widget, const EditionZone *editionZone) : view(widget), zone(editionZone)
    {
    }

    // A button was pressed; the cursor was this one before.
    void press(const QMouseEvent &event, const QTextCursor &before);
    void release() { start.reset(); }

    // Whether a movement is part of a drag that is ours. makeData is asked for what is dragged when
    // the drag begins.
    bool move(const QMouseEvent &event, const std::function<QMimeData *()> &makeData);

    // Something is dragged over the text.
    void over(QDragMoveEvent *event) const;

    // Something is dropped. A cursor outside the zone first goes back to fallback; insert is the
    // text widget's own way to take a drop.
    void drop(QDropEvent *event, int fallback, const std::function<void()> &insert) const;

private:
    QTextEdit *const view;
    const EditionZone *const zone;
    std::optional<QPoint> start; // a press on a selection that must not be moved away
};
