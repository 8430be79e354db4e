// The prompt in the terminal, at a terminal.

#include "tests/process/Terminal.h"
#include "tests/TestClass.h"

#include <QDir>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString prompt = u"morvalen >"_s;

} // namespace

class tst_TerminalRuns : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { program = std::make_unique<Program>(); }
    void dialogue();
    void linesThatGoOn();
    void theLineIsEdited();
    void history();
    void historyOfTwoRuns();
    void completion_data();
    void completion();
    void interruptGivesUpTheLine();
    void outputStandsAboveTheLine_data();
    void outputStandsAboveTheLine();
    void outputWithoutALineFeed();
    void aNarrowTerminal();
    void anotherSize();
    void theFolderIsThatOfTheCall();
    void whatIsChangedIsSaved();
    void ends_data();
    void ends();
    void withoutATerminal();
    void programsHaveTheTerminal();

private:
    std::unique_ptr<Program> program;
};

void tst_TerminalRuns::dialogue()
{
    Terminal terminal(*program, {u"--terminal"_s});
    QVERIFY(terminal.shows(prompt));
    terminal.type("expr {1 + 1}\r");
    QVERIFY(terminal.shows(u"morvalen > expr {1 + 1}\n2\n"_s + prompt));
    terminal.type("nonsense\rputs {}\r\rset x {}\r");
    QVERIFY(terminal.shows(u"morvalen > expr {1 + 1}\n2\n"
                           "morvalen > nonsense\ninvalid command name \"nonsense\"\n"
                           "morvalen > puts {}\n\nmorvalen >\nmorvalen > set x {}\n"_s
                           + prompt));
    terminal.type("\x04");
    QCOMPARE(terminal.ended(), 0);
}

void tst_TerminalRuns::linesThatGoOn()
{
    Terminal terminal(*program, {u"--terminal"_s});
    QVERIFY(terminal.shows(prompt));
    terminal.type("foreach x {1 2} {\r");
    QVERIFY(terminal.shows(u"morvalen > foreach x {1 2} {\n>"_s));
    terminal.type("puts <$x>\r}\r");
    QVERIFY(
        terminal.shows(u"morvalen > foreach x {1 2} {\n> puts <$x>\n> }\n<1>\n<2>\n"_s + prompt));
    // The whole of it is one entry of the history.
    terminal.type("\x1b[A");
    QVERIFY(terminal.contains(u"\nmorvalen > foreach x {1 2} {"_s));
    terminal.type("\r");
    QVERIFY(terminal.endsWith(u"<1>\n<2>\n"_s + prompt));
    terminal.type("set x \\\r3\r");
    QVERIFY(terminal.endsWith(u"morvalen > set x \\\n> 3\n3\n"_s + prompt));
}

void tst_TerminalRuns::theLineIsEdited()
{
    Terminal terminal(*program, {u"--terminal"_s});
    QVERIFY(terminal.shows(prompt));
    // Left, home, end, backspace, and characters of more bytes than one.
    terminal.type("et x bd\x1b[Dc\x01s\x05\x7f\r");
    QVERIFY(terminal.shows(u"morvalen > set x bc\nbc\n"_s + prompt));
    terminal.type("set y \xe2\x82\xac\xc3\xa4\x1b[D\x7f"
                  "u\r");
    QVERIFY(terminal.endsWith(u"morvalen > set y u\u00e4\nu\u00e4\n"_s + prompt));
}

void tst_TerminalRuns::history()
{
    Terminal terminal(*program, {u"--terminal"_s});
    QVERIFY(terminal.shows(prompt));
    terminal.type("set a 1\rset b 2\r");
    QVERIFY(terminal.endsWith(u"set b 2\n2\n"_s + prompt));
    terminal.type("\x1b[A\x1b[A\x1b[B\x1b[A\r");
    QVERIFY(terminal.endsWith(u"morvalen > set a 1\n1\n"_s + prompt));
}

void tst_TerminalRuns::historyOfTwoRuns()
{
    {
        Terminal terminal(*program, {u"--terminal"_s});
        QVERIFY(terminal.shows(prompt));
        terminal.type("set a \"x\x16\ty\xe2\x82\xac\"\r\x04");
        QCOMPARE(terminal.ended(), 0);
    }
    QVERIFY(QFile::exists(program->session + u"/terminal-history"_s));
    Terminal terminal(*program, {u"--terminal"_s});
    QVERIFY(terminal.shows(prompt));
    terminal.type("\x1b[A\rstring length $a\r");
    QVERIFY(terminal.endsWith(u"string length $a\n4\n"_s + prompt));
}

