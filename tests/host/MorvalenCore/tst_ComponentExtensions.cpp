#include "componenttexts.h"
#include "tests/TestClass.h"

#include <QTest>

using namespace ComponentTexts;
using namespace MorvalenCore;
using namespace Qt::Literals::StringLiterals;

namespace {

QByteArray design(const QByteArray &inside, const QByteArray &before = {})
{
    return component(before
                     + "  <i:vendorExtensions>\n    <mv:design "
                       "xmlns:mv=\"urn:morvalen:host:1\">\n"
                     + inside + "    </mv:design>\n  </i:vendorExtensions>\n");
}

QString line(const BuildDescription &build)
{
    QString text = build.name + u'@' + build.targetPath;
    for (const BuildMacro &macro : build.macros)
        text += u" %1=%2"_s.arg(macro.name, macro.value);
    for (const BuildStep &step : build.steps)
        text += u" %1{%2|%3|%4}"_s.arg(step.name, step.command, step.inputs.join(u','),
                                       step.outputs.join(u','));
    return text;
}

QStringList lines(const ComponentDocument &document)
{
    QStringList list;
    for (const BuildDescription &build : document.builds().configurations())
        list += line(build);
    return list;
}

BuildStep step(const QString &name)
{
    return {name, u"do "_s + name, {name + u".in"_s}, {name + u".out"_s}};
}

} // namespace

class tst_ComponentExtensions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void folders();
    void foldersRefused();
    void sharedOfFile();
    void sharedOfFolder();
    void sharedOfParameter();
    void sharedOfOwnProperty();
    void sharedWithCategory();
    void sharedRefused();
    void builds();
    void removedBuilds();
    void buildsRead();
    void buildsChange_data();
    void buildsChange();
    void buildsActive();
    void buildsRefused();
    void order();
};

void tst_ComponentExtensions::folders()
{
    const auto document = open(component({}));
    ComponentFolders &folders = document->folders();
    const FolderId rtl = folders.add(u"rtl"_s, u"HDL::Verilog"_s).value();
    const FolderId doc = folders.add(u"/abs/a b"_s, {}).value();
    QCOMPARE(folders.folders(), QList<FolderId>({rtl, doc}));
    QCOMPARE(folders.path(rtl), u"rtl"_s);
    QCOMPARE(folders.category(rtl), u"HDL::Verilog"_s);
    QCOMPARE(document->bytes(),
             design("      <mv:folders>\n"
                    "        <mv:folder path=\"rtl\" category=\"HDL::Verilog\"/>\n"
                    "        <mv:folder path=\"/abs/a b\"/>\n"
                    "      </mv:folders>\n"));
    const auto again = open(document->bytes());
    QCOMPARE(again->folders().folders().size(), 2);
    QVERIFY(folders.setPath(rtl, u"src"_s).isOk());
    QVERIFY(folders.setCategory(rtl, {}).isOk());
    folders.remove(doc);
    QVERIFY(!folders.contains(doc));
    QCOMPARE(folders.path(doc), QString());
    QCOMPARE(folders.category(doc), QString());
    QCOMPARE(document->bytes(),
             design("      <mv:folders>\n        <mv:folder path=\"src\"/>\n"
                    "      </mv:folders>\n"));
    folders.remove(rtl);
    folders.remove(rtl);
    QCOMPARE(document->bytes(), component({}));
}

void tst_ComponentExtensions::foldersRefused()
{
    const auto document = open(component({}));
    ComponentFolders &folders = document->folders();
    QCOMPARE(folders.add({}, {}).status().text(), u"The path of a folder must not be empty."_s);
    QCOMPARE(folders.add(u"a"_s, QString(QChar(0))).status().text(),
             u"The text holds the character U+0000, which XML cannot carry."_s);
    QCOMPARE(folders.setPath({}, u"a"_s).text(), u"The folder is no longer in the document."_s);
    QCOMPARE(folders.setCategory({}, u"a"_s).text(), u"The folder is no longer in the document."_s);
    QCOMPARE(document->bytes(), component({}));
}

