// Opening designs and projects from the File menu, and those that were open before.

#include "app/MainWindow.h"
#include "app/session/preferences.h"
#include "app/session/RecentFiles.h"
#include "console/QtclConsole.h"
#include "tests/stories/DialogVisits.h"
#include "tests/stories/JournalReplay.h"
#include "tests/stories/Story.h"
#include "tests/TestClass.h"

#include <MorvalenCore/DesignManager.h>
#include <Qtilities/ProjectManager.h>

#include <QDir>
#include <QMenu>
#include <QStatusBar>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;
using Qtilities::ProjectManagement::ProjectManager;

class tst_OpeningStory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { story = std::make_unique<Story>(); }
    void cleanupTestCase() { story.reset(); }
    void cleanup();

    void aComponentIsOpened();
    void whatCannotBeOpenedIsTold();
    void theLastFilesAreListed();
    void aFileThatIsGoneCannotBeChosen();
    void manyAreFew();
    void theListIsCleared();
    void nothingIsKeptUnlessItIsWanted();
    void aProjectIsMadeSavedAndOpened();
    void openDesignsAreSavedAsAProject();
    void nothingIsOpenedWhileACommandRuns();

private:
    QString makeComponent(const QString &name) const;
    QStringList recentEntries() const;
    QAction *projectEntry(const QString &text);
    static void forget() { RecentFiles::clear(); }

    std::unique_ptr<Story> story;
};

void tst_OpeningStory::cleanup()
{
    story->closeMenus();
    if (ProjectManager::instance()->currentProject())
        ProjectManager::instance()->closeProject();
    DesignManager::instance()->closeDesigns(DesignManager::instance()->openDesignIds(), false);
    QCoreApplication::processEvents();
    forget();
}

QString tst_OpeningStory::makeComponent(const QString &name) const
{
    QDir().mkpath(story->path(name));
    const QString file = story->path(name + u"/component.xml"_s);
    Story::write(file,
                 "<?xml version=\"1.0\"?>\n"
                 "<ipxact:component xmlns:ipxact=\"http://www.accellera.org/XMLSchema/IPXACT/"
                 "1685-2014\">\n<ipxact:vendor>v</ipxact:vendor><ipxact:library>l</ipxact:library>"
                 "<ipxact:name>"
                     + QByteArray(name == u"a & b"_s ? "both" : name.toUtf8())
                     + "</ipxact:name><ipxact:version>1</ipxact:version>\n</ipxact:component>\n");
    return file;
}

// The entries of Open Recent; a separator is a dash.
QStringList tst_OpeningStory::recentEntries() const
{
    auto *menu = story->find<QMenu>("recentMenu");
    Q_EMIT menu->aboutToShow();
    QStringList texts;
    const QList<QAction *> entries = menu->actions();
    for (const QAction *entry : entries)
        texts.append(entry->isSeparator() ? u"-"_s : entry->text());
    return texts;
}

void tst_OpeningStory::aComponentIsOpened()
{
    const QString file = makeComponent(u"a & b"_s);
    const DialogVisits visits({DialogVisits::chooseFile(file)});
    story->press(Qt::Key_O, Qt::ControlModifier);
    QVERIFY2(visits.areDone(), qPrintable(visits.unexpected.join(u'\n')));
    QCOMPARE(DesignManager::instance()->openDesignIds(), QStringList {u"v.l.both.1"_s});
    QTRY_COMPARE(RecentFiles::files(RecentFiles::Designs), QStringList {file});
    QString shown = file;
    shown.replace(u'&', u"&&"_s);
    QCOMPARE(recentEntries(), (QStringList {u"&1  "_s + shown, u"-"_s, u"&Clear List"_s}));
    QVERIFY(story->entry('f', u"Close Design \"both\""_s));
}

