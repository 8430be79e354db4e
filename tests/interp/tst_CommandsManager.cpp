#include "interp/CommandAdapter.h"
#include "interp/TclCallBack.h"
#include "tests/interp/RegistryTest.h"
#include "tests/TestClass.h"

#include <QtTest>

#include <memory>
#include <stdexcept>

using namespace Qt::Literals::StringLiterals;

namespace {

int answerWords(void *, Tcl_Interp *interp, int argc, const char **argv)
{
    Tcl_SetObjResult(interp, Tcl_NewStringObj(argv[argc - 1], -1));
    return argc > 2 ? TCL_ERROR : TCL_OK;
}

int answerClientData(void *clientData, Tcl_Interp *interp, int, char **argv)
{
    Tcl_ResetResult(interp);
    Tcl_AppendResult(interp, argv[0], " ", static_cast<const char *>(clientData), nullptr);
    return TCL_OK;
}

int throwAnError(void *, Tcl_Interp *interp, int, const char **)
{
    Tcl_AppendResult(interp, "half a result", nullptr);
    throw std::runtime_error("no such valve \xe2\x82\xac");
}

int throwANumber(void *, Tcl_Interp *, int, const char **) { throw 42; }

const QString helpAlone = u"Commands :\n"
                          "==========\n"
                          "help: displays this help message\n"_s;

} // namespace

// Every test's registry is deleted behind it.
class tst_CommandsManager : public RegistryTest
{
    Q_OBJECT

private Q_SLOTS:
    void theRegistryIsOneAndIgnoresALaterInterpreter()
    {
        Tcl_Interp *other = Tcl_CreateInterp();
        QCOMPARE(commandsManager::getInstance(other), registry);
        QVERIFY(registry->interp != other);
        QCOMPARE(commandsManager::getInstance(nullptr), registry);
        Tcl_DeleteInterp(other);
    }

    void theInterpreterIsInitialised()
    {
        QCOMPARE(eval("info patchlevel"), QLatin1StringView(TCL_PATCH_LEVEL));
        QVERIFY(!eval("set tcl_library").isEmpty());
        QCOMPARE(eval("file tail [info nameofexecutable]"), u"interp_tests"_s);
        QCOMPARE(eval("encoding system"), u"utf-8"_s);
    }

    void anExceptionIsTheErrorOfItsCommand_data()
    {
        QTest::addColumn<QByteArray>("script");
        QTest::addColumn<QString>("text");
        const QString valve = u"\"%1\" ended with an exception: no such valve \u20ac"_s;
        QTest::newRow("exception-1 alone") << QByteArray("valve 1") << valve.arg(u"valve"_s);
        QTest::newRow("exception-2 of an unknown kind")
            << QByteArray("number") << u"\"number\" ended with an exception: of an unknown kind"_s;
        QTest::newRow("exception-3 under another name")
            << QByteArray("rename valve v\u00e4lve; v\u00e4lve") << valve.arg(u"v\u00e4lve"_s);
        QTest::newRow("exception-4 in a compiled procedure")
            << QByteArray("proc p {} { valve }; p") << valve.arg(u"valve"_s);
    }
    void anExceptionIsTheErrorOfItsCommand()
    {
        QFETCH(const QByteArray, script);
        QFETCH(const QString, text);
        registry->registerFunction("valve", throwAnError, "Throws", nullptr);
        registry->registerFunction("number", throwANumber, "Throws", nullptr);
        QCOMPARE(eval(script.constData(), TCL_ERROR), text);
        QCOMPARE(eval("info level"), u"0"_s);
        QCOMPARE(eval("set x 1"), u"1"_s);
    }

    // The border in front of a procedure is not to be seen.
    void theProcedureIsTheOneThatWasGiven()
    {
        int data = 0;
        registry->registerFunction("words", answerWords, "Answers", &data);
        Tcl_CmdInfo info = {};
        QVERIFY(Tcl_GetCommandInfo(registry->interp, "words", &info));
        QVERIFY(info.proc == answerWords);
        QCOMPARE(info.clientData, static_cast<void *>(&data));
        QVERIFY(!info.deleteProc);
    }

    void aRegistryOfAGivenInterpreterLeavesItAlive()
    {
        delete registry;
        Tcl_Interp *given = Tcl_CreateInterp();
        registry = commandsManager::getInstance(given);
        QCOMPARE(registry->interp, given);
        QCOMPARE(eval("help"), helpAlone);
        int number = 3;
        registry->registerVariable("number", number, "a number");
        delete registry;
        registry = nullptr;
        QCOMPARE(Tcl_InterpDeleted(given), 0);
        QCOMPARE(Tcl_Eval(given, "help"), TCL_ERROR);
        QCOMPARE(tcltext::result(given), u"invalid command name \"help\""_s);
        QCOMPARE(Tcl_Eval(given, "set number 4"), TCL_OK);
        QCOMPARE(number, 3);
        Tcl_DeleteInterp(given);
        registry = nullptr;
    }

    void deletionEmptiesTheListsAndAllowsANewRegistry()
    {
        QCOMPARE(TclCallBack<commandsManager>::methodNames, QStringList {u"help"_s});
        delete registry;
        QCOMPARE(TclCallBack<commandsManager>::methodNames, QStringList());
        QCOMPARE(TclCallBack<commandsManager>::method.size(), 0);
        registry = commandsManager::getInstance(nullptr);
        QCOMPARE(eval("help"), helpAlone);
    }

