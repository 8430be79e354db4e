// What a call costs on its way from the interpreter to a procedure. The yardstick is a plain string
// command with a constant result; a member bound under the third of three names should stay below
// 1.3 times that.
#include "interp/CommandAdapter.h"
#include "interp/commandsManager.h"
#include "interp/TclCallBack.h"

#include <benchmark/benchmark.h>

namespace {

void setConstant(Tcl_Interp *interp)
{
    Tcl_ResetResult(interp);
    Tcl_AppendResult(interp, "an answer of some length", nullptr);
}

int empty(void *, Tcl_Interp *, int, const char **) { return TCL_OK; }

int constant(void *, Tcl_Interp *interp, int, const char **)
{
    setConstant(interp);
    return TCL_OK;
}

int adapted(void *, Tcl_Interp *interp, int, char **)
{
    setConstant(interp);
    return TCL_OK;
}

struct Owner
{
    int member(void *, Tcl_Interp *interp, int, const char **)
    {
        setConstant(interp);
        return TCL_OK;
    }
};

Tcl_Interp *prepare()
{
    static Owner owner;
    static const bool registered = [] {
        commandsManager *registry = commandsManager::getInstance(nullptr);
        registry->registerFunction("empty", empty, "", nullptr);
        registry->registerFunction("constant", constant, "", nullptr);
        registry->registerFunction("adapted", commandProc<adapted>, "", nullptr);
        for (const char *name : {"history", "set_prompt", "save_script"})
            TclCallBack<Owner>::registerMethod(&owner, name, &Owner::member, "", nullptr);
        Tcl_Eval(registry->interp, "proc scripted {} {return {an answer of some length}}");
        return true;
    }();
    Q_UNUSED(registered)
    return commandsManager::getInstance(nullptr)->interp;
}

void call(benchmark::State &state, const char *script)
{
    Tcl_Interp *interp = prepare();
    Tcl_Obj *compiled = Tcl_NewStringObj(script, -1);
    Tcl_IncrRefCount(compiled);
    for (auto _ : state)
        Tcl_EvalObjEx(interp, compiled, 0);
    Tcl_DecrRefCount(compiled);
}

} // namespace

BENCHMARK_CAPTURE(call, plain_without_result, "empty x");
BENCHMARK_CAPTURE(call, plain_constant, "constant x");
BENCHMARK_CAPTURE(call, adapted_constant, "adapted x");
BENCHMARK_CAPTURE(call, bound_first_name, "history x");
BENCHMARK_CAPTURE(call, bound_second_name, "set_prompt x");
BENCHMARK_CAPTURE(call, bound_third_name, "save_script x");
BENCHMARK_CAPTURE(call, tcl_procedure, "scripted");

BENCHMARK_MAIN();
