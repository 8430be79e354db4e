// What a screen reader says of the window, where the keyboard is seen to be, and what Help tells.

#include "app/designs/DesignTree.h"
#include "app/designs/DesignTreeView.h"
#include "app/DesignsMode.h"
#include "app/editor/NoticeBar.h"
#include "app/MainWindow.h"
#include "app/window/FocusMark.h"
#include "app/window/windowicons.h"
#include "console/QtclConsole.h"
#include "tests/stories/spokennames.h"
#include "tests/stories/Story.h"
#include "tests/TestClass.h"

#include <QAbstractScrollArea>
#include <QDialog>
#include <QDockWidget>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLabel>
#include <QPushButton>
#include <QScopeGuard>
#include <QScreen>
#include <QScrollBar>
#include <QTextBrowser>
#include <QToolTip>

using namespace Qt::Literals::StringLiterals;

class tst_NamesStory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { story = std::make_unique<Story>(); }
    void cleanupTestCase() { story.reset(); }

    void picturesAreOfActions();
    void everyControlHasAName();
    void theTreeShowsWholeTexts();
    void aNarrowTreeKeepsStatesWhole();
    void aNoticeKeepsItsTextReadable();
    void theKeyboardIsSeen();
    void theMarkGoesWithItsPane();
    void theFirstSizeFitsTheScreen();
    void helpTellsOfTheWindow();
    void helpListsTheKeys();

private:
    QString helpText(const char *action) const;
    int widest(int column) const;

    std::unique_ptr<Story> story;
};

void tst_NamesStory::everyControlHasAName()
{
    story->type(u"designs new uart; files add top.v"_s);
    Story::write(story->session() + u"/Designs/uart/top.v"_s, "module top; endmodule\n");
    story->type(u"files set_active top.v; sfile open"_s);
    story->window().activateMode(DesignsMode::id);
    for (QDockWidget *dock : story->window().findChildren<QDockWidget *>())
        dock->show();
    QCOMPARE(withoutNames(&story->window()), QString());
}

int tst_NamesStory::widest(int column) const
{
    const DesignTreeView *tree = story->window().designTree()->treeView();
    int width = 0;
    for (QModelIndex row = tree->model()->index(0, 0); row.isValid(); row = tree->indexBelow(row)) {
        const QString text = row.siblingAtColumn(column).data().toString();
        width = qMax(width, tree->fontMetrics().horizontalAdvance(text));
    }
    return width;
}

void tst_NamesStory::theTreeShowsWholeTexts()
{
    const DesignTreeView *tree = story->window().designTree()->treeView();
    // Where there is room.
    const QScopeGuard back([this, size = story->window().size()] { story->window().resize(size); });
    story->window().resizeDocks({story->find<QDockWidget>("treeDock")}, {900}, Qt::Horizontal);
    story->window().resize(1500, story->window().height());
    const QString name = u"a_file_with_a_rather_long_name.v"_s;
    story->type(u"files add "_s + name);
    QTRY_VERIFY(widest(0) > tree->fontMetrics().horizontalAdvance(name) - 1);
    for (int column = 0; column < tree->model()->columnCount(); ++column)
        QTRY_VERIFY2(tree->columnWidth(column) > widest(column),
                     qPrintable(QString::number(column)));
}

void tst_NamesStory::aNarrowTreeKeepsStatesWhole()
{
    auto *tree = story->window().designTree()->treeView();
    story->type(u"morvalen property A_RATE 115200000000 -type string -readonly true"_s);
    const auto find = [tree](const QString &text) {
        return tree->model()->match(tree->model()->index(0, 0), Qt::DisplayRole, text, 1,
                                    Qt::MatchExactly | Qt::MatchRecursive);
    };
    QTRY_COMPARE(find(u"A_RATE"_s).size(), 1);
    const QScopeGuard back([this, size = story->window().size()] { story->window().resize(size); });
    story->window().resize(1500, story->window().height());
    auto *dock = story->find<QDockWidget>("treeDock");
    const int narrow = tree->fontMetrics().averageCharWidth() * 70;
    story->window().resizeDocks({dock}, {narrow}, Qt::Horizontal);
    QTRY_COMPARE(dock->width(), narrow);
    QVERIFY2(!tree->horizontalScrollBar()->isVisible(),
             qPrintable(QString::number(tree->header()->length())));
    QVERIFY(tree->columnWidth(2) > widest(2));
    // What is cut is in the tool tip.
    const QModelIndex cut = find(u"a_file_with_a_rather_long_name.v"_s).value(0);
    QVERIFY(tree->columnWidth(0) < widest(0) + tree->visualRect(cut).x());
    const QPoint at = tree->visualRect(cut).center();
    QHelpEvent asked(QEvent::ToolTip, at, tree->viewport()->mapToGlobal(at));
    QCoreApplication::sendEvent(tree->viewport(), &asked);
    QCOMPARE(QToolTip::text(),
             u"a_file_with_a_rather_long_name.v\n"_s + story->session()
                 + u"/Designs/uart/a_file_with_a_rather_long_name.v"_s);
    QToolTip::hideText();
    const int narrower = tree->fontMetrics().averageCharWidth() * 50;
    story->window().resizeDocks({dock}, {narrower}, Qt::Horizontal);
    QTRY_COMPARE(dock->width(), narrower);
    QVERIFY2(!tree->horizontalScrollBar()->isVisible(),
             qPrintable(QString::number(tree->header()->length())));
    QVERIFY(tree->columnWidth(2) > widest(2));
}

