#pragma once

#include <QStringList>

// The commands that were run, and the walk through them with Up and Down. Entries that equal what
// is typed already are skipped in both directions; the walk ends at the oldest and at the newest.
class CommandHistory
{
public:
    // Takes a command in, and lets the walk begin behind it. Returns its entry.
    QString add(const QString &command);
    void clear();

    bool isEmpty() const { return entries.isEmpty(); }

    // The entry to show in place of what is typed. There must be one.
    QString older(const QString &typed);
    QString newer(const QString &typed);

    QStringList entries; // oldest first, line feeds written as a backslash and the letter n
    int index = 0; // of the entry that the walk has come to
};
