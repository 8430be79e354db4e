#include <Qtilities/Logger.h>
#include <Qtilities/Replaceable.h>

#include <QMetaEnum>
#include <QThread>

namespace Qtilities::Logging {

namespace {

using namespace Qt::Literals::StringLiterals;

Core::Replaceable<Logger> &slot()
{
    static auto *const theSlot = new Core::Replaceable<Logger>;
    return *theSlot;
}

QString textOf(const QVariant &part)
{
    if (part.typeId() == QMetaType::QStringList || part.typeId() == QMetaType::QVariantList)
        return part.toStringList().join(", "_L1);
    return part.toString();
}

QString joined(std::initializer_list<QVariant> parts)
{
    QStringList texts;
    for (const QVariant &part : parts) {
        const QString text = textOf(part);
        if (!text.isEmpty())
            texts.append(text);
    }
    return texts.join(u' ');
}

bool takes(const LoggerEngine &engine, const QString &engineName, int type)
{
    const int context =
        engineName.isEmpty() ? LoggerEngine::SystemWide : LoggerEngine::EngineSpecific;
    return engine.isActive() && (engine.messageContexts() & context)
        && (engine.messageTypes() & type) && (engineName.isEmpty() || engine.name() == engineName);
}

} // namespace

Logger::Logger(QObject *parent) : QObject(parent) { }

Logger::~Logger()
{
    deliverKept();
    // The engines go while this is still a log that they can leave.
    while (!engines.isEmpty())
        delete engines.last();
}

Logger *Logger::instance() { return slot().get(); }

void Logger::setInstance(Logger *logger) { slot().set(logger); }

void Logger::logMessage(const QString &engineName, MessageType type, const QVariant &message,
                        const QVariant &part1, const QVariant &part2, const QVariant &part3)
{
    take({engineName, type, joined({message, part1, part2, part3}), false});
}

void Logger::logPriorityMessage(const QString &engineName, MessageType type,
                                const QVariant &message, const QVariant &part1,
                                const QVariant &part2, const QVariant &part3)
{
    take({engineName, type, joined({message, part1, part2, part3}), true});
}

void Logger::take(const Message &message)
{
    if (QThread::currentThread() != thread()) {
        keep(message);
        return;
    }
    deliverKept();
    deliver(message);
}

// One event for all that has come before it is there.
void Logger::keep(const Message &message)
{
    const QMutexLocker lock(&keptMutex);
    kept.append(message);
    if (kept.size() == 1)
        QMetaObject::invokeMethod(this, &Logger::deliverKept, Qt::QueuedConnection);
}

void Logger::deliverKept()
{
    QList<Message> messages;
    {
        const QMutexLocker lock(&keptMutex);
        messages.swap(kept);
    }
    for (const Message &message : std::as_const(messages))
        deliver(message);
}

void Logger::deliver(const Message &message)
{
    const auto &[engineName, type, text, priority] = message;
    // An engine may log, attach engines or delete itself while it takes a message.
    const QList<QPointer<LoggerEngine>> receivers(engines.cbegin(), engines.cend());
    for (const QPointer<LoggerEngine> &engine : receivers) {
        if (!engine || engine->busy || !takes(*engine, engineName, type))
            continue;
        engine->busy = true;
        if (priority)
            engine->logPriorityMessage(type, text);
        else
            engine->logMessage(type, text);
        if (engine)
            engine->busy = false;
    }
    Q_EMIT messageLogged(engineName, type, text);
    if (priority)
        Q_EMIT priorityMessage(type, text);
}

bool Logger::attachLoggerEngine(LoggerEngine *engine)
{
    if (!engine || engine->name().isEmpty() || loggerEngineReference(engine->name()))
        return false;
    engine->setParent(this);
    connect(engine, &QObject::destroyed, this, &Logger::forget);
    engines.append(engine);
    return true;
}

LoggerEngine *Logger::detachLoggerEngine(const QString &name)
{
    LoggerEngine *const engine = loggerEngineReference(name);
    if (engine) {
        disconnect(engine, &QObject::destroyed, this, &Logger::forget);
        engines.removeAll(engine);
        engine->setParent(nullptr);
    }
    return engine;
}

void Logger::forget(QObject *engine)
{
    engines.removeIf([engine](const LoggerEngine *known) { return known == engine; });
}

LoggerEngine *Logger::loggerEngineReference(const QString &name) const
{
    for (LoggerEngine *engine : engines) {
        if (engine->name() == name)
            return engine;
    }
    return nullptr;
}

QStringList Logger::loggerEngineNames() const
{
    QStringList names;
    for (const LoggerEngine *engine : engines)
        names.append(engine->name());
    return names;
}

QString Logger::messageTypeName(MessageType type)
{
    return QLatin1StringView(QMetaEnum::fromType<MessageType>().valueToKey(type));
}

} // namespace Qtilities::Logging
