#pragma once

#include <Qtilities/LoggerEngine.h>
#include <Qtilities/QtilitiesExport.h>

#include <QList>
#include <QMutex>
#include <QObject>
#include <QStringList>
#include <QVariant>

namespace Qtilities::Logging {

// The application's log: hands every message to the engines that want it. One per process. Any
// thread may log; the engines get all messages on the GUI thread, those of another thread when
// control is back in its event loop, or before its own next message. All else is for the GUI thread
// only.
class QTILITIES_EXPORT Logger : public QObject
{
    Q_OBJECT

public:
    // Bit values, so that an engine's or a widget's interest is a mask of them.
    enum MessageType {
        None = 1,
        Info = 2,
        Warning = 4,
        Error = 8,
        Fatal = 16,
        Debug = 32,
        Trace = 64,
        AllLogLevels = 126
    };
    Q_ENUM(MessageType)

    explicit Logger(QObject *parent = nullptr);
    ~Logger() override;

    // The log: the one that was set, else one made on first use, which must be on the GUI thread.
    static Logger *instance();

    // Replaces the log, which stays the caller's; null brings the default back.
    static void setInstance(Logger *logger);

    // Logs a message to the engine of that name, or to all engines that take messages of the
    // whole system when the name is empty; a message to a name that no engine has goes nowhere.
    // The parts are joined by blanks, empty ones left out; the entries of a list by commas.
    virtual void logMessage(const QString &engineName, MessageType type, const QVariant &message,
                            const QVariant &part1 = {}, const QVariant &part2 = {},
                            const QVariant &part3 = {});

    // The same, and shows the message as the application's priority message.
    virtual void logPriorityMessage(const QString &engineName, MessageType type,
                                    const QVariant &message, const QVariant &part1 = {},
                                    const QVariant &part2 = {}, const QVariant &part3 = {});

    // Adds an engine, which the log then owns. False, and the engine stays the caller's, when it
    // is null or has no name, or one of that name is there already.
    virtual bool attachLoggerEngine(LoggerEngine *engine);

    // Removes an engine and hands it back to the caller; null when there is none of that name.
    virtual LoggerEngine *detachLoggerEngine(const QString &name);

    // The engine of that name, or null; still owned by the log.
    virtual LoggerEngine *loggerEngineReference(const QString &name) const;
    // The names of the engines in the order of attachment.
    virtual QStringList loggerEngineNames() const;

    // The word that stands for a type in a log: "Info", "Warning", "Error", "Fatal", "Debug",
    // "Trace", and "None".
    static QString messageTypeName(MessageType type);

Q_SIGNALS:
    // A message was logged, whether or not an engine took it. A priority message comes with both
    // signals.
    void messageLogged(const QString &engineName, Qtilities::Logging::Logger::MessageType type,
                       const QString &text);
    void priorityMessage(Qtilities::Logging::Logger::MessageType type, const QString &text);

private:
    struct Message
    {
        QString engineName;
        MessageType type;
        QString text;
        bool priority;
    };

    void take(const Message &message);
    void keep(const Message &message);
    void deliverKept();
    void deliver(const Message &message);
    void forget(QObject *engine);

    QList<LoggerEngine *> engines;
    QMutex keptMutex;
    QList<Message> kept; // from other threads
};

} // namespace Qtilities::Logging
