// Scripts in a run without a window: what they see, what they write, and how they end.

#include "tests/process/Program.h"
#include "tests/TestClass.h"

#include <QDir>
#include <QProcess>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

class tst_ScriptRuns : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { program = std::make_unique<Program>(); }
    void arguments_data();
    void arguments();
    void paths_data();
    void paths();
    void relativeToTheFolderOfTheCall();
    void aPipeIsAScript();
    void output_data();
    void output();
    void orderOfBothStreams();
    void outputArrivesAtOnce();
    void aReaderThatLeaves();
    void otherInterpreters();
    void localeWithoutUtf8();
    void errors_data();
    void errors();
    void ends_data();
    void ends();
    void openFilesAreFlushed();
    void events_data();
    void events();
    void waitingTakesNoTime();
    void children();
    void whatIsSaved_data();
    void whatIsSaved();
    void whatCannotBeSaved_data();
    void whatCannotBeSaved();

private:
    std::unique_ptr<Program> program;
};

void tst_ScriptRuns::arguments_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::newRow("arg-1 none") << QStringList {};
    QTest::newRow("arg-2 options are the script's own")
        << QStringList {u"--help"_s, u"-c"_s, u"--session"_s, u"--"_s};
    QTest::newRow("arg-3 blanks and empty words")
        << QStringList {u"a b"_s, u""_s, u" "_s, u"c\td\ne"_s};
    QTest::newRow("arg-4 what scripts take for code") << QStringList {
        u"$env(HOME)"_s, u"[exit 9]"_s, u"{"_s, u"}"_s, u"\""_s, u"a\\nb"_s, u";"_s, u"#"_s};
    QTest::newRow("arg-5 a drive") << QStringList {u"c:\\dir"_s};
    QTest::newRow("arg-6 beyond ASCII") << QStringList {u"\u20ac"_s, u"\U0001f40d"_s};
}

void tst_ScriptRuns::arguments()
{
    QFETCH(const QStringList, words);
    QByteArray expected = QByteArray::number(words.size()) + '\n';
    for (const QString &word : words)
        expected += '<' + word.toUtf8() + ">\n";
    QCOMPARE(program->runScript("puts $argc\nforeach word $argv {puts <$word>}\n", words),
             (Ended {0, expected, ""}));
}

void tst_ScriptRuns::paths_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("path-1 plain") << u"s.tcl"_s;
    QTest::newRow("path-2 no suffix") << u"script"_s;
    QTest::newRow("path-3 blanks") << u"my own/s 1.tcl"_s;
    QTest::newRow("path-4 code") << u"[exit 9] $env(HOME)/\"; exit 9; {.tcl"_s;
    QTest::newRow("path-5 backslashes") << u"c:\\dir\\n.tcl"_s;
    QTest::newRow("path-6 beyond ASCII") << u"Entw\u00fcrfe/\u20ac.tcl"_s;
    QTest::newRow("path-7 a tilde and a dash") << u"~/a -x.tcl"_s;
}

void tst_ScriptRuns::paths()
{
    QFETCH(const QString, name);
    const QString script =
        program->write(name, "puts [info script]\nputs $argv0\nputs [file tail [info script]]\n");
    const QByteArray path = script.toUtf8();
    QCOMPARE(
        program->run({u"--batch"_s, script}),
        (Ended {0, path + '\n' + path + '\n' + QFileInfo(script).fileName().toUtf8() + '\n', ""}));
}

void tst_ScriptRuns::relativeToTheFolderOfTheCall()
{
    program->write(u"sub/s.tcl"_s, "puts [info script]");
    program->currentFolder = program->path(u"sub"_s);
    const QByteArray folder = program->currentFolder.toUtf8();
    QCOMPARE(program->runBare({u"--session"_s, u"../here"_s, u"--batch"_s, u"s.tcl"_s}),
             (Ended {0, folder + "/s.tcl\n", ""}));
    QVERIFY(QDir(program->path(u"here/Scripts"_s)).exists());
}

