#pragma once

#include "interp/export.h"

#include <QMap>
#include <QString>

#include <map>
#include <memory>

#include <tcl.h>

class LinkedVariable;

// The owner of the process's Tcl interpreter and the registry of every command and linked variable
// that the library adds to it, each with its help text. There is at most one; it is created by the
// first call of getInstance and lives until the process ends.
//
// Names and help texts are copied. No call reports a failure: a command or variable that Tcl
// refuses is listed by "help" and does not exist. All calls belong to the GUI thread.
class TCLSCRIPTING_EXPORT commandsManager
{
public:
    // A command procedure in the string form that Tcl 8.6 wants; CommandAdapter.h makes one from
    // a procedure whose words are not const.
    using CommandProc = int (*)(ClientData, Tcl_Interp *, int, const char **);

    // The registry. The first call decides about the interpreter: a null one makes the registry
    // create its own, any other stays the caller's and must outlive the registry. Later calls
    // ignore the argument.
    static commandsManager *getInstance(Tcl_Interp *interp);

    explicit commandsManager(Tcl_Interp *givenInterp);
    ~commandsManager();
    Q_DISABLE_COPY_MOVE(commandsManager)

    // Adds or replaces a command, Tcl's own included, without notice. The client data stays the
    // caller's. An exception that the procedure throws becomes the error of the command: it must
    // not pass through Tcl, which is written in C.
    void registerFunction(const char *name, CommandProc proc, const char *help, void *clientData);

    // Removes a command; an unknown name changes nothing.
    void unregisterFunction(const char *name);

    // Links a variable of the program to a Tcl variable of the given name, writable from scripts;
    // what either side writes, the other reads next. The variable must outlive the link. A name
    // that is registered again is linked to the new variable.
    //
    // A text is replaced by a copy at once, and by a new one whenever a script writes; both come
    // from Tcl_Alloc and the former one is freed. The program may point the variable elsewhere at
    // any time, to a literal too: what it points to then is never freed here.
    void registerVariable(const char *name, char *&variable, const char *help);
    void registerVariable(const char *name, bool &variable, const char *help);
    void registerVariable(const char *name, int &variable, const char *help);

    // The Tcl command "help": lists commands and variables with their help texts.
    // Results: TCL_OK with the listing; TCL_ERROR with the usage text when there is any argument.
    // Side effects: none.
    int help(void *clientData, Tcl_Interp *caller, int argc, const char **argv);

    Tcl_Interp *interp = nullptr;

private:
    template <typename T>
    void registerLink(const char *name, T &variable, const char *help);

    bool ownsInterp = false;
    QMap<QString, QString> functions;
    QMap<QString, QString> variables;
    std::map<QString, std::unique_ptr<LinkedVariable>> links;

    static commandsManager *theInstance;
};
