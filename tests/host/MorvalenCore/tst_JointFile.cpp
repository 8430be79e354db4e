#include "build/JointFile.h"
#include "build/sidebyside.h"
#include "build/steporder.h"
#include "tests/TestClass.h"

#include <QTest>

#include <atomic>
#include <vector>

using namespace Qt::Literals::StringLiterals;
using namespace MorvalenCore;

namespace {

PlannedStep step(const QString &name, const QStringList &inputs, const QStringList &outputs,
                 const QString &pool = {})
{
    return {name, name, u"do "_s + name, inputs, outputs, pool};
}

BuildPlan planIn(const QString &folder, const QList<PlannedStep> &steps)
{
    return {u"Main"_s, folder, folder + u"/out"_s, steps};
}

QByteArray rules(const QByteArray &scope, const QByteArray &folder, const QByteArray &id)
{
    return QByteArray("target@ = FOLDER/out\nid@ = ID\nhere@ = FOLDER/out\nfolder@ = FOLDER\n"
                      "closing@ = $ 3>&- 4>&- 5>&- 6>&- 7>&-; exit\n"
                      "\n"
                      "rule step@\n"
                      "  command = cd $folder@ || exit; $line$alone\n"
                      "  description = $label\n"
                      "  restat = 1\n"
                      "\n"
                      "rule long_step@\n"
                      "  command = /bin/sh $here@/$script$alone\n"
                      "  description = $label\n"
                      "  restat = 1\n"
                      "  rspfile = $target@/$script\n"
                      "  rspfile_content = cd $folder@ || exit; $line\n")
        .replace('@', scope)
        .replace("FOLDER", folder)
        .replace("ID", id);
}

} // namespace

// The file of several plans, and the order of their steps.
class tst_JointFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void writesAll();
    void hasNoPlans();
    void measuresWays_data();
    void measuresWays();
    void countsWhatOthersNeed();
    void doesAllSideBySide_data();
    void doesAllSideBySide();
};

void tst_JointFile::writesAll()
{
    BuildPlan one = planIn(u"/1"_s, {step(u"a"_s, {u"/1/i"_s}, {u"/1/a"_s}, u"p q"_s)});
    one.pools = {{u"p q"_s, 2}};
    const BuildPlan two = planIn(u"/2"_s,
                                 {step(u"b"_s, {}, {u"/2/b"_s}), step(u"c"_s, {}, {u"/2/c"_s}),
                                  step(u"d"_s, {u"/2/c"_s}, {})});
    const QByteArray text = jointFileOf({{u"one"_s, one}, {u" $two"_s, two}});
    QCOMPARE(QString::fromUtf8(text),
             QString::fromUtf8(
                 "# Written by Morvalen; changes are overwritten.\n"
                 "ninja_required_version = 1.8\n"
                 "pipe = |\n"
                 "\npool -p_20q\n  depth = 2\n"
                 "alone_in-p_20q = -p_20q\n"
                 "\nof1 = one: \n"
                 + rules("1", "/1", "c265f19e8f6e373e") + "\nof2 = $ $$two: \n"
                 + rules("2", "/2", "08f5101262da641e")
                 + "\nbuild /2/b: step2\n  label = ${of2}b\n  line = do b\n"
                   "\nbuild before-2.$id2: phony /2/b\n"
                   "\nbuild /2/c: step2 || before-2.$id2\n  label = ${of2}c\n  line = do c\n"
                   "\nbuild /1/a: step1 /1/i\n  label = ${of1}a\n  line = do a\n  pool = -p_20q\n"
                   "\nbuild before-3.$id2: phony /2/c before-2.$id2\n"
                   "\nbuild step-3.always.$id2: step2 /2/c || before-3.$id2\n"
                   "  label = ${of2}d\n  line = do d\n  pool = ${alone_in}\n"
                   "  alone = $closing2\n"));
}

void tst_JointFile::hasNoPlans()
{
    QCOMPARE(jointFileOf({}),
             QByteArray("# Written by Morvalen; changes are overwritten.\n"
                        "ninja_required_version = 1.8\npipe = |\n"));
    QCOMPARE(waysToGo({}), QList<QList<int>>());
}

void tst_JointFile::measuresWays_data()
{
    QTest::addColumn<QList<PlannedStep>>("steps");
    QTest::addColumn<QList<int>>("ways");
    const QStringList in {u"/i"_s};
    QTest::newRow("ways-1 none") << QList<PlannedStep>() << QList<int>();
    QTest::newRow("ways-2 side by side")
        << QList {step(u"a"_s, in, {u"/a"_s}), step(u"b"_s, in, {u"/b"_s})} << QList {1, 1};
    QTest::newRow("ways-3 by files")
        << QList {step(u"a"_s, in, {u"/a"_s, u"/a2"_s}), step(u"b"_s, in, {u"/b"_s}),
                  step(u"c"_s, {u"/a2"_s, u"/i"_s}, {u"/c"_s}),
                  step(u"d"_s, {u"/c"_s, u"/b"_s}, {u"/d"_s})}
        << QList {3, 2, 2, 1};
    QTest::newRow("ways-4 one after the other, without inputs")
        << QList {step(u"a"_s, {}, {u"/a"_s}), step(u"b"_s, {}, {u"/b"_s}),
                  step(u"c"_s, {}, {u"/c"_s})}
        << QList {3, 2, 1};
    QTest::newRow("ways-5 behind and before one without outputs")
        << QList {step(u"a"_s, in, {u"/a"_s}), step(u"t"_s, {u"/a"_s}, {}),
                  step(u"b"_s, in, {u"/b"_s}), step(u"c"_s, {u"/b"_s}, {u"/c"_s})}
        << QList {4, 3, 2, 1};
}

void tst_JointFile::measuresWays()
{
    QFETCH(const QList<PlannedStep>, steps);
    QFETCH(const QList<int>, ways);
    QCOMPARE(waysToGo({planIn(u"/1"_s, steps)}), (QList<QList<int>> {ways}));
}

void tst_JointFile::countsWhatOthersNeed()
{
    const BuildPlan maker = planIn(u"/1"_s, {step(u"a"_s, {u"/i"_s}, {u"/1/a"_s})});
    const BuildPlan user = planIn(u"/2"_s, {step(u"b"_s, {u"/1/a"_s}, {u"/2/b"_s})});
    QCOMPARE(waysToGo({maker, user}), (QList<QList<int>> {{2}, {1}}));
}

void tst_JointFile::doesAllSideBySide_data()
{
    QTest::addColumn<int>("count");
    for (const int count : {0, 1, 2, 16, 17, 1000})
        QTest::addRow("%d", count) << count;
}

void tst_JointFile::doesAllSideBySide()
{
    QFETCH(const int, count);
    std::vector<std::atomic<int>> done(size_t(count) + 1);
    doSideBySide(size_t(count), [&done](size_t number) { ++done[number]; });
    for (size_t number = 0; number < size_t(count); ++number)
        QCOMPARE(done[number].load(), 1);
    QCOMPARE(done[size_t(count)].load(), 0);
}

GUILESS_TEST_CLASS(tst_JointFile)
#include "tst_JointFile.moc"