void tst_ScriptRuns::aPipeIsAScript()
{
    QCOMPARE(program->run({u"--batch"_s, u"/dev/stdin"_s}, "puts piped\n"),
             (Ended {0, "piped\n", ""}));
}

void tst_ScriptRuns::output_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<QByteArray>("out");
    QTest::addColumn<QByteArray>("err");
    QTest::newRow("output-1 lines")
        << QByteArray("puts one\nputs two\n") << QByteArray("one\ntwo\n") << QByteArray();
    QTest::newRow("output-2 empty lines are lines")
        << QByteArray("puts {}\nputs a\nputs {}\nputs b\n") << QByteArray("\na\n\nb\n")
        << QByteArray();
    QTest::newRow("output-3 pieces of a line")
        << QByteArray("puts -nonewline a\nputs -nonewline b\nputs c\nputs -nonewline d\n")
        << QByteArray("abc\nd") << QByteArray();
    QTest::newRow("output-4 both streams")
        << QByteArray("puts one\nputs stderr two\nputs stdout three\n")
        << QByteArray("one\nthree\n") << QByteArray("two\n");
    QTest::newRow("output-5 bytes") << QByteArray("fconfigure stdout -translation binary\n"
                                                  "puts -nonewline \"\\x00\\xff\\r\\n\\x80\"\n")
                                    << QByteArray("\x00\xff\r\n\x80", 5) << QByteArray();
    QTest::newRow("output-6 the result of a script is not output")
        << QByteArray("set x 1\n") << QByteArray() << QByteArray();
    QTest::newRow("output-7 a long line")
        << QByteArray("puts [string repeat x 3000000]\nputs end\n")
        << QByteArray(3'000'000, 'x') + "\nend\n"
        << QByteArray();
    QTest::newRow("output-8 names of the channels")
        << QByteArray("puts [lsort [chan names]]\n") << QByteArray("stderr stdin stdout\n")
        << QByteArray();
    QTest::newRow("output-9 of a program that the script runs")
        << QByteArray("exec echo from a child >@stdout\nputs after\n")
        << QByteArray("from a child\nafter\n") << QByteArray();
}

void tst_ScriptRuns::output()
{
    QFETCH(const QByteArray, script);
    QFETCH(const QByteArray, out);
    QFETCH(const QByteArray, err);
    QCOMPARE(program->runScript(script), (Ended {0, out, err}));
}

void tst_ScriptRuns::orderOfBothStreams()
{
    const QString script =
        program->write(u"s.tcl"_s,
                       "puts 1\nputs stderr 2\nputs -nonewline 3\nputs stderr 4\n"
                       "puts 5\nlog 6 error\nputs 7\n");
    QCOMPARE(program->runShell(u"exec \"$0\" --session \"$1\" --batch \"$2\" 2>&1"_s,
                               {program->session, script}),
             (Ended {0, "1\n2\n34\n5\nError: 6\n7\n", ""}));
}

