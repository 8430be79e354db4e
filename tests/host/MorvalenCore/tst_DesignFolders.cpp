#include "tests/host/MorvalenCore/SessionFixture.h"
#include "tests/TestClass.h"

#include <QTest>

#include <optional>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignFolder;
using MorvalenCore::Interfaces::IDesign;
using Qtilities::Core::QtilitiesCategory;

// The folders of a design.
class tst_DesignFolders : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        session.emplace();
        design = session->create(u"soft"_s, u"Software Design"_s, u"Software"_s);
        QVERIFY(design);
        session->takeLog();
    }
    void cleanup() { session.reset(); }

    void listsFoldersInTheOrderOfAdding();
    void findsAFolderByAnyFormOfItsPath();
    void refusesEmptyAndDoublePaths();
    void movesAFolder();
    void keepsCategoriesAndPathsOverAReopening();
    void knowsWhatIsOnDisk();
    void deletesAFolderFromDisk();
    void refusesToDeleteFromDisk_data();
    void refusesToDeleteFromDisk();
    void keepsAFolderThatHoldsAnotherOpenDesign();
    void dropsARemovedFolderFromTheActiveOnes();
    void refusesEveryChangeOfAReadOnlyDesign();

private:
    QString in(const QString &name) const { return session->designs(u"soft/"_s + name); }
    QStringList all() const
    {
        QStringList list;
        for (const DesignFolder *folder : design->folders())
            list.append(folder->actualPath());
        return list;
    }

    std::optional<SessionFixture> session;
    IDesign *design = nullptr;
};

void tst_DesignFolders::listsFoldersInTheOrderOfAdding()
{
    QVERIFY(design->addFolder(u"a"_s, nullptr));
    QVERIFY(design->addFolder(u"/elsewhere/b"_s, nullptr));
    QCOMPARE(all(),
             (QStringList {in(u"sources"_s), in(u"headers"_s), in(u"tests"_s), in(u"documents"_s),
                           in(u"a"_s), u"/elsewhere/b"_s}));
    QVERIFY(!QFileInfo::exists(in(u"a"_s)));
    QVERIFY(design->removeFolder(u"headers"_s));
    QVERIFY(!design->removeFolder(u"headers"_s));
    QCOMPARE(all(),
             (QStringList {in(u"sources"_s), in(u"tests"_s), in(u"documents"_s), in(u"a"_s),
                           u"/elsewhere/b"_s}));
    QVERIFY(QFileInfo::exists(in(u"headers"_s)));
}

void tst_DesignFolders::findsAFolderByAnyFormOfItsPath()
{
    const DesignFolder *tests = design->folderByActualPath(u"tests"_s);
    QVERIFY(tests);
    for (const QString &path : {u"tests/"_s, u"./tests"_s, u"x/../tests"_s, in(u"tests"_s)})
        QCOMPARE(design->folderByActualPath(path), tests);
    for (const QString &path : {QString(), u"Tests"_s, u"tests2"_s, u"."_s})
        QVERIFY(!design->folderByActualPath(path));
    QCOMPARE(tests->fileName(), u"tests"_s);
    QCOMPARE(tests->getName(), u"tests"_s);
}

void tst_DesignFolders::refusesEmptyAndDoublePaths()
{
    QString error;
    QVERIFY(!design->addFolder(QString(), &error));
    QCOMPARE(error, u"The path of a folder cannot be empty"_s);
    QVERIFY(!design->addFolder(u"tests/"_s, &error));
    QCOMPARE(error, u"The design \"soft\" has the folder \"%1\" already"_s.arg(in(u"tests"_s)));
    error.clear();
    QVERIFY(!design->addFolder(u"zero"_s + QChar(0), &error));
    QVERIFY(!error.isEmpty());
    QVERIFY(!design->isModified());
}

void tst_DesignFolders::movesAFolder()
{
    DesignFolder *folder = design->folderByActualPath(u"tests"_s);
    folder->setActualPath(u"checks"_s);
    QCOMPARE(folder->actualPath(), in(u"checks"_s));
    QCOMPARE(design->folderByActualPath(u"checks"_s), folder);
    folder->setActualPath(u"sources"_s);
    folder->setActualPath(QString());
    QCOMPARE(folder->actualPath(), in(u"checks"_s));
    QCOMPARE(session->takeLog(),
             (QStringList {u"Warning: The design \"soft\" has the folder \"%1\" already"_s.arg(
                               in(u"sources"_s)),
                           u"Warning: The path of a folder cannot be empty"_s}));
}

void tst_DesignFolders::keepsCategoriesAndPathsOverAReopening()
{
    DesignFolder *folder = design->folderByActualPath(u"tests"_s);
    QVERIFY(folder->category().isEmpty());
    QVERIFY(folder->setCategory(QtilitiesCategory({u"A"_s, u"B & C"_s})));
    QVERIFY(design->addFolder(u"../shared \"x\""_s, nullptr));
    const QStringList before = all();
    design = session->reopen(design);
    QCOMPARE(all(), before);
    QCOMPARE(design->folderByActualPath(u"tests"_s)->category().toString(u"::"_s), u"A::B & C"_s);
    QVERIFY(design->folderByActualPath(u"tests"_s)->setCategory({}));
    QVERIFY(design->folderByActualPath(u"tests"_s)->category().isEmpty());
}

