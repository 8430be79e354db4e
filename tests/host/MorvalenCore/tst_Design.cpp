#include "tests/host/MorvalenCore/SessionFixture.h"
#include "tests/TestClass.h"

#include <MorvalenCore/ChangeBracket.h>

#include <QScopeGuard>
#include <QSignalSpy>
#include <QTest>

#include <optional>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::BuildConfiguration;
using MorvalenCore::DesignManager;
using MorvalenCore::MacroMode;
using MorvalenCore::Interfaces::IDesign;

namespace {

const QByteArray withBuilds =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<ipxact:component xmlns:ipxact=\"http://www.accellera.org/XMLSchema/IPXACT/1685-2014\">\n"
    "  <ipxact:vendor>example.org</ipxact:vendor>\n"
    "  <ipxact:library>cores</ipxact:library>\n"
    "  <ipxact:name>uart</ipxact:name>\n"
    "  <ipxact:version>2.1</ipxact:version>\n"
    "  <ipxact:fileSets>\n"
    "    <ipxact:fileSet>\n"
    "      <ipxact:name>sources</ipxact:name>\n"
    "      <ipxact:file>\n"
    "        <ipxact:name>main.c</ipxact:name>\n"
    "        <ipxact:fileType>cSource</ipxact:fileType>\n"
    "        <ipxact:buildCommand>\n"
    "          <ipxact:command>cc</ipxact:command>\n"
    "          <ipxact:flags>-c -O2</ipxact:flags>\n"
    "          <ipxact:targetName>main.o</ipxact:targetName>\n"
    "        </ipxact:buildCommand>\n"
    "      </ipxact:file>\n"
    "    </ipxact:fileSet>\n"
    "  </ipxact:fileSets>\n"
    "  <ipxact:parameters>\n"
    "    <ipxact:parameter>\n"
    "      <ipxact:name>WIDTH</ipxact:name>\n"
    "      <ipxact:value>8</ipxact:value>\n"
    "    </ipxact:parameter>\n"
    "  </ipxact:parameters>\n"
    "  <ipxact:vendorExtensions>\n"
    "    <mv:design xmlns:mv=\"urn:morvalen:host:1\">\n"
    "      <mv:buildConfigurations active=\"Lint\">\n"
    "        <mv:buildConfiguration name=\"Synth\" targetPath=\"out/synth\">\n"
    "          <mv:macro name=\"MODE\">fast</mv:macro>\n"
    "          <mv:macro name=\"WIDTH\">16</mv:macro>\n"
    "          <mv:step name=\"map\"><mv:command>map</mv:command></mv:step>\n"
    "          <mv:step name=\"fit\"><mv:command>fit</mv:command></mv:step>\n"
    "        </mv:buildConfiguration>\n"
    "        <mv:buildConfiguration name=\"Lint\"/>\n"
    "      </mv:buildConfigurations>\n"
    "    </mv:design>\n"
    "  </ipxact:vendorExtensions>\n"
    "</ipxact:component>\n";

} // namespace

// A design as a whole: identity, state, saving, build configurations.
class tst_Design : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { session.emplace(); }
    void cleanup() { session.reset(); }

    void keepsItsTextsOverAReopening();
    void refusesTextsThatTheFileCannotCarry();
    void refusesAnEmptyName();
    void setsOnlyStructuresThatThereAre();
    void refusesEveryChangeButThatOfTheFlagWhenReadOnly();
    void isReadOnlyWhenTheFileCannotBeWritten();
    void tellsOfABusyState();
    void gathersChangesInProcessingCycles();
    void savesNothingThatIsNotChanged();
    void refusesToSaveOverWhatOthersWrote();
    void savesAgainWhenTheFileIsGone();
    void hasNoItemsWithoutAWorkingFolder();
    void offersTheDesignInterface();
    void listsBuildConfigurations();
    void choosesTheActiveBuildConfiguration();
    void givesMacrosByTheirOrigin();
    void changesTheTargetPath();
    void namesRunStates();

private:
    std::optional<SessionFixture> session;
};

