// The program that watches over a build, with shells in the place of Ninja.

#include "tests/patience.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace {

bool isAlive(const QByteArray &id)
{
    QFile stat(u"/proc/%1/stat"_s.arg(QString::fromLatin1(id.trimmed())));
    return stat.open(QIODevice::ReadOnly) && !stat.readAll().contains(") Z ");
}

// A run of the supervisor in a folder of its own, with a socket to it.
class Supervised
{
public:
    explicit Supervised(const QString &shellCommand, int graceTime = 300)
        : Supervised(QStringList {u"/bin/sh"_s, u"-c"_s, shellCommand}, graceTime)
    {
    }

    explicit Supervised(const QStringList &program, int graceTime = 300)
    {
        int ends[2] {};
        if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0)
            qFatal("no socket");
        control = ends[0];
        process.setChildProcessModifier([end = ends[1]] { fcntl(end, F_SETFD, 0); });
        process.setWorkingDirectory(folder.path());
        process.start(QStringLiteral(SUPERVISOR),
                      QStringList {QString::number(ends[1]), QString::number(graceTime), u"sh"_s}
                          + program);
        ::close(ends[1]);
    }

    ~Supervised()
    {
        hangUp();
        process.waitForFinished();
    }

    void ask(char request) const { QCOMPARE(::send(control, &request, 1, MSG_NOSIGNAL), 1); }

    void hangUp()
    {
        if (control >= 0)
            ::close(std::exchange(control, -1));
    }

    // What was told when it has ended.
    QByteArray told()
    {
        QByteArray text;
        char bytes[256];
        for (ssize_t size = 0; (size = ::recv(control, bytes, sizeof bytes, 0)) > 0;)
            text.append(bytes, size);
        process.waitForFinished();
        return text;
    }

    QByteArray read(const QString &name) const
    {
        QFile file(folder.filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed() : QByteArray();
    }

    QTemporaryDir folder;
    QProcess process;
    int control = -1;
};

QByteArray status(int exitCode) { return QByteArray::number(exitCode << 8); }

// Leaves a process that ignores termination, in a session of its own when asked.
QString stubborn(const QString &file, const QString &before = {})
{
    return u"%1 sh -c \"trap '' TERM; echo \\$\\$ > %2; while :; do sleep 1; done\" > /dev/null "
           u"2>&1 & "
           "while [ ! -s %2 ]; do sleep 0.01; done; "_s.arg(before, file);
}

} // namespace

class tst_Supervisor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void saysHowItIsUsed_data();
    void saysHowItIsUsed();
    void tellsHowTheProgramEnded_data();
    void tellsHowTheProgramEnded();
    void endsWhatIsLeftBehind();
    void tellsNamesInOneLine();
    void leavesDaemonsAlone();
    void endsEverythingWhenAsked_data();
    void endsEverythingWhenAsked();
    void endsTheProgramWhenItIsKilled();
    void reapsWhatFallsToIt();
};

void tst_Supervisor::saysHowItIsUsed_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::newRow("usage-1 nothing") << QStringList();
    QTest::newRow("usage-2 no program") << QStringList {u"3"_s, u"300"_s, u"ninja"_s};
    QTest::newRow("usage-3 no socket") << QStringList {u"x"_s, u"300"_s, u"ninja"_s, u"true"_s};
    QTest::newRow("usage-4 no time") << QStringList {u"3"_s, u"-1"_s, u"ninja"_s, u"true"_s};
}

void tst_Supervisor::saysHowItIsUsed()
{
    QFETCH(const QStringList, words);
    QProcess process;
    process.start(QStringLiteral(SUPERVISOR), words);
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 2);
    QCOMPARE(process.readAllStandardError(),
             QByteArray("usage: supervise-build SOCKET GRACE-MILLISECONDS NINJA PROGRAM "
                        "[ARGUMENT...]\n"));
}

void tst_Supervisor::tellsHowTheProgramEnded_data()
{
    QTest::addColumn<QStringList>("program");
    QTest::addColumn<QByteArray>("told");
    const QStringList shell {u"/bin/sh"_s, u"-c"_s};
    QTest::newRow("ended-1 well") << shell + QStringList(u"exit 0"_s) << "ended\t0\n"_ba;
    QTest::newRow("ended-2 with a status")
        << shell + QStringList(u"exit 3"_s) << "ended\t" + status(3) + '\n';
    QTest::newRow("ended-3 by a signal")
        << shell + QStringList(u"kill -KILL $$"_s) << "ended\t9\n"_ba;
    QTest::newRow("ended-4 found by its name") << QStringList(u"true"_s) << "ended\t0\n"_ba;
    QTest::newRow("ended-5 not there")
        << QStringList(u"/nowhere/ninja"_s) << "error\tNo such file or directory\n"_ba;
    QTest::newRow("ended-6 not a program")
        << QStringList(u"/etc/passwd"_s) << "error\tPermission denied\n"_ba;
}

