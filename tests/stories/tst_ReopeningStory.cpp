// What is open in the window comes back in the next one. Each window is that of another process.

#include "app/designs/DesignTree.h"
#include "app/designs/DesignTreeView.h"
#include "app/DesignsMode.h"
#include "app/editor/EditorArea.h"
#include "app/editor/TextEdit.h"
#include "app/editor/TextPage.h"
#include "app/journal/CommandJournal.h"
#include "app/MainWindow.h"
#include "app/OpenThings.h"
#include "app/session/preferences.h"
#include "console/QtclConsole.h"
#include "tests/stories/DialogVisits.h"
#include "tests/stories/Story.h"
#include "tests/TestClass.h"

#include <MorvalenCore/DesignManager.h>
#include <MorvalenCore/EditorManager.h>
#include <Qtilities/Logger.h>
#include <Qtilities/ProjectManager.h>

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;
using Qtilities::ProjectManagement::ProjectManager;

class tst_ReopeningStory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { story = std::make_unique<Story>(); }
    void cleanupTestCase() { story.reset(); }
    void cleanup();

    void everythingComesBack();
    void whatIsNamedAgainComesToTheFront();
    void aDesignThatIsGoneIsToldOf();
    void nothingIsKeptUnlessWanted();
    void aFileThatIsNoGoodOpensNothing();

private:
    EditorArea *editors() const { return story->window().designsMode()->editorArea(); }
    QString component(const QString &name) const
    {
        return story->session() + u"/Designs/"_s + name + u"/component.xml"_s;
    }
    // Leaves the window as closing does, and goes on with an empty one, as a new process has it.
    void leaveAndEmpty();
    void closeEverything();

    std::unique_ptr<Story> story;
};

void tst_ReopeningStory::closeEverything()
{
    editors()->closeAll();
    if (ProjectManager::instance()->currentProject())
        ProjectManager::instance()->closeProject();
    DesignManager::instance()->closeDesigns(DesignManager::instance()->openDesignIds(), false);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(DesignManager::instance()->openDesignIds().isEmpty());
}

void tst_ReopeningStory::cleanup()
{
    closeEverything();
    preferences::setRemembers(preferences::OpenThings, true);
    QVERIFY(QDir(story->session() + u"/Designs"_s).removeRecursively());
    QVERIFY(QDir(story->session()).mkdir(u"Designs"_s));
}

void tst_ReopeningStory::leaveAndEmpty()
{
    const DialogVisits nothingIsAsked;
    QVERIFY(story->window().close());
    QVERIFY2(nothingIsAsked.areDone(), qPrintable(nothingIsAsked.unexpected.join(u'\n')));
    const QByteArray kept = Story::read(OpenThings::fileName());
    closeEverything();
    story->window().show();
    story->takeKeyboard();
    story->window().activateMode(105);
    Story::write(OpenThings::fileName(), kept);
}

namespace {

// One of 500 lines, and a short one.
void openTexts(const QString &notes, const QString &other)
{
    QByteArray lines;
    for (int line = 1; line <= 500; ++line)
        lines += "line " + QByteArray::number(line) + '\n';
    Story::write(notes, lines);
    Story::write(other, "other\n");
    for (const QString &path : {notes, other}) {
        QString error;
        QVERIFY(MorvalenCore::EditorManager::instance()->createEditorForPath(path, &error, {}, true,
                                                                             false));
    }
}

} // namespace

