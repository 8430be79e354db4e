// What the tools' own words say of which file: read from what they have printed of small files with
// mistakes in them.

#include "app/issues/IssueReader.h"
#include "app/places/placepatterns.h"
#include "tests/TestClass.h"

#include <QElapsedTimer>
#include <QFile>

using namespace Qt::Literals::StringLiterals;

class tst_PlacePatterns : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void toolsAreUnderstood_data();
    void toolsAreUnderstood();
    void placesAreFound_data();
    void placesAreFound();
    void textsWithoutPlaces_data();
    void textsWithoutPlaces();
    void detailsBelongToTheirMessage();
    void aLongLineIsSoonRead();
};

namespace {

QStringList linesOf(const QString &name)
{
    QFile file(QStringLiteral(PLACES_FOLDER) + u"/output/"_s + name + u".txt"_s);
    if (!file.open(QIODevice::ReadOnly))
        return {u"there is no "_s + file.fileName()};
    QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n');
    lines.removeLast();
    return lines;
}

IssueReader read(const QString &name)
{
    IssueReader reader;
    for (const QString &line : linesOf(name))
        reader.take(line);
    return reader;
}

QString spelt(const Issue &issue)
{
    static const QStringList words {u"error"_s, u"warning"_s, u"note"_s, u"none"_s};
    return words[issue.severity] + u" "_s + issue.file + u":"_s + QString::number(issue.line)
        + u":"_s + QString::number(issue.column) + u" "_s + issue.message;
}

QString spelt(const TextPlace &place, const QString &line)
{
    const QString name = place.file.isEmpty() ? u"proc "_s + place.procedure : place.file;
    return u"%1 %2 %3 [%4]"_s.arg(name, QString::number(place.line), QString::number(place.column),
                                  line.mid(place.start, place.length));
}

} // namespace

void tst_PlacePatterns::toolsAreUnderstood_data()
{
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("verilator-syntax") << QStringList {
        u"error sources/adder.v:3:1 syntax error, unexpected endmodule, expecting ',' or ';'"_s};
    QTest::newRow("verilator-lint") << QStringList {
        u"warning sources/width.v:3:27 Operator ASSIGNDLY expects 4 bits on the Assign RHS, but Assign RHS's VARREF 'a' generates 8 bits."_s,
        u"warning sources/width.v:1:37 Bits of signal are not used: 'a'[7:4]"_s};
    QTest::newRow("verilator-names") << QStringList {
        u"warning sources/noname.v:1:8 Filename 'noname' does not match MODULE name: 'top'"_s,
        u"error sources/noname.v:4:14 Can't find definition of variable: 'nosuch'"_s};
    QTest::newRow("iverilog-syntax") << QStringList {u"error sources/adder.v:3:0 syntax error"_s};
    QTest::newRow("iverilog-names")
        << QStringList {u"error sources/noname.v:3:0 Unknown module type: missing_cell"_s};
    QTest::newRow("iverilog-lint") << QStringList {
        u"error sources/multi.v:5:0 Unable to bind wire/reg/memory `nodriver' in `multi'"_s,
        u"error sources/multi.v:5:0 Unable to elaborate r-value: (w)&(nodriver)"_s};
    QTest::newRow("vvp-run") << QStringList {u"error sources/fatal.v:6:0 wrong value 3"_s};
    QTest::newRow("vvp-stop") << QStringList {u"warning sources/stop.v:3:0 nearly"_s,
                                              u"error sources/stop.v:4:0 no way on"_s};
    QTest::newRow("yosys-syntax") << QStringList {
        u"error sources/adder.v:3:0 syntax error, unexpected TOK_ENDMODULE"_s};
    QTest::newRow("yosys-names") << QStringList {
        u"warning sources/noname.v:4:0 Identifier `\\nosuch' is implicitly declared."_s,
        u"error :0:0 Module `\\missing_cell' referenced in module `\\top' in cell `\\u1' is not part of the design."_s};
    QTest::newRow("ghdl-analysis") << QStringList {
        u"error sources/counter.vhd:8:8 no declaration for \"undefined_thing\""_s,
        u"error sources/counter.vhd:12:10 can't match string literal with type integer subtype \"integer\""_s};
    QTest::newRow("ghdl-hidden") << QStringList {
        u"warning sources/hidden.vhd:7:14 declaration of \"a\" hides signal \"a\" [-Whide]"_s};
    QTest::newRow("ghdl-run") << QStringList {u"note sources/bench.vhd:8:5 half way"_s,
                                              u"warning sources/bench.vhd:9:5 value is wrong"_s,
                                              u"error sources/bench.vhd:10:5 it ends here"_s};
    QTest::newRow("gcc-syntax") << QStringList {
        u"error sources/part.h:2:12 unknown type name 'undeclared'"_s,
        u"error sources/main.c:9:20 expected ';' before '}' token"_s,
        u"warning sources/main.c:7:9 unused variable 'unused' [-Wunused-variable]"_s};
    QTest::newRow("gcc-link") << QStringList {
        u"error /designs/uart/sources/fine.c:2:0 undefined reference to `twice'"_s};
    QTest::newRow("gxx-templates") << QStringList {
        u"error sources/templ.cc:6:26 conversion from 'const char [5]' to non-scalar type 'std::vector<int>' requested"_s,
        u"error sources/templ.cc:2:39 request for member 'nothing' in 't', which is of non-class type 'int'"_s};
    QTest::newRow("tcl-stack") << QStringList();
}

