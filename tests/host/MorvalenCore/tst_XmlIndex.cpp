#include "component/XmlIndex.h"
#include "component/XmlScan.h"
#include "component/XmlTag.h"
#include "tests/TestClass.h"

#include <QTest>

using namespace MorvalenCore;
using namespace Qt::Literals::StringLiterals;

namespace {

bool all(const XmlNames &, const XmlName &, int) { return true; }

QByteArray part(const QByteArray &bytes, std::uint32_t from, std::uint32_t to)
{
    return bytes.mid(from, to - from);
}

// Number, name, namespace, parent, neighbours and the bytes of each element.
QStringList outline(const QByteArray &bytes, const XmlIndex &index)
{
    QStringList lines;
    for (size_t i = 1; i < index.elements.size(); ++i) {
        const XmlElement &e = index.elements[i];
        const XmlName &name = index.names.at(e.name);
        lines +=
            u"%1 {%2}%3 parent %4 previous %5 next %6 first %7 last %8 |%9|%10|"_s.arg(i)
                .arg(QString::fromUtf8(index.names.uri(name.space)), QString::fromUtf8(name.local))
                .arg(e.parent)
                .arg(e.previous)
                .arg(e.next)
                .arg(e.first)
                .arg(e.last)
                .arg(QString::fromUtf8(part(bytes, e.start, e.startTagEnd)),
                     QString::fromUtf8(part(bytes, e.endTagStart, e.end)));
    }
    return lines;
}

} // namespace

class tst_XmlIndex : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void places();
    void unwanted();
    void namespaces_data();
    void namespaces();
    void refused_data();
    void refused();
    void accepted_data();
    void accepted();
    void limits_data();
    void limits();
    void memoryLimits();
    void scans_data();
    void scans();
    void longConstructs();
    void tags_data();
    void tags();
    void lines();
};

void tst_XmlIndex::places()
{
    const QByteArray bytes = "<?xml version='1.0'?>\n<!-- <no/> --><a:r xmlns:a='u'>\n"
                             " <b x=\"1>2\" y='/'/><a:c >t<![CDATA[<no/>]]><d></d></a:c\n>\n"
                             "</a:r><?p?>\n";
    const XmlIndex index = XmlIndex::read(bytes, all);
    QCOMPARE(index.error, QString());
    const QStringList expected {
        u"1 {u}r parent 0 previous 0 next 0 first 2 last 3 |<a:r xmlns:a='u'>|</a:r>|"_s,
        u"2 {}b parent 1 previous 0 next 3 first 0 last 0 |<b x=\"1>2\" y='/'/>||"_s,
        u"3 {u}c parent 1 previous 2 next 0 first 4 last 4 |<a:c >|</a:c\n>|"_s,
        u"4 {}d parent 3 previous 0 next 0 first 0 last 0 |<d>|</d>|"_s,
    };
    QCOMPARE(outline(bytes, index), expected);
    QCOMPARE(index.elements[2].endTagStart, index.elements[2].end);
    QCOMPARE(index.elements[2].end, index.elements[2].startTagEnd);
}

void tst_XmlIndex::unwanted()
{
    const QByteArray bytes = "<r><skip><x><y/></x></skip><keep><no><z/></no><yes><deep><er/>"
                             "</deep></yes></keep><last/></r>";
    QStringList asked;
    const auto wanted = [&](const XmlNames &, const XmlName &name, int level) {
        asked += QString::fromUtf8(name.local) + QString::number(level);
        return name.local != "skip" && name.local != "no";
    };
    const XmlIndex index = XmlIndex::read(bytes, wanted);
    QStringList names;
    for (size_t i = 1; i < index.elements.size(); ++i)
        names += QString::fromUtf8(index.names.at(index.elements[i].name).local);
    QCOMPARE(names.join(u' '), u"r skip keep no yes deep er last"_s);
    QCOMPARE(asked.join(u' '), u"skip1 keep1 no2 yes2 last1"_s);
    const XmlElement &skip = index.elements[2];
    QCOMPARE(part(bytes, skip.start, skip.end), "<skip><x><y/></x></skip>");
    QCOMPARE(part(bytes, skip.endTagStart, skip.end), "</skip>");
    QCOMPARE(skip.next, 3U);
}

