#include "SessionFixture.h"
#include "tests/TestClass.h"

#include <MorvalenCore/BuildConfiguration.h>
#include <MorvalenCore/BuildMonitor.h>
#include <MorvalenCore/Cleaner.h>

#include <QFile>
#include <QSettings>
#include <QTest>
#include <QTimer>

#include <functional>

using namespace Qt::Literals::StringLiterals;
using namespace MorvalenCore;
using MorvalenCore::Interfaces::IDesign;

namespace {

// A component of the 2014 generation with files in the set "sources" and our own extensions.
QByteArray component(const QByteArray &files, const QByteArray &configurations,
                     const QByteArray &version = "1.0", const QByteArray &attributes = {})
{
    return R"(<?xml version="1.0" encoding="UTF-8"?>
<ipxact:component xmlns:ipxact="http://www.accellera.org/XMLSchema/IPXACT/1685-2014">
  <ipxact:vendor>v</ipxact:vendor>
  <ipxact:library>l</ipxact:library>
  <ipxact:name>soft</ipxact:name>
  <ipxact:version>)"
        + version + R"(</ipxact:version>
  <ipxact:fileSets>
    <ipxact:fileSet>
      <ipxact:name>sources</ipxact:name>)"
        + files + R"(
    </ipxact:fileSet>
  </ipxact:fileSets>
  <ipxact:parameters>
    <ipxact:parameter><ipxact:name>WIDTH</ipxact:name><ipxact:value>8</ipxact:value></ipxact:parameter>
  </ipxact:parameters>
  <ipxact:vendorExtensions>
    <mv:design xmlns:mv="urn:morvalen:host:1")"
        + attributes + R"(>
      <mv:buildConfigurations>)"
        + configurations + R"(
      </mv:buildConfigurations>
    </mv:design>
  </ipxact:vendorExtensions>
</ipxact:component>
)";
}

QByteArray file(const QByteArray &name, const QByteArray &more = {})
{
    return "<ipxact:file><ipxact:name>" + name
        + "</ipxact:name><ipxact:fileType>cSource</ipxact:fileType>" + more + "</ipxact:file>";
}

QByteArray buildCommand(const QByteArray &command, const QByteArray &flags,
                        const QByteArray &target)
{
    return "<ipxact:buildCommand><ipxact:command>" + command + "</ipxact:command><ipxact:flags>"
        + flags + "</ipxact:flags>"
        + (target.isEmpty() ? QByteArray()
                            : "<ipxact:targetName>" + target + "</ipxact:targetName>")
        + "</ipxact:buildCommand>";
}

QByteArray configuration(const QByteArray &name, const QByteArray &inside)
{
    return "<mv:buildConfiguration name=\"" + name + "\">" + inside + "</mv:buildConfiguration>";
}

QByteArray step(const QByteArray &name, const QByteArray &command, const QByteArray &input = {},
                const QByteArray &output = {})
{
    return "<mv:step name=\"" + name + "\"><mv:command>" + command + "</mv:command>"
        + (input.isEmpty() ? QByteArray() : "<mv:input>" + input + "</mv:input>")
        + (output.isEmpty() ? QByteArray() : "<mv:output>" + output + "</mv:output>")
        + "</mv:step>";
}

const QByteArray copyStep = step("copy", "cp $(INPUTS) $(OUTPUTS)", "a.c", "$(TARGET_PATH)/copy.c");

bool isAlive(const QByteArray &id)
{
    const QByteArray stat =
        SessionFixture::read(u"/proc/%1/stat"_s.arg(QString::fromLatin1(id.trimmed())));
    return !stat.isEmpty() && !stat.contains(") Z ");
}

// Runs as long as the file that it makes is there.
const QByteArray waitingStep = step("slow", "touch there; while [ -e there ]; do sleep 0.01; done");

// Calls once, from the event loop, when a file has appeared.
class OnceThere
{
public:
    OnceThere(const QString &path, const std::function<void()> &call)
    {
        timer.callOnTimeout(&timer, [this, path, call] {
            if (!QFile::exists(path))
                return;
            timer.stop();
            call();
        });
        timer.start(5);
    }

private:
    QTimer timer;
};

const QString title = u"The build \"Main\" of design \"soft\""_s;

} // namespace

