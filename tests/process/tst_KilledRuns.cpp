// The program is killed while it writes, and started again with the session and the files that the
// killed one left: nothing that was saved is lost, the same can be done again, and then everything
// is as if nothing had been.

#include "tests/process/builds/buildcomponent.h"
#include "tests/process/Terminal.h"
#include "tests/TestClass.h"

#include <QDir>
#include <QDirIterator>
#include <QMap>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

// What is done before, what is written then, and where: at no other place is it killed.
struct Writing
{
    QByteArray before;
    QByteArray write;
    QString place;
};

const QMap<QByteArray, Writing> &writings()
{
    static const QMap<QByteArray, Writing> all {
        {"component",
         {"", "designs add a/component.xml; design set description new; design save", u"a"_s}},
        {"project",
         {"designs add a/component.xml; project new; project save p/all.mvproject",
          "project open p/all.mvproject; catch {designs add b/component.xml}\n"
          "project save p/all.mvproject",
          u"p"_s}},
        {"settings",
         {"designs structures set_default {Custom Design} Hardware",
          "designs structures set_default {Custom Design} Software", u"session"_s}},
        {"build",
         {"designs add b/component.xml; build run", "designs add b/component.xml; build run",
          u"b"_s}},
        {"history", {"set old 1", "set new 1", u"session"_s}}};
    return all;
}

QByteArray component(const char *name, const QByteArray &moreSteps = {})
{
    return buildComponent(step("copy", "cp in made", "in", "made") + moreSteps)
        .replace("<ipxact:name>soft<", "<ipxact:name>" + QByteArray(name) + '<');
}

// Files by their paths.
using Tree = QMap<QString, QByteArray>;

// Without what tells of times: logs, and what Ninja remembers.
Tree withoutTimes(Tree tree)
{
    tree.removeIf([](Tree::iterator file) {
        const QString &path = file.key();
        return path.endsWith(u".log"_s) || path.contains(u"/.ninja_"_s);
    });
    return tree;
}

QStringList described(const Tree &tree)
{
    QStringList lines;
    for (auto file = tree.cbegin(); file != tree.cend(); ++file)
        lines.append(file.key() + u": "_s + QString::fromUtf8(*file));
    return lines;
}

} // namespace

class tst_KilledRuns : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void goOnAfterwards_data();
    void goOnAfterwards();

private:
    void prepare(const Writing &writing);
    int run(const QByteArray &script) const;
    int runKilled(const Writing &writing, const QByteArray &call, int number);
    void checkFiles(const Tree &before, const Tree &after) const;
    Tree tree() const;
    void restore(const Tree &tree) const;

    std::unique_ptr<Program> program;
    bool isTyped = false;
};

void tst_KilledRuns::goOnAfterwards_data()
{
    QTest::addColumn<QByteArray>("writing");
    QTest::addColumn<QByteArray>("call");
    for (const QByteArray &writing : writings().keys()) {
        for (const QByteArray call : {"write", "rename"})
            QTest::newRow(writing + ' ' + call) << writing << call;
    }
}

void tst_KilledRuns::goOnAfterwards()
{
    QFETCH(const QByteArray, writing);
    QFETCH(const QByteArray, call);
    const Writing &tried = writings()[writing];
    isTyped = writing == "history";
    prepare(tried);
    const Tree before = tree();
    QCOMPARE(run(tried.write), 0);
    const Tree after = tree();
    QVERIFY(withoutTimes(before) != withoutTimes(after));
    int kills = 0;
    for (restore(before); runKilled(tried, call, kills + 1) != 0; restore(before)) {
        ++kills;
        checkFiles(before, after);
        QCOMPARE(run(tried.write), 0);
        QCOMPARE(described(withoutTimes(tree())), described(withoutTimes(after)));
        if (QTest::currentTestFailed())
            return qWarning("after the call %d", kills);
    }
    QVERIFY(kills > 0);
    QCOMPARE(described(withoutTimes(tree())), described(withoutTimes(after)));
}

// The build gets a second step.
void tst_KilledRuns::prepare(const Writing &writing)
{
    program = std::make_unique<Program>();
    program->write(u"a/component.xml"_s, component("a"));
    program->write(u"b/component.xml"_s, component("b"));
    program->write(u"b/in"_s, "content\n");
    program->write(u"p/README"_s, "theirs\n");
    QCOMPARE(run(writing.before), 0);
    program->write(u"b/component.xml"_s, component("b", step("more", "cp in more", "in", "more")));
}

// In the terminal, or from the command line.
int tst_KilledRuns::run(const QByteArray &script) const
{
    if (!isTyped) {
        const Ended ended = program->runCommands({QString::fromUtf8(script)});
        if (ended.status == 1)
            qWarning().noquote() << ended.err;
        return ended.status;
    }
    Terminal terminal(*program, {u"--terminal"_s});
    const QString prompt = u"morvalen >"_s;
    if (terminal.containsBeforeItEnds(prompt))
        terminal.type(script + '\r');
    if (terminal.containsBeforeItEnds(u"\n1\n"_s + prompt))
        terminal.type("\x04");
    return terminal.ended();
}

int tst_KilledRuns::runKilled(const Writing &writing, const QByteArray &call, int number)
{
    const QString folder = QFileInfo(program->path(writing.place)).canonicalFilePath();
    program->environment.insert(u"LD_PRELOAD"_s, QStringLiteral(FAULTS));
    program->environment.insert(
        u"MORVALEN_KILL"_s, u"%1 %2 %3"_s.arg(QString::fromLatin1(call)).arg(number).arg(folder));
    const int status = run(writing.write);
    program->environment.remove(u"LD_PRELOAD"_s);
    program->environment.remove(u"MORVALEN_KILL"_s);
    return status;
}

// What was there is there, each file as it was or as it would be.
void tst_KilledRuns::checkFiles(const Tree &before, const Tree &after) const
{
    const Tree now = withoutTimes(tree());
    for (auto file = now.cbegin(); file != now.cend(); ++file) {
        if (before.contains(file.key()) && *file != before[file.key()])
            QCOMPARE(file.key() + QString::fromUtf8(*file),
                     file.key() + QString::fromUtf8(after.value(file.key())));
    }
    for (auto file = before.cbegin(); file != before.cend(); ++file)
        QVERIFY2(now.contains(file.key()) || withoutTimes({{file.key(), *file}}).isEmpty(),
                 qPrintable(file.key()));
}

Tree tst_KilledRuns::tree() const
{
    Tree files;
    QDirIterator all(program->path({}), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (all.hasNext()) {
        const QString path = all.next();
        files.insert(path, Program::read(path));
    }
    return files;
}

void tst_KilledRuns::restore(const Tree &wanted) const
{
    for (const QString &path : tree().keys())
        QVERIFY(QFile::remove(path));
    for (auto file = wanted.cbegin(); file != wanted.cend(); ++file) {
        QFile restored(file.key());
        QVERIFY(restored.open(QIODevice::WriteOnly) && restored.write(*file) == file->size());
    }
}

TEST_CLASS(tst_KilledRuns)
#include "tst_KilledRuns.moc"
