#pragma once

#include <QPointer>
#include <QWidget>

// A line along the top of the text, list or tree that has the keyboard, since many styles do not
// show it there. It takes no place, no clicks and no keys.
class FocusMark : public QWidget
{
    Q_OBJECT

public:
    // Marks what is in the window.
    explicit FocusMark(QWidget *window);

    QWidget *marked() const { return area; }

protected:
    bool eventFilter(QObject *mover, QEvent *event) override;

private:
    void follow(QWidget *focused);
    void place();
    void watch();

    QWidget *window;
    QPointer<QWidget> area;
    // The area and what it lies in, any of which may move.
    QList<QPointer<QWidget>> watched;
};
