#include "console/PlainConsole.h"

#include "console/QtclConsole.h"
#include "interp/commandsManager.h"
#include "tests/TestClass.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;

// The console of a program without windows answers as the one with a window does.
class tst_PlainConsole : public QObject
{
    Q_OBJECT

private:
    // Code and text of each command, run one after the other in a new console of that kind.
    template <typename Console>
    static QStringList answers(Console &console, const QStringList &commands)
    {
        QStringList all;
        for (const QString &command : commands) {
            int code = TCL_OK;
            const QString text = console.interpretCommand(command, &code);
            all << QString::number(code) + u' ' + text;
        }
        return all;
    }
    QString read(const QString &name) const
    {
        QFile file(folder.filePath(name));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : u"no file"_s;
    }

    QTemporaryDir folder;

private Q_SLOTS:
    void cleanup()
    {
        Tcl_DeleteCommand(commandsManager::getInstance(nullptr)->interp, "dbgExit");
        Tcl_DeleteCommand(commandsManager::getInstance(nullptr)->interp, "again");
    }

    void answersAsTheWindowDoes_data()
    {
        QTest::addColumn<QStringList>("commands");
        QTest::addColumn<QStringList>("expected");
        const auto row = [](const char *name, const QStringList &commands,
                            const QStringList &expected) {
            QTest::newRow(name) << commands << expected;
        };
        row("answer-1 a result", {u"expr 2+3"_s}, {u"0 5"_s});
        row("answer-2 an error", {u"no_such_command"_s},
            {u"1 invalid command name \"no_such_command\""_s});
        row("answer-3 an empty command", {QString(), u"history"_s}, {u"0 "_s, u"0 "_s});
        row("answer-4 characters beyond the basic plane", {u"set x é\U0001F600"_s},
            {u"0 é\U0001F600"_s});
        row("answer-5 the history",
            {u"set x 1"_s, u"error e"_s, u"if 1 {\nset x 2\n}"_s, u"history"_s},
            {u"0 1"_s, u"1 e"_s, u"0 2"_s,
             u"0 1\tset x 1\n2\terror e\n3\tif 1 {\\nset x 2\\n}\n"_s});
        row("answer-6 the history with a word", {u"history x"_s}, {u"1 Usage: history\n"_s});
        row("answer-7 a prompt", {u"set_prompt {> }"_s, u"set_prompt"_s},
            {u"0 "_s, u"1 Usage: set_prompt new_prompt\n"_s});
        row("answer-8 a script without a name", {u"save_script"_s},
            {u"1 Usage: save_script script_file_name\n"_s});
        row("answer-9 a script that cannot be written", {u"save_script /no/such/folder/x"_s},
            {u"0 "_s});
        row("answer-10 exit alone is dbgExit", {u"proc dbgExit {} {return left}"_s, u"exit"_s},
            {u"0 "_s, u"0 left"_s});
    }

    void answersAsTheWindowDoes()
    {
        QFETCH(const QStringList, commands);
        QFETCH(const QStringList, expected);
        {
            PlainConsole console;
            QCOMPARE(answers(console, commands), expected);
        }
        QtclConsole console(nullptr, QString());
        QCOMPARE(answers(console, commands), expected);
    }

    void savesWhatSucceeded()
    {
        PlainConsole console;
        const QString file = folder.filePath(u"saved.tcl"_s);
        // An error stands for a file that was written.
        QCOMPARE(
            answers(console,
                    {u"set x 1"_s, u"error e"_s, u"set y 2"_s, u"save_script {"_s + file + u'}'}),
            (QStringList {u"0 1"_s, u"1 e"_s, u"0 2"_s, u"1 "_s}));
        QCOMPARE(read(u"saved.tcl"_s), u"set x 1\nset y 2\n"_s);
    }

    void tellsWhatIsWritten()
    {
        PlainConsole console;
        QSignalSpy output(&console, &PlainConsole::newConsoleOutput);
        QSignalSpy errors(&console, &PlainConsole::newErrorOutput);
        QCOMPARE(answers(console, {u"puts hello; puts stderr oops; puts {a\nb}"_s}),
                 QStringList {u"0 "_s});
        QCOMPARE(output, (QList<QVariantList> {{u"hello"_s}, {u"a\nb"_s}}));
        QCOMPARE(errors, QList<QVariantList> {{u"oops"_s}});
    }

    void refusesACommandWhileOneRuns()
    {
        static PlainConsole *running = nullptr;
        PlainConsole console;
        running = &console;
        Tcl_CreateObjCommand(
            commandsManager::getInstance(nullptr)->interp, "again",
            [](ClientData, Tcl_Interp *interp, int, Tcl_Obj *const *) {
                int code = TCL_OK;
                const QString text = running->interpretCommand(u"set x 1"_s, &code);
                const QByteArray told = QByteArray::number(code) + ' ' + text.toUtf8();
                Tcl_SetObjResult(interp, Tcl_NewStringObj(told.constData(), -1));
                return TCL_OK;
            },
            nullptr, nullptr);
        QCOMPARE(answers(console, {u"again"_s, u"set x 2"_s}),
                 (QStringList {u"0 1 Command cannot be executed!"_s, u"0 2"_s}));
    }

    void whatComesLaterGoesNowhere()
    {
        auto console = std::make_unique<PlainConsole>();
        QSignalSpy output(console.get(), &PlainConsole::newConsoleOutput);
        console.reset();
        Tcl_Interp *interp = commandsManager::getInstance(nullptr)->interp;
        QCOMPARE(Tcl_Eval(interp, "puts late"), TCL_OK);
        QCOMPARE(output.size(), 0);
        QCOMPARE(Tcl_Eval(interp, "set_prompt x"), TCL_ERROR);
        QCOMPARE(QByteArray(Tcl_GetStringResult(interp)),
                 QByteArray("invalid command name \"set_prompt\""));
    }
};

TEST_CLASS(tst_PlainConsole)

#include "tst_PlainConsole.moc"
