#include "tests/app/designs/HardwareTreeTest.h"
#include "tests/TestClass.h"

#include <MorvalenCore/ChangeBracket.h>

#include <QScrollBar>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::ChangeBracket;
using MorvalenCore::Interfaces::IDesign;

// What users see of the tree and do in it with keys and the mouse.
class tst_DesignTreeView : public HardwareTreeTest
{
    Q_OBJECT

private Q_SLOTS:
    void opensNewDesigns();
    void keepsLongNodesClosed();
    void keepsWhatIsOpenAndSelected();
    void keepsThePlace();
    void goesOnFromWhatWasRemoved();
    void filters();
    void filtersByKeys();
    void bringsBackWhatWasOpen();
    void followsWhileItFilters();
    void hintsWithoutADesign();

private:
    static QStringList names(int count)
    {
        QStringList all;
        for (int i = 0; i < count; ++i)
            all.append(u"f%1.v"_s.arg(i, 4, 10, QChar(u'0')));
        return all;
    }
    QStringList visibleNames() const;
};

// The names of the rows that are open to the eye.
QStringList tst_DesignTreeView::visibleNames() const
{
    QStringList all;
    const DesignTreeView *view = fixture->view();
    for (QModelIndex index = fixture->model()->index(0, 0); index.isValid();
         index = view->indexBelow(index))
        all.append(index.data().toString());
    return all;
}

void tst_DesignTreeView::opensNewDesigns()
{
    add({u"a.v"_s});
    QCOMPARE(
        visibleNames(),
        (QStringList {u"uart"_s, u"Files"_s, u"rtl"_s, u"a.v"_s, u"testbench"_s, u"constraints"_s,
                      u"documents"_s, u"Folders"_s, u"rtl"_s, u"testbench"_s, u"constraints"_s,
                      u"documents"_s, u"Properties"_s, u"Build Configurations"_s}));
}

void tst_DesignTreeView::keepsLongNodesClosed()
{
    IDesign *large = fixture->session.create(u"large"_s);
    ChangeBracket::instance()->open();
    for (const QString &name : names(200))
        large->addFile(name, QString(), true, nullptr);
    ChangeBracket::instance()->close();
    QVERIFY(fixture->follow());
    const QStringList node {u"large"_s, u"Files"_s, u"files"_s};
    QVERIFY(fixture->row(node).isValid());
    QVERIFY(!fixture->view()->isExpanded(fixture->row(node)));
    fixture->view()->expand(fixture->row(node));
    large->addFile(u"one_more.v"_s, QString(), true, nullptr);
    QVERIFY(fixture->follow());
    QVERIFY(fixture->view()->isExpanded(fixture->row(node)));
}

void tst_DesignTreeView::keepsWhatIsOpenAndSelected()
{
    add({u"a.v"_s, u"b.v"_s, u"c.v"_s, u"d.v"_s});
    fixture->view()->collapse(fixture->row({u"uart"_s, u"Folders"_s}));
    select(rtl(u"b.v"_s));
    QTest::mouseClick(fixture->view()->viewport(), Qt::LeftButton, Qt::ControlModifier,
                      fixture->centre(rtl(u"d.v"_s)));
    ChangeBracket::instance()->open();
    uart->removeFile(u"a.v"_s);
    for (const QString &name : names(500))
        uart->addFile(name, QString(), true, nullptr);
    ChangeBracket::instance()->close();
    QVERIFY(fixture->follow());
    const QList<TreeRow> selected = fixture->view()->selectedRows();
    QCOMPARE(selected.size(), 2);
    QCOMPARE(selected[0].file()->fileName(), u"b.v"_s);
    QCOMPARE(selected[1].file()->fileName(), u"d.v"_s);
    QCOMPARE(fixture->view()->currentIndex().siblingAtColumn(0), rtl(u"d.v"_s));
    QVERIFY(!fixture->view()->isExpanded(fixture->row({u"uart"_s, u"Folders"_s})));
    QVERIFY(fixture->view()->isExpanded(fixture->row({u"uart"_s, u"Files"_s, u"rtl"_s})));
}

void tst_DesignTreeView::keepsThePlace()
{
    add(names(300));
    fixture->view()->scrollTo(rtl(u"f0200.v"_s), QAbstractItemView::PositionAtTop);
    const auto top = [this] {
        return fixture->view()->indexAt(QPoint(0, 0)).siblingAtColumn(0).data().toString();
    };
    QCOMPARE(top(), u"f0200.v"_s);
    ChangeBracket::instance()->open();
    for (int i = 0; i < 50; ++i)
        uart->removeFile(u"f%1.v"_s.arg(i, 4, 10, QChar(u'0')));
    ChangeBracket::instance()->close();
    QVERIFY(fixture->follow());
    QCOMPARE(top(), u"f0200.v"_s);
    // Here and there, so that the whole node is laid out anew.
    ChangeBracket::instance()->open();
    for (int i = 51; i < 300; i += 2)
        uart->removeFile(u"f%1.v"_s.arg(i, 4, 10, QChar(u'0')));
    ChangeBracket::instance()->close();
    QVERIFY(fixture->follow());
    QCOMPARE(top(), u"f0200.v"_s);
}

