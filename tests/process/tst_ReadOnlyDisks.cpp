// Disks that nobody may write to, also such that become so while a design of theirs is open.

#include "tests/needed.h"
#include "tests/process/builds/buildcomponent.h"
#include "tests/process/Program.h"
#include "tests/TestClass.h"

#include <QDir>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int notAllowed = 77;

// Runs the words behind the folder where that is a disk of its own, seen by them only.
const QString onDiskOfItsOwn =
    u"own=-m; [ $(id -u) = 0 ] || own=-rm; "
    "exec unshare $own --propagation private sh -c '"
    "mount --bind \"$0\" \"$0\" && { [ -n \"$LATER\" ] || mount -o remount,ro,bind \"$0\"; } "
    "|| exit 77; cd \"$0/..\"; exec \"$@\"' \"$0\" \"$@\""_s;

} // namespace

class tst_ReadOnlyDisks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void theSession_data();
    void theSession();
    void aDesign_data();
    void aDesign();
    void aDesignWhileItIsOpen_data();
    void aDesignWhileItIsOpen();
    void buildsElsewhere();

private:
    Ended run(const QString &disk, const QStringList &commands) const;
    QString component() const { return program->path(u"disk/soft/component.xml"_s); }
    // Texts hold FOLDER for the folder of everything.
    QByteArray shown(QByteArray text) const
    {
        return text.replace("FOLDER", program->currentFolder.toUtf8());
    }

    std::unique_ptr<Program> program;
};

void tst_ReadOnlyDisks::init()
{
    program = std::make_unique<Program>();
    program->write(u"disk/soft/a.txt"_s, "a");
    program->write(
        u"disk/soft/component.xml"_s,
        buildComponent(step("copy", "cp a.txt $(OUTPUTS)", "a.txt", "$(TARGET_PATH)/b.txt")));
}

Ended tst_ReadOnlyDisks::run(const QString &disk, const QStringList &commands) const
{
    QStringList words {
        u"-c"_s,        onDiskOfItsOwn,  program->path(disk), QStringLiteral(PROGRAM),
        u"--session"_s, program->session};
    for (const QString &command : commands)
        words += {u"-c"_s, command};
    return program->runShell(u"\"$@\""_s, QStringList {u"sh"_s} + words);
}

void tst_ReadOnlyDisks::theSession_data()
{
    QTest::addColumn<QString>("session");
    QTest::newRow("session-1 one that was used before") << u"disk/used"_s;
    QTest::newRow("session-2 an empty folder") << u"disk/empty"_s;
    QTest::newRow("session-3 a folder that is not there") << u"disk/none/deep"_s;
}

void tst_ReadOnlyDisks::theSession()
{
    QFETCH(const QString, session);
    program->session = program->path(u"disk/used"_s);
    QCOMPARE(program->runCommands({u"list"_s}).status, 0);
    QVERIFY(QDir(program->path(u"disk"_s)).mkdir(u"empty"_s));
    program->session = program->path(session);
    const Ended ended = run(u"disk"_s, {u"list begun"_s});
    NEEDS_MOUNTS(ended.status != notAllowed);
    QCOMPARE(ended,
             (Ended {2, "",
                     "morvalen: cannot use the session folder " + program->session.toUtf8()
                         + ": Read-only file system\n"}));
}

void tst_ReadOnlyDisks::aDesign_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("out");
    QTest::addColumn<QByteArray>("err");
    QTest::newRow("design-1 changed") << u"morvalen version 2.0"_s << 1 << QByteArray()
                                      << QByteArray("The design \"soft\" is read-only\n");
    QTest::newRow("design-2 saved")
        << u"design save"_s << 1 << QByteArray()
        << QByteArray("Failed to save design to file \"FOLDER/disk/soft/component.xml\". Error: "
                      "Cannot write \"FOLDER/disk/soft/component.xml\": Read-only file system\n");
    QTest::newRow("design-3 built")
        << u"morvalen build"_s << 1 << QByteArray()
        << QByteArray("Error: The target path \"FOLDER/disk/soft/build/Main\" cannot be made: "
                      "Read-only file system\nError: The build \"Main\" of design \"soft\" failed\n"
                      "v.l.soft.1.0 Failed\n");
    QTest::newRow("design-4 only read")
        << u"builds list"_s << 0 << QByteArray("\"Main\"\n") << QByteArray();
}

