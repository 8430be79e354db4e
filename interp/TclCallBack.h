#pragma once

#include "interp/commandsManager.h"
#include "interp/tcltext.h"

#include <QList>
#include <QStringList>

// Binds member functions of one object of class T as Tcl commands. All commands of a T run on the
// object that was registered last, and a name that was registered twice runs the member that was
// registered first.
template <typename T>
class TclCallBack
{
public:
    using Method = int (T::*)(void *, Tcl_Interp *, int, const char **);

    // The object must outlive its commands; the owner removes them by unregistering methodNames.
    static void registerMethod(T *object, const char *name, Method member, const char *help,
                               void *clientData)
    {
        instance = object;
        method.append(member);
        methodNames.append(tcltext::fromTcl(name));
        commandsManager::getInstance(nullptr)->registerFunction(
            name, &TclCallBack<T>::callBackMethod, help, clientData);
    }

    // Results: what the member returns; TCL_ERROR with a short text when argv[0] is the name of no
    // bound member, as after a rename.
    // Side effects: those of the member.
    static int callBackMethod(ClientData clientData, Tcl_Interp *interp, int argc,
                              const char **argv)
    {
        for (qsizetype index = 0; index < methodNames.size(); ++index) {
            if (tcltext::equals(methodNames.at(index), argv[0]))
                return (instance->*method.at(index))(clientData, interp, argc, argv);
        }
        Tcl_ResetResult(interp);
        Tcl_AppendResult(interp, "\"", argv[0], "\" is not the name of a bound command", nullptr);
        return TCL_ERROR;
    }

    static inline T *instance = nullptr;
    static inline QList<Method> method;
    static inline QStringList methodNames;
};