// Build configurations of designs on disk.
class tst_BuildConfiguration : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { session.reset(); }

    void listsStepsInTheOrderOfExecution();
    void listsStepsAsTheyAreWhenTheyCannotBeRun();
    void givesMacros();
    void runsAndNotesWhatItMade();
    void notesTheVersionThatMadeAFile();
    void notesWhatAnEarlierSessionMade();
    void isCleaned();
    void runsBuildCommandsOfFiles();
    void runsOverANode();
    void runsThroughTheLauncherOfTheSettings();
    void failsWithTheNameOfTheStep();
    void keepsFilesThatNoBuildMade_data();
    void keepsFilesThatNoBuildMade();
    void keepsAFileAmongThoseThatABuildMade();
    void refusesWhatCannotBePlanned_data();
    void refusesWhatCannotBePlanned();
    void usesAnotherTargetPath();
    void saysThatTheTargetPathCannotBeUsed();
    void writesOutsideOnlyWhereTheUserAllowsIt_data();
    void writesOutsideOnlyWhereTheUserAllowsIt();
    void writesNothingThroughALinkThatAStepHasMade();
    void saysThatAVariableOfTheTargetPathIsNotSet();
    void runsDry();
    void refreshes();
    void refreshesWithoutATrace();
    void saysWhatItCannotRefresh();
    void refusesASecondRun();
    void refusesADryRunWhileItRuns();
    void refusesARunWhileItLooks();
    void cancels();
    void tellsTheMonitor();
    void endsWhenItsDesignIsClosed();
    void runsForAReadOnlyDesign();
    void staysAsItIsInTheFile();

private:
    // Opens a component with one configuration named Main; its file a.c is on disk.
    BuildConfiguration *open(const QByteArray &steps, const QByteArray &files = file("a.c"));
    BuildConfiguration *openComponent(const QByteArray &document);
    QString inDesign(const QString &name) const { return session->path(u"soft/"_s + name); }
    bool exists(const QString &name) const { return QFile::exists(inDesign(name)); }
    QByteArray content(const QString &name) const { return SessionFixture::read(inDesign(name)); }
    QString versionOf(const QString &name) const
    {
        const DesignFile *found = design->fileByActualPath(inDesign(name), false);
        return found ? found->generatedVersion() : u"(no file)"_s;
    }
    // The log without what steps printed.
    QStringList ownMessages() const;

    std::unique_ptr<SessionFixture> session;
    IDesign *design = nullptr;
};

void tst_BuildConfiguration::init()
{
    session = std::make_unique<SessionFixture>();
    SessionFixture::write(inDesign(u"a.c"_s), "a");
}

BuildConfiguration *tst_BuildConfiguration::openComponent(const QByteArray &document)
{
    SessionFixture::write(inDesign(u"component.xml"_s), document);
    design = session->open(inDesign(u"component.xml"_s));
    session->takeLog();
    return design ? design->activeBuildConfiguration() : nullptr;
}

BuildConfiguration *tst_BuildConfiguration::open(const QByteArray &steps, const QByteArray &files)
{
    return openComponent(component(files, configuration("Main", steps)));
}

QStringList tst_BuildConfiguration::ownMessages() const
{
    QStringList own = session->takeLog();
    own.removeIf([](const QString &message) { return !message.contains(u"soft\""_s); });
    return own;
}

void tst_BuildConfiguration::listsStepsInTheOrderOfExecution()
{
    BuildConfiguration *main =
        open(step("link", "x", "o", "p") + step("test", "x") + step("compile", "x", "a.c", "o"));
    QVERIFY(main);
    QCOMPARE(main->stepNamesInOrder(-1), QStringList({u"test"_s, u"compile"_s, u"link"_s}));
    QCOMPARE(main->stepNamesInOrder(0), QStringList());
    QCOMPARE(main->stepNamesInOrder(2), QStringList({u"test"_s, u"compile"_s}));
    QCOMPARE(main->stepNamesInOrder(9), QStringList({u"test"_s, u"compile"_s, u"link"_s}));
    QCOMPARE(session->takeLog(), QStringList());
}

void tst_BuildConfiguration::listsStepsAsTheyAreWhenTheyCannotBeRun()
{
    BuildConfiguration *main = open(step("b", "x", "1", "2") + step("a", "x", "2", "1"));
    QVERIFY(main);
    QCOMPARE(main->stepNamesInOrder(-1), QStringList({u"b"_s, u"a"_s}));
}

void tst_BuildConfiguration::givesMacros()
{
    BuildConfiguration *main = open("<mv:macro name=\"FLAGS\">-O2 $(WARN) $(date)</mv:macro>"
                                    "<mv:macro name=\"WARN\">-W$(WIDTH)</mv:macro>"
                                    "<mv:macro name=\"DESIGN_NAME\">hidden</mv:macro>"
                                    "<mv:macro name=\"ROUND\">$(ROUND)</mv:macro>");
    QVERIFY(main);
    const QHash<QString, QString> some =
        main->propertyManager()->macroValues(ConfigurationMacros | DesignMacros);
    QCOMPARE(some.value(u"FLAGS"_s), u"-O2 -W8 $(date)"_s);
    QCOMPARE(some.value(u"WIDTH"_s), u"8"_s);
    QCOMPARE(some.value(u"DESIGN_NAME"_s), u"hidden"_s);
    QCOMPARE(some.value(u"TARGET_PATH"_s), inDesign(u"build/Main"_s));
    QCOMPARE(some.value(u"ROUND"_s), u"$(ROUND)"_s);
    QVERIFY(!some.contains(u"INPUTS"_s));
    const QHash<QString, QString> all =
        main->propertyManager()->macroValues(StepMacros | ConfigurationMacros | DesignMacros);
    QCOMPARE(all.size(), some.size() + 3);
    QCOMPARE(main->propertyManager()->macroValues(DesignMacros).value(u"DESIGN_NAME"_s), u"soft"_s);
}

