#pragma once

#include <QHash>
#include <QObject>

class EditorArea;
class IssueList;
class TextPage;

// Puts signs of the issues beside the lines of the pages that they are about.
class IssueMarks : public QObject
{
    Q_OBJECT

public:
    // Both stay the caller's and outlive this.
    IssueMarks(const IssueList *list, EditorArea *area, QObject *parent = nullptr);

private:
    void followList();
    void markPages();
    void mark(TextPage *page) const;

    const IssueList *list;
    EditorArea *area;
    // A page is marked once for each state of the list: its signs move with what is typed.
    int state = 0;
    QHash<const QObject *, int> markedAt;
};
