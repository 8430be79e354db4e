#include "app/editor/TextSearch.h"
#include "tests/TestClass.h"

#include <QTest>
#include <QTextDocument>

using namespace Qt::Literals::StringLiterals;

class tst_TextSearch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void matchesAreFound_data();
    void matchesAreFound();
    void nextAndPreviousGoRound_data();
    void nextAndPreviousGoRound();
    void theLimitHolds();
    void allAreReplaced_data();
    void allAreReplaced();
    void replacingIsOneStep();
    void aWrongPatternFindsNothing();

private:
    static TextSearch::Options options(const QString &letters)
    {
        return {letters.contains(u'c'), letters.contains(u'w'), letters.contains(u'r')};
    }
};

// Matches are written as "position+length".
void tst_TextSearch::matchesAreFound_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("options");
    QTest::addColumn<QString>("found");
    const auto row = [](const char *name, const QString &text, const QString &pattern,
                        const QString &options, const QString &found) {
        QTest::newRow(name) << text << pattern << options << found;
    };
    row("plain-1 any case", u"Clk clk\nCLK"_s, u"clk"_s, u""_s, u"0+3 4+3 8+3"_s);
    row("plain-2 one case", u"Clk clk\nCLK"_s, u"clk"_s, u"c"_s, u"4+3"_s);
    row("plain-3 what is special elsewhere", u"a.b a+b (a)"_s, u"a.b"_s, u""_s, u"0+3"_s);
    row("plain-4 does not overlap", u"aaaaa"_s, u"aa"_s, u""_s, u"0+2 2+2"_s);
    row("plain-5 nothing to look for", u"abc"_s, u""_s, u""_s, u""_s);
    row("plain-6 case beyond ASCII", u"\u00C4 \u00E4"_s, u"\u00E4"_s, u""_s, u"0+1 2+1"_s);
    row("plain-7 not across lines", u"a\nb"_s, u"a\nb"_s, u""_s, u""_s);
    row("word-1 whole words", u"clk clk_i uclk clk"_s, u"clk"_s, u"w"_s, u"0+3 15+3"_s);
    row("word-2 that begin with no letter", u"$display x$display $displays"_s, u"$display"_s,
        u"w"_s, u"0+8"_s);
    row("word-3 letters beyond ASCII", u"gr\u00FCn gr"_s, u"gr"_s, u"w"_s, u"5+2"_s);
    row("word-4 with alternatives", u"ab b a"_s, u"a|b"_s, u"wr"_s, u"3+1 5+1"_s);
    row("regex-1 groups", u"a1 b22"_s, u"[a-z](\\d+)"_s, u"r"_s, u"0+2 3+3"_s);
    row("regex-2 starts of lines", u"ab\n\ncd"_s, u"^"_s, u"r"_s, u"0+0 3+0 4+0"_s);
    row("regex-3 ends of lines", u"ab \nc"_s, u"\\s+$"_s, u"r"_s, u"2+1"_s);
    row("regex-4 one case", u"Ab ab"_s, u"a."_s, u"rc"_s, u"3+2"_s);
    row("regex-5 what may be empty", u"xax"_s, u"a*"_s, u"r"_s, u"0+0 1+1 2+0 3+0"_s);
}

void tst_TextSearch::matchesAreFound()
{
    QFETCH(const QString, text);
    QFETCH(const QString, pattern);
    QFETCH(const QString, options);
    QFETCH(const QString, found);
    const QTextDocument document(text);
    QStringList texts;
    const TextSearch search(pattern, tst_TextSearch::options(options));
    for (const TextSearch::Match &match : search.all(document, 100))
        texts.append(u"%1+%2"_s.arg(match.position).arg(match.length));
    QCOMPARE(texts.join(u' '), found);
}

void tst_TextSearch::nextAndPreviousGoRound_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<bool>("forward");
    QTest::addColumn<int>("found");
    QTest::addColumn<bool>("wrapped");
    // The text is "ab\nxx\nab ab\n".
    QTest::newRow("next-1 at the cursor") << 0 << true << 0 << false;
    QTest::newRow("next-2 in a later line") << 1 << true << 6 << false;
    QTest::newRow("next-3 in the same line") << 7 << true << 9 << false;
    QTest::newRow("next-4 round the end") << 10 << true << 0 << true;
    QTest::newRow("next-5 from the very end") << 12 << true << 0 << true;
    QTest::newRow("previous-1 in the same line") << 9 << false << 6 << false;
    QTest::newRow("previous-2 in an earlier line") << 6 << false << 0 << false;
    QTest::newRow("previous-3 round the start") << 0 << false << 9 << true;
    QTest::newRow("previous-4 from the very end") << 12 << false << 9 << false;
}

