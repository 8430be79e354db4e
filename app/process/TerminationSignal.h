#pragma once

#include <QObject>

#include <csignal>

QT_BEGIN_NAMESPACE
class QSocketNotifier;
QT_END_NAMESPACE

// Turns SIGTERM, which asks the process to end, into a signal of Qt's, so that the user can be
// asked. A second one within some seconds ends the process as it always does, also when the process
// is too busy to notice the first. One per process, on the GUI thread.
class TerminationSignal : public QObject
{
    Q_OBJECT

public:
    explicit TerminationSignal(QObject *parent = nullptr);
    ~TerminationSignal() override;

Q_SIGNALS:
    void arrived();

private:
    void take();

    QSocketNotifier *arrival = nullptr;
    struct sigaction before = {};
};
