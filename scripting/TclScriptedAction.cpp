#include "scripting/TclScriptedAction.h"

#include "console/QtclConsole.h"
#include "interp/errorstack.h"

#include <MorvalenCore/DesignManager.h>
#include <MorvalenCore/MorvalenManager.h>
#include <Qtilities/Logger.h>
#include <Qtilities/LoggerGui.h>

#include <QMutex>
#include <QPointer>
#include <QScreen>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::AbstractScriptedAction;
using Qtilities::Core::InstanceFactoryInfo;
using Qtilities::CoreGui::LoggerGui;
using Qtilities::Logging::Logger;
using Qtilities::Logging::LoggerEngine;

namespace TclScripting {

struct TclScriptedActionPrivate
{
    // Held while the script runs.
    QMutex mutex;
    QPointer<LoggerEngine> engine;
    QPointer<QWidget> logWidget;
};

namespace {

constexpr QSize logWindowSize(1000, 600);

bool logsHoldMessages = false;

void logPriority(Logger::MessageType type, const QString &text)
{
    Logger::instance()->logPriorityMessage(QString(), type, text);
}

int refuse(bool *ok, QString *errorMessage, const QString &reason)
{
    if (errorMessage)
        *errorMessage = reason;
    if (ok)
        *ok = false;
    return -1;
}

void prepareWindow(QWidget *window)
{
    window->resize(logWindowSize);
    QRect place(QPoint(0, 0), logWindowSize);
    place.moveCenter(window->screen()->availableGeometry().center());
    window->move(place.topLeft());
    window->setAttribute(Qt::WA_QuitOnClose, false);
    window->setAttribute(Qt::WA_DeleteOnClose);
}

void offerToHost(QWidget *window)
{
    const QStringList contexts = MorvalenCore::DesignManager::instance()->extensionWidgetContexts();
    MorvalenCore::MorvalenManager::instance()->addExtensionWidget({
        .context = contexts.value(0),
        .title = window ? window->windowTitle() : QString(),
        .widget = window,
        .controls = nullptr,
        .area = 1,
        .visibility = 2,
        .modes = {},
    });
}

} // namespace

const Qtilities::Core::FactoryItem<QObject, TclScriptedAction> TclScriptedAction::factory;

TclScriptedAction::TclScriptedAction(QObject *parent)
    : AbstractScriptedAction(parent),
      d(std::make_unique<TclScriptedActionPrivate>())
{
}

TclScriptedAction::~TclScriptedAction()
{
    // An empty file leaves the mutex locked, and so does a script that deletes its own action; a
    // locked one must not be destroyed.
    d->mutex.tryLock();
    d->mutex.unlock();
}

InstanceFactoryInfo TclScriptedAction::staticInstanceFactoryInfo()
{
    return {u"Design Factory"_s, u"text/x-tcl"_s, QString()};
}

void TclScriptedAction::setLogsHoldMessages(bool hold) { logsHoldMessages = hold; }

InstanceFactoryInfo TclScriptedAction::instanceFactoryInfo() const
{
    InstanceFactoryInfo info = staticInstanceFactoryInfo();
    info.instanceName = objectName();
    return info;
}

void TclScriptedAction::execute() { execute(nullptr, nullptr); }

int TclScriptedAction::execute(bool *ok, QString *errorMessage)
{
    const QString script = filePath();
    if (!filePathExists()) {
        constexpr const char *missing =
            QT_TR_NOOP("Executing script failed. The script file does not exist at path: ");
        logPriority(Logger::Error, QString::fromLatin1(missing) + script);
        return refuse(ok, errorMessage, tr(missing) + script);
    }
    logPriority(Logger::Info, u"Executing script: "_s + script);
    if (!d->mutex.tryLock())
        return refuse(ok, errorMessage,
                      tr("Command cannot be executed! Failed to lock script mutex..."));
    const QString contents = fileContents();
    // The mutex stays locked: an action that had nothing to run refuses all later runs.
    if (contents.isEmpty())
        return refuse(ok, errorMessage, tr("Command cannot be executed! Script file is empty."));

    if (showExecutionLog())
        showLog();
    run(script, contents);
    if (ok)
        *ok = true;
    return 0;
}

void TclScriptedAction::run(const QString &script, const QString &contents)
{
    QtclConsole *console = QtclConsole::getInstance(nullptr, QString());
    const auto output = connect(console, &QtclConsole::newConsoleOutput, this,
                                &TclScriptedAction::handleNewConsoleOutput);
    const auto errors = connect(console, &QtclConsole::newErrorOutput, this,
                                &TclScriptedAction::handleNewErrorOutput);
    const errorstack::Script origin(script);
    // The stack of a failure is in the log anyway, at its end.
    const auto hold = [this, &origin](const QString &engine, Logger::MessageType type,
                                      const QString &message) {
        if (d->engine && engine.isEmpty() && message != origin.stack())
            Logger::instance()->logMessage(d->engine->name(), type, message);
    };
    const auto messages = logsHoldMessages
        ? connect(Logger::instance(), &Logger::messageLogged, this, hold)
        : QMetaObject::Connection();
    // The script may delete this action.
    const QPointer<TclScriptedAction> self(this);
    QString text;
    initExec();
    const bool succeeded = console->execCommand(contents, true, true, &text);
    finalizeExec();
    disconnect(messages);
    if (succeeded)
        logPriority(Logger::Info, u"Successfully executed script: "_s + script);
    else
        logPriority(Logger::Error,
                    u"Script execution completed with an error, see the log for details"_s);
    disconnect(output);
    disconnect(errors);
    if (self) {
        if (d->engine && !text.isEmpty())
            Logger::instance()->logMessage(d->engine->name(), Logger::Info, text);
        if (d->engine && !origin.stack().isEmpty())
            Logger::instance()->logMessage(d->engine->name(), Logger::Error, origin.stack());
        d->mutex.unlock();
    }
}

// The engine's name may get a number, so that from here on the engine itself is asked for it.
void TclScriptedAction::showLog()
{
    if (!d->logWidget) {
        QString engineName = u"Script.Exec."_s + getName();
        QWidget *window = LoggerGui::createLogWidget(&engineName, LoggerGui::AllDisplays,
                                                     u"Script Execution Log: "_s + getName(), true,
                                                     Logger::AllLogLevels);
        if (window)
            prepareWindow(window);
        d->logWidget = window;
        d->engine = Logger::instance()->loggerEngineReference(engineName);
        if (d->engine)
            d->engine->setMessageContexts(LoggerEngine::EngineSpecific);
    }
    if (d->engine)
        d->engine->clearLog();
    if (userActionType() != EmbeddedAction)
        offerToHost(d->logWidget);
    else if (d->logWidget)
        d->logWidget->show();
}

void TclScriptedAction::handleNewConsoleOutput(const QString &text)
{
    if (d->engine)
        Logger::instance()->logMessage(d->engine->name(), Logger::Info, text);
}

void TclScriptedAction::handleNewErrorOutput(const QString &text)
{
    if (d->engine)
        Logger::instance()->logMessage(d->engine->name(), Logger::Error, text);
}

} // namespace TclScripting
