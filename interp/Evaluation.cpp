#include "interp/Evaluation.h"

#include "interp/ScriptRuns.h"

Evaluation::Evaluation(const QString &command) : runs(ScriptRuns::instance())
{
    if (!runs)
        return;
    waited = runs->setWaiting(false);
    runs->begin(command);
}

Evaluation::~Evaluation()
{
    if (!runs)
        return;
    runs->end();
    runs->setWaiting(waited);
}

int Evaluation::finish(int code) { return runs ? runs->finish(code) : code; }
