#pragma once

#include <QHash>
#include <QStringList>

// The commands that were run, and the walk through them with Up and Down. Entries that equal what
// is typed already are skipped in both directions; the walk ends at the oldest and at the newest.
//
// On wish, commands come back as they were typed, line feeds and all, and the walk ends not at the
// newest entry but at what was typed before it began.
class CommandHistory
{
public:
    // Takes a command in, and lets the walk begin behind it. Returns its entry.
    QString add(const QString &command);
    void clear();

    bool isEmpty() const { return entries.isEmpty(); }

    void setRecallsAsTyped(bool yes) { recallsAsTyped = yes; }

    // The entry to show in place of what is typed. There must be one.
    QString older(const QString &typed);
    QString newer(const QString &typed);

    // The newest command before the entry of that index that contains a text; -1 when there is
    // none.
    int findOlder(const QString &text, int before) const;

    // What the walk shows for an entry.
    QString command(int entry) const;

    QStringList entries; // oldest first, line feeds written as a backslash and the letter n
    int index = 0; // of the entry that the walk has come to

private:
    bool recallsAsTyped = false;
    QHash<int, QString> severalLines; // the commands with line feeds, by their entries
    QString beforeWalk;
};
