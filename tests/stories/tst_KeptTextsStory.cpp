// Texts that are not saved when the program is killed. Each is typed into the window of another
// process, in the same session, which is killed then.

#include "app/DesignsMode.h"
#include "app/editor/EditorArea.h"
#include "app/editor/NoticeBar.h"
#include "app/editor/TextPage.h"
#include "app/keeping/TextKeeper.h"
#include "app/MainWindow.h"
#include "app/session/preferences.h"
#include "tests/patience.h"
#include "tests/stories/DialogVisits.h"
#include "tests/stories/Story.h"
#include "tests/TestClass.h"

#include <MorvalenCore/EditorManager.h>
#include <Qtilities/Logger.h>

#include <QDir>
#include <QDirIterator>
#include <QPlainTextEdit>
#include <QProcess>
#include <QSignalSpy>
#include <QTreeWidget>

#include <csignal>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Logging::Logger;

namespace {

const char folderVariable[] = "MORVALEN_KILLED_STORY";
const char usualDelayVariable[] = "MORVALEN_KILLED_STORY_WAITS";
const char saveVariable[] = "MORVALEN_KILLED_STORY_SAVES";

} // namespace

class tst_KeptTextsStory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { story.reset(); }
    void init();
    void cleanup();

    void aTextIsOfferedAndRestored();
    void whatWasSavedIsNotOffered();
    void theFileWasChangedSince();
    void theFileIsGone();
    void aTextIsDiscarded();
    void whoAsksLaterIsAskedAgain();
    void aDamagedTextGoesToTheBackups();
    void theDifferenceIsShown();
    void twoWindowsKeepTheirTextsApart();

private:
    void typeUntilKilled();
    void killAWindow(const char *variable = nullptr);
    QStringList keptFiles() const;
    // Offers what is left, and visits the dialogs that come.
    void offer(const QList<DialogVisits::Visit> &visits);
    TextPage *page() const;
    QString notes() const { return story->path(u"notes.txt"_s); }

    std::unique_ptr<Story> story;
};

void tst_KeptTextsStory::initTestCase()
{
    if (qEnvironmentVariableIsSet(folderVariable))
        typeUntilKilled();
    TextKeeper::delay = 0;
    story = std::make_unique<Story>();
    // The windows of the other processes come up empty.
    preferences::setRemembers(preferences::OpenThings, false);
}

void tst_KeptTextsStory::init() { Story::write(notes(), "old\n"); }

void tst_KeptTextsStory::cleanup()
{
    {
        const DialogVisits discard(
            {[](QDialog *dialog) { DialogVisits::press(dialog, u"Discard"_s); }});
        story->window().designsMode()->editorArea()->closeAll();
    }
    QDir(story->session() + u"/Unsaved"_s).removeRecursively();
}

// What the process does that is killed.
void tst_KeptTextsStory::typeUntilKilled()
{
    if (!qEnvironmentVariableIsSet(usualDelayVariable))
        TextKeeper::delay = 0;
    story = std::make_unique<Story>(QByteArray(), qEnvironmentVariable(folderVariable));
    // What another window that lives keeps is none of this one's business.
    const DialogVisits nothingIsOffered;
    story->window().offerKeptTexts();
    QCoreApplication::processEvents();
    if (QApplication::activeModalWidget() || !nothingIsOffered.areDone())
        qFatal("the text of another window is offered");
    const qsizetype others = keptFiles().size();
    QString error;
    QWidget *opened = MorvalenCore::EditorManager::instance()->createEditorForPath(
        notes(), &error, QString(), true, false);
    if (!opened)
        qFatal("%s", qPrintable(error));
    auto *text = opened->findChild<QPlainTextEdit *>();
    QTest::keyClicks(text, u"new "_s);
    QTest::keyClick(text, Qt::Key_End);
    if (!QTest::qWaitFor([&] { return keptFiles().size() > others; }, patient()))
        qFatal("nothing is kept");
    if (qEnvironmentVariableIsSet(saveVariable)) {
        QTest::keyClick(text, Qt::Key_S, Qt::ControlModifier);
        if (!QTest::qWaitFor([&] { return keptFiles().size() == others; }, patient()))
            qFatal("a saved text is kept");
    }
    ::raise(SIGKILL);
}

