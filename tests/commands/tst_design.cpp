#include "tests/commands/CommandTest.h"
#include "tests/TestClass.h"

#include <MorvalenCore/Cleaner.h>
#include <MorvalenCore/DesignCleanParameters.h>

#include <QTimer>

using namespace Qt::Literals::StringLiterals;

namespace {

const QByteArray usage =
    "Performs actions on design \"uart %1\".\n"
    "Usage: design args\n"
    "clean all_versions          - Cleans all generated items in a design for the current, or "
    "all versions.\n"
    "close                       - Closes the active design, saving any unsaved changes.\n"
    "get author                  - Get the author of the active design\n"
    "get description             - Get the description of the active design\n"
    "get id                      - Get the ID (thus VLNV identifier) of the active design\n"
    "get library                 - Get the library of the active design\n"
    "get read_only               - Get if the active design is read only\n"
    "get vendor                  - Get the vendor of the active design\n"
    "get version                 - Get the version of the active design\n"
    "get wfp                     - Get the working folder path of the active design\n"
    "proc_cycle end              - Ends a processing cycle on the active design\n"
    "proc_cycle start            - Starts a processing cycle on the active design\n"
    "save 'file_name             - Saves the active design to the file specified. If no name is "
    "specified, saved to its current component file\n"
    "set author new_value        - Set the author of the active design\n"
    "set description new_value   - Set the description of the active design\n"
    "set library new_value       - Sets the library of the active design\n"
    "set name new_value          - Rename the active design\n"
    "set read_only new_value     - Change if the active design is read only\n"
    "set vendor new_value        - Sets the vendor of the active design\n";

} // namespace

// The active design is "uart %1".
class tst_design : public CommandTest
{
    Q_OBJECT

    void prepare(FakeHost &host) override
    {
        FakeDesign *design = host.activeDesign(u"uart %1"_s);
        design->theDescription = u"A \"serial\" port\nof two lines %2"_s;
        design->theAuthor = u"N\u00e9e"_s;
        design->folderPath = u"/designs\\uart"_s;
        design->componentFile = u"/designs/uart/component.xml"_s;
    }

    static FakeDesign *design(FakeHost &host) { return host.designs.open.first(); }

private Q_SLOTS:
    void prologue_data()
    {
        const auto none = [](FakeHost &host) { host.designs.active.clear(); };
        const auto gone = [](FakeHost &host) { host.designs.active = {nullptr}; };
        addRows({
            {"design-prologue-1 no active design", "design get name", TCL_ERROR, "No active design",
             "", none},
            {"design-prologue-2 it comes before the usage", "design", TCL_ERROR, "No active design",
             "", none},
            {"design-prologue-3 clean opens no bracket then", "design clean maybe", TCL_ERROR,
             "No active design", "", none},
            {"design-prologue-4 an active design that is gone", "design", TCL_ERROR,
             "Failed to find active design", "", gone},
            {"design-usage-1 alone is a good question", "design", TCL_OK, usage, ""},
            {"design-usage-2 an unknown word", "design frobnicate", TCL_ERROR, usage, ""},
            {"design-usage-3 words are case-sensitive", "design Get name", TCL_ERROR, usage, ""},
            {"design-usage-4 an empty word", "design {}", TCL_ERROR, usage, ""},
            {"design-usage-5 too long a get is a good question", "design get vendor extra", TCL_OK,
             usage, ""},
            {"design-usage-6 even of an unknown attribute", "design get colour of it", TCL_OK,
             usage, ""},
            {"design-usage-7 an unknown attribute", "design get colour", TCL_ERROR, usage, ""},
            {"design-usage-8 no attribute", "design get", TCL_ERROR, usage, ""},
            {"design-usage-9 set of an unknown attribute", "design set colour red", TCL_ERROR,
             usage, ""},
            {"design-usage-10 set of an attribute that only get knows", "design set version 2",
             TCL_ERROR, usage, ""},
            {"design-usage-11 proc_cycle alone is a good question", "design proc_cycle", TCL_OK,
             usage, ""},
        });
    }
    void prologue() { runRow(); }

