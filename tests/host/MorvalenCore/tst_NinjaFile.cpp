#include "BuildFixture.h"
#include "tests/TestClass.h"

#include <QProcess>
#include <QTest>

using namespace Qt::Literals::StringLiterals;
using namespace MorvalenCore;

namespace {

PlannedStep step(const QString &name, const QString &command, const QStringList &inputs,
                 const QStringList &outputs)
{
    return {name, name, command, inputs, outputs};
}

BuildPlan planOf(const QList<PlannedStep> &steps)
{
    return {u"Test"_s, u"/w"_s, u"/w/out"_s, steps};
}

const QByteArray alone = "# Written by Morvalen; changes are overwritten.\n"
                         "ninja_required_version = 1.8\n"
                         "alone_in = console\n";
const QByteArray inclusion = "\ninclude steps.ninja\n";

const QByteArray head = "# Written by Morvalen; changes are overwritten.\n"
                        "pipe = |\n"
                        "target = /w/out\n"
                        "id = 7fc50432c8c0b0f1\n"
                        "here = /w/out\n"
                        "folder = /w\n"
                        "closing = $ 3>&- 4>&- 5>&- 6>&- 7>&-; exit\n"
                        "\n"
                        "rule step\n"
                        "  command = cd $folder || exit; $line$alone\n"
                        "  description = $label\n"
                        "  restat = 1\n"
                        "\n"
                        "rule long_step\n"
                        "  command = /bin/sh $here/$script$alone\n"
                        "  description = $label\n"
                        "  restat = 1\n"
                        "  rspfile = $target/$script\n"
                        "  rspfile_content = cd $folder || exit; $line\n";

} // namespace

// What is written for Ninja, and that Ninja reads it as it is meant.
class tst_NinjaFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void writes_data();
    void writes();
    void writesPools();
    void carriesOddNames_data();
    void carriesOddNames();
    void carriesAWorkingFolderOfAnOddName();
    void carriesLongCommands();
    void isLeftAloneWhenItIsTheSame();
    void isWrittenAgainWhenSomebodyChangedIt();
    void doesNotReplaceAFileOfSomebodyElse();
    void knowsItsOwnFile();
    void makesTheTargetFolder();
    void saysWhyTheFolderCannotBeMade_data();
    void saysWhyTheFolderCannotBeMade();
    void growsWithTheStepsOnly();
};

