// What is done by mouse and keys is in the journal, and running the journal in another session
// makes the same files.

#include "app/designs/DesignTree.h"
#include "app/designs/DesignTreeView.h"
#include "app/designs/PropertyDialog.h"
#include "app/DesignsMode.h"
#include "app/editor/EditorArea.h"
#include "app/journal/CommandJournal.h"
#include "app/MainWindow.h"
#include "console/QtclConsole.h"
#include "interp/commandsManager.h"
#include "tests/stories/DialogVisits.h"
#include "tests/stories/JournalReplay.h"
#include "tests/stories/Story.h"
#include "tests/TestClass.h"

#include <MorvalenCore/DesignManager.h>
#include <Qtilities/ProjectManager.h>

#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QDockWidget>
#include <QDropEvent>
#include <QInputDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTextBlock>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;
using Qtilities::ProjectManagement::ProjectManager;

class tst_JournalStory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { story = std::make_unique<Story>(); }
    void cleanupTestCase() { story.reset(); }
    void init();
    void cleanup();

    void words_data();
    void words();
    void aDayByMouseRunsAgain();
    void oddNamesRunAgain();
    void namesWithNewLinesRunAgain();
    void theConsoleIsInIt();
    void theActiveDesignIsSaidWhereItMatters();
    void theDockCopiesAndSaves();
    void theDockRunsAgainFromALine();
    void whatFailsAgainIsRemarked();
    void theEnsembleHasIt();
    void everyStoryRunsAgainOrSaysWhyNot();

private:
    DesignTreeView *tree() const { return story->window().designTree()->treeView(); }
    QModelIndex find(const QString &text, const QModelIndex &below = {}) const;
    void choose(const QString &rowText, const QString &entry,
                const QList<DialogVisits::Visit> &visits = {});
    void newDesign(const QString &name, const QString &type);
    void addProperty(const QString &name, const QString &type, const QString &value,
                     const QString &category = {});
    void renameAndConfigure();

    std::unique_ptr<Story> story;
};

void tst_JournalStory::init()
{
    JournalReplay::begin();
    story->window().activateMode(DesignsMode::id);
    story->takeKeyboard();
}

void tst_JournalStory::cleanup()
{
    story->window().designsMode()->editorArea()->closeAll();
    if (ProjectManager::instance()->currentProject())
        ProjectManager::instance()->closeProject();
    DesignManager::instance()->closeDesigns(DesignManager::instance()->openDesignIds(), true);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    for (const QString &name : {u"Designs"_s, u"Projects"_s}) {
        QVERIFY(QDir(story->session() + u'/' + name).removeRecursively());
        QVERIFY(QDir(story->session()).mkdir(name));
    }
}

QModelIndex tst_JournalStory::find(const QString &text, const QModelIndex &below) const
{
    const QAbstractItemModel *model = tree()->model();
    for (int row = 0; row < model->rowCount(below); ++row) {
        const QModelIndex index = model->index(row, 0, below);
        if (index.data().toString().section(u" ("_s, 0, 0) == text)
            return index;
        if (const QModelIndex found = find(text, index); found.isValid())
            return found;
    }
    return {};
}

