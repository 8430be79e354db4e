// The command line: what each call prints, and with which status it ends.

#include "tests/process/Program.h"
#include "tests/TestClass.h"

#include <QDir>
#include <QTest>

#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

class tst_Calls : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { program = std::make_unique<Program>(); }
    void version();
    void help();
    void badLine_data();
    void badLine();
    void commands_data();
    void commands();
    void helpDoesNotListWhatTypingExitRuns();
    void noPlatformIsNeeded();
    void loadsNothingOfWindows();
    void commandsRunInTheFolderOfTheCall();
    void theFolderOfTheCallIsGone();
    void noLibraryIsTakenFromTheFolderOfTheCall();
    void outputThatCannotBeWritten_data();
    void outputThatCannotBeWritten();
    void closedDescriptors();
    void logLevels_data();
    void logLevels();
    void theLogIsKept();

private:
    std::unique_ptr<Program> program;
};

void tst_Calls::version()
{
    QCOMPARE(program->runBare({u"--version"_s}), (Ended {0, "morvalen " VERSION "\n", ""}));
    QVERIFY(QDir(program->path(u"home"_s))
                .isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
}

void tst_Calls::help()
{
    const Ended ended = program->runBare({u"--help"_s});
    QCOMPARE(ended.status, 0);
    QCOMPARE(ended.err, "");
    QVERIFY(ended.out.startsWith("Usage: morvalen [OPTION...] [FILE...]\n"));
    QCOMPARE(program->runBare({u"-h"_s}), ended);
}

void tst_Calls::badLine_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<QByteArray>("reason");
    const QByteArray hint = "\nTry \"morvalen --help\".\n";
    QTest::newRow("bad-1 an unknown option")
        << QStringList {u"--bach"_s, u"x.tcl"_s} << "unknown option --bach" + hint;
    QTest::newRow("bad-2 a level that is none")
        << QStringList {u"--log-level"_s, u"loud"_s, u"-c"_s, u"puts x"_s}
        << "unknown log level loud (error, warning, info, debug)" + hint;
    QTest::newRow("bad-3 no script")
        << QStringList {u"--batch"_s} << "--batch needs SCRIPT behind it" + hint;
    QTest::newRow("bad-4 a script that is missing")
        << QStringList {u"--batch"_s, u"no script.tcl"_s}
        << QByteArray("cannot read the script %1/no script.tcl: No such file or directory\n");
    QTest::newRow("bad-5 a script that is a folder")
        << QStringList {u"--batch"_s, u"home"_s}
        << QByteArray("cannot read the script %1/home: Is a directory\n");
    QTest::newRow("bad-6 a script in a file")
        << QStringList {u"--batch"_s, u"plain/s.tcl"_s}
        << QByteArray("cannot read the script %1/plain/s.tcl: Not a directory\n");
    if (::geteuid() != 0) {
        QTest::newRow("bad-7 a script that may not be read")
            << QStringList {u"--batch"_s, u"locked.tcl"_s}
            << QByteArray("cannot read the script %1/locked.tcl: Permission denied\n");
    }
    QTest::newRow("bad-8 a session that is a file")
        << QStringList {u"--session"_s, u"plain"_s, u"-c"_s, u"puts x"_s}
        << QByteArray("cannot use the session folder %1/plain: Not a directory\n");
}

void tst_Calls::badLine()
{
    QFETCH(const QStringList, words);
    QFETCH(QByteArray, reason);
    program->write(u"plain"_s, "mine");
    QFile::setPermissions(program->write(u"locked.tcl"_s, "puts x"), QFile::WriteOwner);
    reason.replace("%1", program->currentFolder.toUtf8());
    QCOMPARE(program->run(words), (Ended {2, "", "morvalen: " + reason}));
    QVERIFY(!QDir(program->session).exists());
    QCOMPARE(Program::read(program->path(u"plain"_s)), QByteArray("mine"));
}

