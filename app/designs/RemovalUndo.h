#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>

class QWidget;

// What the user has removed from designs, the last first, and brings back. What was deleted on disk
// is not among it. What is of a design that has closed drops out.
class RemovalUndo
{
public:
    struct Item
    {
        QPointer<QObject> design;
        // As commands have them: "files" and a path, "properties" and a name.
        QString kind;
        QString word;
    };

    // What was removed at once.
    void add(const QList<Item> &items);
    bool isEmpty() const;
    // Brings back what was removed last; the user is told what cannot come back.
    void undo(QWidget *window);

private:
    QList<QList<Item>> removals;
};
