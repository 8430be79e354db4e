#include "component/xmltext.h"
#include "component/XmlTree.h"
#include "tests/TestClass.h"

#include <QRandomGenerator>
#include <QTest>

#include <memory>

using namespace MorvalenCore;
using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Status;

namespace {

bool all(const XmlNames &, const XmlName &, int) { return true; }

std::unique_ptr<XmlTree> treeOf(const QByteArray &bytes)
{
    XmlIndex index = XmlIndex::read(bytes, all);
    return index.isValid() ? std::make_unique<XmlTree>(bytes, std::move(index)) : nullptr;
}

// The element at the end of a path of local names and numbers: "a/b" or "a/1".
XmlNode find(const XmlTree &tree, const QString &path)
{
    XmlNode node = XmlTree::root;
    const QStringList steps = path.split(u'/', Qt::SkipEmptyParts);
    for (const QString &step : steps) {
        bool isNumber = false;
        int skip = step.toInt(&isNumber);
        node = tree.first(node);
        while (node != 0 && (isNumber ? skip-- > 0 : tree.name(node).local != step.toUtf8()))
            node = tree.next(node);
    }
    return node;
}

// One edit in words: "text PATH=VALUE", "attribute PATH NAME=VALUE", "drop PATH NAME",
// "add PATH NAME" (behind the last child), "first PATH NAME", "remove PATH".
void apply(XmlTree &tree, const QString &edit)
{
    const QString verb = edit.section(u' ', 0, 0);
    const QString rest = edit.section(u' ', 1);
    const QString path = rest.section(u' ', 0, 0);
    const QString what = rest.section(u' ', 1);
    const XmlNode node = find(tree, path.section(u'=', 0, 0));
    QVERIFY2(node != 0, qPrintable(edit));
    if (verb == u"text")
        tree.setText(node, rest.section(u'=', 1));
    else if (verb == u"attribute")
        tree.setAttribute(node, what.section(u'=', 0, 0).toUtf8(), what.section(u'=', 1));
    else if (verb == u"drop")
        tree.setAttribute(node, what.toUtf8(), std::nullopt);
    else if (verb == u"add")
        tree.insert(node, tree.last(node), what.toUtf8(), tree.name(node).prefix);
    else if (verb == u"first")
        tree.insert(node, 0, what.toUtf8(), tree.name(node).prefix);
    else if (verb == u"remove")
        tree.remove(node);
    else
        QFAIL(qPrintable(edit));
}

} // namespace

class tst_XmlTree : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void unchanged_data();
    void unchanged();
    void read_data();
    void read();
    void edits_data();
    void edits();
    void takenBack_data();
    void takenBack();
    void carried_data();
    void carried();
    void roundTrip_data();
    void roundTrip();
    void nodesStay();
    void declaring();
    void random_data();
    void random();
};

void tst_XmlTree::unchanged_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("unchanged-1 everything odd")
        << QByteArray("\xef\xbb\xbf<?xml version='1.0'  encoding=\"UTF-8\" ?>\r\n<!-- a -->\n"
                      "<?p q?><r  a = '1'\tb=\"2\" >\r\n\t<![CDATA[<&]]>&#xe9;&lt;\r<e/><e />"
                      "<e></e ></r >\n\n<!-- z -->");
    QTest::newRow("unchanged-2 Latin-1")
        << QByteArray("<?xml version='1.0' encoding='ISO-8859-1'?>\n<r>\xe9</r>");
    QTest::newRow("unchanged-3 no line end") << QByteArray("<r><a>b</a></r>");
}

void tst_XmlTree::unchanged()
{
    QFETCH(QByteArray, bytes);
    const auto tree = treeOf(bytes);
    QVERIFY(tree);
    QCOMPARE(tree->bytes(), bytes);
    QCOMPARE(tree->revision(), 0U);
}

