// Tcl's events under Qt's event loop. Each benchmark runs a script for some thousand steps, under
// the event loop and under "vwait", spinning and resting. "tclsh_over_ours" is how many times
// longer tclsh 8.6, run as a child, takes for a step of the same script, and "cpu_ratio" the same
// for the processor time that both spend (above 1: we are faster); on a busy machine trust the
// latter.
#include "interp/commandsManager.h"
#include "interp/NotifierState.h"
#include "interp/QtNotifier.h"

#include <QApplication>
#include <QEventLoop>
#include <QProcess>
#include <QTimer>

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <map>
#include <string>

#include <sys/resource.h>

using namespace Qt::Literals::StringLiterals;

namespace {

// Each defines "start N", which calls "finish" after N steps.
constexpr const char *timerChain = "proc start n {if {$n == 0} finish else {after 0 [list start "
                                   "[incr n -1]]}}";

constexpr const char *idleChain = "proc start n {after idle [list step $n]}; "
                                  "proc step n {if {$n == 0} finish else {after 0 [list after idle "
                                  "[list step [incr n -1]]]}}";

constexpr const char *socketEcho =
    "proc accept {c args} {fconfigure $c -blocking 0 -buffering line; fileevent $c readable "
    "[list echo $c]}; proc echo c {if {[gets $c line] >= 0} {puts $c $line} elseif {[eof $c]} "
    "{close $c}}; proc reply c {if {[gets $c line] < 0} return; if {[incr ::left -1] == 0} "
    "{close $c; close $::server; finish} else {puts $c $line}}; proc start n {set ::left $n; "
    "set ::server [socket -server accept -myaddr 127.0.0.1 0]; "
    "set c [socket 127.0.0.1 [lindex [fconfigure $::server -sockname] 2]]; "
    "fconfigure $c -blocking 0 -buffering line; fileevent $c readable [list reply $c]; puts $c "
    "ping}";

constexpr const char *pipeEcho =
    "proc forward {r w} {if {[gets $r line] >= 0} {puts $w $line}}; "
    "proc reply {r w} {gets $r line; if {[incr ::left -1] == 0} {foreach c $::all {close $c}; "
    "finish} "
    "else {puts $w $line}}; "
    "proc start n {set ::left $n; lassign [chan pipe] r1 w1; lassign [chan pipe] r2 w2; "
    "set ::all [list $r1 $w1 $r2 $w2]; foreach c $::all {fconfigure $c -blocking 0 -buffering "
    "line}; "
    "fileevent $r1 readable [list forward $r1 $w2]; fileevent $r2 readable [list reply $r2 $w1]; "
    "puts $w1 ping}";

// A step is a wait of 1 to 100 ms; what counts is the median of how late it ended.
constexpr const char *lateness =
    "proc start n {set ::late {}; step $n}; proc step n {if {$n == 0} {finish; return}; "
    "set ms [expr {1 + $n * 37 % 100}]; "
    "after $ms [list rung [expr {[clock microseconds] + 1000 * $ms}] $n]}; "
    "proc rung {due n} {lappend ::late [expr {[clock microseconds] - $due}]; step [incr n -1]}";

// A child writes after 50 ms.
constexpr const char *pipeWhileTimerIsPending =
    "proc start n {if {$n == 0} {finish; return}; set id [after 1500 {}]; "
    "set r [open {|sh -c {sleep 0.05; echo x}}]; fileevent $r readable [list seen $r $id $n]}; "
    "proc seen {r id n} {after cancel $id; close $r; start [incr n -1]}";

constexpr const char *median = "lindex [lsort -integer $late] [expr {[llength $late] / 2}]";

QEventLoop *loop = nullptr;
bool finished = false;

int finish(void *, Tcl_Interp *interp, int, const char **)
{
    finished = true;
    Tcl_SetVar(interp, "finished", "1", TCL_GLOBAL_ONLY);
    if (loop)
        loop->quit();
    return TCL_OK;
}

std::string eval(const std::string &script)
{
    Tcl_Interp *interp = commandsManager::getInstance(nullptr)->interp;
    if (Tcl_EvalEx(interp, script.c_str(), -1, TCL_EVAL_GLOBAL) != TCL_OK)
        qFatal("%s", Tcl_GetStringResult(interp));
    return Tcl_GetStringResult(interp);
}

// Processor time of this process or of its children that have ended, in microseconds.
double processorTime(int who)
{
    rusage usage = {};
    getrusage(who, &usage);
    const auto microseconds = [](const timeval &time) {
        return time.tv_sec * 1e6 + double(time.tv_usec);
    };
    return microseconds(usage.ru_utime) + microseconds(usage.ru_stime);
}

// What a step of a script costs, in microseconds, and the value of an expression afterwards.
struct Cost
{
    double wall = 0;
    double processor = 0;
    double value = 0;
};

Cost tclsh(const std::string &script, int steps, const std::string &value)
{
    static std::map<std::string, Cost> known;
    const auto [entry, isNew] = known.try_emplace(script);
    if (!isNew)
        return entry->second;
    const std::string text = "proc finish {} {set ::finished 1}\n" + script
        + "\nset begin [clock microseconds]; start " + std::to_string(steps)
        + "; vwait finished; set end [clock microseconds]\nputs [expr {double($end - $begin) / "
        + std::to_string(steps) + "}]\nputs [" + value + "]\n";
    const double before = processorTime(RUSAGE_CHILDREN);
    QProcess child;
    child.start(u"tclsh8.6"_s, QStringList());
    child.write(text.c_str());
    child.closeWriteChannel();
    child.waitForFinished(-1);
    const QList<QByteArray> lines = child.readAllStandardOutput().split('\n');
    entry->second = {lines.value(0).toDouble(), (processorTime(RUSAGE_CHILDREN) - before) / steps,
                     lines.value(1).toDouble()};
    return entry->second;
}

enum Way { EventLoop, Vwait };
enum Mode { Spinning, Resting };

void run(benchmark::State &state, const char *script, int steps, Way way, Mode mode,
         const char *value = "set finished")
{
    const Cost child = tclsh(script, steps, value);
    notifier->resting = mode == Resting;
    eval(script);
    Cost ours;
    for (auto _ : state) {
        finished = false;
        QEventLoop eventLoop;
        loop = way == EventLoop ? &eventLoop : nullptr;
        const double processor = processorTime(RUSAGE_SELF);
        const qint64 begin = std::stoll(eval("clock microseconds"));
        eval("start " + std::to_string(steps));
        if (way == EventLoop && !finished)
            eventLoop.exec();
        while (!finished)
            eval("vwait finished");
        ours.wall += double(std::stoll(eval("clock microseconds")) - begin) / steps;
        ours.processor += (processorTime(RUSAGE_SELF) - processor) / steps;
        loop = nullptr;
    }
    notifier->timer->stop();
    const auto iterations = double(state.iterations());
    state.counters["us_a_step"] = ours.wall / iterations;
    state.counters["cpu_us_a_step"] = ours.processor / iterations;
    state.counters["tclsh_over_ours"] = child.wall * iterations / ours.wall;
    state.counters["cpu_ratio"] = child.processor * iterations / ours.processor;
    if (value == std::string(median)) {
        state.counters["median_us"] = std::stod(eval(value));
        state.counters["tclsh_median_us"] = child.value;
    }
}

void all(const char *name, const char *script, int steps, const char *value = "set finished")
{
    const std::pair<const char *, Way> ways[] = {{"loop", EventLoop}, {"vwait", Vwait}};
    const std::pair<const char *, Mode> modes[] = {{"resting", Resting}, {"spinning", Spinning}};
    for (const auto &[wayName, way] : ways) {
        for (const auto &[modeName, mode] : modes) {
            const std::string fullName = std::string(name) + '/' + wayName + '/' + modeName;
            benchmark::RegisterBenchmark(
                fullName.c_str(),
                [=](benchmark::State &state) { run(state, script, steps, way, mode, value); })
                ->Unit(benchmark::kMillisecond)
                ->Iterations(value == median || steps < 100 ? 1 : 3);
        }
    }
}

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    commandsManager::getInstance(nullptr)->registerFunction("finish", finish, "", nullptr);
    Qtk_InitNotifier(&app);
    all("after_0_chain", timerChain, 20000);
    all("after_idle_chain", idleChain, 20000);
    all("socket_echo", socketEcho, 20000);
    all("pipe_echo", pipeEcho, 20000);
    all("lateness", lateness, 100, median);
    all("pipe_while_after_1500_is_pending", pipeWhileTimerIsPending, 10);
    benchmark::RunSpecifiedBenchmarks();
}
