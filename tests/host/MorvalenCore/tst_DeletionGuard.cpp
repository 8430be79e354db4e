#include "disk/removal.h"
#include "tests/needed.h"
#include "tests/TestClass.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTest>

#include <atomic>
#include <cerrno>
#include <cstddef>
#include <dlfcn.h>
#include <fcntl.h>
#include <functional>
#include <iterator>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <pwd.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;
using namespace MorvalenCore;

namespace {

// What happens just before an entry of a folder is unlinked.
std::function<void(int folder, const char *name)> beforeUnlink;
// What happens just after that was tried.
std::function<void(int folder, const char *name)> afterUnlink;

} // namespace

// Stands in front of the system's.
extern "C" int unlinkat(int folder, const char *name, int flags) noexcept
{
    static const auto system =
        reinterpret_cast<int (*)(int, const char *, int)>(dlsym(RTLD_NEXT, "unlinkat"));
    if (beforeUnlink)
        beforeUnlink(folder, name);
    const int result = system(folder, name, flags);
    const int reason = errno;
    if (afterUnlink)
        afterUnlink(folder, name);
    errno = reason;
    return result;
}

namespace {

void write(const QString &file)
{
    QDir().mkpath(QFileInfo(file).path());
    QFile out(file);
    if (!out.open(QIODevice::WriteOnly) || out.write("content") != 7)
        qFatal("cannot write %s", qPrintable(file));
}

bool exists(const QString &path) { return QFileInfo::exists(path); }

// Folders beside a mount.
constexpr int besides = 20;

// Runs a step in a child process, which ends with the step's answer.
template <typename Step>
int inChild(Step step)
{
    const pid_t child = fork();
    if (child == 0)
        _exit(step());
    int status = -1;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// Mounts a folder at a second place, for this process only; without a folder a file system of its
// own.
bool mountPrivately(const QString &folder, const QString &place)
{
    const bool alone = unshare(CLONE_NEWNS) == 0 || unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0;
    if (!alone || mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0)
        return false;
    const QByteArray where = QFile::encodeName(place);
    return folder.isEmpty()
        ? mount("tmpfs", where.constData(), "tmpfs", 0, nullptr) == 0
        : mount(QFile::encodeName(folder).constData(), where.constData(), nullptr, MS_BIND, nullptr)
            == 0;
}

// From now on this process and its children have a system that does not tell mount points, as Linux
// before 5.8. Only what is safe behind a fork.
void becomeOldSystem()
{
    sock_filter filter[] = {BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
                            BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_statx, 0, 1),
                            BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | ENOSYS),
                            BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW)};
    const sock_fprog program {std::size(filter), filter};
    prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    if (prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) != 0)
        _exit(99);
    struct statx here = {};
    if (statx(AT_FDCWD, "/", 0, 0, &here) == 0
        && (here.stx_attributes_mask & STATX_ATTR_MOUNT_ROOT) != 0)
        _exit(98);
}

} // namespace

// What stands before every deletion, and the deletions themselves.
class tst_DeletionGuard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { QVERIFY(QDir(base).removeRecursively()); }

    void refuses_data();
    void refuses();
    void refusesTheHomeFolderOfTheEnvironment();
    void refusesTheHomeFolderOfTheSystem();
    void refusesTheCurrentFolderAndThoseAboveIt();
    void refusesWhatIsKeptUnderAnotherSpelling();
    void refusesWhenTheLimitIsNoFolder();
    void deletesAFolderWithAllThatIsInIt();
    void deletesLinksButNotWhatTheyPointAt();
    void takesWhatVanishesMeanwhileForDeleted();
    void stopsWhereAFolderVanishesMeanwhile();
    void stopsWhereItMayNotDelete();
    void deletesDeepFoldersAndRefusesTooDeepOnes();
    void deletesNamesThatAreNotText();
    void deletesOneFileOnly_data();
    void deletesOneFileOnly();
    void deletesAnEmptyFolderOnly();
    void entersNoLinkThatTookTheFoldersPlace();
    void neverFollowsALinkThatIsSwappedIn();
    void neverLeavesTheTreeWhenAFolderAboveIsSwapped();
    void deletesNothingOfAMount_data();
    void deletesNothingOfAMount();
    void deletesWhatIsNoMountOnAnOldSystem();

