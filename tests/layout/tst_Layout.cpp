#include "tests/layout/sourcefiles.h"

#include <QRegularExpression>
#include <QSet>
#include <QTest>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;
using sourcefiles::relative;
using sourcefiles::sourceDir;
using sourcefiles::textOf;

namespace {

// A folder of sources, what includes call it, and the rooms that its files may include besides
// their own. Each room enters only those above it in the table, so that there is no cycle. A folder
// that is not here fails, and so does one that has no sources.
struct Room
{
    QString folder;
    QString name;
    QStringList mayEnter;
};

const QString core = u"host/MorvalenCore/src/"_s;

const QList<Room> rooms = {
    {u"host/supervisor/src/supervision"_s, u"supervision"_s, {}},
    {u"host/supervisor/src"_s, {}, {u"supervision"_s}},
    {u"host/Qtilities/include/Qtilities"_s, u"Qtilities"_s, {}},
    {u"host/Qtilities/src"_s, {}, {u"Qtilities"_s}},
    {u"host/MorvalenCore/include/MorvalenCore"_s, u"MorvalenCore"_s, {u"Qtilities"_s}},
    {core + u"log"_s, u"log"_s, {u"Qtilities"_s}},
    {core + u"session"_s, u"session"_s, {u"Qtilities"_s, u"MorvalenCore"_s, u"log"_s}},
    {core + u"disk"_s, u"disk"_s, {u"Qtilities"_s, u"log"_s}},
    {core + u"git"_s, u"git"_s, {}},
    {core + u"vcs"_s, u"vcs"_s, {u"Qtilities"_s, u"log"_s, u"git"_s}},
    {core + u"structures"_s,
     u"structures"_s,
     {u"Qtilities"_s, u"MorvalenCore"_s, u"log"_s, u"session"_s}},
    {core + u"document"_s, u"document"_s, {u"Qtilities"_s, u"MorvalenCore"_s}},
    {core + u"component"_s, u"component"_s, {u"Qtilities"_s, u"MorvalenCore"_s, u"document"_s}},
    {core + u"build"_s, u"build"_s, {u"Qtilities"_s, u"MorvalenCore"_s}},
    {core + u"items"_s,
     u"items"_s,
     {u"Qtilities"_s, u"MorvalenCore"_s, u"log"_s, u"session"_s, u"disk"_s, u"vcs"_s,
      u"structures"_s, u"document"_s}},
    {core + u"templates"_s,
     u"templates"_s,
     {u"Qtilities"_s, u"MorvalenCore"_s, u"session"_s, u"items"_s}},
    {core + u"configurations"_s,
     u"configurations"_s,
     {u"Qtilities"_s, u"MorvalenCore"_s, u"log"_s, u"session"_s, u"disk"_s, u"document"_s,
      u"build"_s, u"items"_s}},
    {core + u"design"_s,
     u"design"_s,
     {u"Qtilities"_s, u"MorvalenCore"_s, u"log"_s, u"disk"_s, u"structures"_s, u"document"_s,
      u"items"_s, u"configurations"_s}},
    {core + u"designs"_s,
     u"designs"_s,
     {u"Qtilities"_s, u"MorvalenCore"_s, u"log"_s, u"session"_s, u"disk"_s, u"structures"_s,
      u"component"_s, u"design"_s, u"configurations"_s}},
    {core + u"managers"_s, u"managers"_s, {u"Qtilities"_s, u"MorvalenCore"_s}},
    {u"interp"_s, u"interp"_s, {}},
    {u"console"_s, u"console"_s, {u"interp"_s}},
    {u"commands"_s, u"commands"_s, {u"interp"_s, u"Qtilities"_s, u"MorvalenCore"_s}},
    {u"ensemble"_s, u"ensemble"_s, {u"interp"_s, u"Qtilities"_s, u"MorvalenCore"_s}},
    {u"scripting"_s,
     u"scripting"_s,
     {u"interp"_s, u"console"_s, u"commands"_s, u"Qtilities"_s, u"MorvalenCore"_s}},
    {u"app/process"_s, u"app/process"_s, {u"interp"_s, u"Qtilities"_s, u"MorvalenCore"_s}},
    {u"app/drawing"_s, u"app/drawing"_s, {}},
    {u"app/messages"_s, u"app/messages"_s, {u"Qtilities"_s}},
    {u"app/live"_s,
     u"app/live"_s,
     {u"interp"_s, u"console"_s, u"MorvalenCore"_s, u"app/messages"_s, u"app/drawing"_s}},
    {u"app/session"_s,
     u"app/session"_s,
     {u"interp"_s, u"console"_s, u"Qtilities"_s, u"MorvalenCore"_s}},
    {u"app/journal"_s,
     u"app/journal"_s,
     {u"interp"_s, u"console"_s, u"Qtilities"_s, u"MorvalenCore"_s, u"app/drawing"_s}},
    {u"app/calls"_s,
     u"app/calls"_s,
     {u"interp"_s, u"console"_s, u"Qtilities"_s, u"MorvalenCore"_s, u"app/messages"_s,
      u"app/journal"_s}},
    {u"app/places"_s, u"app/places"_s, {}},
    {u"app/editor"_s,
     u"app/editor"_s,
     {u"interp"_s, u"commands"_s, u"Qtilities"_s, u"MorvalenCore"_s, u"app/messages"_s,
      u"app/places"_s, u"app/session"_s}},
    {u"app/issues"_s,
     u"app/issues"_s,
     {u"interp"_s, u"Qtilities"_s, u"MorvalenCore"_s, u"app/messages"_s, u"app/places"_s,
      u"app/editor"_s}},
    {u"app/find"_s,
     u"app/find"_s,
     {u"interp"_s, u"commands"_s, u"Qtilities"_s, u"MorvalenCore"_s, u"app/messages"_s,
      u"app/places"_s, u"app/editor"_s}},
    {u"app/keeping"_s,
     u"app/keeping"_s,
     {u"Qtilities"_s, u"MorvalenCore"_s, u"app/places"_s, u"app/session"_s, u"app/editor"_s}},
    {u"app/builds"_s,
     u"app/builds"_s,
     {u"Qtilities"_s, u"MorvalenCore"_s, u"app/messages"_s, u"app/session"_s, u"app/calls"_s,
      u"app/editor"_s, u"app/journal"_s, u"app/drawing"_s}},
    {u"app/file"_s,
     u"app/file"_s,
     {u"interp"_s, u"commands"_s, u"Qtilities"_s, u"MorvalenCore"_s, u"app/messages"_s,
      u"app/session"_s, u"app/calls"_s, u"app/editor"_s, u"app/journal"_s}},
    {u"app/designs"_s,
     u"app/designs"_s,
     {u"Qtilities"_s, u"MorvalenCore"_s, u"app/messages"_s, u"app/calls"_s, u"app/builds"_s,
      u"app/file"_s, u"app/journal"_s, u"app/editor"_s, u"app/drawing"_s}},
    {u"app/ending"_s,
     u"app/ending"_s,
     {u"interp"_s, u"Qtilities"_s, u"MorvalenCore"_s, u"app/process"_s, u"app/messages"_s,
      u"app/calls"_s, u"app/editor"_s, u"app/keeping"_s, u"app/file"_s}},
    {u"app/help"_s, u"app/help"_s, {u"interp"_s, u"commands"_s, u"ensemble"_s}},
    {u"app/preferences"_s,
     u"app/preferences"_s,
     {u"interp"_s, u"console"_s, u"Qtilities"_s, u"app/messages"_s, u"app/session"_s,
      u"app/editor"_s}},
    {u"app/window"_s,
     u"app/window"_s,
     {u"interp"_s, u"console"_s, u"Qtilities"_s, u"MorvalenCore"_s, u"app/messages"_s,
      u"app/session"_s, u"app/editor"_s, u"app/journal"_s, u"app/drawing"_s}},
    {u"app/terminal"_s,
     u"app/terminal"_s,
     {u"interp"_s, u"commands"_s, u"ensemble"_s, u"Qtilities"_s, u"app/process"_s}},
    {u"app"_s,
     u"app"_s,
     {u"interp"_s,       u"console"_s,     u"commands"_s,        u"ensemble"_s,
      u"scripting"_s,    u"Qtilities"_s,   u"MorvalenCore"_s,    u"app/process"_s,
      u"app/messages"_s, u"app/live"_s,    u"app/session"_s,     u"app/calls"_s,
      u"app/editor"_s,   u"app/builds"_s,  u"app/file"_s,        u"app/designs"_s,
      u"app/ending"_s,   u"app/help"_s,    u"app/preferences"_s, u"app/window"_s,
      u"app/terminal"_s, u"app/places"_s,  u"app/issues"_s,      u"app/find"_s,
      u"app/keeping"_s,  u"app/journal"_s, u"app/drawing"_s}},
};

// The folders at the top that hold rooms.
const QStringList floors = {u"host"_s,     u"interp"_s,    u"console"_s, u"commands"_s,
                            u"ensemble"_s, u"scripting"_s, u"app"_s};

// What nobody enters.
const QStringList outside = {u"tests"_s, u"bench"_s, u"examples"_s, u"host"_s};

const Room *roomAt(const QString &folder)
{
    for (const Room &room : rooms) {
        if (room.folder == folder)
            return &room;
    }
    return nullptr;
}

bool isRoom(const QString &name)
{
    return outside.contains(name)
        || std::any_of(rooms.begin(), rooms.end(), [&](const Room &r) { return r.name == name; });
}

// The room that an include names: as much of its folder as the table knows. Empty when it names
// none of this house.
QString roomOf(const QString &include)
{
    QString name = include;
    while (name.contains(u'/')) {
        name = name.section(u'/', 0, -2);
        if (isRoom(name))
            return name;
    }
    return {};
}

// What is wrong with the includes of a file of a room, one line each.
QStringList wrongIncludes(const Room &room, const QString &file, const QString &text)
{
    static const QRegularExpression pattern(uR"re(^\s*#\s*include\s*(["<])([^">]+)[">])re"_s,
                                            QRegularExpression::MultilineOption);
    QStringList wrong;
    for (const QRegularExpressionMatch &match : pattern.globalMatch(text)) {
        const QString include = match.captured(2);
        const QString entered = roomOf(include);
        const bool ofHost = entered == u"Qtilities"_s || entered == u"MorvalenCore"_s;
        if (include.contains(u".."_s))
            wrong << file + u": \""_s + include + u"\" climbs out of its floor"_s;
        else if (!entered.isEmpty() && entered != room.name && !room.mayEnter.contains(entered))
            wrong << file + u": \""_s + include + u"\" is not below "_s + room.folder;
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
    void everyFolderHasItsPlace();
    void noRoomsFormACycle();
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

void tst_Layout::everyFolderHasItsPlace()
{
    QSet<QString> homeless;
    for (const QString &floor : floors) {
        for (const QString &file : sourcefiles::below(floor, {u"*.h"_s, u"*.cpp"_s})) {
            const QString folder = QFileInfo(relative(file)).path();
            if (!roomAt(folder))
                homeless << folder;
        }
    }
    QCOMPARE(QStringList(homeless.cbegin(), homeless.cend()).join(u'\n'), QString());
}

void tst_Layout::noRoomsFormACycle()
{
    QStringList wrong;
    QSet<QString> above;
    for (const Room &room : rooms) {
        for (const QString &entered : room.mayEnter) {
            if (!above.contains(entered))
                wrong << room.folder + u" enters "_s + entered + u", which stands below it"_s;
        }
        above << room.name;
    }
    QCOMPARE(wrong.join(u'\n'), QString());
}

void tst_Layout::everyIncludeGoesDown_data()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < rooms.size(); ++i)
        QTest::newRow(qPrintable(u"include-"_s + rooms[i].folder)) << i;
}

