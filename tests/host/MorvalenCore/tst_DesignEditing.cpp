#include "tests/host/MorvalenCore/SessionFixture.h"
#include "tests/TestClass.h"

#include <MorvalenCore/IDesignEditing.h>

#include <QTest>

#include <optional>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::BuildDescription;
using MorvalenCore::DesignFile;
using MorvalenCore::Interfaces::IDesign;
using MorvalenCore::Interfaces::IDesignEditing;
using Qtilities::Core::Status;

namespace {

const QByteArray component =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<ipxact:component xmlns:ipxact=\"http://www.accellera.org/XMLSchema/IPXACT/1685-2014\">\n"
    "  <ipxact:vendor>example.org</ipxact:vendor>\n"
    "  <ipxact:library>cores</ipxact:library>\n"
    "  <ipxact:name>uart</ipxact:name>\n"
    "  <ipxact:version>2.1</ipxact:version>\n"
    "  <ipxact:fileSets>\n"
    "    <ipxact:fileSet>\n"
    "      <ipxact:name>rtl</ipxact:name>\n"
    "      <ipxact:file   fileId='u1'>\n"
    "        <ipxact:name>rtl/uart.v</ipxact:name>\n"
    "        <ipxact:fileType>verilogSource</ipxact:fileType>\n"
    "        <ipxact:vendorExtensions>\n"
    "          <x:note xmlns:x=\"urn:x\">a <b>b</b> &amp; c</x:note>\n"
    "          <mv:item xmlns:mv=\"urn:morvalen:host:1\" category=\"My::Own\"/>\n"
    "        </ipxact:vendorExtensions>\n"
    "      </ipxact:file>\n"
    "      <!-- between -->\n"
    "      <ipxact:file>\n"
    "        <ipxact:name>rtl/fifo.v</ipxact:name>\n"
    "        <!-- why -->\n"
    "        <ipxact:fileType>verilogSource</ipxact:fileType>\n"
    "      </ipxact:file>\n"
    "    </ipxact:fileSet>\n"
    "    <ipxact:fileSet>\n"
    "      <ipxact:name>sim</ipxact:name>\n"
    "      <ipxact:file>\n"
    "        <ipxact:name>sim/tb.vhd</ipxact:name>\n"
    "        <ipxact:fileType>vhdlSource</ipxact:fileType>\n"
    "      </ipxact:file>\n"
    "    </ipxact:fileSet>\n"
    "    <ipxact:fileSet>\n"
    "      <ipxact:name>made</ipxact:name>\n"
    "      <ipxact:group>generatedFiles</ipxact:group>\n"
    "    </ipxact:fileSet>\n"
    "  </ipxact:fileSets>\n"
    "</ipxact:component>\n";

} // namespace

// Files that get other names and nodes, and what comes back after it was removed.
class tst_DesignEditing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        session.emplace();
        SessionFixture::write(session->path(u"ip/component.xml"_s), component);
        design = session->open(session->path(u"ip/component.xml"_s));
        QVERIFY(design);
        editing = qobject_cast<IDesignEditing *>(design->objectBase());
        QVERIFY(editing);
        session->takeLog();
    }
    void cleanup() { session.reset(); }

    void restoresFilesToTheByte_data();
    void restoresFilesToTheByte();
    void restoresWhatWasAddedWithItsSet();
    void restoresFoldersAndProperties();
    void refusesToRestore();
    void movesAFileWithAllThatIsSaidOfIt();
    void refusesToMove_data();
    void refusesToMove();
    void renamesOnDiskAndEverywhere();
    void renamesWhatIsNotOnDisk();
    void refusesToRename_data();
    void refusesToRename();
    void renamesBackWhenTheDesignRefuses();

private:
    QByteArray saved() const
    {
        if (!design->trySaveToComponentFile().isOk())
            return "not saved";
        return SessionFixture::read(design->componentFileName());
    }
    QString ip(const QString &name) const { return session->path(u"ip/"_s) + name; }
    QStringList under(const QString &node) const
    {
        QStringList names;
        for (const DesignFile *file : design->filesUnderNode(node, false))
            names.append(file->fileName());
        return names;
    }

    std::optional<SessionFixture> session;
    IDesign *design = nullptr;
    IDesignEditing *editing = nullptr;
};

