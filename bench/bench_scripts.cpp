// What it costs scripts that the window lives while they run. Each row runs a script again and
// again with the window kept alive, each time between two runs without, in one process, so that
// both ways have the same memory at the same places; and in some processes, since those places
// matter. A round compares the processor time of the run with that of the two around it. The
// counters of a row:
//
//   ratio       the median of the rounds
//   error       the standard error of that
//   unlike      the same median for the two runs without, which would be 1 without any noise
//   passes      what the passes and the thread that asks for them take, to all the rest, as their
//   own
//               clocks tell; where the script writes, the painting that it needs anyway is in it
//   rounds      how many there were
//   seconds     what a run takes without, the median
//
// The last row kills no time: it measures how long it takes from a stop to the next prompt, and
// from one repaint to the next, in a loop that never ends.
#include "commands/commandset.h"
#include "commands/conventions.h"
#include "console/QtclConsole.h"
#include "interp/QtNotifier.h"
#include "interp/ScriptRuns.h"
#include "tests/fakes/FakeHost.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QTimer>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <functional>
#include <vector>

#include <time.h>

using namespace Qt::Literals::StringLiterals;

namespace {

struct Script
{
    const char *name;
    const char *text;
};

constexpr Script scripts[] = {
    {"empty_loop", "proc turns {} {for {set i 0} {$i < 10000000} {incr i} {}}; turns"},
    {"puts_loop", "for {set i 0} {$i < 60000} {incr i} {puts \"line $i of the output\"}"},
    {"query_loop", "for {set i 0} {$i < 600000} {incr i} {design get vendor}"},
};

constexpr int children = 4;
constexpr qint64 millisecondsOfChild = 10'000;
constexpr int fewestRounds = 3; // however slow the machine is

double seconds(clockid_t clock)
{
    timespec time = {};
    clock_gettime(clock, &time);
    return double(time.tv_sec) + double(time.tv_nsec) * 1e-9;
}

double passSeconds = 0;

void pass()
{
    const double before = seconds(CLOCK_THREAD_CPUTIME_ID);
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    passSeconds += seconds(CLOCK_THREAD_CPUTIME_ID) - before;
}

QtclConsole *shownConsole(const std::function<void()> &livePass)
{
    Qtk_InitNotifier(qApp);
    auto *console = QtclConsole::getInstance(nullptr, QString());
    Qtk_LetNotifierRest();
    if (livePass)
        Qtk_KeepWindowAlive(livePass);
    console->resize(800, 600);
    console->show();
    QCoreApplication::processEvents();
    return console;
}

double run(QtclConsole *console, const Script &script)
{
    console->reset(QString());
    QCoreApplication::processEvents();
    const double before = seconds(CLOCK_PROCESS_CPUTIME_ID);
    if (!console->execCommand(QString::fromUtf8(script.text), false, false, nullptr))
        qFatal("%s failed", script.name);
    return seconds(CLOCK_PROCESS_CPUTIME_ID) - before;
}

// All in seconds of the processor.
struct Round
{
    double before; // the run without
    double alive;
    double behind; // the second run without
    double passes; // of alive, in passes and in other threads
};

Round round(QtclConsole *console, const Script &script, double before)
{
    Round result {before, 0, 0, 0};
    {
        // What Qtk_KeepWindowAlive makes.
        const ScriptRuns runs(commandsManager::getInstance(nullptr)->interp, pass);
        passSeconds = 0;
        const double others = seconds(CLOCK_PROCESS_CPUTIME_ID) - seconds(CLOCK_THREAD_CPUTIME_ID);
        result.alive = run(console, script);
        result.passes = passSeconds + seconds(CLOCK_PROCESS_CPUTIME_ID)
            - seconds(CLOCK_THREAD_CPUTIME_ID) - others;
    }
    result.behind = run(console, script);
    return result;
}

// A child: prints its rounds.
int runScript(const Script &script)
{
    FakeHost host;
    host.journal.setSilent(true);
    host.activeDesign();
    QtclConsole *console = shownConsole({});
    commands::registerCommandSet(*commandsManager::getInstance(nullptr));
    QElapsedTimer sinceBegin;
    sinceBegin.start();
    run(console, script);
    double before = run(console, script);
    for (int i = 0; i < fewestRounds || sinceBegin.elapsed() < millisecondsOfChild; ++i) {
        const Round done = round(console, script, before);
        std::printf("%.6f %.6f %.6f %.6f\n", done.before, done.alive, done.behind, done.passes);
        before = done.behind;
    }
    std::fflush(stdout);
    return 0;
}

void readRounds(const char *name, std::vector<Round> &rounds)
{
    QProcess child;
    child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    child.start(QCoreApplication::applicationFilePath(), {u"child"_s, QString::fromLatin1(name)});
    child.waitForFinished(-1);
    if (child.exitStatus() != QProcess::NormalExit || child.exitCode() != 0)
        qFatal("%s failed", name);
    for (const QByteArray &line : child.readAllStandardOutput().trimmed().split('\n')) {
        const QList<QByteArray> words = line.split(' ');
        rounds.push_back({words.value(0).toDouble(), words.value(1).toDouble(),
                          words.value(2).toDouble(), words.value(3).toDouble()});
    }
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

// Of a median, by the median of the distances from it, for errors of a normal distribution.
double standardError(std::vector<double> values)
{
    const double middle = median(values);
    const auto count = double(values.size());
    for (double &value : values)
        value = std::abs(value - middle);
    return 1.2533 * 1.4826 * median(std::move(values)) / std::sqrt(count);
}

void cost(benchmark::State &state, const Script &script)
{
    std::vector<Round> rounds;
    for (auto _ : state) {
        for (int i = 0; i < children; ++i)
            readRounds(script.name, rounds);
    }
    std::vector<double> ratios;
    std::vector<double> unlike;
    std::vector<double> without;
    double passes = 0;
    double rest = 0;
    for (const Round &each : rounds) {
        ratios.push_back(2 * each.alive / (each.before + each.behind));
        unlike.push_back(each.behind / each.before);
        without.push_back(each.before);
        passes += each.passes;
        rest += each.alive - each.passes;
    }
    state.counters["ratio"] = median(ratios);
    state.counters["error"] = standardError(ratios);
    state.counters["unlike"] = median(unlike);
    state.counters["passes"] = passes / rest;
    state.counters["rounds"] = double(rounds.size());
    state.counters["seconds"] = median(without);
}

// How long it takes a hundred times from a stop to the next prompt, and the longest time between
// two repaints meanwhile.
void stopAndRepaint(benchmark::State &state)
{
    struct Painted : QWidget
    {
        void paintEvent(QPaintEvent *) override
        {
            if (sincePaint.isValid())
                longest = std::max(longest, double(sincePaint.nsecsElapsed()) * 1e-6);
            sincePaint.start();
        }
        QElapsedTimer sincePaint;
        double longest = 0;
    };
    Painted painted;
    painted.resize(100, 100);
    painted.show();
    QElapsedTimer sinceStop;
    int passes = 0;
    QtclConsole *console = shownConsole([&] {
        pass();
        painted.update();
        pass();
        if (++passes % 4 == 0) {
            sinceStop.start();
            ScriptRuns::instance()->stop();
        }
    });
    double slowest = 0;
    for (auto _ : state) {
        for (int i = 0; i < 100; ++i) {
            painted.sincePaint.invalidate();
            console->execCommand(u"while 1 {}"_s, true, true, nullptr);
            slowest = std::max(slowest, double(sinceStop.nsecsElapsed()) * 1e-6);
        }
    }
    state.counters["stop_to_prompt_worst_ms"] = slowest;
    state.counters["repaint_worst_ms"] = painted.longest;
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    if (argc == 3 && qstrcmp(argv[1], "child") == 0) {
        for (const Script &script : scripts) {
            if (qstrcmp(argv[2], script.name) == 0)
                return runScript(script);
        }
        return 1;
    }
    benchmark::Initialize(&argc, argv);
    for (const Script &script : scripts) {
        benchmark::RegisterBenchmark((std::string("alive/") + script.name).c_str(), cost, script)
            ->Iterations(1);
    }
    benchmark::RegisterBenchmark("alive/stop_and_repaint", stopAndRepaint)->Iterations(1);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
