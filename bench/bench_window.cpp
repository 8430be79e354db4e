// What the window costs: its start with a design, and following what a script does to one.
#include "app/designs/DesignTree.h"
#include "app/designs/DesignTreeModel.h"
#include "app/designs/DesignTreeView.h"
#include "tests/host/MorvalenCore/SessionFixture.h"

#include <MorvalenCore/ChangeBracket.h>

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QProcess>

#include <optional>

#include <sys/resource.h>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::ChangeBracket;
using MorvalenCore::Interfaces::IDesign;

namespace {

void addFiles(IDesign *design, std::int64_t count)
{
    ChangeBracket::instance()->open();
    for (std::int64_t i = 0; i < count; ++i) {
        const QString file = u"rtl/block%1/unit_%2.v"_s.arg(i % 100).arg(i);
        if (!design->addFile(file, QString(), true, nullptr))
            qFatal("a file was refused");
    }
    ChangeBracket::instance()->close();
}

// User and system time of the child processes that have ended, in seconds.
double childTime()
{
    rusage usage {};
    getrusage(RUSAGE_CHILDREN, &usage);
    const auto seconds = [](const timeval &time) {
        return double(time.tv_sec) + double(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

// Ends the program once the design is there and was shown for a while.
const QByteArray endSoon = "proc look {} {\n"
                           "    if {[llength [designs list]] > 0} {after 500 exit; return}\n"
                           "    after 5 look\n"
                           "}\n"
                           "look\n";

// The whole life of the program, its end included.
void startWithDesign(benchmark::State &state)
{
    SessionFixture session;
    IDesign *design = session.create(u"big"_s, u"Hardware Design"_s, u"Hardware"_s);
    addFiles(design, state.range(0));
    const QString file = design->componentFileName();
    session.closeAll();
    SessionFixture::write(session.path(u"new/Scripts/startup.tcl"_s), endSoon);
    for (auto _ : state) {
        const double before = childTime();
        QProcess program;
        program.start(QStringLiteral(PROGRAM), {u"--session"_s, session.path(u"new"_s), file});
        if (!program.waitForFinished() || program.exitCode() != 0)
            qFatal("the program failed: %s", program.readAllStandardError().constData());
        state.SetIterationTime(childTime() - before);
    }
}

void settle(const DesignTree *tree)
{
    const auto *model =
        tree ? qobject_cast<const DesignTreeModel *>(tree->treeView()->model()) : nullptr;
    do {
        QCoreApplication::processEvents();
    } while (model && model->isBehind());
    QCoreApplication::processEvents();
}

// With the tree shown and everything in it open, or without it.
void addToDesign(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        {
            SessionFixture session;
            std::optional<DesignTree> tree;
            if (state.range(1) != 0) {
                tree.emplace();
                tree->resize(600, 800);
                tree->show();
            }
            IDesign *design = session.create(u"big"_s, u"Hardware Design"_s, u"Hardware"_s);
            design->addFile(u"rtl/first.v"_s, QString(), true, nullptr);
            settle(tree ? &*tree : nullptr);
            if (tree)
                tree->treeView()->expandAll();
            settle(tree ? &*tree : nullptr);
            state.ResumeTiming();
            addFiles(design, state.range(0));
            settle(tree ? &*tree : nullptr);
            state.PauseTiming();
        }
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

} // namespace

BENCHMARK(startWithDesign)
    ->ArgName("files")
    ->Arg(1)
    ->Arg(10'000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(addToDesign)
    ->ArgNames({"files", "tree"})
    ->Args({100'000, 0})
    ->Args({100'000, 1})
    ->Unit(benchmark::kMillisecond);

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
