#include "componenttexts.h"
#include "tests/TestClass.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace ComponentTexts;
using namespace MorvalenCore;
using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Status;

namespace {

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(cannot be read)");
}

void put(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

QStringList warningsOf(const Status &status)
{
    QStringList texts;
    for (const Status::Remark &remark : status.remarks())
        texts.append(remark.text);
    return texts;
}

} // namespace

class tst_ComponentDocument : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void generations_data();
    void generations();
    void refused_data();
    void refused();
    void unreadable();
    void tooLarge();
    void warnings_data();
    void warnings();
    void texts_data();
    void texts();
    void textsRefused_data();
    void textsRefused();
    void foreignAuthor();
    void readOnly();
    void created();
    void createdRefused();
    void saved();
    void savedTwice();
    void changedOnDisk_data();
    void changedOnDisk();
    void changedOnDiskUnderAnOldTime();
    void copies();
    void failedSave();
    void savedButNotSynchronised();
};

void tst_ComponentDocument::generations_data()
{
    QTest::addColumn<QByteArray>("root");
    QTest::addColumn<int>("generation");
    QTest::addColumn<QString>("name");
    const auto row = [](const char *title, const char *generation, Generation value) {
        QTest::newRow(title) << component({}, generation) << int(value)
                             << QString::fromLatin1(generation);
    };
    row("generation-1 SPIRIT 1.4", "1.4", Generation::Spirit14);
    row("generation-2 SPIRIT 1.5", "1.5", Generation::Spirit15);
    row("generation-3 IEEE 2009", "1685-2009", Generation::Ieee2009);
    row("generation-4 IEEE 2014", "1685-2014", Generation::Ieee2014);
    row("generation-5 IEEE 2022", "1685-2022", Generation::Ieee2022);
    QTest::newRow("generation-6 default namespace")
        << component({}).replace("i:", "").replace("xmlns:i", "xmlns") << int(Generation::Ieee2014)
        << u"1685-2014"_s;
    QTest::newRow("generation-7 the namespace decides, not the prefix")
        << component({}, "1685-2009")
               .replace("xmlns:i=", "xmlns:ipxact=")
               .replace("<i:", "<ipxact:")
               .replace("</i:", "</ipxact:")
        << int(Generation::Ieee2009) << u"1685-2009"_s;
    QTest::newRow("generation-8 two prefixes, one namespace")
        << component({})
               .replace("xmlns:i=", "xmlns='" + uriOf("1685-2014") + "' xmlns:i=")
               .replace("i:vendor>", "vendor>")
        << int(Generation::Ieee2014) << u"1685-2014"_s;
    QTest::newRow("generation-9 byte order mark, CRLF and no final line end")
        << "\xef\xbb\xbf" + component({}).replace("\n", "\r\n").trimmed()
        << int(Generation::Ieee2014) << u"1685-2014"_s;
}

void tst_ComponentDocument::generations()
{
    QFETCH(QByteArray, root);
    const auto opened = ComponentDocument::fromBytes(root, u"/d/../d/c.xml"_s);
    QVERIFY2(opened.isOk(), qPrintable(opened.status().text()));
    QCOMPARE(warningsOf(opened.status()), QStringList());
    const ComponentDocument &document = *opened.value();
    QTEST(int(document.generation()), "generation");
    QTEST(document.generationName(), "name");
    QCOMPARE(document.path(), u"/d/c.xml"_s);
    QCOMPARE(document.folder(), u"/d"_s);
    QCOMPARE(document.text(DesignField::Vendor), u"v.org"_s);
    QCOMPARE(document.text(DesignField::Library), u"lib"_s);
    QCOMPARE(document.text(DesignField::Name), u"demo"_s);
    QCOMPARE(document.text(DesignField::Version), u"1.0"_s);
    QCOMPARE(document.bytes(), root);
    QVERIFY(!document.isModified());
}

