// What a line of output costs in the console, beside the shortest code that does the same: set the
// colour, append the paragraph. Each row of the console names its ratio to the literal row.

#include "console/QConsole.h"

#include <QApplication>
#include <QFile>
#include <QKeyEvent>
#include <QScrollBar>
#include <QTextBlock>

#include <benchmark/benchmark.h>

#include <malloc.h>
#include <map>
#include <memory>
#include <time.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString line = u"INFO: elaborating module uart_tx with 8 data bits and no parity"_s;

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
    void write(const QString &text, const QColor &color)
    {
        setTextColor(color);
        append(text);
    }
    void prompt()
    {
        document()->setUndoRedoEnabled(false);
        setTextColor(Qt::black);
        insertPlainText(u"morvalen > "_s);
        moveCursor(QTextCursor::EndOfLine);
        document()->setUndoRedoEnabled(true);
    }
    void run(const QString &command)
    {
        insertPlainText(command);
        setTextColor(Qt::blue);
        append(u"5\n"_s);
        moveCursor(QTextCursor::End);
        prompt();
    }
    void finish() { }
};

class Gathering : public QConsole
{
public:
    Gathering() : QConsole(nullptr, u"Welcome"_s) { }
    void write(const QString &text, const QColor &color) { writeOutput(text, color); }
    void run(const QString &command) { execCommand(command, true, true, nullptr); }
    QString interpretCommand(const QString &, int *) override { return u"5"_s; }
    void prompt() { setPrompt(u"morvalen > "_s, true); }
    void finish()
    {
        QEvent none(QEvent::User);
        event(&none);
    }
};

// Lays out and paints what is pending.
void settle()
{
    for (int i = 0; i < 50; ++i)
        QApplication::processEvents();
}

template <typename View>
std::unique_ptr<View> filled(int lines, bool shown)
{
    auto view = std::make_unique<View>();
    view->resize(800, 500);
    if (shown)
        view->show();
    settle();
    QTextCursor cursor(view->document());
    cursor.movePosition(QTextCursor::End);
    cursor.beginEditBlock();
    for (int i = 0; i < lines; ++i) {
        cursor.insertBlock();
        cursor.insertText(line);
    }
    cursor.endEditBlock();
    view->moveCursor(QTextCursor::End);
    settle();
    return view;
}

std::map<std::pair<int64_t, int64_t>, double> literalNanoseconds;

template <typename View>
void BM_Line(benchmark::State &state)
{
    const auto key = std::pair(state.range(0), state.range(1));
    const auto view = filled<View>(int(state.range(0)), state.range(1) != 0);
    constexpr int batch = 1000;
    QElapsedTimer clock;
    qint64 spent = 0;
    for (auto _ : state) {
        clock.start();
        for (int i = 0; i < batch; ++i)
            view->write(line, Qt::blue);
        view->finish();
        spent += clock.nsecsElapsed();
    }
    const double each = double(spent) / double(state.iterations() * batch);
    state.counters["us_a_line"] = each / 1000;
    if (std::is_same_v<View, Literal>)
        literalNanoseconds[key] = each;
    else if (literalNanoseconds.count(key))
        state.counters["x_literal"] = each / literalNanoseconds[key];
}

void sizes(benchmark::internal::Benchmark *bench)
{
    for (const int lines : { 1000, 10000, 100000, 300000 })
        bench->Args({ lines, 1 })->Iterations(lines > 10000 ? 10 : 20);
    bench->Args({ 10000, 0 })->Iterations(20);
}

BENCHMARK(BM_Line<Literal>)->Apply(sizes)->ArgNames({ "lines", "shown" });
BENCHMARK(BM_Line<Gathering>)->Apply(sizes)->ArgNames({ "lines", "shown" });

// One command with a short result, and the painting after it.
template <typename View>
void BM_Echo(benchmark::State &state)
{
    const auto view = filled<View>(int(state.range(0)), true);
    view->append(QString());
    view->moveCursor(QTextCursor::End);
    view->prompt();
    settle();
    for (auto _ : state) {
        view->run(u"expr 2 + 3"_s);
        view->viewport()->repaint();
    }
}
BENCHMARK(BM_Echo<Literal>)->Arg(1000)->Iterations(500)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Echo<Gathering>)->Arg(1000)->Iterations(500)->Unit(benchmark::kMicrosecond);

// Of this thread, so that other programs do not count.
double processorSeconds()
{
    timespec now;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) + double(now.tv_nsec) / 1e9;
}

// The longest time that the event loop stands still after 100,000 lines were written at once.
template <typename View>
void BM_Freeze(benchmark::State &state)
{
    double longest = 0;
    for (auto _ : state) {
        const auto view = filled<View>(1000, true);
        for (int i = 0; i < 100000; ++i)
            view->write(line, Qt::blue);
        view->finish();
        QElapsedTimer all;
        all.start();
        while (all.elapsed() < 3000) {
            const double begin = processorSeconds();
            QApplication::processEvents();
            longest = std::max(longest, (processorSeconds() - begin) * 1000);
            if (processorSeconds()-begin > 0.001) qDebug() << all.elapsed() << (processorSeconds()-begin)*1000;
        }
    }
    state.counters["ms_longest"] = longest;
}
BENCHMARK(BM_Freeze<Literal>)->Iterations(1);
BENCHMARK(BM_Freeze<Gathering>)->Iterations(1);

double residentBytes()
{
    malloc_trim(0);
    QFile status(u"/proc/self/statm"_s);
    status.open(QIODevice::ReadOnly);
    return status.readAll().split(' ').at(1).toDouble() * double(sysconf(_SC_PAGESIZE));
}

template <typename View>
void BM_Memory(benchmark::State &state)
{
    for (auto _ : state) {
        const auto view = filled<View>(1000, true);
        const double before = residentBytes();
        for (int i = 0; i < 100000; ++i)
            view->write(line, Qt::blue);
        view->finish();
        settle();
        state.counters["bytes_a_line"] = (residentBytes() - before) / 100000;
    }
}
BENCHMARK(BM_Memory<Literal>)->Iterations(1);
BENCHMARK(BM_Memory<Gathering>)->Iterations(1);

template <typename View>
void BM_LongLine(benchmark::State &state)
{
    const QString text(state.range(0), u'x');
    for (auto _ : state) {
        const auto view = filled<View>(10, true);
        QElapsedTimer clock;
        clock.start();
        view->write(text, Qt::blue);
        view->finish();
        settle();
        state.counters["ms"] = double(clock.nsecsElapsed()) / 1e6;
        clock.start();
        QKeyEvent key(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, u"a"_s);
        QApplication::sendEvent(view.get(), &key);
        view->viewport()->repaint();
        state.counters["ms_key"] = double(clock.nsecsElapsed()) / 1e6;
    }
}
BENCHMARK(BM_LongLine<Literal>)->Arg(100000)->Iterations(1);
BENCHMARK(BM_LongLine<Gathering>)->Arg(100000)->Arg(1000000)->Iterations(1);

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
