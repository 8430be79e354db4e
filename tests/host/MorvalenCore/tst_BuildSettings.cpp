#include "tests/host/MorvalenCore/SessionFixture.h"
#include "tests/TestClass.h"

#include <MorvalenCore/BuildSettings.h>

#include <QTest>

using namespace Qt::Literals::StringLiterals;
using namespace MorvalenCore;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

// What the settings of a session say about builds.
class tst_BuildSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { BuildSettings::ask({}); }

    void reads_data();
    void reads();
    void refuses_data();
    void refuses();
    void letsThisRunHaveItsOwn();
    void countsFromTexts_data();
    void countsFromTexts();
};

Q_DECLARE_METATYPE(MorvalenCore::BuildSettings)

void tst_BuildSettings::reads_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<BuildSettings>("expected");
    const auto row = [](const char *name, const QByteArray &file, const BuildSettings &expected) {
        QTest::newRow(name) << file << expected;
    };
    row("read-1 nothing", "", {});
    row("read-2 all of it",
        "[Builds]\njobs=40\nkeep_going=true\nlauncher=srun -c 1\nallocation=salloc -n 16\n"
        "[Pools]\nlicences=2\nbig memory=1\n",
        {40, true, u"srun -c 1"_s, u"salloc -n 16"_s, {{u"licences"_s, 2}, {u"big memory"_s, 1}}});
    row("read-3 numbers for the flag", "[Builds]\nkeep_going=1\n", {{}, true, {}, {}, {}});
    row("read-4 a flag that is off", "[Builds]\nkeep_going=False\n", {});
    row("read-5 commas", "[Builds]\njobs=3\nlauncher=srun -w a,b,c -n 1\n",
        {3, false, u"srun -w a,b,c -n 1"_s, {}, {}});
    row("read-6 a launcher has jobs of its own", "[Builds]\nlauncher=icerun\n",
        {16, false, u"icerun"_s, {}, {}});
    row("read-7 names of pools", "[Pools]\nsets/a=1\ngr\303\266\303\237e=2\n%5Bx%5D=3\n",
        {{}, false, {}, {}, {{u"sets/a"_s, 1}, {u"größe"_s, 2}, {u"[x]"_s, 3}}});
    row("read-8 empty values", "[Builds]\njobs=\nkeep_going=\nlauncher=\nallocation=\n", {});
}

void tst_BuildSettings::reads()
{
    QFETCH(const QByteArray, file);
    QFETCH(const BuildSettings, expected);
    const SessionFixture session;
    SessionFixture::write(session.path(u"session/settings.ini"_s), file);
    const Result<BuildSettings> read = BuildSettings::current();
    QCOMPARE(read.status().text(), QString());
    const BuildSettings &settings = read.value();
    QCOMPARE(settings.jobs, expected.jobs);
    QCOMPARE(settings.keepGoing, expected.keepGoing);
    QCOMPARE(settings.launcher, expected.launcher);
    QCOMPARE(settings.allocation, expected.allocation);
    QCOMPARE(settings.pools, expected.pools);
}

void tst_BuildSettings::refuses_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("expected");
    const auto jobs = [](const QString &text) {
        return u"The setting \"jobs\" must be a number of steps, at least 1, not \"%1\""_s.arg(
            text);
    };
    QTest::newRow("refuse-jobs-1 none") << QByteArray("[Builds]\njobs=0\n") << jobs(u"0"_s);
    QTest::newRow("refuse-jobs-2 fewer") << QByteArray("[Builds]\njobs=-1\n") << jobs(u"-1"_s);
    QTest::newRow("refuse-jobs-3 a word") << QByteArray("[Builds]\njobs=many\n") << jobs(u"many"_s);
    QTest::newRow("refuse-jobs-4 a part") << QByteArray("[Builds]\njobs=1.5\n") << jobs(u"1.5"_s);
    QTest::newRow("refuse-jobs-5 too many")
        << QByteArray("[Builds]\njobs=99999999999\n") << jobs(u"99999999999"_s);
    QTest::newRow("refuse-flag-1 a word")
        << QByteArray("[Builds]\nkeep_going=perhaps\n")
        << u"The setting \"keep_going\" must be \"true\" or \"false\", not \"perhaps\""_s;
    QTest::newRow("refuse-pool-1 none")
        << QByteArray("[Pools]\nlicences=0\n")
        << u"The pool \"licences\" must have a number of steps, at least 1, not \"0\""_s;
    QTest::newRow("refuse-pool-2 empty")
        << QByteArray("[Pools]\nlicences=\n")
        << u"The pool \"licences\" must have a number of steps, at least 1, not \"\""_s;
}

void tst_BuildSettings::refuses()
{
    QFETCH(const QByteArray, file);
    const SessionFixture session;
    SessionFixture::write(session.path(u"session/settings.ini"_s), file);
    const Status status = BuildSettings::current().status();
    QCOMPARE(status.kind(), Status::Kind::InvalidArgument);
    QTEST(status.text(), "expected");
}

void tst_BuildSettings::letsThisRunHaveItsOwn()
{
    const SessionFixture session;
    SessionFixture::write(session.path(u"session/settings.ini"_s), "[Builds]\njobs=many\n");
    BuildSettings::ask({7, true});
    const Result<BuildSettings> read = BuildSettings::current();
    QCOMPARE(read.status().text(), QString());
    QCOMPARE(read.value().jobs, std::optional(7));
    QCOMPARE(read.value().keepGoing, true);
    BuildSettings::ask({});
    QVERIFY(!BuildSettings::current().isOk());
}

void tst_BuildSettings::countsFromTexts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("count");
    QTest::newRow("count-1 one") << u"1"_s << 1;
    QTest::newRow("count-2 many") << u"2147483647"_s << 2147483647;
    QTest::newRow("count-3 none") << u"0"_s << 0;
    QTest::newRow("count-4 too many") << u"2147483648"_s << 0;
    QTest::newRow("count-5 empty") << QString() << 0;
    QTest::newRow("count-6 a word behind it") << u"3x"_s << 0;
}

void tst_BuildSettings::countsFromTexts()
{
    QFETCH(const QString, text);
    QFETCH(const int, count);
    QCOMPARE(BuildSettings::countFrom(text).value_or(0), count);
}

GUILESS_TEST_CLASS(tst_BuildSettings)
#include "tst_BuildSettings.moc"
