#include <QProcess>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

class tst_TestClass : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void answers_data();
    void answers();
    void runsOneFunctionOfOneClass();
    void handsOnTheClasssFailure();
};

namespace {

struct Ended
{
    int status;
    QString output;
    QString error;
};

Ended ended(const QStringList &arguments)
{
    QProcess sample;
    sample.start(QStringLiteral(SAMPLE), arguments);
    sample.waitForFinished(-1);
    return {sample.exitCode(), QString::fromUtf8(sample.readAllStandardOutput()),
            QString::fromUtf8(sample.readAllStandardError())};
}

const QString usage = u"usage: runner_sample CLASS [FUNCTION[:ROW]]...\n"
                      "       runner_sample --list\n"
                      "       runner_sample --compare CLASS...\n"_s;

} // namespace

void tst_TestClass::answers_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("output");
    QTest::addColumn<QString>("error");
    QTest::newRow("list-1 all names")
        << QStringList {u"--list"_s} << 0 << u"tst_First\ntst_Second\n"_s << QString();
    QTest::newRow("refused-1 nothing said") << QStringList() << 2 << QString() << usage;
    QTest::newRow("refused-2 an unknown class")
        << QStringList {u"tst_Third"_s} << 2 << QString()
        << u"runner_sample: no test class is named tst_Third\n"_s + usage;
    QTest::newRow("compare-1 the same")
        << QStringList {u"--compare"_s, u"tst_Second"_s, u"tst_First"_s} << 0 << QString()
        << QString();
    QTest::newRow("compare-2 an entry without a class, and a class without an entry")
        << QStringList {u"--compare"_s, u"tst_First"_s, u"tst_Third"_s} << 1 << QString()
        << u"runner_sample: tst_Third has an entry, but no class\n"
           "runner_sample: tst_Second has no entry\n"_s;
}

void tst_TestClass::answers()
{
    QFETCH(const QStringList, arguments);
    const Ended run = ended(arguments);
    QTEST(run.error, "error");
    QTEST(run.output, "output");
    QTEST(run.status, "status");
}

void tst_TestClass::runsOneFunctionOfOneClass()
{
    const Ended run = ended({u"tst_First"_s, u"isNamedAsItsClass"_s});
    QCOMPARE(run.status, 0);
    QVERIFY2(run.output.contains(u"PASS   : tst_First::isNamedAsItsClass()"_s),
             qPrintable(run.output));
    QVERIFY(!run.output.contains(u"passes"_s));
}

void tst_TestClass::handsOnTheClasssFailure()
{
    const Ended run = ended({u"tst_Second"_s});
    QCOMPARE(run.status, 1);
    QVERIFY2(run.output.contains(u"Totals: 3 passed, 1 failed"_s), qPrintable(run.output));
}

QTEST_GUILESS_MAIN(tst_TestClass)
#include "tst_TestClass.moc"
