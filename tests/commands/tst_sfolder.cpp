#include "tests/commands/CommandTest.h"
#include "tests/TestClass.h"

#include <Qtilities/SharedProperty.h>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::ObjectManager;
using Qtilities::Core::SharedProperty;

namespace {

const QByteArray usage =
    "Performs actions on folder \"/wf/a %3\" in design \"uart %1\".\n"
    "Usage: sfolder args\n"
    "exists                                    - Check if the folder exists\n"
    "get actual_path                           - Get the actual path the active design folder\n"
    "get category                              - Get the category of the active design folder\n"
    "get revision                              - Returns the version control system revision "
    "for this folder (-1 if it is not version controlled)\n"
    "get vcs                                   - Returns the version control system managing "
    "this folder\n"
    "property exists name                      - Check if the specified property exists on the "
    "active design folder\n"
    "property get name                         - Get the value of the specified property on the "
    "active design folder\n"
    "property remove name                      - Remove the specified property on the active "
    "design folder\n"
    "property set name type value 'read_only   - Sets the value of the specified property on "
    "the active design folder. Creates it if it does not exist\n"
    "set actual_path new_value                 - Set the actual path refrence the active design "
    "folder\n"
    "set category new_value                    - Set the category of the active design folder\n";

} // namespace

// The active folder of the design "uart %1" is "/wf/a %3". It has the shared properties "p" (an
// int), "fixed" (read-only and not removable) and "void" (without a value).
class tst_sfolder : public CommandTest
{
    Q_OBJECT

    void prepare(FakeHost &host) override
    {
        FakeDesign *design = host.activeDesign(u"uart %1"_s);
        FakeDesignFolder *folder = design->folder(u"/wf/a %3"_s);
        folder->levels = Qtilities::Core::QtilitiesCategory(QStringList {u"Sources"_s, u"RTL"_s});
        folder->revision = u"abc1234"_s;
        folder->system = u"Git"_s;
        design->foldersActive = {folder};
        SharedProperty fixed("fixed", u"value"_s);
        fixed.setReadOnly(true);
        fixed.setRemovable(false);
        ObjectManager::setSharedProperty(folder, SharedProperty("p", 42));
        ObjectManager::setSharedProperty(folder, fixed);
        ObjectManager::setSharedProperty(folder, SharedProperty("void", QVariant()));
    }

    static FakeDesign *design(FakeHost &host) { return host.designs.open.first(); }
    static FakeDesignFolder *folder(FakeHost &host) { return design(host)->allFolders.first(); }

private Q_SLOTS:
    void prologue_data()
    {
        const auto two = [](FakeHost &host) {
            design(host)->foldersActive.append(design(host)->folder(u"/wf/b"_s));
        };
        addRows({
            {"sfolder-prologue-1 no active design", "sfolder exists", TCL_ERROR, "No active design",
             "", [](FakeHost &host) { host.designs.active.clear(); }},
            {"sfolder-prologue-2 an active design that is gone", "sfolder", TCL_ERROR,
             "Failed to find active design", "",
             [](FakeHost &host) { host.designs.active = {nullptr}; }},
            {"sfolder-prologue-3 no active folder", "sfolder x", TCL_ERROR,
             "No active folder in design \"uart %1\"", "",
             [](FakeHost &host) { design(host)->foldersActive.clear(); }},
            {"sfolder-prologue-4 two active folders", "sfolder exists", TCL_ERROR,
             "Multiple folders are active in design \"uart %1\"", "", two},
            {"sfolder-prologue-5 even for a bad word", "sfolder x", TCL_ERROR,
             "Multiple folders are active in design \"uart %1\"", "", two},
            {"sfolder-prologue-6 a folder that is gone", "sfolder exists", TCL_ERROR,
             "Failed to find active folder in design \"uart %1\"", "",
             [](FakeHost &host) { delete design(host)->allFolders.takeFirst(); }},
            {"sfolder-usage-1 alone", "sfolder", TCL_ERROR, usage, ""},
            {"sfolder-usage-2 there is no open", "sfolder open", TCL_ERROR, usage, ""},
            {"sfolder-usage-3 get without an item", "sfolder get", TCL_ERROR, usage, ""},
            {"sfolder-usage-4 get of an unknown item", "sfolder get name", TCL_ERROR, usage, ""},
            {"sfolder-usage-5 set without a value", "sfolder set category", TCL_ERROR, usage, ""},
            {"sfolder-usage-6 set of an unknown item", "sfolder set vcs Git", TCL_ERROR, usage, ""},
            {"sfolder-usage-7 exists with a word", "sfolder exists extra", TCL_ERROR, usage, ""},
            {"sfolder-usage-8 property without a name", "sfolder property get", TCL_ERROR, usage,
             ""},
            {"sfolder-usage-9 property with an unknown action", "sfolder property x p", TCL_ERROR,
             usage, ""},
        });
    }
    void prologue() { runRow(); }

