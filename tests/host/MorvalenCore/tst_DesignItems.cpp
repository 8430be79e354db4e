#include "tests/TestClass.h"

#include <MorvalenCore/BuildConfiguration.h>

#include <QTest>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::BuildConfiguration;

// What is the same for the items of every design.
class tst_DesignItems : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void namesRunStates_data();
    void namesRunStates();
};

void tst_DesignItems::namesRunStates_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<QString>("name");

    QTest::newRow("state-1 idle") << int(BuildConfiguration::Idle) << u"Idle"_s;
    QTest::newRow("state-2 running") << int(BuildConfiguration::Running) << u"Running"_s;
    QTest::newRow("state-3 completed") << int(BuildConfiguration::Completed) << u"Completed"_s;
    QTest::newRow("state-4 failed") << int(BuildConfiguration::Failed) << u"Failed"_s;
    QTest::newRow("state-5 cancelled") << int(BuildConfiguration::Cancelled) << u"Cancelled"_s;
    QTest::newRow("state-6 a number that is no state") << 99 << u""_s;
}

void tst_DesignItems::namesRunStates()
{
    QFETCH(int, state);
    QFETCH(QString, name);

    QCOMPARE(BuildConfiguration::runStateToString(BuildConfiguration::RunState(state)), name);
}

APPLESS_TEST_CLASS(tst_DesignItems)
#include "tst_DesignItems.moc"
