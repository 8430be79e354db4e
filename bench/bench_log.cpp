// What a line of the log costs where a window shows it, beside a plain-text widget of Qt that keeps
// as many lines.
#include <Qtilities/Logger.h>
#include <Qtilities/LoggerGui.h>

#include <QApplication>
#include <QPlainTextEdit>

#include <benchmark/benchmark.h>

#include <memory>

using namespace Qt::Literals::StringLiterals;
using Qtilities::CoreGui::LoggerGui;
using Qtilities::Logging::Logger;

namespace {

const QString line = u"INFO: elaborating module uart_tx with 8 data bits and no parity"_s;
constexpr int burst = 1000;
double literalMicroseconds = 0;

double processorMicroseconds()
{
    timespec now;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) * 1e6 + double(now.tv_nsec) / 1e3;
}

// Writes bursts of lines behind 50,000 that are there, painting after each; one line's time.
template <typename Write>
double timeOf(benchmark::State &state, Write write)
{
    for (int i = 0; i < 50'000; ++i)
        write();
    QApplication::processEvents();
    const double begin = processorMicroseconds();
    for (auto _ : state) {
        for (int i = 0; i < burst; ++i)
            write();
        QApplication::processEvents();
    }
    return (processorMicroseconds() - begin) / double(state.iterations() * burst);
}

void BM_Literal(benchmark::State &state)
{
    QPlainTextEdit view;
    view.setMaximumBlockCount(50'000);
    view.resize(800, 300);
    view.show();
    literalMicroseconds = timeOf(state, [&] { view.appendPlainText(line); });
    state.counters["us_a_line"] = literalMicroseconds;
}
BENCHMARK(BM_Literal)->Iterations(20);

void BM_Log(benchmark::State &state)
{
    const std::unique_ptr<QWidget> window(LoggerGui::createSystemLogWidget(u"Log"_s));
    window->resize(800, 300);
    window->show();
    const double spent =
        timeOf(state, [] { Logger::instance()->logMessage(QString(), Logger::Info, line); });
    state.counters["us_a_line"] = spent;
    state.counters["x_literal"] = spent / literalMicroseconds;
}
BENCHMARK(BM_Log)->Iterations(20);

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