void tst_ComponentDocument::refused_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("error");
    const QByteArray uri = uriOf("1685-2014");
    const QString notComponent = u"The document is not a component: its root element is %1 %2."_s;
    const QString notRead = u"The document is not of a version of IP-XACT that can be read: its "
                            "root element is %1 %2."_s;
    QTest::newRow("refused-1 a design")
        << "<?xml version='1.0'?>\n<!-- -->\n<i:design xmlns:i='" + uri + "'/>"
        << u"3: "_s
            + notComponent.arg(u"i:design"_s, u"in the namespace "_s + QString::fromLatin1(uri));
    QTest::newRow("refused-2 a catalog without a prefix") << "<catalog xmlns='" + uri + "'/>"
                                                          << u"1: "_s
            + notComponent.arg(u"catalog"_s, u"in the namespace "_s + QString::fromLatin1(uri));
    QTest::newRow("refused-3 a page")
        << QByteArray("<html><body/></html>")
        << u"1: "_s + notComponent.arg(u"html"_s, u"in no namespace"_s);
    QTest::newRow("refused-4 a component in no namespace")
        << QByteArray("\n<component><name>a</name></component>")
        << u"2: "_s + notRead.arg(u"component"_s, u"in no namespace"_s);
    QTest::newRow("refused-5 a component of another standard")
        << QByteArray("<x:component xmlns:x='urn:other'/>")
        << u"1: "_s + notRead.arg(u"x:component"_s, u"in the namespace urn:other"_s);
    QTest::newRow("refused-6 a prefix that nobody declared")
        << QByteArray("<x:component/>")
        << u"1: "_s + notRead.arg(u"x:component"_s, u"in no namespace"_s);
    QTest::newRow("refused-7 no name") << component({}).replace("  <i:name>demo</i:name>\n", "")
                                       << u"2: The component has no name."_s;
    QTest::newRow("refused-8 an empty name")
        << component({}).replace("demo", " <!-- none --> ") << u"5: The component has no name."_s;
    QTest::newRow("refused-9 a name in another namespace")
        << component({}).replace("<i:name>demo</i:name>", "<name>demo</name>")
        << u"2: The component has no name."_s;
    QTest::newRow("refused-10 truncated")
        << component({}).chopped(15)
        << u"7: The document is not well-formed: it ends before its "
           "element i:component does."_s;
    QTest::newRow("refused-11 empty") << QByteArray() << u"1: The file is empty."_s;
    QTest::newRow("refused-12 a document type")
        << component({}).replace("<i:component", "<!DOCTYPE i:component>\n<i:component")
        << u"2: The document has a document type declaration (DOCTYPE), which is not allowed."_s;
}

void tst_ComponentDocument::refused()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, error);
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"a b.xml"_s);
    put(path, bytes);
    const auto opened = ComponentDocument::open(path);
    QCOMPARE(opened.status().text(), path + u':' + error);
    QVERIFY(!opened.isOk());
    QCOMPARE(contentOf(path), bytes);
}

void tst_ComponentDocument::unreadable()
{
    const QTemporaryDir folder;
    const auto errorOf = [](const QString &path) {
        const auto opened = ComponentDocument::open(path);
        return opened.isOk() ? u"opened"_s : opened.status().text();
    };
    const QString missing = folder.filePath(u"missing.xml"_s);
    QCOMPARE(errorOf(missing),
             missing + u":1: The file cannot be read: No such file or directory."_s);
    QCOMPARE(errorOf(folder.path()),
             folder.path() + u":1: The path is a directory, not a component file."_s);
    const QString there = folder.filePath(u"there.xml"_s);
    put(there, component({}));
    const QString cut = there + QChar(0) + u"x"_s;
    QCOMPARE(errorOf(cut), cut + u":1: The path holds a zero byte."_s);
    const QString pipe = folder.filePath(u"pipe"_s);
    QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    QCOMPARE(errorOf(pipe), pipe + u":1: The path is no regular file."_s);
    const QString loop = folder.filePath(u"loop"_s);
    QVERIFY(QFile::link(loop, loop));
    QCOMPARE(errorOf(loop),
             loop + u":1: The file cannot be read: Too many levels of symbolic links."_s);
}

void tst_ComponentDocument::tooLarge()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"large.xml"_s);
    put(path, component({}));
    // Sparse: takes no room on disk.
    QVERIFY(QFile::resize(path, (256LL << 20) + 1));
    QCOMPARE(ComponentDocument::open(path).status().text(),
             path + u":1: The file is larger than 256 MiB."_s);
}

