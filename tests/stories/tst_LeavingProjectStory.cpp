// Closing the window while a project holds something that its file does not.

#include "app/MainWindow.h"
#include "console/QtclConsole.h"
#include "tests/stories/DialogVisits.h"
#include "tests/stories/JournalReplay.h"
#include "tests/stories/Story.h"
#include "tests/TestClass.h"

#include <MorvalenCore/DesignManager.h>
#include <Qtilities/ProjectManager.h>

#include <QDir>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;
using Qtilities::ProjectManagement::ProjectManager;

class tst_LeavingProjectStory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { story = std::make_unique<Story>(); }
    void cleanupTestCase() { story.reset(); }
    void cleanup();

    void aProjectThatWasNeverSaved_data();
    void aProjectThatWasNeverSaved();
    void aProjectWithAFile_data();
    void aProjectWithAFile();

private:
    std::unique_ptr<Story> story;
};

void tst_LeavingProjectStory::cleanup()
{
    story->window().show();
    DesignManager::instance()->closeDesigns(DesignManager::instance()->openDesignIds(), true);
    QVERIFY(ProjectManager::instance()->closeProject());
    QVERIFY(QDir(story->session() + u"/Projects"_s).removeRecursively());
    QVERIFY(QDir(story->session()).mkdir(u"Projects"_s));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void tst_LeavingProjectStory::aProjectThatWasNeverSaved_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<bool>("closes");
    QTest::newRow("project-1 saved") << u"Save"_s << true;
    QTest::newRow("project-2 discarded") << u"Discard"_s << true;
    QTest::newRow("project-3 cancelled") << u"Cancel"_s << false;
}

void tst_LeavingProjectStory::aProjectThatWasNeverSaved()
{
    QFETCH(const QString, answer);
    QFETCH(const bool, closes);
    JournalReplay::begin(story.get());
    story->type(u"project new"_s);
    story->type(u"designs new uart"_s);
    const QString file = story->session() + u"/Projects/"_s + answer + u".xml"_s;
    QList<DialogVisits::Visit> steps {DialogVisits::answer(
        u"Unsaved Project\nThe project \"New Project\" was never saved."_s, answer)};
    if (answer == u"Save"_s)
        steps.append(DialogVisits::chooseFile(file));
    DialogVisits visits(steps);
    story->window().close();
    QVERIFY2(visits.areDone(), qPrintable(visits.unexpected.join(u'\n')));
    QCOMPARE(!story->window().isVisible(), closes);
    QCOMPARE(Story::read(file).contains("uart/component.xml"), answer == u"Save"_s);
    JournalReplay::compare(*story);
}

void tst_LeavingProjectStory::aProjectWithAFile_data() { aProjectThatWasNeverSaved_data(); }

void tst_LeavingProjectStory::aProjectWithAFile()
{
    QFETCH(const QString, answer);
    QFETCH(const bool, closes);
    JournalReplay::begin(story.get());
    const QString file = story->session() + u"/Projects/p.xml"_s;
    QFile::remove(file);
    story->type(u"project new"_s);
    story->type(u"project save [file join [project projects_path] p.xml]"_s);
    story->type(u"designs new uart"_s);
    DialogVisits visits({DialogVisits::answer(
        u"Unsaved Project\nThe project \"p\" has changes that are not saved."_s, answer)});
    story->window().close();
    QVERIFY2(visits.areDone(), qPrintable(visits.unexpected.join(u'\n')));
    QCOMPARE(!story->window().isVisible(), closes);
    QCOMPARE(Story::read(file).contains("uart/component.xml"), answer == u"Save"_s);
    JournalReplay::compare(*story);
}

TEST_CLASS(tst_LeavingProjectStory)
#include "tst_LeavingProjectStory.moc"
