#include "tests/TestClass.h"

#include <Qtilities/atomicfile.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <array>
#include <csignal>
#include <dlfcn.h>
#include <fcntl.h>
#include <functional>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::writeFileAtomically;

namespace {

// The calls of the two below, while somebody listens.
QStringList *calls = nullptr;
// What happens once when the next file comes to the disk.
std::function<void()> meanwhile;

template <typename Function>
Function *systems(const char *name)
{
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

} // namespace

// Stand in front of the system's.
extern "C" Q_DECL_EXPORT int fsync(int descriptor)
{
    struct stat status = {};
    if (calls && ::fstat(descriptor, &status) == 0) {
        calls->append(S_ISDIR(status.st_mode) ? u"fsync folder"_s
                                              : u"fsync %1 bytes"_s.arg(status.st_size));
    }
    if (const auto step = std::exchange(meanwhile, nullptr))
        step();
    return systems<int(int)>("fsync")(descriptor);
}

extern "C" Q_DECL_EXPORT int renameat(int fromFolder, const char *from, int toFolder,
                                      const char *to) noexcept
{
    if (calls)
        calls->append(u"rename"_s);
    return systems<int(int, const char *, int, const char *)>("renameat")(fromFolder, from,
                                                                          toFolder, to);
}

namespace {

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(cannot be read)");
}

void put(const QString &path, const QByteArray &content)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), content.size());
}

mode_t modeOf(const QString &path)
{
    struct stat status = {};
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 ? status.st_mode & 07777 : 0;
}

// Runs a step in a child process, which ends with the step's answer.
template <typename Step>
int inChild(Step step)
{
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(step() ? 0 : 1);
    int status = -1;
    ::waitpid(child, &status, 0);
    return status;
}

// The superuser may read and write everywhere; the child is somebody else then.
template <typename Step>
int inChildWithoutRights(Step step)
{
    return inChild([&] { return (::geteuid() != 0 || ::setuid(65534) == 0) && step(); });
}

bool isDenied(const QString &target)
{
    QString error;
    return !writeFileAtomically(target, "new").toErrorText(&error)
        && error == u"Cannot write \"%1\": Permission denied"_s.arg(target);
}

} // namespace

// Files are replaced as a whole or not at all.
class tst_AtomicFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        folder = std::make_unique<QTemporaryDir>();
        QVERIFY(folder->isValid());
    }
    void cleanup() { folder.reset(); }

    void makesAPrivateFileOnce()
    {
        const QString file = path(u"typed"_s);
        QVERIFY(Qtilities::Core::makePrivateFile(file).isOk());
        QCOMPARE(QFile::permissions(file),
                 QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser);
        QVERIFY(writeFileAtomically(file, "kept").isOk());
        QVERIFY(
            QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup));
        QVERIFY(Qtilities::Core::makePrivateFile(file).isOk());
        QCOMPARE(QFileInfo(file).size(), 4);
        QVERIFY(QFile::permissions(file).testFlag(QFile::ReadGroup));
        QCOMPARE(Qtilities::Core::makePrivateFile(path(u"none/typed"_s)).text(),
                 u"No such file or directory"_s);
    }

    void writes_data();
    void writes();
    void replacesAnOldFile();
    void keepsPermissions();
    void keepsTheGroupWhereTheFolderGivesItsOwn();
    void givesANewFileTheUsualPermissions();
    void followsLinks();
    void takesTheFolderBehindALinkForTheOneAbove();
    void followsALinkToNothing();
    void refuses_data();
    void refuses();
    void refusesAFolderThatCannotBeWritten();
    void writesIntoAFolderOfSomebodyElse();
    void tellsThatAFolderCannotBeRead();
    void refusesAFileThatMayNotBeWritten();
    void isOnDiskBeforeItTakesThePlace();
    void staysInTheFolderWhereverThatIsMoved();
    void leavesTheFoldersTimeOfAccess();
    void leavesTheOldFileWhenTheDiskIsFull();
    void removesWhatAKilledWriteLeft();
    void removesWhatKilledWritesOfAnyFileLeft();
    void leavesWhatAnotherProcessIsWriting();
    void survivesBeingKilledAtAnyTime();
    void survivesTwoWritersAtATime();