void tst_ComponentDocument::warnings_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("warnings");
    const QString odd = u"The %1 \"%2\" holds characters that the standard does not allow there."_s;
    QTest::newRow("warnings-1 nothing to say") << component({}) << QStringList();
    QTest::newRow("warnings-2 empty or missing")
        << component({})
               .replace("v.org", "")
               .replace("<i:library>lib</i:library>\n", "\n")
               .replace("<i:version>1.0</i:version>", "<i:version/>")
        << QStringList {u"3: The component has no vendor."_s, u"2: The component has no library."_s,
                        u"6: The component has no version."_s};
    QTest::newRow("warnings-3 blanks and marks")
        << component({}).replace("v.org", "My Company").replace("1.0</i", "1/2</i")
        << QStringList {u"3: "_s + odd.arg(u"vendor"_s, u"My Company"_s),
                        u"6: "_s + odd.arg(u"version"_s, u"1/2"_s)};
    QTest::newRow("warnings-4 letters of all languages are letters")
        << component({}).replace("demo", "\xc3\xa9l\xd0\x96-_.:1") << QStringList();
    const QString undeclared =
        u"The prefix \"%1\" is not declared; other programs may refuse the document."_s;
    QTest::newRow("warnings-5 a prefix that nobody declared")
        << component("  <q:a/>\n  <r:b/>\n") << QStringList {u"7: "_s + undeclared.arg(u"q"_s)};
    QTest::newRow("warnings-6 in what is not looked at")
        << component("  <i:model>\n    <i:views><q:a/></i:views>\n  </i:model>\n")
        << QStringList {u"8: "_s + undeclared.arg(u"q"_s)};
    QTest::newRow("warnings-7 of an attribute")
        << component("  <i:model q:a='1'/>\n") << QStringList {u"7: "_s + undeclared.arg(u"q"_s)};
    QTest::newRow("warnings-8 in front of others")
        << component("  <q:a/>\n").replace("v.org", "")
        << QStringList {u"7: "_s + undeclared.arg(u"q"_s), u"3: The component has no vendor."_s};
    QTest::newRow("warnings-9 declared only inside")
        << component("  <i:a xmlns:q='u'><q:b/></i:a>\n  <q:c/>\n")
        << QStringList {u"8: "_s + undeclared.arg(u"q"_s)};
    QTest::newRow("warnings-10 declared twice, and once still")
        << component("  <q:a xmlns:q='u'><q:b xmlns:q='v' q:c='1'/><q:d/></q:a>\n")
        << QStringList();
    QTest::newRow("warnings-11 declared as nothing")
        << component("  <q:a xmlns:q=''/>\n") << QStringList {u"7: "_s + undeclared.arg(u"q"_s)};
    QTest::newRow("warnings-12 those of XML itself")
        << component("  <i:a xml:lang='en' xmlns='u'><b/></i:a>\n") << QStringList();
}

void tst_ComponentDocument::warnings()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QStringList, warnings);
    for (QString &warning : warnings)
        warning.prepend(u"/d/c.xml:"_s);
    const auto opened = ComponentDocument::fromBytes(bytes, u"/d/c.xml"_s);
    QVERIFY(opened.isOk());
    QCOMPARE(warningsOf(opened.status()), warnings);
}

namespace {

constexpr char ours[] = "  <i:vendorExtensions>\n"
                        "    <mv:design xmlns:mv=\"urn:morvalen:host:1\"%1\n"
                        "  </i:vendorExtensions>\n";

QByteArray ownDesign(const char *attributes) { return QByteArray(ours).replace("%1", attributes); }

} // namespace