void tst_Design::keepsItsTextsOverAReopening()
{
    IDesign *design = session->create(u"a"_s);
    const QString odd = u"one \"two\" <three> & %1 $x [y] {z}\n\U0001F600 ä"_s;
    design->setDescription(odd);
    design->setAuthor(u"Ann & Bob"_s);
    design->setVendor(u"a vendor.with dots"_s);
    design->setLibrary(u"lib"_s);
    design->setName(u"renamed"_s);
    design = session->reopen(design);
    QCOMPARE(design->description(), odd);
    QCOMPARE(design->author(), u"Ann & Bob"_s);
    QCOMPARE(design->id(u"/"_s), u"a vendor.with dots/lib/renamed/1/0"_s);
    QCOMPARE(design->designType(), u"Custom Design"_s);
    QCOMPARE(design->structureId(), u"Flat"_s);
    QCOMPARE(design->workingFolderPath(), session->designs(u"a"_s));
    design->setDescription(QString());
    design->setAuthor(QString());
    design = session->reopen(design);
    QCOMPARE(design->description(), QString());
    QCOMPARE(design->author(), QString());
}

void tst_Design::refusesTextsThatTheFileCannotCarry()
{
    IDesign *design = session->create(u"a"_s);
    for (const QString &odd : {QString(u"a"_s + QChar(0)), QString(QChar(0xd800)), u"\u0001"_s}) {
        design->setDescription(odd);
        design->setAuthor(odd);
        design->setVendor(odd);
        design->setLibrary(odd);
        design->setName(odd);
    }
    QCOMPARE(session->takeLog().size(), 15);
    QCOMPARE(design->id(u"."_s), u"local.global.a.1.0"_s);
    QCOMPARE(design->description(), QString());
    QVERIFY(!design->isModified());
}

void tst_Design::refusesAnEmptyName()
{
    IDesign *design = session->create(u"a"_s);
    design->setName(QString());
    QCOMPARE(design->name(), u"a"_s);
    QCOMPARE(session->takeLog().size(), 1);
    design->setVendor(QString());
    QCOMPARE(design->id(u"."_s), u".global.a.1.0"_s);
}

void tst_Design::setsOnlyStructuresThatThereAre()
{
    IDesign *design = session->create(u"a"_s);
    design->setStructureId(u"Hardware"_s);
    QCOMPARE(design->structureId(), u"Hardware"_s);
    design->setStructureId(u"Baroque"_s);
    QCOMPARE(design->structureId(), u"Hardware"_s);
    QCOMPARE(session->takeLog(),
             QStringList {u"Warning: There is no design structure \"Baroque\""_s});
}

void tst_Design::refusesEveryChangeButThatOfTheFlagWhenReadOnly()
{
    IDesign *design = session->create(u"a"_s);
    design->setReadOnly(true);
    QVERIFY(design->isReadOnly());
    design->setName(u"b"_s);
    design->setVendor(u"b"_s);
    design->setLibrary(u"b"_s);
    design->setDescription(u"b"_s);
    design->setAuthor(u"b"_s);
    design->setStructureId(u"Hardware"_s);
    QCOMPARE(session->takeLog(), QStringList(6, u"Warning: The design \"a\" is read-only"_s));
    QCOMPARE(design->id(u"."_s), u"local.global.a.1.0"_s);
    design = session->reopen(design);
    QVERIFY(design->isReadOnly());
    design->setReadOnly(false);
    design->setDescription(u"b"_s);
    QCOMPARE(design->description(), u"b"_s);
    design = session->reopen(design);
    QVERIFY(!design->isReadOnly());
}

