#include "app/editor/EditorArea.h"
#include "app/editor/EditorTabBar.h"
#include "tests/app/editor/FakePage.h"
#include "tests/TestClass.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDesktopServices>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QUrl>

using namespace Qt::Literals::StringLiterals;

class tst_EditorArea : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aTabShowsItsPage();
    void filesOfOneNameAreToldApart();
    void aKeyHasOnePage();
    void tabsAreClosed_data();
    void tabsAreClosed();
    void aMiddleClickWantsOneTab();
    void tabsAreMoved();
    void keysStepThroughTabs_data();
    void keysStepThroughTabs();
    void theFocusStaysInTheArea();
    void shortcutsRestWithoutTheFocus();
    void theMenuOfATab_data();
    void theMenuOfATab();
    void theMenuKeepsToPagesWithFiles();

    void openFolder(const QUrl &url) { openedFolder = url; }

private:
    FakePage *add(const QString &name)
    {
        return static_cast<FakePage *>(area->addPage(new FakePage(name)));
    }
    QStringList titles() const;
    QPoint middleOf(int index) const { return tabs->tabRect(index).center(); }
    void chooseFromMenu(int index, const QString &text, QStringList *offered);

    std::unique_ptr<QWidget> window;
    EditorArea *area = nullptr;
    EditorTabBar *tabs = nullptr;
    QLineEdit *elsewhere = nullptr;
    QUrl openedFolder;
};

void tst_EditorArea::init()
{
    window = std::make_unique<QWidget>();
    auto *layout = new QVBoxLayout(window.get());
    area = new EditorArea;
    elsewhere = new QLineEdit;
    layout->addWidget(area);
    layout->addWidget(elsewhere);
    tabs = area->findChild<EditorTabBar *>();
    window->resize(600, 400);
    window->show();
    QVERIFY(QTest::qWaitForWindowActive(window.get(), patient()));
    // Qt 6.8 takes a click in a menu for the end of what opened it where the mouse has been
    // nowhere.
    QTest::mouseMove(window.get(), QPoint(1, 1));
}

void tst_EditorArea::cleanup() { window.reset(); }

QStringList tst_EditorArea::titles() const
{
    QStringList all;
    for (int index = 0; index < area->count(); ++index)
        all.append(area->tabText(index));
    return all;
}

// Opens the menu with the mouse and clicks one of its entries.
void tst_EditorArea::chooseFromMenu(int index, const QString &text, QStringList *offered)
{
    QTimer::singleShot(0, this, [text, offered] {
        QTRY_VERIFY(qobject_cast<QMenu *>(QApplication::activePopupWidget()));
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        for (QAction *entry : menu->actions()) {
            if (!entry->isSeparator())
                offered->append(entry->text() + (entry->isEnabled() ? u""_s : u" (off)"_s));
            if (entry->text() == text)
                QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(entry).center());
        }
        menu->close();
    });
    QContextMenuEvent event(QContextMenuEvent::Mouse, middleOf(index),
                            tabs->mapToGlobal(middleOf(index)));
    QApplication::sendEvent(tabs, &event);
}

void tst_EditorArea::aTabShowsItsPage()
{
    FakePage *page = add(u"rtl & more.v"_s);
    QCOMPARE(area->tabText(0), u"rtl && more.v"_s);
    QCOMPARE(area->tabToolTip(0), u"the file rtl & more.v"_s);
    QSignalSpy changes(area, &EditorArea::currentPageChanged);
    page->setModified(true);
    QCOMPARE(area->tabText(0), u"rtl && more.v*"_s);
    QCOMPARE(changes.size(), 1);
    page->setModified(false);
    QCOMPARE(area->tabText(0), u"rtl && more.v"_s);
}

