#include "console/PopupCompleter.h"
#include "console/PopupListWidget.h"
#include "tests/TestClass.h"

#include <QLayout>
#include <QScreen>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTextEdit>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

// Items of one height, and as wide as their row says.
class FixedItems : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QSize sizeHint(const QStyleOptionViewItem &, const QModelIndex &index) const override
    {
        return {50 + 10 * (index.row() % 3), 30};
    }
};

// Where the platform shows a popup that is moved to a place: that of the tests adds a frame.
QPoint shownAt(const QPoint &place)
{
    QDialog plain(nullptr, Qt::Popup);
    plain.move(place);
    plain.show();
    return QTest::qWaitForWindowExposed(&plain, patient()) ? plain.pos() : QPoint();
}

} // namespace

class tst_PopupCompleter : public QObject
{
    Q_OBJECT

private:
    static PopupListWidget *listOf(const PopupCompleter &popup)
    {
        return popup.findChild<PopupListWidget *>();
    }
    // Runs the popup; act is called once it is open.
    template <typename Act>
    int run(PopupCompleter &popup, Act act)
    {
        QTimer::singleShot(0, &popup, [&popup, act] {
            QVERIFY(QTest::qWaitForWindowExposed(&popup, patient()));
            act();
        });
        return popup.exec(editor.get());
    }

    std::unique_ptr<QTextEdit> editor;

private Q_SLOTS:
    void init()
    {
        editor = std::make_unique<QTextEdit>();
        editor->setGeometry(100, 100, 300, 200);
        editor->setPlainText(u"some text"_s);
        editor->moveCursor(QTextCursor::End);
        editor->show();
        QVERIFY(QTest::qWaitForWindowExposed(editor.get(), patient()));
    }

    void listSize_data()
    {
        QTest::addColumn<int>("items");
        QTest::addColumn<int>("maximumHeight");
        QTest::addColumn<int>("margin");
        QTest::addColumn<bool>("scrolls");
        QTest::addColumn<QSize>("size");
        QTest::newRow("size-empty-1") << 0 << 200 << 1 << false << QSize(2, 2);
        QTest::newRow("size-fits-1") << 1 << 200 << 1 << false << QSize(52, 32);
        QTest::newRow("size-fits-2 the widest item counts")
            << 4 << 200 << 1 << false << QSize(72, 122);
        QTest::newRow("size-fits-3 the last that does") << 6 << 200 << 1 << false << QSize(72, 182);
        QTest::newRow("size-scrolls-1 ten items") << 10 << 200 << 1 << true << QSize(72, 182);
        QTest::newRow("size-scrolls-2 a height that is just reached is too high")
            << 6 << 182 << 1 << true << QSize(72, 152);
        QTest::newRow("size-scrolls-3 nothing fits") << 3 << 20 << 0 << true << QSize(50, 0);
        QTest::newRow("size-scrolls-4 the item that does not fit still counts for the width")
            << 3 << 70 << 0 << true << QSize(70, 60);
    }

    void listSize()
    {
        QFETCH(int, items);
        QFETCH(int, maximumHeight);
        QFETCH(int, margin);
        QFETCH(bool, scrolls);
        QFETCH(QSize, size);
        PopupListWidget list;
        FixedItems delegate;
        list.setItemDelegate(&delegate);
        list.setFrameShape(QFrame::NoFrame);
        list.setContentsMargins(margin, margin, margin, margin);
        list.setMaximumHeight(maximumHeight);
        for (int i = 0; i < items; ++i)
            list.addItem(QString::number(i));
        if (scrolls)
            size.rwidth() += list.verticalScrollBar()->sizeHint().width();
        QCOMPARE(list.sizeHint(), size);
    }

