#include "tests/host/MorvalenCore/SessionFixture.h"
#include "tests/TestClass.h"

#include <QTest>

#include <optional>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignFile;
using MorvalenCore::Interfaces::IDesign;
using Qtilities::Core::QtilitiesCategory;

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
    "      <ipxact:group>synthesis</ipxact:group>\n"
    "      <ipxact:file>\n"
    "        <ipxact:name>rtl/uart.v</ipxact:name>\n"
    "        <ipxact:fileType>verilogSource</ipxact:fileType>\n"
    "      </ipxact:file>\n"
    "      <ipxact:file>\n"
    "        <ipxact:name>rtl/fifo.v</ipxact:name>\n"
    "        <ipxact:fileType>verilogSource</ipxact:fileType>\n"
    "      </ipxact:file>\n"
    "    </ipxact:fileSet>\n"
    "    <ipxact:fileSet>\n"
    "      <ipxact:name>sim</ipxact:name>\n"
    "      <ipxact:file>\n"
    "        <ipxact:name>sim/tb.vhd</ipxact:name>\n"
    "        <ipxact:fileType>vhdlSource</ipxact:fileType>\n"
    "      </ipxact:file>\n"
    "      <ipxact:file>\n"
    "        <ipxact:name>./rtl/uart.v</ipxact:name>\n"
    "        <ipxact:fileType>verilogSource</ipxact:fileType>\n"
    "      </ipxact:file>\n"
    "    </ipxact:fileSet>\n"
    "    <ipxact:fileSet>\n"
    "      <ipxact:name>empty</ipxact:name>\n"
    "      <ipxact:group>nothing</ipxact:group>\n"
    "    </ipxact:fileSet>\n"
    "  </ipxact:fileSets>\n"
    "</ipxact:component>\n";

template <typename Item>
QStringList paths(const QList<Item *> &items)
{
    QStringList list;
    for (const Item *item : items)
        list.append(item->actualPath());
    return list;
}

QtilitiesCategory category(const QString &text)
{
    return QtilitiesCategory::fromString(text, u"::"_s);
}

} // namespace

// The files of a design.
class tst_DesignFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        session.emplace();
        design = session->openComponent(component);
        QVERIFY(design);
    }
    void cleanup() { session.reset(); }

    void listsEachPathOnceInDocumentOrder();
    void listsTheFilesOfANode_data();
    void listsTheFilesOfANode();
    void findsAFileByAnyFormOfItsPath_data();
    void findsAFileByAnyFormOfItsPath();
    void findsAFileByNameOnly();
    void addsFilesWhereTheyBelong_data();
    void addsFilesWhereTheyBelong();
    void addsToANamedNode();
    void givesANewFileTheCategoryOfItsKind_data();
    void givesANewFileTheCategoryOfItsKind();
    void refusesFiles_data();
    void refusesFiles();
    void keepsThePathTextInTheDocument();
    void removesEveryEntryOfAPath();
    void removesTheFileSetThatAFileNeeded_data();
    void removesTheFileSetThatAFileNeeded();
    void makesNoFileSetForAFileThatIsRefused();
    void dropsARemovedFileFromTheActiveOnes();
    void movesAFile();
    void refusesPathsThatAreTakenOrEmpty();
    void changesTheCategory();
    void knowsWhatIsOnDisk();
    void deletesFromDiskWhatLiesBelowTheDesign();
    void refusesToDeleteFromDisk_data();
    void refusesToDeleteFromDisk();
    void deletesWhereTheDesignIsReachedThroughALink();
    void deletesNothingInAFolderThatTookTheDesignsPlace();
    void refusesEveryChangeOfAReadOnlyDesign();
    void knowsGeneratedFiles_data();
    void knowsGeneratedFiles();
    void addsNothingToGeneratedFiles_data();
    void addsNothingToGeneratedFiles();
    void survivesAReopening();
    void sortsFilesByTheStructureOfANewDesign_data();
    void sortsFilesByTheStructureOfANewDesign();