void tst_XmlTree::read_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    QTest::newRow("read-1 plain") << QByteArray("<r>a b</r>") << u"a b"_s;
    QTest::newRow("read-2 nothing") << QByteArray("<r/>") << QString();
    QTest::newRow("read-3 blanks at the ends are layout")
        << QByteArray("<r>\n  a  b\n</r>") << u"a  b"_s;
    QTest::newRow("read-4 blanks as references are text")
        << QByteArray("<r>\n &#32;a&#10; </r>") << u" a\n"_s;
    QTest::newRow("read-5 references")
        << QByteArray("<r>&lt;&gt;&amp;&quot;&apos;&#65;&#x1F600;</r>") << u"<>&\"'A\U0001F600"_s;
    QTest::newRow("read-6 CDATA") << QByteArray("<r>a <![CDATA[< b && c]]></r>") << u"a < b && c"_s;
    QTest::newRow("read-7 comments and instructions are left out")
        << QByteArray("<r>a<!-- <b> -->b<?c <d>?>e</r>") << u"abe"_s;
    QTest::newRow("read-8 elements inside are left out")
        << QByteArray("<r>a<b c='>'>no<d/><e x=\"/\"/></b>f</r>") << u"af"_s;
    QTest::newRow("read-9 line ends") << QByteArray("<r>a\r\nb\rc\nd</r>") << u"a\nb\nc\nd"_s;
    QTest::newRow("read-10 Latin-1")
        << QByteArray("<?xml version='1.0' encoding='ISO-8859-1'?><r>caf\xe9&#8364;</r>")
        << u"caf\u00e9\u20ac"_s;
    QTest::newRow("read-11 other blanks are text")
        << QByteArray("<r>\xc2\xa0x\xc2\xa0</r>") << u"\u00a0x\u00a0"_s;
}

void tst_XmlTree::read()
{
    QFETCH(QByteArray, bytes);
    const auto tree = treeOf(bytes);
    QVERIFY(tree);
    QTEST(tree->text(XmlTree::root), "text");
}

