#include "tests/commands/CommandTest.h"
#include "tests/TestClass.h"

using namespace Qt::Literals::StringLiterals;

namespace {

const QByteArray usage =
    "Performs actions on files in design \"uart %1\".\n"
    "Usage: files args\n"
    "add actual_path          - Add specified file\n"
    "category actual_path     - Get the category of specified file in the design\n"
    "contains actual_path     - Check if a file exists in the design\n"
    "delete actual_path       - Remove and delete specified file\n"
    "delete_all 'node         - Delete all files under specified node\n"
    "list 'node               - List all files under specified node\n"
    "remove actual_path       - Remove specified file\n"
    "remove_all 'node         - Remove all files under specified node\n"
    "set_active actual_path   - Set specified file active\n";

} // namespace

// The design "uart %1" has the files /wf/a b.v and /wf/%2.v in the node rtl, /wf/c.v in tb, and the
// empty node doc.
class tst_files : public CommandTest
{
    Q_OBJECT

    void prepare(FakeHost &host) override
    {
        FakeDesign *design = host.activeDesign(u"uart %1"_s);
        design->file(u"/wf/a b.v"_s, u"rtl"_s)->levels =
            Qtilities::Core::QtilitiesCategory(QStringList {u"HDL"_s, u"Verilog"_s});
        design->file(u"/wf/%2.v"_s, u"rtl"_s);
        design->file(u"/wf/c.v"_s, u"tb"_s);
        design->nodes = QStringList {u"rtl"_s, u"tb"_s, u"doc"_s};
    }

    static void withoutFiles(FakeHost &host)
    {
        FakeDesign *design = host.designs.open.first();
        qDeleteAll(design->allFiles);
        design->allFiles.clear();
    }

private Q_SLOTS:
    void prologue_data()
    {
        const auto none = [](FakeHost &host) { host.designs.active.clear(); };
        const auto gone = [](FakeHost &host) { host.designs.active = {nullptr}; };
        addRows({
            {"files-prologue-1 no active design", "files list", TCL_ERROR, "No active design", "",
             none},
            {"files-prologue-2 it comes before the usage", "files", TCL_ERROR, "No active design",
             "", none},
            {"files-prologue-3 an active design that is gone", "files frobnicate", TCL_ERROR,
             "Failed to find active design", "", gone},
            {"files-usage-1 alone", "files", TCL_ERROR, usage, ""},
            {"files-usage-2 an unknown word", "files frobnicate /wf/c.v", TCL_ERROR, usage, ""},
            {"files-usage-3 words are case-sensitive", "files List", TCL_ERROR, usage, ""},
            {"files-usage-4 set_active without a path", "files set_active", TCL_ERROR, usage, ""},
            {"files-usage-5 add without a path", "files add", TCL_ERROR, usage, ""},
            {"files-usage-6 remove without a path", "files remove", TCL_ERROR, usage, ""},
            {"files-usage-7 delete without a path", "files delete", TCL_ERROR, usage, ""},
            {"files-usage-8 contains without a path", "files contains", TCL_ERROR, usage, ""},
            {"files-usage-9 category without a path", "files category", TCL_ERROR, usage, ""},
            {"files-usage-10 remove_all with two nodes", "files remove_all a b", TCL_ERROR, usage,
             ""},
            {"files-usage-11 delete_all with two nodes", "files delete_all a b", TCL_ERROR, usage,
             ""},
            {"files-usage-12 list with three words behind it", "files list a b c", TCL_ERROR, usage,
             ""},
        });
    }
    void prologue() { runRow(); }