void tst_ComponentDocument::texts_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("field");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("expected");

    QTest::newRow("texts-1 the vendor in place")
        << component({}) << int(DesignField::Vendor) << u"\u00e9-1.org"_s
        << component({}).replace("v.org", "\u00e9-1.org");
    QTest::newRow("texts-2 an empty vendor is a name to others")
        << component({}) << int(DesignField::Vendor) << QString()
        << component(ownDesign(" vendor=\"\"/>")).replace("v.org", "_");
    QTest::newRow("texts-3 a self-closing vendor is opened")
        << component({}).replace("<i:vendor>v.org</i:vendor>", "<i:vendor/>")
        << int(DesignField::Vendor) << u"v.org"_s << component({});
    QTest::newRow("texts-4 a missing library at its place")
        << component({}).replace("  <i:library>lib</i:library>\n", "") << int(DesignField::Library)
        << u"lib"_s << component({});
    QTest::newRow("texts-5 name") << component({}) << int(DesignField::Name) << u"demo2"_s
                                  << component({}).replace("demo", "demo2");
    QTest::newRow("texts-6 version") << component({}) << int(DesignField::Version) << u"2"_s
                                     << component({}).replace("1.0</i", "2</i");
    QTest::newRow("texts-7 the same text is no edit")
        << component({}).replace("v.org", "<![CDATA[v.org]]>") << int(DesignField::Vendor)
        << u"v.org"_s << component({}).replace("v.org", "<![CDATA[v.org]]>");

    const QByteArray after = "  <i:fileSets/>\n  <i:cpus/>\n  <i:otherClockDrivers/>\n"
                             "%1%2  <i:parameters/>\n%3  <i:vendorExtensions/>\n";
    const QByteArray text = "  <i:description>d</i:description>\n";
    const auto body = [&](const char *resets, const char *description, const char *assertions) {
        return QByteArray(after)
            .replace("%1", resets)
            .replace("%2", description)
            .replace("%3", assertions);
    };
    for (const char *const generation : {"1.4", "1.5", "1685-2009"}) {
        QTest::addRow("texts-8 a description in %s", generation)
            << component(body("", "", ""), generation) << int(DesignField::Description) << u"d"_s
            << component(body("", text.constData(), ""), generation);
    }
    QTest::newRow("texts-9 a description in 1685-2014")
        << component(body("  <i:resetTypes/>\n", "", "  <i:assertions/>\n"))
        << int(DesignField::Description) << u"d"_s
        << component(body("  <i:resetTypes/>\n", text.constData(), "  <i:assertions/>\n"));
    const QByteArray early = "  <i:displayName/>\n%1  <i:typeDefinitions/>\n  <i:fileSets/>\n";
    QTest::newRow("texts-10 a description in 1685-2022")
        << component(QByteArray(early).replace("%1", ""), "1685-2022")
        << int(DesignField::Description) << u"d"_s
        << component(QByteArray(early).replace("%1", text), "1685-2022");
    QTest::newRow("texts-11 a description before foreign elements at the end")
        << component("  <i:parameters/>\n  <x:y xmlns:x='z'/>\n") << int(DesignField::Description)
        << u"d"_s << component(text + "  <i:parameters/>\n  <x:y xmlns:x='z'/>\n");
    QTest::newRow("texts-12 an empty description goes")
        << component(text) << int(DesignField::Description) << QString() << component({});
    QTest::newRow("texts-13 a description of several lines")
        << component(text) << int(DesignField::Description) << u"a\nb"_s
        << component(QByteArray(text).replace(">d<", ">a\nb<"));

    QTest::newRow("texts-14 type")
        << component({}) << int(DesignField::Type) << u"Hardware Design"_s
        << component(ownDesign(" type=\"Hardware Design\"/>"));
    QTest::newRow("texts-15 structure beside the type")
        << component(ownDesign(" type=\"T\"/>")) << int(DesignField::Structure) << u"Flat"_s
        << component(ownDesign(" type=\"T\" structure=\"Flat\"/>"));
    QTest::newRow("texts-16 the last attribute of ours takes all of ours with it")
        << component(ownDesign(" type=\"T\"/>")) << int(DesignField::Type) << QString()
        << component({});
    QTest::newRow("texts-17 extensions of others stay")
        << component("  <i:vendorExtensions>\n    <o:x xmlns:o='o'><o:y/></o:x>\n"
                     "    <mv:design xmlns:mv='urn:morvalen:host:1' type='T'/>\n"
                     "  </i:vendorExtensions>\n")
        << int(DesignField::Type) << QString()
        << component("  <i:vendorExtensions>\n    <o:x xmlns:o='o'><o:y/></o:x>\n"
                     "  </i:vendorExtensions>\n");
    QTest::newRow("texts-18 author") << component({}) << int(DesignField::Author) << u"Ann"_s
                                     << component(ownDesign(">\n      <mv:author>Ann</mv:author>\n"
                                                            "    </mv:design>"));
    QTest::newRow("texts-19 no author")
        << component(ownDesign(" ><mv:author>Ann</mv:author></mv:design>"))
        << int(DesignField::Author) << QString() << component({});
    QTest::newRow("texts-20 our namespace under another prefix")
        << component({}).replace("xmlns:i=", "xmlns:q='urn:morvalen:host:1' xmlns:i=")
        << int(DesignField::Type) << u"T"_s
        << component("  <i:vendorExtensions>\n    <q:design type=\"T\"/>\n"
                     "  </i:vendorExtensions>\n")
               .replace("xmlns:i=", "xmlns:q='urn:morvalen:host:1' xmlns:i=");
    QTest::newRow("texts-21 our prefix for another namespace")
        << component({}).replace("xmlns:i=", "xmlns:mv='other' xmlns:i=") << int(DesignField::Type)
        << u"T"_s
        << component(ownDesign(" type=\"T\"/>")).replace("xmlns:i=", "xmlns:mv='other' xmlns:i=");
    QTest::newRow("texts-22 an empty element for extensions is opened")
        << component("  <i:vendorExtensions/>\n") << int(DesignField::Type) << u"T"_s
        << component(ownDesign(" type=\"T\"/>"));
    QTest::newRow("texts-23 on one line")
        << component({}).replace("\n", "").replace("  ", "") << int(DesignField::Type) << u"T"_s
        << component("<i:vendorExtensions><mv:design xmlns:mv=\"urn:morvalen:host:1\" type=\"T\"/>"
                     "</i:vendorExtensions>")
               .replace("\n", "")
               .replace("  ", "");
    QTest::newRow("texts-24 a vendor that is no name is one to others")
        << component({}) << int(DesignField::Vendor) << u"Acme & Co."_s
        << component(ownDesign(" vendor=\"Acme &amp; Co.\"/>")).replace("v.org", "Acme___Co.");
    QTest::newRow("texts-25 a library that does not begin like a name")
        << component({}) << int(DesignField::Library) << u"9"_s
        << component(ownDesign(" library=\"9\"/>")).replace(">lib<", ">_9<");
    QTest::newRow("texts-26 a name may begin like that")
        << component({}) << int(DesignField::Name) << u"9\U0001F600"_s
        << component(ownDesign(" name=\"9\U0001F600\"/>")).replace(">demo<", ">9__<");
    QTest::newRow("texts-27 a name again")
        << component(ownDesign(" vendor=\"a b\"/>")).replace("v.org", "a_b")
        << int(DesignField::Vendor) << u"a_b"_s << component({}).replace("v.org", "a_b");
    QTest::newRow("texts-28 what somebody else wrote counts, and may be written again")
        << component(ownDesign(" vendor=\"a b\"/>")) << int(DesignField::Vendor) << u"v.org"_s
        << component(ownDesign(" vendor=\"a b\"/>"));
    QTest::newRow("texts-29 a U+FEFF is a character like any other in content")
        << component(text) << int(DesignField::Description) << u"\ufeffa\ufeffb\ufeff"_s
        << component(QByteArray(text).replace(">d<", ">\ufeffa\ufeffb\ufeff<"));
    QTest::newRow("texts-30 alone, and behind a reference")
        << component(text) << int(DesignField::Description) << u"\ufeff&\ufeff"_s
        << component(QByteArray(text).replace(">d<", ">\ufeff&amp;\ufeff<"));
    QTest::newRow("texts-31 in an attribute")
        << component({}) << int(DesignField::Type) << u"\ufeffa<\ufeffb\ufeff"_s
        << component(ownDesign(" type=\"\ufeffa&lt;\ufeffb\ufeff\"/>"));
    QTest::newRow("texts-32 as a reference")
        << component(QByteArray(text).replace(">d<", ">&#xFEFF;&#65279;<"))
        << int(DesignField::Description) << u"\ufeff\ufeff"_s
        << component(QByteArray(text).replace(">d<", ">&#xFEFF;&#65279;<"));
}