private:
    QString in(const QString &name) const { return base + u'/' + name; }

    QTemporaryDir outer;
    QString base;
};

void tst_DeletionGuard::init()
{
    base = QFileInfo(outer.path()).canonicalFilePath() + u"/base"_s;
    QVERIFY(QDir().mkpath(in(u"area"_s)));
}

void tst_DeletionGuard::refuses_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("refusal");
    QTest::newRow("guard-text-1 nothing") << QString() << u"An empty path is not deleted"_s;
    QTest::newRow("guard-text-2 a zero") << QString(u"BASE/area/a"_s + QChar(0) + u"b"_s)
                                         << u"A path with a zero character is not deleted"_s;
    QTest::newRow("guard-text-3 a relative path")
        << u"area"_s << u"\"area\" is not deleted because it is not an absolute path"_s;
    QTest::newRow("guard-text-4 the current folder")
        << u"."_s << u"\".\" is not deleted because it is not an absolute path"_s;
    QTest::newRow("guard-disk-1 missing")
        << u"BASE/area/missing"_s << u"\"BASE/area/missing\" is not on disk"_s;
    QTest::newRow("guard-disk-2 a link to a folder")
        << u"BASE/area/link"_s << u"\"BASE/area/link\" is not deleted because it is a link"_s;
    QTest::newRow("guard-disk-3 a link to nothing")
        << u"BASE/area/torn"_s << u"\"BASE/area/torn\" is not deleted because it is a link"_s;
    QTest::newRow("guard-disk-4 a link to itself")
        << u"BASE/area/loop"_s << u"\"BASE/area/loop\" is not deleted because it is a link"_s;
    QTest::newRow("guard-disk-5 behind a link")
        << u"BASE/area/link/x"_s
        << u"\"BASE/area/link/x\" is not deleted because it is not a canonical path"_s;
    QTest::newRow("guard-disk-6 a slash at the end")
        << u"BASE/area/folder/"_s
        << u"\"BASE/area/folder/\" is not deleted because it is not a canonical path"_s;
    QTest::newRow("guard-disk-7 a folder up")
        << u"BASE/area/folder/.."_s
        << u"\"BASE/area/folder/..\" is not deleted because it is not a canonical path"_s;
    QTest::newRow("guard-place-1 the root")
        << u"/"_s << u"\"/\" is not deleted because it is or holds \"/\""_s;
    QTest::newRow("guard-place-2 the limit itself")
        << u"BASE/area"_s
        << u"\"BASE/area\" is not deleted because it is or holds \"BASE/area/kept/design\""_s;
    QTest::newRow("guard-place-3 beside the limit")
        << u"BASE/other"_s
        << u"\"BASE/other\" is not deleted because it does not lie below \"BASE/area\""_s;
    QTest::newRow("guard-place-4 a name that begins like the limit")
        << u"BASE/areas"_s
        << u"\"BASE/areas\" is not deleted because it does not lie below \"BASE/area\""_s;
    QTest::newRow("guard-kept-1 what is kept")
        << u"BASE/area/kept/design"_s
        << u"\"BASE/area/kept/design\" is not deleted because it is or holds \"BASE/area/kept/design\""_s;
    QTest::newRow("guard-kept-2 a folder above it")
        << u"BASE/area/kept"_s
        << u"\"BASE/area/kept\" is not deleted because it is or holds \"BASE/area/kept/design\""_s;
    QTest::newRow("guard-accepted-1 a folder") << u"BASE/area/folder"_s << QString();
    QTest::newRow("guard-accepted-2 a folder below what is kept")
        << u"BASE/area/kept/design/part"_s << QString();
    QTest::newRow("guard-accepted-3 beside what is kept") << u"BASE/area/kept/other"_s << QString();
}

