#include "tests/TestClass.h"

#include <Qtilities/Logger.h>
#include <Qtilities/ProjectManager.h>
#include <Qtilities/QtilitiesApplication.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <sys/stat.h>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Status;
using Qtilities::CoreGui::QtilitiesApplication;
using Qtilities::Logging::Logger;
using Qtilities::ProjectManagement::IProjectItem;
using Qtilities::ProjectManagement::ProjectEntry;
using Qtilities::ProjectManagement::ProjectManager;

namespace {

// Things that are open, by path. What is opened becomes the active one.
class FakeItem : public IProjectItem
{
public:
    explicit FakeItem(const QString &section = u"things"_s) : name(section) { }

    QString sectionName() const override { return name; }
    QList<ProjectEntry> entries() const override
    {
        QList<ProjectEntry> all;
        for (const QString &path : open_)
            all.append({path, path == active, 0});
        return all;
    }
    Status check(const ProjectEntry &entry) const override
    {
        return refuse(missing, entry, u"is missing"_s);
    }
    Status open(const ProjectEntry &entry) override
    {
        const Status status = refuse(broken, entry, u"is broken"_s);
        if (!status.isOk())
            return status;
        if (!open_.contains(entry.path))
            open_.append(entry.path);
        active = entry.path;
        return status;
    }
    void activate(const ProjectEntry &entry) override { active = entry.path; }
    Status close(const ProjectEntry &entry) override
    {
        const Status status = refuse(stuck, entry, u"cannot be saved"_s);
        if (!status.isOk())
            return status;
        open_.removeAll(entry.path);
        if (active == entry.path)
            active = open_.value(0);
        return status;
    }

    // What is open, the active one with a star.
    QStringList state() const
    {
        QStringList texts;
        for (const QString &path : open_)
            texts.append(path + (path == active ? u"*"_s : u""_s));
        return texts;
    }

    QStringList open_;
    QString active;
    QStringList missing;
    QStringList broken;
    QStringList stuck;

private:
    static Status refuse(const QStringList &refused, const ProjectEntry &entry, const QString &why)
    {
        return refused.contains(entry.path) ? Status::failed(u"\"%1\" %2"_s.arg(entry.path, why))
                                            : Status();
    }

    QString name;
};

QString contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll())
                                          : u"(cannot be read)"_s;
}

void put(const QString &path, const QByteArray &content)
{
    QVERIFY(QDir().mkpath(QFileInfo(path).path()));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), content.size());
}

QByteArray projectFile(const QByteArray &entries)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<project version=\"1\" name=\"demo\">\n"
           "<things>\n"
        + entries + "</things>\n</project>\n";
}

} // namespace

// The one project: made, saved, opened, closed, and never lost.
class tst_ProjectManager : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void startsWithoutAProject();
    void makesANewProject();
    void closes();
    void closesWhatItHolds();
    void saysThatAnUnsavedListIsGone();
    void saysNothingOfAnEmptyUnsavedProject();
    void staysOpenWhenSomethingCannotBeClosed();
    void savesItsFileWhenItCloses();
    void doesNotTouchItsFileWithoutChanges();
    void staysOpenWhenItsFileCannotBeWritten();

    void writesItsFile();
    void writesAbsolutePathsOnDemand();
    void takesTheNameOfItsFile_data();
    void takesTheNameOfItsFile();
    void keepsANameThatItWasGiven();
    void keepsOddPaths_data();
    void keepsOddPaths();
    void refusesToSave_data();
    void refusesToSave();
    void refusesTextsThatItsFileCannotHold_data();
    void refusesTextsThatItsFileCannotHold();
    void keepsTheLastCharacterThatXmlKnows();
    void doesNotReplaceOtherFiles();
    void replacesAnotherProject();

    void opensWhatItSaved();
    void opensAfterItWasMoved();
    void opensThroughALink();
    void opensRelativeToTheCurrentFolder();
    void activatesWhatTheFileSays();
    void closesTheOldProjectFirst();
    void opensItselfAgain();
    void keepsWhatIsOpenWithoutAProject();
    void refusesMalformedFiles_data();
    void refusesMalformedFiles();
    void refusesFilesThatCannotBeRead_data();
    void refusesFilesThatCannotBeRead();
    void refusesASectionThatNobodyKnows();
    void keepsTheOldProjectWhenAnEntryIsMissing();
    void bringsTheOldProjectBackWhenAnEntryIsBroken();
    void staysAsItIsWhenTheOldProjectCannotBeClosed();

    void refusesASecondItemOfASection();
    void forgetsARemovedItem();
    void keepsACustomPath();
    void canBeReplaced();

