#include "tests/host/MorvalenCore/SessionFixture.h"
#include "tests/TestClass.h"

#include <MorvalenCore/ChangeBracket.h>
#include <MorvalenCore/DesignConstructor.h>
#include <MorvalenCore/ScriptManager.h>
#include <Qtilities/FactoryItem.h>

#include <QPointer>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>

#include <optional>
#include <sys/stat.h>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::ChangeBracket;
using MorvalenCore::DesignManager;
using MorvalenCore::DesignStructureManager;
using MorvalenCore::ScriptManager;
using MorvalenCore::Interfaces::IDesign;

namespace {

const QByteArray component =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<ipxact:component xmlns:ipxact=\"http://www.accellera.org/XMLSchema/IPXACT/1685-2014\">\n"
    "  <ipxact:vendor>example.org</ipxact:vendor>\n"
    "  <ipxact:library>cores</ipxact:library>\n"
    "  <ipxact:name>NAME</ipxact:name>\n"
    "  <ipxact:version>2.1</ipxact:version>\n"
    "</ipxact:component>\n";

QByteArray componentNamed(const QByteArray &name)
{
    return QByteArray(component).replace("NAME", name);
}

QString idOf(const IDesign *design) { return design ? design->id(u"."_s) : u"none"_s; }

class Thing : public QObject
{
public:
    explicit Thing(QObject *parent) : QObject(parent) { }
};

// Of a host that has no designs, but perhaps things.
class HostsManager : public DesignManager
{
public:
    explicit HostsManager(bool makesThings) : hasFactory(makesThings) { }

    QStringList openDesignIds() const override { return {}; }
    IDesign *design(const QString &) const override { return nullptr; }
    QList<IDesign *> activeDesigns() const override { return {}; }
    void setActiveDesign(const QString &) override { }
    const ObjectFactory *factory(const QString &tag) const override
    {
        static const Qtilities::Core::FactoryItem<QObject, Thing> things;
        return hasFactory && tag == u"thing" ? &things : nullptr;
    }

private:
    bool hasFactory;
};

} // namespace

// The open designs of a session.
class tst_DesignManager : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { session.emplace(); }
    void cleanup() { session.reset(); }

    void listsDesignsInTheOrderOfOpening();
    void makesTheOneBeforeActiveWhenTheActiveOneCloses();
    void forgetsADesignThatSomebodyDestroyed();
    void setsTheActiveDesignById();
    void knowsTypesPathsAndSettings();
    void writesTheDefaultVendorIntoANewSettingsFileOnly();
    void checksNames_data();
    void checksNames();
    void letsADesignKeepItsOwnName();
    void givesAReadOnlyDesignNoOtherName();
    void refusesASecondDesignOfAnId();
    void refusesARenamingThatMakesAnIdTwice();
    void comparesIdsWhole();
    void putsANewDesignOnDiskAtOnce();
    void takesBackTheFolderOfADesignThatWasNeverAttached();
    void leavesAloneWhatOthersPutIntoSuchAFolder();
    void refusesAFolderThatIsNotEmpty();
    void takesAnEmptyFolder();
    void opensAComponentWhereItLies();
    void refusesTheSameFileTwice_data();
    void refusesTheSameFileTwice();
    void saysWhyAFileDoesNotOpen_data();
    void saysWhyAFileDoesNotOpen();
    void savesWhatIsChangedWhenItCloses();
    void leavesAloneWhatIsNotChangedWhenItCloses();
    void backsUpWhatCannotBeSaved();
    void backsUpUnderALongName_data();
    void backsUpUnderALongName();
    void keepsADesignOpenThatCannotBeSavedAnywhere();
    void destroysClosedDesignsBetweenCommands();
    void deletesTheWorkingFolderBelowTheDesignsPath();
    void keepsAWorkingFolderElsewhere();
    void keepsAWorkingFolderThatHoldsAnotherOpenDesign();
    void keepsAWorkingFolderThatIsALink();
    void closesSeveralAndSaysWhetherAllWent();
    void writesACopyWithoutMovingTheDesign();
    void refusesToWriteOverAnotherOpenDesign();
    void savesAllDesignsBeforeTheEnd();
    void sendsEachSignalOnceForABracket();
    void sendsWhatAReplacedBracketHeldTogether();
    void tellsNothingOfADesignThatComesAndGoes();
    void forgetsADesignThatSomebodyElseDestroys_data();
    void forgetsADesignThatSomebodyElseDestroys();
    void tellsTheOldAndNewIdOfARenamedDesign();
    void keepsAClosedDesignAsLongAsACommandMayHoldIt();
    void remembersWhoAClosedDesignWas();
    void keepsAClosedDesignWhileTheBracketBreathes();
    void makesThingsByTheirTag();
    void warnsOfAFactoryThatIsLostOnly_data();
    void warnsOfAFactoryThatIsLostOnly();
    void completesTheFolderOfADesign();

private:
    std::optional<SessionFixture> session;
};

void tst_DesignManager::listsDesignsInTheOrderOfOpening()
{
    QVERIFY(session->create(u"b"_s));
    QVERIFY(session->create(u"a"_s));
    SessionFixture::write(session->path(u"c/component.xml"_s), componentNamed("c"));
    QVERIFY(session->open(session->path(u"c/component.xml"_s)));
    QCOMPARE(session->manager()->openDesignIds(),
             (QStringList {u"local.global.b.1.0"_s, u"local.global.a.1.0"_s,
                           u"example.org.cores.c.2.1"_s}));
}

