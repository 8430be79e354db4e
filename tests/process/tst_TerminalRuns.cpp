// The prompt in the terminal, at a terminal. No key is typed before what the one in front of it
// does is seen on the screen.

#include "tests/process/builds/buildcomponent.h"
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
    void charactersOfMoreBytesThanOne();
    void history();
    void historyOfTwoRuns();
    void completion_data();
    void completion();
    void theChoicesAreShown();
    void interruptGivesUpTheLine();
    void interruptStopsTheCommand_data();
    void interruptStopsTheCommand();
    void interruptStopsABuild();
    void interruptInAnEvent();
    void interruptInAnEventThatACommandWaitsFor();
    void outputStandsAboveTheLine_data();
    void outputStandsAboveTheLine();
    void outputWithoutALineFeed();
    void aNarrowTerminal();
    void outputAboveALineOfSeveralRows();
    void anotherSize();
    void stopAndResume();
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
    QVERIFY(terminal.command("expr {1 + 1}"));
    QString seen = u"morvalen > expr {1 + 1}\n2\n"_s;
    QVERIFY(terminal.shows(seen + prompt));
    QVERIFY(terminal.command("nonsense"));
    seen += u"morvalen > nonsense\ninvalid command name \"nonsense\"\n"_s;
    QVERIFY(terminal.shows(seen + prompt));
    QVERIFY(terminal.command("puts {}"));
    seen += u"morvalen > puts {}\n\n"_s;
    QVERIFY(terminal.shows(seen + prompt));
    terminal.type("\r");
    seen += u"morvalen >\n"_s;
    QVERIFY(terminal.shows(seen + prompt));
    QVERIFY(terminal.command("set x {}"));
    seen += u"morvalen > set x {}\n"_s;
    QVERIFY(terminal.shows(seen + prompt));
    terminal.type("\x04");
    QCOMPARE(terminal.ended(), 0);
}

void tst_TerminalRuns::linesThatGoOn()
{
    Terminal terminal(*program, {u"--terminal"_s});
    QVERIFY(terminal.shows(prompt));
    QVERIFY(terminal.command("foreach x {1 2} {"));
    QVERIFY(terminal.shows(u"morvalen > foreach x {1 2} {\n>"_s));
    QVERIFY(terminal.command("puts <$x>"));
    QVERIFY(terminal.shows(u"morvalen > foreach x {1 2} {\n> puts <$x>\n>"_s));
    QVERIFY(terminal.command("}"));
    const QString seen = u"morvalen > foreach x {1 2} {\n> puts <$x>\n> }\n<1>\n<2>\n"_s;
    QVERIFY(terminal.shows(seen + prompt));
    // The whole of it is one entry of the history.
    terminal.type("\x1b[A");
    QVERIFY(terminal.shows(seen + u"morvalen > foreach x {1 2} {\nputs <$x>\n}"_s));
    terminal.type("\r");
    QVERIFY(terminal.endsWith(u"\n}\n<1>\n<2>\n"_s + prompt));
    QVERIFY(terminal.command("set x \\"));
    QVERIFY(terminal.endsWith(u"\nmorvalen > set x \\\n>"_s));
    QVERIFY(terminal.command("3"));
    QVERIFY(terminal.endsWith(u"\nmorvalen > set x \\\n> 3\n3\n"_s + prompt));
}

void tst_TerminalRuns::theLineIsEdited()
{
    Terminal terminal(*program, {u"--terminal"_s});
    QVERIFY(terminal.shows(prompt));
    QVERIFY(terminal.enter("et x bd"));
    // Left, then begin and end of the line, then backspace.
    terminal.type("\x1b[Dc");
    QVERIFY(terminal.shows(u"morvalen > et x bcd"_s));
    terminal.type("\x01s");
    QVERIFY(terminal.shows(u"morvalen > set x bcd"_s));
    terminal.type("\x05\x7f");
    QVERIFY(terminal.shows(u"morvalen > set x bc"_s));
    terminal.type("\r");
    QVERIFY(terminal.shows(u"morvalen > set x bc\nbc\n"_s + prompt));
}

