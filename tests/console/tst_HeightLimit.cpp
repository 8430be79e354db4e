#include "console/HeightLimit.h"
#include "tests/console/ConsoleUnderTest.h"
#include "tests/TestClass.h"

#include <QScrollBar>

using namespace Qt::Literals::StringLiterals;

// A text never gets so high that Qt cannot lay it out, and nothing of it is lost.
class tst_HeightLimit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void aLowTextShowsWhole();
    void theOldestGoesOutOfSight_data();
    void theOldestGoesOutOfSight();
    void aNarrowerTextIsCutBeforeItIsLaidOut();
    void theLastParagraphAlwaysShows();
    void aConsoleTakesVeryManyLines();
    void aConsoleEchoesVeryManyLines();

private:
    QStringList shownLines() const;
    double shownHeight() const { return view->document()->size().height(); }

    std::unique_ptr<QTextEdit> view;
    std::unique_ptr<HeightLimit> limit;
};

void tst_HeightLimit::init()
{
    view = std::make_unique<QTextEdit>();
    view->setWordWrapMode(QTextOption::WrapAnywhere);
    view->resize(600, 300);
    view->show();
    QVERIFY(QTest::qWaitForWindowExposed(view.get(), patient()));
    limit = std::make_unique<HeightLimit>(
        view.get(), HeightLimit::Heights {.most = 60'000, .kept = 35'000, .never = 80'000});
}

QStringList tst_HeightLimit::shownLines() const
{
    QStringList lines;
    for (QTextBlock block = view->document()->begin(); block.isValid(); block = block.next()) {
        if (block.isVisible())
            lines.append(block.text());
    }
    return lines;
}

void tst_HeightLimit::aLowTextShowsWhole()
{
    for (int i = 0; i < 1000; ++i)
        view->append(QString::number(i));
    QCOMPARE(shownLines().size(), 1000);
}

void tst_HeightLimit::theOldestGoesOutOfSight_data()
{
    QTest::addColumn<int>("linesAtOnce");
    QTest::addColumn<int>("width");
    QTest::newRow("high-1 line by line") << 1 << 5;
    QTest::newRow("high-2 in parts") << 500 << 5;
    QTest::newRow("high-3 all at once") << 20'000 << 5;
    QTest::newRow("high-4 lines that are wrapped") << 50 << 1000;
}

void tst_HeightLimit::theOldestGoesOutOfSight()
{
    QFETCH(const int, linesAtOnce);
    QFETCH(const int, width);
    constexpr int total = 20'000;
    QStringList lines;
    for (int i = 0; i < total; ++i)
        lines.append(QString::number(i).leftJustified(width, u'x'));
    double highest = 0;
    for (int i = 0; i < total; i += linesAtOnce) {
        view->append(lines.mid(i, linesAtOnce).join(u'\n'));
        highest = std::max(highest, shownHeight());
    }
    QVERIFY2(highest < 80'000, qPrintable(QString::number(highest)));
    const QStringList shown = shownLines();
    QVERIFY2(shownHeight() > 10'000, qPrintable(QString::number(shownHeight())));
    QCOMPARE(shown, lines.last(shown.size()));
    QCOMPARE(view->toPlainText(), lines.join(u'\n'));
    QTRY_COMPARE(view->verticalScrollBar()->maximum() + view->viewport()->height(),
                 qRound(shownHeight()));
}

void tst_HeightLimit::aNarrowerTextIsCutBeforeItIsLaidOut()
{
    const QString line(60, u'x');
    const QStringList lines(2000, line);
    for (const QString &each : lines)
        view->append(each);
    QCOMPARE(shownLines().size(), 2000);
    const double before = shownHeight();
    view->resize(100, 300);
    QVERIFY(shownLines().size() < 2000);
    QVERIFY(shownHeight() < 80'000);
    QVERIFY(shownHeight() > before / 10);
    QCOMPARE(view->toPlainText(), lines.join(u'\n'));
}

void tst_HeightLimit::theLastParagraphAlwaysShows()
{
    view->append(u"first"_s);
    view->append(QString(1'000'000, u'x'));
    view->append(u"last"_s);
    QCOMPARE(shownLines(), QStringList {u"last"_s});
}

void tst_HeightLimit::aConsoleTakesVeryManyLines()
{
    ConsoleUnderTest console;
    console.start();
    console.run = [&console](const QString &, int *) {
        for (int i = 0; i < 700'000; ++i)
            console.writeOutput(QString::number(i), Qt::blue);
        return u"done"_s;
    };
    console.execCommand(u"count"_s, true, true, nullptr);
    QCOMPARE(console.verticalScrollBar()->value(), console.verticalScrollBar()->maximum());
    const QString text = console.toPlainText();
    QVERIFY(text.startsWith(u"Welcome\n> count\n0\n1\n2\n"_s));
    QVERIFY(text.endsWith(u"\n699998\n699999\ndone\n> "_s));
    QCOMPARE(text.count(u'\n'), 700'003);
    QTest::keyClicks(&console, u"abc"_s);
    QCOMPARE(console.getCurrentCommand(), u"abc"_s);
}

void tst_HeightLimit::aConsoleEchoesVeryManyLines()
{
    ConsoleUnderTest console;
    console.start();
    const QString command = u"incr count; # one of many\n"_s.repeated(700'000) + u"end"_s;
    console.execCommand(command, true, true, nullptr);
    QCOMPARE(console.verticalScrollBar()->value(), console.verticalScrollBar()->maximum());
    QCOMPARE(console.history, QStringList {QString(command).replace(u'\n', u"\\n"_s)});
    QVERIFY(console.toPlainText().endsWith(u"many\nend\n> "_s));
}

TEST_CLASS(tst_HeightLimit)
#include "tst_HeightLimit.moc"
