#include "tests/TestClass.h"

// One of the two classes that tst_TestClass runs.
class tst_First : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void passes() { QVERIFY(qobject_cast<QApplication *>(QCoreApplication::instance())); }
    void isNamedAsItsClass()
    {
        QCOMPARE(QCoreApplication::applicationName(), QStringLiteral("tst_First"));
    }
};

TEST_CLASS(tst_First)
#include "tst_First.moc"
