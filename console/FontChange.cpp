#include "console/FontChange.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTimerEvent>

#include <algorithm>

namespace {
constexpr int atOnce = 500; // paragraphs, more than can be seen
constexpr int aStep = 1'000;
} // namespace

void FontChange::start(const QTextCharFormat &format)
{
    characters = format;
    old = QTextCursor(document);
    old.movePosition(QTextCursor::End);
    change(atOnce);
}

void FontChange::change(int paragraphs)
{
    const int first = std::max(0, old.blockNumber() - paragraphs);
    QTextCursor part = old;
    part.setPosition(document->findBlockByNumber(first).position(), QTextCursor::KeepAnchor);
    const bool undoWasOn = document->isUndoRedoEnabled();
    document->setUndoRedoEnabled(false);
    part.beginEditBlock();
    part.mergeBlockCharFormat(characters);
    part.mergeCharFormat(characters);
    part.endEditBlock();
    document->setUndoRedoEnabled(undoWasOn);
    old.setPosition(part.selectionStart());
    if (first > 0)
        timer.start(0, this);
    else
        timer.stop();
}

void FontChange::timerEvent(QTimerEvent *event)
{
    if (event->timerId() == timer.timerId())
        change(aStep);
}
