// Session folders: made when missing, named anyhow, shared by several processes.

#include "tests/process/Program.h"
#include "tests/TestClass.h"

#include <QDir>
#include <QProcess>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

class tst_Sessions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { program = std::make_unique<Program>(); }
    void names_data();
    void names();
    void theDefaultFolder();
    void theVendorOfNewDesigns();
    void startUpScript_data();
    void startUpScript();
    void withoutAHome();
    void severalProcesses();

private:
    std::unique_ptr<Program> program;
};

void tst_Sessions::names_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("name-1 blanks") << u"my own  session"_s;
    QTest::newRow("name-2 brackets") << u"a [exit 9] b"_s;
    QTest::newRow("name-3 dollars") << u"$HOME ${x} $env(HOME)"_s;
    QTest::newRow("name-4 quotes") << u"\"; exit 9; \" 'x'"_s;
    QTest::newRow("name-5 braces and comments") << u"}{ #; exit 9"_s;
    QTest::newRow("name-6 a backslash") << u"a\\nb\\"_s;
    QTest::newRow("name-7 a line feed") << u"a\nexit 9\nb"_s;
    QTest::newRow("name-8 a percent sign") << u"%1%2%s"_s;
    QTest::newRow("name-9 a dash") << u"-c"_s;
    QTest::newRow("name-10 beyond ASCII") << u"Entw\u00fcrfe \u20ac"_s;
}

void tst_Sessions::names()
{
    QFETCH(const QString, name);
    program->session = program->path(name);
    const QByteArray folder = program->session.toUtf8();
    program->write(name + u"/Scripts/startup.tcl"_s, "proc here {} [list return [pwd]]\n");
    QCOMPARE(program->runScript("puts [here]\nputs [designs new uart]\nputs [designs list]\n"
                                "puts [designs designs_path]\n"),
             (Ended {0,
                     folder
                         + "/Scripts\nSuccessfully created new design \"uart\"\n"
                           "\"local.global.uart.1.0\"\n"
                         + folder + "/Designs\n",
                     ""}));
    QVERIFY(QFile::exists(program->session + u"/Designs/uart/component.xml"_s));
    const QStringList made =
        QDir(program->session).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    QCOMPARE(made,
             (QStringList {u"Backups"_s, u"Designs"_s, u"Logs"_s, u"Projects"_s, u"Scripts"_s,
                           u"settings.ini"_s}));
}

void tst_Sessions::theDefaultFolder()
{
    const QString folder = program->path(u"home/.local/share/morvalen"_s);
    QCOMPARE(program->runBare({u"-c"_s, u"morvalen session"_s}),
             (Ended {0, folder.toUtf8() + "\n", ""}));
    program->environment.insert(u"XDG_DATA_HOME"_s, program->path(u"data"_s));
    QCOMPARE(program->runBare({u"-c"_s, u"morvalen session"_s}),
             (Ended {0, program->path(u"data/morvalen\n"_s).toUtf8(), ""}));
}

void tst_Sessions::theVendorOfNewDesigns()
{
    QCOMPARE(program->runCommands({u"designs new a"_s, u"designs list"_s}),
             (Ended {0, "Successfully created new design \"a\"\n\"local.global.a.1.0\"\n", ""}));
    program->write(u"session/settings.ini"_s, "[Designs]\nEnvironment\\organization_name=acme\n");
    QCOMPARE(program->runCommands({u"designs new b"_s, u"designs list"_s}),
             (Ended {0, "Successfully created new design \"b\"\n\"acme.global.b.1.0\"\n", ""}));
}

void tst_Sessions::startUpScript_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<Ended>("ended");
    QTest::newRow("startup-1 defines what scripts use")
        << QByteArray("proc hello {} {return hi}\n") << Ended {0, "hi\n", ""};
    QTest::newRow("startup-2 its own output is the console's")
        << QByteArray("puts unseen\nputs stderr unseen\nproc hello {} {return hi}\n")
        << Ended {0, "hi\n", "Warning: STARTUP:1: unseen\nWarning: STARTUP:2: unseen\n"};
    QTest::newRow("startup-3 what stands before an error counts")
        << QByteArray("proc hello {} {return hi}\nnonsense\nproc hello {} {return no}\n")
        << Ended {0, "hi\n", "Warning: STARTUP:2: invalid command name \"nonsense\"\n"};
    QTest::newRow("startup-4 an error is no end")
        << QByteArray("nonsense\n")
        << Ended {1, "",
                  "Warning: STARTUP:1: invalid command name \"nonsense\"\n"
                  "invalid command name \"hello\"\n"};
    QTest::newRow("startup-5 it may end the program")
        << QByteArray("exit 4\n") << Ended {4, "", ""};
    QTest::newRow("startup-6 it may quit") << QByteArray("quit 5\n") << Ended {5, "", ""};
    QTest::newRow("startup-7 its folder is the Scripts folder")
        << QByteArray("proc hello {} [list return [file tail [pwd]]]\n")
        << Ended {0, "Scripts\n", ""};
}