void tst_DesignFolders::knowsWhatIsOnDisk()
{
    QVERIFY(design->folderByActualPath(u"tests"_s)->existsOnDisk());
    SessionFixture::write(in(u"file"_s), "f");
    QVERIFY(!design->addFolder(u"file"_s, nullptr)->existsOnDisk());
    QVERIFY(!design->addFolder(u"missing"_s, nullptr)->existsOnDisk());
}

void tst_DesignFolders::deletesAFolderFromDisk()
{
    SessionFixture::write(in(u"tests/deep/f"_s), "f");
    SessionFixture::write(session->path(u"outside/f"_s), "f");
    QVERIFY(QFile::link(session->path(u"outside"_s), in(u"tests/link"_s)));
    QVERIFY(design->folderByActualPath(u"tests"_s)->removeFromComputer(true));
    QVERIFY(!QFileInfo::exists(in(u"tests"_s)));
    QVERIFY(QFileInfo::exists(session->path(u"outside/f"_s)));
    QVERIFY(design->folderByActualPath(u"tests"_s));
}

void tst_DesignFolders::refusesToDeleteFromDisk_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("reason");
    QTest::newRow("folder-refused-1 missing") << u"missing"_s << u"\"IN/missing\" is not on disk"_s;
    QTest::newRow("folder-refused-2 a file")
        << u"file"_s << u"\"IN/file\" is not deleted because it is not a folder"_s;
    QTest::newRow("folder-refused-3 the working folder")
        << u"."_s << u"\"IN\" is not deleted because it is or holds \"IN\""_s;
    QTest::newRow("folder-refused-4 the designs folder")
        << u".."_s << u"\"DESIGNS\" is not deleted because it is or holds \"DESIGNS\""_s;
    QTest::newRow("folder-refused-5 the session folder")
        << u"../.."_s << u"\"SESSION\" is not deleted because it is or holds \"SESSION\""_s;
    QTest::newRow("folder-refused-6 elsewhere")
        << u"../../../outside"_s
        << u"\"OUTSIDE\" is not deleted because it does not lie below \"IN\""_s;
    QTest::newRow("folder-refused-7 the root")
        << u"/"_s << u"\"/\" is not deleted because it is or holds \"/\""_s;
    QTest::newRow("folder-refused-8 a link")
        << u"link"_s << u"\"IN/link\" is not deleted because it is a link"_s;
}

void tst_DesignFolders::refusesToDeleteFromDisk()
{
    QFETCH(QString, path);
    QFETCH(QString, reason);
    SessionFixture::write(in(u"file"_s), "f");
    SessionFixture::write(session->path(u"outside/f"_s), "f");
    QVERIFY(QFile::link(session->path(u"outside"_s), in(u"link"_s)));
    DesignFolder *folder = design->addFolder(path, nullptr);
    QVERIFY(folder);
    QVERIFY(!folder->removeFromComputer(true));
    reason.replace(u"IN"_s, session->designs(u"soft"_s))
        .replace(u"DESIGNS"_s, session->path(u"session/Designs"_s))
        .replace(u"SESSION"_s, session->path(u"session"_s))
        .replace(u"OUTSIDE"_s, session->path(u"outside"_s));
    QCOMPARE(session->takeLog(), QStringList {u"Warning: "_s + reason});
    QVERIFY(QFileInfo::exists(in(u"component.xml"_s)));
    QVERIFY(QFileInfo::exists(session->path(u"outside/f"_s)));
}

void tst_DesignFolders::keepsAFolderThatHoldsAnotherOpenDesign()
{
    IDesign *outer = design;
    const QByteArray inner = SessionFixture::read(design->componentFileName())
                                 .replace("<ipxact:name>soft<", "<ipxact:name>inner<");
    SessionFixture::write(in(u"parts/inner/component.xml"_s), inner);
    QVERIFY(session->open(in(u"parts/inner/component.xml"_s)));
    for (const QString &path : {u"parts"_s, u"parts/inner"_s}) {
        DesignFolder *folder = outer->addFolder(path, nullptr);
        QVERIFY(!folder->removeFromComputer(true));
    }
    QVERIFY(QFileInfo::exists(in(u"parts/inner/component.xml"_s)));
}

void tst_DesignFolders::dropsARemovedFolderFromTheActiveOnes()
{
    DesignFolder *tests = design->folderByActualPath(u"tests"_s);
    DesignFolder *headers = design->folderByActualPath(u"headers"_s);
    design->setActiveFolders({tests, headers});
    QVERIFY(design->removeFolder(u"tests"_s));
    QCOMPARE(design->activeFolders(), QList<QPointer<DesignFolder>> {headers});
}

void tst_DesignFolders::refusesEveryChangeOfAReadOnlyDesign()
{
    design->setReadOnly(true);
    const QString reason = u"The design \"soft\" is read-only"_s;
    DesignFolder *tests = design->folderByActualPath(u"tests"_s);
    QString error;
    QVERIFY(!design->addFolder(u"new"_s, &error));
    QCOMPARE(error, reason);
    QVERIFY(!design->removeFolder(u"tests"_s));
    QVERIFY(!tests->setCategory(QtilitiesCategory({u"A"_s})));
    tests->setActualPath(u"x"_s);
    QVERIFY(!tests->removeFromComputer(true));
    QCOMPARE(session->takeLog(), QStringList(4, u"Warning: "_s + reason));
    QVERIFY(tests->existsOnDisk());
    QCOMPARE(tests->actualPath(), in(u"tests"_s));
}

TEST_CLASS(tst_DesignFolders)
#include "tst_DesignFolders.moc"
