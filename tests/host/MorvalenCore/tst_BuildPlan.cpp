#include "build/BuildPlan.h"
#include "build/macros.h"
#include "build/shell.h"
#include "tests/TestClass.h"

#include <QProcess>
#include <QTest>

using namespace Qt::Literals::StringLiterals;
using namespace MorvalenCore;
using Qtilities::Core::Result;

namespace {

BuildRequest requestFor(const QList<BuildStep> &steps)
{
    BuildRequest request;
    request.configuration = u"Release"_s;
    request.workingFolder = u"/w"_s;
    request.targetPath = u"build/Release"_s;
    request.macros = {{u"CC"_s, u"gcc"_s}, {u"FLAGS"_s, u"-O2 $(WARN)"_s}, {u"WARN"_s, u"-Wall"_s}};
    request.nodes = {{u"rtl"_s, {u"/w/rtl/a.v"_s, u"/w/rtl/b.v"_s}}, {u"empty"_s, {}}};
    request.steps = steps;
    return request;
}

BuildStep step(const QString &name, const QString &command, const QStringList &inputs = {},
               const QStringList &outputs = {})
{
    return {name, command, inputs, outputs};
}

// Steps by what they read and make: "name: inputs > outputs".
QList<BuildStep> stepsFrom(const QStringList &lines)
{
    QList<BuildStep> steps;
    for (const QString &line : lines) {
        const QString files = line.section(u':', 1);
        const auto words = [](const QString &text) { return text.split(u' ', Qt::SkipEmptyParts); };
        steps.append(step(line.section(u':', 0, 0), u"true"_s, words(files.section(u'>', 0, 0)),
                          words(files.section(u'>', 1))));
    }
    return steps;
}

QStringList namesOf(const BuildPlan &plan)
{
    QStringList names;
    for (const PlannedStep &planned : plan.steps)
        names.append(planned.name);
    return names;
}

} // namespace

// From what a configuration asks for to what will be run.
class tst_BuildPlan : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void expandsMacros_data();
    void expandsMacros();
    void refusesEndlessMacros_data();
    void refusesEndlessMacros();
    void quotesWords_data();
    void quotesWords();
    void knowsPlainCommands_data();
    void knowsPlainCommands();
    void launches_data();
    void launches();
    void putsCommandsInOneLine_data();
    void putsCommandsInOneLine();
    void plansAStep_data();
    void plansAStep();
    void refuses_data();
    void refuses();
    void orders_data();
    void orders();
    void makesLabelsUnique();
    void namesTheNodes();
    void takesATargetPathFromAnywhere();
};

void tst_BuildPlan::expandsMacros_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const QString &text, const QString &expected) {
        QTest::newRow(name) << text << expected;
    };
    row("macro-plain-1 a text without macros", u"gcc -c a.c"_s, u"gcc -c a.c"_s);
    row("macro-plain-2 an empty text", u""_s, u""_s);
    row("macro-value-1 a macro", u"$(CC) a.c"_s, u"gcc a.c"_s);
    row("macro-value-2 side by side", u"$(CC)$(CC)"_s, u"gccgcc"_s);
    row("macro-value-3 in a value", u"$(ALL)"_s, u"gcc -Wall"_s);
    row("macro-value-4 an empty value", u"a$(NONE)b"_s, u"ab"_s);
    row("macro-value-5 characters of names", u"$(a.b-c_1) $(größe)"_s, u"dots weit"_s);
    row("macro-hidden-1 a step's hides a configuration's", u"$(BOTH)"_s, u"of the step"_s);
    row("macro-final-1 what a step gives is taken as it is", u"$(NAME)"_s, u"$(CC).v"_s);
    row("macro-shell-1 an unknown one is the shell's", u"echo $(date +%s) $(pwd)"_s,
        u"echo $(date +%s) $(pwd)"_s);
    row("macro-shell-2 one inside of a substitution", u"$(which $(CC))"_s, u"$(which gcc)"_s);
    row("macro-shell-3 variables", u"$CC ${CC} $$ $1"_s, u"$CC ${CC} $$ $1"_s);
    row("macro-escape-1 a doubled dollar sign", u"echo $$(CC)"_s, u"echo $(CC)"_s);
    row("macro-escape-2 before a substitution", u"echo $$(date)"_s, u"echo $(date)"_s);
    row("macro-open-1 no closing bracket", u"$(CC"_s, u"$(CC"_s);
    row("macro-open-2 nothing inside", u"$() $("_s, u"$() $("_s);
    row("macro-case-1 case counts", u"$(cc)"_s, u"$(cc)"_s);
    row("macro-percent-1 a percent sign and a digit", u"$(PERCENT)"_s, u"%1 %2"_s);
}

