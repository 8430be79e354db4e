#include "console/QtclConsole.h"

#include "interp/commandsManager.h"
#include "interp/tcltext.h"
#include "tests/TestClass.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;

// The console of the interpreter. Every test has a console of its own on the one interpreter.
class tst_QtclConsole : public QObject
{
    Q_OBJECT

private:
    void type(const QString &text) { QTest::keyClicks(console.get(), text); }
    void enter(const QString &text)
    {
        type(text);
        QTest::keyClick(console.get(), Qt::Key_Return);
    }
    // What is shown behind the welcome text.
    QString shown() const
    {
        const QString head = u"Welcome\n"_s;
        return console->toPlainText().startsWith(head) ? console->toPlainText().sliced(head.size())
                                                       : console->toPlainText();
    }
    QString silently(const QString &command, int expected = TCL_OK)
    {
        int res = 0;
        const QString text = console->interpretCommand(command, &res);
        return res == expected ? text : u"code %1: "_s.arg(res) + text;
    }
    QColor colourOf(const QString &text) const
    {
        const QTextCursor found = console->document()->find(
            text, console->document()->characterCount() - 1, QTextDocument::FindBackward);
        return found.charFormat().foreground().color();
    }

    std::unique_ptr<QtclConsole> console;
    QTemporaryDir folder;

private Q_SLOTS:
    void init()
    {
        console.reset();
        console = std::make_unique<QtclConsole>(nullptr, u"Welcome"_s);
        console->show();
        console->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(console.get(), patient()));
    }

    void thePromptIsShownAtOnce()
    {
        QCOMPARE(console->toPlainText(), u"Welcome\nmorvalen > "_s);
        QCOMPARE(silently(u"history"_s), QString());
    }

    void aLineThatWrites()
    {
        QSignalSpy output(console.get(), &QtclConsole::newConsoleOutput);
        QSignalSpy errors(console.get(), &QtclConsole::newErrorOutput);
        enter(u"puts hello"_s);
        QCOMPARE(shown(), u"morvalen > puts hello\nhello\nmorvalen > "_s);
        QCOMPARE(output, QList<QVariantList> {{u"hello"_s}});
        enter(u"puts stderr oops"_s);
        QCOMPARE(shown(),
                 u"morvalen > puts hello\nhello\nmorvalen > puts stderr oops\noops\nmorvalen > "_s);
        QCOMPARE(errors, QList<QVariantList> {{u"oops"_s}});
        QCOMPARE(output.size(), 1);
        QCOMPARE(colourOf(u"hello"_s).name(), QColor(Qt::blue).name());
        QCOMPARE(colourOf(u"oops"_s).name(), QColor(Qt::red).name());
    }

    void resultsAndErrors()
    {
        enter(u"expr 2+3"_s);
        enter(u"no_such_command"_s);
        QCOMPARE(shown(),
                 u"morvalen > expr 2+3\n5\nmorvalen > no_such_command\n"
                 "invalid command name \"no_such_command\"\nmorvalen > "_s);
        QCOMPARE(colourOf(u"5"_s).name(), QColor(Qt::blue).name());
        QCOMPARE(colourOf(u"invalid"_s).name(), QColor(Qt::red).name());
    }

    void codes_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("text");
        QTest::newRow("code-ok-1") << u"set x 1"_s << TCL_OK << u"1"_s;
        QTest::newRow("code-ok-2 an empty command") << QString() << TCL_OK << QString();
        QTest::newRow("code-ok-3 blanks") << u"  "_s << TCL_OK << QString();
        QTest::newRow("code-error-1") << u"error sorry"_s << TCL_ERROR << u"sorry"_s;
        QTest::newRow("code-error-2 break at top level")
            << u"break"_s << TCL_ERROR << u"invoked \"break\" outside of a loop"_s;
        QTest::newRow("code-text-1 beyond ASCII") << u"set x éß€"_s << TCL_OK << u"éß€"_s;
        QTest::newRow("code-text-2 beyond the basic plane")
            << u"set x \U0001F600"_s << TCL_OK << u"\U0001F600"_s;
        QTest::newRow("code-text-3 a zero character")
            << u"set x a\\u0000b"_s << TCL_OK << QString(u"a\0b"_s);
    }

    void codes()
    {
        QFETCH(QString, command);
        QFETCH(QString, text);
        int res = 0;
        QCOMPARE(console->interpretCommand(command, &res), text);
        QTEST(res, "code");
    }

    void anEmptyCommandLeavesNoTrace()
    {
        QSignalSpy executed(console.get(), &QConsole::commandExecuted);
        enter(QString());
        QCOMPARE(shown(), u"morvalen > \nmorvalen > "_s);
        QCOMPARE(executed.size(), 0);
        QCOMPARE(silently(u"history"_s), QString());
    }

    void aSilentCommandEntersTheHistory()
    {
        QSignalSpy executed(console.get(), &QConsole::commandExecuted);
        QCOMPARE(silently(u"set x 1"_s), u"1"_s);
        QCOMPARE(shown(), u"morvalen > "_s);
        QCOMPARE(executed, QList<QVariantList> {{u"set x 1"_s}});
        QCOMPARE(silently(u"history"_s), u"1\tset x 1\n"_s);
    }

    void aSilentCommandWritesInFrontOfThePrompt()
    {
        type(u"half"_s);
        silently(u"puts start"_s);
        QCOMPARE(shown(), u"start\nmorvalen > half"_s);
    }

    void completeness_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<bool>("complete");
        QTest::newRow("complete-yes-1") << u"puts a"_s << true;
        QTest::newRow("complete-yes-2 empty") << QString() << true;
        QTest::newRow("complete-yes-3 a closing brace too many") << u"puts a}"_s << true;
        QTest::newRow("complete-no-1 brace") << u"if 1 {"_s << false;
        QTest::newRow("complete-no-2 bracket") << u"puts [set x"_s << false;
        QTest::newRow("complete-no-3 quote") << u"puts \"a"_s << false;
        QTest::newRow("complete-yes-4 lines") << u"if 1 {\nputs é\n}"_s << true;
    }

    void completeness()
    {
        QFETCH(QString, command);
        QTEST(console->isCommandComplete(command), "complete");
    }

    void aCommandOfSeveralLinesRunsWhole()
    {
        enter(u"foreach x {1 2} {"_s);
        enter(u"puts \"x $x\""_s);
        QCOMPARE(shown(), u"morvalen > foreach x {1 2} {\nputs \"x $x\"\n"_s);
        enter(u"}"_s);
        QCOMPARE(shown(),
                 u"morvalen > foreach x {1 2} {\nputs \"x $x\"\n}\nx 1\nx 2\nmorvalen > "_s);
        QCOMPARE(silently(u"history"_s), u"1\tforeach x {1 2} {\\nputs \"x $x\"\\n}\n"_s);
    }

    void historyCommand()
    {
        enter(u"history"_s);
        QCOMPARE(shown(), u"morvalen > history\nmorvalen > "_s);
        enter(u"set a b"_s);
        QCOMPARE(silently(u"history"_s), u"1\thistory\n2\tset a b\n"_s);
        silently(u"error x"_s, TCL_ERROR);
        QCOMPARE(silently(u"history"_s), u"1\thistory\n2\tset a b\n3\thistory\n4\terror x\n"_s);
    }

    void historyShowsPercentSignsAsTheyAre()
    {
        silently(u"set a %1%2"_s);
        QCOMPARE(silently(u"history"_s), u"1\tset a %1%2\n"_s);
    }

    void usages_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<QString>("usage");
        QTest::newRow("usage-history-1") << u"history 1"_s << u"Usage: history\n"_s;
        QTest::newRow("usage-set_prompt-1 none")
            << u"set_prompt"_s << u"Usage: set_prompt new_prompt\n"_s;
        QTest::newRow("usage-set_prompt-2 two")
            << u"set_prompt a b"_s << u"Usage: set_prompt new_prompt\n"_s;
        QTest::newRow("usage-save_script-1 none")
            << u"save_script"_s << u"Usage: save_script script_file_name\n"_s;
        QTest::newRow("usage-save_script-2 two")
            << u"save_script a b"_s << u"Usage: save_script script_file_name\n"_s;
    }

    void usages()
    {
        QFETCH(QString, command);
        QFETCH(QString, usage);
        QCOMPARE(silently(command, TCL_ERROR), usage);
    }

    void aUsageNamesTheCommandAsItWasCalled()
    {
        const char *words[] = {"alias", "extra", nullptr};
        Tcl_Interp *interp = commandsManager::getInstance(nullptr)->interp;
        QCOMPARE(console->showHistory(nullptr, interp, 2, words), TCL_ERROR);
        QCOMPARE(tcltext::result(interp), u"Usage: alias\n"_s);
        QCOMPARE(console->setPrompt(nullptr, interp, 1, words), TCL_ERROR);
        QCOMPARE(tcltext::result(interp), u"Usage: alias new_prompt\n"_s);
        QCOMPARE(console->saveScript(nullptr, interp, 1, words), TCL_ERROR);
        QCOMPARE(tcltext::result(interp), u"Usage: alias script_file_name\n"_s);
    }

    void setPromptCountsFromTheNextPrompt()
    {
        enter(u"set_prompt {% }"_s);
        QCOMPARE(shown(), u"morvalen > set_prompt {% }\n% "_s);
        type(u"puts a"_s);
        silently(u"set_prompt {longer > }"_s);
        QCOMPARE(shown(), u"morvalen > set_prompt {% }\n% puts a"_s);
        QTest::keyClick(console.get(), Qt::Key_Return);
        QCOMPARE(shown(), u"morvalen > set_prompt {% }\n% puts a\na\nlonger > "_s);
    }

    void setPromptAnswersNothing() { QCOMPARE(silently(u"set_prompt é>"_s), QString()); }

    void saveScriptFailsWhenItSucceeds()
    {
        silently(u"set a 1"_s);
        silently(u"error x"_s, TCL_ERROR);
        silently(u"if 1 {\nset b 2\n}"_s);
        const QString path = folder.filePath(u"saved script.tcl"_s);
        QCOMPARE(silently(u"save_script {%1}"_s.arg(path), TCL_ERROR), QString());
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), QByteArray("set a 1\nif 1 {\nset b 2\n}\n"));
    }

    void saveScriptSucceedsWhenItFails()
    {
        const QString path = folder.filePath(u"no/such/folder.tcl"_s);
        QCOMPARE(silently(u"save_script {%1}"_s.arg(path), TCL_OK), QString());
    }

    void savingShowsAnEmptyRedLine()
    {
        const QString command = u"save_script {%1}"_s.arg(folder.filePath(u"a.tcl"_s));
        QVERIFY(!console->execCommand(command, true, true, nullptr));
        QCOMPARE(shown(), u"morvalen > "_s + command + u"\nmorvalen > "_s);
    }

    void theWordExitRunsDbgExit()
    {
        silently(u"rename dbgExit {}"_s, TCL_ERROR);
        enter(u"exit"_s);
        QCOMPARE(shown(), u"morvalen > exit\ninvalid command name \"dbgExit\"\nmorvalen > "_s);
        silently(u"proc dbgExit {} {return asked}"_s);
        QCOMPARE(silently(u"exit"_s), u"asked"_s);
        QVERIFY(silently(u"history"_s).endsWith(u"\tdbgExit\n"_s));
    }

    void onlyTheExactWordIsReplaced()
    {
        silently(u"proc dbgExit {} {return asked}"_s);
        silently(u"rename exit kept; proc exit {{code 0}} {return \"left $code\"}"_s);
        QCOMPARE(silently(u"exit"_s), u"asked"_s);
        QCOMPARE(silently(u" exit"_s), u"left 0"_s);
        QCOMPARE(silently(u"exit "_s), u"left 0"_s);
        QCOMPARE(silently(u"exit 3"_s), u"left 3"_s);
        QCOMPARE(silently(u"exit;"_s), u"left 0"_s);
        silently(u"rename exit {}; rename kept exit; rename dbgExit {}"_s);
    }

    void aCommandThatArrivesWhileOneRunsIsRefused()
    {
        QTimer::singleShot(0, this, [this] {
            int res = 0;
            QCOMPARE(console->interpretCommand(u"set inner 1"_s, &res),
                     u"Command cannot be executed!"_s);
            QCOMPARE(res, 1);
            QString text;
            QVERIFY(!console->execCommand(u"set inner 1"_s, true, true, &text));
            QCOMPARE(text, u"Command cannot be executed!"_s);
        });
        commandsManager::getInstance(nullptr)->registerFunction(
            "let_events_in",
            [](ClientData, Tcl_Interp *, int, const char **) -> int {
                QCoreApplication::processEvents();
                return TCL_OK;
            },
            "", nullptr);
        enter(u"puts before; let_events_in; puts after"_s);
        QCOMPARE(shown(),
                 u"morvalen > puts before; let_events_in; puts after\nbefore\n"
                 "morvalen > set inner 1\nCommand cannot be executed!\nafter\nmorvalen > \n"
                 "morvalen > "_s);
        QCOMPARE(silently(u"info exists inner"_s), u"0"_s);
        QCOMPARE(silently(u"history"_s),
                 u"1\tputs before; let_events_in; puts after\n2\tinfo exists inner\n"_s);
        commandsManager::getInstance(nullptr)->unregisterFunction("let_events_in");
    }

    void errorInfoKeepsTheWholeStack()
    {
        silently(u"proc inner {} {error sorry}; proc outer {} inner"_s);
        enter(u"outer"_s);
        QCOMPARE(silently(u"set errorInfo"_s),
                 u"sorry\n    while executing\n\"error sorry\"\n    (procedure \"inner\" line 1)\n"
                 "    invoked from within\n\"inner\"\n    (procedure \"outer\" line 1)\n"
                 "    invoked from within\n\"outer\""_s);
    }

    void suggestions_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<QString>("prefix");
        QTest::addColumn<QStringList>("candidates");
        const QStringList zz {u"zz_one"_s, u"zz_two"_s};
        QTest::newRow("suggest-word-1") << u"zz_"_s << QString() << zz;
        QTest::newRow("suggest-word-2 a single one")
            << u"zz_o"_s << QString() << QStringList {u"zz_one"_s};
        QTest::newRow("suggest-word-3 none") << u"zz_x"_s << QString() << QStringList();
        QTest::newRow("suggest-word-4 a blank is no border")
            << u"set x zz_"_s << QString() << QStringList();
        QTest::newRow("suggest-border-1 bracket") << u"puts [zz_"_s << u"puts ["_s << zz;
        QTest::newRow("suggest-border-2 brace") << u"if 1 {zz_"_s << u"if 1 {"_s << zz;
        QTest::newRow("suggest-border-3 semicolon") << u"a;zz_"_s << u"a;"_s << zz;
        QTest::newRow("suggest-border-4 line feed") << u"if 1 {\nzz_"_s << u"if 1 {\n"_s << zz;
        QTest::newRow("suggest-border-5 the last one counts")
            << u"a;b [c;zz_"_s << u"a;b [c;"_s << zz;
        QTest::newRow("suggest-border-6 a blank behind it belongs to the word")
            << u"a; zz_"_s << u"a;"_s << zz;
        QTest::newRow("suggest-pattern-1 glob characters are patterns")
            << u"zz*o"_s << QString() << zz;
        QTest::newRow("suggest-failed-1 a brace that closes")
            << u"zz_}"_s << QString() << QStringList();
    }

    void suggestions()
    {
        QFETCH(QString, command);
        silently(u"proc zz_one {} {}; proc zz_two {} {}"_s);
        QString prefix = u"old"_s;
        QStringList candidates = console->suggestCommand(command, prefix);
        candidates.sort();
        QTEST(candidates, "candidates");
        QTEST(prefix, "prefix");
    }

    void tabCompletesACommandInABracket()
    {
        type(u"puts [strin"_s);
        QTest::keyClick(console.get(), Qt::Key_Tab);
        QCOMPARE(shown(), u"morvalen > puts [string"_s);
    }

    void tabWithoutACandidateIsATab()
    {
        type(u"no_such_"_s);
        QTest::keyClick(console.get(), Qt::Key_Tab);
        QCOMPARE(shown(), u"morvalen > no_such_\t"_s);
    }

    void helpTexts()
    {
        const QStringList lines = silently(u"help"_s).split(u'\n');
        QVERIFY(lines.contains(u"history:     Shows the commands history"_s));
        QVERIFY(lines.contains(u"save_script: Saves a script of executed commands"_s));
        QVERIFY(lines.contains(u"set_prompt:  Set a new prompt"_s));
    }

    void theDestructorTakesItsCommandsAway()
    {
        console.reset();
        Tcl_Interp *interp = commandsManager::getInstance(nullptr)->interp;
        for (const char *name : {"history", "set_prompt", "save_script"}) {
            QCOMPARE(Tcl_Eval(interp, (QByteArray("info commands ") + name).constData()), TCL_OK);
            QCOMPARE(tcltext::result(interp), QString());
        }
        QCOMPARE(Tcl_Eval(interp, "help"), TCL_OK);
        QVERIFY(!tcltext::result(interp).contains(u"history"_s));
    }

    void everyConsoleIsTheSame()
    {
        console.reset();
        QWidget parent;
        QtclConsole *first = QtclConsole::getInstance(&parent, u"First"_s);
        QCOMPARE(first->parentWidget(), &parent);
        QCOMPARE(first->toPlainText(), u"First\nmorvalen > "_s);
        QCOMPARE(QtclConsole::getInstance(nullptr, u"Second"_s), first);
        QCOMPARE(first->toPlainText(), u"First\nmorvalen > "_s);
    }
};

TEST_CLASS(tst_QtclConsole)
#include "tst_QtclConsole.moc"