void tst_DeletionGuard::refuses()
{
    QFETCH(QString, path);
    QFETCH(QString, refusal);
    for (const QString &file :
         {u"area/folder/f"_s, u"area/kept/design/part/f"_s, u"area/kept/other/f"_s, u"other/f"_s,
          u"areas/f"_s, u"outside/x/f"_s})
        write(in(file));
    QVERIFY(QFile::link(in(u"outside"_s), in(u"area/link"_s)));
    QVERIFY(QFile::link(in(u"nowhere"_s), in(u"area/torn"_s)));
    QVERIFY(QFile::link(in(u"area/loop"_s), in(u"area/loop"_s)));

    const DeletionLimits limits {in(u"area"_s), {in(u"area/kept/design"_s)}};
    QCOMPARE(checkDeletion(QString(path).replace(u"BASE"_s, base), limits).text(),
             QString(refusal).replace(u"BASE"_s, base));
    QString error;
    if (!refusal.isEmpty()) {
        QVERIFY(!deleteFolder(QString(path).replace(u"BASE"_s, base), limits, Deletion::Permanent)
                     .toErrorText(&error));
        QCOMPARE(error, QString(refusal).replace(u"BASE"_s, base));
        QVERIFY(exists(in(u"outside/x/f"_s)));
    }
}

void tst_DeletionGuard::refusesTheHomeFolderOfTheEnvironment()
{
    const QByteArray home = qgetenv("HOME");
    const auto restore = qScopeGuard([&] { qputenv("HOME", home); });
    QVERIFY(QDir().mkpath(in(u"area/home/me"_s)));
    qputenv("HOME", QFile::encodeName(in(u"area/home/me"_s)));
    QVERIFY(!checkDeletion(in(u"area/home/me"_s), {in(u"area"_s), {}}).isOk());
    QVERIFY(!checkDeletion(in(u"area/home"_s), {in(u"area"_s), {}}).isOk());
    // Deeper down the home folder is like any other.
    QVERIFY(QDir().mkpath(in(u"area/home/me/x"_s)));
    QCOMPARE(checkDeletion(in(u"area/home/me/x"_s), {in(u"area"_s), {}}).text(), QString());
}

// HOME may be anywhere; what the system calls the user's home stays kept.
void tst_DeletionGuard::refusesTheHomeFolderOfTheSystem()
{
    const passwd *user = getpwuid(getuid());
    const QString home =
        user ? QFileInfo(QFile::decodeName(user->pw_dir)).canonicalFilePath() : QString();
    // Some users of the system have none, or the root.
    if (home.isEmpty() || home == u"/") {
        QVERIFY(!checkDeletion(u"/"_s, {u"/"_s, {}}).isOk());
        return;
    }
    const QByteArray usual = qgetenv("HOME");
    const auto restore = qScopeGuard([&] { qputenv("HOME", usual); });
    QVERIFY(QDir().mkpath(in(u"elsewhere"_s)));
    qputenv("HOME", QFile::encodeName(in(u"elsewhere"_s)));
    QCOMPARE(checkDeletion(home, {QFileInfo(home).path(), {}}).text(),
             u"\"%1\" is not deleted because it is or holds \"%2\""_s.arg(
                 home, QFile::decodeName(user->pw_dir)));
}

void tst_DeletionGuard::refusesTheCurrentFolderAndThoseAboveIt()
{
    const QString before = QDir::currentPath();
    const auto restore = qScopeGuard([&] { QDir::setCurrent(before); });
    QVERIFY(QDir().mkpath(in(u"area/a/b"_s)));
    QVERIFY(QDir::setCurrent(in(u"area/a/b"_s)));
    QVERIFY(!checkDeletion(in(u"area/a/b"_s), {in(u"area"_s), {}}).isOk());
    QVERIFY(!checkDeletion(in(u"area/a"_s), {in(u"area"_s), {}}).isOk());
}

void tst_DeletionGuard::refusesWhatIsKeptUnderAnotherSpelling()
{
    QVERIFY(QDir().mkpath(in(u"area/design/part"_s)));
    QVERIFY(QFile::link(in(u"area/design"_s), in(u"alias"_s)));
    for (const QString &kept :
         {u"alias"_s, u"alias/part/.."_s, u"area//design/"_s, u"alias/not/there/yet"_s})
        QVERIFY2(!checkDeletion(in(u"area/design"_s), {in(u"area"_s), {in(kept)}}).isOk(),
                 qPrintable(kept));
}