void tst_DesignEditing::restoresFilesToTheByte_data()
{
    QTest::addColumn<QStringList>("removed");
    QTest::addColumn<QStringList>("restored");
    QTest::newRow("back-1 the first")
        << QStringList {u"rtl/uart.v"_s} << QStringList {u"rtl/uart.v"_s};
    QTest::newRow("back-2 one with a comment")
        << QStringList {u"rtl/fifo.v"_s} << QStringList {u"rtl/fifo.v"_s};
    const QStringList all {u"rtl/uart.v"_s, u"rtl/fifo.v"_s, u"sim/tb.vhd"_s};
    QTest::newRow("back-3 all, in order") << all << all;
    QTest::newRow("back-4 all, backwards")
        << all << QStringList {u"sim/tb.vhd"_s, u"rtl/fifo.v"_s, u"rtl/uart.v"_s};
}

void tst_DesignEditing::restoresFilesToTheByte()
{
    QFETCH(const QStringList, removed);
    QFETCH(const QStringList, restored);
    // What was edited before counts too.
    QVERIFY(design->trySetDescription(u"edited"_s).isOk());
    const QByteArray before = saved();
    for (const QString &path : removed)
        QVERIFY(design->tryRemoveFile(path).isOk());
    QVERIFY(saved() != before);
    for (const QString &path : restored) {
        const Status status = editing->tryRestoreFile(path);
        QVERIFY2(status.isOk(), qPrintable(status.text()));
        QVERIFY(design->fileByActualPath(path, false));
    }
    QCOMPARE(saved(), before);
    QCOMPARE(under(u"rtl"_s), (QStringList {u"uart.v"_s, u"fifo.v"_s}));
    // It can go and come again.
    QVERIFY(design->tryRemoveFile(removed.first()).isOk());
    QVERIFY(editing->tryRestoreFile(removed.first()).isOk());
    QCOMPARE(saved(), before);
}

void tst_DesignEditing::restoresWhatWasAddedWithItsSet()
{
    QVERIFY(design->tryAddFile(u"new.sdc"_s, u"constraints"_s, true).isOk());
    QVERIFY(design->fileByActualPath(u"new.sdc"_s, false)
                ->trySetCategory(Qtilities::Core::QtilitiesCategory({u"Timing"_s}))
                .isOk());
    const QByteArray before = saved();
    QVERIFY(design->tryRemoveFile(u"new.sdc"_s).isOk());
    QVERIFY(editing->tryRestoreFile(u"new.sdc"_s).isOk());
    QCOMPARE(saved(), before);
    // A set that came for the file alone goes and comes with it.
    design->removeFile(u"new.sdc"_s);
    QVERIFY(editing->tryRestoreFile(u"new.sdc"_s).isOk());
    QCOMPARE(saved(), before);
}

void tst_DesignEditing::restoresFoldersAndProperties()
{
    QVERIFY(design->tryAddFolder(u"one"_s).isOk());
    QVERIFY(design->tryAddProperty(u"WIDTH"_s, {}, 8, false).isOk());
    const QByteArray before = saved();
    QVERIFY(design->tryRemoveFolder(u"one"_s).isOk());
    QVERIFY(design->tryRemoveProperty(u"WIDTH"_s).isOk());
    // Nothing of ours is left in the file.
    QVERIFY(!saved().contains("WIDTH"));
    QVERIFY(editing->tryRestoreFolder(u"one"_s).isOk());
    QVERIFY(editing->tryRestoreProperty(u"WIDTH"_s).isOk());
    QVERIFY(design->folderByActualPath(u"one"_s));
    QCOMPARE(design->propertyByName(u"WIDTH"_s)->propertyData().value(), QVariant(8));
    design = session->reopen(design);
    QVERIFY(design);
    editing = qobject_cast<IDesignEditing *>(design->objectBase());
    QCOMPARE(saved(), before);
}

