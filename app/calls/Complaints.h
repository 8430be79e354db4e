#pragma once

#include <Qtilities/Logger.h>

#include <QStringList>

// Gathers the warnings and errors that are logged while it lives: the host logs why something
// failed, and a dialog wants to show it.
class Complaints : public QObject
{
public:
    Complaints()
    {
        using Qtilities::Logging::Logger;
        connect(Logger::instance(), &Logger::messageLogged, this,
                [this](const QString &, Logger::MessageType type, const QString &message) {
                    if (type == Logger::Warning || type == Logger::Error || type == Logger::Fatal)
                        texts.append(message);
                });
    }

    bool isEmpty() const { return texts.isEmpty(); }

    // One a line, in the order of the log.
    QString text() const { return texts.join(QLatin1Char('\n')); }

private:
    QStringList texts;
};