void tst_DesignManager::makesTheOneBeforeActiveWhenTheActiveOneCloses()
{
    DesignManager *manager = session->manager();
    QVERIFY(manager->activeDesigns().isEmpty());
    for (const QString &name : {u"a"_s, u"b"_s, u"c"_s})
        QVERIFY(session->create(name));
    QCOMPARE(manager->activeDesigns().size(), 1);
    QCOMPARE(idOf(manager->activeDesigns().first()), u"local.global.c.1.0"_s);
    manager->setActiveDesign(u"local.global.a.1.0"_s);
    QVERIFY(manager->closeDesign(u"local.global.c.1.0"_s, false));
    QCOMPARE(idOf(manager->activeDesigns().first()), u"local.global.a.1.0"_s);
    QVERIFY(manager->closeDesign(u"local.global.a.1.0"_s, false));
    QCOMPARE(idOf(manager->activeDesigns().first()), u"local.global.b.1.0"_s);
    QVERIFY(manager->closeDesign(u"local.global.b.1.0"_s, false));
    QVERIFY(manager->activeDesigns().isEmpty());
}

void tst_DesignManager::forgetsADesignThatSomebodyDestroyed()
{
    QVERIFY(session->create(u"a"_s));
    IDesign *design = session->create(u"b"_s);
    delete design->objectBase();
    QCOMPARE(session->manager()->openDesignIds(), QStringList {u"local.global.a.1.0"_s});
    QCOMPARE(idOf(session->manager()->activeDesigns().first()), u"local.global.a.1.0"_s);
}

void tst_DesignManager::setsTheActiveDesignById()
{
    QVERIFY(session->create(u"a"_s));
    QVERIFY(session->create(u"b"_s));
    QSignalSpy activeChanged(session->manager(), &DesignManager::activeDesignChanged);
    session->manager()->setActiveDesign(u"nobody"_s);
    session->manager()->setActiveDesign(u"local.global.b.1.0"_s);
    QCOMPARE(activeChanged.size(), 0);
    session->manager()->setActiveDesign(u"local.global.a.1.0"_s);
    QCOMPARE(activeChanged.size(), 1);
    QCOMPARE(idOf(session->manager()->activeDesigns().first()), u"local.global.a.1.0"_s);
}

void tst_DesignManager::knowsTypesPathsAndSettings()
{
    const DesignManager *manager = session->manager();
    QCOMPARE(manager->designTypes(),
             (QStringList {u"Custom Design"_s, u"Hardware Design"_s, u"Software Design"_s}));
    QCOMPARE(manager->path(DesignManager::DesignsPath), session->path(u"session/Designs"_s));
    QCOMPARE(manager->path(DesignManager::BackupsPath), session->path(u"session/Backups"_s));
    QCOMPARE(manager->settingsFileName(), session->path(u"session/settings.ini"_s));
    QCOMPARE(manager->extensionWidgetContexts(), QStringList {u"Context.Designs"_s});
}

void tst_DesignManager::writesTheDefaultVendorIntoANewSettingsFileOnly()
{
    const auto vendor = [this] {
        QSettings settings(session->manager()->settingsFileName(), QSettings::IniFormat);
        settings.beginGroup(u"Designs"_s);
        settings.beginGroup(u"Environment"_s);
        return settings.value(u"organization_name"_s, u"nothing"_s).toString();
    };
    QCOMPARE(vendor(), u"local"_s);
    SessionFixture::write(session->path(u"session/settings.ini"_s), "[Other]\nkey=1\n");
    QCOMPARE(vendor(), u"nothing"_s);
}

void tst_DesignManager::checksNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("refusal");
    QTest::newRow("name-accepted-1 a letter") << u"u"_s << QString();
    QTest::newRow("name-accepted-2 an underscore first") << u"_1"_s << QString();
    QTest::newRow("name-accepted-3 all that may follow") << u"a1_-.B"_s << QString();
    QTest::newRow("name-accepted-4 letters of other scripts") << u"größe"_s << QString();
    QTest::newRow("name-refused-1 empty") << QString() << u"A design's name cannot be empty"_s;
    QTest::newRow("name-refused-2 a digit first")
        << u"1a"_s << u"The design name \"1a\" begins with \"1\" instead of a letter or \"_\""_s;
    QTest::newRow("name-refused-3 a dot first")
        << u".."_s << u"The design name \"..\" begins with \".\" instead of a letter or \"_\""_s;
    QTest::newRow("name-refused-4 a slash")
        << u"a/b"_s
        << u"The design name \"a/b\" holds \"/\", which is no letter, digit, \"_\", \"-\" or \".\""_s;
    QTest::newRow("name-refused-5 a blank")
        << u"a b"_s
        << u"The design name \"a b\" holds \" \", which is no letter, digit, \"_\", \"-\" or \".\""_s;
    QTest::newRow("name-refused-6 a zero")
        << QString(u"a"_s + QChar(0))
        << QString(u"The design name \"a"_s + QChar(0)
                   + u"\" holds U+0000, which is no letter, digit, \"_\", \"-\" or \".\""_s);
    QTest::newRow("name-refused-7 that of an open design")
        << u"taken"_s << u"A design named \"taken\" is open already"_s;
}

void tst_DesignManager::checksNames()
{
    QFETCH(QString, name);
    QFETCH(QString, refusal);
    QVERIFY(session->create(u"taken"_s));
    QString error;
    QCOMPARE(session->manager()->checkDesignName(name, &error, nullptr), refusal.isEmpty());
    QCOMPARE(error, refusal);
}