    void get_data()
    {
        addRows({
            {"design-get-1 name, though the usage does not tell", "design get name", TCL_OK,
             "uart %1", ""},
            {"design-get-2", "design get description", TCL_OK, "A \"serial\" port\nof two lines %2",
             ""},
            {"design-get-3", "design get id", TCL_OK, "acme.global.uart %1.1.0", ""},
            {"design-get-4", "design get vendor", TCL_OK, "acme", ""},
            {"design-get-5", "design get library", TCL_OK, "global", ""},
            {"design-get-6", "design get author", TCL_OK, "N\u00e9e", ""},
            {"design-get-7", "design get version", TCL_OK, "1.0", ""},
            {"design-get-8 as the design gives it", "design get wfp", TCL_OK, "/designs\\uart", ""},
            {"design-get-9", "design get busy", TCL_OK, "false", ""},
            {"design-get-10", "design get busy", TCL_OK, "true", "",
             [](FakeHost &host) { design(host)->busy = true; }},
            {"design-get-11", "design get read_only", TCL_OK, "false", ""},
            {"design-get-12", "design get read_only", TCL_OK, "true", "",
             [](FakeHost &host) { design(host)->readOnly = true; }},
        });
    }
    void get() { runRow(); }

    void set_data()
    {
        const auto done = [](const QByteArray &attribute) {
            return "Successfully changed \"" + attribute + "\" on active design";
        };
        const QByteArray badReadOnly = "New read only state's value is specified using \"true\" or "
                                       "\"false\" (Case Insensitive)";
        const QByteArray badBusy =
            "New busy state's value is specified using \"true\" or \"false\" "
            "(Case Insensitive)";
        addRows({
            {"design-set-1 name", "design set name {x %2}", TCL_OK, done("name"),
             "manager.checkDesignName(x %2, uart %1)\n"
             "initExec\ndesign.setName(x %2)\nfinalizeExec"},
            {"design-set-2 a name that the host refuses", "design set name x", TCL_ERROR,
             "The name cannot be used", "manager.checkDesignName(x, uart %1)",
             failing({u"manager.checkDesignName(x, uart %1)"_s})},
            {"design-set-3 further words are ignored", "design set vendor v w x", TCL_OK,
             done("vendor"), "initExec\ndesign.setVendor(v)\nfinalizeExec"},
            {"design-set-4", "design set library {}", TCL_OK, done("library"),
             "initExec\ndesign.setLibrary()\nfinalizeExec"},
            {"design-set-5", "design set description \"a\\n\u20ac\"", TCL_OK, done("description"),
             "initExec\ndesign.setDescription(a\n\u20ac)\nfinalizeExec"},
            {"design-set-6", "design set author me", TCL_OK, done("author"),
             "initExec\ndesign.setAuthor(me)\nfinalizeExec"},
            {"design-set-7", "design set read_only TRUE", TCL_OK, done("read_only"),
             "initExec\ndesign.setReadOnly(true)\nfinalizeExec"},
            {"design-set-8", "design set read_only fAlse", TCL_OK, done("read_only"),
             "initExec\ndesign.setReadOnly(false)\nfinalizeExec"},
            {"design-set-9 the bracket is closed for a bad word too", "design set read_only yes",
             TCL_ERROR, badReadOnly, "initExec\nfinalizeExec"},
            {"design-set-10 busy has no bracket", "design set busy true", TCL_OK, done("busy"),
             "design.setBusy(true, , true)"},
            {"design-set-11", "design set busy FALSE", TCL_OK, done("busy"),
             "design.setBusy(false, , true)"},
            {"design-set-12 a bad word", "design set busy 1", TCL_ERROR, badBusy, ""},
            {"design-set-13 no value", "design set vendor", TCL_ERROR,
             "You did not provide a new value for \"vendor\"", ""},
            {"design-set-14 no value of an unknown attribute", "design set %1", TCL_ERROR,
             "You did not provide a new value for \"%1\"", ""},
            {"design-set-15 no attribute", "design set", TCL_ERROR,
             "You did not provide a new value for \"\"", ""},
            {"design-set-16 a setter without a result answers as if it had worked",
             "design set vendor v", TCL_OK, done("vendor"),
             "initExec\ndesign.setVendor(v)\nfinalizeExec", failing({u"design.setVendor(v)"_s})},
        });
    }
    void set() { runRow(); }

