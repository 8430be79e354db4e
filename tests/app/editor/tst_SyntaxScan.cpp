#include "app/editor/SyntaxScan.h"
#include "tests/TestClass.h"

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
    QTest::addColumn<QString>("text");
    const auto row = [](const char *name, const char *file, const char *text) {
        QTest::newRow(name) << QString::fromLatin1(file) << QString::fromLatin1(text).trimmed();
    };
    row("tcl-1 commands and variables", "a.tcl", R"(
set x $y(1) ;# note
kkk   vv n   cccccc
puts ${a b}c
kkkk vvvvvv
)");
    row("tcl-2 strings hold variables", "a.tcl", R"(
puts "a $b::c \" d
kkkk tttvvvvvttttt
more" $e
ttttt vv
)");
    row("tcl-3 a quote within a word", "a.tcl", R"(
set a"b set
kkk     kkk
)");
    row("tcl-4 a sharp that is no comment", "a.tcl", R"(
set a #b
kkk
  # c
  ccc
{ # d
  ccc
)");
    row("tcl-5 a comment that goes on", "a.tcl", R"(
# a\
cccc
set
ccc
set
kkk
)");
    row("verilog-1 words", "a.v", R"(
module top(input clk); // x
kkkkkk     kkkkk       cccc
)");
    row("verilog-2 numbers and directives", "a.v", R"(
`define W 8'hFF
ddddddd   nnnnn
assign a1 = $random;
kkkkkk      vvvvvvv
)");
    row("verilog-3 comments over lines", "a.v", R"(
a /* if
  ccccc
else */ else
ccccccc kkkk
)");
    row("verilog-4 a string ends with its line", "a.v", R"(
"a // b
ttttttt
end
kkk
)");
    row("verilog-5 a quote in a comment", "a.v", R"(
// "
cccc
end
kkk
)");
    row("vhdl-1 any case", "a.vhd", R"(
ENTITY e Is -- x
kkkkkk   kk cccc
)");
    row("vhdl-2 based numbers", "a.vhd", R"(
x := 16#FF#;
     nnnnnn
)");
    row("c-1 directives", "a.c", R"(
#include "x.h" // y
dddddddddtttttdcccc
# define A \
dddddddddddd
  int
ddddd
int # x
kkk
)");
    row("c-2 characters", "a.c", R"(
char c = '\''; // '
kkkk     tttt  cccc
)");
    row("c-3 a comment that outlives its directive", "a.c", R"(
#if 1 /* a
ddddddcccc
b */ int
cccc kkk
)");
    row("xml-1 tags", "a.xml", R"(
<a b="x>y">it's &lt;</a>
gggggtttttg     vvvvgggg
)");
    row("xml-2 over lines", "a.xml", R"(
<a b="x
gggggtt
y" c='z'>
ttgggtttg
text <!-- <a>
     cccccccc
--> <?xml?>
ccc ddddddd
)");
    row("xml-3 what is no markup", "a.xml", R"(
<![CDATA[<a>]]><b>
tttttttttttttttggg
)");
}

void tst_SyntaxScan::textsAreColoured()
{
    QFETCH(const QString, file);
    QFETCH(const QString, text);
    const QString letters = u" kctndvg"_s;
    QStringList coloured;
    int state = -1;
    const QStringList lines = text.split(u'\n');
    for (qsizetype line = 0; line < lines.size(); line += 2) {
        const SyntaxScan scan(*Syntax::of(file), lines[line], state);
        QString styles(lines[line].size(), u' ');
        for (const SyntaxScan::Piece &piece : scan.pieces())
            styles.replace(piece.start, piece.length, QString(piece.length, letters[piece.style]));
        while (styles.endsWith(u' '))
            styles.chop(1);
        coloured << lines[line] << styles;
        state = scan.state();
    }
    QCOMPARE(coloured.join(u'\n'), text);
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

TEST_CLASS(tst_SyntaxScan)
#include "tst_SyntaxScan.moc"