void tst_DeletionGuard::refusesWhenTheLimitIsNoFolder()
{
    write(in(u"area/f"_s));
    for (const QString &below : {QString(), in(u"missing"_s), u"/"_s})
        QVERIFY2(!checkDeletion(in(u"area/f"_s), {below, {}}).isOk(), qPrintable(below));
}

void tst_DeletionGuard::deletesAFolderWithAllThatIsInIt()
{
    for (const QString &file : {u"area/d/a"_s, u"area/d/.b"_s, u"area/d/c/d/e"_s, u"area/stays"_s})
        write(in(file));
    QVERIFY(QDir().mkpath(in(u"area/d/empty"_s)));
    QString error;
    QVERIFY2(
        deleteFolder(in(u"area/d"_s), {in(u"area"_s), {}}, Deletion::Permanent).toErrorText(&error),
        qPrintable(error));
    QVERIFY(!exists(in(u"area/d"_s)));
    QVERIFY(exists(in(u"area/stays"_s)));
}

void tst_DeletionGuard::deletesLinksButNotWhatTheyPointAt()
{
    write(in(u"outside/f"_s));
    write(in(u"area/d/x/f"_s));
    QVERIFY(QFile::link(in(u"outside"_s), in(u"area/d/link"_s)));
    QVERIFY(QFile::link(in(u"outside/f"_s), in(u"area/d/x/link"_s)));
    QVERIFY(QFile::link(in(u"area/d"_s), in(u"area/d/x/loop"_s)));
    QVERIFY(QFile::link(u"/"_s, in(u"area/d/root"_s)));
    QString error;
    QVERIFY2(
        deleteFolder(in(u"area/d"_s), {in(u"area"_s), {}}, Deletion::Permanent).toErrorText(&error),
        qPrintable(error));
    QVERIFY(!exists(in(u"area/d"_s)));
    QVERIFY(exists(in(u"outside/f"_s)));
}

// Another process deletes an entry between the listing and the deletion.
void tst_DeletionGuard::takesWhatVanishesMeanwhileForDeleted()
{
    for (const QString &file : {u"area/d/a"_s, u"area/d/b"_s, u"area/d/sub/c"_s})
        write(in(file));
    int vanished = 0;
    const auto restore = qScopeGuard([] { beforeUnlink = {}; });
    beforeUnlink = [&](int folder, const char *name) {
        struct stat status;
        if (fstatat(folder, name, &status, AT_SYMLINK_NOFOLLOW) == 0 && S_ISREG(status.st_mode)) {
            const QByteArray path =
                "/proc/self/fd/" + QByteArray::number(folder) + '/' + QByteArray(name);
            vanished += unlink(path.constData()) == 0;
        }
    };
    QString error;
    QVERIFY2(
        deleteFolder(in(u"area/d"_s), {in(u"area"_s), {}}, Deletion::Permanent).toErrorText(&error),
        qPrintable(error));
    QCOMPARE(vanished, 3);
    QVERIFY(!exists(in(u"area/d"_s)));
}

// What was to be deleted itself is not there any more: nobody is told that it was deleted.
void tst_DeletionGuard::stopsWhereAFolderVanishesMeanwhile()
{
    write(in(u"area/d"_s));
    const auto restore = qScopeGuard([] { beforeUnlink = {}; });
    beforeUnlink = [&](int, const char *) {
        unlink(QFile::encodeName(in(u"area/d"_s)).constData());
    };
    QString error;
    QVERIFY(
        !deleteFile(in(u"area/d"_s), {in(u"area"_s), {}}, Deletion::Permanent).toErrorText(&error));
    QCOMPARE(error,
             u"\"%1\" could not be deleted: No such file or directory"_s.arg(in(u"area/d"_s)));
}