private:
    QString path(const QString &name) const { return folder->filePath(name); }
    QStringList entries() const
    {
        return QDir(folder->path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    std::unique_ptr<QTemporaryDir> folder;
};

void tst_AtomicFile::writes_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");

    QTest::newRow("write-content-1 a text") << u"a.txt"_s << QByteArray("one\ntwo\n");
    QTest::newRow("write-content-2 nothing") << u"a.txt"_s << QByteArray();
    QTest::newRow("write-content-3 zero bytes") << u"a.txt"_s << QByteArray("a\0b\0", 4);
    QTest::newRow("write-content-4 ten megabytes") << u"a.txt"_s << QByteArray(10'000'000, 'x');
    QTest::newRow("write-name-1 blanks, brackets and dollars")
        << u" [$a] \"b\".xml"_s << QByteArray("x");
    QTest::newRow("write-name-2 letters beyond ASCII")
        << u"\u00fc\U0001F600.xml"_s << QByteArray("x");
    QTest::newRow("write-name-3 the longest name") << QString(255, u'n') << QByteArray("x");
    QTest::newRow("write-name-4 a hidden file") << u".hidden"_s << QByteArray("x");
}

void tst_AtomicFile::writes()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    QString error = u"untouched"_s;

    QVERIFY(writeFileAtomically(path(name), content).toErrorText(&error));

    QCOMPARE(error, u"untouched"_s);
    QCOMPARE(contentOf(path(name)), content);
    QCOMPARE(entries(), QStringList {name});
}

void tst_AtomicFile::replacesAnOldFile()
{
    put(path(u"a.txt"_s), "something old and longer");

    QVERIFY(writeFileAtomically(path(u"a.txt"_s), "new").isOk());

    QCOMPARE(contentOf(path(u"a.txt"_s)), "new");
    QCOMPARE(entries(), QStringList {u"a.txt"_s});
}

void tst_AtomicFile::keepsPermissions()
{
    put(path(u"a.txt"_s), "old");
    for (const mode_t mode : {mode_t(0751), mode_t(02750), mode_t(01600)}) {
        QCOMPARE(::chmod(QFile::encodeName(path(u"a.txt"_s)).constData(), mode), 0);

        QVERIFY(writeFileAtomically(path(u"a.txt"_s), "new").isOk());

        QCOMPARE(modeOf(path(u"a.txt"_s)), mode);
    }
}

// Any group that this user may give files to; with none but its own nothing differs.
void tst_AtomicFile::keepsTheGroupWhereTheFolderGivesItsOwn()
{
    put(path(u"a.txt"_s), "old");
    const gid_t own = ::getegid();
    std::array<gid_t, 64> groups {};
    const int count = ::getgroups(int(groups.size()), groups.data());
    gid_t other = ::geteuid() == 0 ? 65534 : own;
    for (int i = 0; i < count; ++i)
        other = groups[size_t(i)] != own ? groups[size_t(i)] : other;
    const QByteArray encoded = QFile::encodeName(folder->path());
    QCOMPARE(::chown(encoded.constData(), uid_t(-1), other), 0);
    QCOMPARE(::chmod(encoded.constData(), 02755), 0);

    QVERIFY(writeFileAtomically(path(u"a.txt"_s), "new").isOk());

    struct stat status = {};
    QCOMPARE(::stat(QFile::encodeName(path(u"a.txt"_s)).constData(), &status), 0);
    QCOMPARE(status.st_gid, own);
}

void tst_AtomicFile::givesANewFileTheUsualPermissions()
{
    const mode_t mask = ::umask(027);
    const bool written = writeFileAtomically(path(u"a.txt"_s), "new").isOk();
    ::umask(mask);

    QVERIFY(written);
    QCOMPARE(modeOf(path(u"a.txt"_s)), mode_t(0640));
}

void tst_AtomicFile::followsLinks()
{
    QVERIFY(QDir(folder->path()).mkdir(u"real"_s));
    put(path(u"real/a.txt"_s), "old");
    QVERIFY(QFile::link(u"real/a.txt"_s, path(u"first"_s)));
    QVERIFY(QFile::link(u"first"_s, path(u"second"_s)));

    QVERIFY(writeFileAtomically(path(u"second"_s), "new").isOk());

    QVERIFY(QFileInfo(path(u"second"_s)).isSymLink());
    QVERIFY(!QFileInfo(path(u"real/a.txt"_s)).isSymLink());
    QCOMPARE(contentOf(path(u"real/a.txt"_s)), "new");
    QCOMPARE(entries(), QStringList({u"first"_s, u"real"_s, u"second"_s}));
}