private:
    QString path(const QString &name) const { return folder->filePath(name); }
    // The log since the last call, with the folder's path as DIR.
    QStringList logged()
    {
        QStringList texts = std::exchange(messages, {});
        return texts.replaceInStrings(folder->path(), u"DIR"_s);
    }
    QStringList state() const { return item->state().replaceInStrings(folder->path(), u"DIR"_s); }

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<Logger> logger;
    std::unique_ptr<FakeItem> item;
    std::unique_ptr<ProjectManager> manager;
    QStringList messages;
};

void tst_ProjectManager::init()
{
    folder = std::make_unique<QTemporaryDir>();
    QVERIFY(folder->isValid());
    logger = std::make_unique<Logger>();
    Logger::setInstance(logger.get());
    connect(logger.get(), &Logger::messageLogged, this,
            [this](const QString &, Logger::MessageType type, const QString &text) {
                messages.append(u"%1 "_s.arg(type) + text);
            });
    messages.clear();
    QtilitiesApplication::setApplicationSessionPath(folder->path());
    item = std::make_unique<FakeItem>();
    manager = std::make_unique<ProjectManager>();
    QVERIFY(manager->addProjectItem(item.get()));
}

void tst_ProjectManager::cleanup()
{
    manager.reset();
    Logger::setInstance(nullptr);
    QtilitiesApplication::setApplicationSessionPath(QString());
}

void tst_ProjectManager::startsWithoutAProject()
{
    QVERIFY(!manager->currentProject());
    QCOMPARE(manager->currentProjectName(), QString());
    QCOMPARE(manager->currentProjectFileName(), QString());

    QVERIFY(!manager->closeProject());
    QVERIFY(!manager->saveProject(path(u"a.mvproject"_s), true));

    QCOMPARE(
        logged(),
        QStringList({u"8 There is no project to close"_s, u"8 There is no project to save"_s}));
    QVERIFY(!QFile::exists(path(u"a.mvproject"_s)));
}

void tst_ProjectManager::makesANewProject()
{
    QSignalSpy spy(manager.get(), &ProjectManager::currentProjectChanged);

    QVERIFY(manager->newProject());

    QVERIFY(manager->currentProject());
    QCOMPARE(manager->currentProject()->projectName(), u"New Project"_s);
    QCOMPARE(manager->currentProject()->projectFileName(), QString());
    QCOMPARE(manager->currentProjectName(), u"New Project"_s);
    QCOMPARE(manager->currentProjectFileName(), QString());
    QCOMPARE(spy.size(), 1);
    QCOMPARE(logged(), QStringList());
}

void tst_ProjectManager::closes()
{
    QVERIFY(manager->newProject());
    QSignalSpy spy(manager.get(), &ProjectManager::currentProjectChanged);

    QVERIFY(manager->closeProject());

    QVERIFY(!manager->currentProject());
    QCOMPARE(spy.size(), 1);
}

void tst_ProjectManager::closesWhatItHolds()
{
    QVERIFY(manager->newProject());
    item->open_ = {u"/a"_s, u"/b"_s};

    QVERIFY(manager->newProject());

    QCOMPARE(state(), QStringList());
    QVERIFY(manager->currentProject());
}

void tst_ProjectManager::saysThatAnUnsavedListIsGone()
{
    QVERIFY(manager->newProject());
    item->open_ = {u"/a"_s};

    QVERIFY(manager->closeProject());

    QCOMPARE(
        logged(),
        QStringList {u"4 The project \"New Project\" was never saved; what it held is closed"_s});
}

void tst_ProjectManager::saysNothingOfAnEmptyUnsavedProject()
{
    QVERIFY(manager->newProject());
    QVERIFY(manager->closeProject());

    QCOMPARE(logged(), QStringList());
}

void tst_ProjectManager::staysOpenWhenSomethingCannotBeClosed()
{
    QVERIFY(manager->newProject());
    item->open_ = {u"/a"_s, u"/b"_s, u"/c"_s};
    item->active = u"/a"_s;
    item->stuck = {u"/b"_s};

    QVERIFY(!manager->closeProject());

    QVERIFY(manager->currentProject());
    QCOMPARE(state(), QStringList({u"/b"_s, u"/c"_s, u"/a*"_s}));
    QCOMPARE(logged(), QStringList {u"8 \"/b\" cannot be saved"_s});
    QVERIFY(!manager->newProject());
    QVERIFY(manager->currentProject());
}

