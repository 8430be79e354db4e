#include "tests/ensemble/EnsembleTest.h"
#include "tests/TestClass.h"

#include <Qtilities/QtilitiesApplication.h>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::QtilitiesCategory;

// What the ensemble says of designs and their items, and what it sets.
class tst_EnsembleItems : public EnsembleTest
{
    Q_OBJECT

    void prepare(FakeHost &host) override
    {
        FakeDesign *other = host.designs.openDesign(u"other design"_s);
        other->nodes = QStringList {u"docs"_s};
        other->file(u"/o/read me.txt"_s, u"docs"_s);
        other->theVersion = u"2/0"_s;
        FakeDesign *design = host.activeDesign();
        design->nodes = QStringList {u"rtl"_s, u"my docs"_s};
        design->file(u"/w/a.v"_s, u"rtl"_s)->levels = QtilitiesCategory({u"HDL"_s, u"Verilog"_s});
        design->file(u"/w/b c.vhd"_s, u"rtl"_s)->levels = QtilitiesCategory({u"HDL"_s, u"VHDL"_s});
        design->file(u"/w/\"d\".txt"_s, u"my docs"_s);
        design->folder(u"/w/my rtl"_s);
        design->property(u"WIDTH"_s, 8);
        design->property(u"on"_s, true);
        design->property(u"real"_s, 0.1);
        design->property(u"top module"_s, u"a b"_s);
        design->property(u"fixed"_s, u"x"_s)->data.setReadOnly(true);
    }

    static void noDesigns(FakeHost &host) { host.designs.active.clear(); }
    static void bare(FakeHost &host)
    {
        auto *design = host.designs.openDesign(u"bare"_s);
        host.designs.active = {design};
    }
    static void readOnly(FakeHost &host) { host.designs.open.last()->readOnly = true; }

private Q_SLOTS:
    void lists_data()
    {
        addRows({
            good("designs-1 in the order of opening", "morvalen designs",
                 "{acme.global.other design.2.0} acme.global.uart.1.0"),
            good("files-1 all", "morvalen files", "/w/a.v {/w/b c.vhd} /w/\\\"d\\\".txt"),
            good("files-2 of a node", "morvalen files -node rtl", "/w/a.v {/w/b c.vhd}"),
            good("files-3 of a category", "morvalen files -category HDL::VHDL", "{/w/b c.vhd}"),
            good("files-4 of what is below a category", "morvalen files -category HDL",
                 "/w/a.v {/w/b c.vhd}"),
            good("files-5 of none", "morvalen files -category {}", "/w/\\\"d\\\".txt"),
            good("files-6 of one that no file has", "morvalen files -category HD", ""),
            good("files-7 of a node and a category", "morvalen files -node {my docs} -category HDL",
                 ""),
            good("files-8 of another design",
                 "morvalen files -design {acme.global.other design.2.0}", "{/o/read me.txt}"),
            good("files-9 none", "morvalen files", "", {}, bare),
            bad("files-10 an unknown node", "morvalen files -node x",
                "The design \"uart\" has no node \"x\"", "not_found"),
            bad("files-11 an empty node", "morvalen files -node {}",
                "The design \"uart\" has no node \"\"", "not_found"),
            good("folders-1 all", "morvalen folders", "{/w/my rtl}"),
            good("folders-2 none", "morvalen folders", "", {}, bare),
            good("nodes-1 all", "morvalen nodes", "rtl {my docs}"),
            good("nodes-2 none", "morvalen nodes", "", {}, bare),
            good("properties-1 a dictionary", "morvalen properties",
                 "WIDTH 8 on true real 0.1 {top module} {a b} fixed x"),
            good("properties-2 none", "morvalen properties", "", {}, bare),
            bad("design-1 none is active", "morvalen files", "No design is active", "not_found", {},
                noDesigns),
            bad("design-2 an unknown one", "morvalen properties -design x",
                "No design with the id \"x\" is open", "not_found"),
            good("folder-1 of the call", "morvalen folder", "/the folder/of the call"),
        });
    }
    void lists() { runRow(); }

    void filesOfANodeAreThoseBelowItToo()
    {
        renewHost();
        host().journal.take();
        eval("morvalen files -node rtl");
        const QStringList calls = host().journal.take();
        QVERIFY2(calls.contains(u"design.filesUnderNode(rtl, true)"_s),
                 qPrintable(calls.join(u' ')));
    }

