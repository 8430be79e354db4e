#include "tests/commands/CommandTest.h"
#include "tests/TestClass.h"

#include <Qtilities/SharedProperty.h>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::ObjectManager;
using Qtilities::Core::SharedProperty;

namespace {

const QByteArray usage =
    "Performs actions on file \"a %3.v\" in design \"uart %1\".\n"
    "Usage: sfile args\n"
    "exists                                    - Check if the file exists\n"
    "get actual_path                           - Get the actual path the active design file\n"
    "get category                              - Get the category of the active design file\n"
    "get revision                              - Returns the version control system revision "
    "for this file (-1 if it is not version controlled)\n"
    "get vcs                                   - Returns the version control system managing "
    "this file\n"
    "open                                      - Open the file using the system editor\n"
    "property exists name                      - Check if the specified property exists on the "
    "active file\n"
    "property get name                         - Get the value of the specified property on the "
    "active file\n"
    "property remove name                      - Remove the specified property on the active "
    "file\n"
    "property set name type value 'read_only   - Sets the value of the specified property on "
    "the active file. Creates it if it does not exist\n"
    "set actual_path new_value                 - Set the actual path refrence the active design "
    "file\n"
    "set category new_value                    - Set the category of the active design file\n";

} // namespace

// The active file of the design "uart %1" is "/wf/a %3.v". It has the shared properties "p" (an
// int), "fixed" (read-only and not removable) and "void" (without a value).
class tst_sfile : public CommandTest
{
    Q_OBJECT

    void prepare(FakeHost &host) override
    {
        FakeDesign *design = host.activeDesign(u"uart %1"_s);
        FakeDesignFile *file = design->file(u"/wf/a %3.v"_s);
        file->levels = Qtilities::Core::QtilitiesCategory(QStringList {u"HDL"_s, u"Verilog"_s});
        file->revision = u"abc1234"_s;
        file->system = u"Git"_s;
        design->filesActive = {file};
        SharedProperty fixed("fixed", u"value"_s);
        fixed.setReadOnly(true);
        fixed.setRemovable(false);
        ObjectManager::setSharedProperty(file, SharedProperty("p", 42));
        ObjectManager::setSharedProperty(file, fixed);
        ObjectManager::setSharedProperty(file, SharedProperty("void", QVariant()));
    }

    static FakeDesign *design(FakeHost &host) { return host.designs.open.first(); }
    static FakeDesignFile *file(FakeHost &host) { return design(host)->allFiles.first(); }

private Q_SLOTS:
    void prologue_data()
    {
        const auto two = [](FakeHost &host) {
            design(host)->filesActive.append(design(host)->file(u"/wf/b"_s));
        };
        const auto none = [](FakeHost &host) { design(host)->filesActive.clear(); };
        const auto gone = [](FakeHost &host) { delete design(host)->allFiles.takeFirst(); };
        addRows({
            {"sfile-prologue-1 no active design", "sfile exists", TCL_ERROR, "No active design", "",
             [](FakeHost &host) { host.designs.active.clear(); }},
            {"sfile-prologue-2 an active design that is gone", "sfile", TCL_ERROR,
             "Failed to find active design", "",
             [](FakeHost &host) { host.designs.active = {nullptr}; }},
            {"sfile-prologue-3 no active file", "sfile get actual_path", TCL_ERROR,
             "No active file in design \"uart %1\"", "", none},
            {"sfile-prologue-4 it comes before the usage", "sfile frobnicate", TCL_ERROR,
             "No active file in design \"uart %1\"", "", none},
            {"sfile-prologue-5 two active files", "sfile get actual_path", TCL_ERROR,
             "Multiple files are active in design \"uart %1\"", "", two},
            {"sfile-prologue-6 even for a bad word", "sfile frobnicate", TCL_ERROR,
             "Multiple files are active in design \"uart %1\"", "", two},
            {"sfile-prologue-7 a file that is gone", "sfile exists", TCL_ERROR,
             "Failed to find active file in design \"uart %1\"", "", gone},
            {"sfile-usage-1 alone", "sfile", TCL_ERROR, usage, ""},
            {"sfile-usage-2 an unknown word", "sfile frobnicate x y z", TCL_ERROR, usage, ""},
            {"sfile-usage-3 words are case-sensitive", "sfile Exists", TCL_ERROR, usage, ""},
            {"sfile-usage-4 get without an item", "sfile get", TCL_ERROR, usage, ""},
            {"sfile-usage-5 get of an unknown item", "sfile get name", TCL_ERROR, usage, ""},
            {"sfile-usage-6 set without an item", "sfile set", TCL_ERROR, usage, ""},
            {"sfile-usage-7 set without a value", "sfile set category", TCL_ERROR, usage, ""},
            {"sfile-usage-8 set of an unknown item", "sfile set revision 1", TCL_ERROR, usage, ""},
            {"sfile-usage-9 exists with a word", "sfile exists extra", TCL_ERROR, usage, ""},
            {"sfile-usage-10 open with a word", "sfile open extra", TCL_ERROR, usage, ""},
            {"sfile-usage-11 property without an action", "sfile property", TCL_ERROR, usage, ""},
            {"sfile-usage-12 property without a name", "sfile property set", TCL_ERROR, usage, ""},
            {"sfile-usage-13 property with an unknown action", "sfile property list p", TCL_ERROR,
             usage, ""},
        });
    }
    void prologue() { runRow(); }

