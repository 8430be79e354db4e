#pragma once

#include "app/editor/TextSearch.h"

#include <QObject>
#include <QTimer>

class TextEdit;

// A search through the text of an editor that goes on while the user types what to find: what it
// finds is selected, the matches are counted and, as long as the search is in sight, those in view
// are marked.
class IncrementalSearch : public QObject
{
    Q_OBJECT

public:
    explicit IncrementalSearch(TextEdit *edit, QObject *parent = nullptr);

    // What is searched for from now on begins at the selection.
    void begin();

    // Searches for something else: from where the search began, not from the last match.
    void search(const TextSearch &wanted);
    bool isEmpty() const { return current.isEmpty(); }

    // Selects the next or the previous match, round the end of the text if need be.
    void find(bool forward);

    // Replaces the match that is selected, if one is, and goes to the next one.
    void replace(const QString &replacement);
    void replaceAll(const QString &replacement);

    void setInSight(bool flag);

    // How many matches there are, which of them is selected, and what else is to be said.
    QString status() const;

Q_SIGNALS:
    void statusChanged();

private:
    void select(TextSearch::Match match);
    TextSearch::Match selected() const;
    void countSoon();
    void count();
    void mark();

    TextEdit *edit;
    TextSearch current;
    // As long as the search goes on while the user types, it begins here.
    int origin = 0;
    QList<TextSearch::Match> matches;
    QString note;
    QTimer countTimer;
    bool isInSight = false;
};
