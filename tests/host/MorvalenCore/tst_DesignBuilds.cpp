#include "SessionFixture.h"
#include "tests/TestClass.h"

#include <MorvalenCore/BuildConfiguration.h>

#include <QPointer>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

using namespace Qt::Literals::StringLiterals;
using namespace MorvalenCore;
using MorvalenCore::Interfaces::IDesign;

namespace {

const BuildDescription tested {
    u"Debug"_s,
    u"out dir"_s,
    {{u"CC"_s, u"gcc"_s}, {u"FLAGS"_s, u"-g \"x\" & <y>"_s}},
    {{u"compile"_s, u"$(CC) -c $(INPUTS)\necho done"_s, {u"node:files"_s, u" a"_s}, {u"a.o"_s}},
     {u"test"_s, u"true"_s, {}, {}}},
};

// A design whose only file brings a build command.
const QByteArray withBuildCommand =
    "<i:component xmlns:i=\"http://www.accellera.org/XMLSchema/IPXACT/1685-2014\"><i:vendor>v"
    "</i:vendor><i:library>l</i:library><i:name>demo</i:name><i:version>1</i:version>"
    "  <i:fileSets><i:fileSet><i:name>sources</i:name><i:file><i:name>a.c</i:name>"
    "<i:fileType>cSource</i:fileType><i:buildCommand><i:command>cc</i:command><i:flags>-c</i:flags>"
    "<i:targetName>a.o</i:targetName></i:buildCommand></i:file></i:fileSet></i:fileSets>"
    "</i:component>\n";

} // namespace

// Build configurations that are added, changed and removed.
class tst_DesignBuilds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { session.reset(); }

    void adds();
    void refusesNames_data();
    void refusesNames();
    void keepsWhatIsDescribed();
    void changesNothingForTheSame();
    void renamesTheActiveOne();
    void removes();
    void refusesToRemoveWhatRuns();
    void showsTheStepsOfFiles();
    void keepsDefaultForTheStepsOfFiles();
    void refusesTextsThatXmlCannotCarry();
    void refusesChangesOfAReadOnlyDesign();

private:
    BuildConfiguration *add(const QString &name)
    {
        return design->addBuildConfiguration(name, &error);
    }
    QByteArray savedFile()
    {
        return design->saveToComponentFile(&error)
            ? SessionFixture::read(design->componentFileName())
            : error.toUtf8();
    }
    void openWithBuildCommand()
    {
        SessionFixture::write(session->path(u"soft/component.xml"_s), withBuildCommand);
        design = session->open(session->path(u"soft/component.xml"_s));
    }

    std::unique_ptr<SessionFixture> session;
    IDesign *design = nullptr;
    QString error;
};

void tst_DesignBuilds::init()
{
    session = std::make_unique<SessionFixture>();
    design = session->create(u"d"_s);
    QVERIFY(design);
    error.clear();
    session->takeLog();
}

void tst_DesignBuilds::adds()
{
    QCOMPARE(design->buildConfigurationNames(), QStringList());
    QSignalSpy changes(SessionFixture::manager(), &DesignManager::designChanged);
    BuildConfiguration *debug = add(u"Debug"_s);
    BuildConfiguration *release = add(u"größer als 1.0"_s);
    QVERIFY(debug && release);
    QCOMPARE(changes.size(), 2);
    QCOMPARE(design->buildConfigurationNames(), QStringList({u"Debug"_s, u"größer als 1.0"_s}));
    QCOMPARE(design->activeBuildConfiguration(), debug);
    QCOMPARE(release->description(), (BuildDescription {u"größer als 1.0"_s, {}, {}, {}}));
    QCOMPARE(release->getTargetPath(), u"build/größer als 1.0"_s);
    QCOMPARE(release->stepNamesInOrder(-1), QStringList());
    QVERIFY(release->run(true, false));
    design = session->reopen(design);
    QCOMPARE(design->buildConfigurationNames(), QStringList({u"Debug"_s, u"größer als 1.0"_s}));
}