void tst_ProjectManager::savesItsFileWhenItCloses()
{
    const QString file = path(u"p.mvproject"_s);
    QVERIFY(manager->newProject());
    QVERIFY(manager->saveProject(file, true));
    item->open_ = {path(u"later"_s)};

    QVERIFY(manager->closeProject());

    QCOMPARE(state(), QStringList());
    QVERIFY(manager->openProject(file));
    QCOMPARE(state(), QStringList {u"DIR/later*"_s});
    QCOMPARE(logged(), QStringList());
}

void tst_ProjectManager::doesNotTouchItsFileWithoutChanges()
{
    const QString file = path(u"p.mvproject"_s);
    const QByteArray content = projectFile("<entry path=\"a\"/><!-- a note --><entry path=\"b\"/>");
    put(file, content);

    QVERIFY(manager->openProject(file));
    QVERIFY(manager->closeProject());

    QCOMPARE(contentOf(file), QString::fromUtf8(content));
}

void tst_ProjectManager::staysOpenWhenItsFileCannotBeWritten()
{
    const QString file = path(u"sub/p.mvproject"_s);
    QVERIFY(QDir(folder->path()).mkdir(u"sub"_s));
    QVERIFY(manager->newProject());
    QVERIFY(manager->saveProject(file, true));
    item->open_ = {path(u"later"_s)};
    QVERIFY(QDir(path(u"sub"_s)).removeRecursively());

    QVERIFY(!manager->closeProject());

    QCOMPARE(logged(),
             QStringList {u"8 Cannot write \"DIR/sub/p.mvproject\": No such file or directory"_s});
    QCOMPARE(state(), QStringList {u"DIR/later"_s});
    QCOMPARE(manager->currentProjectFileName(), file);
}

void tst_ProjectManager::writesItsFile()
{
    const QString file = path(u"work/p.mvproject"_s);
    QVERIFY(QDir(folder->path()).mkdir(u"work"_s));
    QVERIFY(manager->newProject());
    item->open_ = {path(u"work/a.xml"_s), path(u"b & c/<d>.xml"_s)};
    item->active = item->open_[1];
    QSignalSpy spy(manager.get(), &ProjectManager::currentProjectChanged);

    QVERIFY(manager->saveProject(file, true));

    QCOMPARE(contentOf(file), uR"(<?xml version="1.0" encoding="UTF-8"?>
<project version="1" name="p">
    <things>
        <entry path="a.xml"/>
        <entry path="../b &amp; c/&lt;d&gt;.xml" active="true"/>
    </things>
</project>
)"_s);
    QCOMPARE(manager->currentProjectFileName(), file);
    QCOMPARE(manager->currentProjectName(), u"p"_s);
    QCOMPARE(spy.size(), 1);
    QCOMPARE(logged(), QStringList());
}

void tst_ProjectManager::writesAbsolutePathsOnDemand()
{
    const QString file = path(u"p.mvproject"_s);
    QVERIFY(manager->newProject());
    item->open_ = {path(u"a.xml"_s)};

    QVERIFY(manager->saveProject(file, false));
    QVERIFY(contentOf(file).contains(u"<entry path=\"%1/a.xml\"/>"_s.arg(folder->path())));

    // It stays so when the project is saved by closing.
    item->open_.append(path(u"b.xml"_s));
    QVERIFY(manager->closeProject());
    QVERIFY(contentOf(file).contains(u"<entry path=\"%1/b.xml\"/>"_s.arg(folder->path())));
}

void tst_ProjectManager::takesTheNameOfItsFile_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("name");

    QTest::newRow("name-file-1 without the suffix") << u"demo.mvproject"_s << u"demo"_s;
    QTest::newRow("name-file-2 only the last suffix goes") << u"a.b.mvproject"_s << u"a.b"_s;
    QTest::newRow("name-file-3 no suffix") << u"demo"_s << u"demo"_s;
    QTest::newRow("name-file-4 marks that XML knows") << u"a&\"b'<.x"_s << u"a&\"b'<"_s;
}

void tst_ProjectManager::takesTheNameOfItsFile()
{
    QFETCH(QString, file);
    QFETCH(QString, name);
    QVERIFY(manager->newProject());

    QVERIFY(manager->saveProject(path(u"first.mvproject"_s), true));
    QVERIFY(manager->saveProject(path(file), true));

    QCOMPARE(manager->currentProjectName(), name);
    QVERIFY(manager->openProject(path(file)));
    QCOMPARE(manager->currentProjectName(), name);
}

