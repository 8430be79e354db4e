#include "build/RunningSteps.h"
#include "build/shell.h"
#include "tests/TestClass.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;
using namespace MorvalenCore;

// Which step a process is, by its words as the system shows them.
class tst_RunningSteps : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void aProcessIsKnownByItsWords_data();
    void aProcessIsKnownByItsWords();

private:
    BuildPlan plan;
};

void tst_RunningSteps::initTestCase()
{
    plan.targetFolder = u"/w/build"_s;
    plan.steps = {{u"short"_s, u"short"_s, u"touch a"_s, {}, {u"/w/a"_s}},
                  {u"long"_s, u"long"_s, u"touch ab"_s, {}, {u"/w/ab"_s}},
                  {u"two"_s, u"two"_s, u"cc -c x.c; cc -o x x.o"_s, {}, {u"/w/x"_s}},
                  {u"alone"_s, u"alone"_s, u"run 'a b' >out"_s, {}, {}},
                  {u"streams"_s, u"streams"_s, u"lint \"x y\" z\\  2>&1"_s, {}, {u"/w/l"_s}},
                  {u"expanded"_s, u"expanded"_s, u"echo \"$HOME\""_s, {}, {u"/w/e"_s}},
                  {u"alone of two"_s, u"alone of two"_s, u"one; two"_s, {}, {}}};
}

void tst_RunningSteps::aProcessIsKnownByItsWords_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<int>("step");

    const auto shell = [](const QString &line) {
        return QStringList {u"/bin/sh"_s, u"-c"_s, u"cd /w || exit; "_s + line};
    };
    const QString closing = u" 3>&- 4>&- 5>&- 6>&- 7>&-; exit"_s;
    QTest::newRow("known-01 the shell of a step") << shell(u"touch a"_s) << 0;
    QTest::newRow("known-02 one whose command begins like another's") << shell(u"touch ab"_s) << 1;
    QTest::newRow("known-03 a list of commands") << shell(u"cc -c x.c; cc -o x x.o"_s) << 2;
    QTest::newRow("known-04 a step that runs alone")
        << shell(asOneProgram(u"run 'a b' >out"_s) + closing) << 3;
    QTest::newRow("known-05 a list that runs alone")
        << shell(asOneProgram(u"one; two"_s) + closing) << 6;
    QTest::newRow("known-06 the program itself") << QStringList {u"touch"_s, u"a"_s} << 0;
    QTest::newRow("known-07 a script behind its interpreter")
        << QStringList {u"/bin/sh"_s, u"touch"_s, u"ab"_s} << 1;
    QTest::newRow("known-08 quotes and a redirection") << QStringList {u"run"_s, u"a b"_s} << 3;
    QTest::newRow("known-09 a command too long for one word")
        << QStringList {u"/bin/sh"_s, u"/w/build/.x/step-3.sh"_s} << 2;
    QTest::newRow("known-10 escaped blanks and a stream by its number")
        << QStringList {u"lint"_s, u"x y"_s, u"z "_s} << 4;
    QTest::newRow("unknown-05 what the shell has expanded")
        << QStringList {u"echo"_s, u"/root"_s} << -1;
    QTest::newRow("unknown-01 another command") << shell(u"touch b"_s) << -1;
    QTest::newRow("unknown-02 another program") << QStringList {u"touch"_s} << -1;
    QTest::newRow("unknown-03 no words") << QStringList {} << -1;
    QTest::newRow("unknown-04 a file that no step has")
        << QStringList {u"/bin/sh"_s, u"/w/build/.x/step-30.sh"_s} << -1;
}

void tst_RunningSteps::aProcessIsKnownByItsWords()
{
    QFETCH(QStringList, words);
    QFETCH(int, step);

    QCOMPARE(RunningSteps(plan).stepOf(words), step);
}

TEST_CLASS(tst_RunningSteps)
#include "tst_RunningSteps.moc"
