#pragma once

#include <Qtilities/Logger.h>

#include <QStringList>

// Gathers the warnings and errors that are logged while it lives, for calls of the host that say
// nowhere else why they failed. Messages to a named engine are not about such calls.
class LogReasons : public QObject
{
public:
    LogReasons()
    {
        using Qtilities::Logging::Logger;
        connect(Logger::instance(), &Logger::messageLogged, this,
                [this](const QString &engine, Logger::MessageType type, const QString &message) {
                    constexpr int reasonTypes = Logger::Warning | Logger::Error | Logger::Fatal;
                    if (engine.isEmpty() && (type & reasonTypes) != 0)
                        texts.append(message);
                });
    }

    // A reason that somebody else gave, behind what was logged before.
    void append(const QString &reason) { texts.append(reason); }

    bool isEmpty() const { return texts.isEmpty(); }

    // A line each, in the order of the log.
    const QStringList &lines() const { return texts; }

private:
    QStringList texts;
};