void tst_NinjaFile::writes_data()
{
    QTest::addColumn<QList<PlannedStep>>("steps");
    QTest::addColumn<QByteArray>("expected");
    QTest::newRow("file-1 no steps") << QList<PlannedStep>() << QByteArray();
    QTest::newRow("file-2 compile and link")
        << QList<PlannedStep> {step(u"compile"_s, u"cc a"_s, {u"/w/a.c"_s}, {u"/w/out/a.o"_s}),
                               step(u"link"_s, u"ld a"_s, {u"/w/out/a.o"_s, u"/w/x"_s},
                                    {u"/w/out/a"_s, u"/w/out/a.map"_s})}
        << QByteArray("\nbuild /w/out/a.o: step /w/a.c\n  label = ${of}compile\n  line = cc a\n"
                      "\nbuild /w/out/a /w/out/a.map: step /w/out/a.o /w/x\n  label = ${of}link\n"
                      "  line = ld a\n");
    QTest::newRow("file-3 special characters")
        << QList<PlannedStep> {step(u" a: $b | c"_s, u" echo $x | y: z"_s, {u"/w/a b:c$d|e#f"_s},
                                    {u"/w/größe"_s})}
        << QByteArray(
               "\nbuild /w/größe: step /w/a$ b$:c$$d${pipe}e#f\n  label = ${of}$ a: $$b | c\n"
               "  line = $ echo $$x | y: z\n");
    QTest::newRow("file-4 a step without outputs runs alone and every time")
        << QList<PlannedStep> {step(u"a"_s, u"a"_s, {u"/w/i"_s}, {u"/w/a"_s}),
                               step(u"test"_s, u"t"_s, {u"/w/a"_s}, {}),
                               step(u"b"_s, u"b"_s, {u"/w/i"_s}, {u"/w/b"_s})}
        << QByteArray(
               "\nbuild /w/a: step /w/i\n  label = ${of}a\n  line = a\n"
               "\nbuild before-2.$id: phony /w/a\n"
               "\nbuild step-2.always.$id: step /w/a || before-2.$id\n  label = ${of}test\n  line "
               "= t\n"
               "  pool = ${alone_in}\n  alone = $closing\n"
               "\nbuild /w/b: step /w/i || step-2.always.$id\n  label = ${of}b\n  line = b\n");
    QTest::newRow("file-5 a step without inputs waits for those before it")
        << QList<PlannedStep> {step(u"a"_s, u"a"_s, {u"/w/i"_s}, {u"/w/a"_s}),
                               step(u"b"_s, u"b"_s, {}, {u"/w/b"_s}),
                               step(u"c"_s, u"c"_s, {}, {u"/w/c"_s}),
                               step(u"d"_s, u"d"_s, {u"/w/i"_s}, {u"/w/d"_s})}
        << QByteArray("\nbuild /w/a: step /w/i\n  label = ${of}a\n  line = a\n"
                      "\nbuild before-2.$id: phony /w/a\n"
                      "\nbuild /w/b: step || before-2.$id\n  label = ${of}b\n  line = b\n"
                      "\nbuild before-3.$id: phony /w/b before-2.$id\n"
                      "\nbuild /w/c: step || before-3.$id\n  label = ${of}c\n  line = c\n"
                      "\nbuild /w/d: step /w/i\n  label = ${of}d\n  line = d\n");
    const QString longText(120'000, u'x');
    QTest::newRow("file-6 a long command comes from a file")
        << QList<PlannedStep> {step(u"a"_s, longText, {u"/w/i"_s}, {u"/w/a"_s})}
        << QByteArray("\nbuild /w/a: long_step /w/i\n  label = ${of}a\n  line = "
                      + longText.toUtf8() + "\n  script = step-1.sh\n");
}

void tst_NinjaFile::writes()
{
    QFETCH(const QList<PlannedStep>, steps);
    QFETCH(const QByteArray, expected);
    const NinjaFile file(planOf(steps));
    QCOMPARE(file.path(), u"/w/out/build.ninja"_s);
    QCOMPARE(QString::fromUtf8(file.text()), QString::fromUtf8(alone + inclusion));
    QCOMPARE(QString::fromUtf8(file.stepsText()), QString::fromUtf8(head + expected));
}

void tst_NinjaFile::writesPools()
{
    BuildPlan plan = planOf({step(u"a"_s, u"a"_s, {u"/w/i"_s}, {u"/w/a"_s}),
                             step(u"b"_s, u"b"_s, {u"/w/i"_s}, {u"/w/b"_s}),
                             step(u"t"_s, u"t"_s, {u"/w/b"_s}, {})});
    plan.pools = {{u"a \"pool\"\n"_s, 3}, {u"console"_s, 1}};
    plan.steps[0].pool = u"console"_s;
    plan.steps[1].pool = u"a \"pool\"\n"_s;
    plan.steps[2].pool = u"console"_s;
    const NinjaFile file(plan);
    QCOMPARE(QString::fromUtf8(file.text()),
             QString::fromUtf8(alone
                               + "\npool -a_20_22pool_22_0a\n  depth = 3\n"
                                 "alone_in-a_20_22pool_22_0a = console\n"
                                 "\npool -console\n  depth = 1\nalone_in-console = console\n"
                               + inclusion));
    QCOMPARE(QString::fromUtf8(file.stepsText()),
             QString::fromUtf8(head
                               + "\nbuild /w/a: step /w/i\n  label = ${of}a\n  line = a\n"
                                 "  pool = -console\n"
                                 "\nbuild /w/b: step /w/i\n  label = ${of}b\n  line = b\n"
                                 "  pool = -a_20_22pool_22_0a\n"
                                 "\nbuild before-3.$id: phony /w/a /w/b\n"
                                 "\nbuild step-3.always.$id: step /w/b || before-3.$id\n"
                                 "  label = ${of}t\n  line = t\n  pool = ${alone_in-console}\n"
                                 "  alone = $closing\n"));
}

void tst_NinjaFile::carriesOddNames_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"plain",      "a blank",    " blanks around ",
                             "dollar $x$", "$(CC)",      "a:b",
                             "a|b",        "a||b",       "100% #1",
                             "it's",       "\"quoted\"", "back\\slash",
                             "größe 日本", "𝄞",          "-x",
                             "a;b&c",      "*?[x]",      "~",
                             "a=b",        "^caret",     "`id`"})
        QTest::newRow(name) << QString::fromUtf8(name);
}