void tst_BuildPlan::expandsMacros()
{
    QFETCH(const QString, text);
    const QHash<QString, QString> others = {
        {u"CC"_s, u"gcc"_s},           {u"ALL"_s, u"$(CC) $(WARN)"_s},
        {u"WARN"_s, u"-Wall"_s},       {u"NONE"_s, u""_s},
        {u"a.b-c_1"_s, u"dots"_s},     {u"größe"_s, u"weit"_s},
        {u"BOTH"_s, u"of the rest"_s}, {u"PERCENT"_s, u"%1 %2"_s}};
    const MacroScope scope {{{u"BOTH"_s, u"of the step"_s}, {u"NAME"_s, u"$(CC).v"_s}}, &others};
    const Result<QString> result = expandMacros(text, scope);
    QVERIFY2(result.isOk(), qPrintable(result.status().text()));
    QTEST(result.value(), "expected");
}

void tst_BuildPlan::refusesEndlessMacros_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("endless-self-1 itself") << u"$(A)"_s << u"The macro \"A\" refers to itself"_s;
    QTest::newRow("endless-self-2 by way of others")
        << u"x $(B)"_s << u"The macro \"B\" refers to itself"_s;
    QTest::newRow("endless-size-1 doubling")
        << u"$(D30)"_s << u"The macro \"D30\" grows too long"_s;
    QTest::newRow("endless-count-1 doubling nothing")
        << u"$(E60)"_s << u"The macro \"E60\" grows too long"_s;
}

void tst_BuildPlan::refusesEndlessMacros()
{
    QFETCH(const QString, text);
    QHash<QString, QString> others = {{u"A"_s, u"a $(A)"_s},
                                      {u"B"_s, u"$(C)"_s},
                                      {u"C"_s, u"$(B)"_s},
                                      {u"D0"_s, u"0123456789"_s},
                                      {u"E0"_s, QString()}};
    for (int i = 1; i <= 60; ++i) {
        others.insert(u"D%1"_s.arg(i), u"$(D%1)$(D%1)"_s.arg(i - 1));
        others.insert(u"E%1"_s.arg(i), u"$(E%1)$(E%1)"_s.arg(i - 1));
    }
    const Result<QString> result = expandMacros(text, {{}, &others});
    QVERIFY(!result.isOk());
    QTEST(result.status().text(), "expected");
}

void tst_BuildPlan::quotesWords_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("word");
    QTest::newRow("word-plain-1 a path")
        << u"a/b-c_d.e+f,g:h=i@j%k"_s << u"a/b-c_d.e+f,g:h=i@j%k"_s;
    QTest::newRow("word-plain-2 beyond ASCII") << u"größe/日本"_s << u"größe/日本"_s;
    QTest::newRow("word-quoted-1 empty") << u""_s << u"''"_s;
    QTest::newRow("word-quoted-2 a blank") << u"a b"_s << u"'a b'"_s;
    QTest::newRow("word-quoted-3 a quote") << u"it's"_s << u"'it'\\''s'"_s;
    QTest::newRow("word-quoted-4 a dollar sign") << u"$HOME"_s << u"'$HOME'"_s;
    QTest::newRow("word-quoted-5 a home") << u"~"_s << u"'~'"_s;
    QTest::newRow("word-quoted-6 a pattern") << u"*?[a]"_s << u"'*?[a]'"_s;
}

