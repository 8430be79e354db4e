#include "tests/TestClass.h"

#include <Qtilities/KnownFile.h>

#include <QDateTime>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <fcntl.h>
#include <sys/stat.h>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::KnownFile;
using Qtilities::Core::Result;
using Disk = KnownFile::Disk;
using Trust = KnownFile::Trust;

namespace {

constexpr qint64 noLimit = 1'000'000;

} // namespace

// Whether a file is still what was read or written.
class tst_KnownFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void nothingIsKnownAtFirst();
    void readingChangesNothingThatIsKnown();
    void aFileThatRestsIsTheSame();
    void changesAreSeen_data();
    void changesAreSeen();
    void aChangeWithTheSameTimeIsSeenWhileFresh();
    void restsByTheClockThatStampsIt();
    void theSameBytesAreNoChange();
    void whatWasWrittenIsKnown();
    void anotherWriteBetweenIsSeen();
    void whatIsLargeIsKnownByItsHash_data();
    void whatIsLargeIsKnownByItsHash();
    void whatCannotBeReadHasChanged();
    void readsAtMostTheLimit();
    void refuses();

private:
    bool write(const QByteArray &bytes) const;
    // The time of change, which the file then has had for long.
    bool setTime(qint64 seconds) const;
    KnownFile read(KnownFile::Keep keep = KnownFile::Keep::Hash) const;

    std::unique_ptr<QTemporaryDir> folder;
    QString path;
};

void tst_KnownFile::init()
{
    folder = std::make_unique<QTemporaryDir>();
    path = folder->filePath(u"file"_s);
    QVERIFY(write("one"));
}

bool tst_KnownFile::write(const QByteArray &bytes) const
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

bool tst_KnownFile::setTime(qint64 seconds) const
{
    const timespec times[] = {{seconds, 0}, {seconds, 0}};
    return ::utimensat(AT_FDCWD, QFile::encodeName(path).constData(), times, 0) == 0;
}

KnownFile tst_KnownFile::read(KnownFile::Keep keep) const
{
    KnownFile file(path);
    file.know(file.read(noLimit).value(), keep);
    return file;
}

void tst_KnownFile::nothingIsKnownAtFirst()
{
    KnownFile file(path);
    QCOMPARE(file.path(), path);
    QVERIFY(!file.isKnown());
    QCOMPARE(file.look(Trust::Stamp), Disk::Changed);
    QVERIFY(QFile::remove(path));
    QCOMPARE(file.look(Trust::Stamp), Disk::Missing);
}

void tst_KnownFile::readingChangesNothingThatIsKnown()
{
    const KnownFile file(path);
    const KnownFile::Content content = file.read(noLimit).value();
    QCOMPARE(content.bytes, "one");
    QCOMPARE(content.stamp, KnownFile::stampOf(path));
    QCOMPARE(content.stamp.size, 3);
    QVERIFY(!file.isKnown());
}

void tst_KnownFile::aFileThatRestsIsTheSame()
{
    for (const auto keep : {KnownFile::Keep::Hash, KnownFile::Keep::Bytes}) {
        KnownFile file = read(keep);
        QVERIFY(file.isKnown());
        QCOMPARE(file.look(Trust::Stamp), Disk::Same);
        QCOMPARE(file.look(Trust::Nothing), Disk::Same);
    }
}

void tst_KnownFile::changesAreSeen_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("change-1 longer") << QByteArray("one more");
    QTest::newRow("change-2 shorter") << QByteArray("o");
    QTest::newRow("change-3 empty") << QByteArray();
    QTest::newRow("change-4 of the same size") << QByteArray("two");
}

void tst_KnownFile::changesAreSeen()
{
    QFETCH(const QByteArray, bytes);
    for (const auto keep : {KnownFile::Keep::Hash, KnownFile::Keep::Bytes}) {
        QVERIFY(write("one"));
        KnownFile file = read(keep);
        QVERIFY(write(bytes));
        QCOMPARE(file.look(Trust::Stamp), Disk::Changed);
        QCOMPARE(file.look(Trust::Nothing), Disk::Changed);
        QVERIFY(QFile::remove(path));
        QCOMPARE(file.look(Trust::Stamp), Disk::Missing);
    }
}

