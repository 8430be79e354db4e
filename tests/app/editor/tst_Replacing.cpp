#include "tests/app/editor/SearchFixture.h"
#include "tests/TestClass.h"

using namespace Qt::Literals::StringLiterals;

class tst_Replacing : public QObject, private SearchFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QVERIFY(openArea()); }
    void cleanup() { area.reset(); }

    void oneIsReplaced();
    void allAreReplacedInOneStep();
    void readOnlyTextsAreNotReplaced();
};

void tst_Replacing::oneIsReplaced()
{
    press(Qt::Key_H, Qt::ControlModifier);
    type(u"clk"_s);
    press(Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), child<QLineEdit>("replacement"));
    type(u"clock"_s);
    press(Qt::Key_Return);
    QCOMPARE(edit->document()->firstBlock().text(), u"wire clock;"_s);
    QCOMPARE(selected(), u"2:6 CLK"_s);
    click("replace");
    QCOMPARE(edit->document()->findBlockByNumber(1).text(), u"wire clock_i;"_s);
    QCOMPARE(selected(), u"4:8 clk"_s);
    // What is selected but not a match is no business of the button's.
    edit->selectAll();
    click("replace");
    QCOMPARE(selected(), u"4:8 clk"_s);
}

void tst_Replacing::allAreReplacedInOneStep()
{
    const QString before = edit->toPlainText();
    press(Qt::Key_H, Qt::ControlModifier);
    type(u"clk"_s);
    child<QLineEdit>("replacement")->setText(u"clock"_s);
    click("replaceAll");
    QCOMPARE(edit->toPlainText(), u"wire clock;\nwire clock_i;\n\nassign clock = clock_i;\n"_s);
    QCOMPARE(status(), u"not found, 4 replaced"_s);
    edit->setFocus();
    press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(edit->toPlainText(), before);
    QVERIFY(!page->isModified());
}

void tst_Replacing::readOnlyTextsAreNotReplaced()
{
    page->setReadOnly(ReadOnlyReasons::Caller, u"it was opened for reading"_s);
    QVERIFY(!page->can(EditorPage::Replace));
    press(Qt::Key_H, Qt::ControlModifier);
    QVERIFY(!bar->isVisible());
    bar->open(true);
    QVERIFY(!child<QLineEdit>("replacement")->isVisible());
    type(u"clk"_s);
    QCOMPARE(selected(), u"1:6 clk"_s);
}

TEST_CLASS(tst_Replacing)
#include "tst_Replacing.moc"