private:
    void openInstead(const QByteArray &bytes)
    {
        QVERIFY(session->manager()->closeDesign(design->id(u"."_s), false));
        SessionFixture::write(ip(u"component.xml"_s), bytes);
        design = session->open(ip(u"component.xml"_s));
        QVERIFY(design);
    }
    QString ip(const QString &name) const { return session->path(u"ip/"_s + name); }
    DesignFile *add(const QString &path) { return design->addFile(path, QString(), true, nullptr); }
    QStringList all() const { return paths(design->filesUnderNode(QString(), true)); }

    std::optional<SessionFixture> session;
    IDesign *design = nullptr;
};

void tst_DesignFiles::listsEachPathOnceInDocumentOrder()
{
    QCOMPARE(all(), (QStringList {ip(u"rtl/uart.v"_s), ip(u"rtl/fifo.v"_s), ip(u"sim/tb.vhd"_s)}));
}

void tst_DesignFiles::listsTheFilesOfANode_data()
{
    QTest::addColumn<QString>("node");
    QTest::addColumn<bool>("exists");
    QTest::addColumn<QStringList>("names");
    QTest::newRow("node-1 a file set")
        << u"rtl"_s << true << QStringList {u"uart.v"_s, u"fifo.v"_s};
    QTest::newRow("node-2 with an entry that another set has too")
        << u"sim"_s << true << QStringList {u"tb.vhd"_s, u"uart.v"_s};
    QTest::newRow("node-3 a group")
        << u"synthesis"_s << true << QStringList {u"uart.v"_s, u"fifo.v"_s};
    QTest::newRow("node-4 a category with all below it")
        << u"HDL"_s << true << QStringList {u"fifo.v"_s, u"tb.vhd"_s};
    QTest::newRow("node-5 a category path") << u"HDL::VHDL"_s << true << QStringList {u"tb.vhd"_s};
    QTest::newRow("node-6 an empty file set") << u"empty"_s << true << QStringList();
    QTest::newRow("node-7 an empty group") << u"nothing"_s << true << QStringList();
    QTest::newRow("node-8 an unknown one") << u"nobody"_s << false << QStringList();
    QTest::newRow("node-9 in another case") << u"RTL"_s << false << QStringList();
    QTest::newRow("node-10 the beginning of a category") << u"HD"_s << false << QStringList();
}

void tst_DesignFiles::listsTheFilesOfANode()
{
    QFETCH(QString, node);
    QVERIFY(
        design->fileByActualPath(u"rtl/fifo.v"_s, false)->setCategory(category(u"HDL::Verilog"_s)));
    QVERIFY(
        design->fileByActualPath(u"sim/tb.vhd"_s, false)->setCategory(category(u"HDL::VHDL"_s)));
    QStringList names;
    for (const DesignFile *file : design->filesUnderNode(node, true))
        names.append(file->fileName());
    QTEST(names, "names");
    QTEST(design->hasNode(node), "exists");
    QVERIFY(!design->hasNode(QString()));
}

void tst_DesignFiles::findsAFileByAnyFormOfItsPath_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("found");
    QTest::newRow("find-1 relative") << u"rtl/uart.v"_s << true;
    QTest::newRow("find-2 absolute") << u"IP/rtl/uart.v"_s << true;
    QTest::newRow("find-3 not clean") << u"IP/./sim/..//rtl/uart.v"_s << true;
    QTest::newRow("find-4 the spelling of Windows") << u"rtl\\uart.v"_s << true;
    QTest::newRow("find-5 empty") << QString() << false;
    QTest::newRow("find-6 name only") << u"uart.v"_s << false;
    QTest::newRow("find-7 another case") << u"rtl/UART.v"_s << false;
    QTest::newRow("find-8 a folder") << u"rtl"_s << false;
}

void tst_DesignFiles::findsAFileByAnyFormOfItsPath()
{
    QFETCH(QString, path);
    const DesignFile *file = design->fileByActualPath(path.replace(u"IP/"_s, ip(QString())), false);
    QTEST(file != nullptr, "found");
    QVERIFY(!file || file->actualPath() == ip(u"rtl/uart.v"_s));
}

