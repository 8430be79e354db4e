// Scripts from the first line to the run: made, edited, run from the editor and found again in
// folders.

#include "app/DesignsMode.h"
#include "app/editor/EditorArea.h"
#include "app/editor/TextEdit.h"
#include "app/editor/TextPage.h"
#include "app/journal/CommandJournal.h"
#include "app/MainWindow.h"
#include "app/window/ScriptMenu.h"
#include "console/QtclConsole.h"
#include "tests/stories/DialogVisits.h"
#include "tests/stories/JournalReplay.h"
#include "tests/stories/Story.h"
#include "tests/TestClass.h"

#include <MorvalenCore/DesignManager.h>

#include <QDir>
#include <QDockWidget>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QMenu>
#include <QTableView>
#include <QTreeView>

using namespace Qt::Literals::StringLiterals;

class tst_ScriptsStory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { story = std::make_unique<Story>(); }
    void cleanupTestCase() { story.reset(); }
    void cleanup();

    void aScriptIsMadeAndRun();
    void whatAScriptMadeRunsAgain();
    void theTabOfAScriptHasWhatItLogs();
    void theFailingLineIsMarked();
    void namesThatCannotBeUsed_data();
    void namesThatCannotBeUsed();
    void subFoldersAreSubMenus();
    void aScriptIsEditedFromTheMenu();
    void theTreeEditsAndRuns();
    void theTreeRunsItsOwnBesideAPage();
    void aRowHasItsMenuByKey();
    void recordedCommandsBecomeAPage();
    void anyTextIsOpened();

private:
    EditorArea *area() const { return story->window().designsMode()->editorArea(); }
    TextEdit *text() const
    {
        const auto *page = qobject_cast<TextPage *>(area()->currentPage());
        return page ? page->textEdit() : nullptr;
    }
    QString scripts() const { return story->session() + u"/Scripts"_s; }
    QString console() const { return story->console().toPlainText(); }
    // Answers the next question for a name.
    static DialogVisits::Visit nameIt(const QString &name);

    std::unique_ptr<Story> story;
};

void tst_ScriptsStory::cleanup()
{
    story->closeMenus();
    for (EditorPage *page : area()->modifiedPages())
        delete page;
    area()->closeAll();
    QDir(scripts()).removeRecursively();
    QDir().mkpath(scripts());
}

DialogVisits::Visit tst_ScriptsStory::nameIt(const QString &name)
{
    return [name](QDialog *dialog) {
        auto *field = dialog->findChild<QLineEdit *>();
        field->selectAll();
        QTest::keyClicks(field, name);
        QTest::keyClick(field, Qt::Key_Return);
    };
}

void tst_ScriptsStory::aScriptIsMadeAndRun()
{
    const DialogVisits visits({nameIt(u"tools/first"_s)});
    story->action("newScript")->trigger();
    QVERIFY(visits.areDone());
    QVERIFY(text());
    QCOMPARE(area()->currentPage()->filePath(),
             QFileInfo(scripts() + u"/tools/first.tcl"_s).canonicalFilePath());
    QTest::keyClicks(text(), u"puts {it ran}; set made 5"_s);
    QVERIFY(area()->currentPage()->isModified());
    QAction *run = story->action("runShownScript");
    QCOMPARE(run->text(), u"&Run \"first.tcl\""_s);
    story->press(Qt::Key_F5);
    QVERIFY(!area()->currentPage()->isModified());
    QCOMPARE(Story::read(scripts() + u"/tools/first.tcl"_s),
             QByteArray("puts {it ran}; set made 5"));
    QVERIFY(console().contains(u"it ran"_s));
    QVERIFY(area()->closeAll());
    QVERIFY(!run->isEnabled());
}

// The journal has the script by its path.
void tst_ScriptsStory::whatAScriptMadeRunsAgain()
{
    JournalReplay::begin(story.get());
    Story::write(scripts() + u"/make.tcl"_s,
                 "designs new made\nmorvalen property WIDTH 8 -type int\ndesign save\n");
    story->window().openFiles({scripts() + u"/make.tcl"_s});
    story->press(Qt::Key_F5);
    QVERIFY(Story::activeDesign());
    QCOMPARE(CommandJournal::instance()->entries(),
             QStringList(u"source "_s + scripts() + u"/make.tcl"_s));
    JournalReplay::compare(*story);
    using MorvalenCore::DesignManager;
    DesignManager::instance()->closeDesigns(DesignManager::instance()->openDesignIds(), true);
}