void tst_DesignBuilds::refusesNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::newRow("name-1 empty") << u""_s
                                  << u"The name of a build configuration cannot be empty"_s;
    QTest::newRow("name-2 a slash")
        << u"a/b"_s << u"A build configuration cannot have the name \"a/b\""_s;
    QTest::newRow("name-3 a dot") << u"."_s
                                  << u"A build configuration cannot have the name \".\""_s;
    QTest::newRow("name-4 two dots")
        << u".."_s << u"A build configuration cannot have the name \"..\""_s;
    QTest::newRow("name-5 a line break")
        << u"a\nb"_s << u"A build configuration cannot have the name \"a\nb\""_s;
    QTest::newRow("name-6 taken")
        << u"Debug"_s << u"The design \"d\" has a build configuration \"Debug\" already"_s;
}

void tst_DesignBuilds::refusesNames()
{
    QFETCH(QString, name);
    QFETCH(QString, text);
    QVERIFY(add(u"Debug"_s));
    BuildConfiguration *other = add(u"Other"_s);
    QVERIFY(other);
    const QByteArray before = savedFile();
    QVERIFY(!design->addBuildConfiguration(name, &error));
    QCOMPARE(error, text);
    error.clear();
    QVERIFY(!other->setDescription({name, {}, {}, {}}, &error));
    QCOMPARE(error, text);
    QCOMPARE(other->configurationName(), u"Other"_s);
    QVERIFY(!design->isModified());
    QCOMPARE(savedFile(), before);
    QCOMPARE(session->takeLog(), QStringList());
}

void tst_DesignBuilds::keepsWhatIsDescribed()
{
    BuildConfiguration *debug = add(u"Debug"_s);
    QVERIFY(debug);
    QVERIFY2(debug->setDescription(tested, &error), qPrintable(error));
    QCOMPARE(debug->description(), tested);
    QCOMPARE(debug->stepNamesInOrder(-1), QStringList({u"compile"_s, u"test"_s}));
    QCOMPARE(debug->propertyManager()->macroValues(ConfigurationMacros).value(u"FLAGS"_s),
             u"-g \"x\" & <y>"_s);
    design = session->reopen(design);
    QVERIFY(design);
    QCOMPARE(design->buildConfiguration(u"Debug"_s)->description(), tested);
}

void tst_DesignBuilds::changesNothingForTheSame()
{
    BuildConfiguration *debug = add(u"Debug"_s);
    QVERIFY(debug && debug->setDescription(tested, &error));
    savedFile();
    QSignalSpy changes(SessionFixture::manager(), &DesignManager::designChanged);
    QVERIFY(debug->setDescription(tested, &error));
    QVERIFY(!design->isModified());
    QCOMPARE(changes.size(), 0);
}

void tst_DesignBuilds::renamesTheActiveOne()
{
    QVERIFY(add(u"First"_s));
    BuildConfiguration *debug = add(u"Debug"_s);
    QVERIFY(debug);
    design->setActiveBuildConfiguration(debug);
    BuildDescription renamed = tested;
    renamed.name = u"Renamed"_s;
    QVERIFY(debug->setDescription(renamed, &error));
    QCOMPARE(design->activeBuildConfiguration(), debug);
    QCOMPARE(design->buildConfigurationNames(), QStringList({u"First"_s, u"Renamed"_s}));
    QCOMPARE(design->buildConfiguration(u"Debug"_s), nullptr);
    design = session->reopen(design);
    QCOMPARE(design->activeBuildConfiguration()->description(), renamed);
}

void tst_DesignBuilds::removes()
{
    const QByteArray before = savedFile();
    const QPointer<BuildConfiguration> first = add(u"First"_s);
    const QPointer<BuildConfiguration> debug = add(u"Debug"_s);
    QVERIFY(debug->setDescription(tested, &error));
    design->setActiveBuildConfiguration(debug);
    QVERIFY(design->removeBuildConfiguration(u"Debug"_s, &error));
    QVERIFY(!debug);
    QCOMPARE(design->activeBuildConfiguration(), first.data());
    QVERIFY(!design->removeBuildConfiguration(u"Debug"_s, &error));
    QCOMPARE(error, u"The design \"d\" has no build configuration \"Debug\" of its own"_s);
    QVERIFY(design->removeBuildConfiguration(u"First"_s, &error));
    QCOMPARE(design->activeBuildConfiguration(), nullptr);
    QCOMPARE(savedFile(), before);
}

