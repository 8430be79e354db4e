#include "scripting/TclScriptManager.h"

#include "commands/commandset.h"
#include "commands/conventions.h"
#include "console/QtclConsole.h"
#include "interp/servicemode.h"
#include "scripting/StartupListener.h"
#include "scripting/TclScriptedAction.h"
#include "ui_TclScriptManager.h"

#include <MorvalenCore/DesignManager.h>
#include <MorvalenCore/ScriptManager.h>
#include <Qtilities/Logger.h>
#include <Qtilities/QtilitiesApplication.h>

#include <QCoreApplication>
#include <QIcon>
#include <QPointer>

using namespace Qt::Literals::StringLiterals;
using Qtilities::CoreGui::QtilitiesApplication;
using Qtilities::Logging::Logger;

namespace TclScripting {

struct TclScriptManagerPrivate
{
    bool initialized = false;
    Tcl_Interp *interp = nullptr;
    QPointer<QtclConsole> console; // goes with its window
};

namespace {

constexpr int scriptingModeId = 105;

QString greeting()
{
    const QString text = QCoreApplication::applicationName() + u" v"_s
        + QCoreApplication::applicationVersion() + u"\n"_s
        + u"Tcl Scripting Console.\n\nType \"help\" to start.\n"_s;
    return QString::fromLocal8Bit(text.toLocal8Bit().constData());
}

// The inside of a word in double quotes that stands for the text itself: the name of a folder is
// never run as code.
QString escapedForQuotes(const QString &text)
{
    QString escaped;
    for (const QChar c : text) {
        if (u"\\\"$["_s.contains(c))
            escaped += u'\\';
        escaped += c;
    }
    return escaped;
}

QString scriptsFolder() { return QtilitiesApplication::applicationSessionPath() + u"/Scripts"_s; }

void warn(const QString &text) { Logger::instance()->logMessage(QString(), Logger::Warning, text); }

} // namespace

TclScriptManager::TclScriptManager(Tcl_Interp *interp, QWidget *parent)
    : QMainWindow(parent),
      ui(std::make_unique<Ui::TclScriptManager>())
{
    ui->setupUi(this);
    d = std::make_unique<TclScriptManagerPrivate>();
    d->interp = interp;
    d->console = QtclConsole::getInstance(QtilitiesApplication::mainWindow(), greeting());
    commands::registerCommandSet(*commandsManager::getInstance(d->interp));
    if (d->interp && d->interp != commandsManager::getInstance(nullptr)->interp) {
        warn(u"The interpreter given to TclScriptManager is ignored: the command registry has one "
             "already. Give it to commandsManager::getInstance first."_s);
    }
    initInterp();
    servicemode::tellOfLateNotifier([] {
        warn(u"Qtk_InitNotifier was called after the start-up script: what that opened, such as a "
             "server or a pipe, is never served. Call it before TclScriptManager is made."_s);
    });
}

TclScriptManager::~TclScriptManager() = default;

QString TclScriptManager::contextString() const { return u"Context.TclScriptManager"_s; }

QString TclScriptManager::contextHelpId() const { return QString(); }

QWidget *TclScriptManager::modeWidget() { return this; }

void TclScriptManager::initializeMode()
{
    if (d->initialized || !d->console)
        return;
    setCentralWidget(d->console);
    d->initialized = true;
}

QIcon TclScriptManager::modeIcon() const { return QIcon(u":/scripting_mode_48x48.png"_s); }

QString TclScriptManager::modeName() const { return tr("Scripting"); }

int TclScriptManager::modeID() const { return scriptingModeId; }

QString TclScriptManager::execCommad(const QString &command, int *result)
{
    if (!d->console)
        return tr("Tcl console not initialized.");
    int code = TCL_OK;
    const QString text = d->console->interpretCommand(command, &code);
    if (result)
        *result = code;
    return text;
}

void TclScriptManager::initInterp()
{
    if (!d->console)
        return;
    runStartupScript();
    makeScriptsKnown();
    Logger::instance()->logMessage(QString(), Logger::Info,
                                   u"Successfully initialized Tcl script environment."_s);
}

void TclScriptManager::listenToStartup(const std::function<void(const StartupNews &)> &listener)
{
    startupListener() = listener;
}

void TclScriptManager::logStartup()
{
    const QString script = scriptsFolder() + u"/startup.tcl"_s;
    listenToStartup([script](const StartupNews &news) {
        const QString place =
            news.line > 0 ? u"%1:%2"_s.arg(script, QString::number(news.line)) : script;
        warn(place + u": "_s + news.text);
    });
}

// What goes wrong here is shown by what the script itself wrote, and by a host that listens.
void TclScriptManager::runStartupScript()
{
    const QString scripts = scriptsFolder();
    const QString path = escapedForQuotes(preparePath(scripts));
    int code = TCL_OK;
    d->console->interpretCommand(u"cd \"%1\""_s.arg(path), &code);
    StartupListener listener(*d->console, scripts);
    const QString text = d->console->interpretCommand(u"source startup.tcl"_s, &code);
    if (code != TCL_OK)
        listener.tellOfError(text);
}

void TclScriptManager::makeScriptsKnown()
{
    const auto info = TclScriptedAction::staticInstanceFactoryInfo();
    MorvalenCore::ScriptManager::instance()->addKnownScriptType(
        u"text/x-tcl"_s, {u"text/x-tcl"_s, info.factoryTag, info.instanceTag});
    MorvalenCore::DesignManager::instance()->registerFactory(&TclScriptedAction::factory,
                                                             {info.instanceTag, QString()});
}

} // namespace TclScripting
