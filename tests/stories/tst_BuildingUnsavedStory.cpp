// Building while a page has changes that are not saved.

#include "app/DesignsMode.h"
#include "app/editor/EditorArea.h"
#include "app/editor/EditorPage.h"
#include "app/MainWindow.h"
#include "app/session/preferences.h"
#include "console/QtclConsole.h"
#include "tests/stories/DialogVisits.h"
#include "tests/stories/Story.h"
#include "tests/TestClass.h"

#include <MorvalenCore/DesignManager.h>
#include <MorvalenCore/EditorManager.h>

#include <QCheckBox>
#include <QPlainTextEdit>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::BuildConfiguration;
using MorvalenCore::DesignManager;
using preferences::PagesBeforeBuild;

class tst_BuildingUnsavedStory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { story = std::make_unique<Story>(); }
    void cleanupTestCase() { story.reset(); }
    void init();
    void cleanup();

    void thePageIsAskedAbout_data();
    void thePageIsAskedAbout();
    void theAnswerIsRemembered();

private:
    QString source() const { return story->session() + u"/Designs/uart/top.txt"_s; }
    QByteArray built() const
    {
        return Story::read(story->session() + u"/Designs/uart/build/copy/out.txt"_s);
    }
    void type(const QString &text);

    std::unique_ptr<Story> story;
};

void tst_BuildingUnsavedStory::init()
{
    story->type(u"designs new uart"_s);
    Story::write(source(), "old\n");
    story->type(u"morvalen configuration add copy"_s);
    story->type(u"morvalen step add copy only -command {cp top.txt build/copy/out.txt} "
                "-inputs top.txt -outputs build/copy/out.txt"_s);
    story->type(u"design save"_s);
    QVERIFY(Story::activeDesign() && !Story::activeDesign()->isModified());
}

void tst_BuildingUnsavedStory::cleanup()
{
    preferences::setPagesBeforeBuild(PagesBeforeBuild::Ask);
    {
        const DialogVisits discard(
            {[](QDialog *dialog) { DialogVisits::press(dialog, u"Discard"_s); }});
        story->window().designsMode()->editorArea()->closeAll();
    }
    DesignManager::instance()->closeDesigns(DesignManager::instance()->openDesignIds(), true);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// Types a word at the start of the source, in a page.
void tst_BuildingUnsavedStory::type(const QString &text)
{
    QString error;
    QWidget *page = MorvalenCore::EditorManager::instance()->createEditorForPath(
        source(), &error, QString(), true, false);
    QVERIFY2(page, qPrintable(error));
    QTest::keyClicks(page->findChild<QPlainTextEdit *>(), text);
}

void tst_BuildingUnsavedStory::thePageIsAskedAbout_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<QByteArray>("result");
    QTest::newRow("building-1 saves") << u"Save and Build"_s << QByteArray("new old\n");
    QTest::newRow("building-2 does not") << u"Build Without Saving"_s << QByteArray("old\n");
    QTest::newRow("building-3 is cancelled") << u"Cancel"_s << QByteArray();
}

void tst_BuildingUnsavedStory::thePageIsAskedAbout()
{
    QFETCH(const QString, answer);
    QFETCH(const QByteArray, result);
    type(u"new "_s);
    DialogVisits visits({DialogVisits::answer(
        u"Unsaved Changes\n\"top.txt\" has changes that are not saved."_s, answer)});
    story->press(Qt::Key_F7);
    QTRY_VERIFY(visits.areDone());
    const BuildConfiguration *copy = Story::activeDesign()->activeBuildConfiguration();
    if (!result.isEmpty())
        QTRY_COMPARE(copy->runState(), BuildConfiguration::Completed);
    QCOMPARE(built(), result);
    QCOMPARE(copy->runState() == BuildConfiguration::Idle, result.isEmpty());
    QCOMPARE(story->window().designsMode()->editorArea()->modifiedPages().size(),
             answer == u"Save and Build"_s ? 0 : 1);
}

void tst_BuildingUnsavedStory::theAnswerIsRemembered()
{
    type(u"new "_s);
    {
        DialogVisits visits({[](QDialog *dialog) {
            auto *always = dialog->findChild<QCheckBox *>();
            QCOMPARE(always->text(), u"Do this &always, without asking"_s);
            QTest::keyClick(always, Qt::Key_Space);
            DialogVisits::press(dialog, u"Save and Build"_s);
        }});
        story->press(Qt::Key_F7);
        QTRY_VERIFY(visits.areDone());
        QTRY_COMPARE(built(), QByteArray("new old\n"));
    }
    QCOMPARE(preferences::pagesBeforeBuild(), PagesBeforeBuild::Save);
    const BuildConfiguration *copy = Story::activeDesign()->activeBuildConfiguration();
    QTRY_COMPARE(copy->runState(), BuildConfiguration::Completed);
    type(u"very "_s);
    const DialogVisits nothingIsAsked;
    story->press(Qt::Key_F7, Qt::ShiftModifier);
    QTRY_COMPARE(built(), QByteArray("new very old\n"));
    QTRY_COMPARE(copy->runState(), BuildConfiguration::Completed);
    QVERIFY(nothingIsAsked.areDone());
}

TEST_CLASS(tst_BuildingUnsavedStory)
#include "tst_BuildingUnsavedStory.moc"
