#include "tests/layout/sourcefiles.h"

#include <QRegularExpression>
#include <QTest>

using namespace Qt::Literals::StringLiterals;
using sourcefiles::relative;
using sourcefiles::sourceDir;
using sourcefiles::textOf;

namespace {

// The lines of a function's body stay below that.
constexpr int longestBody = 40;

QStringList sources()
{
    QStringList found;
    for (const char *folder : {"host", "interp", "console", "commands", "ensemble", "scripting",
                               "app", "tests", "bench", "examples"})
        found += sourcefiles::below(QLatin1StringView(folder), {u"*.h"_s, u"*.cpp"_s});
    return found;
}

// What stands above a brace that has a line of its own, up to the end of what comes before.
QString headAbove(const QStringList &lines, qsizetype brace)
{
    static const QRegularExpression end(uR"((^\s*(#|//).*|.*[;{}:]|^\s*)$)"_s);
    QString head;
    for (qsizetype at = brace - 1; at >= 0 && !end.match(lines[at]).hasMatch(); --at)
        head = lines[at].trimmed() + u' ' + head;
    return head.trimmed();
}

// Whether that is the head of a function whose length counts. The rows of a test are a table, and
// may be as many as there are cases.
bool isLimited(const QString &head)
{
    static const QRegularExpression other(
        uR"(^(template\s*<.*>\s*)?(class|struct|union|enum|namespace|extern)\b)"_s);
    return head.contains(u'(') && !other.match(head).hasMatch() && !head.contains(u"_data("_s);
}

// The functions of a formatted text that are too long, one line each.
QStringList longFunctions(const QString &file, const QString &text)
{
    const QStringList lines = text.split(u'\n');
    QStringList found;
    for (qsizetype open = 0; open < lines.size(); ++open) {
        if (lines[open].trimmed() != u"{"_s)
            continue;
        const QString head = headAbove(lines, open);
        const qsizetype close = lines.indexOf(
            QRegularExpression(u'^' + QString(lines[open]).replace(u'{', u"\\}"_s)), open);
        if (isLimited(head) && close - open - 1 >= longestBody)
            found << u"%1:%2: %3 lines"_s.arg(file).arg(open + 1).arg(close - open - 1);
    }
    return found;
}

// Objects of the window, of settings and of events that are destroyed when the process ends and the
// application is gone, one line each: in namespaces and behind "static". Pointers are another
// matter.
QStringList outliving(const QString &file, const QString &text)
{
    static const QRegularExpression pattern(
        uR"(^(?:\s*static\s+)?(?:(?:inline|const|thread_local)\s+)*)"
        uR"((?<type>(?:Q(?!Pointer\b)\w+<[^;()]*)?\b(?:EditorSettings|Q?Settings|SettingsFile|Q(?:Icon|Pixmap|Image|Bitmap|)"
        uR"(Font|Palette|Cursor|Brush|Movie|Timer|Widget|Object|FileSystemWatcher|ThreadPool|)"
        uR"(Process|SocketNotifier|TextDocument))\b>?)\s+\w+\s*(?:[;={]|\((?!.*\)$|\)|const\b)))"_s,
        QRegularExpression::MultilineOption);
    QStringList found;
    for (const QRegularExpressionMatch &match : pattern.globalMatch(text))
        found << u"%1:%2: %3"_s.arg(file)
                     .arg(text.first(match.capturedStart(u"type"_s)).count(u'\n') + 1)
                     .arg(match.captured(u"type"_s));
    return found;
}

QString function(const QString &head, int lines, const QString &indent = {})
{
    return indent + head + u'\n' + indent + u"{\n"_s
        + (indent + u"    if (a) {\n"_s + indent + u"    }\n"_s).repeated(lines / 2) + indent
        + u"}\n"_s;
}

} // namespace

// What holds for every source, whatever it is about.
class tst_Style : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void functionsAreShort();
    void aLongFunctionIsFound_data();
    void aLongFunctionIsFound();
    void testClassesBearTheNamesOfTheirFiles();
    void nothingOfTheWindowOutlivesTheApplication();
    void whatOutlivesTheApplicationIsFound_data();
    void whatOutlivesTheApplicationIsFound();
};

