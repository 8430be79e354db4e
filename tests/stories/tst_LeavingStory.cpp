// Closing the window, and closing designs, with everything that can be unsaved, and every answer.

#include "app/DesignsMode.h"
#include "app/editor/EditorArea.h"
#include "app/editor/EditorPage.h"
#include "app/MainWindow.h"
#include "console/QtclConsole.h"
#include "tests/stories/DialogVisits.h"
#include "tests/stories/JournalReplay.h"
#include "tests/stories/Story.h"
#include "tests/TestClass.h"

#include <MorvalenCore/DesignManager.h>
#include <MorvalenCore/EditorManager.h>
#include <Qtilities/ProjectManager.h>

#include <QDir>
#include <QPlainTextEdit>
#include <QSignalSpy>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;
using Qtilities::ProjectManagement::ProjectManager;

namespace {

const QString designQuestion =
    u"Unsaved Changes\nThe design \"uart\" has changes that are not saved."_s;
const QString projectQuestion = u"Unsaved Project\nThe project \"New Project\" was never saved."_s;
const QString pageQuestion = u"Unsaved Changes\n\"notes.txt\" has changes that are not saved."_s;

} // namespace

class tst_LeavingStory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { story.reset(); }
    void init();
    void cleanup();

    void nothingIsAskedWithoutChanges();
    void aChangedDesign_data();
    void aChangedDesign();
    void closingADesignAsks_data();
    void closingADesignAsks();
    void aDesignThatOnlyACommandHasChanged();
    void whatIsDiscardedStaysWhenTheUserCancels();
    void aDesignThatCannotBeSaved_data();
    void aDesignThatCannotBeSaved();
    void aTextInAnEditor_data();
    void aTextInAnEditor();
    void whenAScriptEndsTheProgram_data();
    void whenAScriptEndsTheProgram();
    void aRunningCommand();
    void everythingAtOnce();

private:
    // Closes the window as its frame's button does; whether it is closed then.
    bool close(DialogVisits &visits);
    void makeDesign();
    void openNotes();
    QString component() const { return story->session() + u"/Designs/uart/component.xml"_s; }
    QString notes() const { return story->path(u"notes.txt"_s); }

    std::unique_ptr<Story> story;
};

void tst_LeavingStory::initTestCase() { story = std::make_unique<Story>(); }

void tst_LeavingStory::init()
{
    story->window().show();
    story->takeKeyboard();
    story->window().activateMode(105);
    Story::write(notes(), "old\n");
}

void tst_LeavingStory::cleanup()
{
    EditorArea *editors = story->window().designsMode()->editorArea();
    {
        DialogVisits discard({[](QDialog *dialog) { DialogVisits::press(dialog, u"Discard"_s); }});
        editors->closeAll();
    }
    if (ProjectManager::instance()->currentProject())
        ProjectManager::instance()->closeProject();
    DesignManager::instance()->closeDesigns(DesignManager::instance()->openDesignIds(), true);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(DesignManager::instance()->openDesignIds().isEmpty());
    // The folder of a design that the test itself has closed.
    QVERIFY(QDir(story->session() + u"/Designs/uart"_s).removeRecursively());
    QVERIFY(QDir(story->session() + u"/Backups"_s).removeRecursively());
    QVERIFY(QDir(story->session()).mkdir(u"Backups"_s));
}

bool tst_LeavingStory::close(DialogVisits &visits)
{
    const QSignalSpy closed(&story->window(), &MainWindow::closed);
    story->window().close();
    const bool isClosed = !story->window().isVisible();
    if (!visits.areDone() || (closed.size() == 1) != isClosed) {
        QTest::qFail(qPrintable(u"unexpected: "_s + visits.unexpected.join(u'\n')), __FILE__,
                     __LINE__);
    }
    return isClosed;
}

void tst_LeavingStory::makeDesign()
{
    story->type(u"designs new uart"_s);
    story->type(u"files add late.v"_s);
    QVERIFY(Story::activeDesign() && Story::activeDesign()->isModified());
}

// Opens a text and types a word at its start.
void tst_LeavingStory::openNotes()
{
    QString error;
    QWidget *page = MorvalenCore::EditorManager::instance()->createEditorForPath(
        notes(), &error, QString(), true, false);
    QVERIFY2(page, qPrintable(error));
    auto *text = page->findChild<QPlainTextEdit *>();
    QVERIFY(text);
    QTest::keyClicks(text, u"new "_s);
    QCOMPARE(story->window().designsMode()->editorArea()->modifiedPages().size(), 1);
}