void tst_OpeningStory::whatCannotBeOpenedIsTold()
{
    const QString file = story->path(u"bad.xml"_s);
    Story::write(file, "<nonsense>");
    QString said;
    const DialogVisits visits({DialogVisits::chooseFile(file), [&](QDialog *dialog) {
                                   said = qobject_cast<QMessageBox *>(dialog)->text();
                                   DialogVisits::press(dialog, u"OK"_s);
                               }});
    story->press(Qt::Key_O, Qt::ControlModifier);
    QTRY_VERIFY2(visits.areDone(), qPrintable(visits.unexpected.join(u'\n') + said));
    QVERIFY2(said.startsWith(file + u":1: "_s), qPrintable(said));
    QCOMPARE(RecentFiles::files(RecentFiles::Designs), QStringList());
}

void tst_OpeningStory::theLastFilesAreListed()
{
    const QString one = makeComponent(u"one"_s);
    const QString two = makeComponent(u"two"_s);
    story->type(u"designs add {"_s + one + u'}');
    story->type(u"designs add {"_s + two + u'}');
    QTRY_COMPARE(RecentFiles::files(RecentFiles::Designs), (QStringList {two, one}));
    DesignManager::instance()->closeDesigns(DesignManager::instance()->openDesignIds(), false);
    QCOMPARE(recentEntries(),
             (QStringList {u"&1  "_s + two, u"&2  "_s + one, u"-"_s, u"&Clear List"_s}));
    story->find<QMenu>("recentMenu")->actions().at(1)->trigger();
    QCOMPARE(DesignManager::instance()->openDesignIds(), QStringList {u"v.l.one.1"_s});
    QTRY_COMPARE(RecentFiles::files(RecentFiles::Designs), (QStringList {one, two}));
}

void tst_OpeningStory::aFileThatIsGoneCannotBeChosen()
{
    const QString file = makeComponent(u"gone"_s);
    story->type(u"designs add {"_s + file + u'}');
    QTRY_COMPARE(RecentFiles::files(RecentFiles::Designs), QStringList {file});
    QVERIFY(QFile::remove(file));
    QCOMPARE(recentEntries().size(), 3);
    QVERIFY(!story->find<QMenu>("recentMenu")->actions().first()->isEnabled());
}

void tst_OpeningStory::manyAreFew()
{
    story->type(u"for {set i 0} {$i < 25} {incr i} {designs new d$i}"_s);
    QTRY_COMPARE(RecentFiles::files(RecentFiles::Designs).size(), RecentFiles::most);
    QCOMPARE(RecentFiles::files(RecentFiles::Designs).first(),
             story->session() + u"/Designs/d24/component.xml"_s);
}

void tst_OpeningStory::theListIsCleared()
{
    const QString file = makeComponent(u"one"_s);
    story->type(u"designs add {"_s + file + u'}');
    QTRY_COMPARE(RecentFiles::files(RecentFiles::Designs).size(), 1);
    QCOMPARE(recentEntries().size(), 3);
    story->find<QMenu>("recentMenu")->actions().constLast()->trigger();
    QCOMPARE(recentEntries(), QStringList {u"No Files Were Opened Yet"_s});
}

void tst_OpeningStory::nothingIsKeptUnlessItIsWanted()
{
    preferences::setRemembers(preferences::RecentFiles, false);
    story->type(u"designs add {"_s + makeComponent(u"secret"_s) + u'}');
    QCOMPARE(DesignManager::instance()->openDesignIds().size(), 1);
    QCoreApplication::processEvents();
    QVERIFY(!Story::read(story->session() + u"/settings.ini"_s).contains("secret"));
    preferences::setRemembers(preferences::RecentFiles, true);
}

QAction *tst_OpeningStory::projectEntry(const QString &text)
{
    auto *menu = story->find<QMenu>("projectMenu");
    Q_EMIT menu->aboutToShow();
    const QList<QAction *> entries = menu->actions();
    for (QAction *entry : entries) {
        if (entry->text().remove(u'&') == text)
            return entry;
    }
    return nullptr;
}

