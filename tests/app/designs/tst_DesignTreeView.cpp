#include "tests/app/designs/DesignTreeFixture.h"

#include <MorvalenCore/ChangeBracket.h>

#include <QScrollBar>
#include <QSignalSpy>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::ChangeBracket;
using MorvalenCore::Interfaces::IDesign;

// What users see of the tree and do in it with keys and the mouse.
class tst_DesignTreeView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { fixture.reset(); }

    void opensNewDesigns();
    void keepsLongNodesClosed();
    void keepsWhatIsOpenAndSelected();
    void keepsThePlace();
    void goesOnFromWhatWasRemoved();
    void filters();
    void filtersByKeys();
    void bringsBackWhatWasOpen();
    void followsWhileItFilters();
    void returnOpensAFile();
    void returnOpensReadOnlyFiles();
    void tellsWhyAFileIsNotOpened();
    void activatesDesigns_data();
    void activatesDesigns();
    void asksForAConfiguration();
    void groupsOpenAndClose();
    void findsByTyping();
    void editsValues_data();
    void editsValues();
    void editsNoReadOnlyValue();
    void hintsWithoutADesign();

private:
    void add(const QStringList &files)
    {
        ChangeBracket::instance()->open();
        for (const QString &file : files)
            QVERIFY(uart->addFile(file, QString(), true, nullptr));
        ChangeBracket::instance()->close();
        QVERIFY(fixture->follow());
    }
    static QStringList names(int count)
    {
        QStringList all;
        for (int i = 0; i < count; ++i)
            all.append(u"f%1.v"_s.arg(i, 4, 10, QChar(u'0')));
        return all;
    }
    QModelIndex rtl(const QString &name) const
    {
        return fixture->row({u"uart"_s, u"Files"_s, u"rtl"_s, name});
    }
    void select(const QModelIndex &index)
    {
        QTest::mouseClick(fixture->view()->viewport(), Qt::LeftButton, {}, fixture->centre(index));
        QCOMPARE(fixture->view()->currentIndex().siblingAtColumn(0), index);
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(fixture->view(), key, modifiers);
    }
    QStringList visibleNames() const;

    std::optional<DesignTreeFixture> fixture;
    IDesign *uart = nullptr;
};

void tst_DesignTreeView::init()
{
    fixture.emplace();
    QVERIFY(fixture->shown);
    uart = fixture->session.create(u"uart"_s, u"Hardware Design"_s, u"Hardware"_s);
    QVERIFY(fixture->follow());
}

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

void tst_DesignTreeView::returnOpensAFile()
{
    add({u"rtl/a.v"_s, u"rtl/b.v"_s});
    select(rtl(u"b.v"_s));
    press(Qt::Key_Return);
    const QString folder = uart->workingFolderPath();
    QCOMPARE(fixture->editors.opened, QStringList {folder + u"/rtl/b.v"_s});
    QTest::mouseDClick(fixture->view()->viewport(), Qt::LeftButton, {},
                       fixture->centre(rtl(u"a.v"_s)));
    QCOMPARE(fixture->editors.opened,
             (QStringList {folder + u"/rtl/b.v"_s, folder + u"/rtl/a.v"_s}));
}

void tst_DesignTreeView::returnOpensReadOnlyFiles()
{
    add({u"a.v"_s});
    uart->setReadOnly(true);
    QVERIFY(fixture->follow());
    select(rtl(u"a.v"_s));
    press(Qt::Key_Enter, Qt::KeypadModifier);
    QCOMPARE(fixture->editors.opened,
             QStringList {uart->workingFolderPath() + u"/a.v (read-only)"_s});
}

void tst_DesignTreeView::tellsWhyAFileIsNotOpened()
{
    add({u"a.v"_s});
    fixture->editors.refusal = u"It is too large"_s;
    select(rtl(u"a.v"_s));
    press(Qt::Key_Return);
    auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
    QVERIFY(box);
    QCOMPARE(box->text(), u"It is too large"_s);
    QTest::keyClick(box, Qt::Key_Escape);
}

void tst_DesignTreeView::activatesDesigns_data()
{
    QTest::addColumn<bool>("byMouse");
    QTest::newRow("activate-1 with the mouse") << true;
    QTest::newRow("activate-2 with the keyboard") << false;
}

void tst_DesignTreeView::activatesDesigns()
{
    QFETCH(const bool, byMouse);
    const IDesign *fifo = fixture->session.create(u"fifo"_s);
    QVERIFY(fixture->follow());
    QCOMPARE(fixture->session.manager()->activeDesigns().first(), fifo);
    select(fixture->row({u"uart"_s}));
    if (byMouse)
        QTest::mouseDClick(fixture->view()->viewport(), Qt::LeftButton, {},
                           fixture->centre(fixture->row({u"uart"_s})));
    else
        press(Qt::Key_Return);
    QCOMPARE(fixture->session.manager()->activeDesigns().first(), uart);
    QVERIFY(fixture->view()->isExpanded(fixture->row({u"uart"_s})));
}

