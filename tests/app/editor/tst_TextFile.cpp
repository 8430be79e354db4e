#include "app/editor/TextFile.h"
#include "tests/app/editor/files.h"
#include "tests/TestClass.h"

#include <QTemporaryDir>

#include <fcntl.h>
#include <sys/stat.h>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::KnownFile;
using Trust = TextFile::Trust;
using Disk = TextFile::Disk;

namespace {

// Writes other bytes until the file system's clock has gone on, and sets the time of change back to
// what it was, as programs do that keep the times of what they copy.
bool writeUnderTheOldTime(const QString &path, const QByteArray &bytes)
{
    const KnownFile::Stamp before = KnownFile::stampOf(path);
    timespec times[] = {{}, {}};
    for (timespec &time : times) {
        time.tv_sec = before.modified / 1'000'000'000;
        time.tv_nsec = before.modified % 1'000'000'000;
    }
    do {
        if (!files::write(path, bytes)
            || ::utimensat(AT_FDCWD, QFile::encodeName(path).constData(), times, 0) != 0)
            return false;
    } while (KnownFile::stampOf(path).changed == before.changed);
    return KnownFile::stampOf(path).modified == before.modified;
}

} // namespace

// A file of the editor, and whether it is what was read.
class tst_TextFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        folder = std::make_unique<QTemporaryDir>();
        path = folder->filePath(u"a.txt"_s);
        QVERIFY(files::write(path, "mine\n"));
        file = std::make_unique<TextFile>(path);
        QVERIFY2(file->read().status().toErrorText(&error), qPrintable(error));
    }
    void cleanup() { file.reset(); }

    void seesOtherBytesOfTheSameSizeAndTime();
    void seesOtherBytesAfterASaveOfItsOwn();
    void takesTheSameBytesForTheSame();
    void seesThatTheFileIsGone();

private:
    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<TextFile> file;
    QString path;
    QString error;
};

void tst_TextFile::seesOtherBytesOfTheSameSizeAndTime()
{
    QCOMPARE(file->look(Trust::Stamp), Disk::Same);
    QVERIFY(writeUnderTheOldTime(path, "them\n"));
    QCOMPARE(file->look(Trust::Stamp), Disk::Changed);
    QCOMPARE(file->look(Trust::Nothing), Disk::Changed);
}

void tst_TextFile::seesOtherBytesAfterASaveOfItsOwn()
{
    QVERIFY2(file->write(u"ours\n"_s).toErrorText(&error), qPrintable(error));
    QCOMPARE(file->look(Trust::Stamp), Disk::Same);
    QVERIFY(writeUnderTheOldTime(path, "them\n"));
    QCOMPARE(file->look(Trust::Stamp), Disk::Changed);
}

void tst_TextFile::takesTheSameBytesForTheSame()
{
    QVERIFY(files::replace(path, "mine\n"));
    QCOMPARE(file->look(Trust::Stamp), Disk::Same);
    QCOMPARE(file->look(Trust::Nothing), Disk::Same);
}

void tst_TextFile::seesThatTheFileIsGone()
{
    QVERIFY(QFile::remove(path));
    QCOMPARE(file->look(Trust::Stamp), Disk::Missing);
}

TEST_CLASS(tst_TextFile)
#include "tst_TextFile.moc"