void tst_OpeningStory::aProjectIsMadeSavedAndOpened()
{
    JournalReplay::begin(story.get());
    const QString file = story->session() + u"/Projects/chips.xml"_s;
    QVERIFY(!projectEntry(u"Save Project"_s)->isEnabled());
    projectEntry(u"New Project"_s)->trigger();
    QCOMPARE(story->window().windowTitle(), u"New Project \u2013 Morvalen"_s);
    story->type(u"designs new uart"_s);
    {
        const DialogVisits visits(
            {DialogVisits::chooseFile(story->session() + u"/Projects/chips"_s)});
        projectEntry(u"Save Project As..."_s)->trigger();
        QVERIFY(visits.areDone());
    }
    QVERIFY(Story::read(file).contains("uart/component.xml"));
    QCOMPARE(story->window().windowTitle(), u"uart \u2013 chips \u2013 Morvalen"_s);
    story->type(u"files add late.v"_s);
    {
        const DialogVisits visits({DialogVisits::answer(
            u"Unsaved Changes\nThe design \"uart\" has changes that are not saved."_s,
            u"Save and Close"_s)});
        projectEntry(u"Close Project"_s)->trigger();
        QVERIFY(visits.areDone());
    }
    QVERIFY(DesignManager::instance()->openDesignIds().isEmpty());
    {
        const DialogVisits visits({DialogVisits::chooseFile(file)});
        projectEntry(u"Open Project..."_s)->trigger();
        QVERIFY(visits.areDone());
    }
    QCOMPARE(DesignManager::instance()->openDesignIds(), QStringList {u"local.global.uart.1.0"_s});
    QVERIFY(Story::activeDesign()->fileByActualPath(u"late.v"_s, false));
    QTRY_COMPARE(RecentFiles::files(RecentFiles::Projects), QStringList {file});
    JournalReplay::compare(*story);
}

// Whoever has opened designs without a project can still keep them together.
void tst_OpeningStory::openDesignsAreSavedAsAProject()
{
    JournalReplay::begin(story.get());
    const QString file = story->session() + u"/Projects/later.xml"_s;
    story->type(u"designs new spi; designs new i2c"_s);
    QVERIFY(projectEntry(u"Save Project As..."_s)->isEnabled());
    {
        const DialogVisits visits({[](QDialog *dialog) { dialog->reject(); }});
        projectEntry(u"Save Project"_s)->trigger();
        QVERIFY(visits.areDone());
    }
    QVERIFY(!ProjectManager::instance()->currentProject());
    {
        const DialogVisits visits({DialogVisits::chooseFile(file)});
        projectEntry(u"Save Project"_s)->trigger();
        QVERIFY(visits.areDone());
    }
    const QByteArray saved = Story::read(file);
    QVERIFY(saved.contains("spi/component.xml") && saved.contains("i2c/component.xml"));
    QCOMPARE(ProjectManager::instance()->currentProjectFileName(), file);
    QVERIFY(!projectEntry(u"Save Project"_s)->isEnabled());
    JournalReplay::compare(*story);
}

void tst_OpeningStory::nothingIsOpenedWhileACommandRuns()
{
    const QString file = makeComponent(u"one"_s);
    const QString refusal = u"Command cannot be executed! The console is running another one."_s;
    story->typeWaiting([&] {
        story->action("newDesign")->trigger();
        QCOMPARE(story->window().statusBar()->currentMessage(), refusal);
        QAction *open = story->entry('f', u"Open..."_s);
        QVERIFY(open && !open->isEnabled());
        QCOMPARE(open->statusTip(), refusal);
        story->closeMenus();
        QVERIFY(open->isEnabled());
        const DialogVisits visits({DialogVisits::chooseFile(file),
                                   DialogVisits::answer(u"Not Now\n"_s + refusal, u"OK"_s)});
        open->trigger();
        QTRY_VERIFY(visits.areDone());
    });
    QCOMPARE(DesignManager::instance()->openDesignIds(), QStringList());
    QVERIFY(story->entry('f', u"Open..."_s)->isEnabled());
}

TEST_CLASS(tst_OpeningStory)
#include "tst_OpeningStory.moc"
