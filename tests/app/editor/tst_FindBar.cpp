#include "tests/app/editor/SearchFixture.h"
#include "tests/TestClass.h"

#include <QCheckBox>
#include <QScrollBar>

using namespace Qt::Literals::StringLiterals;

// Searching as users do it: with keys and mouse in a page of the editor area.
class tst_FindBar : public QObject, private SearchFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QVERIFY(openArea()); }
    void cleanup() { area.reset(); }

    void typingSearches();
    void theSelectionIsSearchedFor();
    void keysGoOn();
    void withoutTheStrip();
    void optionsNarrow_data();
    void optionsNarrow();
    void nothingIsFound_data();
    void nothingIsFound();
    void tooManyAreNotCounted();
    void theCountFollowsTheText();
    void matchesInSightAreMarked();
    void escapeGoesBack();
    void theCloseButtonCloses();

private:
    void find(const QString &text) const
    {
        press(Qt::Key_F, Qt::ControlModifier);
        type(text);
    }
};

void tst_FindBar::typingSearches()
{
    QVERIFY(!bar->isVisible());
    find(u"c"_s);
    QVERIFY(bar->isVisible());
    QCOMPARE(selected(), u"1:6 c"_s);
    QCOMPARE(status(), u"1 of 4"_s);
    type(u"lk_"_s);
    QCOMPARE(selected(), u"2:6 CLK_"_s);
    QCOMPARE(status(), u"1 of 2"_s);
    press(Qt::Key_Backspace);
    QCOMPARE(selected(), u"1:6 clk"_s);
    QCOMPARE(status(), u"1 of 4"_s);
}

void tst_FindBar::theSelectionIsSearchedFor()
{
    edit->find(u"CLK_i"_s);
    press(Qt::Key_F, Qt::ControlModifier);
    QCOMPARE(child<QLineEdit>("pattern")->text(), u"CLK_i"_s);
    QCOMPARE(selected(), u"2:6 CLK_i"_s);
    QCOMPARE(status(), u"1 of 2"_s);
    // What stood there is selected, so that typing replaces it.
    type(u"assign"_s);
    QCOMPARE(selected(), u"4:1 assign"_s);
}

void tst_FindBar::keysGoOn()
{
    find(u"clk"_s);
    QCOMPARE(selected(), u"1:6 clk"_s);
    press(Qt::Key_Return);
    QCOMPARE(selected(), u"2:6 CLK"_s);
    press(Qt::Key_F3);
    press(Qt::Key_F3);
    QCOMPARE(selected(), u"4:14 CLK"_s);
    QCOMPARE(status(), u"4 of 4"_s);
    press(Qt::Key_Return);
    QCOMPARE(selected(), u"1:6 clk"_s);
    QCOMPARE(status(), u"1 of 4, continued at the top"_s);
    press(Qt::Key_Return, Qt::ShiftModifier);
    QCOMPARE(selected(), u"4:14 CLK"_s);
    QCOMPARE(status(), u"4 of 4, continued at the end"_s);
    press(Qt::Key_F3, Qt::ShiftModifier);
    QCOMPARE(selected(), u"4:8 clk"_s);
    QCOMPARE(status(), u"3 of 4"_s);
    click("next");
    QCOMPARE(selected(), u"4:14 CLK"_s);
    click("previous");
    QCOMPARE(selected(), u"4:8 clk"_s);
}

void tst_FindBar::withoutTheStrip()
{
    // Nothing was searched for yet.
    press(Qt::Key_F3);
    QVERIFY(bar->isVisible());
    type(u"wire"_s);
    press(Qt::Key_Escape);
    QVERIFY(!bar->isVisible());
    press(Qt::Key_F3);
    QVERIFY(!bar->isVisible());
    QCOMPARE(selected(), u"2:1 wire"_s);
    QCOMPARE(QApplication::focusWidget(), edit);
}

