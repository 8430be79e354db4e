// The tree of designs beside both modes, and what is selected, found and built there.

#include "app/designs/DesignTree.h"
#include "app/designs/DesignTreeModel.h"
#include "app/designs/DesignTreeView.h"
#include "app/DesignsMode.h"
#include "app/editor/EditorArea.h"
#include "app/editor/TextPage.h"
#include "app/journal/CommandJournal.h"
#include "app/MainWindow.h"
#include "console/QtclConsole.h"
#include "tests/stories/DialogVisits.h"
#include "tests/stories/JournalReplay.h"
#include "tests/stories/Story.h"
#include "tests/TestClass.h"

#include <MorvalenCore/DesignManager.h>

#include <QDir>
#include <QDockWidget>
#include <QDropEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPointer>
#include <QRegularExpression>
#include <QSignalSpy>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;
using MorvalenCore::Interfaces::IDesign;

class tst_TreeStory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { story = std::make_unique<Story>(); }
    void cleanupTestCase() { story.reset(); }
    void cleanup();

    void aDesignOfTheConsoleShowsAtOnce();
    void newDesignsAreSelectedUnlessTheUserGoesOn();
    void theFilterFindsByPathAndCategory();
    void theBuildSaysWhatItBuilds();
    void aFileIsRenamedWhereItStands();
    void returnEndsANameAndNothingElse();
    void aNameThatIsTakenIsRefused();
    void whatIsTypedStaysWhileTheTreeFollows_data();
    void whatIsTypedStaysWhileTheTreeFollows();
    void aDesignClosesWhileANameIsTyped_data();
    void aDesignClosesWhileANameIsTyped();
    void filesAreCutAndPasted();
    void filesAreDragged();
    void whatWasRemovedComesBack();
    void everySelectionHasAMenu();
    void onlyFoldersOfTheSessionAreDeleted();

private:
    void select(const QStringList &texts);
    QStringList menuTexts(bool enabledOnly = false);
    QStringList under(const QString &node, const QString &name = u"uart"_s) const;
    void makeUart();
    // What comes from here on is looked at; what was before is run again only.
    void journalStandsHere();
    // Saves, and runs the journal since the design was made.
    void replay();
    DesignTreeView *view() const { return story->window().designTree()->treeView(); }
    QStringList shownDesigns() const;
    QString selected() const;
    IDesign *design(const QString &name) const;

    QString journalBefore;
    std::unique_ptr<Story> story;
};

void tst_TreeStory::cleanup()
{
    story->find<QLineEdit>("designFilter")->clear();
    DesignManager::instance()->closeDesigns(DesignManager::instance()->openDesignIds(), true);
    QTRY_COMPARE(view()->model()->rowCount(), 0);
    story->window().activateMode(105);
}

QStringList tst_TreeStory::shownDesigns() const
{
    QStringList names;
    for (int row = 0; row < view()->model()->rowCount(); ++row)
        names.append(view()->model()->index(row, 0).data().toString());
    return names;
}

QString tst_TreeStory::selected() const
{
    const QModelIndexList rows = view()->selectionModel()->selectedRows();
    return rows.size() == 1 ? rows.first().data().toString() : QString();
}

IDesign *tst_TreeStory::design(const QString &name) const
{
    return DesignManager::instance()->design(u"local.global.%1.1.0"_s.arg(name));
}

void tst_TreeStory::aDesignOfTheConsoleShowsAtOnce()
{
    auto *dock = story->find<QDockWidget>("treeDock");
    QVERIFY(dock && dock->isVisible());
    story->type(u"designs new uart"_s);
    QTRY_COMPARE(shownDesigns(), QStringList(u"uart"_s));
    QVERIFY(view()->isVisible());
    QVERIFY(story->console().isVisible());
    // The same dock stays in the other mode.
    story->window().activateMode(DesignsMode::id);
    QVERIFY(view()->isVisible());
    QVERIFY(dock->isAncestorOf(view()));
    QVERIFY(view()->hasFocus());
}

