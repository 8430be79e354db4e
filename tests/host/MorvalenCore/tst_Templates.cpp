#include "tests/host/MorvalenCore/SessionFixture.h"
#include "tests/TestClass.h"

#include <MorvalenCore/ConfigurationTemplate.h>

#include <QTest>

#include <optional>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::BuildDescription;
using MorvalenCore::ConfigurationTemplate;
using MorvalenCore::Interfaces::IDesign;

namespace {

const QStringList shipped {u"gcc-program"_s, u"ghdl-simulation"_s, u"iverilog-simulation"_s,
                           u"verilator-lint"_s, u"yosys-synthesis"_s};

} // namespace

// Templates of build configurations: where they come from, what they need, what they become.
class tst_Templates : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { session.emplace(); }
    void cleanup() { session.reset(); }

    void comeWithTheProgram();
    void comeFromTheSessionToo();
    void saysWhatIsWrong_data();
    void saysWhatIsWrong();
    void saysWhatIsMissing();
    void becomesAConfiguration();
    void prefersTheNodesThatItNames();

private:
    void write(const QString &name, const QByteArray &text) const
    {
        SessionFixture::write(session->path(u"session/Templates/%1.json"_s.arg(name)), text);
    }
    IDesign *designWith(const QStringList &files)
    {
        IDesign *design = session->create(u"d"_s, u"Hardware Design"_s, u"Hardware"_s);
        for (const QString &file : files) {
            QString error;
            if (!design->addFile(file, file.section(u'/', 0, 0), true, &error))
                qFatal("%s", qPrintable(error));
        }
        return design;
    }

    std::optional<SessionFixture> session;
};

void tst_Templates::comeWithTheProgram()
{
    QCOMPARE(ConfigurationTemplate::names(), shipped);
    for (const QString &name : shipped) {
        const auto found = ConfigurationTemplate::find(name);
        QVERIFY2(found.isOk(), qPrintable(found.status().text()));
        QCOMPARE(found.value().name(), name);
        QCOMPARE(found.value().path(), u":/templates/%1.json"_s.arg(name));
        QVERIFY(!found.value().description().isEmpty());
        QVERIFY(!found.value().programs().isEmpty());
        QVERIFY(!found.value().kinds().isEmpty());
    }
}

void tst_Templates::comeFromTheSessionToo()
{
    write(u"my own"_s, R"json({"steps": [{"name": "a", "command": "b"}]})json");
    write(u"verilator-lint"_s,
          R"json({"description": "Mine", "steps": [{"name": "a", "command": "b"}]})json");
    QStringList names = shipped + QStringList {u"my own"_s};
    names.sort();
    QCOMPARE(ConfigurationTemplate::names(), names);
    QCOMPARE(ConfigurationTemplate::find(u"verilator-lint"_s).value().description(), u"Mine"_s);
    QCOMPARE(ConfigurationTemplate::find(u"my own"_s).value().path(),
             session->path(u"session/Templates/my own.json"_s));
    const auto none = ConfigurationTemplate::find(u"../verilator-lint"_s);
    QCOMPARE(none.status().kindWord(), u"not_found"_s);
    QCOMPARE(none.status().text(),
             u"There is no template \"../verilator-lint\"; there are gcc-program, ghdl-simulation, "
             "iverilog-simulation, my own, verilator-lint, yosys-synthesis"_s);
}

void tst_Templates::saysWhatIsWrong_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("reason");
    QTest::newRow("bad-1 no JSON")
        << QByteArray("{\n\"steps\": [\n}") << u":3: object is missing after a comma"_s;
    QTest::newRow("bad-2 nothing") << QByteArray() << u":1: illegal value"_s;
    QTest::newRow("bad-3 no object") << QByteArray("[]") << u": A template is an object"_s;
    QTest::newRow("bad-4 no steps")
        << QByteArray("{}") << u": A template has \"steps\", one or more"_s;
    QTest::newRow("bad-5 a step without a command")
        << QByteArray(R"json({"steps": [{"name": "a"}]})json")
        << u": A step has a \"name\" and a \"command\""_s;
    QTest::newRow("bad-6 an unknown key")
        << QByteArray(R"json({"macro": {}, "steps": []})json")
        << u": A template has no \"macro\"; it may have description, programs, sources, "
           "properties, target, macros, steps"_s;
    QTest::newRow("bad-7 an unknown key of a step")
        << QByteArray(R"json({"steps": [{"name": "a", "command": "b", "input": []}]})json")
        << u": A step has no \"input\"; it may have name, command, inputs, outputs"_s;
    QTest::newRow("bad-8 no text")
        << QByteArray(R"json({"description": 1, "steps": [{"name": "a", "command": "b"}]})json")
        << u": The value of \"description\" is no text"_s;
    QTest::newRow("bad-9 no list")
        << QByteArray(R"json({"programs": "a", "steps": [{"name": "a", "command": "b"}]})json")
        << u": The value of \"programs\" is no list of texts"_s;
}