// Opens the menu of a row by its key and chooses an entry with the mouse.
void tst_JournalStory::choose(const QString &rowText, const QString &entry,
                              const QList<DialogVisits::Visit> &visits)
{
    QTRY_VERIFY2(find(rowText).isValid(), qPrintable(rowText));
    story->takeKeyboard();
    tree()->setFocus();
    tree()->selectionModel()->setCurrentIndex(
        find(rowText), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    QTest::keyClick(tree(), Qt::Key_F10, Qt::ShiftModifier);
    auto *menu = story->find<QMenu>("designMenu");
    QVERIFY(menu);
    DialogVisits made(visits);
    for (QAction *action : menu->actions()) {
        if (action->text().remove(u'&').section(u'\t', 0, 0) != entry)
            continue;
        QVERIFY2(action->isEnabled(), qPrintable(entry));
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
        QTRY_VERIFY2(made.areDone(), qPrintable(entry + made.unexpected.join(u'\n')));
        QCoreApplication::processEvents();
        return;
    }
    QFAIL(qPrintable(u"no entry "_s + entry));
}

void tst_JournalStory::newDesign(const QString &name, const QString &type)
{
    DialogVisits visits({[&](QDialog *dialog) {
        QTest::keyClicks(dialog->findChild<QLineEdit *>(), name);
        auto *types = dialog->findChild<QComboBox *>();
        types->setCurrentText(type);
        QTest::keyClick(dialog, Qt::Key_Return);
    }});
    story->press(Qt::Key_N, Qt::ControlModifier);
    QVERIFY2(visits.areDone(), qPrintable(visits.unexpected.join(u'\n')));
    QVERIFY(Story::activeDesign());
    QCOMPARE(Story::activeDesign()->name(), name);
}

void tst_JournalStory::addProperty(const QString &name, const QString &type, const QString &value,
                                   const QString &category)
{
    choose(Story::activeDesign()->name(), u"Add Property..."_s, {[&](QDialog *dialog) {
               const auto lines = dialog->findChildren<QLineEdit *>();
               auto *types = dialog->findChild<QComboBox *>();
               types->setCurrentText(type);
               lines.at(0)->setText(name);
               lines.at(1)->setText(value);
               lines.at(2)->setText(category);
               QTest::keyClick(dialog, Qt::Key_Return);
           }});
}

void tst_JournalStory::words_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("word");
    QTest::newRow("word-1 plain") << u"rtl/top.v"_s << u"rtl/top.v"_s;
    QTest::newRow("word-2 empty") << QString() << u"{}"_s;
    QTest::newRow("word-3 a blank") << u"a b"_s << u"{a b}"_s;
    QTest::newRow("word-4 code") << u"[exit] $x"_s << u"{[exit] $x}"_s;
    QTest::newRow("word-5 a brace") << u"a{b"_s << u"a\\u007bb"_s;
    QTest::newRow("word-6 a backslash") << u"c:\\d"_s << u"c\\u003a\\u005cd"_s;
    QTest::newRow("word-7 a line feed") << u"a\nb"_s << u"a\\u000ab"_s;
    QTest::newRow("word-8 a quote") << u"say \"x\""_s << u"{say \"x\"}"_s;
    QTest::newRow("word-9 an option's end") << u"--"_s << u"{--}"_s;
}

void tst_JournalStory::words()
{
    QFETCH(const QString, text);
    QFETCH(const QString, word);
    QCOMPARE(journal::quoted(text), word);
    QString result;
    int code = 0;
    story->console().interpretCommand(u"set journalWord "_s + word, &code);
    const char *value =
        Tcl_GetVar(commandsManager::getInstance(nullptr)->interp, "journalWord", TCL_GLOBAL_ONLY);
    QCOMPARE(QString::fromUtf8(value), text);
}

void tst_JournalStory::aDayByMouseRunsAgain()
{
    newDesign(u"uart"_s, u"Hardware Design"_s);
    const QString folder = Story::activeDesign()->workingFolderPath();
    Story::write(folder + u"/rtl/top.v"_s, "module top; endmodule\n");
    Story::write(folder + u"/notes.v"_s, "// not rtl\n");
    choose(u"rtl"_s, u"Add Files..."_s, {DialogVisits::chooseFile(folder + u"/rtl/top.v"_s)});
    choose(u"documents"_s, u"Add Files..."_s, {DialogVisits::chooseFile(folder + u"/notes.v"_s)});
    addProperty(u"WIDTH"_s, u"int"_s, u"8"_s, u"Sizes::Bus"_s);
    addProperty(u"LABEL"_s, u"string"_s, u"say \"[exit]\" $x {"_s);
    choose(u"top.v"_s, u"Category..."_s, {[](QDialog *dialog) {
               auto *box = qobject_cast<QInputDialog *>(dialog);
               box->setTextValue(u"HDL::Top"_s);
               QTest::keyClick(dialog, Qt::Key_Return);
           }});
    choose(u"notes.v"_s, u"Remove from Design..."_s,
           {[](QDialog *dialog) { DialogVisits::press(dialog, u"Remove"_s); }});
    story->press(Qt::Key_S, Qt::ControlModifier);
    QVERIFY(!Story::activeDesign()->isModified());
    newDesign(u"fifo"_s, u"Custom Design"_s);
    renameAndConfigure();
    // The design that is selected, not the active one.
    QVERIFY2(Story::read(folder + u"/component.xml"_s).contains("out/[x] $y"),
             CommandJournal::instance()->text().toUtf8());
    JournalReplay::compare(*story);
}

void tst_JournalStory::renameAndConfigure()
{
    choose(u"uart"_s, u"Rename..."_s, {[](QDialog *dialog) {
               auto *box = qobject_cast<QInputDialog *>(dialog);
               box->setTextValue(u"serial"_s);
               QTest::keyClick(dialog, Qt::Key_Return);
           }});
    choose(u"serial"_s, u"Save"_s);
    {
        DialogVisits visits({[](QDialog *dialog) {
            auto *box = qobject_cast<QInputDialog *>(dialog);
            box->setTextValue(u"my sim"_s);
            QTest::keyClick(dialog, Qt::Key_Return);
        }});
        story->entry('b', u"New Configuration..."_s)->trigger();
        story->closeMenus();
        QVERIFY(visits.areDone());
    }
    auto *target = story->find<QLineEdit>("targetPath");
    QVERIFY(target);
    QTest::keyClicks(target, u"out/[x] $y"_s);
    story->press(Qt::Key_S, Qt::ControlModifier);
}

