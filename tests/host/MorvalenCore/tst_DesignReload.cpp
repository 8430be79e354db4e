#include "tests/host/MorvalenCore/SessionFixture.h"
#include "tests/TestClass.h"

#include <QSignalSpy>
#include <QTest>

#include <optional>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;
using MorvalenCore::Interfaces::IDesign;
using Qtilities::Core::Status;

namespace {

QByteArray component(const QByteArray &version, const QByteArray &files)
{
    QByteArray text =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<ipxact:component xmlns:ipxact=\"http://www.accellera.org/XMLSchema/IPXACT/1685-2014\">\n"
        "  <ipxact:vendor>example.org</ipxact:vendor>\n"
        "  <ipxact:library>cores</ipxact:library>\n"
        "  <ipxact:name>uart</ipxact:name>\n"
        "  <ipxact:version>"
        + version + "</ipxact:version>\n";
    if (!files.isEmpty()) {
        text += "  <ipxact:fileSets><ipxact:fileSet><ipxact:name>rtl</ipxact:name>\n";
        for (const QByteArray &file : files.split(' '))
            text += "    <ipxact:file><ipxact:name>" + file
                + "</ipxact:name><ipxact:fileType>verilogSource</ipxact:fileType>"
                  "</ipxact:file>\n";
        text += "  </ipxact:fileSet></ipxact:fileSets>\n";
    }
    return text + "</ipxact:component>\n";
}

QString word(const Status &status) { return status.kindWord() + u": "_s + status.text(); }

} // namespace

// A design that reads its component file again, and one that gets another version.
class tst_DesignReload : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        session.emplace();
        file = session->path(u"uart/component.xml"_s);
        SessionFixture::write(file, component("1.0", "a.v b.v"));
        design = session->open(file);
        QVERIFY(design);
        session->takeLog();
    }
    void cleanup() { session.reset(); }

    void becomesWhatTheFileSays();
    void activeItemsStayActive();
    void changesThatAreNotSavedGo();
    void aFileThatIsNoGoodChangesNothing();
    void anIdThatIsOpenIsRefused();
    void newFilesFindTheirLikeInTheNewDocument();
    void whatIsOnDiskIsKnown();
    void aFileIsOverwrittenOnRequest();
    void aDesignIsDiscarded();
    void versions_data();
    void versions();
    void aVersionComesBack_data();
    void aVersionComesBack();

private:
    QStringList files() const
    {
        QStringList names;
        for (const auto *item : design->filesUnderNode(QString(), true))
            names.append(item->fileName());
        return names;
    }

    std::optional<SessionFixture> session;
    QString file;
    IDesign *design = nullptr;
};

void tst_DesignReload::becomesWhatTheFileSays()
{
    QSignalSpy renamed(session->manager(), &DesignManager::designIdChanged);
    QSignalSpy changed(session->manager(), &DesignManager::designChanged);
    SessionFixture::write(file, component("2.0", "b.v c.v"));
    QVERIFY(design->reloadComponentFile().isOk());
    QCOMPARE(files(), (QStringList {u"b.v"_s, u"c.v"_s}));
    QCOMPARE(session->manager()->openDesignIds(), QStringList {u"example.org.cores.uart.2.0"_s});
    QCOMPARE(session->manager()->design(u"example.org.cores.uart.2.0"_s), design);
    QVERIFY(!design->isModified());
    QCOMPARE(renamed.size(), 1);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(session->takeLog(), QStringList());
    // And it works on as before.
    QString error;
    QVERIFY(design->addFile(u"d.v"_s, QString(), true, &error));
    QVERIFY2(design->saveToComponentFile(&error), qPrintable(error));
    design = session->reopen(design);
    QCOMPARE(files(), (QStringList {u"b.v"_s, u"c.v"_s, u"d.v"_s}));
}

void tst_DesignReload::activeItemsStayActive()
{
    design->setActiveFiles({design->fileByActualPath(u"a.v"_s, false)});
    QVERIFY(design->reloadComponentFile().isOk());
    QCOMPARE(design->activeFiles().size(), 1);
    QCOMPARE(design->activeFiles().first()->fileName(), u"a.v"_s);
    SessionFixture::write(file, component("1.0", "b.v"));
    QVERIFY(design->reloadComponentFile().isOk());
    QCOMPARE(design->activeFiles().size(), 0);
}

void tst_DesignReload::changesThatAreNotSavedGo()
{
    QString error;
    QVERIFY(design->addFile(u"mine.v"_s, QString(), true, &error));
    design->setDescription(u"mine"_s);
    QVERIFY(design->isModified());
    QVERIFY(design->reloadComponentFile().isOk());
    QVERIFY(!design->isModified());
    QCOMPARE(design->description(), QString());
    QCOMPARE(files(), (QStringList {u"a.v"_s, u"b.v"_s}));
}

void tst_DesignReload::aFileThatIsNoGoodChangesNothing()
{
    design->setDescription(u"mine"_s);
    SessionFixture::write(file, "<broken");
    const Status status = design->reloadComponentFile();
    QCOMPARE(status.kind(), Status::Kind::Malformed);
    QVERIFY2(status.text().startsWith(file + u":1: "_s), qPrintable(status.text()));
    QVERIFY(QFile::remove(file));
    QVERIFY(!design->reloadComponentFile().isOk());
    QCOMPARE(files(), (QStringList {u"a.v"_s, u"b.v"_s}));
    QCOMPARE(design->description(), u"mine"_s);
    QVERIFY(design->isModified());
}