void tst_XmlIndex::namespaces_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("expected");
    QTest::newRow("names-1 default namespace")
        << QByteArray("<r xmlns='u'><a/></r>") << u"{u}r {u}a"_s;
    QTest::newRow("names-2 default namespace taken back")
        << QByteArray("<r xmlns='u'><a xmlns=''><b/></a><c/></r>") << u"{u}r {}a {}b {u}c"_s;
    QTest::newRow("names-3 prefix redeclared inside")
        << QByteArray("<p:r xmlns:p='u'><p:a xmlns:p='v'><p:b/></p:a><p:c/></p:r>")
        << u"{u}r {v}a {v}b {u}c"_s;
    QTest::newRow("names-4 two prefixes for one namespace")
        << QByteArray("<p:r xmlns:p='u' xmlns:q='u'><q:a/></p:r>") << u"{u}r {u}a"_s;
    QTest::newRow("names-5 prefix that nobody declared")
        << QByteArray("<r><q:a/></r>") << u"{}r {}a"_s;
    QTest::newRow("names-6 declared behind its use in the same tag")
        << QByteArray("<p:r a='1' xmlns:p='u'/>") << u"{u}r"_s;
    QTest::newRow("names-7 the prefix xml")
        << QByteArray("<r><xml:a/></r>") << u"{}r {http://www.w3.org/XML/1998/namespace}a"_s;
    QTest::newRow("names-8 Latin-1 names")
        << QByteArray("<?xml version='1.0' encoding='ISO-8859-1'?><r xmlns='\xe4'><\xe9t/></r>")
        << u"{\u00e4}r {\u00e4}\u00e9t"_s;
}

void tst_XmlIndex::namespaces()
{
    QFETCH(QByteArray, bytes);
    const XmlIndex index = XmlIndex::read(bytes, all);
    QCOMPARE(index.error, QString());
    QStringList names;
    for (size_t i = 1; i < index.elements.size(); ++i) {
        const XmlName &name = index.names.at(index.elements[i].name);
        names += u'{' + QString::fromUtf8(index.names.uri(name.space)) + u'}'
            + QString::fromUtf8(name.local);
    }
    QTEST(names.join(u' '), "expected");
}

