#include "tests/host/MorvalenCore/GitRepository.h"
#include "tests/host/MorvalenCore/SessionFixture.h"
#include "tests/TestClass.h"
#include "vcs/GitHistory.h"
#include "vcs/gitlibrary.h"

#include <QTest>

#include <optional>
#include <sys/stat.h>
#include <thread>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::AbstractDesignLinkedItem;
using MorvalenCore::GitHistory;
using MorvalenCore::LinkedItemState;
using MorvalenCore::Interfaces::IDesign;

class tst_VersionControl : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        session.emplace();
        QVERIFY(QDir().mkpath(in(QString())));
        repository.emplace(in(QString()));
    }
    void cleanup()
    {
        repository.reset();
        session.reset();
    }

    void findsTheLastCommitThatTouchedAFile();
    void findsTheLastCommitThatTouchedAFolder();
    void knowsNothingOfWhatWasNeverCommitted();
    void knowsNothingOutsideARepository();
    void knowsAFileThatIsGoneFromDisk();
    void forgetsAFileThatWasRemovedByACommit();
    void followsTheBranchThatChangedAFile();
    void findsTheInnermostRepository();
    void worksThroughALinkToTheFolder();
    void knowsALinkItself();
    void worksWithADetachedHead();
    void changesNothingInTheRepository();
    void givesUpWhenCancelled();
    void opensNothingButFilesAndFolders_data();
    void opensNothingButFilesAndFolders();
    void tellsWhenItsLibraryIsGone();
    void answersForDesignItems();
    void answersForDesignItemsInAnotherThread();

private:
    QString in(const QString &name) const { return session->path(u"repo/"_s + name); }
    void write(const QString &name, const QByteArray &bytes)
    {
        SessionFixture::write(in(name), bytes);
    }
    // A design in the folder "ip" of the repository, without files.
    void writeDesign();
    QString revision(const QString &name) const { return GitHistory::of(in(name)).revision; }
    QString system(const QString &name) const { return GitHistory::of(in(name)).systemName; }

    std::optional<SessionFixture> session;
    std::optional<GitRepository> repository;
};

void tst_VersionControl::findsTheLastCommitThatTouchedAFile()
{
    write(u"a.v"_s, "1");
    write(u"b.v"_s, "1");
    const QString first = repository->commit("one");
    write(u"a.v"_s, "2");
    const QString second = repository->commit("two");
    write(u"c.v"_s, "1");
    const QString third = repository->commit("three");
    QCOMPARE(revision(u"a.v"_s), second.left(7));
    QCOMPARE(revision(u"b.v"_s), first.left(7));
    QCOMPARE(revision(u"c.v"_s), third.left(7));
    QCOMPARE(system(u"a.v"_s), u"Git"_s);
    // What is not committed yet has not touched it.
    write(u"b.v"_s, "uncommitted");
    QCOMPARE(revision(u"b.v"_s), first.left(7));
}

void tst_VersionControl::findsTheLastCommitThatTouchedAFolder()
{
    write(u"rtl/deep/a.v"_s, "1");
    write(u"doc/b.md"_s, "1");
    const QString first = repository->commit("one");
    write(u"rtl/deep/a.v"_s, "2");
    const QString second = repository->commit("two");
    QCOMPARE(revision(u"rtl"_s), second.left(7));
    QCOMPARE(revision(u"rtl/deep"_s), second.left(7));
    QCOMPARE(revision(u"doc"_s), first.left(7));
    QCOMPARE(GitHistory::of(session->path(u"repo"_s)).revision, second.left(7));
    QCOMPARE(GitHistory::of(session->path(u"repo/"_s)).systemName, u"Git"_s);
}

void tst_VersionControl::knowsNothingOfWhatWasNeverCommitted()
{
    write(u"a.v"_s, "1");
    QCOMPARE(revision(u"a.v"_s), u"-1"_s);
    QCOMPARE(system(u"a.v"_s), QString());
    repository->stage();
    QCOMPARE(revision(u"a.v"_s), u"-1"_s);
    QVERIFY(!repository->commit("one").isEmpty());
    write(u"b.v"_s, "1");
    QCOMPARE(revision(u"b.v"_s), u"-1"_s);
    QCOMPARE(revision(u"no/such/folder/b.v"_s), u"-1"_s);
    QCOMPARE(system(u".git/config"_s), QString());
}

void tst_VersionControl::knowsNothingOutsideARepository()
{
    SessionFixture::write(session->path(u"outside/a.v"_s), "1");
    for (const QString &path : {session->path(u"outside/a.v"_s), u"/"_s, u"/no/such/file"_s,
                                QString(), u"$UNSET/a.v"_s}) {
        QCOMPARE(GitHistory::of(path).revision, u"-1"_s);
        QCOMPARE(GitHistory::of(path).systemName, QString());
    }
}