void tst_XmlTree::edits_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("edits");
    QTest::addColumn<QByteArray>("expected");

    const QByteArray list = "<r>\n  <l>\n    <a>1</a>\n    <a>2</a>\n  </l>\n</r>\n";
    QTest::newRow("text-1 replaced")
        << list << QStringList {u"text l/0=x"_s}
        << QByteArray("<r>\n  <l>\n    <a>x</a>\n    <a>2</a>\n  </l>\n</r>\n");
    QTest::newRow("text-2 escaped") << QByteArray("<r/>") << QStringList {u"text /=a<b>&\"c\"'d'"_s}
                                    << QByteArray("<r>a&lt;b&gt;&amp;\"c\"'d'</r>");
    QTest::newRow("text-3 the end of CDATA")
        << QByteArray("<r><![CDATA[a]]></r>") << QStringList {u"text /=]]>"_s}
        << QByteArray("<r>]]&gt;</r>");
    QTest::newRow("text-4 a self-closing element is opened")
        << QByteArray("<p:r xmlns:p='u' a='1' />") << QStringList {u"text /=x"_s}
        << QByteArray("<p:r xmlns:p='u' a='1'>x</p:r>");
    QTest::newRow("text-5 emptied")
        << QByteArray("<r>x</r>") << QStringList {u"text /="_s} << QByteArray("<r></r>");
    QTest::newRow("text-6 line feeds become the document's line ends")
        << QByteArray("<r>\r\n<a/>\r\n</r>") << QStringList {u"text a=x\ny"_s}
        << QByteArray("<r>\r\n<a>x\r\ny</a>\r\n</r>");
    QTest::newRow("text-7 blanks at the ends and carriage returns are written as references")
        << QByteArray("<r/>") << QStringList {u"text /= \tx\ry\n"_s}
        << QByteArray("<r>&#32;&#9;x&#13;y&#10;</r>");
    QTest::newRow("text-8 what Latin-1 lacks is written as references")
        << QByteArray("<?xml version='1.0' encoding='ISO-8859-1'?><r a=''/>")
        << QStringList {u"text /=\u00e9\u20ac\U0001F600"_s, u"attribute / a=\u00e9\u20ac"_s}
        << QByteArray("<?xml version='1.0' encoding='ISO-8859-1'?>"
                      "<r a='\xe9&#8364;'>\xe9&#8364;&#128512;</r>");
    QTest::newRow("text-9 what ASCII lacks is written as references")
        << QByteArray("<?xml version='1.0' encoding='US-ASCII'?><r/>")
        << QStringList {u"text /=\u00e9"_s}
        << QByteArray("<?xml version='1.0' encoding='US-ASCII'?><r>&#233;</r>");
    QTest::newRow("text-10 replaces elements, too")
        << list << QStringList {u"text l=x"_s} << QByteArray("<r>\n  <l>x</l>\n</r>\n");

    QTest::newRow("attribute-1 replaced between its own quotes")
        << QByteArray("<r a='1' b = \"2\"/>")
        << QStringList {u"attribute / a=x'\"<"_s, u"attribute / b=&y"_s}
        << QByteArray("<r a='x&apos;&quot;&lt;' b = \"&amp;y\"/>");
    QTest::newRow("attribute-2 added behind the last one")
        << QByteArray("<r a='1' />") << QStringList {u"attribute / b=2"_s, u"attribute / c=3"_s}
        << QByteArray("<r a='1' b=\"2\" c=\"3\" />");
    QTest::newRow("attribute-3 added to a bare element")
        << QByteArray("<r></r>") << QStringList {u"attribute / b=2"_s}
        << QByteArray("<r b=\"2\"></r>");
    QTest::newRow("attribute-4 removed with the blank before it")
        << QByteArray("<r a='1'\n   b='2' c='3'>x</r>") << QStringList {u"drop / b"_s}
        << QByteArray("<r a='1' c='3'>x</r>");
    QTest::newRow("attribute-5 with the prefix of the element's namespace")
        << QByteArray("<s:r xmlns:s='u' s:a='1'/>") << QStringList {u"attribute / a=2"_s}
        << QByteArray("<s:r xmlns:s='u' s:a='2'/>");
    QTest::newRow("attribute-6 of a foreign namespace is another one")
        << QByteArray("<s:r xmlns:s='u' xmlns:t='v' t:a='1'/>")
        << QStringList {u"attribute / a=2"_s}
        << QByteArray("<s:r xmlns:s='u' xmlns:t='v' t:a='1' a=\"2\"/>");
    QTest::newRow("attribute-7 line ends and tabs are written as references")
        << QByteArray("<r/>") << QStringList {u"attribute / a=x\n\t\ry"_s}
        << QByteArray("<r a=\"x&#10;&#9;&#13;y\"/>");
    QTest::newRow("attribute-8 with text in a self-closing element")
        << QByteArray("<r a='1'/>") << QStringList {u"attribute / b=2"_s, u"text /=x"_s}
        << QByteArray("<r a='1' b=\"2\">x</r>");

    QTest::newRow("add-1 as the neighbours stand")
        << list << QStringList {u"add l a"_s, u"text l/2=3"_s}
        << QByteArray("<r>\n  <l>\n    <a>1</a>\n    <a>2</a>\n    <a>3</a>\n  </l>\n</r>\n");
    QTest::newRow("add-2 as the first one")
        << list << QStringList {u"first l b"_s}
        << QByteArray("<r>\n  <l>\n    <b/>\n    <a>1</a>\n    <a>2</a>\n  </l>\n</r>\n");
    QTest::newRow("add-3 elements in elements")
        << list << QStringList {u"add / m"_s, u"add m n"_s, u"add m/n o"_s, u"text m/n/o=x"_s}
        << QByteArray("<r>\n  <l>\n    <a>1</a>\n    <a>2</a>\n  </l>\n  <m>\n    <n>\n"
                      "      <o>x</o>\n    </n>\n  </m>\n</r>\n");
    QTest::newRow("add-4 tabs")
        << QByteArray("<r>\n\t<l>\n\t\t<a/>\n\t</l>\n</r>")
        << QStringList {u"add l b"_s, u"add l/b c"_s}
        << QByteArray("<r>\n\t<l>\n\t\t<a/>\n\t\t<b>\n\t\t\t<c/>\n\t\t</b>\n\t</l>\n</r>");
    QTest::newRow("add-5 CRLF")
        << QByteArray("<r>\r\n  <l>\r\n    <a/>\r\n  </l>\r\n</r>\r\n")
        << QStringList {u"add l b"_s, u"add l/b c"_s}
        << QByteArray("<r>\r\n  <l>\r\n    <a/>\r\n    <b>\r\n      <c/>\r\n    </b>\r\n"
                      "  </l>\r\n</r>\r\n");
    QTest::newRow("add-6 mixed line ends: the neighbour's")
        << QByteArray("<r>\n  <l>\r\n    <a/>\n  </l>\r\n</r>\n") << QStringList {u"add l b"_s}
        << QByteArray("<r>\n  <l>\r\n    <a/>\r\n    <b/>\n  </l>\r\n</r>\n");
    QTest::newRow("add-7 on one line")
        << QByteArray("<r><l><a/></l></r>") << QStringList {u"add l b"_s, u"add l/b c"_s}
        << QByteArray("<r><l><a/><b><c/></b></l></r>");
    QTest::newRow("add-8 to a self-closing element")
        << QByteArray("<r>\n  <l x='1'/>\n</r>") << QStringList {u"add l a"_s, u"add l b"_s}
        << QByteArray("<r>\n  <l x='1'>\n    <a/>\n    <b/>\n  </l>\n</r>");
    QTest::newRow("add-9 to an empty element")
        << QByteArray("<r>\n  <l></l>\n</r>") << QStringList {u"add l a"_s}
        << QByteArray("<r>\n  <l>\n    <a/>\n  </l>\n</r>");
    QTest::newRow("add-10 to one with nothing but blanks")
        << QByteArray("<r>\n  <l>\n  </l>\n</r>") << QStringList {u"add l a"_s}
        << QByteArray("<r>\n  <l>\n    <a/>\n  </l>\n</r>");
    QTest::newRow("add-11 to one with nothing but a comment")
        << QByteArray("<r>\n  <l>\n    <!-- c -->\n  </l>\n</r>") << QStringList {u"add l a"_s}
        << QByteArray("<r>\n  <l>\n    <!-- c -->\n    <a/>\n  </l>\n</r>");
    QTest::newRow("add-12 to one with a comment on its line")
        << QByteArray("<r>\n  <l><!-- c --></l>\n</r>") << QStringList {u"add l a"_s}
        << QByteArray("<r>\n  <l><!-- c -->\n    <a/>\n  </l>\n</r>");
    QTest::newRow("add-13 behind a comment on the line of the one before")
        << QByteArray("<r>\n  <a/> <!-- about a -->\n  <b/>\n</r>")
        << QStringList {u"remove b"_s, u"add / c"_s}
        << QByteArray("<r>\n  <a/> <!-- about a -->\n  <c/>\n</r>");
    QTest::newRow("add-14 not indented where nothing is")
        << QByteArray("<r>\n<a/>\n</r>\n") << QStringList {u"add / b"_s, u"add b c"_s}
        << QByteArray("<r>\n<a/>\n<b>\n<c/>\n</b>\n</r>\n");
    QTest::newRow("add-15 the prefix in force")
        << QByteArray("<p:r xmlns:p='u'>\n  <p:a/>\n</p:r>") << QStringList {u"add / b"_s}
        << QByteArray("<p:r xmlns:p='u'>\n  <p:a/>\n  <p:b/>\n</p:r>");
    QTest::newRow("add-16 blank lines are not copied")
        << QByteArray("<r>\n\n  <a/>\n\n</r>") << QStringList {u"add / b"_s}
        << QByteArray("<r>\n\n  <a/>\n  <b/>\n\n</r>");
    QTest::newRow("add-17 no final line end comes or goes")
        << QByteArray("<r>\n  <a/>\n</r>") << QStringList {u"add / b"_s}
        << QByteArray("<r>\n  <a/>\n  <b/>\n</r>");

    QTest::newRow("remove-1 with its line")
        << list << QStringList {u"remove l/0"_s}
        << QByteArray("<r>\n  <l>\n    <a>2</a>\n  </l>\n</r>\n");
    QTest::newRow("remove-2 the last one")
        << list << QStringList {u"remove l/1"_s}
        << QByteArray("<r>\n  <l>\n    <a>1</a>\n  </l>\n</r>\n");
    QTest::newRow("remove-3 both") << list << QStringList {u"remove l/0"_s, u"remove l/0"_s}
                                   << QByteArray("<r>\n  <l>\n  </l>\n</r>\n");
    QTest::newRow("remove-4 with everything in it, edits too")
        << list << QStringList {u"text l/0=x"_s, u"add l b"_s, u"remove l/1"_s, u"remove l"_s}
        << QByteArray("<r>\n</r>\n");
    QTest::newRow("remove-5 a comment above and one beside stay")
        << QByteArray("<r>\n  <!-- above -->\n  <a/> <!-- beside -->\n  <b/>\n</r>")
        << QStringList {u"remove a"_s}
        << QByteArray("<r>\n  <!-- above -->\n  <!-- beside -->\n  <b/>\n</r>");
    QTest::newRow("remove-6 on one line")
        << QByteArray("<r><a/><b/></r>") << QStringList {u"remove a"_s}
        << QByteArray("<r><b/></r>");
    QTest::newRow("remove-7 between blanks")
        << QByteArray("<r> <a/> <b/> </r>") << QStringList {u"remove a"_s}
        << QByteArray("<r> <b/> </r>");
    QTest::newRow("remove-8 one of two on a line")
        << QByteArray("<r>\n  <a/> <b/>\n</r>") << QStringList {u"remove a"_s}
        << QByteArray("<r>\n  <b/>\n</r>");
    QTest::newRow("remove-9 two of two on a line")
        << QByteArray("<r>\n  <a/> <b/>\n</r>") << QStringList {u"remove a"_s, u"remove b"_s}
        << QByteArray("<r>\n  \n</r>");
    QTest::newRow("remove-10 CRLF")
        << QByteArray("<r>\r\n  <a/>\r\n  <b/>\r\n</r>") << QStringList {u"remove a"_s}
        << QByteArray("<r>\r\n  <b/>\r\n</r>");
    QTest::newRow("remove-11 and another one in its place")
        << list << QStringList {u"remove l/0"_s, u"remove l/0"_s, u"add l a"_s, u"text l/a=3"_s}
        << QByteArray("<r>\n  <l>\n    <a>3</a>\n  </l>\n</r>\n");
    QTest::newRow("remove-12 and one before what is left")
        << list << QStringList {u"remove l/0"_s, u"first l b"_s}
        << QByteArray("<r>\n  <l>\n    <b/>\n    <a>2</a>\n  </l>\n</r>\n");
    QTest::newRow("remove-13 blank lines around stay")
        << QByteArray("<r>\n\n  <a/>\n\n  <b/>\n</r>") << QStringList {u"remove a"_s}
        << QByteArray("<r>\n\n\n  <b/>\n</r>");
    QTest::newRow("remove-14 an added one leaves no trace")
        << list << QStringList {u"add l b"_s, u"remove l/2"_s} << list;
    QTest::newRow("remove-15 an added one from a self-closing element")
        << QByteArray("<r>\n  <l/>\n</r>") << QStringList {u"add l b"_s, u"remove l/0"_s}
        << QByteArray("<r>\n  <l/>\n</r>");
}