void tst_NinjaFile::carriesOddNames()
{
    QFETCH(const QString, name);
    BuildFixture build;
    build.request.macros = {{u"CC"_s, u"a macro"_s}};
    const QString escaped = QString(name).replace(u"$("_s, u"$$("_s);
    build.write(name, "content");
    build.add(escaped, u"cp -- $(INPUTS) $(OUTPUTS)"_s, {escaped}, {u"out/copy of "_s + escaped});
    QCOMPARE(build.run(), BuildFixture::Result::Completed);
    QCOMPARE(build.read(u"out/copy of "_s + name), QByteArray("content"));
    QCOMPARE(build.done.size(), 1);

    QCOMPARE(build.run(), BuildFixture::Result::Completed);
    QCOMPARE(build.done.size(), 0);
    build.touch(name);
    QCOMPARE(build.run(), BuildFixture::Result::Completed);
    QCOMPARE(build.done.size(), 1);
}

void tst_NinjaFile::carriesAWorkingFolderOfAnOddName()
{
    BuildFixture build;
    build.request.workingFolder += u"/it's a: $(b) größe|%1 `x`"_s;
    build.request.targetPath = u"out $x: y"_s;
    build.write(u"in"_s, "1");
    build.add(u"s"_s, u"cat in > $(OUTPUTS) && pwd > here"_s, {u"in"_s}, {u"out $x: y/o"_s});
    QCOMPARE(build.run(), BuildFixture::Result::Completed);
    QCOMPARE(build.read(u"out $x: y/o"_s), QByteArray("1"));
    QCOMPARE(build.read(u"here"_s), build.request.workingFolder.toUtf8() + '\n');
}