void tst_BuildConfiguration::runsAndNotesWhatItMade()
{
    BuildConfiguration *main = open(copyStep);
    QVERIFY(main);
    QCOMPARE(main->runState(), BuildConfiguration::Idle);
    QVERIFY(main->run(true, false));
    QCOMPARE(main->runState(), BuildConfiguration::Completed);
    QCOMPARE(content(u"build/Main/copy.c"_s), QByteArray("a"));
    QCOMPARE(
        session->takeLog(),
        QStringList({u"Info: [1/1] copy"_s, u"Info: %1 is complete, steps run: 1"_s.arg(title)}));
    QCOMPARE(versionOf(u"build/Main/copy.c"_s), u"1.0"_s);
    QCOMPARE(versionOf(u"a.c"_s), QString());
    QCOMPARE(design->fileByActualPath(inDesign(u"build/Main/copy.c"_s), false)->node(),
             u"generated"_s);
    QVERIFY(!design->isModified());

    design = session->reopen(design);
    QVERIFY(design);
    QCOMPARE(versionOf(u"build/Main/copy.c"_s), u"1.0"_s);
    main = design->activeBuildConfiguration();
    session->takeLog();
    QVERIFY(main->run(true, false));
    QCOMPARE(session->takeLog(), QStringList({u"Info: %1 is up to date"_s.arg(title)}));
    QVERIFY(!design->isModified());
}

void tst_BuildConfiguration::notesTheVersionThatMadeAFile()
{
    const QByteArray steps = configuration(
        "Main", copyStep + step("other", "cp b.c $(OUTPUTS)", "b.c", "build/Main/other.c"));
    SessionFixture::write(inDesign(u"b.c"_s), "b");
    BuildConfiguration *main = openComponent(component(file("a.c") + file("b.c"), steps));
    QVERIFY(main && main->run(true, false));
    session->closeAll();

    QByteArray document = content(u"component.xml"_s);
    document.replace("<ipxact:version>1.0<", "<ipxact:version>2.0<");
    QTest::qWait(20);
    SessionFixture::write(inDesign(u"b.c"_s), "B");
    main = openComponent(document);
    QVERIFY(main && main->run(true, false));
    QCOMPARE(versionOf(u"build/Main/copy.c"_s), u"1.0"_s);
    QCOMPARE(versionOf(u"build/Main/other.c"_s), u"2.0"_s);
}

void tst_BuildConfiguration::notesWhatAnEarlierSessionMade()
{
    const QByteArray document = component(file("a.c"), configuration("Main", copyStep));
    BuildConfiguration *main = openComponent(document);
    QVERIFY(main && main->run(true, false));
    session->closeAll();

    // A build that was killed has not noted what it made.
    QVERIFY(QFile::remove(inDesign(u"build/Main/.morvalen_outputs"_s)));
    main = openComponent(document);
    QCOMPARE(versionOf(u"build/Main/copy.c"_s), u"(no file)"_s);
    QVERIFY(main->run(true, false));
    QCOMPARE(session->takeLog(), QStringList({u"Info: %1 is up to date"_s.arg(title)}));
    QCOMPARE(versionOf(u"build/Main/copy.c"_s), u"1.0"_s);
}

void tst_BuildConfiguration::isCleaned()
{
    SessionFixture::write(inDesign(u"build/Main/mine.txt"_s), "mine");
    BuildConfiguration *main =
        open(copyStep + step("again", "cp $(INPUTS) $(OUTPUTS)", "build/Main/copy.c", "again.c"));
    QVERIFY(main && main->run(true, false));

    DesignCleanParameters parameters;
    parameters.grouping.setGeneratedItemsOnly(true);
    parameters.grouping.setVersionCurrent(true);
    parameters.grouping.setVersionsPrevious(false);
    QString report;
    QVERIFY2(Cleaner().cleanDesign(design, parameters, &report), qPrintable(report));
    QCOMPARE(report,
             u"Cleaned 2 of 2 files of design \"soft\"\nDeleted \"%1\"\nDeleted \"%2\""_s.arg(
                 inDesign(u"build/Main/copy.c"_s), inDesign(u"again.c"_s)));
    QVERIFY(!exists(u"build/Main/copy.c"_s));
    QVERIFY(!exists(u"again.c"_s));
    QVERIFY(exists(u"a.c"_s));
    QVERIFY(exists(u"build/Main/mine.txt"_s));

    session->takeLog();
    QVERIFY(main->run(true, false));
    QCOMPARE(ownMessages(), QStringList({u"Info: %1 is complete, steps run: 2"_s.arg(title)}));
    QVERIFY(exists(u"again.c"_s));
}