void tst_ComponentDocument::texts()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, field);
    QFETCH(QString, text);
    QFETCH(QByteArray, expected);
    const auto document = open(bytes);
    QVERIFY(document);
    const Status written = document->setText(DesignField(field), text);
    QVERIFY2(written.isOk(), qPrintable(written.text()));
    QCOMPARE(document->text(DesignField(field)), text);
    QCOMPARE(document->bytes(), expected);
    QCOMPARE(document->isModified(), expected != bytes);
    const auto again = open(document->bytes());
    QVERIFY(again);
    QCOMPARE(again->text(DesignField(field)), text);
}

void tst_ComponentDocument::textsRefused_data()
{
    QTest::addColumn<int>("field");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("error");
    QTest::newRow("refused-1 an empty name")
        << int(DesignField::Name) << QString() << u"The name of a design must not be empty."_s;
    for (int field = int(DesignField::Vendor); field <= int(DesignField::Structure); ++field) {
        QTest::addRow("refused-2 a zero in field %d", field)
            << field << u"a"_s + QChar(0)
            << u"The text holds the character U+0000, which XML cannot carry."_s;
    }
}

void tst_ComponentDocument::textsRefused()
{
    QFETCH(int, field);
    QFETCH(QString, text);
    const auto document = open(component({}));
    const Status written = document->setText(DesignField(field), text);
    QVERIFY(!written.isOk());
    QTEST(written.text(), "error");
    QCOMPARE(document->bytes(), component({}));
    QVERIFY(!document->isModified());
}

