#include "app/terminal/TerminalHistory.h"
#include "tests/TestClass.h"

#include <QFile>
#include <QTemporaryDir>

#include <sys/stat.h>

using namespace Qt::Literals::StringLiterals;

namespace {

QStringList linesOf(const TerminalHistory &history)
{
    QStringList lines;
    HistEventW event;
    for (int found = history_w(history.handle(), &event, H_FIRST); found >= 0;
         found = history_w(history.handle(), &event, H_NEXT))
        lines.prepend(QString::fromWCharArray(event.str));
    return lines;
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

} // namespace

// The file of the lines that were typed in the terminal; tst_WriterFaults lets it meet faults.
class tst_TerminalHistory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void keepsLinesForTheNextRun();
    void isForItsOwnerOnly();
    void leavesWhatIsNoHistoryAlone_data();
    void leavesWhatIsNoHistoryAlone();
    void waitsForNoPipe();

private:
    std::unique_ptr<QTemporaryDir> folder;
    QString path;
};

void tst_TerminalHistory::init()
{
    folder = std::make_unique<QTemporaryDir>();
    path = folder->filePath(u"terminal-history"_s);
}

void tst_TerminalHistory::keepsLinesForTheNextRun()
{
    {
        TerminalHistory history(path);
        QVERIFY(history.remember(u"set a \u20ac"_s).isOk());
        QVERIFY(history.remember(u"set a \u20ac"_s).isOk());
        QVERIFY(history.remember(u"foreach x {\n  1}"_s).isOk());
    }
    const TerminalHistory history(path);
    QVERIFY(history.loaded().isOk());
    QCOMPARE(linesOf(history), QStringList({u"set a \u20ac"_s, u"foreach x {\n  1}"_s}));
}

void tst_TerminalHistory::isForItsOwnerOnly()
{
    TerminalHistory history(path);
    QVERIFY(history.remember(u"set a 1"_s).isOk());
    struct stat status = {};
    QCOMPARE(::stat(QFile::encodeName(path).constData(), &status), 0);
    QCOMPARE(status.st_mode & 0777, mode_t(0600));
}

void tst_TerminalHistory::leavesWhatIsNoHistoryAlone_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("history-1 a text") << QByteArray("dear diary\n");
    QTest::newRow("history-2 bytes") << QByteArray("\0\xff\xfe", 3);
    QTest::newRow("history-3 a line without an end") << QByteArray("dear diary");
}

void tst_TerminalHistory::leavesWhatIsNoHistoryAlone()
{
    QFETCH(const QByteArray, content);
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
    file.close();
    TerminalHistory history(path);
    const QString text = u"Cannot read \"%1\": it holds something else"_s.arg(path);
    QCOMPARE(history.loaded().text(), text);
    QCOMPARE(history.remember(u"set a 1"_s).text(), text);
    QCOMPARE(linesOf(history), QStringList {u"set a 1"_s});
    QCOMPARE(contentOf(path), content);
}

void tst_TerminalHistory::waitsForNoPipe()
{
    QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    TerminalHistory history(path);
    const QString text = u"Cannot read \"%1\": it is not a file"_s.arg(path);
    QCOMPARE(history.loaded().text(), text);
    QCOMPARE(history.remember(u"set a 1"_s).text(), text);
}

GUILESS_TEST_CLASS(tst_TerminalHistory)
#include "tst_TerminalHistory.moc"
