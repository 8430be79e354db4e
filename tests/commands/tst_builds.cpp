#include "tests/commands/CommandTest.h"
#include "tests/TestClass.h"

using namespace Qt::Literals::StringLiterals;

namespace {

const QByteArray usage = "Performs actions on build configuartions in design \"uart %1\".\n"
                         "Usage: builds args\n"
                         "list              - List all build configurations\n"
                         "set_active name   - Set specified build configuration as active\n";

} // namespace

// The design "uart %1" has the build configurations "fast" and "no %2".
class tst_builds : public CommandTest
{
    Q_OBJECT

    void prepare(FakeHost &host) override
    {
        FakeDesign *design = host.activeDesign(u"uart %1"_s);
        design->configuration(u"fast"_s);
        design->configuration(u"no %2"_s);
    }

private Q_SLOTS:
    void builds_data()
    {
        addRows({
            {"builds-prologue-1 no active design comes before the usage", "builds", TCL_ERROR,
             "No active design", "", [](FakeHost &host) { host.designs.active.clear(); }},
            {"builds-prologue-2 an active design that is gone", "builds list", TCL_ERROR,
             "Failed to find active design", "",
             [](FakeHost &host) { host.designs.active = {nullptr}; }},
            {"builds-usage-1 alone", "builds", TCL_ERROR, usage, ""},
            {"builds-usage-2 an unknown word", "builds run", TCL_ERROR, usage, ""},
            {"builds-usage-3 set_active without a name", "builds set_active", TCL_ERROR, usage, ""},
            {"builds-list-1", "builds list", TCL_OK, "\"fast\" \"no %2\"", ""},
            {"builds-list-2 none", "builds list x", TCL_OK, "", "",
             [](FakeHost &host) {
                 FakeDesign *design = host.designs.open.first();
                 qDeleteAll(design->allConfigurations);
                 design->allConfigurations.clear();
             }},
            {"builds-set_active-1", "builds set_active {no %2} x", TCL_OK,
             "Successfully changed active build configuration in design \"uart %1\" to \"no %2\"",
             "initExec\ndesign.setActiveBuildConfiguration(no %2)\nfinalizeExec"},
            {"builds-set_active-2 an unknown name is handed to the design as none",
             "builds set_active %2", TCL_ERROR,
             "Build configuration \"%2\" does not match any build configurations in design \"uart "
             "%1\"",
             "initExec\ndesign.setActiveBuildConfiguration(null)\nfinalizeExec"},
        });
    }
    void builds() { runRow(); }
};

TEST_CLASS(tst_builds)
#include "tst_builds.moc"