void tst_DesignManager::letsADesignKeepItsOwnName()
{
    const IDesign *a = session->create(u"a"_s);
    QVERIFY(session->create(u"b"_s));
    QString error;
    QVERIFY(session->manager()->checkDesignName(u"a"_s, &error, a));
    QVERIFY(!session->manager()->checkDesignName(u"b"_s, &error, a));
}

void tst_DesignManager::givesAReadOnlyDesignNoOtherName()
{
    IDesign *a = session->create(u"a"_s);
    a->setReadOnly(true);
    QString error;
    QVERIFY(!session->manager()->checkDesignName(u"b"_s, &error, a));
    QCOMPARE(error, u"The design \"a\" is read-only"_s);
    QVERIFY(session->manager()->checkDesignName(u"a"_s, &error, a));
    QVERIFY(session->manager()->checkDesignName(u"b"_s, &error, nullptr));
}

void tst_DesignManager::refusesASecondDesignOfAnId()
{
    SessionFixture::write(session->path(u"one/component.xml"_s), componentNamed("x"));
    SessionFixture::write(session->path(u"two/component.xml"_s), componentNamed("x"));
    QVERIFY(session->open(session->path(u"one/component.xml"_s)));
    session->takeLog();
    QVERIFY(!session->open(session->path(u"two/component.xml"_s)));
    QCOMPARE(
        session->takeLog(),
        QStringList {u"Error: A design with the id \"example.org.cores.x.2.1\" is open already"_s});
    QCOMPARE(session->manager()->openDesignIds().size(), 1);
}

void tst_DesignManager::refusesARenamingThatMakesAnIdTwice()
{
    IDesign *a = session->create(u"a"_s);
    QVERIFY(session->create(u"b"_s));
    session->takeLog();
    a->setName(u"b"_s);
    QCOMPARE(a->name(), u"a"_s);
    QCOMPARE(
        session->takeLog(),
        QStringList {u"Warning: A design with the id \"local.global.b.1.0\" is open already"_s});
    a->setLibrary(u"own"_s);
    a->setName(u"b"_s);
    QCOMPARE(session->manager()->openDesignIds(),
             (QStringList {u"local.own.b.1.0"_s, u"local.global.b.1.0"_s}));
    QCOMPARE(session->manager()->design(u"local.own.b.1.0"_s), a);
    QVERIFY(!session->manager()->design(u"local.global.a.1.0"_s));
}

void tst_DesignManager::comparesIdsWhole()
{
    IDesign *a = session->create(u"a"_s);
    IDesign *b = session->create(u"b.a"_s);
    a->setVendor(u"x"_s);
    a->setLibrary(u"y.b"_s);
    QCOMPARE(idOf(a), u"x.y.b.a.1.0"_s);
    b->setVendor(u"x"_s);
    session->takeLog();
    b->setLibrary(u"y"_s);
    QCOMPARE(idOf(b), u"x.global.b.a.1.0"_s);
    QCOMPARE(session->takeLog(),
             QStringList {u"Warning: A design with the id \"x.y.b.a.1.0\" is open already"_s});
}

void tst_DesignManager::putsANewDesignOnDiskAtOnce()
{
    const IDesign *design = session->create(u"uart"_s, u"Hardware Design"_s, u"Hardware"_s);
    QVERIFY(design);
    QCOMPARE(QDir(session->designs(u"uart"_s)).entryList(QDir::NoDotAndDotDot | QDir::AllEntries),
             (QStringList {u"component.xml"_s, u"constraints"_s, u"documents"_s, u"rtl"_s,
                           u"testbench"_s}));
    QStringList folders;
    for (const auto *folder : design->folders())
        folders << folder->actualPath();
    QCOMPARE(folders,
             (QStringList {session->designs(u"uart/rtl"_s), session->designs(u"uart/testbench"_s),
                           session->designs(u"uart/constraints"_s),
                           session->designs(u"uart/documents"_s)}));
    QCOMPARE(design->workingFolderPath(), session->designs(u"uart"_s));
    QCOMPARE(design->componentFileName(), session->designs(u"uart/component.xml"_s));
    QCOMPARE(design->designType(), u"Hardware Design"_s);
    QCOMPARE(design->structureId(), u"Hardware"_s);
    QCOMPARE(design->description(), QString());
    QCOMPARE(design->buildConfigurationNames(), QStringList());
    QVERIFY(!design->isModified());
    QVERIFY(design->hasNode(u"rtl"_s));
}

void tst_DesignManager::takesBackTheFolderOfADesignThatWasNeverAttached()
{
    {
        std::unique_ptr<QObject> object(
            session->factory()->createInstance({u"Design Factory"_s, u"Custom Design"_s, u"a"_s}));
        auto *design = qobject_cast<IDesign *>(object.get());
        QVERIFY(design->assignPhysicalWorkingFolderPath(session->designs(u"a"_s)));
        QVERIFY(QFileInfo::exists(session->designs(u"a/component.xml"_s)));
    }
    QVERIFY(!QFileInfo::exists(session->designs(u"a"_s)));
    QCOMPARE(session->takeLog(), QStringList());
}

void tst_DesignManager::leavesAloneWhatOthersPutIntoSuchAFolder()
{
    {
        std::unique_ptr<QObject> object(
            session->factory()->createInstance({u"Design Factory"_s, u"Custom Design"_s, u"a"_s}));
        auto *design = qobject_cast<IDesign *>(object.get());
        QVERIFY(design->assignPhysicalWorkingFolderPath(session->designs(u"a"_s)));
        SessionFixture::write(session->designs(u"a/files/mine.txt"_s), "mine");
    }
    QCOMPARE(SessionFixture::read(session->designs(u"a/files/mine.txt"_s)), "mine");
    QVERIFY(!QFileInfo::exists(session->designs(u"a/component.xml"_s)));
}