void tst_BuildConfiguration::runsBuildCommandsOfFiles()
{
    SessionFixture::write(inDesign(u"it's $x.c"_s), "odd");
    openComponent(component(
        file("a.c", buildCommand("cat", "-- -- &gt; obj/a.o &lt;", "obj/a.o").replace("-- -- ", ""))
            + file("it's $x.c", buildCommand("cp", "-t out", "out/it's $x.c")) + file("b.c"),
        configuration("Default",
                      "<mv:macro name=\"X\">1</mv:macro>" + step("first", "mkdir -p out"))));
    QVERIFY(design);
    QCOMPARE(design->buildConfigurationNames(), QStringList({u"Default"_s}));
    BuildConfiguration *standard = design->activeBuildConfiguration();
    QCOMPARE(standard->stepNamesInOrder(-1),
             QStringList({u"first"_s, u"obj/a.o"_s, u"out/it's $x.c"_s}));
    QVERIFY2(standard->run(true, false), qPrintable(session->takeLog().join(u'\n')));
    QCOMPARE(content(u"obj/a.o"_s), QByteArray("a"));
    QCOMPARE(content(u"out/it's $x.c"_s), QByteArray("odd"));
    QCOMPARE(versionOf(u"obj/a.o"_s), u"1.0"_s);
}

void tst_BuildConfiguration::runsOverANode()
{
    SessionFixture::write(inDesign(u"b c.c"_s), "b");
    BuildConfiguration *main =
        open(step("join", "cat $(INPUTS) &gt; $(OUTPUTS)", "node:sources", "all.c"),
             file("a.c") + file("b c.c") + file("all.c"));
    QVERIFY(main);
    QVERIFY2(main->run(true, false), qPrintable(session->takeLog().join(u'\n')));
    QCOMPARE(content(u"all.c"_s), QByteArray("ab"));
    QCOMPARE(versionOf(u"all.c"_s), u"1.0"_s);
    QCOMPARE(design->fileByActualPath(inDesign(u"all.c"_s), false)->node(), u"sources"_s);
    QVERIFY(main->run(true, false));
    QCOMPARE(content(u"all.c"_s), QByteArray("ab"));

    QVERIFY(design->removeFile(inDesign(u"b c.c"_s)));
    QVERIFY(main->run(true, false));
    QCOMPARE(content(u"all.c"_s), QByteArray("a"));
}

void tst_BuildConfiguration::runsThroughTheLauncherOfTheSettings()
{
    SessionFixture::write(inDesign(u"farm"_s), "#!/bin/sh\necho \"$*\" >> farm.log\nexec \"$@\"\n");
    QFile::setPermissions(inDesign(u"farm"_s), QFile::ReadOwner | QFile::ExeOwner);
    BuildConfiguration *main =
        open(copyStep + step("two", "cat a.c; cp a.c b.c", "a.c", "b.c") + step("three", "ls"));
    QVERIFY(main);
    QSettings settings(SessionFixture::manager()->settingsFileName(), QSettings::IniFormat);
    settings.setValue(u"Builds/launcher"_s, u"./farm"_s);
    settings.sync();
    QVERIFY(main->run(true, false));
    QList<QByteArray> lines = content(u"farm.log"_s).split('\n');
    std::sort(lines.begin(), lines.end());
    QCOMPARE(lines,
             QList<QByteArray>(
                 {"", "/bin/sh -c cat a.c; cp a.c b.c", "cp a.c build/Main/copy.c", "ls"}));
}

void tst_BuildConfiguration::failsWithTheNameOfTheStep()
{
    BuildConfiguration *main = open(step("bad step", "echo wrong; false", "a.c", "o"));
    QVERIFY(main);
    QVERIFY(!main->run(true, false));
    QCOMPARE(main->runState(), BuildConfiguration::Failed);
    QCOMPARE(
        session->takeLog(),
        QStringList({u"Info: [1/1] bad step"_s, u"Error: FAILED: %1 "_s.arg(inDesign(u"o"_s)),
                     u"Error: cd %1 || exit; echo wrong; false"_s.arg(session->path(u"soft"_s)),
                     u"Error: wrong"_s, u"Error: %1 failed in \"bad step\""_s.arg(title)}));
    QCOMPARE(versionOf(u"o"_s), u"(no file)"_s);
}

void tst_BuildConfiguration::keepsFilesThatNoBuildMade_data()
{
    QTest::addColumn<QByteArray>("output");
    QTest::newRow("keep-1 a file of the design") << QByteArray("a.c");
    QTest::newRow("keep-2 a file beside them") << QByteArray("README");
    QTest::newRow("keep-3 the component file") << QByteArray("component.xml");
    QTest::newRow("keep-4 a file in the target path") << QByteArray("build/Main/notes");
}