void tst_DesignEditing::refusesToRestore()
{
    QCOMPARE(editing->tryRestoreFile(u"rtl/uart.v"_s).text(),
             u"Nothing has removed the file \"rtl/uart.v\" from the design \"uart\""_s);
    QCOMPARE(editing->tryRestoreProperty(u"x"_s).text(),
             u"Nothing has removed the property \"x\" from the design \"uart\""_s);
    QVERIFY(design->tryRemoveFile(u"rtl/uart.v"_s).isOk());
    QVERIFY(design->tryAddFile(u"rtl/uart.v"_s, QString(), true).isOk());
    QCOMPARE(editing->tryRestoreFile(u"rtl/uart.v"_s).text(),
             u"The design \"uart\" has the file \"%1\" already"_s.arg(ip(u"rtl/uart.v"_s)));
    // The place of a list that is gone is taken by another one.
    QVERIFY(design->tryAddFolder(u"one"_s).isOk());
    QVERIFY(design->tryRemoveFolder(u"one"_s).isOk());
    QVERIFY(design->tryAddFolder(u"two"_s).isOk());
    const QByteArray before = saved();
    QCOMPARE(editing->tryRestoreFolder(u"one"_s).text(),
             u"Something else stands in the component file where it was."_s);
    QCOMPARE(saved(), before);
    QVERIFY(design->tryRemoveFile(u"rtl/uart.v"_s).isOk());
    QVERIFY(design->trySetReadOnly(true).isOk());
    QCOMPARE(editing->tryRestoreFile(u"rtl/uart.v"_s).text(),
             u"The design \"uart\" is read-only"_s);
    QVERIFY(design->trySetReadOnly(false).isOk());
    // Another document knows nothing of it.
    static_cast<void>(saved());
    QVERIFY(design->reloadComponentFile().isOk());
    QVERIFY(!editing->tryRestoreFile(u"rtl/uart.v"_s).isOk());
}

void tst_DesignEditing::movesAFileWithAllThatIsSaidOfIt()
{
    const DesignFile *file = design->fileByActualPath(u"rtl/uart.v"_s, false);
    const Status moved = editing->tryMoveFile(u"rtl/uart.v"_s, u"sim"_s);
    QVERIFY2(moved.isOk(), qPrintable(moved.text()));
    QCOMPARE(design->fileByActualPath(u"rtl/uart.v"_s, false), file);
    QCOMPARE(file->node(), u"sim"_s);
    QCOMPARE(under(u"sim"_s), (QStringList {u"tb.vhd"_s, u"uart.v"_s}));
    QCOMPARE(under(u"rtl"_s), QStringList {u"fifo.v"_s});
    const QByteArray bytes = saved();
    QVERIFY2(bytes.contains("      <ipxact:file fileId=\"u1\">\n"
                            "        <ipxact:name>rtl/uart.v</ipxact:name>\n"
                            "        <ipxact:fileType>verilogSource</ipxact:fileType>\n"
                            "        <ipxact:vendorExtensions>\n"
                            "          <x:note xmlns:x=\"urn:x\">a <b>b</b> &amp; c</x:note>\n"
                            "          <mv:item xmlns:mv=\"urn:morvalen:host:1\" "
                            "category=\"My::Own\"/>\n"
                            "        </ipxact:vendorExtensions>\n"
                            "      </ipxact:file>\n"),
             bytes.constData());
    QVERIFY(bytes.contains("<!-- between -->"));
    QCOMPARE(bytes.count("rtl/uart.v"), 1);
    // To a set that is not there yet, and away again.
    QVERIFY(editing->tryMoveFile(u"rtl/uart.v"_s, u"new set"_s).isOk());
    QCOMPARE(under(u"new set"_s), QStringList {u"uart.v"_s});
    QVERIFY(design->tryRemoveFile(u"rtl/uart.v"_s).isOk());
    QVERIFY(editing->tryRestoreFile(u"rtl/uart.v"_s).isOk());
    QCOMPARE(under(u"new set"_s), QStringList {u"uart.v"_s});
    design = session->reopen(design);
    QCOMPARE(under(u"new set"_s), QStringList {u"uart.v"_s});
}