void tst_DesignManager::refusesAFolderThatIsNotEmpty()
{
    SessionFixture::write(session->designs(u"a/.hidden"_s), "mine");
    QVERIFY(!session->create(u"a"_s));
    QCOMPARE(
        session->takeLog(),
        QStringList {u"Error: The folder \"%1\" is not empty"_s.arg(session->designs(u"a"_s))});
    QCOMPARE(QDir(session->designs(u"a"_s))
                 .entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::Hidden),
             QStringList {u".hidden"_s});
}

void tst_DesignManager::takesAnEmptyFolder()
{
    QVERIFY(QDir().mkpath(session->designs(u"a"_s)));
    QVERIFY(session->create(u"a"_s));
    QVERIFY(QFileInfo::exists(session->designs(u"a/component.xml"_s)));
}

void tst_DesignManager::opensAComponentWhereItLies()
{
    SessionFixture::write(session->path(u"elsewhere/ip.xml"_s), componentNamed("ip"));
    const IDesign *design = session->open(session->path(u"elsewhere/ip.xml"_s));
    QVERIFY(design);
    QCOMPARE(idOf(design), u"example.org.cores.ip.2.1"_s);
    QCOMPARE(design->vendor(), u"example.org"_s);
    QCOMPARE(design->library(), u"cores"_s);
    QCOMPARE(design->name(), u"ip"_s);
    QCOMPARE(design->version(u"."_s), u"2.1"_s);
    QCOMPARE(design->version(u"_"_s), u"2_1"_s);
    QCOMPARE(design->workingFolderPath(), session->path(u"elsewhere"_s));
    QCOMPARE(design->designType(), u"Custom Design"_s);
    QCOMPARE(design->structureId(), QString());
    QVERIFY(!design->isModified());
    QCOMPARE(session->manager()->activeDesigns().first(), design);
}

void tst_DesignManager::refusesTheSameFileTwice_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("again");
    const QString file = u"one/component.xml"_s;
    QTest::newRow("twice-1 the folder by a link") << file << u"link/component.xml"_s;
    QTest::newRow("twice-2 the folder by a link first") << u"link/component.xml"_s << file;
    QTest::newRow("twice-3 the file by a link") << file << u"other/component.xml"_s;
    QTest::newRow("twice-4 the file by a link first") << u"other/component.xml"_s << file;
    QTest::newRow("twice-5 both") << u"link/component.xml"_s << u"other/component.xml"_s;
}

void tst_DesignManager::refusesTheSameFileTwice()
{
    QFETCH(const QString, first);
    QFETCH(const QString, again);
    const QString file = session->path(u"one/component.xml"_s);
    SessionFixture::write(file, componentNamed("x"));
    QVERIFY(QFile::link(session->path(u"one"_s), session->path(u"link"_s)));
    QVERIFY(QDir().mkpath(session->path(u"other"_s)));
    QVERIFY(QFile::link(file, session->path(u"other/component.xml"_s)));
    QVERIFY(session->open(session->path(first))->objectBase());
    session->manager()->activeDesigns().first()->setName(u"renamed"_s);
    session->takeLog();
    QVERIFY(!session->open(session->path(again)));
    QCOMPARE(session->takeLog(),
             QStringList {
                 u"Error: The component file \"%1\" is open already"_s.arg(session->path(again))});
}

void tst_DesignManager::saysWhyAFileDoesNotOpen_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("line");
    QTest::newRow("open-refused-1 an empty file") << QByteArray() << 1;
    QTest::newRow("open-refused-2 a torn file") << componentNamed("x").left(200) << 4;
    QTest::newRow("open-refused-3 another document") << QByteArray("<a>\n</a>") << 1;
}

void tst_DesignManager::saysWhyAFileDoesNotOpen()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, line);
    const QString file = session->path(u"bad/component.xml"_s);
    SessionFixture::write(file, bytes);
    QVERIFY(!session->open(file));
    const QStringList log = session->takeLog();
    QCOMPARE(log.size(), 1);
    QVERIFY2(log.first().startsWith(u"Error: %1:%2: "_s.arg(file).arg(line)),
             qPrintable(log.first()));
    QCOMPARE(SessionFixture::read(file), bytes);

    QVERIFY(!session->open(QString()));
    QCOMPARE(session->takeLog(), QStringList {u"Error: No file is named to open a design from"_s});
    QVERIFY(session->manager()->openDesignIds().isEmpty());
}

void tst_DesignManager::savesWhatIsChangedWhenItCloses()
{
    IDesign *design = session->create(u"a"_s);
    design->setDescription(u"changed"_s);
    QVERIFY(design->isModified());
    design = session->reopen(design);
    QCOMPARE(design->description(), u"changed"_s);
}

void tst_DesignManager::leavesAloneWhatIsNotChangedWhenItCloses()
{
    const IDesign *design = session->create(u"a"_s);
    const QByteArray file = QFile::encodeName(design->componentFileName());
    struct stat before = {};
    struct stat after = {};
    QCOMPARE(::stat(file.constData(), &before), 0);
    QVERIFY(session->manager()->closeDesign(idOf(design), false));
    QCOMPARE(::stat(file.constData(), &after), 0);
    QCOMPARE(after.st_ino, before.st_ino);
}