    void items_data()
    {
        addRows({
            {"sfile-get-1", "sfile get actual_path", TCL_OK, "/wf/a %3.v", ""},
            {"sfile-get-2 further words are ignored", "sfile get category x y", TCL_OK,
             "HDL::Verilog", ""},
            {"sfile-get-3", "sfile get revision", TCL_OK, "abc1234", ""},
            {"sfile-get-4", "sfile get vcs", TCL_OK, "Git", ""},
            {"sfile-get-5 not under version control", "sfile get revision", TCL_OK, "-1", "",
             [](FakeHost &host) { file(host)->revision = u"-1"_s; }},
            {"sfile-get-6 no system", "sfile get vcs", TCL_OK, "", "",
             [](FakeHost &host) { file(host)->system.clear(); }},
            {"sfile-set-1 the path, without a bracket", "sfile set actual_path {x %1} y", TCL_OK,
             "Requested actual file path change on file \"/wf/a %3.v\". Changed to \"x %1\"",
             "file.setActualPath(x %1)"},
            {"sfile-set-2 a refused path shows the one that is kept", "sfile set actual_path x",
             TCL_OK,
             "Requested actual file path change on file \"/wf/a %3.v\". Changed to \"/wf/a %3.v\"",
             "file.setActualPath(x)", failing({u"file.setActualPath(x)"_s})},
            {"sfile-set-3 the category", "sfile set category A::B::C x", TCL_OK,
             "Successfully changed category on file \"/wf/a %3.v\"",
             "initExec\nfile.setCategory(A/B/C)\nfinalizeExec"},
            {"sfile-set-4 an empty category", "sfile set category {}", TCL_OK,
             "Successfully changed category on file \"/wf/a %3.v\"",
             "initExec\nfile.setCategory()\nfinalizeExec"},
            {"sfile-set-5 one colon is no separator", "sfile set category A:B", TCL_OK,
             "Successfully changed category on file \"/wf/a %3.v\"",
             "initExec\nfile.setCategory(A:B)\nfinalizeExec"},
            {"sfile-set-6 a refused category", "sfile set category A", TCL_ERROR,
             "Failed to change category on file \"/wf/a %3.v\"",
             "initExec\nfile.setCategory(A)\nfinalizeExec", failing({u"file.setCategory(A)"_s})},
            {"sfile-exists-1", "sfile exists", TCL_OK, "true", ""},
            {"sfile-exists-2 missing is a good answer", "sfile exists", TCL_OK, "false", "",
             [](FakeHost &host) { file(host)->onDisk = false; }},
            {"sfile-open-1", "sfile open", TCL_OK, "true",
             "editors.createEditorForPath(/wf/a %3.v, null, , true, false)"},
            {"sfile-open-2 no editor", "sfile open", TCL_ERROR, "false",
             "editors.createEditorForPath(/wf/a %3.v, null, , true, false)",
             failing({u"editors.createEditorForPath(/wf/a %3.v, null, , true, false)"_s})},
        });
    }
    void items() { runRow(); }