void tst_DesignTreeView::asksForAConfiguration()
{
    const QString file = fixture->session.path(u"built/component.xml"_s);
    SessionFixture::write(file, SessionFixture::read(QStringLiteral(COUNTER_COMPONENT)));
    QVERIFY(fixture->session.open(file));
    QVERIFY(fixture->follow());
    const QSignalSpy asked(&fixture->tree, &DesignTree::configurationActivated);
    const QStringList builds {u"counter"_s, u"Build Configurations"_s};
    select(fixture->row(builds + QStringList {u"Lint"_s}));
    press(Qt::Key_Return);
    QCOMPARE(asked.size(), 1);
    QCOMPARE(asked.first().at(0).toString(), u"morvalen.example.logic.counter.1.0"_s);
    QCOMPARE(asked.first().at(1).toString(), u"Lint"_s);
}

void tst_DesignTreeView::groupsOpenAndClose()
{
    const QModelIndex folders = fixture->row({u"uart"_s, u"Folders"_s});
    select(folders);
    QVERIFY(fixture->view()->isExpanded(folders));
    press(Qt::Key_Return);
    QVERIFY(!fixture->view()->isExpanded(folders));
    QTest::mouseDClick(fixture->view()->viewport(), Qt::LeftButton, {}, fixture->centre(folders));
    QVERIFY(fixture->view()->isExpanded(folders));
    press(Qt::Key_Left);
    QVERIFY(!fixture->view()->isExpanded(folders));
}

void tst_DesignTreeView::findsByTyping()
{
    add({u"alpha.v"_s, u"beta.v"_s});
    select(fixture->row({u"uart"_s}));
    QTest::keyClicks(fixture->view(), u"bet"_s);
    QCOMPARE(fixture->view()->currentIndex().data().toString(), u"beta.v"_s);
}

void tst_DesignTreeView::editsValues_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QVariant>("expected");
    QTest::newRow("edit-1 a number") << QVariant(8) << u"16"_s << QVariant(16);
    QTest::newRow("edit-2 no number") << QVariant(8) << u"many"_s << QVariant(8);
    QTest::newRow("edit-3 a text") << QVariant(u"a"_s) << u"b c"_s << QVariant(u"b c"_s);
    QTest::newRow("edit-4 no text") << QVariant(u"a"_s) << QString() << QVariant(u""_s);
    QTest::newRow("edit-5 a fraction") << QVariant(0.5) << u"1.5"_s << QVariant(1.5);
    QTest::newRow("edit-6 a truth") << QVariant(false) << u"t"_s << QVariant(true);
}

void tst_DesignTreeView::editsValues()
{
    QFETCH(const QVariant, value);
    QFETCH(const QString, typed);
    uart->addProperty(u"p"_s, {}, value, false, nullptr);
    QVERIFY(fixture->follow());
    select(fixture->row({u"uart"_s, u"Properties"_s, u"p"_s}));
    press(Qt::Key_F2);
    QWidget *editor = fixture->view()->viewport()->focusWidget();
    QTRY_VERIFY((editor = fixture->view()->viewport()->focusWidget()));
    if (auto *line = qobject_cast<QLineEdit *>(editor))
        line->selectAll();
    if (typed.isEmpty())
        QTest::keyClick(editor, Qt::Key_Delete);
    QTest::keyClicks(editor, typed);
    QTest::keyClick(editor, Qt::Key_Return);
    // What was given is taken once control is back in the event loop.
    QCoreApplication::processEvents();
    QTEST(uart->propertyByName(u"p"_s)->propertyData().value(), "expected");
}

void tst_DesignTreeView::editsNoReadOnlyValue()
{
    uart->addProperty(u"p"_s, {}, 1, true, nullptr);
    QVERIFY(fixture->follow());
    const QModelIndex index = fixture->row({u"uart"_s, u"Properties"_s, u"p"_s});
    select(index);
    press(Qt::Key_Return);
    press(Qt::Key_F2);
    QVERIFY(!fixture->view()->indexWidget(index.siblingAtColumn(DetailsColumn)));
    QVERIFY(!fixture->view()->isPersistentEditorOpen(index.siblingAtColumn(DetailsColumn)));
    QVERIFY(fixture->view()->hasFocus());
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

QTEST_MAIN(tst_DesignTreeView)
#include "tst_DesignTreeView.moc"
