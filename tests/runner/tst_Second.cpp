#include "tests/TestClass.h"

// One of the two classes that tst_TestClass runs.
class tst_Second : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void passes() { QVERIFY(!QCoreApplication::instance()); }
    void fails() { QVERIFY2(false, "so that a failure is seen outside"); }
};

APPLESS_TEST_CLASS(tst_Second)
#include "tst_Second.moc"