void tst_DesignFiles::findsAFileByNameOnly()
{
    QCOMPARE(design->fileByActualPath(u"tb.vhd"_s, true)->actualPath(), ip(u"sim/tb.vhd"_s));
    QVERIFY(!design->fileByActualPath(u"sim/tb.vhd"_s, true));
}

void tst_DesignFiles::addsFilesWhereTheyBelong_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("node");
    QTest::newRow("place-1 with its like") << u"x/new.vhd"_s << u"sim"_s;
    QTest::newRow("place-2 with the first of its like") << u"x/new.v"_s << u"rtl"_s;
    QTest::newRow("place-3 else the first file set") << u"x/new.pdf"_s << u"rtl"_s;
    QTest::newRow("place-4 an unknown kind") << u"x/new.odd"_s << u"rtl"_s;
}

void tst_DesignFiles::addsFilesWhereTheyBelong()
{
    QFETCH(QString, path);
    QString error;
    const DesignFile *file = design->addFile(path, QString(), true, &error);
    QVERIFY2(file, qPrintable(error));
    QTEST(file->node(), "node");
    QCOMPARE(file->actualPath(), ip(path));
    QVERIFY(design->isModified());
}

void tst_DesignFiles::addsToANamedNode()
{
    QCOMPARE(design->addFile(u"a.v"_s, u"sim"_s, true, nullptr)->node(), u"sim"_s);
    QCOMPARE(design->addFile(u"b.v"_s, u"brand_new"_s, true, nullptr)->node(), u"brand_new"_s);
    QVERIFY(design->hasNode(u"brand_new"_s));
    QCOMPARE(design->nodeNames().last(), u"brand_new"_s);
    QVERIFY(design->removeFile(u"b.v"_s));
    QCOMPARE(design->nodeNames().last(), u"brand_new"_s);
    QCOMPARE(design->nodeNames().count(u"sim"_s), 1);
}

void tst_DesignFiles::givesANewFileTheCategoryOfItsKind_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("expected");
    const struct
    {
        const char *path;
        const char *category;
    } rows[] = {{"a.v", "HDL::Verilog"},
                {"a.VH", "HDL::Verilog"},
                {"a.sv", "HDL::SystemVerilog"},
                {"a.vhd", "HDL::VHDL"},
                {"a.xdc", "Constraints"},
                {"a.tcl", "Scripts::Tcl"},
                {"a.py", "Scripts::Python"},
                {"Makefile", "Scripts::Make"},
                {"a.c", "Software::C"},
                {"a.h", "Software::C"},
                {"a.cpp", "Software::C++"},
                {"a.S", "Software::Assembler"},
                {"a.md", "Documentation"},
                {"a.odd", "Other"},
                {"v", "Other"},
                {"x.v/README", "Other"}};
    for (const auto &row : rows)
        QTest::newRow(qPrintable(u"kind "_s + QLatin1StringView(row.path)))
            << QString(QLatin1StringView(row.path)) << QString(QLatin1StringView(row.category));
}

void tst_DesignFiles::givesANewFileTheCategoryOfItsKind()
{
    QFETCH(QString, path);
    QVERIFY(add(path));
    QTEST(design->fileByActualPath(path, false)->category().toString(u"::"_s), "expected");
    design = session->reopen(design);
    QTEST(design->fileByActualPath(path, false)->category().toString(u"::"_s), "expected");
}

void tst_DesignFiles::refusesFiles_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("reason");
    QTest::newRow("add-refused-1 empty") << QString() << u"The path of a file cannot be empty"_s;
    QTest::newRow("add-refused-2 one that is there")
        << u"sim/../rtl/fifo.v"_s
        << u"The design \"uart\" has the file \"IP/rtl/fifo.v\" already"_s;
}

void tst_DesignFiles::refusesFiles()
{
    QFETCH(QString, path);
    QFETCH(QString, reason);
    const QStringList before = all();
    QString error;
    QVERIFY(!design->addFile(path, QString(), true, &error));
    QCOMPARE(error, reason.replace(u"IP"_s, session->path(u"ip"_s)));
    QCOMPARE(all(), before);
    QVERIFY(!design->isModified());

    for (const QString &odd : {QString(u"a"_s + QChar(0) + u"b.v"_s), QString(QChar(0xd800)),
                               QString(u"bell\u0007.v"_s)}) {
        error.clear();
        QVERIFY(!design->addFile(odd, QString(), true, &error));
        QVERIFY(!error.isEmpty());
    }
    QVERIFY(!design->isModified());
}