void tst_LeavingStory::nothingIsAskedWithoutChanges()
{
    story->type(u"designs new uart"_s);
    DialogVisits visits;
    QVERIFY(close(visits));
}

void tst_LeavingStory::aChangedDesign_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<bool>("closes");
    QTest::newRow("design-1 saved") << u"Save and Close"_s << true;
    QTest::newRow("design-2 cancelled") << u"Cancel"_s << false;
    QTest::newRow("design-3 discarded") << u"Discard"_s << true;
}

void tst_LeavingStory::aChangedDesign()
{
    QFETCH(const QString, answer);
    QFETCH(const bool, closes);
    JournalReplay::begin(story.get());
    makeDesign();
    DialogVisits visits({DialogVisits::answer(designQuestion, answer)});
    QCOMPARE(close(visits), closes);
    QCOMPARE(Story::read(component()).contains("late.v"), answer == u"Save and Close"_s);
    QCOMPARE(Story::activeDesign()->isModified(), !closes);
    if (!closes)
        story->type(u"design save"_s);
    JournalReplay::compare(*story);
}

void tst_LeavingStory::closingADesignAsks_data() { aChangedDesign_data(); }

void tst_LeavingStory::closingADesignAsks()
{
    QFETCH(const QString, answer);
    QFETCH(const bool, closes);
    JournalReplay::begin(story.get());
    makeDesign();
    QVERIFY(story->entry('f', u"Close Design \"uart\""_s));
    story->closeMenus();
    const DialogVisits visits({DialogVisits::answer(designQuestion, answer)});
    story->action("closeDesign")->trigger();
    QVERIFY(visits.areDone());
    QCOMPARE(DesignManager::instance()->openDesignIds().isEmpty(), closes);
    QCOMPARE(Story::read(component()).contains("late.v"), answer == u"Save and Close"_s);
    const QDir backups(story->session() + u"/Backups"_s);
    QVERIFY(backups.isEmpty());
    if (!closes)
        story->type(u"design save"_s);
    JournalReplay::compare(*story);
}

void tst_LeavingStory::aDesignThatOnlyACommandHasChanged()
{
    makeDesign();
    const auto cancel = [](QDialog *dialog) { DialogVisits::press(dialog, u"Cancel"_s); };
    const QString file = QDir::toNativeSeparators(Story::activeDesign()->componentFileName());
    {
        DialogVisits visits({[&](QDialog *dialog) {
            QCOMPARE(qobject_cast<QMessageBox *>(dialog)->informativeText(),
                     u"Saving writes them to:\n"_s + file
                         + u" (changed only by the command \"files add late.v\")"_s);
            cancel(dialog);
        }});
        QVERIFY(!close(visits));
    }
    // From now on it is the user's too.
    QVERIFY(Story::activeDesign()->trySetAuthor(u"me"_s).isOk());
    DialogVisits visits({[&](QDialog *dialog) {
        QCOMPARE(qobject_cast<QMessageBox *>(dialog)->informativeText(),
                 u"Saving writes them to:\n"_s + file);
        cancel(dialog);
    }});
    QVERIFY(!close(visits));
}

// Nothing is given up before all is agreed.
void tst_LeavingStory::whatIsDiscardedStaysWhenTheUserCancels()
{
    makeDesign();
    openNotes();
    {
        DialogVisits visits({DialogVisits::answer(designQuestion, u"Discard"_s),
                             DialogVisits::answer(pageQuestion, u"Cancel"_s)});
        QVERIFY(!close(visits));
    }
    QVERIFY(Story::activeDesign()->isModified());
    DialogVisits visits({DialogVisits::answer(designQuestion, u"Discard"_s),
                         DialogVisits::answer(pageQuestion, u"Discard"_s)});
    QVERIFY(close(visits));
    QVERIFY(!Story::read(component()).contains("late.v"));
    QCOMPARE(Story::read(notes()), QByteArray("old\n"));
}

void tst_LeavingStory::aDesignThatCannotBeSaved_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<bool>("closes");
    QTest::newRow("unsavable-1 closed anyway") << u"Close Anyway"_s << true;
    QTest::newRow("unsavable-2 cancelled") << u"Cancel"_s << false;
}