void tst_AtomicFile::takesTheFolderBehindALinkForTheOneAbove()
{
    QVERIFY(QDir(folder->path()).mkpath(u"real/deep"_s));
    QVERIFY(QFile::link(u"real/deep"_s, path(u"link"_s)));
    put(path(u"real/a.txt"_s), "old");

    QVERIFY(writeFileAtomically(path(u"link/../a.txt"_s), "new").isOk());

    QCOMPARE(contentOf(path(u"real/a.txt"_s)), "new");
    QCOMPARE(entries(), QStringList({u"link"_s, u"real"_s}));
}

void tst_AtomicFile::followsALinkToNothing()
{
    QVERIFY(QFile::link(u"later.txt"_s, path(u"link"_s)));

    QVERIFY(writeFileAtomically(path(u"link"_s), "new").isOk());

    QVERIFY(QFileInfo(path(u"link"_s)).isSymLink());
    QCOMPARE(contentOf(path(u"later.txt"_s)), "new");
}

void tst_AtomicFile::refuses_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("error");

    QTest::newRow("refuse-name-1 a folder")
        << u"%1/folder"_s << u"Cannot write \"%1\": it is a folder"_s;
    QTest::newRow("refuse-name-2 a pipe")
        << u"%1/pipe"_s << u"Cannot write \"%1\": it is not a file"_s;
    QTest::newRow("refuse-name-3 in a folder that is not there")
        << u"%1/none/a.txt"_s << u"Cannot write \"%1\": No such file or directory"_s;
    QTest::newRow("refuse-name-4 below a file")
        << u"%1/file/a.txt"_s << u"Cannot write \"%1\": Not a directory"_s;
    QTest::newRow("refuse-name-5 a name that is too long")
        << u"%1/"_s + QString(256, u'n') << u"Cannot write \"%1\": File name too long"_s;
    QTest::newRow("refuse-name-6 no name")
        << u""_s << u"Cannot write \"%1\": that is not the name of a file"_s;
    QTest::newRow("refuse-name-7 a zero in the name")
        << u"%1/a"_s + QChar() + u"b"_s << u"Cannot write \"%1\": that is not the name of a file"_s;
    QTest::newRow("refuse-name-8 a link to itself")
        << u"%1/loop"_s << u"Cannot write \"%1\": Too many levels of symbolic links"_s;
}

void tst_AtomicFile::refuses()
{
    QFETCH(QString, name);
    QFETCH(QString, error);
    QVERIFY(QDir(folder->path()).mkdir(u"folder"_s));
    QCOMPARE(::mkfifo(QFile::encodeName(path(u"pipe"_s)).constData(), 0600), 0);
    put(path(u"file"_s), "content");
    QVERIFY(QFile::link(u"loop"_s, path(u"loop"_s)));
    const QStringList before = entries();
    const QString target = name.replace(u"%1"_s, folder->path());
    QString answer;

    QVERIFY(!writeFileAtomically(target, "new").toErrorText(&answer));

    QCOMPARE(answer, error.replace(u"%1"_s, target));
    QCOMPARE(entries(), before);
    QVERIFY(!writeFileAtomically(target, "new").isOk());
}

void tst_AtomicFile::refusesAFolderThatCannotBeWritten()
{
    put(path(u"a.txt"_s), "old");
    const QByteArray encoded = QFile::encodeName(folder->path());
    QCOMPARE(::chmod(encoded.constData(), 0555), 0);

    const int status = inChildWithoutRights([&] { return isDenied(path(u"a.txt"_s)); });
    QCOMPARE(::chmod(encoded.constData(), 0755), 0);

    QCOMPARE(status, 0);
    QCOMPARE(contentOf(path(u"a.txt"_s)), "old");
    QCOMPARE(entries(), QStringList {u"a.txt"_s});
}

void tst_AtomicFile::writesIntoAFolderOfSomebodyElse()
{
    put(path(u".a.txt.1f.part"_s), "half");
    for (const char *name : {"", "/.a.txt.1f.part"})
        QCOMPARE(::chmod((QFile::encodeName(folder->path()) + name).constData(), 0777), 0);

    const int status =
        inChildWithoutRights([&] { return writeFileAtomically(path(u"a.txt"_s), "new").isOk(); });

    QCOMPARE(status, 0);
    QCOMPARE(contentOf(path(u"a.txt"_s)), "new");
    QCOMPARE(entries(), QStringList {u"a.txt"_s});
}

