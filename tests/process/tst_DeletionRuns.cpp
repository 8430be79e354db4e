// Files and folders that are not what a script takes them for when it deletes them: links, loops,
// what belongs to others, what may not be written. Each call has one answer, and nothing goes that
// was not named.

#include "tests/process/DesignScript.h"
#include "tests/TestClass.h"

#include <QFileInfo>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

class tst_DeletionRuns : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        run = std::make_unique<DesignScript>();
        run->program.write(u"outside/keep"_s, "mine");
    }
    void nothingOfOthersIsDeleted_data();
    void nothingOfOthersIsDeleted();
    void aFolderThatTookTheDesignsPlace();
    void withoutPermission_data();
    void withoutPermission();

private:
    std::unique_ptr<DesignScript> run;
};

void tst_DeletionRuns::nothingOfOthersIsDeleted_data()
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

void tst_DeletionRuns::nothingOfOthersIsDeleted()
{
    QFETCH(const QString, kind);
    QFETCH(QString, path);
    const QString outside = run->program.path(u"outside"_s);
    path.replace(u"OUTSIDE"_s, outside);
    run->program.write(u"home/keep"_s, "mine");
    const QStringList all = run->answers(R"(lassign $argv kind path outside
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
    QCOMPARE(
        all.value(1),
        u"1 Failed to delete physical %1 \"%2\". It will not be removed from design \"d\": "_s.arg(
            kind, path));
    QCOMPARE(all.value(2), u"0 true"_s);
    QVERIFY(
        all.value(3).startsWith(u"Failed to delete needed %1s. Only \"0\" of \"1\""_s.arg(kind)));
    for (const QString &kept : {outside + u"/keep"_s, run->program.path(u"home/keep"_s),
                                run->folder + u"/component.xml"_s})
        QVERIFY2(QFileInfo::exists(kept), qPrintable(kept));
    QVERIFY(QFileInfo(run->folder + u"/files"_s).isDir());
    for (const QString &link : {u"/link"_s, u"/folder"_s, u"/loop"_s})
        QVERIFY(QFileInfo(run->folder + link).isSymLink());
}

void tst_DeletionRuns::aFolderThatTookTheDesignsPlace()
{
    const QStringList all = run->answers(R"(files add keep
set folder [pwd]
cd /
file rename $folder $folder.moved
exec ln -s [lindex $argv 0] $folder
say files delete keep
say files contains keep
)",
                                         {run->program.path(u"outside"_s)});
    QCOMPARE(all,
             (QStringList {u"1 Failed to delete physical file \"keep\". It will not be removed "
                           "from design \"d\": "_s,
                           u"0 true"_s}));
    QVERIFY(QFileInfo::exists(run->program.path(u"outside/keep"_s)));
}

void tst_DeletionRuns::withoutPermission_data()
{
    QTest::addColumn<QByteArray>("mode");
    QTest::addColumn<bool>("isSeen");
    QTest::newRow("permission-1 a folder that may not be written") << QByteArray("555") << true;
    QTest::newRow("permission-2 nor entered") << QByteArray("000") << false;
}

void tst_DeletionRuns::withoutPermission()
{
    QFETCH(const QByteArray, mode);
    QFETCH(const bool, isSeen);
    run->program.dropPrivileges = true;
    const QStringList all = run->answers("touch locked/f\nfiles add locked/f\nfolders add locked\n"
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

GUILESS_TEST_CLASS(tst_DeletionRuns)
#include "tst_DeletionRuns.moc"
