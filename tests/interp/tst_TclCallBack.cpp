#include "interp/TclCallBack.h"
#include "tests/interp/RegistryTest.h"
#include "tests/TestClass.h"

#include <QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

// An object whose members answer with who was called and with what.
class Bound
{
public:
    explicit Bound(const char *objectName) : name(objectName) { }
    virtual ~Bound() = default;

    int first(void *clientData, Tcl_Interp *interp, int argc, const char **argv)
    {
        return answer("first", clientData, interp, argc, argv);
    }
    int second(void *clientData, Tcl_Interp *interp, int argc, const char **argv)
    {
        return answer("second", clientData, interp, argc, argv);
    }
    virtual int overridden(void *clientData, Tcl_Interp *interp, int argc, const char **argv)
    {
        return answer("base", clientData, interp, argc, argv);
    }
    int code(void *, Tcl_Interp *, int, const char **argv) { return atoi(argv[1]); }

protected:
    int answer(const char *member, void *clientData, Tcl_Interp *interp, int argc,
               const char **argv)
    {
        QString words;
        for (int index = 0; index < argc; ++index)
            words += u' ' + tcltext::fromTcl(argv[index]);
        const QString data = QString::fromUtf8(static_cast<const char *>(clientData));
        Tcl_ResetResult(interp);
        tcltext::appendResult(interp,
                              QString::fromUtf8(name) + u'.' + QString::fromUtf8(member) + u' '
                                  + QString::number(argc) + words + u" <"_s + data + u'>');
        return argv[argc] == nullptr ? TCL_OK : TCL_ERROR;
    }

private:
    const char *name;
};

class Derived : public Bound
{
public:
    using Bound::Bound;
    int overridden(void *clientData, Tcl_Interp *interp, int argc, const char **argv) override
    {
        return answer("derived", clientData, interp, argc, argv);
    }
};

class Other
{
public:
    int member(void *, Tcl_Interp *interp, int, const char **)
    {
        Tcl_ResetResult(interp);
        tcltext::appendResult(interp, u"other"_s);
        return TCL_OK;
    }
};

using Binding = TclCallBack<Bound>;

} // namespace

// Member functions as commands. Every test starts without bound commands of its own.
class tst_TclCallBack : public RegistryTest
{
    Q_OBJECT

private:
    Bound a {"a"};
    Bound b {"b"};

private Q_SLOTS:
    void cleanup()
    {
        Binding::method = {};
        Binding::methodNames = {};
        RegistryTest::cleanup();
    }

    void registrationMakesTheRegistry()
    {
        delete registry;
        Binding::registerMethod(&a, "cmd", &Bound::first, "text", nullptr);
        registry = commandsManager::getInstance(nullptr);
        QCOMPARE(eval("cmd"), u"a.first 1 cmd <>"_s);
        QCOMPARE(eval("help"),
                 u"Commands :\n"
                 "==========\n"
                 "cmd:  text\n"
                 "help: displays this help message\n"_s);
    }

    void theListsGrowTogether()
    {
        Binding::registerMethod(&a, "one", &Bound::first, "", nullptr);
        Binding::registerMethod(&a, "two", &Bound::second, "", nullptr);
        Binding::registerMethod(&a, "one", &Bound::second, "", nullptr);
        QCOMPARE(Binding::methodNames, (QStringList {u"one"_s, u"two"_s, u"one"_s}));
        QCOMPARE(Binding::method,
                 (QList<Binding::Method> {&Bound::first, &Bound::second, &Bound::second}));
        QCOMPARE(Binding::instance, &a);
    }

    void theMemberGetsEveryWordAndTheClientData()
    {
        char data[] = "data";
        Binding::registerMethod(&a, "cmd", &Bound::first, "", data);
        QCOMPARE(eval("cmd {x y} {} z"), u"a.first 4 cmd x y  z <data>"_s);
    }

    void aMemberNamedHelpChecksItsOwnArguments()
    {
        Binding::registerMethod(&a, "help", &Bound::first, "mine", nullptr);
        QCOMPARE(eval("help a b"), u"a.first 3 help a b <>"_s);
    }

    void theResultIsReturnedUnchanged_data()
    {
        QTest::addColumn<int>("code");
        for (const int code : {TCL_OK, TCL_ERROR, TCL_RETURN, TCL_BREAK, TCL_CONTINUE, 17})
            QTest::addRow("code-%d is returned", code) << code;
    }
    void theResultIsReturnedUnchanged()
    {
        QFETCH(int, code);
        Binding::registerMethod(&a, "code", &Bound::code, "", nullptr);
        QCOMPARE(eval(("catch {code " + QByteArray::number(code) + "}").constData()),
                 QString::number(code));
    }

    void theLastObjectGetsTheCallsOfAllCommands()
    {
        Binding::registerMethod(&a, "one", &Bound::first, "", nullptr);
        Binding::registerMethod(&b, "two", &Bound::second, "", nullptr);
        QCOMPARE(eval("one"), u"b.first 1 one <>"_s);
        QCOMPARE(eval("two"), u"b.second 1 two <>"_s);
    }

    void aNameRegisteredTwiceRunsTheFirstMemberWithTheSecondTextAndData()
    {
        char firstData[] = "d1";
        char secondData[] = "d2";
        Binding::registerMethod(&a, "cmd", &Bound::first, "old", firstData);
        Binding::registerMethod(&a, "cmd", &Bound::second, "new", secondData);
        QCOMPARE(eval("cmd"), u"a.first 1 cmd <d2>"_s);
        QCOMPARE(eval("help"),
                 u"Commands :\n"
                 "==========\n"
                 "cmd:  new\n"
                 "help: displays this help message\n"_s);
    }

