#pragma once

#include <QObject>
#include <QPointer>

QT_FORWARD_DECLARE_CLASS(QAction)

// Takes the keyboard from one pane of the window to the next with F6, and back with Shift+F6. Those
// that do not show are passed over.
class PaneKeys : public QObject
{
    Q_OBJECT

public:
    explicit PaneKeys(QWidget *window);

    // Adds a pane behind the others.
    void add(QWidget *pane) { panes.append(pane); }

    QAction *nextAction() const { return next; }
    QAction *previousAction() const { return previous; }

private:
    void step(int distance);

    QList<QPointer<QWidget>> panes;
    QAction *next;
    QAction *previous;
};
