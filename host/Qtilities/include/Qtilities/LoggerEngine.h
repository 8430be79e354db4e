#pragma once

#include <Qtilities/QtilitiesExport.h>

#include <QObject>
#include <QString>

namespace Qtilities::Logging {

// A place that log messages go to: a file, a terminal, a widget. Its object name is its name in
// the log. Engines are used on the GUI thread only and must not throw.
class QTILITIES_EXPORT LoggerEngine : public QObject
{
    Q_OBJECT

public:
    // Which messages an engine takes: those to all engines, those addressed to it by name.
    enum MessageContext { SystemWide = 1, EngineSpecific = 2, AllContexts = 3 };

    explicit LoggerEngine(const QString &name, QObject *parent = nullptr);
    ~LoggerEngine() override;

    QString name() const { return objectName(); }

    int messageContexts() const { return contexts; }
    void setMessageContexts(int mask) { contexts = mask; }

    // The types that the engine takes, a mask of Logger::MessageType.
    int messageTypes() const { return types; }
    void setMessageTypes(int mask) { types = mask; }

    // Takes one message; called only for contexts and types that the engine takes.
    virtual void logMessage(int type, const QString &text) = 0;

    // Drops what the engine shows so far, as before a new run; nothing for engines that keep it.
    virtual void clearLog() { }

private:
    int contexts = AllContexts;
    int types = 126;
};

} // namespace Qtilities::Logging
