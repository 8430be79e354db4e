// A day's work: a build that is run, one that is cancelled, and a text that somebody else changes
// too.

#include "app/DesignsMode.h"
#include "app/editor/EditorArea.h"
#include "app/editor/EditorPage.h"
#include "app/MainWindow.h"
#include "console/QtclConsole.h"
#include "tests/process/builds/buildcomponent.h"
#include "tests/stories/DialogVisits.h"
#include "tests/stories/JournalReplay.h"
#include "tests/stories/Story.h"
#include "tests/TestClass.h"

#include <MorvalenCore/DesignManager.h>

#include <QPlainTextEdit>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::BuildConfiguration;
using MorvalenCore::DesignManager;

class tst_WorkStory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { story = std::make_unique<Story>(); }
    void cleanupTestCase() { story.reset(); }
    void cleanup();

    void aBuildIsRun();
    void aBuildIsCancelled();
    void leavingCancelsABuild();
    void aTextIsChangedByTwo_data();
    void aTextIsChangedByTwo();

private:
    // Opens a component with one step in its build configuration.
    BuildConfiguration *openBuild(const QByteArray &command);

    std::unique_ptr<Story> story;
};

void tst_WorkStory::cleanup()
{
    DesignManager::instance()->closeDesigns(DesignManager::instance()->openDesignIds(), false);
}

BuildConfiguration *tst_WorkStory::openBuild(const QByteArray &command)
{
    Story::write(story->path(u"component.xml"_s), buildComponent(step("s", command, "in", "out")));
    Story::write(story->path(u"in"_s), "contents");
    story->type(u"designs add {"_s + story->path(u"component.xml"_s) + u'}');
    return Story::activeDesign() ? Story::activeDesign()->activeBuildConfiguration() : nullptr;
}

void tst_WorkStory::aBuildIsRun()
{
    JournalReplay::begin();
    const BuildConfiguration *build = openBuild("cp in out");
    QVERIFY(build);
    const DialogVisits visits;
    story->press(Qt::Key_F7);
    QTRY_COMPARE(build->runState(), BuildConfiguration::Completed);
    QCOMPARE(Story::read(story->path(u"out"_s)), QByteArray("contents"));
    QVERIFY(Story::activeDesign()->fileByActualPath(u"out"_s, false));
    QVERIFY2(visits.areDone(), qPrintable(visits.unexpected.join(u'\n')));
    story->press(Qt::Key_S, Qt::ControlModifier);
    QVERIFY(Story::read(story->path(u"component.xml"_s)).contains(">out<"));
    JournalReplay::compare(*story);
}

// The run comes back only when it has ended; the window lives meanwhile.
void tst_WorkStory::aBuildIsCancelled()
{
    const BuildConfiguration *build = openBuild("sleep 300; cp in late");
    QVERIFY(build);
    bool wasShown = false;
    QTimer watch;
    watch.callOnTimeout(&story->window(), [&] {
        const auto *progress = story->find<QWidget>("buildProgress");
        QAction *cancel = story->action("buildCancel");
        if (build->runState() != BuildConfiguration::Running || !progress->isVisible()
            || !cancel->isEnabled())
            return;
        wasShown = true;
        watch.stop();
        cancel->trigger();
    });
    watch.start(20);
    story->press(Qt::Key_F7);
    QTRY_COMPARE_WITH_TIMEOUT(build->runState(), BuildConfiguration::Cancelled, patient(20'000));
    QVERIFY(wasShown);
    QVERIFY(!QFile::exists(story->path(u"late"_s)));
}

void tst_WorkStory::leavingCancelsABuild()
{
    const QString question = u"A Build Is Running\nA build is running."_s;
    const BuildConfiguration *build = openBuild("sleep 300; cp in late");
    QVERIFY(build);
    story->type(u"files add more.v"_s);
    int asked = 0;
    std::unique_ptr<DialogVisits> last;
    QTimer watch;
    watch.callOnTimeout(&story->window(), [&] {
        if (build->runState() != BuildConfiguration::Running || asked == 2)
            return;
        watch.stop();
        const DialogVisits visits(
            {DialogVisits::answer(question, asked == 0 ? u"Cancel"_s : u"Quit Anyway"_s)});
        ++asked;
        story->window().close();
        QVERIFY(visits.areDone());
        // The build goes on, or ends in its own time.
        QVERIFY(story->window().isVisible());
        if (asked == 2)
            last = std::make_unique<DialogVisits>(QList<DialogVisits::Visit> {DialogVisits::answer(
                u"Unsaved Changes\nThe design \"soft\" has changes that are not saved."_s,
                u"Save and Close"_s)});
        watch.start();
    });
    watch.start(20);
    story->press(Qt::Key_F7);
    QTRY_VERIFY_WITH_TIMEOUT(!story->window().isVisible(), patient(20'000));
    QCOMPARE(asked, 2);
    QVERIFY(last->areDone());
    QVERIFY(Story::read(story->path(u"component.xml"_s)).contains("more.v"));
    QCOMPARE(build->runState(), BuildConfiguration::Cancelled);
    story->window().show();
}

void tst_WorkStory::aTextIsChangedByTwo_data()
{
    QTest::addColumn<QString>("choice");
    QTest::addColumn<QByteArray>("onDisk");
    QTest::newRow("conflict-1 theirs") << u"Reload"_s << QByteArray("theirs\n");
    QTest::newRow("conflict-2 mine") << u"Save Anyway"_s << QByteArray("mine old\n");
}

void tst_WorkStory::aTextIsChangedByTwo()
{
    QFETCH(const QString, choice);
    QFETCH(const QByteArray, onDisk);
    const QString file = story->path(u"part.v"_s);
    Story::write(file, "old\n");
    QVERIFY(openBuild("true"));
    story->type(u"files add part.v"_s);
    story->type(u"files set_active part.v"_s);
    story->type(u"sfile open"_s);
    EditorArea *editors = story->window().designsMode()->editorArea();
    QTRY_VERIFY(editors->isVisible() && editors->currentPage());
    QCOMPARE(editors->currentPage()->filePath(), file);
    QTest::keyClicks(editors->currentPage()->findChild<QPlainTextEdit *>(), u"mine "_s);
    Story::write(file, "theirs\n");
    // Saving with the key does not write over what somebody else has written.
    story->press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(Story::read(file), QByteArray("theirs\n"));
    QAbstractButton *button = nullptr;
    const auto find = [&] {
        const auto buttons = editors->currentPage()->findChildren<QAbstractButton *>();
        for (QAbstractButton *candidate : buttons) {
            if (candidate->isVisible() && candidate->text().remove(u'&') == choice)
                button = candidate;
        }
        return button;
    };
    QTRY_VERIFY(find());
    QTest::mouseClick(button, Qt::LeftButton);
    QTRY_VERIFY(!editors->currentPage()->isModified());
    QCOMPARE(Story::read(file), onDisk);
    QVERIFY(editors->closeAll());
    story->window().activateMode(105);
}

TEST_CLASS(tst_WorkStory)
#include "tst_WorkStory.moc"
