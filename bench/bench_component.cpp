// Opening component files against expat's own pass over them, and bulk edits.
#include "component/ComponentDocument.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <expat.h>
#include <malloc.h>

#include <memory>

using namespace MorvalenCore;
using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Status;

namespace {

constexpr std::int64_t small = 2'400'000;
constexpr std::int64_t large = 49'000'000;

const QByteArray head = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                        "<ipxact:component xmlns:ipxact=\""
                        "http://www.accellera.org/XMLSchema/IPXACT/1685-2014\">\n"
                        "  <ipxact:vendor>example.org</ipxact:vendor>\n"
                        "  <ipxact:library>bench</ipxact:library>\n"
                        "  <ipxact:name>big</ipxact:name>\n"
                        "  <ipxact:version>1.0</ipxact:version>\n";
const QByteArray tail = "</ipxact:component>\n";

QByteArray fileEntry(std::int64_t number)
{
    return "      <ipxact:file>\n"
           "        <ipxact:name>rtl/block/unit_"
        + QByteArray::number(qlonglong(number))
        + ".v</ipxact:name>\n"
          "        <ipxact:fileType>verilogSource</ipxact:fileType>\n"
          "      </ipxact:file>\n";
}

// All of it file entries: every element is indexed.
QByteArray manyFiles(std::int64_t size)
{
    QByteArray bytes = head
        + "  <ipxact:fileSets>\n    <ipxact:fileSet>\n"
          "      <ipxact:name>rtl</ipxact:name>\n";
    for (std::int64_t i = 0; bytes.size() < size; ++i)
        bytes += fileEntry(i);
    return bytes + "    </ipxact:fileSet>\n  </ipxact:fileSets>\n" + tail;
}

// Register maps, the bulk of large components from generators.
QByteArray manyRegisters(std::int64_t size)
{
    QByteArray bytes = head
        + "  <ipxact:memoryMaps>\n    <ipxact:memoryMap>\n"
          "      <ipxact:name>map</ipxact:name>\n";
    for (std::int64_t i = 0; bytes.size() < size; ++i) {
        bytes += "      <ipxact:register>\n        <ipxact:name>reg_"
            + QByteArray::number(qlonglong(i)) + "</ipxact:name>\n        <ipxact:addressOffset>0x"
            + QByteArray::number(qlonglong(i * 4), 16)
            + "</ipxact:addressOffset>\n        <ipxact:size>32</ipxact:size>\n"
              "        <ipxact:access>read-write</ipxact:access>\n      </ipxact:register>\n";
    }
    return bytes + "    </ipxact:memoryMap>\n  </ipxact:memoryMaps>\n" + tail;
}

QString fileWith(const QTemporaryDir &folder, const QByteArray &bytes)
{
    const QString path = folder.filePath(u"component.xml"_s);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
    return path;
}

std::int64_t residentMemory()
{
    QFile file(u"/proc/self/statm"_s);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').at(1).toLongLong() * 4096;
}

using Maker = QByteArray (*)(std::int64_t);

// The yardstick: read the file, and let expat go over it for nothing.
void expatAlone(benchmark::State &state, Maker make)
{
    const QTemporaryDir folder;
    const QString path = fileWith(folder, make(state.range(0)));
    for (auto _ : state) {
        QFile file(path);
        const bool open = file.open(QIODevice::ReadOnly);
        const QByteArray bytes = file.readAll();
        const std::unique_ptr<std::remove_pointer_t<XML_Parser>, decltype(&XML_ParserFree)> parser(
            XML_ParserCreate(nullptr), XML_ParserFree);
        const auto status = XML_Parse(parser.get(), bytes.data(), int(bytes.size()), XML_TRUE);
        if (!open || status != XML_STATUS_OK)
            state.SkipWithError("not parsed");
    }
    state.SetBytesProcessed(state.iterations() * state.range(0));
}

void openComponent(benchmark::State &state, Maker make)
{
    const QTemporaryDir folder;
    const QString path = fileWith(folder, make(state.range(0)));
    for (auto _ : state) {
        auto opened = ComponentDocument::open(path);
        if (!opened.isOk())
            state.SkipWithError("not opened");
        benchmark::DoNotOptimize(opened);
    }
    state.SetBytesProcessed(state.iterations() * state.range(0));
    malloc_trim(0);
    const std::int64_t before = residentMemory();
    const auto opened = ComponentDocument::open(path);
    state.counters["memory/file"] = double(residentMemory() - before) / double(state.range(0));
}

void checkDone(benchmark::State &state, const Status &done)
{
    if (!done.isOk())
        state.SkipWithError(qPrintable(done.text()));
}

// One by one: so many files are added, half of them are removed, one in ten is set, then saved.
void editFiles(benchmark::State &state)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"component.xml"_s);
    for (auto _ : state) {
        QFile::remove(path);
        const auto document =
            ComponentDocument::create({u"v"_s, u"l"_s, u"n"_s, u"1"_s}, path).value();
        const FileSetId set = document->files().addFileSet(u"files"_s).value();
        QList<FileId> files;
        for (std::int64_t i = 0; i < state.range(0); ++i)
            files += document->files().add(u"rtl/unit_%1.v"_s.arg(i), set).value();
        for (qsizetype i = 0; i < files.size(); ++i) {
            if (i % 2 == 0)
                document->files().remove(files[i]);
            else if (i % 10 == 1)
                checkDone(state, document->files().setCategory(files[i], u"HDL::Verilog"_s));
        }
        checkDone(state, document->save());
    }
    state.counters["per file"] = benchmark::Counter(double(state.range(0)),
                                                    benchmark::Counter::kIsIterationInvariantRate
                                                        | benchmark::Counter::kInvert);
}