void tst_DesignFiles::keepsThePathTextInTheDocument()
{
    QVERIFY(add(u"$SRC/a.v"_s));
    QVERIFY(add(u"lib\\b.v"_s));
    QVERIFY(add(ip(u"inside/c.v"_s)));
    QVERIFY(add(u"/outside/d.v"_s));
    QVERIFY(add(u"odd \"name\" <&> %1 \U0001F600.v"_s));
    QVERIFY(design->saveToComponentFile(nullptr));
    const QByteArray saved = SessionFixture::read(design->componentFileName());
    for (const QByteArray &text : {QByteArray(">$SRC/a.v<"), QByteArray(">lib\\b.v<"),
                                   QByteArray(">inside/c.v<"), QByteArray(">/outside/d.v<"),
                                   QByteArray("\"name\" &lt;&amp;&gt; %1 \xf0\x9f\x98\x80.v<")})
        QVERIFY2(saved.contains(text), text.constData());
    design = session->reopen(design);
    QVERIFY(design->fileByActualPath(u"odd \"name\" <&> %1 \U0001F600.v"_s, false));
    QVERIFY(design->fileByActualPath(u"$SRC/a.v"_s, false));
    QVERIFY(design->fileByActualPath(u"lib/b.v"_s, false));
}

void tst_DesignFiles::removesEveryEntryOfAPath()
{
    QVERIFY(design->removeFile(u"rtl/uart.v"_s));
    QVERIFY(!design->removeFile(u"rtl/uart.v"_s));
    QCOMPARE(all(), (QStringList {ip(u"rtl/fifo.v"_s), ip(u"sim/tb.vhd"_s)}));
    QVERIFY(design->saveToComponentFile(nullptr));
    QVERIFY(!SessionFixture::read(design->componentFileName()).contains("uart.v"));
    QVERIFY(!design->removeFile(QString()));
}

void tst_DesignFiles::removesTheFileSetThatAFileNeeded_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QByteArray without = component;
    const qsizetype start = without.indexOf("  <ipxact:fileSets>");
    without.remove(start, without.indexOf("</ipxact:component>") - start);
    QTest::newRow("passing-1 no file sets") << without;
    QTest::newRow("passing-2 an element for them") << QByteArray(without).replace(
        "</ipxact:component>", "  <ipxact:fileSets/>\n</ipxact:component>");
    QTest::newRow("passing-3 generated files only")
        << QByteArray(component)
               .replace("<ipxact:name>rtl</ipxact:name>\n      <ipxact:group>synthesis",
                        "<ipxact:name>rtl</ipxact:name>\n      <ipxact:group>generatedFiles")
               .replace("<ipxact:name>sim</ipxact:name>\n",
                        "<ipxact:name>sim</ipxact:name>\n"
                        "      <ipxact:group>generatedFiles</ipxact:group>\n")
               .replace("nothing", "generatedFiles");
}

void tst_DesignFiles::removesTheFileSetThatAFileNeeded()
{
    QFETCH(const QByteArray, bytes);
    openInstead(bytes);
    const QStringList nodes = design->nodeNames();
    QVERIFY(add(u"a.v"_s));
    QVERIFY(add(u"b.v"_s));
    QCOMPARE(design->nodeNames(), nodes + QStringList {u"files"_s});
    QVERIFY(design->saveToComponentFile(nullptr));
    QVERIFY(design->removeFile(u"a.v"_s));
    QCOMPARE(design->nodeNames(), nodes + QStringList {u"files"_s});
    QVERIFY(design->removeFile(u"b.v"_s));
    QCOMPARE(design->nodeNames(), nodes);
    QVERIFY(design->saveToComponentFile(nullptr));
    QCOMPARE(SessionFixture::read(design->componentFileName()), bytes);
    QVERIFY(add(u"c.v"_s));
    QCOMPARE(design->nodeNames(), nodes + QStringList {u"files"_s});
}