void tst_ScriptRuns::outputArrivesAtOnce()
{
    const QString script =
        program->write(u"s.tcl"_s, "puts -nonewline ready\nputs \"got [gets stdin]\"\n");
    QProcess process;
    process.setProcessEnvironment(program->environment);
    process.start(QStringLiteral(PROGRAM),
                  {u"--session"_s, program->session, u"--batch"_s, script});
    QTRY_COMPARE_WITH_TIMEOUT(process.bytesAvailable(), 5, patient(60'000));
    QCOMPARE(process.readAllStandardOutput(), QByteArray("ready"));
    process.write("it\n");
    QVERIFY(process.waitForFinished(patient(60'000)));
    QCOMPARE(process.readAllStandardOutput(), QByteArray("got it\n"));
}

void tst_ScriptRuns::aReaderThatLeaves()
{
    const QString script = program->write(u"s.tcl"_s, "while 1 {puts line}\n");
    const QString status = program->path(u"status"_s);
    const Ended ended = program->runShell(
        u"{ \"$0\" --session \"$1\" --batch \"$2\"; echo $? >\"$3\"; } | head -n 2"_s,
        {program->session, script, status});
    QCOMPARE(ended.out, QByteArray("line\nline\n"));
    QVERIFY(ended.err.startsWith("error writing \"stdout\": broken pipe\n    while executing\n"));
    QCOMPARE(Program::read(status), QByteArray("1\n"));
}

void tst_ScriptRuns::otherInterpreters()
{
    QCOMPARE(program->runScript("interp create child\nchild eval {puts from-child}\n"
                                "interp create -safe safe\ninterp share {} stdout safe\n"
                                "safe eval {puts from-safe}\ninterp delete safe\n"
                                "interp delete child\nputs after\n"),
             (Ended {0, "from-child\nfrom-safe\nafter\n", ""}));
}

void tst_ScriptRuns::localeWithoutUtf8()
{
    program->environment.insert(u"LC_ALL"_s, u"C"_s);
    QCOMPARE(program->runScript("puts \xe2\x82\xac\nputs $argv\nputs [encoding system]\n"
                                "exec printf \\u20ac >@stdout\n",
                                {u"\u00e4"_s}),
             (Ended {0, "\xe2\x82\xac\n\xc3\xa4\nutf-8\n\xe2\x82\xac", ""}));
}

void tst_ScriptRuns::errors_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<QByteArray>("out");
    QTest::addColumn<QByteArray>("err");
    const QByteArray tail = "    invoked from within\n\"source %1\"\n";
    QTest::newRow("error-1 a line of the script")
        << QByteArray("puts before\n\nnonsense here\nputs after\n") << QByteArray("before\n")
        << "invalid command name \"nonsense\"\n    while executing\n\"nonsense here\"\n"
           "    (file \"%1\" line 3)\n"
            + tail;
    QTest::newRow("error-2 in a procedure")
        << QByteArray("proc f {} {\n    error \"two\nlines\"\n}\nf\n") << QByteArray()
        << "two\nlines\n    while executing\n\"error \"two\nlines\"\"\n    (procedure \"f\" line "
           "2)\n"
           "    invoked from within\n\"f\"\n    (file \"%1\" line 5)\n"
            + tail;
    QTest::newRow("error-3 another message than the stack's")
        << QByteArray("error message {a stack of its own}\n") << QByteArray()
        << "message\na stack of its own\n    (file \"%1\" line 1)\n" + tail;
    QTest::newRow("error-4 an open brace")
        << QByteArray("puts ok\nputs {\n") << QByteArray("ok\n")
        << "missing close-brace\n    while executing\n\"puts {\"\n    (file \"%1\" line 2)\n"
            + tail;
    QTest::newRow("error-5 a backslash in a literal is untouched")
        << QByteArray("error {c:\\dir\\n}\n") << QByteArray()
        << "c:\\dir\\n\n    while executing\n\"error {c:\\dir\\n}\"\n    (file \"%1\" line 1)\n"
            + tail;
}

void tst_ScriptRuns::errors()
{
    QFETCH(const QByteArray, script);
    QFETCH(const QByteArray, out);
    QFETCH(QByteArray, err);
    err.replace("%1", program->path(u"script.tcl"_s).toUtf8());
    QCOMPARE(program->runScript(script), (Ended {1, out, err}));
}

void tst_ScriptRuns::ends_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<int>("status");
    QTest::newRow("end-1 its end") << QByteArray("set x 1") << 0;
    QTest::newRow("end-2 an empty script") << QByteArray("") << 0;
    QTest::newRow("end-3 return") << QByteArray("return 5") << 0;
    QTest::newRow("end-4 quit") << QByteArray("quit") << 0;
    QTest::newRow("end-5 quit 3") << QByteArray("proc f {} {quit 3}\nf") << 3;
    QTest::newRow("end-6 exit") << QByteArray("exit") << 0;
    QTest::newRow("end-7 exit 5") << QByteArray("exit 5") << 5;
    QTest::newRow("end-8 exit in a callback") << QByteArray("after 10 {exit 6}\nvwait x") << 6;
    QTest::newRow("end-9 quit in a callback") << QByteArray("after 10 {quit 7}\nvwait x") << 7;
    QTest::newRow("end-10 exit with a file event pending")
        << QByteArray("set p [open |cat r+]\nfileevent $p readable {}\n"
                      "fconfigure $p -blocking 0\nafter 10 {exit 8}\nvwait x")
        << 8;
    QTest::newRow("end-11 an error that is caught") << QByteArray("catch {error x}") << 0;
}

void tst_ScriptRuns::ends()
{
    QFETCH(const QByteArray, script);
    QFETCH(const int, status);
    QCOMPARE(program->runScript(script), (Ended {status, "", ""}));
}

void tst_ScriptRuns::openFilesAreFlushed()
{
    for (const char *end : {"set x 1", "quit", "exit 0", "exit 3", "error oops"}) {
        const QString file = program->path(u"out"_s);
        program->runScript(QByteArray("set f [open [lindex $argv 0] w]\n"
                                      "puts -nonewline $f written\n")
                               + end,
                           {file});
        QCOMPARE(Program::read(file), QByteArray("written"));
        QVERIFY(QFile::remove(file));
    }
}

void tst_ScriptRuns::events_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<QByteArray>("out");
    QTest::newRow("event-1 a timer")
        << QByteArray("after 20 {set x done}\nvwait x\nputs $x\n") << QByteArray("done\n");
    QTest::newRow("event-2 update returns")
        << QByteArray("after idle {puts idle}\nupdate\nputs after\nupdate idletasks\n")
        << QByteArray("idle\nafter\n");
    QTest::newRow("event-3 a pipe")
        << QByteArray("set p [open {|sh -c {echo a; sleep 0.1; echo b}}]\n"
                      "proc take p {if {[gets $p line] >= 0} {puts <$line>} else {set ::x 1}}\n"
                      "fconfigure $p -blocking 0\nfileevent $p readable [list take $p]\n"
                      "vwait x\nclose $p\n")
        << QByteArray("<a>\n<b>\n");
    QTest::newRow("event-4 a server of its own")
        << QByteArray("proc serve {s args} {puts $s hello; close $s}\n"
                      "set server [socket -server serve -myaddr 127.0.0.1 0]\n"
                      "set c [socket 127.0.0.1 [lindex [fconfigure $server -sockname] 2]]\n"
                      "fileevent $c readable {set x [gets $c]}\nvwait x\nputs $x\n")
        << QByteArray("hello\n");
}

void tst_ScriptRuns::events()
{
    QFETCH(const QByteArray, script);
    QFETCH(const QByteArray, out);
    QCOMPARE(program->runScript(script), (Ended {0, out, ""}));
}

// Ticks of the clock, a hundredth of a second each, that waiting for more than a second takes.
void tst_ScriptRuns::waitingTakesNoTime()
{
    const Ended ended =
        program->runScript("proc ticks {} {\n"
                           "    set f [open /proc/self/stat]\n"
                           "    set fields [split [lindex [split [read $f] )] end]]\n"
                           "    close $f\n"
                           "    return [expr {[lindex $fields 12] + [lindex $fields 13]}]\n"
                           "}\n"
                           "after 10 {set x 1}\nvwait x\n"
                           "set start [ticks]\n"
                           "after 1200 {set x 2}\nvwait x\n"
                           "puts [expr {[ticks] - $start}]\n");
    QCOMPARE(ended.status, 0);
    bool isNumber = false;
    const int ticks = ended.out.trimmed().toInt(&isNumber);
    QVERIFY(isNumber);
    QVERIFY2(ticks <= 10, ended.out.constData());
}

// What the program needs for itself is not handed to the programs that a script runs.
void tst_ScriptRuns::children()
{
    program->environment.insert(u"LC_ALL"_s, u"C"_s);
    QCOMPARE(program->runScript("puts [exec sh -c {echo \"$LC_ALL ${QT_QPA_PLATFORM-none}\"}]\n"
                                "puts [exec sh -c {yes | head -n 1; echo end}]\n"),
             (Ended {0, "C none\ny\nend\n", ""}));
}

void tst_ScriptRuns::whatIsSaved_data()
{
    QTest::addColumn<QByteArray>("end");
    QTest::addColumn<int>("status");
    QTest::addColumn<bool>("saved");
    QTest::newRow("saved-1 a good end") << QByteArray("set x 1") << 0 << true;
    QTest::newRow("saved-2 quit") << QByteArray("quit") << 0 << true;
    QTest::newRow("saved-3 quit with a status") << QByteArray("quit 3") << 3 << true;
    QTest::newRow("saved-4 exit") << QByteArray("exit") << 0 << true;
    QTest::newRow("saved-5 an error") << QByteArray("error oops") << 1 << false;
    QTest::newRow("saved-6 exit with a status") << QByteArray("exit 3") << 3 << false;
}

void tst_ScriptRuns::whatIsSaved()
{
    QFETCH(const QByteArray, end);
    QFETCH(const int, status);
    QFETCH(const bool, saved);
    QCOMPARE(program->runCommands({u"designs new uart"_s}).status, 0);
    const QString component = program->session + u"/Designs/uart/component.xml"_s;
    const QByteArray before = Program::read(component);
    QVERIFY(!before.isEmpty());
    const Ended ended =
        program->runScript("designs add [lindex $argv 0]\nfiles add late.v\n" + end, {component});
    QCOMPARE(ended.status, status);
    if (saved)
        QVERIFY(Program::read(component).contains("late.v"));
    else
        QCOMPARE(Program::read(component), before);
}

void tst_ScriptRuns::whatCannotBeSaved_data()
{
    QTest::addColumn<QByteArray>("end");
    QTest::addColumn<int>("status");
    QTest::addColumn<int>("backups");
    QTest::newRow("unsaved-1 a good end") << QByteArray("set x 1") << 1 << 1;
    QTest::newRow("unsaved-2 quit") << QByteArray("quit") << 1 << 1;
    QTest::newRow("unsaved-3 exit") << QByteArray("exit 0") << 1 << 1;
    QTest::newRow("unsaved-4 exit with a status") << QByteArray("exit 3") << 3 << 0;
    QTest::newRow("unsaved-5 quit with a status") << QByteArray("quit 3") << 3 << 1;
}

// Another program writes to the component file meanwhile: its change stays, and the status tells.
void tst_ScriptRuns::whatCannotBeSaved()
{
    QFETCH(const QByteArray, end);
    QFETCH(const int, status);
    QFETCH(const int, backups);
    QCOMPARE(program->runCommands({u"designs new uart"_s}).status, 0);
    const QString component = program->session + u"/Designs/uart/component.xml"_s;
    const QByteArray before = Program::read(component);
    const Ended ended = program->runScript("designs add [lindex $argv 0]\nfiles add late.v\n"
                                           "exec sh -c {echo >>\"$0\"} [lindex $argv 0]\n"
                                               + end,
                                           {component});
    QCOMPARE(ended.status, status);
    QCOMPARE(Program::read(component), before + '\n');
    QCOMPARE(QDir(program->session + u"/Backups"_s).entryList(QDir::Files).size(), backups);
    QCOMPARE(ended.err.count("Error: "), backups);
}

GUILESS_TEST_CLASS(tst_ScriptRuns)
#include "tst_ScriptRuns.moc"
