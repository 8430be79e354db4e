// The examples do what they say, and leave themselves as they are.

#include "tests/process/Program.h"
#include "tests/TestClass.h"

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QRegularExpression>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

class tst_Examples : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { before = examples(); }
    void init() { program = std::make_unique<Program>(); }
    void tour();
    void check();
    void components_data();
    void components();
    void nothingHasChanged();

private:
    static QString folder() { return QStringLiteral(SOURCE_DIR "/examples"); }
    static QMap<QString, QByteArray> examples();

    std::unique_ptr<Program> program;
    QMap<QString, QByteArray> before;
};

// Every file of the examples, and its bytes' hash.
QMap<QString, QByteArray> tst_Examples::examples()
{
    QMap<QString, QByteArray> files;
    QDirIterator walk(folder(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        const QString path = walk.next();
        files.insert(path,
                     QCryptographicHash::hash(Program::read(path), QCryptographicHash::Sha256));
    }
    return files;
}

void tst_Examples::tour()
{
    QVERIFY(before.size() > 5);
    Ended ended = program->run({u"--batch"_s, folder() + u"/01-tour.tcl"_s});
    QString text = QString::fromUtf8(ended.out);
    text.replace(program->session, u"SESSION"_s);
    static const QRegularExpression number(u"(blinker_|tour-)\\d+"_s);
    text.replace(number, u"\\1PID"_s);
    ended.out = text.toUtf8();
    QCOMPARE(
        ended,
        (Ended {0, Program::read(QStringLiteral(SOURCE_DIR "/tests/process/01-tour.txt")), ""}));
    QVERIFY(QDir(program->session + u"/Designs"_s).isEmpty());
    // It can be taken again.
    QCOMPARE(program->run({u"--batch"_s, folder() + u"/01-tour.tcl"_s}).status, 0);
}

void tst_Examples::check()
{
    const QString script = folder() + u"/02-check.tcl"_s;
    program->currentFolder = folder();
    program->environment.insert(u"PWD"_s, u"/elsewhere"_s);
    QCOMPARE(
        program->run({u"--batch"_s, script, u"uart/component.xml"_s, u"fifo/component.xml"_s}),
        (Ended {0, "good  uart/component.xml\ngood  fifo/component.xml\n2 checked, 0 bad\n", ""}));

    const QByteArray lonely = Program::read(folder() + u"/fifo/component.xml"_s);
    const QByteArray path = program->write(u"lonely/component.xml"_s, lonely).toUtf8();
    const QByteArray place = program->path(u"lonely/"_s).toUtf8();
    const QByteArray broken = program->write(u"broken.xml"_s, "<x>").toUtf8();
    const Ended ended = program->run({u"--batch"_s, script, QString::fromUtf8(path),
                                      u"uart/component.xml"_s, QString::fromUtf8(broken)});
    QCOMPARE(ended.status, 1);
    QCOMPARE(ended.out,
             "bad   " + path + "\n      " + place + "rtl/fifo.vhd is missing\n      " + place
                 + "sim/fifo_tb.vhd is missing\ngood  uart/component.xml\nbad   " + broken
                 + "\n      Failed to parse design from \"" + broken + "\"\n3 checked, 2 bad\n");
    QVERIFY(ended.err.startsWith("Error: " + broken + ":1: "));
}

void tst_Examples::components_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("id");
    QTest::addColumn<QStringList>("files");
    QTest::newRow("component-1 uart")
        << u"uart"_s << QByteArray("morvalen.example.serial.uart.1.2")
        << QStringList {u"rtl/uart_tx.v"_s, u"rtl/uart_rx.v"_s,        u"rtl/uart.v"_s,
                        u"sim/uart_tb.v"_s, u"constraints/uart.sdc"_s, u"doc/uart.md"_s};
    QTest::newRow("component-2 fifo")
        << u"fifo"_s << QByteArray("morvalen.example.memory.fifo.2.0.1")
        << QStringList {u"rtl/fifo.vhd"_s, u"sim/fifo_tb.vhd"_s};
}

void tst_Examples::components()
{
    QFETCH(const QString, name);
    QFETCH(const QByteArray, id);
    QFETCH(const QStringList, files);
    QByteArray list;
    for (const QString &file : files) {
        const QString path = folder() + u'/' + name + u'/' + file;
        QVERIFY2(QFile::exists(path), qPrintable(path));
        list += " \"" + path.toUtf8() + '"';
    }
    QCOMPARE(program->runScript("designs add [lindex $argv 0]\nputs [designs list]\n"
                                "puts [files list]\ndesigns close_all\n",
                                {folder() + u'/' + name + u"/component.xml"_s}),
             (Ended {0, '"' + id + "\"\n" + list.trimmed() + '\n', ""}));
}

void tst_Examples::nothingHasChanged() { QCOMPARE(examples(), before); }

GUILESS_TEST_CLASS(tst_Examples)
#include "tst_Examples.moc"
