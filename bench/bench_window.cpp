// What the window costs: its start with what was open, following what a script does to a design,
// and finding in its files.
#include "app/designs/DesignTree.h"
#include "app/designs/DesignTreeModel.h"
#include "app/designs/DesignTreeView.h"
#include "app/editor/EditorArea.h"
#include "app/find/FindView.h"
#include "tests/host/MorvalenCore/SessionFixture.h"

#include <MorvalenCore/ChangeBracket.h>

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLineEdit>
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

// Ends the program once the designs are there and were shown for a while.
const QByteArray endSoon = "proc look {} {\n"
                           "    if {[llength [designs list]] >= $::env(DESIGNS)} {\n"
                           "        after 500 exit\n"
                           "        return\n"
                           "    }\n"
                           "    after 5 look\n"
                           "}\n"
                           "look\n";

// The whole life of the program, its end included.
void live(benchmark::State &state, const QStringList &arguments, int designs)
{
    qputenv("DESIGNS", QByteArray::number(designs));
    for (auto _ : state) {
        const double before = childTime();
        QProcess program;
        program.start(QStringLiteral(PROGRAM), arguments);
        if (!program.waitForFinished() || program.exitCode() != 0)
            qFatal("the program failed: %s", program.readAllStandardError().constData());
        state.SetIterationTime(childTime() - before);
    }
}

void startWithDesign(benchmark::State &state)
{
    SessionFixture session;
    IDesign *design = session.create(u"big"_s, u"Hardware Design"_s, u"Hardware"_s);
    addFiles(design, state.range(0));
    const QString file = design->componentFileName();
    session.closeAll();
    SessionFixture::write(session.path(u"new/Scripts/startup.tcl"_s), endSoon);
    live(state, {u"--session"_s, session.path(u"new"_s), file}, 1);
}

QByteArray source(int lines)
{
    QByteArray text;
    for (int line = 0; line < lines; ++line)
        text += "    assign wire_" + QByteArray::number(line) + " = enable & ready;\n";
    return text;
}

// What was open when the window was closed: designs of 20 files each, and pages of their sources.
void startWithDay(benchmark::State &state)
{
    constexpr int filesOfDesign = 20;
    SessionFixture session;
    QJsonArray designs;
    QJsonArray pages;
    for (int number = 0; number < state.range(0); ++number) {
        IDesign *design = session.create(u"design%1"_s.arg(number));
        addFiles(design, filesOfDesign);
        const QString text = session.path(u"page%1.v"_s.arg(number));
        SessionFixture::write(text, source(1000));
        designs.append(design->componentFileName());
        if (pages.size() < state.range(1))
            pages.append(QJsonObject {{u"key"_s, text}, {u"cursor"_s, 100}, {u"top"_s, 50}});
    }
    session.closeAll();
    SessionFixture::write(session.path(u"new/window.json"_s),
                          QJsonDocument(QJsonObject {{u"version"_s, 1},
                                                     {u"designs"_s, designs},
                                                     {u"pages"_s, pages},
                                                     {u"mode"_s, 1}})
                              .toJson());
    SessionFixture::write(session.path(u"new/Scripts/startup.tcl"_s), endSoon);
    live(state, {u"--session"_s, session.path(u"new"_s)}, int(state.range(0)));
}

// A design whose files are on disk; one of a hundred has what is looked for.
IDesign *designToSearch(SessionFixture &session, std::int64_t files)
{
    IDesign *design = session.create(u"big"_s);
    addFiles(design, files);
    const QByteArray text = source(60);
    int number = 0;
    for (const auto *file : design->filesUnderNode({}, true))
        SessionFixture::write(file->actualPath(),
                              ++number % 100 == 0 ? text + "the_needle\n" : text);
    return design;
}

// From the key to the last row of the results.
void findInFiles(benchmark::State &state)
{
    SessionFixture session;
    IDesign *design = designToSearch(session, state.range(0));
    MorvalenCore::DesignManager::instance()->setActiveDesign(design->id(u"."_s));
    EditorArea area;
    FindView view(&area);
    view.show();
    auto *field = view.findChild<QLineEdit *>(u"findText"_s);
    const auto *search = view.findChild<FileSearch *>();
    bool isOver = false;
    qsizetype matches = 0;
    QObject::connect(search, &FileSearch::ended, &view, [&isOver] { isOver = true; });
    QObject::connect(
        search, &FileSearch::found, &view,
        [&matches](const QList<textmatching::Match> &some) { matches += some.size(); });
    field->setText(u"the_needle"_s);
    for (auto _ : state) {
        isOver = false;
        matches = 0;
        QElapsedTimer clock;
        clock.start();
        Q_EMIT field->returnPressed();
        while (!isOver)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        state.SetIterationTime(double(clock.nsecsElapsed()) / 1e9);
        if (matches != state.range(0) / 100)
            qFatal("%lld matches", static_cast<long long>(matches));
    }
}

void grepInFiles(benchmark::State &state)
{
    SessionFixture session;
    const QString folder = designToSearch(session, state.range(0))->workingFolderPath();
    for (auto _ : state) {
        QElapsedTimer clock;
        clock.start();
        QProcess grep;
        grep.start(u"grep"_s, {u"-rnI"_s, u"the_needle"_s, folder});
        if (!grep.waitForFinished() || grep.readAll().count('\n') != state.range(0) / 100)
            qFatal("grep failed");
        state.SetIterationTime(double(clock.nsecsElapsed()) / 1e9);
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
BENCHMARK(startWithDay)
    ->ArgNames({"designs", "pages"})
    ->Args({1, 0})
    ->Args({20, 10})
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(findInFiles)
    ->ArgName("files")
    ->Arg(10'000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(grepInFiles)
    ->ArgName("files")
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