void tst_DesignManager::backsUpWhatCannotBeSaved()
{
    IDesign *design = session->create(u"a"_s);
    design->setDescription(u"mine"_s);
    SessionFixture::write(session->designs(u"a/component.xml"_s), componentNamed("theirs"));
    session->takeLog();
    QVERIFY(session->manager()->closeDesign(idOf(design), false));
    QCOMPARE(SessionFixture::read(session->designs(u"a/component.xml"_s)),
             componentNamed("theirs"));
    const QDir backups(session->path(u"session/Backups"_s));
    QCOMPARE(backups.entryList(QDir::Files).size(), 1);
    const QString copy = backups.filePath(backups.entryList(QDir::Files).first());
    QVERIFY(SessionFixture::read(copy).contains("mine"));
    const QStringList log = session->takeLog();
    QCOMPARE(log.size(), 2);
    QCOMPARE(log.last(),
             u"Warning: The changes of the design \"a\" are in \"%1\" instead"_s.arg(copy));
}

void tst_DesignManager::backsUpUnderALongName_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("long-1 300 letters") << QString(300, u'n');
    QTest::newRow("long-2 beyond ASCII") << QString(300, u'\u65e5');
    QTest::newRow("long-3 beyond the basic plane") << u"x"_s + u"\U00020000"_s.repeated(100);
}

void tst_DesignManager::backsUpUnderALongName()
{
    QFETCH(const QString, name);
    const QString file = session->path(u"parts/a.xml"_s);
    SessionFixture::write(file, componentNamed(name.toUtf8()));
    IDesign *design = session->open(file);
    QVERIFY(design);
    design->setDescription(u"mine"_s);
    SessionFixture::write(file, componentNamed("theirs"));
    QVERIFY(session->manager()->closeDesign(idOf(design), false));
    const QDir backups(session->path(u"session/Backups"_s));
    QCOMPARE(backups.entryList(QDir::Files).size(), 1);
    const QString copy = backups.entryList(QDir::Files).first();
    const QString stem = copy.section(u'-', 0, 0);
    QVERIFY(stem.size() > 50 && name.startsWith(stem));
    QVERIFY(SessionFixture::read(backups.filePath(copy)).contains("mine"));
}

void tst_DesignManager::keepsADesignOpenThatCannotBeSavedAnywhere()
{
    IDesign *design = session->create(u"a"_s);
    design->setDescription(u"mine"_s);
    SessionFixture::write(session->designs(u"a/component.xml"_s), componentNamed("theirs"));
    SessionFixture::write(session->path(u"session/Backups"_s), "no folder");
    session->takeLog();
    QVERIFY(!session->manager()->closeDesign(idOf(design), false));
    QCOMPARE(session->takeLog().last(),
             u"Error: The changes of the design \"a\" cannot be saved: The folder \"%1\" cannot "
             "be made: File exists"_s.arg(session->path(u"session/Backups"_s)));
    QCOMPARE(session->manager()->openDesignIds(), QStringList {u"local.global.a.1.0"_s});
    QVERIFY(design->isModified());
    // What goes with its folder need not be saved.
    QVERIFY(session->manager()->closeDesign(idOf(design), true));
    QVERIFY(!QFileInfo::exists(session->designs(u"a"_s)));
}

void tst_DesignManager::deletesTheWorkingFolderBelowTheDesignsPath()
{
    QVERIFY(session->create(u"a"_s));
    IDesign *design = session->create(u"b"_s);
    design->setDescription(u"unsaved"_s);
    QVERIFY(session->manager()->closeDesign(idOf(design), true));
    QVERIFY(!QFileInfo::exists(session->designs(u"b"_s)));
    QVERIFY(QFileInfo::exists(session->designs(u"a/component.xml"_s)));
    QCOMPARE(session->takeLog(), QStringList());
}

void tst_DesignManager::keepsAWorkingFolderElsewhere()
{
    const QString file = session->path(u"elsewhere/component.xml"_s);
    SessionFixture::write(file, componentNamed("x"));
    QVERIFY(QDir().mkpath(session->designs(u""_s)));
    IDesign *design = session->open(file);
    design->setDescription(u"saved"_s);
    session->takeLog();
    QVERIFY(session->manager()->closeDesign(idOf(design), true));
    QCOMPARE(session->takeLog(),
             QStringList {u"Warning: The working folder of the design \"example.org.cores.x.2.1\" "
                          "stays: \"%1\" is not deleted because it does not lie below \"%2\""_s.arg(
                              session->path(u"elsewhere"_s), session->path(u"session/Designs"_s))});
    QVERIFY(SessionFixture::read(file).contains("saved"));
    QVERIFY(session->manager()->openDesignIds().isEmpty());
}

void tst_DesignManager::keepsAWorkingFolderThatHoldsAnotherOpenDesign()
{
    IDesign *outer = session->create(u"outer"_s);
    SessionFixture::write(session->designs(u"outer/inner/component.xml"_s),
                          componentNamed("inner"));
    QVERIFY(session->open(session->designs(u"outer/inner/component.xml"_s)));
    QVERIFY(session->manager()->closeDesign(idOf(outer), true));
    QVERIFY(QFileInfo::exists(session->designs(u"outer/inner/component.xml"_s)));
    QVERIFY(QFileInfo::exists(session->designs(u"outer/component.xml"_s)));
}

void tst_DesignManager::keepsAWorkingFolderThatIsALink()
{
    SessionFixture::write(session->designs(u"real/component.xml"_s), componentNamed("real"));
    QVERIFY(QFile::link(session->designs(u"real"_s), session->designs(u"link"_s)));
    const IDesign *design = session->open(session->designs(u"link/component.xml"_s));
    QVERIFY(session->manager()->closeDesign(idOf(design), true));
    QVERIFY(QFileInfo::exists(session->designs(u"real/component.xml"_s)));
    QVERIFY(QFileInfo(session->designs(u"link"_s)).isSymLink());
}

