#include "tests/commands/CommandTest.h"
#include "tests/TestClass.h"

using namespace Qt::Literals::StringLiterals;

namespace {

// The last column starts behind the longest key, and "delete_all " ends in a blank.
const QByteArray usage =
    "Performs actions on folders in design \"uart %1\".\n"
    "Usage: folders args\n"
    "add actual_path          - Add specified folder\n"
    "category actual_path     - Get the category of specified folder in the design\n"
    "contains actual_path     - Check if a folder exists in the design\n"
    "delete actual_path       - Remove and delete specified folder\n"
    "delete_all               - Delete all folders in the active design\n"
    "list                     - List all folders in the design\n"
    "remove actual_path       - Remove specified folder\n"
    "remove_all               - Remove all folders in the active design\n"
    "set_active actual_path   - Set specified folder active\n";

} // namespace

// The design "uart %1" has the folders "/wf/a b", "/wf/%2" and "/wf/c".
class tst_folders : public CommandTest
{
    Q_OBJECT

    void prepare(FakeHost &host) override
    {
        FakeDesign *design = host.activeDesign(u"uart %1"_s);
        design->folder(u"/wf/a b"_s)->levels =
            Qtilities::Core::QtilitiesCategory(QStringList {u"Sources"_s, u"RTL"_s});
        design->folder(u"/wf/%2"_s);
        design->folder(u"/wf/c"_s);
    }

    static void withoutFolders(FakeHost &host)
    {
        FakeDesign *design = host.designs.open.first();
        qDeleteAll(design->allFolders);
        design->allFolders.clear();
    }

private Q_SLOTS:
    void prologue_data()
    {
        addRows({
            {"folders-prologue-1 no active design", "folders list", TCL_ERROR, "No active design",
             "", [](FakeHost &host) { host.designs.active.clear(); }},
            {"folders-prologue-2 an active design that is gone", "folders", TCL_ERROR,
             "Failed to find active design", "",
             [](FakeHost &host) { host.designs.active = {nullptr}; }},
            {"folders-usage-1 alone", "folders", TCL_ERROR, usage, ""},
            {"folders-usage-2 an unknown word", "folders frobnicate", TCL_ERROR, usage, ""},
            {"folders-usage-3 the blank of the key is not part of the word",
             "folders {delete_all }", TCL_ERROR, usage, ""},
            {"folders-usage-4 set_active without a path", "folders set_active", TCL_ERROR, usage,
             ""},
            {"folders-usage-5 add without a path", "folders add", TCL_ERROR, usage, ""},
            {"folders-usage-6 remove without a path", "folders remove", TCL_ERROR, usage, ""},
            {"folders-usage-7 delete without a path", "folders delete", TCL_ERROR, usage, ""},
            {"folders-usage-8 contains without a path", "folders contains", TCL_ERROR, usage, ""},
            {"folders-usage-9 category without a path", "folders category", TCL_ERROR, usage, ""},
            {"folders-usage-10 remove_all takes no word", "folders remove_all x", TCL_ERROR, usage,
             ""},
            {"folders-usage-11 delete_all takes no word", "folders delete_all {}", TCL_ERROR, usage,
             ""},
            {"folders-usage-12 list takes no word", "folders list x", TCL_ERROR, usage, ""},
        });
    }
    void prologue() { runRow(); }

    void one_data()
    {
        addRows({
            {"folders-set_active-1", "folders set_active {/wf/a b} x", TCL_OK,
             "Successfully changed active folder in design \"uart %1\" to \"/wf/a b\"",
             "design.folderByActualPath(/wf/a b)\n"
             "initExec\ndesign.setActiveFolders(/wf/a b)\nfinalizeExec"},
            {"folders-set_active-2 not found", "folders set_active {%2 x}", TCL_ERROR,
             "Folder \"%2 x\" does not match any folders in design \"uart %1\"",
             "design.folderByActualPath(%2 x)"},
            {"folders-add-1", "folders add /wf/d x", TCL_OK,
             "Successfully added folder \"/wf/d\" to design \"uart %1\"",
             "initExec\ndesign.addFolder(/wf/d)\nfinalizeExec"},
            {"folders-add-2 refused", "folders add %3", TCL_ERROR,
             "Failed to add folder \"%3\" to design \"uart %1\": The design refuses it",
             "initExec\ndesign.addFolder(%3)\nfinalizeExec", failing({u"design.addFolder(%3)"_s})},
            {"folders-remove-1", "folders remove /wf/c x", TCL_OK,
             "Successfully removed folder \"/wf/c\" from design \"uart %1\"",
             "design.folderByActualPath(/wf/c)\n"
             "initExec\ndesign.removeFolder(/wf/c)\nfinalizeExec"},
            {"folders-remove-2 refused", "folders remove /wf/c", TCL_ERROR,
             "Failed to remove folder \"/wf/c\" from design \"uart %1\": ",
             "design.folderByActualPath(/wf/c)\n"
             "initExec\ndesign.removeFolder(/wf/c)\nfinalizeExec",
             failing({u"design.removeFolder(/wf/c)"_s})},
            {"folders-remove-3 not found", "folders remove x", TCL_ERROR,
             "Folder \"x\" does not match any folders in design \"uart %1\"",
             "design.folderByActualPath(x)"},
            {"folders-delete-1", "folders delete /wf/%2 x", TCL_OK,
             "Successfully deleted folder \"/wf/%2\" and removed it from design \"uart %1\"",
             "design.folderByActualPath(/wf/%2)\n"
             "folder.removeFromComputer(/wf/%2, true)\n"
             "initExec\ndesign.removeFolder(/wf/%2)\nfinalizeExec"},
            {"folders-delete-2 not from disk", "folders delete /wf/c", TCL_ERROR,
             "Failed to delete physical folder \"/wf/c\". It will not be removed from design "
             "\"uart %1\": ",
             "design.folderByActualPath(/wf/c)\nfolder.removeFromComputer(/wf/c, true)",
             failing({u"folder.removeFromComputer(/wf/c, true)"_s})},
            {"folders-delete-3 not from the design", "folders delete /wf/c", TCL_ERROR,
             "Failed to delete folder \"/wf/c\" from design \"uart %1\": ",
             "design.folderByActualPath(/wf/c)\n"
             "folder.removeFromComputer(/wf/c, true)\n"
             "initExec\ndesign.removeFolder(/wf/c)\nfinalizeExec",
             failing({u"design.removeFolder(/wf/c)"_s})},
            {"folders-delete-4 not found", "folders delete x", TCL_ERROR,
             "Folder \"x\" does not match any folders in design \"uart %1\"",
             "design.folderByActualPath(x)"},
            {"folders-contains-1", "folders contains /wf/%2 x", TCL_OK, "true",
             "design.folderByActualPath(/wf/%2)"},
            {"folders-contains-2 missing is an error", "folders contains x", TCL_ERROR, "false",
             "design.folderByActualPath(x)"},
            {"folders-category-1", "folders category {/wf/a b} x", TCL_OK, "Sources::RTL",
             "design.folderByActualPath(/wf/a b)"},
            {"folders-category-2 not found", "folders category x", TCL_ERROR,
             "Folder \"x\" does not match any folders in design \"uart %1\"",
             "design.folderByActualPath(x)"},
        });
    }
    void one() { runRow(); }

