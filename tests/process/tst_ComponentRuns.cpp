// Documents that are no components: each is refused with its file and line, nothing is opened,
// nothing is lost, and memory stays within bounds.

#include "tests/process/Program.h"
#include "tests/TestClass.h"

#include <QDir>
#include <QFile>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

class tst_ComponentRuns : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { program = std::make_unique<Program>(); }
    void refused_data();
    void refused();
    void noFile_data();
    void noFile();
    void aHugeFile();
    void aLargeComponent();
    void whatIsOpenStays();

private:
    Ended tryToOpen(const QString &path);

    std::unique_ptr<Program> program;
};

namespace {

const QByteArray opening =
    "<?xml version=\"1.0\"?>\n"
    "<i:component xmlns:i=\"http://www.accellera.org/XMLSchema/IPXACT/1685-2014\">\n";
const QByteArray identity = "<i:vendor>v</i:vendor>\n<i:library>l</i:library>\n"
                            "<i:name>n</i:name>\n<i:version>1</i:version>\n";
const QByteArray closing = "</i:component>\n";

// Prints what the attempt says, then what is open, then the most memory used so far in megabytes.
const QByteArray attempt = "catch {designs add [lindex $argv 0]} said\n"
                           "puts $said\nputs <[designs list]>\n"
                           "set f [open /proc/self/status]\n"
                           "regexp {VmHWM:\\s+(\\d+)} [read $f] - kilobytes\n"
                           "puts [expr {$kilobytes / 1024}]\n";

} // namespace

Ended tst_ComponentRuns::tryToOpen(const QString &path)
{
    return program->runScript(attempt, {path});
}

void tst_ComponentRuns::refused_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<int>("line");
    QTest::newRow("refused-1 empty") << QByteArray() << 1;
    QTest::newRow("refused-2 not XML") << QByteArray("once upon a time\n") << 1;
    QTest::newRow("refused-3 truncated in an element") << opening + identity
            + "<i:fileSets>\n<i:fileSet>\n" << 9;
    QTest::newRow("refused-4 truncated in a tag") << opening + "<i:vendor>v</i:ven" << 3;
    QTest::newRow("refused-5 two ends swapped")
        << opening + identity + "<i:model><i:views></i:model></i:views>\n" + closing << 7;
    QTest::newRow("refused-6 another document of the standard")
        << QByteArray("<i:design xmlns:i=\"http://www.accellera.org/XMLSchema/IPXACT/1685-2014\"/>")
        << 1;
    QTest::newRow("refused-7 another namespace")
        << QByteArray("\n<component xmlns=\"urn:other\"/>") << 2;
    QTest::newRow("refused-8 no namespace") << QByteArray("<component/>") << 1;
    QTest::newRow("refused-9 no name") << opening + "<i:vendor>v</i:vendor>\n" + closing << 2;
    QTest::newRow("refused-10 invalid UTF-8")
        << opening + "<i:vendor>\xff\xfe</i:vendor>\n" + closing << 3;
    QByteArray laughs = "<?xml version=\"1.0\"?>\n<!DOCTYPE i:component [\n<!ENTITY a0 \"ha\">\n";
    for (int i = 1; i < 12; ++i) {
        const QByteArray entity = "&a" + QByteArray::number(i - 1) + ';';
        laughs += "<!ENTITY a" + QByteArray::number(i) + " \"" + entity.repeated(10) + "\">\n";
    }
    laughs += "]>\n<i:component>&a11;</i:component>\n";
    QTest::newRow("refused-11 a billion laughs") << laughs << 2;
    QTest::newRow("refused-12 an external entity")
        << QByteArray("<?xml version=\"1.0\"?>\n<!DOCTYPE c [<!ENTITY x SYSTEM \"/etc/passwd\">]>\n"
                      "<c>&x;</c>\n")
        << 2;
    QTest::newRow("refused-13 a hundred thousand levels")
        << opening + QByteArray("<i:x>").repeated(100'000) << 3;
    QTest::newRow("refused-14 a hundred thousand attributes") << [] {
        QByteArray document = opening + "<i:vendor";
        for (int i = 0; i < 100'000; ++i)
            document += " a" + QByteArray::number(i) + "=''";
        return document + "/>" + closing;
    }() << 3;
}

void tst_ComponentRuns::refused()
{
    QFETCH(const QByteArray, document);
    QFETCH(const int, line);
    const QString path = program->write(u"my [component] $x.xml"_s, document);
    const Ended ended = tryToOpen(path);
    QCOMPARE(ended.status, 0);
    const QByteArray reason = "Error: " + path.toUtf8() + ':' + QByteArray::number(line) + ": ";
    QVERIFY2(ended.err.startsWith(reason) || ended.err.contains('\n' + reason),
             ended.err.constData());
    QVERIFY2(ended.err.size() < 2000, "the reason is longer than anyone reads");
    const QList<QByteArray> lines = ended.out.split('\n');
    QCOMPARE(lines[0], "Failed to parse design from \"" + path.toUtf8() + '"');
    QCOMPARE(lines[1], "<>");
    QVERIFY2(lines[2].toInt() < 400, lines[2].constData());
    QCOMPARE(Program::read(path), document);
    QVERIFY(QDir(program->session + u"/Designs"_s).isEmpty());
}

void tst_ComponentRuns::noFile_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("nofile-1 a folder") << u"home"_s;
    QTest::newRow("nofile-2 missing") << u"none.xml"_s;
    QTest::newRow("nofile-3 a device") << u"zero"_s;
}

