#include "tests/TestClass.h"

#include <QProcess>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;

// How a process with the notifier starts and ends, in real child processes.
class tst_NotifierProcess : public QObject
{
    Q_OBJECT

    QTemporaryDir runtimeFolder;

private Q_SLOTS:
    void process_data()
    {
        QTest::addColumn<QString>("way");
        QTest::addColumn<int>("status");
        QTest::addColumn<QByteArray>("output");
        QTest::newRow("start-order-1 the notifier first")
            << u"notifier-first"_s << 0 << QByteArray("served\n");
        QTest::newRow("start-order-2 the interpreter first")
            << u"interpreter-first"_s << 0 << QByteArray("served\n");
        QTest::newRow("start-order-3 a timer before the notifier")
            << u"timers-before-the-notifier"_s << 0 << QByteArray("served\n");
        QTest::newRow("start-order-4 the notifier before the application")
            << u"notifier-before-the-application"_s << 0 << QByteArray("served\n");
        QTest::newRow("start-order-5 no interpreter at all")
            << u"notifier-without-an-interpreter"_s << 0 << QByteArray();
        QTest::newRow("end-return-1 with timers and handlers left")
            << u"return-from-main"_s << 0 << QByteArray("1\n");
        QTest::newRow("end-exit-1 in a file handler, flushing standard output")
            << u"exit-of-tcl-in-a-callback"_s << 3 << QByteArray("buffered");
        QTest::newRow("end-exit-2 in a wait")
            << u"exit-of-tcl-in-a-wait"_s << 4 << QByteArray("waiting\n");
        QTest::newRow("end-exit-3 Tcl outlives the application")
            << u"tcl-after-the-application"_s << 5 << QByteArray("closed\n");
        QTest::newRow("end-exit-4 nothing is installed while exiting")
            << u"installed-while-exiting"_s << 0 << QByteArray("installed 0\n");
    }
    void process()
    {
        QFETCH(QString, way);
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"XDG_RUNTIME_DIR"_s, runtimeFolder.path());
        QProcess child;
        child.setProcessEnvironment(environment);
        child.start(QCoreApplication::applicationDirPath() + u"/notifierchild"_s, {way});
        QVERIFY2(child.waitForFinished(patient(30'000)), qPrintable(child.errorString()));
        QCOMPARE(child.readAllStandardError(), QByteArray());
        QTEST(child.readAllStandardOutput(), "output");
        QCOMPARE(child.exitStatus(), QProcess::NormalExit);
        QTEST(child.exitCode(), "status");
    }
};

GUILESS_TEST_CLASS(tst_NotifierProcess)

#include "tst_NotifierProcess.moc"