void tst_TextSearch::nextAndPreviousGoRound()
{
    QFETCH(const int, from);
    QFETCH(const bool, forward);
    QFETCH(const int, found);
    QFETCH(const bool, wrapped);
    const QTextDocument document(u"ab\nxx\nab ab\n"_s);
    const TextSearch search(u"ab"_s, {});
    bool round = !wrapped;
    const auto match =
        forward ? search.next(document, from, &round) : search.previous(document, from, &round);
    QVERIFY(match);
    QCOMPARE(match->position, found);
    QCOMPARE(match->length, 2);
    QCOMPARE(round, wrapped);
    QVERIFY(!TextSearch(u"zz"_s, {}).next(document, from, &round));
    QVERIFY(!TextSearch(u"zz"_s, {}).previous(document, from, &round));
}

void tst_TextSearch::theLimitHolds()
{
    const QTextDocument document(u"aaaa\naaaa"_s);
    QCOMPARE(TextSearch(u"a"_s, {}).all(document, 6).size(), 6);
    QCOMPARE(TextSearch(u"a"_s, {}).all(document, 100).size(), 8);
}

void tst_TextSearch::allAreReplaced_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("options");
    QTest::addColumn<QString>("words");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("after");
    const auto row = [](const char *name, const QString &text, const QString &pattern,
                        const QString &options, const QString &words, int number,
                        const QString &after) {
        QTest::newRow(name) << text << pattern << options << words << number << after;
    };
    row("all-1 longer words", u"a b a\na"_s, u"a"_s, u""_s, u"xyz"_s, 3, u"xyz b xyz\nxyz"_s);
    row("all-2 shorter words", u"abc abc"_s, u"abc"_s, u""_s, u""_s, 2, u" "_s);
    row("all-3 that hold what is found", u"aa"_s, u"a"_s, u""_s, u"aa"_s, 2, u"aaaa"_s);
    row("all-4 a backslash is one", u"a"_s, u"a"_s, u""_s, u"\\0\\n"_s, 1, u"\\0\\n"_s);
    row("regex-1 groups", u"a=1, b=22"_s, u"(\\w)=(\\d+)"_s, u"r"_s, u"\\2:\\1"_s, 2,
        u"1:a, 22:b"_s);
    row("regex-2 the whole", u"ab"_s, u"."_s, u"r"_s, u"<\\0>"_s, 2, u"<a><b>"_s);
    row("regex-3 lines and tabs", u"a,b"_s, u","_s, u"r"_s, u"\\n\\t\\\\"_s, 1, u"a\n\t\\b"_s);
    row("regex-4 before each line", u"a\n\nb"_s, u"^"_s, u"r"_s, u"// "_s, 3, u"// a\n// \n// b"_s);
    row("regex-5 what looks behind", u"aaa"_s, u"(?<=a)a"_s, u"r"_s, u"b"_s, 2, u"abb"_s);
    row("regex-6 a group that matched nothing", u"a"_s, u"a(b)?"_s, u"r"_s, u"[\\1\\7]"_s, 1,
        u"[]"_s);
    row("regex-7 a lone backslash", u"a"_s, u"a"_s, u"r"_s, u"\\q\\"_s, 1, u"\\q\\"_s);
}

void tst_TextSearch::allAreReplaced()
{
    QFETCH(const QString, text);
    QFETCH(const QString, pattern);
    QFETCH(const QString, options);
    QFETCH(const QString, words);
    QFETCH(const int, number);
    QFETCH(const QString, after);
    QTextDocument document(text);
    QCOMPARE(TextSearch(pattern, tst_TextSearch::options(options)).replaceAll(&document, words),
             number);
    QCOMPARE(document.toPlainText(), after);
}

void tst_TextSearch::replacingIsOneStep()
{
    const QString text = u"a b\na b\n\na"_s;
    QTextDocument document;
    document.setPlainText(text);
    TextSearch(u"a"_s, {}).replaceAll(&document, u"other"_s);
    QVERIFY(document.isUndoAvailable());
    document.undo();
    QCOMPARE(document.toPlainText(), text);
    QVERIFY(!document.isUndoAvailable());
}

void tst_TextSearch::aWrongPatternFindsNothing()
{
    QTextDocument document(u"(a"_s);
    const TextSearch search(u"(a"_s, options(u"r"_s));
    QVERIFY(search.isEmpty());
    QCOMPARE(search.error(), u"missing closing parenthesis"_s);
    QCOMPARE(search.replaceAll(&document, u"x"_s), 0);
    QVERIFY(TextSearch(u"(a"_s, {}).error().isEmpty());
}

TEST_CLASS(tst_TextSearch)
#include "tst_TextSearch.moc"