void tst_ProjectManager::keepsANameThatItWasGiven()
{
    put(path(u"p.mvproject"_s), projectFile(""));
    QVERIFY(manager->openProject(path(u"p.mvproject"_s)));
    QCOMPARE(manager->currentProjectName(), u"demo"_s);

    QVERIFY(manager->saveProject(path(u"q.mvproject"_s), true));

    QCOMPARE(manager->currentProjectName(), u"demo"_s);
}

void tst_ProjectManager::keepsOddPaths_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("path-odd-1 blanks at both ends") << u" a "_s;
    QTest::newRow("path-odd-2 tab and line feed") << u"a\tb\nc"_s;
    QTest::newRow("path-odd-3 carriage return") << u"a\rb"_s;
    QTest::newRow("path-odd-4 beyond the basic plane") << u"\U0001F600.xml"_s;
    QTest::newRow("path-odd-5 a colon in front") << u":a.xml"_s;
    QTest::newRow("path-odd-6 a percent sign and a placeholder") << u"%20%1.xml"_s;
    QTest::newRow("path-odd-7 quotes") << u"\"a'.xml"_s;
}

void tst_ProjectManager::keepsOddPaths()
{
    QFETCH(QString, name);
    const QString file = path(u"p.mvproject"_s);
    QVERIFY(manager->newProject());
    const QString odd = folder->path() + u'/' + name;
    item->open_ = {odd};
    QVERIFY(manager->saveProject(file, true));

    QVERIFY(manager->openProject(file));

    QCOMPARE(item->open_, QStringList {odd});
}

void tst_ProjectManager::refusesToSave_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("message");

    QTest::newRow("save-refused-1 no file")
        << u""_s << u"8 The project \"New Project\" has no file to be saved to"_s;
    QTest::newRow("save-refused-2 a folder")
        << u"DIR"_s << u"8 Cannot write \"DIR\": it is a folder"_s;
    QTest::newRow("save-refused-3 a folder that is not there")
        << u"DIR/no/p"_s << u"8 Cannot write \"DIR/no/p\": No such file or directory"_s;
    QTest::newRow("save-refused-4 a pipe")
        << u"DIR/pipe"_s << u"8 Cannot write \"DIR/pipe\": it is not a file"_s;
}

void tst_ProjectManager::refusesToSave()
{
    QFETCH(QString, file);
    QFETCH(QString, message);
    QCOMPARE(::mkfifo(QFile::encodeName(path(u"pipe"_s)).constData(), 0600), 0);
    QVERIFY(manager->newProject());

    QVERIFY(!manager->saveProject(file.replace(u"DIR"_s, folder->path()), true));

    QCOMPARE(logged(), QStringList {message});
    QCOMPARE(manager->currentProjectFileName(), QString());
    QCOMPARE(manager->currentProjectName(), u"New Project"_s);
}

void tst_ProjectManager::refusesTextsThatItsFileCannotHold_data()
{
    QTest::addColumn<QString>("odd");

    QTest::newRow("text-odd-1 a control character") << u"\u0001"_s;
    QTest::newRow("text-odd-2 U+FFFE") << QString(QChar(0xfffe));
    QTest::newRow("text-odd-3 U+FFFF") << QString(QChar(0xffff));
    QTest::newRow("text-odd-4 the first half of a pair") << QString(QChar(0xd83d));
    QTest::newRow("text-odd-5 the second half of a pair") << QString(QChar(0xde00));
    QTest::newRow("text-odd-6 a pair the wrong way round")
        << QString(QChar(0xde00)) + QChar(0xd83d);
    QTest::newRow("text-odd-7 a zero") << QString(QChar(0));
}

void tst_ProjectManager::refusesTextsThatItsFileCannotHold()
{
    QFETCH(const QString, odd);
    put(path(u"p.mvproject"_s), projectFile("<entry path=\"old\"/>"));
    const QString before = contentOf(path(u"p.mvproject"_s));
    QVERIFY(manager->newProject());
    item->open_ = {u"/a"_s + odd + u'b'};

    QVERIFY(!manager->saveProject(path(u"p.mvproject"_s), true));

    QCOMPARE(logged(),
             QStringList {u"8 Cannot write \"DIR/p.mvproject\": a project file cannot hold "
                          "the characters of \"/a%1b\""_s.arg(odd)});
    QCOMPARE(contentOf(path(u"p.mvproject"_s)), before);
}

void tst_ProjectManager::keepsTheLastCharacterThatXmlKnows()
{
    const QString file = path(u"p.mvproject"_s);
    QVERIFY(manager->newProject());
    const QString odd = folder->path() + u'/' + QChar(0xfffd) + QChar(0xfeff);
    item->open_ = {odd};

    QVERIFY(manager->saveProject(file, true));
    QVERIFY(manager->openProject(file));

    QCOMPARE(item->open_, QStringList {odd});
}

