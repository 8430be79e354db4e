#include "ConsoleUnderTest.h"
#include "tests/TestClass.h"

#include <QTemporaryDir>

using namespace Qt::Literals::StringLiterals;

// Running commands, and script files.
class tst_ConsoleCommands : public QObject
{
    Q_OBJECT

private:
    QString path(const QString &name) const { return folder.filePath(name); }
    QByteArray read(const QString &name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
    }
    void write(const QString &name, const QByteArray &bytes)
    {
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), bytes.size());
    }

    QTemporaryDir folder;
    std::unique_ptr<ConsoleUnderTest> console;
    QStringList executed;

private Q_SLOTS:
    void init()
    {
        console = std::make_unique<ConsoleUnderTest>();
        console->start();
        executed.clear();
        // "bad..." fails; the result is what stands behind the first blank.
        console->run = [this](const QString &command, int *res) {
            executed.append(command);
            *res = command.startsWith(u"bad"_s) ? 1 : 0;
            return command.contains(u' ') ? command.section(u' ', 1) : QString();
        };
    }

    void flags_data()
    {
        QTest::addColumn<bool>("writeCommand");
        QTest::addColumn<bool>("showPrompt");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("after");
        QTest::newRow("exec-flags-1 echo and prompt")
            << true << true << QString() << u"Welcome\n> say 5\n5\n> |"_s;
        QTest::newRow("exec-flags-2 echo alone")
            << true << false << QString() << u"Welcome\n> say 5\n5\n|"_s;
        QTest::newRow("exec-flags-3 prompt alone")
            << false << true << u"say 5"_s << u"Welcome\n> say 5\n5\n> |"_s;
        QTest::newRow("exec-flags-4 neither")
            << false << false << QString() << u"Welcome\n> \n5\n|"_s;
        QTest::newRow("exec-half-1 a half-typed command stays, the echo takes a fresh prompt")
            << true << true << u"half"_s << u"Welcome\n> half\n> say 5\n5\n> |"_s;
        QTest::newRow("exec-half-2 without an echo it is not looked at")
            << false << true << u"half"_s << u"Welcome\n> half\n5\n> |"_s;
    }

    void flags()
    {
        QFETCH(bool, writeCommand);
        QFETCH(bool, showPrompt);
        QFETCH(QString, typed);
        QTest::keyClicks(console.get(), typed);
        QVERIFY(console->execCommand(u"say 5"_s, writeCommand, showPrompt, nullptr));
        QTEST(console->picture(), "after");
        QCOMPARE(executed, QStringList {u"say 5"_s});
    }

    void results_data()
    {
        QTest::addColumn<QString>("result");
        QTest::addColumn<QString>("after");
        QTest::newRow("exec-result-1 gets a line feed") << u"5"_s << u"5\n> |"_s;
        QTest::newRow("exec-result-2 has a line feed") << u"5\n"_s << u"5\n> |"_s;
        QTest::newRow("exec-result-3 has two line feeds") << u"5\n\n"_s << u"5\n\n> |"_s;
        QTest::newRow("exec-result-4 is a line feed") << u"\n"_s << u"\n> |"_s;
        QTest::newRow("exec-result-5 empty still adds a paragraph") << QString() << u"> |"_s;
        QTest::newRow("exec-result-6 of several lines") << u"a\nb"_s << u"a\nb\n> |"_s;
    }

    void results()
    {
        QFETCH(QString, result);
        QFETCH(QString, after);
        console->run = [&](const QString &, int *) { return result; };
        QString given = u"old"_s;
        console->execCommand(u"c"_s, true, true, &given);
        QCOMPARE(console->picture(), u"Welcome\n> c\n"_s + after);
        QCOMPARE(given, result);
    }

    void goodResultsAreBlueAndBadOnesRed()
    {
        QVERIFY(console->execCommand(u"good 1"_s, true, true, nullptr));
        QVERIFY(!console->execCommand(u"bad 2"_s, true, true, nullptr));
        QTest::keyClicks(console.get(), u"x"_s);
        QCOMPARE(coloursOf(*console),
                 u"none:Welcome/#000000:> good 1/#0000ff:1/#000000:> bad 2/#ff0000:2/"
                 "#000000:> x/"_s);
    }

    void anyCodeButZeroIsAFailure()
    {
        for (const int code : {-1, 1, 2, 5}) {
            console->run = [code](const QString &, int *res) {
                *res = code;
                return u"r"_s;
            };
            QVERIFY(!console->execCommand(u"c"_s, false, true, nullptr));
        }
        QCOMPARE(console->recordedScript, QStringList());
        QCOMPARE(console->history.size(), 4);
    }

    void whatIsTypedWithoutAPromptIsACommandInItsColour()
    {
        console->execCommand(u"say 5"_s, true, false, nullptr);
        QTest::keyClicks(console.get(), u"say 6"_s);
        QCOMPARE(console->getCurrentCommand(), u"say 6"_s);
        QTest::keyClick(console.get(), Qt::Key_Return);
        QCOMPARE(executed, QStringList({u"say 5"_s, u"say 6"_s}));
        QCOMPARE(coloursOf(*console),
                 u"none:Welcome/#000000:> say 5/#0000ff:5/#000000:say 6/#0000ff:6/#000000:> /"_s);
    }

    void pathNames_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("corrected");
        QTest::newRow("path-drive-1") << u"cd C:\\dir\\file"_s << u"cd C:/dir/file"_s;
        QTest::newRow("path-drive-2 every backslash of the command")
            << u"puts a\\nb; cd C:\\dir"_s << u"puts a/nb; cd C:/dir"_s;
        QTest::newRow("path-none-1") << u"puts a\\nb"_s << u"puts a\\nb"_s;
        QTest::newRow("path-none-2 the other way round") << u"puts \\:x"_s << u"puts \\:x"_s;
        QTest::newRow("path-none-3") << u"cd C:/dir"_s << u"cd C:/dir"_s;
        QTest::newRow("path-none-4") << QString() << QString();
    }

    void pathNames()
    {
        QFETCH(QString, text);
        QFETCH(QString, corrected);
        QString changed = text;
        QConsole::correctPathName(changed);
        QCOMPARE(changed, corrected);
        console->run = nullptr;
        console->execCommand(text, true, true, nullptr);
        QCOMPARE(console->toPlainText(), u"Welcome\n> "_s + corrected + u"\n> "_s);
        QCOMPARE(console->recordedScript, QStringList {corrected});
    }

    void anEchoOfSeveralLines()
    {
        console->run = nullptr;
        console->execCommand(u"a {\nb\n}"_s, true, true, nullptr);
        QCOMPARE(console->picture(), u"Welcome\n> a {\nb\n}\n> |"_s);
    }

    void aCommandThatArrivesWhileOneRuns()
    {
        console->run = [this](const QString &command, int *res) {
            if (command != u"outer")
                *res = 1;
            else {
                console->writeOutput(u"before"_s, console->outColor);
                console->execCommand(u"inner"_s, true, true, nullptr);
                console->writeOutput(u"after"_s, console->outColor);
            }
            return command == u"outer" ? u"done"_s : u"refused"_s;
        };
        console->execCommand(u"outer"_s, true, true, nullptr);
        QCOMPARE(console->picture(),
                 u"Welcome\n> outer\nbefore\n> inner\nrefused\nafter\n> \ndone\n> |"_s);
    }

    void savedScript()
    {
        QCOMPARE(console->saveScript(path(u"empty.tcl"_s)), 0);
        QCOMPARE(read(u"empty.tcl"_s), QByteArray());
        for (const QString &command : {u"one"_s, u"bad"_s, u"two {\n}"_s, u"é"_s})
            console->execCommand(command, true, true, nullptr);
        const QString before = console->picture();
        write(u"saved.tcl"_s, QByteArray("an older and longer content\nof two lines\n"));
        QCOMPARE(console->saveScript(path(u"saved.tcl"_s)), 0);
        QCOMPARE(read(u"saved.tcl"_s), QByteArray("one\ntwo {\n}\n\xC3\xA9\n"));
        QCOMPARE(console->picture(), before);
    }

    void aScriptThatCannotBeSaved()
    {
        console->execCommand(u"one"_s, true, true, nullptr);
        const QString before = console->picture();
        QCOMPARE(console->saveScript(path(u"no/such/folder.tcl"_s)), -1);
        QCOMPARE(console->saveScript(folder.path()), -1);
        QCOMPARE(console->saveScript(u"/dev/full"_s), -1);
        QCOMPARE(console->picture(), before);
    }

    void loadedScript()
    {
        write(u"script.tcl"_s, QByteArray("say 1\n\nbad 2\nsay 3"));
        QCOMPARE(console->loadScript(path(u"script.tcl"_s)), 0);
        QCOMPARE(executed, QStringList({u"say 1"_s, u""_s, u"bad 2"_s, u"say 3"_s}));
        QCOMPARE(console->picture(), u"Welcome\n> say 1\n1\n\nbad 2\n2\nsay 3\n3\n|"_s);
        QCOMPARE(coloursOf(*console),
                 u"none:Welcome/#000000:> say 1/#0000ff:1//#000000:bad 2/#ff0000:2/"
                 "#000000:say 3/#0000ff:3//"_s);
    }

    void aLoadedScriptThatWrites()
    {
        write(u"script.tcl"_s, QByteArray("a\nb\n"));
        console->run = [this](const QString &command, int *) {
            console->writeOutput(u"out "_s + command, console->outColor);
            return QString();
        };
        QCOMPARE(console->loadScript(path(u"script.tcl"_s)), 0);
        QCOMPARE(console->picture(), u"Welcome\n> a\nout a\nb\nout b\n|"_s);
    }

    void aLoadedScriptStartsAFreshLineBehindAHalfTypedCommand()
    {
        write(u"script.tcl"_s, QByteArray("say 1\n"));
        QTest::keyClicks(console.get(), u"half"_s);
        console->loadScript(path(u"script.tcl"_s));
        QCOMPARE(console->picture(), u"Welcome\n> half\n> say 1\n1\n|"_s);
    }

    void emptyFilesAndUnreadableOnes()
    {
        write(u"empty.tcl"_s, QByteArray());
        const QString before = console->picture();
        QCOMPARE(console->loadScript(path(u"empty.tcl"_s)), 0);
        QCOMPARE(console->loadScript(path(u"missing.tcl"_s)), -1);
        QCOMPARE(console->loadScript(folder.path()), -1);
        QCOMPARE(console->picture(), before);
        QCOMPARE(executed, QStringList());
    }

    void aSavedScriptCanBeLoaded()
    {
        for (const QString &command : {u"say 1"_s, u"say 2"_s})
            console->execCommand(command, true, true, nullptr);
        console->saveScript(path(u"again.tcl"_s));
        executed.clear();
        console->loadScript(path(u"again.tcl"_s));
        QCOMPARE(executed, QStringList({u"say 1"_s, u"say 2"_s}));
    }
};

TEST_CLASS(tst_ConsoleCommands)
#include "tst_ConsoleCommands.moc"