void tst_BuildConfiguration::keepsFilesThatNoBuildMade()
{
    QFETCH(const QByteArray, output);
    SessionFixture::write(inDesign(u"README"_s), "read me");
    SessionFixture::write(inDesign(u"build/Main/notes"_s), "notes");
    BuildConfiguration *main = open(step("careless", "echo x &gt; $(OUTPUTS)", {}, output));
    QVERIFY(main);
    const QByteArray before = content(QString::fromUtf8(output));
    for (const bool onlyOutdated : {true, false}) {
        QVERIFY(!main->run(onlyOutdated, false));
        QCOMPARE(main->runState(), BuildConfiguration::Failed);
        QCOMPARE(
            session->takeLog(),
            QStringList(
                {u"Error: %1 cannot be run: The step \"careless\" would overwrite \"%2\", "
                 u"which no build has made"_s.arg(title, inDesign(QString::fromUtf8(output)))}));
        QCOMPARE(content(QString::fromUtf8(output)), before);
    }
}

// Beside files that builds have made.
void tst_BuildConfiguration::keepsAFileAmongThoseThatABuildMade()
{
    BuildConfiguration *main = open(copyStep);
    QVERIFY(main && main->run(true, false));
    session->closeAll();
    SessionFixture::write(inDesign(u"build/Main/notes"_s), "mine");
    main = open(copyStep + step("careless", "echo x &gt; $(OUTPUTS)", {}, "build/Main/notes"));
    QVERIFY(main && !main->run(true, false));
    QCOMPARE(
        session->takeLog(),
        QStringList({u"Error: %1 cannot be run: The step \"careless\" would overwrite \"%2\", "
                     u"which no build has made"_s.arg(title, inDesign(u"build/Main/notes"_s))}));
    QCOMPARE(content(u"build/Main/notes"_s), QByteArray("mine"));
}

void tst_BuildConfiguration::refusesWhatCannotBePlanned_data()
{
    QTest::addColumn<QByteArray>("steps");
    QTest::addColumn<QString>("reason");
    QTest::newRow("plan-1 a cycle")
        << step("a", "x", "1", "2") + step("b", "x", "2", "1")
        << u"The steps wait for each other: \"a\" waits for \"b\" waits for \"a\""_s;
    QTest::newRow("plan-2 an unknown node")
        << step("a", "x", "node:rtl")
        << u"The step \"a\" cannot be run: The design has no node \"rtl\""_s;
    QTest::newRow("plan-3 an endless macro")
        << "<mv:macro name=\"M\">$(M)</mv:macro>" + step("a", "$(M)")
        << u"The step \"a\" cannot be run: The macro \"M\" refers to itself"_s;
}

void tst_BuildConfiguration::refusesWhatCannotBePlanned()
{
    QFETCH(const QByteArray, steps);
    QFETCH(const QString, reason);
    BuildConfiguration *main = open(steps);
    QVERIFY(main);
    const QStringList expected {u"Error: %1 cannot be run: %2"_s.arg(title, reason)};
    QVERIFY(!main->run(true, false));
    QCOMPARE(session->takeLog(), expected);
    QCOMPARE(main->runState(), BuildConfiguration::Failed);
    main->refresh();
    QCOMPARE(session->takeLog(), expected);
    QCOMPARE(main->runState(), BuildConfiguration::Idle);
    QVERIFY(!main->run(true, true));
    QCOMPARE(session->takeLog(), expected);
    QVERIFY(!exists(u"build"_s));
}

void tst_BuildConfiguration::usesAnotherTargetPath()
{
    BuildConfiguration *main = open(copyStep);
    QVERIFY(main);
    main->setTargetPath(session->path(u"else where"_s));
    QVERIFY2(main->run(true, false), qPrintable(session->takeLog().join(u'\n')));
    QCOMPARE(SessionFixture::read(session->path(u"else where/copy.c"_s)), QByteArray("a"));
    main->setTargetPath(u"out/now"_s);
    QVERIFY(main->run(true, false));
    QCOMPARE(content(u"out/now/copy.c"_s), QByteArray("a"));
    QVERIFY(!exists(u"build"_s));
}

void tst_BuildConfiguration::saysThatTheTargetPathCannotBeUsed()
{
    BuildConfiguration *main = open(copyStep);
    QVERIFY(main);
    main->setTargetPath(u"a.c/out"_s);
    QVERIFY(!main->run(true, false));
    QCOMPARE(session->takeLog(),
             QStringList({u"Error: The target path \"%1\" cannot be made: Not a directory"_s.arg(
                              inDesign(u"a.c/out"_s)),
                          u"Error: %1 failed"_s.arg(title)}));
    main->setTargetPath(u"out"_s);
    QVERIFY(main->run(true, false));
}