void tst_DesignEditing::refusesToMove_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("node");
    QTest::addColumn<QString>("text");
    QTest::newRow("stay-1 unknown")
        << u"x.v"_s << u"sim"_s << u"The design \"uart\" does not have \"x.v\""_s;
    QTest::newRow("stay-2 no name")
        << u"rtl/uart.v"_s << QString() << u"The name of a file set cannot be empty"_s;
    QTest::newRow("stay-3 among generated ones")
        << u"rtl/uart.v"_s << u"made"_s << u"The file set \"made\" is for generated files only"_s;
    QTest::newRow("stay-4 where builds keep theirs")
        << u"rtl/uart.v"_s << u"generated"_s
        << u"The file set \"generated\" is for generated files only"_s;
    QTest::newRow("stay-5 a comment would be lost")
        << u"rtl/fifo.v"_s << u"sim"_s
        << u"The file \"rtl/fifo.v\" cannot be moved: the component file has comments or "
           "declarations of its own there, which would be lost."_s;
}

void tst_DesignEditing::refusesToMove()
{
    QFETCH(const QString, path);
    QFETCH(const QString, node);
    QFETCH(const QString, text);
    QCOMPARE(editing->tryMoveFile(path, node).text(), text);
    QVERIFY(!design->isModified());
    QCOMPARE(saved(), component);
}

void tst_DesignEditing::renamesOnDiskAndEverywhere()
{
    QVERIFY(QDir(ip(QString())).mkdir(u"rtl"_s));
    SessionFixture::write(ip(u"rtl/uart.v"_s), "module uart;\n");
    auto added = design->tryAddBuildConfiguration(u"sim"_s);
    QVERIFY(added.isOk());
    BuildDescription description = added.value()->description();
    description.macros = {{u"TOP"_s, u"rtl/uart.v"_s}};
    description.steps = {
        {u"one"_s,
         u"lint rtl/uart.v './rtl/uart.v' xrtl/uart.v rtl/uart.vh rtl/uart.v.bak "_s
             + ip(u"rtl/uart.v"_s) + u"; cat rtl/uart.v."_s,
         {u"rtl/uart.v"_s, u"./rtl/uart.v"_s, u"rtl/fifo.v"_s},
         {u"out/rtl/uart.v"_s},
         {}}};
    QVERIFY(added.value()->trySetDescription(description).isOk());
    const DesignFile *file = design->fileByActualPath(u"rtl/uart.v"_s, false);
    const Status renamed = editing->tryRenameFile(u"rtl/uart.v"_s, u"rtl/se rial.v"_s);
    QVERIFY2(renamed.isOk() && renamed.remarks().isEmpty(), qPrintable(renamed.text()));
    QCOMPARE(SessionFixture::read(ip(u"rtl/se rial.v"_s)), QByteArray("module uart;\n"));
    QVERIFY(!QFileInfo::exists(ip(u"rtl/uart.v"_s)));
    QCOMPARE(design->fileByActualPath(u"rtl/se rial.v"_s, false), file);
    description.macros = {{u"TOP"_s, u"rtl/se rial.v"_s}};
    description.steps.first().command =
        u"lint rtl/se rial.v './rtl/se rial.v' xrtl/uart.v rtl/uart.vh rtl/uart.v.bak "_s
        + ip(u"rtl/se rial.v"_s) + u"; cat rtl/se rial.v."_s;
    description.steps.first().inputs = {u"rtl/se rial.v"_s, u"./rtl/se rial.v"_s, u"rtl/fifo.v"_s};
    QCOMPARE(added.value()->description().macros.first().value, description.macros.first().value);
    QCOMPARE(added.value()->description().steps.first().command, description.steps.first().command);
    QVERIFY(added.value()->description() == description);
    QVERIFY(saved().contains("<ipxact:name>rtl/se rial.v</ipxact:name>"));
}