void tst_Sessions::startUpScript()
{
    QFETCH(const QByteArray, script);
    QFETCH(Ended, ended);
    const QString startup = program->write(u"session/Scripts/startup.tcl"_s, script);
    ended.err.replace("STARTUP", startup.toUtf8());
    QCOMPARE(program->runCommands({u"hello"_s}), ended);
}

void tst_Sessions::withoutAHome()
{
    program->environment.remove(u"HOME"_s);
    program->environment.insert(u"TMPDIR"_s, program->path(u"home"_s));
    const QDir temporary(program->path(u"home"_s));
    const auto run = [this](const QString &command) {
        return program->runBare({u"-c"_s, u"morvalen session"_s, u"-c"_s, command});
    };
    Ended ended = run(u"set x 1"_s);
    const QByteArray session = ended.out.left(ended.out.indexOf('\n'));
    QVERIFY2(session.startsWith(temporary.path().toUtf8() + "/morvalen-"), session.constData());
    QCOMPARE(ended,
             (Ended {0, session + "\n1\n",
                     "Warning: HOME is not set; the session of this run is in the temporary "
                     "folder \""
                         + session + "\"\n"}));
    // What the user has made there stays.
    QCOMPARE(temporary.entryList({u"morvalen-*"_s}, QDir::Dirs), QStringList());
    ended = run(u"designs new mine"_s);
    QCOMPARE(ended.status, 0);
    const QStringList left = temporary.entryList({u"morvalen-*"_s}, QDir::Dirs);
    QCOMPARE(left.size(), 1);
    QVERIFY(temporary.exists(left.first() + u"/Designs/mine/component.xml"_s));
}

// Many at once in a session that none of them has made: each finds its own designs, and nobody's
// files are harmed.
void tst_Sessions::severalProcesses()
{
    constexpr int crowd = 6;
    const QString script =
        program->write(u"s.tcl"_s,
                       "foreach number {1 2 3} {\n"
                       "    designs new [lindex $argv 0]_$number {Hardware Design}\n"
                       "    designs structures set_default {Custom Design} Hardware\n"
                       "}\n"
                       "gets stdin\n");
    std::vector<std::unique_ptr<QProcess>> processes;
    for (int i = 0; i < crowd; ++i) {
        auto process = std::make_unique<QProcess>();
        process->setProcessEnvironment(program->environment);
        process->start(
            QStringLiteral(PROGRAM),
            {u"--session"_s, program->session, u"--batch"_s, script, u"design%1"_s.arg(i)});
        processes.push_back(std::move(process));
    }
    const auto components = [this] {
        int count = 0;
        for (const QString &name : QDir(program->session + u"/Designs"_s).entryList({u"d*"_s}))
            count += QFile::exists(program->session + u"/Designs/"_s + name + u"/component.xml"_s);
        return count;
    };
    QTRY_COMPARE_WITH_TIMEOUT(components(), 3 * crowd, patient(100'000));
    for (const auto &process : processes) {
        QCOMPARE(process->state(), QProcess::Running);
        process->closeWriteChannel();
        QVERIFY(process->waitForFinished(patient(60'000)));
        QCOMPARE(process->readAllStandardError(), QByteArray());
        QCOMPARE(process->exitCode(), 0);
    }
    QCOMPARE(QDir(program->session + u"/Logs"_s).entryList(QDir::Files).size(), crowd);
    QCOMPARE(program->runCommands({u"designs structures get_default {Custom Design}"_s,
                                   u"designs new last"_s, u"designs list"_s}),
             (Ended {0,
                     "Hardware\nSuccessfully created new design \"last\"\n"
                     "\"local.global.last.1.0\"\n",
                     ""}));
}

GUILESS_TEST_CLASS(tst_Sessions)
#include "tst_Sessions.moc"