void tst_Design::isReadOnlyWhenTheFileCannotBeWritten()
{
    const QString file = session->path(u"ip/component.xml"_s);
    SessionFixture::write(file, withBuilds);
    QVERIFY(QFile::setPermissions(file, QFile::ReadOwner));
    const auto restore =
        qScopeGuard([&] { QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner); });
    IDesign *design = session->open(file);
    // Root may write everything.
    QCOMPARE(design->isReadOnly(), geteuid() != 0);
    design->setDescription(u"x"_s);
    QCOMPARE(design->isModified(), geteuid() == 0);
    session->takeLog();
    design->setReadOnly(false);
    QCOMPARE(design->isReadOnly(), geteuid() != 0);
    QCOMPARE(session->takeLog().size(), geteuid() == 0 ? 0 : 1);
    QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner);
    design->setReadOnly(false);
    QVERIFY(!design->isReadOnly());
}

void tst_Design::tellsOfABusyState()
{
    IDesign *design = session->create(u"a"_s);
    QSignalSpy changed(session->manager(), &DesignManager::designChanged);
    QVERIFY(!design->isBusy());
    design->setBusy(true, QString(), true);
    QVERIFY(design->isBusy());
    QCOMPARE(changed.size(), 1);
    design->setBusy(true, QString(), true);
    design->setBusy(false, QString(), false);
    QVERIFY(!design->isBusy());
    QCOMPARE(changed.size(), 1);
    QVERIFY(!design->isModified());
}

void tst_Design::gathersChangesInProcessingCycles()
{
    IDesign *design = session->create(u"a"_s);
    QSignalSpy changed(session->manager(), &DesignManager::designChanged);
    design->startProcessingCycle();
    design->startProcessingCycle();
    design->setDescription(u"1"_s);
    design->setDescription(u"2"_s);
    design->endProcessingCycle(true);
    QCOMPARE(changed.size(), 0);
    design->endProcessingCycle(true);
    QCOMPARE(changed.size(), 1);
    design->endProcessingCycle(true);
    QCOMPARE(changed.size(), 1);
    design->startProcessingCycle();
    design->endProcessingCycle(true);
    QCOMPARE(changed.size(), 1);
    design->startProcessingCycle();
    design->setDescription(u"3"_s);
    design->endProcessingCycle(false);
    QCOMPARE(changed.size(), 1);
    design->setDescription(u"4"_s);
    QCOMPARE(changed.size(), 2);
}

void tst_Design::savesNothingThatIsNotChanged()
{
    IDesign *design = session->openComponent(withBuilds);
    QString error;
    QVERIFY(design->saveToComponentFile(&error));
    QCOMPARE(SessionFixture::read(design->componentFileName()), withBuilds);
    QCOMPARE(error, QString());
}

void tst_Design::refusesToSaveOverWhatOthersWrote()
{
    IDesign *design = session->openComponent(withBuilds);
    design->setDescription(u"mine"_s);
    const QByteArray theirs = QByteArray(withBuilds).replace("uart", "theirs");
    SessionFixture::write(design->componentFileName(), theirs);
    QString error;
    QVERIFY(!design->saveToComponentFile(&error));
    QVERIFY(error.contains(design->componentFileName()));
    QCOMPARE(SessionFixture::read(design->componentFileName()), theirs);
    QVERIFY(design->isModified());
}

void tst_Design::savesAgainWhenTheFileIsGone()
{
    IDesign *design = session->openComponent(withBuilds);
    const QString file = design->componentFileName();
    QVERIFY(QFile::remove(file));
    design->setDescription(u"mine"_s);
    QVERIFY(design->saveToComponentFile(nullptr));
    QVERIFY(SessionFixture::read(file).contains("mine"));

    QVERIFY(QDir(session->path(u"ip"_s)).removeRecursively());
    design->setDescription(u"again"_s);
    QString error;
    QVERIFY(!design->saveToComponentFile(&error));
    QVERIFY2(error.contains(file), qPrintable(error));
}

