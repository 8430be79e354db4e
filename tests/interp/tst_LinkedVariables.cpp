#include "interp/LinkedVariable.h"
#include "tests/interp/RegistryTest.h"
#include "tests/TestClass.h"

#include <QtTest>

#include <array>
#include <cstring>

using namespace Qt::Literals::StringLiterals;

// Variables that program and scripts share.
class tst_LinkedVariables : public RegistryTest
{
    Q_OBJECT

private Q_SLOTS:
    void anIntIsSharedBothWays()
    {
        int number = 3;
        registry->registerVariable("number", number, "a number");
        QCOMPARE(eval("set number"), u"3"_s);
        QCOMPARE(eval("incr number 4"), u"7"_s);
        QCOMPARE(number, 7);
        number = -2;
        QCOMPARE(eval("set number"), u"-2"_s);
        QCOMPARE(eval("proc p {} {global number; set number 0x10}; p"), u"0x10"_s);
        QCOMPARE(number, 16);
    }

    void aRefusedIntStaysAsItWas()
    {
        int number = 3;
        registry->registerVariable("number", number, "a number");
        QCOMPARE(eval("set number word", TCL_ERROR),
                 u"can't set \"number\": variable must have integer value"_s);
        QCOMPARE(number, 3);
        QCOMPARE(eval("set number"), u"3"_s);
    }

    void aBoolIsSharedBothWays()
    {
        bool flag = true;
        registry->registerVariable("flag", flag, "a flag");
        QCOMPARE(eval("set flag"), u"1"_s);
        eval("set flag 0");
        QCOMPARE(flag, false);
        flag = true;
        QCOMPARE(eval("set flag"), u"1"_s);
        flag = false;
        QCOMPARE(eval("set flag"), u"0"_s);
        QCOMPARE(eval("upvar #0 flag other; set other 1"), u"1"_s);
        QCOMPARE(flag, true);
    }

    void aBoolTakesEveryTruthWord_data()
    {
        QTest::addColumn<QByteArray>("word");
        QTest::addColumn<bool>("value");
        for (const char *word : {"1", "true", "TRUE", "yes", "on", "y", "2", "-1"})
            QTest::addRow("bool-word-true %s", word) << QByteArray(word) << true;
        for (const char *word : {"0", "false", "no", "Off", "n"})
            QTest::addRow("bool-word-false %s", word) << QByteArray(word) << false;
    }
    void aBoolTakesEveryTruthWord()
    {
        QFETCH(QByteArray, word);
        QFETCH(bool, value);
        bool flag = !value;
        registry->registerVariable("flag", flag, "a flag");
        QCOMPARE(eval("set flag " + word), QString::fromUtf8(word));
        QCOMPARE(flag, value);
        QCOMPARE(eval("set flag"), QString::fromUtf8(word));
    }

    void aRefusedBoolStaysAsTheProgramHasIt()
    {
        bool flag = false;
        registry->registerVariable("flag", flag, "a flag");
        flag = true;
        QCOMPARE(eval("set flag maybe", TCL_ERROR),
                 u"can't set \"flag\": variable must have boolean value"_s);
        QCOMPARE(flag, true);
        QCOMPARE(eval("set flag"), u"1"_s);
    }

    void aBoolsNeighboursAreNotTouched()
    {
        std::array<bool, 16> flags = {};
        for (size_t index = 0; index < flags.size(); index += 2)
            flags.at(index) = true;
        registry->registerVariable("flag", flags.at(5), "in the middle");
        const auto withFifth = [&](bool value) {
            std::array<bool, 16> expected = {};
            for (size_t index = 0; index < expected.size(); index += 2)
                expected.at(index) = true;
            expected.at(5) = value;
            return flags == expected;
        };
        eval("set flag 1");
        QVERIFY(withFifth(true));
        flags.at(6) = false; // what Tcl would read as part of the flag
        flags.at(5) = false;
        QCOMPARE(eval("set flag"), u"0"_s);
        flags.at(6) = true;
        eval("set flag 0");
        QVERIFY(withFifth(false));
    }

    void aLiteralTextSurvives()
    {
        char literal[] = "literal";
        char *text = literal;
        registry->registerVariable("text", text, "a text");
        QCOMPARE(eval("set text"), u"literal"_s);
        QVERIFY(text != literal);
        QCOMPARE(text, "literal");
        eval("set text {from the script}");
        QCOMPARE(text, "from the script");
        QCOMPARE(literal, "literal");
        eval("append text { and more}");
        QCOMPARE(text, "from the script and more");
        eval("set text {}");
        QCOMPARE(text, "");
    }