// A second write within a tick of the file system's clock leaves no trace in the times.
void tst_KnownFile::aChangeWithTheSameTimeIsSeenWhileFresh()
{
    // Fresh, however slow the machine is.
    QVERIFY(setTime(QDateTime::currentSecsSinceEpoch() + 3600));
    KnownFile file(path);
    KnownFile::Content content = file.read(noLimit).value();
    QVERIFY(content.isFresh);
    QVERIFY(write("two"));
    content.stamp = KnownFile::stampOf(path);
    file.know(content, KnownFile::Keep::Hash);
    QCOMPARE(file.look(Trust::Stamp), Disk::Changed);
    // Of a file that had rested the stamp is enough, unless it is not to be trusted.
    content.isFresh = false;
    file.know(content, KnownFile::Keep::Hash);
    QCOMPARE(file.look(Trust::Stamp), Disk::Same);
    QCOMPARE(file.look(Trust::Nothing), Disk::Changed);
}

// After a tenth of a second the kernel's own clock has moved on.
void tst_KnownFile::restsByTheClockThatStampsIt()
{
    const QTemporaryDir inMemory(u"/dev/shm/tst_KnownFile"_s);
    QVERIFY2(inMemory.isValid(), qPrintable(inMemory.errorString()));
    path = inMemory.filePath(u"file"_s);
    QVERIFY(write("one"));
    QTest::qSleep(150);
    QVERIFY(!KnownFile(path).read(noLimit).value().isFresh);
    KnownFile file = read();
    QVERIFY(write("two"));
    QCOMPARE(file.look(Trust::Stamp), Disk::Changed);

    // A time to come is no rest.
    QVERIFY(setTime(QDateTime::currentSecsSinceEpoch() + 3600));
    QVERIFY(KnownFile(path).read(noLimit).value().isFresh);
}

void tst_KnownFile::theSameBytesAreNoChange()
{
    KnownFile file = read();
    QVERIFY(setTime(1'000'000'000));
    QCOMPARE(file.look(Trust::Stamp), Disk::Same);
    QVERIFY(QFile::remove(path));
    QVERIFY(write("one"));
    QCOMPARE(file.look(Trust::Stamp), Disk::Same);
}

void tst_KnownFile::whatWasWrittenIsKnown()
{
    KnownFile file(path);
    QVERIFY(write("mine"));
    file.knowWritten("mine");
    QVERIFY(file.isKnown());
    QCOMPARE(file.look(Trust::Stamp), Disk::Same);
    QVERIFY(write("your"));
    QCOMPARE(file.look(Trust::Stamp), Disk::Changed);
}

void tst_KnownFile::anotherWriteBetweenIsSeen()
{
    KnownFile file(path);
    QVERIFY(write("theirs"));
    file.knowWritten("mine");
    QCOMPARE(file.look(Trust::Stamp), Disk::Changed);
    QVERIFY(write("your"));
    file.knowWritten("mine");
    QCOMPARE(file.look(Trust::Stamp), Disk::Changed);
}

void tst_KnownFile::whatIsLargeIsKnownByItsHash_data()
{
    QTest::addColumn<qsizetype>("size");
    QTest::newRow("size-1 the longest that is kept") << qsizetype(64 * 1024);
    QTest::newRow("size-2 one byte more") << qsizetype(64 * 1024 + 1);
    QTest::newRow("size-3 much more") << qsizetype(300'000);
}

void tst_KnownFile::whatIsLargeIsKnownByItsHash()
{
    QFETCH(const qsizetype, size);
    QByteArray bytes(size, 'x');
    QVERIFY(write(bytes));
    KnownFile found = read();
    KnownFile written(path);
    written.knowWritten(bytes);
    KnownFile marked(path);
    marked.knowMark(found.mark());
    QCOMPARE(written.mark(), found.mark());
    QCOMPARE(read(KnownFile::Keep::Bytes).mark(), found.mark());
    for (KnownFile *file : {&found, &written, &marked})
        QCOMPARE(file->look(Trust::Nothing), Disk::Same);
    bytes[size / 2] = 'y';
    QVERIFY(write(bytes));
    for (KnownFile *file : {&found, &written, &marked})
        QCOMPARE(file->look(Trust::Nothing), Disk::Changed);
}

void tst_KnownFile::whatCannotBeReadHasChanged()
{
    KnownFile file = read();
    QVERIFY(QFile::remove(path));
    QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    QCOMPARE(file.look(Trust::Nothing), Disk::Changed);
}

void tst_KnownFile::readsAtMostTheLimit()
{
    const KnownFile::Content content = KnownFile(path).read(2).value();
    QCOMPARE(content.bytes, "on");
    QCOMPARE(content.stamp.size, 3);
}

void tst_KnownFile::refuses()
{
    QCOMPARE(KnownFile(folder->path()).read(noLimit).status().text(), u"it is a folder"_s);
    QCOMPARE(KnownFile(path + u".none"_s).read(noLimit).status().text(),
             u"No such file or directory"_s);
}

GUILESS_TEST_CLASS(tst_KnownFile)
#include "tst_KnownFile.moc"
