#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString sourceDir = QStringLiteral(SOURCE_DIR);

// A floor, and what its files may include besides their own floor: floors by their folder, host
// libraries by their prefix.
struct Floor
{
    QString folder;
    QStringList mayEnter;
};

const QList<Floor> floors = {
    {u"host/Qtilities"_s, {u"Qtilities"_s}},
    {u"host/MorvalenCore"_s, {u"Qtilities"_s, u"MorvalenCore"_s}},
    {u"interp"_s, {}},
    {u"console"_s, {u"interp"_s}},
    {u"commands"_s, {u"interp"_s, u"Qtilities"_s, u"MorvalenCore"_s}},
    {u"scripting"_s, {u"interp"_s, u"console"_s, u"commands"_s, u"Qtilities"_s, u"MorvalenCore"_s}},
    {u"app"_s,
     {u"interp"_s, u"console"_s, u"commands"_s, u"scripting"_s, u"Qtilities"_s, u"MorvalenCore"_s}},
};

// Every first part of an include that names a room of this house.
const QStringList rooms = {u"interp"_s, u"console"_s,   u"commands"_s,    u"scripting"_s,
                           u"app"_s,    u"tests"_s,     u"bench"_s,       u"examples"_s,
                           u"host"_s,   u"Qtilities"_s, u"MorvalenCore"_s};

QStringList sourcesBelow(const QString &folder, const QStringList &patterns)
{
    QStringList found;
    QDirIterator walk(sourceDir + u'/' + folder, patterns, QDir::Files,
                      QDirIterator::Subdirectories);
    while (walk.hasNext())
        found << walk.next();
    found.sort();
    return found;
}

QString textOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QString relative(const QString &path) { return QDir(sourceDir).relativeFilePath(path); }

// The first part of an include's path, empty when the include has no folder.
QString roomOf(const QString &include)
{
    return include.contains(u'/') ? include.section(u'/', 0, 0) : QString();
}

// What is wrong with the includes of a file of a floor, one line each.
QStringList wrongIncludes(const Floor &floor, const QString &file, const QString &text)
{
    static const QRegularExpression pattern(uR"re(^\s*#\s*include\s*(["<])([^">]+)[">])re"_s,
                                            QRegularExpression::MultilineOption);
    QStringList wrong;
    for (const QRegularExpressionMatch &match : pattern.globalMatch(text)) {
        const QString include = match.captured(2);
        const QString room = roomOf(include);
        const bool ofHost = room == u"Qtilities"_s || room == u"MorvalenCore"_s;
        if (include.contains(u".."_s))
            wrong << file + u": \""_s + include + u"\" climbs out of its floor"_s;
        else if (rooms.contains(room) && room != floor.folder && !floor.mayEnter.contains(room))
            wrong << file + u": \""_s + include + u"\" is not below "_s + floor.folder;
        else if (ofHost && match.captured(1) == u"\""_s)
            wrong << file + u": \""_s + include + u"\" wants angle brackets"_s;
    }
    return wrong;
}

} // namespace

class tst_Layout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyIncludeGoesDown_data();
    void everyIncludeGoesDown();
    void aWrongIncludeIsFound_data();
    void aWrongIncludeIsFound();
    void everySourceIsBuilt_data();
    void everySourceIsBuilt();
    void everyExampleIsRunByATest();
    void everyExampleIsShort();
    void everyPublicHeaderIncludesPublicOnesOnly();
    void everyPresetThatDocumentsNameExists();
};

void tst_Layout::everyIncludeGoesDown_data()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < floors.size(); ++i)
        QTest::newRow(qPrintable(u"include-"_s + floors[i].folder)) << i;
}

void tst_Layout::everyIncludeGoesDown()
{
    QFETCH(const int, index);
    const Floor &floor = floors[index];
    const QStringList files = sourcesBelow(floor.folder, {u"*.h"_s, u"*.cpp"_s});
    QVERIFY(!files.isEmpty());
    QStringList wrong;
    for (const QString &file : files)
        wrong << wrongIncludes(floor, relative(file), textOf(file));
    QCOMPARE(wrong.join(u'\n'), QString());
}