    void setActive_data()
    {
        addRows({
            {"files-set_active-1", "files set_active {/wf/a b.v}", TCL_OK,
             "Successfully changed active file in design \"uart %1\" to \"/wf/a b.v\"",
             "design.fileByActualPath(/wf/a b.v, false)\n"
             "initExec\ndesign.setActiveFiles(/wf/a b.v)\nfinalizeExec"},
            {"files-set_active-2 placeholders in a path, further words",
             "files set_active /wf/%2.v x", TCL_OK,
             "Successfully changed active file in design \"uart %1\" to \"/wf/%2.v\"",
             "design.fileByActualPath(/wf/%2.v, false)\n"
             "initExec\ndesign.setActiveFiles(/wf/%2.v)\nfinalizeExec"},
            {"files-set_active-3 not found", "files set_active {no \"%2\"}", TCL_ERROR,
             "File \"no \"%2\"\" does not match any files in design \"uart %1\"",
             "design.fileByActualPath(no \"%2\", false)"},
        });
    }
    void setActive() { runRow(); }

    void add_data()
    {
        addRows({
            {"files-add-1", "files add /wf/d.v", TCL_OK,
             "Successfully added file \"/wf/d.v\" to design \"uart %1\"",
             "initExec\ndesign.addFile(/wf/d.v, , true)\nfinalizeExec"},
            {"files-add-2 only the first path counts", "files add a b", TCL_OK,
             "Successfully added file \"a\" to design \"uart %1\"",
             "initExec\ndesign.addFile(a, , true)\nfinalizeExec"},
            {"files-add-3 refused", "files add {a\n\"%3\" {b} $c [d]}", TCL_ERROR,
             "Failed to add file \"a\n\"%3\" {b} $c [d]\" to design \"uart %1\": The design "
             "refuses "
             "it",
             "initExec\ndesign.addFile(a\n\"%3\" {b} $c [d], , true)\nfinalizeExec",
             failing({u"design.addFile(a\n\"%3\" {b} $c [d], , true)"_s})},
            {"files-add-4 an empty path", "files add {}", TCL_ERROR,
             "Failed to add file \"\" to design \"uart %1\": The design refuses it",
             "initExec\ndesign.addFile(, , true)\nfinalizeExec",
             failing({u"design.addFile(, , true)"_s})},
        });
    }
    void add() { runRow(); }

    void remove_data()
    {
        addRows({
            {"files-remove-1", "files remove /wf/c.v x", TCL_OK,
             "Successfully removed file \"/wf/c.v\" from design \"uart %1\"",
             "design.fileByActualPath(/wf/c.v, false)\n"
             "initExec\ndesign.removeFile(/wf/c.v)\nfinalizeExec"},
            {"files-remove-2 refused, the text ends in a blank", "files remove /wf/c.v", TCL_ERROR,
             "Failed to remove file \"/wf/c.v\" from design \"uart %1\": ",
             "design.fileByActualPath(/wf/c.v, false)\n"
             "initExec\ndesign.removeFile(/wf/c.v)\nfinalizeExec",
             failing({u"design.removeFile(/wf/c.v)"_s})},
            {"files-remove-3 not found", "files remove {}", TCL_ERROR,
             "File \"\" does not match any files in design \"uart %1\"",
             "design.fileByActualPath(, false)"},
            {"files-delete-1 from disk first", "files delete /wf/%2.v", TCL_OK,
             "Successfully deleted file \"/wf/%2.v\" and removed it from design \"uart %1\"",
             "design.fileByActualPath(/wf/%2.v, false)\n"
             "file.removeFromComputer(/wf/%2.v, true)\n"
             "initExec\ndesign.removeFile(/wf/%2.v)\nfinalizeExec"},
            {"files-delete-2 not from disk, so not from the design", "files delete /wf/c.v",
             TCL_ERROR,
             "Failed to delete physical file \"/wf/c.v\". It will not be removed from design "
             "\"uart %1\": ",
             "design.fileByActualPath(/wf/c.v, false)\nfile.removeFromComputer(/wf/c.v, true)",
             failing({u"file.removeFromComputer(/wf/c.v, true)"_s})},
            {"files-delete-3 from disk but not from the design", "files delete /wf/c.v", TCL_ERROR,
             "Failed to delete file \"/wf/c.v\" from design \"uart %1\": ",
             "design.fileByActualPath(/wf/c.v, false)\n"
             "file.removeFromComputer(/wf/c.v, true)\n"
             "initExec\ndesign.removeFile(/wf/c.v)\nfinalizeExec",
             failing({u"design.removeFile(/wf/c.v)"_s})},
            {"files-delete-4 not found", "files delete /wf/C.V", TCL_ERROR,
             "File \"/wf/C.V\" does not match any files in design \"uart %1\"",
             "design.fileByActualPath(/wf/C.V, false)"},
        });
    }
    void remove() { runRow(); }