void tst_Style::functionsAreShort()
{
    QStringList found;
    for (const QString &file : sources())
        found << longFunctions(relative(file), textOf(file));
    QCOMPARE(found.join(u'\n'), QString());
}

void tst_Style::aLongFunctionIsFound_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("diagnostic");
    QTest::newRow("long-1 a function") << function(u"void run()"_s, 40) << u"x:2: 40 lines"_s;
    QTest::newRow("long-2 one of a class") << u"class A : public B\n{\npublic:\n"_s
            + function(u"bool run() const override"_s, 42, u"    "_s)
            + u"};\n"_s << u"x:5: 42 lines"_s;
    QTest::newRow("long-3 its arguments on lines of their own")
        << u"// What it does; and how.\nvoid run(int one,\n"_s
            + function(u"         int two)"_s, 40)
        << u"x:4: 40 lines"_s;
    QTest::newRow("short-1 a function") << function(u"void run()"_s, 38) << QString();
    QTest::newRow("short-2 two of them")
        << function(u"void run()"_s, 38) + function(u"void walk()"_s, 38) << QString();
    QTest::newRow("else-1 a class") << function(u"class EXPORT(x) A"_s, 60) << QString();
    QTest::newRow("else-2 a table of tests")
        << function(u"void tst_A::rows_data()"_s, 60) << QString();
}

void tst_Style::aLongFunctionIsFound()
{
    QFETCH(const QString, text);
    QTEST(longFunctions(u"x"_s, text).join(u'\n'), "diagnostic");
}

void tst_Style::testClassesBearTheNamesOfTheirFiles()
{
    static const QRegularExpression pattern(u"(?:QTEST\\w*_MAIN|TEST_CLASS)\\((?<class>\\w+)\\)"_s);
    QStringList wrong;
    int tests = 0;
    for (const QString &file : sources()) {
        const QString name = QFileInfo(file).completeBaseName();
        if (!file.endsWith(u".cpp"_s) || !file.startsWith(sourceDir + u"/tests/"_s))
            continue;
        const QRegularExpressionMatch match = pattern.match(textOf(file));
        tests += match.hasMatch();
        if (match.hasMatch() && (match.captured(1) != name || !name.startsWith(u"tst_"_s)))
            wrong << relative(file);
    }
    QCOMPARE(wrong.join(u'\n'), QString());
    QVERIFY(tests > 100);
}

void tst_Style::nothingOfTheWindowOutlivesTheApplication()
{
    QStringList found;
    for (const QString &file : sources()) {
        const bool isProgram = !file.contains(u"/tests/"_s) && !file.contains(u"/bench/"_s);
        if (isProgram && file.endsWith(u".cpp"_s))
            found << outliving(relative(file), textOf(file));
    }
    QCOMPARE(found.join(u'\n'), QString());
}

void tst_Style::whatOutlivesTheApplicationIsFound_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("found");
    QTest::newRow("outliving-1 in a function")
        << u"{\n    static const QIcon icon(u\":/a\");\n}\n"_s << u"x:2: QIcon"_s;
    QTest::newRow("outliving-2 in a namespace") << u"const QFont font;\n"_s << u"x:1: QFont"_s;
    QTest::newRow("outliving-3 in a table")
        << u"    static QHash<QString, QIcon> icons;\n"_s << u"x:1: QHash<QString, QIcon>"_s;
    QTest::newRow("outliving-4 settings")
        << u"    static EditorSettings settings {qApp};\n"_s << u"x:1: EditorSettings"_s;
    QTest::newRow("ending-1 a pointer")
        << u"    static QPointer<EditorSettings> settings;\n    static QTimer *timer = nullptr;\n"_s
        << QString();
    QTest::newRow("ending-2 functions")
        << u"QFont defaultFont()\n{\n}\nstatic QFont a(const QFont &font);\n"_s << QString();
    QTest::newRow("ending-3 one of a function") << u"    const QIcon icon;\n"_s << QString();
}

void tst_Style::whatOutlivesTheApplicationIsFound()
{
    QFETCH(const QString, text);
    QTEST(outliving(u"x"_s, text).join(u'\n'), "found");
}

QTEST_GUILESS_MAIN(tst_Style)
#include "tst_Style.moc"