void tst_DeletionGuard::stopsWhereItMayNotDelete()
{
    if (geteuid() == 0) {
        // Root may delete everywhere, so another reason must do: a folder that is no folder.
        write(in(u"area/file"_s));
        QString error;
        QVERIFY(!deleteFolder(in(u"area/file"_s), {in(u"area"_s), {}}, Deletion::Permanent)
                     .toErrorText(&error));
        QCOMPARE(error,
                 u"\"%1\" is not deleted because it is not a folder"_s.arg(in(u"area/file"_s)));
        QVERIFY(exists(in(u"area/file"_s)));
        return;
    }
    write(in(u"area/d/locked/f"_s));
    const auto unlock = qScopeGuard([&] {
        QFile::setPermissions(in(u"area/d/locked"_s),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    });
    QFile::setPermissions(in(u"area/d/locked"_s), QFile::ReadOwner | QFile::ExeOwner);
    QString error;
    QVERIFY(!deleteFolder(in(u"area/d"_s), {in(u"area"_s), {}}, Deletion::Permanent)
                 .toErrorText(&error));
    QCOMPARE(error,
             u"\"%1\" could not be deleted: Permission denied"_s.arg(in(u"area/d/locked/f"_s)));
    QVERIFY(exists(in(u"area/d/locked/f"_s)));
}

void tst_DeletionGuard::deletesDeepFoldersAndRefusesTooDeepOnes()
{
    const auto deep = [this](int levels) {
        QString path = in(u"area/deep"_s);
        for (int i = 1; i < levels; ++i)
            path += u"/d"_s;
        return path;
    };
    QString error;
    QVERIFY(QDir().mkpath(deep(256)));
    QVERIFY2(deleteFolder(in(u"area/deep"_s), {in(u"area"_s), {}}, Deletion::Permanent)
                 .toErrorText(&error),
             qPrintable(error));
    QVERIFY(QDir().mkpath(deep(257)));
    QVERIFY(!deleteFolder(in(u"area/deep"_s), {in(u"area"_s), {}}, Deletion::Permanent)
                 .toErrorText(&error));
    QCOMPARE(error, u"\"%1\" is not deleted because it lies too deep"_s.arg(deep(257)));
}

void tst_DeletionGuard::deletesNamesThatAreNotText()
{
    QVERIFY(QDir().mkpath(in(u"area/d"_s)));
    const QByteArray odd = QFile::encodeName(in(u"area/d"_s)) + "/\xff\xfe\n";
    FILE *file = fopen(odd.constData(), "w");
    QVERIFY(file);
    fclose(file);
    QString error;
    QVERIFY2(
        deleteFolder(in(u"area/d"_s), {in(u"area"_s), {}}, Deletion::Permanent).toErrorText(&error),
        qPrintable(error));
}

void tst_DeletionGuard::deletesOneFileOnly_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("refusal");
    QTest::newRow("file-1 a file") << u"area/file"_s << QString();
    QTest::newRow("file-2 a folder")
        << u"area/folder"_s << u"\"%1\" is not deleted because it is not a regular file"_s;
    QTest::newRow("file-3 a link")
        << u"area/link"_s << u"\"%1\" is not deleted because it is a link"_s;
    QTest::newRow("file-4 a pipe")
        << u"area/pipe"_s << u"\"%1\" is not deleted because it is not a regular file"_s;
    QTest::newRow("file-5 missing") << u"area/missing"_s << u"\"%1\" is not on disk"_s;
    QTest::newRow("file-6 kept") << u"area/kept"_s
                                 << u"\"%1\" is not deleted because it is or holds \"%1\""_s;
}

void tst_DeletionGuard::deletesOneFileOnly()
{
    QFETCH(QString, name);
    QFETCH(QString, refusal);
    for (const QString &file : {u"area/file"_s, u"area/folder/f"_s, u"area/kept"_s, u"target"_s})
        write(in(file));
    QVERIFY(QFile::link(in(u"target"_s), in(u"area/link"_s)));
    QCOMPARE(mkfifo(QFile::encodeName(in(u"area/pipe"_s)).constData(), 0600), 0);

    QString error;
    const DeletionLimits limits {in(u"area"_s), {in(u"area/kept"_s)}};
    QCOMPARE(deleteFile(in(name), limits, Deletion::Permanent).toErrorText(&error),
             refusal.isEmpty());
    QCOMPARE(error, QString(refusal).replace(u"%1"_s, in(name)));
    QCOMPARE(exists(in(u"area/file"_s)), name != u"area/file"_s);
    for (const QString &file : {u"area/folder/f"_s, u"area/kept"_s, u"target"_s, u"area/link"_s})
        QVERIFY(exists(in(file)));
}

