#include "console/EditionZone.h"
#include "tests/TestClass.h"

#include <QTextEdit>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;

// Where a console's text can be edited, and what of it is the command.
class tst_EditionZone : public QObject
{
    Q_OBJECT

private:
    void moveTo(int position) { select(position, position); }
    void select(int anchor, int position)
    {
        QTextCursor cursor = view->textCursor();
        cursor.setPosition(anchor);
        cursor.setPosition(position, QTextCursor::KeepAnchor);
        view->setTextCursor(cursor);
    }
    QTextCursor at(int position)
    {
        QTextCursor cursor(view->document());
        cursor.setPosition(position);
        return cursor;
    }

    std::unique_ptr<QTextEdit> view;
    std::unique_ptr<EditionZone> zone;

private Q_SLOTS:
    void init()
    {
        view = std::make_unique<QTextEdit>();
        view->setPlainText(u"out\n> put x\nmore"_s);
        zone = std::make_unique<EditionZone>(view.get());
        zone->beginAt(at(6));
    }

    void everythingIsInAFreshZone()
    {
        const EditionZone fresh(view.get());
        QVERIFY(fresh.contains(0));
        QCOMPARE(fresh.begin(), 0);
        QCOMPARE(fresh.command(), u"out\n> put x\nmore"_s);
    }

    void positions_data()
    {
        QTest::addColumn<int>("position");
        QTest::addColumn<bool>("isInside");
        QTest::newRow("zone-position-1 output") << 0 << false;
        QTest::newRow("zone-position-2 end of the output") << 3 << false;
        QTest::newRow("zone-position-3 start of the prompt") << 4 << false;
        QTest::newRow("zone-position-4 in the prompt") << 5 << false;
        QTest::newRow("zone-position-5 behind the prompt") << 6 << true;
        QTest::newRow("zone-position-6 in the command") << 8 << true;
        QTest::newRow("zone-position-7 start of the next line") << 12 << true;
        QTest::newRow("zone-position-8 end") << 16 << true;
    }

    void positions()
    {
        QFETCH(const int, position);
        QFETCH(const bool, isInside);
        QCOMPARE(zone->contains(position), isInside);
        QCOMPARE(zone->contains(at(position)), isInside);
        moveTo(position);
        QCOMPARE(zone->containsCursor(), isInside);
        QCOMPARE(zone->containsSelection(), isInside);
    }

    void aSelectionIsInsideWithBothEnds()
    {
        select(7, 16);
        QVERIFY(zone->containsSelection());
        select(16, 5);
        QVERIFY(!zone->containsSelection());
        select(5, 16);
        QVERIFY(zone->containsCursor());
        QVERIFY(!zone->containsSelection());
    }

    void theCommandIsAllThatIsTyped()
    {
        moveTo(8);
        QCOMPARE(zone->command(), u"put x\nmore"_s);
        QCOMPARE(view->textCursor().position(), 8);
    }

    void outsideTheCommandIsTheLineWithoutAPrompt()
    {
        moveTo(1);
        QCOMPARE(zone->command(), u"t"_s);
        moveTo(4);
        QCOMPARE(zone->command(), u"put x"_s);
    }

    void outputBehindThePromptIsNotOfTheCommand()
    {
        zone->outputEndsAt(at(8));
        moveTo(10);
        QVERIFY(zone->endsWithOutput());
        QCOMPARE(zone->command(), u"t x\nmore"_s);
        at(8).insertText(u"!"_s);
        QCOMPARE(zone->command(), u"!t x\nmore"_s);
        zone->outputEndsAt(at(13));
        QVERIFY(!zone->endsWithOutput());
        zone->beginAt(at(6));
        QCOMPARE(zone->command(), u"pu!t x\nmore"_s);
    }

    void theWordBeforeTheCursorEndsAtThePrompt()
    {
        moveTo(9);
        zone->deleteStartOfWord();
        QCOMPARE(view->toPlainText(), u"out\n>  x\nmore"_s);
        zone->deleteStartOfWord();
        QCOMPARE(view->toPlainText(), u"out\n>  x\nmore"_s);
        QCOMPARE(view->textCursor().position(), 6);
    }

    void homeIsBehindThePromptOrAtTheStartOfALine()
    {
        moveTo(9);
        zone->moveHome(QTextCursor::MoveAnchor);
        QCOMPARE(view->textCursor().position(), 6);
        moveTo(14);
        zone->moveHome(QTextCursor::KeepAnchor);
        QCOMPARE(view->textCursor().selectedText(), u"mo"_s);
        moveTo(2);
        zone->moveHome(QTextCursor::MoveAnchor);
        QCOMPARE(view->textCursor().position(), 0);
    }
};

TEST_CLASS(tst_EditionZone)
#include "tst_EditionZone.moc"
