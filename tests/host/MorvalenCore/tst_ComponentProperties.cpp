#include "componenttexts.h"
#include "tests/TestClass.h"

#include <QTest>

using namespace ComponentTexts;
using namespace MorvalenCore;
using namespace Qt::Literals::StringLiterals;

namespace {

QString line(const PropertyData &data)
{
    return u"%1=%2 type=%3 category=%4%5%6"_s.arg(data.name, data.value, data.type, data.category,
                                                  data.readOnly ? u" read-only"_s : QString(),
                                                  data.removable ? QString() : u" fixed"_s);
}

QStringList listing(const ComponentDocument &document)
{
    QStringList lines;
    for (const PropertyId property : document.properties().properties())
        lines += line(document.properties().data(property));
    return lines;
}

QByteArray parameters(const QByteArray &inside, const char *generation = "1685-2014",
                      const QByteArray &before = {})
{
    return component(before + "  <i:parameters>\n" + inside + "  </i:parameters>\n", generation);
}

QByteArray parameter(const char *name, const char *value, const char *attributes = "",
                     const char *valueAttributes = "", const QByteArray &rest = {})
{
    return QByteArray("    <i:parameter") + attributes + ">\n      <i:name>" + name
        + "</i:name>\n      <i:value" + valueAttributes + ">" + value + "</i:value>\n" + rest
        + "    </i:parameter>\n";
}

QByteArray own(const QByteArray &properties)
{
    return component("  <i:vendorExtensions>\n    <mv:design xmlns:mv=\"urn:morvalen:host:1\">\n"
                     "      <mv:properties>\n"
                     + properties
                     + "      </mv:properties>\n    </mv:design>\n  </i:vendorExtensions>\n");
}

PropertyId nth(const ComponentDocument &document, qsizetype number)
{
    return document.properties().properties().at(number);
}

} // namespace

class tst_ComponentProperties : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void types_data();
    void types();
    void listed();
    void firstForm();
    void references_data();
    void references();
    void referencesFollowRemoval();
    void referencesFollowValues();
    void referencesGoWithTheirFile_data();
    void referencesGoWithTheirFile();
    void values_data();
    void values();
    void refusesAnEmptyValueOf2014();
    void names();
    void categories();
    void added();
    void removed();
    void removedWithComment();
    void refused();
    void removedItems();
};

void tst_ComponentProperties::types_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("type");
    const auto newer = [](const char *type, const char *value) {
        return parameters(parameter("p", value, type));
    };
    const auto older = [](const char *format, const char *value) {
        return parameters(parameter("p", value, "", format), "1685-2009");
    };
    QTest::newRow("types-1 none") << newer("", "5") << u"string"_s;
    QTest::newRow("types-2 int") << newer(" type='int'", "-5") << u"int"_s;
    QTest::newRow("types-3 longint") << newer(" type='longint'", "5") << u"int"_s;
    QTest::newRow("types-4 byte") << newer(" type='byte'", "5") << u"int"_s;
    QTest::newRow("types-5 an expression") << newer(" type='int'", "W + 1") << u"string"_s;
    QTest::newRow("types-6 a number in the standard's words")
        << newer(" type='int'", "'h1F") << u"string"_s;
    QTest::newRow("types-7 out of range") << newer(" type='longint'", "99999999999") << u"string"_s;
    QTest::newRow("types-8 real") << newer(" type='real'", "1.5e3") << u"double"_s;
    QTest::newRow("types-9 bits") << newer(" type='bit'", "1") << u"string"_s;
    QTest::newRow("types-10 string") << newer(" type='string'", "x") << u"string"_s;
    QTest::newRow("types-11 something unknown") << newer(" type='quark'", "x") << u"string"_s;
    QTest::newRow("types-12 long, older") << older(" i:format='long'", "5") << u"int"_s;
    QTest::newRow("types-13 long without a prefix") << older(" format='long'", "5") << u"int"_s;
    QTest::newRow("types-14 bool, older") << older(" i:format='bool'", "True") << u"bool"_s;
    QTest::newRow("types-15 no truth word") << older(" i:format='bool'", "1") << u"string"_s;
    QTest::newRow("types-16 float, older") << older(" i:format='float'", "0.5") << u"double"_s;
    QTest::newRow("types-17 bit string, older")
        << older(" i:format='bitString'", "\"0101\"") << u"string"_s;
    QTest::newRow("types-18 an attribute of somebody else")
        << newer(" xmlns:o='o' o:type='int'", "5") << u"string"_s;
}