void tst_BuildConfiguration::writesOutsideOnlyWhereTheUserAllowsIt_data()
{
    QTest::addColumn<QString>("targetPath");
    QTest::addColumn<QString>("place");
    QTest::newRow("outside-1 an absolute path") << u"DIR/else/out"_s << u"else/out"_s;
    QTest::newRow("outside-2 folders up") << u"../else/out"_s << u"else/out"_s;
    QTest::newRow("outside-3 a link in the folder") << u"way/out"_s << u"else/out"_s;
    QTest::newRow("outside-4 the link itself") << u"way"_s << u"else"_s;
    QTest::newRow("outside-5 a name that begins like the folder's")
        << u"../software/out"_s << u"software/out"_s;
}

namespace {

void setTargetFolders(const QStringList &folders)
{
    QSettings settings(MorvalenCore::DesignManager::instance()->settingsFileName(),
                       QSettings::IniFormat);
    settings.setValue(u"Builds/target_folders"_s,
                      folders.isEmpty() ? QVariant() : QVariant(folders));
}

} // namespace

// What a component file names, or a link that came with it.
void tst_BuildConfiguration::writesOutsideOnlyWhereTheUserAllowsIt()
{
    QFETCH(QString, targetPath);
    QFETCH(QString, place);
    targetPath.replace(u"DIR"_s, session->path(QString()).chopped(1));
    place = session->path(place);
    QVERIFY(QDir().mkpath(session->path(u"else"_s)));
    QVERIFY(QDir().mkpath(inDesign(QString())));
    QVERIFY(QFile::link(session->path(u"else"_s), inDesign(u"way"_s)));
    const QByteArray main =
        configuration("Main", copyStep)
            .replace("name=\"Main\"", "name=\"Main\" targetPath=\"" + targetPath.toUtf8() + '"');
    BuildConfiguration *build = openComponent(component(file("a.c"), main));
    QVERIFY(build);
    session->takeLog();
    const QString refusal =
        u"Error: %1 cannot be run: The target path \"%2\" leads out of the working folder, to "
        "\"%3\"; the setting target_folders of the group Builds can allow that"_s.arg(
            title, targetPath, place);
    QVERIFY(!build->run(true, false));
    QVERIFY(!build->run(true, true));
    build->refresh();
    QCOMPARE(session->takeLog(), QStringList({refusal, refusal, refusal}));
    QCOMPARE(QDir(session->path(u"else"_s)).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList());

    setTargetFolders({u"/nowhere"_s, session->path(u"else"_s), session->path(u"software"_s)});
    QVERIFY2(build->run(true, false), qPrintable(session->takeLog().join(u'\n')));
    QVERIFY(QFile::exists(place + u"/copy.c"_s));
    setTargetFolders({});
    // A folder that the program has written is its own.
    QVERIFY2(build->run(true, false), qPrintable(session->takeLog().join(u'\n')));
}

void tst_BuildConfiguration::writesNothingThroughALinkThatAStepHasMade()
{
    QVERIFY(QDir().mkpath(session->path(u"else"_s)));
    const QString swap = u"touch $(OUTPUTS); mv build/Main build/moved; ln -s %1 build/Main"_s.arg(
        session->path(u"else"_s));
    BuildConfiguration *main = open(step("swap", swap.toUtf8().constData(), "", "made"));
    QVERIFY(main);
    QVERIFY(main->run(true, false));
    QVERIFY(!QFile::exists(session->path(u"else/.morvalen_outputs"_s)));
    QCOMPARE(session->takeLog().filter(u"noted"_s),
             QStringList({u"Warning: What the build \"Main\" has made cannot be noted: The target "
                          "path \"%1\" leads out of the working folder, to \"%2\"; the setting "
                          "target_folders of the group Builds can allow that"_s.arg(
                              inDesign(u"build/Main"_s), session->path(u"else"_s))}));
}

void tst_BuildConfiguration::saysThatAVariableOfTheTargetPathIsNotSet()
{
    BuildConfiguration *main = open(copyStep);
    QVERIFY(main);
    main->setTargetPath(u"$NOT_SET_AT_ALL/out"_s);
    QVERIFY(!main->run(true, false));
    QCOMPARE(session->takeLog(),
             QStringList({u"Error: %1 cannot be run: \"$NOT_SET_AT_ALL/out\" names the environment "
                          u"variable \"NOT_SET_AT_ALL\", which is not set"_s.arg(title)}));
    qputenv("NOT_SET_AT_ALL", session->path(u"set"_s).toUtf8());
    const bool ran = main->run(true, false);
    qunsetenv("NOT_SET_AT_ALL");
    QVERIFY(ran);
    QVERIFY(QFile::exists(session->path(u"set/out/copy.c"_s)));
}