    void closeAndCycles_data()
    {
        const QByteArray badWord =
            "Start/stop processing cycles using \"start\" or \"end\" (Case Insensitive)";
        const QByteArray started = "Started processing cycle on design on active design";
        const QByteArray ended = "Ended processing cycle on design on active design";
        addRows({
            {"design-close-1", "design close x", TCL_OK,
             "Successfully closed design \"acme.global.uart %1.1.0\"",
             "initExec\nmanager.closeDesign(acme.global.uart %1.1.0, false)\nfinalizeExec"},
            {"design-close-2 the host's refusal is not looked at",
             "design close",
             TCL_OK,
             "Successfully closed design \"acme.global.uart %1.1.0\"",
             {},
             failing({u"manager.closeDesign(acme.global.uart %1.1.0, false)"_s})},
            {"design-cycle-1", "design proc_cycle start", TCL_OK, started,
             "initExec\ndesign.startProcessingCycle()\nfinalizeExec"},
            {"design-cycle-2 in any case", "design proc_cycle START x", TCL_OK, started,
             "initExec\ndesign.startProcessingCycle()\nfinalizeExec"},
            {"design-cycle-3", "design proc_cycle End", TCL_OK, ended,
             "initExec\ndesign.endProcessingCycle(true)\nfinalizeExec"},
            {"design-cycle-4 a bad word", "design proc_cycle stop", TCL_ERROR, badWord, ""},
            {"design-cycle-5 an empty word", "design proc_cycle {}", TCL_ERROR, badWord, ""},
        });
    }
    void closeAndCycles() { runRow(); }

    void save_data()
    {
        const QByteArray own = "initExec\ndesign.saveToComponentFile()\nfinalizeExec";
        const QByteArray other =
            "initExec\nmanager.parseDesignToFile(uart %1, {x %1}.xml, , 0, true)\nfinalizeExec";
        addRows({
            {"design-save-1", "design save", TCL_OK,
             "Successfully saved design to file \"/designs/uart/component.xml\"", own},
            {"design-save-2 failure", "design save", TCL_ERROR,
             "Failed to save design to file \"/designs/uart/component.xml\". Error: The design "
             "refuses it",
             own, failing({u"design.saveToComponentFile()"_s})},
            {"design-save-3 an empty file name is none", "design save {}", TCL_OK,
             "Successfully saved design to file \"/designs/uart/component.xml\"", own},
            {"design-save-4 two file names are none", "design save a b", TCL_OK,
             "Successfully saved design to file \"/designs/uart/component.xml\"", own},
            {"design-save-5 to a file", "design save \"{x %1}.xml\"", TCL_OK,
             "Successfully parsed design to file \"{x %1}.xml\"", other},
            {"design-save-6 to a file, failure", "design save \"{x %1}.xml\"", TCL_ERROR,
             "Failed to parse design to file \"{x %1}.xml\"", other,
             failing({u"manager.parseDesignToFile(uart %1, {x %1}.xml, , 0, true)"_s})},
            {"design-save-7 placeholders in an error text", "design save", TCL_ERROR,
             "Failed to save design to file \"%2\". Error: %1", own,
             [](FakeHost &host) {
                 design(host)->componentFile = u"%2"_s;
                 design(host)->refusal = u"%1"_s;
                 host.journal.fail(u"design.saveToComponentFile()"_s);
             }},
        });
    }
    void save() { runRow(); }

    void clean_data()
    {
        QTest::addColumn<QByteArray>("script");
        QTest::addColumn<bool>("allVersions");
        QTest::addColumn<bool>("works");
        QTest::newRow("design-clean-1 the current version only")
            << QByteArray("design clean") << false << true;
        QTest::newRow("design-clean-2 said so")
            << QByteArray("design clean False") << false << true;
        QTest::newRow("design-clean-3 all versions")
            << QByteArray("design clean TRUE") << true << true;
        QTest::newRow("design-clean-4 with more words they are not looked at")
            << QByteArray("design clean true true") << false << true;
        QTest::newRow("design-clean-5 failure shows in the report only")
            << QByteArray("design clean true") << true << false;
    }