    void removeAll_data()
    {
        const QByteArray removals = "design.removeFile(/wf/a b.v)\ndesign.removeFile(/wf/%2.v)\n"
                                    "design.removeFile(/wf/c.v)\n";
        addRows({
            {"files-remove_all-1", "files remove_all", TCL_OK,
             "Successfully removed \"3\" file(s) from design \"uart %1\"",
             "design.filesUnderNode(, true)\ninitExec\n" + removals + "finalizeExec"},
            {"files-remove_all-2 under a node", "files remove_all tb", TCL_OK,
             "Successfully removed \"1\" file(s) from design \"uart %1\"",
             "design.filesUnderNode(tb, true)\ninitExec\ndesign.removeFile(/wf/c.v)\nfinalizeExec"},
            {"files-remove_all-3 a failure does not stop it", "files remove_all", TCL_ERROR,
             "Failed to remove needed file(s). Only \"2\" of \"3\" files were removed from design "
             "\"uart %1\": ",
             "design.filesUnderNode(, true)\ninitExec\n" + removals + "finalizeExec",
             failing({u"design.removeFile(/wf/a b.v)"_s})},
            {"files-remove_all-4 no files", "files remove_all", TCL_ERROR,
             "No files found to remove from design \"uart %1\"", "design.filesUnderNode(, true)",
             withoutFiles},
            {"files-remove_all-5 no files under a node", "files remove_all {none %2}", TCL_ERROR,
             "No files found to remove under node \"none %2\" in design \"uart %1\"",
             "design.filesUnderNode(none %2, true)"},
            {"files-remove_all-6 an empty node is none", "files remove_all {}", TCL_ERROR,
             "No files found to remove from design \"uart %1\"", "design.filesUnderNode(, true)",
             withoutFiles},
        });
    }
    void removeAll() { runRow(); }

    void deleteAll_data()
    {
        const QByteArray start = "design.filesUnderNode(, true)\ninitExec\n";
        const QByteArray a = "file.removeFromComputer(/wf/a b.v, true)\n";
        const QByteArray b = "file.removeFromComputer(/wf/%2.v, true)\n";
        const QByteArray c = "file.removeFromComputer(/wf/c.v, true)\n";
        const QByteArray removeA = "design.removeFile(/wf/a b.v)\n";
        const QByteArray removeB = "design.removeFile(/wf/%2.v)\n";
        const QByteArray removeC = "design.removeFile(/wf/c.v)\n";
        const QByteArray end = "finalizeExec";
        addRows({
            {"files-delete_all-1", "files delete_all", TCL_OK,
             "Successfully removed \"3\" files from design \"uart %1\"",
             start + a + removeA + b + removeB + c + removeC + end},
            {"files-delete_all-2 what stays on disk stays in the design", "files delete_all",
             TCL_ERROR,
             "Failed to delete needed files. Only \"2\" of \"3\" files were deleted. Only these "
             "files were removed from design \"uart %1\": ",
             start + a + b + removeB + c + removeC + end,
             failing({u"file.removeFromComputer(/wf/a b.v, true)"_s})},
            {"files-delete_all-3 all from disk is a success though one stays in the design",
             "files delete_all", TCL_OK, "Successfully removed \"2\" files from design \"uart %1\"",
             start + a + removeA + b + removeB + c + removeC + end,
             failing({u"design.removeFile(/wf/c.v)"_s})},
            {"files-delete_all-4 fewer from disk and fewer still from the design",
             "files delete_all", TCL_ERROR,
             "Failed to remove needed files. Only \"2\" of \"3\" files were deleted, of these only "
             "\"1\" of \"3\" were removed from design \"uart %1\": ",
             start + a + b + removeB + c + removeC + end,
             failing(
                 {u"file.removeFromComputer(/wf/a b.v, true)"_s, u"design.removeFile(/wf/c.v)"_s})},
            {"files-delete_all-5 under a node", "files delete_all tb", TCL_OK,
             "Successfully removed \"1\" files from design \"uart %1\"",
             "design.filesUnderNode(tb, true)\ninitExec\n" + c + removeC + end},
            {"files-delete_all-6 none is deleted", "files delete_all tb", TCL_ERROR,
             "Failed to delete needed files. Only \"0\" of \"1\" files were deleted. Only these "
             "files were removed from design \"uart %1\": ",
             "design.filesUnderNode(tb, true)\ninitExec\n" + c + end,
             failing({u"file.removeFromComputer(/wf/c.v, true)"_s})},
            {"files-delete_all-7 no files", "files delete_all", TCL_ERROR,
             "No files found to delete in design \"uart %1\"", "design.filesUnderNode(, true)",
             withoutFiles},
            {"files-delete_all-8 no files under a node", "files delete_all doc", TCL_ERROR,
             "No files found to delete under node \"doc\" in design \"uart %1\"",
             "design.filesUnderNode(doc, true)"},
        });
    }
    void deleteAll() { runRow(); }