    void membersAreCalledVirtually()
    {
        Derived derived("d");
        Binding::registerMethod(&derived, "cmd", &Bound::overridden, "", nullptr);
        QCOMPARE(eval("cmd"), u"d.derived 1 cmd <>"_s);
    }

    void eachClassHasItsOwnNames()
    {
        Other other;
        Binding::registerMethod(&a, "one", &Bound::first, "", nullptr);
        TclCallBack<Other>::registerMethod(&other, "two", &Other::member, "", nullptr);
        QCOMPARE(eval("one"), u"a.first 1 one <>"_s);
        QCOMPARE(eval("two"), u"other"_s);
        QCOMPARE(TclCallBack<Other>::methodNames, QStringList {u"two"_s});
        TclCallBack<Other>::method = {};
        TclCallBack<Other>::methodNames = {};
    }

    void anotherNameOfTheCommandIsAnError_data()
    {
        QTest::addColumn<QByteArray>("script");
        QTest::addColumn<QString>("text");
        QTest::newRow("name-other-1 qualified")
            << QByteArray("::cmd") << u"\"::cmd\" is not the name of a bound command"_s;
        QTest::newRow("name-other-2 renamed") << QByteArray("rename cmd better; better x")
                                              << u"\"better\" is not the name of a bound command"_s;
        QTest::newRow("name-other-3 imported")
            << QByteArray("namespace export cmd; namespace eval n {namespace import ::cmd}; n::cmd")
            << u"\"n::cmd\" is not the name of a bound command"_s;
        QTest::newRow("name-other-4 renamed to a longer name")
            << QByteArray("rename cmd cmdx; cmdx")
            << u"\"cmdx\" is not the name of a bound command"_s;
        QTest::newRow("name-other-5 renamed to a shorter name")
            << QByteArray("rename cmd cm; cm") << u"\"cm\" is not the name of a bound command"_s;
        QTest::newRow("name-other-6 renamed to foreign letters")
            << QByteArray("rename cmd cm\xC3\xBC; cm\xC3\xBC")
            << u"\"cm\u00FC\" is not the name of a bound command"_s;
        QTest::newRow("name-other-7 renamed to the empty name in a namespace")
            << QByteArray("namespace eval n {}; rename cmd n::; n::")
            << u"\"n::\" is not the name of a bound command"_s;
        QTest::newRow("name-other-8 an earlier result is replaced")
            << QByteArray("rename cmd better; set x long; better")
            << u"\"better\" is not the name of a bound command"_s;
    }
    void anotherNameOfTheCommandIsAnError()
    {
        QFETCH(QByteArray, script);
        QFETCH(QString, text);
        Binding::registerMethod(&a, "cmd", &Bound::first, "", nullptr);
        QCOMPARE(eval(script.constData(), TCL_ERROR), text);
    }

    void theOwnNameWorksEverywhere_data()
    {
        QTest::addColumn<QByteArray>("script");
        QTest::addColumn<QString>("text");
        QTest::newRow("name-own-1 inside a namespace")
            << QByteArray("namespace eval n {cmd x}") << u"a.first 2 cmd x <>"_s;
        QTest::newRow("name-own-2 through an alias")
            << QByteArray("interp alias {} short {} cmd y; short x") << u"a.first 3 cmd y x <>"_s;
        QTest::newRow("name-own-3 through uplevel")
            << QByteArray("uplevel #0 {cmd x}") << u"a.first 2 cmd x <>"_s;
        QTest::newRow("name-own-4 renamed away and back")
            << QByteArray("rename cmd t; rename t cmd; cmd x") << u"a.first 2 cmd x <>"_s;
    }
    void theOwnNameWorksEverywhere()
    {
        QFETCH(QByteArray, script);
        Binding::registerMethod(&a, "cmd", &Bound::first, "", nullptr);
        QTEST(eval(script.constData()), "text");
    }

    void namesMayHoldForeignLetters()
    {
        Binding::registerMethod(&a,
                                "gr\xC3\xB6\xC3\x9F"
                                "e",
                                &Bound::first, "", nullptr);
        Binding::registerMethod(&a, "\xE2\x82\xAC", &Bound::second, "", nullptr);
        QCOMPARE(eval("gr\xC3\xB6\xC3\x9F"
                      "e"),
                 u"a.first 1 gr\u00F6\u00DFe <>"_s);
        QCOMPARE(eval("\xE2\x82\xAC"), u"a.second 1 \u20AC <>"_s);
    }

    void aMemberMayBindMoreWhileItRuns()
    {
        struct Growing
        {
            int grow(void *, Tcl_Interp *, int, const char **)
            {
                for (int index = 0; index < 100; ++index)
                    TclCallBack<Growing>::registerMethod(this, "more", &Growing::grow, "", nullptr);
                return TCL_OK;
            }
        } growing;
        TclCallBack<Growing>::registerMethod(&growing, "grow", &Growing::grow, "", nullptr);
        QCOMPARE(eval("grow; more"), QString());
        QCOMPARE(TclCallBack<Growing>::methodNames.size(), 201);
        TclCallBack<Growing>::method = {};
        TclCallBack<Growing>::methodNames = {};
    }
};

APPLESS_TEST_CLASS(tst_TclCallBack)

#include "tst_TclCallBack.moc"