void tst_XmlIndex::refused_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("line");
    QTest::addColumn<QString>("error");

    const QString encoding = u"The encoding %1 is not supported; only UTF-8 and ISO-8859-1 are."_s;
    const QString doctype =
        u"The document has a document type declaration (DOCTYPE), which is not allowed."_s;
    const QString broken = u"The document is not well-formed: %1."_s;
    QTest::newRow("refused-1 nothing") << QByteArray() << 1 << u"The file is empty."_s;
    QTest::newRow("refused-2 blanks")
        << QByteArray(" \n\t") << 1 << u"The file is not an XML document."_s;
    QTest::newRow("refused-3 text")
        << QByteArray("module a;\n") << 1 << u"The file is not an XML document."_s;
    QTest::newRow("refused-4 a byte order mark and text")
        << QByteArray("\xef\xbb\xbfhello") << 1 << u"The file is not an XML document."_s;
    QTest::newRow("refused-5 zeros")
        << QByteArray(20, '\0') << 1 << u"The file is not an XML document."_s;
    QTest::newRow("refused-6 UTF-16, little end first")
        << QByteArray("\xff\xfe<\0r\0/\0>\0", 10) << 1 << encoding.arg(u"UTF-16"_s);
    QTest::newRow("refused-7 UTF-16, big end first")
        << QByteArray("\xfe\xff\0<\0r\0/\0>", 10) << 1 << encoding.arg(u"UTF-16"_s);
    QTest::newRow("refused-8 UTF-16 without a mark")
        << QByteArray("<\0r\0/\0>\0", 8) << 1 << encoding.arg(u"UTF-16"_s);
    QTest::newRow("refused-9 UTF-32")
        << QByteArray("\xff\xfe\0\0<\0\0\0", 8) << 1 << encoding.arg(u"UTF-32"_s);
    QTest::newRow("refused-10 UTF-32 without a mark")
        << QByteArray("\0\0\0<\0\0\0r", 8) << 1 << encoding.arg(u"UTF-32"_s);
    QTest::newRow("refused-11 declared as something else")
        << QByteArray("<?xml version='1.0' encoding='windows-1252'?><r/>") << 1
        << encoding.arg(u"windows-1252"_s);
    QTest::newRow("refused-12 declared as UTF-16 but not in it")
        << QByteArray("<?xml version='1.0' encoding='UTF-16'?><r/>") << 1
        << encoding.arg(u"UTF-16"_s);
    QTest::newRow("refused-13 invalid UTF-8")
        << QByteArray("<r>\n<a>caf\xe9</a></r>") << 2 << broken.arg(u"invalid UTF-8"_s);
    QTest::newRow("refused-14 invalid UTF-8 in an attribute")
        << QByteArray("<r>\n\n<a b='\xff'/></r>") << 3 << broken.arg(u"invalid UTF-8"_s);
    QTest::newRow("refused-15 a surrogate in UTF-8")
        << QByteArray("<r>\xed\xa0\x80</r>") << 1 << broken.arg(u"invalid UTF-8"_s);
    QTest::newRow("refused-16 a control character")
        << QByteArray("<r>a\x01</r>") << 1 << broken.arg(u"not well-formed (invalid token)"_s);
    QTest::newRow("refused-17 a zero")
        << QByteArray("<r>a\0b</r>", 10) << 1 << broken.arg(u"not well-formed (invalid token)"_s);
    QTest::newRow("refused-18 mismatched tags")
        << QByteArray("<r>\n<a>\n</b></r>") << 3 << broken.arg(u"mismatched tag"_s);
    QTest::newRow("refused-19 two roots")
        << QByteArray("<r/>\n<r/>") << 2 << broken.arg(u"junk after document element"_s);
    QTest::newRow("refused-20 an entity that nobody declared")
        << QByteArray("<r>&nbsp;</r>") << 1 << broken.arg(u"undefined entity"_s);
    QTest::newRow("refused-21 an attribute twice")
        << QByteArray("<r a='1' a='2'/>") << 1 << broken.arg(u"duplicate attribute"_s);
    QTest::newRow("refused-22 the end within a tag")
        << QByteArray("<p:r>\n<a>\n<b c='") << 3
        << broken.arg(u"it ends before its element a does"_s);
    QTest::newRow("refused-23 the end between tags")
        << QByteArray("<p:r>\n<a></a>\n") << 3
        << broken.arg(u"it ends before its element p:r does"_s);
    QTest::newRow("refused-24 no element") << QByteArray("<?xml version='1.0'?>\n<!-- x -->\n") << 3
                                           << broken.arg(u"it ends before its root element"_s);
    QTest::newRow("refused-25 a document type")
        << QByteArray("<?xml version='1.0'?>\n<!DOCTYPE r>\n<r/>") << 2 << doctype;
    QTest::newRow("refused-26 entities that grow")
        << QByteArray("<!DOCTYPE r [<!ENTITY a 'aaaaaaaaaa'><!ENTITY b '&a;&a;&a;&a;'>"
                      "<!ENTITY c '&b;&b;&b;&b;'>]>\n<r>&c;</r>")
        << 1 << doctype;
    QTest::newRow("refused-27 an entity in another file")
        << QByteArray("<!DOCTYPE r [<!ENTITY f SYSTEM 'file:///etc/hostname'>]>\n<r>&f;</r>") << 1
        << doctype;
    QTest::newRow("refused-28 an external document type")
        << QByteArray("<!DOCTYPE r SYSTEM 'http://127.0.0.1:9/r.dtd'>\n<r/>") << 1 << doctype;
    QTest::newRow("refused-29 a parameter entity")
        << QByteArray("<!DOCTYPE r [<!ENTITY % p SYSTEM 'http://127.0.0.1:9/p'> %p;]>\n<r/>") << 1
        << doctype;
}

void tst_XmlIndex::refused()
{
    QFETCH(QByteArray, bytes);
    const XmlIndex index = XmlIndex::read(bytes, all);
    QTEST(index.error, "error");
    QTEST(index.line, "line");
    QVERIFY(!index.isValid());
}

