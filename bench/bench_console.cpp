// What output costs in the console, beside the literal way: the shortest code that does the same,
// which sets the colour and appends the paragraph. The literal rows run first; each row of the
// console then names its ratio to them as x_literal.

#include "console/QtclConsole.h"

#include <QApplication>
#include <QClipboard>
#include <QElapsedTimer>
#include <QFile>
#include <QKeyEvent>

#include <benchmark/benchmark.h>

#include <malloc.h>
#include <map>
#include <memory>
#include <time.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString line = u"INFO: elaborating module uart_tx with 8 data bits and no parity"_s;
const QString promptText = u"morvalen > "_s;

class Literal : public QTextEdit
{
public:
    Literal()
    {
        QFont font;
        font.setFamily(u"Courier"_s);
        setCurrentFont(font);
        document()->setUndoRedoEnabled(false);
    }
    void write(const QString &text)
    {
        setTextColor(Qt::blue);
        append(text);
    }
    void finish() { }
    void showPrompt()
    {
        document()->setUndoRedoEnabled(false);
        setTextColor(Qt::black);
        insertPlainText(promptText);
        moveCursor(QTextCursor::EndOfLine);
        document()->setUndoRedoEnabled(true);
    }
    void run(const QString &command)
    {
        insertPlainText(command);
        write(u"5\n"_s);
        moveCursor(QTextCursor::End);
        showPrompt();
    }
};

class Console : public QConsole
{
public:
    Console() : QConsole(nullptr, u"Welcome"_s) { }
    void write(const QString &text) { writeOutput(text, Qt::blue); }
    // Any event ends the burst.
    void finish()
    {
        QEvent none(QEvent::User);
        event(&none);
    }
    void showPrompt() { setPrompt(promptText, true); }
    void run(const QString &command) { execCommand(command, true, true, nullptr); }
    QString interpretCommand(const QString &, int *) override { return u"5"_s; }
};

// Of this thread, so that other programs do not count.
double processorSeconds()
{
    timespec now;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) + double(now.tv_nsec) / 1e9;
}

double residentBytes()
{
    malloc_trim(0);
    QFile status(u"/proc/self/statm"_s);
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    return status.readAll().split(' ').at(1).toDouble() * double(sysconf(_SC_PAGESIZE));
}

// Lays out and paints what is pending.
void settle()
{
    for (int i = 0; i < 50; ++i)
        QApplication::processEvents();
}

void fill(QTextEdit &view, int lines, bool shown)
{
    view.resize(800, 500);
    view.setVisible(shown);
    settle();
    QTextCursor cursor(view.document());
    cursor.movePosition(QTextCursor::End);
    cursor.beginEditBlock();
    for (int i = 0; i < lines; ++i) {
        cursor.insertBlock();
        cursor.insertText(line);
    }
    cursor.endEditBlock();
    view.moveCursor(QTextCursor::End);
    settle();
}

// Names a figure of a row, and for the console its ratio to that of the literal row.
template <typename View>
void report(benchmark::State &state, const std::string &row, const std::string &figure,
            double value)
{
    static std::map<std::string, double> &literal = *new std::map<std::string, double>;
    state.counters[figure] = value;
    if (std::is_same_v<View, Literal>)
        literal[row] = value;
    else if (literal.count(row))
        state.counters["x_literal"] = value / literal[row];
}

// One line, in bursts of a thousand as a script writes them.
template <typename View>
void BM_Line(benchmark::State &state)
{
    const int lines = int(state.range(0));
    const bool shown = state.range(1) != 0;
    View view;
    fill(view, lines, shown);
    constexpr int burst = 1000;
    const double begin = processorSeconds();
    for (auto _ : state) {
        for (int i = 0; i < burst; ++i)
            view.write(line);
        view.finish();
    }
    const double spent = processorSeconds() - begin;
    report<View>(state, "line" + std::to_string(lines) + (shown ? "shown" : "hidden"), "us_a_line",
                 spent * 1e6 / double(state.iterations() * burst));
}

