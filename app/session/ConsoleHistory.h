#pragma once

#include <Qtilities/Status.h>

#include <QByteArray>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QTimer>

class QConsole;

// Keeps the console's history in a file of the session while the user wants it, oldest command
// first, one a line in the form that the history has. Several processes may share the file: each
// adds its own commands to what is there, and the file is written whole or not at all.
class ConsoleHistory : public QObject
{
    Q_OBJECT

public:
    // The file holds so many commands at most.
    static constexpr int most = 1'000;

    // Gives the console what the file holds, and adds to the file what the console runs from now
    // on. Does neither while the preferences say no.
    explicit ConsoleHistory(QConsole *console, QObject *parent = nullptr);
    ~ConsoleHistory() override;

    static QString fileName();

    // Follows the preferences: when nothing is to be kept any more, the file is emptied.
    void followPreferences();

    // Writes what is not written yet.
    void write();

private:
    void give(QConsole *console);
    void add(const QString &command);
    // Behind what other processes have written since.
    Qtilities::Core::Status append();

    QStringList added;
    // What a write that failed may have put there, and how many of those added are in it.
    QByteArray unconfirmed;
    qsizetype unconfirmedCount = 0;
    QTimer writeTimer;
    bool isKept = false;
};