    void queries_data()
    {
        addRows({
            {"files-contains-1", "files contains {/wf/a b.v} x", TCL_OK, "true",
             "design.fileByActualPath(/wf/a b.v, false)"},
            {"files-contains-2 missing is an error", "files contains x", TCL_ERROR, "false",
             "design.fileByActualPath(x, false)"},
            {"files-category-1", "files category {/wf/a b.v} x", TCL_OK, "HDL::Verilog",
             "design.fileByActualPath(/wf/a b.v, false)"},
            {"files-category-2 none", "files category /wf/c.v", TCL_OK, "",
             "design.fileByActualPath(/wf/c.v, false)"},
            {"files-category-3 not found", "files category x", TCL_ERROR,
             "File \"x\" does not match any files in design \"uart %1\"",
             "design.fileByActualPath(x, false)"},
            {"files-list-1", "files list", TCL_OK, "\"/wf/a b.v\" \"/wf/%2.v\" \"/wf/c.v\"",
             "design.filesUnderNode(, true)"},
            {"files-list-2 under a node", "files list rtl", TCL_OK, "\"/wf/a b.v\" \"/wf/%2.v\"",
             "design.filesUnderNode(rtl, true)"},
            {"files-list-3 two nodes list everything", "files list rtl tb", TCL_OK,
             "\"/wf/a b.v\" \"/wf/%2.v\" \"/wf/c.v\"", "design.filesUnderNode(, true)"},
            {"files-list-4 no files are a good answer", "files list", TCL_OK,
             "No files found in design \"uart %1\"", "design.filesUnderNode(, true)", withoutFiles},
            {"files-list-5 an empty node is none", "files list {}", TCL_OK,
             "No files found in design \"uart %1\"", "design.filesUnderNode(, true)", withoutFiles},
            {"files-list-6 no files under a node", "files list doc", TCL_OK,
             "No files found under node \"doc\" in design \"uart %1\"",
             "design.filesUnderNode(doc, true)"},
            {"files-list-7 no such node", "files list {no %2}", TCL_ERROR,
             "Node \"no %2\" does not exist in design \"uart %1\"",
             "design.filesUnderNode(no %2, true)"},
            {"files-list-8 two nodes and no files", "files list doc x", TCL_OK,
             "No files found in design \"uart %1\"", "design.filesUnderNode(, true)", withoutFiles},
        });
    }
    void queries() { runRow(); }