void tst_VersionControl::knowsAFileThatIsGoneFromDisk()
{
    write(u"rtl/a.v"_s, "1");
    const QString first = repository->commit("one");
    QVERIFY(QDir(in(u"rtl"_s)).removeRecursively());
    QCOMPARE(revision(u"rtl/a.v"_s), first.left(7));
}

void tst_VersionControl::forgetsAFileThatWasRemovedByACommit()
{
    write(u"a.v"_s, "1");
    write(u"b.v"_s, "1");
    QVERIFY(!repository->commit("one").isEmpty());
    QVERIFY(QFile::remove(in(u"a.v"_s)));
    QVERIFY(!repository->commit("two").isEmpty());
    QCOMPARE(revision(u"a.v"_s), u"-1"_s);
}

void tst_VersionControl::followsTheBranchThatChangedAFile()
{
    write(u"a.v"_s, "1");
    write(u"b.v"_s, "1");
    const QString base = repository->commit("base");
    write(u"a.v"_s, "2");
    const QString left = repository->commit("left");
    repository->goBackTo(base);
    write(u"b.v"_s, "2");
    const QString right = repository->commit("right");
    write(u"a.v"_s, "2");
    const QString merge = repository->commit("merge", {right, left});
    QVERIFY(!merge.isEmpty());
    QCOMPARE(revision(u"a.v"_s), left.left(7));
    QCOMPARE(revision(u"b.v"_s), right.left(7));
}

void tst_VersionControl::findsTheInnermostRepository()
{
    write(u"a.v"_s, "1");
    write(u"inner/b.v"_s, "1");
    QVERIFY(!repository->commit("outer").isEmpty());
    GitRepository inner(in(u"inner"_s));
    QCOMPARE(revision(u"inner/b.v"_s), u"-1"_s);
    const QString id = inner.commit("inner");
    QCOMPARE(revision(u"inner/b.v"_s), id.left(7));
}

void tst_VersionControl::worksThroughALinkToTheFolder()
{
    write(u"rtl/a.v"_s, "1");
    const QString first = repository->commit("one");
    QVERIFY(QFile::link(in(u"rtl"_s), session->path(u"alias"_s)));
    QCOMPARE(GitHistory::of(session->path(u"alias/a.v"_s)).revision, first.left(7));
}

void tst_VersionControl::knowsALinkItself()
{
    write(u"a.v"_s, "1");
    QVERIFY(!repository->commit("one").isEmpty());
    QVERIFY(QFile::link(u"a.v"_s, in(u"link.v"_s)));
    const QString second = repository->commit("two");
    QCOMPARE(revision(u"link.v"_s), second.left(7));
}

void tst_VersionControl::worksWithADetachedHead()
{
    write(u"a.v"_s, "1");
    const QString first = repository->commit("one");
    write(u"a.v"_s, "2");
    QVERIFY(!repository->commit("two").isEmpty());
    write(u".git/HEAD"_s, first.toLatin1() + '\n');
    QCOMPARE(revision(u"a.v"_s), first.left(7));
    write(u".git/HEAD"_s, "nonsense\n");
    QCOMPARE(revision(u"a.v"_s), u"-1"_s);
}

void tst_VersionControl::changesNothingInTheRepository()
{
    write(u"a.v"_s, "1");
    QVERIFY(!repository->commit("one").isEmpty());
    const QByteArray index = SessionFixture::read(in(u".git/index"_s));
    const QDateTime stamp = QFileInfo(in(u".git/index"_s)).lastModified();
    const QStringList before = QDir(in(u".git"_s)).entryList();
    write(u"a.v"_s, "2");
    QVERIFY(revision(u"a.v"_s) != u"-1"_s);
    QCOMPARE(SessionFixture::read(in(u".git/index"_s)), index);
    QCOMPARE(QFileInfo(in(u".git/index"_s)).lastModified(), stamp);
    QCOMPARE(QDir(in(u".git"_s)).entryList(), before);
}

void tst_VersionControl::givesUpWhenCancelled()
{
    write(u"a.v"_s, "1");
    const QString first = repository->commit("one");
    std::atomic_bool cancelled = false;
    QCOMPARE(GitHistory::of(in(u"a.v"_s), &cancelled).revision, first.left(7));
    cancelled = true;
    QCOMPARE(GitHistory::of(in(u"a.v"_s), &cancelled).revision, u"-1"_s);
}

void tst_VersionControl::writeDesign()
{
    const IDesign *made = session->create(u"a"_s);
    const QByteArray component = SessionFixture::read(made->componentFileName());
    session->closeAll();
    write(u"ip/component.xml"_s, component);
}

