// Files, folders and designs that are not what a script takes them for: names full of what shells
// and languages mean something by, links, loops, folders of others, missing permissions, and what
// vanishes between two commands. Each call has one answer, and nothing goes that was not named.

#include "tests/process/Program.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

class tst_ItemRuns : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void oddNames_data();
    void oddNames();
    void nothingOfOthersIsDeleted_data();
    void nothingOfOthersIsDeleted();
    void aFolderThatTookTheDesignsPlace();
    void withoutPermission_data();
    void withoutPermission();
    void aComponentThatCannotBeWritten();
    void whatVanishes();
    void aDesignThatIsClosedWhileItsCommandRuns();
    void withoutAWindow();

private:
    // Runs the script in the folder of a new design; answers "CODE TEXT" for each call of "say".
    QStringList answers(const QByteArray &script, const QStringList &arguments = {});

    std::unique_ptr<Program> program;
    QString designFolder;
};

namespace {

const QByteArray beginning = R"(designs new d
cd [design get wfp]
fconfigure stdout -encoding utf-8
proc say args {
    set code [catch $args text]
    puts -nonewline "$code [string map [list [pwd] WF] $text]\x1e"
}
proc touch {name} {
    file mkdir [file dirname $name]
    close [open $name w]
}
)";

} // namespace

void tst_ItemRuns::init()
{
    program = std::make_unique<Program>();
    designFolder = program->session + u"/Designs/d"_s;
    program->write(u"outside/keep"_s, "mine");
}

QStringList tst_ItemRuns::answers(const QByteArray &script, const QStringList &arguments)
{
    const Ended ended = program->runScript(beginning + script, arguments);
    if (ended.status != 0)
        qWarning().noquote() << ended.status << ended.err;
    return QString::fromUtf8(ended.out).split(QChar(0x1e), Qt::SkipEmptyParts);
}

void tst_ItemRuns::oddNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("name-1 quotes and braces") << u"a \"b\" {c"_s;
    QTest::newRow("name-2 what Tcl substitutes") << u"a$x [exit 3] ;#"_s;
    QTest::newRow("name-3 a line feed") << u"two\nlines"_s;
    QTest::newRow("name-4 placeholders") << u"%1%2%3%L1"_s;
    QTest::newRow("name-5 beyond ASCII") << u"\u00e9\u20ac\u0436"_s;
    QTest::newRow("name-6 blanks at its ends") << u" a\t"_s;
    QTest::newRow("name-7 what XML writes otherwise") << u"<a>&b;\r'"_s;
    QTest::newRow("name-8 a dash") << u"-f"_s;
    QTest::newRow("name-9 a home") << u"~"_s;
}

// What is given comes back, from the disk too, and after the design was opened again.
void tst_ItemRuns::oddNames()
{
    QFETCH(const QString, name);
    const QStringList all = answers(R"(set name [lindex $argv 0]
touch ./$name
say files add $name
properties set $name string $name
folders add $name.d
design set description $name
set file [design get wfp]/component.xml
design save
design close
designs add $file
say files list
say properties list
say folders list
say design get description
files set_active $name
say sfile exists
say sfile property set $name string $name
say sfile property get $name
say sfile property remove $name
say files delete $name
say file exists ./$name
say files contains $name
)",
                                    {name});
    const auto quoted = [](const QString &text) { return u"0 \""_s + text + u'"'; };
    const QString path = u"WF/"_s + name;
    QCOMPARE(all,
             (QStringList {u"0 Successfully added file "_s + quoted(name).sliced(2)
                               + u" to design \"d\""_s,
                           quoted(path), quoted(name),
                           quoted(u"WF/files\" \"WF/"_s + name + u".d"_s), u"0 "_s + name,
                           u"0 true"_s,
                           u"0 Successfully set property \""_s + name + u"\" on file \""_s + path
                               + u'"',
                           u"0 "_s + name,
                           u"0 Successfully removed property \""_s + name + u"\" on file \""_s
                               + path + u'"',
                           u"0 Successfully deleted file \""_s + name
                               + u"\" and removed it from design \"d\""_s,
                           u"0 0"_s, u"1 false"_s}));
}