void tst_ComponentExtensions::sharedOfFile()
{
    const QByteArray before = "  <i:fileSets><i:fileSet><i:name>s</i:name><i:file>"
                              "<i:name>a.v</i:name>";
    const QByteArray after = "</i:file></i:fileSet></i:fileSets>\n";
    const auto document = open(component(before + after));
    const FileId file = document->files().files().first();
    SharedValues &shared = document->sharedValues();
    QVERIFY(shared.values(file).isEmpty());
    QVERIFY(shared.set(file, {u"k"_s, u"int"_s, u"4"_s}).isOk());
    QVERIFY(shared.set(file, {u"l"_s, {}, u" & "_s}).isOk());
    const QList<SharedValue> expected {{u"k"_s, u"int"_s, u"4"_s}, {u"l"_s, u"string"_s, u" & "_s}};
    QCOMPARE(shared.values(file), expected);
    QCOMPARE(document->bytes(),
             component(before
                       + "<i:vendorExtensions><mv:item xmlns:mv=\"urn:morvalen:host:1\">"
                         "<mv:shared><mv:property name=\"k\" type=\"int\">4</mv:property>"
                         "<mv:property name=\"l\">&#32;&amp;&#32;</mv:property></mv:shared>"
                         "</mv:item></i:vendorExtensions>"
                       + after));
    const auto again = open(document->bytes());
    QCOMPARE(again->sharedValues().values(again->files().files().first()), expected);
    QVERIFY(shared.set(file, {u"k"_s, u"bool"_s, u"true"_s}).isOk());
    QCOMPARE(shared.values(file).first(), (SharedValue {u"k"_s, u"bool"_s, u"true"_s}));
    QVERIFY(!shared.remove(file, u"K"_s));
    QVERIFY(shared.remove(file, u"k"_s));
    QVERIFY(!shared.remove(file, u"k"_s));
    QVERIFY(shared.remove(file, u"l"_s));
    QCOMPARE(document->bytes(), component(before + after));
}

void tst_ComponentExtensions::sharedOfFolder()
{
    const auto document = open(component({}));
    const FolderId folder = document->folders().add(u"a"_s, {}).value();
    QVERIFY(document->sharedValues().set(folder, {u"k"_s, u"int"_s, u"4"_s}).isOk());
    QCOMPARE(document->bytes(),
             design("      <mv:folders>\n        <mv:folder path=\"a\">\n          <mv:shared>\n"
                    "            <mv:property name=\"k\" type=\"int\">4</mv:property>\n"
                    "          </mv:shared>\n        </mv:folder>\n      </mv:folders>\n"));
    QVERIFY(document->sharedValues().remove(folder, u"k"_s));
    QVERIFY(document->folders().contains(folder));
    QCOMPARE(document->folders().path(folder), u"a"_s);
}

void tst_ComponentExtensions::sharedOfParameter()
{
    const QByteArray before = "  <i:parameters><i:parameter><i:name>p</i:name><i:value>1</i:value>";
    const QByteArray after = "</i:parameter></i:parameters>\n";
    const auto document = open(component(before + after));
    const PropertyId p = document->properties().properties().first();
    QVERIFY(document->sharedValues().set(p, {u"k"_s, u"int"_s, u"4"_s}).isOk());
    QCOMPARE(document->bytes(),
             component(before
                       + "<i:vendorExtensions><mv:item xmlns:mv=\"urn:morvalen:host:1\">"
                         "<mv:shared><mv:property name=\"k\" type=\"int\">4</mv:property>"
                         "</mv:shared></mv:item></i:vendorExtensions>"
                       + after));
    QCOMPARE(document->properties().properties().size(), 1);
    QVERIFY(document->sharedValues().remove(p, u"k"_s));
    QCOMPARE(document->bytes(), component(before + after));
}

// Its text moves into an element, so that text and elements do not mix.
void tst_ComponentExtensions::sharedOfOwnProperty()
{
    const auto document = open(component({}));
    const PropertyId p =
        document->properties().add({u"p"_s, u"int"_s, {}, u"1"_s, true, false}).value();
    QVERIFY(document->sharedValues().set(p, {u"k"_s, u"int"_s, u"4"_s}).isOk());
    const QByteArray expected =
        design("      <mv:properties>\n        <mv:property name=\"p\" type=\"int\">\n"
               "          <mv:value>1</mv:value>\n          <mv:shared>\n"
               "            <mv:property name=\"k\" type=\"int\">4</mv:property>\n"
               "          </mv:shared>\n        </mv:property>\n      </mv:properties>\n");
    QCOMPARE(document->bytes(), expected);
    QCOMPARE(document->properties().value(p), u"1"_s);
    const auto again = open(expected);
    const PropertyId read = again->properties().properties().first();
    QCOMPARE(again->properties().value(read), u"1"_s);
    QCOMPARE(again->properties().properties().size(), 1);
    QVERIFY(again->sharedValues().set(read, {u"l"_s, {}, {}}).isOk());
    QVERIFY(again->sharedValues().remove(read, u"l"_s));
    QCOMPARE(again->bytes(), expected);
    QVERIFY(document->sharedValues().remove(p, u"k"_s));
    QCOMPARE(document->properties().value(p), u"1"_s);

    const auto plain = open(design("      <mv:properties><mv:property name='p'>x</mv:property>"
                                   "</mv:properties>\n"));
    const PropertyId other = plain->properties().properties().first();
    QVERIFY(plain->sharedValues().set(other, {u"k"_s, {}, u"v"_s}).isOk());
    QCOMPARE(plain->properties().value(other), u"x"_s);
    QCOMPARE(plain->bytes(),
             design("      <mv:properties><mv:property name='p'><mv:value>x</mv:value>"
                    "<mv:shared><mv:property name=\"k\">v</mv:property></mv:shared>"
                    "</mv:property></mv:properties>\n"));
}