// The author's element of another program is written where it is, even when we have one too.
void tst_ComponentDocument::foreignAuthor()
{
    const QByteArray bytes = component(
        "  <i:vendorExtensions>\n    <o:author xmlns:o='o'>Bob</o:author>\n"
        "    <mv:design xmlns:mv='urn:morvalen:host:1'><mv:author>Ann</mv:author></mv:design>\n"
        "  </i:vendorExtensions>\n");
    const auto document = open(bytes);
    QCOMPARE(document->text(DesignField::Author), u"Bob"_s);
    QVERIFY(document->setText(DesignField::Author, u"Eve"_s).isOk());
    QCOMPARE(document->bytes(), QByteArray(bytes).replace("Bob", "Eve"));
    QVERIFY(document->setText(DesignField::Author, {}).isOk());
    QCOMPARE(document->text(DesignField::Author), QString());
    QCOMPARE(document->bytes(), QByteArray(bytes).replace("Bob", ""));
}

void tst_ComponentDocument::readOnly()
{
    const auto document = open(component({}));
    QVERIFY(!document->isReadOnly());
    document->setReadOnly(false);
    QVERIFY(!document->isModified());
    document->setReadOnly(true);
    QVERIFY(document->isReadOnly());
    QCOMPARE(document->bytes(), component(ownDesign(" readOnly=\"true\"/>")));
    document->setReadOnly(false);
    QCOMPARE(document->bytes(), component({}));
}

void tst_ComponentDocument::created()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"component.xml"_s);
    const auto created = ComponentDocument::create({u"v_w"_s, u"lib"_s, u"demo"_s, u"1.0"_s}, path);
    QVERIFY2(created.isOk(), qPrintable(created.status().text()));
    ComponentDocument *const document = created.value().get();
    QVERIFY(document->isModified());
    QVERIFY(!QFile::exists(path));
    const Status saved = document->save();
    QVERIFY2(saved.isOk(), qPrintable(saved.text()));
    QVERIFY(!document->isModified());
    QCOMPARE(contentOf(path),
             "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
             "<ipxact:component "
             "xmlns:ipxact=\"http://www.accellera.org/XMLSchema/IPXACT/1685-2014\">\n"
             "  <ipxact:vendor>v_w</ipxact:vendor>\n"
             "  <ipxact:library>lib</ipxact:library>\n"
             "  <ipxact:name>demo</ipxact:name>\n"
             "  <ipxact:version>1.0</ipxact:version>\n"
             "</ipxact:component>\n");
    QVERIFY(ComponentDocument::open(path).isOk());
}

void tst_ComponentDocument::createdRefused()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"component.xml"_s);
    QCOMPARE(ComponentDocument::create({{}, {}, {}, {}}, path).status().text(),
             u"The name of a design must not be empty."_s);
    QCOMPARE(ComponentDocument::create({QString(QChar(1)), {}, u"n"_s, {}}, path).status().text(),
             u"The text holds the character U+0001, which XML cannot carry."_s);

    const auto document = ComponentDocument::create({{}, {}, u"n"_s, {}}, path).value();
    put(path, "somebody else's");
    const Status saved = document->save();
    QCOMPARE(saved.kind(), Status::Kind::AlreadyExists);
    QCOMPARE(saved.text(), u"The file %1 is there already; it is not overwritten."_s.arg(path));
    QCOMPARE(contentOf(path), "somebody else's");
}