void tst_DesignTreeView::goesOnFromWhatWasRemoved()
{
    add({u"a.v"_s, u"b.v"_s, u"c.v"_s});
    select(rtl(u"b.v"_s));
    uart->removeFile(u"b.v"_s);
    QVERIFY(fixture->follow());
    QVERIFY(fixture->view()->currentIndex().isValid());
    // Much that goes at once takes its rows with it in another way.
    add(names(200));
    select(rtl(u"f0100.v"_s));
    ChangeBracket::instance()->open();
    for (int i = 0; i < 200; i += 2)
        uart->removeFile(u"f%1.v"_s.arg(i, 4, 10, QChar(u'0')));
    ChangeBracket::instance()->close();
    QVERIFY(fixture->follow());
    QVERIFY(fixture->view()->currentIndex().isValid());
}

void tst_DesignTreeView::filters()
{
    add({u"core/alu.v"_s, u"core/fpu.v"_s, u"io/uart_alu.v"_s});
    uart->addProperty(u"alu_width"_s, {}, 8, false, nullptr);
    QVERIFY(fixture->session.create(u"fifo"_s));
    QVERIFY(fixture->follow());
    QTest::keyClicks(fixture->filter(), u"ALU"_s);
    QTRY_COMPARE(visibleNames(),
                 (QStringList {u"uart"_s, u"Files"_s, u"rtl"_s, u"alu.v"_s, u"uart_alu.v"_s,
                               u"Properties"_s, u"alu_width"_s}));
    QTest::keyClicks(fixture->filter(), u" core"_s);
    QTRY_COMPARE(visibleNames(), (QStringList {u"uart"_s, u"Files"_s, u"rtl"_s, u"alu.v"_s}));
    QTest::keyClicks(fixture->filter(), u"x"_s);
    QTRY_COMPARE(visibleNames(), QStringList());
    QVERIFY(fixture->view()->isVisible());
    fixture->view()->grab();
    QTest::keyClick(fixture->filter(), Qt::Key_Escape);
    QCOMPARE(fixture->filter()->text(), QString());
    QTRY_VERIFY(visibleNames().contains(u"fpu.v"_s));
    // What tells the design's own place finds nothing.
    QTest::keyClicks(fixture->filter(), u"component/Designs"_s);
    QTRY_COMPARE(visibleNames(), QStringList());
}

void tst_DesignTreeView::filtersByKeys()
{
    fixture->view()->setFocus();
    press(Qt::Key_F, Qt::ControlModifier);
    QVERIFY(fixture->filter()->hasFocus());
    QTest::keyClick(fixture->filter(), Qt::Key_Down);
    QVERIFY(fixture->view()->hasFocus());
}

void tst_DesignTreeView::bringsBackWhatWasOpen()
{
    add({u"a.v"_s, u"b.v"_s});
    fixture->view()->collapse(fixture->row({u"uart"_s, u"Files"_s}));
    const QStringList before = visibleNames();
    QTest::keyClicks(fixture->filter(), u"b.v"_s);
    QTRY_COMPARE(visibleNames(), (QStringList {u"uart"_s, u"Files"_s, u"rtl"_s, u"b.v"_s}));
    fixture->filter()->clear();
    QTRY_COMPARE(visibleNames(), before);
}

void tst_DesignTreeView::followsWhileItFilters()
{
    add({u"a.v"_s});
    QTest::keyClicks(fixture->filter(), u"new"_s);
    QTRY_COMPARE(visibleNames(), QStringList());
    add({u"newer.v"_s, u"older.v"_s});
    QCOMPARE(visibleNames(), (QStringList {u"uart"_s, u"Files"_s, u"rtl"_s, u"newer.v"_s}));
    uart->removeFile(u"newer.v"_s);
    QVERIFY(fixture->follow());
    QCOMPARE(visibleNames(), QStringList());
}

void tst_DesignTreeView::hintsWithoutADesign()
{
    QVERIFY(fixture->view()->isVisible());
    fixture->session.closeAll();
    QVERIFY(fixture->follow());
    QVERIFY(!fixture->view()->isVisible());
    QVERIFY(fixture->session.create(u"fifo"_s));
    QVERIFY(fixture->follow());
    QVERIFY(fixture->view()->isVisible());
}

TEST_CLASS(tst_DesignTreeView)
#include "tst_DesignTreeView.moc"