void tst_DesignEditing::renamesWhatIsNotOnDisk()
{
    QVERIFY(editing->tryRenameFile(u"rtl/uart.v"_s, u"elsewhere/serial.v"_s).isOk());
    QVERIFY(design->fileByActualPath(u"elsewhere/serial.v"_s, false));
    // Its own name is no other one.
    QVERIFY(editing->tryRenameFile(u"sim/tb.vhd"_s, u"sim/tb.vhd"_s).isOk());
}

void tst_DesignEditing::refusesToRename_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("newPath");
    QTest::addColumn<QString>("text");
    QTest::newRow("name-1 unknown")
        << u"x.v"_s << u"y.v"_s << u"The design \"uart\" does not have \"x.v\""_s;
    QTest::newRow("name-2 empty") << u"rtl/uart.v"_s << QString()
                                  << u"\"\" is no name for a file"_s;
    QTest::newRow("name-3 a folder")
        << u"rtl/uart.v"_s << u"rtl/"_s << u"\"rtl/\" is no name for a file"_s;
    QTest::newRow("name-4 in the design")
        << u"rtl/uart.v"_s << u"rtl/fifo.v"_s
        << u"The design \"uart\" has the file \"%1/rtl/fifo.v\" already"_s;
    QTest::newRow("name-5 on disk")
        << u"rtl/uart.v"_s << u"rtl/there.v"_s << u"There is \"%1/rtl/there.v\" already"_s;
    QTest::newRow("name-6 a dangling link")
        << u"rtl/uart.v"_s << u"rtl/dangling.v"_s << u"There is \"%1/rtl/dangling.v\" already"_s;
    QTest::newRow("name-7 no such folder")
        << u"rtl/uart.v"_s << u"none/uart.v"_s << u"There is no folder \"%1/none\""_s;
}

void tst_DesignEditing::refusesToRename()
{
    QFETCH(const QString, path);
    QFETCH(const QString, newPath);
    QFETCH(const QString, text);
    QVERIFY(QDir(ip(QString())).mkdir(u"rtl"_s));
    SessionFixture::write(ip(u"rtl/uart.v"_s), "module uart;\n");
    SessionFixture::write(ip(u"rtl/there.v"_s), "there\n");
    QVERIFY(QFile::link(u"/nowhere/at all"_s, ip(u"rtl/dangling.v"_s)));
    const Status status = editing->tryRenameFile(path, newPath);
    QCOMPARE(status.text(), text.contains(u"%1"_s) ? text.arg(session->path(u"ip"_s)) : text);
    QCOMPARE(SessionFixture::read(ip(u"rtl/uart.v"_s)), QByteArray("module uart;\n"));
    QCOMPARE(SessionFixture::read(ip(u"rtl/there.v"_s)), QByteArray("there\n"));
    QVERIFY(!design->isModified());
}

void tst_DesignEditing::renamesBackWhenTheDesignRefuses()
{
    QVERIFY(QDir(ip(QString())).mkdir(u"rtl"_s));
    SessionFixture::write(ip(u"rtl/uart.v"_s), "module uart;\n");
    // What the format cannot carry.
    const Status status = editing->tryRenameFile(u"rtl/uart.v"_s, u"rtl/a\u0001.v"_s);
    QVERIFY(!status.isOk());
    QCOMPARE(SessionFixture::read(ip(u"rtl/uart.v"_s)), QByteArray("module uart;\n"));
    QVERIFY(!QFileInfo::exists(ip(u"rtl/a\u0001.v"_s)));
    QVERIFY(design->trySetReadOnly(true).isOk());
    QCOMPARE(editing->tryRenameFile(u"rtl/uart.v"_s, u"rtl/b.v"_s).text(),
             u"The design \"uart\" is read-only"_s);
    QVERIFY(QFileInfo::exists(ip(u"rtl/uart.v"_s)));
}

TEST_CLASS(tst_DesignEditing)
#include "tst_DesignEditing.moc"