void tst_TreeStory::newDesignsAreSelectedUnlessTheUserGoesOn()
{
    story->type(u"designs new uart"_s);
    QTRY_COMPARE(selected(), u"uart"_s);
    story->type(u"for {set i 0} {$i < 30} {incr i} {designs new d$i}"_s);
    QTRY_COMPARE(selected(), u"d29"_s);
    QVERIFY(view()->viewport()->rect().intersects(view()->visualRect(view()->currentIndex())));
    // A design comes, and before it shows the user goes to another row.
    story->type(u"designs new last"_s);
    view()->setCurrentIndex(view()->model()->index(0, 0));
    QTRY_COMPARE(shownDesigns().last(), u"last"_s);
    QCOMPARE(selected(), u"uart"_s);
}

void tst_TreeStory::theFilterFindsByPathAndCategory()
{
    story->type(u"designs new uart {Hardware Design}"_s);
    story->type(u"foreach f {rtl/a.v rtl/b.vhd documents/notes.txt} {files add $f}"_s);
    story->type(u"morvalen property WIDTH 8 -type int -category Sizes::Bus"_s);
    QTRY_COMPARE(view()->model()->rowCount(), 1);
    const auto found = [this](const QString &text) {
        auto *filter = story->find<QLineEdit>("designFilter");
        filter->clear();
        QTest::keyClicks(filter, text);
        QTest::keyClick(filter, Qt::Key_Return);
        QCoreApplication::processEvents();
        QStringList names;
        const QAbstractItemModel *model = view()->model();
        QModelIndexList rows {{}};
        while (!rows.isEmpty()) {
            const QModelIndex row = rows.takeFirst();
            if (row.isValid() && !model->hasChildren(row))
                names.append(row.data().toString());
            for (int below = 0; below < model->rowCount(row); ++below)
                rows.append(model->index(below, 0, row));
        }
        return names;
    };
    QTRY_COMPARE(found(u"rtl/"_s), QStringList({u"a.v"_s, u"b.vhd"_s}));
    QTRY_COMPARE(found(u"hdl::vhdl"_s), QStringList({u"b.vhd"_s}));
    QTRY_COMPARE(found(u"hdl a."_s), QStringList({u"a.v"_s}));
    QTRY_COMPARE(found(u"sizes"_s), QStringList({u"WIDTH"_s}));
    QTRY_COMPARE(found(u"nothing"_s), QStringList());
}

void tst_TreeStory::theBuildSaysWhatItBuilds()
{
    for (const QString &name : {u"uart"_s, u"fifo"_s}) {
        story->type(u"designs new "_s + name);
        story->type(
            u"morvalen configuration add Main; morvalen step add Main touch -command {touch $(OUTPUTS)} -outputs made"_s);
    }
    QTRY_COMPARE(shownDesigns(), QStringList({u"uart"_s, u"fifo"_s}));
    QTRY_COMPARE(story->action("buildOutdated")->text(), u"&Build \"Main\" of \"fifo\""_s);
    view()->setFocus();
    view()->setCurrentIndex(view()->model()->index(0, 0));
    QCOMPARE(story->action("buildOutdated")->text(), u"&Build \"Main\" of \"uart\""_s);
    QCOMPARE(Story::activeDesign()->name(), u"fifo"_s);
    story->press(Qt::Key_F7);
    QTRY_VERIFY(QFileInfo::exists(design(u"uart"_s)->workingFolderPath() + u"/made"_s));
    QVERIFY(!QFileInfo::exists(design(u"fifo"_s)->workingFolderPath() + u"/made"_s));
}

