#pragma once

#include "app/issues/Issue.h"

#include <QList>

// Reads issues from the output of one step of a build, line by line. What follows a message, such
// as a piece of source with a caret or a note, belongs to it.
class IssueReader
{
public:
    void take(const QString &line);

    // What was read so far, with files as the tool named them. The last one may still get details.
    const QList<Issue> &issues() const { return found; }

private:
    void begin(const TextPlace &place, const QString &line);

    QList<Issue> found;
    // Lines that tools print in front of the message they belong to.
    QString before;
};