void tst_Calls::commands_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("out");
    QTest::addColumn<QByteArray>("err");
    const auto row = [](const char *name, const QStringList &commands, int status,
                        const QByteArray &out, const QByteArray &err = {}) {
        QTest::newRow(name) << commands << status << out << err;
    };
    row("command-1 each result that is not empty stands on a line",
        {u"expr {1 + 1}"_s, u"set x {}"_s, u"set x three"_s}, 0, "2\nthree\n");
    row("command-2 a line feed at the end of a result is not doubled", {u"set x \"a\\nb\\n\""_s}, 0,
        "a\nb\n");
    row("command-3 the first that fails is the last",
        {u"puts one"_s, u"error {it broke}"_s, u"puts three"_s}, 1, "one\n", "it broke\n");
    row("command-4 an error without a text", {u"error {}"_s}, 1, "", "");
    row("command-5 an unknown command", {u"nonsense"_s}, 1, "",
        "invalid command name \"nonsense\"\n");
    row("command-6 an open brace", {u"puts {"_s}, 1, "", "missing close-brace\n");
    row("command-7 break outside of a loop", {u"break"_s}, 1, "",
        "invoked \"break\" outside of a loop\n");
    row("command-8 an empty command", {u""_s, u"set x 1"_s}, 0, "1\n");
    row("command-9 a backslash stays a backslash", {u"set x {c:\\dir \\n}"_s}, 0, "c:\\dir \\n\n");
    row("command-13 backslashes behind a drive stay, too", {u"set x {c:\\dir\\new}"_s}, 0,
        "c:\\dir\\new\n");
    row("command-10 characters of every plane", {u"set x {\u20ac \U0001f40d}"_s}, 0,
        "\xe2\x82\xac \xf0\x9f\x90\x8d\n");
    row("command-11 output and results in their order", {u"puts a; set x b"_s, u"puts c"_s}, 0,
        "a\nb\nc\n");
    row("command-12 an error of the application", {u"designs set_active nobody"_s}, 1, "",
        "ID \"nobody\" does not match the ID of an open design\n");
    row("end-1 quit", {u"puts a"_s, u"quit"_s, u"puts b"_s}, 0, "a\n");
    row("end-2 quit with a status", {u"quit 3"_s, u"puts b"_s}, 3, "");
    row("end-3 quit with a word", {u"quit q"_s, u"puts b"_s}, 0, "");
    row("end-4 quit with too many words", {u"quit 1 2"_s}, 1, "",
        "Supported quit parameters are just \"q\"\n");
    row("end-5 exit with a status", {u"exit 5"_s, u"puts b"_s}, 5, "");
    row("end-6 exit alone ends as quit does", {u"exit"_s, u"puts b"_s}, 0, "");
    row("end-7 exit 0", {u"exit 0"_s, u"puts b"_s}, 0, "");
    row("end-8 a status that is none", {u"exit x"_s}, 1, "", "expected integer but got \"x\"\n");
    row("end-9 an error behind other results", {u"set x 1"_s, u"nonsense"_s}, 1, "1\n",
        "invalid command name \"nonsense\"\n");
}

void tst_Calls::commands()
{
    QFETCH(const QStringList, words);
    QFETCH(const int, status);
    QFETCH(const QByteArray, out);
    QFETCH(const QByteArray, err);
    QCOMPARE(program->runCommands(words), (Ended {status, out, err}));
}

void tst_Calls::helpDoesNotListWhatTypingExitRuns()
{
    const Ended ended = program->runCommands({u"help"_s, u"info commands dbgExit"_s});
    QCOMPARE(ended.status, 0);
    QCOMPARE(ended.out.count("dbgExit"), 1);
    QVERIFY(ended.out.endsWith("\ndbgExit\n"));
}

void tst_Calls::noPlatformIsNeeded()
{
    program->environment.insert(u"QT_QPA_PLATFORM"_s, u"xcb"_s);
    program->environment.insert(u"DISPLAY"_s, u":4711"_s);
    QCOMPARE(program->runCommands({u"set env(QT_QPA_PLATFORM)"_s}), (Ended {0, "xcb\n", ""}));
}

void tst_Calls::loadsNothingOfWindows()
{
    QCOMPARE(
        program->runScript("set f [open /proc/self/maps]\n"
                           "foreach library {libtcl libQt6Core libQt6Gui libQt6Widgets libX11} "
                           "{puts [list $library [string match *$library* [read $f]]]\n"
                           "seek $f 0}\n"),
        (Ended {0, "libtcl 1\nlibQt6Core 1\nlibQt6Gui 0\nlibQt6Widgets 0\nlibX11 0\n", ""}));
}

void tst_Calls::commandsRunInTheFolderOfTheCall()
{
    program->write(u"session/Scripts/startup.tcl"_s, "set where [pwd]; cd /\n");
    program->currentFolder = program->path(u"home"_s);
    QCOMPARE(
        program->runCommands(
            {u"set where"_s, u"pwd"_s, u"morvalen folder"_s, u"morvalen session"_s}),
        (Ended {0,
                program->session.toUtf8() + "/Scripts\n" + program->currentFolder.toUtf8() + '\n'
                    + program->currentFolder.toUtf8() + '\n' + program->session.toUtf8() + '\n',
                ""}));
}

