#pragma once

#include "interp/export.h"

#include <QMap>
#include <QString>

#include <tcl.h>

// The owner of the process's Tcl interpreter and the registry of every command and linked variable
// that the library adds to it, each with its help text. There is at most one; it is created by the
// first call of getInstance and lives until the process ends.
class TCLSCRIPTING_EXPORT commandsManager
{
public:
    // A command procedure in the string form that Tcl 8.6 wants.
    using CommandProc = int (*)(ClientData, Tcl_Interp *, int, const char **);

    // The registry. The first call decides about the interpreter: a null one makes the registry
    // create its own. Later calls ignore the argument.
    static commandsManager *getInstance(Tcl_Interp *interp);

    explicit commandsManager(Tcl_Interp *interp);
    ~commandsManager();
    Q_DISABLE_COPY_MOVE(commandsManager)

    // Adds or replaces a command, Tcl's own included, without notice. The client data stays the
    // caller's.
    void registerFunction(const char *name, CommandProc proc, const char *help, void *clientData);

    // Removes a command; an unknown name changes nothing.
    void unregisterFunction(const char *name);

    // Links a variable of the program to a Tcl variable of the given name, writable from scripts.
    // The variable must outlive the interpreter. A text that a script writes is allocated by Tcl;
    // a name that is registered again is linked to the new variable.
    void registerVariable(const char *name, char *&variable, const char *help);
    void registerVariable(const char *name, bool &variable, const char *help);
    void registerVariable(const char *name, int &variable, const char *help);

    // The Tcl command "help": lists commands and variables with their help texts.
    int help(void *clientData, Tcl_Interp *interp, int argc, const char **argv);

    Tcl_Interp *interp = nullptr;

private:
    bool ownsInterp = false;
    QMap<QString, QString> functions;
    QMap<QString, QString> variables;

    static commandsManager *theInstance;
};