void tst_ReadOnlyDisks::aDesign()
{
    QFETCH(const QString, command);
    QFETCH(const int, status);
    QFETCH(const QByteArray, out);
    QFETCH(const QByteArray, err);
    const QByteArray before = Program::read(component());
    const Ended ended =
        run(u"disk"_s, {u"set done [designs add {%1}]; list"_s.arg(component()), command});
    NEEDS_MOUNTS(ended.status != notAllowed);
    QCOMPARE(ended, (Ended {status, shown(out), shown(err)}));
    QCOMPARE(Program::read(component()), before);
    QCOMPARE(QDir(program->path(u"disk/soft"_s)).entryList(QDir::Files | QDir::Hidden),
             QStringList({u"a.txt"_s, u"component.xml"_s}));
}

void tst_ReadOnlyDisks::aDesignWhileItIsOpen_data()
{
    QTest::addColumn<QString>("end");
    QTest::newRow("open-1 a good end") << u"list"_s;
    QTest::newRow("open-2 quit") << u"quit"_s;
}

void tst_ReadOnlyDisks::aDesignWhileItIsOpen()
{
    QFETCH(const QString, end);
    program->environment.insert(u"LATER"_s, u"1"_s);
    const QByteArray before = Program::read(component());
    const Ended ended =
        run(u"disk"_s,
            {u"set done [designs add {%1}]; morvalen version 2.0"_s.arg(component()),
             u"exec mount -o remount,ro,bind {%1}"_s.arg(program->path(u"disk"_s)), end});
    const QDir backups(program->session + u"/Backups"_s);
    const QStringList kept = backups.entryList(QDir::Files);
    NEEDS_MOUNTS(ended.status != notAllowed);
    QCOMPARE(ended,
             (Ended {1, "",
                     shown("Error: Cannot write \"FOLDER/disk/soft/component.xml\": "
                           "Read-only file system\nWarning: The changes of the design "
                           "\"soft\" are in \"FOLDER/session/Backups/"
                           + kept.value(0).toUtf8() + "\" instead\n")}));
    QCOMPARE(kept.size(), 1);
    QVERIFY(Program::read(backups.filePath(kept.first())).contains("version>2.0<"));
    QCOMPARE(Program::read(component()), before);
}

// What is read may lie there; what is made goes where the settings allow it.
void tst_ReadOnlyDisks::buildsElsewhere()
{
    const QString target = program->path(u"made"_s);
    program->write(u"session/settings.ini"_s, "[Builds]\ntarget_folders=" + target.toUtf8() + '\n');
    program->write(
        u"disk/soft/component.xml"_s,
        Program::read(component())
            .replace("name=\"Main\"", "name=\"Main\" targetPath=\"" + target.toUtf8() + '"'));
    const QStringList commands {u"set done [designs add {%1}]; morvalen build"_s.arg(component()),
                                u"morvalen files -node generated"_s};
    const QByteArray path = target.toUtf8() + "/b.txt";
    const Ended ended = run(u"disk"_s, commands);
    NEEDS_MOUNTS(ended.status != notAllowed);
    QCOMPARE(ended, (Ended {0, "v.l.soft.1.0 Completed\n" + path + '\n', ""}));
    QCOMPARE(Program::read(target + u"/b.txt"_s), QByteArray("a"));
}

GUILESS_TEST_CLASS(tst_ReadOnlyDisks)
#include "tst_ReadOnlyDisks.moc"