void tst_BuildConfiguration::runsDry()
{
    BuildConfiguration *main = open(copyStep + step("report", "touch reported"));
    QVERIFY(main);
    QVERIFY(main->run(true, true));
    QCOMPARE(session->takeLog(),
             QStringList({u"Info: Would run \"copy\""_s, u"Info: Would run \"report\""_s}));
    QCOMPARE(main->runState(), BuildConfiguration::Idle);
    QVERIFY(!exists(u"build"_s));
    QVERIFY(main->run(true, false));
    session->takeLog();
    QVERIFY(main->run(true, true));
    QCOMPARE(session->takeLog(), QStringList({u"Info: Would run \"report\""_s}));
    QCOMPARE(main->runState(), BuildConfiguration::Completed);
}

void tst_BuildConfiguration::refreshes()
{
    BuildConfiguration *main =
        open(copyStep
             + step("more", "cp $(INPUTS) $(OUTPUTS)", "build/Main/copy.c", "build/Main/more.c"));
    QVERIFY(main && main->run(true, false));
    session->takeLog();
    main->refresh();
    QCOMPARE(main->runState(), BuildConfiguration::Idle);
    QCOMPARE(main->outdatedStepNames(), QStringList());
    QCOMPARE(session->takeLog(), QStringList({u"Info: %1 has 0 outdated of 2 steps"_s.arg(title)}));
    QVERIFY(QFile::remove(inDesign(u"build/Main/more.c"_s)));
    main->refresh();
    QCOMPARE(main->outdatedStepNames(), QStringList({u"more"_s}));
    QTest::qWait(20);
    SessionFixture::write(inDesign(u"a.c"_s), "new");
    main->refresh();
    QCOMPARE(main->outdatedStepNames(), QStringList({u"copy"_s, u"more"_s}));
    QCOMPARE(content(u"build/Main/copy.c"_s), QByteArray("a"));
    QVERIFY(main->run(true, false));
    QCOMPARE(main->outdatedStepNames(), QStringList());
}

void tst_BuildConfiguration::refreshesWithoutATrace()
{
    BuildConfiguration *main = open(copyStep);
    QVERIFY(main);
    main->refresh();
    QCOMPARE(main->outdatedStepNames(), QStringList({u"copy"_s}));
    QCOMPARE(session->takeLog(), QStringList({u"Info: %1 has 1 outdated of 1 steps"_s.arg(title)}));
    QVERIFY(!exists(u"build"_s));
    QVERIFY(!design->isModified());
}

void tst_BuildConfiguration::saysWhatItCannotRefresh()
{
    BuildConfiguration *main = open(copyStep);
    QVERIFY(main);
    const QString theirs = inDesign(u"build/Main/build.ninja"_s);
    SessionFixture::write(theirs, "rule theirs\n");
    main->refresh();
    QCOMPARE(
        session->takeLog(),
        QStringList({u"Error: \"%1\" is not a file of Morvalen's; choose another target path"_s.arg(
            theirs)}));
    QCOMPARE(SessionFixture::read(theirs), QByteArray("rule theirs\n"));
    QCOMPARE(main->outdatedStepNames(), QStringList());
    QCOMPARE(main->runState(), BuildConfiguration::Idle);
    QVERIFY(!main->run(true, true));
}

void tst_BuildConfiguration::refusesASecondRun()
{
    BuildConfiguration *main = open(waitingStep);
    QVERIFY(main);
    bool second = true;
    const OnceThere thenRun(inDesign(u"there"_s), [&] {
        QCOMPARE(main->runState(), BuildConfiguration::Running);
        second = main->run(true, false);
        main->refresh();
        QCOMPARE(main->runState(), BuildConfiguration::Running);
        QFile::remove(inDesign(u"there"_s));
    });
    QVERIFY(main->run(true, false));
    QVERIFY(!second);
    QCOMPARE(session->takeLog().filter(u"already"_s),
             QStringList({u"Error: %1 is running already"_s.arg(title)}));
}

void tst_BuildConfiguration::refusesADryRunWhileItRuns()
{
    BuildConfiguration *main = open(waitingStep);
    QVERIFY(main);
    bool second = true;
    const OnceThere thenRun(inDesign(u"there"_s), [&] {
        second = main->run(true, true);
        QCOMPARE(main->runState(), BuildConfiguration::Running);
        // The run is still known as the one that is under way, and can be cancelled.
        main->cancel();
    });
    QVERIFY(!main->run(true, false));
    QVERIFY(!second);
    QCOMPARE(main->runState(), BuildConfiguration::Cancelled);
    QCOMPARE(session->takeLog().filter(u"already"_s),
             QStringList({u"Error: %1 is running already"_s.arg(title)}));
}

void tst_BuildConfiguration::refusesARunWhileItLooks()
{
    BuildConfiguration *main = open(copyStep);
    QVERIFY(main && main->run(true, false));
    session->takeLog();
    int refused = 0;
    QTimer::singleShot(0, main, [&] {
        refused += !main->run(true, false);
        refused += !main->run(true, true);
        main->refresh();
    });
    main->refresh();
    QCOMPARE(refused, 2);
    const QString busy = u"Error: %1 is running already"_s.arg(title);
    QCOMPARE(session->takeLog(),
             QStringList({busy, busy, u"Info: %1 has 0 outdated of 1 steps"_s.arg(title)}));
    QTimer::singleShot(
        0, main, [this] { SessionFixture::manager()->closeDesign(design->id(u"."_s), false); });
    main->refresh();
    QCOMPARE(SessionFixture::manager()->openDesignIds(), QStringList());
}

