// Deletions while another process puts links in the place of folders. What the links lead to must
// not be touched.

#include "disk/removal.h"
#include "tests/TestClass.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <new>
#include <optional>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace MorvalenCore;
using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int canaries = 20;
constexpr int raceTime = 400; // milliseconds for each row

// At once, or where the file system cannot do that one after the other.
bool exchange(const QByteArray &first, const QByteArray &second)
{
    if (::renameat2(AT_FDCWD, first.constData(), AT_FDCWD, second.constData(), RENAME_EXCHANGE)
        == 0)
        return true;
    const QByteArray between = second + "-between";
    return errno == EINVAL && ::rename(first.constData(), between.constData()) == 0
        && ::rename(second.constData(), first.constData()) == 0
        && ::rename(between.constData(), second.constData()) == 0;
}

// Another process that exchanges two paths all the time.
class Swapper
{
public:
    Swapper(const QString &first, const QString &second)
        : swaps(new (::mmap(nullptr, sizeof(std::atomic_int), PROT_READ | PROT_WRITE,
                            MAP_SHARED | MAP_ANONYMOUS, -1, 0)) std::atomic_int(0))
    {
        const QByteArray from = QFile::encodeName(first);
        const QByteArray to = QFile::encodeName(second);
        process = ::fork();
        if (process == 0)
            ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        while (process == 0) {
            if (exchange(from, to))
                ++*swaps;
        }
    }
    ~Swapper()
    {
        ::kill(process, SIGKILL);
        ::waitpid(process, nullptr, 0);
    }
    int count() const { return *swaps; }

private:
    std::atomic_int *swaps;
    pid_t process;
};

void write(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write("x") != 1)
        qFatal("cannot write %s", qPrintable(path));
}

// Where a link may stand just now.
void fill(const QString &folder, int files)
{
    QDir().mkpath(folder);
    for (int i = 0; i < files; ++i)
        write(folder + u"/canary-%1"_s.arg(i));
}

// A file whose name is no text.
QByteArray oddFile(const QString &folder) { return QFile::encodeName(folder) + "/\xff\xc0.v"; }

void addOddFile(const QString &folder)
{
    const int file = ::open(oddFile(folder).constData(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666);
    if (file < 0)
        qFatal("cannot write a name that is no text");
    ::close(file);
}

} // namespace

class tst_DeletionRaces : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        dir.emplace();
        base = QFileInfo(dir->path()).canonicalFilePath();
        fill(base + u"/precious"_s, canaries);
        fill(base + u"/precious/b"_s, 0);
        addOddFile(base + u"/precious/b"_s);
    }
    void cleanup() { dir.reset(); }

    void links_data();
    void links();
    void hardLinksKeepTheirContents();
    void namesThatDifferInCaseAreOthers();

private:
    int canariesLeft() const
    {
        return int(QDir(base + u"/precious"_s).entryList({u"canary-*"_s}, QDir::Files).size());
    }

    std::optional<QTemporaryDir> dir;
    QString base;
};

void tst_DeletionRaces::links_data()
{
    QTest::addColumn<QString>("swapped");
    QTest::addColumn<QString>("deleted");
    QTest::newRow("race-1 the folder itself") << u"work/a"_s << u"work/a"_s;
    QTest::newRow("race-2 a folder in it") << u"work/a/b"_s << u"work/a"_s;
    QTest::newRow("race-3 a folder deep in it") << u"work/a/b/c"_s << u"work/a"_s;
    QTest::newRow("race-4 the folder above it") << u"work/a"_s << u"work/a/b"_s;
    QTest::newRow("race-5 two folders above it") << u"work/a"_s << u"work/a/b/c"_s;
    QTest::newRow("race-6 the folder of a file") << u"work/a"_s << u"work/a/canary-0"_s;
    QTest::newRow("race-7 the limit") << u"work"_s << u"work/a"_s;
}