void tst_ComponentRuns::noFile()
{
    QFETCH(const QString, name);
    const QString path = program->path(name);
    QVERIFY(QFile::link(u"/dev/zero"_s, program->path(u"zero"_s)));
    const Ended ended = tryToOpen(path);
    QCOMPARE(ended.status, 0);
    QVERIFY2(ended.err.startsWith("Error: " + path.toUtf8()), ended.err.constData());
    QVERIFY(ended.out.startsWith("Failed to parse design from \"" + path.toUtf8() + "\"\n<>\n"));
}

void tst_ComponentRuns::aHugeFile()
{
    QFile file(program->path(u"huge.xml"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.resize(qint64(5) * 1024 * 1024 * 1024));
    file.close();
    const Ended ended = tryToOpen(file.fileName());
    QCOMPARE(ended.status, 0);
    QVERIFY2(ended.err.startsWith("Error: " + file.fileName().toUtf8()), ended.err.constData());
    QCOMPARE(ended.out.split('\n')[1], "<>");
    QVERIFY2(ended.out.split('\n')[2].toInt() < 400, ended.out.constData());
    QCOMPARE(file.size(), qint64(5) * 1024 * 1024 * 1024);
}

void tst_ComponentRuns::aLargeComponent()
{
    QByteArray document = opening + identity + "<i:fileSets>\n<i:fileSet>\n<i:name>rtl</i:name>\n";
    for (int i = 0; i < 20'000; ++i) {
        document += "<i:file>\n<i:name>rtl/file_" + QByteArray::number(i)
            + ".v</i:name>\n<i:fileType>verilogSource</i:fileType>\n</i:file>\n";
    }
    document += "</i:fileSet>\n</i:fileSets>\n" + closing;
    const QString path = program->write(u"large.xml"_s, document);
    QCOMPARE(program->runScript("designs add [lindex $argv 0]\nputs [llength [files list]]\n"
                                "designs close_all\n",
                                {path}),
             (Ended {0, "20000\n", ""}));
    QCOMPARE(Program::read(path), document);
}

// A document that is refused changes nothing for the designs that are open.
void tst_ComponentRuns::whatIsOpenStays()
{
    const QString bad = program->write(u"bad.xml"_s, "<x");
    const QString good = program->write(u"good/component.xml"_s, opening + identity + closing);
    const Ended ended = program->runScript("designs add [lindex $argv 0]\nfiles add a.v\n"
                                           "catch {designs add [lindex $argv 1]}\n"
                                           "puts [designs list]\nputs [files list]\n",
                                           {good, bad});
    QCOMPARE(ended.status, 0);
    QCOMPARE(ended.out, "\"v.l.n.1\"\n\"" + program->path(u"good/a.v"_s).toUtf8() + "\"\n");
    QVERIFY(Program::read(good).contains("<i:name>a.v</i:name>"));
}

GUILESS_TEST_CLASS(tst_ComponentRuns)
#include "tst_ComponentRuns.moc"