void tst_TerminalRuns::charactersOfMoreBytesThanOne()
{
    Terminal terminal(*program, {u"--terminal"_s});
    QVERIFY(terminal.shows(prompt));
    QVERIFY(terminal.enter("set y \xe2\x82\xac\xc3\xa4"));
    terminal.type("\x1b[D\x7f");
    QVERIFY(terminal.shows(u"morvalen > set y \u00e4"_s));
    terminal.type("u");
    QVERIFY(terminal.shows(u"morvalen > set y u\u00e4"_s));
    terminal.type("\r");
    QVERIFY(terminal.shows(u"morvalen > set y u\u00e4\nu\u00e4\n"_s + prompt));
}

void tst_TerminalRuns::history()
{
    Terminal terminal(*program, {u"--terminal"_s});
    QVERIFY(terminal.shows(prompt));
    QVERIFY(terminal.command("set a 1"));
    QVERIFY(terminal.endsWith(u"set a 1\n1\n"_s + prompt));
    QVERIFY(terminal.command("set bb 2"));
    const QString seen = u"morvalen > set a 1\n1\nmorvalen > set bb 2\n2\nmorvalen > "_s;
    QVERIFY(terminal.shows(seen.trimmed()));
    terminal.type("\x1b[A");
    QVERIFY(terminal.shows(seen + u"set bb 2"_s));
    terminal.type("\x1b[A");
    QVERIFY(terminal.shows(seen + u"set a 1"_s));
    terminal.type("\x1b[B");
    QVERIFY(terminal.shows(seen + u"set bb 2"_s));
    terminal.type("\x1b[A");
    QVERIFY(terminal.shows(seen + u"set a 1"_s));
    terminal.type("\r");
    QVERIFY(terminal.shows(seen + u"set a 1\n1\n"_s + prompt));
}

void tst_TerminalRuns::historyOfTwoRuns()
{
    {
        Terminal terminal(*program, {u"--terminal"_s});
        QVERIFY(terminal.shows(prompt));
        QVERIFY(terminal.command("set a \"x y\xe2\x82\xac\""));
        QVERIFY(terminal.endsWith(u"\nx y\u20ac\n"_s + prompt));
        terminal.type("\x04");
        QCOMPARE(terminal.ended(), 0);
    }
    QVERIFY(QFile::exists(program->session + u"/terminal-history"_s));
    Terminal terminal(*program, {u"--terminal"_s});
    QVERIFY(terminal.shows(prompt));
    terminal.type("\x1b[A");
    QVERIFY(terminal.shows(u"morvalen > set a \"x y\u20ac\""_s));
    terminal.type("\r");
    QVERIFY(terminal.endsWith(u"\nx y\u20ac\n"_s + prompt));
}

void tst_TerminalRuns::completion_data()
{
    QTest::addColumn<QByteArray>("typed");
    QTest::addColumn<QString>("line");
    QTest::newRow("complete-1 a command") << QByteArray("morv") << u"morvalen"_s;
    QTest::newRow("complete-2 behind a bracket")
        << QByteArray("puts [overv") << u"puts [overview"_s;
    QTest::newRow("complete-3 a subcommand")
        << QByteArray("designs set_") << u"designs set_active"_s;
    QTest::newRow("complete-4 a second word")
        << QByteArray("build get target_") << u"build get target_path"_s;
    QTest::newRow("complete-5 of the ensemble")
        << QByteArray("morvalen configuration ren") << u"morvalen configuration rename"_s;
    QTest::newRow("complete-6 an option")
        << QByteArray("morvalen files -c") << u"morvalen files -category"_s;
    QTest::newRow("complete-7 a file") << QByteArray("source here/one") << u"source here/one.tcl"_s;
}

void tst_TerminalRuns::completion()
{
    QFETCH(const QByteArray, typed);
    QFETCH(const QString, line);
    program->write(u"here/one.tcl"_s, "");
    Terminal terminal(*program, {u"--terminal"_s});
    QVERIFY(terminal.shows(prompt));
    QVERIFY(terminal.enter(typed));
    terminal.type("\t");
    QVERIFY(terminal.shows(prompt + u' ' + line));
}

