#include "tests/faults/FaultSweep.h"
#include "tests/TestClass.h"

#include <QDir>

// Every writer of the program, while the system fails under it. The program inject_faults tries
// all faults; here are the first ones of each kind.
class tst_WriterFaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void faults_data();
    void faults();
};

void tst_WriterFaults::faults_data()
{
    QTest::addColumn<int>("kind");
    int number = 0;
    for (const WriterKind &kind : writerKinds())
        QTest::newRow(kind.name) << number++;
}

void tst_WriterFaults::faults()
{
    QFETCH(const int, kind);
    FaultSweep sweep(writerKinds()[size_t(kind)]);
    sweep.run(FaultSweep::Extent::Selection);
    QVERIFY2(sweep.findings.isEmpty(), qPrintable(sweep.findings.join(u'\n')));
    QVERIFY(sweep.faults > 0 && sweep.kills > 0);
}

TEST_CLASS(tst_WriterFaults)
#include "tst_WriterFaults.moc"