    void aTextOfTheProgramsIsSeenAndNeverFreed()
    {
        char first[] = "first";
        char second[] = "second";
        char *text = first;
        registry->registerVariable("text", text, "a text");
        char *const given = text;
        text = second;
        QCOMPARE(eval("set text"), u"second"_s);
        QCOMPARE(text, second);
        std::strcpy(second, "SECON");
        QCOMPARE(eval("set text"), u"SECON"_s);
        eval("set text written");
        QCOMPARE(text, "written");
        QCOMPARE(second, "SECON");
        Tcl_Free(given); // the text that the program was given and replaced is its own
    }

    void aTextOfTheProgramsIsNotFreedByAWriteAlone()
    {
        char second[] = "second";
        char *text = nullptr;
        registry->registerVariable("text", text, "a text");
        text = second;
        eval("set text written");
        QCOMPARE(text, "written");
        QCOMPARE(second, "second");
    }

    void aNullTextReadsAsTclSaysIt()
    {
        char *text = nullptr;
        registry->registerVariable("text", text, "a text");
        QCOMPARE(eval("set text"), u"NULL"_s);
        QVERIFY(!text);
        eval("set text something");
        QCOMPARE(text, "something");
        Tcl_Free(text);
        text = nullptr;
        QCOMPARE(eval("set text"), u"NULL"_s);
        QVERIFY(!text);
    }

    void aLongAndForeignTextComesThrough()
    {
        char *text = nullptr;
        registry->registerVariable("text", text, "a text");
        eval("set text [string repeat \\u20ac 100000]");
        QCOMPARE(tcltext::fromTcl(text), QString(100000, u'\u20AC'));
    }

    void twoNamesOfOneTextAgree()
    {
        char literal[] = "literal";
        char *text = literal;
        registry->registerVariable("one", text, "");
        registry->registerVariable("two", text, "");
        for (const char *script : {"set one a", "set two b", "set one c", "unset two", "set two d",
                                   "set two e", "unset one", "set one f"}) {
            eval(script);
            QCOMPARE(eval("set one"), tcltext::fromTcl(text));
            QCOMPARE(eval("set two"), tcltext::fromTcl(text));
        }
        QCOMPARE(text, "f");
    }

    void anUnsetVariableComesBackLinked()
    {
        int number = 1;
        bool flag = true;
        char *text = nullptr;
        registry->registerVariable("number", number, "");
        registry->registerVariable("flag", flag, "");
        registry->registerVariable("text", text, "");
        eval("set text t");
        for (int round = 0; round < 3; ++round) {
            QCOMPARE(eval("unset number flag text; list $number $flag $text"), u"1 1 t"_s);
            eval("set number 5; set flag off; set text new");
            QCOMPARE(number, 5);
            QCOMPARE(flag, false);
            QCOMPARE(text, "new");
            number = 1;
            flag = true;
            QCOMPARE(eval("list $number $flag; set text t; list $number $flag $text"), u"1 1 t"_s);
        }
    }

    void anUnsetBoolComesBackWithTheProgramsValue()
    {
        bool flag = true;
        registry->registerVariable("flag", flag, "");
        flag = false;
        QCOMPARE(eval("unset flag; set flag"), u"0"_s);
    }

    void aNameRegisteredAgainIsLinkedToTheNewVariable()
    {
        bool oldFlag = false;
        bool newFlag = true;
        registry->registerVariable("name", oldFlag, "old");
        registry->registerVariable("name", newFlag, "new");
        QCOMPARE(eval("set name"), u"1"_s);
        eval("set name 0");
        QCOMPARE(newFlag, false);
        eval("set name 1");
        QCOMPARE(oldFlag, false);
        QCOMPARE(newFlag, true);
        QCOMPARE(eval("help"),
                 u"Commands :\n"
                 "==========\n"
                 "help: displays this help message\n"
                 "\nVariables :\n"
                 "===========\n"
                 "name: new\n"_s);
    }

    void aNameRegisteredAgainMayHaveAnotherType()
    {
        int number = 7;
        char literal[] = "word";
        char *text = literal;
        bool flag = true;
        registry->registerVariable("name", number, "");
        registry->registerVariable("name", text, "");
        QCOMPARE(eval("set name"), u"word"_s);
        QCOMPARE(eval("set name other"), u"other"_s);
        registry->registerVariable("name", flag, "");
        QCOMPARE(eval("set name"), u"1"_s);
        QCOMPARE(number, 7);
        QCOMPARE(text, "other");
        Tcl_Free(text); // whose link is gone
    }