void tst_TerminalRuns::theChoicesAreShown()
{
    for (const QString &name : {u"here/two-1"_s, u"here/two-2"_s})
        program->write(name, "");
    Terminal terminal(*program, {u"--terminal"_s});
    QVERIFY(terminal.shows(prompt));
    // As far as it is clear, then what there is.
    QVERIFY(terminal.enter("source here/t"));
    terminal.type("\t");
    QVERIFY(terminal.shows(u"morvalen > source here/two-"_s));
    terminal.type("\t");
    const QString seen = u"morvalen > source here/two-\nhere/two-1  here/two-2\n"_s;
    QVERIFY(terminal.shows(seen + u"morvalen > source here/two-"_s));
    // Nothing more is clear, and behind a word that nobody knows nothing is.
    terminal.type("x\t");
    QVERIFY(terminal.shows(seen + u"morvalen > source here/two-x"_s));
}

void tst_TerminalRuns::interruptGivesUpTheLine()
{
    Terminal terminal(*program, {u"--terminal"_s});
    QVERIFY(terminal.shows(prompt));
    QVERIFY(terminal.command("foreach x {"));
    QVERIFY(terminal.endsWith(u"\n>"_s));
    QVERIFY(terminal.enter("half"));
    terminal.type("\x03");
    QVERIFY(terminal.shows(u"morvalen > foreach x {\n> half^C\n"_s + prompt));
    QVERIFY(terminal.command("set x 1"));
    QVERIFY(terminal.endsWith(u"^C\nmorvalen > set x 1\n1\n"_s + prompt));
}

void tst_TerminalRuns::interruptStopsTheCommand_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::newRow("stop-1 a loop") << QByteArray("puts -nonewline begun; while 1 {}");
    QTest::newRow("stop-2 a loop that catches")
        << QByteArray("puts -nonewline begun; while 1 {catch {nope}}");
    QTest::newRow("stop-3 a loop within catch")
        << QByteArray("puts -nonewline begun; catch {while 1 {}}");
    QTest::newRow("stop-4 a wait") << QByteArray("puts -nonewline begun; vwait forever");
    QTest::newRow("stop-5 a pause") << QByteArray("puts -nonewline begun; after 10000000");
    QTest::newRow("stop-6 a program")
        << QByteArray("exec sh -c {printf begun; exec sleep 10000} >@stdout");
    QTest::newRow("stop-7 another command's procedure")
        << QByteArray("proc p {} {puts -nonewline begun; p2}; proc p2 {} {while 1 {set x 1}}; p");
}

void tst_TerminalRuns::interruptStopsTheCommand()
{
    QFETCH(const QByteArray, command);
    Terminal terminal(*program, {u"--terminal"_s});
    QVERIFY(terminal.shows(prompt));
    QVERIFY(terminal.command(command));
    QVERIFY(terminal.endsWith(u"\nbegun"_s));
    terminal.type("\x03");
    const QString stopped = u"\nbegun^C\nScript stopped\n"_s;
    QVERIFY(terminal.endsWith(stopped + prompt));
    // The program lives, and the next command runs to its end.
    QVERIFY(terminal.command("set x 1"));
    QVERIFY(terminal.endsWith(stopped + u"morvalen > set x 1\n1\n"_s + prompt));
    terminal.type("\x04");
    QCOMPARE(terminal.ended(), 0);
}

void tst_TerminalRuns::interruptStopsABuild()
{
    program->write(u"soft/component.xml"_s,
                   buildComponent(step("slow", "touch begun; sleep 10000", {}, "never")));
    Terminal terminal(*program, {u"--terminal"_s});
    QVERIFY(terminal.shows(prompt));
    QVERIFY(terminal.command("set d [designs add soft/component.xml]; list"));
    QVERIFY(terminal.endsWith(u'\n' + prompt));
    QVERIFY(terminal.command("build run; puts never"));
    QTRY_VERIFY(QFile::exists(program->path(u"soft/begun"_s)));
    terminal.type("\x03");
    QVERIFY(terminal.contains(u"The build \"Main\" of design \"soft\" was cancelled\n"_s));
    QVERIFY(terminal.endsWith(u"\nScript stopped\n"_s + prompt));
    QVERIFY(terminal.command("build get run_state"));
    QVERIFY(terminal.endsWith(u"\nCancelled\n"_s + prompt));
}

