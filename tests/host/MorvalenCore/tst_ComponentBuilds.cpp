#include "component/listalignment.h"
#include "componenttexts.h"
#include "tests/TestClass.h"

#include <QTest>

using namespace ComponentTexts;
using namespace MorvalenCore;
using namespace Qt::Literals::StringLiterals;

namespace {

// A configuration with things in it that are not ours: comments, attributes and elements.
QByteArray document(const QByteArray &attributes, const QByteArray &inside)
{
    return component("  <i:vendorExtensions>\n"
                     "    <mv:design xmlns:mv=\"urn:morvalen:host:1\" xmlns:o=\"other\">\n"
                     "      <mv:buildConfigurations>\n"
                     "        <mv:buildConfiguration name=\"A\" o:kept=\"1\""
                     + attributes + ">\n          <!-- first of all -->\n" + inside
                     + "          <o:thing><o:in>&amp;</o:in></o:thing>\n"
                       "        </mv:buildConfiguration>\n"
                       "      </mv:buildConfigurations>\n    </mv:design>\n"
                       "  </i:vendorExtensions>\n");
}

QByteArray macro(const QByteArray &name, const QByteArray &value)
{
    return "          <mv:macro name=\"" + name + "\" o:mark='m'>" + value + "</mv:macro>\n";
}

QByteArray step(const QByteArray &name, const QByteArray &mark)
{
    return "          <mv:step name=\"" + name + "\" o:mark=\"" + mark + "\">\n            <!-- "
        + mark + " -->\n            <o:note>" + mark + "</o:note>\n            <mv:command>do "
        + mark + "</mv:command>\n            <mv:input>" + mark
        + ".in</mv:input>\n          </mv:step>\n";
}

BuildStep described(const QString &name, const QString &mark)
{
    return {name, u"do "_s + mark, {mark + u".in"_s}, {}};
}

const QByteArray before = document(
    {}, macro("M", "1") + macro("N", "2") + step("a", "x") + step("b", "y") + step("c", "z"));

const BuildDescription described3 {
    u"A"_s,
    {},
    {{u"M"_s, u"1"_s}, {u"N"_s, u"2"_s}},
    {described(u"a"_s, u"x"_s), described(u"b"_s, u"y"_s), described(u"c"_s, u"z"_s)}};

} // namespace

// Build configurations written over ones that hold more than is ours.
class tst_ComponentBuilds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsPastWhatIsNotOurs();
    void keepsWhatIsNotOurs_data();
    void keepsWhatIsNotOurs();
    void editsAStepInPlace();
    void renames();
    void alignsLists_data();
    void alignsLists();
};

void tst_ComponentBuilds::readsPastWhatIsNotOurs()
{
    QCOMPARE(open(before)->builds().configurations(), QList<BuildDescription> {described3});
}

void tst_ComponentBuilds::keepsWhatIsNotOurs_data()
{
    QTest::addColumn<BuildDescription>("wanted");
    QTest::addColumn<QByteArray>("after");
    const QByteArray macros = macro("M", "1") + macro("N", "2");

    BuildDescription wanted = described3;
    wanted.targetPath = u"out"_s;
    QTest::newRow("kept-1 with another target path")
        << wanted
        << document(" targetPath=\"out\"",
                    macros + step("a", "x") + step("b", "y") + step("c", "z"));
    wanted = described3;
    wanted.macros[0].value = u"<3>"_s;
    QTest::newRow("kept-2 with another value")
        << wanted
        << document({},
                    macro("M", "&lt;3&gt;") + macro("N", "2") + step("a", "x") + step("b", "y")
                        + step("c", "z"));
    wanted = described3;
    wanted.steps[1].name = u"new"_s;
    QTest::newRow("kept-3 with a step renamed")
        << wanted << document({}, macros + step("a", "x") + step("new", "y") + step("c", "z"));
    wanted = described3;
    wanted.steps.removeAt(1);
    QTest::newRow("kept-4 without a step")
        << wanted << document({}, macros + step("a", "x") + step("c", "z"));
    wanted = described3;
    wanted.macros.clear();
    QTest::newRow("kept-5 without macros")
        << wanted << document({}, step("a", "x") + step("b", "y") + step("c", "z"));
    wanted = described3;
    wanted.steps[1].pool = u"two licences"_s;
    QByteArray pooled = step("b", "y");
    pooled.replace(" o:mark=\"y\"", " o:mark=\"y\" pool=\"two licences\"");
    QTest::newRow("kept-6 with a pool")
        << wanted << document({}, macros + step("a", "x") + pooled + step("c", "z"));
}