void tst_PlacePatterns::toolsAreUnderstood()
{
    QFETCH(const QStringList, expected);
    QStringList issues;
    const IssueReader reader = read(QString::fromUtf8(QTest::currentDataTag()));
    for (const Issue &issue : reader.issues())
        issues.append(spelt(issue));
    QCOMPARE(issues.join(u'\n'), expected.join(u'\n'));
}

void tst_PlacePatterns::placesAreFound_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("expected");
    QTest::newRow("place-1 a file of Tcl's") << u"    (file \"sources/run.tcl\" line 3)"_s
                                             << u"sources/run.tcl 3 0 [sources/run.tcl\" line 3]"_s;
    QTest::newRow("place-2 a procedure")
        << u"    (procedure \"inner\" line 3)"_s << u"proc inner 3 0 [inner\" line 3]"_s;
    QTest::newRow("place-3 a procedure with its file")
        << u"    (procedure \"inner\" line 3, file \"/a b/library.tcl\" line 4)"_s
        << u"/a b/library.tcl 4 0 [/a b/library.tcl\" line 4]"_s;
    QTest::newRow("place-4 an included file")
        << u"In file included from src/main.c:1:"_s << u"src/main.c 1 0 [src/main.c:1]"_s;
    QTest::newRow("place-5 a further one")
        << u"                 from src/main.c:1:7,"_s << u"src/main.c 1 7 [src/main.c:1:7]"_s;
    QTest::newRow("place-6 where a template is used")
        << u"src/templ.cc:5:6:   required from here"_s << u"src/templ.cc 5 6 [src/templ.cc:5:6]"_s;
    QTest::newRow("place-7 a name with blanks")
        << u"my sources/main.c:9:1: error: no"_s
        << u"my sources/main.c 9 1 [my sources/main.c:9:1]"_s;
    QTest::newRow("place-8 several in a line")
        << u"see a/x.v:3 and \"b.vhd:4:5\""_s << u"a/x.v 3 0 [a/x.v:3];b.vhd 4 5 [b.vhd:4:5]"_s;
    QTest::newRow("place-9 Yosys' ranges") << u"  attribute \\src \"sources/drivers.v:1.1-4.10\""_s
                                           << u"sources/drivers.v 1 1 [sources/drivers.v:1.1]"_s;
    QTest::newRow("place-10 a simulation that ends")
        << u"src/stop.v:4: $finish called at 10 (1s)"_s << u"src/stop.v 4 0 [src/stop.v:4]"_s;
    QTest::newRow("place-11 a file without an ending")
        << u"Makefile:3: *** missing separator.  Stop."_s << u"Makefile 3 0 [Makefile:3]"_s;
    QTest::newRow("place-12 in words")
        << u"/session/Scripts/startup.tcl:2: no such command"_s
        << u"/session/Scripts/startup.tcl 2 0 [/session/Scripts/startup.tcl:2]"_s;
}

void tst_PlacePatterns::placesAreFound()
{
    QFETCH(const QString, line);
    QFETCH(const QString, expected);
    QStringList found;
    for (const TextPlace &place : placepatterns::placesIn(line))
        found.append(spelt(place, line));
    QCOMPARE(found.join(u';'), expected);
}

void tst_PlacePatterns::textsWithoutPlaces_data()
{
    QTest::addColumn<QString>("line");
    QTest::newRow("none-1 a time") << u"12:30:45 begins"_s;
    QTest::newRow("none-2 a host") << u"https://example.com:80/index.html"_s;
    QTest::newRow("none-3 a piece of source") << u"    9 | puts \"a.c:3: error: no\""_s;
    QTest::newRow("none-4 a caret") << u"      |     ^~~~ a.c:3:1:"_s;
    QTest::newRow("none-5 a range of bits") << u"assign x = y[7:0];"_s;
    QTest::newRow("none-6 line 0") << u"a.c:0: none"_s;
    QTest::newRow("none-7 a ratio") << u"scale 3:4"_s;
    QTest::newRow("none-8 nothing") << QString();
}

void tst_PlacePatterns::textsWithoutPlaces()
{
    QFETCH(const QString, line);
    QCOMPARE(placepatterns::placesIn(line).size(), 0);
}

// A piece of source, a caret and a note say more of the error above, and a list of including files
// of the one below.
void tst_PlacePatterns::detailsBelongToTheirMessage()
{
    const QStringList lines = linesOf(u"gcc-syntax"_s);
    const IssueReader reader = read(u"gcc-syntax"_s);
    QCOMPARE(reader.issues()[0].details, lines.mid(0, 4).join(u'\n'));
    QCOMPARE(reader.issues()[1].details, lines.mid(4, 7).join(u'\n'));
    QCOMPARE(reader.issues()[2].details, lines.mid(11).join(u'\n'));
    IssueReader noted;
    noted.take(u"a.c:3:1: error: conflicting types"_s);
    noted.take(u"a.h:1:1: note: declared here"_s);
    QCOMPARE(noted.issues().size(), 1);
    QCOMPARE(noted.issues()[0].details,
             u"a.c:3:1: error: conflicting types\na.h:1:1: note: declared here"_s);
}

// However long a line is, what is looked at has an end.
void tst_PlacePatterns::aLongLineIsSoonRead()
{
    const QString line = QString(2'000'000, u'a') + u":3: error: no"_s;
    QCOMPARE(placepatterns::placesIn(line).size(), 0);
    const QString colons = QString(u"a:1"_s).repeated(700'000);
    QElapsedTimer timer;
    timer.start();
    static_cast<void>(placepatterns::placesIn(colons));
    QVERIFY(timer.elapsed() < patient(1000));
}

APPLESS_TEST_CLASS(tst_PlacePatterns)
#include "tst_PlacePatterns.moc"