void tst_ComponentDocument::saved()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"component.xml"_s);
    put(path, component({}));
    QVERIFY(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup));
    const auto document = ComponentDocument::open(path).value();
    QVERIFY(document->setText(DesignField::Version, u"2"_s).isOk());
    QVERIFY(document->isModified());
    QVERIFY(document->save().isOk());
    QVERIFY(!document->isModified());
    QCOMPARE(contentOf(path), component({}).replace("1.0</i", "2</i"));
    QCOMPARE(QFile::permissions(path) & (QFile::ReadGroup | QFile::ReadOther),
             QFile::Permissions(QFile::ReadGroup));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden),
             QStringList {u"component.xml"_s});
}

// Handles and edits live on after saving.
void tst_ComponentDocument::savedTwice()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"component.xml"_s);
    put(path, component({}));
    const auto document = ComponentDocument::open(path).value();
    const FileSetId set = document->files().addFileSet(u"files"_s).value();
    const FileId file = document->files().add(u"a.v"_s, set).value();
    QVERIFY(document->save().isOk());
    QVERIFY(document->files().contains(file));
    QVERIFY(document->files().setPath(file, u"b.v"_s).isOk());
    QVERIFY(document->isModified());
    const Status saved = document->save();
    QVERIFY2(saved.isOk(), qPrintable(saved.text()));
    const auto again = ComponentDocument::open(path).value();
    QCOMPARE(again->files().path(again->files().files().first()), u"b.v"_s);
    document->files().remove(file);
    QVERIFY(document->save().isOk());
    QVERIFY(ComponentDocument::open(path).value()->files().files().isEmpty());
}

void tst_ComponentDocument::changedOnDisk_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("refused");
    QTest::addColumn<bool>("afterSave");
    for (const bool afterSave : {false, true}) {
        const char *const when = afterSave ? "after a save" : "after reading";
        // What is on disk when the change comes.
        const QByteArray now = afterSave ? component({}).replace("1.0</i", "2</i") : component({});
        QTest::addRow("changed-1 %s: longer", when) << now + "\n" << true << afterSave;
        QTest::addRow("changed-2 %s: as long", when)
            << QByteArray(now).replace("demo", "omed") << true << afterSave;
        QTest::addRow("changed-3 %s: written again with the same content", when)
            << now << false << afterSave;
    }
}

void tst_ComponentDocument::changedOnDisk()
{
    QFETCH(QByteArray, content);
    QFETCH(bool, refused);
    QFETCH(bool, afterSave);
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"component.xml"_s);
    put(path, component({}));
    const auto document = ComponentDocument::open(path).value();
    QVERIFY(document->setText(DesignField::Version, u"2"_s).isOk());
    if (afterSave)
        QVERIFY(document->save().isOk());
    QVERIFY(document->setText(DesignField::Vendor, u"new"_s).isOk());
    put(path, content);
    const Status saved = document->save();
    QCOMPARE(saved.isOk(), !refused);
    if (refused) {
        QCOMPARE(saved.kind(), Status::Kind::Conflict);
        QCOMPARE(saved.text(),
                 u"The file %1 has changed on disk since it was read; it is not "
                 "overwritten."_s.arg(path));
        QCOMPARE(contentOf(path), content);
        QVERIFY(document->isModified());
        QVERIFY(!document->save().isOk());
    } else {
        QCOMPARE(contentOf(path), document->bytes());
    }
    // A file that is gone is nobody's change to lose.
    QVERIFY(QFile::remove(path));
    QVERIFY(document->save().isOk());
    QCOMPARE(contentOf(path), document->bytes());
}