void lineSizes(benchmark::internal::Benchmark *bench)
{
    bench->ArgNames({"lines", "shown"})->Iterations(10);
    for (const int lines : {1000, 10000, 100000, 300000})
        bench->Args({lines, 1});
    bench->Args({10000, 0});
}
BENCHMARK(BM_Line<Literal>)->Apply(lineSizes);
BENCHMARK(BM_Line<Console>)->Apply(lineSizes);

// One command with a short result, and the painting after it.
template <typename View>
void BM_Echo(benchmark::State &state)
{
    View view;
    fill(view, 1000, true);
    view.append(QString());
    view.moveCursor(QTextCursor::End);
    view.showPrompt();
    settle();
    const double begin = processorSeconds();
    for (auto _ : state) {
        view.run(u"expr 2 + 3"_s);
        view.viewport()->repaint();
    }
    report<View>(state, "echo", "us_a_command",
                 (processorSeconds() - begin) * 1e6 / double(state.iterations()));
}
BENCHMARK(BM_Echo<Literal>)->Iterations(2000);
BENCHMARK(BM_Echo<Console>)->Iterations(2000);

// The longest time for which the event loop stands still after 100,000 lines came at once.
template <typename View>
void BM_Freeze(benchmark::State &state)
{
    double longest = 0;
    for (auto _ : state) {
        View view;
        fill(view, 1000, true);
        for (int i = 0; i < 100000; ++i)
            view.write(line);
        view.finish();
        QElapsedTimer watch;
        watch.start();
        while (watch.elapsed() < 2000) {
            const double begin = processorSeconds();
            QApplication::processEvents();
            longest = std::max(longest, processorSeconds() - begin);
        }
    }
    report<View>(state, "freeze", "ms_longest", longest * 1000);
}
BENCHMARK(BM_Freeze<Literal>)->Iterations(1);
BENCHMARK(BM_Freeze<Console>)->Iterations(1);

// What the process grows by for each of 100,000 lines.
template <typename View>
void BM_Memory(benchmark::State &state)
{
    double grown = 0;
    for (auto _ : state) {
        auto view = std::make_unique<View>();
        fill(*view, 1000, true);
        const double before = residentBytes();
        for (int i = 0; i < 100000; ++i)
            view->write(line);
        view->finish();
        settle();
        grown = residentBytes() - before;
    }
    report<View>(state, "memory", "bytes_a_line", grown / 100000);
}
BENCHMARK(BM_Memory<Literal>)->Iterations(1);
BENCHMARK(BM_Memory<Console>)->Iterations(1);

// One line without a blank, and a key typed behind it.
template <typename View>
void BM_LongLine(benchmark::State &state)
{
    const QString text(state.range(0), u'x');
    for (auto _ : state) {
        View view;
        fill(view, 10, true);
        const double begin = processorSeconds();
        view.write(text);
        view.finish();
        settle();
        const double written = processorSeconds();
        view.append(QString());
        view.moveCursor(QTextCursor::End);
        view.showPrompt();
        view.viewport()->repaint();
        const double prompted = processorSeconds();
        QKeyEvent key(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, u"a"_s);
        QApplication::sendEvent(&view, &key);
        view.viewport()->repaint();
        state.counters["ms_a_key"] = (processorSeconds() - prompted) * 1000;
        report<View>(state, "long" + std::to_string(text.size()), "ms_a_line",
                     (written - begin) * 1000);
    }
}
BENCHMARK(BM_LongLine<Literal>)->ArgName("characters")->Arg(100000)->Iterations(1);
BENCHMARK(BM_LongLine<Console>)->ArgName("characters")->Arg(100000)->Arg(1000000)->Iterations(1);

// The console with so many lines as scripts print them: every tenth is wrapped, every twentieth has
// letters of another script.
std::unique_ptr<Console> printed(int lines)
{
    auto view = std::make_unique<Console>();
    view->resize(800, 500);
    view->show();
    settle();
    for (int i = 0; i < lines; ++i) {
        if (i % 20 == 0)
            view->write(line + u" – fünf µs"_s);
        else
            view->write(i % 10 == 5 ? line.repeated(3) : line);
    }
    view->finish();
    view->showPrompt();
    settle();
    return view;
}

