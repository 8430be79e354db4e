#include "app/editor/IncrementalSearch.h"
#include "app/editor/TextEdit.h"
#include "tests/TestClass.h"

#include <QSignalSpy>

using namespace Qt::Literals::StringLiterals;

// A search through an editor, by itself; the strip that users search with is tested elsewhere.
class tst_IncrementalSearch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void searchesFromWhereItBegan();
    void goesRoundTheEnd();
    void goesRoundTheTop();
    void emptyMatchesAreLeft();
    void tellsWhatIsWrong();
    void tellsThatThereIsNothing();
    void replacesWhatIsSelected();
    void replacesAll();
    void changesNothingThatIsReadOnly();
    void countsAgainWhenTheTextChanges();
    void marksOnlyInSight();
    void countsUpToALimit();

private:
    // Line, column and text of the selection.
    QString selected() const
    {
        QTextCursor start = edit->textCursor();
        start.setPosition(start.selectionStart());
        return u"%1:%2 "_s.arg(start.blockNumber() + 1).arg(start.positionInBlock() + 1)
            + edit->textCursor().selectedText();
    }
    void startAt(int position)
    {
        QTextCursor cursor = edit->textCursor();
        cursor.setPosition(position);
        edit->setTextCursor(cursor);
        search->begin();
    }

    std::unique_ptr<TextEdit> edit;
    IncrementalSearch *search = nullptr;
};

void tst_IncrementalSearch::init()
{
    edit = std::make_unique<TextEdit>(nullptr);
    edit->setPlainText(u"wire clk;\nwire CLK_i;\n\nassign clk = CLK_i;"_s);
    search = new IncrementalSearch(edit.get(), edit.get());
}

void tst_IncrementalSearch::searchesFromWhereItBegan()
{
    startAt(7);
    QVERIFY(search->isEmpty());
    QSignalSpy told(search, &IncrementalSearch::statusChanged);
    search->search({u"c"_s, {}});
    QCOMPARE(selected(), u"2:6 C"_s);
    search->search({u"cl"_s, {}});
    QCOMPARE(selected(), u"2:6 CL"_s);
    search->search({u"clk "_s, {}});
    QCOMPARE(selected(), u"4:8 clk "_s);
    // A shorter pattern goes back.
    search->search({u"c"_s, {}});
    QCOMPARE(selected(), u"2:6 C"_s);
    QCOMPARE(search->status(), u"2 of 4"_s);
    QVERIFY(!search->isEmpty());
    QCOMPARE(told.size(), 4);
}

void tst_IncrementalSearch::goesRoundTheEnd()
{
    startAt(30);
    search->search({u"wire"_s, {}});
    QCOMPARE(selected(), u"1:1 wire"_s);
    QCOMPARE(search->status(), u"1 of 2, continued at the top"_s);
    search->find(true);
    QCOMPARE(selected(), u"2:1 wire"_s);
    QCOMPARE(search->status(), u"2 of 2"_s);
    search->find(true);
    QCOMPARE(selected(), u"1:1 wire"_s);
    QCOMPARE(search->status(), u"1 of 2, continued at the top"_s);
}

void tst_IncrementalSearch::goesRoundTheTop()
{
    startAt(0);
    search->search({u"wire"_s, {}});
    search->find(false);
    QCOMPARE(selected(), u"2:1 wire"_s);
    QCOMPARE(search->status(), u"2 of 2, continued at the end"_s);
}

// Such as the starts of lines.
void tst_IncrementalSearch::emptyMatchesAreLeft()
{
    startAt(0);
    search->search({u"^"_s, {.regularExpression = true}});
    QCOMPARE(selected(), u"1:1 "_s);
    for (const QString &next : {u"2:1 "_s, u"3:1 "_s, u"4:1 "_s, u"1:1 "_s}) {
        search->find(true);
        QCOMPARE(selected(), next);
    }
}

void tst_IncrementalSearch::tellsWhatIsWrong()
{
    startAt(3);
    search->search({u"(a"_s, {.regularExpression = true}});
    QCOMPARE(search->status(), u"missing closing parenthesis"_s);
    QCOMPARE(selected(), u"1:4 "_s);
    QVERIFY(search->isEmpty());
}

void tst_IncrementalSearch::tellsThatThereIsNothing()
{
    startAt(3);
    search->search({u"none"_s, {}});
    QCOMPARE(search->status(), u"not found"_s);
    QCOMPARE(selected(), u"1:4 "_s);
    search->find(true);
    QCOMPARE(selected(), u"1:4 "_s);
    search->search({});
    QCOMPARE(search->status(), QString());
}

void tst_IncrementalSearch::replacesWhatIsSelected()
{
    startAt(0);
    search->search({u"clk"_s, {.matchCase = true}});
    search->replace(u"clock"_s);
    QCOMPARE(edit->toPlainText(), u"wire clock;\nwire CLK_i;\n\nassign clk = CLK_i;"_s);
    QCOMPARE(selected(), u"4:8 clk"_s);
    // What is selected by hand is no match: the next one is gone to.
    startAt(0);
    search->replace(u"x"_s);
    QCOMPARE(edit->toPlainText(), u"wire clock;\nwire CLK_i;\n\nassign clk = CLK_i;"_s);
    QCOMPARE(selected(), u"4:8 clk"_s);
}

void tst_IncrementalSearch::replacesAll()
{
    search->search({u"clk"_s, {}});
    search->replaceAll(u"c"_s);
    QCOMPARE(edit->toPlainText(), u"wire c;\nwire c_i;\n\nassign c = c_i;"_s);
    QCOMPARE(search->status(), u"not found, 4 replaced"_s);
    edit->undo();
    QCOMPARE(edit->toPlainText(), u"wire clk;\nwire CLK_i;\n\nassign clk = CLK_i;"_s);
}

void tst_IncrementalSearch::changesNothingThatIsReadOnly()
{
    const QString text = edit->toPlainText();
    search->replace(u"x"_s);
    search->replaceAll(u"x"_s);
    search->search({u"clk"_s, {}});
    edit->setReadOnly(true);
    search->replace(u"x"_s);
    search->replaceAll(u"x"_s);
    QCOMPARE(edit->toPlainText(), text);
    QCOMPARE(selected(), u"1:6 clk"_s);
}

void tst_IncrementalSearch::countsAgainWhenTheTextChanges()
{
    search->search({u"clk"_s, {}});
    QCOMPARE(search->status(), u"1 of 4"_s);
    search->setInSight(true);
    QSignalSpy told(search, &IncrementalSearch::statusChanged);
    edit->appendPlainText(u"clk"_s);
    QVERIFY(told.wait(patient()));
    QCOMPARE(search->status(), u"1 of 5"_s);
}

void tst_IncrementalSearch::marksOnlyInSight()
{
    edit->resize(400, 300);
    edit->show();
    QVERIFY(QTest::qWaitForWindowExposed(edit.get(), patient()));
    const qsizetype own = edit->extraSelections().size();
    search->search({u"clk"_s, {}});
    QCOMPARE(edit->extraSelections().size(), own);
    search->setInSight(true);
    QTRY_COMPARE(edit->extraSelections().size(), own + 4);
    search->setInSight(false);
    QCOMPARE(edit->extraSelections().size(), own);
}

void tst_IncrementalSearch::countsUpToALimit()
{
    edit->setPlainText(u"a\n"_s.repeated(10'001));
    search->search({u"a"_s, {}});
    QCOMPARE(search->status(), u"more than 10,000"_s);
}

TEST_CLASS(tst_IncrementalSearch)
#include "tst_IncrementalSearch.moc"