void tst_DesignFiles::makesNoFileSetForAFileThatIsRefused()
{
    const QStringList nodes = design->nodeNames();
    QVERIFY(!design->addFile(u"a\x01"_s, u"brand_new"_s, true, nullptr));
    QCOMPARE(design->nodeNames(), nodes);
    QVERIFY(!design->isModified());
}

void tst_DesignFiles::dropsARemovedFileFromTheActiveOnes()
{
    DesignFile *uart = design->fileByActualPath(u"rtl/uart.v"_s, false);
    DesignFile *fifo = design->fileByActualPath(u"rtl/fifo.v"_s, false);
    QVERIFY(design->activeFiles().isEmpty());
    design->setActiveFiles({uart, fifo});
    QCOMPARE(design->activeFiles().size(), 2);
    QVERIFY(design->removeFile(u"rtl/uart.v"_s));
    QCOMPARE(design->activeFiles(), QList<QPointer<DesignFile>> {fifo});
    design->setActiveFiles({});
    QVERIFY(design->activeFiles().isEmpty());
    QVERIFY(design->isModified());
}

void tst_DesignFiles::movesAFile()
{
    DesignFile *uart = design->fileByActualPath(u"rtl/uart.v"_s, false);
    uart->setActualPath(u"./moved/../core/u.v"_s);
    QCOMPARE(uart->actualPath(), ip(u"core/u.v"_s));
    QCOMPARE(uart->fileName(), u"u.v"_s);
    QCOMPARE(uart->getName(), u"u.v"_s);
    QCOMPARE(design->fileByActualPath(u"core/u.v"_s, false), uart);
    QVERIFY(!design->fileByActualPath(u"rtl/uart.v"_s, false));
    QVERIFY(!uart->setName(u"other.v"_s));
    QCOMPARE(all().first(), ip(u"core/u.v"_s));
    QVERIFY(add(u"rtl/uart.v"_s));
}

void tst_DesignFiles::refusesPathsThatAreTakenOrEmpty()
{
    DesignFile *uart = design->fileByActualPath(u"rtl/uart.v"_s, false);
    uart->setActualPath(QString());
    uart->setActualPath(u"rtl/fifo.v"_s);
    uart->setActualPath(u"zero"_s + QChar(0));
    QCOMPARE(uart->actualPath(), ip(u"rtl/uart.v"_s));
    QCOMPARE(session->takeLog().size(), 3);
    uart->setActualPath(u"rtl/./uart.v"_s);
    QCOMPARE(session->takeLog(), QStringList());
    QVERIFY(!design->isModified());
}

void tst_DesignFiles::changesTheCategory()
{
    DesignFile *uart = design->fileByActualPath(u"rtl/uart.v"_s, false);
    QCOMPARE(uart->category().toString(u"::"_s), u"synthesis"_s);
    QCOMPARE(design->fileByActualPath(u"sim/tb.vhd"_s, false)->category().toString(u"::"_s),
             u"sim"_s);
    QVERIFY(uart->setCategory(category(u"A::::B \" <::"_s)));
    QCOMPARE(uart->category().toString(u"::"_s), u"A::B \" <"_s);
    QVERIFY(uart->setCategory({}));
    QCOMPARE(uart->category().toString(u"::"_s), u"synthesis"_s);
    QVERIFY(!uart->setCategory(category(u"zero"_s + QChar(0))));
}

void tst_DesignFiles::knowsWhatIsOnDisk()
{
    const DesignFile *uart = design->fileByActualPath(u"rtl/uart.v"_s, false);
    QVERIFY(!uart->existsOnDisk());
    SessionFixture::write(ip(u"rtl/uart.v"_s), "module");
    QVERIFY(uart->existsOnDisk());
    const DesignFile *folder = add(u"rtl"_s);
    QVERIFY(!folder->existsOnDisk());
    const DesignFile *variable = add(u"$MV_FILES_TEST/rtl/uart.v"_s);
    qunsetenv("MV_FILES_TEST");
    QVERIFY(!variable->existsOnDisk());
    qputenv("MV_FILES_TEST", QFile::encodeName(session->path(u"ip"_s)));
    QVERIFY(variable->existsOnDisk());
}