// Somebody else has changed the component file, which is never written over.
void tst_LeavingStory::aDesignThatCannotBeSaved()
{
    QFETCH(const QString, answer);
    QFETCH(const bool, closes);
    makeDesign();
    const QByteArray theirs = Story::read(component()) + "<!-- theirs -->\n";
    Story::write(component(), theirs);
    DialogVisits visits(
        {DialogVisits::answer(designQuestion, u"Save and Close"_s),
         DialogVisits::answer(u"Not Saved\nNot everything could be saved."_s, answer)});
    QCOMPARE(close(visits), closes);
    QCOMPARE(Story::read(component()), theirs);
    const QDir backups(story->session() + u"/Backups"_s);
    const QStringList copies = backups.entryList(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot);
    QCOMPARE(!copies.isEmpty(), closes);
}

void tst_LeavingStory::aTextInAnEditor_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<bool>("closes");
    QTest::addColumn<QByteArray>("onDisk");
    QTest::newRow("text-1 saved") << u"Save"_s << true << QByteArray("new old\n");
    QTest::newRow("text-2 discarded") << u"Discard"_s << true << QByteArray("old\n");
    QTest::newRow("text-3 cancelled") << u"Cancel"_s << false << QByteArray("old\n");
}

void tst_LeavingStory::aTextInAnEditor()
{
    QFETCH(const QString, answer);
    QFETCH(const bool, closes);
    QFETCH(const QByteArray, onDisk);
    openNotes();
    DialogVisits visits({DialogVisits::answer(pageQuestion, answer)});
    QCOMPARE(close(visits), closes);
    QCOMPARE(Story::read(notes()), onDisk);
    QCOMPARE(story->window().designsMode()->editorArea()->pages().size(), closes ? 0 : 1);
}

void tst_LeavingStory::whenAScriptEndsTheProgram_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<QByteArray>("onDisk");
    QTest::newRow("end-1 saved") << u"Save"_s << QByteArray("new old\n");
    QTest::newRow("end-2 discarded") << u"Discard"_s << QByteArray("old\n");
}

// There is no way back then, so that nothing can be cancelled.
void tst_LeavingStory::whenAScriptEndsTheProgram()
{
    QFETCH(const QString, answer);
    QFETCH(const QByteArray, onDisk);
    openNotes();
    const DialogVisits visits({DialogVisits::answer(
        u"Unsaved Changes\nThe program ends, and there are changes that are not saved."_s,
        answer)});
    story->window().prepareForEnd();
    QVERIFY2(visits.areDone(), qPrintable(visits.unexpected.join(u'\n')));
    QCOMPARE(Story::read(notes()), onDisk);
}

// A command that waits in an event loop lets the user close the window.
void tst_LeavingStory::aRunningCommand()
{
    const QString question = u"A Command Is Running\nThe console is running a command."_s;
    story->typeWaiting([&] {
        {
            DialogVisits stay({DialogVisits::answer(question, u"Cancel"_s)});
            QVERIFY(!close(stay));
        }
        {
            DialogVisits go({DialogVisits::answer(question, u"Quit Anyway"_s)});
            QVERIFY(close(go));
        }
        int code = 0;
        story->console().interpretCommand(u"nothing"_s, &code);
        QCOMPARE(code, 1);
    });
}

void tst_LeavingStory::everythingAtOnce()
{
    story->type(u"project new"_s);
    makeDesign();
    openNotes();
    {
        DialogVisits visits({DialogVisits::answer(designQuestion, u"Save and Close"_s),
                             DialogVisits::answer(projectQuestion, u"Discard"_s),
                             DialogVisits::answer(pageQuestion, u"Cancel"_s)});
        QVERIFY(!close(visits));
    }
    QCOMPARE(Story::read(notes()), QByteArray("old\n"));
    DialogVisits visits({DialogVisits::answer(projectQuestion, u"Discard"_s),
                         DialogVisits::answer(pageQuestion, u"Save"_s)});
    QVERIFY(close(visits));
    QCOMPARE(Story::read(notes()), QByteArray("new old\n"));
}

TEST_CLASS(tst_LeavingStory)
#include "tst_LeavingStory.moc"