void tst_DeletionRaces::links()
{
    QFETCH(const QString, swapped);
    QFETCH(const QString, deleted);
    const bool isFile = deleted.contains(u"canary"_s);
    const QString target = base + u'/' + deleted;
    // What the link leads to has what the folder has.
    fill(base + u"/precious/b/c"_s, canaries);
    fill(base + u"/precious/a/b/c"_s, canaries);
    QDir().mkpath(base + u"/work/a/b/c"_s);
    const QByteArray link = QFile::encodeName(base + u"/link"_s);
    const QByteArray precious = QFile::encodeName(base + u"/precious"_s);
    QCOMPARE(::symlink(precious.constData(), link.constData()), 0);
    int deletions = 0;
    int refusals = 0;
    Swapper swapper(base + u'/' + swapped, base + u"/link"_s);
    QElapsedTimer time;
    for (time.start(); time.elapsed() < raceTime || swapper.count() < 10;) {
        // The link may be what was deleted last; what came in its place goes out of the way.
        const QByteArray away = QFile::encodeName(base + u"/away-%1"_s.arg(deletions + refusals));
        ::rename(link.constData(), away.constData());
        QVERIFY(::symlink(precious.constData(), link.constData()) == 0 || errno == EEXIST);
        // Never through the link: in the folder by another name.
        const QString made = base + u"/made"_s;
        for (const char *folder : {"", "/b", "/b/c"})
            fill(made + QLatin1StringView(folder), 3);
        addOddFile(made + u"/b"_s);
        ::rename(QFile::encodeName(made).constData(),
                 QFile::encodeName(base + u"/work/a"_s).constData());
        const DeletionLimits limits {base + u"/work"_s, {}};
        const auto status = isFile ? deleteFile(target, limits, Deletion::Permanent)
                                   : deleteFolder(target, limits, Deletion::Permanent);
        ++(status.isOk() ? deletions : refusals);
        QCOMPARE(canariesLeft(), canaries);
        QCOMPARE(QDir(base + u"/precious/b/c"_s).entryList(QDir::Files).size(), canaries);
        QCOMPARE(QDir(base + u"/precious/a/b/c"_s).entryList(QDir::Files).size(), canaries);
        QVERIFY(::access(oddFile(base + u"/precious/b"_s).constData(), F_OK) == 0);
    }
    qInfo("%d swaps, %d deletions, %d refusals", swapper.count(), deletions, refusals);
}

void tst_DeletionRaces::hardLinksKeepTheirContents()
{
    const QString canary = base + u"/precious/canary-0"_s;
    QDir().mkpath(base + u"/work/a"_s);
    QVERIFY(::link(QFile::encodeName(canary).constData(),
                   QFile::encodeName(base + u"/work/a/hard"_s).constData())
            == 0);
    QVERIFY(deleteFolder(base + u"/work/a"_s, {base + u"/work"_s, {}}, Deletion::Permanent).isOk());
    QCOMPARE(canariesLeft(), canaries);
    QFile file(canary);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("x"));
}

void tst_DeletionRaces::namesThatDifferInCaseAreOthers()
{
    fill(base + u"/work/rtl"_s, 1);
    QVERIFY2(!QFileInfo::exists(base + u"/work/RTL"_s),
             "the folder for temporary files must tell case apart");
    fill(base + u"/work/Rtl"_s, 1);
    QVERIFY(
        !deleteFolder(base + u"/work/RTL"_s, {base + u"/work"_s, {}}, Deletion::Permanent).isOk());
    QVERIFY(
        deleteFolder(base + u"/work/rtl"_s, {base + u"/work"_s, {}}, Deletion::Permanent).isOk());
    QVERIFY(QFileInfo::exists(base + u"/work/Rtl/canary-0"_s));
    // A limit in another spelling is another folder.
    QVERIFY(
        !deleteFolder(base + u"/work/Rtl"_s, {base + u"/WORK"_s, {}}, Deletion::Permanent).isOk());
}

GUILESS_TEST_CLASS(tst_DeletionRaces)
#include "tst_DeletionRaces.moc"