void tst_DeletionGuard::deletesAnEmptyFolderOnly()
{
    write(in(u"area/full/f"_s));
    QVERIFY(QDir().mkpath(in(u"area/empty"_s)));
    const DeletionLimits limits {in(u"area"_s), {}};
    QString error;
    QVERIFY(deleteEmptyFolder(in(u"area/empty"_s), limits).toErrorText(&error));
    QVERIFY(!deleteEmptyFolder(in(u"area/full"_s), limits).toErrorText(&error));
    QCOMPARE(error, u"\"%1\" could not be deleted: Directory not empty"_s.arg(in(u"area/full"_s)));
}

// The folder was found to be one, and is a link by the time that it is opened.
void tst_DeletionGuard::entersNoLinkThatTookTheFoldersPlace()
{
    write(in(u"outside/precious"_s));
    write(in(u"area/d/sub/f"_s));
    QVERIFY(QFile::link(in(u"outside"_s), in(u"area/link"_s)));
    const auto restore = qScopeGuard([] { afterUnlink = {}; });
    bool swapped = false;
    afterUnlink = [&](int folder, const char *name) {
        if (!swapped && qstrcmp(name, "sub") == 0)
            swapped = renameat2(folder, name, AT_FDCWD,
                                QFile::encodeName(in(u"area/link"_s)).constData(), RENAME_EXCHANGE)
                == 0;
    };
    QString error;
    QVERIFY(!deleteFolder(in(u"area/d"_s), {in(u"area"_s), {}}, Deletion::Permanent)
                 .toErrorText(&error));
    QVERIFY(swapped);
    QVERIFY(exists(in(u"outside/precious"_s)));
    QCOMPARE(error, u"\"%1\" could not be deleted: Not a directory"_s.arg(in(u"area/d/sub"_s)));
}

// While the tree is deleted, another thread turns one of its folders into a link to the outside
// and back, as fast as it can.
void tst_DeletionGuard::neverFollowsALinkThatIsSwappedIn()
{
    write(in(u"outside/precious/f"_s));
    int deletions = 0;
    for (int round = 0; round < 15; ++round) {
        for (int i = 0; i < 20; ++i)
            write(in(u"area/d/sub%1/precious/f"_s.arg(i)));
        QVERIFY(QFile::link(in(u"outside"_s), in(u"area/link"_s)));
        std::atomic<bool> stop = false;
        std::thread swapper([&] {
            const QByteArray sub = QFile::encodeName(in(u"area/d/sub7"_s));
            const QByteArray link = QFile::encodeName(in(u"area/link"_s));
            while (!stop) {
                renameat2(AT_FDCWD, sub.constData(), AT_FDCWD, link.constData(), RENAME_EXCHANGE);
            }
        });
        QString error;
        deletions += deleteFolder(in(u"area/d"_s), {in(u"area"_s), {}}, Deletion::Permanent)
                         .toErrorText(&error);
        stop = true;
        swapper.join();
        QVERIFY(exists(in(u"outside/precious/f"_s)));
        QVERIFY(QDir(in(u"area"_s)).removeRecursively());
        QVERIFY(QDir().mkpath(in(u"area"_s)));
    }
    QVERIFY(deletions > 0);
}

void tst_DeletionGuard::neverLeavesTheTreeWhenAFolderAboveIsSwapped()
{
    write(in(u"outside/d/f"_s));
    for (int round = 0; round < 60; ++round) {
        write(in(u"area/above/d/f"_s));
        if (round == 0)
            QVERIFY(QFile::link(in(u"outside"_s), in(u"area/link"_s)));
        std::atomic<bool> stop = false;
        std::thread swapper([&] {
            const QByteArray above = QFile::encodeName(in(u"area/above"_s));
            const QByteArray link = QFile::encodeName(in(u"area/link"_s));
            while (!stop) {
                // There and back, so that it always ends as it began.
                for (int i = 0; i < 2; ++i) {
                    renameat2(AT_FDCWD, above.constData(), AT_FDCWD, link.constData(),
                              RENAME_EXCHANGE);
                }
            }
        });
        QString error;
        deleteFolder(in(u"area/above/d"_s), {in(u"area"_s), {}}, Deletion::Permanent)
            .toErrorText(&error);
        stop = true;
        swapper.join();
        QVERIFY(exists(in(u"outside/d/f"_s)));
    }
}