void tst_ComponentExtensions::sharedWithCategory()
{
    const auto document = open(component({}));
    const FileSetId set = document->files().addFileSet(u"files"_s).value();
    const FileId file = document->files().add(u"a.v"_s, set).value();
    QVERIFY(document->files().setCategory(file, u"C"_s).isOk());
    QVERIFY(document->sharedValues().set(file, {u"k"_s, {}, {}}).isOk());
    QVERIFY(document->sharedValues().remove(file, u"k"_s));
    QCOMPARE(document->files().category(file), u"C"_s);
    QVERIFY(document->sharedValues().set(file, {u"k"_s, {}, {}}).isOk());
    QVERIFY(document->files().setCategory(file, {}).isOk());
    QCOMPARE(document->sharedValues().values(file).size(), 1);
}

void tst_ComponentExtensions::sharedRefused()
{
    const auto document = open(component({}));
    SharedValues &shared = document->sharedValues();
    const FileSetId set = document->files().addFileSet(u"files"_s).value();
    const FileId file = document->files().add(u"a.v"_s, set).value();
    const QByteArray bytes = document->bytes();
    QCOMPARE(shared.set(file, {{}, {}, u"x"_s}).text(),
             u"The name of a shared property must not be empty."_s);
    QCOMPARE(shared.set(file, {u"k"_s, {}, QString(QChar(0))}).text(),
             u"The text holds the character U+0000, which XML cannot carry."_s);
    QCOMPARE(document->bytes(), bytes);
    document->files().remove(file);
    QCOMPARE(shared.set(file, {u"k"_s, {}, {}}).text(),
             u"The item is no longer in the document."_s);
    QVERIFY(shared.values(file).isEmpty());
    QVERIFY(!shared.remove(file, u"k"_s));
}

void tst_ComponentExtensions::builds()
{
    const auto document = open(component({}));
    ComponentBuilds &builds = document->builds();
    const BuildDescription build {
        u"Debug"_s,
        u"build/$X dir"_s,
        {{u"CC"_s, u"gcc"_s}, {u"EMPTY"_s, {}}},
        {{u"compile"_s, u"$CC -c \"a b.c\" && x"_s, {u"node:rtl"_s, u"a.h"_s}, {u"a.o"_s}},
         {u"link"_s, u"ld"_s, {}, {}}},
    };
    QVERIFY(builds.write(build).isOk());
    QVERIFY(builds.setActiveName(u"Debug"_s).isOk());
    QCOMPARE(builds.configurations(), QList<BuildDescription> {build});
    QCOMPARE(builds.names(), QStringList {u"Debug"_s});
    const QByteArray expected =
        design("      <mv:buildConfigurations active=\"Debug\">\n"
               "        <mv:buildConfiguration name=\"Debug\" "
               "targetPath=\"build/$X dir\">\n"
               "          <mv:macro name=\"CC\">gcc</mv:macro>\n"
               "          <mv:macro name=\"EMPTY\"/>\n"
               "          <mv:step name=\"compile\">\n"
               "            <mv:command>$CC -c \"a b.c\" &amp;&amp; x</mv:command>\n"
               "            <mv:input>node:rtl</mv:input>\n"
               "            <mv:input>a.h</mv:input>\n"
               "            <mv:output>a.o</mv:output>\n"
               "          </mv:step>\n"
               "          <mv:step name=\"link\">\n"
               "            <mv:command>ld</mv:command>\n"
               "          </mv:step>\n"
               "        </mv:buildConfiguration>\n"
               "      </mv:buildConfigurations>\n");
    QCOMPARE(document->bytes(), expected);
    const auto again = open(expected);
    QCOMPARE(again->builds().configurations(), QList<BuildDescription> {build});
    QCOMPARE(again->builds().activeName(), u"Debug"_s);
    QVERIFY(again->builds().write(build).isOk());
    QVERIFY(!again->isModified());
}