void tst_ItemRuns::nothingOfOthersIsDeleted_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("path");
    const auto row = [](const char *name, const QString &kind, const QString &path) {
        QTest::newRow(name) << kind << path;
    };
    row("others-1 a file elsewhere", u"file"_s, u"OUTSIDE/keep"_s);
    row("others-2 by folders up", u"file"_s, u"../../../outside/keep"_s);
    row("others-3 a link to it", u"file"_s, u"link"_s);
    row("others-4 through a linked folder", u"file"_s, u"folder/keep"_s);
    row("others-5 a loop", u"file"_s, u"loop"_s);
    row("others-6 below a loop", u"file"_s, u"loop/keep"_s);
    row("others-7 a folder as a file", u"file"_s, u"files"_s);
    row("others-8 its own component file", u"file"_s, u"missing/../component.xml/x"_s);
    row("others-9 a folder elsewhere", u"folder"_s, u"OUTSIDE"_s);
    row("others-10 a link to it", u"folder"_s, u"folder"_s);
    row("others-11 by the link and up", u"folder"_s, u"folder/../../outside"_s);
    row("others-12 a loop", u"folder"_s, u"loop"_s);
    row("others-13 the root", u"folder"_s, u"/"_s);
    row("others-14 the home", u"folder"_s, u"$HOME"_s);
    row("others-15 the design's own", u"folder"_s, u"."_s);
    row("others-16 the one with all designs", u"folder"_s, u".."_s);
    row("others-17 the session", u"folder"_s, u"../.."_s);
    row("others-18 a file as a folder", u"folder"_s, u"component.xml"_s);
}

void tst_ItemRuns::nothingOfOthersIsDeleted()
{
    QFETCH(const QString, kind);
    QFETCH(QString, path);
    const QString outside = program->path(u"outside"_s);
    path.replace(u"OUTSIDE"_s, outside);
    program->write(u"home/keep"_s, "mine");
    const QStringList all = answers(R"(lassign $argv kind path outside
exec ln -s $outside/keep link
exec ln -s $outside folder
exec ln -s loop loop
say ${kind}s add $path
say ${kind}s delete $path
say ${kind}s contains $path
if {$kind eq "folder"} { folders remove [pwd]/files }
catch {${kind}s delete_all} text
puts $text
)",
                                    {kind, path, outside});
    QCOMPARE(all.value(0), u"0 Successfully added %1 \"%2\" to design \"d\""_s.arg(kind, path));
    QCOMPARE(all.value(1),
             u"1 Failed to delete physical %1 \"%2\". It will not be removed from design \"d\": "_s
                 .arg(kind, path));
    QCOMPARE(all.value(2), u"0 true"_s);
    QVERIFY(all.value(3).startsWith(u"Failed to delete needed %1s. Only \"0\" of \"1\""_s.arg(kind)));
    for (const QString &kept : {outside + u"/keep"_s, program->path(u"home/keep"_s),
                                designFolder + u"/component.xml"_s})
        QVERIFY2(QFileInfo::exists(kept), qPrintable(kept));
    QVERIFY(QFileInfo(designFolder + u"/files"_s).isDir());
    for (const QString &link : {u"/link"_s, u"/folder"_s, u"/loop"_s})
        QVERIFY(QFileInfo(designFolder + link).isSymLink());
}

void tst_ItemRuns::aFolderThatTookTheDesignsPlace()
{
    const QStringList all = answers(R"(files add keep
set folder [pwd]
cd /
file rename $folder $folder.moved
exec ln -s [lindex $argv 0] $folder
say files delete keep
say files contains keep
)",
                                    {program->path(u"outside"_s)});
    QCOMPARE(all,
             (QStringList {u"1 Failed to delete physical file \"keep\". It will not be removed "
                           "from design \"d\": "_s,
                           u"0 true"_s}));
    QVERIFY(QFileInfo::exists(program->path(u"outside/keep"_s)));
}

void tst_ItemRuns::withoutPermission_data()
{
    QTest::addColumn<QByteArray>("mode");
    QTest::addColumn<bool>("isSeen");
    QTest::newRow("permission-1 a folder that may not be written") << QByteArray("555") << true;
    QTest::newRow("permission-2 nor entered") << QByteArray("000") << false;
}

void tst_ItemRuns::withoutPermission()
{
    QFETCH(const QByteArray, mode);
    QFETCH(const bool, isSeen);
    program->dropPrivileges = true;
    const QStringList all = answers("touch locked/f\nfiles add locked/f\nfolders add locked\n"
                                    "file attributes locked -permissions 0"
                                    + mode + R"(
files set_active locked/f
say sfile exists
say sfile get revision
say files delete locked/f
say folders delete locked
say files delete_all
say files list
file attributes locked -permissions 0755
say file exists locked/f
)");
    QCOMPARE(
        all,
        (QStringList {isSeen ? u"0 true"_s : u"0 false"_s, u"0 -1"_s,
                      u"1 Failed to delete physical file \"locked/f\". It will not be removed from "
                      "design \"d\": "_s,
                      u"1 Failed to delete physical folder \"locked\". It will not be removed from "
                      "design \"d\": "_s,
                      u"1 Failed to delete needed files. Only \"0\" of \"1\" files were deleted. "
                      "Only these files were removed from design \"d\": "_s,
                      u"0 \"WF/locked/f\""_s, u"0 1"_s}));
}