void tst_Supervisor::tellsHowTheProgramEnded()
{
    QFETCH(const QStringList, program);
    QFETCH(const QByteArray, told);
    Supervised run(program);
    QCOMPARE(run.told(), told);
    QCOMPARE(run.process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(run.process.exitCode(), 0);
}

void tst_Supervisor::endsWhatIsLeftBehind()
{
    Supervised run(stubborn(u"pid"_s) + u"exit 3"_s);
    const QByteArray told = run.told();
    const QByteArray id = run.read(u"pid"_s);
    QVERIFY2(told.startsWith("ended\t" + status(3) + "\nleft\t" + id + "\tsh"), told.constData());
    QVERIFY(!isAlive(id));
}

void tst_Supervisor::tellsNamesInOneLine()
{
    Supervised run(
        u"n=$(printf 'a\\tb\\nc'); printf '#!/bin/sh\\nwhile :; do sleep 0.01; done\\n' > "
        "\"$n\"; chmod +x \"$n\"; \"./$n\" > /dev/null 2>&1 & echo $! > pid; "
        "while ! grep -q b \"/proc/$!/comm\"; do sleep 0.01; done"_s);
    const QByteArray told = run.told();
    QVERIFY2(told.startsWith("ended\t0\nleft\t" + run.read(u"pid"_s) + "\ta?b?c"),
             told.constData());
    QCOMPARE(told.count('\n'), 2);
}

void tst_Supervisor::leavesDaemonsAlone()
{
    Supervised run(stubborn(u"pid"_s, u"setsid"_s));
    QCOMPARE(run.told(), QByteArray("ended\t0\n"));
    const QByteArray id = run.read(u"pid"_s);
    QVERIFY(isAlive(id));
    QCOMPARE(kill(-id.toInt(), SIGKILL), 0);
}

void tst_Supervisor::endsEverythingWhenAsked_data()
{
    QTest::addColumn<QString>("how");
    QTest::newRow("all-1 cancelled") << u"c"_s;
    QTest::newRow("all-2 at once") << u"k"_s;
    QTest::newRow("all-3 whoever wanted it is gone") << u"gone"_s;
    QTest::newRow("all-4 asked to end by a signal") << u"signal"_s;
}

void tst_Supervisor::endsEverythingWhenAsked()
{
    QFETCH(const QString, how);
    Supervised run(stubborn(u"1"_s) + stubborn(u"2"_s, u"setsid"_s) + u"("_s
                   + stubborn(u"3"_s, u"setsid"_s) + u"); echo $$ > pid; sleep 1000 & wait"_s);
    QTRY_VERIFY_WITH_TIMEOUT(!run.read(u"pid"_s).isEmpty(), patient(30'000));
    const QList<QByteArray> ids {run.read(u"1"_s), run.read(u"2"_s), run.read(u"3"_s),
                                 run.read(u"pid"_s)};
    for (const QByteArray &id : ids)
        QVERIFY2(isAlive(id), id.constData());
    if (how == u"gone"_s)
        run.hangUp();
    else if (how == u"signal"_s)
        QCOMPARE(kill(pid_t(run.process.processId()), SIGTERM), 0);
    else
        run.ask(how[0].toLatin1());
    QVERIFY(run.process.waitForFinished());
    for (const QByteArray &id : ids)
        QVERIFY2(!isAlive(id), id.constData());
}

void tst_Supervisor::endsTheProgramWhenItIsKilled()
{
    Supervised run(u"echo $$ > pid; while :; do sleep 0.01; done"_s);
    QTRY_VERIFY_WITH_TIMEOUT(!run.read(u"pid"_s).isEmpty(), patient(30'000));
    run.process.kill();
    QVERIFY(run.process.waitForFinished());
    QTRY_VERIFY(!isAlive(run.read(u"pid"_s)));
}

// What a long build leaves behind, and what has ended since, does not gather as zombies.
void tst_Supervisor::reapsWhatFallsToIt()
{
    Supervised run(u"for i in 1 2 3 4 5; do (sh -c 'echo $$ >> ids' &); done; "
                   "while [ ! -e go ]; do sleep 0.01; done"_s);
    QTRY_COMPARE_WITH_TIMEOUT(run.read(u"ids"_s).split('\n').size(), 5, patient(30'000));
    const QList<QByteArray> ids = run.read(u"ids"_s).split('\n');
    for (const QByteArray &id : ids)
        QTRY_VERIFY(!QFile::exists(u"/proc/"_s + QString::fromLatin1(id)));
    QFile go(run.folder.filePath(u"go"_s));
    QVERIFY(go.open(QIODevice::WriteOnly));
    QCOMPARE(run.told(), QByteArray("ended\t0\n"));
}

QTEST_GUILESS_MAIN(tst_Supervisor)
#include "tst_Supervisor.moc"