void tst_BuildConfiguration::cancels()
{
    BuildConfiguration *main =
        open(copyStep + step("long", "touch there; sleep 1000", "build/Main/copy.c", "o"));
    QVERIFY(main);
    main->cancel();
    QTimer poll;
    connect(&poll, &QTimer::timeout, &poll, [&] {
        if (exists(u"there"_s))
            main->cancel();
    });
    poll.start(5);
    QVERIFY(!main->run(true, false));
    QCOMPARE(main->runState(), BuildConfiguration::Cancelled);
    QCOMPARE(ownMessages(), QStringList({u"Warning: %1 was cancelled"_s.arg(title)}));
    QCOMPARE(versionOf(u"build/Main/copy.c"_s), u"1.0"_s);
    QCOMPARE(versionOf(u"o"_s), u"(no file)"_s);
}

void tst_BuildConfiguration::tellsTheMonitor()
{
    BuildMonitor monitor;
    BuildMonitor::setInstance(&monitor);
    BuildConfiguration *main = open(copyStep);
    QVERIFY(main);
    QStringList events;
    connect(&monitor, &BuildMonitor::started, &monitor, [&](BuildConfiguration *configuration) {
        events += u"started "_s + configuration->configurationName()
            + BuildConfiguration::runStateToString(configuration->runState());
        QCOMPARE(monitor.running(), QList<BuildConfiguration *>({main}));
    });
    connect(&monitor, &BuildMonitor::progressed, &monitor,
            [&](BuildConfiguration *, int done, int total, const QString &name) {
                events += u"%1/%2 %3"_s.arg(done).arg(total).arg(name);
            });
    connect(&monitor, &BuildMonitor::ended, &monitor, [&](BuildConfiguration *configuration) {
        events += u"ended "_s + BuildConfiguration::runStateToString(configuration->runState());
        QCOMPARE(monitor.running(), QList<BuildConfiguration *>());
    });
    QVERIFY(main->run(true, false));
    main->refresh();
    QCOMPARE(events, QStringList({u"started MainRunning"_s, u"1/1 copy"_s, u"ended Completed"_s}));
}

void tst_BuildConfiguration::endsWhenItsDesignIsClosed()
{
    BuildConfiguration *main = open(step("long", "echo $$ &gt; pid; touch there; sleep 1000"));
    QVERIFY(main);
    QTimer poll;
    connect(&poll, &QTimer::timeout, &poll, [&] {
        if (!exists(u"there"_s))
            return;
        poll.stop();
        QVERIFY(SessionFixture::manager()->closeDesign(design->id(u"."_s), false));
        QVERIFY(!isAlive(content(u"pid"_s)));
    });
    poll.start(5);
    QVERIFY(!main->run(true, false));
    QCOMPARE(SessionFixture::manager()->openDesignIds(), QStringList());
    QCOMPARE(ownMessages(), QStringList({u"Warning: %1 was cancelled"_s.arg(title)}));
}

void tst_BuildConfiguration::runsForAReadOnlyDesign()
{
    BuildConfiguration *main = openComponent(
        component(file("a.c"), configuration("Main", copyStep), "1.0", " readOnly=\"true\""));
    QVERIFY(main);
    QVERIFY(design->isReadOnly());
    QVERIFY(main->run(true, false));
    QCOMPARE(
        session->takeLog(),
        QStringList({u"Info: [1/1] copy"_s, u"Info: %1 is complete, steps run: 1"_s.arg(title)}));
    QVERIFY(exists(u"build/Main/copy.c"_s));
    QCOMPARE(versionOf(u"build/Main/copy.c"_s), u"1.0"_s);
    QTest::qWait(20);
    SessionFixture::write(inDesign(u"a.c"_s), "new");
    QVERIFY(main->run(true, false));
    QCOMPARE(content(u"build/Main/copy.c"_s), QByteArray("new"));
    session->closeAll();
    main = openComponent(content(u"component.xml"_s));
    QVERIFY(main->run(false, false));
}

void tst_BuildConfiguration::staysAsItIsInTheFile()
{
    const QByteArray document = component(file("a.c"), configuration("Main", copyStep));
    BuildConfiguration *main = openComponent(document);
    QVERIFY(main);
    main->refresh();
    main->run(true, true);
    main->stepNamesInOrder(-1);
    session->closeAll();
    QCOMPARE(content(u"component.xml"_s), document);
}

TEST_CLASS(tst_BuildConfiguration)
#include "tst_BuildConfiguration.moc"
