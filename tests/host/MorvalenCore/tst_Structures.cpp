#include "tests/fakes/FakeDesignManager.h"
#include "tests/host/MorvalenCore/SessionFixture.h"
#include "tests/TestClass.h"

#include <QTest>

#include <fcntl.h>
#include <optional>
#include <sys/stat.h>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;
using MorvalenCore::DesignStructureManager;

// The structures of designs and which of them is the default.
class tst_Structures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { session.emplace(); }
    void cleanup() { session.reset(); }

    void listsAllForEveryType();
    void hasADefaultForEachType();
    void remembersTheDefaultInTheSettings();
    void refusesUnknownNames();
    void ignoresADefaultThatIsGone();
    void readsWhatWasWrittenLast();
    void keepsTextsThatBeginLikeStreamedValues();
    void keepsSettingsAsideThatItCannotRead_data();
    void keepsSettingsAsideThatItCannotRead();
    void looksAgainAtSettingsOfTheSameSizeAndTime();
    void saysThatTheSettingsCannotBeUsed();
    void knowsWhereDesignsAreKept();
    void asksTheHostsDesignManagerForThePlace();
    void takesTypesOfTheHost();

private:
    static DesignStructureManager *structures() { return DesignStructureManager::instance(); }

    std::optional<SessionFixture> session;
    const QStringList names {u"Flat"_s, u"Hardware"_s, u"Software"_s};
};

void tst_Structures::listsAllForEveryType()
{
    QCOMPARE(structures()->designStructureNames(), names);
    QCOMPARE(structures()->designStructureNamesForDesign(QString()), names);
    QCOMPARE(structures()->designStructureNamesForDesign(u"Hardware Design"_s), names);
    QCOMPARE(structures()->designStructureNamesForDesign(u"Stage Design"_s), QStringList());
}

void tst_Structures::hasADefaultForEachType()
{
    const QStringList types = session->manager()->designTypes();
    for (int i = 0; i < types.size(); ++i) {
        QCOMPARE(structures()->defaultStructureNameForDesignType(types[i]), names[i]);
        QCOMPARE(structures()->defaultStructureIdForDesignType(types[i]), names[i]);
        QCOMPARE(structures()->designStructureID(names[i]), names[i]);
    }
    QCOMPARE(structures()->defaultStructureNameForDesignType(u"Stage Design"_s), QString());
    QCOMPARE(structures()->defaultStructureIdForDesignType(QString()), QString());
    QCOMPARE(structures()->designStructureID(u"flat"_s), QString());
}

void tst_Structures::remembersTheDefaultInTheSettings()
{
    QVERIFY(structures()->setDefaultStructureNameForDesignType(u"Custom Design"_s, u"Hardware"_s));
    QCOMPARE(structures()->defaultStructureNameForDesignType(u"Custom Design"_s), u"Hardware"_s);
    QCOMPARE(structures()->defaultStructureNameForDesignType(u"Software Design"_s), u"Software"_s);
    QVERIFY(SessionFixture::read(session->path(u"session/settings.ini"_s)).contains("Hardware"));
    // Another session has its own.
    session.reset();
    session.emplace();
    QCOMPARE(structures()->defaultStructureNameForDesignType(u"Custom Design"_s), u"Flat"_s);
}

void tst_Structures::refusesUnknownNames()
{
    QVERIFY(!structures()->setDefaultStructureNameForDesignType(u"Stage Design"_s, u"Flat"_s));
    QVERIFY(!structures()->setDefaultStructureNameForDesignType(u"Custom Design"_s, u"Baroque"_s));
    QVERIFY(!structures()->setDefaultStructureNameForDesignType(u"Custom Design"_s, QString()));
    QCOMPARE(structures()->defaultStructureNameForDesignType(u"Custom Design"_s), u"Flat"_s);
}

void tst_Structures::ignoresADefaultThatIsGone()
{
    QVERIFY(structures()->setDefaultStructureNameForDesignType(u"Custom Design"_s, u"Hardware"_s));
    QByteArray settings = SessionFixture::read(session->path(u"session/settings.ini"_s));
    SessionFixture::write(session->path(u"session/settings.ini"_s),
                          settings.replace("Hardware", "Baroque"));
    QCOMPARE(structures()->defaultStructureNameForDesignType(u"Custom Design"_s), u"Flat"_s);
}

