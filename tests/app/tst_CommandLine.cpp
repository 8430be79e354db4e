#include "app/CommandLine.h"
#include "tests/TestClass.h"

#include <Qtilities/Logger.h>

#include <QTest>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Logging::Logger;
using Run = CommandLine::Run;

class tst_CommandLine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void accepted_data();
    void accepted();
    void refused_data();
    void refused();
    void logLevels_data();
    void logLevels();
    void helpNamesEveryOption();
};

namespace {

// All that a command line says, a line for each field that is set.
QString asText(const CommandLine &line)
{
    static const QStringList runs {u"window"_s,   u"script"_s, u"commands"_s,
                                   u"terminal"_s, u"help"_s,   u"version"_s};
    QStringList text {runs.at(int(line.run))};
    const auto add = [&text](const QString &name, const QStringList &values) {
        for (const QString &value : values)
            text.append(name + u'=' + value);
    };
    add(u"file"_s, line.files);
    if (!line.script.isNull())
        text.append(u"script="_s + line.script);
    add(u"arg"_s, line.scriptArguments);
    add(u"command"_s, line.commands);
    if (!line.sessionFolder.isEmpty())
        text.append(u"session="_s + line.sessionFolder);
    if (line.jobs)
        text.append(u"jobs=%1"_s.arg(*line.jobs));
    if (line.keepGoing)
        text.append(u"keep going"_s);
    return text.join(u'\n');
}

} // namespace

void tst_CommandLine::accepted_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<QString>("line");

    QTest::newRow("line-window-1 no word opens the window") << QStringList {} << u"window"_s;
    QTest::newRow("line-window-2 files are of the folder of the call")
        << QStringList {u"a.xml"_s, u"../b c.xml"_s, u"/abs/$c.xml"_s}
        << u"window\nfile=/call/a.xml\nfile=/call/../b c.xml\nfile=/abs/$c.xml"_s;
    QTest::newRow("line-window-3 behind -- everything is a file")
        << QStringList {u"--"_s, u"--batch"_s, u"-c"_s}
        << u"window\nfile=/call/--batch\nfile=/call/-c"_s;
    QTest::newRow("line-window-4 options may stand behind files")
        << QStringList {u"a.xml"_s, u"--session"_s, u"s"_s}
        << u"window\nfile=/call/a.xml\nsession=/call/s"_s;

    QTest::newRow("line-terminal-1") << QStringList {u"--terminal"_s} << u"terminal"_s;
    QTest::newRow("line-terminal-2 with a session")
        << QStringList {u"--terminal"_s, u"--session"_s, u"s"_s} << u"terminal\nsession=/call/s"_s;
    QTest::newRow("line-batch-0 standard input")
        << QStringList {u"--batch"_s, u"-"_s, u"-"_s} << u"script\nscript=/dev/stdin\narg=-"_s;
    QTest::newRow("line-batch-1 a script alone")
        << QStringList {u"--batch"_s, u"s.tcl"_s} << u"script\nscript=/call/s.tcl"_s;
    QTest::newRow("line-batch-2 all words behind the script are its own")
        << QStringList {u"--batch"_s, u"s.tcl"_s, u"--session"_s, u"x"_s,
                        u"-c"_s,      u""_s,      u"--"_s,        u"--help"_s}
        << u"script\nscript=/call/s.tcl\narg=--session\narg=x\narg=-c\narg=\narg=--\narg=--help"_s;
    QTest::newRow("line-batch-3 the value behind an equals sign")
        << QStringList {u"--batch=dir/s=t.tcl"_s, u"a"_s}
        << u"script\nscript=/call/dir/s=t.tcl\narg=a"_s;
    QTest::newRow("line-batch-4 a script whose name looks like an option")
        << QStringList {u"--batch"_s, u"--help"_s} << u"script\nscript=/call/--help"_s;
    QTest::newRow("line-batch-5 a backslash stays a backslash")
        << QStringList {u"--batch"_s, u"c:\\s.tcl"_s} << u"script\nscript=/call/c:\\s.tcl"_s;

    QTest::newRow("line-command-1 one command")
        << QStringList {u"-c"_s, u"designs list"_s} << u"commands\ncommand=designs list"_s;
    QTest::newRow("line-command-2 several commands in their order")
        << QStringList {u"-c"_s, u"b"_s, u"--session"_s, u"/s"_s, u"-c"_s, u"a"_s}
        << u"commands\ncommand=b\ncommand=a\nsession=/s"_s;
    QTest::newRow("line-command-3 a command that looks like an option, and an empty one")
        << QStringList {u"-c"_s, u"--help"_s, u"-c"_s, u""_s}
        << u"commands\ncommand=--help\ncommand="_s;

    QTest::newRow("line-session-1 the last one counts")
        << QStringList {u"--session=a"_s, u"--session"_s, u"b"_s} << u"window\nsession=/call/b"_s;

    QTest::newRow("line-builds-1 how they are run")
        << QStringList {u"--jobs"_s, u"40"_s, u"--keep-going"_s, u"-c"_s, u"build run"_s}
        << u"commands\ncommand=build run\njobs=40\nkeep going"_s;
    QTest::newRow("line-builds-2 the last number counts")
        << QStringList {u"--jobs=2"_s, u"--jobs"_s, u"1"_s} << u"window\njobs=1"_s;
    QTest::newRow("line-help-1 long") << QStringList {u"--help"_s} << u"help"_s;
    QTest::newRow("line-help-2 short, and the words behind it are not looked at")
        << QStringList {u"-h"_s, u"--nonsense"_s} << u"help"_s;
    QTest::newRow("line-version-1 long") << QStringList {u"--version"_s} << u"version"_s;
    QTest::newRow("line-version-2 short, behind another option")
        << QStringList {u"--log-level"_s, u"debug"_s, u"-v"_s} << u"version"_s;
}

