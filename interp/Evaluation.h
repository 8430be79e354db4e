#pragma once

#include "interp/export.h"

#include <QString>

class ScriptRuns;

// One evaluation on the GUI thread, for as long as the object lives; they nest. It tells
// ScriptRuns, if the host has made it, and costs nothing otherwise.
class TCLSCRIPTING_EXPORT Evaluation
{
public:
    // A command that somebody gave; an empty text for an event of Tcl's.
    explicit Evaluation(const QString &command = {});
    ~Evaluation();
    Q_DISABLE_COPY_MOVE(Evaluation)

    // To be called once, when Tcl has come back with this code. Returns the code that counts: when
    // the evaluation was stopped, an error whose result is "Script stopped". Whatever stopped it
    // does nothing to the next one.
    int finish(int code);

private:
    ScriptRuns *const runs;
    bool waited = false;
};