void tst_Calls::theFolderOfTheCallIsGone()
{
    QCOMPARE(program->runShell(u"mkdir gone && cd gone && rmdir ../gone && "
                               "exec \"$0\" --session \"$1\" -c pwd"_s,
                               {program->session}),
             (Ended {0, program->session.toUtf8() + "/Scripts\n",
                     "Warning: The folder of the call is gone; this run goes on in \""
                         + program->session.toUtf8() + "/Scripts\"\n"}));
}

void tst_Calls::noLibraryIsTakenFromTheFolderOfTheCall()
{
    for (const QString &name : {u"libQt6Core.so.6"_s, u"libtcl8.6.so"_s, u"libexpat.so.1"_s})
        program->write(name, "not a library");
    program->currentFolder = program->path(QString());
    QCOMPARE(program->runCommands({u"list 1"_s}), (Ended {0, "1\n", ""}));
}

void tst_Calls::outputThatCannotBeWritten_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QByteArray>("err");
    QTest::newRow("write-1 a result")
        << u"set x 1"_s << QByteArray("morvalen: cannot write to standard output\n");
    QTest::newRow("write-2 a script's own")
        << u"puts x"_s << QByteArray("error writing \"stdout\": no space left on device\n");
}

void tst_Calls::outputThatCannotBeWritten()
{
    QFETCH(const QString, command);
    QFETCH(const QByteArray, err);
    QCOMPARE(program->runShell(u"exec \"$0\" --session \"$1\" -c \"$2\" >/dev/full"_s,
                               {program->session, command}),
             (Ended {1, "", err}));
    QCOMPARE(program->runShell(u"exec \"$0\" --version >/dev/full"_s), (Ended {1, "", ""}));
}

// A descriptor that is closed at the start is never taken by one of the program's own files.
void tst_Calls::closedDescriptors()
{
    const QString script =
        program->write(u"s.tcl"_s,
                       "set f [open [lindex $argv 0] w]\nputs lost\nputs stderr lost\n"
                       "puts $f kept\nclose $f\ngets stdin\n");
    const QString result = program->path(u"result"_s);
    QCOMPARE(program->runShell(u"exec \"$0\" --session \"$1\" --batch \"$2\" \"$3\" <&- >&- 2>&-"_s,
                               {program->session, script, result}),
             (Ended {0, "", ""}));
    QCOMPARE(Program::read(result), QByteArray("kept\n"));
    // Whoever closes the output wants none, as with Tcl's own shell.
    QCOMPARE(program->runShell(u"exec \"$0\" --session \"$1\" -c 'puts lost' -c 'list lost' >&-"_s,
                               {program->session}),
             (Ended {0, "", ""}));
}

void tst_Calls::logLevels_data()
{
    QTest::addColumn<QStringList>("option");
    QTest::addColumn<QByteArray>("err");
    const QByteArray error = "Error: third\n";
    const QByteArray warning = "Warning: second\n";
    const QByteArray info = "Info: Successfully initialized Tcl script environment.\n";
    QTest::newRow("level-1 warning is the default") << QStringList {} << warning + error;
    QTest::newRow("level-2 error") << QStringList {u"--log-level"_s, u"error"_s} << error;
    QTest::newRow("level-3 info") << QStringList {u"--log-level=info"_s}
                                  << info + "Info: first\n" + warning + error;
}

void tst_Calls::logLevels()
{
    QFETCH(const QStringList, option);
    QFETCH(const QByteArray, err);
    const QStringList log {u"-c"_s, u"log first"_s,       u"-c"_s, u"log second warning"_s,
                           u"-c"_s, u"logp third error"_s};
    QCOMPARE(program->run(option + log),
             (Ended {0, "Message logged\nMessage logged\nMessage logged\n", err}));
}

void tst_Calls::theLogIsKept()
{
    QCOMPARE(program->runCommands({u"log {for later}"_s}), (Ended {0, "Message logged\n", ""}));
    const QDir logs(program->session + u"/Logs"_s);
    const QStringList files = logs.entryList(QDir::Files);
    QCOMPARE(files.size(), 1);
    QVERIFY(Program::read(logs.filePath(files.first())).contains(" Info: for later\n"));
}

GUILESS_TEST_CLASS(tst_Calls)
#include "tst_Calls.moc"
