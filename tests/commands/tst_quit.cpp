#include "tests/commands/CommandTest.h"
#include "tests/patience.h"

#include <QProcess>
#include <QTemporaryDir>

using namespace Qt::Literals::StringLiterals;

namespace {

// The program is its own child: with this word it runs the script behind it in the fake host,
// writes the journal's lines to standard output, and must end inside the script.
const QString childWord = u"--child"_s;
constexpr int notEnded = 99;

} // namespace

class tst_quit : public CommandTest
{
    Q_OBJECT

public:
    int runChild(const QByteArray &script)
    {
        renewHost();
        const QString last = u"manager.prepareForShutdown(1)"_s;
        host().journal.react(last, [this] {
            std::puts(host().journal.take().join(u'\n').toUtf8().constData());
            std::fflush(stdout);
        });
        QObject::connect(qApp, &QCoreApplication::aboutToQuit, [] { std::puts("about to quit"); });
        eval(script);
        return notEnded;
    }

private:
    struct Ended
    {
        int code;
        QString output;
    };

    static Ended runInChild(const QString &script)
    {
        QProcess child;
        child.start(QCoreApplication::applicationFilePath(), {childWord, script});
        if (!child.waitForFinished(patient(30'000)) || child.exitStatus() != QProcess::NormalExit)
            return {-1, child.errorString()};
        return {child.exitCode(), QString::fromUtf8(child.readAllStandardOutput())};
    }

private Q_SLOTS:
    void exitCode_data()
    {
        QTest::addColumn<QString>("script");
        QTest::addColumn<int>("code");
        QTest::newRow("quit-code-1 without a word") << u"quit"_s << 0;
        QTest::newRow("quit-code-2 a number") << u"quit 3"_s << 3;
        QTest::newRow("quit-code-3 zero") << u"quit 0"_s << 0;
        QTest::newRow("quit-code-4 the word of the error text is no number") << u"quit q"_s << 0;
        QTest::newRow("quit-code-5 not decimal") << u"quit 0x10"_s << 0;
        QTest::newRow("quit-code-6 empty") << u"quit {}"_s << 0;
        QTest::newRow("quit-code-7 a leading zero is decimal") << u"quit 010"_s << 10;
        QTest::newRow("quit-code-8 too large for a number") << u"quit 99999999999"_s << 0;
        QTest::newRow("quit-code-9 inside a procedure that catches")
            << u"proc p {} { catch {quit 5}; quit 6 }; p"_s << 5;
    }
    void exitCode()
    {
        QFETCH(const QString, script);
        const Ended ended = runInChild(script);
        QCOMPARE(ended.output, u"manager.prepareForShutdown(1)\n"_s);
        QTEST(ended.code, "code");
    }

    void openFilesAreFlushed()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"written"_s);
        const Ended ended = runInChild(u"set f [open {"_s + path + u"} w]; puts $f kept; quit 4"_s);
        QCOMPARE(ended.code, 4);
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), QByteArray("kept\n"));
    }

    void tooManyWordsEndNothing_data()
    {
        const QByteArray text = "Supported quit parameters are just \"q\"";
        addRows({
            {"quit-count-1 two words", "quit 1 2", TCL_ERROR, text, ""},
            {"quit-count-2 three words", "quit q q q", TCL_ERROR, text, ""},
        });
    }
    void tooManyWordsEndNothing() { runRow(); }
};

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    tst_quit test;
    if (argc > 2 && QString::fromUtf8(argv[1]) == childWord)
        return test.runChild(argv[2]);
    return QTest::qExec(&test, argc, argv);
}
#include "tst_quit.moc"