void tst_ItemRuns::aComponentThatCannotBeWritten()
{
    program->dropPrivileges = true;
    const QStringList all = answers(R"(set file [pwd]/component.xml
files add before.v
file attributes . -permissions 0555
say design save
file attributes . -permissions 0755
say design save
design close
file attributes $file -permissions 0444
designs add $file
say design get read_only
say files add after.v
say design set vendor other
say design get vendor
say design set name other
say files remove before.v
say design set read_only false
say design get read_only
file attributes $file -permissions 0644
say design set read_only false
say files add after.v
)");
    const QString readOnly = u"The design \"d\" is read-only"_s;
    QVERIFY2(all.value(0).startsWith(
                 u"1 Failed to save design to file \"WF/component.xml\". Error: Cannot write "_s),
             qPrintable(all.value(0)));
    QCOMPARE(
        all.sliced(1),
        (QStringList {u"0 Successfully saved design to file \"WF/component.xml\""_s, u"0 true"_s,
                      u"1 Failed to add file \"after.v\" to design \"d\": "_s + readOnly,
                      u"0 Successfully changed \"vendor\" on active design"_s, u"0 local"_s,
                      u"1 "_s + readOnly,
                      u"1 Failed to remove file \"before.v\" from design \"d\": "_s,
                      u"0 Successfully changed \"read_only\" on active design"_s, u"0 true"_s,
                      u"0 Successfully changed \"read_only\" on active design"_s,
                      u"0 Successfully added file \"after.v\" to design \"d\""_s}));
}

void tst_ItemRuns::whatVanishes()
{
    const QStringList all = answers(R"(foreach name {a.v b.v} { touch $name; files add $name }
files set_active a.v
say sfile exists
file delete a.v
say sfile exists
say files delete a.v
say files delete_all
say files list
file delete component.xml
say design save
say file exists component.xml
set folder [pwd]
cd /
file delete -force $folder
say files add c.v
say design clean
say files delete_all
cd [file dirname $folder]
say design close
say file exists d
)");
    const QString some = u"1 Failed to delete needed files. Only \"%1\" of \"2\" files were "
                         "deleted. Only these files were removed from design \"d\": "_s;
    QCOMPARE(all,
             (QStringList {u"0 true"_s, u"0 false"_s,
                           u"1 Failed to delete physical file \"a.v\". It will not be removed "
                           "from design \"d\": "_s,
                           some.arg(1), u"0 \"WF/a.v\""_s,
                           u"0 Successfully saved design to file \"WF/component.xml\""_s, u"0 1"_s,
                           u"0 Successfully added file \"c.v\" to design \"d\""_s,
                           u"0 Nothing to clean in design \"d\""_s, some.arg(0),
                           u"0 Successfully closed design \"local.global.d.1.0\""_s, u"0 0"_s}));
    // What could not be saved is not lost.
    const QDir backups(program->session + u"/Backups"_s);
    const QStringList copies = backups.entryList({u"d-*.xml"_s});
    QCOMPARE(copies.size(), 1);
    QVERIFY(Program::read(backups.filePath(copies.first())).contains("c.v"));
}

void tst_ItemRuns::aDesignThatIsClosedWhileItsCommandRuns()
{
    const QStringList all = answers(R"(after 0 {design close}
say design set name other
say design get name
say designs list
)");
    QCOMPARE(all,
             (QStringList {u"0 Successfully changed \"name\" on active design"_s,
                           u"1 No active design"_s, u"0 "_s}));
    QVERIFY(Program::read(designFolder + u"/component.xml"_s).contains(">other<"));
}

void tst_ItemRuns::withoutAWindow()
{
    const QStringList all = answers(R"(say sfile open
say sfolder get actual_path
say sproperty get name
touch a.v
files add a.v
files set_active a.v
say sfile open
cd files
say design save copy.xml
say file exists copy.xml
)");
    QCOMPARE(all,
             (QStringList {u"1 No active file in design \"d\""_s,
                           u"1 No active folder in design \"d\""_s,
                           u"1 No active property in design \"d\""_s, u"1 false"_s,
                           u"0 Successfully parsed design to file \"copy.xml\""_s, u"0 1"_s}));
}

QTEST_GUILESS_MAIN(tst_ItemRuns)
#include "tst_ItemRuns.moc"
