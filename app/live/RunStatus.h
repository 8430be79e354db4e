#pragma once

#include <QTimer>
#include <QWidget>

QT_BEGIN_NAMESPACE
class QLabel;
class QToolButton;
QT_END_NAMESPACE

// Says in the status bar what runs, for how long, and how to stop it; with a button that does. Not
// to be seen while nothing runs, and for what is over at once. Meanwhile the mouse cursor of the
// window's console says that it is busy.
class RunStatus : public QWidget
{
    Q_OBJECT

public:
    // The console may become the window's later.
    explicit RunStatus(QWidget *parent);

private:
    void begin();
    void end();
    void show();
    void update();
    void setBusyCursor(bool busy);

    QLabel *const label;
    QToolButton *const stopButton;
    QTimer showTimer;
    QTimer cursorTimer;
    QTimer clock; // of what is shown
};