void tst_DesignFiles::deletesFromDiskWhatLiesBelowTheDesign()
{
    SessionFixture::write(ip(u"rtl/uart.v"_s), "module");
    SessionFixture::write(ip(u"rtl/other.v"_s), "module");
    QVERIFY(design->fileByActualPath(u"rtl/uart.v"_s, false)->removeFromComputer(true));
    QVERIFY(!QFileInfo::exists(ip(u"rtl/uart.v"_s)));
    QVERIFY(QFileInfo::exists(ip(u"rtl/other.v"_s)));
    QVERIFY(design->fileByActualPath(u"rtl/uart.v"_s, false));
    QVERIFY(!design->isModified());
}

void tst_DesignFiles::refusesToDeleteFromDisk_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("reason");
    QTest::newRow("delete-refused-1 not on disk")
        << u"gone.v"_s << u"\"IP/gone.v\" is not on disk"_s;
    QTest::newRow("delete-refused-2 a folder")
        << u"folder"_s << u"\"IP/folder\" is not deleted because it is not a regular file"_s;
    QTest::newRow("delete-refused-3 elsewhere")
        << u"../other/f.v"_s
        << u"\"OTHER/f.v\" is not deleted because it does not lie below \"IP\""_s;
    QTest::newRow("delete-refused-4 a link")
        << u"link.v"_s << u"\"IP/link.v\" is not deleted because it is a link"_s;
    QTest::newRow("delete-refused-5 behind a link")
        << u"way/f.v"_s << u"\"IP/way/f.v\" is not deleted because it is not a canonical path"_s;
    QTest::newRow("delete-refused-6 the component file")
        << u"component.xml"_s
        << u"\"IP/component.xml\" is not deleted because it is or holds \"IP/component.xml\""_s;
    QTest::newRow("delete-refused-7 the root")
        << u"/"_s << u"\"/\" is not deleted because it is or holds \"/\""_s;
    QTest::newRow("delete-refused-8 a variable that is not set")
        << u"$MV_UNSET/f.v"_s
        << u"\"$MV_UNSET/f.v\" names the environment variable \"MV_UNSET\", which is not set"_s;
}

void tst_DesignFiles::refusesToDeleteFromDisk()
{
    QFETCH(QString, path);
    QFETCH(QString, reason);
    SessionFixture::write(ip(u"folder/f"_s), "f");
    SessionFixture::write(session->path(u"other/f.v"_s), "f");
    QVERIFY(QFile::link(ip(u"folder/f"_s), ip(u"link.v"_s)));
    QVERIFY(QFile::link(session->path(u"other"_s), ip(u"way"_s)));
    DesignFile *file = add(path);
    QVERIFY(file);
    session->takeLog();
    QVERIFY(!file->removeFromComputer(true));
    QVERIFY(!file->removeFromComputer(false));
    reason.replace(u"IP"_s, session->path(u"ip"_s)).replace(u"OTHER"_s, session->path(u"other"_s));
    QCOMPARE(session->takeLog(), (QStringList {u"Warning: "_s + reason, u"Warning: "_s + reason}));
    QVERIFY(QFileInfo::exists(ip(u"folder/f"_s)));
    QVERIFY(QFileInfo::exists(session->path(u"other/f.v"_s)));
    QVERIFY(QFileInfo::exists(ip(u"component.xml"_s)));
    QVERIFY(QFileInfo(ip(u"link.v"_s)).isSymLink());
}

void tst_DesignFiles::deletesWhereTheDesignIsReachedThroughALink()
{
    QVERIFY(session->manager()->closeDesign(design->id(u"."_s), false));
    QVERIFY(QFile::link(session->path(u"ip"_s), session->path(u"alias"_s)));
    SessionFixture::write(ip(u"rtl/uart.v"_s), "module");
    design = session->open(session->path(u"alias/component.xml"_s));
    QVERIFY(design->fileByActualPath(u"rtl/uart.v"_s, false)->removeFromComputer(true));
    QVERIFY(!QFileInfo::exists(ip(u"rtl/uart.v"_s)));
}