void tst_ComponentProperties::types()
{
    QFETCH(QByteArray, bytes);
    const auto document = open(bytes);
    QVERIFY(document);
    QTEST(document->properties().type(nth(*document, 0)), "type");
}

void tst_ComponentProperties::listed()
{
    const auto document = open(component(
        "  <i:parameters>\n" + parameter("a", " 1 ", " resolve='user' type='int'")
        + parameter("b", "x", " resolve='generated'") + parameter("c", "y", " resolve='dependent'")
        + parameter("d", "&lt;z&gt;", "", "",
                    "      <i:vendorExtensions><mv:item xmlns:mv='urn:morvalen:host:1' "
                    "category='A::B'/></i:vendorExtensions>\n")
        + "    <i:parameter><i:name>e</i:name></i:parameter>\n  </i:parameters>\n"
          "  <i:vendorExtensions><q:design xmlns:q='urn:morvalen:host:1'><q:properties>"
          "<q:property name='f' type='double' category='C'>1.5</q:property>"
          "<q:property name='g' removable='false' readOnly='true'/>"
          "</q:properties></q:design></i:vendorExtensions>\n"));
    QVERIFY(document);
    const QStringList expected {
        u"a=1 type=int category="_s,
        u"b=x type=string category= read-only"_s,
        u"c=y type=string category= read-only"_s,
        u"d=<z> type=string category=A::B"_s,
        u"e= type=string category="_s,
        u"f=1.5 type=double category=C"_s,
        u"g= type=string category= read-only fixed"_s,
    };
    QCOMPARE(listing(*document), expected);
    QVERIFY(document->properties().isParameter(nth(*document, 4)));
    QVERIFY(!document->properties().isParameter(nth(*document, 5)));
    const auto older = open(parameters(parameter("a", "1", "", " i:resolve='generated'")
                                           + parameter("b", "1", "", " i:resolve='immediate'"),
                                       "1685-2009"));
    QCOMPARE(
        listing(*older),
        QStringList({u"a=1 type=string category= read-only"_s, u"b=1 type=string category="_s}));
}

// The name in an attribute and the value as text, as the earliest generation had it.
void tst_ComponentProperties::firstForm()
{
    const QByteArray bytes =
        parameters("    <i:parameter i:name='p' i:format='long'>5</i:parameter>\n", "1.4");
    const auto document = open(bytes);
    ComponentProperties &properties = document->properties();
    const PropertyId p = nth(*document, 0);
    QCOMPARE(line(properties.data(p)), u"p=5 type=int category="_s);
    QVERIFY(properties.setValue(p, u"6"_s).isOk());
    QVERIFY(properties.setName(p, u"q"_s).isOk());
    QCOMPARE(document->bytes(), QByteArray(bytes).replace(">5<", ">6<").replace("'p'", "'q'"));
}

