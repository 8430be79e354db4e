// Where the keyboard is, and which design menus and keys are about.

#include "app/designs/DesignTree.h"
#include "app/designs/DesignTreeView.h"
#include "app/DesignsMode.h"
#include "app/editor/EditorArea.h"
#include "app/editor/EditorPage.h"
#include "app/MainWindow.h"
#include "console/QtclConsole.h"
#include "tests/stories/JournalReplay.h"
#include "tests/stories/Story.h"
#include "tests/TestClass.h"

#include <MorvalenCore/DesignManager.h>

#include <QDockWidget>
#include <QLineEdit>
#include <QMenu>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;
using MorvalenCore::Interfaces::IDesign;

class tst_KeysStory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { story.reset(); }
    void init();

    void tabLeavesTheTreeAndTheFilter_data();
    void tabLeavesTheTreeAndTheFilter();
    void ctrlYRedoes();
    void f6GoesThroughThePanes();
    void altAndANumberGoesToTheTree();
    void theSelectedDesignIsMeant();
    void theEditMenuIsAboutTheFocus();
    void pagesCloseByTheirKeyFromTheTree();

private:
    DesignTree *tree() const { return story->window().designTree(); }
    bool hasFocus(const QWidget *pane) const
    {
        const QWidget *focused = QApplication::focusWidget();
        return focused && (pane == focused || pane->isAncestorOf(focused));
    }

    std::unique_ptr<Story> story;
};

void tst_KeysStory::initTestCase()
{
    story = std::make_unique<Story>();
    JournalReplay::begin(story.get());
    story->type(u"designs new uart; designs new fifo"_s);
}

void tst_KeysStory::init()
{
    story->window().activateMode(DesignsMode::id);
    story->takeKeyboard();
    QTRY_COMPARE(tree()->treeView()->model()->rowCount(), 2);
}

void tst_KeysStory::tabLeavesTheTreeAndTheFilter_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("tab-1 forwards") << int(Qt::Key_Tab);
    QTest::newRow("tab-2 backwards") << int(Qt::Key_Backtab);
}

void tst_KeysStory::tabLeavesTheTreeAndTheFilter()
{
    QFETCH(const int, key);
    tree()->treeView()->setFocus();
    const Qt::KeyboardModifiers modifiers = key == Qt::Key_Tab ? Qt::NoModifier : Qt::ShiftModifier;
    QSet<const QWidget *> visited;
    for (int step = 0; step < 40; ++step) {
        visited.insert(QApplication::focusWidget());
        story->press(key, modifiers);
    }
    QVERIFY(visited.contains(story->find<QLineEdit>("designFilter")));
    QVERIFY(visited.contains(tree()->treeView()));
    const bool left = std::any_of(visited.cbegin(), visited.cend(), [this](const QWidget *widget) {
        return widget && !tree()->isAncestorOf(widget);
    });
    QVERIFY(left);
}

