#include "app/editor/SyntaxScan.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

class tst_SyntaxScan : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void filesHaveKinds_data();
    void filesHaveKinds();
    void textsAreColoured_data();
    void textsAreColoured();
    void openSpansFitTheState();
    void anythingCanBeScanned();
};

void tst_SyntaxScan::filesHaveKinds_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("kind");
    const auto row = [](const char *file, const char *kind) {
        QTest::newRow(file) << QString::fromLatin1(file) << QString::fromLatin1(kind);
    };
    row("/a/startup.tcl", "Tcl");
    row("/a/timing.sdc", "Tcl");
    row("/a/top.v", "Verilog");
    row("/a/TOP.SV", "Verilog");
    row("/a/uart.vhd", "VHDL");
    row("/a/main.c", "C/C++");
    row("/a/main.hpp", "C/C++");
    row("/a/component.xml", "XML");
    row("/a/notes.txt", "");
    row("/a/v", "");
    row("/a.v/Makefile", "");
}

void tst_SyntaxScan::filesHaveKinds()
{
    QFETCH(const QString, file);
    QFETCH(const QString, kind);
    const Syntax *syntax = Syntax::of(file);
    QCOMPARE(syntax ? syntax->name : QString(), kind);
}

// Below each line of a text stand the letters of its styles.
void tst_SyntaxScan::textsAreColoured_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QStringList>("lines");
    const auto row = [](const char *name, const char *file, const QStringList &lines) {
        QTest::newRow(name) << QString::fromLatin1(file) << lines;
    };
    row("tcl-1 commands and variables", "a.tcl",
        {u"set x $y(1) ;# note"_s, u"kkk   vv n   cccccc"_s, u"puts ${a b}c"_s, u"kkkk vvvvvv"_s});
    row("tcl-2 strings hold variables", "a.tcl",
        {uR"(puts "a $b::c \" d)"_s, uR"(kkkk tttvvvvvttttt)"_s, uR"(more" $e)"_s,
         uR"(ttttt vv)"_s});
    row("tcl-3 a quote within a word", "a.tcl", {uR"(set a"b set")"_s, uR"(kkk     kkk)"_s});
    row("tcl-4 a sharp that is no comment", "a.tcl",
        {u"set a #b"_s, u"kkk"_s, u"  # c"_s, u"  ccc"_s, u"{ # d"_s, u"  ccc"_s});
    row("tcl-5 a comment that goes on", "a.tcl",
        {uR"(# a\)"_s, uR"(cccc)"_s, u"set"_s, u"ccc"_s, u"set"_s, u"kkk"_s});
    row("verilog-1 words", "a.v",
        {u"module top(input clk); // x"_s, u"kkkkkk     kkkkk       cccc"_s});
    row("verilog-2 numbers and directives", "a.v",
        {u"`define W 8'hFF"_s, u"ddddddd   nnnnn"_s, u"assign a1 = $random;"_s,
         u"kkkkkk      vvvvvvv"_s});
    row("verilog-3 comments over lines", "a.v",
        {u"a /* if"_s, u"  ccccc"_s, u"else */ else"_s, u"ccccccc kkkk"_s});
    row("verilog-4 a string ends with its line", "a.v",
        {uR"("a // b)"_s, uR"(ttttttt)"_s, u"end"_s, u"kkk"_s});
    row("verilog-5 a quote in a comment", "a.v", {uR"(// ")"_s, uR"(cccc)"_s, u"end"_s, u"kkk"_s});
    row("vhdl-1 any case", "a.vhd", {u"ENTITY e Is -- x"_s, u"kkkkkk   kk cccc"_s});
    row("vhdl-2 based numbers", "a.vhd", {u"x := 16#FF#;"_s, u"     nnnnnn"_s});
    row("c-1 directives", "a.c",
        {uR"(#include "x.h" // y)"_s, uR"(dddddddddtttttdcccc)"_s, uR"(# define A \)"_s,
         uR"(dddddddddddd)"_s, u"  int"_s, u"ddddd"_s, u"int # x"_s, u"kkk"_s});
    row("c-2 characters", "a.c", {uR"(char c = '\''; // ')"_s, uR"(kkkk     tttt  cccc)"_s});
    row("c-3 a comment that outlives its directive", "a.c",
        {u"#if 1 /* a"_s, u"ddddddcccc"_s, u"b */ int"_s, u"cccc kkk"_s});
    row("xml-1 tags", "a.xml",
        {uR"(<a b="x>y">it's &lt;</a>)"_s, uR"(gggggtttttg     vvvvgggg)"_s});
    row("xml-2 over lines", "a.xml",
        {uR"(<a b="x)"_s, uR"(gggggtt)"_s, uR"(y" c='z'>)"_s, uR"(ttgggtttg)"_s, u"text <!-- <a>"_s,
         u"     cccccccc"_s, u"--> <?xml?>"_s, u"ccc ddddddd"_s});
    row("xml-3 what is no markup", "a.xml", {u"<![CDATA[<a>]]><b>"_s, u"tttttttttttttttggg"_s});
}

void tst_SyntaxScan::textsAreColoured()
{
    QFETCH(const QString, file);
    QFETCH(const QStringList, lines);
    const QString letters = u" kctndvg"_s;
    int state = -1;
    for (qsizetype line = 0; line < lines.size(); line += 2) {
        const SyntaxScan scan(*Syntax::of(file), lines[line], state);
        QString styles(lines[line].size(), u' ');
        for (const SyntaxScan::Piece &piece : scan.pieces())
            styles.replace(piece.start, piece.length, QString(piece.length, letters[piece.style]));
        QCOMPARE(lines[line] + u'\n' + styles,
                 lines[line] + u'\n' + lines[line + 1].leftJustified(styles.size()));
        state = scan.state();
    }
}

// Six bits are kept for each.
void tst_SyntaxScan::openSpansFitTheState()
{
    for (const Syntax &syntax : Syntax::all()) {
        QVERIFY(syntax.spans.size() < 63);
        for (const Syntax::Span &span : syntax.spans) {
            QVERIFY(!span.opening.isEmpty());
            QVERIFY(span.within < 0 || syntax.spans[span.within].within < 0);
        }
    }
}

// Every state that can be, and texts that make no sense.
void tst_SyntaxScan::anythingCanBeScanned()
{
    const QString nonsense = u"\\\"'#$`{}<>&;/*-- 1'\u00E4\U0001F600[["_s;
    for (const Syntax &syntax : Syntax::all()) {
        int state = -1;
        for (qsizetype start = 0; start < nonsense.size(); ++start) {
            const QString line = nonsense.sliced(start) + nonsense.first(start);
            const SyntaxScan scan(syntax, line, state);
            int end = 0;
            for (const SyntaxScan::Piece &piece : scan.pieces()) {
                QVERIFY(piece.start >= end && piece.length > 0);
                end = piece.start + piece.length;
            }
            QVERIFY(end <= line.size());
            state = scan.state();
        }
    }
}

QTEST_MAIN(tst_SyntaxScan)
#include "tst_SyntaxScan.moc"