    void properties_data()
    {
        addRows({
            {"sfile-property-exists-1", "sfile property exists p x", TCL_OK, "true", ""},
            {"sfile-property-exists-2 missing is an error", "sfile property exists P", TCL_ERROR,
             "false", ""},
            {"sfile-property-exists-3 one without a value exists", "sfile property exists void",
             TCL_OK, "true", ""},
            {"sfile-property-exists-4 an empty name", "sfile property exists {}", TCL_ERROR,
             "false", ""},
            {"sfile-property-exists-5 what the object itself has is none",
             "sfile property exists objectName", TCL_ERROR, "false", ""},
            {"sfile-property-get-1", "sfile property get p x", TCL_OK, "42", ""},
            {"sfile-property-get-2 missing", "sfile property get {no %2}", TCL_ERROR,
             "Failed to get property \"no %2\" on file \"/wf/a %3.v\". It does not exist", ""},
            {"sfile-property-get-3 without a value", "sfile property get void", TCL_ERROR,
             "Failed to get property \"void\" on file \"/wf/a %3.v\". It exists but is invalid",
             ""},
            {"sfile-property-remove-1 without a bracket", "sfile property remove p x", TCL_OK,
             "Successfully removed property \"p\" on file \"/wf/a %3.v\"", "file.setProperty(p)"},
            {"sfile-property-remove-2 missing", "sfile property remove q", TCL_ERROR,
             "Failed to remove property \"q\" on file \"/wf/a %3.v\". It does not exist", ""},
            {"sfile-property-remove-3 not removable", "sfile property remove fixed", TCL_ERROR,
             "Failed to remove property \"fixed\" on file \"/wf/a %3.v\". This is a non-removable "
             "property",
             ""},
        });
    }
    void properties() { runRow(); }

    void propertySet_data()
    {
        const QByteArray calls = "initExec\nfile.setProperty(q)\nfinalizeExec";
        const QByteArray done = "Successfully set property \"q\" on file \"/wf/a %3.v\"";
        const QByteArray badWord = "Making a property read only is specified using \"true\" or "
                                   "\"false\" (Case Insensitive)";
        const QByteArray readOnly = "Failed to set value of property \"fixed\" on file \"/wf/a "
                                    "%3.v\". This is a read only property";
        const QByteArray tooFew =
            "You did not provide enough parameters to set property \"q\" on file \"/wf/a %3.v\"";
        addRows({
            {"sfile-property-set-1 a new one", "sfile property set q int 5", TCL_OK, done, calls},
            {"sfile-property-set-2 one that exists", "sfile property set p string x", TCL_OK,
             "Successfully set property \"p\" on file \"/wf/a %3.v\"",
             "initExec\nfile.setProperty(p)\nfinalizeExec"},
            {"sfile-property-set-3 read-only in any case", "sfile property set q int 5 TRUE",
             TCL_OK, done, calls},
            {"sfile-property-set-4 not read-only", "sfile property set q int 5 fAlse", TCL_OK, done,
             calls},
            {"sfile-property-set-5 a word that is neither", "sfile property set q int 5 maybe",
             TCL_ERROR, badWord, ""},
            {"sfile-property-set-6 it is looked at before the value",
             "sfile property set q int five maybe", TCL_ERROR, badWord, ""},
            {"sfile-property-set-7 with more words it is not looked at",
             "sfile property set q int 5 maybe x", TCL_OK, done, calls},
            {"sfile-property-set-8 no value", "sfile property set q int", TCL_ERROR, tooFew, ""},
            {"sfile-property-set-9 no type", "sfile property set q", TCL_ERROR, tooFew, ""},
            {"sfile-property-set-10 a read-only one", "sfile property set fixed int 5", TCL_ERROR,
             readOnly, ""},
            {"sfile-property-set-11 that comes before the number of words",
             "sfile property set fixed", TCL_ERROR, readOnly, ""},
            {"sfile-property-set-12 a value that is not of its type",
             "sfile property set q int five", TCL_ERROR,
             "Failed to set property \"q\" on file \"/wf/a %3.v\". Property type and value "
             "combination is invalid",
             ""},
            {"sfile-property-set-13 an unknown type", "sfile property set q {} {}", TCL_ERROR,
             "Failed to set property \"q\" on file \"/wf/a %3.v\". Property type and value "
             "combination is invalid",
             ""},
            {"sfile-property-set-14 no name is refused", "sfile property set {} int 5", TCL_ERROR,
             "Failed to set property \"\" on file \"/wf/a %3.v\"", "initExec\nfinalizeExec"},
            {"sfile-property-set-15 a name of the object's own is refused",
             "sfile property set objectName string x", TCL_ERROR,
             "Failed to set property \"objectName\" on file \"/wf/a %3.v\"",
             "initExec\nfinalizeExec"},
        });
    }
    void propertySet() { runRow(); }