void tst_Layout::aWrongIncludeIsFound_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("complaint");
    QTest::newRow("wrong-up-1 an interpreter that knows the console")
        << u"interp"_s << u"#include \"console/QConsole.h\"\n"_s
        << u"x.cpp: \"console/QConsole.h\" is not below interp"_s;
    QTest::newRow("wrong-sideways-1 a console that knows the commands")
        << u"console"_s << u"#include \"commands/commands.h\"\n"_s
        << u"x.cpp: \"commands/commands.h\" is not below console"_s;
    QTest::newRow("wrong-host-1 an interpreter that knows the host")
        << u"interp"_s << u"#include <Qtilities/Logger.h>\n"_s
        << u"x.cpp: \"Qtilities/Logger.h\" is not below interp"_s;
    QTest::newRow("wrong-host-2 a framework that knows the designs")
        << u"host/Qtilities"_s << u"#  include <MorvalenCore/IDesign.h>\n"_s
        << u"x.cpp: \"MorvalenCore/IDesign.h\" is not below host/Qtilities"_s;
    QTest::newRow("wrong-private-1 a command that reads a private header of the host")
        << u"commands"_s << u"#include \"../host/MorvalenCore/src/Design.h\"\n"_s
        << u"x.cpp: \"../host/MorvalenCore/src/Design.h\" climbs out of its floor"_s;
    QTest::newRow("wrong-roof-1 a program that reads a test")
        << u"app"_s << u"#include \"tests/fakes/FakeDesign.h\"\n"_s
        << u"x.cpp: \"tests/fakes/FakeDesign.h\" is not below app"_s;
    QTest::newRow("wrong-quotes-1 a host header in quotes")
        << u"commands"_s << u"#include \"Qtilities/Logger.h\"\n"_s
        << u"x.cpp: \"Qtilities/Logger.h\" wants angle brackets"_s;
    QTest::newRow("right-1 a command that uses interpreter, host and Qt")
        << u"commands"_s
        << u"#include \"interp/tcltext.h\"\n#include <MorvalenCore/IDesign.h>\n#include <QMap>\n"_s
        << QString();
}

void tst_Layout::aWrongIncludeIsFound()
{
    QFETCH(const QString, folder);
    QFETCH(const QString, line);
    QFETCH(const QString, complaint);
    const auto floor = std::find_if(floors.begin(), floors.end(),
                                    [&](const Floor &f) { return f.folder == folder; });
    QVERIFY(floor != floors.end());
    QCOMPARE(wrongIncludes(*floor, u"x.cpp"_s, line).join(u'\n'), complaint);
}

void tst_Layout::everySourceIsBuilt_data()
{
    QTest::addColumn<QString>("folder");
    for (const char *folder :
         {"host", "interp", "console", "commands", "scripting", "app", "tests"})
        QTest::newRow(folder) << QString::fromLatin1(folder);
#ifdef BENCH_IS_BUILT
    QTest::newRow("bench") << u"bench"_s;
#endif
}

// A source that is not compiled is dead, and a test that is not built proves nothing.
void tst_Layout::everySourceIsBuilt()
{
    QFETCH(const QString, folder);
    const QString compiled = textOf(QStringLiteral(BINARY_DIR "/compile_commands.json"));
    QVERIFY(!compiled.isEmpty());
    QStringList orphans;
    for (const QString &file : sourcesBelow(folder, {u"*.cpp"_s})) {
        // The consumer of the installed package is a project of its own.
        const bool ownProject = file.contains(u"/tests/package/consumer/"_s);
        if (!ownProject && !compiled.contains(u"\"file\": \""_s + file + u'"'))
            orphans << relative(file);
    }
    QCOMPARE(orphans.join(u'\n'), QString());
}

void tst_Layout::everyExampleIsRunByATest()
{
    QString tests;
    for (const QString &file : sourcesBelow(u"tests"_s, {u"*.cpp"_s, u"CMakeLists.txt"_s}))
        tests += textOf(file);
    QStringList forgotten;
    for (const QString &file : sourcesBelow(u"examples"_s, {u"*.tcl"_s, u"*.cpp"_s})) {
        if (!tests.contains(QFileInfo(file).fileName()))
            forgotten << relative(file);
    }
    QCOMPARE(forgotten.join(u'\n'), QString());
}

void tst_Layout::everyExampleIsShort()
{
    QStringList tooLong;
    for (const QString &file : sourcesBelow(u"examples"_s, {u"*.tcl"_s, u"*.cpp"_s})) {
        if (textOf(file).count(u'\n') > 60)
            tooLong << relative(file);
    }
    QCOMPARE(tooLong.join(u'\n'), QString());
}

void tst_Layout::everyPublicHeaderIncludesPublicOnesOnly()
{
    const QStringList headers = QStringLiteral(PUBLIC_HEADERS).split(u',');
    QVERIFY(headers.size() > 3);
    static const QRegularExpression pattern(u"#include \"([^\"]+)\""_s);
    for (const QString &header : headers) {
        const QString text = textOf(sourceDir + u'/' + header);
        QVERIFY2(!text.isEmpty(), qPrintable(header));
        for (const QRegularExpressionMatch &match : pattern.globalMatch(text))
            QVERIFY2(headers.contains(match.captured(1)),
                     qPrintable(header + u" includes "_s + match.captured(1)));
    }
}

void tst_Layout::everyPresetThatDocumentsNameExists()
{
    const QString presets = textOf(sourceDir + u"/CMakePresets.json"_s);
    static const QRegularExpression pattern(u"--preset[ =]([a-z]+)"_s);
    for (const char *document : {"README.md", "CONTRIBUTING.md", ".ci/run"}) {
        const QString text = textOf(sourceDir + u'/' + QString::fromLatin1(document));
        QVERIFY2(!text.isEmpty(), document);
        for (const QRegularExpressionMatch &match : pattern.globalMatch(text))
            QVERIFY2(presets.contains(u"\"name\": \""_s + match.captured(1) + u'"'),
                     qPrintable(match.captured(0)));
    }
}

QTEST_GUILESS_MAIN(tst_Layout)
#include "tst_Layout.moc"