void tst_KeysStory::ctrlYRedoes()
{
    auto *filter = tree()->findChild<QLineEdit *>();
    filter->setFocus();
    QTest::keyClicks(filter, u"ab"_s);
    story->press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(filter->text(), QString());
    story->press(Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(filter->text(), u"ab"_s);
    filter->clear();
}

void tst_KeysStory::f6GoesThroughThePanes()
{
    tree()->treeView()->setFocus();
    const QWidget *editors = story->find<QWidget>("editorArea");
    const QWidget *log = story->find<QDockWidget>("logDock")->widget();
    story->press(Qt::Key_F6);
    QVERIFY(hasFocus(editors));
    story->press(Qt::Key_F6);
    QVERIFY(hasFocus(log));
    story->press(Qt::Key_F6);
    QVERIFY(hasFocus(tree()));
    story->press(Qt::Key_F6, Qt::ShiftModifier);
    QVERIFY(hasFocus(log));
    // In the other mode the console takes the place of the editors.
    story->window().activateMode(105);
    QVERIFY(hasFocus(&story->console()));
    story->press(Qt::Key_F6);
    QVERIFY(!hasFocus(&story->console()));
    story->press(Qt::Key_F6, Qt::ShiftModifier);
    QVERIFY(hasFocus(&story->console()));
}

void tst_KeysStory::altAndANumberGoesToTheTree()
{
    story->find<QLineEdit>("designFilter")->setFocus();
    story->press(Qt::Key_1, Qt::AltModifier);
    QVERIFY(hasFocus(tree()->treeView()));
}

void tst_KeysStory::theSelectedDesignIsMeant()
{
    const QAbstractItemModel *model = tree()->treeView()->model();
    const IDesign *active = Story::activeDesign();
    QCOMPARE(active->name(), u"fifo"_s);
    const IDesign *uart =
        DesignManager::instance()->design(DesignManager::instance()->openDesignIds().first());
    story->type(u"designs set_active local.global.uart.1.0; design set description changed; "
                "designs set_active local.global.fifo.1.0"_s);
    QVERIFY(uart->isModified());
    tree()->treeView()->setCurrentIndex(model->index(0, 0));
    QVERIFY(story->entry('f', u"Save \"uart\""_s));
    story->closeMenus();
    QVERIFY(story->entry('f', u"Close Design \"uart\""_s));
    story->closeMenus();
    story->press(Qt::Key_S, Qt::ControlModifier);
    QVERIFY(!uart->isModified());
    tree()->treeView()->clearSelection();
    QVERIFY(story->entry('f', u"Close Design \"fifo\""_s));
    story->closeMenus();
    JournalReplay::compare(*story);
}

void tst_KeysStory::theEditMenuIsAboutTheFocus()
{
    const auto isEnabled = [this](const QString &text) {
        const QAction *entry = story->entry('e', text);
        const bool enabled = entry && entry->isEnabled();
        story->closeMenus();
        return enabled;
    };
    // The tree copies ids of designs, finds by its filter, and replaces nothing.
    tree()->treeView()->setFocus();
    tree()->treeView()->setCurrentIndex(tree()->treeView()->model()->index(1, 0));
    QVERIFY(isEnabled(u"Copy\tCtrl+C"_s));
    QVERIFY(!isEnabled(u"Paste\tCtrl+V"_s));
    QVERIFY(!story->entry('e', u"Replace..."_s));
    story->closeMenus();
    QAction *find = story->entry('e', u"Find...\tCtrl+F"_s);
    QVERIFY(find);
    find->trigger();
    story->closeMenus();
    auto *filter = story->find<QLineEdit>("designFilter");
    filter->setFocus();
    QVERIFY(!isEnabled(u"Cut\tCtrl+X"_s));
    QTest::keyClicks(filter, u"no such row"_s);
    QVERIFY(isEnabled(u"Undo\tCtrl+Z"_s));
    story->entry('e', u"Select All\tCtrl+A"_s)->trigger();
    story->closeMenus();
    QCOMPARE(filter->selectedText(), u"no such row"_s);
    QVERIFY(isEnabled(u"Cut\tCtrl+X"_s));
    QVERIFY(!isEnabled(u"Find...\tCtrl+F"_s));
    filter->clear();
    // Where nothing is edited, nothing is offered.
    story->find<QDockWidget>("logDock")->setFocus();
    story->find<QWidget>("editorArea")->setFocus();
    QVERIFY(!isEnabled(u"Replace..."_s));
}

void tst_KeysStory::pagesCloseByTheirKeyFromTheTree()
{
    Story::write(story->path(u"a.txt"_s), "a\n");
    EditorArea *area = story->window().designsMode()->editorArea();
    story->window().openFiles({story->path(u"a.txt"_s)});
    QTRY_COMPARE(area->pages().size(), 1);
    story->window().activateMode(DesignsMode::id);
    tree()->treeView()->setFocus();
    const QAction *close = story->entry('f', u"Close"_s);
    QVERIFY(close && close->isEnabled());
    story->closeMenus();
    // In the other mode nobody sees the page.
    story->window().activateMode(105);
    close = story->entry('f', u"Close"_s);
    QVERIFY(close && !close->isEnabled());
    story->closeMenus();
    story->press(Qt::Key_W, Qt::ControlModifier);
    QCOMPARE(area->pages().size(), 1);
    story->window().activateMode(DesignsMode::id);
    tree()->treeView()->setFocus();
    story->press(Qt::Key_W, Qt::ControlModifier);
    QCOMPARE(area->pages().size(), 0);
}

TEST_CLASS(tst_KeysStory)
#include "tst_KeysStory.moc"