void tst_CommandLine::accepted()
{
    QFETCH(const QStringList, words);
    QFETCH(const QString, line);
    const auto parsed = CommandLine::parse(words, u"/call"_s);
    QCOMPARE(parsed.status().text(), QString());
    QVERIFY(parsed.isOk());
    QCOMPARE(asText(parsed.value()), line);
    QCOMPARE(parsed.value().hasWindow(), parsed.value().run == Run::Window);
}

void tst_CommandLine::refused_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<QString>("reason");

    QTest::newRow("bad-option-1 unknown")
        << QStringList {u"--bach"_s, u"x"_s} << u"unknown option --bach"_s;
    QTest::newRow("bad-option-2 unknown, with a value")
        << QStringList {u"--x=1"_s} << u"unknown option --x"_s;
    QTest::newRow("bad-option-3 short") << QStringList {u"-x"_s} << u"unknown option -x"_s;
    QTest::newRow("bad-option-4 only the whole word")
        << QStringList {u"--ses"_s, u"x"_s} << u"unknown option --ses"_s;
    QTest::newRow("bad-option-5 no value wanted")
        << QStringList {u"--help=me"_s} << u"--help takes no value"_s;
    QTest::newRow("bad-value-1 batch")
        << QStringList {u"--batch"_s} << u"--batch needs SCRIPT behind it"_s;
    QTest::newRow("bad-value-2 command")
        << QStringList {u"-c"_s} << u"-c needs COMMAND behind it"_s;
    QTest::newRow("bad-value-3 session")
        << QStringList {u"a.xml"_s, u"--session"_s} << u"--session needs DIR behind it"_s;
    QTest::newRow("bad-value-4 level")
        << QStringList {u"--log-level"_s} << u"--log-level needs LEVEL behind it"_s;
    QTest::newRow("bad-value-5 empty script")
        << QStringList {u"--batch"_s, u""_s} << u"the name of the script is empty"_s;
    QTest::newRow("bad-value-6 empty session")
        << QStringList {u"--session="_s} << u"the name of the session folder is empty"_s;
    for (const QString &value : {u"0"_s, u"-1"_s, u"many"_s, u"1.5"_s, u"99999999999"_s})
        QTest::newRow(qPrintable(u"bad-jobs "_s + value))
            << QStringList {u"--jobs"_s, value}
            << u"--jobs wants a number of at least 1, not "_s + value;
    QTest::newRow("bad-jobs-empty") << QStringList {u"--jobs"_s, u""_s}
                                    << u"--jobs wants a number of at least 1, not an empty word"_s;
    QTest::newRow("bad-jobs-none") << QStringList {u"--jobs"_s} << u"--jobs needs N behind it"_s;
    QTest::newRow("bad-keep-going-1 no value wanted")
        << QStringList {u"--keep-going=1"_s} << u"--keep-going takes no value"_s;
    QTest::newRow("bad-value-7 empty file") << QStringList {u""_s} << u"a file name is empty"_s;
    QTest::newRow("bad-value-8 level")
        << QStringList {u"--log-level"_s, u"Error"_s}
        << u"unknown log level Error (error, warning, info, debug)"_s;
    QTest::newRow("bad-mix-1 commands and a script")
        << QStringList {u"-c"_s, u"x"_s, u"--batch"_s, u"s"_s}
        << u"--batch and -c exclude each other"_s;
    QTest::newRow("bad-mix-4 a prompt and a script")
        << QStringList {u"--terminal"_s, u"--batch"_s, u"s"_s}
        << u"--batch and --terminal exclude each other"_s;
    QTest::newRow("bad-mix-5 a prompt and a command")
        << QStringList {u"--terminal"_s, u"-c"_s, u"x"_s}
        << u"-c and --terminal exclude each other"_s;
    QTest::newRow("bad-mix-6 a file and a prompt")
        << QStringList {u"a.xml"_s, u"--terminal"_s}
        << u"files are opened in a window only: /call/a.xml"_s;
    QTest::newRow("bad-mix-2 a file and a command")
        << QStringList {u"a.xml"_s, u"-c"_s, u"x"_s}
        << u"files are opened in a window only: /call/a.xml"_s;
    QTest::newRow("bad-mix-3 a file before a script")
        << QStringList {u"a.xml"_s, u"--batch"_s, u"s"_s}
        << u"files are opened in a window only: /call/a.xml"_s;
    QTest::newRow("bad-order-1 a bad word before help")
        << QStringList {u"--nonsense"_s, u"--help"_s} << u"unknown option --nonsense"_s;
}

