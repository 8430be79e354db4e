#include "build/OutputRecord.h"
#include "tests/host/MorvalenCore/SessionFixture.h"
#include "tests/TestClass.h"

#include <MorvalenCore/BuildConfiguration.h>
#include <MorvalenCore/Cleaner.h>
#include <Qtilities/ObjectManager.h>

#include <QTest>

#include <sys/stat.h>

using namespace Qt::Literals::StringLiterals;
using namespace MorvalenCore;
using MorvalenCore::Interfaces::IDesign;
using Qtilities::Core::ObjectManager;
using Qtilities::Core::QtilitiesCategory;
using Qtilities::Core::Result;
using Qtilities::Core::SharedProperty;
using Qtilities::Core::Status;

namespace {

// A design whose configurations "Main" and "Other" copy a.txt.
QByteArray component(const QByteArray &version = "1.0", const QByteArray &files = {})
{
    QByteArray configurations;
    for (const QByteArray name : {"Main", "Other"})
        configurations += "<mv:buildConfiguration name=\"" + name
            + "\">"
              "<mv:step name=\"second\"><mv:command>cp $(INPUTS) $(OUTPUTS)</mv:command>"
              "<mv:input>$(TARGET_PATH)/b.c</mv:input><mv:output>$(TARGET_PATH)/a.c</mv:output>"
              "</mv:step><mv:step name=\"first\"><mv:command>cp $(INPUTS) $(OUTPUTS)</mv:command>"
              "<mv:input>a.txt</mv:input><mv:output>$(TARGET_PATH)/b.c</mv:output></mv:step>"
              "</mv:buildConfiguration>\n";
    QByteArray document =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<ipxact:component xmlns:ipxact=\"http://www.accellera.org/XMLSchema/IPXACT/1685-2014\">\n"
        "  <ipxact:vendor>v</ipxact:vendor>\n"
        "  <ipxact:library>l</ipxact:library>\n"
        "  <ipxact:name>soft</ipxact:name>\n"
        "  <ipxact:version>VERSION</ipxact:version>\n"
        "FILES  <ipxact:vendorExtensions>\n"
        "    <mv:design xmlns:mv=\"urn:morvalen:host:1\">\n"
        "      <mv:buildConfigurations>\n"
        "CONFIGURATIONS      </mv:buildConfigurations>\n"
        "    </mv:design>\n"
        "  </ipxact:vendorExtensions>\n"
        "</ipxact:component>\n";
    return document.replace("VERSION", version)
        .replace("FILES", files)
        .replace("CONFIGURATIONS", configurations);
}

} // namespace

// What builds have made is known from their target folders, and component files stay as they are.
class tst_BuildRecords : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { session.reset(); }

    void leavesTheComponentFileAlone();
    void findsTheRecordsOfAllConfigurations();
    void listsByNodesAndCategories();
    void movesWithTheDesign();
    void followsTheTargetPath();
    void readsWhatIsNotedInTheComponentFile();
    void forgetsWhatIsRemoved();
    void goesWhenAllIsCleaned();
    void entersTheComponentFileWhenItIsChanged_data();
    void entersTheComponentFileWhenItIsChanged();
    void staysOutOfAReadOnlyDesign();
    void passesOverWhatLiesElsewhere();
    void saysWhatIsWrongWithARecord_data();
    void saysWhatIsWrongWithARecord();
    void waitsForNoPipe();
    void writesAndReads();

private:
    bool open(const QByteArray &document = component());
    bool build(const QString &name = u"Main"_s) const
    {
        return design->buildConfiguration(name)->run(true, false);
    }
    QString inDesign(const QString &name) const { return session->path(u"soft/"_s + name); }
    QString record(const QString &name = u"Main"_s) const
    {
        return inDesign(u"build/%1/.morvalen_outputs"_s.arg(name));
    }
    QByteArray content(const QString &name) const { return SessionFixture::read(inDesign(name)); }
    DesignFile *file(const QString &name) const
    {
        return design->fileByActualPath(inDesign(name), false);
    }
    // Paths below the folder of the design.
    QStringList files(const QString &node = {}) const
    {
        QStringList paths;
        for (const DesignFile *listed : design->filesUnderNode(node, true))
            paths.append(listed->actualPath().mid(inDesign({}).size()));
        return paths;
    }

    std::unique_ptr<SessionFixture> session;
    IDesign *design = nullptr;
};

void tst_BuildRecords::init()
{
    session = std::make_unique<SessionFixture>();
    SessionFixture::write(inDesign(u"a.txt"_s), "a");
    QVERIFY(open());
}