void tst_ScriptsStory::theTabOfAScriptHasWhatItLogs()
{
    Story::write(scripts() + u"/telling.tcl"_s, "log {told by the script}\n");
    story->window().openFiles({scripts() + u"/telling.tcl"_s});
    QVERIFY(text());
    story->press(Qt::Key_F5);
    const auto told = [this] {
        for (const QDockWidget *dock : story->window().findChildren<QDockWidget *>()) {
            const auto *view = dock->windowTitle().startsWith(u"Script Execution Log"_s)
                ? dock->findChild<QTableView *>()
                : nullptr;
            for (int row = 0; view && row < view->model()->rowCount(); ++row) {
                if (view->model()->index(row, 2).data().toString() == u"told by the script"_s)
                    return true;
            }
        }
        return false;
    };
    QTRY_VERIFY(told());
}

void tst_ScriptsStory::theFailingLineIsMarked()
{
    Story::write(scripts() + u"/bad.tcl"_s, "set a 1\n\nno_such_command here\n");
    story->type(u"file exists x"_s);
    story->window().openFiles({scripts() + u"/bad.tcl"_s});
    QVERIFY(text());
    story->press(Qt::Key_F5);
    QTRY_COMPARE(text()->signText(3), u"invalid command name \"no_such_command\""_s);
    text()->selectAll();
    QTest::keyClicks(text(), u"set a 2"_s);
    story->press(Qt::Key_F5);
    QTRY_COMPARE(text()->signText(3), QString());
    QTRY_COMPARE(story->find<QTreeView>("issues")->model()->rowCount(), 0);
}

void tst_ScriptsStory::namesThatCannotBeUsed_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("said");
    QTest::newRow("name-1 above") << u"../up"_s
                                  << u"\"../up.tcl\" is not below the folder of scripts."_s;
    QTest::newRow("name-2 absolute")
        << u"/up"_s << u"\"/up.tcl\" is not below the folder of scripts."_s;
    QTest::newRow("name-3 there") << u"there.tcl"_s
                                  << u"There is a script \"there.tcl\" already."_s;
}

void tst_ScriptsStory::namesThatCannotBeUsed()
{
    QFETCH(const QString, name);
    QFETCH(const QString, said);
    Story::write(scripts() + u"/there.tcl"_s, "set kept 1");
    const DialogVisits visits(
        {nameIt(name), DialogVisits::answer(u"New Script\n"_s + said, u"OK"_s)});
    story->action("newScript")->trigger();
    QTRY_VERIFY(visits.areDone());
    QVERIFY(!text());
    QCOMPARE(Story::read(scripts() + u"/there.tcl"_s), QByteArray("set kept 1"));
    QVERIFY(!QFile::exists(story->session() + u"/up.tcl"_s));
}

void tst_ScriptsStory::subFoldersAreSubMenus()
{
    auto *menu = story->find<ScriptMenu>("scriptMenu");
    QDir().mkpath(scripts() + u"/deep/deeper"_s);
    QDir().mkpath(scripts() + u"/empty"_s);
    Story::write(scripts() + u"/deep/deeper/b.tcl"_s, "puts {from below}");
    QVERIFY(QFile::link(scripts(), scripts() + u"/deep/round"_s));
    Q_EMIT menu->aboutToShow();
    QCOMPARE(menu->scripts(), QStringList {scripts() + u"/deep/deeper/b.tcl"_s});
    const QMenu *deep = menu->actions().constFirst()->menu();
    QCOMPARE(menu->actions().constFirst()->text(), u"deep"_s);
    const QMenu *deeper = deep->actions().constFirst()->menu();
    deeper->actions().constFirst()->trigger();
    QVERIFY(console().contains(u"from below"_s));
    // What comes into a folder that is there shows by itself.
    Story::write(scripts() + u"/empty/c.tcl"_s, "set c 1");
    QTRY_VERIFY(menu->scripts().contains(scripts() + u"/empty/c.tcl"_s));
}

void tst_ScriptsStory::aScriptIsEditedFromTheMenu()
{
    Story::write(scripts() + u"/job.tcl"_s, "set job 1");
    auto *menu = story->find<ScriptMenu>("scriptMenu");
    Q_EMIT menu->aboutToShow();
    story->find<QMenu>("editScript")->actions().constFirst()->trigger();
    QVERIFY(text());
    QCOMPARE(text()->toPlainText(), u"set job 1"_s);
}

