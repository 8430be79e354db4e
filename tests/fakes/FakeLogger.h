#pragma once

#include "tests/fakes/Journal.h"

#include <Qtilities/Logger.h>

// A log that notes each message with its type and every argument.
class FakeLogger : public Qtilities::Logging::Logger
{
public:
    explicit FakeLogger(Journal &theJournal) : journal(theJournal) { }

    void logMessage(const QString &engineName, MessageType type, const QVariant &message,
                    const QVariant &part1, const QVariant &part2, const QVariant &part3) override
    {
        note("logger.logMessage", engineName, type, {message, part1, part2, part3});
    }
    void logPriorityMessage(const QString &engineName, MessageType type, const QVariant &message,
                            const QVariant &part1, const QVariant &part2,
                            const QVariant &part3) override
    {
        note("logger.logPriorityMessage", engineName, type, {message, part1, part2, part3});
    }

private:
    void note(const char *call, const QString &engineName, MessageType type,
              const QVariantList &parts)
    {
        QStringList texts;
        for (const QVariant &part : parts)
            texts.append(part.isValid() ? part.toString() : QStringLiteral("-"));
        journal.perform(
            callText(call, {engineName, QString::number(type), texts.join(QStringLiteral(", "))}));
    }

    Journal &journal;
};
