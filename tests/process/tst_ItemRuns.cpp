// What scripts get to see of names full of what shells and languages mean something by, of files
// and designs that vanish between two commands, and of a component that cannot be written. Each
// call has one answer.

#include "tests/process/DesignScript.h"
#include "tests/TestClass.h"

#include <QDir>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

class tst_ItemRuns : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { run = std::make_unique<DesignScript>(); }
    void oddNames_data();
    void oddNames();
    void aComponentThatCannotBeWritten();
    void whatVanishes();
    void aDesignThatIsClosedWhileItsCommandRuns();
    void withoutAWindow();

private:
    std::unique_ptr<DesignScript> run;
};

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
    const QStringList all = run->answers(R"(set name [lindex $argv 0]
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
    QCOMPARE(
        all,
        (QStringList {
            u"0 Successfully added file "_s + quoted(name).sliced(2) + u" to design \"d\""_s,
            quoted(path), quoted(name), quoted(u"WF/files\" \"WF/"_s + name + u".d"_s),
            u"0 "_s + name, u"0 true"_s,
            u"0 Successfully set property \""_s + name + u"\" on file \""_s + path + u'"',
            u"0 "_s + name,
            u"0 Successfully removed property \""_s + name + u"\" on file \""_s + path + u'"',
            u"0 Successfully deleted file \""_s + name + u"\" and removed it from design \"d\""_s,
            u"0 0"_s, u"1 false"_s}));
}

void tst_ItemRuns::aComponentThatCannotBeWritten()
{
    run->program.dropPrivileges = true;
    const QStringList all = run->answers(R"(set file [pwd]/component.xml
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
    QCOMPARE(all.sliced(1),
             (QStringList {
                 u"0 Successfully saved design to file \"WF/component.xml\""_s, u"0 true"_s,
                 u"1 Failed to add file \"after.v\" to design \"d\": "_s + readOnly,
                 u"0 Successfully changed \"vendor\" on active design"_s, u"0 local"_s,
                 u"1 "_s + readOnly, u"1 Failed to remove file \"before.v\" from design \"d\": "_s,
                 u"0 Successfully changed \"read_only\" on active design"_s, u"0 true"_s,
                 u"0 Successfully changed \"read_only\" on active design"_s,
                 u"0 Successfully added file \"after.v\" to design \"d\""_s}));
}

void tst_ItemRuns::whatVanishes()
{
    const QStringList all = run->answers(R"(foreach name {a.v b.v} { touch $name; files add $name }
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
    const QDir backups(run->program.session + u"/Backups"_s);
    const QStringList copies = backups.entryList({u"d-*.xml"_s});
    QCOMPARE(copies.size(), 1);
    QVERIFY(Program::read(backups.filePath(copies.first())).contains("c.v"));
}

void tst_ItemRuns::aDesignThatIsClosedWhileItsCommandRuns()
{
    const QStringList all = run->answers(R"(after 0 {design close}
say design set name other
say design get name
say designs list
)");
    QCOMPARE(all,
             (QStringList {u"0 Successfully changed \"name\" on active design"_s,
                           u"1 No active design"_s, u"0 "_s}));
    QVERIFY(Program::read(run->folder + u"/component.xml"_s).contains(">other<"));
}

void tst_ItemRuns::withoutAWindow()
{
    const QStringList all = run->answers(R"(say sfile open
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

GUILESS_TEST_CLASS(tst_ItemRuns)
#include "tst_ItemRuns.moc"