void tst_ComponentProperties::references_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("removable");
    const QByteArray p = parameter("P", "1", " parameterId='the.id'");
    const auto with = [&](const QByteArray &other) {
        return parameters(p, "1685-2014", "  <i:model>" + other + "</i:model>\n");
    };
    QTest::newRow("references-1 none") << with({}) << true;
    QTest::newRow("references-2 a text") << with("<i:left>the.id</i:left>") << false;
    QTest::newRow("references-3 in an expression") << with("<i:left>2**the.id-1</i:left>") << false;
    QTest::newRow("references-4 an attribute") << with("<i:x referenceId='the.id'/>") << false;
    QTest::newRow("references-5 part of a word") << with("<i:left>other.the.id.x</i:left>") << true;
    QTest::newRow("references-6 a name says nothing") << with("<i:name>the.id</i:name>") << true;
    QTest::newRow("references-7 a description says nothing")
        << with("<i:description>the.id</i:description>") << true;
    QTest::newRow("references-8 an id of its own says nothing")
        << with("<i:x parameterId='the.id' id='the.id'/>") << true;
    QTest::newRow("references-9 a comment says nothing") << with("<!-- the.id -->") << true;
    QTest::newRow("references-10 in CDATA") << with("<i:a><![CDATA[the.id]]></i:a>") << false;
    QTest::newRow("references-11 another parameter")
        << parameters(p + parameter("Q", "the.id + 1")) << false;
    QTest::newRow("references-12 itself")
        << parameters(parameter("P", "the.id", " parameterId='the.id'")) << true;
    QTest::newRow("references-13 older")
        << parameters(parameter("P", "1", "", " i:id='PARAM.P'")
                          + parameter("Q", "1", "", " i:dependency=\"decode(id('PARAM.P'))\""),
                      "1685-2009")
        << false;
    QTest::newRow("references-14 hyphens in the id")
        << parameters(parameter("P", "1", " parameterId='uuid-1-2'") + parameter("Q", "(uuid-1-2)"))
        << false;
    QTest::newRow("references-15 no id")
        << parameters(parameter("P", "1") + parameter("Q", "P")) << true;
    QTest::newRow("references-16 who made it says nothing")
        << parameters(p).replace("vendor>v.org<", "vendor>the.id<") << true;
    QTest::newRow("references-17 an attribute with a name says nothing")
        << with("<i:x name='the.id'/>") << true;
    QTest::newRow("references-18 our own extensions say nothing")
        << with("<i:x/><mv:item xmlns:mv='urn:morvalen:host:1' category='the.id'>"
                "<mv:shared>the.id</mv:shared></mv:item>")
        << true;
    QTest::newRow("references-19 other extensions may refer")
        << with("<x:item xmlns:x='urn:x' category='the.id'/>") << false;
    QTest::newRow("references-20 behind a colon") << with("<i:left>a:the.id</i:left>") << false;
    QTest::newRow("references-21 in front of a colon")
        << with("<i:left>the.id:a</i:left>") << false;
    QTest::newRow("references-22 between a colon and a minus")
        << with("<i:left>c ? a:the.id-1</i:left>") << false;
    QTest::newRow("references-23 between a minus and a colon")
        << with("<i:left>c ? 8-the.id:a</i:left>") << false;
    QTest::newRow("references-24 hyphens in the id, between a colon and a minus") << parameters(
        parameter("P", "1", " parameterId='uuid-1-2'") + parameter("Q", "c ? a:uuid-1-2-1"))
                                                                                  << false;
    QTest::newRow("references-25 an id with colons")
        << parameters(parameter("P", "1", " parameterId='a:b'") + parameter("Q", "2-a:b-1"))
        << false;
    QTest::newRow("references-26 between a dot and a minus")
        << parameters(parameter("P", "1", " parameterId='idP'") + parameter("Q", "2*i.idP-1"))
        << false;
}

void tst_ComponentProperties::references()
{
    QFETCH(QByteArray, bytes);
    const auto document = open(bytes);
    QVERIFY(document);
    QTEST(document->properties().isRemovable(nth(*document, 0)), "removable");
    QCOMPARE(document->bytes(), bytes);
}

void tst_ComponentProperties::referencesFollowRemoval()
{
    const auto document = open(parameters(parameter("P", "1", " parameterId='idP'")
                                          + parameter("Q", "idP", " parameterId='idQ'")
                                          + parameter("R", "idP + idQ")));
    ComponentProperties &properties = document->properties();
    const QList<PropertyId> all = properties.properties();
    properties.remove(all[2]);
    QVERIFY(properties.isRemovable(all[1]));
    QVERIFY(!properties.isRemovable(all[0]));
    properties.remove(all[1]);
    QVERIFY(properties.isRemovable(all[0]));
}

void tst_ComponentProperties::referencesFollowValues()
{
    const auto document = open(parameters(parameter("P", "1", " parameterId='idP'")
                                          + parameter("Q", "idP + idP", " parameterId='idQ'")));
    ComponentProperties &properties = document->properties();
    const PropertyId p = nth(*document, 0);
    const PropertyId q = nth(*document, 1);
    for (const auto &[value, removable] : {std::pair {u"1"_s, true},
                                           {u"2 ** (idP-1)"_s, false},
                                           {u"idQ"_s, true},

                                           {u"idP"_s, false},
                                           {u"idP"_s, false},
                                           {u"2"_s, true}}) {
        QVERIFY(properties.setValue(q, value).isOk());
        QCOMPARE(properties.isRemovable(p), removable);
        const auto again = open(document->bytes());
        QCOMPARE(again->properties().isRemovable(nth(*again, 0)), removable);
    }
    const PropertyId ours =
        properties.add({u"o"_s, u"string"_s, {}, u"idP"_s, true, false}).value();
    QVERIFY(properties.setValue(ours, u"idP idP"_s).isOk());
    QVERIFY(properties.isRemovable(p));
}

void tst_ComponentProperties::referencesGoWithTheirFile_data()
{
    QTest::addColumn<bool>("askedBefore");
    QTest::newRow("asked before") << true;
    QTest::newRow("asked only then") << false;
}

