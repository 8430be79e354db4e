#include "tests/TestClass.h"

#include <Qtilities/Descriptor.h>

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

#include <thread>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Descriptor;

namespace {

bool isOpen(int number) { return ::fcntl(number, F_GETFD) >= 0; }

} // namespace

class tst_Descriptor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void closesAtItsEnd();
    void movesItsNumber();
    void givesItsNumberAway();
    void saysWhyItIsNotOpen();
    void isNotInherited();
    void closesOnce();
    void writesAll();
    void saysWhyItCannotWrite();

private:
    QByteArray path(const QString &name) const { return QFile::encodeName(folder.filePath(name)); }

    QTemporaryDir folder;
};

void tst_Descriptor::closesAtItsEnd()
{
    int number = -1;
    {
        const Descriptor file = Descriptor::open(path(u"a"_s), O_WRONLY | O_CREAT, 0600);
        QVERIFY(bool(file));
        number = file.get();
        QVERIFY(isOpen(number));
    }
    QVERIFY(!isOpen(number));
}

void tst_Descriptor::movesItsNumber()
{
    Descriptor first = Descriptor::open(path(u"."_s), O_RDONLY);
    const int number = first.get();
    Descriptor second = std::move(first);
    QVERIFY(!first);
    QCOMPARE(second.get(), number);
    Descriptor third = Descriptor::open(path(u"."_s), O_RDONLY);
    const int replaced = third.get();
    third = std::move(second);
    QVERIFY(!isOpen(replaced));
    QCOMPARE(third.get(), number);
    QVERIFY(isOpen(number));
}

void tst_Descriptor::givesItsNumberAway()
{
    int number = -1;
    {
        Descriptor file = Descriptor::open(path(u"."_s), O_RDONLY);
        number = file.release();
        QVERIFY(!file);
    }
    QVERIFY(isOpen(number));
    QCOMPARE(::close(number), 0);
}

void tst_Descriptor::saysWhyItIsNotOpen()
{
    const Descriptor file = Descriptor::open(path(u"none"_s), O_RDONLY);
    const int reason = errno;
    QVERIFY(!file);
    QCOMPARE(reason, ENOENT);
}

void tst_Descriptor::isNotInherited()
{
    const Descriptor file = Descriptor::open(path(u"."_s), O_RDONLY);
    QCOMPARE(::fcntl(file.get(), F_GETFD) & FD_CLOEXEC, FD_CLOEXEC);
}

void tst_Descriptor::closesOnce()
{
    Descriptor file = Descriptor::open(path(u"."_s), O_RDONLY);
    const int number = file.get();
    errno = ENOSPC;
    QVERIFY(file.close());
    QCOMPARE(errno, ENOSPC);
    QVERIFY(!isOpen(number));
    QVERIFY(file.close());

    Descriptor stale(number);
    QVERIFY(!stale.close());
    QCOMPARE(errno, EBADF);
}

// A pipe takes less at once than it is given.
void tst_Descriptor::writesAll()
{
    int ends[2] = {-1, -1};
    QCOMPARE(::pipe(ends), 0);
    Descriptor in(ends[1]);
    const QByteArray bytes(300'000, 'x');
    QByteArray out;
    std::thread reader([&out, end = ends[0]] {
        char piece[1000];
        for (ssize_t count = 1; count > 0;) {
            count = ::read(end, piece, sizeof(piece));
            out.append(piece, qMax<ssize_t>(count, 0));
        }
        ::close(end);
    });
    const bool isWritten = in.write(bytes) && in.write({});
    in.close();
    reader.join();
    QVERIFY(isWritten);
    QCOMPARE(out, bytes);
}

void tst_Descriptor::saysWhyItCannotWrite()
{
    const Descriptor full = Descriptor::open("/dev/full", O_WRONLY);
    QVERIFY(!full.write("x"));
    QCOMPARE(errno, ENOSPC);
    QVERIFY(full.write({}));
}

GUILESS_TEST_CLASS(tst_Descriptor)
#include "tst_Descriptor.moc"
