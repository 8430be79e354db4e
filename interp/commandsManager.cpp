#include "interp/commandsManager.h"

#include "interp/exceptionborder.h"
#include "interp/LinkedVariable.h"
#include "interp/servicemode.h"
#include "interp/TclCallBack.h"
#include "interp/tcltext.h"

#include <QFile>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

commandsManager *commandsManager::theInstance = nullptr;

namespace {

Tcl_Interp *createInterp()
{
    Tcl_FindExecutable(QFile::symLinkTarget(u"/proc/self/exe"_s).toUtf8().constData());
    Tcl_Interp *interp = Tcl_CreateInterp();
    Tcl_Init(interp);
    return interp;
}

qsizetype longestKey(const QMap<QString, QString> &helpTexts)
{
    qsizetype longest = 0;
    for (auto entry = helpTexts.keyBegin(); entry != helpTexts.keyEnd(); ++entry)
        longest = std::max(longest, entry->size());
    return longest;
}

void appendSection(Tcl_Interp *interp, const QString &heading,
                   const QMap<QString, QString> &section, qsizetype width)
{
    if (section.isEmpty())
        return;
    QString listing = heading;
    for (auto [name, helpText] : section.asKeyValueRange())
        listing += name + u':' + QString(width - name.size() + 1, u' ') + helpText + u'\n';
    tcltext::appendResult(interp, listing);
}

} // namespace

commandsManager *commandsManager::getInstance(Tcl_Interp *interp)
{
    if (!theInstance) {
        // Stored first: the registration of "help" comes back here for the registry.
        theInstance = new commandsManager(interp);
        TclCallBack<commandsManager>::registerMethod(theInstance, "help", &commandsManager::help,
                                                     "displays this help message", nullptr);
    }
    return theInstance;
}

commandsManager::commandsManager(Tcl_Interp *givenInterp)
    : interp(givenInterp ? givenInterp : createInterp()),
      ownsInterp(!givenInterp)
{
    // Qt's local 8-bit encoding is always UTF-8 here, Tcl's follows the locale.
    Tcl_SetSystemEncoding(nullptr, "utf-8");
    servicemode::interpreterIsReady();
}

commandsManager::~commandsManager()
{
    for (const QString &name : std::as_const(TclCallBack<commandsManager>::methodNames))
        getInstance(nullptr)->unregisterFunction(tcltext::toTcl(name).constData());
    TclCallBack<commandsManager>::method = {};
    TclCallBack<commandsManager>::methodNames = {};
    links.clear();
    if (interp && ownsInterp) {
        Tcl_DeleteInterp(interp);
        interp = nullptr;
    }
    if (theInstance == this)
        theInstance = nullptr;
}

void commandsManager::registerFunction(const char *name, CommandProc proc, const char *help,
                                       void *clientData)
{
    functions.insert(tcltext::fromTcl(name), tcltext::fromTcl(help));
    Tcl_Command command = Tcl_CreateCommand(interp, name, proc, clientData, nullptr);
    if (command)
        exceptionborder::guard(command);
}

void commandsManager::unregisterFunction(const char *name)
{
    functions.remove(tcltext::fromTcl(name));
    Tcl_DeleteCommand(interp, name);
}

template <typename T>
void commandsManager::registerLink(const char *name, T &variable, const char *help)
{
    const QString key = tcltext::fromTcl(name);
    variables.insert(key, tcltext::fromTcl(help));
    std::unique_ptr<LinkedVariable> &link = links[key];
    if (link && link->isOf(&variable)) {
        link->linkAgain();
        return;
    }
    link.reset(); // unlinks the name before it is linked again
    link = LinkedVariable::create(interp, name, variable);
}

void commandsManager::registerVariable(const char *name, char *&variable, const char *help)
{
    registerLink(name, variable, help);
}

void commandsManager::registerVariable(const char *name, bool &variable, const char *help)
{
    registerLink(name, variable, help);
}

void commandsManager::registerVariable(const char *name, int &variable, const char *help)
{
    registerLink(name, variable, help);
}

int commandsManager::help(void *, Tcl_Interp *caller, int argc, const char **)
{
    Tcl_ResetResult(caller);
    if (argc != 1) {
        tcltext::appendResult(caller, u"Usage: help\n"_s);
        return TCL_ERROR;
    }
    const qsizetype width = std::max(longestKey(functions), longestKey(variables));
    appendSection(caller, u"Commands :\n==========\n"_s, functions, width);
    appendSection(caller, u"\nVariables :\n===========\n"_s, variables, width);
    return TCL_OK;
}