    // The same as the cleaner does by itself, inside one bracket.
    void clean()
    {
        QFETCH(const QByteArray, script);
        QFETCH(const bool, allVersions);
        QFETCH(const bool, works);
        const auto addGenerated = [works, this] {
            renewHost();
            design(host())->file(u"/wf/mine.v"_s);
            design(host())->file(u"/wf/now.o"_s)->version = u"1.0"_s;
            design(host())->file(u"/wf/before.o"_s)->version = u"0.9"_s;
            if (!works)
                host().journal.fail(u"file.removeFromComputer(/wf/before.o, true)"_s);
        };
        addGenerated();
        MorvalenCore::DesignCleanParameters parameters;
        parameters.grouping.setGeneratedItemsOnly(true);
        parameters.grouping.setVersionCurrent(true);
        parameters.grouping.setVersionsPrevious(allVersions);
        QString report;
        QCOMPARE(MorvalenCore::Cleaner().cleanDesign(design(host()), parameters, &report), works);
        const QStringList calls = host().journal.take();
        QCOMPARE(calls.contains(u"file.removeFromComputer(/wf/before.o, true)"_s), allVersions);
        QVERIFY(calls.contains(u"file.removeFromComputer(/wf/now.o, true)"_s));

        addGenerated();
        const Answer answer = eval(script);
        QVERIFY(!report.isEmpty());
        QCOMPARE(answer.text, report);
        QCOMPARE(answer.code, TCL_OK);
        QCOMPARE(host().journal.take(),
                 QStringList {u"initExec"_s} + calls + QStringList {u"finalizeExec"_s});
    }

    void aBadWordLeavesTheBracketOfCleanOpen_data()
    {
        const QByteArray badWord =
            "Specifying if generated files from all versions must be cleaned "
            "is specified using \"true\" or \"false\" (Case Insensitive)";
        addRows({
            {"design-clean-6", "design clean maybe", TCL_ERROR, badWord, "initExec"},
            {"design-clean-7", "design clean {}", TCL_ERROR, badWord, "initExec"},
        });
    }
    void aBadWordLeavesTheBracketOfCleanOpen() { runRow(); }

    void assignWorkingFolder_data()
    {
        const QByteArray calls =
            "initExec\ndesign.assignPhysicalWorkingFolderPath(/designs/uart %1)\nfinalizeExec";
        const auto prepared = [](bool works) {
            return [works](FakeHost &host) {
                design(host)->folderPath.clear();
                host.designs.paths = {{1, u"/designs"_s}};
                if (!works)
                    host.journal.fail(
                        u"design.assignPhysicalWorkingFolderPath(/designs/uart %1)"_s);
            };
        };
        addRows({
            {"design-assign-1", "design assign_physical_wfp x", TCL_OK,
             "Successfully assigned physical working folder to active design.", calls,
             prepared(true)},
            {"design-assign-2 failure", "design assign_physical_wfp", TCL_ERROR,
             "Failed to assign physical working folder to active design.", calls, prepared(false)},
        });
    }
    void assignWorkingFolder() { runRow(); }

    // What a user or another script does while the application handles events.
    void renamingHandlesEvents()
    {
        renewHost();
        bool handled = false;
        QTimer::singleShot(0, qApp, [&] {
            handled = true;
            host().journal.perform(u"event"_s);
            Tcl_SetObjResult(interp(), Tcl_NewStringObj("left behind", -1));
        });
        const Answer answer = eval("design set name x");
        QVERIFY(handled);
        QCOMPARE(answer.text, u"Successfully changed \"name\" on active design"_s);
        QCOMPARE(host().journal.take().last(2), QStringList({u"event"_s, u"finalizeExec"_s}));
    }

    void aDesignThatIsClosedWhileItIsChanged_data()
    {
        const auto closedAt = [](const QString &call) {
            return [call](FakeHost &host) {
                host.journal.react(call, [&host] { host.designs.closeDesigns({}, false); });
            };
        };
        addRows({
            {"design-gone-1 set name",
             "design set name x",
             TCL_OK,
             "Successfully changed \"name\" on active design",
             {},
             [](FakeHost &host) {
                 QTimer::singleShot(0, qApp, [&host] { host.designs.closeDesigns({}, false); });
             }},
            {"design-gone-2 set vendor",
             "design set vendor x",
             TCL_OK,
             "Successfully changed \"vendor\" on active design",
             {},
             closedAt(u"finalizeExec"_s)},
            {"design-gone-3 save",
             "design save",
             TCL_OK,
             "Successfully saved design to file \"/designs/uart/component.xml\"",
             {},
             closedAt(u"design.saveToComponentFile()"_s)},
            {"design-gone-4 save to a file",
             "design save x",
             TCL_OK,
             "Successfully parsed design to file \"x\"",
             {},
             closedAt(u"finalizeExec"_s)},
            {"design-gone-5 end of a cycle",
             "design proc_cycle end",
             TCL_OK,
             "Ended processing cycle on design on active design",
             {},
             closedAt(u"design.endProcessingCycle(true)"_s)},
        });
    }
    void aDesignThatIsClosedWhileItIsChanged() { runRow(); }
};

TEST_CLASS(tst_design)
#include "tst_design.moc"