void tst_ComponentProperties::referencesGoWithTheirFile()
{
    QFETCH(const bool, askedBefore);
    const QByteArray sets = "  <i:fileSets><i:fileSet><i:name>s</i:name>"
                            "<i:file><i:name>a</i:name></i:file>"
                            "<i:file><i:name>b</i:name><i:dependency>idP</i:dependency></i:file>"
                            "</i:fileSet></i:fileSets>\n";
    const auto document =
        open(parameters(parameter("P", "1", " parameterId='idP'"), "1685-2014", sets));
    const PropertyId p = nth(*document, 0);
    const QList<FileId> files = document->files().files();
    document->files().remove(files[0]);
    if (askedBefore)
        QVERIFY(!document->properties().isRemovable(p));
    document->files().remove(files[1]);
    QVERIFY(document->properties().isRemovable(p));
}

void tst_ComponentProperties::values_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QByteArray>("after");
    const auto one = [](const char *value) {
        return parameters(parameter("a", value, " x='1'", " y='2'"));
    };
    QTest::newRow("values-1 in place") << one("1") << u"2 < 3"_s << one("2 &lt; 3");
    QTest::newRow("values-2 nothing") << parameters(parameter("a", "1"), "1685-2022") << QString()
                                      << parameters(parameter("a", ""), "1685-2022");
    QTest::newRow("values-3 the same is no edit") << one("  1 ") << u"1"_s << one("  1 ");
    QTest::newRow("values-4 no value yet: at its place")
        << parameters("    <i:parameter><i:name>a</i:name><i:arrays/></i:parameter>\n") << u"v"_s
        << parameters("    <i:parameter><i:name>a</i:name><i:arrays/><i:value>v</i:value>"
                      "</i:parameter>\n");
    QTest::newRow("values-5 one of ours")
        << own("        <mv:property name='a' type='int'>1</mv:property>\n") << u" 2"_s
        << own("        <mv:property name='a' type='int'>&#32;2</mv:property>\n");
    QTest::newRow("values-6 one of ours with shared properties")
        << own("        <mv:property name='a'><mv:value>1</mv:value><mv:shared>"
               "<mv:property name='k'>v</mv:property></mv:shared></mv:property>\n")
        << u"2"_s
        << own("        <mv:property name='a'><mv:value>2</mv:value><mv:shared>"
               "<mv:property name='k'>v</mv:property></mv:shared></mv:property>\n");
}

// 1685-2014 has no empty expressions.
void tst_ComponentProperties::refusesAnEmptyValueOf2014()
{
    const QByteArray bytes = parameters(parameter("a", "1"));
    const auto document = open(bytes);
    QCOMPARE(document->properties().setValue(nth(*document, 0), QString()).text(),
             u"The value of the parameter a must not be empty."_s);
    QCOMPARE(document->bytes(), bytes);
    const auto empty = open(parameters(parameter("a", "")));
    QVERIFY(empty->properties().setValue(nth(*empty, 0), QString()).isOk());
}

void tst_ComponentProperties::values()
{
    QFETCH(QByteArray, before);
    QFETCH(QString, value);
    const auto document = open(before);
    QVERIFY(document);
    const PropertyId a = nth(*document, 0);
    QVERIFY(document->properties().setValue(a, value).isOk());
    QCOMPARE(document->properties().value(a), value);
    QTEST(document->bytes(), "after");
    const auto again = open(document->bytes());
    QCOMPARE(again->properties().value(nth(*again, 0)), value);
}

void tst_ComponentProperties::names()
{
    const auto document = open(parameters(parameter("a", "1")));
    QVERIFY(document->properties().setName(nth(*document, 0), u"b"_s).isOk());
    QCOMPARE(document->bytes(), parameters(parameter("b", "1")));
    const auto ours = open(own("        <mv:property name='a'/>\n"));
    QVERIFY(ours->properties().setName(nth(*ours, 0), u"b c"_s).isOk());
    QCOMPARE(ours->bytes(), own("        <mv:property name='b c'/>\n"));
    QVERIFY(ours->properties().setValue(nth(*ours, 0), u"1"_s, u"uint"_s).isOk());
    QCOMPARE(ours->bytes(), own("        <mv:property name='b c' type=\"uint\">1</mv:property>\n"));
}

