// What a command that answers a query costs, beside a string command with a constant result, a Tcl
// procedure, and the same query that makes its usage text on every call.

#include "commands/commandset.h"
#include "commands/conventions.h"
#include "commands/manuals.h"
#include "tests/fakes/FakeHost.h"

#include <Qtilities/ObjectManager.h>
#include <Qtilities/SharedProperty.h>

#include <QApplication>

#include <benchmark/benchmark.h>

using namespace Qt::Literals::StringLiterals;

namespace {

FakeHost *host = nullptr;

Tcl_Interp *interp() { return commandsManager::getInstance(nullptr)->interp; }

int constantResult(ClientData, Tcl_Interp *in, int, const char **)
{
    Tcl_ResetResult(in);
    Tcl_AppendResult(in, "a constant", nullptr);
    return TCL_OK;
}

int emptyCommand(ClientData, Tcl_Interp *, int, const char **) { return TCL_OK; }

// The query "design get vendor" as its words say it, step by step.
int literalQuery(ClientData, Tcl_Interp *in, int argc, const char **argv)
{
    Tcl_ResetResult(in);
    const auto active = MorvalenCore::DesignManager::instance()->activeDesigns();
    QStringList words;
    for (int i = 0; i < argc; ++i)
        words.append(QString::fromUtf8(argv[i]));
    QMap<QString, QString> map;
    for (const commands::UsageRow &row : commands::designManual.usage)
        map.insert(QString::fromUtf8(row.key), QString::fromUtf8(row.help));
    const QString usage = u"Performs actions on design \"%1\".\nUsage: %2 args\n"_s.arg(
                              active.first()->name(), words[0])
        + prepareUsageMessage(map);
    const QString answer =
        words[1] == u"get" && words[2] == u"vendor" ? active.first()->vendor() : usage;
    Tcl_AppendResult(in, answer.toLocal8Bit().constData(), nullptr);
    return TCL_OK;
}

// What the host does for "design get vendor".
void hostsWork(benchmark::State &state)
{
    for (auto _ : state) {
        const auto active = MorvalenCore::DesignManager::instance()->activeDesigns();
        benchmark::DoNotOptimize(active.first()->name());
        benchmark::DoNotOptimize(active.first()->vendor());
    }
}

void evaluate(benchmark::State &state, const char *script)
{
    Tcl_Obj *command = Tcl_NewStringObj(script, -1);
    Tcl_IncrRefCount(command);
    for (auto _ : state)
        Tcl_EvalObjEx(interp(), command, TCL_EVAL_GLOBAL);
    Tcl_DecrRefCount(command);
}

void prepare()
{
    host = new FakeHost;
    host->journal.setSilent(true);
    host->designs.paths = {{1, u"/home/me/designs"_s}};
    FakeDesign *design = host->activeDesign();
    design->filesActive = {design->file(u"/wf/rtl/uart.v"_s)};
    Qtilities::Core::ObjectManager::setSharedProperty(design->allFiles.first(),
                                                      Qtilities::Core::SharedProperty("p", 42));
    commandsManager *registry = commandsManager::getInstance(nullptr);
    commands::registerCommandSet(*registry);
    registry->registerFunction("constant", constantResult, "", nullptr);
    registry->registerFunction("nothing", emptyCommand, "", nullptr);
    registry->registerFunction("literal", literalQuery, "", nullptr);
    Tcl_Eval(registry->interp, "proc procedure {a b} { return acme }");
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    prepare();
    benchmark::Initialize(&argc, argv);
    const std::pair<const char *, const char *> scripts[] = {
        {"yardstick/empty_command", "nothing get vendor"},
        {"yardstick/constant_result", "constant get vendor"},
        {"yardstick/tcl_procedure", "procedure get vendor"},
        {"yardstick/literal_query", "literal get vendor"},
        {"query/design_get_vendor", "design get vendor"},
        {"query/design_get_busy", "design get busy"},
        {"query/designs_path", "designs designs_path"},
        {"query/sfile_exists", "sfile exists"},
        {"query/sfile_get_actual_path", "sfile get actual_path"},
        {"query/sfile_property_get", "sfile property get p"},
        {"query/builds_list", "builds list"},
        {"usage/design", "design"},
    };
    for (const auto &[name, script] : scripts)
        benchmark::RegisterBenchmark(name, evaluate, script);
    benchmark::RegisterBenchmark("host/design_get_vendor", hostsWork);
    benchmark::RunSpecifiedBenchmarks();
    delete host;
    return 0;
}