void tst_Layout::everyIncludeGoesDown()
{
    QFETCH(const int, index);
    const Room &room = rooms[index];
    QStringList wrong;
    bool hasSources = false;
    for (const QString &file : sourcefiles::below(room.folder, {u"*.h"_s, u"*.cpp"_s})) {
        if (roomAt(QFileInfo(relative(file)).path()) != &room)
            continue;
        hasSources = true;
        wrong << wrongIncludes(room, relative(file), textOf(file));
    }
    QCOMPARE(wrong.join(u'\n'), QString());
    QVERIFY2(hasSources, "the folder is gone");
}

void tst_Layout::aWrongIncludeIsFound_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("diagnostic");
    QTest::newRow("wrong-up-1 an interpreter that knows the console")
        << u"interp"_s << u"#include \"console/QConsole.h\"\n"_s
        << u"x.cpp: \"console/QConsole.h\" is not below interp"_s;
    QTest::newRow("wrong-sideways-1 a console that knows the commands")
        << u"console"_s << u"#include \"commands/commands.h\"\n"_s
        << u"x.cpp: \"commands/commands.h\" is not below console"_s;
    QTest::newRow("wrong-sideways-2 an ensemble that knows the commands")
        << u"ensemble"_s << u"#include \"commands/conventions.h\"\n"_s
        << u"x.cpp: \"commands/conventions.h\" is not below ensemble"_s;
    QTest::newRow("wrong-host-1 an interpreter that knows the host")
        << u"interp"_s << u"#include <Qtilities/Logger.h>\n"_s
        << u"x.cpp: \"Qtilities/Logger.h\" is not below interp"_s;
    QTest::newRow("wrong-host-2 a framework that knows the designs")
        << u"host/Qtilities/src"_s << u"#  include <MorvalenCore/IDesign.h>\n"_s
        << u"x.cpp: \"MorvalenCore/IDesign.h\" is not below host/Qtilities/src"_s;
    QTest::newRow("wrong-private-1 a command that reads a private header of the host")
        << u"commands"_s << u"#include \"../host/MorvalenCore/src/Design.h\"\n"_s
        << u"x.cpp: \"../host/MorvalenCore/src/Design.h\" climbs out of its floor"_s;
    QTest::newRow("wrong-roof-1 a program that reads a test")
        << u"app"_s << u"#include \"tests/fakes/FakeDesign.h\"\n"_s
        << u"x.cpp: \"tests/fakes/FakeDesign.h\" is not below app"_s;
    QTest::newRow("wrong-room-1 a room that enters the one above it")
        << core + u"items"_s << u"#include \"designs/OpenDesigns.h\"\n"_s
        << u"x.cpp: \"designs/OpenDesigns.h\" is not below host/MorvalenCore/src/items"_s;
    QTest::newRow("wrong-room-2 a build that knows designs")
        << core + u"build"_s << u"#include \"design/Design.h\"\n"_s
        << u"x.cpp: \"design/Design.h\" is not below host/MorvalenCore/src/build"_s;
    QTest::newRow("wrong-room-3 a design that reaches round the document's face")
        << core + u"design"_s << u"#include \"component/ComponentDocument.h\"\n"_s
        << u"x.cpp: \"component/ComponentDocument.h\" is not below host/MorvalenCore/src/design"_s;
    QTest::newRow("wrong-room-4 a command that reads a room of the host")
        << u"commands"_s << u"#include \"design/Design.h\"\n"_s
        << u"x.cpp: \"design/Design.h\" is not below commands"_s;
    QTest::newRow("wrong-room-5 an editor that knows the menu of files")
        << u"app/editor"_s << u"#include \"app/file/closing.h\"\n"_s
        << u"x.cpp: \"app/file/closing.h\" is not below app/editor"_s;
    QTest::newRow("wrong-room-6 a room that enters what puts the rooms together")
        << u"app/designs"_s << u"#include \"app/MainWindow.h\"\n"_s
        << u"x.cpp: \"app/MainWindow.h\" is not below app/designs"_s;
    QTest::newRow("wrong-room-7 a message that knows designs")
        << u"app/messages"_s << u"#include <MorvalenCore/IDesign.h>\n"_s
        << u"x.cpp: \"MorvalenCore/IDesign.h\" is not below app/messages"_s;
    QTest::newRow("wrong-quotes-1 a host header in quotes")
        << u"commands"_s << u"#include \"Qtilities/Logger.h\"\n"_s
        << u"x.cpp: \"Qtilities/Logger.h\" wants angle brackets"_s;
    QTest::newRow("right-1 a command that uses interpreter, host and Qt")
        << u"commands"_s
        << u"#include \"interp/tcltext.h\"\n#include <MorvalenCore/IDesign.h>\n#include <QMap>\n"_s
        << QString();
    QTest::newRow("right-2 a room that enters those below it")
        << core + u"items"_s << u"#include \"items/PathItem.h\"\n#include \"disk/itempaths.h\"\n"_s
        << QString();
}

