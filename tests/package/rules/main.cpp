// A host that keeps, or breaks, one of the rules for hosts: rules WORD. It prints what it sees, and
// what the log says of it.

#include "console/QtclConsole.h"
#include "consoles.h"
#include "interp/commandsManager.h"
#include "interp/QtNotifier.h"
#include "interp/TclCallBack.h"
#include "interp/tcltext.h"
#include "owndesigns.h"
#include "rules.h"
#include "scripting/TclScriptManager.h"

#include <MorvalenCore/AbstractScriptedAction.h>
#include <MorvalenCore/DesignManager.h>
#include <MorvalenCore/ScriptManager.h>
#include <Qtilities/Logger.h>
#include <Qtilities/QtilitiesApplication.h>

#include <QDir>
#include <QFile>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTimer>

#include <cstdio>
#include <map>
#include <memory>
#include <stdexcept>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;
using MorvalenCore::ScriptManager;
using Qtilities::CoreGui::QtilitiesApplication;
using Qtilities::Logging::Logger;
using TclScripting::TclScriptManager;

QString sessionFolder;

void print(const QString &line)
{
    std::printf("%s\n", qPrintable(QString(line).replace(sessionFolder, u"SESSION"_s)));
}

void run(TclScriptManager &manager, const QString &command)
{
    int code = 99;
    const QString text = manager.execCommad(command, &code);
    print(u"%1 -> %2 %3"_s.arg(command, QString::number(code), text));
}

namespace {

void writeStartup(const QByteArray &script)
{
    QFile file(sessionFolder + u"/Scripts/startup.tcl"_s);
    if (!file.open(QIODevice::WriteOnly) || file.write(script) != script.size())
        qFatal("cannot write the start-up script");
}

commandsManager *registry() { return commandsManager::getInstance(nullptr); }

// A server, a timer and the pipe of a child, as a start-up script opens them.
const QByteArray threeEvents = R"(
    set served {}
    proc accept {channel args} { lappend ::served server; close $channel; look }
    proc look {} { if {[llength $::served] == $::wanted} { finish } }
    set server [socket -server accept -myaddr 127.0.0.1 0]
    set port [lindex [fconfigure $server -sockname] 2]
    after 1 { lappend served timer; look }
    set pipe [open "|echo from the child"]
    fileevent $pipe readable { lappend served pipe; close $pipe; look }
)";

// A second manager has what the first has, and begins anew.
void oneOfEach()
{
    writeStartup("incr starts\n");
    TclScriptManager first(nullptr);
    first.initializeMode();
    const QtclConsole *const console = QtclConsole::getInstance(nullptr, {});
    const Tcl_Interp *const interp = registry()->interp;
    run(first, u"set mine yes; set starts"_s);
    TclScriptManager second(nullptr);
    second.initializeMode();
    run(second, u"list $mine $starts"_s);
    print(QtclConsole::getInstance(nullptr, {}) == console ? u"one console"_s : u"two consoles"_s);
    print(registry()->interp == interp ? u"one interpreter"_s : u"two interpreters"_s);
    print(first.centralWidget() ? u"it stays with the first"_s : u"the first has lost it"_s);
}

int finish(ClientData, Tcl_Interp *, int, const char **)
{
    QCoreApplication::quit();
    return TCL_OK;
}

void serveEvents(int wanted, bool inTime)
{
    writeStartup("set wanted " + QByteArray::number(wanted) + threeEvents);
    registry()->registerFunction("finish", finish, "Ends the event loop", nullptr);
    if (inTime)
        Qtk_InitNotifier(qApp);
    TclScriptManager manager(nullptr);
    if (!inTime)
        Qtk_InitNotifier(qApp);
    Qtk_LetNotifierRest();
    QTcpSocket client;
    client.connectToHost(u"127.0.0.1"_s, manager.execCommad(u"set port"_s, nullptr).toUShort());
    QCoreApplication::exec();
    run(manager, u"lsort $served"_s);
}

void notifierFirst() { serveEvents(3, true); }

void notifierLate() { serveEvents(1, false); }

