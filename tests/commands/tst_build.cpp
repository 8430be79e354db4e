#include "tests/commands/CommandTest.h"
#include "tests/TestClass.h"

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::BuildConfiguration;

namespace {

const QByteArray usage =
    "Performs actions on build configuration \"fast %2\" in design \"uart %1\".\n"
    "Usage: build args\n"
    "get run_state          - Gets the state of the build configuration\n"
    "get target_path        - Gets the target path of the configuration\n"
    "macros get name        - Get the value of the specified macro\n"
    "macros list            - Lists all macros in the configuration\n"
    "refresh                - Refreshes the build configuration\n"
    "run 'all_steps         - Executes the build. By default only outdated steps are executed, "
    "but all_steps allows all steps to be executed\n"
    "set target_path path   - Sets the target path of the configuration\n"
    "steps list             - Lists all steps in the configuration\n";

} // namespace

// The active build configuration of the design "uart %1" is "fast %2". The macro of a step is
// listed but cannot be read; those of the configuration and the design can.
class tst_build : public CommandTest
{
    Q_OBJECT

    void prepare(FakeHost &host) override
    {
        FakeDesign *design = host.activeDesign(u"uart %1"_s);
        FakeBuildConfiguration *configuration = design->configuration(u"fast %2"_s);
        configuration->targetPath = u"build\\fast/%1"_s;
        configuration->steps = QStringList {u"compile"_s, u"link \"all\""_s};
        configuration->macros[7] = {{u"STEP"_s, u"s"_s}};
        configuration->macros[6] = {{u"OPT %1"_s, u"-O2 %1"_s}, {u"EMPTY"_s, u""_s}};
        design->configurationActive = configuration;
    }

private Q_SLOTS:
    void prologue_data()
    {
        const auto none = [](FakeHost &host) {
            host.designs.open.first()->configurationActive = nullptr;
        };
        addRows({
            {"build-prologue-1 no active design comes before the usage", "build", TCL_ERROR,
             "No active design", "", [](FakeHost &host) { host.designs.active.clear(); }},
            {"build-prologue-2 an active design that is gone", "build run", TCL_ERROR,
             "Failed to find active design", "",
             [](FakeHost &host) { host.designs.active = {nullptr}; }},
            {"build-prologue-3 no active configuration", "build run", TCL_ERROR,
             "Failed to find active build configuration in design \"uart %1\"", "", none},
            {"build-prologue-4 it comes before the usage", "build", TCL_ERROR,
             "Failed to find active build configuration in design \"uart %1\"", "", none},
            {"build-usage-1 alone", "build", TCL_ERROR, usage, ""},
            {"build-usage-2 an unknown word", "build clean", TCL_ERROR, usage, ""},
            {"build-usage-3 macros", "build macros", TCL_ERROR, usage, ""},
            {"build-usage-4 macros with an unknown word", "build macros set X", TCL_ERROR, usage,
             ""},
            {"build-usage-5 macros get without a name", "build macros get", TCL_ERROR, usage, ""},
            {"build-usage-6 get", "build get", TCL_ERROR, usage, ""},
            {"build-usage-7 get with an unknown word", "build get name", TCL_ERROR, usage, ""},
            {"build-usage-8 set", "build set", TCL_ERROR, usage, ""},
            {"build-usage-9 set without a path", "build set target_path", TCL_ERROR, usage, ""},
            {"build-usage-10 set with an unknown word", "build set run_state Idle", TCL_ERROR,
             usage, ""},
            {"build-usage-11 steps", "build steps", TCL_ERROR, usage, ""},
            {"build-usage-12 steps with an unknown word", "build steps run", TCL_ERROR, usage, ""},
            {"build-usage-13 run with two words", "build run true true", TCL_ERROR, usage, ""},
        });
    }
    void prologue() { runRow(); }