void tst_NamesStory::aNoticeKeepsItsTextReadable()
{
    NoticeBar bar;
    const QString text = u"Another program has changed the file while it had changes here"_s;
    bar.show(text, {{u"Reload"_s, {}}, {u"Show Difference"_s, {}}, {u"Keep Mine"_s, {}}});
    bar.resize(1400, 40);
    bar.QWidget::show();
    const auto *label = bar.findChild<QLabel *>(u"noticeText"_s);
    const auto *last = bar.findChildren<QPushButton *>().constLast();
    const auto top = [&bar](const QWidget *widget) { return widget->mapTo(&bar, QPoint()).y(); };
    const auto words = [label](int characters) {
        return label->fontMetrics().averageCharWidth() * characters;
    };
    QTRY_VERIFY(top(last) < label->geometry().bottom());
    bar.resize(words(75), 90);
    QTRY_VERIFY(top(last) > label->geometry().bottom());
    QVERIFY2(label->width() > words(50), qPrintable(QString::number(label->width())));
    bar.resize(1400, 40);
    QTRY_VERIFY(top(last) < label->geometry().bottom());
}

void tst_NamesStory::theKeyboardIsSeen()
{
    story->takeKeyboard();
    const auto *mark = story->find<FocusMark>("focusMark");
    for (const int mode : {DesignsMode::id, 105}) {
        story->window().activateMode(mode);
        QSet<const QWidget *> seen;
        for (int step = 0; step < 8; ++step) {
            story->press(Qt::Key_F6);
            const auto *area = qobject_cast<QAbstractScrollArea *>(QApplication::focusWidget());
            QCOMPARE(mark->isVisible(), area != nullptr);
            QCOMPARE(mark->marked(), area);
            if (!area)
                continue;
            seen.insert(area);
            QCOMPARE(mark->mapToGlobal(QPoint()), area->mapToGlobal(QPoint()));
            QCOMPARE(mark->width(), area->width());
        }
        QVERIFY(seen.size() > 1);
    }
}

// Which moves without a word to what is in it.
void tst_NamesStory::theMarkGoesWithItsPane()
{
    story->takeKeyboard();
    auto *dock = story->find<QDockWidget>("issuesDock");
    dock->raise();
    auto *area = story->find<QAbstractScrollArea>("issues");
    QTRY_VERIFY(area->isVisible());
    area->setFocus();
    const auto *mark = story->find<FocusMark>("focusMark");
    QCOMPARE(mark->marked(), area);
    const QPoint place = dock->pos();
    dock->move(place - QPoint(3, 20));
    QTRY_COMPARE(mark->mapToGlobal(QPoint()), area->mapToGlobal(QPoint()));
    dock->move(place);
    QTRY_COMPARE(mark->mapToGlobal(QPoint()), area->mapToGlobal(QPoint()));
    story->find<QDockWidget>("logDock")->raise();
}

void tst_NamesStory::theFirstSizeFitsTheScreen()
{
    const QSize screen = story->window().screen()->availableSize();
    QVERIFY2(story->window().width() <= screen.width(),
             qPrintable(QString::number(story->window().width())));
    QVERIFY2(story->window().height() <= screen.height(),
             qPrintable(QString::number(story->window().height())));
}

QString tst_NamesStory::helpText(const char *action) const
{
    story->action(action)->trigger();
    auto *dialog = story->find<QDialog>("helpText");
    const QString text = dialog ? dialog->findChild<QTextBrowser *>()->toPlainText() : QString();
    if (dialog)
        QTest::keyClick(dialog, Qt::Key_Escape);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return text;
}

void tst_NamesStory::helpTellsOfTheWindow()
{
    const QString text = helpText("showGuide");
    for (const QString &part : {u"Modes on the left"_s, u"The tree shows"_s, u"Editors open"_s,
                                u"Log, Issues and Journal are below"_s, u"Ctrl+\\ splits"_s})
        QVERIFY2(text.contains(part), qPrintable(part + u'\n' + text));
}

void tst_NamesStory::helpListsTheKeys()
{
    const QString text = helpText("showKeys");
    for (const QString &row : {u"Toggle Comment\nCtrl+/\n"_s, u"Next Pane\nF6\n"_s,
                               u"Split or Join\nCtrl+\\\n"_s, u"Redo\nCtrl+Y, Ctrl+Shift+Z\n"_s})
        QVERIFY2(text.contains(row), qPrintable(row + u'\n' + text));
    QVERIFY(!text.contains(u'&'));
}

void tst_NamesStory::picturesAreOfActions()
{
    for (const QString &name : windowicons::actions()) {
        const auto *action = story->find<QAction>(name.toLatin1());
        QVERIFY2(action && !action->icon().isNull(), qPrintable(name));
    }
}

TEST_CLASS(tst_NamesStory)
#include "tst_NamesStory.moc"
