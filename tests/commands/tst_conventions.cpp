#include "commands/conventions.h"
#include "commands/ExecBracket.h"
#include "commands/hostnames.h"
#include "commands/Outcome.h"
#include "commands/Subcommand.h"
#include "commands/texts.h"
#include "tests/fakes/FakeHost.h"
#include "tests/TestClass.h"

#include <QDir>
#include <QTest>

using namespace Qt::Literals::StringLiterals;
using commands::Arguments;
using commands::Outcome;

Q_DECLARE_METATYPE(commands::ArgumentCount)

namespace {

using UsageMap = QMap<QString, QString>;

Outcome answerOne(const Arguments &words)
{
    return Outcome::ok(u"one of "_s + QString::number(words.count()));
}
Outcome answerTwo(const Arguments &) { return Outcome::error(u"two"_s); }

constexpr commands::Subcommand<Arguments> inner[] = {
    {"one", commands::anyArguments, answerOne},
    {"two", commands::exactly(4), answerTwo},
};

constexpr commands::Subcommand<Arguments> outer[] = {
    {"get", commands::moreThan(2), nullptr, inner},
    {"one", commands::exactly(2), answerOne},
    {"one", commands::anyArguments, answerTwo},
    {"both", commands::anyArguments,
     [](const Arguments &words) { return commands::dispatch<Arguments>(inner, words, 2); }, inner},
};

} // namespace