void tst_FindBar::optionsNarrow_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QByteArray>("option");
    QTest::addColumn<QString>("found");
    QTest::addColumn<QString>("said");
    QTest::newRow("option-1 case")
        << u"CLK"_s << QByteArray("matchCase") << u"2:6 CLK"_s << u"1 of 2"_s;
    QTest::newRow("option-2 whole words")
        << u"clk"_s << QByteArray("wholeWords") << u"1:6 clk"_s << u"1 of 2"_s;
    QTest::newRow("option-3 regular expression")
        << u"k.*k"_s << QByteArray("regularExpression") << u"4:10 k = CLK"_s << u"1 of 1"_s;
}

void tst_FindBar::optionsNarrow()
{
    QFETCH(const QString, pattern);
    QFETCH(const QByteArray, option);
    QFETCH(const QString, found);
    QFETCH(const QString, said);
    find(pattern);
    auto *box = child<QCheckBox>(option.constData());
    QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2));
    QVERIFY(box->isChecked());
    QCOMPARE(selected(), found);
    QCOMPARE(status(), said);
}

void tst_FindBar::nothingIsFound_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("said");
    QTest::newRow("none-1 not there") << u"reg"_s << u"not found"_s;
    QTest::newRow("none-2 nothing to look for") << u""_s << u""_s;
    QTest::newRow("none-3 a wrong expression") << u"("_s << u"missing closing parenthesis"_s;
}

void tst_FindBar::nothingIsFound()
{
    QFETCH(const QString, pattern);
    QFETCH(const QString, said);
    child<QCheckBox>("regularExpression")->setChecked(true);
    find(pattern);
    QCOMPARE(status(), said);
    press(Qt::Key_Return);
    press(Qt::Key_Return, Qt::ShiftModifier);
    QCOMPARE(status(), said);
    QCOMPARE(selected(), u"1:1 "_s);
}

void tst_FindBar::tooManyAreNotCounted()
{
    QVERIFY(openPage(QByteArray(10'001, 'x')));
    find(u"x"_s);
    QCOMPARE(status(), u"more than 10,000"_s);
}

void tst_FindBar::theCountFollowsTheText()
{
    find(u"clk"_s);
    edit->setFocus();
    press(Qt::Key_End, Qt::ControlModifier);
    type(u"clk clk"_s);
    QTRY_COMPARE(status(), u"6 found"_s);
    press(Qt::Key_Z, Qt::ControlModifier);
    QTRY_COMPARE(status(), u"4 found"_s);
}

void tst_FindBar::matchesInSightAreMarked()
{
    QVERIFY(openPage(QByteArray("x\n").repeated(1000)));
    find(u"x"_s);
    const auto marked = [this] {
        QList<int> lines;
        for (const QTextEdit::ExtraSelection &mark : edit->extraSelections()) {
            if (mark.cursor.hasSelection())
                lines.append(mark.cursor.blockNumber());
        }
        return lines;
    };
    QVERIFY(marked().size() > 5 && marked().size() < 100);
    QVERIFY(marked().contains(0));
    edit->verticalScrollBar()->setValue(500);
    QVERIFY(marked().contains(500));
    QVERIFY(!marked().contains(0));
    press(Qt::Key_Escape);
    QCOMPARE(marked(), QList<int>());
}

void tst_FindBar::escapeGoesBack()
{
    find(u"CLK_i"_s);
    press(Qt::Key_Escape);
    QVERIFY(!bar->isVisible());
    QCOMPARE(QApplication::focusWidget(), edit);
    QCOMPARE(selected(), u"2:6 CLK_i"_s);
}

void tst_FindBar::theCloseButtonCloses()
{
    find(u"wire"_s);
    click("close");
    QVERIFY(!bar->isVisible());
    QCOMPARE(QApplication::focusWidget(), edit);
}

TEST_CLASS(tst_FindBar)
#include "tst_FindBar.moc"