void tst_ReopeningStory::everythingComesBack()
{
    const QString project = story->path(u"p.xml"_s);
    story->type(u"project new"_s);
    story->type(u"designs new uart; designs new fifo; designs new spi"_s);
    story->type(u"designs set_active [lindex [designs list] 1]"_s);
    story->type(u"project save {"_s + project + u'}');
    const QString active = Story::activeDesign()->id(u"."_s);
    const QString notes = story->path(u"notes.txt"_s);
    openTexts(notes, story->path(u"other.txt"_s));
    const QString key = QFileInfo(notes).canonicalFilePath();
    auto *page = qobject_cast<TextPage *>(editors()->page(key));
    editors()->bringUpPage(page);
    page->textEdit()->goToLine(400);
    const int cursor = page->textEdit()->textCursor().position();
    story->window().activateMode(DesignsMode::id);
    DesignTreeView *tree = story->window().designTree()->treeView();
    QTRY_COMPARE(tree->model()->rowCount(), 3);
    tree->collapse(tree->model()->index(0, 0));
    leaveAndEmpty();

    CommandJournal::instance()->clear();
    story->window().reopen();
    QCOMPARE(CommandJournal::instance()->entries(),
             (QStringList {u"project open "_s + project, u"designs set_active "_s + active}));
    QCOMPARE(DesignManager::instance()->openDesignIds().size(), 3);
    QCOMPARE(Story::activeDesign()->id(u"."_s), active);
    QCOMPARE(ProjectManager::instance()->currentProjectFileName(), project);
    QVERIFY(!ProjectManager::instance()->isCurrentProjectModified());
    QCOMPARE(editors()->pages().size(), 2);
    page = qobject_cast<TextPage *>(editors()->currentPage());
    QVERIFY(page);
    QCOMPARE(page->key(), key);
    QCOMPARE(page->textEdit()->textCursor().position(), cursor);
    QVERIFY(!page->isModified());
    QCOMPARE(story->window().activeMode(), int(DesignsMode::id));
    QTRY_COMPARE(tree->model()->rowCount(), 3);
    QVERIFY(!tree->isExpanded(tree->model()->index(0, 0)));
    QVERIFY(tree->isExpanded(tree->model()->index(1, 0)));
}

void tst_ReopeningStory::whatIsNamedAgainComesToTheFront()
{
    story->type(u"designs new uart; designs new fifo"_s);
    const QString named = component(u"uart"_s);
    leaveAndEmpty();
    story->window().reopen();
    QCOMPARE(Story::activeDesign()->name(), u"fifo"_s);
    QStringList told;
    const auto listening =
        connect(Qtilities::Logging::Logger::instance(), &Qtilities::Logging::Logger::messageLogged,
                this, [&told](const QString &, auto type, const QString &text) {
                    if (type == Qtilities::Logging::Logger::Error)
                        told.append(text);
                });
    story->window().openFiles({named});
    disconnect(listening);
    QCOMPARE(told, QStringList());
    QCOMPARE(DesignManager::instance()->openDesignIds().size(), 2);
    QCOMPARE(Story::activeDesign()->name(), u"uart"_s);
}

void tst_ReopeningStory::aDesignThatIsGoneIsToldOf()
{
    story->type(u"designs new uart; designs new fifo"_s);
    const QString gone = component(u"uart"_s);
    leaveAndEmpty();
    QVERIFY(QFile::remove(gone));
    DialogVisits visits({[&gone](QDialog *dialog) {
        const auto *box = qobject_cast<QMessageBox *>(dialog);
        QVERIFY(box);
        QCOMPARE(box->windowTitle(), u"Not Opened Again"_s);
        QVERIFY2(box->text().contains(gone), qPrintable(box->text()));
        dialog->accept();
    }});
    story->window().reopen();
    QTRY_VERIFY(visits.areDone());
    QCOMPARE(DesignManager::instance()->openDesignIds().size(), 1);
    QCOMPARE(Story::activeDesign()->name(), u"fifo"_s);
}

void tst_ReopeningStory::nothingIsKeptUnlessWanted()
{
    preferences::setRemembers(preferences::OpenThings, false);
    story->type(u"designs new uart"_s);
    const DialogVisits nothingIsAsked;
    QVERIFY(story->window().close());
    QVERIFY(!QFile::exists(OpenThings::fileName()));
    story->window().show();
}

void tst_ReopeningStory::aFileThatIsNoGoodOpensNothing()
{
    const DialogVisits nothingIsAsked;
    for (const QByteArray &bytes :
         {QByteArray(), QByteArray("{"), QByteArray("{\"version\": 99, \"designs\": [\"/x\"]}"),
          QByteArray("{\"version\": 1, \"designs\": 7, \"pages\": {}, \"mode\": \"x\"}")}) {
        Story::write(OpenThings::fileName(), bytes);
        story->window().reopen();
        QVERIFY(DesignManager::instance()->openDesignIds().isEmpty());
    }
    QVERIFY(nothingIsAsked.areDone());
}

TEST_CLASS(tst_ReopeningStory)
#include "tst_ReopeningStory.moc"