void tst_XmlTree::edits()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QStringList, edits);
    const auto tree = treeOf(bytes);
    QVERIFY(tree);
    for (const QString &edit : std::as_const(edits))
        apply(*tree, edit);
    QTEST(tree->bytes(), "expected");
    QVERIFY(treeOf(tree->bytes()));
    QVERIFY(tree->revision() > 0);
}

void tst_XmlTree::takenBack_data()
{
    QTest::addColumn<QStringList>("edits");
    QTest::newRow("back-1 text") << QStringList {u"text b=x"_s, u"text b=t & u"_s};
    QTest::newRow("back-2 text of a self-closing element")
        << QStringList {u"text c=x"_s, u"text c="_s};
    QTest::newRow("back-3 attribute")
        << QStringList {u"attribute b k=x"_s, u"attribute b k=v\"1"_s};
    QTest::newRow("back-4 attribute removed and set again")
        << QStringList {u"drop b k"_s, u"attribute b k=v\"1"_s};
    QTest::newRow("back-5 attribute added and removed")
        << QStringList {u"attribute b n=x"_s, u"drop b n"_s};
    QTest::newRow("back-6 element added and removed")
        << QStringList {u"add / d"_s, u"text d=x"_s, u"remove d"_s};
    QTest::newRow("back-7 the same text") << QStringList {u"text b=t & u"_s};
}