// The same in a document that was read.
void editOpenedFiles(benchmark::State &state)
{
    const QTemporaryDir folder;
    QByteArray bytes = head
        + "  <ipxact:fileSets>\n    <ipxact:fileSet>\n"
          "      <ipxact:name>rtl</ipxact:name>\n";
    for (std::int64_t i = 0; i < state.range(0); ++i)
        bytes += fileEntry(i);
    bytes += "    </ipxact:fileSet>\n  </ipxact:fileSets>\n" + tail;
    for (auto _ : state) {
        auto opened = ComponentDocument::open(fileWith(folder, bytes));
        ComponentFiles &files = opened.value()->files();
        const QList<FileId> all = files.files();
        for (qsizetype i = 0; i < all.size(); ++i) {
            if (i % 2 == 0)
                files.remove(all[i]);
            else
                checkDone(state, files.setPath(all[i], u"moved/unit_%1.v"_s.arg(i)));
        }
        for (std::int64_t i = 0; i < state.range(0); ++i)
            checkDone(state,
                      files.add(u"more/unit_%1.v"_s.arg(i), files.fileSet(u"rtl"_s)).status());
        checkDone(state, opened.value()->save());
    }
    state.counters["per file"] = benchmark::Counter(double(state.range(0)),
                                                    benchmark::Counter::kIsIterationInvariantRate
                                                        | benchmark::Counter::kInvert);
}

void buildSteps(benchmark::State &state)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"component.xml"_s);
    BuildDescription build {u"Debug"_s, {}, {}, {}};
    for (std::int64_t i = 0; i < state.range(0); ++i) {
        const QString name = u"unit_%1"_s.arg(i);
        build.steps.append({name, u"cc -c "_s + name, {name + u".c"_s}, {name + u".o"_s}});
    }
    for (auto _ : state) {
        const auto document =
            ComponentDocument::create({u"v"_s, u"l"_s, u"n"_s, u"1"_s}, path).value();
        checkDone(state, document->builds().write(build));
        const auto again = ComponentDocument::fromBytes(document->bytes(), path);
        benchmark::DoNotOptimize(again.value()->builds().configurations());
    }
    state.counters["per step"] = benchmark::Counter(double(state.range(0)),
                                                    benchmark::Counter::kIsIterationInvariantRate
                                                        | benchmark::Counter::kInvert);
}

} // namespace

BENCHMARK_CAPTURE(expatAlone, files, manyFiles)
    ->Arg(small)
    ->Arg(large)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(openComponent, files, manyFiles)
    ->Arg(small)
    ->Arg(large)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(expatAlone, registers, manyRegisters)
    ->Arg(small)
    ->Arg(large)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(openComponent, registers, manyRegisters)
    ->Arg(small)
    ->Arg(large)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(editFiles)->Arg(1'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(editOpenedFiles)->Arg(1'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(buildSteps)->Arg(100)->Arg(5'000)->Unit(benchmark::kMillisecond);
BENCHMARK_MAIN();