void tst_KeptTextsStory::killAWindow(const char *variable)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QString::fromLatin1(folderVariable), story->path(QString()));
    if (variable)
        environment.insert(QString::fromLatin1(variable), u"1"_s);
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationFilePath(), {u"tst_KeptTextsStory"_s});
    QVERIFY(process.waitForFinished(patient()));
    QVERIFY2(process.exitStatus() == QProcess::CrashExit,
             process.readAllStandardOutput() + process.readAllStandardError());
}

QStringList tst_KeptTextsStory::keptFiles() const
{
    QStringList found;
    QDirIterator walk(story->session() + u"/Unsaved"_s, {u"*.kept"_s}, QDir::Files,
                      QDirIterator::Subdirectories);
    while (walk.hasNext())
        found.append(walk.next());
    return found;
}

void tst_KeptTextsStory::offer(const QList<DialogVisits::Visit> &visits)
{
    DialogVisits made(visits);
    story->window().offerKeptTexts();
    QTRY_VERIFY2_WITH_TIMEOUT(!QApplication::activeModalWidget(),
                              qPrintable(made.unexpected.join(u'\n')), patient());
    QVERIFY2(made.areDone(), qPrintable(made.unexpected.join(u'\n')));
}

TextPage *tst_KeptTextsStory::page() const
{
    return qobject_cast<TextPage *>(
        story->window().designsMode()->editorArea()->page(QFileInfo(notes()).absoluteFilePath()));
}

void tst_KeptTextsStory::aTextIsOfferedAndRestored()
{
    killAWindow(usualDelayVariable);
    QCOMPARE(Story::read(notes()), QByteArray("old\n"));
    offer({[this](QDialog *dialog) {
        QCOMPARE(dialog->windowTitle(), u"Unsaved Texts"_s);
        const auto *list = dialog->findChild<QTreeWidget *>(u"keptTextList"_s);
        QCOMPARE(list->topLevelItemCount(), 1);
        QCOMPARE(list->topLevelItem(0)->text(0), QFileInfo(notes()).absoluteFilePath());
        QCOMPARE(list->topLevelItem(0)->text(2), u"as it was"_s);
        DialogVisits::press(dialog, u"Restore"_s);
    }});
    QVERIFY(page() && page()->isModified());
    auto *text = page()->findChild<QPlainTextEdit *>();
    QCOMPARE(text->toPlainText(), u"new old\n"_s);
    QCOMPARE(text->textCursor().position(), 7);
    QVERIFY(page()->findChild<NoticeBar *>()->isHidden());
    QCOMPARE(Story::read(notes()), QByteArray("old\n"));
    // It is kept until it is saved.
    QCOMPARE(keptFiles().size(), 1);
    story->takeKeyboard();
    QTest::keyClick(text, Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(Story::read(notes()), QByteArray("new old\n"));
    QTRY_VERIFY_WITH_TIMEOUT(keptFiles().isEmpty(), patient());
}

void tst_KeptTextsStory::whatWasSavedIsNotOffered()
{
    killAWindow(saveVariable);
    QCOMPARE(Story::read(notes()), QByteArray("new old\n"));
    offer({});
}

void tst_KeptTextsStory::theFileWasChangedSince()
{
    killAWindow();
    Story::write(notes(), "theirs\n");
    offer({[](QDialog *dialog) {
        const auto *list = dialog->findChild<QTreeWidget *>(u"keptTextList"_s);
        QCOMPARE(list->topLevelItem(0)->text(2), u"changed since"_s);
        DialogVisits::press(dialog, u"Restore"_s);
    }});
    QVERIFY(page() && page()->isModified());
    QCOMPARE(page()->findChild<QPlainTextEdit *>()->toPlainText(), u"new old\n"_s);
    QCOMPARE(page()->findChild<NoticeBar *>()->text(),
             u"\"notes.txt\" was changed on disk by another program, and has changes here that are "
             "not saved."_s);
    QCOMPARE(keptFiles().size(), 1);
    QVERIFY(!page()->save().isOk());
    QCOMPARE(Story::read(notes()), QByteArray("theirs\n"));
}

void tst_KeptTextsStory::theFileIsGone()
{
    killAWindow();
    QVERIFY(QFile::remove(notes()));
    offer({[](QDialog *dialog) {
        const auto *list = dialog->findChild<QTreeWidget *>(u"keptTextList"_s);
        QCOMPARE(list->topLevelItem(0)->text(2), u"gone"_s);
        DialogVisits::press(dialog, u"Restore"_s);
    }});
    QVERIFY(page() && page()->isModified());
    QCOMPARE(page()->findChild<QPlainTextEdit *>()->toPlainText(), u"new old\n"_s);
    QCOMPARE(page()->findChild<NoticeBar *>()->text(),
             u"\"notes.txt\" is no longer on disk. Its text is kept here."_s);
    QCOMPARE(keptFiles().size(), 1);
}

void tst_KeptTextsStory::aTextIsDiscarded()
{
    killAWindow();
    // The question comes within the press.
    offer({[](QDialog *dialog) {
               QTimer::singleShot(0, dialog,
                                  [dialog] { DialogVisits::press(dialog, u"Discard"_s); });
           },
           DialogVisits::answer(u"Discard Texts\nDiscard the selected texts for good?"_s,
                                u"Discard"_s)});
    QVERIFY(keptFiles().isEmpty());
    QVERIFY(!page());
    offer({});
}

void tst_KeptTextsStory::whoAsksLaterIsAskedAgain()
{
    killAWindow();
    const DialogVisits::Visit later = [](QDialog *dialog) {
        DialogVisits::press(dialog, u"Ask Later"_s);
    };
    offer({later});
    QVERIFY(!page());
    offer({later});
    QCOMPARE(keptFiles().size(), 1);
}

// A write is whole or not at all; what is damaged otherwise is not taken for a text.
void tst_KeptTextsStory::aDamagedTextGoesToTheBackups()
{
    killAWindow();
    const QString file = keptFiles().value(0);
    Story::write(file, Story::read(file).chopped(1));
    const QSignalSpy said(Logger::instance(), &Logger::messageLogged);
    offer({});
    QVERIFY(keptFiles().isEmpty());
    const QDir backups(story->session() + u"/Backups"_s);
    const QStringList moved = backups.entryList({u"*.kept"_s});
    QCOMPARE(moved.size(), 1);
    QCOMPARE(said.size(), 1);
    QCOMPARE(said.first().at(2).toString(),
             u"A text that was kept cannot be read; it is in \"%1\""_s.arg(
                 backups.filePath(moved.first())));
}

void tst_KeptTextsStory::theDifferenceIsShown()
{
    killAWindow();
    offer({[](QDialog *dialog) { DialogVisits::press(dialog, u"Show Difference"_s); },
           [](QDialog *difference) {
               QCOMPARE(difference->findChild<QPlainTextEdit *>()->toPlainText(),
                        u"@@ -1 +1 @@\n-old\n+new old\n \n"_s);
               difference->reject();
               QTimer::singleShot(0, qApp, [] {
                   if (auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget()))
                       DialogVisits::press(dialog, u"Restore"_s);
               });
           }});
    QVERIFY(page());
}

