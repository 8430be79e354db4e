#pragma once

#include <QObject>
#include <QPointer>

QT_BEGIN_NAMESPACE
class QEvent;
class QMainWindow;
class QMessageBox;
QT_END_NAMESPACE

// Keeps the main window alive while a script runs, and lets the user stop the script: with Escape,
// or with Ctrl+C in the console where nothing is selected. Owned by the window.
//
// The script is between two commands then, and goes on when the events that wait have come. What
// they may do is in passrules.h. Closing the window asks whether to stop the script first.
class LiveWindow : public QObject
{
    Q_OBJECT

public:
    // The console may become the window's later.
    explicit LiveWindow(QMainWindow *window);

    // Processes the events that wait; the pass that Qtk_KeepWindowAlive wants.
    static void pass();

protected:
    bool eventFilter(QObject *receiver, QEvent *event) override;

private:
    static QString refusal();
    void begin();
    void end();
    bool isStopKey(const QObject *receiver, const QEvent &event) const;
    bool isEnd(const QObject *receiver, const QEvent &event) const;
    void cancelBuildsOfScript();
    void askToLeave();
    QMessageBox *question() const;

    QMainWindow *const window;
    QList<QPointer<QObject>> buildsBefore; // the script
    bool leaves = false; // once the script has ended
};