void tst_XmlIndex::accepted_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("encoding");
    const int utf8 = int(XmlEncoding::Utf8);
    QTest::newRow("accepted-1 no declaration") << QByteArray("<r/>") << utf8;
    QTest::newRow("accepted-2 a byte order mark") << QByteArray("\xef\xbb\xbf<r/>") << utf8;
    QTest::newRow("accepted-3 blanks first") << QByteArray("\n <r/>") << utf8;
    QTest::newRow("accepted-4 declared in small letters")
        << QByteArray("<?xml version='1.0' encoding='utf-8'?><r/>") << utf8;
    QTest::newRow("accepted-5 Latin-1")
        << QByteArray("<?xml version='1.0' encoding='iso-8859-1'?><r>\xe9</r>")
        << int(XmlEncoding::Latin1);
    QTest::newRow("accepted-6 ASCII")
        << QByteArray("<?xml version='1.0' encoding='US-ASCII'?><r>e</r>")
        << int(XmlEncoding::Ascii);
    QTest::newRow("accepted-7 outside the basic plane")
        << QByteArray("<r>\xf0\x9f\x98\x80</r>") << utf8;
}

void tst_XmlIndex::accepted()
{
    QFETCH(QByteArray, bytes);
    const XmlIndex index = XmlIndex::read(bytes, all);
    QCOMPARE(index.error, QString());
    QTEST(int(index.encoding), "encoding");
}

void tst_XmlIndex::limits_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("error");
    const auto nested = [](int depth) {
        QByteArray bytes;
        for (int i = 0; i < depth; ++i)
            bytes += "<d>";
        for (int i = 0; i < depth; ++i)
            bytes += "</d>";
        return bytes;
    };
    const auto wide = [](int count) {
        QByteArray bytes = "<r";
        for (int i = 0; i < count; ++i)
            bytes += " a" + QByteArray::number(i) + "=''";
        return bytes + "/>";
    };
    const QString deep = u"The elements are nested deeper than 256 levels."_s;
    const QString many = u"An element has more than 1000 attributes."_s;
    QTest::newRow("limits-1 256 levels") << nested(256) << QString();
    QTest::newRow("limits-2 257 levels") << nested(257) << deep;
    QTest::newRow("limits-3 levels without end") << QByteArray("<d>").repeated(1'000'000) << deep;
    QTest::newRow("limits-4 1000 attributes") << wide(1000) << QString();
    QTest::newRow("limits-5 1001 attributes") << wide(1001) << many;
    QTest::newRow("limits-6 100000 attributes") << wide(100'000) << many;
}

void tst_XmlIndex::limits()
{
    QFETCH(QByteArray, bytes);
    QTEST(XmlIndex::read(bytes, all).error, "error");
    // Limits hold where nothing is indexed, too.
    const auto none = [](const XmlNames &, const XmlName &, int) { return false; };
    QTEST(XmlIndex::read(bytes, none).error, "error");
}

void tst_XmlIndex::memoryLimits()
{
    XmlLimits limits;
    limits.elements = 10;
    limits.names = 6;
    const auto errorOf = [&](const QByteArray &inside, const XmlIndex::Wanted &wanted) {
        return XmlIndex::read("<r>\n" + inside + "</r>", wanted, limits).error;
    };
    QCOMPARE(errorOf(QByteArray("<a/>").repeated(9), all), QString());
    QCOMPARE(errorOf(QByteArray("<a/>").repeated(10), all),
             u"The document has more than 10 elements."_s);
    const auto none = [](const XmlNames &, const XmlName &, int) { return false; };
    QCOMPARE(errorOf("<a>" + QByteArray("<b/>").repeated(100) + "</a>", none), QString());
    // The outermost scope counts, too.
    QCOMPARE(errorOf("<a/><b/><c/><d/><a/>", all), QString());
    QCOMPARE(errorOf("<a/><b/><c/><d/><e/><f/>", all),
             u"The document has more than 6 names of elements."_s);
    QCOMPARE(errorOf("<a xmlns='u'/><a xmlns='v'/><a xmlns='w'/>", all),
             u"The document has more than 6 names of elements."_s);
}