void tst_DesignBuilds::refusesToRemoveWhatRuns()
{
    BuildConfiguration *debug = add(u"Debug"_s);
    QVERIFY(debug);
    const BuildDescription slow {u"Debug"_s, {}, {}, {{u"slow"_s, u"sleep 1000"_s, {}, {}}}};
    QVERIFY(debug->setDescription(slow, &error));
    QTimer::singleShot(0, debug, [&] {
        QCOMPARE(debug->runState(), BuildConfiguration::Running);
        QVERIFY(!design->removeBuildConfiguration(u"Debug"_s, &error));
        debug->cancel();
    });
    QVERIFY(!debug->run(true, false));
    QCOMPARE(error, u"The build \"Debug\" of design \"d\" is running"_s);
    QVERIFY(design->removeBuildConfiguration(u"Debug"_s, &error));
}

void tst_DesignBuilds::showsTheStepsOfFiles()
{
    openWithBuildCommand();
    BuildConfiguration *standard = design->buildConfiguration(u"Default"_s);
    QVERIFY(standard);
    QCOMPARE(standard->description(), (BuildDescription {u"Default"_s, {}, {}, {}}));
    QCOMPARE(standard->stepsOfFiles(),
             (QList<BuildStep> {
                 {u"a.o"_s, u"cc -c $(INPUTS)"_s, {session->path(u"soft/a.c"_s)}, {u"a.o"_s}}}));
    BuildConfiguration *own = add(u"Own"_s);
    QVERIFY(own);
    QCOMPARE(own->stepsOfFiles(), QList<BuildStep>());
}

void tst_DesignBuilds::keepsDefaultForTheStepsOfFiles()
{
    openWithBuildCommand();
    BuildConfiguration *standard = design->buildConfiguration(u"Default"_s);
    QVERIFY(!design->removeBuildConfiguration(u"Default"_s, &error));
    QCOMPARE(error, u"The design \"demo\" has no build configuration \"Default\" of its own"_s);
    QVERIFY(standard->setDescription({u"Mine"_s, {}, {}, {{u"s"_s, u"true"_s, {}, {}}}}, &error));
    QCOMPARE(design->buildConfigurationNames(), QStringList({u"Mine"_s, u"Default"_s}));
    QCOMPARE(standard->stepNamesInOrder(-1), QStringList({u"s"_s}));
    standard = design->buildConfiguration(u"Default"_s);
    QVERIFY(standard->setDescription({u"Default"_s, u"x"_s, {}, {}}, &error));
    QVERIFY(design->removeBuildConfiguration(u"Default"_s, &error));
    QCOMPARE(design->buildConfigurationNames(), QStringList({u"Mine"_s, u"Default"_s}));
    QCOMPARE(design->buildConfiguration(u"Default"_s)->getTargetPath(), u"build/Default"_s);
    design = session->reopen(design);
    QCOMPARE(design->buildConfigurationNames(), QStringList({u"Mine"_s, u"Default"_s}));
}

void tst_DesignBuilds::refusesTextsThatXmlCannotCarry()
{
    BuildConfiguration *debug = add(u"Debug"_s);
    QVERIFY(debug);
    BuildDescription bad = tested;
    bad.steps[1].command = u"a"_s + QChar(0x1b);
    QVERIFY(!debug->setDescription(bad, &error));
    QCOMPARE(error, u"The text holds the character U+001B, which XML cannot carry."_s);
    QCOMPARE(debug->description(), (BuildDescription {u"Debug"_s, {}, {}, {}}));
}

void tst_DesignBuilds::refusesChangesOfAReadOnlyDesign()
{
    BuildConfiguration *debug = add(u"Debug"_s);
    QVERIFY(debug);
    design->setReadOnly(true);
    const QString refusal = u"The design \"d\" is read-only"_s;
    QVERIFY(!design->addBuildConfiguration(u"New"_s, &error));
    QCOMPARE(error, refusal);
    error.clear();
    QVERIFY(!debug->setDescription(tested, &error));
    QCOMPARE(error, refusal);
    error.clear();
    QVERIFY(!design->removeBuildConfiguration(u"Debug"_s, &error));
    QCOMPARE(error, refusal);
    QCOMPARE(debug->description(), (BuildDescription {u"Debug"_s, {}, {}, {}}));
    QCOMPARE(design->buildConfigurationNames(), QStringList({u"Debug"_s}));
}

TEST_CLASS(tst_DesignBuilds)
#include "tst_DesignBuilds.moc"