// The file is there, but nobody can tell the folder to go to the disk.
void tst_AtomicFile::tellsThatAFolderCannotBeRead()
{
    const QByteArray encoded = QFile::encodeName(folder->path());
    QCOMPARE(::chmod(encoded.constData(), 0333), 0);

    const int status = inChildWithoutRights([&] { return isDenied(path(u"a.txt"_s)); });
    QCOMPARE(::chmod(encoded.constData(), 0755), 0);

    QCOMPARE(status, 0);
    QCOMPARE(contentOf(path(u"a.txt"_s)), "new");
    QCOMPARE(entries(), QStringList {u"a.txt"_s});
}

void tst_AtomicFile::refusesAFileThatMayNotBeWritten()
{
    put(path(u"a.txt"_s), "old");
    QCOMPARE(::chmod(QFile::encodeName(path(u"a.txt"_s)).constData(), 0444), 0);
    QCOMPARE(::chmod(QFile::encodeName(folder->path()).constData(), 0777), 0);

    const int status = inChildWithoutRights([&] { return isDenied(path(u"a.txt"_s)); });

    QCOMPARE(status, 0);
    QCOMPARE(contentOf(path(u"a.txt"_s)), "old");
    QCOMPARE(entries(), QStringList {u"a.txt"_s});
}

// Otherwise a crash of the machine could leave a name without its content.
void tst_AtomicFile::isOnDiskBeforeItTakesThePlace()
{
    put(path(u"a.txt"_s), "old");
    QStringList made;
    calls = &made;
    const bool written = writeFileAtomically(path(u"a.txt"_s), "newer").isOk();
    calls = nullptr;

    QVERIFY(written);
    QCOMPARE(made, QStringList({u"fsync 5 bytes"_s, u"rename"_s, u"fsync folder"_s}));
}

// Somebody moves the folder while the file is written, and puts another in its place.
void tst_AtomicFile::staysInTheFolderWhereverThatIsMoved()
{
    QDir here(folder->path());
    QVERIFY(here.mkdir(u"a"_s));
    put(path(u"a/file"_s), "old");
    bool isMoved = false;
    meanwhile = [&] {
        isMoved = here.rename(u"a"_s, u"b"_s) && here.mkdir(u"a"_s);
        put(path(u"a/file"_s), "somebody's");
    };

    QVERIFY(writeFileAtomically(path(u"a/file"_s), "new").isOk());

    QVERIFY(isMoved);
    QCOMPARE(contentOf(path(u"a/file"_s)), "somebody's");
    QCOMPARE(contentOf(path(u"b/file"_s)), "new");
    for (const auto &name : {u"a"_s, u"b"_s})
        QCOMPARE(QDir(path(name)).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
                 QStringList {u"file"_s});
}