void tst_Design::hasNoItemsWithoutAWorkingFolder()
{
    std::unique_ptr<QObject> object(
        session->factory()->createInstance({u"Design Factory"_s, u"Custom Design"_s, u"a"_s}));
    auto *design = qobject_cast<IDesign *>(object.get());
    QString error;
    QVERIFY(!design->addFile(u"a.v"_s, QString(), true, &error));
    QCOMPARE(error, u"The design \"a\" has no working folder yet"_s);
    error.clear();
    QVERIFY(!design->addFolder(u"a"_s, &error));
    QCOMPARE(error, u"The design \"a\" has no working folder yet"_s);
    error.clear();
    QVERIFY(!design->saveToComponentFile(&error));
    QCOMPARE(error, u"The design \"a\" has no working folder yet"_s);
    QCOMPARE(design->componentFileName(), QString());
    QCOMPARE(design->workingFolderPath(), QString());
    QVERIFY(!design->assignPhysicalWorkingFolderPath(QString()));
    design->setDescription(u"kept"_s);
    design->setReadOnly(true);
    QVERIFY(design->assignPhysicalWorkingFolderPath(session->path(u"new/a"_s)));
    QCOMPARE(design->description(), u"kept"_s);
    QVERIFY(design->isReadOnly());
    QVERIFY(!design->assignPhysicalWorkingFolderPath(session->path(u"new/b"_s)));
    QVERIFY(!QFileInfo::exists(session->path(u"new/b"_s)));
}

void tst_Design::offersTheDesignInterface()
{
    IDesign *design = session->create(u"a"_s);
    QObject *object = design->objectBase();
    QCOMPARE(qobject_cast<IDesign *>(object), design);
    QVERIFY(object->inherits("MorvalenCore::Design"));
    QCOMPARE(object->objectName(), u"a"_s);
    QCOMPARE(std::as_const(*design).objectBase(), object);
}

void tst_Design::listsBuildConfigurations()
{
    const IDesign *design = session->openComponent(withBuilds);
    QVERIFY(design);
    QCOMPARE(design->buildConfigurationNames(),
             (QStringList {u"Synth"_s, u"Lint"_s, u"Default"_s}));
    const BuildConfiguration *synth = design->buildConfiguration(u"Synth"_s);
    QCOMPARE(synth->configurationName(), u"Synth"_s);
    QCOMPARE(synth->getTargetPath(), u"out/synth"_s);
    QCOMPARE(synth->runState(), BuildConfiguration::Idle);
    QCOMPARE(synth->stepNamesInOrder(-1), (QStringList {u"map"_s, u"fit"_s}));
    QCOMPARE(synth->stepNamesInOrder(1), QStringList {u"map"_s});
    QCOMPARE(synth->stepNamesInOrder(0), QStringList());
    QCOMPARE(design->buildConfiguration(u"Lint"_s)->getTargetPath(), u"build/Lint"_s);
    QCOMPARE(design->buildConfiguration(u"Default"_s)->stepNamesInOrder(-1),
             QStringList {u"main.o"_s});
    QVERIFY(!design->buildConfiguration(u"nobody"_s));
    QVERIFY(!design->buildConfiguration(QString()));
}

void tst_Design::choosesTheActiveBuildConfiguration()
{
    IDesign *design = session->openComponent(withBuilds);
    QCOMPARE(design->activeBuildConfiguration()->configurationName(), u"Lint"_s);
    design->setActiveBuildConfiguration(nullptr);
    QCOMPARE(design->activeBuildConfiguration()->configurationName(), u"Lint"_s);
    QVERIFY(!design->isModified());
    design->setActiveBuildConfiguration(design->buildConfiguration(u"Synth"_s));
    design = session->reopen(design);
    QCOMPARE(design->activeBuildConfiguration()->configurationName(), u"Synth"_s);

    design->setReadOnly(true);
    QVERIFY(design->saveToComponentFile(nullptr));
    design->setActiveBuildConfiguration(design->buildConfiguration(u"Lint"_s));
    QCOMPARE(design->activeBuildConfiguration()->configurationName(), u"Lint"_s);
    QVERIFY(!design->isModified());

    QVERIFY(!session->create(u"fresh"_s)->activeBuildConfiguration());
    QVERIFY(session->manager()->closeDesign(design->id(u"."_s), false));
    design = session->openComponent(QByteArray(withBuilds).replace(" active=\"Lint\"", ""));
    QCOMPARE(design->activeBuildConfiguration()->configurationName(), u"Synth"_s);
}

