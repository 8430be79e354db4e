// The templates with the real tools, on the examples and on designs with a mistake.

#include "tests/needed.h"
#include "tests/process/Program.h"
#include "tests/TestClass.h"

#include <QDir>
#include <QDirIterator>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

class tst_TemplateRuns : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { program = std::make_unique<Program>(); }
    void run_data();
    void run();
    void whatIsMissingIsTold();

private:
    // A copy of an example's folder.
    QString copy(const QString &example) const;

    std::unique_ptr<Program> program;
};

QString tst_TemplateRuns::copy(const QString &example) const
{
    const QDir source(QStringLiteral(SOURCE_DIR "/examples/") + example);
    QDirIterator walk(source.path(), QDir::Files, QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        const QString path = walk.next();
        program->write(u"copy/"_s + source.relativeFilePath(path), Program::read(path));
    }
    return program->path(u"copy"_s);
}

void tst_TemplateRuns::run_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("example");
    QTest::addColumn<QString>("property");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("made");
    QTest::addColumn<QString>("file"); // that gets a mistake
    QTest::addColumn<QByteArray>("good");
    QTest::addColumn<QByteArray>("bad");
    QTest::addColumn<QString>("place"); // that the log names
    QTest::newRow("template-1 verilator")
        << u"verilator-lint"_s << u"uart"_s << u"TOP"_s << u"uart"_s << u"lint.done"_s
        << u"rtl/uart_tx.v"_s << QByteArray("endmodule") << QByteArray("oops endmodule")
        << u"rtl/uart_tx.v:41:"_s;
    QTest::newRow("template-2 iverilog")
        << u"iverilog-simulation"_s << u"counter"_s << u"TESTBENCH"_s << u"counter_tb"_s
        << u"counter_tb.log"_s << u"rtl/counter.v"_s << QByteArray("endmodule")
        << QByteArray("oops endmodule") << u"rtl/counter.v:20:"_s;
    QTest::newRow("template-3 yosys")
        << u"yosys-synthesis"_s << u"uart"_s << u"TOP"_s << u"uart"_s << u"uart.json"_s
        << u"rtl/uart_tx.v"_s << QByteArray("endmodule") << QByteArray("oops endmodule")
        << u"rtl/uart_tx.v:41:"_s;
    QTest::newRow("template-4 ghdl")
        << u"ghdl-simulation"_s << u"fifo"_s << u"TESTBENCH"_s << u"fifo_tb"_s << u"fifo_tb.log"_s
        << u"rtl/fifo.vhd"_s << QByteArray("entity fifo is") << QByteArray("entity fifo oops")
        << u"rtl/fifo.vhd:6:"_s;
    QTest::newRow("template-5 gcc")
        << u"gcc-program"_s << u"checksum"_s << QString() << QString() << u"checksum"_s
        << u"sources/main.c"_s << QByteArray("int main") << QByteArray("oops int main")
        << u"sources/main.c:"_s;
}

void tst_TemplateRuns::run()
{
    QFETCH(const QString, name);
    QFETCH(const QString, example);
    QFETCH(const QString, property);
    QFETCH(const QString, value);
    QFETCH(const QString, made);
    QFETCH(const QString, file);
    QFETCH(const QByteArray, good);
    QFETCH(const QByteArray, bad);
    QFETCH(const QString, place);
    const QByteArray tool = name.section(u'-', 0, 0).toLatin1();
    NEEDS_TOOL(tool, tool);
    const QString folder = copy(example);
    const QString build = u"morvalen build -configuration tried"_s;
    QStringList commands {u"designs add {%1/component.xml}"_s.arg(folder)};
    if (!property.isEmpty())
        commands.append(u"morvalen property %1 %2"_s.arg(property, value));
    commands += {u"morvalen configuration add tried -template "_s + name,
                 u"dict values [%1]"_s.arg(build), u"dict values [%1]"_s.arg(build)};
    Ended ended = program->runCommands(commands);
    QVERIFY2(ended.out.endsWith("tried\nCompleted\nCompleted\n"),
             (ended.out + ended.err).constData());
    QCOMPARE(ended.status, 0);
    QVERIFY(QFile::exists(folder + u"/build/tried/"_s + made));

    QByteArray text = Program::read(folder + u'/' + file);
    QVERIFY(text.contains(good));
    program->write(u"copy/"_s + file, text.replace(good, bad));
    ended = program->runCommands({commands.first(), u"%1 "_s.arg(build)});
    QCOMPARE(ended.status, 1);
    QVERIFY2(ended.err.contains(place.toUtf8()), ended.err.constData());
    QVERIFY(ended.err.endsWith(" Failed\n"));
}

void tst_TemplateRuns::whatIsMissingIsTold()
{
    QCOMPARE(
        program->runCommands(
            {u"designs new d {Hardware Design}"_s, u"set env(PATH) /nowhere"_s,
             u"catch {morvalen configuration add lint -template verilator-lint} text; "
             "puts $errorCode; set text"_s,
             u"morvalen configuration list"_s}),
        (Ended {0,
                "Successfully created new design \"d\"\n/nowhere\nMORVALEN not_found\n"
                "The program \"verilator\" is not installed; The design \"d\" has no files of "
                "the kind HDL::Verilog or HDL::SystemVerilog; The design \"d\" has no property "
                "\"TOP\": the name of the top module\n",
                ""}));
}

GUILESS_TEST_CLASS(tst_TemplateRuns)
#include "tst_TemplateRuns.moc"