void tst_DesignReload::anIdThatIsOpenIsRefused()
{
    SessionFixture::write(session->path(u"other/component.xml"_s), component("2.0", {}));
    QVERIFY(session->open(session->path(u"other/component.xml"_s)));
    SessionFixture::write(file, component("2.0", "c.v"));
    QCOMPARE(word(design->reloadComponentFile()),
             u"already_exists: A design with the id \"example.org.cores.uart.2.0\" is open "
             "already"_s);
    QCOMPARE(files(), (QStringList {u"a.v"_s, u"b.v"_s}));
}

void tst_DesignReload::newFilesFindTheirLikeInTheNewDocument()
{
    QString error;
    QVERIFY(design->addFile(u"c.v"_s, QString(), true, &error));
    SessionFixture::write(file, component("1.0", {}));
    QVERIFY(design->reloadComponentFile().isOk());
    const auto *added = design->addFile(u"d.v"_s, QString(), true, &error);
    QVERIFY2(added, qPrintable(error));
    QCOMPARE(added->node(), u"files"_s);
}

void tst_DesignReload::whatIsOnDiskIsKnown()
{
    QCOMPARE(design->componentFileState(), IDesign::FileState::Same);
    QVERIFY(design->trySetDescription(u"mine"_s).isOk());
    QCOMPARE(design->componentFileState(), IDesign::FileState::Same);
    SessionFixture::write(file, component("1.0", "a.v"));
    QCOMPARE(design->componentFileState(), IDesign::FileState::Changed);
    QVERIFY(design->reloadComponentFile().isOk());
    QCOMPARE(design->componentFileState(), IDesign::FileState::Same);
    // The same bytes are no change, whenever they were written.
    SessionFixture::write(file, component("1.0", "a.v"));
    QCOMPARE(design->componentFileState(), IDesign::FileState::Same);
    QVERIFY(QFile::remove(file));
    QCOMPARE(design->componentFileState(), IDesign::FileState::Missing);
}

void tst_DesignReload::aFileIsOverwrittenOnRequest()
{
    QVERIFY(design->trySetDescription(u"mine"_s).isOk());
    SessionFixture::write(file, component("1.0", "a.v"));
    QCOMPARE(design->trySaveToComponentFile().kind(), Status::Kind::Conflict);
    QSignalSpy changed(session->manager(), &DesignManager::designChanged);
    QVERIFY(design->overwriteComponentFile().isOk());
    QCOMPARE(changed.size(), 1);
    QVERIFY(!design->isModified());
    QCOMPARE(design->componentFileState(), IDesign::FileState::Same);
    QVERIFY(SessionFixture::read(file).contains("mine"));
    QVERIFY(SessionFixture::read(file).contains("b.v"));
}

void tst_DesignReload::aDesignIsDiscarded()
{
    const QByteArray before = SessionFixture::read(file);
    const QString id = design->id(u"."_s);
    QVERIFY(design->trySetDescription(u"mine"_s).isOk());
    QVERIFY(session->manager()->tryDiscardDesign(id).isOk());
    QVERIFY(session->manager()->openDesignIds().isEmpty());
    QCOMPARE(SessionFixture::read(file), before);
    QCOMPARE(word(session->manager()->tryDiscardDesign(id)),
             u"not_found: No design with the id \"example.org.cores.uart.1.0\" is open"_s);
}

void tst_DesignReload::versions_data()
{
    QTest::addColumn<QString>("version");
    QTest::addColumn<QString>("outcome");
    QTest::newRow("version-1 another one") << u"1.1"_s << u"ok: "_s;
    QTest::newRow("version-2 the same") << u"1.0"_s << u"ok: "_s;
    QTest::newRow("version-3 none")
        << QString() << u"invalid_argument: The version of a design cannot be empty"_s;
    QTest::newRow("version-4 that of another open design")
        << u"2.0"_s
        << u"already_exists: A design with the id \"example.org.cores.uart.2.0\" is open already"_s;
}

void tst_DesignReload::versions()
{
    QFETCH(const QString, version);
    QFETCH(const QString, outcome);
    SessionFixture::write(session->path(u"other/component.xml"_s), component("2.0", {}));
    QVERIFY(session->open(session->path(u"other/component.xml"_s)));
    const Status status = design->setVersion(version);
    QCOMPARE(word(status), outcome);
    QCOMPARE(design->version(u"."_s), status.isOk() ? version : u"1.0"_s);
    QCOMPARE(session->manager()->design(design->id(u"."_s)), design);

    design->setReadOnly(true);
    QCOMPARE(word(design->setVersion(u"3"_s)), u"read_only: The design \"uart\" is read-only"_s);
}

void tst_DesignReload::aVersionComesBack_data()
{
    QTest::addColumn<QString>("version");
    QTest::newRow("text-1 plain") << u"2024-11.rc1"_s;
    QTest::newRow("text-2 blanks") << u"1.0 (second try)"_s;
    QTest::newRow("text-3 beyond ASCII") << u"\u00e4\U0001f40d"_s;
    QTest::newRow("text-4 marks of XML") << u"<1> & \"2\""_s;
}

void tst_DesignReload::aVersionComesBack()
{
    QFETCH(const QString, version);
    QVERIFY(design->setVersion(version).isOk());
    design = session->reopen(design);
    QVERIFY(design);
    QCOMPARE(design->version(u"."_s), version);
    QCOMPARE(session->takeLog(), QStringList());
}

TEST_CLASS(tst_DesignReload)
#include "tst_DesignReload.moc"