void tst_ComponentBuilds::keepsWhatIsNotOurs()
{
    QFETCH(BuildDescription, wanted);
    QFETCH(QByteArray, after);
    const auto opened = open(before);
    QVERIFY(opened->builds().write(wanted).isOk());
    QCOMPARE(opened->bytes(), after);
    QCOMPARE(open(after)->builds().configurations(), QList<BuildDescription> {wanted});
    QVERIFY(opened->builds().write(described3).isOk());
    QCOMPARE(opened->builds().configurations(), QList<BuildDescription> {described3});
}

void tst_ComponentBuilds::editsAStepInPlace()
{
    const auto opened = open(before);
    BuildDescription wanted = described3;
    wanted.steps[1] = {u"b"_s, u"other"_s, {u"1"_s, u"y.in"_s, u"2"_s}, {u"o"_s}};
    QVERIFY(opened->builds().write(wanted).isOk());
    QByteArray edited = step("b", "y");
    edited.replace("do y", "other");
    edited.replace("            <mv:input>y.in</mv:input>\n",
                   "            <mv:input>1</mv:input>\n"
                   "            <mv:input>y.in</mv:input>\n"
                   "            <mv:input>2</mv:input>\n"
                   "            <mv:output>o</mv:output>\n");
    QCOMPARE(
        opened->bytes(),
        document({}, macro("M", "1") + macro("N", "2") + step("a", "x") + edited + step("c", "z")));
}

void tst_ComponentBuilds::renames()
{
    const auto opened = open(before);
    BuildDescription wanted = described3;
    wanted.name = u"B & C"_s;
    QVERIFY(opened->builds().write(wanted, u"A"_s).isOk());
    QByteArray after = before;
    after.replace("buildConfiguration name=\"A\"", "buildConfiguration name=\"B &amp; C\"");
    QCOMPARE(opened->bytes(), after);
    QCOMPARE(opened->builds().names(), QStringList {u"B & C"_s});
}

void tst_ComponentBuilds::alignsLists_data()
{
    QTest::addColumn<QString>("present");
    QTest::addColumn<QString>("wanted");
    QTest::addColumn<QList<int>>("places");
    QTest::newRow("align-1 nothing") << u""_s << u""_s << QList<int> {};
    QTest::newRow("align-2 all new") << u""_s << u"ab"_s << QList<int> {-1, -1};
    QTest::newRow("align-3 all gone") << u"ab"_s << u""_s << QList<int> {};
    QTest::newRow("align-4 the same") << u"abc"_s << u"abc"_s << QList<int> {0, 1, 2};
    QTest::newRow("align-5 one in front") << u"abc"_s << u"xabc"_s << QList<int> {-1, 0, 1, 2};
    QTest::newRow("align-6 one at the end") << u"abc"_s << u"abcx"_s << QList<int> {0, 1, 2, -1};
    QTest::newRow("align-7 renamed") << u"abc"_s << u"axc"_s << QList<int> {0, 1, 2};
    QTest::newRow("align-8 last goes first") << u"abc"_s << u"cab"_s << QList<int> {-1, 0, 1};
    QTest::newRow("align-9 first goes last") << u"abc"_s << u"bca"_s << QList<int> {1, 2, -1};
    QTest::newRow("align-10 turned round") << u"abc"_s << u"cba"_s << QList<int> {-1, -1, 0};
    QTest::newRow("align-11 the same name twice") << u"aab"_s << u"aba"_s << QList<int> {0, -1, 1};
    QTest::newRow("align-12 more gone than new") << u"abcd"_s << u"xd"_s << QList<int> {0, 3};
    QTest::newRow("align-13 more new than gone")
        << u"abd"_s << u"axyd"_s << QList<int> {0, 1, -1, 2};
}

void tst_ComponentBuilds::alignsLists()
{
    QFETCH(QString, present);
    QFETCH(QString, wanted);
    QFETCH(QList<int>, places);
    const auto letters = [](const QString &text) {
        return text.split(QString(), Qt::SkipEmptyParts);
    };
    QCOMPARE(alignLists(letters(present), letters(wanted)), places);
}

APPLESS_TEST_CLASS(tst_ComponentBuilds)
#include "tst_ComponentBuilds.moc"