// The longest time for which the event loop stands still over a change of the whole console.
template <typename Change>
void reportFreeze(benchmark::State &state, Change change)
{
    double longest = 0;
    const auto view = printed(int(state.range(0)));
    for (auto _ : state) {
        double begin = processorSeconds();
        change(*view);
        view->viewport()->repaint();
        longest = std::max(longest, processorSeconds() - begin);
        for (int i = 0; i < 200; ++i) {
            begin = processorSeconds();
            QApplication::processEvents();
            longest = std::max(longest, processorSeconds() - begin);
        }
    }
    state.counters["ms_longest"] = longest * 1000;
}

void lineCounts(benchmark::internal::Benchmark *bench)
{
    bench->ArgName("lines")->Arg(300000)->Arg(1000000)->Iterations(4);
}

void BM_Resize(benchmark::State &state)
{
    int width = 800;
    reportFreeze(state, [&width](Console &view) {
        width = width == 800 ? 500 : 800;
        view.resize(width, 500);
    });
}
BENCHMARK(BM_Resize)->Apply(lineCounts);

void BM_Font(benchmark::State &state)
{
    int size = 10;
    reportFreeze(state, [&size](Console &view) {
        QFont font = view.currentFont();
        font.setPointSize(++size);
        view.setFont(font);
    });
}
BENCHMARK(BM_Font)->Apply(lineCounts);

void BM_CopyAll(benchmark::State &state)
{
    reportFreeze(state, [](Console &view) {
        view.selectAll();
        view.copy();
    });
}
BENCHMARK(BM_CopyAll)->Apply(lineCounts);

void BM_Paste(benchmark::State &state)
{
    const QString text(440'000, u'x');
    reportFreeze(state, [&text](Console &view) {
        view.replaceCurrentCommand(QString());
        QGuiApplication::clipboard()->setText(text);
        view.moveCursor(QTextCursor::End);
        view.paste();
    });
}
BENCHMARK(BM_Paste)->Apply(lineCounts);

void BM_Clear(benchmark::State &state)
{
    const auto view = printed(int(state.range(0)));
    for (auto _ : state) {
        const double begin = processorSeconds();
        view->clear();
        view->viewport()->repaint();
        state.counters["ms_longest"] = (processorSeconds() - begin) * 1000;
    }
}
BENCHMARK(BM_Clear)->ArgName("lines")->Arg(300000)->Arg(1000000)->Iterations(1);

// The longest time that one line takes while very many come, beyond what painting takes.
void BM_LongestLine(benchmark::State &state)
{
    Console view;
    view.resize(800, 500);
    view.show();
    settle();
    double longest = 0;
    for (auto _ : state) {
        for (int i = 0; i < int(state.range(0)); ++i) {
            const double begin = processorSeconds();
            view.write(line);
            longest = std::max(longest, processorSeconds() - begin);
        }
        const double begin = processorSeconds();
        view.finish();
        settle();
        longest = std::max(longest, processorSeconds() - begin);
    }
    state.counters["ms_longest"] = longest * 1000;
}
BENCHMARK(BM_LongestLine)->ArgName("lines")->Arg(1000000)->Iterations(1);

// One line of a script's puts, from Tcl to the screen.
void BM_Puts(benchmark::State &state)
{
    QtclConsole *console = QtclConsole::getInstance(nullptr, u"Welcome"_s);
    fill(*console, int(state.range(0)), true);
    console->displayPrompt();
    const QString script = u"for {set i 0} {$i < 1000} {incr i} {puts {%1}}"_s.arg(line);
    const double begin = processorSeconds();
    for (auto _ : state)
        console->execCommand(script, false, true, nullptr);
    state.counters["us_a_line"] =
        (processorSeconds() - begin) * 1e6 / double(state.iterations() * 1000);
}
BENCHMARK(BM_Puts)->ArgName("lines")->Arg(10000)->Iterations(20);

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