void tst_JournalStory::oddNamesRunAgain()
{
    newDesign(u"odd"_s, u"Custom Design"_s);
    addProperty(u"quo\"te"_s, u"string"_s, u"a\"b"_s);
    addProperty(u"br[ack]et"_s, u"string"_s, u"[exit 3]"_s);
    addProperty(u"bra{ce"_s, u"string"_s, u"}{"_s);
    addProperty(u"back\\slash"_s, u"string"_s, u"c:\\temp\\"_s);
    addProperty(u"$dollar;semi"_s, u"string"_s, u"#hash"_s);
    addProperty(u"-design"_s, u"string"_s, u"-type"_s);
    addProperty(u"\u20AC \U0001F600"_s, u"string"_s, u"\u00E9"_s);
    choose(u"odd"_s, u"Properties of the Design..."_s, {[](QDialog *dialog) {
               dialog->findChild<QPlainTextEdit *>()->setPlainText(
                   u"two\nlines {\n\\and\\ a [bracket] \""_s);
               DialogVisits::press(dialog, u"OK"_s);
           }});
    QCOMPARE(Story::activeDesign()->description(), u"two\nlines {\n\\and\\ a [bracket] \""_s);
    choose(u"odd"_s, u"Save"_s);
    JournalReplay::compare(*story);
}