void tst_DesignManager::closesSeveralAndSaysWhetherAllWent()
{
    QVERIFY(session->create(u"a"_s));
    QVERIFY(session->create(u"b"_s));
    const QStringList ids = session->manager()->openDesignIds();
    QVERIFY(!session->manager()->closeDesigns(ids + QStringList {u"nobody"_s}, true));
    QVERIFY(session->manager()->openDesignIds().isEmpty());
    QVERIFY(QDir(session->designs(u""_s)).isEmpty());
    QVERIFY(session->manager()->closeDesigns({}, true));
}

void tst_DesignManager::writesACopyWithoutMovingTheDesign()
{
    IDesign *design = session->create(u"a"_s);
    design->setDescription(u"in the copy"_s);
    int warnings = 5;
    int errors = 5;
    QVERIFY(session->manager()->parseDesignToFile(design, session->path(u"copy.xml"_s), QString(),
                                                  &warnings, &errors, 0, true));
    QCOMPARE(warnings, 0);
    QCOMPARE(errors, 0);
    QVERIFY(SessionFixture::read(session->path(u"copy.xml"_s)).contains("in the copy"));
    QCOMPARE(design->componentFileName(), session->designs(u"a/component.xml"_s));
    QVERIFY(design->isModified());
    QVERIFY(!session->manager()->parseDesignToFile(design, session->path(u"copy.xml"_s), QString(),
                                                   nullptr, &errors, 0, false));
    QCOMPARE(errors, 1);
    QVERIFY(!session->manager()->parseDesignToFile(design, session->path(u"no/copy.xml"_s),
                                                   QString(), nullptr, nullptr, 0, true));
    QVERIFY(!session->manager()->parseDesignToFile(design, QString(), QString(), nullptr, nullptr,
                                                   0, true));
    QVERIFY(!session->manager()->parseDesignToFile(nullptr, session->path(u"x.xml"_s), QString(),
                                                   nullptr, nullptr, 0, true));
}

void tst_DesignManager::refusesToWriteOverAnotherOpenDesign()
{
    IDesign *a = session->create(u"a"_s);
    const IDesign *b = session->create(u"b"_s);
    const QByteArray before = SessionFixture::read(b->componentFileName());
    session->takeLog();
    QVERIFY(!session->manager()->parseDesignToFile(a, b->componentFileName(), QString(), nullptr,
                                                   nullptr, 0, true));
    QCOMPARE(session->takeLog(),
             QStringList {u"Error: \"%1\" is the component file of the open design \"b\""_s.arg(
                 b->componentFileName())});
    QCOMPARE(SessionFixture::read(b->componentFileName()), before);
}

void tst_DesignManager::savesAllDesignsBeforeTheEnd()
{
    IDesign *a = session->create(u"a"_s);
    IDesign *b = session->create(u"b"_s);
    a->setDescription(u"first"_s);
    b->setDescription(u"second"_s);
    int reason = DesignManager::QuitCommand;
    session->manager()->prepareForShutdown(reason);
    QVERIFY(SessionFixture::read(a->componentFileName()).contains("first"));
    QVERIFY(SessionFixture::read(b->componentFileName()).contains("second"));
}

void tst_DesignManager::sendsEachSignalOnceForABracket()
{
    IDesign *a = session->create(u"a"_s);
    QVERIFY(session->create(u"b"_s));
    DesignManager *manager = session->manager();
    QSignalSpy attached(manager, &DesignManager::designAttached);
    QSignalSpy closed(manager, &DesignManager::designClosed);
    QSignalSpy changed(manager, &DesignManager::designChanged);
    QSignalSpy active(manager, &DesignManager::activeDesignChanged);

    ChangeBracket::instance()->open();
    for (int i = 0; i < 100; ++i)
        QVERIFY(a->addFile(u"f%1.v"_s.arg(i), QString(), true, nullptr));
    QVERIFY(session->create(u"c"_s));
    QVERIFY(manager->closeDesign(u"local.global.b.1.0"_s, false));
    QVERIFY(attached.isEmpty() && closed.isEmpty() && changed.isEmpty() && active.isEmpty());
    ChangeBracket::instance()->close();

    QCOMPARE(attached, (QList<QVariantList> {{u"local.global.c.1.0"_s}}));
    QCOMPARE(closed, (QList<QVariantList> {{u"local.global.b.1.0"_s}}));
    QCOMPARE(changed, (QList<QVariantList> {{u"local.global.a.1.0"_s}}));
    QCOMPARE(active.size(), 1);

    a->setDescription(u"outside"_s);
    QCOMPARE(changed.size(), 2);
}

void tst_DesignManager::sendsWhatAReplacedBracketHeldTogether()
{
    QSignalSpy attached(session->manager(), &DesignManager::designAttached);
    ChangeBracket::instance()->open();
    QVERIFY(session->create(u"a"_s));
    ChangeBracket::instance()->close();
    QCOMPARE(attached.size(), 1);

    for (const QString &name : {u"b"_s, u"c"_s}) {
        ChangeBracket replacement;
        ChangeBracket::setInstance(&replacement);
        replacement.open();
        QVERIFY(session->create(name));
        const qsizetype before = attached.size();
        replacement.close();
        QCOMPARE(attached.size(), before + 1);
    }
    QCOMPARE(attached.size(), 3);
    ChangeBracket::setInstance(nullptr);

    ChangeBracket::instance()->open();
    QVERIFY(session->create(u"d"_s));
    QCOMPARE(attached.size(), 3);
    ChangeBracket::instance()->close();
    QCOMPARE(attached.size(), 4);
}