void tst_Templates::saysWhatIsWrong()
{
    QFETCH(const QByteArray, text);
    QFETCH(const QString, reason);
    write(u"mine"_s, text);
    const auto found = ConfigurationTemplate::find(u"mine"_s);
    QCOMPARE(found.status().kindWord(), u"malformed"_s);
    QCOMPARE(found.status().text(), session->path(u"session/Templates/mine.json"_s) + reason);
}

void tst_Templates::saysWhatIsMissing()
{
    write(u"mine"_s, R"json({
        "programs": ["sh", "no-such-program"],
        "sources": {"kinds": ["HDL::VHDL", "HDL::Verilog", "Documentation"]},
        "properties": {"TOP": "the name of the top module", "WIDTH": "a width"},
        "steps": [{"name": "a", "command": "b"}]})json");
    IDesign *design = designWith({});
    const auto mine = ConfigurationTemplate::find(u"mine"_s);
    const QStringList all {
        u"The program \"no-such-program\" is not installed"_s,
        u"The design \"d\" has no files of the kind HDL::VHDL, HDL::Verilog or Documentation"_s,
        u"The design \"d\" has no property \"TOP\": the name of the top module"_s,
        u"The design \"d\" has no property \"WIDTH\": a width"_s};
    QCOMPARE(mine.value().missing(*design), all);
    const auto made = mine.value().configuration(*design);
    QCOMPARE(made.status().kindWord(), u"not_found"_s);
    QCOMPARE(made.status().text(), all.join(u"; "_s));

    QString error;
    QVERIFY(design->addFile(u"rtl/a.v"_s, u"rtl"_s, true, &error));
    QVERIFY(design->addProperty(u"TOP"_s, {}, u"a"_s, false, &error));
    QCOMPARE(mine.value().missing(*design), (QStringList {all[0], all[3]}));
}

void tst_Templates::becomesAConfiguration()
{
    write(u"mine"_s, R"json({
        "sources": {"kinds": ["HDL::VHDL", "HDL::Verilog", "Documentation"]},
        "target": "out",
        "macros": {"FLAGS": "-x \"y\""},
        "steps": [
            {"name": "one", "command": "tool $(INPUTS)", "inputs": ["a", "@sources", "b"]},
            {"name": "two", "command": "other", "inputs": ["c"], "outputs": ["d", "e f"]}]
})json");
    IDesign *design = designWith({u"rtl/a.v"_s, u"documents/b.md"_s});
    const auto made = ConfigurationTemplate::find(u"mine"_s).value().configuration(*design);
    QVERIFY2(made.isOk(), qPrintable(made.status().text()));
    BuildDescription expected;
    expected.targetPath = u"out"_s;
    expected.macros = {{u"FLAGS"_s, u"-x \"y\""_s}};
    expected.steps = {{.name = u"one"_s,
                       .command = u"tool $(INPUTS)"_s,
                       .inputs = {u"a"_s, u"node:rtl"_s, u"node:documents"_s, u"b"_s},
                       .outputs = {}},
                      {.name = u"two"_s,
                       .command = u"other"_s,
                       .inputs = {u"c"_s},
                       .outputs = {u"d"_s, u"e f"_s}}};
    QVERIFY(made.value() == expected);
}

void tst_Templates::prefersTheNodesThatItNames()
{
    write(u"mine"_s, R"json({
        "sources": {"kinds": ["HDL::Verilog"], "nodes": ["synthesis", "documents", "rtl"]},
        "steps": [{"name": "one", "command": "tool", "inputs": ["@sources"]}]})json");
    IDesign *design = designWith({u"documents/b.md"_s, u"testbench/t.v"_s});
    const auto mine = ConfigurationTemplate::find(u"mine"_s);
    QCOMPARE(mine.value().configuration(*design).value().steps.first().inputs,
             QStringList {u"node:testbench"_s});
    QString error;
    QVERIFY(design->addFile(u"rtl/a.v"_s, u"rtl"_s, true, &error));
    QCOMPARE(mine.value().configuration(*design).value().steps.first().inputs,
             QStringList {u"node:rtl"_s});
}

TEST_CLASS(tst_Templates)
#include "tst_Templates.moc"
