// Items of designs of 10 to 100,000 files: the cost of one must not grow with their number.
#include "tests/host/MorvalenCore/SessionFixture.h"

#include <MorvalenCore/ChangeBracket.h>
#include <Qtilities/QtilitiesCategory.h>

#include <benchmark/benchmark.h>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::ChangeBracket;
using MorvalenCore::DesignFile;
using MorvalenCore::Interfaces::IDesign;

namespace {

// As a script spells them.
QStringList names(std::int64_t count)
{
    QStringList list;
    for (std::int64_t i = 0; i < count; ++i)
        list.append(u"rtl/block%1/unit_%2.v"_s.arg(i % 100).arg(i));
    return list;
}

void add(IDesign *design, const QStringList &files)
{
    ChangeBracket::instance()->open();
    for (const QString &file : files) {
        if (!design->addFile(file, QString(), true, nullptr))
            qFatal("a file was refused");
    }
    ChangeBracket::instance()->close();
}

// A design with that many files, on disk; a new session for each.
struct Subject
{
    explicit Subject(std::int64_t count) : files(names(count))
    {
        design = session.create(u"big"_s, u"Hardware Design"_s, u"Hardware"_s);
        add(design, files);
        design->saveToComponentFile(nullptr);
    }

    SessionFixture session;
    QStringList files;
    IDesign *design;
};

void activeFile(benchmark::State &state)
{
    Subject subject(state.range(0));
    DesignFile *file = subject.design->fileByActualPath(subject.files.last(), false);
    subject.design->setActiveFiles({file});
    for (auto _ : state) {
        const DesignFile *active = subject.design->activeFiles().first();
        benchmark::DoNotOptimize(active->actualPath());
        benchmark::DoNotOptimize(active->category().toString(u"::"_s));
    }
}

void findOne(benchmark::State &state)
{
    const Subject subject(state.range(0));
    std::int64_t i = 0;
    for (auto _ : state) {
        i = (i + 7919) % subject.files.size();
        benchmark::DoNotOptimize(subject.design->fileByActualPath(subject.files[i], false));
    }
}

void addFiles(benchmark::State &state)
{
    const QStringList files = names(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        {
            SessionFixture session;
            IDesign *design = session.create(u"big"_s, u"Hardware Design"_s, u"Hardware"_s);
            state.ResumeTiming();
            add(design, files);
            state.PauseTiming();
        }
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void listFiles(benchmark::State &state)
{
    const Subject subject(state.range(0));
    for (auto _ : state) {
        QStringList list;
        for (const DesignFile *file : subject.design->filesUnderNode(QString(), true))
            list.append(file->actualPath());
        benchmark::DoNotOptimize(list);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void removeFiles(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        {
            Subject subject(state.range(0));
            state.ResumeTiming();
            ChangeBracket::instance()->open();
            for (const DesignFile *file : subject.design->filesUnderNode(QString(), true))
                subject.design->removeFile(file->actualPath());
            ChangeBracket::instance()->close();
            state.PauseTiming();
        }
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void saveFiles(benchmark::State &state)
{
    Subject subject(state.range(0));
    int round = 0;
    for (auto _ : state) {
        state.PauseTiming();
        subject.design->setDescription(QString::number(++round));
        state.ResumeTiming();
        if (!subject.design->saveToComponentFile(nullptr))
            qFatal("not saved");
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void openFiles(benchmark::State &state)
{
    Subject subject(state.range(0));
    const QString file = subject.design->componentFileName();
    subject.session.closeAll();
    for (auto _ : state) {
        if (!subject.session.open(file))
            qFatal("not opened");
        state.PauseTiming();
        subject.session.closeAll();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

// All of the above in one: what a script that works on every file costs.
void wholeRound(benchmark::State &state)
{
    const QStringList files = names(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        {
            SessionFixture session;
            IDesign *design = session.create(u"big"_s, u"Hardware Design"_s, u"Hardware"_s);
            state.ResumeTiming();
            add(design, files);
            if (design->filesUnderNode(QString(), true).size() != files.size())
                qFatal("files are missing");
            design = session.reopen(design);
            ChangeBracket::instance()->open();
            for (const DesignFile *file : design->filesUnderNode(QString(), true))
                design->removeFile(file->actualPath());
            ChangeBracket::instance()->close();
            if (!design->saveToComponentFile(nullptr))
                qFatal("not saved");
            state.PauseTiming();
        }
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

} // namespace

BENCHMARK(activeFile)->Arg(10)->Arg(100'000);
BENCHMARK(findOne)->Arg(10)->Arg(100'000);
BENCHMARK(addFiles)->Arg(1'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(listFiles)->Arg(1'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(removeFiles)->Arg(1'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(saveFiles)->Arg(1'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(wholeRound)->Arg(1'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(openFiles)->Arg(1'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
