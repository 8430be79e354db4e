#include "app/BatchRun.h"

#include "app/process/programend.h"
#include "app/process/standardstreams.h"
#include "interp/commandsManager.h"
#include "interp/tcltext.h"

#include <Qtilities/Logger.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstring>

#include <unistd.h>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Status;
using Qtilities::Logging::Logger;

namespace {

// Keeps a Tcl value alive.
class Value
{
public:
    explicit Value(Tcl_Obj *value) : object(value) { Tcl_IncrRefCount(object); }
    explicit Value(const QString &text) : Value(fromText(text)) { }
    ~Value() { Tcl_DecrRefCount(object); }
    Q_DISABLE_COPY_MOVE(Value)

    operator Tcl_Obj *() const { return object; }
    QString text() const { return tcltext::fromTcl(Tcl_GetString(object)); }

private:
    static Tcl_Obj *fromText(const QString &text)
    {
        const QByteArray bytes = tcltext::toTcl(text);
        return Tcl_NewStringObj(bytes.constData(), int(bytes.size()));
    }

    Tcl_Obj *object;
};

QString listOf(const QStringList &elements)
{
    const Value list(Tcl_NewListObj(0, nullptr));
    for (const QString &element : elements)
        Tcl_ListObjAppendElement(nullptr, list, Value(element));
    return list.text();
}

// Where the error of the last command came from; the message is its first line, unless the script
// gave it another.
QString errorReport(Tcl_Interp *interp, int code, const QString &message)
{
    const Value options(Tcl_GetReturnOptions(interp, code));
    Tcl_Obj *stack = nullptr;
    Tcl_DictObjGet(nullptr, options, Value(u"-errorinfo"_s), &stack);
    const QString info = stack ? tcltext::fromTcl(Tcl_GetString(stack)) : QString();
    if (info.startsWith(message))
        return info;
    return message + u'\n' + info;
}

} // namespace

BatchRun::BatchRun(const CommandLine &commandLine, const Console &theConsole)
    : line(commandLine),
      console(theConsole),
      interp(commandsManager::getInstance(nullptr)->interp)
{
}

void BatchRun::prepare()
{
    standardstreams::giveToTcl(interp);
    returnToFolderOfCall();
}

int BatchRun::run()
{
    prepare();
    const bool done = line.run == CommandLine::Run::Script ? runScript() : runCommands();
    return done && programend::save() ? 0 : 1;
}

// Start-up has gone to the Scripts folder; in scripts and commands paths are the shell's.
void BatchRun::returnToFolderOfCall()
{
    if (line.folder.isEmpty() || Tcl_FSChdir(Value(line.folder)) != 0)
        Logger::instance()->logMessage(
            QString(), Logger::Warning,
            u"The folder of the call is gone; this run goes on in \"%1\""_s.arg(
                QDir::currentPath()));
}

bool BatchRun::runScript()
{
    setArguments();
    int code = TCL_OK;
    const QString text = console(listOf({u"source"_s, line.script}), &code);
    if (code != TCL_OK)
        standardstreams::printError(errorReport(interp, code, text));
    return code == TCL_OK;
}

bool BatchRun::runCommands()
{
    for (const QString &command : line.commands) {
        int code = TCL_OK;
        const QString text = console(command, &code);
        if (code != TCL_OK) {
            standardstreams::printError(text);
            return false;
        }
        if (!text.isEmpty() && !standardstreams::printToTcl(text)) {
            standardstreams::printError(u"morvalen: cannot write to standard output"_s);
            return false;
        }
    }
    return true;
}

void BatchRun::setArguments()
{
    const auto set = [this](const char *name, Tcl_Obj *value) {
        Tcl_SetVar2Ex(interp, name, nullptr, value, TCL_GLOBAL_ONLY);
    };
    set("argv0", Value(line.script));
    set("argv", Value(listOf(line.scriptArguments)));
    set("argc", Value(Tcl_NewWideIntObj(line.scriptArguments.size())));
}

Status BatchRun::checkScript(const QString &script)
{
    const QByteArray path = QFile::encodeName(script);
    int error = ::access(path.constData(), R_OK) != 0 ? errno : 0;
    if (error == 0 && QFileInfo(script).isDir())
        error = EISDIR;
    return error == 0 ? Status()
                      : Status::io(u"cannot read the script %1: %2"_s.arg(
                          script, QString::fromLocal8Bit(std::strerror(error))));
}
