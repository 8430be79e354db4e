#pragma once

#include <QObject>
#include <QPointer>

class ConsoleHistory;
class QtclConsole;

// The console as the window has it: with the font and the history of the preferences, all features
// of editing, and a journal of what it runs.
class WindowConsole : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    // Until then there is none, and the rest does nothing.
    void adopt(QtclConsole *console);

    // Null when there is none, or it is gone.
    QtclConsole *console() const;

    void followPreferences();

    // Writes the history.
    void remember();

private:
    QPointer<QtclConsole> adopted;
    ConsoleHistory *history = nullptr;
};