void tst_ProjectManager::doesNotReplaceOtherFiles()
{
    put(path(u"mine.txt"_s), "my own words\n");
    QVERIFY(manager->newProject());

    QVERIFY(!manager->saveProject(path(u"mine.txt"_s), true));

    QCOMPARE(
        logged(),
        QStringList {u"8 Cannot write \"DIR/mine.txt\": something else than a project is in it"_s});
    QCOMPARE(contentOf(path(u"mine.txt"_s)), u"my own words\n"_s);
}

void tst_ProjectManager::replacesAnotherProject()
{
    put(path(u"p.mvproject"_s), projectFile("<entry path=\"old\"/>"));
    put(path(u"empty.mvproject"_s), "");
    QVERIFY(manager->newProject());
    item->open_ = {path(u"new"_s)};

    QVERIFY(manager->saveProject(path(u"p.mvproject"_s), true));
    QVERIFY(manager->saveProject(path(u"empty.mvproject"_s), true));

    QVERIFY(manager->openProject(path(u"p.mvproject"_s)));
    QCOMPARE(state(), QStringList {u"DIR/new*"_s});
}

void tst_ProjectManager::opensWhatItSaved()
{
    const QString file = path(u"p.mvproject"_s);
    QVERIFY(manager->newProject());
    item->open_ = {path(u"a"_s), path(u"sub/b"_s), u"/elsewhere/c"_s};
    item->active = path(u"sub/b"_s);
    const QStringList before = state();
    QVERIFY(manager->saveProject(file, true));
    QVERIFY(manager->closeProject());
    QCOMPARE(state(), QStringList());
    QSignalSpy spy(manager.get(), &ProjectManager::currentProjectChanged);

    QVERIFY(manager->openProject(file));

    QCOMPARE(state(), before);
    QCOMPARE(manager->currentProjectFileName(), file);
    QCOMPARE(manager->currentProjectName(), u"p"_s);
    QCOMPARE(spy.size(), 1);
    QCOMPARE(logged(), QStringList());
}

void tst_ProjectManager::opensAfterItWasMoved()
{
    QVERIFY(QDir(folder->path()).mkpath(u"here/projects"_s));
    QVERIFY(manager->newProject());
    item->open_ = {path(u"here/designs/a.xml"_s)};
    QVERIFY(manager->saveProject(path(u"here/projects/p.mvproject"_s), true));
    QVERIFY(manager->closeProject());
    QVERIFY(QDir(folder->path()).rename(u"here"_s, u"there"_s));

    QVERIFY(manager->openProject(path(u"there/projects/p.mvproject"_s)));

    QCOMPARE(state(), QStringList {u"DIR/there/designs/a.xml*"_s});
}

void tst_ProjectManager::opensThroughALink()
{
    put(path(u"real/p.mvproject"_s), projectFile("<entry path=\"a.xml\"/>"));
    QVERIFY(QFile::link(path(u"real/p.mvproject"_s), path(u"link.mvproject"_s)));

    QVERIFY(manager->openProject(path(u"link.mvproject"_s)));
    QCOMPARE(state(), QStringList {u"DIR/real/a.xml*"_s});
    QCOMPARE(manager->currentProjectFileName(), path(u"link.mvproject"_s));
    item->open_.append(path(u"real/b.xml"_s));
    QVERIFY(manager->closeProject());

    QVERIFY(QFileInfo(path(u"link.mvproject"_s)).isSymLink());
    QVERIFY(contentOf(path(u"real/p.mvproject"_s)).contains(u"<entry path=\"b.xml\"/>"_s));
}

void tst_ProjectManager::opensRelativeToTheCurrentFolder()
{
    put(path(u"p.mvproject"_s), projectFile(""));
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(folder->path()));

    const bool opened = manager->openProject(u"./p.mvproject"_s);
    QVERIFY(QDir::setCurrent(before));

    QVERIFY(opened);
    QCOMPARE(manager->currentProjectFileName(), path(u"p.mvproject"_s));
}

void tst_ProjectManager::activatesWhatTheFileSays()
{
    put(path(u"p.mvproject"_s),
        projectFile("<entry path=\"a\" active=\"true\"/><entry path=\"b\" active=\"false\"/>"));

    QVERIFY(manager->openProject(path(u"p.mvproject"_s)));

    QCOMPARE(state(), QStringList({u"DIR/a*"_s, u"DIR/b"_s}));
}