    void all_data()
    {
        const QByteArray a = "folder.removeFromComputer(/wf/a b, true)\n";
        const QByteArray b = "folder.removeFromComputer(/wf/%2, true)\n";
        const QByteArray c = "folder.removeFromComputer(/wf/c, true)\n";
        const QByteArray removeA = "design.removeFolder(/wf/a b)\n";
        const QByteArray removeB = "design.removeFolder(/wf/%2)\n";
        const QByteArray removeC = "design.removeFolder(/wf/c)\n";
        addRows({
            {"folders-remove_all-1", "folders remove_all", TCL_OK,
             "Successfully removed \"3\" folder(s) from design \"uart %1\"",
             "initExec\n" + removeA + removeB + removeC + "finalizeExec"},
            {"folders-remove_all-2 a failure does not stop it", "folders remove_all", TCL_ERROR,
             "Failed to remove needed folder(s). Only \"1\" of \"3\" folders were removed from "
             "design \"uart %1\": ",
             "initExec\n" + removeA + removeB + removeC + "finalizeExec",
             failing({u"design.removeFolder(/wf/a b)"_s, u"design.removeFolder(/wf/%2)"_s})},
            {"folders-remove_all-3 none", "folders remove_all", TCL_ERROR,
             "No folders found to remove from design \"uart %1\"", "", withoutFolders},
            {"folders-delete_all-1", "folders delete_all", TCL_OK,
             "Successfully removed \"3\" folders from design \"uart %1\"",
             "initExec\n" + a + removeA + b + removeB + c + removeC + "finalizeExec"},
            {"folders-delete_all-2 the number found stands where the design's name would",
             "folders delete_all", TCL_ERROR,
             "Failed to delete needed folders. Only \"2\" of \"3\" folders were deleted. Only "
             "these "
             "folders were removed from design \"3\": ",
             "initExec\n" + a + b + removeB + c + removeC + "finalizeExec",
             failing({u"folder.removeFromComputer(/wf/a b, true)"_s})},
            {"folders-delete_all-3 all from disk is a success though one stays in the design",
             "folders delete_all", TCL_OK,
             "Successfully removed \"2\" folders from design \"uart %1\"",
             "initExec\n" + a + removeA + b + removeB + c + removeC + "finalizeExec",
             failing({u"design.removeFolder(/wf/c)"_s})},
            {"folders-delete_all-4 fewer from disk and fewer still from the design",
             "folders delete_all", TCL_ERROR,
             "Failed to remove needed folders. Only \"2\" of \"3\" folders were deleted, of these "
             "only \"1\" of \"3\" were removed from design \"uart %1\": ",
             "initExec\n" + a + b + removeB + c + removeC + "finalizeExec",
             failing(
                 {u"folder.removeFromComputer(/wf/a b, true)"_s, u"design.removeFolder(/wf/c)"_s})},
            {"folders-delete_all-5 none", "folders delete_all", TCL_ERROR,
             "No folders found to delete in design \"uart %1\"", "", withoutFolders},
            {"folders-list-1", "folders list", TCL_OK, "\"/wf/a b\" \"/wf/%2\" \"/wf/c\"", ""},
            {"folders-list-2 none is an error", "folders list", TCL_ERROR,
             "No folders found in design \"uart %1\"", "", withoutFolders},
        });
    }
    void all() { runRow(); }

    // A folder's files and sub-folders may go with it.
    void aFolderThatGoesWithAnotherCountsAsNotRemoved()
    {
        renewHost();
        host().journal.react(u"design.removeFolder(/wf/a b)"_s, [this] {
            FakeDesign *design = host().designs.open.first();
            delete design->allFolders.takeLast();
        });
        const Answer answer = eval("folders remove_all");
        QCOMPARE(
            answer.text,
            u"Failed to remove needed folder(s). Only \"2\" of \"3\" folders were removed from "
            "design \"uart %1\": "_s);
        QCOMPARE(answer.code, TCL_ERROR);
    }
};

TEST_CLASS(tst_folders)
#include "tst_folders.moc"