// They are of one size, and perhaps of one time.
void tst_Structures::readsWhatWasWrittenLast()
{
    for (int i = 0; i < 20; ++i) {
        for (const QString &name : {u"Hardware"_s, u"Software"_s}) {
            QVERIFY(structures()->setDefaultStructureNameForDesignType(u"Custom Design"_s, name));
            QCOMPARE(structures()->defaultStructureNameForDesignType(u"Custom Design"_s), name);
        }
    }
}

void tst_Structures::keepsTextsThatBeginLikeStreamedValues()
{
    const QString file = session->path(u"session/settings.ini"_s);
    SessionFixture::write(file, "[Own]\ntext=@@Variant(x)\n");
    session->takeLog();
    QVERIFY(structures()->setDefaultStructureNameForDesignType(u"Custom Design"_s, u"Hardware"_s));
    QCOMPARE(session->takeLog(), QStringList());
    QVERIFY(SessionFixture::read(file).contains("text=@@Variant(x)\n"));
}

void tst_Structures::keepsSettingsAsideThatItCannotRead_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("settings-1 a line that is none")
        << QByteArray("[Designs]\na=b\n[garbage\nc=d\n");
    QTest::newRow("settings-2 no settings at all") << QByteArray("\x7f"
                                                                 "ELF\2\1\1\nxyz\n");
    QTest::newRow("settings-3 zeros in something like settings") << QByteArray("a=b\0c\n", 6);
    // Twenty bytes of it can ask for gigabytes.
    QTest::newRow("settings-4 a streamed value")
        << QByteArray("[Window]\nsplit=@Variant(\\0\\0\\0\\t)\n");
    QTest::newRow("settings-5 a streamed date")
        << QByteArray("[Window]\nsplit=@DateTime(\\0\\0\\0\\x10\\0)\n");
    QTest::newRow("settings-6 a streamed value behind escapes and quotes")
        << QByteArray("[Window]\nsplit=\\x040Var\"ian\"\\164(\\0\\0\\0\\t)\n");
    QTest::newRow("settings-7 a streamed value behind an escape that is dropped")
        << QByteArray("[Window]\nsplit=@V\\;ariant(\\0\\0\\0\\t)\n");
    QTest::newRow("settings-8 a streamed value on two lines")
        << QByteArray("[Window]\nsplit=@V\\\n\rariant(\\0\\0\\0\\t)\n");
    QTest::newRow("settings-9 a key that cannot be asked for") << QByteArray("\\\\a=1\n");
    QTest::newRow("settings-10 a key of a group without a name, beside one of no group")
        << QByteArray("a=\n[]\na=\n");
    QTest::newRow("settings-11 a streamed value below half a character")
        << QByteArray("[Window]\nother=\\xd9ea\nsplit=@Variant(\\0\\0\\0\\t)\n");
}

void tst_Structures::keepsSettingsAsideThatItCannotRead()
{
    QFETCH(const QByteArray, content);
    const QString file = session->path(u"session/settings.ini"_s);
    for (const QString &aside : {file + u".unreadable"_s, file + u".unreadable-2"_s}) {
        SessionFixture::write(file, content);
        session->takeLog();
        QVERIFY(
            structures()->setDefaultStructureNameForDesignType(u"Custom Design"_s, u"Hardware"_s));
        QCOMPARE(session->takeLog(),
                 QStringList {u"Warning: The settings file \"%1\" cannot be read; it is kept as "
                              "\"%2\""_s.arg(file, aside)});
        QCOMPARE(SessionFixture::read(aside), content);
        QCOMPARE(structures()->defaultStructureNameForDesignType(u"Custom Design"_s),
                 u"Hardware"_s);
        QCOMPARE(session->takeLog(), QStringList());
        QVERIFY(SessionFixture::read(file).contains("organization_name=local"));
        // Another size, so that the next one is seen to be another.
        SessionFixture::write(file, QByteArray());
    }
}

