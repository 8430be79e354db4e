#include "console/QtclConsole.h"
#include "console/tclchannels.h"

#include "interp/commandsManager.h"
#include "tests/TestClass.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;

// Tcl's standard output and standard error in the console. The tests run in this order: the first
// one finds no console, the last one leaves none.
class tst_TclChannels : public QObject
{
    Q_OBJECT

private:
    int call(const QByteArray &text, int toWrite)
    {
        int code = 7;
        const int written = ConsoleOutput(nullptr, text.constData(), toWrite, &code);
        return code == 0 ? written : -1;
    }
    // What the script writes to standard output, each text of its own.
    QStringList written(const QString &script)
    {
        QSignalSpy output(console, &QtclConsole::newConsoleOutput);
        int res = 0;
        const QString text = console->interpretCommand(script, &res);
        if (res != 0)
            qWarning() << text;
        QStringList texts;
        for (const QVariantList &arguments : std::as_const(output))
            texts += arguments.first().toString();
        return texts;
    }
    QString answer(const QString &script)
    {
        int res = 0;
        const QString text = console->interpretCommand(script, &res);
        return res == 0 ? text : u"error: "_s + text;
    }

    QtclConsole *console = nullptr;
    QTemporaryDir folder;

private Q_SLOTS:
    void aTextThatComesFirstCreatesAConsole()
    {
        QCOMPARE(call("early", 5), 5);
        QCOMPARE(call("\n", 1), 1);
        console = QtclConsole::getInstance(nullptr, u"too late"_s);
        QCOMPARE(console->parentWidget(), nullptr);
        QCOMPARE(console->toPlainText(), u"early\nmorvalen > "_s);
    }

    void records()
    {
        for (const auto &[type, name, output] :
             {std::tuple(&consoleOutputChannelType, "console1", &ConsoleOutput),
              std::tuple(&consoleErrorChannelType, "console2", &ConsoleError)}) {
            QCOMPARE(type->typeName, name);
            QCOMPARE(type->version, nullptr);
            QVERIFY(type->closeProc == closeProcedureForBothTcl_ChannelType);
            QVERIFY(type->outputProc == output);
            QVERIFY(type->watchProc);
            QVERIFY(!type->inputProc && !type->seekProc && !type->setOptionProc);
            QVERIFY(!type->getOptionProc && !type->getHandleProc && !type->close2Proc);
            QVERIFY(!type->blockModeProc && !type->flushProc && !type->handlerProc);
            QVERIFY(!type->wideSeekProc && !type->threadActionProc && !type->truncateProc);
        }
        QCOMPARE(closeProcedureForBothTcl_ChannelType(nullptr, nullptr), 0);
    }

    void options()
    {
        for (const QString &name : {u"stdout"_s, u"stderr"_s}) {
            QCOMPARE(answer(u"fconfigure %1 -translation"_s.arg(name)), u"lf"_s);
            QCOMPARE(answer(u"fconfigure %1 -buffering"_s.arg(name)), u"none"_s);
            QCOMPARE(answer(u"fconfigure %1 -buffersize"_s.arg(name)), u"1000000"_s);
            QCOMPARE(answer(u"fconfigure %1 -encoding"_s.arg(name)), u"utf-8"_s);
            QVERIFY(answer(u"read "_s + name).startsWith(u"error: "_s));
        }
        const Tcl_Channel out = Tcl_GetStdChannel(TCL_STDOUT);
        QVERIFY(Tcl_GetChannelType(out) == &consoleOutputChannelType);
        QCOMPARE(Tcl_GetChannelInstanceData(out), reinterpret_cast<ClientData>(TCL_STDOUT));
        const Tcl_Channel err = Tcl_GetStdChannel(TCL_STDERR);
        QVERIFY(Tcl_GetChannelType(err) == &consoleErrorChannelType);
        QCOMPARE(Tcl_GetChannelInstanceData(err), reinterpret_cast<ClientData>(TCL_STDERR));
        Tcl_Interp *interp = commandsManager::getInstance(nullptr)->interp;
        QCOMPARE(Tcl_GetChannel(interp, "stdout", nullptr), out);
        QCOMPARE(Tcl_GetChannel(interp, "stderr", nullptr), err);
    }

    void texts_data()
    {
        QTest::addColumn<QString>("script");
        QTest::addColumn<QStringList>("texts");
        QTest::newRow("puts-one-1") << u"puts hello"_s << QStringList {u"hello"_s};
        QTest::newRow("puts-one-2 a blank") << u"puts { }"_s << QStringList {u" "_s};
        QTest::newRow("puts-one-3 lines stay together")
            << u"puts a\\nb"_s << QStringList {u"a\nb"_s};
        QTest::newRow("puts-one-4 beyond ASCII") << u"puts é€"_s << QStringList {u"é€"_s};
        QTest::newRow("puts-one-5 beyond the basic plane")
            << u"puts \U0001F600"_s << QStringList {u"\U0001F600"_s};
        QTest::newRow("puts-one-6 markup") << u"puts <b>x</b>"_s << QStringList {u"<b>x</b>"_s};
        QTest::newRow("puts-two-1") << u"puts a; puts b"_s << QStringList({u"a"_s, u"b"_s});
        QTest::newRow("puts-phase-1 without a line feed the next text is swallowed")
            << u"puts -nonewline a; puts b; puts -nonewline c"_s << QStringList({u"a"_s, u"\n"_s});
        QTest::newRow("puts-phase-2 an empty text is one call and shifts it too")
            << u"puts {}; puts a; puts {}"_s << QStringList({u"\n"_s, u"\n"_s});
        QTest::newRow("puts-zero-1 a text ends at its first zero")
            << u"puts a\\u0000b"_s << QStringList {u"a"_s};
        QTest::newRow("puts-length-1 beyond Tcl's own buffer")
            << u"puts [string repeat x 10000]"_s << QStringList {QString(10000, u'x')};
        QTest::newRow("puts-length-2 a million bytes")
            << u"puts [string repeat x 1000000]"_s << QStringList {QString(1000000, u'x')};
        QTest::newRow("puts-child-1 from another interpreter")
            << u"interp create x; interp eval x {puts child}; interp delete x"_s
            << QStringList {u"child"_s};
    }

