// A script over many designs: open, check the files, set a property and the author, save, close.
// The peer is tclsh with tdom, with as many calls of fsync. "tdom_over_ours" is the processor time
// of tclsh for the same designs as part of ours, "kB_more" what 300 designs take beyond 30.
// The start of a script of one command, with the same counter for tclsh that loads tdom.
// And a build of many designs in one call: "over_ideal" is its time as a multiple of what the steps
// take with nothing between them, "over_ninja" as a multiple of Ninja's alone for the same steps.
#include <benchmark/benchmark.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <memory>
#include <vector>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace {

struct Cost
{
    double cpu = 0; // seconds, user and system
    long memory = 0; // kB at most
};

QByteArray component(int number)
{
    QByteArray text =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<ipxact:component xmlns:ipxact=\"http://www.accellera.org/XMLSchema/IPXACT/1685-2014\">\n"
        "  <ipxact:vendor>example.org</ipxact:vendor>\n"
        "  <ipxact:library>ip</ipxact:library>\n"
        "  <ipxact:name>block"
        + QByteArray::number(number)
        + "</ipxact:name>\n"
          "  <ipxact:version>1.0</ipxact:version>\n"
          "  <ipxact:fileSets>\n"
          "    <ipxact:fileSet>\n"
          "      <ipxact:name>rtl</ipxact:name>\n";
    for (int file = 0; file < 20; ++file)
        text += "      <ipxact:file>\n        <ipxact:name>rtl/unit" + QByteArray::number(file)
            + ".v</ipxact:name>\n        <ipxact:fileType>verilogSource</ipxact:fileType>\n"
              "      </ipxact:file>\n";
    return text
        + "    </ipxact:fileSet>\n"
          "  </ipxact:fileSets>\n"
          "  <ipxact:parameters>\n"
          "    <ipxact:parameter>\n"
          "      <ipxact:name>WIDTH</ipxact:name>\n"
          "      <ipxact:value>8</ipxact:value>\n"
          "    </ipxact:parameter>\n"
          "  </ipxact:parameters>\n"
          "  <ipxact:vendorExtensions>\n"
          "    <mv:design xmlns:mv=\"urn:morvalen:host:1\"><mv:author>Somebody</mv:author>"
          "</mv:design>\n"
          "  </ipxact:vendorExtensions>\n"
          "</ipxact:component>\n";
}

void write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
}

// New designs each time, so that both find the same.
QStringList makeDesigns(const QString &folder, int count)
{
    QStringList components;
    for (int number = 0; number < count; ++number) {
        const QString design = u"%1/block%2"_s.arg(folder, QString::number(number));
        QDir().mkpath(design + u"/rtl"_s);
        for (int file = 0; file < 20; ++file)
            write(u"%1/rtl/unit%2.v"_s.arg(design, QString::number(file)), "module unit;\n");
        write(design + u"/component.xml"_s, component(number));
        components.append(design + u"/component.xml"_s);
    }
    return components;
}

Cost run(const QStringList &words)
{
    QList<QByteArray> texts;
    for (const QString &word : words)
        texts.append(word.toUtf8());
    std::vector<char *> argv;
    for (QByteArray &text : texts)
        argv.push_back(text.data());
    argv.push_back(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        execvp(argv.front(), argv.data());
        _exit(127);
    }
    int status = 0;
    rusage usage {};
    if (wait4(child, &status, 0, &usage) != child || status != 0)
        qFatal("%s failed", texts.first().constData());
    const auto seconds = [](const timeval &time) {
        return double(time.tv_sec) + double(time.tv_usec) / 1e6;
    };
    return {seconds(usage.ru_utime) + seconds(usage.ru_stime), usage.ru_maxrss};
}

// A folder of its own for each run. They go when all is measured: where many files have just been
// deleted, the kernel takes long to find room for a new one.
const QTemporaryDir &newFolder()
{
    static std::vector<std::unique_ptr<QTemporaryDir>> folders;
    return *folders.emplace_back(std::make_unique<QTemporaryDir>());
}

// Whoever runs a script has a session.
QString session()
{
    static const QString folder = [] {
        const QString made = newFolder().filePath(u"session"_s);
        run({QStringLiteral(PROGRAM), u"--session"_s, made, u"-c"_s, u"set x {}"_s});
        return made;
    }();
    return folder;
}

Cost runOurs(int count)
{
    const QTemporaryDir &folder = newFolder();
    return run(QStringList {QStringLiteral(PROGRAM), u"--session"_s, session(), u"--batch"_s,
                            QStringLiteral(SCRIPTS "/morvalen.tcl")}
               + makeDesigns(folder.path(), count));
}

Cost runPeer(int count)
{
    const QTemporaryDir &folder = newFolder();
    return run(
        QStringList {u"tclsh8.6"_s, QStringLiteral(SCRIPTS "/tdom.tcl"), QStringLiteral(FSYNC)}
        + makeDesigns(folder.path(), count));
}