bool tst_BuildRecords::open(const QByteArray &document)
{
    session->closeAll();
    SessionFixture::write(inDesign(u"component.xml"_s), document);
    session->takeLog();
    design = session->open(inDesign(u"component.xml"_s));
    return design != nullptr;
}

void tst_BuildRecords::leavesTheComponentFileAlone()
{
    const QDateTime before = QFileInfo(inDesign(u"component.xml"_s)).lastModified();
    QVERIFY(build());
    QVERIFY(!design->isModified());
    QVERIFY(QFile::remove(inDesign(u"a.txt"_s)));
    QVERIFY(!build());
    QVERIFY(!design->isModified());
    session->closeAll();
    QCOMPARE(content(u"component.xml"_s), component());
    QCOMPARE(QFileInfo(inDesign(u"component.xml"_s)).lastModified(), before);
    QCOMPARE(QDir(inDesign({})).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList({u"build"_s, u"component.xml"_s}));
}

void tst_BuildRecords::findsTheRecordsOfAllConfigurations()
{
    QVERIFY(build());
    QVERIFY(build(u"Other"_s));
    const QStringList made {u"build/Main/b.c"_s, u"build/Main/a.c"_s, u"build/Other/b.c"_s,
                            u"build/Other/a.c"_s};
    QCOMPARE(files(), made);
    design = session->reopen(design);
    QVERIFY(design);
    QCOMPARE(files(), made);
    for (const QString &name : made) {
        QVERIFY(file(name)->isGenerated());
        QCOMPARE(file(name)->generatedVersion(), u"1.0"_s);
        QVERIFY(file(name)->existsOnDisk());
    }
    QVERIFY(!design->isModified());
}

void tst_BuildRecords::listsByNodesAndCategories()
{
    QVERIFY(!design->hasNode(u"generated"_s));
    QCOMPARE(design->nodeNames(), QStringList());
    QVERIFY(build());
    const QStringList made {u"build/Main/b.c"_s, u"build/Main/a.c"_s};
    QCOMPARE(design->nodeNames(), QStringList(u"generated"_s));
    for (const QString &node : {u"generated"_s, u"Software"_s, u"Software::C"_s}) {
        QVERIFY(design->hasNode(node));
        QCOMPARE(files(node), made);
    }
    QCOMPARE(files(u"HDL"_s), QStringList());
    QVERIFY(!design->hasNode(u"HDL"_s));
    QCOMPARE(file(u"build/Main/a.c"_s)->node(), u"generated"_s);
    QCOMPARE(file(u"build/Main/a.c"_s)->category().toString(u"::"_s), u"Software::C"_s);
    QVERIFY(design->fileByActualPath(u"a.c"_s, true));
    QVERIFY(design->fileByActualPath(u"build/Main/a.c"_s, false));
    QString error;
    QVERIFY(!design->addFile(u"build/Main/a.c"_s, {}, true, &error));
    QCOMPARE(
        error,
        u"The design \"soft\" has the file \"%1\" already"_s.arg(inDesign(u"build/Main/a.c"_s)));
}

void tst_BuildRecords::movesWithTheDesign()
{
    QVERIFY(build());
    session->closeAll();
    QVERIFY(QDir().rename(inDesign({}), session->path(u"moved"_s)));
    design = session->open(session->path(u"moved/component.xml"_s));
    QVERIFY(design);
    const DesignFile *made =
        design->fileByActualPath(session->path(u"moved/build/Main/a.c"_s), false);
    QVERIFY(made && made->isGenerated());
    QVERIFY(build());
}

void tst_BuildRecords::followsTheTargetPath()
{
    QVERIFY(build());
    session->closeAll();
    QVERIFY(QDir().rename(inDesign(u"build/Main"_s), inDesign(u"elsewhere"_s)));
    QByteArray moved = SessionFixture::read(inDesign(u"elsewhere/.morvalen_outputs"_s));
    SessionFixture::write(inDesign(u"elsewhere/.morvalen_outputs"_s),
                          moved.replace("build/Main", "elsewhere"));
    QVERIFY(open());
    QCOMPARE(files(), QStringList());
    design->buildConfiguration(u"Main"_s)->setTargetPath(u"elsewhere"_s);
    QCOMPARE(files(), QStringList({u"elsewhere/b.c"_s, u"elsewhere/a.c"_s}));
}