// A program that keeps the times of what it copies leaves size and time as they were.
void tst_ComponentDocument::changedOnDiskUnderAnOldTime()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"component.xml"_s);
    put(path, component({}));
    const timespec longAgo[] = {{1'000'000'000, 0}, {1'000'000'000, 0}};
    const QByteArray name = QFile::encodeName(path);
    QCOMPARE(::utimensat(AT_FDCWD, name.constData(), longAgo, 0), 0);
    const auto document = ComponentDocument::open(path).value();
    QVERIFY(document->setText(DesignField::Vendor, u"new"_s).isOk());
    const QByteArray theirs = component({}).replace("v.org", "w.org");
    put(path, theirs);
    QCOMPARE(::utimensat(AT_FDCWD, name.constData(), longAgo, 0), 0);
    QCOMPARE(document->save().kind(), Status::Kind::Conflict);
    QCOMPARE(contentOf(path), theirs);
}

void tst_ComponentDocument::copies()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"component.xml"_s);
    const QString copy = folder.filePath(u"copy.xml"_s);
    put(path, component({}));
    put(copy, "old");
    const auto document = ComponentDocument::open(path).value();
    QVERIFY(document->setText(DesignField::Version, u"2"_s).isOk());
    QVERIFY(document->saveCopy(copy).isOk());
    QCOMPARE(contentOf(copy), document->bytes());
    QCOMPARE(contentOf(path), component({}));
    QVERIFY(document->isModified());
    QCOMPARE(document->path(), path);

    const QString link = folder.filePath(u"link.xml"_s);
    QVERIFY(QFile::link(path, link));
    QVERIFY(document->saveCopy(link).isOk());
    QVERIFY(!document->isModified());
    QCOMPARE(contentOf(path), document->bytes());
    QVERIFY(QFileInfo(link).isSymLink());
    QVERIFY(document->save().isOk());
}

void tst_ComponentDocument::failedSave()
{
    const QTemporaryDir folder;
    const QString inner = folder.filePath(u"inner"_s);
    QVERIFY(QDir().mkdir(inner));
    const QString path = inner + u"/component.xml"_s;
    put(path, component({}));
    const auto document = ComponentDocument::open(path).value();
    QVERIFY(document->setText(DesignField::Version, u"2"_s).isOk());
    QVERIFY(QDir(inner).removeRecursively());
    QCOMPARE(document->save().text(),
             u"Cannot write \"%1\": No such file or directory"_s.arg(path));
    QVERIFY(document->isModified());
    QCOMPARE(document->saveCopy(folder.path()).text(),
             u"Cannot write \"%1\": it is a folder"_s.arg(folder.path()));
}

// A folder that may be written but not read cannot be synchronised once the new file has its place.
void tst_ComponentDocument::savedButNotSynchronised()
{
    const QTemporaryDir dir;
    const QString path = dir.filePath(u"part/c.xml"_s);
    QVERIFY(QDir(dir.path()).mkdir(u"part"_s));
    put(path, component({}));
    QCOMPARE(::chmod(QFile::encodeName(path).constData(), 0666), 0);
    QCOMPARE(::chmod(QFile::encodeName(dir.path()).constData(), 0755), 0);
    QCOMPARE(::chmod(QFile::encodeName(dir.filePath(u"part"_s)).constData(), 0333), 0);

    // The superuser may do everything; the child is somebody else.
    const pid_t child = ::fork();
    if (child == 0) {
        const bool isSomebodyElse = ::geteuid() != 0 || ::setuid(65534) == 0;
        auto document = ComponentDocument::open(path).valueOr(nullptr);
        bool asExpected = isSomebodyElse && document;
        for (const QString &version : {u"2"_s, u"3"_s}) {
            if (!asExpected)
                break;
            QString error;
            asExpected = document->setText(DesignField::Version, version).toErrorText(&error)
                && !document->save().toErrorText(&error) && document->isModified()
                && error == u"Cannot write \"%1\": Permission denied"_s.arg(path);
            if (!asExpected)
                qWarning("%s", qPrintable(error));
        }
        ::_exit(asExpected ? 0 : 1);
    }
    int status = -1;
    ::waitpid(child, &status, 0);
    QCOMPARE(::chmod(QFile::encodeName(dir.filePath(u"part"_s)).constData(), 0755), 0);
    QCOMPARE(status, 0);
    QCOMPARE(contentOf(path), component({}).replace("1.0</i", "3</i"));
}

APPLESS_TEST_CLASS(tst_ComponentDocument)
#include "tst_ComponentDocument.moc"