    void session()
    {
        QCOMPARE(eval("morvalen session").text,
                 Qtilities::CoreGui::QtilitiesApplication::applicationSessionPath());
    }

    void values_data()
    {
        addRows({
            good("get-1", "morvalen property {top module}", "a b"),
            good("get-2 of another design",
                 "catch {morvalen property WIDTH -design {acme.global.other design.2.0}} text; "
                 "set text",
                 "The design \"other design\" has no property \"WIDTH\""),
            bad("get-3 none of that name", "morvalen property x",
                "The design \"uart\" has no property \"x\"", "not_found"),
            good("set-1 keeps the type", "morvalen property WIDTH 16", "",
                 "initExec\ndesign.propertyByName(WIDTH)\nproperty.setValue(int, 16)\n"
                 "finalizeExec"),
            bad("set-2 not of its type", "morvalen property WIDTH wide",
                "\"wide\" is no value of type int", "invalid_argument"),
            good("set-3 another type",
                 "morvalen property WIDTH wide -type string; "
                 "morvalen property WIDTH",
                 "wide"),
            good("set-4 a new one is a text", "morvalen property new {1 2}", "",
                 "initExec\ndesign.propertyByName(new)\n"
                 "design.addProperty(new, , QString, 1 2, false)\nfinalizeExec"),
            good("set-5 a new one of a type", "morvalen property new 7 -type uint", "",
                 "initExec\ndesign.propertyByName(new)\n"
                 "design.addProperty(new, , uint, 7, false)\nfinalizeExec"),
            bad("set-6 an unknown type", "morvalen property new 7 -type float",
                "unknown type \"float\": must be bool, int, uint, double or string",
                "invalid_argument"),
            bad("set-7 a read-only one", "morvalen property fixed y",
                "The property \"fixed\" is read-only", "read_only"),
            bad("set-8 a read-only design", "morvalen property WIDTH 16",
                "The design \"uart\" is read-only", "read_only", "", readOnly),
            bad("set-9 refused", "morvalen property new x", "The design refuses it", "failed", {},
                failing({u"design.addProperty(new, , QString, x, false)"_s})),
            bad("set-10 a value that is not taken", "morvalen property WIDTH 16",
                "The property \"WIDTH\" does not take the value \"16\"", "refused", {},
                failing({u"property.setValue(int, 16)"_s})),
            good("version-1", "morvalen version", "1.0"),
            good("version-2 of another design",
                 "morvalen version -design {acme.global.other design.2.0}", "2.0"),
            good("version-3 is set", "morvalen version 1.1; morvalen version", "1.1",
                 "initExec\ndesign.setVersion(1.1)\nfinalizeExec"),
            good("version-4 of another design is set",
                 "morvalen version 3 -design {acme.global.other design.2.0}; morvalen designs",
                 "{acme.global.other design.3} acme.global.uart.1.0"),
            bad("version-5 refused", "morvalen version {}", "The design refuses it",
                "invalid_argument", {}, failing({u"design.setVersion()"_s})),
            bad("version-6 a read-only design", "morvalen version 2",
                "The design \"uart\" is read-only", "read_only", "", readOnly),
        });
    }
    void values() { runRow(); }

    void reloading_data()
    {
        const auto modified = [](FakeHost &host) { host.designs.open.last()->modified = true; };
        const auto refused = [](FakeHost &host) {
            host.journal.fail(u"design.reloadComponentFile()"_s);
        };
        addRows({
            good("reload-1 the active design", "morvalen reload", "acme.global.uart.1.0",
                 "initExec\ndesign.reloadComponentFile()\nfinalizeExec"),
            good("reload-2 another design", "morvalen reload {acme.global.other design.2.0}",
                 "acme.global.other design.2.0"),
            bad("reload-3 one with changes", "morvalen reload",
                "The design \"uart\" has changes that are not saved", "conflict", "", modified),
            good("reload-4 one with changes that are thrown away", "morvalen reload -discard",
                 "acme.global.uart.1.0", {}, modified),
            bad("reload-5 refused", "morvalen reload", "The design refuses it", "malformed", {},
                refused),
            bad("reload-6 an unknown one", "morvalen reload x",
                "No design with the id \"x\" is open", "not_found", ""),
            bad("reload-7 none is active", "morvalen reload", "No design is active", "not_found",
                "", noDesigns),
        });
    }
    void reloading() { runRow(); }
};

TEST_CLASS(tst_EnsembleItems)
#include "tst_EnsembleItems.moc"