void tst_ProjectManager::closesTheOldProjectFirst()
{
    put(path(u"p.mvproject"_s), projectFile("<entry path=\"a\"/><entry path=\"b\"/>"));
    put(path(u"q.mvproject"_s), projectFile("<entry path=\"b\"/><entry path=\"c\"/>"));
    QVERIFY(manager->openProject(path(u"p.mvproject"_s)));

    QVERIFY(manager->openProject(path(u"q.mvproject"_s)));

    QCOMPARE(state(), QStringList({u"DIR/b"_s, u"DIR/c*"_s}));
    QCOMPARE(manager->currentProjectFileName(), path(u"q.mvproject"_s));
}

void tst_ProjectManager::opensItselfAgain()
{
    put(path(u"p.mvproject"_s), projectFile("<entry path=\"a\"/>"));
    QVERIFY(manager->openProject(path(u"p.mvproject"_s)));
    item->open_.append(path(u"new"_s));

    QVERIFY(manager->openProject(path(u"p.mvproject"_s)));

    QCOMPARE(state(), QStringList({u"DIR/a*"_s, u"DIR/new"_s}));
}

void tst_ProjectManager::keepsWhatIsOpenWithoutAProject()
{
    put(path(u"p.mvproject"_s), projectFile("<entry path=\"a\"/>"));
    item->open_ = {path(u"loose"_s)};

    QVERIFY(manager->openProject(path(u"p.mvproject"_s)));
    QCOMPARE(state(), QStringList({u"DIR/loose"_s, u"DIR/a*"_s}));
    QVERIFY(manager->closeProject());
    QCOMPARE(state(), QStringList());

    QVERIFY(manager->openProject(path(u"p.mvproject"_s)));
    QCOMPARE(state(), QStringList({u"DIR/loose"_s, u"DIR/a*"_s}));
}

void tst_ProjectManager::refusesMalformedFiles_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("message");

    const auto row = [](const char *name, const QByteArray &content, const QString &message) {
        QTest::newRow(name) << content << message;
    };
    row("bad-xml-1 an empty file", "", u"1: Premature end of document."_s);
    row("bad-xml-2 no XML at all", "hello\n", u"1: Start tag expected."_s);
    row("bad-xml-3 cut off", "<project version=\"1\">\n<things>\n<entry pa",
        u"3: Premature end of document."_s);
    row("bad-xml-4 tags that do not match", "<project version=\"1\">\n<things>\n</project>",
        u"3: Opening and ending tag mismatch."_s);
    row("bad-xml-5 text behind the end", "<project version=\"1\"/>\nmore",
        u"2: Extra content at end of document."_s);
    row("bad-xml-6 bytes that are no UTF-8",
        "<project version=\"1\">\n<things>\xff</things></project>",
        u"2: there are bytes that are not UTF-8"_s);
    row("bad-xml-7 a document type",
        "<!DOCTYPE project [\n<!ENTITY a \"x\">\n]>\n<project version=\"1\"/>",
        u"3: a project has no document type"_s);
    row("bad-xml-8 an entity nobody declared", "<project version=\"1\">\n&boom;</project>",
        u"2: Entity 'boom' not declared."_s);
    row("bad-root-1 another document", "<component/>", u"1: <component> is no project"_s);
    row("bad-root-2 another case", "<Project version=\"1\"/>", u"1: <Project> is no project"_s);
    row("bad-root-3 a prefix", "<p:project xmlns:p=\"u\" version=\"1\"/>",
        u"1: <p:project> is no project"_s);
    row("bad-version-1 none", "<project/>", u"1: version \"\" of project files is not known"_s);
    row("bad-version-2 a later one", "\n\n<project version=\"2\"/>",
        u"3: version \"2\" of project files is not known"_s);
    row("bad-unknown-1 an attribute", "<project version=\"1\" colour=\"red\"/>",
        u"1: <project> has the unknown attribute \"colour\""_s);
    row("bad-unknown-2 an attribute of a section",
        "<project version=\"1\">\n<things a=\"b\"/>\n</project>",
        u"2: <things> has the unknown attribute \"a\""_s);
    row("bad-unknown-3 an attribute of an entry", projectFile("<entry path=\"a\" b=\"c\"/>\n"),
        u"4: <entry> has the unknown attribute \"b\""_s);
    row("bad-unknown-4 an element in a section", projectFile("<thing path=\"a\"/>\n"),
        u"4: <thing> is not known here"_s);
    row("bad-unknown-5 an element in an entry", projectFile("<entry path=\"a\">\n<b/></entry>\n"),
        u"5: <b> is not known here"_s);
    row("bad-unknown-6 text", projectFile("<entry path=\"a\"/> and\n more\n"),
        u"6: there is text between the elements"_s);
    row("bad-section-1 twice", "<project version=\"1\">\n<things/>\n<things/></project>",
        u"3: there is a second <things>"_s);
    row("bad-entry-1 no path", projectFile("<entry/>\n"), u"4: an entry has no path"_s);
    row("bad-entry-2 an empty path", projectFile("\n<entry path=\"\"/>\n"),
        u"5: an entry has no path"_s);
    row("bad-entry-3 the same path twice",
        projectFile("<entry path=\"a\"/>\n<entry path=\"a\"/>\n"),
        u"5: there is a second entry for \"a\""_s);
    row("bad-entry-4 the same path, written differently",
        projectFile("<entry path=\"a\"/>\n<entry path=\"./x/../a\"/>\n"),
        u"5: there is a second entry for \"./x/../a\""_s);
    row("bad-entry-5 itself", projectFile("<entry path=\"p.mvproject\"/>\n"),
        u"4: the project holds itself"_s);
    row("bad-entry-6 neither true nor false", projectFile("<entry path=\"a\" active=\"yes\"/>\n"),
        u"4: \"yes\" is neither true nor false"_s);
    row("bad-entry-7 two active ones",
        projectFile("<entry path=\"a\" active=\"true\"/>\n<entry path=\"b\" active=\"true\"/>\n"),
        u"5: there is a second active entry"_s);
}

