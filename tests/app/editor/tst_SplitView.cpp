// Two sights of one text.

#include "app/editor/FindBar.h"
#include "app/editor/PositionBar.h"
#include "tests/app/editor/PageFixture.h"
#include "tests/TestClass.h"

#include <QApplication>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTextBlock>

using namespace Qt::Literals::StringLiterals;

class tst_SplitView : public QObject, private PageFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { page.reset(); }

    void bothShowTheText();
    void theSecondShowsThePlaceOfTheFirst();
    void commandsMeanTheOneWithTheKeyboard();
    void joiningKeepsThePlace();
    void bothKeepToTheirReasons();
    void signsAreInBoth();
    void thePageGoesWithBoth();

private:
    QList<TextEdit *> edits() const { return page->findChildren<TextEdit *>(); }
    TextEdit *other() const
    {
        QList<TextEdit *> others = edits();
        others.removeOne(edit);
        return others.value(0);
    }
    template <typename Bar>
    static Bar *barOf(const TextEdit *sight)
    {
        return sight->parentWidget()->findChild<Bar *>();
    }
};

void tst_SplitView::init()
{
    QVERIFY2(openPage(QByteArray("some text\n").repeated(200)), qPrintable(error));
    edit->goToLine(100);
    page->run(EditorPage::SplitView);
    QCOMPARE(edits().size(), 2);
    QVERIFY(other()->hasFocus());
}

void tst_SplitView::bothShowTheText()
{
    TextEdit *second = other();
    QCOMPARE(second->textCursor().blockNumber(), 99);
    QTest::keyClicks(second, u"new "_s);
    QCOMPARE(edit->document()->findBlockByNumber(99).text(), u"new some text"_s);
    QVERIFY(page->isModified());
    QTest::keyClick(second, Qt::Key_Home, Qt::ControlModifier);
    QCOMPARE(edit->textCursor().blockNumber(), 99);
    QTest::keyClick(second, Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(!page->isModified());
    QCOMPARE(barOf<PositionBar>(edit)->text(), u"Line 100, Column 1 | Verilog | UTF-8, LF"_s);
    QCOMPARE(barOf<PositionBar>(second)->text(), u"Line 100, Column 1 | Verilog | UTF-8, LF"_s);
}

void tst_SplitView::theSecondShowsThePlaceOfTheFirst()
{
    page->run(EditorPage::SplitView);
    QCOMPARE(edits().size(), 1);
    edit = edits().first();
    // The cursor stays where it is, out of sight.
    edit->verticalScrollBar()->setValue(30);
    QCOMPARE(edit->verticalScrollBar()->value(), 30);
    page->run(EditorPage::SplitView);
    QCOMPARE(edit->verticalScrollBar()->value(), 30);
    QCOMPARE(other()->verticalScrollBar()->value(), 30);
}

void tst_SplitView::commandsMeanTheOneWithTheKeyboard()
{
    TextEdit *second = other();
    page->run(EditorPage::SelectAll);
    QVERIFY(second->textCursor().hasSelection());
    QVERIFY(!edit->textCursor().hasSelection());
    page->run(EditorPage::Find);
    QVERIFY(!barOf<FindBar>(edit)->isVisible());
    QVERIFY(barOf<FindBar>(second)->isVisible());
    QSignalSpy commands(page.get(), &EditorPage::commandsChanged);
    QTest::mouseClick(edit->viewport(), Qt::LeftButton);
    edit->setFocus();
    QVERIFY(!commands.isEmpty());
    QVERIFY(!page->can(EditorPage::Copy));
    page->run(EditorPage::Find);
    QVERIFY(barOf<FindBar>(edit)->isVisible());
}

void tst_SplitView::joiningKeepsThePlace()
{
    TextEdit *second = other();
    second->goToLine(20);
    page->run(EditorPage::SplitView);
    QCOMPARE(edits().size(), 1);
    QVERIFY(edit->hasFocus());
    QCOMPARE(edit->textCursor().blockNumber(), 19);
    page->run(EditorPage::SplitView);
    other()->goToLine(150);
    edit->setFocus();
    page->run(EditorPage::SplitView);
    QCOMPARE(edit->textCursor().blockNumber(), 19);
    type(u"x"_s);
    QVERIFY(page->isModified());
}

void tst_SplitView::bothKeepToTheirReasons()
{
    page->setReadOnly(ReadOnlyReasons::Permission, u"it is so"_s);
    for (TextEdit *sight : edits())
        QVERIFY(sight->isReadOnly());
    page->run(EditorPage::SplitView);
    page->run(EditorPage::SplitView);
    QVERIFY(other()->isReadOnly());
    page->setReadOnly(ReadOnlyReasons::Permission, {});
    for (TextEdit *sight : edits())
        QVERIFY(!sight->isReadOnly());
}

void tst_SplitView::signsAreInBoth()
{
    edit->setSigns({{2, TextPlace::Error, u"wrong"_s}});
    QCOMPARE(other()->signText(2), u"wrong"_s);
    page->run(EditorPage::SplitView);
    page->run(EditorPage::SplitView);
    QCOMPARE(other()->signText(2), u"wrong"_s);
}

void tst_SplitView::thePageGoesWithBoth()
{
    QTest::keyClicks(other(), u"x"_s);
    page.reset();
    QVERIFY(!QApplication::focusWidget());
}

TEST_CLASS(tst_SplitView)
#include "tst_SplitView.moc"