bool peerIsThere()
{
    return QProcess::execute(u"sh"_s,
                             {u"-c"_s, u"echo 'package require tdom' | tclsh8.6 >/dev/null 2>&1"_s})
        == 0;
}

void oneCommand(benchmark::State &state)
{
    const QStringList words {QStringLiteral(PROGRAM), u"--session"_s, session(), u"-c"_s,
                             u"set x {}"_s};
    const bool hasPeer = peerIsThere();
    double ours = 0;
    double peer = 0;
    for (auto _ : state) {
        const double seconds = run(words).cpu;
        state.SetIterationTime(seconds);
        ours += seconds;
        if (hasPeer)
            peer += run({u"tclsh8.6"_s, QStringLiteral(SCRIPTS "/start.tcl")}).cpu;
    }
    if (hasPeer)
        state.counters["tdom_over_ours"] = peer / ours;
}

void manyDesigns(benchmark::State &state)
{
    const int count = int(state.range(0));
    const bool hasPeer = peerIsThere();
    double ours = 0;
    double peer = 0;
    // Who comes later finds the disk in another state, so they take turns in being first.
    bool isPeerFirst = false;
    for (auto _ : state) {
        if (hasPeer && isPeerFirst)
            peer += runPeer(count).cpu;
        const Cost cost = runOurs(count);
        state.SetIterationTime(cost.cpu);
        ours += cost.cpu;
        if (hasPeer && !isPeerFirst)
            peer += runPeer(count).cpu;
        isPeerFirst = !isPeerFirst;
        state.counters["kB_more"] = double(cost.memory - runOurs(count / 10).memory);
    }
    if (hasPeer)
        state.counters["tdom_over_ours"] = peer / ours;
}

// Steps that take a tenth of a second, and make a file each.
constexpr int designsToBuild = 100;
constexpr int stepsOfADesign = 10;
constexpr int jobs = 8;

QByteArray componentWithSteps(int number)
{
    QByteArray steps;
    for (int step = 0; step < stepsOfADesign; ++step)
        steps += "<mv:step name=\"" + QByteArray::number(step)
            + "\"><mv:command>sleep 0.1; touch $(OUTPUTS)</mv:command><mv:output>$(TARGET_PATH)/"
            + QByteArray::number(step) + "</mv:output></mv:step>\n";
    return component(number).replace("</mv:design>",
                                     "<mv:buildConfigurations><mv:buildConfiguration name=\"Main\">"
                                         + steps
                                         + "</mv:buildConfiguration></mv:buildConfigurations>"
                                           "</mv:design>");
}

double secondsOf(const QStringList &words)
{
    QElapsedTimer timer;
    timer.start();
    run(words);
    return double(timer.nsecsElapsed()) / 1e9;
}

double secondsOfOurs()
{
    const QTemporaryDir &folder = newFolder();
    QStringList words {QStringLiteral(PROGRAM),
                       u"--session"_s,
                       folder.filePath(u"session"_s),
                       u"--batch"_s,
                       QStringLiteral(SCRIPTS "/build.tcl"),
                       QString::number(jobs)};
    for (int number = 0; number < designsToBuild; ++number) {
        const QString design = folder.filePath(u"block%1"_s.arg(number));
        QDir().mkpath(design);
        write(design + u"/component.xml"_s, componentWithSteps(number));
        words.append(design + u"/component.xml"_s);
    }
    return secondsOf(words);
}

double secondsOfNinja()
{
    const QTemporaryDir &folder = newFolder();
    QByteArray text = "rule step\n  command = sleep 0.1; touch $out\n";
    for (int step = 0; step < designsToBuild * stepsOfADesign; ++step)
        text += "build " + QByteArray::number(step) + ": step\n";
    write(folder.filePath(u"build.ninja"_s), text);
    return secondsOf(
        {u"ninja"_s, u"--quiet"_s, u"-C"_s, folder.path(), u"-j"_s, QString::number(jobs)});
}

void oneBuildOfManyDesigns(benchmark::State &state)
{
    constexpr double ideal = 0.1 * designsToBuild * stepsOfADesign / jobs;
    double ours = 0;
    double ninja = 0;
    for (auto _ : state) {
        const double seconds = secondsOfOurs();
        state.SetIterationTime(seconds);
        ours += seconds;
        ninja += secondsOfNinja();
    }
    state.counters["over_ideal"] = ours / double(state.iterations()) / ideal;
    state.counters["over_ninja"] = ours / ninja;
}

} // namespace

BENCHMARK(oneCommand)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(60);
BENCHMARK(manyDesigns)->Arg(300)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(6);
BENCHMARK(oneBuildOfManyDesigns)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);

BENCHMARK_MAIN();