void tst_XmlTree::takenBack()
{
    QFETCH(QStringList, edits);
    const QByteArray bytes = "<r>\n  <b k = 'v&quot;1' ><![CDATA[t & u]]> </b><c />\n</r>";
    const auto tree = treeOf(bytes);
    QVERIFY(tree);
    for (const QString &edit : std::as_const(edits))
        apply(*tree, edit);
    QCOMPARE(tree->bytes(), bytes);
}

void tst_XmlTree::carried_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("error");
    const QString refusal = u"The text holds the character U+%1, which XML cannot carry."_s;
    QTest::newRow("carried-1 nothing") << QString() << QString();
    QTest::newRow("carried-2 blanks") << u" \t\r\n"_s << QString();
    QTest::newRow("carried-3 beyond the basic plane") << u"\U0001F600\U0010FFFF"_s << QString();
    QTest::newRow("carried-4 zero") << u"a"_s + QChar(0) + u'b' << refusal.arg(u"0000"_s);
    QTest::newRow("carried-5 escape") << u"\u001b"_s << refusal.arg(u"001B"_s);
    QTest::newRow("carried-6 first half of a pair")
        << u"x"_s + QChar(0xd83d) << refusal.arg(u"D83D"_s);
    QTest::newRow("carried-7 second half of a pair")
        << QString(QChar(0xde00)) + u"x"_s << refusal.arg(u"DE00"_s);
    QTest::newRow("carried-8 two first halves")
        << QString(QChar(0xd83d)) + QChar(0xd83d) << refusal.arg(u"D83D"_s);
    QTest::newRow("carried-9 not a character") << QString(QChar(0xffff)) << refusal.arg(u"FFFF"_s);
    QTest::newRow("carried-10 delete and its like") << u"\u007f\u0085"_s << QString();
}

