#include "tests/TestClass.h"

#include <Qtilities/Status.h>

#include <QSet>
#include <QTest>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Result;
using Qtilities::Core::Status;
using Remarks = QList<Status::Remark>;

class tst_Status : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isOkAtFirst();
    void failureHasKindAndSentence_data();
    void failureHasKindAndSentence();
    void copyIsIndependent();
    void carriesRemarks();
    void followsAnotherStep();
    void anotherSentenceKeepsTheRest();
    void goesToAnErrorText();
    void resultIsAValue();
    void resultIsAFailure();
    void resultGoesToAnErrorText();
    void resultMovesItsValue();
};

void tst_Status::isOkAtFirst()
{
    const Status status;
    QVERIFY(status.isOk());
    QCOMPARE(status.kind(), Status::Kind::Ok);
    QCOMPARE(status.text(), QString());
    QCOMPARE(status.kindWord(), u"ok"_s);
    QCOMPARE(status.remarks(), Remarks());
}

void tst_Status::failureHasKindAndSentence_data()
{
    using Kind = Status::Kind;
    QTest::addColumn<Status>("status");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("word");
    const auto add = [](const Status &status, Kind kind, const char *word) {
        QTest::newRow(word) << status << int(kind) << QString::fromLatin1(word);
    };
    add(Status::invalidArgument(u"why"_s), Kind::InvalidArgument, "invalid_argument");
    add(Status::notFound(u"why"_s), Kind::NotFound, "not_found");
    add(Status::alreadyExists(u"why"_s), Kind::AlreadyExists, "already_exists");
    add(Status::readOnly(u"why"_s), Kind::ReadOnly, "read_only");
    add(Status::busy(u"why"_s), Kind::Busy, "busy");
    add(Status::conflict(u"why"_s), Kind::Conflict, "conflict");
    add(Status::malformed(u"why"_s), Kind::Malformed, "malformed");
    add(Status::io(u"why"_s), Kind::Io, "io");
    add(Status::cancelled(u"why"_s), Kind::Cancelled, "cancelled");
    add(Status::failed(u"why"_s), Kind::Failed, "failed");
    add(Status::unsupported(u"why"_s), Kind::Unsupported, "unsupported");
}

void tst_Status::failureHasKindAndSentence()
{
    QFETCH(Status, status);
    QFETCH(int, kind);
    QVERIFY(!status.isOk());
    QCOMPARE(int(status.kind()), kind);
    QTEST(status.kindWord(), "word");
    QCOMPARE(status.text(), u"why"_s);
}

void tst_Status::copyIsIndependent()
{
    Status status = Status::busy(u"first"_s);
    const Status copy = status;
    status.addWarning(u"also"_s);
    status = Status();
    QCOMPARE(copy.text(), u"first"_s);
    QCOMPARE(copy.remarks(), Remarks());
    QVERIFY(status.isOk());
    QCOMPARE(status.remarks(), Remarks());
}

void tst_Status::carriesRemarks()
{
    Status status;
    status.addWarning(u"one"_s);
    QVERIFY(status.isOk());
    QCOMPARE(status.text(), QString());

    Status step = Status::io(u"three"_s);
    step.addWarning(u"two"_s);
    status.addStep(step);
    status.addStep(Status());
    QVERIFY(status.isOk());
    QCOMPARE(status.remarks(), Remarks({{false, u"one"_s}, {false, u"two"_s}, {true, u"three"_s}}));
}

void tst_Status::followsAnotherStep()
{
    Status first;
    first.addWarning(u"one"_s);
    Status second = Status::busy(u"three"_s);
    second.addWarning(u"two"_s);
    const Status both = second.after(first);
    QCOMPARE(both.kind(), Status::Kind::Busy);
    QCOMPARE(both.text(), u"three"_s);
    QCOMPARE(both.remarks(), Remarks({{false, u"one"_s}, {false, u"two"_s}}));
    QVERIFY(Status().after(Status()).isOk());
    QCOMPARE(Status().after(Status::io(u"no"_s)).remarks(), Remarks({{true, u"no"_s}}));
}

void tst_Status::anotherSentenceKeepsTheRest()
{
    Status status = Status::malformed(u"a second entry"_s);
    status.addWarning(u"old form"_s);
    const Status located = status.withText(u"file:3: "_s + status.text());
    QCOMPARE(located.kind(), Status::Kind::Malformed);
    QCOMPARE(located.text(), u"file:3: a second entry"_s);
    QCOMPARE(located.remarks(), Remarks({{false, u"old form"_s}}));

    QVERIFY(Status().withText(u"nothing is wrong"_s).isOk());
    QCOMPARE(Status().withText(u"nothing is wrong"_s).text(), QString());
}

void tst_Status::goesToAnErrorText()
{
    QString text = u"untouched"_s;
    QVERIFY(Status().toErrorText(&text));
    QCOMPARE(text, u"untouched"_s);
    QVERIFY(!Status::io(u"the disk is full"_s).toErrorText(&text));
    QCOMPARE(text, u"the disk is full"_s);
    QVERIFY(!Status::io(u"the disk is full"_s).toErrorText(nullptr));
}

void tst_Status::resultIsAValue()
{
    const Result<QString> result = u"value"_s;
    QVERIFY(result.isOk());
    QVERIFY(result.status().isOk());
    QCOMPARE(result.value(), u"value"_s);

    Status warned;
    warned.addWarning(u"old form"_s);
    const Result<int> withWarning(7, warned);
    QVERIFY(withWarning.isOk());
    QCOMPARE(withWarning.value(), 7);
    QCOMPARE(withWarning.status().remarks(), Remarks({{false, u"old form"_s}}));
}

void tst_Status::resultIsAFailure()
{
    const Result<QString> result = Status::notFound(u"no such file"_s);
    QVERIFY(!result.isOk());
    QCOMPARE(result.status().kind(), Status::Kind::NotFound);
    QCOMPARE(result.status().text(), u"no such file"_s);
}

void tst_Status::resultGoesToAnErrorText()
{
    QString text = u"untouched"_s;
    QCOMPARE(Result<int>(7).valueOr(-1, &text), 7);
    QCOMPARE(text, u"untouched"_s);
    QCOMPARE(Result<int>(Status::notFound(u"none"_s)).valueOr(-1, &text), -1);
    QCOMPARE(text, u"none"_s);
    QCOMPARE(Result<int>(Status::notFound(u"none"_s)).valueOr(-1), -1);
}

void tst_Status::resultMovesItsValue()
{
    Result<std::unique_ptr<int>> result = std::make_unique<int>(7);
    const std::unique_ptr<int> taken = std::move(result).value();
    QCOMPARE(*taken, 7);
}

GUILESS_TEST_CLASS(tst_Status)
#include "tst_Status.moc"