void tst_DeletionGuard::deletesNothingOfAMount_data()
{
    QTest::addColumn<bool>("oldSystem");
    QTest::addColumn<bool>("sameFileSystem");
    QTest::addColumn<QString>("doomed");
    QTest::addColumn<QString>("refused");
    for (const int kind : {0, 1, 2, 3}) {
        static constexpr const char *names[] = {
            "a file system", "a folder", "a file system, old system", "a folder, old system"};
        const bool old = kind & 2;
        const bool same = kind & 1;
        QTest::addRow("mount-1 deep in a folder, %s", names[kind])
            << old << same << u"area/d"_s << u"area/d/m"_s;
        QTest::addRow("mount-2 the folder itself, %s", names[kind])
            << old << same << u"area/d/m"_s << u"area/d/m"_s;
        QTest::addRow("mount-3 a folder in it, %s", names[kind])
            << old << same << u"area/d/m/precious"_s << u"area/d/m"_s;
        QTest::addRow("mount-4 a file in it, %s", names[kind])
            << old << same << u"area/d/m/precious/f"_s << u"area/d/m"_s;
    }
}

// A folder of the same file system, or another file system, mounted below what is deleted; only
// the child sees the mount.
void tst_DeletionGuard::deletesNothingOfAMount()
{
    QFETCH(const bool, oldSystem);
    QFETCH(const bool, sameFileSystem);
    QFETCH(const QString, doomed);
    QFETCH(const QString, refused);
    write(in(u"outside/precious/f"_s));
    QVERIFY(QDir().mkpath(in(u"area/d/m"_s)));
    // Whatever order they are met in, some stand before the mount.
    for (int i = 0; i < besides; ++i)
        write(in(u"area/d/beside%1/f"_s.arg(i)));
    constexpr int notAllowed = 2;
    const int status = inChild([&] {
        if (!mountPrivately(sameFileSystem ? in(u"outside"_s) : QString(), in(u"area/d/m"_s)))
            return notAllowed;
        if (!sameFileSystem)
            write(in(u"area/d/m/precious/f"_s));
        if (oldSystem)
            becomeOldSystem();
        const DeletionLimits limits {in(u"area"_s), {}};
        const Qtilities::Core::Status deleted = QFileInfo(in(doomed)).isDir()
            ? deleteFolder(in(doomed), limits, Deletion::Permanent)
            : deleteFile(in(doomed), limits, Deletion::Permanent);
        const QString expected =
            u"\"%1\" is not deleted because it is a mount point"_s.arg(in(refused));
        if (deleted.text() != expected)
            qWarning("%s", qPrintable(deleted.text()));
        return int(deleted.isOk() || deleted.text() != expected
                   || !exists(in(u"area/d/m/precious/f"_s)));
    });
    QVERIFY(exists(in(u"outside/precious/f"_s)));
    NEEDS_MOUNTS(status != notAllowed);
    QCOMPARE(status, 0);
    for (int i = 0; i < besides; ++i)
        QVERIFY(exists(in(u"area/d/beside%1/f"_s.arg(i))));
}

void tst_DeletionGuard::deletesWhatIsNoMountOnAnOldSystem()
{
    write(in(u"area/d/e/f"_s));
    write(in(u"area/d/f"_s));
    QCOMPARE(
        inChild([&] {
            becomeOldSystem();
            return int(
                !deleteFolder(in(u"area/d"_s), {in(u"area"_s), {}}, Deletion::Permanent).isOk());
        }),
        0);
    QVERIFY(!exists(in(u"area/d"_s)));
    QVERIFY(exists(in(u"area"_s)));
}

GUILESS_TEST_CLASS(tst_DeletionGuard)
#include "tst_DeletionGuard.moc"