void tst_EditorArea::filesOfOneNameAreToldApart()
{
    const auto open = [this](const QString &path) {
        auto *page = new FakePage(path.section(u'/', -1), path);
        page->path = path;
        return area->addPage(page);
    };
    open(u"/d/rtl/top.v"_s);
    EditorPage *second = open(u"/d/sim/top.v"_s);
    open(u"/d/sim/other.v"_s);
    QCOMPARE(titles(), (QStringList {u"top.v \u2013 rtl"_s, u"top.v \u2013 sim"_s, u"other.v"_s}));
    QVERIFY(area->closePage(second));
    QCOMPARE(titles(), (QStringList {u"top.v"_s, u"other.v"_s}));
}

void tst_EditorArea::aKeyHasOnePage()
{
    FakePage *first = add(u"a"_s);
    add(u"b"_s);
    QPointer<FakePage> again = new FakePage(u"a"_s);
    QCOMPARE(area->addPage(again, false), first);
    QCOMPARE(titles(), (QStringList {u"a"_s, u"b"_s}));
    QCOMPARE(area->currentIndex(), 1);
    QTRY_VERIFY(!again);
    QCOMPARE(area->addPage(first), first);
    QCOMPARE(area->currentIndex(), 0);
    QCOMPARE(area->page(u"b"_s), area->pages().at(1));
    QCOMPARE(area->page(u"c"_s), nullptr);
}

void tst_EditorArea::tabsAreClosed_data()
{
    QTest::addColumn<QString>("how");
    QTest::newRow("close-1 its button") << u"button"_s;
    QTest::newRow("close-2 the middle button") << u"middle"_s;
    QTest::newRow("close-3 the keyboard") << u"key"_s;
}

void tst_EditorArea::tabsAreClosed()
{
    QFETCH(const QString, how);
    add(u"a"_s);
    QPointer<FakePage> page = add(u"b"_s);
    add(u"c"_s);
    area->setCurrentIndex(1);
    if (how == u"button"_s) {
        QWidget *button = tabs->tabButton(1, QTabBar::RightSide);
        if (!button)
            button = tabs->tabButton(1, QTabBar::LeftSide);
        QTest::mouseClick(button, Qt::LeftButton);
    } else if (how == u"middle"_s) {
        QTest::mouseClick(tabs, Qt::MiddleButton, {}, middleOf(1));
    } else {
        page->setFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_W, Qt::ControlModifier);
    }
    QCOMPARE(titles(), (QStringList {u"a"_s, u"c"_s}));
    QTRY_VERIFY(!page);
}

void tst_EditorArea::aMiddleClickWantsOneTab()
{
    add(u"a"_s);
    add(u"b"_s);
    QTest::mousePress(tabs, Qt::MiddleButton, {}, middleOf(0));
    QTest::mouseRelease(tabs, Qt::MiddleButton, {}, middleOf(1));
    QTest::mouseRelease(tabs, Qt::MiddleButton, {}, middleOf(0));
    QCOMPARE(titles(), (QStringList {u"a"_s, u"b"_s}));
}

void tst_EditorArea::tabsAreMoved()
{
    add(u"a"_s);
    add(u"b"_s);
    const QPoint from = middleOf(0);
    const QPoint to = middleOf(1) - QPoint(2, 0);
    QTest::mousePress(tabs, Qt::LeftButton, {}, from);
    for (const QPoint &place : {from + QPoint(QApplication::startDragDistance() + 2, 0), to}) {
        QMouseEvent move(QEvent::MouseMove, place, tabs->mapToGlobal(place), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(tabs, &move);
    }
    QTest::mouseRelease(tabs, Qt::LeftButton, {}, to);
    QCOMPARE(titles(), (QStringList {u"b"_s, u"a"_s}));
    QCOMPARE(area->currentPage()->key(), u"a"_s);
}

void tst_EditorArea::keysStepThroughTabs_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    const Qt::KeyboardModifiers control = Qt::ControlModifier;
    const Qt::KeyboardModifiers both = Qt::ControlModifier | Qt::ShiftModifier;
    QTest::newRow("step-1 forward") << int(Qt::Key_Tab) << control << 0 << 1;
    QTest::newRow("step-2 forward from the last") << int(Qt::Key_Tab) << control << 2 << 0;
    QTest::newRow("step-3 back") << int(Qt::Key_Backtab) << both << 1 << 0;
    QTest::newRow("step-4 back from the first") << int(Qt::Key_Backtab) << both << 0 << 2;
    QTest::newRow("step-5 page down") << int(Qt::Key_PageDown) << control << 1 << 2;
    QTest::newRow("step-6 page up") << int(Qt::Key_PageUp) << control << 0 << 2;
}