void tst_VersionControl::tellsWhenItsLibraryIsGone()
{
    const QString gone = session->path(u"gone"_s);
    const auto opened = MorvalenCore::openGitLibrary(gone);
    QCOMPARE(opened.status().kind(), Qtilities::Core::Status::Kind::Io);
    QCOMPARE(opened.status().text(),
             u"Version control cannot be asked: "_s + gone
                 + u"/libMorvalenGit.so.1: cannot open shared object file: No such file or "
                   "directory"_s);
    // A library of that name that is another one.
    QVERIFY(QDir().mkpath(gone));
    const QString here = MorvalenCore::libraryFolder();
    QVERIFY(QFile::link(here + u"/libQtilities.so.1"_s, gone + u"/libMorvalenGit.so.1"_s));
    const QString text = MorvalenCore::openGitLibrary(gone).status().text();
    QVERIFY2(text.endsWith(u": undefined symbol: morvalenLastCommit"_s), qPrintable(text));
    QVERIFY(MorvalenCore::openGitLibrary(here).isOk());
}

void tst_VersionControl::answersForDesignItems()
{
    writeDesign();
    write(u"ip/rtl/a.v"_s, "1");
    write(u"ip/files/b.v"_s, "1");
    const QString first = repository->commit("one");
    IDesign *design = session->open(in(u"ip/component.xml"_s));
    const auto *file = design->addFile(u"rtl/a.v"_s, QString(), true, nullptr);
    QCOMPARE(file->versionControlRevision(), first.left(7));
    QCOMPARE(file->versionControlSystemName(), u"Git"_s);
    const auto *folder = design->folderByActualPath(u"files"_s);
    QCOMPARE(folder->versionControlRevision(), first.left(7));
    QCOMPARE(folder->versionControlSystemName(), u"Git"_s);
    const auto *missing = design->addFile(u"$MV_UNSET/x.v"_s, QString(), true, nullptr);
    QCOMPARE(missing->versionControlRevision(), u"-1"_s);
    QCOMPARE(missing->versionControlSystemName(), QString());
}

void tst_VersionControl::answersForDesignItemsInAnotherThread()
{
    writeDesign();
    write(u"ip/rtl/a.v"_s, "1");
    const QString first = repository->commit("one");
    IDesign *design = session->open(in(u"ip/component.xml"_s));
    const auto lookedUp = [](const AbstractDesignLinkedItem *item) {
        LinkedItemState state;
        const std::atomic_bool cancelled = false;
        const auto lookup = item->stateLookup();
        std::thread([&] { state = lookup(cancelled); }).join();
        return state;
    };
    const auto *file = design->addFile(u"rtl/a.v"_s, QString(), true, nullptr);
    const auto *missing = design->addFile(u"rtl/b.v"_s, QString(), true, nullptr);
    const auto *folder = design->addFolder(u"rtl"_s, nullptr);
    QCOMPARE(lookedUp(file), (LinkedItemState {true, first.left(7), u"Git"_s}));
    QCOMPARE(lookedUp(missing), LinkedItemState());
    QCOMPARE(lookedUp(folder), (LinkedItemState {true, first.left(7), u"Git"_s}));

    const auto lookup = file->stateLookup();
    QVERIFY(design->removeFile(u"rtl/a.v"_s));
    QCOMPARE(lookup(false), (LinkedItemState {true, first.left(7), u"Git"_s}));
}

void tst_VersionControl::opensNothingButFilesAndFolders_data()
{
    QTest::addColumn<QString>("name");
    for (const QString &name :
         {u".git/config"_s, u".git/HEAD"_s, u".git/commondir"_s, u".git/packed-refs"_s,
          u".git/refs/heads/master"_s, u".git/objects/info/alternates"_s,
          u".git/objects/pack/pack-1.idx"_s})
        QTest::newRow(qPrintable(u"pipe in place of "_s + name)) << name;
}

// A pipe would wait for its other end for ever.
void tst_VersionControl::opensNothingButFilesAndFolders()
{
    QFETCH(const QString, name);
    write(u"a.v"_s, "1");
    QVERIFY(!repository->commit("one").isEmpty());
    QFile::remove(in(name));
    QVERIFY(QDir().mkpath(QFileInfo(in(name)).path()));
    QCOMPARE(::mkfifo(QFile::encodeName(in(name)).constData(), 0600), 0);
    QCOMPARE(system(u"a.v"_s), QString());
    QCOMPARE(revision(u"a.v"_s), u"-1"_s);
}

TEST_CLASS(tst_VersionControl)
#include "tst_VersionControl.moc"