// Such a file is dropped, since no field takes its name; such a property comes of a script.
void tst_JournalStory::namesWithNewLinesRunAgain()
{
    newDesign(u"odd"_s, u"Custom Design"_s);
    const QString file = story->path(u"two\nlines.v"_s);
    Story::write(file, "module two;\n");
    QMimeData dropped;
    dropped.setUrls({QUrl::fromLocalFile(file)});
    QTRY_VERIFY(find(u"files"_s).isValid());
    const QPoint place = tree()->visualRect(find(u"files"_s)).center();
    QDragEnterEvent enter(place, Qt::CopyAction, &dropped, Qt::LeftButton, {});
    QApplication::sendEvent(tree()->viewport(), &enter);
    QDragMoveEvent move(place, Qt::CopyAction, &dropped, Qt::LeftButton, {});
    QApplication::sendEvent(tree()->viewport(), &move);
    QDropEvent drop(place, Qt::CopyAction, &dropped, Qt::LeftButton, {});
    QApplication::sendEvent(tree()->viewport(), &drop);
    QTRY_VERIFY(find(u"two\nlines.v"_s).isValid());
    story->type(u"morvalen property \"W\\nH\" 8 -type int"_s);
    QTRY_VERIFY(find(u"W\nH"_s).isValid());
    tree()->setFocus();
    tree()->selectionModel()->setCurrentIndex(
        find(u"W\nH"_s), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    story->press(Qt::Key_F2);
    auto *line = qobject_cast<QLineEdit *>(QApplication::focusWidget());
    QVERIFY(line);
    line->selectAll();
    QTest::keyClicks(line, u"16"_s);
    QTest::keyClick(line, Qt::Key_Return);
    QTRY_COMPARE(find(u"W\nH"_s).siblingAtColumn(1).data().toString(), u"16"_s);
    choose(u"odd"_s, u"Save"_s);
    QVERIFY(Story::read(Story::activeDesign()->componentFileName()).contains("lines.v"));
    QCOMPARE(CommandJournal::instance()->entries().sliced(2),
             (QStringList {u"morvalen property \"W\\nH\" 8 -type int"_s,
                           u"morvalen property W\\u000aH 16 -type int "
                           "-design local.global.odd.1.0"_s,
                           u"design save"_s}));
    JournalReplay::compare(*story);
}

void tst_JournalStory::theConsoleIsInIt()
{
    story->window().activateMode(105);
    story->type(u"designs new uart"_s);
    story->type(u"nonsense"_s);
    story->type(u"files add a.v"_s);
    QCOMPARE(CommandJournal::instance()->entries(),
             (QStringList {u"designs new uart"_s, u"files add a.v"_s}));
    story->type(u"design save"_s);
    JournalReplay::compare(*story);
}

void tst_JournalStory::theActiveDesignIsSaidWhereItMatters()
{
    newDesign(u"uart"_s, u"Custom Design"_s);
    newDesign(u"fifo"_s, u"Custom Design"_s);
    choose(u"uart"_s, u"Save"_s);
    story->window().activateMode(105);
    story->type(u"design get name"_s);
    const QStringList entries = CommandJournal::instance()->entries().sliced(2);
    QCOMPARE(entries,
             (QStringList {u"designs set_active local.global.uart.1.0"_s, u"design save"_s,
                           u"designs set_active local.global.fifo.1.0"_s, u"design get name"_s}));
}

void tst_JournalStory::theDockCopiesAndSaves()
{
    auto *dock = story->find<QDockWidget>("journalDock");
    dock->show();
    dock->raise();
    story->window().activateMode(105);
    story->type(u"set first 1"_s);
    story->type(u"designs new uart"_s);
    auto *text = story->find<QPlainTextEdit>("journal");
    QVERIFY(text->toPlainText().endsWith(u"set first 1\ndesigns new uart"_s));
    QTest::mouseClick(story->find<QWidget>("journalCopy"), Qt::LeftButton);
    QCOMPARE(QGuiApplication::clipboard()->text(), u"set first 1\ndesigns new uart\n"_s);
    const QString script = story->path(u"kept.tcl"_s);
    {
        const DialogVisits visits({DialogVisits::chooseFile(script)});
        QTest::mouseClick(story->find<QWidget>("journalSave"), Qt::LeftButton);
    }
    QCOMPARE(Story::read(script), QByteArray("set first 1\ndesigns new uart\n"));
}

void tst_JournalStory::theDockRunsAgainFromALine()
{
    auto *dock = story->find<QDockWidget>("journalDock");
    dock->show();
    dock->raise();
    story->window().activateMode(105);
    story->type(u"set first 1"_s);
    story->type(u"if 1 {"_s);
    story->type(u"designs new uart"_s);
    story->type(u"}"_s);
    story->type(u"files add {a b.v}"_s);
    const QStringList before = CommandJournal::instance()->entries();
    QCOMPARE(before.size(), 3);
    DesignManager::instance()->closeDesigns(DesignManager::instance()->openDesignIds(), true);
    story->type(u"set first 2"_s);
    // The entry is that of any of its lines.
    auto *text = story->find<QPlainTextEdit>("journal");
    text->setFocus();
    QTest::keyClick(text, Qt::Key_Home, Qt::ControlModifier);
    while (!text->textCursor().block().text().startsWith(u"designs new"_s)) {
        QVERIFY(!text->textCursor().atEnd());
        QTest::keyClick(text, Qt::Key_Down);
    }
    QTest::mouseClick(story->find<QWidget>("journalRun"), Qt::LeftButton);
    QVERIFY(Story::activeDesign());
    QVERIFY(Story::activeDesign()->fileByActualPath(u"a b.v"_s, false));
    // In the journal stands what was run, not how.
    QCOMPARE(CommandJournal::instance()->entries(),
             before + QStringList({u"set first 2"_s}) + before.sliced(1)
                 + QStringList({u"set first 2"_s}));
}

void tst_JournalStory::whatFailsAgainIsRemarked()
{
    story->window().activateMode(105);
    story->type(u"designs new uart"_s);
    auto *dock = story->find<QDockWidget>("journalDock");
    dock->show();
    dock->raise();
    auto *text = story->find<QPlainTextEdit>("journal");
    text->setFocus();
    QTest::keyClick(text, Qt::Key_End, Qt::ControlModifier);
    QTest::mouseClick(story->find<QWidget>("journalRun"), Qt::LeftButton);
    QCOMPARE(CommandJournal::instance()->entries(),
             (QStringList {u"designs new uart"_s,
                           u"# Entries were run again, of which one has failed; what those before "
                           "it did is not here"_s}));
}

void tst_JournalStory::theEnsembleHasIt()
{
    newDesign(u"uart"_s, u"Custom Design"_s);
    story->window().activateMode(105);
    const QString file = story->path(u"said.tcl"_s);
    story->type(u"morvalen journal {"_s + file + u'}');
    QCOMPARE(Story::read(file), QByteArray("designs new uart {Custom Design} Flat global local\n"));
}

void tst_JournalStory::everyStoryRunsAgainOrSaysWhyNot()
{
    const QDir folder(QStringLiteral(SOURCE_DIR "/tests/stories"));
    const QStringList files = folder.entryList({u"tst_*Story.cpp"_s}, QDir::Files);
    QVERIFY(files.size() > 25);
    QStringList runNothing;
    for (const QString &file : files) {
        if (!Story::read(folder.filePath(file)).contains("JournalReplay::compare("))
            runNothing.append(file.sliced(4).chopped(9));
    }
    QStringList excepted;
    for (const JournalReplay::Exception &each : JournalReplay::exceptions())
        excepted.append(QString::fromLatin1(each.story));
    QCOMPARE(runNothing, excepted);
}

TEST_CLASS(tst_JournalStory)
#include "tst_JournalStory.moc"
