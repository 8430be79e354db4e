// What it costs scripts that the window lives while they run. Each row runs a script in child
// processes, in turns with the window kept alive and without; "ratio" is that of the medians of
// their processor times. The last rows kill no time: they measure how long it takes from a stop to
// the next prompt, and from one repaint to the next, in a loop that never ends.
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
#include <cstdio>
#include <functional>
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
    {"query_loop", "for {set i 0} {$i < 1000000} {incr i} {design get vendor}"},
};

void pass()
{
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
}

double processorSeconds()
{
    timespec time = {};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return double(time.tv_sec) + double(time.tv_nsec) * 1e-9;
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

// A child: prints the processor time that a script takes.
int runScript(const Script &script, bool alive)
{
    FakeHost host;
    host.journal.setSilent(true);
    host.activeDesign();
    QtclConsole *console = shownConsole(alive ? pass : std::function<void()>());
    commands::registerCommandSet(*commandsManager::getInstance(nullptr));
    const double before = processorSeconds();
    const bool done = console->execCommand(QString::fromUtf8(script.text), false, false, nullptr);
    std::printf("%.6f\n", done ? processorSeconds() - before : -1.0);
    std::fflush(stdout);
    return 0;
}

double childSeconds(const char *name, const char *way)
{
    QProcess child;
    child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    child.start(QCoreApplication::applicationFilePath(),
                {u"child"_s, QString::fromLatin1(name), QString::fromLatin1(way)});
    child.waitForFinished(-1);
    const double seconds = child.readAllStandardOutput().trimmed().toDouble();
    if (child.exitCode() != 0 || seconds <= 0)
        qFatal("%s failed", name);
    return seconds;
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

void cost(benchmark::State &state, const Script &script)
{
    std::vector<double> with;
    std::vector<double> without;
    for (auto _ : state) {
        for (int i = 0; i < 9; ++i) {
            without.push_back(childSeconds(script.name, "without"));
            with.push_back(childSeconds(script.name, "with"));
        }
    }
    state.counters["ratio"] = median(with) / median(without);
    state.counters["seconds_without"] = median(without);
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
    if (argc == 4 && qstrcmp(argv[1], "child") == 0) {
        for (const Script &script : scripts) {
            if (qstrcmp(argv[2], script.name) == 0)
                return runScript(script, qstrcmp(argv[3], "with") == 0);
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
