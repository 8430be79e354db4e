#pragma once

#include <Qtilities/QtilitiesExport.h>

#include <QObject>
#include <QString>

namespace Qtilities::Logging {

// A place that log messages go to: a file, a terminal, a widget. Its object name is its name in
// the log. Engines are used on the GUI thread only and must not throw. Deleting an engine takes it
// off the log. Messages are plain text; an engine shows no character of theirs as markup.
class QTILITIES_EXPORT LoggerEngine : public QObject
{
    Q_OBJECT

public:
    // Which messages an engine takes: those to all engines, those addressed to it by name.
    enum MessageContext { SystemWide = 1, EngineSpecific = 2, AllContexts = 3 };

    explicit LoggerEngine(const QString &name, QObject *parent = nullptr);
    ~LoggerEngine() override;

    QString name() const { return objectName(); }

    // A mask of MessageContext.
    int messageContexts() const { return contexts; }
    void setMessageContexts(int mask) { contexts = mask; }

    // The types that the engine takes, a mask of Logger::MessageType.
    int messageTypes() const { return types; }
    void setMessageTypes(int mask) { types = mask; }

    // An engine that is not active takes nothing.
    bool isActive() const { return active; }
    void setActive(bool flag) { active = flag; }

    // Takes one message; called only while the engine is active, and for contexts and types that
    // it takes. What it logs itself meanwhile goes to the other engines.
    virtual void logMessage(int type, const QString &text) = 0;

    // Takes a message that the user should not miss; an ordinary one unless the engine can make
    // it stand out.
    virtual void logPriorityMessage(int type, const QString &text) { logMessage(type, text); }

    // Drops what the engine shows so far, as before a new run; nothing for engines that keep it.
    virtual void clearLog() { }

private:
    friend class Logger;

    int contexts = AllContexts;
    int types = 126;
    bool active = true;
    // The log is handing it a message, and hands it no other one.
    bool busy = false;
};

} // namespace Qtilities::Logging
