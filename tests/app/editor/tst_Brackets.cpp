// Which brackets are marked beside the cursor.

#include "app/editor/brackets.h"
#include "app/editor/shades.h"
#include "tests/app/editor/PageFixture.h"
#include "tests/TestClass.h"

using namespace Qt::Literals::StringLiterals;

class tst_Brackets : public QObject, private PageFixture
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { page.reset(); }

    void othersAreFound_data();
    void othersAreFound();
    void whatIsFarAwayIsLeft();
    void bothAreMarked();
};

void tst_Brackets::othersAreFound_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("place");
    QTest::addColumn<QList<int>>("found");
    const auto row = [](const char *name, const QByteArray &text, int place,
                        const QList<int> &found) { QTest::newRow(name) << text << place << found; };
    row("pair-1 behind the cursor", "(ab)", 0, {0, 3});
    row("pair-2 before the cursor", "(ab)", 4, {3, 0});
    row("pair-3 within others", "((a)[b])", 0, {0, 7});
    row("pair-4 over lines", "{\n{\n}\n\n}", 0, {0, 7});
    row("pair-5 over lines, backwards", "{\n{\n}\n\n}", 8, {7, 0});
    row("pair-6 the one before counts", "()[]", 2, {1, 0});
    row("pair-7 no bracket", "a b", 1, {});
    row("pair-8 none to it", "(a", 0, {0, -1});
    row("pair-9 none to it, backwards", "a)", 2, {1, -1});
    row("pair-10 not in a string", "(\")\")", 0, {0, 4});
    row("pair-11 not in a comment", "( // )\n)", 0, {0, 7});
    row("pair-12 within a string", "\"(a)\")", 1, {1, 3});
    row("pair-13 an empty text", "", 0, {});
}

void tst_Brackets::othersAreFound()
{
    QFETCH(const QByteArray, text);
    QFETCH(const int, place);
    QFETCH(const QList<int>, found);
    QVERIFY2(openPage(text), qPrintable(error));
    QTextCursor cursor(edit->document());
    cursor.setPosition(place);
    const auto pair = brackets::at(cursor);
    QCOMPARE(pair ? QList<int>({pair->here, pair->other}) : QList<int>(), found);
}

void tst_Brackets::whatIsFarAwayIsLeft()
{
    QVERIFY(openPage("(" + QByteArray(99, 'x').append('\n').repeated(3000) + ")"));
    QVERIFY(!brackets::at(edit->textCursor()));
}

void tst_Brackets::bothAreMarked()
{
    QVERIFY(openPage("a(b)\n(\n"));
    const auto marks = [this] {
        QVariantList all;
        const auto selections = edit->extraSelections();
        for (const auto &mark : selections.sliced(1)) {
            all.append(mark.cursor.selectionStart());
            all.append(mark.format.background().color());
        }
        return all;
    };
    QCOMPARE(marks(), QVariantList());
    press(Qt::Key_Right);
    const QColor found = shades::found(edit->palette());
    QCOMPARE(marks(), (QVariantList {1, found, 3, found}));
    press(Qt::Key_Down);
    QCOMPARE(marks(), (QVariantList {5, shades::unmatched(edit->palette())}));
    press(Qt::Key_Down);
    QCOMPARE(marks(), QVariantList());
    press(Qt::Key_Up);
    // What is typed counts at once.
    type(u")"_s);
    QCOMPARE(marks(), (QVariantList {6, found, 5, found}));
}

TEST_CLASS(tst_Brackets)
#include "tst_Brackets.moc"