void tst_TerminalRuns::completion_data()
{
    QTest::addColumn<QByteArray>("typed");
    QTest::addColumn<QString>("line");
    QTest::newRow("complete-1 a command") << QByteArray("morv\t") << u"morvalen > morvalen"_s;
    QTest::newRow("complete-2 behind a bracket")
        << QByteArray("puts [overv\t") << u"morvalen > puts [overview"_s;
    QTest::newRow("complete-3 a subcommand")
        << QByteArray("designs set_\t") << u"morvalen > designs set_active"_s;
    QTest::newRow("complete-4 a second word")
        << QByteArray("build get target_\t") << u"morvalen > build get target_path"_s;
    QTest::newRow("complete-5 of the ensemble") << QByteArray("morvalen configuration ren\t")
                                                << u"morvalen > morvalen configuration rename"_s;
    QTest::newRow("complete-6 an option")
        << QByteArray("morvalen files -c\t") << u"morvalen > morvalen files -category"_s;
    QTest::newRow("complete-7 a file")
        << QByteArray("source here/one\t") << u"morvalen > source here/one.tcl"_s;
    QTest::newRow("complete-8 as far as it is clear, then what there is")
        << QByteArray("source here/t\t\t")
        << u"morvalen > source here/two-\nhere/two-1  here/two-2\nmorvalen > source here/two-"_s;
    QTest::newRow("complete-9 nothing") << QByteArray("nonsense\t") << u"morvalen > nonsense"_s;
}

void tst_TerminalRuns::completion()
{
    QFETCH(const QByteArray, typed);
    QFETCH(const QString, line);
    for (const QString &name : {u"here/one.tcl"_s, u"here/two-1"_s, u"here/two-2"_s})
        program->write(name, "");
    Terminal terminal(*program, {u"--terminal"_s});
    QVERIFY(terminal.shows(prompt));
    const qsizetype tab = typed.indexOf('\t');
    terminal.type(typed.first(tab));
    QVERIFY(terminal.shows(u"morvalen > "_s + QString::fromUtf8(typed.first(tab))));
    terminal.type(typed.sliced(tab));
    QVERIFY(terminal.shows(line));
}

void tst_TerminalRuns::interruptGivesUpTheLine()
{
    Terminal terminal(*program, {u"--terminal"_s});
    QVERIFY(terminal.shows(prompt));
    terminal.type("foreach x {\r");
    QVERIFY(terminal.endsWith(u"\n>"_s));
    terminal.type("half");
    QVERIFY(terminal.endsWith(u"\n> half"_s));
    terminal.type("\x03");
    QVERIFY(terminal.shows(u"morvalen > foreach x {\n> half^C\n"_s + prompt));
    terminal.type("set x 1\r");
    QVERIFY(terminal.endsWith(u"^C\nmorvalen > set x 1\n1\n"_s + prompt));
}

void tst_TerminalRuns::outputStandsAboveTheLine_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<QString>("output");
    QTest::newRow("above-1 a line") << QByteArray("puts tick") << u"tick\n"_s;
    QTest::newRow("above-2 both streams")
        << QByteArray("puts one; puts stderr two; puts three") << u"one\ntwo\nthree\n"_s;
    QTest::newRow("above-3 pieces of a line")
        << QByteArray("puts -nonewline a; puts -nonewline b; puts c") << u"abc\n"_s;
    QTest::newRow("above-4 without a line feed") << QByteArray("puts -nonewline a") << u"a\n"_s;
    QTest::newRow("above-5 the log") << QByteArray("log hello warning") << u"Warning: hello\n"_s;
    QTest::newRow("above-6 of a program") << QByteArray("exec echo child >@stdout") << u"child\n"_s;
    QTest::newRow("above-7 more than a pipe holds")
        << QByteArray("puts [string repeat x 300000]\\nend") << QString();
}

void tst_TerminalRuns::outputStandsAboveTheLine()
{
    QFETCH(const QByteArray, script);
    QFETCH(const QString, output);
    Terminal terminal(*program, {u"--terminal"_s});
    QVERIFY(terminal.shows(prompt));
    // The key comes first, then the output: what is typed waits in front of a file for that.
    const QByteArray flag = program->path(u"flag"_s).toUtf8();
    terminal.type("proc p {} {if {[file exists " + flag + "]} {" + script
                  + "; set ::done 1} else {after 20 p}}; p\r");
    QVERIFY(terminal.endsWith(u'\n' + prompt));
    terminal.type("set half typ");
    QVERIFY(terminal.endsWith(u"\nmorvalen > set half typ"_s));
    program->write(u"flag"_s, "");
    QVERIFY(terminal.endsWith(output.isEmpty() ? u"end\nmorvalen > set half typ"_s
                                               : u'\n' + output + u"morvalen > set half typ"_s));
    if (!output.isEmpty())
        QCOMPARE(terminal.text().count(u"set half typ"_s), 1);
    terminal.type("ed\r");
    QVERIFY(terminal.endsWith(u"morvalen > set half typed\ntyped\n"_s + prompt));
}

void tst_TerminalRuns::outputWithoutALineFeed()
{
    Terminal terminal(*program, {u"--terminal"_s});
    QVERIFY(terminal.shows(prompt));
    terminal.type("puts -nonewline abc\r");
    QVERIFY(terminal.shows(u"morvalen > puts -nonewline abc\nabc\n"_s + prompt));
    terminal.type("set x 1\r");
    QVERIFY(terminal.endsWith(u"abc\nmorvalen > set x 1\n1\n"_s + prompt));
}