void tst_EditorArea::keysStepThroughTabs()
{
    QFETCH(const int, key);
    QFETCH(const Qt::KeyboardModifiers, modifiers);
    QFETCH(const int, from);
    QFETCH(const int, to);
    add(u"a"_s);
    add(u"b"_s);
    add(u"c"_s);
    area->bringUpPage(area->pages().at(from));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key(key), modifiers);
    QCOMPARE(area->currentIndex(), to);
    QCOMPARE(QApplication::focusWidget(), area->currentPage()->focusProxy());
}

void tst_EditorArea::theFocusStaysInTheArea()
{
    add(u"a"_s);
    FakePage *b = add(u"b"_s);
    QCOMPARE(QApplication::focusWidget(), b->focusProxy());
    QVERIFY(area->closePage(b));
    QTRY_COMPARE(QApplication::focusWidget(), area->currentPage()->focusProxy());
}

void tst_EditorArea::shortcutsRestWithoutTheFocus()
{
    add(u"a"_s);
    elsewhere->setFocus();
    QTest::keyClick(elsewhere, Qt::Key_W, Qt::ControlModifier);
    QCOMPARE(area->count(), 1);
}

void tst_EditorArea::theMenuOfATab_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QStringList>("left");
    QTest::addColumn<QString>("clipboard");
    QTest::addColumn<QString>("folder");
    const QStringList all {u"a"_s, u"b"_s, u"c"_s};
    QTest::newRow("menu-1 close") << u"&Close"_s << QStringList {u"a"_s, u"c"_s} << QString()
                                  << QString();
    QTest::newRow("menu-2 others")
        << u"Close &Others"_s << QStringList {u"b"_s} << QString() << QString();
    QTest::newRow("menu-3 all") << u"Close &All"_s << QStringList() << QString() << QString();
    QTest::newRow("menu-4 path") << u"Copy &Path"_s << all << u"/designs/rtl/b.v"_s << QString();
    QTest::newRow("menu-5 folder")
        << u"Show in &Folder"_s << all << QString() << u"file:///designs/rtl"_s;
}

void tst_EditorArea::theMenuOfATab()
{
    QFETCH(const QString, entry);
    QFETCH(const QStringList, left);
    QFETCH(const QString, clipboard);
    QFETCH(const QString, folder);
    add(u"a"_s);
    add(u"b"_s)->path = u"/designs/rtl/b.v"_s;
    add(u"c"_s);
    QGuiApplication::clipboard()->clear();
    openedFolder.clear();
    QDesktopServices::setUrlHandler(u"file"_s, this, "openFolder");
    QStringList offered;
    chooseFromMenu(1, entry, &offered);
    QDesktopServices::unsetUrlHandler(u"file"_s);
    QCOMPARE(offered.join(u", "_s),
             u"&Close, Close &Others, Close &All, Copy &Path, Show in &Folder"_s);
    QCOMPARE(titles(), left);
    QCOMPARE(QGuiApplication::clipboard()->text(), clipboard);
    QCOMPARE(openedFolder.toString(), folder);
}

void tst_EditorArea::theMenuKeepsToPagesWithFiles()
{
    add(u"a"_s);
    QStringList offered;
    chooseFromMenu(0, QString(), &offered);
    QCOMPARE(offered.join(u", "_s),
             u"&Close, Close &Others (off), Close &All, Copy &Path (off), "
             "Show in &Folder (off)"_s);
}

TEST_CLASS(tst_EditorArea)
#include "tst_EditorArea.moc"
