// What starting costs, in processor time, until a prompt shows: children start, paint, and end.
// "bare" is the least that shows a text and has Tcl, a bare text widget and Tcl_Init; "console" the
// console on top of it; "wish" Tk's shell with a text widget, measured where there is a display
// (xvfb-run bench_start). "x_bare" and "x_wish" are ratios to these rows, which run first.
#include "console/QtclConsole.h"
#include "interp/QtNotifier.h"

#include <QApplication>
#include <QMainWindow>
#include <QProcess>
#include <QTemporaryFile>

#include <benchmark/benchmark.h>

#include <map>
#include <string>

#include <sys/resource.h>
#include <tcl.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int starts = 20;

void show(QTextEdit *view)
{
    QMainWindow window;
    window.setCentralWidget(view);
    window.resize(800, 500);
    window.show();
    for (int i = 0; i < 20; ++i)
        QApplication::processEvents();
    view->viewport()->repaint();
    _exit(0);
}

void startBare()
{
    Tcl_FindExecutable(nullptr);
    Tcl_Init(Tcl_CreateInterp());
    auto *view = new QTextEdit;
    view->setPlainText(u"% "_s);
    show(view);
}

void startConsole()
{
    QtclConsole *console = QtclConsole::getInstance(nullptr, u"Welcome"_s);
    Qtk_InitNotifier(qApp);
    Qtk_LetNotifierRest();
    show(console);
}

double childrensMilliseconds()
{
    rusage usage = {};
    getrusage(RUSAGE_CHILDREN, &usage);
    const auto milliseconds = [](const timeval &time) {
        return double(time.tv_sec) * 1e3 + double(time.tv_usec) / 1e3;
    };
    return milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime);
}

void measure(benchmark::State &state, const std::string &name, const QString &program,
             const QStringList &words)
{
    static std::map<std::string, double> &known = *new std::map<std::string, double>;
    const double begin = childrensMilliseconds();
    int runs = 0;
    for (auto _ : state) {
        if (QProcess::execute(program, words) != 0) {
            state.SkipWithError("the child failed");
            return;
        }
        ++runs;
    }
    known[name] = (childrensMilliseconds() - begin) / runs;
    state.counters["cpu_ms"] = known[name];
    for (const char *other : {"bare", "wish"}) {
        if (known.count(other) && other != name)
            state.counters[std::string("x_") + other] = known[name] / known[other];
    }
}

void add(const std::string &name, const QString &program, const QStringList &words)
{
    benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State &state) {
        measure(state, name, program, words);
    })->Iterations(starts);
}

} // namespace

int main(int argc, char **argv)
{
    const bool hasDisplay = qEnvironmentVariableIsSet("DISPLAY");
    if (!hasDisplay)
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const std::string child = argc == 2 ? argv[1] : "";
    if (child == "child-bare" || child == "child-console") {
        QApplication application(argc, argv);
        child == "child-bare" ? startBare() : startConsole();
    }
    benchmark::Initialize(&argc, argv);
    const QString self = QString::fromLocal8Bit(argv[0]);
    QTemporaryFile script;
    if (hasDisplay && script.open()) {
        script.write("pack [text .t] -expand 1 -fill both\n.t insert end {% }\nupdate\nexit\n");
        script.flush();
        add("wish", u"wish8.6"_s, {script.fileName()});
    }
    add("bare", self, {u"child-bare"_s});
    add("console", self, {u"child-console"_s});
    benchmark::RunSpecifiedBenchmarks();
}
