#include "console/QtclConsole.h"
#include "interp/commandsManager.h"
#include "tests/TestClass.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;

// What a host can switch on in the console of Tcl: whole lines, and words behind commands.
class tst_TclConsoleFeatures : public QObject
{
    Q_OBJECT

private:
    void run(const QString &script) { console->execCommand(script, true, true, nullptr); }
    // What the console shows behind the last command that begins with a text.
    QString behind(const QString &command) const
    {
        const QString text = console->toPlainText();
        return text.sliced(text.lastIndexOf(u"> "_s + command) + 2);
    }
    QStringList words(const QString &text, QString *prefix = nullptr)
    {
        QString rest = u"old"_s;
        const QStringList found = console->suggestWord(text, rest);
        if (prefix)
            *prefix = rest;
        return found;
    }

    QtclConsole *console = nullptr;
    QTemporaryDir folder;

private Q_SLOTS:
    void initTestCase()
    {
        console = QtclConsole::getInstance(nullptr, QString());
        console->show();
        QVERIFY(QTest::qWaitForWindowExposed(console));
        console->setWholeLines(true);
        int res = 0;
        console->interpretCommand(u"cd {%1}"_s.arg(folder.path()), &res);
        QCOMPARE(res, 0);
    }

    void lines_data()
    {
        QTest::addColumn<QString>("script");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QStringList>("told");
        const auto row = [](const char *name, const QString &script, const QString &shown,
                            const QStringList &told) {
            QTest::newRow(name) << script << shown << told;
        };
        row("lines-puts-1", u"puts a; puts b"_s, u"a\nb"_s, {u"a"_s, u"b"_s});
        row("lines-puts-2 empty", u"puts a; puts {}; puts b"_s, u"a\n\nb"_s,
            {u"a"_s, QString(), u"b"_s});
        row("lines-puts-3 several lines", u"puts a\\nb\\n; puts c"_s, u"a\nb\n\nc"_s,
            {u"a\nb"_s, QString(), u"c"_s});
        row("lines-part-1", u"puts -nonewline a; puts b; puts c"_s, u"ab\nc"_s, {u"ab"_s, u"c"_s});
        row("lines-part-2 at the end", u"puts -nonewline a; puts -nonewline b"_s, u"ab"_s,
            {u"ab"_s});
        row("lines-part-3 of lines", u"puts -nonewline a\\nb; puts c"_s, u"a\nbc"_s, {u"a\nbc"_s});
        row("lines-part-4 of letters of other scripts", u"puts -nonewline ä; puts €"_s, u"ä€"_s,
            {u"ä€"_s});
        row("lines-both-1", u"puts -nonewline a; puts stderr e; puts b"_s, u"ab\ne"_s, {u"ab"_s});
        row("lines-flush-1", u"puts -nonewline a; flush stdout; puts b"_s, u"ab"_s, {u"ab"_s});
        row("lines-long-1", u"puts [string repeat x 10000]"_s, QString(10'000, u'x'),
            {QString(10'000, u'x')});
    }

    void lines()
    {
        QFETCH(const QString, script);
        QFETCH(const QString, shown);
        QSignalSpy output(console, &QtclConsole::newConsoleOutput);
        run(script);
        QCOMPARE(behind(script), script + u'\n' + shown + u"\nmorvalen > "_s);
        QStringList told;
        for (const QVariantList &arguments : std::as_const(output))
            told += arguments.first().toString();
        QTEST(told, "told");
    }

    // A part that nobody has ended stands alone: what the next command writes is a new line.
    void aPartEndsWithItsCommand()
    {
        run(u"puts -nonewline first"_s);
        run(u"puts second"_s);
        QCOMPARE(behind(u"puts second"_s), u"puts second\nsecond\nmorvalen > "_s);
    }

    void partsThatComeWithoutACommand()
    {
        console->reset(QString());
        console->displayPrompt();
        int res = 0;
        console->interpretCommand(
            u"proc later {} {puts -nonewline a; puts stderr x; puts b; puts c}"_s, &res);
        Tcl_Eval(commandsManager::getInstance(nullptr)->interp, "later");
        QCOMPARE(console->toPlainText(), u"ab\nx\nc\nmorvalen > "_s);
        QTest::keyClicks(console, u"x"_s);
        QCOMPARE(console->getCurrentCommand(), u"x"_s);
        console->replaceCurrentCommand(QString());
    }

    void aClearedConsoleTakesTheRestOfALineAnew()
    {
        console->reset(QString());
        console->displayPrompt();
        console->setFeatures(QConsole::SearchKeys);
        Tcl_Interp *interp = commandsManager::getInstance(nullptr)->interp;
        Tcl_Eval(interp, "puts -nonewline gone");
        QTest::keyClick(console, Qt::Key_L, Qt::ControlModifier);
        QCOMPARE(console->toPlainText(), u"morvalen > "_s);
        Tcl_Eval(interp, "puts rest");
        QCOMPARE(console->toPlainText(), u"rest\nmorvalen > "_s);
    }

    void variablesBehindADollarSign()
    {
        run(u"set someName 1; set someOther 2; array set someArray {one 1 two 2 twelve 12}"_s);
        QString prefix;
        QCOMPARE(words(u"puts $some"_s, &prefix),
                 QStringList({u"someArray"_s, u"someName"_s, u"someOther"_s}));
        QCOMPARE(prefix, u"puts $"_s);
        QCOMPARE(words(u"puts ${someN"_s, &prefix), QStringList {u"someName"_s});
        QCOMPARE(prefix, u"puts ${"_s);
        QCOMPARE(words(u"puts x$someArray(t"_s, &prefix), QStringList({u"twelve)"_s, u"two)"_s}));
        QCOMPARE(prefix, u"puts x$someArray("_s);
        QCOMPARE(words(u"puts $noSuchVariable"_s), QStringList());
        run(u"namespace eval space {variable inside 1}"_s);
        QCOMPARE(words(u"puts $space::in"_s), QStringList {u"space::inside"_s});
        QCOMPARE(words(u"puts $some*"_s), QStringList());
    }

    void subcommandsOfEnsembles()
    {
        QString prefix;
        QCOMPARE(words(u"string to"_s, &prefix),
                 QStringList({u"tolower"_s, u"totitle"_s, u"toupper"_s}));
        QCOMPARE(prefix, u"string "_s);
        QCOMPARE(words(u"set x [dict ke"_s, &prefix), QStringList {u"keys"_s});
        QCOMPARE(prefix, u"set x [dict "_s);
        run(u"namespace eval own {proc alpha {} {}; proc beta {} {}; proc hidden {} {};"
            u" namespace export alpha beta; namespace ensemble create}"_s);
        QCOMPARE(words(u"own "_s), QStringList({u"alpha"_s, u"beta"_s}));
        run(u"namespace ensemble create -command listed -subcommands {here there}"_s);
        QCOMPARE(words(u"if 1 {listed "_s), QStringList({u"here"_s, u"there"_s}));
        QCOMPARE(words(u"own alpha "_s), QStringList());
    }

    void whatTheHostKnowsComesFirst()
    {
        console->setNextWords([](const QStringList &typed) {
            return typed == QStringList({u"design"_s, u"get"_s})
                ? QStringList({u"vendor"_s, u"name"_s, u"version"_s})
                : QStringList();
        });
        QString prefix;
        QCOMPARE(words(u"design  get v"_s, &prefix), QStringList({u"vendor"_s, u"version"_s}));
        QCOMPARE(prefix, u"design  get "_s);
        QCOMPARE(words(u"x; design get "_s), QStringList({u"name"_s, u"vendor"_s, u"version"_s}));
        console->setNextWords({});
        QCOMPARE(words(u"design get v"_s), QStringList());
    }

    void files()
    {
        const QDir dir(folder.path());
        QVERIFY(dir.mkpath(u"sub"_s));
        for (const QString &name : {u"some.tcl"_s, u"some text"_s, u".hidden"_s, u"sub/in.tcl"_s}) {
            QFile file(dir.filePath(name));
            QVERIFY(file.open(QIODevice::WriteOnly));
        }
        QCOMPARE(words(u"source s"_s), QStringList({u"some.tcl"_s, u"some\\ text"_s, u"sub/"_s}));
        QCOMPARE(words(u"source some\\ "_s), QStringList {u"some\\ text"_s});
        QCOMPARE(words(u"source sub/"_s), QStringList {u"sub/in.tcl"_s});
        QCOMPARE(words(u"source ."_s), QStringList {u".hidden"_s});
        QCOMPARE(words(u"source missing/"_s), QStringList());
        QCOMPARE(words(u"source %1/sub/i"_s.arg(folder.path())),
                 QStringList {folder.path() + u"/sub/in.tcl"_s});
        // A command's own name is no file.
        QCOMPARE(words(u"s"_s), QStringList());
    }

    void theInterpretersResultStays()
    {
        Tcl_Interp *interp = commandsManager::getInstance(nullptr)->interp;
        Tcl_SetResult(interp, const_cast<char *>("kept"), TCL_VOLATILE);
        words(u"puts $no"_s);
        words(u"string to"_s);
        words(u"[bad \"list\"x "_s);
        QCOMPARE(Tcl_GetStringResult(interp), "kept");
    }

    void tabCompletesWithRealKeys()
    {
        console->setFeatures(QConsole::AllFeatures);
        console->setFocus();
        run(u"set onlyOneOfThese 1"_s);
        QTest::keyClicks(console, u"puts $onlyOne"_s);
        QTest::keyClick(console, Qt::Key_Tab);
        QCOMPARE(console->getCurrentCommand(), u"puts $onlyOneOfThese"_s);
        console->replaceCurrentCommand(QString());
        QTest::keyClicks(console, u"puts [string tou"_s);
        QTest::keyClick(console, Qt::Key_Tab);
        QCOMPARE(console->getCurrentCommand(), u"puts [string toupper"_s);
        console->replaceCurrentCommand(QString());
        QTest::keyClicks(console, u"puts [strin"_s);
        QTest::keyClick(console, Qt::Key_Tab);
        QCOMPARE(console->getCurrentCommand(), u"puts [string"_s);
        console->replaceCurrentCommand(QString());
    }

    void theCommandHistoryShowsOneLineForEach()
    {
        console->reset(QString());
        console->displayPrompt();
        run(u"set a {\n b\n}"_s);
        int res = 0;
        QCOMPARE(console->interpretCommand(u"history"_s, &res), u"1\tset a {\\n b\\n}\n"_s);
    }
};

TEST_CLASS(tst_TclConsoleFeatures)
#include "tst_TclConsoleFeatures.moc"