void tst_DesignFiles::deletesNothingInAFolderThatTookTheDesignsPlace()
{
    SessionFixture::write(session->path(u"other/rtl/uart.v"_s), "module");
    DesignFile *uart = design->fileByActualPath(u"rtl/uart.v"_s, false);
    QVERIFY(QFile::rename(session->path(u"ip"_s), session->path(u"moved"_s)));
    QVERIFY(QFile::link(session->path(u"other"_s), session->path(u"ip"_s)));
    QVERIFY(uart->existsOnDisk());
    QVERIFY(!uart->removeFromComputer(true));
    QCOMPARE(
        session->takeLog(),
        QStringList {u"Warning: \"%1\" is not deleted because it is not a canonical path"_s.arg(
            ip(u"rtl/uart.v"_s))});
    QVERIFY(QFileInfo::exists(session->path(u"other/rtl/uart.v"_s)));
}

void tst_DesignFiles::refusesEveryChangeOfAReadOnlyDesign()
{
    SessionFixture::write(ip(u"rtl/uart.v"_s), "module");
    DesignFile *uart = design->fileByActualPath(u"rtl/uart.v"_s, false);
    design->setReadOnly(true);
    QVERIFY(design->saveToComponentFile(nullptr));
    session->takeLog();
    const QString reason = u"The design \"uart\" is read-only"_s;
    QString error;
    QVERIFY(!design->addFile(u"new.v"_s, QString(), true, &error));
    QCOMPARE(error, reason);
    QCOMPARE(session->takeLog(), QStringList());
    QVERIFY(!design->removeFile(u"rtl/uart.v"_s));
    QVERIFY(!uart->setCategory(category(u"X"_s)));
    uart->setActualPath(u"x.v"_s);
    QVERIFY(!uart->removeFromComputer(true));
    QCOMPARE(session->takeLog(), QStringList(4, u"Warning: "_s + reason));
    QCOMPARE(uart->actualPath(), ip(u"rtl/uart.v"_s));
    QVERIFY(uart->existsOnDisk());
    QVERIFY(!design->isModified());
    // Choosing is no change.
    design->setActiveFiles({uart});
    QCOMPARE(design->activeFiles().size(), 1);
}

void tst_DesignFiles::knowsGeneratedFiles_data()
{
    QTest::addColumn<QByteArray>("version");
    QTest::newRow("of the current version") << QByteArray("2.1");
    QTest::newRow("where the component has no version") << QByteArray();
}

void tst_DesignFiles::knowsGeneratedFiles()
{
    QFETCH(const QByteArray, version);
    QByteArray generated = component;
    generated.replace(">2.1<", ">" + version + "<");
    generated.replace("<ipxact:group>nothing</ipxact:group>\n",
                      "<ipxact:group>generatedFiles</ipxact:group>\n"
                      "      <ipxact:file><ipxact:name>out/a.bit</ipxact:name>"
                      "<ipxact:fileType>unknown</ipxact:fileType></ipxact:file>\n");
    openInstead(generated);
    QCOMPARE(design->fileByActualPath(u"out/a.bit"_s, false)->generatedVersion(),
             QString::fromUtf8(version));
    QVERIFY(design->fileByActualPath(u"out/a.bit"_s, false)->isGenerated());
    QVERIFY(!design->fileByActualPath(u"rtl/uart.v"_s, false)->isGenerated());
}