// As earlier versions of this program noted it; a build changes no more there.
void tst_BuildRecords::readsWhatIsNotedInTheComponentFile()
{
    const QByteArray noted =
        component("2.0",
                  "  <ipxact:fileSets>\n"
                  "    <ipxact:fileSet>\n"
                  "      <ipxact:name>generated</ipxact:name>\n"
                  "      <ipxact:file>\n"
                  "        <ipxact:name>build/Main/b.c</ipxact:name>\n"
                  "        <ipxact:fileType>cSource</ipxact:fileType>\n"
                  "        <ipxact:vendorExtensions>\n"
                  "          <mv:item xmlns:mv=\"urn:morvalen:host:1\"><mv:generated by=\"Main\" "
                  "version=\"1.0\"/></mv:item>\n"
                  "        </ipxact:vendorExtensions>\n"
                  "      </ipxact:file>\n"
                  "    </ipxact:fileSet>\n"
                  "  </ipxact:fileSets>\n");
    SessionFixture::write(inDesign(u"build/Main/b.c"_s), "old");
    QVERIFY(open(noted));
    QCOMPARE(file(u"build/Main/b.c"_s)->generatedVersion(), u"1.0"_s);
    QVERIFY(build());
    QCOMPARE(file(u"build/Main/b.c"_s)->generatedVersion(), u"2.0"_s);
    QCOMPARE(files(u"generated"_s), QStringList({u"build/Main/b.c"_s, u"build/Main/a.c"_s}));
    QVERIFY(!design->isModified());
    design = session->reopen(design);
    QCOMPARE(content(u"component.xml"_s), noted);
    QCOMPARE(file(u"build/Main/b.c"_s)->generatedVersion(), u"2.0"_s);

    QVERIFY(design->removeFile(u"build/Main/b.c"_s));
    QVERIFY(design->isModified());
    design = session->reopen(design);
    QCOMPARE(files(), QStringList(u"build/Main/a.c"_s));
}

void tst_BuildRecords::forgetsWhatIsRemoved()
{
    QVERIFY(build());
    QVERIFY(design->removeFile(u"build/Main/a.c"_s));
    QVERIFY(!design->isModified());
    QCOMPARE(files(), QStringList(u"build/Main/b.c"_s));
    QVERIFY(!SessionFixture::read(record()).contains("build/Main/a.c"));
    design = session->reopen(design);
    QCOMPARE(files(), QStringList(u"build/Main/b.c"_s));
    QVERIFY(QFile::exists(inDesign(u"build/Main/a.c"_s)));
}

void tst_BuildRecords::goesWhenAllIsCleaned()
{
    QVERIFY(build());
    QVERIFY(build(u"Other"_s));
    DesignCleanParameters parameters;
    parameters.grouping.setGeneratedItemsOnly(true);
    parameters.grouping.setVersionCurrent(true);
    QString report;
    QVERIFY2(Cleaner().cleanDesign(design, parameters, &report), qPrintable(report));
    QVERIFY2(report.startsWith(u"Cleaned 4 of 4 files of design \"soft\"\n"_s), qPrintable(report));
    QVERIFY(!QFile::exists(record()));
    QVERIFY(!QFile::exists(record(u"Other"_s)));
    QVERIFY(!design->isModified());
    QCOMPARE(files(), QStringList());
}

void tst_BuildRecords::entersTheComponentFileWhenItIsChanged_data()
{
    QTest::addColumn<QString>("what");
    QTest::newRow("enter-1 a category") << u"category"_s;
    QTest::newRow("enter-2 a shared property") << u"property"_s;
    QTest::newRow("enter-3 a path") << u"path"_s;
}

void tst_BuildRecords::entersTheComponentFileWhenItIsChanged()
{
    QFETCH(const QString, what);
    QVERIFY(build());
    DesignFile *changed = file(u"build/Main/a.c"_s);
    QString name = u"build/Main/a.c"_s;
    if (what == u"category"_s) {
        QVERIFY(changed->setCategory(QtilitiesCategory::fromString(u"Mine"_s, u"::"_s)));
    } else if (what == u"property"_s) {
        QVERIFY(ObjectManager::setSharedProperty(changed, SharedProperty("note", u"kept"_s)));
    } else {
        name = u"build/Main/moved.c"_s;
        changed->setActualPath(inDesign(name));
    }
    QVERIFY(design->isModified());
    QCOMPARE(file(name), changed);
    QVERIFY(changed->isGenerated());
    design = session->reopen(design);
    QVERIFY(content(u"component.xml"_s).contains(name.toUtf8()));
    changed = file(name);
    QVERIFY(changed && changed->isGenerated());
    QCOMPARE(changed->generatedVersion(), u"1.0"_s);
    if (what == u"category"_s)
        QCOMPARE(changed->category().toString(u"::"_s), u"Mine"_s);
    if (what == u"property"_s)
        QCOMPARE(ObjectManager::getSharedProperty(changed, "note").value().toString(), u"kept"_s);
    QCOMPARE(files().size(), 2);
    QVERIFY(design->removeFile(name));
    QCOMPARE(files(), QStringList(u"build/Main/b.c"_s));
}