    void aTextRegisteredAgainTakesItsNewLiteral()
    {
        char first[] = "first";
        char second[] = "second";
        char *text = first;
        registry->registerVariable("text", text, "");
        char *const given = text;
        text = second;
        registry->registerVariable("text", text, "");
        QCOMPARE(eval("set text"), u"second"_s);
        QVERIFY(text != second);
        eval("set text x");
        QCOMPARE(second, "second");
        registry->registerVariable("text", text, "");
        QCOMPARE(eval("set text"), u"x"_s);
        QCOMPARE(eval("set text y"), u"y"_s);
        QCOMPARE(text, "y");
        Tcl_Free(given);
    }

    void anArraysNameIsListedAndNotLinked()
    {
        bool flag = true;
        eval("set name(1) x");
        registry->registerVariable("name", flag, "a flag");
        QCOMPARE(eval("array get name"), u"1 x"_s);
        eval("set name(2) y");
        QCOMPARE(flag, true);
        QVERIFY(eval("help").endsWith(u"name: a flag\n"_s));
        eval("unset name");
        registry->registerVariable("name", flag, "a flag");
        QCOMPARE(eval("set name"), u"1"_s);
    }

    void aVariableOfANamespaceIsLinkedUntilThatIsGone()
    {
        int number = 3;
        bool flag = true;
        eval("namespace eval n {}");
        registry->registerVariable("n::number", number, "");
        registry->registerVariable("n::flag", flag, "");
        QCOMPARE(eval("set n::number 4; list $n::number $n::flag"), u"4 1"_s);
        eval("set n::flag 0");
        QCOMPARE(number, 4);
        QCOMPARE(flag, false);
        eval("namespace delete n");
        QCOMPARE(eval("namespace eval n {set number 5; set flag 1}; set n::number"), u"5"_s);
        QCOMPARE(number, 4);
        QCOMPARE(flag, false);
    }

    void aScriptsOwnTracesStillRun()
    {
        bool flag = false;
        registry->registerVariable("flag", flag, "");
        eval("set seen {}; trace add variable flag write {apply {args {lappend ::seen $::flag}}}");
        eval("set flag 1; set flag 0");
        QCOMPARE(eval("set seen"), u"1 0"_s);
        QCOMPARE(flag, false);
    }

    void aDeletedRegistryLeavesTheVariables()
    {
        delete registry;
        Tcl_Interp *given = Tcl_CreateInterp();
        registry = commandsManager::getInstance(given);
        bool flag = true;
        int number = 3;
        char literal[] = "literal";
        char *text = literal;
        registry->registerVariable("flag", flag, "");
        registry->registerVariable("number", number, "");
        registry->registerVariable("text", text, "");
        eval("unset flag; set text mine");
        delete registry;
        QCOMPARE(
            Tcl_Eval(given, "set flag 0; set number 4; set text theirs; list $flag $number $text"),
            TCL_OK);
        QCOMPARE(tcltext::result(given), u"0 4 theirs"_s);
        QCOMPARE(flag, true);
        QCOMPARE(number, 3);
        QCOMPARE(text, "mine");
        Tcl_Free(text);
        Tcl_DeleteInterp(given);
        registry = nullptr;
    }

    void aGivenInterpreterMayBeDeletedBeforeItsLinks()
    {
        delete registry;
        Tcl_Interp *given = Tcl_CreateInterp();
        Tcl_Preserve(given);
        registry = commandsManager::getInstance(given);
        bool flag = true;
        int number = 3;
        registry->registerVariable("flag", flag, "");
        registry->registerVariable("number", number, "");
        Tcl_DeleteInterp(given);
        delete registry;
        QCOMPARE(flag, true);
        QCOMPARE(number, 3);
        Tcl_Release(given);
        registry = nullptr;
    }

    void aLinkOutlivesItsInterpreter()
    {
        bool flag = true;
        char literal[] = "literal";
        char *text = literal;
        Tcl_Interp *given = Tcl_CreateInterp();
        const auto link = LinkedVariable::create(given, "flag", flag);
        const auto textLink = LinkedVariable::create(given, "text", text);
        Tcl_DeleteInterp(given);
        link->linkAgain();
        QCOMPARE(flag, true);
        QCOMPARE(text, "literal");
        Tcl_Free(text);
    }
};

APPLESS_TEST_CLASS(tst_LinkedVariables)

#include "tst_LinkedVariables.moc"