void tst_ProjectManager::refusesMalformedFiles()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, message);
    const QString file = path(u"p.mvproject"_s);
    put(file, content);
    QVERIFY(manager->newProject());
    item->open_ = {u"/a"_s};
    item->active = u"/a"_s;

    QVERIFY(!manager->openProject(file));

    QCOMPARE(logged(), QStringList {u"8 DIR/p.mvproject:"_s + message});
    QCOMPARE(manager->currentProjectName(), u"New Project"_s);
    QCOMPARE(state(), QStringList {u"/a*"_s});
    QCOMPARE(contentOf(file).toUtf8().size(), QString::fromUtf8(content).toUtf8().size());
}

void tst_ProjectManager::refusesFilesThatCannotBeRead_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("message");

    QTest::newRow("unreadable-1 no name") << u""_s << u"The project to open has no file name"_s;
    QTest::newRow("unreadable-2 nothing there")
        << u"DIR/none"_s << u"DIR/none: No such file or directory"_s;
    QTest::newRow("unreadable-3 a folder") << u"DIR"_s << u"DIR: it is not a file"_s;
    QTest::newRow("unreadable-4 a pipe") << u"DIR/pipe"_s << u"DIR/pipe: it is not a file"_s;
    QTest::newRow("unreadable-5 a huge file")
        << u"DIR/huge"_s << u"DIR/huge: it has more than 16777216 bytes"_s;
}

void tst_ProjectManager::refusesFilesThatCannotBeRead()
{
    QFETCH(QString, file);
    QFETCH(QString, message);
    QCOMPARE(::mkfifo(QFile::encodeName(path(u"pipe"_s)).constData(), 0600), 0);
    QFile huge(path(u"huge"_s));
    QVERIFY(huge.open(QIODevice::WriteOnly) && huge.resize(16'777'217));

    QVERIFY(!manager->openProject(file.replace(u"DIR"_s, folder->path())));

    QCOMPARE(logged(), QStringList {u"8 "_s + message});
    QVERIFY(!manager->currentProject());
}

void tst_ProjectManager::refusesASectionThatNobodyKnows()
{
    put(path(u"p.mvproject"_s), "<project version=\"1\">\n<things/>\n<wishes/>\n</project>");

    QVERIFY(!manager->openProject(path(u"p.mvproject"_s)));

    QCOMPARE(logged(), QStringList {u"8 DIR/p.mvproject:3: <wishes> is not known here"_s});
}

void tst_ProjectManager::keepsTheOldProjectWhenAnEntryIsMissing()
{
    put(path(u"old.mvproject"_s), projectFile("<entry path=\"a\"/>"));
    put(path(u"p.mvproject"_s), projectFile("<entry path=\"b\"/>\n<entry path=\"c\"/>\n"));
    QVERIFY(manager->openProject(path(u"old.mvproject"_s)));
    item->missing = {path(u"c"_s)};

    QVERIFY(!manager->openProject(path(u"p.mvproject"_s)));

    QCOMPARE(logged(), QStringList {u"8 DIR/p.mvproject:5: \"DIR/c\" is missing"_s});
    QCOMPARE(state(), QStringList {u"DIR/a*"_s});
    QCOMPARE(manager->currentProjectFileName(), path(u"old.mvproject"_s));
}

