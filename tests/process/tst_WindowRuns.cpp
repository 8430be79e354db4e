// Runs with a window: what the command line opens, and how they end. The start-up script stands in
// for the user.

#include "tests/process/Program.h"
#include "tests/TestClass.h"

#include <QDir>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

class tst_WindowRuns : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void ends_data();
    void ends();
    void filesAreOpened();
    void badFilesAreInTheLog();
    void theUsersLanguageIsSpoken_data();
    void theUsersLanguageIsSpoken();
    void theActiveFileIsOpened();
    void anIdleWindowRests();
    void noDisplay_data();
    void noDisplay();
    void theWindowCannotBeLoaded();

private:
    // Runs with a start-up script whose later part runs when the window stands.
    Ended runWindow(const QByteArray &later, const QStringList &files = {});
    QByteArray log() const;

    std::unique_ptr<Program> program;
};

void tst_WindowRuns::init()
{
    program = std::make_unique<Program>();
    program->environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
}

Ended tst_WindowRuns::runWindow(const QByteArray &later, const QStringList &files)
{
    program->write(u"session/Scripts/startup.tcl"_s,
                   "proc say {text} {set f [open said a]; puts $f $text; close $f}\n"
                   "after 300 {\n"
                       + later + "\n}\n");
    return program->run(files);
}

QByteArray tst_WindowRuns::log() const
{
    const QDir logs(program->session + u"/Logs"_s);
    const QStringList files = logs.entryList(QDir::Files);
    return files.isEmpty() ? QByteArray() : Program::read(logs.filePath(files.first()));
}

void tst_WindowRuns::ends_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<int>("status");
    QTest::addColumn<bool>("saved");
    QTest::newRow("end-1 quit") << QByteArray("quit") << 0 << true;
    QTest::newRow("end-2 quit with a status") << QByteArray("quit 3") << 3 << true;
    QTest::newRow("end-3 exit") << QByteArray("exit") << 0 << true;
    QTest::newRow("end-4 exit with a status") << QByteArray("exit 4") << 4 << false;
    QTest::newRow("end-5 what typing exit runs") << QByteArray("dbgExit") << 0 << true;
    QTest::newRow("end-6 while a script waits")
        << QByteArray("after 100 quit; vwait forever") << 0 << true;
    QTest::newRow("end-7 asked by a signal")
        << QByteArray("design save; exec kill -TERM [pid]") << 0 << true;
    QTest::newRow("end-8 asked twice, while a script is busy")
        << QByteArray("exec kill -TERM [pid]; exec kill -TERM [pid]; exec sleep 100") << -1
        << false;
}

void tst_WindowRuns::ends()
{
    QFETCH(const QByteArray, script);
    QFETCH(const int, status);
    QFETCH(const bool, saved);
    QCOMPARE(runWindow("designs new uart; files add late.v\n" + script), (Ended {status, "", ""}));
    QCOMPARE(Program::read(program->session + u"/Designs/uart/component.xml"_s).contains("late.v"),
             saved);
}

void tst_WindowRuns::filesAreOpened()
{
    const QString examples = QStringLiteral(SOURCE_DIR "/examples");
    program->currentFolder = examples + u"/fifo"_s;
    QCOMPARE(runWindow("say [designs list]; exit 7",
                       {examples + u"/uart/component.xml"_s, u"component.xml"_s}),
             (Ended {7, "", ""}));
    QCOMPARE(Program::read(program->session + u"/Scripts/said"_s),
             QByteArray("\"morvalen.example.serial.uart.1.2\" "
                        "\"morvalen.example.memory.fifo.2.0.1\"\n"));
}

void tst_WindowRuns::badFilesAreInTheLog()
{
    const QString bad = program->write(u"bad.xml"_s, "<x>");
    QCOMPARE(runWindow("say <[designs list]>; quit", {bad, program->path(u"none.xml"_s)}),
             (Ended {0, "", ""}));
    QCOMPARE(Program::read(program->session + u"/Scripts/said"_s), QByteArray("<>\n"));
    QVERIFY(log().contains(" Error: " + bad.toUtf8() + ":1: "));
    QVERIFY(log().contains(" Error: " + program->path(u"none.xml"_s).toUtf8()));
}

void tst_WindowRuns::theUsersLanguageIsSpoken_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("language-1 English")
        << u"en_GB:de"_s << QByteArray("The program is asked to end from outside");
    QTest::newRow("language-2 German")
        << u"de_DE:en"_s << QByteArray("Das Programm wird von au\u00dfen gebeten zu enden");
}

