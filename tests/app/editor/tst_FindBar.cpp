#include "app/editor/EditorArea.h"
#include "app/editor/FindBar.h"
#include "app/editor/GoToLineBar.h"
#include "app/editor/TextEdit.h"
#include "app/editor/TextPage.h"
#include "tests/app/editor/files.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QToolButton>

using namespace Qt::Literals::StringLiterals;

// Searching as users do it: with keys and mouse in a page of the editor area.
class tst_FindBar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

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

    void oneIsReplaced();
    void allAreReplacedInOneStep();
    void readOnlyTextsAreNotReplaced();

    void aLineIsGoneTo_data();
    void aLineIsGoneTo();
    void oneStripAtATime();

private:
    void open(const QByteArray &bytes);
    void press(int key, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key(key), modifiers);
    }
    void type(const QString &text) const { QTest::keyClicks(QApplication::focusWidget(), text); }
    void find(const QString &text) const
    {
        press(Qt::Key_F, Qt::ControlModifier);
        type(text);
    }
    template <typename Widget>
    Widget *child(const char *name) const
    {
        return bar->findChild<Widget *>(QString::fromLatin1(name));
    }
    void click(const char *button) const
    {
        QTest::mouseClick(child<QAbstractButton>(button), Qt::LeftButton);
    }
    QString status() const { return child<QLabel>("status")->text(); }
    // Line, column and text of the selection.
    QString selected() const;

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<EditorArea> area;
    TextPage *page = nullptr;
    TextEdit *edit = nullptr;
    FindBar *bar = nullptr;
};

void tst_FindBar::init()
{
    folder = std::make_unique<QTemporaryDir>();
    area = std::make_unique<EditorArea>();
    area->resize(800, 400);
    area->show();
    QVERIFY(QTest::qWaitForWindowActive(area.get()));
    open("wire clk;\nwire CLK_i;\n\nassign clk = CLK_i;\n");
}

void tst_FindBar::cleanup() { area.reset(); }

void tst_FindBar::open(const QByteArray &bytes)
{
    QString error;
    const QString path = folder->filePath(u"f%1.v"_s.arg(area->count()));
    QVERIFY(files::write(path, bytes));
    page = TextPage::open(path, &error);
    QVERIFY2(page, qPrintable(error));
    area->addPage(page);
    edit = page->textEdit();
    bar = page->findChild<FindBar *>();
    QCOMPARE(QApplication::focusWidget(), edit);
}

QString tst_FindBar::selected() const
{
    QTextCursor start = edit->textCursor();
    start.setPosition(start.selectionStart());
    return u"%1:%2 "_s.arg(start.blockNumber() + 1).arg(start.positionInBlock() + 1)
        + edit->textCursor().selectedText();
}

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
    open(QByteArray(10'001, 'x'));
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
    open(QByteArray("x\n").repeated(1000));
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

void tst_FindBar::oneIsReplaced()
{
    press(Qt::Key_H, Qt::ControlModifier);
    type(u"clk"_s);
    QTest::mouseClick(child<QLineEdit>("replacement"), Qt::LeftButton);
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

void tst_FindBar::allAreReplacedInOneStep()
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

void tst_FindBar::readOnlyTextsAreNotReplaced()
{
    page->setHold(TextPage::Caller, u"it was opened for reading"_s);
    QVERIFY(!page->can(EditorPage::Replace));
    press(Qt::Key_H, Qt::ControlModifier);
    QVERIFY(!bar->isVisible());
    bar->open(true);
    QVERIFY(!child<QLineEdit>("replacement")->isVisible());
    type(u"clk"_s);
    QCOMPARE(selected(), u"1:6 clk"_s);
}

void tst_FindBar::aLineIsGoneTo_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("place");
    QTest::newRow("line-1 with Ctrl+L") << int(Qt::Key_L) << u"3"_s << u"3:1 "_s;
    QTest::newRow("line-2 with Ctrl+G") << int(Qt::Key_G) << u"4"_s << u"4:1 "_s;
    // What is typed cannot be beyond the last line.
    QTest::newRow("line-3 beyond the end") << int(Qt::Key_L) << u"9"_s << u"1:1 "_s;
}

void tst_FindBar::aLineIsGoneTo()
{
    QFETCH(const int, key);
    QFETCH(const QString, typed);
    QFETCH(const QString, place);
    press(key, Qt::ControlModifier);
    const auto *lines = page->findChild<GoToLineBar *>();
    QVERIFY(lines->isVisible());
    type(typed);
    press(Qt::Key_Return);
    QVERIFY(!lines->isVisible());
    QCOMPARE(QApplication::focusWidget(), edit);
    QCOMPARE(selected(), place);
}

void tst_FindBar::oneStripAtATime()
{
    const auto *lines = page->findChild<GoToLineBar *>();
    press(Qt::Key_L, Qt::ControlModifier);
    press(Qt::Key_F, Qt::ControlModifier);
    QVERIFY(!lines->isVisible() && bar->isVisible());
    press(Qt::Key_L, Qt::ControlModifier);
    QVERIFY(lines->isVisible() && !bar->isVisible());
    press(Qt::Key_Escape);
    QVERIFY(!lines->isVisible());
    QCOMPARE(QApplication::focusWidget(), edit);
}

QTEST_MAIN(tst_FindBar)
#include "tst_FindBar.moc"