    void items_data()
    {
        addRows({
            {"sfolder-get-1", "sfolder get actual_path x", TCL_OK, "/wf/a %3", ""},
            {"sfolder-get-2", "sfolder get category", TCL_OK, "Sources::RTL", ""},
            {"sfolder-get-3", "sfolder get revision", TCL_OK, "abc1234", ""},
            {"sfolder-get-4", "sfolder get vcs", TCL_OK, "Git", ""},
            {"sfolder-set-1 the path, without a bracket", "sfolder set actual_path {x %1} y",
             TCL_OK,
             "Requested actual folder path change on folder \"/wf/a %3\". Changed to \"x %1\"",
             "folder.setActualPath(x %1)"},
            {"sfolder-set-2 a refused path", "sfolder set actual_path x", TCL_OK,
             "Requested actual folder path change on folder \"/wf/a %3\". Changed to \"/wf/a %3\"",
             "folder.setActualPath(x)", failing({u"folder.setActualPath(x)"_s})},
            {"sfolder-set-3 the category", "sfolder set category A::B", TCL_OK,
             "Successfully changed category on folder \"/wf/a %3\"",
             "initExec\nfolder.setCategory(A/B)\nfinalizeExec"},
            {"sfolder-set-4 a refused category", "sfolder set category A", TCL_ERROR,
             "Failed to change category on folder \"/wf/a %3\"",
             "initExec\nfolder.setCategory(A)\nfinalizeExec",
             failing({u"folder.setCategory(A)"_s})},
            {"sfolder-exists-1", "sfolder exists", TCL_OK, "true", ""},
            {"sfolder-exists-2 missing is an error", "sfolder exists", TCL_ERROR, "false", "",
             [](FakeHost &host) { folder(host)->onDisk = false; }},
        });
    }
    void items() { runRow(); }

    void properties_data()
    {
        const QByteArray calls = "initExec\nfolder.setProperty(q)\nfinalizeExec";
        const QByteArray done = "Successfully set property \"q\" on folder \"/wf/a %3\"";
        addRows({
            {"sfolder-property-exists-1", "sfolder property exists p", TCL_OK, "true", ""},
            {"sfolder-property-exists-2 missing is an error", "sfolder property exists q",
             TCL_ERROR, "false", ""},
            {"sfolder-property-get-1", "sfolder property get p", TCL_OK, "42", ""},
            {"sfolder-property-get-2 missing", "sfolder property get q", TCL_ERROR,
             "Failed to get property \"q\" on folder \"/wf/a %3\". It does not exist", ""},
            {"sfolder-property-get-3 without a value", "sfolder property get void", TCL_ERROR,
             "Failed to get property \"void\" on folder \"/wf/a %3\". It exists but is invalid",
             ""},
            {"sfolder-property-remove-1", "sfolder property remove p", TCL_OK,
             "Successfully removed property \"p\" on folder \"/wf/a %3\"", "folder.setProperty(p)"},
            {"sfolder-property-remove-2 missing", "sfolder property remove q", TCL_ERROR,
             "Failed to remove property \"q\" on folder \"/wf/a %3\". It does not exist", ""},
            {"sfolder-property-remove-3 not removable", "sfolder property remove fixed", TCL_ERROR,
             "Failed to remove property \"fixed\" on folder \"/wf/a %3\". This is a non-removable "
             "property",
             ""},
            {"sfolder-property-set-1", "sfolder property set q int 5", TCL_OK, done, calls},
            {"sfolder-property-set-2 read-only", "sfolder property set q int 5 TRUE", TCL_OK, done,
             calls},
            {"sfolder-property-set-3 a word that is neither", "sfolder property set q int 5 maybe",
             TCL_ERROR,
             "Making a property read only is specified using \"true\" or \"false\" (Case "
             "Insensitive)",
             ""},
            {"sfolder-property-set-8 with more words it is not looked at",
             "sfolder property set q int 5 maybe x", TCL_OK, done, calls},
            {"sfolder-property-set-4 too few words", "sfolder property set q int", TCL_ERROR,
             "You did not provide enough parameters to set property \"q\" on folder \"/wf/a %3\"",
             ""},
            {"sfolder-property-set-5 a read-only one", "sfolder property set fixed", TCL_ERROR,
             "Failed to set value of property \"fixed\" on folder \"/wf/a %3\". This is a read "
             "only "
             "property",
             ""},
            {"sfolder-property-set-6 a value that is not of its type",
             "sfolder property set q int five", TCL_ERROR,
             "Failed to set property \"q\" on folder \"/wf/a %3\". Property type and value "
             "combination is invalid",
             ""},
            {"sfolder-property-set-7 refused", "sfolder property set {} int 5", TCL_ERROR,
             "Failed to set property \"\" on folder \"/wf/a %3\"", "initExec\nfinalizeExec"},
        });
    }
    void properties() { runRow(); }

    void theStoredPropertyStaysWritable()
    {
        renewHost();
        QCOMPARE(eval("sfolder property set q int 5 TRUE").code, TCL_OK);
        QVERIFY(!ObjectManager::getSharedProperty(folder(host()), "q").isReadOnly());
    }
};

TEST_CLASS(tst_sfolder)
#include "tst_sfolder.moc"
