#include "scripting/TclScriptManager.h"

#include "commands/commandset.h"
#include "console/QtclConsole.h"
#include "interp/servicemode.h"
#include "scripting/startup.h"
#include "scripting/TclScriptedAction.h"
#include "ui_TclScriptManager.h"

#include <MorvalenCore/DesignManager.h>
#include <MorvalenCore/ScriptManager.h>
#include <Qtilities/QtilitiesApplication.h>

#include <QCoreApplication>
#include <QIcon>
#include <QPointer>

using namespace Qt::Literals::StringLiterals;
using Qtilities::CoreGui::QtilitiesApplication;

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
        startup::warn(
            u"The interpreter given to TclScriptManager is ignored: the command registry has one "
            "already. Give it to commandsManager::getInstance first."_s);
    }
    initInterp();
    servicemode::tellOfLateNotifier([] {
        startup::warn(
            u"Qtk_InitNotifier was called after the start-up script: what that opened, "
            "such as a server or a pipe, is never served. Call it before TclScriptManager "
            "is made."_s);
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
    startup::runScript(*d->console);
    makeScriptsKnown();
    startup::logSuccess();
}

void TclScriptManager::listenToStartup(const std::function<void(const StartupNews &)> &listener)
{
    startup::listen(listener);
}

void TclScriptManager::logStartup() { startup::log(); }

void TclScriptManager::makeScriptsKnown()
{
    const auto info = TclScriptedAction::staticInstanceFactoryInfo();
    MorvalenCore::ScriptManager::instance()->addKnownScriptType(
        u"text/x-tcl"_s, {u"text/x-tcl"_s, info.factoryTag, info.instanceTag});
    MorvalenCore::DesignManager::instance()->registerFactory(&TclScriptedAction::factory,
                                                             {info.instanceTag, QString()});
}

} // namespace TclScripting