void tst_XmlIndex::scans_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("elements");
    QTest::addColumn<int>("tooMany");
    const QByteArray wide = "<w" + QByteArray(" a=\">\"").repeated(4) + ">";
    QTest::newRow("scans-1 nothing") << QByteArray() << 0 << -1;
    QTest::newRow("scans-2 elements") << QByteArray("<a><b/></a><") << 2 << -1;
    QTest::newRow("scans-3 comments, CDATA and instructions")
        << "<a><!-- " + wide + " --><![CDATA[ " + wide + " ]]><?p " + wide + "?></a>" << 1 << -1;
    QTest::newRow("scans-4 attributes beyond an angle bracket") << "<a>" + wide << 2 << 3;
    QTest::newRow("scans-5 as many as allowed") << QByteArray("<a b='' c='' d='===='/>") << 1 << -1;
    QTest::newRow("scans-6 a comment without an end") << QByteArray("<a><!-- <b>") << 1 << -1;
    QTest::newRow("scans-7 a document type")
        << QByteArray("<!DOCTYPE a [<!ELEMENT a>]><a/>") << 1 << -1;
    QTest::newRow("scans-8 equals signs in text")
        << "<a>" + QByteArray("= ").repeated(100) + "</a>" << 1 << -1;
}

void tst_XmlIndex::scans()
{
    QFETCH(QByteArray, bytes);
    const XmlScan scan = XmlScan::over(bytes, 3);
    QTEST(int(scan.elements), "elements");
    QTEST(int(scan.tooManyAttributes), "tooMany");
}

// The parser is fed in slices; places must not depend on where they are cut.
void tst_XmlIndex::longConstructs()
{
    const QByteArray bytes = "<r><!--" + QByteArray(3'000'000, 'c') + "--><a b='"
        + QByteArray(2'000'000, 'v') + "'>" + QByteArray(1'000'000, 't') + "</a><b/></r>";
    const XmlIndex index = XmlIndex::read(bytes, all);
    QCOMPARE(index.error, QString());
    const XmlElement &a = index.elements[2];
    QCOMPARE(part(bytes, a.start, a.start + 6), "<a b='");
    QCOMPARE(part(bytes, a.startTagEnd - 2, a.startTagEnd + 1), "'>t");
    QCOMPARE(part(bytes, a.endTagStart, a.end), "</a>");
    const XmlElement &b = index.elements[3];
    QCOMPARE(part(bytes, b.start, b.end), "<b/>");
}

void tst_XmlIndex::tags_data()
{
    QTest::addColumn<QByteArray>("tag");
    QTest::addColumn<QString>("expected");
    QTest::newRow("tags-1 nothing") << QByteArray("<a>") << u"a end 2 open"_s;
    QTest::newRow("tags-2 self-closing") << QByteArray("<a/>") << u"a end 2 closed"_s;
    QTest::newRow("tags-3 blanks") << QByteArray("<p:a \n>") << u"p:a end 4 open"_s;
    QTest::newRow("tags-4 attributes") << QByteArray("<a b=\"1\"  p:c = '2>'\n/>")
                                       << u"a [b|1| b=\"1\"] [p:c|2>|  p:c = '2>'] end 20 closed"_s;
    QTest::newRow("tags-5 quotes in quotes")
        << QByteArray("<a b='\"/'>") << u"a [b|\"/| b='\"/'] end 9 open"_s;
}

void tst_XmlIndex::tags()
{
    QFETCH(QByteArray, tag);
    const XmlTag read(tag);
    QString text = QString::fromUtf8(read.qualifiedName());
    for (const XmlTag::Attribute &attribute : read.attributes()) {
        QCOMPARE(QByteArrayView(tag).sliced(attribute.valueFrom, attribute.value.size()),
                 attribute.value);
        text += u" [%1|%2|%3]"_s.arg(
            QString::fromUtf8(attribute.name), QString::fromUtf8(attribute.value),
            QString::fromUtf8(tag.mid(attribute.from, attribute.to - attribute.from)));
    }
    text += u" end %1 %2"_s.arg(read.end()).arg(read.isSelfClosing() ? u"closed"_s : u"open"_s);
    QTEST(text, "expected");
}

void tst_XmlIndex::lines()
{
    const QByteArray bytes = "a\nb\r\nc";
    QCOMPARE(XmlIndex::lineOf(bytes, 0), 1);
    QCOMPARE(XmlIndex::lineOf(bytes, 2), 2);
    QCOMPARE(XmlIndex::lineOf(bytes, 5), 3);
    QCOMPARE(XmlIndex::lineOf(bytes, 1000), 3);
}

APPLESS_TEST_CLASS(tst_XmlIndex)
#include "tst_XmlIndex.moc"