// Whoever writes them keeps size and time.
void tst_Structures::looksAgainAtSettingsOfTheSameSizeAndTime()
{
    const QString file = session->path(u"session/settings.ini"_s);
    QVERIFY(structures()->setDefaultStructureNameForDesignType(u"Custom Design"_s, u"Hardware"_s));
    QCOMPARE(structures()->defaultStructureNameForDesignType(u"Custom Design"_s), u"Hardware"_s);
    const QByteArray garbage = "[garbage" + QByteArray(QFileInfo(file).size() - 8, '\0');
    const QByteArray name = QFile::encodeName(file);
    struct stat before = {};
    struct stat after = {};
    QCOMPARE(::stat(name.constData(), &before), 0);
    // Until the clock of the file system has gone on.
    do {
        SessionFixture::write(file, garbage);
        const timespec times[] = {before.st_atim, before.st_mtim};
        QCOMPARE(::utimensat(AT_FDCWD, name.constData(), times, 0), 0);
        QCOMPARE(::stat(name.constData(), &after), 0);
    } while (after.st_ctim.tv_sec == before.st_ctim.tv_sec
             && after.st_ctim.tv_nsec == before.st_ctim.tv_nsec);
    session->takeLog();
    QVERIFY(structures()->setDefaultStructureNameForDesignType(u"Custom Design"_s, u"Software"_s));
    QCOMPARE(session->takeLog(),
             QStringList {u"Warning: The settings file \"%1\" cannot be read; it is kept as "
                          "\"%1.unreadable\""_s.arg(file)});
    QCOMPARE(SessionFixture::read(file + u".unreadable"_s), garbage);
}

void tst_Structures::saysThatTheSettingsCannotBeUsed()
{
    const QString file = session->path(u"session/settings.ini"_s);
    QVERIFY(QDir().mkpath(file));
    session->takeLog();
    QCOMPARE(structures()
                 ->trySetDefaultStructureNameForDesignType(u"Custom Design"_s, u"Hardware"_s)
                 .text(),
             u"The settings file \"%1\" cannot be read: it is a folder"_s.arg(file));
    QCOMPARE(session->takeLog(),
             QStringList {
                 u"Error: The settings file \"%1\" cannot be read: it is a folder"_s.arg(file)});
    QCOMPARE(structures()->defaultStructureNameForDesignType(u"Custom Design"_s), u"Flat"_s);
}

void tst_Structures::knowsWhereDesignsAreKept()
{
    const QString designs = session->path(u"session/Designs"_s);
    QCOMPARE(structures()->activeDesignRepositoryPathForStructure(u"Flat"_s, false), designs);
    QVERIFY(!QFileInfo::exists(designs));
    QCOMPARE(structures()->activeDesignRepositoryPathForStructure(u"Flat"_s, true), designs);
    QVERIFY(QFileInfo(designs).isDir());
    QCOMPARE(structures()->activeDesignRepositoryPathForStructure(u"Baroque"_s, true), QString());
}

void tst_Structures::asksTheHostsDesignManagerForThePlace()
{
    Journal journal;
    FakeDesignManager own(journal);
    own.paths[DesignManager::DesignsPath] = session->path(u"own"_s);
    DesignManager::setInstance(&own);
    QCOMPARE(structures()->activeDesignRepositoryPathForStructure(u"Flat"_s, true),
             session->path(u"own"_s));
    QVERIFY(QFileInfo(session->path(u"own"_s)).isDir());

    own.paths.clear();
    QCOMPARE(structures()->activeDesignRepositoryPathForStructure(u"Flat"_s, false),
             session->path(u"session/Designs"_s));
    DesignManager::setInstance(nullptr);
}

// The first structure is the default of a type that the host brings.
void tst_Structures::takesTypesOfTheHost()
{
    Journal journal;
    FakeDesignManager own(journal);
    own.types = {u"Cell"_s};
    DesignManager::setInstance(&own);
    QCOMPARE(structures()->designStructureNamesForDesign(u"Cell"_s), names);
    QCOMPARE(structures()->defaultStructureNameForDesignType(u"Cell"_s), u"Flat"_s);
    QVERIFY(structures()->setDefaultStructureNameForDesignType(u"Cell"_s, u"Hardware"_s));
    QCOMPARE(structures()->defaultStructureNameForDesignType(u"Cell"_s), u"Hardware"_s);
    QCOMPARE(structures()->defaultStructureNameForDesignType(u"Stage Design"_s), QString());
    DesignManager::setInstance(nullptr);
    QCOMPARE(structures()->defaultStructureNameForDesignType(u"Cell"_s), QString());
}

TEST_CLASS(tst_Structures)
#include "tst_Structures.moc"