void tst_NinjaFile::carriesLongCommands()
{
    BuildFixture build;
    QStringList inputs;
    for (int i = 0; i < 20'000; ++i)
        inputs.append(u"a file with a long name, number %1"_s.arg(i));
    build.write(u"in"_s, "1");
    build.add(u"long"_s,
              u"echo "_s + shellWords(inputs) + u" | wc -c > $(OUTPUTS)\necho two >> $(OUTPUTS)"_s,
              {u"in"_s}, {u"out/o"_s});
    QCOMPARE(build.run(), BuildFixture::Result::Completed);
    QCOMPARE(build.read(u"out/o"_s), QByteArray::number(inputs.join(u' ').size() + 1) + "\ntwo\n");
    QCOMPARE(build.run(), BuildFixture::Result::Completed);
    QCOMPARE(build.done.size(), 0);
}

void tst_NinjaFile::isLeftAloneWhenItIsTheSame()
{
    BuildFixture build;
    build.write(u"in"_s, "1");
    build.add(u"s"_s, u"cp in out/o"_s, {u"in"_s}, {u"out/o"_s});
    QCOMPARE(build.run(), BuildFixture::Result::Completed);
    const QDateTime before = build.stamp(u"out/build.ninja"_s);
    const QDateTime stepsBefore = build.stamp(u"out/steps.ninja"_s);
    QTest::qWait(20);
    QCOMPARE(build.run(), BuildFixture::Result::Completed);
    QCOMPARE(build.stamp(u"out/build.ninja"_s), before);
    QCOMPARE(build.stamp(u"out/steps.ninja"_s), stepsBefore);
}

void tst_NinjaFile::isWrittenAgainWhenSomebodyChangedIt()
{
    BuildFixture build;
    build.write(u"in"_s, "1");
    build.add(u"s"_s, u"cp in out/o"_s, {u"in"_s}, {u"out/o"_s});
    QCOMPARE(build.run(), BuildFixture::Result::Completed);
    for (const QString &name : {u"out/build.ninja"_s, u"out/steps.ninja"_s}) {
        const QByteArray before = build.read(name);
        build.write(name, before.left(50) + "nonsense");
        QCOMPARE(build.run(), BuildFixture::Result::Completed);
        QCOMPARE(build.read(name), before);
        QCOMPARE(build.done.size(), 0);
    }
}

void tst_NinjaFile::doesNotReplaceAFileOfSomebodyElse()
{
    BuildFixture build;
    build.write(u"out/build.ninja"_s, "rule mine\n");
    build.add(u"s"_s, u"touch no"_s, {}, {});
    QCOMPARE(build.run(), BuildFixture::Result::Failed);
    QCOMPARE(
        build.messages,
        QStringList({u"Error: \"%1\" is not a file of Morvalen's; choose another target path"_s.arg(
            build.path(u"out/build.ninja"_s))}));
    QCOMPARE(build.read(u"out/build.ninja"_s), QByteArray("rule mine\n"));
    QVERIFY(!build.exists(u"no"_s));
}

void tst_NinjaFile::knowsItsOwnFile()
{
    BuildFixture build;
    QVERIFY(!NinjaFile::liesIn(build.path(u"out"_s)));
    build.add(u"s"_s, u"true"_s, {}, {});
    QCOMPARE(build.run(), BuildFixture::Result::Completed);
    QVERIFY(NinjaFile::liesIn(build.path(u"out"_s)));
    // One of ours elsewhere, behind a link that came with the folder.
    QVERIFY(QDir().mkpath(build.path(u"other"_s)));
    QVERIFY(QFile::link(build.path(u"out/build.ninja"_s), build.path(u"other/build.ninja"_s)));
    QVERIFY(!NinjaFile::liesIn(build.path(u"other"_s)));
    build.write(u"foreign/build.ninja"_s, "rule mine\n");
    QVERIFY(!NinjaFile::liesIn(build.path(u"foreign"_s)));
}

void tst_NinjaFile::makesTheTargetFolder()
{
    BuildFixture build;
    BuildPlan plan = planOf({});
    plan.targetFolder = build.path(u"a/b c/d"_s);
    const Qtilities::Core::Status made = NinjaFile(plan).makeFolder();
    QVERIFY2(made.isOk(), qPrintable(made.text()));
    const Qtilities::Core::Status written = NinjaFile(plan).write();
    QVERIFY2(written.isOk(), qPrintable(written.text()));
    QCOMPARE(build.read(u"a/b c/d/build.ninja"_s), NinjaFile(plan).text());
    QCOMPARE(build.read(u"a/b c/d/steps.ninja"_s), NinjaFile(plan).stepsText());
}

void tst_NinjaFile::saysWhyTheFolderCannotBeMade_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("reason");
    QTest::newRow("target-1 below a file") << u"WORK/file/out"_s << u"Not a directory"_s;
    QTest::newRow("target-2 in a file system without folders")
        << u"/proc/out"_s << u"No such file or directory"_s;
}

void tst_NinjaFile::saysWhyTheFolderCannotBeMade()
{
    QFETCH(QString, folder);
    QFETCH(const QString, reason);
    BuildFixture build;
    build.write(u"file"_s, "");
    BuildPlan plan = planOf({});
    plan.targetFolder = folder.replace(u"WORK"_s, build.request.workingFolder);
    const Qtilities::Core::Status status = NinjaFile(plan).makeFolder();
    QVERIFY(!status.isOk());
    QCOMPARE(status.text(),
             u"The target path \"%1\" cannot be made: %2"_s.arg(plan.targetFolder, reason));
}

// Steps that wait for all before them must not name them all.
void tst_NinjaFile::growsWithTheStepsOnly()
{
    const auto sizeOf = [](int count) {
        QList<PlannedStep> steps;
        for (int i = 0; i < count; ++i)
            steps.append(step(u"s"_s, u"x"_s, {},
                              i % 2 ? QStringList() : QStringList(u"/w/%1"_s.arg(i, 6))));
        return NinjaFile(planOf(steps)).stepsText().size();
    };
    QVERIFY(sizeOf(4000) < 12 * sizeOf(400));
}

GUILESS_TEST_CLASS(tst_NinjaFile)
#include "tst_NinjaFile.moc"
