// Closing the window while a project holds something that its file does not.

#include "app/MainWindow.h"
#include "console/QtclConsole.h"
#include "tests/stories/DialogVisits.h"
#include "tests/stories/Story.h"
#include "tests/TestClass.h"

#include <MorvalenCore/DesignManager.h>
#include <Qtilities/ProjectManager.h>

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
    story->type(u"project new"_s);
    story->type(u"designs new uart"_s);
    const QString file = story->path(answer + u".xml"_s);
    QList<DialogVisits::Visit> steps {DialogVisits::answer(
        u"Unsaved Project\nThe project \"New Project\" was never saved."_s, answer)};
    if (answer == u"Save"_s)
        steps.append(DialogVisits::chooseFile(file));
    DialogVisits visits(steps);
    story->window().close();
    QVERIFY2(visits.areDone(), qPrintable(visits.unexpected.join(u'\n')));
    QCOMPARE(!story->window().isVisible(), closes);
    QCOMPARE(Story::read(file).contains("uart/component.xml"), answer == u"Save"_s);
}

void tst_LeavingProjectStory::aProjectWithAFile_data() { aProjectThatWasNeverSaved_data(); }

void tst_LeavingProjectStory::aProjectWithAFile()
{
    QFETCH(const QString, answer);
    QFETCH(const bool, closes);
    const QString file = story->path(u"p.xml"_s);
    QFile::remove(file);
    story->type(u"project new"_s);
    story->type(u"project save {"_s + file + u'}');
    story->type(u"designs new uart"_s);
    DialogVisits visits({DialogVisits::answer(
        u"Unsaved Project\nThe project \"p\" has changes that are not saved."_s, answer)});
    story->window().close();
    QVERIFY2(visits.areDone(), qPrintable(visits.unexpected.join(u'\n')));
    QCOMPARE(!story->window().isVisible(), closes);
    QCOMPARE(Story::read(file).contains("uart/component.xml"), answer == u"Save"_s);
}

TEST_CLASS(tst_LeavingProjectStory)
#include "tst_LeavingProjectStory.moc"