void tst_DesignManager::tellsNothingOfADesignThatComesAndGoes()
{
    QSignalSpy attached(session->manager(), &DesignManager::designAttached);
    QSignalSpy closed(session->manager(), &DesignManager::designClosed);
    ChangeBracket::instance()->open();
    const IDesign *design = session->create(u"a"_s);
    QVERIFY(session->manager()->closeDesign(idOf(design), true));
    ChangeBracket::instance()->close();
    QCOMPARE(attached.size(), 0);
    QCOMPARE(closed.size(), 0);
}

void tst_DesignManager::forgetsADesignThatSomebodyElseDestroys_data()
{
    QTest::addColumn<bool>("bracketed");
    QTest::newRow("at once") << false;
    QTest::newRow("when the bracket closes, under the id that listeners know") << true;
}

void tst_DesignManager::forgetsADesignThatSomebodyElseDestroys()
{
    QFETCH(const bool, bracketed);
    DesignManager *manager = session->manager();
    IDesign *design = session->create(u"a"_s);
    const QString file = design->componentFileName();
    QSignalSpy closed(manager, &DesignManager::designClosed);
    QSignalSpy changed(manager, &DesignManager::designChanged);
    QSignalSpy idChanged(manager, &DesignManager::designIdChanged);
    QSignalSpy active(manager, &DesignManager::activeDesignChanged);
    if (bracketed) {
        ChangeBracket::instance()->open();
        design->setName(u"b"_s);
    }
    delete design->objectBase();
    QCOMPARE(manager->openDesignIds(), QStringList());
    QCOMPARE(manager->activeDesigns(), QList<IDesign *>());
    QVERIFY(!manager->design(u"local.global.a.1.0"_s));
    QVERIFY(!manager->design(u"local.global.b.1.0"_s));
    if (bracketed) {
        QCOMPARE(closed.size(), 0);
        ChangeBracket::instance()->close();
    }
    QCOMPARE(closed, (QList<QVariantList> {{u"local.global.a.1.0"_s}}));
    QCOMPARE(active.size(), 1);
    QCOMPARE(changed.size(), 0);
    QCOMPARE(idChanged.size(), 0);
    // Its file can be opened again.
    QVERIFY(session->open(file));
}

void tst_DesignManager::tellsTheOldAndNewIdOfARenamedDesign()
{
    IDesign *design = session->create(u"a"_s);
    QSignalSpy idChanged(session->manager(), &DesignManager::designIdChanged);
    ChangeBracket::instance()->open();
    design->setName(u"b"_s);
    design->setVendor(u"other"_s);
    ChangeBracket::instance()->close();
    QCOMPARE(idChanged, (QList<QVariantList> {{u"local.global.a.1.0"_s, u"other.global.b.1.0"_s}}));
    QCOMPARE(design->workingFolderPath(), session->designs(u"a"_s));
}

void tst_DesignManager::keepsAClosedDesignAsLongAsACommandMayHoldIt()
{
    IDesign *design = session->create(u"a"_s);
    QVERIFY(design->addFile(u"x.v"_s, QString(), true, nullptr));
    const QPointer<QObject> object = design->objectBase();
    ChangeBracket::instance()->open();
    QVERIFY(session->manager()->closeDesign(idOf(design), false));
    QCoreApplication::processEvents();
    QVERIFY(object);
    QCOMPARE(design->name(), u"a"_s);
    QVERIFY(design->filesUnderNode(QString(), true).isEmpty());
    QVERIFY(!design->addFile(u"y.v"_s, QString(), true, nullptr));
    QVERIFY(!design->saveToComponentFile(nullptr));
    design->setName(u"still alive"_s);
    ChangeBracket::instance()->close();
    QVERIFY(object);
    QTRY_VERIFY(!object);
}

// Also where the parts of its id are nothing that a standard name may be.
void tst_DesignManager::remembersWhoAClosedDesignWas()
{
    IDesign *design = session->create(u"a"_s);
    design->setVendor(u"a & b"_s);
    design->setLibrary(QString());
    design->setName(u"\u00fcber <x>"_s);
    QVERIFY(design->setVersion(u"1 beta.2"_s).isOk());
    const QString id = idOf(design);
    ChangeBracket::instance()->open();
    QVERIFY(session->manager()->closeDesign(id, false));
    QCOMPARE(idOf(design), id);
    QCOMPARE(design->vendor(), u"a & b"_s);
    QCOMPARE(design->library(), QString());
    QCOMPARE(design->name(), u"\u00fcber <x>"_s);
    QCOMPARE(design->version(u"."_s), u"1 beta.2"_s);
    QVERIFY(design->workingFolderPath().isEmpty());
    ChangeBracket::instance()->close();
}

// An open bracket says now and then that it is closed, so that views follow; the command goes on.
void tst_DesignManager::keepsAClosedDesignWhileTheBracketBreathes()
{
    const IDesign *first = session->create(u"a"_s);
    const IDesign *second = session->create(u"b"_s);
    const QPointer<QObject> object = const_cast<IDesign *>(first)->objectBase();
    ChangeBracket *bracket = ChangeBracket::instance();
    bracket->open();
    QVERIFY(session->manager()->closeDesign(idOf(first), false));
    Q_EMIT bracket->closed();
    Q_EMIT bracket->opened();
    QVERIFY(session->manager()->closeDesign(idOf(second), false));
    QVERIFY(object);
    bracket->close();
    QTRY_VERIFY(!object);
}

