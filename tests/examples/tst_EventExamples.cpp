// The examples that live from events: a server that a browser asks, and a tool that is read while
// it runs.

#include "tests/examples/RunningProgram.h"
#include "tests/patience.h"

#include <QRegularExpression>
#include <QTcpSocket>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

class tst_EventExamples : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void serverWithoutAWindow();
    void serverInTheConsole();
    void serverSurvivesItsClients_data();
    void serverSurvivesItsClients();
    void toolIsReadWhileItRuns();
    void toolEnds_data();
    void toolEnds();
    void toolInTheConsole();

private:
    static QString example(const QString &name)
    {
        return QStringLiteral(SOURCE_DIR "/examples/") + name;
    }
    // What the server sends for these bytes until it closes.
    static QByteArray ask(quint16 port, const QByteArray &request);
    static QByteArray get(quint16 port, const QByteArray &path)
    {
        return ask(port, "GET " + path + " HTTP/1.1\r\nHost: localhost\r\n\r\n");
    }
    static quint16 portOf(const QByteArray &greeting);
    static int ticks(quint16 port);
};

namespace {

constexpr int patience = patient(30'000);

QByteArray page(const QByteArray &status, const QByteArray &text)
{
    return "HTTP/1.0 " + status + "\r\nContent-Type: text/plain; charset=utf-8\r\n\r\n" + text
        + "\r\n";
}

} // namespace

QByteArray tst_EventExamples::ask(quint16 port, const QByteArray &request)
{
    QTcpSocket socket;
    socket.connectToHost(u"127.0.0.1"_s, port);
    if (!socket.waitForConnected(patience))
        return "no connection";
    socket.write(request);
    while (socket.state() == QAbstractSocket::ConnectedState && socket.waitForReadyRead(patience)) {
    }
    return socket.readAll();
}

quint16 tst_EventExamples::portOf(const QByteArray &greeting)
{
    static const QRegularExpression pattern(u"^Serving http://127\\.0\\.0\\.1:(\\d+)/$"_s);
    return pattern.match(QString::fromUtf8(greeting)).captured(1).toUShort();
}

int tst_EventExamples::ticks(quint16 port)
{
    static const QRegularExpression pattern(u"\r\n\r\n(\\d+) ticks, open designs: \r\n$"_s);
    return pattern.match(QString::fromUtf8(get(port, "/"))).captured(1).toInt();
}

void tst_EventExamples::serverWithoutAWindow()
{
    RunningProgram program(false);
    program.start({u"--batch"_s, example(u"03-server.tcl"_s), u"0"_s});
    const quint16 port = portOf(program.nextLine());
    QVERIFY(port);
    QTRY_VERIFY(ticks(port) >= 2);
    QCOMPARE(get(port, "/a%20b"), page("404 Not Found", "There is nothing at \"/a%20b\"."));
    QCOMPARE(get(port, "/stop"), page("200 OK", "Good bye."));
    QCOMPARE(program.nextLine(), "The server has stopped.");
    QCOMPARE(program.status(), 0);
    QCOMPARE(program.errors(), "");
}

// In the window its script ends at once, and the event loop serves.
void tst_EventExamples::serverInTheConsole()
{
    RunningProgram program(true);
    program.write(
        u"session/Scripts/startup.tcl"_s,
        "set argv 0\n"
        "source {"
            + example(u"03-server.tcl"_s).toUtf8()
            + "}\n"
              "set f [open port.part w]\n"
              "puts $f [lindex [fconfigure $::server::socket -sockname] 2]\n"
              "close $f\n"
              "file rename port.part port\n"
              "trace add variable ::server::stopped write {apply {args {after 0 {quit 5}}}}\n");
    program.start({});
    QTRY_VERIFY_WITH_TIMEOUT(!program.read(u"session/Scripts/port"_s).isEmpty(), patience);
    const quint16 port = program.read(u"session/Scripts/port"_s).trimmed().toUShort();
    QTRY_VERIFY(ticks(port) >= 2);
    QCOMPARE(get(port, "/stop"), page("200 OK", "Good bye."));
    QCOMPARE(program.status(), 5);
    QCOMPARE(program.errors(), "");
}

void tst_EventExamples::serverSurvivesItsClients_data()
{
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<QByteArray>("reply");
    QTest::newRow("client-1 bare line feeds")
        << QByteArray("GET /x HTTP/1.0\n\n")
        << page("404 Not Found", "There is nothing at \"/x\".");
    QTest::newRow("client-2 an empty request")
        << QByteArray("\r\n") << page("404 Not Found", "There is nothing at \"\".");
    QTest::newRow("client-3 one word")
        << QByteArray("GET\r\n\r\n") << page("404 Not Found", "There is nothing at \"\".");
    QTest::newRow("client-4 what looks like Tcl")
        << QByteArray("GET /[exit]$x{ HTTP/1.0\r\n\r\n")
        << page("404 Not Found", "There is nothing at \"/[exit]$x{\".");
    QTest::newRow("client-5 a line without an end is cut off")
        << QByteArray(100'000, 'x') << QByteArray();
}

void tst_EventExamples::serverSurvivesItsClients()
{
    QFETCH(const QByteArray, request);
    RunningProgram program(false);
    program.start({u"--batch"_s, example(u"03-server.tcl"_s), u"0"_s});
    const quint16 port = portOf(program.nextLine());
    QVERIFY(port);
    {
        QTcpSocket gone;
        gone.connectToHost(u"127.0.0.1"_s, port);
        QVERIFY(gone.waitForConnected(patience));
        gone.write("GET / HTTP/1.0\r\n");
        gone.waitForBytesWritten(patience);
    }
    QTEST(ask(port, request), "reply");
    QCOMPARE(get(port, "/stop"), page("200 OK", "Good bye."));
    QCOMPARE(program.status(), 0);
    QCOMPARE(program.errors(), "");
}

// The tool goes on only after its first line has been seen.
void tst_EventExamples::toolIsReadWhileItRuns()
{
    RunningProgram program(false);
    program.start({u"--batch"_s, example(u"04-tool.tcl"_s), u"sh"_s, u"-c"_s,
                   u"echo first; until [ -e go ]; do sleep 0.02; done; echo second"_s});
    const auto text = [](const QByteArray &line) { return line.mid(line.indexOf(" s  ") + 4); };
    QCOMPARE(text(program.nextLine()), "first");
    program.write(u"go"_s, "");
    QCOMPARE(text(program.nextLine()), "second");
    QCOMPARE(program.nextLine(), "It ended: 0");
    QCOMPARE(program.status(), 0);
}

void tst_EventExamples::toolEnds_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<QByteArray>("output");
    QTest::addColumn<QByteArray>("errors");
    QTest::addColumn<int>("status");
    const QString sh = u"sh"_s;
    QTest::newRow("tool-1 its status is the program's")
        << QStringList {sh, u"-c"_s, u"echo a; echo b >&2; exit 3"_s}
        << QByteArray("TIME  a\nTIME  b\nIt ended: 3\n") << QByteArray() << 3;
    QTest::newRow("tool-2 killed")
        << QStringList {sh, u"-c"_s, u"kill -9 $$"_s}
        << QByteArray("It ended: killed (kill signal)\n") << QByteArray() << 1;
    QTest::newRow("tool-3 words are passed on as they are")
        << QStringList {u"printf"_s, u"%s\\n"_s, u"a  b"_s, u"{$x [y]"_s}
        << QByteArray("TIME  a  b\nTIME  {$x [y]\nIt ended: 0\n") << QByteArray() << 0;
    QTest::newRow("tool-4 there is none")
        << QStringList {u"no-such-tool"_s} << QByteArray()
        << QByteArray("couldn't execute \"no-such-tool\": no such file or directory\n") << 1;
    QTest::newRow("tool-5 without words it shows how it works")
        << QStringList {}
        << QByteArray("TIME  step 1 of 3\nTIME  step 2 of 3\nTIME  step 3 of 3\nIt ended: 3\n")
        << QByteArray() << 3;
}

void tst_EventExamples::toolEnds()
{
    QFETCH(const QStringList, words);
    RunningProgram program(false);
    program.start(QStringList {u"--batch"_s, example(u"04-tool.tcl"_s)} + words);
    static const QRegularExpression time(u"^ *\\d+\\.\\d s"_s);
    QString output;
    for (QByteArray line = program.nextLine(); !line.isEmpty(); line = program.nextLine())
        output += QString::fromUtf8(line).replace(time, u"TIME"_s) + u'\n';
    QTEST(output.toUtf8(), "output");
    QTEST(program.status(), "status");
    QTEST(program.errors(), "errors");
}

// In the window the script only defines; the tool's lines come while the event loop runs.
void tst_EventExamples::toolInTheConsole()
{
    RunningProgram program(true);
    program.write(u"session/Scripts/startup.tcl"_s,
                  "source {" + example(u"04-tool.tcl"_s).toUtf8()
                      + "}\n"
                        "set ticks 0\n"
                        "proc tick {} {incr ::ticks; after 10 tick}\n"
                        "tick\n"
                        "tool::start {sh -c {echo one; sleep 0.3; exit 4}} {apply {status {\n"
                        "    quit [expr {$status == 4 && $::ticks > 3 ? 40 : 1}]\n"
                        "}}}\n");
    program.start({});
    QCOMPARE(program.status(), 40);
    QCOMPARE(program.errors(), "");
}

QTEST_GUILESS_MAIN(tst_EventExamples)
#include "tst_EventExamples.moc"