void tst_XmlTree::carried()
{
    QFETCH(QString, text);
    QFETCH(QString, error);
    const Status carried = XmlText::checkCarried(text);
    QCOMPARE(carried.isOk(), error.isEmpty());
    QCOMPARE(carried.text(), error);
}

void tst_XmlTree::roundTrip_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("trip-1 blanks") << u"   "_s;
    QTest::newRow("trip-2 line ends") << u"\r\n\ra\r\nb\n\n"_s;
    QTest::newRow("trip-3 markup") << u"<a b='c'>&amp;]]></a><!-- --><?x?>"_s;
    QTest::newRow("trip-4 placeholders and quotes") << u"%1 \"%2\" {$x} [y] \\ ;#"_s;
    QTest::newRow("trip-5 all planes") << u"\u00e9\u0416\u20ac\U0001F600\u00a0"_s;
    QTest::newRow("trip-6 other blanks at the ends") << u"\u2003 x \u00a0"_s;
    QTest::newRow("trip-7 tabs") << u"\ta\tb\t"_s;
}

void tst_XmlTree::roundTrip()
{
    QFETCH(QString, text);
    for (const char *const encoding : {"UTF-8", "ISO-8859-1", "US-ASCII"}) {
        for (const char *const lineEnd : {"\n", "\r\n"}) {
            const QByteArray bytes = QByteArray("<?xml version='1.0' encoding='") + encoding + "'?>"
                + lineEnd + "<r>" + lineEnd + "<e a='' b='1'/></r>";
            const auto tree = treeOf(bytes);
            QVERIFY(tree);
            const XmlNode node = find(*tree, u"e"_s);
            tree->setText(node, text);
            tree->setAttribute(node, "a", text);
            tree->setAttribute(node, "c", text);
            const auto again = treeOf(tree->bytes());
            QVERIFY(again);
            for (const XmlTree *const read : {tree.get(), again.get()}) {
                QCOMPARE(read->text(node), text);
                QCOMPARE(read->attribute(node, "a"), std::optional(text));
                QCOMPARE(read->attribute(node, "c"), std::optional(text));
                QCOMPARE(read->attribute(node, "b"), std::optional(u"1"_s));
                QVERIFY(!read->attribute(node, "d"));
            }
        }
    }
}

