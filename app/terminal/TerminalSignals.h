#pragma once

#include <QObject>

#include <array>
#include <csignal>

QT_BEGIN_NAMESPACE
class QSocketNotifier;
QT_END_NAMESPACE

// Turns what the keyboard and the terminal send as signals into signals of Qt's while a line is
// edited; otherwise they do what they always do. What would end or stop the process does so once
// somebody has been told. One per process, on the GUI thread.
class TerminalSignals : public QObject
{
    Q_OBJECT

public:
    explicit TerminalSignals(QObject *parent = nullptr);
    ~TerminalSignals() override;

    // Whether a line is edited.
    void setEditing(bool editing);

Q_SIGNALS:
    void interrupted();
    void resized();
    // The process is about to be stopped or ended, and goes on again.
    void leaving();
    void returned();

private:
    void take();
    void pass(int number);

    static constexpr std::array editingSignals {SIGINT, SIGTSTP, SIGWINCH, SIGTERM, SIGHUP};

    QSocketNotifier *arrival = nullptr;
    std::array<struct sigaction, editingSignals.size()> before {};
    bool isEditing = false;
};