// To look for leftovers is not to read the folder.
void tst_AtomicFile::leavesTheFoldersTimeOfAccess()
{
    const timespec times[] = {{1'000'000'000, 0}, {1'000'000'000, UTIME_OMIT}};
    const QByteArray encoded = QFile::encodeName(folder->path());
    QCOMPARE(::utimensat(AT_FDCWD, encoded.constData(), times, 0), 0);

    QVERIFY(writeFileAtomically(path(u"a.txt"_s), "new").isOk());

    struct stat status = {};
    QCOMPARE(::stat(encoded.constData(), &status), 0);
    QCOMPARE(status.st_atim.tv_sec, 1'000'000'000);
}

void tst_AtomicFile::leavesTheOldFileWhenTheDiskIsFull()
{
    put(path(u"a.txt"_s), "old");

    // A limit on the size of files fails a write in its middle, as a full disk does.
    const int status = inChild([&] {
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit = {5000, 5000};
        if (::setrlimit(RLIMIT_FSIZE, &limit) != 0)
            return false;
        QString error;
        return !writeFileAtomically(path(u"a.txt"_s), QByteArray(10'000, 'x')).toErrorText(&error)
            && error == u"Cannot write \"%1\": File too large"_s.arg(path(u"a.txt"_s));
    });

    QCOMPARE(status, 0);
    QCOMPARE(contentOf(path(u"a.txt"_s)), "old");
    QCOMPARE(entries(), QStringList {u"a.txt"_s});
}

void tst_AtomicFile::removesWhatAKilledWriteLeft()
{
    put(path(u".a.txt.1f.part"_s), "half");
    put(path(u".a.txt.2e.part"_s), "");
    put(path(u".b.txt.1f.part"_s), "another file's");
    put(path(u"a.txt.part"_s), "somebody's own");
    QCOMPARE(::mkfifo(QFile::encodeName(path(u".a.txt.3d.part"_s)).constData(), 0600), 0);

    QVERIFY(writeFileAtomically(path(u"a.txt"_s), "new").isOk());

    QCOMPARE(entries(),
             QStringList({u".a.txt.3d.part"_s, u".b.txt.1f.part"_s, u"a.txt"_s, u"a.txt.part"_s}));
}

void tst_AtomicFile::removesWhatKilledWritesOfAnyFileLeft()
{
    put(path(u".a.txt.1f.part"_s), "half");
    put(path(u".b.txt.1f.part"_s), "being written");
    put(path(u".c.txt"_s), "somebody's own");
    put(path(u"d.part"_s), "somebody's own");
    const int other = ::open(QFile::encodeName(path(u".b.txt.1f.part"_s)).constData(), O_WRONLY);
    QVERIFY(other >= 0);
    QCOMPARE(::flock(other, LOCK_EX), 0);

    Qtilities::Core::removeUnfinishedFiles(path(u""_s));
    ::close(other);

    QCOMPARE(entries(), QStringList({u".b.txt.1f.part"_s, u".c.txt"_s, u"d.part"_s}));
}

void tst_AtomicFile::leavesWhatAnotherProcessIsWriting()
{
    put(path(u".a.txt.1f.part"_s), "half");
    const int other = ::open(QFile::encodeName(path(u".a.txt.1f.part"_s)).constData(), O_WRONLY);
    QVERIFY(other >= 0);
    QCOMPARE(::flock(other, LOCK_EX), 0);

    const bool written = writeFileAtomically(path(u"a.txt"_s), "new").isOk();
    ::close(other);

    QVERIFY(written);
    QCOMPARE(entries(), QStringList({u".a.txt.1f.part"_s, u"a.txt"_s}));
}

void tst_AtomicFile::survivesBeingKilledAtAnyTime()
{
    const QByteArray old(300'000, 'o');
    const QByteArray fresh(400'000, 'n');
    put(path(u"a.txt"_s), old);

    for (int round = 0; round < 30; ++round) {
        const pid_t child = ::fork();
        if (child == 0) {
            for (bool turn = false;; turn = !turn)
                static_cast<void>(writeFileAtomically(path(u"a.txt"_s), turn ? old : fresh));
        }
        QTest::qSleep(1 + round % 7);
        ::kill(child, SIGKILL);
        int status = 0;
        ::waitpid(child, &status, 0);
        const QByteArray content = contentOf(path(u"a.txt"_s));
        QVERIFY(content == old || content == fresh);
    }

    QVERIFY(writeFileAtomically(path(u"a.txt"_s), "end").isOk());
    QCOMPARE(entries(), QStringList {u"a.txt"_s});
}

void tst_AtomicFile::survivesTwoWritersAtATime()
{
    QList<pid_t> writers;
    for (int writer = 0; writer < 2; ++writer) {
        const pid_t child = ::fork();
        if (child == 0) {
            bool done = true;
            for (int round = 0; round < 100; ++round)
                done = writeFileAtomically(path(u"a.txt"_s), QByteArray(5000, char('0' + writer)))
                           .isOk()
                    && done;
            ::_exit(done ? 0 : 1);
        }
        writers.append(child);
    }
    for (const pid_t writer : writers) {
        int status = -1;
        ::waitpid(writer, &status, 0);
        QCOMPARE(status, 0);
    }

    const QByteArray content = contentOf(path(u"a.txt"_s));
    QVERIFY(content == QByteArray(5000, '0') || content == QByteArray(5000, '1'));
    QCOMPARE(entries(), QStringList {u"a.txt"_s});
}

GUILESS_TEST_CLASS(tst_AtomicFile)
#include "tst_AtomicFile.moc"