void interpreterToTheRegistry()
{
    Tcl_Interp *const own = Tcl_CreateInterp();
    Tcl_SetVar(own, "mine", "yes", TCL_GLOBAL_ONLY);
    commandsManager::getInstance(own);
    TclScriptManager manager(own);
    run(manager, u"set mine"_s);
}

void interpreterToTheManager()
{
    Tcl_Interp *const own = Tcl_CreateInterp();
    Tcl_SetVar(own, "mine", "yes", TCL_GLOBAL_ONLY);
    TclScriptManager manager(own);
    run(manager, u"info exists mine"_s);
}

int greet(ClientData, Tcl_Interp *interp, int, const char **)
{
    tcltext::appendResult(interp, u"hello"_s);
    return TCL_OK;
}

void commandsFirst()
{
    writeStartup("set greeting [greet]\n");
    registry()->registerFunction("greet", greet, "Says hello", nullptr);
    TclScriptManager::logStartup();
    TclScriptManager manager(nullptr);
    run(manager, u"set greeting"_s);
}

void commandsLate()
{
    writeStartup("# the first line\nset greeting [greet]\n");
    TclScriptManager::logStartup();
    TclScriptManager manager(nullptr);
    registry()->registerFunction("greet", greet, "Says hello", nullptr);
    run(manager, u"greet"_s);
}

void startupInSilence()
{
    writeStartup("set before yes\nnonsense\nset behind yes\n");
    TclScriptManager manager(nullptr);
    run(manager, u"list $before [info exists behind]"_s);
}

// Takes nothing from the manager that was there before.
class OwnDesignManager : public DesignManager
{
public:
    using Status = Qtilities::Core::Status;
    using IDesign = MorvalenCore::Interfaces::IDesign;

    QStringList openDesignIds() const override { return {}; }
    IDesign *design(const QString &) const override { return nullptr; }
    QList<IDesign *> activeDesigns() const override { return {}; }
    void setActiveDesign(const QString &) override { }
    QStringList designTypes() const override { return {}; }
    QString path(PathKind) const override { return {}; }
    QString settingsFileName() const override { return {}; }
    Status tryDesignName(const QString &, const IDesign *) const override { return {}; }
    Status tryAttachDesign(IDesign *, bool) override { return {}; }
    Qtilities::Core::Result<IDesign *> tryParseDesignFromFile(const QString &) override
    {
        return Status::unsupported(u"No"_s);
    }
    Status tryParseDesignToFile(IDesign *, const QString &, bool) override { return {}; }
    Status tryCloseDesign(const QString &, bool) override { return {}; }
    QList<Status> tryPrepareForShutdown(int reason) override
    {
        print(reason == QuitCommand ? u"saves before the end"_s : u"saves"_s);
        return {};
    }
    bool registerFactory(const ObjectFactory *factory,
                         const Qtilities::Core::FactoryItemID &id) override
    {
        factories.insert(id.tag, factory);
        return true;
    }
    const ObjectFactory *factory(const QString &tag) const override { return factories.value(tag); }
    QStringList extensionWidgetContexts() const override { return {}; }

private:
    QHash<QString, const ObjectFactory *> factories;
};

void makeAction()
{
    const std::unique_ptr<MorvalenCore::AbstractScriptedAction> action(
        ScriptManager::instance()->createAction(u"text/x-tcl"_s, u"/a.tcl"_s));
    print(action ? u"an action"_s : u"no action"_s);
}

void managersFirst()
{
    OwnDesignManager own;
    DesignManager::setInstance(&own);
    TclScriptManager manager(nullptr);
    makeAction();
}

void managersLate()
{
    TclScriptManager manager(nullptr);
    OwnDesignManager own;
    DesignManager::setInstance(&own);
    makeAction();
}

void managerDestroyed()
{
    auto own = std::make_unique<OwnDesignManager>();
    DesignManager::setInstance(own.get());
    TclScriptManager manager(nullptr);
    own.reset();
    makeAction();
}

int throwError(ClientData, Tcl_Interp *, int, const char **)
{
    throw std::runtime_error("no such valve");
}