void tst_ComponentExtensions::removedBuilds()
{
    const auto document = open(component({}));
    ComponentBuilds &builds = document->builds();
    QVERIFY(builds.write({u"Debug"_s, {}, {}, {}}).isOk());
    QVERIFY(builds.setActiveName(u"Debug"_s).isOk());
    QVERIFY(builds.remove(u"Debug"_s));
    QVERIFY(!builds.remove(u"Debug"_s));
    QCOMPARE(builds.activeName(), u"Debug"_s);
    QVERIFY(builds.setActiveName({}).isOk());
    QCOMPARE(document->bytes(), component({}));
}

void tst_ComponentExtensions::buildsRead()
{
    const auto document =
        open(design("<mv:buildConfigurations><mv:buildConfiguration name='A'/>"
                    "<mv:buildConfiguration name='B' targetPath='t'><mv:step name='s'>"
                    "<mv:output>o</mv:output><mv:command> c\n</mv:command><mv:input>i</mv:input>"
                    "<mv:input>j</mv:input></mv:step><mv:macro name='M'>v</mv:macro><other/>"
                    "</mv:buildConfiguration></mv:buildConfigurations>\n"));
    QCOMPARE(lines(*document), QStringList({u"A@"_s, u"B@t M=v s{c|i,j|o}"_s}));
    QCOMPARE(document->builds().activeName(), QString());
}

void tst_ComponentExtensions::buildsChange_data()
{
    QTest::addColumn<QStringList>("macros");
    QTest::addColumn<QStringList>("steps");
    QTest::newRow("change-1 nothing")
        << QStringList {u"M"_s, u"N"_s} << QStringList {u"a"_s, u"b"_s, u"c"_s};
    QTest::newRow("change-2 a step in the middle")
        << QStringList {u"M"_s, u"N"_s} << QStringList {u"a"_s, u"x"_s, u"b"_s, u"c"_s};
    QTest::newRow("change-3 a step in front")
        << QStringList {u"M"_s, u"N"_s} << QStringList {u"x"_s, u"a"_s, u"b"_s, u"c"_s};
    QTest::newRow("change-4 a step at the end")
        << QStringList {u"M"_s, u"N"_s} << QStringList {u"a"_s, u"b"_s, u"c"_s, u"x"_s};
    QTest::newRow("change-5 a step less")
        << QStringList {u"M"_s, u"N"_s} << QStringList {u"a"_s, u"c"_s};
    QTest::newRow("change-6 another order")
        << QStringList {u"M"_s, u"N"_s} << QStringList {u"c"_s, u"b"_s, u"a"_s};
    QTest::newRow("change-7 nothing left") << QStringList() << QStringList();
    QTest::newRow("change-8 a step twice") << QStringList {u"M"_s} << QStringList {u"a"_s, u"a"_s};
    QTest::newRow("change-9 a macro renamed")
        << QStringList {u"K"_s, u"N"_s} << QStringList {u"a"_s, u"b"_s, u"c"_s};
}

// What is equal at both ends stays as it stands in the file.
void tst_ComponentExtensions::buildsChange()
{
    QFETCH(QStringList, macros);
    QFETCH(QStringList, steps);
    const auto text = [](const QStringList &macroNames, const QStringList &stepNames,
                         const QStringList &quoted) {
        QByteArray inside;
        for (const QString &name : macroNames) {
            const QByteArray n = name.toUtf8();
            const bool isOld = quoted.contains(name);
            inside += "          <mv:macro name=" + (isOld ? "'" + n + "'" : '"' + n + '"')
                + ">v</mv:macro>\n";
        }
        for (const QString &name : stepNames) {
            const QByteArray n = name.toUtf8();
            inside += "          <mv:step name=\"" + n + "\">\n            <mv:command>do " + n
                + "</mv:command>\n            <mv:input>" + n
                + ".in</mv:input>\n            <mv:output>" + n
                + ".out</mv:output>\n          </mv:step>\n";
        }
        return design("      <mv:buildConfigurations>\n"
                      "        <mv:buildConfiguration name=\"A\">\n"
                      + inside
                      + "        </mv:buildConfiguration>\n      </mv:buildConfigurations>\n");
    };
    // Those whose elements stay, with their kind of quotes.
    const QStringList quoted {u"M"_s, u"N"_s, u"K"_s};
    const auto document = open(text({u"M"_s, u"N"_s}, {u"a"_s, u"b"_s, u"c"_s}, quoted));
    BuildDescription build {u"A"_s, {}, {}, {}};
    for (const QString &name : std::as_const(macros))
        build.macros.append({name, u"v"_s});
    for (const QString &name : std::as_const(steps))
        build.steps.append(step(name));
    QVERIFY(document->builds().write(build).isOk());
    QCOMPARE(document->builds().configurations(), QList<BuildDescription> {build});
    QCOMPARE(document->bytes(), text(macros, steps, quoted));
}