void tst_KeptTextsStory::twoWindowsKeepTheirTextsApart()
{
    const QString mine = story->path(u"mine.txt"_s);
    Story::write(mine, "old\n");
    story->window().openFiles({mine});
    EditorArea *area = story->window().designsMode()->editorArea();
    EditorPage *own = area->currentPage();
    QTest::keyClicks(own->findChild<QPlainTextEdit *>(), u"my "_s);
    QTRY_COMPARE(keptFiles().size(), 1);
    killAWindow();
    QCOMPARE(keptFiles().size(), 2);
    offer({[this](QDialog *dialog) {
        const auto *list = dialog->findChild<QTreeWidget *>(u"keptTextList"_s);
        QCOMPARE(list->topLevelItemCount(), 1);
        QCOMPARE(list->topLevelItem(0)->text(0), QFileInfo(notes()).absoluteFilePath());
        DialogVisits::press(dialog, u"Restore"_s);
    }});
    QVERIFY(page() && page()->isModified() && own->isModified());
    QTRY_COMPARE(keptFiles().size(), 2);
    QVERIFY(page()->save().isOk() && own->save().isOk());
    QCOMPARE(Story::read(mine), QByteArray("my old\n"));
    QCOMPARE(Story::read(notes()), QByteArray("new old\n"));
    QTRY_VERIFY(keptFiles().isEmpty());
}

TEST_CLASS(tst_KeptTextsStory)
#include "tst_KeptTextsStory.moc"