    void helpRefusesArguments_data()
    {
        QTest::addColumn<QByteArray>("script");
        QTest::newRow("help-usage-1 one argument") << QByteArray("help x");
        QTest::newRow("help-usage-2 two arguments") << QByteArray("help a b");
        QTest::newRow("help-usage-3 an empty argument") << QByteArray("help {}");
    }
    void helpRefusesArguments()
    {
        QFETCH(QByteArray, script);
        QCOMPARE(eval(script.constData(), TCL_ERROR), u"Usage: help\n"_s);
    }

    void helpAloneHasNoVariables() { QCOMPARE(eval("help"), helpAlone); }

    void helpReplacesAnEarlierResult()
    {
        eval("set x before");
        QCOMPARE(eval("help"), helpAlone);
    }

    void helpListsInCodeUnitOrderInOneColumn()
    {
        registry->registerFunction("quit", answerWords, "ends", nullptr);
        registry->registerFunction("Zebra", answerWords, "upper case first", nullptr);
        registry->registerFunction("_a", answerWords, "", nullptr);
        QCOMPARE(eval("help"),
                 u"Commands :\n"
                 "==========\n"
                 "Zebra: upper case first\n"
                 "_a:    \n"
                 "help:  displays this help message\n"
                 "quit:  ends\n"_s);
    }

    void helpSharesItsColumnWithVariables()
    {
        bool flag = false;
        int counter = 0;
        registry->registerVariable("longestNameOfAll", flag, "a flag");
        registry->registerVariable("Counter", counter, "counts");
        QCOMPARE(eval("help"),
                 u"Commands :\n"
                 "==========\n"
                 "help:             displays this help message\n"
                 "\nVariables :\n"
                 "===========\n"
                 "Counter:          counts\n"
                 "longestNameOfAll: a flag\n"_s);
    }

    void helpWithoutCommandsHasOnlyVariables()
    {
        int counter = 0;
        registry->registerVariable("n", counter, "counts");
        registry->unregisterFunction("help");
        const char *words[] = {"help", nullptr};
        QCOMPARE(registry->help(nullptr, registry->interp, 1, words), TCL_OK);
        QCOMPARE(tcltext::result(registry->interp), u"\nVariables :\n===========\nn: counts\n"_s);
    }

    void helpOfAnEmptyRegistryIsEmpty()
    {
        registry->unregisterFunction("help");
        const char *words[] = {"help", nullptr};
        QCOMPARE(registry->help(nullptr, registry->interp, 1, words), TCL_OK);
        QCOMPARE(tcltext::result(registry->interp), QString());
    }

    void helpTextsKeepPlaceholdersAndForeignLetters()
    {
        registry->registerFunction("a%2", answerWords, "50%1 \xC3\xBC \xE2\x82\xAC", nullptr);
        QCOMPARE(eval("help"),
                 u"Commands :\n"
                 "==========\n"
                 "a%2:  50%1 \u00FC \u20AC\n"
                 "help: displays this help message\n"_s);
    }

    void aNameIsCountedInCharactersNotBytes()
    {
        registry->registerFunction("gr\xC3\xB6\xC3\x9F", answerWords, "text", nullptr);
        QCOMPARE(eval("help"),
                 u"Commands :\n"
                 "==========\n"
                 "gr\u00F6\u00DF: text\n"
                 "help: displays this help message\n"_s);
        QCOMPARE(eval("gr\xC3\xB6\xC3\x9F x"), u"x"_s);
    }

    void aCommandRegisteredAgainHasTheLaterProcedureAndText()
    {
        char first[] = "first";
        registry->registerFunction("cmd", commandProc<answerClientData>, "old", first);
        QCOMPARE(eval("cmd"), u"cmd first"_s);
        registry->registerFunction("cmd", answerWords, "new", nullptr);
        QCOMPARE(eval("cmd x"), u"x"_s);
        QCOMPARE(eval("cmd x y", TCL_ERROR), u"y"_s);
        QCOMPARE(eval("help"),
                 u"Commands :\n"
                 "==========\n"
                 "cmd:  new\n"
                 "help: displays this help message\n"_s);
    }

    void aCommandOfTclIsReplacedWithoutNotice()
    {
        registry->registerFunction("pwd", answerWords, "mine", nullptr);
        QCOMPARE(eval("pwd x"), u"x"_s);
    }

    void unregisteringRemovesCommandAndText()
    {
        registry->registerFunction("cmd", answerWords, "text", nullptr);
        registry->unregisterFunction("cmd");
        QCOMPARE(eval("help"), helpAlone);
        QCOMPARE(eval("cmd", TCL_ERROR), u"invalid command name \"cmd\""_s);
    }

    void unregisteringAnUnknownNameChangesNothing()
    {
        const QString before = eval("lsort [info commands]");
        registry->unregisterFunction("nobody");
        QCOMPARE(eval("help"), helpAlone);
        QCOMPARE(eval("lsort [info commands]"), before);
    }

    void helpUnderAnotherNameIsAnError_data()
    {
        QTest::addColumn<QByteArray>("script");
        QTest::addColumn<QString>("text");
        QTest::newRow("help-name-1 qualified")
            << QByteArray("::help") << u"\"::help\" is not the name of a bound command"_s;
        QTest::newRow("help-name-2 renamed") << QByteArray("rename help assist; assist")
                                             << u"\"assist\" is not the name of a bound command"_s;
        QTest::newRow("help-name-3 renamed and with an argument")
            << QByteArray("rename help assist; assist x")
            << u"\"assist\" is not the name of a bound command"_s;
    }
    void helpUnderAnotherNameIsAnError()
    {
        QFETCH(QByteArray, script);
        QFETCH(QString, text);
        QCOMPARE(eval(script.constData(), TCL_ERROR), text);
    }
};

APPLESS_TEST_CLASS(tst_CommandsManager)

#include "tst_CommandsManager.moc"
