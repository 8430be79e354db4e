#pragma once

#include <QTimer>
#include <QWidget>

QT_BEGIN_NAMESPACE
class QLabel;
class QToolButton;
QT_END_NAMESPACE

class QtclConsole;

// Says in the status bar what runs, for how long, and how to stop it; with a button that does. Not
// to be seen while nothing runs, and for what is over at once. Meanwhile the console's mouse cursor
// says that it is busy.
class RunStatus : public QWidget
{
    Q_OBJECT

public:
    explicit RunStatus(QtclConsole *console, QWidget *parent = nullptr);

private:
    void begin();
    void end();
    void show();
    void update();

    QtclConsole *const console;
    QLabel *const label;
    QToolButton *const stopButton;
    QTimer showTimer;
    QTimer cursorTimer;
    QTimer clock; // of what is shown
};