    void anyNumberOfWordsGivesOneTextAndOneCode()
    {
        const QStringList words = {u"files"_s, u"remove"_s, u"/wf/c.v"_s, u"\0"_s, u"\u20ac"_s};
        for (const QString &word :
             {u"set_active"_s, u"add"_s, u"remove"_s, u"delete"_s, u"remove_all"_s, u"delete_all"_s,
              u"contains"_s, u"category"_s, u"list"_s}) {
            for (int count = 1; count < 40; ++count) {
                renewHost();
                QStringList line = words;
                line[1] = word;
                while (line.size() < count)
                    line.append(u"more"_s);
                const Answer answer = call(line.first(count < 5 ? count : line.size()));
                QVERIFY(answer.code == TCL_OK || answer.code == TCL_ERROR);
                QVERIFY(!answer.text.isEmpty() || word == u"category"_s);
            }
        }
    }

    void anOddNameComesBackAsItIs_data()
    {
        QTest::addColumn<QString>("path");
        QTest::newRow("files-name-1 quotes and braces") << u"/w/\"{}\""_s;
        QTest::newRow("files-name-2 dollar and brackets") << u"/w/$x[y]"_s;
        QTest::newRow("files-name-3 a line feed") << u"/w/a\nb"_s;
        QTest::newRow("files-name-4 placeholders") << u"/w/%1%2%3%9"_s;
        QTest::newRow("files-name-5 beyond ASCII") << u"/w/\u00e9\u20ac"_s;
        QTest::newRow("files-name-6 beyond the basic plane") << u"/w/\U0001F600"_s;
        QTest::newRow("files-name-7 a zero character") << u"/w/a\0b"_s;
        QTest::newRow("files-name-8 a lone surrogate") << u"/w/"_s + QChar(0xD800);
        QTest::newRow("files-name-9 blanks") << u"  "_s;
        QTest::newRow("files-name-10 long") << QString(100000, u'x');
    }
    void anOddNameComesBackAsItIs()
    {
        QFETCH(const QString, path);
        renewHost();
        QCOMPARE(call({u"files"_s, u"add"_s, path}).text,
                 u"Successfully added file \""_s + path + u"\" to design \"uart %1\""_s);
        QCOMPARE(host().designs.open.first()->allFiles.last()->path, path);
        QCOMPARE(call({u"files"_s, u"contains"_s, path}).text, u"true"_s);
    }

    // What a user or another script does while the application handles events.
    void aDesignThatGoesWhileItsFilesAreRemoved_data()
    {
        addRows({
            {"files-gone-1 remove_all",
             "files remove_all",
             TCL_ERROR,
             "Failed to remove needed file(s). Only \"1\" of \"3\" files were removed from design "
             "\"uart %1\": ",
             {},
             [](FakeHost &host) {
                 host.journal.react(u"design.removeFile(/wf/a b.v)"_s, [] { closeAll(); });
             }},
            {"files-gone-2 delete_all",
             "files delete_all",
             TCL_ERROR,
             "Failed to remove needed files. Only \"1\" of \"3\" files were deleted, of these only "
             "\"0\" of \"3\" were removed from design \"uart %1\": ",
             {},
             [](FakeHost &host) {
                 host.journal.react(u"file.removeFromComputer(/wf/a b.v, true)"_s,
                                    [] { closeAll(); });
             }},
            {"files-gone-3 delete",
             "files delete /wf/c.v",
             TCL_ERROR,
             "Failed to delete file \"/wf/c.v\" from design \"uart %1\": ",
             {},
             [](FakeHost &host) {
                 host.journal.react(u"file.removeFromComputer(/wf/c.v, true)"_s,
                                    [] { closeAll(); });
             }},
            {"files-gone-4 add",
             "files add x",
             TCL_OK,
             "Successfully added file \"x\" to design \"uart %1\"",
             {},
             [](FakeHost &host) {
                 host.journal.react(u"finalizeExec"_s,
                                    [&host] { host.designs.closeDesigns({}, false); });
             }},
        });
    }
    void aDesignThatGoesWhileItsFilesAreRemoved() { runRow(); }

private:
    static void closeAll()
    {
        Tcl_Eval(commandsManager::getInstance(nullptr)->interp, "designs close_all");
    }
};

TEST_CLASS(tst_files)
#include "tst_files.moc"