    void queries_data()
    {
        addRows({
            {"build-macros-1 list has those of steps too", "build macros list", TCL_OK, "\"STEP\"",
             ""},
            {"build-macros-2 get", "build macros get {OPT %1} x", TCL_OK, "-O2 %1", ""},
            {"build-macros-3 an empty value", "build macros get EMPTY", TCL_OK, "", ""},
            {"build-macros-4 those of steps cannot be read", "build macros get STEP", TCL_ERROR,
             "Macro \"STEP\" does not exist in active build configuration.", ""},
            {"build-macros-5 unknown", "build macros get %1", TCL_ERROR,
             "Macro \"%1\" does not exist in active build configuration.", ""},
            {"build-get-1 the path as it is", "build get target_path x", TCL_OK, "build\\fast/%1",
             ""},
            {"build-get-2", "build get run_state", TCL_OK, "Idle", ""},
            {"build-steps-1 in their order, all of them", "build steps list x", TCL_OK,
             "\"compile\" \"link \"all\"\"", "configuration.stepNamesInOrder(-1)"},
        });
    }
    void queries() { runRow(); }

    void withoutMacros_data()
    {
        const auto none = [](FakeHost &host) {
            host.designs.open.first()->allConfigurations.first()->hasMacros = false;
        };
        addRows({
            {"build-no-macros-1 list", "build macros list", TCL_ERROR,
             "Build configuration \"fast %2\" has no macros to ask for", "", none},
            {"build-no-macros-2 get", "build macros get EMPTY", TCL_ERROR,
             "Macro \"EMPTY\" does not exist in active build configuration.", "", none},
        });
    }
    void withoutMacros() { runRow(); }

    void runState_data()
    {
        QTest::addColumn<int>("state");
        QTest::addColumn<QString>("text");
        QTest::newRow("build-state-1") << int(BuildConfiguration::Idle) << u"Idle"_s;
        QTest::newRow("build-state-2") << int(BuildConfiguration::Running) << u"Running"_s;
        QTest::newRow("build-state-3") << int(BuildConfiguration::Completed) << u"Completed"_s;
        QTest::newRow("build-state-4") << int(BuildConfiguration::Failed) << u"Failed"_s;
        QTest::newRow("build-state-5") << int(BuildConfiguration::Cancelled) << u"Cancelled"_s;
    }
    void runState()
    {
        QFETCH(const int, state);
        renewHost();
        host().designs.open.first()->allConfigurations.first()->state =
            BuildConfiguration::RunState(state);
        QTEST(eval("build get run_state").text, "text");
    }

    // None of them is bracketed.
    void changes_data()
    {
        const QByteArray completed = "Build configuration completed successfully";
        const QByteArray badWord = "Selecting if only outdated steps needs to be run is specified "
                                   "using \"true\" or \"false\" (Case Insensitive)";
        addRows({
            {"build-set-1", "build set target_path {a b} x", TCL_OK,
             "Successfully set target path of build configuration",
             "configuration.setTargetPath(a b)"},
            {"build-refresh-1", "build refresh x y z", TCL_OK,
             "Build configuration refreshed successfully.", "configuration.refresh()"},
            {"build-run-1 only outdated steps", "build run", TCL_OK, completed,
             "configuration.run(true, false)"},
            {"build-run-2 all steps", "build run true", TCL_OK, completed,
             "configuration.run(false, false)"},
            {"build-run-3 in any case", "build run TRUE", TCL_OK, completed,
             "configuration.run(false, false)"},
            {"build-run-4 only outdated steps said so", "build run False", TCL_OK, completed,
             "configuration.run(true, false)"},
            {"build-run-5 another word runs nothing", "build run all", TCL_ERROR, badWord, ""},
            {"build-run-6 nor does an empty one", "build run {}", TCL_ERROR, badWord, ""},
            {"build-run-7 failure", "build run", TCL_ERROR, "Build configuration run failed",
             "configuration.run(true, false)", failing({u"configuration.run(true, false)"_s})},
            {"build-run-8 a design that is closed while it is built",
             "build run",
             TCL_OK,
             completed,
             {},
             [](FakeHost &host) {
                 host.journal.react(u"configuration.run(true, false)"_s,
                                    [&host] { host.designs.closeDesigns({}, false); });
             }},
        });
    }
    void changes() { runRow(); }

    void allMacrosAreListed()
    {
        renewHost();
        host().designs.open.first()->allConfigurations.first()->macros[7] = {{u"A"_s, u"1"_s},
                                                                             {u"B c"_s, u"2"_s}};
        const QString text = eval("build macros list").text;
        QVERIFY2(text == u"\"A\" \"B c\""_s || text == u"\"B c\" \"A\""_s, qPrintable(text));
    }
};

TEST_CLASS(tst_build)
#include "tst_build.moc"
