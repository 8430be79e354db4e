#pragma once

#include "interp/export.h"

#include <QString>

#include <functional>
#include <optional>

#include <tcl.h>

// Where an error of Tcl's came from.
namespace errorstack {

// The stack of the evaluation that has just ended with code, as Tcl's errorInfo has it, and with
// the file and the line beside each level of a procedure that was read from a file, or that stands
// in one whose content was evaluated as a text; a file of the current folder has its path. A script
// that was evaluated as a text, not by "source", has a last level of its own when file is given. To
// be called before anything else is evaluated; leaves the interpreter as it was.
TCLSCRIPTING_EXPORT QString text(Tcl_Interp *interp, int code, const QString &file = {});

struct Place
{
    QString file;
    int line = 0;
};

// Where the body of a procedure begins, if it was read from a file or stands in such a one. To be
// called while nothing is evaluated; leaves the interpreter as it was.
TCLSCRIPTING_EXPORT std::optional<Place> placeOf(Tcl_Interp *interp, const QString &procedure);

// The file whose content is being evaluated as a text; empty when none is.
TCLSCRIPTING_EXPORT QString currentScript();

// A host that wants to tell its users: from now on the receiver gets the stack of every command and
// script that fails. An empty one ends it.
using Receiver = std::function<void(const QString &stack)>;
TCLSCRIPTING_EXPORT void setReceiver(Receiver receiver);

// Tells the receiver, if there is one, of an evaluation that has just failed with code.
TCLSCRIPTING_EXPORT void tell(Tcl_Interp *interp, int code);

// While one lives, what is evaluated as a text is the content of a file. They nest.
class TCLSCRIPTING_EXPORT Script
{
public:
    explicit Script(const QString &file);
    ~Script();
    Q_DISABLE_COPY_MOVE(Script)

    QString name() const { return file; }
    // Of what failed meanwhile and was told of; empty otherwise.
    QString stack() const { return told; }

private:
    friend void tell(Tcl_Interp *interp, int code);

    const QString file;
    Script *const outer;
    QString told;
};

} // namespace errorstack
