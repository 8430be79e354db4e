#include "tests/TestClass.h"

#include <MorvalenCore/AbstractScriptedAction.h>

#include <Qtilities/Logger.h>

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::AbstractScriptedAction;
using Qtilities::Core::InstanceFactoryInfo;
using Qtilities::Logging::Logger;

namespace {

class FakeAction : public AbstractScriptedAction
{
public:
    InstanceFactoryInfo instanceFactoryInfo() const override { return {}; }
    void execute() override { }
    int execute(bool *, QString *) override { return 0; }
};

} // namespace

// What all scripted actions share: their file, and how they are shown.
class tst_AbstractScriptedAction : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsWithoutAFile();
    void hasFixedNumbersForActionTypes();
    void knowsWhetherItsFileIsAFile_data();
    void knowsWhetherItsFileIsAFile();
    void readsItsFile_data();
    void readsItsFile();
    void readsABigFile();
    void warnsOfBytesThatAreNotUtf8();
    void warnsOfAFileThatCannotBeRead();

private:
    QString path(const QString &name) const { return folder.filePath(name); }
    void put(const QString &name, const QByteArray &content) const
    {
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), content.size());
    }

    QTemporaryDir folder;
};

void tst_AbstractScriptedAction::startsWithoutAFile()
{
    FakeAction action;

    QCOMPARE(action.filePath(), QString());
    QVERIFY(!action.filePathExists());
    QCOMPARE(action.fileContents(), QString());
    QVERIFY(!action.showExecutionLog());
    QCOMPARE(action.userActionType(), 0);
    action.setFilePath(u"relative/x.tcl"_s);
    action.setShowExecutionLog(true);
    action.setUserActionType(7);

    QCOMPARE(action.filePath(), u"relative/x.tcl"_s);
    QVERIFY(action.showExecutionLog());
    QCOMPARE(action.userActionType(), 7);
}

void tst_AbstractScriptedAction::hasFixedNumbersForActionTypes()
{
    QCOMPARE(int(AbstractScriptedAction::EmbeddedAction), 7);
    QCOMPARE(int(AbstractScriptedAction::MenuAction), 0);
}

void tst_AbstractScriptedAction::knowsWhetherItsFileIsAFile_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("exists");

    QTest::newRow("exists-1 a file") << u"script.tcl"_s << true;
    QTest::newRow("exists-2 a link to a file") << u"link.tcl"_s << true;
    QTest::newRow("exists-3 nothing") << u"none.tcl"_s << false;
    QTest::newRow("exists-4 a folder") << u"folder.tcl"_s << false;
    QTest::newRow("exists-5 a pipe") << u"pipe.tcl"_s << false;
    QTest::newRow("exists-6 a link to nothing") << u"dangling.tcl"_s << false;
}

void tst_AbstractScriptedAction::knowsWhetherItsFileIsAFile()
{
    QFETCH(QString, name);
    QFETCH(bool, exists);
    put(u"script.tcl"_s, "puts a\n");
    QDir(folder.path()).mkdir(u"folder.tcl"_s);
    QFile::link(u"script.tcl"_s, path(u"link.tcl"_s));
    QFile::link(u"nowhere"_s, path(u"dangling.tcl"_s));
    ::mkfifo(QFile::encodeName(path(u"pipe.tcl"_s)).constData(), 0600);
    FakeAction action;
    action.setFilePath(path(name));

    QCOMPARE(action.filePathExists(), exists);
    QCOMPARE(action.fileContents(), exists ? u"puts a\n"_s : QString());
}

void tst_AbstractScriptedAction::readsItsFile_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");

    QTest::newRow("read-1 ASCII") << QByteArray("puts a\n") << u"puts a\n"_s;
    QTest::newRow("read-2 nothing") << QByteArray() << QString();
    QTest::newRow("read-3 UTF-8") << QByteArray("puts \xe2\x82\xac\xf0\x9f\x98\x80")
                                  << u"puts \u20ac\U0001F600"_s;
    QTest::newRow("read-4 a byte order mark") << QByteArray("\xef\xbb\xbfputs a") << u"puts a"_s;
    QTest::newRow("read-5 every kind of line end") << QByteArray("a\r\nb\rc\n") << u"a\r\nb\rc\n"_s;
    QTest::newRow("read-6 a zero") << QByteArray("a\0b", 3) << u"a"_s + QChar() + u"b"_s;
    QTest::newRow("read-7 only blanks") << QByteArray(" \n ") << u" \n "_s;
}

void tst_AbstractScriptedAction::readsItsFile()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, text);
    put(u"read.tcl"_s, bytes);
    FakeAction action;
    action.setFilePath(path(u"read.tcl"_s));
    QSignalSpy log(Logger::instance(), &Logger::messageLogged);

    QCOMPARE(action.fileContents(), text);

    QCOMPARE(log.size(), 0);
}

void tst_AbstractScriptedAction::readsABigFile()
{
    const QByteArray line = "puts \"\xe2\x82\xac a line of a big script\"\n";
    const QByteArray bytes = line.repeated(50'000'000 / line.size());
    put(u"big.tcl"_s, bytes);
    FakeAction action;
    action.setFilePath(path(u"big.tcl"_s));

    const QString text = action.fileContents();

    QCOMPARE(text.size(), QString::fromUtf8(line).size() * (50'000'000 / line.size()));
    QVERIFY(text == QString::fromUtf8(bytes));
}

void tst_AbstractScriptedAction::warnsOfBytesThatAreNotUtf8()
{
    put(u"latin.tcl"_s, "caf\xe9\n");
    FakeAction action;
    action.setFilePath(path(u"latin.tcl"_s));
    QSignalSpy log(Logger::instance(), &Logger::messageLogged);

    QCOMPARE(action.fileContents(), u"caf\ufffd\n"_s);

    QCOMPARE(log.size(), 1);
    QCOMPARE(log[0][0].toString(), QString());
    QCOMPARE(log[0][1].value<Logger::MessageType>(), Logger::Warning);
    QCOMPARE(
        log[0][2].toString(),
        u"The script file \"%1\" is not UTF-8; what cannot be read is replaced by U+FFFD"_s.arg(
            path(u"latin.tcl"_s)));
}

void tst_AbstractScriptedAction::warnsOfAFileThatCannotBeRead()
{
    // The superuser may read everything but the memory of a process at an address that it does
    // not have.
    FakeAction action;
    const QString file = u"/proc/self/mem"_s;
    action.setFilePath(file);
    QVERIFY(action.filePathExists());
    QSignalSpy log(Logger::instance(), &Logger::messageLogged);

    QCOMPARE(action.fileContents(), QString());

    QCOMPARE(log.size(), 1);
    QCOMPARE(log[0][1].value<Logger::MessageType>(), Logger::Warning);
    QCOMPARE(log[0][2].toString(),
             u"Cannot read the script file \"%1\": Input/output error"_s.arg(file));
}

GUILESS_TEST_CLASS(tst_AbstractScriptedAction)
#include "tst_AbstractScriptedAction.moc"