    void howAPopupIsMade()
    {
        const PopupCompleter popup({u"beta"_s, u"alpha"_s, u"<b>"_s}, editor.get());
        QVERIFY(popup.windowFlags().testFlag(Qt::Popup));
        QVERIFY(popup.isModal());
        QCOMPARE(popup.parentWidget(), editor.get());
        QCOMPARE(popup.selectedCommand(), QString());
        const PopupListWidget *list = listOf(popup);
        QVERIFY(list->uniformItemSizes());
        QCOMPARE(list->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
        QStringList texts;
        for (int i = 0; i < list->count(); ++i)
            texts += list->item(i)->data(Qt::DisplayRole).toString();
        QCOMPARE(texts, QStringList({u"beta"_s, u"alpha"_s, u"<b>"_s}));
        QCOMPARE(popup.layout()->sizeConstraint(), QLayout::SetFixedSize);
        QCOMPARE(popup.layout()->contentsMargins(), QMargins());
        QCOMPARE(list->minimumSize(), list->maximumSize());
    }

    void thePopupIsAsLargeAsItsList_data()
    {
        QTest::addColumn<int>("items");
        QTest::newRow("popup-size-1 empty") << 0;
        QTest::newRow("popup-size-2 few") << 3;
        QTest::newRow("popup-size-3 many") << 100;
    }

    void thePopupIsAsLargeAsItsList()
    {
        QFETCH(int, items);
        QStringList texts;
        PopupListWidget like;
        like.setUniformItemSizes(true);
        like.setMaximumHeight(200);
        for (int i = 0; i < items; ++i) {
            texts += u"item %1"_s.arg(i);
            like.addItem(texts.last());
        }
        PopupCompleter popup(texts, nullptr);
        QCOMPARE(listOf(popup)->minimumSize(), like.sizeHint());
        QCOMPARE(popup.sizeHint(), like.sizeHint());
        QVERIFY(popup.sizeHint().height() < 200);
        if (items == 0) {
            const QMargins margins = listOf(popup)->contentsMargins();
            QCOMPARE(popup.sizeHint(),
                     QSize(margins.left() + margins.right(), margins.top() + margins.bottom()));
        }
    }

    void theSizesAreLogged()
    {
        PopupListWidget like;
        const auto text = [&like] {
            return QByteArray("sizeHint(): QSize(" + QByteArray::number(like.sizeHint().width())
                              + ", " + QByteArray::number(like.sizeHint().height()) + ")");
        };
        QTest::ignoreMessage(QtDebugMsg, text().constData());
        like.addItem(u"abc"_s);
        QTest::ignoreMessage(QtDebugMsg, text().constData());
        const PopupCompleter popup({u"abc"_s}, nullptr);
    }

    void activation_data()
    {
        QTest::addColumn<Qt::Key>("key");
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
        QTest::newRow("activate-key-1 Tab") << Qt::Key_Tab << Qt::KeyboardModifiers();
        QTest::newRow("activate-key-2 Return") << Qt::Key_Return << Qt::KeyboardModifiers();
        QTest::newRow("activate-key-3 the keypad's Enter")
            << Qt::Key_Enter << Qt::KeyboardModifiers(Qt::KeypadModifier);
    }

    void activation()
    {
        QFETCH(Qt::Key, key);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        PopupCompleter popup({u"one"_s, u"two"_s, u"three"_s}, nullptr);
        const int result = run(popup, [&] {
            QTest::keyClick(listOf(popup), Qt::Key_Down);
            listOf(popup)->setCurrentRow(1);
            QTest::keyClick(listOf(popup), key, modifiers);
        });
        QCOMPARE(result, 1);
        QCOMPARE(popup.selectedCommand(), u"two"_s);
    }

    void aDoubleClickActivates()
    {
        PopupCompleter popup({u"one"_s, u"two"_s}, nullptr);
        const int result = run(popup, [&] {
            PopupListWidget *list = listOf(popup);
            const QPoint place = list->visualItemRect(list->item(1)).center();
            QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
            QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, place);
        });
        QCOMPARE(result, 1);
        QCOMPARE(popup.selectedCommand(), u"two"_s);
    }

    void escapeChoosesNothing()
    {
        PopupCompleter popup({u"one"_s}, nullptr);
        const int result = run(popup, [&] { QTest::keyClick(listOf(popup), Qt::Key_Escape); });
        QCOMPARE(result, 0);
        QCOMPARE(popup.selectedCommand(), QString());
    }

    void withNoCurrentItemTheKeysAreIgnored_data() { activation_data(); }

    void withNoCurrentItemTheKeysAreIgnored()
    {
        QFETCH(Qt::Key, key);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        PopupCompleter popup({u"one"_s}, nullptr);
        bool stayedOpen = false;
        const int result = run(popup, [&] {
            listOf(popup)->setCurrentItem(nullptr);
            QTest::keyClick(listOf(popup), key, modifiers);
            stayedOpen = popup.isVisible();
            popup.close();
        });
        QVERIFY(stayedOpen);
        QCOMPARE(result, 0);
        QCOMPARE(popup.selectedCommand(), QString());
    }

    void tabAndReturnEmitANullItemWhenNoneIsCurrent()
    {
        PopupListWidget list;
        QSignalSpy activated(&list, &QListWidget::itemActivated);
        for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Return}) {
            QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
            QApplication::sendEvent(&list, &press);
        }
        QCOMPARE(activated.size(), 2);
        QCOMPARE(activated.at(0).at(0).value<QListWidgetItem *>(), nullptr);
    }

    void theListHasTheFocus()
    {
        PopupCompleter popup({u"one"_s}, nullptr);
        run(popup, [&] {
            QTRY_VERIFY(listOf(popup)->hasFocus());
            popup.close();
        });
    }

private:
    // Where the popup is, once it is open.
    QPoint place(PopupCompleter &popup)
    {
        QPoint at;
        run(popup, [&] {
            at = popup.pos();
            popup.close();
        });
        return at;
    }
    QPoint onScreen(const QPoint &point) const { return editor->viewport()->mapToGlobal(point); }

private Q_SLOTS:
    void itOpensBelowTheCursor()
    {
        PopupCompleter popup({u"one"_s, u"two"_s}, nullptr);
        const QPoint below = onScreen(editor->cursorRect().bottomRight());
        QCOMPARE(place(popup), shownAt(below));
    }

    void itOpensAboveTheCursorWhereItDoesNotFit_data()
    {
        QTest::addColumn<int>("over");
        QTest::newRow("place-below-1 it just fits") << 0;
        QTest::newRow("place-above-1 it just does not") << 1;
        QTest::newRow("place-above-2 at the screen's bottom") << 20;
    }

    void itOpensAboveTheCursorWhereItDoesNotFit()
    {
        QFETCH(int, over);
        PopupCompleter popup({u"one"_s, u"two"_s, u"three"_s}, nullptr);
        const int height = popup.sizeHint().height();
        const int screen = editor->screen()->geometry().height();
        const int bottom = onScreen(editor->cursorRect().bottomRight()).y();
        editor->move(editor->pos() + QPoint(0, screen - height - bottom + over));
        const QPoint below = onScreen(editor->cursorRect().bottomRight());
        QCOMPARE(below.y() + height, screen + over);
        const QPoint above = onScreen(editor->cursorRect().topRight()) - QPoint(0, height);
        QCOMPARE(place(popup), shownAt(over ? above : below));
    }
};

TEST_CLASS(tst_PopupCompleter)
#include "tst_PopupCompleter.moc"