void tst_XmlTree::nodesStay()
{
    const auto tree = treeOf("<r><a/><b><c/></b></r>");
    const XmlNode a = find(*tree, u"a"_s);
    const XmlNode b = find(*tree, u"b"_s);
    const XmlNode c = find(*tree, u"b/c"_s);
    const XmlNode d = tree->insert(b, c, "d", {});
    QVERIFY(tree->isNew(d));
    QVERIFY(tree->isAlive(d));
    tree->remove(a);
    QVERIFY(!tree->isAlive(a));
    QVERIFY(tree->isAlive(c));
    tree->remove(b);
    for (const XmlNode node : {b, c, d})
        QVERIFY(!tree->isAlive(node));
    QVERIFY(!tree->isAlive(0));
    QVERIFY(tree->isAlive(XmlTree::root));
    const XmlNode e = tree->insert(XmlTree::root, 0, "e", {});
    QVERIFY(e != d);
    QCOMPARE(tree->bytes(), "<r><e/></r>");
}

void tst_XmlTree::declaring()
{
    const auto tree = treeOf("<p:r xmlns:p='u'>\n  <p:a/>\n</p:r>");
    const auto space = tree->nameTable().space("v");
    const XmlNode own =
        tree->insertDeclaring(XmlTree::root, tree->last(XmlTree::root), "x", "m", space);
    const XmlNode inner = tree->insert(own, 0, "y", "m");
    const XmlNode plain = tree->insertDeclaring(XmlTree::root, own, "z", {}, space);
    for (const XmlNode node : {own, inner, plain})
        QCOMPARE(tree->name(node).space, space);
    QVERIFY(!tree->hasAttributes(own));
    tree->setAttribute(own, "k", u"1"_s);
    QVERIFY(tree->hasAttributes(own));
    QCOMPARE(tree->bytes(),
             "<p:r xmlns:p='u'>\n  <p:a/>\n  <m:x xmlns:m=\"v\" k=\"1\">\n    <m:y/>\n  </m:x>\n"
             "  <z xmlns=\"v\"/>\n</p:r>");
}

