// Builds with nothing outdated, against bare Ninja on the same file, and against the number of
// steps. The ratios are those of one run: "run" to "ninja", and the cost of a step (the counter
// "a_step") at 5,000 steps to that at 100.

#include <MorvalenCore/BuildConfiguration.h>
#include <MorvalenCore/DesignManager.h>
#include <Qtilities/QtilitiesApplication.h>

#include <benchmark/benchmark.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::BuildConfiguration;
using MorvalenCore::DesignManager;
using MorvalenCore::Interfaces::IDesign;

extern char **environ;

namespace {

QTemporaryDir &session()
{
    static QTemporaryDir folder;
    return folder;
}

void write(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
}

// A design with one source for ten steps, one object for each step, and one step that joins all.
QByteArray component(const QByteArray &name, int steps)
{
    QByteArray text = R"(<?xml version="1.0" encoding="UTF-8"?>
<ipxact:component xmlns:ipxact="http://www.accellera.org/XMLSchema/IPXACT/1685-2014">
<ipxact:vendor>v</ipxact:vendor><ipxact:library>l</ipxact:library><ipxact:name>)"
        + name + R"(</ipxact:name><ipxact:version>1</ipxact:version><ipxact:vendorExtensions>
<mv:design xmlns:mv="urn:morvalen:host:1"><mv:buildConfigurations>
<mv:buildConfiguration name="Main"><mv:macro name="COPY">cp</mv:macro>
)";
    QByteArray objects;
    for (int step = 1; step < steps; ++step) {
        const QByteArray number = QByteArray::number(step);
        const QByteArray object = "$(TARGET_PATH)/objects/file_" + number + ".o";
        text += "<mv:step name=\"compile " + number
            + "\"><mv:command>$(COPY) $(INPUTS) $(OUTPUTS)</mv:command><mv:input>sources/file_"
            + QByteArray::number(step / 10) + ".c</mv:input><mv:output>" + object
            + "</mv:output></mv:step>\n";
        objects += "<mv:input>" + object + "</mv:input>";
    }
    return text + "<mv:step name=\"join\"><mv:command>touch $(OUTPUTS)</mv:command>" + objects
        + "<mv:output>$(TARGET_PATH)/all</mv:output></mv:step></mv:buildConfiguration>"
          "</mv:buildConfigurations></mv:design></ipxact:vendorExtensions></ipxact:component>\n";
}

// The design of that many steps, built; kept open for all benchmarks.
IDesign &designOf(int steps)
{
    static QHash<int, IDesign *> designs;
    IDesign *&design = designs[steps];
    if (!design) {
        const QByteArray name = "steps" + QByteArray::number(steps);
        const QString folder = session().path() + u'/' + QString::fromLatin1(name);
        for (int source = 0; source <= steps / 10; ++source)
            write(folder + u"/sources/file_%1.c"_s.arg(source), "x");
        write(folder + u"/component.xml"_s, component(name, steps));
        design = DesignManager::instance()->parseDesignFromFile({}, folder + u"/component.xml"_s);
        if (!design || !design->activeBuildConfiguration()->run(true, false))
            qFatal("the design cannot be built");
    }
    return *design;
}

// Two processes that never rest, as long as the object is there.
class Hogs
{
public:
    Hogs()
    {
        QByteArray words[] {"sh", "-c", "while :; do :; done"};
        char *argv[] {words[0].data(), words[1].data(), words[2].data(), nullptr};
        for (pid_t &id : ids) {
            if (posix_spawnp(&id, "sh", nullptr, nullptr, argv, environ) != 0)
                qFatal("no shell");
        }
    }
    ~Hogs()
    {
        for (const pid_t id : ids) {
            kill(id, SIGKILL);
            waitpid(id, nullptr, 0);
        }
    }
    Hogs(const Hogs &) = delete;
    Hogs &operator=(const Hogs &) = delete;

private:
    pid_t ids[2] {};
};

void countSteps(benchmark::State &state)
{
    state.counters["a_step"] =
        benchmark::Counter(double(state.range(0)) * double(state.iterations()),
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

// The yardstick: Ninja alone, its output thrown away.
void ninja(benchmark::State &state)
{
    const IDesign &design = designOf(int(state.range(0)));
    const QByteArray folder = (design.workingFolderPath() + u"/build/Main"_s).toUtf8();
    QByteArray words[] {"ninja", "-C", folder};
    char *argv[] {words[0].data(), words[1].data(), words[2].data(), nullptr};
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
    for (auto _ : state) {
        pid_t id = 0;
        int status = 1;
        if (posix_spawnp(&id, "ninja", &actions, nullptr, argv, environ) != 0
            || waitpid(id, &status, 0) != id || status != 0)
            state.SkipWithError("ninja failed");
    }
    posix_spawn_file_actions_destroy(&actions);
    countSteps(state);
}

void run(benchmark::State &state)
{
    BuildConfiguration *const configuration =
        designOf(int(state.range(0))).activeBuildConfiguration();
    for (auto _ : state) {
        if (!configuration->run(true, false))
            state.SkipWithError("the build failed");
    }
    countSteps(state);
}

// The same two on a machine that is busy.
void ninjaBesideHogs(benchmark::State &state)
{
    designOf(int(state.range(0)));
    const Hogs hogs;
    ninja(state);
}

void runBesideHogs(benchmark::State &state)
{
    designOf(int(state.range(0)));
    const Hogs hogs;
    run(state);
}

void refresh(benchmark::State &state)
{
    BuildConfiguration *const configuration =
        designOf(int(state.range(0))).activeBuildConfiguration();
    for (auto _ : state)
        configuration->refresh();
    countSteps(state);
}

void list(benchmark::State &state)
{
    const BuildConfiguration *const configuration =
        designOf(int(state.range(0))).activeBuildConfiguration();
    for (auto _ : state)
        benchmark::DoNotOptimize(configuration->stepNamesInOrder(-1));
    countSteps(state);
}

// The first list after something changed: everything is planned anew.
void listAnew(benchmark::State &state)
{
    BuildConfiguration *const configuration =
        designOf(int(state.range(0))).activeBuildConfiguration();
    int turn = 0;
    for (auto _ : state) {
        configuration->setTargetPath(u"build/other%1"_s.arg(++turn % 2));
        benchmark::DoNotOptimize(configuration->stepNamesInOrder(-1));
    }
    configuration->setTargetPath(u"build/Main"_s);
    countSteps(state);
}

BENCHMARK(ninja)->Arg(10)->Arg(100)->Arg(5000)->UseRealTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(run)->Arg(10)->Arg(100)->Arg(5000)->UseRealTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(ninjaBesideHogs)
    ->Arg(10)
    ->Arg(100)
    ->Arg(5000)
    ->UseRealTime()
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(runBesideHogs)
    ->Arg(10)
    ->Arg(100)
    ->Arg(5000)
    ->UseRealTime()
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(refresh)->Arg(100)->Arg(5000)->UseRealTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(list)->Arg(100)->Arg(5000)->UseRealTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(listAnew)->Arg(100)->Arg(5000)->UseRealTime()->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    Qtilities::CoreGui::QtilitiesApplication application(argc, argv);
    Qtilities::CoreGui::QtilitiesApplication::setApplicationSessionPath(session().path()
                                                                        + u"/session"_s);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
