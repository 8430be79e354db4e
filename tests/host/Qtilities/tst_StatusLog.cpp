#include "tests/TestClass.h"

#include <Qtilities/statuslog.h>

#include <QTest>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Status;
using Qtilities::Logging::Logger;
using Qtilities::Logging::logStatus;
using Qtilities::Logging::StatusCollector;

class tst_StatusLog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { disconnect(connection); }

    void saysNothingOfAGoodEnd();
    void saysAFailure();
    void saysRemarksFirst();
    void saysRemarksOfAGoodEnd();
    void saysNothingWithoutASentence();
    void aCollectorGathersWhatIsLogged();
    void collectorsNest();

private:
    QStringList log;
    QMetaObject::Connection connection;
};

void tst_StatusLog::init()
{
    log.clear();
    connection = connect(Logger::instance(), &Logger::messageLogged, this,
                         [this](const QString &, auto type, const QString &text) {
                             log.append(Logger::messageTypeName(type) + u": "_s + text);
                         });
}

void tst_StatusLog::saysNothingOfAGoodEnd()
{
    QVERIFY(logStatus(Status()));
    QCOMPARE(log, QStringList());
}

void tst_StatusLog::saysAFailure()
{
    QVERIFY(!logStatus(Status::io(u"The disk is full"_s)));
    QVERIFY(!logStatus(Status::readOnly(u"It is read-only"_s), Logger::Warning));
    QCOMPARE(log, QStringList({u"Error: The disk is full"_s, u"Warning: It is read-only"_s}));
}

void tst_StatusLog::saysRemarksFirst()
{
    Status status = Status::failed(u"three"_s);
    status.addWarning(u"one"_s);
    status.addStep(Status::io(u"two"_s));
    QVERIFY(!logStatus(status, Logger::Warning));
    QCOMPARE(log, QStringList({u"Warning: one"_s, u"Error: two"_s, u"Warning: three"_s}));
}

void tst_StatusLog::saysRemarksOfAGoodEnd()
{
    Status status;
    status.addWarning(u"old form"_s);
    QVERIFY(logStatus(status));
    QCOMPARE(log, QStringList(u"Warning: old form"_s));
}

void tst_StatusLog::saysNothingWithoutASentence()
{
    QVERIFY(!logStatus(Status(Status::Kind::Unsupported, QString())));
    QCOMPARE(log, QStringList());
}

void tst_StatusLog::aCollectorGathersWhatIsLogged()
{
    logStatus(Status::io(u"before"_s));
    {
        const StatusCollector collector;
        logStatus(Status::notFound(u"meanwhile"_s));
        QCOMPARE(collector.statuses().size(), 1);
        QCOMPARE(collector.statuses().first().kind(), Status::Kind::NotFound);
        QCOMPARE(collector.statuses().first().text(), u"meanwhile"_s);
    }
    logStatus(Status::io(u"behind"_s));
    QCOMPARE(log, QStringList({u"Error: before"_s, u"Error: meanwhile"_s, u"Error: behind"_s}));
}

void tst_StatusLog::collectorsNest()
{
    const StatusCollector outer;
    {
        const StatusCollector inner;
        logStatus(Status::io(u"one"_s));
        QCOMPARE(inner.statuses().size(), 1);
    }
    logStatus(Status::io(u"two"_s));
    QCOMPARE(outer.statuses().size(), 2);
    QCOMPARE(outer.statuses().first().text(), u"one"_s);
    QCOMPARE(outer.statuses().last().text(), u"two"_s);
}

GUILESS_TEST_CLASS(tst_StatusLog)
#include "tst_StatusLog.moc"