void tst_DesignManager::warnsOfAFactoryThatIsLostOnly_data()
{
    QTest::addColumn<bool>("before");
    QTest::addColumn<bool>("after");
    QTest::newRow("lost-1 there in neither") << false << false;
    QTest::newRow("lost-2 there in the new one only") << false << true;
    QTest::newRow("lost-3 there in both") << true << true;
    QTest::newRow("lost-4 lost") << true << false;
}

void tst_DesignManager::warnsOfAFactoryThatIsLostOnly()
{
    QFETCH(const bool, before);
    QFETCH(const bool, after);
    ScriptManager scripts;
    scripts.addKnownScriptType(u"text/x-thing"_s, {{}, {}, u"thing"_s});
    ScriptManager::setInstance(&scripts);
    HostsManager former(before);
    HostsManager next(after);
    DesignManager::setInstance(&former);
    session->takeLog();
    DesignManager::setInstance(&next);
    DesignManager::setInstance(nullptr);
    ScriptManager::setInstance(nullptr);
    QStringList expected;
    if (before && !after) {
        expected.append(u"Warning: The new design manager has no factory for scripts of type "
                        "\"text/x-thing\", which the former one had. Set it before "
                        "TclScriptManager is made."_s);
    }
    QCOMPARE(session->takeLog(), expected);
}

void tst_DesignManager::makesThingsByTheirTag()
{
    // It stays known until the process ends.
    static const Qtilities::Core::FactoryItem<QObject, Thing> factory;
    DesignManager *manager = session->manager();
    QVERIFY(!manager->factory(u"thing"_s));
    QVERIFY(manager->registerFactory(&factory, {u"thing"_s, QString()}));
    QVERIFY(!manager->registerFactory(&factory, {u"thing"_s, QString()}));
    QVERIFY(!manager->registerFactory(&factory, {u"Custom Design"_s, QString()}));
    QVERIFY(!manager->registerFactory(&factory, {}));
    QVERIFY(!manager->registerFactory(nullptr, {u"none"_s, QString()}));
    QCOMPARE(manager->factory(u"thing"_s), &factory);

    auto *provider = session->factory();
    QCOMPARE(
        provider->instanceTags(),
        (QStringList {u"Custom Design"_s, u"Hardware Design"_s, u"Software Design"_s, u"thing"_s}));
    const std::unique_ptr<QObject> made(
        provider->createInstance({u"Design Factory"_s, u"thing"_s, u"mine"_s}));
    QVERIFY(made);
    QCOMPARE(made->objectName(), u"mine"_s);
    QVERIFY(!provider->createInstance({u"Design Factory"_s, u"nothing"_s, u"mine"_s}));
    QVERIFY(!provider->createInstance({u"Design Factory"_s, u"Custom Design"_s, QString()}));
}

void tst_DesignManager::completesTheFolderOfADesign()
{
    using MorvalenCore::DesignConstructor;
    IDesign *design = session->create(u"a"_s, u"Hardware Design"_s, u"Hardware"_s);
    QVERIFY(QDir(session->designs(u"a"_s)).rmdir(u"rtl"_s));
    QVERIFY(DesignConstructor::assignPhysicalWorkingFolderToDesign(design, QString(), {}, nullptr,
                                                                   false));
    QVERIFY(QFileInfo(session->designs(u"a/rtl"_s)).isDir());
    QVERIFY(!DesignConstructor::assignPhysicalWorkingFolderToDesign(
        design, session->designs(u"b"_s), {}, nullptr, false));
    QVERIFY(!QFileInfo::exists(session->designs(u"b"_s)));
    // What came from elsewhere has no structure, and gets no folders.
    SessionFixture::write(session->path(u"ip/component.xml"_s), componentNamed("ip"));
    QVERIFY(DesignConstructor::assignPhysicalWorkingFolderToDesign(
        session->open(session->path(u"ip/component.xml"_s)), QString(), {}, nullptr, false));
    QCOMPARE(QDir(session->path(u"ip"_s)).entryList(QDir::NoDotAndDotDot | QDir::AllEntries),
             QStringList {u"component.xml"_s});
    QVERIFY(!DesignConstructor::assignPhysicalWorkingFolderToDesign(nullptr, QString(), {}, nullptr,
                                                                    false));
}

// Scripts that open and close thousands of designs need not let the event loop run.
void tst_DesignManager::destroysClosedDesignsBetweenCommands()
{
    const QString file = session->path(u"parts/a.xml"_s);
    SessionFixture::write(file, componentNamed("a"));
    ChangeBracket *const bracket = ChangeBracket::instance();
    QList<QPointer<QObject>> closed;
    const auto openAndClose = [&] {
        IDesign *const design = session->open(file);
        closed.append(design->objectBase());
        bracket->open();
        QVERIFY(SessionFixture::manager()->closeDesign(idOf(design), false));
        bracket->close();
    };
    const auto left = [&] {
        return int(std::count_if(closed.cbegin(), closed.cend(),
                                 [](const QPointer<QObject> &design) { return !design.isNull(); }));
    };
    for (int i = 0; i < 5; ++i)
        openAndClose();
    QVERIFY(!closed.first());
    QCOMPARE(left(), 1);

    // What a command closes that is under way may be what it is changing.
    bracket->open();
    closed.clear();
    for (int i = 0; i < 5; ++i)
        openAndClose();
    QCOMPARE(left(), 5);
    bracket->close();
    QCOMPARE(left(), 5);
    openAndClose();
    QCOMPARE(left(), 1);
    QCoreApplication::processEvents();
    QCOMPARE(left(), 0);
}

TEST_CLASS(tst_DesignManager)
#include "tst_DesignManager.moc"