void tst_TerminalRuns::interruptInAnEvent()
{
    Terminal terminal(*program, {u"--terminal"_s});
    QVERIFY(terminal.shows(prompt));
    QVERIFY(terminal.command("after 0 {after 0 {puts begun; vwait forever}}; list"));
    QVERIFY(terminal.endsWith(u"\nbegun\n"_s + prompt));
    terminal.type("\x03");
    // What Tcl reports of an event comes when it comes.
    QVERIFY(terminal.contains(u"Script stopped\n"_s));
    QVERIFY(terminal.endsWith(u"\n    (\"after\" script)\n"_s + prompt));
    QVERIFY(terminal.command("set x 1"));
    QVERIFY(terminal.endsWith(u"morvalen > set x 1\n1\n"_s + prompt));
}

void tst_TerminalRuns::interruptInAnEventThatACommandWaitsFor()
{
    Terminal terminal(*program, {u"--terminal"_s});
    QVERIFY(terminal.shows(prompt));
    QVERIFY(terminal.command("after 0 {puts -nonewline begun; while 1 {}}; vwait forever"));
    QVERIFY(terminal.endsWith(u"\nbegun"_s));
    terminal.type("\x03");
    QVERIFY(terminal.contains(u"\nbegun^C\nScript stopped\n"_s));
    QVERIFY(terminal.endsWith(u"\n    (\"after\" script)\n"_s + prompt));
    QVERIFY(terminal.command("set x 1"));
    QVERIFY(terminal.endsWith(u"morvalen > set x 1\n1\n"_s + prompt));
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
    // What writes waits for a file.
    program->write(u"script.tcl"_s,
                   "proc p {} {if {[file exists flag]} {" + script + "} else {after 20 p}}\np\n");
    Terminal terminal(*program, {u"--terminal"_s});
    QVERIFY(terminal.shows(prompt));
    QVERIFY(terminal.command("source script.tcl; list"));
    QVERIFY(terminal.endsWith(u'\n' + prompt));
    QVERIFY(terminal.enter("set half typ"));
    program->write(u"flag"_s, "");
    QVERIFY(terminal.endsWith(output.isEmpty() ? u"end\nmorvalen > set half typ"_s
                                               : u'\n' + output + u"morvalen > set half typ"_s));
    if (!output.isEmpty())
        QCOMPARE(terminal.text().count(u"set half typ"_s), 1);
    terminal.type("ed");
    QVERIFY(terminal.endsWith(u"\nmorvalen > set half typed"_s));
    terminal.type("\r");
    QVERIFY(terminal.endsWith(u"morvalen > set half typed\ntyped\n"_s + prompt));
}

void tst_TerminalRuns::outputWithoutALineFeed()
{
    Terminal terminal(*program, {u"--terminal"_s});
    QVERIFY(terminal.shows(prompt));
    QVERIFY(terminal.command("puts -nonewline abc"));
    QVERIFY(terminal.shows(u"morvalen > puts -nonewline abc\nabc\n"_s + prompt));
    QVERIFY(terminal.command("set x 1"));
    QVERIFY(terminal.endsWith(u"abc\nmorvalen > set x 1\n1\n"_s + prompt));
}

void tst_TerminalRuns::aNarrowTerminal()
{
    Terminal terminal(*program, {u"--terminal"_s}, 20);
    QVERIFY(terminal.shows(prompt));
    QVERIFY(terminal.command("set x abcdefghijklmnopqrstuvwxyz"));
    QVERIFY(terminal.shows(u"morvalen > set x abc\ndefghijklmnopqrstuvw\nxyz\n"
                           "abcdefghijklmnopqrst\nuvwxyz\n"_s
                           + prompt));
}

void tst_TerminalRuns::outputAboveALineOfSeveralRows()
{
    program->write(u"s.tcl"_s,
                   "proc p {} {if {[file exists flag]} {puts tick} else {after 20 p}}\n"
                   "p\n");
    Terminal terminal(*program, {u"--terminal"_s}, 20);
    QVERIFY(terminal.shows(prompt));
    QVERIFY(terminal.command("source s.tcl; list"));
    QVERIFY(terminal.endsWith(u'\n' + prompt));
    QVERIFY(terminal.enter("set y 0123456789012345678901234567890123456789"));
    program->write(u"flag"_s, "");
    QVERIFY(terminal.endsWith(u"\ntick\nmorvalen > set y 012\n34567890123456789012\n"
                              "34567890123456789"_s));
    QCOMPARE(terminal.text().count(u"set y"_s), 1);
}