void tst_WindowRuns::theUsersLanguageIsSpoken()
{
    QFETCH(const QString, language);
    QFETCH(const QByteArray, text);
    program->environment.insert(u"LANGUAGE"_s, language);
    // What commands tell is the same in all languages.
    QCOMPARE(runWindow("catch {designs close none} told; say $told; exec kill -TERM [pid]"),
             (Ended {0, "", ""}));
    QCOMPARE(Program::read(program->session + u"/Scripts/said"_s),
             QByteArray("ID \"none\" does not match the ID of an open design\n"));
    QVERIFY2(log().contains(" Warning: " + text + '\n'), log());
}

// Ticks of the clock, a hundredth of a second each, in more than a second after a timer has fired.
// Without a window the answer is "false".
void tst_WindowRuns::theActiveFileIsOpened()
{
    QCOMPARE(runWindow("designs new uart; files add top.v; files set_active top.v\n"
                       "say [list [catch {sfile open} result] $result]\n"
                       "close [open [sfile get actual_path] w]\n"
                       "say [list [catch {sfile open} result] $result]\n"
                       "quit"),
             (Ended {0, "", ""}));
    const QString scripts = program->session + u"/Scripts/"_s;
    QCOMPARE(Program::read(scripts + u"said"_s), QByteArray("1 false\n0 true\n"));
    QVERIFY(log().contains("top.v\": No such file or directory"));
}

void tst_WindowRuns::anIdleWindowRests()
{
    QCOMPARE(runWindow("proc ticks {} {\n"
                       "    set f [open /proc/self/stat]\n"
                       "    set fields [split [lindex [split [read $f] )] end]]\n"
                       "    close $f\n"
                       "    return [expr {[lindex $fields 12] + [lindex $fields 13]}]\n"
                       "}\n"
                       "after 10 {\n"
                       "    set ::start [ticks]\n"
                       "    after 1200 {say [expr {[ticks] - $::start}]; quit}\n"
                       "}\n"),
             (Ended {0, "", ""}));
    bool isNumber = false;
    const QByteArray said = Program::read(program->session + u"/Scripts/said"_s);
    const int ticks = said.trimmed().toInt(&isNumber);
    QVERIFY2(isNumber && ticks <= 10, said.constData());
}

void tst_WindowRuns::noDisplay_data()
{
    QTest::addColumn<QString>("variable");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("refusal");
    QTest::newRow("display-1 none")
        << QString() << QString() << QByteArray("there is no display for a window");
    QTest::newRow("display-2 an empty name")
        << u"DISPLAY"_s << u""_s << QByteArray("there is no display for a window");
    QTest::newRow("display-3 nobody answers")
        << u"DISPLAY"_s << u":4711"_s << QByteArray("the display \":4711\" does not answer");
    QTest::newRow("display-4 nobody answers, with a screen")
        << u"DISPLAY"_s << u"unix:4711.1"_s
        << QByteArray("the display \"unix:4711.1\" does not answer");
    QTest::newRow("display-5 no Wayland")
        << u"WAYLAND_DISPLAY"_s << u"wayland-4711"_s
        << QByteArray("the display \"wayland-4711\" does not answer");
}

void tst_WindowRuns::noDisplay()
{
    QFETCH(const QString, variable);
    QFETCH(const QString, name);
    QFETCH(const QByteArray, refusal);
    program->environment.remove(u"QT_QPA_PLATFORM"_s);
    if (!variable.isEmpty())
        program->environment.insert(variable, name);
    QCOMPARE(program->run({}),
             (Ended {1, "", "morvalen: " + refusal + "; --batch, -c and --terminal need none\n"}));
}

void tst_WindowRuns::theWindowCannotBeLoaded()
{
    // The program alone, as somebody copies it.
    const QString command =
        u"mkdir -p alone/bin && cp \"$0\" alone/bin && exec alone/bin/morvalen --session \"$1\""_s;
    program->currentFolder = QFileInfo(program->path(QString())).canonicalFilePath();
    const QString window =
        QDir::cleanPath(program->currentFolder + QStringLiteral("/alone/bin/" WINDOW_LIBRARY));
    const QByteArray begin = "morvalen: cannot load the window: " + window.toUtf8();
    QCOMPARE(
        program->runShell(command, {program->session}),
        (Ended {1, "", begin + ": cannot open shared object file: No such file or directory\n"}));
    // A library of that name that is another one.
    QVERIFY(QDir().mkpath(QFileInfo(window).path()));
    QVERIFY(QFile::link(QStringLiteral(OTHER_LIBRARY), window));
    QCOMPARE(program->runShell(command, {program->session}),
             (Ended {1, "", begin + ": undefined symbol: morvalenWindowRun\n"}));
    QVERIFY(!QFileInfo::exists(program->session));
    QCOMPARE(program->runShell(command + u" -c \"expr 6*7\""_s, {program->session}),
             (Ended {0, "42\n", ""}));
}

GUILESS_TEST_CLASS(tst_WindowRuns)
#include "tst_WindowRuns.moc"
