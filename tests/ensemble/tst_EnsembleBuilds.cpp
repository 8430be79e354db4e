#include "tests/ensemble/EnsembleTest.h"
#include "tests/TestClass.h"

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::BuildConfiguration;

// Builds of one design and of several.
class tst_EnsembleBuilds : public EnsembleTest
{
    Q_OBJECT

    void prepare(FakeHost &host) override
    {
        for (const QString &name : {u"one"_s, u"two"_s}) {
            FakeDesign *design = host.activeDesign(name);
            FakeBuildConfiguration *sim = design->configuration(u"sim"_s);
            sim->state = BuildConfiguration::Completed;
            design->configurationActive = sim;
            design->configuration(u"lint"_s)->state = BuildConfiguration::Idle;
        }
        host.designs.openDesign(u"none"_s);
    }

    static void failsIn(FakeHost &host)
    {
        host.journal.fail(u"configuration.run(true, false)"_s);
        static_cast<FakeBuildConfiguration *>(host.designs.open.first()->configurationActive.data())
            ->state = BuildConfiguration::Failed;
    }

private Q_SLOTS:
    void rows_data()
    {
        addRows({
            good("build-1 the active design", "morvalen build", "acme.global.two.1.0 Completed"),
            good("build-2 one that is named", "morvalen build acme.global.one.1.0",
                 "acme.global.one.1.0 Completed", "configuration.run(true, false)"),
            good("build-3 a configuration",
                 "morvalen build -configuration lint acme.global.one.1.0",
                 "acme.global.one.1.0 Idle"),
            good("build-4 what it would do", "morvalen build -dry", "acme.global.two.1.0 Completed",
                 "configuration.run(true, true)"),
            good("build-5 several, each once",
                 "morvalen build acme.global.one.1.0 acme.global.two.1.0 acme.global.one.1.0",
                 "acme.global.one.1.0 Completed acme.global.two.1.0 Completed"),
            bad("build-6 an unknown design", "morvalen build acme.global.one.1.0 x",
                "No design with the id \"x\" is open", "not_found", ""),
            bad("build-7 an unknown configuration", "morvalen build -configuration x",
                "The design \"acme.global.two.1.0\" has no build configuration \"x\"", "not_found"),
            bad("build-8 a design without any", "morvalen build acme.global.none.1.0",
                "The design \"acme.global.none.1.0\" has no build configuration", "not_found"),
            bad("build-9 one that fails: the dictionary is the error",
                "morvalen build acme.global.one.1.0", "acme.global.one.1.0 Failed", "failed", {},
                failsIn),
            bad("build-10 none is active", "morvalen build", "No design is active", "not_found", "",
                [](FakeHost &host) { host.designs.active.clear(); }),
            bad("build-11 no jobs", "morvalen build -jobs 0",
                "the value of -jobs must be a whole number, at least 1, not \"0\"",
                "invalid_argument", ""),
            bad("build-12 fewer", "morvalen build -jobs -1",
                "the value of -jobs must be a whole number, at least 1, not \"-1\"",
                "invalid_argument", ""),
            bad("build-13 a word", "morvalen build -jobs many",
                "the value of -jobs must be a whole number, at least 1, not \"many\"",
                "invalid_argument", ""),
            bad("build-14 none at the same time", "morvalen build -all -spread 0",
                "the value of -spread must be a whole number, at least 1, not \"0\"",
                "invalid_argument", ""),
            bad("build-15 half a number", "morvalen build -all -spread 1.5",
                "the value of -spread must be a whole number, at least 1, not \"1.5\"",
                "invalid_argument", ""),
            bad("build-16 behind a failure nothing is begun",
                "morvalen build acme.global.one.1.0 acme.global.two.1.0",
                "acme.global.one.1.0 Failed acme.global.two.1.0 Completed", "failed",
                "configuration.run(true, false)", failsIn),
            good("build-17 all that have something to build", "morvalen build -all",
                 "acme.global.one.1.0 Completed acme.global.two.1.0 Completed"),
            good("build-18 all that have it", "morvalen build -all -configuration lint",
                 "acme.global.one.1.0 Idle acme.global.two.1.0 Idle"),
            bad("build-19 one without any, named beside all",
                "morvalen build -all acme.global.none.1.0",
                "The design \"acme.global.none.1.0\" has no build configuration", "not_found"),
            bad("build-20 one that none has", "morvalen build -all -configuration x",
                "No open design has a build configuration \"x\"", "not_found"),
            bad("build-21 none has any", "morvalen build -all",
                "No open design has a build configuration", "not_found", {},
                [](FakeHost &host) {
                    for (FakeDesign *design : std::as_const(host.designs.open))
                        design->configurationActive = nullptr;
                }),
        });
    }
    void rows() { runRow(); }

    void noneAreOpen()
    {
        renewHost();
        qDeleteAll(host().designs.open);
        host().designs.open.clear();
        host().designs.active.clear();
        QCOMPARE(eval("morvalen build -all").text, u""_s);
        QCOMPARE(eval("morvalen designs").text, u""_s);
    }
};

TEST_CLASS(tst_EnsembleBuilds)
#include "tst_EnsembleBuilds.moc"