    void texts()
    {
        QFETCH(QString, script);
        QTEST(written(script), "texts");
        QCOMPARE(written(u"puts again"_s), QStringList {u"again"_s});
    }

    void eachStreamCountsItsOwnCalls()
    {
        QSignalSpy errors(console, &QtclConsole::newErrorOutput);
        QCOMPARE(written(u"puts -nonewline a; puts stderr oops; puts -nonewline b"_s),
                 QStringList {u"a"_s});
        QCOMPARE(errors, QList<QVariantList> {{u"oops"_s}});
    }

    void copiedFilesBringNoStaleBytes()
    {
        QFile file(folder.filePath(u"short.txt"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("short");
        file.close();
        written(u"puts [string repeat y 100]"_s);
        const QString script = u"set f [open {%1}]; fcopy $f stdout; close $f; puts {}"_s;
        QCOMPARE(written(script.arg(file.fileName())), QStringList {u"short"_s});
    }

    void theLengthBoundsTheText()
    {
        QSignalSpy output(console, &QtclConsole::newConsoleOutput);
        QCOMPARE(call("abcdef", 3), 3);
        QCOMPARE(call("swallowed", 9), 9);
        QCOMPARE(call(QByteArray("ab\0cd", 5), 5), 5);
        QCOMPARE(call("swallowed", 9), 9);
        QCOMPARE(output, QList<QVariantList>({{u"abc"_s}, {u"ab"_s}}));
    }

    void aLongTextIsOneParagraph()
    {
        console->reset(u"W"_s);
        console->displayPrompt();
        console->execCommand(u"puts [string repeat x 100000]"_s, true, true, nullptr);
        QCOMPARE(console->toPlainText(),
                 u"W\nmorvalen > puts [string repeat x 100000]\n"_s + QString(100000, u'x')
                     + u"\nmorvalen > "_s);
    }

    void markupIsShownWithItsTags()
    {
        console->reset(u"W"_s);
        console->displayPrompt();
        console->execCommand(u"puts <b>x</b>"_s, true, true, nullptr);
        QCOMPARE(console->toPlainText(), u"W\nmorvalen > puts <b>x</b>\n<b>x</b>\nmorvalen > "_s);
    }

    void anInterpreterCannotTakeTheChannelAway()
    {
        answer(u"interp create x; interp transfer {} stdout x; interp delete x"_s);
        QCOMPARE(answer(u"interp create y; interp eval y {puts alive}; interp delete y"_s),
                 QString());
        QCOMPARE(call("alive", 5), 5);
        QCOMPARE(call("\n", 1), 1);
        Tcl_Interp *interp = commandsManager::getInstance(nullptr)->interp;
        Tcl_RegisterChannel(interp, Tcl_GetStdChannel(TCL_STDOUT));
        QCOMPARE(written(u"puts back"_s), QStringList {u"back"_s});
    }

    void outputFromTheEventLoopGoesInFrontOfThePrompt()
    {
        console->reset(u"W"_s);
        console->displayPrompt();
        console->insertPlainText(u"half"_s);
        Tcl_Interp *interp = commandsManager::getInstance(nullptr)->interp;
        QTimer::singleShot(0, this, [interp] { Tcl_Eval(interp, "puts tick"); });
        QTest::qWait(80);
        QCOMPARE(console->toPlainText(), u"W\ntick\nmorvalen > half"_s);
    }

    // As a host does in a run without a window.
    void theStandardChannelsCanBeReplaced()
    {
        Tcl_Interp *interp = commandsManager::getInstance(nullptr)->interp;
        const QString path = folder.filePath(u"replaced.txt"_s);
        Tcl_Channel ours = Tcl_GetStdChannel(TCL_STDOUT);
        Tcl_RegisterChannel(nullptr, ours); // or Tcl frees it
        QCOMPARE(Tcl_UnregisterChannel(interp, ours), TCL_OK);
        Tcl_Channel file = Tcl_OpenFileChannel(interp, path.toUtf8().constData(), "w", 0644);
        Tcl_RegisterChannel(interp, file);
        Tcl_SetStdChannel(file, TCL_STDOUT);
        QCOMPARE(written(u"puts there; flush stdout"_s), QStringList());
        QFile replaced(path);
        QVERIFY(replaced.open(QIODevice::ReadOnly));
        QCOMPARE(replaced.readAll(), QByteArray("there\n"));
        Tcl_SetStdChannel(ours, TCL_STDOUT);
        Tcl_RegisterChannel(interp, ours);
        Tcl_UnregisterChannel(nullptr, ours);
        QCOMPARE(Tcl_UnregisterChannel(interp, file), TCL_OK);
        QCOMPARE(written(u"puts here"_s), QStringList {u"here"_s});
    }

    void withoutAConsoleTextIsTakenAndShownNowhere()
    {
        delete console;
        Tcl_Interp *interp = commandsManager::getInstance(nullptr)->interp;
        QCOMPARE(Tcl_Eval(interp, "puts gone; puts stderr gone"), TCL_OK);
        QCOMPARE(call("gone", 4), 4);
        QCOMPARE(call("\n", 1), 1);
    }
};

TEST_CLASS(tst_TclChannels)
#include "tst_TclChannels.moc"
