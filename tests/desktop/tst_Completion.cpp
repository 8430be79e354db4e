#include "tests/desktop/Command.h"
#include "tests/needed.h"
#include "tests/TestClass.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Qt::Literals::StringLiterals;

// What the shells offer behind the program's name, in a folder with some files.
class tst_Completion : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void bashOffers_data();
    void bashOffers();
    void zshCompletes_data();
    void zshCompletes();
    void levelsAreTheProgramsOwn();

private:
    std::unique_ptr<QTemporaryDir> folder;
};

namespace {

const QString pages = QStringLiteral(BINARY_DIR) + u"/desktop/"_s;
const QString here = QStringLiteral(SOURCE_DIR) + u"/tests/desktop/"_s;

} // namespace

void tst_Completion::init()
{
    folder = std::make_unique<QTemporaryDir>();
    for (const char *name : {"a b.xml", "s.tcl"})
        QVERIFY(QFile(folder->filePath(QString::fromLatin1(name))).open(QIODevice::WriteOnly));
    QVERIFY(QDir(folder->path()).mkdir(u"dir"_s));
}

void tst_Completion::bashOffers_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<QStringList>("offered");

    QTest::newRow("bash-option-1 one") << QStringList {u"--se"_s} << QStringList {u"--session"_s};
    QTest::newRow("bash-option-2 behind another one's value")
        << QStringList {u"--session"_s, u"dir"_s, u"--he"_s} << QStringList {u"--help"_s};
    QTest::newRow("bash-option-3 none of that name") << QStringList {u"--x"_s} << QStringList {};
    QTest::newRow("bash-file-1 component files and folders")
        << QStringList {u""_s} << QStringList {u"dir"_s, u"a b.xml"_s};
    QTest::newRow("bash-file-2 behind --")
        << QStringList {u"--"_s, u"a"_s} << QStringList {u"a b.xml"_s};
    QTest::newRow("bash-file-3 no options behind --")
        << QStringList {u"--"_s, u"--he"_s} << QStringList {};
    QTest::newRow("bash-batch-1 any file")
        << QStringList {u"--batch"_s, u"s"_s} << QStringList {u"s.tcl"_s};
    QTest::newRow("bash-batch-2 behind the script no options")
        << QStringList {u"--batch"_s, u"s.tcl"_s, u"--he"_s} << QStringList {};
    QTest::newRow("bash-batch-3 behind the script any file")
        << QStringList {u"--batch"_s, u"s.tcl"_s, u"--session"_s, u"s"_s}
        << QStringList {u"s.tcl"_s};
    QTest::newRow("bash-session-1 folders only")
        << QStringList {u"--session"_s, u""_s} << QStringList {u"dir"_s};
    QTest::newRow("bash-session-2 behind an equals sign")
        << QStringList {u"--session"_s, u"="_s, u"d"_s} << QStringList {u"dir"_s};
    QTest::newRow("bash-level-1 by its start")
        << QStringList {u"--log-level"_s, u"w"_s} << QStringList {u"warning"_s};
    QTest::newRow("bash-level-2 behind an equals sign")
        << QStringList {u"--log-level"_s, u"="_s}
        << QStringList {u"error"_s, u"warning"_s, u"info"_s, u"debug"_s};
    QTest::newRow("bash-command-1 nothing is known of it")
        << QStringList {u"-c"_s, u"s"_s} << QStringList {};
    QTest::newRow("bash-command-2 behind it options again")
        << QStringList {u"-c"_s, u"--batch"_s, u"--he"_s} << QStringList {u"--help"_s};
}

void tst_Completion::bashOffers()
{
    QFETCH(const QStringList, words);
    QFETCH(const QStringList, offered);
    const Command run = Command::run(
        u"bash"_s,
        QStringList {u"--norc"_s, here + u"complete.bash"_s, pages + u"morvalen.bash"_s} + words,
        folder->path());
    QCOMPARE(run.error, QString());
    QCOMPARE(run.output.split(u'\n', Qt::SkipEmptyParts), offered);
}

void tst_Completion::zshCompletes_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("completed");

    QTest::newRow("zsh-option-1 with a value") << u"--se"_s << u"--session="_s;
    QTest::newRow("zsh-option-2 without") << u"--he"_s << u"--help "_s;
    QTest::newRow("zsh-file-1 a component") << u"a"_s << u"a\\ b.xml "_s;
    QTest::newRow("zsh-file-2 behind --") << u"-- a"_s << u"-- a\\ b.xml "_s;
    QTest::newRow("zsh-batch-1 a script") << u"--batch s"_s << u"--batch s.tcl "_s;
    QTest::newRow("zsh-batch-2 behind it any file")
        << u"--batch s.tcl s"_s << u"--batch s.tcl s.tcl "_s;
    QTest::newRow("zsh-session-1 a folder") << u"--session d"_s << u"--session dir/"_s;
    QTest::newRow("zsh-level-1 by its start") << u"--log-level w"_s << u"--log-level warning "_s;
    QTest::newRow("zsh-level-2 behind an equals sign")
        << u"--log-level=e"_s << u"--log-level=error "_s;
    QTest::newRow("zsh-command-1 nothing is known of it") << u"-c s"_s << u"-c s"_s;
}

void tst_Completion::zshCompletes()
{
    QFETCH(const QString, typed);
    QFETCH(const QString, completed);
    NEEDS_TOOL("zsh", "zsh");
    const QDir functions(folder->filePath(u"functions"_s));
    QVERIFY(functions.mkpath(u"."_s));
    QVERIFY(QFile::copy(pages + u"_morvalen"_s, functions.filePath(u"_morvalen"_s)));
    const Command run = Command::run(
        u"zsh"_s, {u"-f"_s, here + u"complete.zsh"_s, functions.path(), u"morvalen "_s + typed},
        folder->path());
    QCOMPARE(run.error, QString());
    QCOMPARE(run.output, u"morvalen "_s + completed + u'\n');
}

void tst_Completion::levelsAreTheProgramsOwn()
{
    const Command run = Command::run(QStringLiteral(PROGRAM), {u"--log-level"_s, u"?"_s});
    QString levels = run.error.section(u'(', 1).section(u')', 0, 0);
    QVERIFY(!levels.isEmpty());
    levels.remove(u',');
    QVERIFY(
        projectText(u"desktop/morvalen.bash.in"_s).contains(u"compgen -W \""_s + levels + u'"'));
    QVERIFY(projectText(u"desktop/fromhelp.awk"_s).contains(u":level:("_s + levels + u')'));
}

APPLESS_TEST_CLASS(tst_Completion)
#include "tst_Completion.moc"