void tst_Design::givesMacrosByTheirOrigin()
{
    using namespace MorvalenCore;
    IDesign *design = session->openComponent(withBuilds);
    const BuildStepPropertyManager *macros =
        design->buildConfiguration(u"Synth"_s)->propertyManager();
    QHash<QString, QString> designs {{u"WIDTH"_s, u"8"_s},
                                     {u"DESIGN_NAME"_s, u"uart"_s},
                                     {u"DESIGN_VENDOR"_s, u"example.org"_s},
                                     {u"DESIGN_LIBRARY"_s, u"cores"_s},
                                     {u"DESIGN_VERSION"_s, u"2.1"_s},
                                     {u"DESIGN_ID"_s, u"example.org.cores.uart.2.1"_s},
                                     {u"DESIGN_FOLDER"_s, session->path(u"ip"_s)}};
    const QHash<QString, QString> configurations {
        {u"MODE"_s, u"fast"_s},
        {u"WIDTH"_s, u"16"_s},
        {u"CONFIGURATION"_s, u"Synth"_s},
        {u"TARGET_PATH"_s, session->path(u"ip/out/synth"_s)}};
    const QHash<QString, QString> steps {
        {u"STEP"_s, QString()}, {u"INPUTS"_s, QString()}, {u"OUTPUTS"_s, QString()}};
    QCOMPARE(macros->macroValues(DesignMacros), designs);
    QCOMPARE(macros->macroValues(ConfigurationMacros), configurations);
    QCOMPARE(macros->macroValues(StepMacros), steps);
    designs.insert(configurations);
    QCOMPARE(macros->macroValues(ConfigurationMacros | DesignMacros), designs);
    designs.insert(steps);
    QCOMPARE(macros->macroValues(MacroMode(7)), designs);
}

void tst_Design::changesTheTargetPath()
{
    IDesign *design = session->openComponent(withBuilds);
    design->buildConfiguration(u"Lint"_s)->setTargetPath(u"/tmp/$X/a"_s);
    design->buildConfiguration(u"Default"_s)->setTargetPath(u"else where"_s);
    design = session->reopen(design);
    QCOMPARE(design->buildConfiguration(u"Lint"_s)->getTargetPath(), u"/tmp/$X/a"_s);
    QCOMPARE(design->buildConfiguration(u"Default"_s)->getTargetPath(), u"else where"_s);
    QCOMPARE(design->buildConfiguration(u"Default"_s)->stepNamesInOrder(-1),
             QStringList {u"main.o"_s});
    design->buildConfiguration(u"Lint"_s)->setTargetPath(QString());
    QCOMPARE(design->buildConfiguration(u"Lint"_s)->getTargetPath(), u"build/Lint"_s);
    design->buildConfiguration(u"Synth"_s)->setTargetPath(u"zero"_s + QChar(0));
    QCOMPARE(design->buildConfiguration(u"Synth"_s)->getTargetPath(), u"out/synth"_s);

    design->setReadOnly(true);
    session->takeLog();
    design->buildConfiguration(u"Synth"_s)->setTargetPath(u"x"_s);
    QCOMPARE(design->buildConfiguration(u"Synth"_s)->getTargetPath(), u"out/synth"_s);
    QCOMPARE(session->takeLog(), QStringList {u"Warning: The design \"uart\" is read-only"_s});
}

void tst_Design::namesRunStates()
{
    const struct
    {
        BuildConfiguration::RunState state;
        QString name;
    } rows[] = {{BuildConfiguration::Idle, u"Idle"_s},
                {BuildConfiguration::Running, u"Running"_s},
                {BuildConfiguration::Completed, u"Completed"_s},
                {BuildConfiguration::Failed, u"Failed"_s},
                {BuildConfiguration::Cancelled, u"Cancelled"_s}};
    for (const auto &row : rows)
        QCOMPARE(BuildConfiguration::runStateToString(row.state), row.name);
}

TEST_CLASS(tst_Design)
#include "tst_Design.moc"