int throwNumber(ClientData, Tcl_Interp *, int, const char **) { throw 42; }

void exceptions()
{
    TclScriptManager manager(nullptr);
    registry()->registerFunction("open_valve", throwError, "Throws", nullptr);
    registry()->registerFunction("throw", throwNumber, "Throws", nullptr);
    run(manager, u"open_valve 1"_s);
    run(manager, u"throw"_s);
    run(manager, u"proc p {} { catch {open_valve 2} text; return [info level]$text }; p"_s);
}

int bye(ClientData, Tcl_Interp *interp, int, const char **)
{
    tcltext::appendResult(interp, u"bye"_s);
    return TCL_OK;
}

void exitAndQuit()
{
    OwnDesignManager own;
    DesignManager::setInstance(&own);
    TclScriptManager manager(nullptr);
    run(manager, u"exit"_s);
    Tcl_CreateCommand(registry()->interp, "dbgExit", bye, nullptr, nullptr);
    run(manager, u"exit"_s);
    run(manager, u"quit"_s);
    print(u"still here"_s);
}

class Lamp
{
public:
    explicit Lamp(const QString &lampName) : name(lampName) { }

    int tell(void *, Tcl_Interp *interp, int, const char **)
    {
        tcltext::appendResult(interp, name);
        return TCL_OK;
    }

private:
    QString name;
};

void oneObjectOfAClass()
{
    Lamp left(u"left"_s);
    Lamp right(u"right"_s);
    TclCallBack<Lamp>::registerMethod(&left, "left_lamp", &Lamp::tell, "Tells", nullptr);
    TclCallBack<Lamp>::registerMethod(&right, "right_lamp", &Lamp::tell, "Tells", nullptr);
    TclScriptManager manager(nullptr);
    run(manager, u"left_lamp"_s);
    run(manager, u"right_lamp"_s);
}

const std::map<QString, void (*)()> rules {
    {u"commands-first"_s, commandsFirst},
    {u"commands-late"_s, commandsLate},
    {u"command-in-command"_s, consoles::commandInCommand},
    {u"current-folder"_s, consoles::currentFolder},
    {u"exceptions"_s, exceptions},
    {u"exit-and-quit"_s, exitAndQuit},
    {u"folders-of-session"_s, owndesigns::foldersOfTheSession},
    {u"folders-where-it-says"_s, owndesigns::foldersWhereTheManagerSays},
    {u"interpreter-to-manager"_s, interpreterToTheManager},
    {u"interpreter-to-registry"_s, interpreterToTheRegistry},
    {u"manager-destroyed"_s, managerDestroyed},
    {u"managers-first"_s, managersFirst},
    {u"managers-late"_s, managersLate},
    {u"name-changes"_s, owndesigns::nameCanBeChanged},
    {u"name-of-its-own"_s, owndesigns::nameIsItsOwn},
    {u"notifier-first"_s, notifierFirst},
    {u"notifier-late"_s, notifierLate},
    {u"one-of-each"_s, oneOfEach},
    {u"one-object"_s, oneObjectOfAClass},
    {u"prompt"_s, consoles::promptOfTheConsole},
    {u"startup-silent"_s, startupInSilence},
    {u"window-gone"_s, consoles::windowGone},
    {u"window-gone-meanwhile"_s, consoles::windowGoneMeanwhile},
};

} // namespace

int main(int argc, char **argv)
{
    QtilitiesApplication application(argc, argv);
    const QTemporaryDir session;
    sessionFolder = session.path();
    QDir(sessionFolder).mkdir(u"Scripts"_s);
    application.setApplicationSessionPath(sessionFolder);
    QObject::connect(Logger::instance(), &Logger::messageLogged,
                     [](const QString &, Logger::MessageType type, const QString &text) {
                         if (type != Logger::Info)
                             print(Logger::messageTypeName(type) + u": "_s + text);
                     });
    const auto rule = argc == 2 ? rules.find(QString::fromLocal8Bit(argv[1])) : rules.end();
    if (rule == rules.end())
        return 2;
    rule->second();
    return 0;
}