void tst_CommandLine::refused()
{
    QFETCH(const QStringList, words);
    QFETCH(const QString, reason);
    const auto parsed = CommandLine::parse(words, u"/call"_s);
    QVERIFY(!parsed.isOk());
    QCOMPARE(parsed.status().kind(), Qtilities::Core::Status::Kind::InvalidArgument);
    QCOMPARE(parsed.status().text(), reason);
}

void tst_CommandLine::logLevels_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<int>("types");
    const int error = Logger::Error | Logger::Fatal;
    QTest::newRow("level-1 warning is the default") << QStringList {} << (error | Logger::Warning);
    QTest::newRow("level-2 error") << QStringList {u"--log-level"_s, u"error"_s} << error;
    QTest::newRow("level-3 warning")
        << QStringList {u"--log-level=warning"_s} << (error | Logger::Warning);
    QTest::newRow("level-4 info") << QStringList {u"--log-level"_s, u"info"_s}
                                  << (error | Logger::Warning | Logger::Info);
    QTest::newRow("level-5 debug")
        << QStringList {u"--log-level"_s, u"debug"_s} << int(Logger::AllLogLevels);
}

void tst_CommandLine::logLevels()
{
    QFETCH(const QStringList, words);
    QFETCH(const int, types);
    const auto parsed = CommandLine::parse(words, u"/call"_s);
    QVERIFY(parsed.isOk());
    QCOMPARE(parsed.value().logTypes, types);
}

void tst_CommandLine::helpNamesEveryOption()
{
    const QString help = CommandLine::help();
    for (const char *option :
         {"--batch SCRIPT [ARG...]", "-c COMMAND", "--terminal", "--session DIR",
          "--log-level LEVEL", "-h, --help", "-v, --version", "FILE..."})
        QVERIFY2(help.contains(QString::fromLatin1(option)), option);
    for (const QString &line : help.split(u'\n'))
        QVERIFY2(line.size() <= 80, qPrintable(line));
    QVERIFY(help.endsWith(u'\n'));
}

GUILESS_TEST_CLASS(tst_CommandLine)
#include "tst_CommandLine.moc"