void tst_BuildPlan::quotesWords()
{
    QFETCH(const QString, text);
    QTEST(shellWord(text), "word");
    QProcess shell;
    shell.start(u"/bin/sh"_s, {u"-c"_s, u"printf %s "_s + shellWord(text)});
    QVERIFY(shell.waitForFinished(patient(30'000)));
    QCOMPARE(QString::fromUtf8(shell.readAllStandardOutput()), text);
}

void tst_BuildPlan::knowsPlainCommands_data()
{
    QTest::addColumn<bool>("plain");
    for (const char *command :
         {"gcc -c a.c -o a.o", "  gcc", "/usr/bin/gcc 'a;b' \"c|d\" e\\;f", "echo $HOME ${X}",
          "echo '$(date)'", "echo \"a > b\"", "iverilog -DA=1", "printf '#'", "echo a\\$\\(b"})
        QTest::addRow("plain-yes %s", command) << true;
    for (const char *command : {"a && b",
                                "a; b",
                                "a | b",
                                "a > b",
                                "a < b",
                                "a &",
                                "(a)",
                                "echo $(date)",
                                "echo \"$(date)\"",
                                "echo `date`",
                                "echo \"`date`\"",
                                "CC=gcc make",
                                "cd x",
                                "if a; then b",
                                "{ a; }",
                                "! a",
                                ". a",
                                ": a",
                                "export A=1",
                                "a\nb",
                                "",
                                "   ",
                                "exec a",
                                "test -f x",
                                "[ -f x ]",
                                "a # comment"})
        QTest::addRow("plain-no %s", command) << false;
}

void tst_BuildPlan::knowsPlainCommands()
{
    const QString command = QString::fromUtf8(QTest::currentDataTag()).section(u' ', 1);
    QTEST(isPlainCommand(command), "plain");
}

void tst_BuildPlan::launches_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("launcher");
    QTest::addColumn<QString>("expected");
    QTest::newRow("launch-none-1 no launcher") << u"a | b"_s << u""_s << u"a | b"_s;
    QTest::newRow("launch-plain-1 in front of the program")
        << u"gcc -c a.c"_s << u"srun -c 2"_s << u"srun -c 2 gcc -c a.c"_s;
    QTest::newRow("launch-shell-1 in front of a shell")
        << u"a | b 'c'"_s << u"srun"_s << u"srun /bin/sh -c 'a | b '\\''c'\\'''"_s;
}

void tst_BuildPlan::launches()
{
    QFETCH(const QString, command);
    QFETCH(const QString, launcher);
    QTEST(launched(command, launcher), "expected");
}

void tst_BuildPlan::putsCommandsInOneLine_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("output");
    QTest::newRow("line-1 one line already") << u"printf %s '100% a\\b'"_s << u"100% a\\b"_s;
    QTest::newRow("line-2 two commands") << u"echo a\necho b"_s << u"a\nb\n"_s;
    QTest::newRow("line-3 a break inside of quotes") << u"echo 'a\n  b'"_s << u"a\n  b\n"_s;
    QTest::newRow("line-4 percent signs, backslashes and quotes")
        << u"printf '%s|' \"it's\" '\\n' 100%\necho"_s << u"it's|\\n|100%|\n"_s;
    QTest::newRow("line-5 a text in the command")
        << u"cat <<E\n$((1 + 2)) \\$x\nE\necho end"_s << u"3 $x\nend\n"_s;
    QTest::newRow("line-6 digits behind a break") << u"echo 'a\n1234'"_s << u"a\n1234\n"_s;
    QTest::newRow("line-7 other control characters") << u"printf '\x01\r'\n"_s << u"\x01\r"_s;
    QTest::newRow("line-8 an option first") << u"-x\n"_s << u""_s;
}

void tst_BuildPlan::putsCommandsInOneLine()
{
    QFETCH(const QString, command);
    const QString line = inOneLine(command);
    QVERIFY(!line.contains(u'\n'));
    QVERIFY(!line.contains(u'\r'));
    QProcess shell;
    shell.start(u"/bin/sh"_s, {u"-c"_s, line});
    QVERIFY(shell.waitForFinished(patient(30'000)));
    QTEST(QString::fromUtf8(shell.readAllStandardOutput()), "output");
}

void tst_BuildPlan::plansAStep_data()
{
    QTest::addColumn<BuildStep>("asked");
    QTest::addColumn<QString>("launcher");
    QTest::addColumn<PlannedStep>("expected");
    const auto row = [](const char *name, const BuildStep &asked, const PlannedStep &expected,
                        const QString &launcher = {}) {
        QTest::newRow(name) << asked << launcher << expected;
    };
    row("plan-1 paths are of the working folder",
        step(u"compile"_s, u"$(CC) $(FLAGS) -c $(INPUTS) -o $(OUTPUTS)"_s, {u"src/a.c"_s},
             {u"build/Release/a.o"_s}),
        {u"compile"_s,
         u"compile"_s,
         u"gcc -O2 -Wall -c src/a.c -o build/Release/a.o"_s,
         {u"/w/src/a.c"_s},
         {u"/w/build/Release/a.o"_s}});
    row("plan-2 paths are cleaned", step(u"s"_s, u"x"_s, {u"./a//b/../c"_s}, {u"./o"_s}),
        {u"s"_s, u"s"_s, u"x"_s, {u"/w/a/c"_s}, {u"/w/o"_s}});
    row("plan-3 files of a node",
        step(u"lint"_s, u"lint $(INPUTS)"_s, {u"node:rtl"_s, u"top.v"_s}, {u"lint.log"_s}),
        {u"lint"_s,
         u"lint"_s,
         u"lint rtl/a.v rtl/b.v top.v"_s,
         {u"/w/rtl/a.v"_s, u"/w/rtl/b.v"_s, u"/w/top.v"_s},
         {u"/w/lint.log"_s}});
    row("plan-4 what a step makes is no input of it",
        step(u"gen"_s, u"gen $(INPUTS)"_s, {u"node:rtl"_s}, {u"rtl/b.v"_s}),
        {u"gen"_s, u"gen"_s, u"gen rtl/a.v"_s, {u"/w/rtl/a.v"_s}, {u"/w/rtl/b.v"_s}});
    row("plan-5 a node without files", step(u"s"_s, u"x $(INPUTS)."_s, {u"node:empty"_s}),
        {u"s"_s, u"s"_s, u"x ."_s, {}, {}});
    row("plan-6 macros in paths", step(u"s"_s, u"x"_s, {u"$(CC).in"_s}, {u"$(STEP).out"_s}),
        {u"s"_s, u"s"_s, u"x"_s, {u"/w/gcc.in"_s}, {u"/w/s.out"_s}});
    row("plan-7 odd names are quoted",
        step(u"s"_s, u"x $(INPUTS)"_s, {u"a b"_s, u"-c"_s, u"/else where/d$"_s}),
        {u"s"_s,
         u"s"_s,
         u"x 'a b' ./-c '/else where/d$'"_s,
         {u"/w/a b"_s, u"/w/-c"_s, u"/else where/d$"_s},
         {}});
    row("plan-8 a launcher", step(u"s"_s, u"$(CC) a"_s),
        {u"s"_s, u"s"_s, u"farm -q gcc a"_s, {}, {}}, u"farm -q"_s);
    row("plan-9 a name of two lines", step(u"a\n b"_s, u"echo $(STEP)"_s),
        {u"a\n b"_s, u"a b"_s, u"eval \"$(printf -- 'echo a\\012 b')\""_s, {}, {}});
    row("plan-10 no name", step(u""_s, u"x"_s), {u""_s, u"step"_s, u"x"_s, {}, {}});
}

void tst_BuildPlan::plansAStep()
{
    QFETCH(const BuildStep, asked);
    QFETCH(const QString, launcher);
    QFETCH(const PlannedStep, expected);
    BuildRequest request = requestFor({asked});
    request.launcher = launcher;
    const Result<BuildPlan> made = makeBuildPlan(request);
    QVERIFY2(made.isOk(), qPrintable(made.status().text()));
    const BuildPlan *const plan = &made.value();
    QCOMPARE(plan->targetFolder, u"/w/build/Release"_s);
    QCOMPARE(plan->steps.size(), 1);
    const PlannedStep &planned = plan->steps.first();
    QCOMPARE(planned.name, expected.name);
    QCOMPARE(planned.label, expected.label);
    QCOMPARE(planned.command, expected.command);
    QCOMPARE(planned.inputs, expected.inputs);
    QCOMPARE(planned.outputs, expected.outputs);
}

void tst_BuildPlan::refuses_data()
{
    QTest::addColumn<QList<BuildStep>>("steps");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const QList<BuildStep> &steps, const QString &expected) {
        QTest::newRow(name) << steps << expected;
    };
    row("refuse-node-1 an unknown node", {step(u"lint"_s, u"x"_s, {u"node:vhdl"_s})},
        u"The step \"lint\" cannot be run: The design has no node \"vhdl\""_s);
    row("refuse-pool-1 an unknown pool", {{u"lint"_s, u"x"_s, {}, {}, u"licences"_s}},
        u"The step \"lint\" cannot be run: The settings have no pool \"licences\""_s);
    row("refuse-path-1 an empty path", {step(u"s"_s, u"x"_s, {u""_s})},
        u"The step \"s\" cannot be run: A path is empty"_s);
    row("refuse-path-2 a line break in a path", {step(u"s"_s, u"x"_s, {}, {u"a\nb"_s})},
        u"The step \"s\" cannot be run: A path cannot hold tabs, line breaks or other control characters"_s);
    row("refuse-path-3 an output elsewhere", {step(u"s"_s, u"x"_s, {}, {u"/etc/passwd"_s})},
        u"The step \"s\" cannot be run: The output \"/etc/passwd\" is neither below the target "
        u"path \"/w/build/Release\" nor below the working folder \"/w\""_s);
    row("refuse-path-4 an output above", {step(u"s"_s, u"x"_s, {}, {u"../a"_s})},
        u"The step \"s\" cannot be run: The output \"/a\" is neither below the target path "
        u"\"/w/build/Release\" nor below the working folder \"/w\""_s);
    row("refuse-path-5 the working folder as output", {step(u"s"_s, u"x"_s, {}, {u"."_s})},
        u"The step \"s\" cannot be run: The output \"/w\" is neither below the target path "
        u"\"/w/build/Release\" nor below the working folder \"/w\""_s);
    row("refuse-path-6 a folder of a similar name", {step(u"s"_s, u"x"_s, {}, {u"/ww/a"_s})},
        u"The step \"s\" cannot be run: The output \"/ww/a\" is neither below the target path "
        u"\"/w/build/Release\" nor below the working folder \"/w\""_s);
    for (const QString &name : {u".ninja_log"_s, u".ninja_deps"_s, u"build.ninja"_s, u"build.log"_s,
                                u".morvalen_outputs"_s}) {
        for (const QString &way : {u"build/Release/"_s, u"build/Release/x/../"_s}) {
            row(qPrintable(u"refuse-path-7 a file of the build, "_s + way + name),
                {step(u"s"_s, u"x"_s, {}, {u"build/Release/mine"_s, way + name})},
                u"The step \"s\" cannot be run: The output \"/w/build/Release/%1\" is a file of "
                u"the "
                u"build itself"_s.arg(name));
        }
    }
    row("refuse-command-1 an empty command", {step(u"s"_s, u" \t"_s)},
        u"The step \"s\" cannot be run: The command is empty"_s);
    row("refuse-command-2 a zero", {step(u"s"_s, u"a"_s + QChar(0) + u"b"_s)},
        u"The step \"s\" cannot be run: A command cannot hold a zero"_s);
    row("refuse-makers-1 two makers", stepsFrom({u"a:>x"_s, u"b:>y ./x"_s}),
        u"The steps \"a\" and \"b\" both make \"/w/x\""_s);
    row("refuse-makers-2 an output twice", stepsFrom({u"a:>x x"_s}),
        u"The step \"a\" names its output \"/w/x\" twice"_s);
    row("refuse-cycle-1 its own output", stepsFrom({u"a:x>x"_s}),
        u"The step \"a\" needs what it makes itself"_s);
    row("refuse-cycle-2 two steps", stepsFrom({u"z:>z"_s, u"a:y>x"_s, u"b:x>y"_s}),
        u"The steps wait for each other: \"a\" waits for \"b\" waits for \"a\""_s);
    row("refuse-cycle-3 three steps and one that waits for them",
        stepsFrom({u"d:3>4"_s, u"a:3>1"_s, u"b:1>2"_s, u"c:2>3"_s}),
        u"The steps wait for each other: \"a\" waits for \"c\" waits for \"b\" waits for \"a\""_s);
}

void tst_BuildPlan::refuses()
{
    QFETCH(const QList<BuildStep>, steps);
    const Result<BuildPlan> plan = makeBuildPlan(requestFor(steps));
    QVERIFY(!plan.isOk());
    QTEST(plan.status().text(), "expected");
}

void tst_BuildPlan::orders_data()
{
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QString>("expected");
    QTest::newRow("order-1 as listed")
        << QStringList {u"b:>1"_s, u"a:>2"_s, u"c:1>3"_s} << u"bac"_s;
    QTest::newRow("order-2 makers first") << QStringList {u"a:1>2"_s, u"b:>1"_s} << u"ba"_s;
    QTest::newRow("order-3 makers first, the rest as listed")
        << QStringList {u"a:9>1"_s, u"b:>2"_s, u"c:>3"_s, u"d:>9"_s, u"e:>5"_s} << u"bcdae"_s;
    QTest::newRow("order-4 a diamond")
        << QStringList {u"t:l r>t"_s, u"r:b>r"_s, u"l:b>l"_s, u"b:>b"_s} << u"brlt"_s;
    QTest::newRow("order-5 none") << QStringList() << QString();
}

void tst_BuildPlan::orders()
{
    QFETCH(const QStringList, steps);
    const Result<BuildPlan> plan = makeBuildPlan(requestFor(stepsFrom(steps)));
    QVERIFY2(plan.isOk(), qPrintable(plan.status().text()));
    QTEST(namesOf(plan.value()).join(QString()), "expected");
}

void tst_BuildPlan::makesLabelsUnique()
{
    const Result<BuildPlan> plan = makeBuildPlan(
        requestFor({step(u"a"_s, u"x"_s), step(u"a"_s, u"x"_s), step(u"a (2)"_s, u"x"_s),
                    step(u" a "_s, u"x"_s), step(u"\x1b[31m"_s, u"x"_s)}));
    QVERIFY2(plan.isOk(), qPrintable(plan.status().text()));
    QStringList labels;
    for (const PlannedStep &planned : plan.value().steps)
        labels.append(planned.label);
    QCOMPARE(labels, QStringList({u"a"_s, u"a (2)"_s, u"a (2) (2)"_s, u"a (3)"_s, u"[31m"_s}));
}

void tst_BuildPlan::namesTheNodes()
{
    QCOMPARE(nodesNamedIn({step(u"a"_s, u"x"_s, {u"node:rtl"_s, u"b"_s, u"node:"_s}),
                           step(u"b"_s, u"x"_s, {u"node:rtl"_s, u"node:tb"_s}, {u"node:o"_s})}),
             QStringList({u"rtl"_s, u""_s, u"tb"_s}));
}

void tst_BuildPlan::takesATargetPathFromAnywhere()
{
    BuildRequest request = requestFor({step(u"s"_s, u"x"_s, {}, {u"/scratch/out/a"_s})});
    request.targetPath = u"/scratch/out/"_s;
    const Result<BuildPlan> made = makeBuildPlan(request);
    QVERIFY2(made.isOk(), qPrintable(made.status().text()));
    const BuildPlan *const plan = &made.value();
    QCOMPARE(plan->targetFolder, u"/scratch/out"_s);

    request.targetPath = u"/scratch/a\nb"_s;
    const Result<BuildPlan> refused = makeBuildPlan(request);
    QVERIFY(!refused.isOk());
    QCOMPARE(refused.status().text(),
             u"The folder \"/scratch/a\nb\" holds tabs, line breaks or other control characters"_s);
}

GUILESS_TEST_CLASS(tst_BuildPlan)
#include "tst_BuildPlan.moc"
