#include "tests/TestClass.h"

#include <Qtilities/regularfile.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::makeRegularFile;
using Qtilities::Core::openRegularFile;
using Qtilities::Core::readRegularFile;
using Qtilities::Core::Result;

// Files are read, everything else is refused without waiting for it.
class tst_RegularFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QFile file(path(u"file"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), content.size());
    }
    void readsAll();
    void readsAtMostTheLimit();
    void readsWhatALinkPointsAt();
    void readsAFileOfTheKernel();
    void refuses_data();
    void refuses();
    void makesAndEmpties();
    void makesNothingElse_data();
    void makesNothingElse();

private:
    QString path(const QString &name) const { return folder.filePath(name); }

    QTemporaryDir folder;
    const QByteArray content = QByteArray(200'000, 'x') + "end";
};

void tst_RegularFile::readsAll()
{
    const Result<QByteArray> read = readRegularFile(path(u"file"_s));
    QVERIFY(read.isOk());
    QVERIFY(read.value() == content);
    QVERIFY(openRegularFile(path(u"file"_s)).isOk());
}

void tst_RegularFile::readsAtMostTheLimit()
{
    QCOMPARE(readRegularFile(path(u"file"_s), 3).value(), "xxx");
    QCOMPARE(readRegularFile(path(u"file"_s), 0).value(), QByteArray());
    QCOMPARE(readRegularFile(path(u"file"_s), content.size() + 1).value().size(), content.size());
}

void tst_RegularFile::readsWhatALinkPointsAt()
{
    QVERIFY(QFile::link(path(u"file"_s), path(u"link"_s)));
    QCOMPARE(readRegularFile(path(u"link"_s), 1).value(), "x");
}

// Its size is said to be 0.
void tst_RegularFile::readsAFileOfTheKernel()
{
    QVERIFY(readRegularFile(u"/proc/self/status"_s).value().startsWith("Name:"));
}

void tst_RegularFile::refuses_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("reason");
    QTest::newRow("refused-1 nothing there")
        << path(u"none"_s) << u"not_found"_s << u"No such file or directory"_s;
    QTest::newRow("refused-2 a folder")
        << folder.path() << u"invalid_argument"_s << u"it is a folder"_s;
    QTest::newRow("refused-3 a pipe")
        << path(u"pipe"_s) << u"invalid_argument"_s << u"it is not a file"_s;
    QTest::newRow("refused-4 a device")
        << u"/dev/zero"_s << u"invalid_argument"_s << u"it is not a file"_s;
    QTest::newRow("refused-5 a link to a pipe")
        << path(u"way"_s) << u"invalid_argument"_s << u"it is not a file"_s;
    QTest::newRow("refused-6 below a file") << path(u"file/x"_s) << u"io"_s << u"Not a directory"_s;
    QTest::newRow("refused-7 no name")
        << QString() << u"invalid_argument"_s << u"that is not the name of a file"_s;
    QTest::newRow("refused-8 a zero in the name") << path(u"file"_s)
            + QChar() << u"invalid_argument"_s << u"that is not the name of a file"_s;
}

void tst_RegularFile::refuses()
{
    QFETCH(const QString, name);
    QFETCH(const QString, kind);
    QFETCH(const QString, reason);
    ::mkfifo(QFile::encodeName(path(u"pipe"_s)).constData(), 0600);
    QFile::link(path(u"pipe"_s), path(u"way"_s));
    const Result<QByteArray> read = readRegularFile(name);
    QVERIFY(!read.isOk());
    QCOMPARE(read.status().kindWord(), kind);
    QCOMPARE(read.status().text(), reason);
    QCOMPARE(openRegularFile(name).status().text(), reason);
}

void tst_RegularFile::makesAndEmpties()
{
    for (const QString &name : {u"new"_s, u"file"_s}) {
        const Result<Qtilities::Core::Descriptor> made = makeRegularFile(path(name));
        QVERIFY2(made.isOk(), qPrintable(made.status().text()));
        QCOMPARE(::write(made.value().get(), "ab", 2), 2);
        QCOMPARE(readRegularFile(path(name)).value(), "ab");
    }
}

void tst_RegularFile::makesNothingElse_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("reason");
    QTest::newRow("not-made-1 a folder") << folder.path() << u"it is a folder"_s;
    QTest::newRow("not-made-2 a pipe") << path(u"pipe"_s) << u"it is not a file"_s;
    QTest::newRow("not-made-3 a device") << u"/dev/null"_s << u"it is not a file"_s;
    QTest::newRow("not-made-4 a link") << path(u"link"_s) << u"it is not a file"_s;
    QTest::newRow("not-made-5 a link to nothing") << path(u"lost"_s) << u"it is not a file"_s;
    QTest::newRow("not-made-6 in no folder") << path(u"none/x"_s) << u"No such file or directory"_s;
    QTest::newRow("not-made-7 no name") << QString() << u"that is not the name of a file"_s;
}

void tst_RegularFile::makesNothingElse()
{
    QFETCH(const QString, name);
    ::mkfifo(QFile::encodeName(path(u"pipe"_s)).constData(), 0600);
    QFile::link(path(u"file"_s), path(u"link"_s));
    QFile::link(path(u"nothing"_s), path(u"lost"_s));
    QTEST(makeRegularFile(name).status().text(), "reason");
    QCOMPARE(readRegularFile(path(u"file"_s)).value(), content);
    QVERIFY(!QFile::exists(path(u"nothing"_s)));
}

GUILESS_TEST_CLASS(tst_RegularFile)
#include "tst_RegularFile.moc"
