// The examples of builds, with a real compiler and a real simulator.

#include "tests/process/Program.h"
#include "tests/TestClass.h"

#include <QDir>
#include <QStandardPaths>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

QString example(const QString &name) { return QStringLiteral(SOURCE_DIR "/examples/") + name; }

const QByteArray run = "morvalen > build run\nBuild configuration completed successfully\n";

} // namespace

class tst_BuildExamples : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void software();
    void hardware();
    void hardwareWithoutItsTool();
};

void tst_BuildExamples::software()
{
    const Program program;
    const QByteArray all =
        "5 steps ran: check, compile adler32, compile crc32, compile main, link\n";
    QCOMPARE(
        program.run({u"--batch"_s, example(u"05-software.tcl"_s)}),
        (Ended {0,
                "morvalen > builds list\n\"Debug\" \"Release\"\n"
                "morvalen > build steps list\n"
                "\"compile crc32\" \"compile adler32\" \"compile main\" \"link\" \"check\"\n"
                "morvalen > build macros get CFLAGS\n-std=c99 -Wall -g -Iheaders\n"
                    + run + all + "cbf43926 091e01de 123456789\nadaac02e 11e60398 Wikipedia\n" + run
                    + "0 steps ran: \n--- One source changes.\n" + run
                    + "3 steps ran: check, compile crc32, link\n--- A header changes.\n" + run + all
                    + "--- What the builds made is known to the design, and cleaned without "
                      "the sources.\n"
                      "5 generated files\nCleaned 5 of 5 files of design \"checksum\"\n"
                      "sources/adler32.c sources/crc32.c sources/main.c\n",
                ""}));
    QVERIFY(QDir(program.session + u"/Designs"_s).isEmpty());
}

void tst_BuildExamples::hardware()
{
    const Program program;
    const Ended ended = program.run({u"--batch"_s, example(u"06-hardware.tcl"_s)});
    QCOMPARE(ended.status, 0);
    if (QStandardPaths::findExecutable(u"iverilog"_s).isEmpty()) {
        QCOMPARE(ended.out,
                 QByteArray("Icarus Verilog is not installed; there is nothing to show.\n"));
        return;
    }
    const QByteArray change =
        "Successfully changed active build configuration in design \"counter\" to ";
    QCOMPARE(QString::fromUtf8(ended.out),
             QString::fromUtf8("morvalen > builds list\n\"Lint\" \"Simulation\"\n"
                               "morvalen > builds set_active Lint\n"
                               + change + "\"Lint\"\n" + run
                               + "morvalen > builds set_active Simulation\n" + change
                               + "\"Simulation\"\nmorvalen > build steps list\n"
                                 "\"elaborate\" \"simulate\"\n"
                               + run
                               + "PASSED: 25 clocks, last value 5\n"
                                 "--- The counter gets a mistake, and the build fails.\n"
                                 "morvalen > build run\nBuild configuration run failed\n"
                                 "morvalen > build get run_state\nFailed\nFAILED: 25 errors\n"));
    QVERIFY(ended.err.endsWith("Error: The build \"Simulation\" of design \"counter\" failed in "
                               "\"simulate\"\n"));
}

void tst_BuildExamples::hardwareWithoutItsTool()
{
    Program program;
    program.environment.insert(u"PATH"_s, program.path(u"nothing"_s));
    QCOMPARE(program.run({u"--batch"_s, example(u"06-hardware.tcl"_s)}),
             (Ended {0, "Icarus Verilog is not installed; there is nothing to show.\n", ""}));
}

GUILESS_TEST_CLASS(tst_BuildExamples)
#include "tst_BuildExamples.moc"