void tst_ComponentProperties::categories()
{
    const auto document = open(parameters(parameter("a", "1")));
    const PropertyId a = nth(*document, 0);
    QVERIFY(document->properties().setCategory(a, u"X::Y"_s).isOk());
    QCOMPARE(document->properties().category(a), u"X::Y"_s);
    QCOMPARE(document->bytes(),
             parameters(parameter("a", "1", "", "",
                                  "      <i:vendorExtensions>\n        <mv:item "
                                  "xmlns:mv=\"urn:morvalen:host:1\" category=\"X::Y\"/>\n"
                                  "      </i:vendorExtensions>\n")));
    QVERIFY(document->properties().setCategory(a, {}).isOk());
    QCOMPARE(document->bytes(), parameters(parameter("a", "1")));
    QVERIFY(document->properties().setCategory(a, {}).isOk());

    const auto ours = open(own("        <mv:property name='a'/>\n"));
    QVERIFY(ours->properties().setCategory(nth(*ours, 0), u"C"_s).isOk());
    QCOMPARE(ours->bytes(), own("        <mv:property name='a' category=\"C\"/>\n"));
}

void tst_ComponentProperties::added()
{
    const auto document = open(component({}));
    ComponentProperties &properties = document->properties();
    const PropertyData plain {u"a"_s, u"int"_s, {}, u"1"_s, true, false};
    const PropertyData all {u"b"_s, u"string"_s, u"X::Y"_s, u"<v>"_s, false, true};
    const PropertyId first = properties.add(plain).value();
    const PropertyId second = properties.add(all).value();
    QCOMPARE(properties.data(first), plain);
    QCOMPARE(properties.data(second), all);
    QCOMPARE(document->bytes(),
             own("        <mv:property name=\"a\" type=\"int\">1</mv:property>\n"
                 "        <mv:property name=\"b\" type=\"string\" category=\"X::Y\" "
                 "removable=\"false\" readOnly=\"true\">&lt;v&gt;</mv:property>\n"));
    properties.remove(first);
    properties.remove(second);
    QCOMPARE(document->bytes(), component({}));
}

void tst_ComponentProperties::removed()
{
    const auto document = open(parameters(parameter("a", "1") + parameter("b", "2")));
    document->properties().remove(nth(*document, 0));
    QCOMPARE(document->bytes(), parameters(parameter("b", "2")));
    document->properties().remove(nth(*document, 0));
    QCOMPARE(document->bytes(), component({}));
}

// Left empty, the element would not be valid, whatever comments it holds.
void tst_ComponentProperties::removedWithComment()
{
    const auto document = open(parameters("    <!-- one -->\n" + parameter("a", "1")));
    document->properties().remove(nth(*document, 0));
    QCOMPARE(document->bytes(), component({}));
}

void tst_ComponentProperties::refused()
{
    const QByteArray bytes = parameters(parameter("a", "1"));
    const auto document = open(bytes);
    ComponentProperties &properties = document->properties();
    const PropertyId a = nth(*document, 0);
    const QString zero = u"The text holds the character U+0000, which XML cannot carry."_s;
    const QString empty = u"The name of a property must not be empty."_s;
    const QString bad = u"x"_s + QChar(0);
    QCOMPARE(properties.setValue(a, bad).text(), zero);
    QCOMPARE(properties.setValue(a, u"2"_s, bad).text(), zero);
    QCOMPARE(properties.setName(a, bad).text(), zero);
    QCOMPARE(properties.setName(a, {}).text(), empty);
    QCOMPARE(properties.setCategory(a, bad).text(), zero);
    QCOMPARE(properties.add({}).status().text(), empty);
    QCOMPARE(properties.add({u"n"_s, {}, {}, bad, true, false}).status().text(), zero);
    QCOMPARE(document->bytes(), bytes);
}

void tst_ComponentProperties::removedItems()
{
    const auto document = open(parameters(parameter("a", "1") + parameter("b", "1")));
    ComponentProperties &properties = document->properties();
    const PropertyId gone = nth(*document, 0);
    properties.remove(gone);
    properties.remove(gone);
    const QByteArray bytes = document->bytes();
    for (const PropertyId property : {gone, PropertyId()}) {
        QVERIFY(!properties.contains(property));
        QVERIFY(!properties.isParameter(property));
        QCOMPARE(properties.data(property), (PropertyData {{}, {}, {}, {}, false, false}));
        const QString error = u"The property is no longer in the document."_s;
        QCOMPARE(properties.setName(property, u"x"_s).text(), error);
        QCOMPARE(properties.setValue(property, u"x"_s).text(), error);
        QCOMPARE(properties.setCategory(property, u"x"_s).text(), error);
    }
    QCOMPARE(document->bytes(), bytes);
}

APPLESS_TEST_CLASS(tst_ComponentProperties)
#include "tst_ComponentProperties.moc"