void tst_BuildRecords::staysOutOfAReadOnlyDesign()
{
    design->setReadOnly(true);
    QVERIFY(build());
    session->takeLog();
    DesignFile *made = file(u"build/Main/a.c"_s);
    QVERIFY(made && made->isGenerated());
    QVERIFY(!made->setCategory(QtilitiesCategory::fromString(u"Mine"_s, u"::"_s)));
    ObjectManager::setSharedProperty(made, SharedProperty("note", u"kept"_s));
    QVERIFY(!ObjectManager::propertyExists(made, "note"));
    QVERIFY(!design->removeFile(u"build/Main/a.c"_s));
    QCOMPARE(file(u"build/Main/a.c"_s), made);
    QVERIFY(SessionFixture::read(record()).contains("build/Main/a.c"));
}

// Whoever puts a record there must not get more deleted than what a build can make.
void tst_BuildRecords::passesOverWhatLiesElsewhere()
{
    SessionFixture::write(session->path(u"precious"_s), "x");
    SessionFixture::write(record(),
                          "{\"outputs\": [\n"
                          "        {\"path\": \"../precious\", \"version\": \"1.0\"}, {\"path\": "
                          "\"/etc/passwd\", \"version\": \"1.0\"},\n"
                          "        {\"path\": \"\", \"version\": \"1.0\"}, {\"path\": \".\", "
                          "\"version\": \"1.0\"}, {\"version\": \"1.0\"}, 7,\n"
                          "        {\"path\": \"build/x\", \"version\": \"1.0\"}, {\"path\": "
                          "\"build/../y\", \"version\": 2}]}");
    QVERIFY(open());
    QCOMPARE(files(), QStringList({u"build/x"_s, u"y"_s}));
    QCOMPARE(session->takeLog(), QStringList());
}

void tst_BuildRecords::saysWhatIsWrongWithARecord_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("reason");
    QTest::newRow("wrong-1 empty") << QByteArray() << u"illegal value"_s;
    QTest::newRow("wrong-2 cut off") << QByteArray("{\"outputs\": [") << u"unterminated array"_s;
    QTest::newRow("wrong-3 deep") << QByteArray(100'000, '[') << u"too deeply nested document"_s;
}

void tst_BuildRecords::saysWhatIsWrongWithARecord()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, reason);
    SessionFixture::write(record(), bytes);
    QVERIFY(open());
    QCOMPARE(session->takeLog(),
             QStringList(u"Warning: \"%1\" is no record of outputs: %2"_s.arg(record(), reason)));
    QCOMPARE(files(), QStringList());
    QVERIFY(build());
    QCOMPARE(files(), QStringList({u"build/Main/b.c"_s, u"build/Main/a.c"_s}));
    QVERIFY(open());
    QCOMPARE(files(), QStringList({u"build/Main/b.c"_s, u"build/Main/a.c"_s}));
}

void tst_BuildRecords::waitsForNoPipe()
{
    QVERIFY(QDir().mkpath(inDesign(u"build/Main"_s)));
    QCOMPARE(mkfifo(QFile::encodeName(record()).constData(), 0600), 0);
    QVERIFY(open());
    QCOMPARE(session->takeLog(),
             QStringList(u"Warning: Cannot read \"%1\": it is not a file"_s.arg(record())));
}

void tst_BuildRecords::writesAndReads()
{
    const OutputRecord written(inDesign(u"out"_s), inDesign(u"work"_s));
    QVERIFY(QDir().mkpath(inDesign(u"out"_s)));
    const QList<MadeOutput> outputs {{inDesign(u"work/größe \"𝄞\"'"_s), u"Main \\"_s, u"1.0"_s},
                                     {inDesign(u"out/b"_s), u"Other"_s, QString()}};
    QVERIFY(written.write(outputs).isOk());
    const Result<QList<MadeOutput>> read = written.read();
    QCOMPARE(read.status().text(), QString());
    QVERIFY(read.value() == outputs);
    QVERIFY(written.write({}).isOk());
    QVERIFY(!QFile::exists(inDesign(u"out/"_s + OutputRecord::fileName())));
    QVERIFY(written.read().value().isEmpty());
    QCOMPARE(OutputRecord(inDesign(u"none"_s), inDesign({})).write(outputs).kind(),
             Status::Kind::Io);
}

GUILESS_TEST_CLASS(tst_BuildRecords)
#include "tst_BuildRecords.moc"