void tst_ComponentExtensions::buildsActive()
{
    const auto document = open(component({}));
    ComponentBuilds &builds = document->builds();
    QVERIFY(builds.setActiveName({}).isOk());
    QVERIFY(!document->isModified());
    QVERIFY(builds.write({u"A"_s, {}, {}, {}}).isOk());
    QVERIFY(builds.write({u"B"_s, u"b"_s, {}, {}}).isOk());
    QVERIFY(builds.setTargetPath(u"A"_s, u"a"_s).isOk());
    QVERIFY(builds.setTargetPath(u"B"_s, {}).isOk());
    QCOMPARE(lines(*document), QStringList({u"A@a"_s, u"B@"_s}));
    QVERIFY(builds.setActiveName(u"B"_s).isOk());
    QVERIFY(builds.setActiveName(u"A"_s).isOk());
    QCOMPARE(builds.activeName(), u"A"_s);
    QVERIFY(builds.setActiveName({}).isOk());
    QCOMPARE(builds.names(), QStringList({u"A"_s, u"B"_s}));
}

void tst_ComponentExtensions::buildsRefused()
{
    const auto document = open(component({}));
    ComponentBuilds &builds = document->builds();
    const QString zero = u"The text holds the character U+0000, which XML cannot carry."_s;
    const QString bad {QChar(0)};
    QCOMPARE(builds.write({}).text(), u"The name of a build configuration must not be empty."_s);
    const QList<BuildDescription> bads {
        {bad, {}, {}, {}},
        {u"A"_s, bad, {}, {}},
        {u"A"_s, {}, {{bad, {}}}, {}},
        {u"A"_s, {}, {{{}, bad}}, {}},
        {u"A"_s, {}, {}, {{bad, {}, {}, {}}}},
        {u"A"_s, {}, {}, {{{}, bad, {}, {}}}},
        {u"A"_s, {}, {}, {{{}, {}, {u"x"_s, bad}, {}}}},
        {u"A"_s, {}, {}, {{{}, {}, {}, {bad}}}},
    };
    for (const BuildDescription &build : bads) {
        QCOMPARE(builds.write(build).text(), zero);
    }
    QCOMPARE(builds.setActiveName(bad).text(), zero);
    QCOMPARE(builds.setTargetPath(u"none"_s, u"x"_s).text(),
             u"The build configuration is no longer in the document."_s);
    QVERIFY(!document->isModified());
}

// All of ours together, in a document that has everything else.
void tst_ComponentExtensions::order()
{
    const auto document = open(component("  <i:vendorExtensions>\n    <o:x xmlns:o='o'/>\n"
                                         "  </i:vendorExtensions>\n"));
    QVERIFY(document->builds().setActiveName(u"A"_s).isOk());
    QVERIFY(document->folders().add(u"f"_s, {}).isOk());
    QVERIFY(document->setText(DesignField::Author, u"Ann"_s).isOk());
    document->setReadOnly(true);
    QVERIFY(document->properties().add({u"p"_s, {}, {}, {}, true, false}).isOk());
    QVERIFY(document->setText(DesignField::Description, u"d"_s).isOk());
    QCOMPARE(document->bytes(),
             component("  <i:description>d</i:description>\n"
                       "  <i:vendorExtensions>\n    <o:x xmlns:o='o'/>\n"
                       "    <mv:design xmlns:mv=\"urn:morvalen:host:1\" readOnly=\"true\">\n"
                       "      <mv:buildConfigurations active=\"A\"/>\n"
                       "      <mv:folders>\n        <mv:folder path=\"f\"/>\n"
                       "      </mv:folders>\n      <mv:author>Ann</mv:author>\n"
                       "      <mv:properties>\n        <mv:property name=\"p\"/>\n"
                       "      </mv:properties>\n    </mv:design>\n  </i:vendorExtensions>\n"));
}

APPLESS_TEST_CLASS(tst_ComponentExtensions)
#include "tst_ComponentExtensions.moc"
