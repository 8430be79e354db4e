#include "interp/commandsManager.h"
#include "interp/errorstack.h"
#include "tests/TestClass.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>

using namespace Qt::Literals::StringLiterals;

// The stack of what failed, with files and lines.
class tst_errorstack : public QObject
{
    Q_OBJECT

private:
    QString stackOf(const QByteArray &script, const QString &file = {})
    {
        code = Tcl_Eval(interp, script.constData());
        QString stack = errorstack::text(interp, code, file);
        return stack.replace(folder.path(), u"FOLDER"_s);
    }

    QByteArray write(const QString &name, const QByteArray &text)
    {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
            qFatal("cannot write");
        return file.fileName().toUtf8();
    }

    Tcl_Interp *interp = nullptr;
    int code = TCL_OK;
    QTemporaryDir folder;

private Q_SLOTS:
    void initTestCase() { interp = commandsManager::getInstance(nullptr)->interp; }

    void aTypedCommand()
    {
        QCOMPARE(stackOf("nonsense here"),
                 u"invalid command name \"nonsense\"\n    while executing\n\"nonsense here\""_s);
        QCOMPARE(code, TCL_ERROR);
    }

    void aTypedProcedureHasNoFile()
    {
        Tcl_Eval(interp, "proc typed {} {\n    error oops\n}");
        QCOMPARE(stackOf("typed"),
                 u"oops\n    while executing\n\"error oops\"\n    (procedure \"typed\" line 2)\n"
                 "    invoked from within\n\"typed\""_s);
    }

    void proceduresOfFilesHaveTheirLines()
    {
        const QByteArray library =
            write(u"lib.tcl"_s,
                  "# one\nproc f {x} {\n    set y 1\n    nonsense $x\n}\n"
                  "namespace eval n {\n    proc g {} {\n        ::f 3\n    }\n}\n");
        const QByteArray script = write(u"run.tcl"_s, "source " + library + "\n\nn::g\n");
        QCOMPARE(stackOf("source " + script),
                 u"invalid command name \"nonsense\"\n    while executing\n\"nonsense $x\"\n"
                 "    (procedure \"::f\" line 3, file \"FOLDER/lib.tcl\" line 4)\n"
                 "    invoked from within\n\"::f 3\"\n"
                 "    (procedure \"n::g\" line 2, file \"FOLDER/lib.tcl\" line 8)\n"
                 "    invoked from within\n\"n::g\"\n    (file \"FOLDER/run.tcl\" line 3)\n"
                 "    invoked from within\n\"source FOLDER/run.tcl\""_s);
    }

    // So that it is found from another folder, too.
    void aFileOfTheCurrentFolderHasItsPath()
    {
        write(u"here.tcl"_s, "set x 1\nnonsense\n");
        const QString before = QDir::currentPath();
        QVERIFY(QDir::setCurrent(folder.path()));
        const QString stack = stackOf("source here.tcl");
        const QString gone = stackOf("file rename here.tcl there.tcl; source there.tcl");
        const QString away = stackOf("cd /; error oops oops\\n\\ \\ \\ \\ (file\\ "
                                     "\\\"there.tcl\\\"\\ line\\ 2)");
        QVERIFY(QDir::setCurrent(before));
        QCOMPARE(stack,
                 u"invalid command name \"nonsense\"\n    while executing\n\"nonsense\"\n"
                 "    (file \"FOLDER/here.tcl\" line 2)\n    invoked from within\n"
                 "\"source here.tcl\""_s);
        QVERIFY2(gone.contains(u"(file \"FOLDER/there.tcl\" line 2)"_s), qPrintable(gone));
        QCOMPARE(away, u"oops\n    (file \"there.tcl\" line 2)"_s);
    }

    void aProcedureThatIsGoneHasNoFile()
    {
        const QByteArray script =
            write(u"gone.tcl"_s, "proc gone {} {\n    rename gone {}\n    error oops\n}\n");
        Tcl_Eval(interp, ("source " + script).constData());
        QCOMPARE(stackOf("gone"),
                 u"oops\n    while executing\n\"error oops\"\n    (procedure \"gone\" line 3)\n"
                 "    invoked from within\n\"gone\""_s);
    }

