#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

// Asks for work soon after it was requested: once control is back in the event loop, however often
// it was requested until then, and the longer the work takes, the rarer.
class Throttle : public QObject
{
    Q_OBJECT

public:
    explicit Throttle(QObject *parent = nullptr);

    void request();

    // Around the work, also when it is done before it was asked for.
    void begin() { effort.start(); }
    void end();

Q_SIGNALS:
    void due();

private:
    QTimer timer;
    QElapsedTimer effort;
    QElapsedTimer sinceEnd;
    qint64 lastEffort = 0;
};