void tst_TerminalRuns::anotherSize()
{
    Terminal terminal(*program, {u"--terminal"_s}, 80);
    QVERIFY(terminal.shows(prompt));
    QVERIFY(terminal.enter("set x 12345678901"));
    // The line is drawn again, and then fits the new size.
    terminal.resize(20);
    QVERIFY(terminal.shows(u"morvalen > set x 123\n45678901"_s));
    terminal.type("2\r");
    QVERIFY(terminal.endsWith(u"\n123456789012\n"_s + prompt));
}

// A shell with job control gets the terminal back, in a mode of its own.
void tst_TerminalRuns::stopAndResume()
{
    program->write(u"run.sh"_s,
                   "exec '" PROGRAM "' --session '" + program->session.toUtf8() + "' --terminal\n");
    Terminal terminal(*program, {}, 200,
                      u"PS1='sh> '; export PS1; exec bash --norc --noediting -i"_s);
    QVERIFY(terminal.endsWith(u"sh>"_s));
    QVERIFY(terminal.command("sh run.sh"));
    QVERIFY(terminal.endsWith(u'\n' + prompt));
    QVERIFY(terminal.enter("set x ab"));
    terminal.type("\x1a");
    QVERIFY(terminal.endsWith(u"sh>"_s));
    QVERIFY(terminal.command("echo in the shell"));
    QVERIFY(terminal.endsWith(u"\nin the shell\nsh>"_s));
    QVERIFY(terminal.command("fg"));
    QVERIFY(terminal.endsWith(u"\nmorvalen > set x ab"_s));
    terminal.type("c");
    QVERIFY(terminal.endsWith(u"\nmorvalen > set x abc"_s));
    terminal.type("\r");
    QVERIFY(terminal.endsWith(u"morvalen > set x abc\nabc\n"_s + prompt));
    terminal.type("\x04");
    QVERIFY(terminal.endsWith(u"\nsh>"_s));
}

void tst_TerminalRuns::theFolderIsThatOfTheCall()
{
    program->currentFolder = program->path(u"home"_s);
    Terminal terminal(*program, {u"--terminal"_s}, 200);
    QVERIFY(terminal.shows(prompt));
    QVERIFY(terminal.command("pwd"));
    QVERIFY(terminal.shows(u"morvalen > pwd\n"_s + program->currentFolder + u'\n' + prompt));
}

void tst_TerminalRuns::whatIsChangedIsSaved()
{
    Terminal terminal(*program, {u"--terminal"_s}, 200);
    QVERIFY(terminal.shows(prompt));
    QVERIFY(terminal.command("designs new uart; files add late.v; list"));
    QVERIFY(terminal.endsWith(u'\n' + prompt));
    terminal.type("\x04");
    QCOMPARE(terminal.ended(), 0);
    QVERIFY(Program::read(program->session + u"/Designs/uart/component.xml"_s).contains("late.v"));
}

void tst_TerminalRuns::ends_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<int>("status");
    QTest::newRow("end-1 exit") << QByteArray("exit") << 0;
    QTest::newRow("end-2 quit with a status") << QByteArray("quit 3") << 3;
    QTest::newRow("end-3 exit with a status") << QByteArray("exit 4") << 4;
    QTest::newRow("end-4 Ctrl+D behind a command that failed") << QByteArray("nonsense") << 0;
}

void tst_TerminalRuns::ends()
{
    QFETCH(const QByteArray, command);
    QFETCH(const int, status);
    Terminal terminal(*program, {u"--terminal"_s});
    QVERIFY(terminal.shows(prompt));
    QVERIFY(terminal.command(command));
    if (command == "nonsense") {
        QVERIFY(terminal.endsWith(u"\"nonsense\"\n"_s + prompt));
        terminal.type("\x04");
    }
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
    QVERIFY(terminal.command("exec test -t 1 >@stdout; exec test -t 0 <@stdin"));
    QVERIFY(terminal.endsWith(u"<@stdin\n"_s + prompt));
}

GUILESS_TEST_CLASS(tst_TerminalRuns)
#include "tst_TerminalRuns.moc"