    void aScriptThatIsATextHasTheLineInItsFile()
    {
        QCOMPARE(stackOf("set x 1\n\nnonsense\n", u"/scripts/a.tcl"_s),
                 u"invalid command name \"nonsense\"\n    while executing\n\"nonsense\"\n"
                 "    (file \"/scripts/a.tcl\" line 3)"_s);
    }

    void anotherStackThanTclsIsKept()
    {
        QCOMPARE(stackOf("error message {a stack of its own}"), u"message\na stack of its own"_s);
    }

    void theInterpreterIsLeftAsItWas()
    {
        Tcl_Eval(interp, "proc typed {} {error oops}");
        stackOf("typed");
        QCOMPARE(Tcl_GetStringResult(interp), "oops");
        QVERIFY(Tcl_GetVar(interp, "errorInfo", TCL_GLOBAL_ONLY));
        Tcl_Eval(interp, "set errorInfo");
        QVERIFY(QByteArray(Tcl_GetStringResult(interp)).startsWith("oops\n"));
    }

    void aHostIsToldOfWhatFails()
    {
        QStringList told;
        const auto fail = [this](const char *script) {
            errorstack::tell(interp, Tcl_Eval(interp, script));
        };
        fail("error untold");
        errorstack::setReceiver([&](const QString &stack) { told.append(stack); });
        fail("error one");
        {
            const errorstack::Script outer(u"a.tcl"_s);
            {
                const errorstack::Script inner(u"b.tcl"_s);
                QCOMPARE(inner.stack(), QString());
                fail("error two");
                QCOMPARE(inner.stack(), told.last());
            }
            QCOMPARE(outer.stack(), QString());
            fail("\nerror three");
        }
        errorstack::setReceiver({});
        fail("error untold");
        const QString stack = u"%1\n    while executing\n\"error %1\"%2"_s;
        QCOMPARE(told,
                 (QStringList {stack.arg(u"one"_s, QString()),
                               stack.arg(u"two"_s, u"\n    (file \"b.tcl\" line 1)"_s),
                               stack.arg(u"three"_s, u"\n    (file \"a.tcl\" line 2)"_s)}));
    }

    void proceduresOfEvaluatedFilesHaveTheirLines()
    {
        const QByteArray text = "# one\r\n\r\nproc own {} {\r\n    error oops\r\n}\r\n";
        const QString file = QString::fromUtf8(write(u"text.tcl"_s, text));
        const QString unknown =
            u"oops\n    while executing\n\"error oops\"\n"
            "    (procedure \"own\" line 2)\n    invoked from within\n\"own\""_s;
        Tcl_Eval(interp, QByteArray(text).replace("\r\n", "\n").constData());
        QCOMPARE(stackOf("own"), unknown);
        {
            const errorstack::Script script(file);
        }
        const QString known =
            QString(unknown).replace(u"2)"_s, u"2, file \"FOLDER/text.tcl\" line 4)"_s);
        QCOMPARE(stackOf("own"), known);
        const auto place = errorstack::placeOf(interp, u"own"_s);
        QVERIFY(place);
        QCOMPARE(place->file, file);
        QCOMPARE(place->line, 3);
        // Somebody has changed it there since.
        write(u"text.tcl"_s, "proc own {} {\n    error never\n}\n");
        QCOMPARE(stackOf("own"), unknown);
        QVERIFY(!errorstack::placeOf(interp, u"own"_s));
        QFile::remove(file);
        QCOMPARE(stackOf("own"), unknown);
        QCOMPARE(::mkfifo(QFile::encodeName(file).constData(), 0600), 0);
        QCOMPARE(stackOf("own"), unknown);
    }

    void textsOfAnyKindAreKept()
    {
        QCOMPARE(stackOf("error \"\\u20ac \\\\1 %1 (procedure \\\"x\\\" line 3)\""),
                 u"\u20ac \\1 %1 (procedure \"x\" line 3)\n    while executing\n"
                 "\"error \"\\u20ac \\\\1 %1 (procedure \\\"x\\\" line 3)\"\""_s);
    }
};

GUILESS_TEST_CLASS(tst_errorstack)

#include "tst_errorstack.moc"