class tst_conventions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void usageBody_data()
    {
        QTest::addColumn<UsageMap>("map");
        QTest::addColumn<QString>("body");
        QTest::newRow("usage-1 no rows") << UsageMap() << QString();
        QTest::newRow("usage-2 all help texts start in one column")
            << UsageMap {{u"projects_path"_s, u"Returns the projects path of the application"_s},
                         {u"new"_s, u"Create a new project"_s}}
            << u"new             - Create a new project\n"
               "projects_path   - Returns the projects path of the application\n"_s;
        QTest::newRow("usage-3 the order is that of the characters, not of a dictionary")
            << UsageMap {{u"b"_s, u"1"_s}, {u"B"_s, u"2"_s}, {u"a z"_s, u"3"_s}, {u"a_"_s, u"4"_s}}
            << u"B     - 2\na z   - 3\na_    - 4\nb     - 1\n"_s;
        QTest::newRow("usage-4 placeholders in rows stay")
            << UsageMap {{u"%1"_s, u"%2"_s}, {u"%2"_s, u"%1"_s}} << u"%1   - %2\n%2   - %1\n"_s;
        QTest::newRow("usage-5 an empty key")
            << UsageMap {{u""_s, u"nothing"_s}} << u"   - nothing\n"_s;
    }
    void usageBody()
    {
        QFETCH(const UsageMap, map);
        QTEST(prepareUsageMessage(map), "body");
    }

    void tclList_data()
    {
        QTest::addColumn<QStringList>("list");
        QTest::addColumn<QString>("text");
        QTest::newRow("list-1 empty") << QStringList() << QString();
        QTest::newRow("list-2 one element") << QStringList {u"x"_s} << u"\"x\""_s;
        QTest::newRow("list-3 two elements, one with a blank")
            << QStringList {u"a"_s, u"b c"_s} << u"\"a\" \"b c\""_s;
        QTest::newRow("list-4 nothing is escaped")
            << QStringList {u"\"\\{[$%1"_s} << u"\"\"\\{[$%1\""_s;
        QTest::newRow("list-5 blanks inside the quotes stay")
            << QStringList {u" a "_s, u" b "_s} << u"\" a \" \" b \""_s;
        QTest::newRow("list-6 empty elements") << QStringList {u""_s, u""_s} << u"\"\" \"\""_s;
    }
    void tclList()
    {
        QFETCH(const QStringList, list);
        QTEST(stringListToTclList(list), "text");
    }

    void aPathGetsThePlatformsSeparators()
    {
        const QString path = u"/a/b c/d"_s;
        QCOMPARE(preparePath(path), QDir::toNativeSeparators(path));
        QCOMPARE(preparePath(QString()), QString());
    }

    void bracketsReachTheHost()
    {
        FakeHost host;
        initExec();
        finalizeExec();
        {
            commands::ExecBracket bracket;
            host.journal.perform(u"change"_s);
        }
        QCOMPARE(host.journal.take(),
                 QStringList({u"initExec"_s, u"finalizeExec"_s, u"initExec"_s, u"change"_s,
                              u"finalizeExec"_s}));
    }

    void fill_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("filled");
        QTest::newRow("fill-1 in order") << u"%1 %2 %3"_s << u"%2 two %1"_s;
        QTest::newRow("fill-2 twice") << u"%2, %2"_s << u"two, two"_s;
        QTest::newRow("fill-3 a value without a placeholder is left out") << u"%3"_s << u"%1"_s;
        QTest::newRow("fill-4 a placeholder without a value stays") << u"%4 %0"_s << u"%4 %0"_s;
        QTest::newRow("fill-5 percent signs") << u"100% %% %"_s << u"100% %% %"_s;
        QTest::newRow("fill-6 side by side") << u"%1%2"_s << u"%2two"_s;
    }
    void fill()
    {
        QFETCH(const QString, text);
        QTEST(commands::fill(text, {u"%2"_s, u"two"_s, u"%1"_s}), "filled");
    }

    void truthWord_data()
    {
        QTest::addColumn<QString>("word");
        QTest::addColumn<int>("truth");
        QTest::newRow("truth-1") << u"true"_s << 1;
        QTest::newRow("truth-2") << u"TrUe"_s << 1;
        QTest::newRow("truth-3") << u"FALSE"_s << 0;
        QTest::newRow("truth-4") << u"false"_s << 0;
        QTest::newRow("truth-5 other words") << u"yes"_s << -1;
        QTest::newRow("truth-6 numbers") << u"1"_s << -1;
        QTest::newRow("truth-7 nothing") << QString() << -1;
        QTest::newRow("truth-8 blanks count") << u" true"_s << -1;
    }
    void truthWord()
    {
        QFETCH(const QString, word);
        const std::optional<bool> truth = commands::truthWord(word);
        QTEST(truth ? int(*truth) : -1, "truth");
    }

    void wordsBehindTheLastAreNull()
    {
        const char *argv[] = {"cmd", "a", nullptr};
        const Arguments words(2, argv);
        QCOMPARE(words.count(), 2);
        QVERIFY(words.is(1, "a"));
        QVERIFY(!words.is(1, "A"));
        QVERIFY(!words.is(2, ""));
        QVERIFY(!words.is(7, "a"));
        QCOMPARE(words[1], u"a"_s);
        QVERIFY(words[2].isNull());
        QVERIFY(words[7].isNull());
    }

    void wordCount_data()
    {
        QTest::addColumn<commands::ArgumentCount>("count");
        QTest::addColumn<QString>("accepted");
        QTest::newRow("count-1 any") << commands::anyArguments << u"1 2 3 4 5"_s;
        QTest::newRow("count-2 exactly") << commands::exactly(3) << u"3"_s;
        QTest::newRow("count-3 more") << commands::moreThan(2) << u"3 4 5"_s;
        QTest::newRow("count-4 at most") << commands::atMost(2) << u"1 2"_s;
        QTest::newRow("count-5 between") << commands::between(2, 4) << u"2 3 4"_s;
    }
    void wordCount()
    {
        QFETCH(const commands::ArgumentCount, count);
        QStringList accepted;
        for (int words = 1; words <= 5; ++words) {
            if (count.accepts(words))
                accepted.append(QString::number(words));
        }
        QTEST(accepted.join(u' '), "accepted");
    }

    void dispatch_data()
    {
        QTest::addColumn<QList<QByteArray>>("words");
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("text");
        using Line = QList<QByteArray>;
        QTest::newRow("dispatch-1 a step") << Line {"c", "one"} << TCL_OK << u"one of 2"_s;
        QTest::newRow("dispatch-2 the first row of a word decides")
            << Line {"c", "one", "x"} << TCL_ERROR << u"usage"_s;
        QTest::newRow("dispatch-3 an item") << Line {"c", "get", "one"} << TCL_OK << u"one of 3"_s;
        QTest::newRow("dispatch-4 the outer count comes first")
            << Line {"c", "get"} << TCL_ERROR << u"usage"_s;
        QTest::newRow("dispatch-5 the inner count")
            << Line {"c", "get", "two"} << TCL_ERROR << u"usage"_s;
        QTest::newRow("dispatch-6 an inner count that is met")
            << Line {"c", "get", "two", "x"} << TCL_ERROR << u"two"_s;
        QTest::newRow("dispatch-7 no word") << Line {"c"} << TCL_ERROR << u"usage"_s;
        QTest::newRow("dispatch-8 an unknown word") << Line {"c", "One"} << TCL_ERROR << u"usage"_s;
        QTest::newRow("dispatch-9 a step that goes on by itself")
            << Line {"c", "both", "one"} << TCL_OK << u"one of 3"_s;
    }
    void dispatch()
    {
        QFETCH(const QList<QByteArray>, words);
        std::vector<const char *> argv;
        for (const QByteArray &word : words)
            argv.push_back(word.constData());
        argv.push_back(nullptr);
        Tcl_Interp *interp = Tcl_CreateInterp();
        Tcl_AppendResult(interp, "an old result", nullptr);
        const int code =
            commands::run(interp, int(words.size()), argv.data(), [](const Arguments &line) {
                return commands::dispatch<Arguments>(outer, line).withUsage([] {
                    return u"usage"_s;
                });
            });
        const QString text = tcltext::result(interp);
        Tcl_DeleteInterp(interp);
        QTEST(text, "text");
        QTEST(code, "code");
    }

    void usageIsMadeOnlyWhenItIsShown()
    {
        int made = 0;
        const auto usage = [&made] {
            ++made;
            return u"usage"_s;
        };
        Tcl_Interp *interp = Tcl_CreateInterp();
        QCOMPARE(Outcome::ok(u"a"_s).withUsage(usage).report(interp), TCL_OK);
        QCOMPARE(Outcome::found(false).withUsage(usage).report(interp), TCL_ERROR);
        QCOMPARE(made, 0);
        QCOMPARE(Outcome::usageAsAnswer().withUsage(usage).report(interp), TCL_OK);
        QCOMPARE(tcltext::result(interp), u"usage"_s);
        QCOMPARE(Outcome::usage().withUsage(usage).report(interp), TCL_ERROR);
        QCOMPARE(made, 2);
        Tcl_DeleteInterp(interp);
    }

    void resultsThatArriveWhileACommandRunsAreDropped()
    {
        Tcl_Interp *interp = Tcl_CreateInterp();
        const char *argv[] = {"c", nullptr};
        commands::run(interp, 1, argv, [interp](const Arguments &) {
            Tcl_AppendResult(interp, "left behind by a timer", nullptr);
            return Outcome::ok(u"the answer \u20ac"_s);
        });
        QCOMPARE(tcltext::result(interp), u"the answer \u20ac"_s);
        Tcl_DeleteInterp(interp);
    }

    void formsNameEveryPath()
    {
        QCOMPARE(commands::forms<Arguments>(outer),
                 QStringList({u"get one"_s, u"get two"_s, u"one"_s, u"one"_s, u"both one"_s,
                              u"both two"_s}));
    }

    void namesSharedWithTheHost()
    {
        using namespace commands::hostnames;
        QCOMPARE(autoMaximizeDesignWidgets, u"General.AutoMaximizeDesignWidgets"_s);
        QCOMPARE(inputParsers, u"Input Parsers"_s);
        QCOMPARE(outputParsers, u"Output Parsers"_s);
        QCOMPARE(diffParsers, u"Diff Parsers"_s);
        QCOMPARE(infoParsers, u"Info Parsers"_s);
    }
};

TEST_CLASS(tst_conventions)
#include "tst_conventions.moc"