void tst_ProjectManager::bringsTheOldProjectBackWhenAnEntryIsBroken()
{
    put(path(u"old.mvproject"_s),
        projectFile("<entry path=\"a\" active=\"true\"/><entry path=\"b\"/>"));
    put(path(u"p.mvproject"_s), projectFile("<entry path=\"b\"/>\n<entry path=\"c\"/>\n"));
    QVERIFY(manager->openProject(path(u"old.mvproject"_s)));
    const QString before = contentOf(path(u"old.mvproject"_s));
    item->broken = {path(u"c"_s)};
    QSignalSpy spy(manager.get(), &ProjectManager::currentProjectChanged);

    QVERIFY(!manager->openProject(path(u"p.mvproject"_s)));

    QCOMPARE(logged(), QStringList {u"8 DIR/p.mvproject:5: \"DIR/c\" is broken"_s});
    QCOMPARE(state(), QStringList({u"DIR/a*"_s, u"DIR/b"_s}));
    QCOMPARE(manager->currentProjectFileName(), path(u"old.mvproject"_s));
    QCOMPARE(manager->currentProjectName(), u"demo"_s);
    QCOMPARE(spy.size(), 0);
    QCOMPARE(contentOf(path(u"old.mvproject"_s)), before);
}

void tst_ProjectManager::staysAsItIsWhenTheOldProjectCannotBeClosed()
{
    put(path(u"old.mvproject"_s), projectFile("<entry path=\"a\"/>"));
    put(path(u"p.mvproject"_s), projectFile("<entry path=\"b\"/>"));
    QVERIFY(manager->openProject(path(u"old.mvproject"_s)));
    item->stuck = {path(u"a"_s)};

    QVERIFY(!manager->openProject(path(u"p.mvproject"_s)));

    QCOMPARE(logged(), QStringList {u"8 \"DIR/a\" cannot be saved"_s});
    QCOMPARE(state(), QStringList {u"DIR/a*"_s});
    QCOMPARE(manager->currentProjectFileName(), path(u"old.mvproject"_s));
}

void tst_ProjectManager::refusesASecondItemOfASection()
{
    FakeItem other;
    FakeItem more(u"more"_s);

    QVERIFY(!manager->addProjectItem(&other));
    QVERIFY(!manager->addProjectItem(item.get()));
    QVERIFY(!manager->addProjectItem(nullptr));
    QVERIFY(manager->addProjectItem(&more));

    more.open_ = {path(u"x"_s)};
    QVERIFY(manager->newProject());
    QVERIFY(manager->saveProject(path(u"p.mvproject"_s), true));
    QCOMPARE(contentOf(path(u"p.mvproject"_s)), uR"(<?xml version="1.0" encoding="UTF-8"?>
<project version="1" name="p">
    <things/>
    <more>
        <entry path="x"/>
    </more>
</project>
)"_s);
    manager->removeProjectItem(&more);
}

void tst_ProjectManager::forgetsARemovedItem()
{
    item->open_ = {u"/a"_s};
    manager->removeProjectItem(item.get());

    QVERIFY(manager->newProject());
    QVERIFY(manager->closeProject());

    QCOMPARE(state(), QStringList {u"/a"_s});
}

void tst_ProjectManager::keepsACustomPath()
{
    QCOMPARE(manager->customProjectsPath(QString()), QString());
    QCOMPARE(manager->customProjectsPath(u"/fallback"_s), u"/fallback"_s);
    QVERIFY(!QFile::exists(path(u"settings.ini"_s)));

    manager->setCustomProjectsPath(u"/my, own/\u20ac \"x\"/"_s);
    const ProjectManager later;
    QCOMPARE(later.customProjectsPath(u"/fallback"_s), u"/my, own/\u20ac \"x\"/"_s);
    QVERIFY(QFile::exists(path(u"settings.ini"_s)));

    manager->setCustomProjectsPath(QString());
    QCOMPARE(later.customProjectsPath(u"/fallback"_s), u"/fallback"_s);
}

void tst_ProjectManager::canBeReplaced()
{
    ProjectManager *const standard = ProjectManager::instance();
    QVERIFY(standard);

    ProjectManager::setInstance(manager.get());
    QCOMPARE(ProjectManager::instance(), manager.get());
    manager.reset();

    QCOMPARE(ProjectManager::instance(), standard);
}

GUILESS_TEST_CLASS(tst_ProjectManager)
#include "tst_ProjectManager.moc"