void tst_ScriptsStory::theTreeEditsAndRuns()
{
    Story::write(scripts() + u"/job.tcl"_s, "puts {the tree ran it}");
    auto *dock = story->find<QDockWidget>("scriptsDock");
    dock->show();
    auto *tree = story->find<QTreeView>("scripts");
    QVERIFY(tree->model());
    QTRY_COMPARE(tree->model()->rowCount(tree->rootIndex()), 1);
    tree->setFocus();
    tree->setCurrentIndex(tree->model()->index(0, 0, tree->rootIndex()));
    QTest::keyClick(tree, Qt::Key_F5);
    QVERIFY(console().contains(u"the tree ran it"_s));
    QTest::keyClick(tree, Qt::Key_Return);
    QVERIFY(text());
    QCOMPARE(area()->currentPage()->title(), u"job.tcl"_s);
    dock->hide();
}

// The page's key is the same one.
void tst_ScriptsStory::theTreeRunsItsOwnBesideAPage()
{
    Story::write(scripts() + u"/job.tcl"_s, "puts {the tree ran its own}");
    Story::write(scripts() + u"/page.tcl"_s, "puts {the page ran it}");
    story->window().openFiles({scripts() + u"/page.tcl"_s});
    QVERIFY(story->action("runShownScript")->isEnabled());
    auto *dock = story->find<QDockWidget>("scriptsDock");
    dock->show();
    auto *tree = story->find<QTreeView>("scripts");
    QTRY_COMPARE(tree->model()->rowCount(tree->rootIndex()), 2);
    tree->setFocus();
    // They are sorted later.
    tree->setCurrentIndex(
        qobject_cast<QFileSystemModel *>(tree->model())->index(scripts() + u"/job.tcl"_s));
    QCOMPARE(tree->currentIndex().data().toString(), u"job.tcl"_s);
    story->press(Qt::Key_F5);
    QVERIFY(console().contains(u"the tree ran its own"_s));
    QVERIFY(!console().contains(u"the page ran it"_s));
    dock->hide();
    text()->setFocus();
    story->press(Qt::Key_F5);
    QVERIFY(console().contains(u"the page ran it"_s));
}

void tst_ScriptsStory::aRowHasItsMenuByKey()
{
    Story::write(scripts() + u"/job.tcl"_s, "set job 1");
    auto *dock = story->find<QDockWidget>("scriptsDock");
    dock->show();
    auto *tree = story->find<QTreeView>("scripts");
    QTRY_COMPARE(tree->model()->rowCount(tree->rootIndex()), 1);
    tree->setFocus();
    tree->setCurrentIndex(tree->model()->index(0, 0, tree->rootIndex()));
    QStringList entries;
    int place = -1;
    QTimer watch;
    watch.callOnTimeout(&story->window(), [&] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (!menu)
            return;
        watch.stop();
        place = tree->viewport()->mapFromGlobal(menu->pos()).y();
        for (const QAction *action : menu->actions())
            entries.append(action->text());
        menu->close();
    });
    watch.start(10);
    story->press(Qt::Key_F10, Qt::ShiftModifier);
    QCOMPARE(entries, (QStringList {u"&Run\tF5"_s, u"&Edit"_s, QString(), u"&New Script..."_s}));
    // Sideways it keeps to the screen.
    const QRect row = tree->visualRect(tree->currentIndex());
    QVERIFY2(place >= row.top() && place <= row.bottom() + 1, qPrintable(QString::number(place)));
    dock->hide();
}

void tst_ScriptsStory::recordedCommandsBecomeAPage()
{
    story->window().activateMode(105);
    story->type(u"set recorded 1"_s);
    const DialogVisits visits({nameIt(u"recorded"_s)});
    story->action("saveRecorded")->trigger();
    QVERIFY(visits.areDone());
    QVERIFY(text());
    QCOMPARE(area()->currentPage()->title(), u"recorded.tcl"_s);
    QVERIFY(text()->toPlainText().endsWith(u"set recorded 1\n"_s));
}

void tst_ScriptsStory::anyTextIsOpened()
{
    Story::write(story->path(u"notes.txt"_s), "a note\n");
    const DialogVisits visits({DialogVisits::chooseFile(story->path(u"notes.txt"_s))});
    story->action("open")->trigger();
    QTRY_VERIFY(visits.areDone());
    QTRY_VERIFY(text());
    QCOMPARE(text()->toPlainText(), u"a note\n"_s);
}

TEST_CLASS(tst_ScriptsStory)
#include "tst_ScriptsStory.moc"