void tst_Layout::aWrongIncludeIsFound()
{
    QFETCH(const QString, folder);
    QFETCH(const QString, line);
    QFETCH(const QString, diagnostic);
    const Room *const room = roomAt(folder);
    QVERIFY(room);
    QCOMPARE(wrongIncludes(*room, u"x.cpp"_s, line).join(u'\n'), diagnostic);
}

void tst_Layout::everySourceIsBuilt_data()
{
    QTest::addColumn<QString>("folder");
    for (const char *folder :
         {"host", "interp", "console", "commands", "ensemble", "scripting", "app", "tests"})
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
    const QString packageTest = textOf(QStringLiteral(SOURCE_DIR "/tests/package/package.cmake"));
    for (const QString &file : sourcefiles::below(folder, {u"*.cpp"_s})) {
        // A consumer of the installed package is a project of its own, which that test builds.
        const QString consumer = file.section(u"/tests/package/"_s, 1).section(u'/', 0, 0);
        const bool ownProject =
            !consumer.isEmpty() && packageTest.contains(u"_DIR}/"_s + consumer + u"\" -B"_s);
        if (!ownProject && !compiled.contains(u"\"file\": \""_s + file + u'"'))
            orphans << relative(file);
    }
    QCOMPARE(orphans.join(u'\n'), QString());
}