void tst_DesignFiles::addsNothingToGeneratedFiles_data()
{
    QTest::addColumn<QByteArray>("rest");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("node");
    const auto set = [](const QByteArray &name, const QByteArray &files) {
        return "<ipxact:fileSet><ipxact:name>" + name + "</ipxact:name>" + files
            + "</ipxact:fileSet>";
    };
    const QByteArray group = "<ipxact:group>generatedFiles</ipxact:group>";
    const auto file = [](const QByteArray &name, const QByteArray &type) {
        return "<ipxact:file><ipxact:name>" + name + "</ipxact:name><ipxact:fileType>" + type
            + "</ipxact:fileType></ipxact:file>";
    };
    const QByteArray made = set("made", group + file("m.v", "verilogSource"));
    const QByteArray old = set("old", file("a.v", "verilogSource-95"));
    QTest::newRow("generated-1 of the same type")
        << made + set("mine", {}) << u"n.v"_s << u"mine"_s;
    QTest::newRow("generated-2 another year of the language")
        << made + set("mine", {}) + old << u"n.v"_s << u"old"_s;
    QTest::newRow("generated-3 the usual set")
        << set("files", group) + set("mine", {}) << u"n.odd"_s << u"mine"_s;
    QTest::newRow("generated-4 no other set is there") << made << u"n.v"_s << u"files"_s;
    QTest::newRow("generated-5 nor is the usual one free")
        << made + set("files", group) + set("files_2", group) << u"n.v"_s << u"files_3"_s;
}

void tst_DesignFiles::addsNothingToGeneratedFiles()
{
    QFETCH(const QByteArray, rest);
    QFETCH(const QString, path);
    const qsizetype sets = component.indexOf("    <ipxact:fileSet>\n");
    openInstead(component.first(sets) + rest
                + component.sliced(component.indexOf("  </ipxact:fileSets>")));
    const DesignFile *file = add(path);
    QVERIFY(file);
    QTEST(file->node(), "node");
    QVERIFY(!file->isGenerated());
}

void tst_DesignFiles::survivesAReopening()
{
    QVERIFY(add(u"docs/manual.pdf"_s));
    QVERIFY(design->fileByActualPath(u"rtl/fifo.v"_s, false)->setCategory(category(u"X::Y"_s)));
    const QStringList before = all();
    design = session->reopen(design);
    QCOMPARE(all(), before);
    QCOMPARE(design->fileByActualPath(u"rtl/fifo.v"_s, false)->category().toString(u"::"_s),
             u"X::Y"_s);
}

void tst_DesignFiles::sortsFilesByTheStructureOfANewDesign_data()
{
    QTest::addColumn<QString>("structure");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("node");
    QTest::newRow("flat-1 anything") << u"Flat"_s << u"x/a.v"_s << u"files"_s;
    QTest::newRow("hardware-1 a source") << u"Hardware"_s << u"a.vhd"_s << u"rtl"_s;
    QTest::newRow("hardware-2 a testbench") << u"Hardware"_s << u"uart_tb.sv"_s << u"testbench"_s;
    QTest::newRow("hardware-3 in the folder of a file set")
        << u"Hardware"_s << u"testbench/model.v"_s << u"testbench"_s;
    QTest::newRow("hardware-4 constraints") << u"Hardware"_s << u"pins.XDC"_s << u"constraints"_s;
    QTest::newRow("hardware-5 a document") << u"Hardware"_s << u"README.md"_s << u"documents"_s;
    QTest::newRow("hardware-6 anything else") << u"Hardware"_s << u"a.odd"_s << u"rtl"_s;
    QTest::newRow("hardware-7 by an absolute path")
        << u"Hardware"_s << u"DESIGN/documents/x.v"_s << u"documents"_s;
    QTest::newRow("software-1 a source") << u"Software"_s << u"main.cpp"_s << u"sources"_s;
    QTest::newRow("software-2 a header") << u"Software"_s << u"main.h"_s << u"headers"_s;
    QTest::newRow("software-3 a test") << u"Software"_s << u"tst_main.cpp"_s << u"tests"_s;
}

void tst_DesignFiles::sortsFilesByTheStructureOfANewDesign()
{
    QFETCH(QString, structure);
    QFETCH(QString, path);
    design = session->create(u"fresh"_s, u"Custom Design"_s, structure);
    QVERIFY(design);
    const DesignFile *file = add(path.replace(u"DESIGN"_s, session->designs(u"fresh"_s)));
    QVERIFY(file);
    QTEST(file->node(), "node");
}

TEST_CLASS(tst_DesignFiles)
#include "tst_DesignFiles.moc"