void tst_TerminalRuns::aNarrowTerminal()
{
    Terminal terminal(*program, {u"--terminal"_s}, 20);
    QVERIFY(terminal.shows(prompt));
    terminal.type("set x abcdefghijklmnopqrstuvwxyz\r");
    QVERIFY(terminal.shows(u"morvalen > set x abc\ndefghijklmnopqrstuvw\nxyz\n"
                           "abcdefghijklmnopqrst\nuvwxyz\n"_s
                           + prompt));
    // Output above a line of several rows.
    terminal.type("after 300 {puts tick}\r");
    QVERIFY(terminal.contains(u"after#"_s));
    terminal.type("set y 0123456789012345678901234567890123456789");
    QVERIFY(terminal.endsWith(u"\ntick\nmorvalen > set y 012\n34567890123456789012\n"
                              "34567890123456789"_s));
}

void tst_TerminalRuns::anotherSize()
{
    Terminal terminal(*program, {u"--terminal"_s}, 80);
    QVERIFY(terminal.shows(prompt));
    terminal.resize(60);
    terminal.type("set x 1\r");
    QVERIFY(terminal.endsWith(u"\n1\n"_s + prompt));
}

// A shell with job control gets the terminal back, in a mode of its own.
void tst_TerminalRuns::theFolderIsThatOfTheCall()
{
    program->currentFolder = program->path(u"home"_s);
    Terminal terminal(*program, {u"--terminal"_s}, 200);
    QVERIFY(terminal.shows(prompt));
    terminal.type("pwd\r");
    QVERIFY(terminal.shows(u"morvalen > pwd\n"_s + program->currentFolder + u'\n' + prompt));
}

void tst_TerminalRuns::whatIsChangedIsSaved()
{
    Terminal terminal(*program, {u"--terminal"_s}, 200);
    QVERIFY(terminal.shows(prompt));
    terminal.type("designs new uart; files add late.v\r");
    QVERIFY(terminal.endsWith(u"\"late.v\" to design \"uart\"\n"_s + prompt)
            || terminal.contains(u"late.v"_s));
    terminal.type("\x04");
    QCOMPARE(terminal.ended(), 0);
    QVERIFY(Program::read(program->session + u"/Designs/uart/component.xml"_s).contains("late.v"));
}

void tst_TerminalRuns::ends_data()
{
    QTest::addColumn<QByteArray>("keys");
    QTest::addColumn<int>("status");
    QTest::newRow("end-1 Ctrl+D") << QByteArray("\x04") << 0;
    QTest::newRow("end-2 Ctrl+D behind a command that failed") << QByteArray("nonsense\r\x04") << 0;
    QTest::newRow("end-3 exit") << QByteArray("exit\r") << 0;
    QTest::newRow("end-4 quit with a status") << QByteArray("quit 3\r") << 3;
    QTest::newRow("end-5 exit with a status") << QByteArray("exit 4\r") << 4;
}

void tst_TerminalRuns::ends()
{
    QFETCH(const QByteArray, keys);
    QFETCH(const int, status);
    Terminal terminal(*program, {u"--terminal"_s});
    QVERIFY(terminal.shows(prompt));
    terminal.type(keys);
    QCOMPARE(terminal.ended(), status);
}

void tst_TerminalRuns::withoutATerminal()
{
    QCOMPARE(program->run({u"--terminal"_s}, "puts a\nputs [pwd]\n"),
             (Ended {0, "a\n" + program->currentFolder.toUtf8() + '\n', ""}));
    QCOMPARE(program->run({u"--terminal"_s}, "error oops\n").status, 1);
    QCOMPARE(program->run({u"--batch"_s, u"-"_s, u"x y"_s}, "puts $argv\n"),
             (Ended {0, "{x y}\n", ""}));
    QCOMPARE(program->run({u"--batch"_s, u"-"_s}, ""), (Ended {0, "", ""}));
    QCOMPARE(
        program->runShell(u"exec \"$0\" --session \"$1\" --terminal <&-"_s, {program->session}),
        (Ended {0, "", ""}));
    QCOMPARE(program->runShell(u"echo 'puts hi' | \"$0\" --session \"$1\" --batch -"_s,
                               {program->session}),
             (Ended {0, "hi\n", ""}));
}

void tst_TerminalRuns::programsHaveTheTerminal()
{
    Terminal terminal(*program, {u"--terminal"_s});
    QVERIFY(terminal.shows(prompt));
    terminal.type("exec test -t 1 >@stdout; exec test -t 0 <@stdin\r");
    QVERIFY(terminal.endsWith(u"<@stdin\n"_s + prompt));
}

GUILESS_TEST_CLASS(tst_TerminalRuns)
#include "tst_TerminalRuns.moc"
