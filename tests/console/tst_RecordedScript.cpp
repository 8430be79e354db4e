#include "console/RecordedScript.h"
#include "tests/TestClass.h"

#include <QtTest>

#include <sys/stat.h>

using namespace Qt::Literals::StringLiterals;

// The files that recorded commands are kept in.
class tst_RecordedScript : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { path = folder.filePath(QString::fromLatin1(QTest::currentTestFunction())); }
    void oneCommandALine();
    void aShorterScriptReplacesALongerOne();
    void everyLineIsHandedOver();
    void filesThatCannotBeOpened();
    void onlyFilesAreOpened_data();
    void onlyFilesAreOpened();

private:
    QByteArray contents() const
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
    }

    QTemporaryDir folder;
    QString path;
};

void tst_RecordedScript::oneCommandALine()
{
    RecordedScript script;
    script.commands = {u"set x 1"_s, u"if 1 {\n  a\n}"_s, QString()};
    QCOMPARE(script.save(path), 0);
    QCOMPARE(contents(), QByteArray("set x 1\nif 1 {\n  a\n}\n\n"));
}

void tst_RecordedScript::aShorterScriptReplacesALongerOne()
{
    RecordedScript script;
    script.commands = {u"first"_s, u"second"_s};
    QCOMPARE(script.save(path), 0);
    script.commands = {u"x"_s};
    QCOMPARE(script.save(path), 0);
    QCOMPARE(contents(), QByteArray("x\n"));
}

void tst_RecordedScript::everyLineIsHandedOver()
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("one\n\n# two\nlast");
    file.close();
    QStringList lines;
    const auto keep = [&lines](const QString &line) { lines.append(line); };
    QCOMPARE(RecordedScript::load(path, keep), 0);
    QCOMPARE(lines, QStringList({u"one"_s, QString(), u"# two"_s, u"last"_s}));
}

void tst_RecordedScript::filesThatCannotBeOpened()
{
    const RecordedScript script;
    QCOMPARE(script.save(path + u"/missing/x"_s), -1);
    bool called = false;
    QCOMPARE(RecordedScript::load(path, [&called](const QString &) { called = true; }), -1);
    QVERIFY(!called);
}

void tst_RecordedScript::onlyFilesAreOpened_data()
{
    QTest::addColumn<QString>("name");
    const QString pipe = folder.filePath(u"pipe"_s);
    QVERIFY(::mkfifo(QFile::encodeName(pipe).constData(), 0600) == 0);
    QVERIFY(QFile::link(pipe, folder.filePath(u"link"_s)));
    QTest::newRow("no-file-1 a pipe that nobody uses") << pipe;
    QTest::newRow("no-file-2 a link to it") << folder.filePath(u"link"_s);
    QTest::newRow("no-file-3 a device") << u"/dev/null"_s;
    QTest::newRow("no-file-4 a folder") << folder.path();
}

void tst_RecordedScript::onlyFilesAreOpened()
{
    QFETCH(const QString, name);
    QCOMPARE(RecordedScript().save(name), -1);
    QCOMPARE(RecordedScript::load(name, [](const QString &) { QFAIL("a line"); }), -1);
}

TEST_CLASS(tst_RecordedScript)
#include "tst_RecordedScript.moc"