void tst_TreeStory::select(const QStringList &texts)
{
    view()->setFocus();
    view()->clearSelection();
    for (const QString &text : texts) {
        QTRY_VERIFY2(story->row(text).isValid(), qPrintable(text));
        view()->selectionModel()->setCurrentIndex(
            story->row(text), QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
}

QStringList tst_TreeStory::menuTexts(bool enabledOnly)
{
    story->press(Qt::Key_F10, Qt::ShiftModifier);
    QStringList texts;
    if (const QWidget *menu = QApplication::activePopupWidget()) {
        for (const QAction *action : menu->actions()) {
            if (!action->isSeparator() && (action->isEnabled() || !enabledOnly))
                texts.append(action->text().remove(u'&'));
        }
    }
    story->closeMenus();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return texts;
}

QStringList tst_TreeStory::under(const QString &node, const QString &name) const
{
    QStringList names;
    for (const MorvalenCore::DesignFile *file : design(name)->filesUnderNode(node, false))
        names.append(file->fileName());
    return names;
}

void tst_TreeStory::makeUart()
{
    JournalReplay::begin(story.get());
    journalBefore.clear();
    story->type(u"designs new uart {Hardware Design}"_s);
    // So that there are files where the journal runs again, too.
    story->type(u"foreach f {top b} {set c [open [file join [design get wfp] rtl $f.v] w]; "
                "puts $c \"module $f;\"; close $c}"_s);
    story->type(u"foreach f {rtl/top.v rtl/b.v} {morvalen file add $f -node rtl}"_s);
    story->window().activateMode(DesignsMode::id);
    journalStandsHere();
    QTRY_VERIFY(story->row(u"b.v"_s).isValid());
}

void tst_TreeStory::journalStandsHere()
{
    journalBefore += CommandJournal::instance()->text();
    CommandJournal::instance()->clear();
}

void tst_TreeStory::replay()
{
    story->type(u"foreach id [designs list] {designs set_active $id; design save}"_s);
    JournalReplay::compare(*story, journalBefore);
}

void tst_TreeStory::aFileIsRenamedWhereItStands()
{
    makeUart();
    story->type(
        u"morvalen configuration add sim; morvalen step add sim lint -command {lint rtl/top.v} -inputs rtl/top.v"_s);
    const QString folder = design(u"uart"_s)->workingFolderPath();
    story->window().openFiles({folder + u"/rtl/top.v"_s});
    EditorArea *area = story->window().designsMode()->editorArea();
    QTRY_COMPARE(area->pages().size(), 1);
    auto *before = qobject_cast<TextPage *>(area->pages().first());
    before->goTo({4, 0});
    journalStandsHere();
    select({u"top.v"_s});
    story->press(Qt::Key_F2);
    auto *line = qobject_cast<QLineEdit *>(QApplication::focusWidget());
    QVERIFY(line);
    QCOMPARE(line->text(), u"top.v"_s);
    line->selectAll();
    QTest::keyClicks(line, u"main part.v"_s);
    QTest::keyClick(line, Qt::Key_Return);
    QTRY_COMPARE(under(u"rtl"_s), (QStringList {u"main part.v"_s, u"b.v"_s}));
    QCOMPARE(Story::read(folder + u"/rtl/main part.v"_s), QByteArray("module top;\n"));
    QVERIFY(!QFileInfo::exists(folder + u"/rtl/top.v"_s));
    const auto description = design(u"uart"_s)->buildConfiguration(u"sim"_s)->description();
    QCOMPARE(description.steps.first().command, u"lint rtl/main part.v"_s);
    QCOMPARE(description.steps.first().inputs, QStringList {u"rtl/main part.v"_s});
    QCOMPARE(CommandJournal::instance()->entries(),
             QStringList {u"morvalen file rename rtl/top.v {rtl/main part.v} "
                          "-design local.global.uart.1.0"_s});
    // The editor shows it under its new name.
    QTRY_COMPARE(area->pages().size(), 1);
    QCOMPARE(area->pages().first()->title(), u"main part.v"_s);
    // The user stays where they were, in the text and in the tree.
    QCOMPARE(qobject_cast<TextPage *>(area->pages().first())->place().cursor, 4);
    QCOMPARE(view()->currentIndex().data().toString(), u"main part.v"_s);
    QCOMPARE(view()->selectionModel()->selectedRows().size(), 1);
    area->closeAll();
    replay();
}

void tst_TreeStory::returnEndsANameAndNothingElse()
{
    QTest::failOnWarning(QRegularExpression(u"does not belong to this view"_s));
    makeUart();
    story->type(u"morvalen property WIDTH 8 -type int"_s);
    QTRY_VERIFY(story->row(u"WIDTH"_s).isValid());
    const EditorArea *area = story->window().designsMode()->editorArea();
    QVERIFY(area->pages().isEmpty());
    const auto edit = [this](const QString &row, const QString &typed) {
        select({row});
        story->press(Qt::Key_F2);
        auto *line = qobject_cast<QLineEdit *>(QApplication::focusWidget());
        QVERIFY(line);
        line->selectAll();
        QTest::keyClicks(line, typed);
        QTest::keyClick(line, Qt::Key_Return);
        QTRY_VERIFY(view()->hasFocus());
    };
    edit(u"top.v"_s, u"main.v"_s);
    QTRY_COMPARE(under(u"rtl"_s), (QStringList {u"main.v"_s, u"b.v"_s}));
    edit(u"WIDTH"_s, u"16"_s);
    QTRY_COMPARE(story->row(u"WIDTH"_s).siblingAtColumn(1).data().toString(), u"16"_s);
    QVERIFY(area->pages().isEmpty());
    QVERIFY(view()->hasFocus());
}

void tst_TreeStory::aNameThatIsTakenIsRefused()
{
    makeUart();
    select({u"top.v"_s});
    story->press(Qt::Key_F2);
    auto *line = qobject_cast<QLineEdit *>(QApplication::focusWidget());
    QVERIFY(line);
    line->selectAll();
    QTest::keyClicks(line, u"b.v"_s);
    DialogVisits visits({DialogVisits::answer(
        u"Not Renamed\nThe design \"uart\" has the file \"%1/rtl/b.v\" already"_s.arg(
            design(u"uart"_s)->workingFolderPath()),
        u"OK"_s)});
    QTest::keyClick(line, Qt::Key_Return);
    QTRY_VERIFY2(visits.areDone(), qPrintable(visits.unexpected.join(u'\n')));
    QCOMPARE(under(u"rtl"_s), (QStringList {u"top.v"_s, u"b.v"_s}));
    QVERIFY(CommandJournal::instance()->entries().isEmpty());
}

void tst_TreeStory::whatIsTypedStaysWhileTheTreeFollows_data()
{
    QTest::addColumn<QString>("row");
    QTest::addColumn<QString>("typed");
    QTest::newRow("following-1 a name") << u"top.v"_s << u"main.v"_s;
    QTest::newRow("following-2 a value") << u"WIDTH"_s << u"16"_s;
}

// Something else changes the design, such as a script whose time has come.
void tst_TreeStory::whatIsTypedStaysWhileTheTreeFollows()
{
    QFETCH(const QString, row);
    QFETCH(const QString, typed);
    makeUart();
    story->type(u"morvalen property WIDTH 8 -type int"_s);
    QTRY_VERIFY(story->row(u"WIDTH"_s).isValid());
    select({row});
    story->press(Qt::Key_F2);
    const QPointer<QLineEdit> line = qobject_cast<QLineEdit *>(QApplication::focusWidget());
    QVERIFY(line);
    line->selectAll();
    QTest::keyClicks(line, typed);
    const QSignalSpy followed(qobject_cast<DesignTreeModel *>(view()->model()),
                              &DesignTreeModel::followed);
    QVERIFY(design(u"uart"_s)->trySetDescription(u"changed"_s).isOk());
    QTRY_COMPARE(followed.size(), 1);
    QVERIFY(line);
    QCOMPARE(line->text(), typed);
    QTest::keyClick(line, Qt::Key_Return);
    const int column = row == u"WIDTH"_s ? 1 : 0;
    QTRY_VERIFY(story->row(column == 0 ? typed : row).isValid());
    QTRY_COMPARE(story->row(column == 0 ? typed : row).siblingAtColumn(column).data().toString(),
                 typed);
}

void tst_TreeStory::aDesignClosesWhileANameIsTyped_data()
{
    QTest::addColumn<QString>("row");
    QTest::newRow("typed-1 of a file") << u"top.v"_s;
    QTest::newRow("typed-2 of the design") << u"uart"_s;
}

void tst_TreeStory::aDesignClosesWhileANameIsTyped()
{
    QFETCH(const QString, row);
    makeUart();
    const QString folder = design(u"uart"_s)->workingFolderPath();
    select({row});
    // What a script does when its time has come.
    const auto close = [] {
        DesignManager::instance()->closeDesigns(DesignManager::instance()->openDesignIds(), false);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
    DialogVisits visits(row == u"uart"_s ? QList<DialogVisits::Visit> {[&](QDialog *dialog) {
        QTest::keyClicks(dialog->findChild<QLineEdit *>(), u"2"_s);
        close();
        QTest::keyClick(dialog, Qt::Key_Return);
    }}
                                         : QList<DialogVisits::Visit> {});
    story->press(Qt::Key_F2);
    if (row != u"uart"_s) {
        const QPointer<QWidget> line = QApplication::focusWidget();
        QVERIFY(qobject_cast<QLineEdit *>(line.data()));
        QTest::keyClicks(line, u"x"_s);
        close();
        QTRY_COMPARE(view()->model()->rowCount(), 0);
        if (line)
            QTest::keyClick(line, Qt::Key_Return);
    }
    QTRY_VERIFY2(visits.areDone(), qPrintable(visits.unexpected.join(u'\n')));
    QVERIFY(QFileInfo::exists(folder + u"/rtl/top.v"_s));
    QVERIFY(CommandJournal::instance()->entries().isEmpty());
    QVERIFY(QDir(folder).removeRecursively());
}

void tst_TreeStory::filesAreCutAndPasted()
{
    makeUart();
    select({u"top.v"_s, u"b.v"_s});
    story->press(Qt::Key_X, Qt::ControlModifier);
    // Until they are pasted they stay.
    QCOMPARE(under(u"rtl"_s), (QStringList {u"top.v"_s, u"b.v"_s}));
    select({u"rtl"_s});
    QVERIFY(!menuTexts(true).contains(u"Paste"_s));
    select({u"testbench"_s});
    QVERIFY(menuTexts(true).contains(u"Paste"_s));
    story->press(Qt::Key_V, Qt::ControlModifier);
    QTRY_COMPARE(under(u"testbench"_s), (QStringList {u"top.v"_s, u"b.v"_s}));
    QVERIFY(under(u"rtl"_s).isEmpty());
    QCOMPARE(
        CommandJournal::instance()->entries(),
        (QStringList {u"morvalen file move rtl/top.v testbench -design local.global.uart.1.0"_s,
                      u"morvalen file move rtl/b.v testbench -design local.global.uart.1.0"_s}));
    // Once only.
    QVERIFY(!menuTexts(true).contains(u"Paste"_s));
    // To another design: from the one, into the other.
    story->type(u"designs new fifo"_s);
    story->window().activateMode(DesignsMode::id);
    select({u"b.v"_s});
    story->press(Qt::Key_X, Qt::ControlModifier);
    select({u"files"_s});
    story->press(Qt::Key_V, Qt::ControlModifier);
    QTRY_COMPARE(under(u"testbench"_s), QStringList {u"top.v"_s});
    QCOMPARE(under(u"files"_s, u"fifo"_s), QStringList {u"b.v"_s});
    replay();
}

void tst_TreeStory::filesAreDragged()
{
    makeUart();
    select({u"top.v"_s});
    const std::unique_ptr<QMimeData> data(
        view()->model()->mimeData(view()->selectionModel()->selectedRows()));
    QVERIFY(data);
    view()->scrollTo(story->row(u"documents"_s));
    const QPoint place = view()->visualRect(story->row(u"documents"_s)).center();
    QWidget *viewport = view()->viewport();
    QDragEnterEvent enter(place, Qt::CopyAction, data.get(), Qt::LeftButton, {});
    QApplication::sendEvent(viewport, &enter);
    QVERIFY(enter.isAccepted());
    QDragMoveEvent move(place, Qt::CopyAction, data.get(), Qt::LeftButton, {});
    QApplication::sendEvent(viewport, &move);
    QVERIFY(move.isAccepted());
    QDropEvent drop(place, Qt::CopyAction, data.get(), Qt::LeftButton, {});
    QApplication::sendEvent(viewport, &drop);
    QTRY_COMPARE(under(u"documents"_s), QStringList {u"top.v"_s});
    QCOMPARE(CommandJournal::instance()->entries(),
             QStringList {u"morvalen file move rtl/top.v documents "
                          "-design local.global.uart.1.0"_s});
    replay();
}

void tst_TreeStory::whatWasRemovedComesBack()
{
    makeUart();
    story->type(u"morvalen property WIDTH 8 -type int; design save"_s);
    const QString component = design(u"uart"_s)->componentFileName();
    const QByteArray before = Story::read(component);
    story->window().activateMode(DesignsMode::id);
    journalStandsHere();
    select({u"top.v"_s, u"b.v"_s});
    const auto agree = [](QDialog *dialog) { DialogVisits::press(dialog, u"Remove"_s); };
    {
        DialogVisits visits({agree, agree});
        story->press(Qt::Key_Delete);
        select({u"WIDTH"_s});
        story->press(Qt::Key_Delete);
        QTRY_VERIFY2(visits.areDone(), qPrintable(visits.unexpected.join(u'\n')));
    }
    QVERIFY(under(u"rtl"_s).isEmpty());
    QVERIFY(!design(u"uart"_s)->propertyByName(u"WIDTH"_s));
    // The last first, and what was removed at once at once.
    view()->setFocus();
    QAction *undo = story->entry('e', u"Undo\tCtrl+Z"_s);
    QVERIFY(undo && undo->isEnabled());
    undo->trigger();
    story->closeMenus();
    QVERIFY(design(u"uart"_s)->propertyByName(u"WIDTH"_s));
    QVERIFY(under(u"rtl"_s).isEmpty());
    view()->setFocus();
    story->press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(under(u"rtl"_s), (QStringList {u"top.v"_s, u"b.v"_s}));
    undo = story->entry('e', u"Undo\tCtrl+Z"_s);
    QVERIFY(undo && !undo->isEnabled());
    story->closeMenus();
    QVERIFY(design(u"uart"_s)->trySaveToComponentFile().isOk());
    QCOMPARE(Story::read(component), before);
    const QStringList back = CommandJournal::instance()->entries().filter(u"restore"_s);
    QCOMPARE(back,
             (QStringList {u"morvalen restore properties WIDTH -design local.global.uart.1.0"_s,
                           u"morvalen restore files rtl/b.v -design local.global.uart.1.0"_s,
                           u"morvalen restore files rtl/top.v -design local.global.uart.1.0"_s}));
    replay();
}

void tst_TreeStory::everySelectionHasAMenu()
{
    makeUart();
    story->type(u"folders add docs; morvalen property WIDTH 8; morvalen configuration add sim"_s);
    story->window().activateMode(DesignsMode::id);
    QTRY_VERIFY(story->row(u"sim"_s).isValid());
    for (const QString &text :
         {u"uart"_s, u"Files"_s, u"rtl"_s, u"top.v"_s, u"Folders"_s, u"docs"_s, u"Properties"_s,
          u"WIDTH"_s, u"Build Configurations"_s, u"sim"_s}) {
        select({text});
        QVERIFY2(menuTexts().contains(u"Copy Names"_s), qPrintable(text));
    }
    select({u"uart"_s, u"WIDTH"_s});
    QCOMPARE(menuTexts(), QStringList {u"Copy Names"_s});
    // Whoever selects a group with its items means the items.
    select({u"rtl"_s, u"top.v"_s, u"b.v"_s});
    QVERIFY(menuTexts().contains(u"Remove from Design..."_s));
    select({u"top.v"_s, u"WIDTH"_s});
    QVERIFY(menuTexts().contains(u"Remove from Design..."_s));
}

void tst_TreeStory::onlyFoldersOfTheSessionAreDeleted()
{
    makeUart();
    const QString elsewhere = story->path(u"own"_s);
    QVERIFY(QDir().mkpath(elsewhere));
    QByteArray component = Story::read(design(u"uart"_s)->componentFileName());
    QVERIFY(design(u"uart"_s)->trySaveToComponentFile().isOk());
    component = Story::read(design(u"uart"_s)->componentFileName());
    component.replace(">uart<", ">own<");
    Story::write(elsewhere + u"/component.xml"_s, component);
    story->window().openFiles({elsewhere + u"/component.xml"_s});
    QTRY_COMPARE(selected(), u"own"_s);
    const QString entry = u"Close and Delete Working Folder..."_s;
    select({u"uart"_s});
    QVERIFY(menuTexts(true).contains(entry));
    select({u"own"_s});
    QVERIFY(menuTexts().contains(entry));
    QVERIFY(!menuTexts(true).contains(entry));
    QVERIFY(menuTexts(true).contains(u"Close"_s));
}

TEST_CLASS(tst_TreeStory)
#include "tst_TreeStory.moc"