void tst_Layout::everyExampleIsRunByATest()
{
    QString tests;
    for (const QString &file : sourcefiles::below(u"tests"_s, {u"*.cpp"_s, u"CMakeLists.txt"_s}))
        tests += textOf(file);
    QStringList forgotten;
    for (const QString &file : sourcefiles::below(u"examples"_s, {u"*.tcl"_s, u"*.cpp"_s})) {
        if (!tests.contains(QFileInfo(file).fileName()))
            forgotten << relative(file);
    }
    QCOMPARE(forgotten.join(u'\n'), QString());
}

void tst_Layout::everyExampleIsShort()
{
    QStringList tooLong;
    for (const QString &file : sourcefiles::below(u"examples"_s, {u"*.tcl"_s, u"*.cpp"_s})) {
        if (!file.contains(u"/examples/host/"_s) && textOf(file).count(u'\n') > 60)
            tooLong << relative(file);
    }
    QCOMPARE(tooLong.join(u'\n'), QString());
    // A host with designs of its own is as long as all of it.
    qsizetype lines = 0;
    for (const QString &file : sourcefiles::below(u"examples/host"_s, {u"*.cpp"_s, u"*.h"_s}))
        lines += textOf(file).count(u'\n');
    QVERIFY2(lines > 0 && lines < 400, qPrintable(QString::number(lines)));
    const QString least = textOf(QStringLiteral(SOURCE_DIR "/tests/package/least/main.cpp"));
    QVERIFY(!least.isEmpty() && least.count(u'\n') < 150);
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
