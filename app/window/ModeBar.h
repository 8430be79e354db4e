#pragma once

#include <QToolBar>

class QActionGroup;

// The bar of modes on the left of the window: one button with icon and name for each, of which one
// is down.
class ModeBar : public QToolBar
{
    Q_OBJECT

public:
    explicit ModeBar(QWidget *parent = nullptr);

    // Adds a button below the others; Alt with its number, counted from 1, presses it.
    void addMode(int id, const QIcon &icon, const QString &name);

    // Presses the button of a mode; an unknown id does nothing.
    void choose(int id);

Q_SIGNALS:
    void chosen(int id);

private:
    QActionGroup *modes;
};