namespace {

// What a tree says, without layout.
struct Model
{
    QByteArray name;
    QString text;
    QMap<QByteArray, QString> attributes;
    std::vector<std::unique_ptr<Model>> children;
};

QString written(const Model &model)
{
    QString line = QString::fromUtf8(model.name) + u'(' + model.text + u')';
    for (auto it = model.attributes.cbegin(); it != model.attributes.cend(); ++it)
        line += u" @%1=%2"_s.arg(QString::fromUtf8(it.key()), it.value());
    line += u'[';
    for (const auto &child : model.children)
        line += written(*child);
    return line + u']';
}

QString written(const XmlTree &tree, XmlNode node)
{
    QString line = QString::fromUtf8(tree.name(node).local) + u'(' + tree.text(node) + u')';
    for (const char *const name : {"i", "j"}) {
        if (const auto value = tree.attribute(node, name))
            line += u" @%1=%2"_s.arg(QLatin1StringView(name), *value);
    }
    line += u'[';
    for (XmlNode child = tree.first(node); child != 0; child = tree.next(child))
        line += written(tree, child);
    return line + u']';
}

XmlNode nthChild(const XmlTree &tree, XmlNode parent, quint32 number)
{
    XmlNode node = tree.first(parent);
    for (quint32 i = 0; i < number; ++i)
        node = tree.next(node);
    return node;
}

// A random element of both, the same one.
std::pair<Model *, XmlNode> pick(QRandomGenerator &random, const XmlTree &tree, Model &model)
{
    std::pair<Model *, XmlNode> place {&model, XmlTree::root};
    while (!place.first->children.empty() && random.bounded(4) != 0) {
        const auto number = random.bounded(quint32(place.first->children.size()));
        place = {place.first->children[number].get(), nthChild(tree, place.second, number)};
    }
    return place;
}

Model *addChild(Model &parent, const char *name, const QString &text)
{
    parent.children.push_back(std::make_unique<Model>());
    parent.children.back()->name = name;
    parent.children.back()->text = text;
    return parent.children.back().get();
}

// An element in an element that has no text.
void insertSomewhere(QRandomGenerator &random, XmlTree &tree, XmlNode node, Model &part)
{
    if (!part.text.isEmpty())
        return;
    const auto number = random.bounded(quint32(part.children.size() + 1));
    tree.insert(node, number == 0 ? 0 : nthChild(tree, node, number - 1), "n", {});
    const auto made =
        part.children.insert(part.children.begin() + number, std::make_unique<Model>());
    (*made)->name = "n";
}

void removeSomeChild(QRandomGenerator &random, XmlTree &tree, XmlNode node, Model &part)
{
    if (part.children.empty())
        return;
    const auto number = random.bounded(quint32(part.children.size()));
    tree.remove(nthChild(tree, node, number));
    part.children.erase(part.children.begin() + number);
}

// The same edit of both.
void editSomewhere(QRandomGenerator &random, XmlTree &tree, Model &model)
{
    static const QStringList texts {{}, u"x"_s, u" & "_s, u"<\u20ac>"_s, u"a\nb"_s};
    const auto [part, node] = pick(random, tree, model);
    const QString text = texts[random.bounded(int(texts.size()))];
    const QByteArray attribute = random.bounded(2) != 0 ? "i" : "j";
    switch (random.bounded(6)) {
    case 0:
        tree.setText(node, text);
        part->children.clear();
        part->text = text;
        break;
    case 1:
        tree.setAttribute(node, attribute, text);
        part->attributes[attribute] = text;
        break;
    case 2:
        tree.setAttribute(node, attribute, std::nullopt);
        part->attributes.remove(attribute);
        break;
    case 3:
    case 4:
        insertSomewhere(random, tree, node, *part);
        break;
    case 5:
        removeSomeChild(random, tree, node, *part);
        break;
    }
}

} // namespace

void tst_XmlTree::random_data()
{
    QTest::addColumn<quint32>("seed");
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray plain = "<?xml version='1.0'?>\n<r i='0'>\n  <a>one</a>\n  <b j='&lt;'/>\n"
                             "  <c>\n    <a/> <!-- n -->\n    <a></a>\n  </c>\n</r>\n";
    for (quint32 seed = 1; seed <= 10; ++seed) {
        QTest::addRow("random-%u on lines", seed) << seed << plain;
        QTest::addRow("random-%u on one line", seed)
            << seed << QByteArray(plain).replace('\n', "").replace("  ", "");
        QTest::addRow("random-%u with CRLF", seed)
            << seed << QByteArray(plain).replace("\n", "\r\n");
    }
}

// Long sequences of edits against a simple tree, the written document read again now and then.
void tst_XmlTree::random()
{
    QFETCH(quint32, seed);
    QFETCH(QByteArray, bytes);
    QRandomGenerator random(seed);
    const auto tree = treeOf(bytes);
    QVERIFY(tree);
    Model model {"r", {}, {{"i", u"0"_s}}, {}};
    addChild(model, "a", u"one"_s);
    addChild(model, "b", {})->attributes.insert("j", u"<"_s);
    Model *const c = addChild(model, "c", {});
    addChild(*c, "a", {});
    addChild(*c, "a", {});

    for (int step = 0; step < 400; ++step) {
        editSomewhere(random, *tree, model);
        QCOMPARE(written(*tree, XmlTree::root), written(model));
        if (step % 20 == 0) {
            const QByteArray now = tree->bytes();
            const auto again = treeOf(now);
            QVERIFY2(again, now.constData());
            QCOMPARE(written(*again, XmlTree::root), written(model));
        }
    }
}

APPLESS_TEST_CLASS(tst_XmlTree)
#include "tst_XmlTree.moc"