    void theStoredPropertyStaysWritable()
    {
        renewHost();
        QCOMPARE(eval("sfile property set q int 5 TRUE").code, TCL_OK);
        const SharedProperty stored = ObjectManager::getSharedProperty(file(host()), "q");
        QCOMPARE(stored.value(), QVariant(5));
        QVERIFY(!stored.isReadOnly());
        QCOMPARE(eval("sfile property set q int 6").code, TCL_OK);
        QCOMPARE(eval("sfile property get q").text, u"6"_s);
    }

    void aRemovedPropertyIsGone()
    {
        renewHost();
        QCOMPARE(eval("sfile property remove p").code, TCL_OK);
        QCOMPARE(eval("sfile property exists p").text, u"false"_s);
        QVERIFY(!file(host())->dynamicPropertyNames().contains("p"));
    }

    void anOddName_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("accepted");
        QTest::newRow("sfile-name-1 quotes, braces, dollar") << u"\"{$x[y]\\"_s << true;
        QTest::newRow("sfile-name-2 a line feed") << u"a\nb"_s << true;
        QTest::newRow("sfile-name-3 placeholders") << u"%1%2%3"_s << true;
        QTest::newRow("sfile-name-4 beyond ASCII") << u"\u20ac"_s << true;
        QTest::newRow("sfile-name-5 beyond the basic plane") << u"\U0001F600"_s << true;
        QTest::newRow("sfile-name-6 a zero character") << u"p\0q"_s << false;
        QTest::newRow("sfile-name-7 a lone surrogate") << u"p"_s + QChar(0xD800) << false;
    }
    void anOddName()
    {
        QFETCH(const QString, name);
        QFETCH(const bool, accepted);
        renewHost();
        const QString property = u"property \""_s + name + u"\" on file \"/wf/a %3.v\""_s;
        const Answer answer =
            call({u"sfile"_s, u"property"_s, u"set"_s, name, u"string"_s, u"v\u20ac"_s});
        QCOMPARE(answer.text, (accepted ? u"Successfully set "_s : u"Failed to set "_s) + property);
        QCOMPARE(call({u"sfile"_s, u"property"_s, u"exists"_s, name}).text,
                 accepted ? u"true"_s : u"false"_s);
        QCOMPARE(call({u"sfile"_s, u"property"_s, u"get"_s, name}).text,
                 accepted ? u"v\u20ac"_s
                          : u"Failed to get "_s + property + u". It does not exist"_s);
        QCOMPARE(call({u"sfile"_s, u"property"_s, u"remove"_s, name}).text,
                 accepted ? u"Successfully removed "_s + property
                          : u"Failed to remove "_s + property + u". It does not exist"_s);
    }

    // What a user or another script does while the application handles events.
    void aFileThatGoesOnTheWay_data()
    {
        const auto goesAt = [](const char *call) {
            return [call](FakeHost &host) {
                host.journal.react(QString::fromUtf8(call),
                                   [&host] { host.designs.closeDesigns({}, false); });
            };
        };
        addRows({
            {"sfile-gone-1 set actual_path",
             "sfile set actual_path x",
             TCL_OK,
             "Requested actual file path change on file \"/wf/a %3.v\". Changed to \"\"",
             {},
             goesAt("file.setActualPath(x)")},
            {"sfile-gone-2 set category",
             "sfile set category A",
             TCL_OK,
             "Successfully changed category on file \"/wf/a %3.v\"",
             {},
             goesAt("finalizeExec")},
            {"sfile-gone-3 property set",
             "sfile property set q int 5",
             TCL_OK,
             "Successfully set property \"q\" on file \"/wf/a %3.v\"",
             {},
             goesAt("finalizeExec")},
        });
    }
    void aFileThatGoesOnTheWay() { runRow(); }
};

TEST_CLASS(tst_sfile)
#include "tst_sfile.moc"
