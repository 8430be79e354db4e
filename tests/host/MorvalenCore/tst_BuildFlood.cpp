#include "BuildFixture.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;
using namespace MorvalenCore;
using Result = BuildRun::Result;

namespace {

// Memory that this process has ever held, in kB.
qint64 peakMemory()
{
    QFile status(u"/proc/self/status"_s);
    if (!status.open(QIODevice::ReadOnly))
        return -1;
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith("VmHWM:"))
            return line.simplified().split(' ').value(1).toLongLong();
    }
    return -1;
}

} // namespace

// Output without end. A program of its own, since it measures the memory of its process.
class tst_BuildFlood : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void takesAHundredMegabytesOfOutput_data();
    void takesAHundredMegabytesOfOutput();
};

void tst_BuildFlood::takesAHundredMegabytesOfOutput_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<bool>("hasOutput");
    QTest::newRow("flood-1 lines, held by Ninja")
        << u"yes 'a line of output' | head -c 100000000"_s << true;
    QTest::newRow("flood-2 lines, as they come")
        << u"yes 'a line of output' | head -c 100000000"_s << false;
    QTest::newRow("flood-3 one line") << u"head -c 100000000 /dev/zero | tr '\\0' x"_s << false;
}

void tst_BuildFlood::takesAHundredMegabytesOfOutput()
{
    QFETCH(const QString, command);
    QFETCH(const bool, hasOutput);
    BuildFixture build;
    build.write(u"i"_s, "x");
    build.add(u"flood"_s, command + u"; echo; echo the end; touch o"_s, {u"i"_s},
              hasOutput ? QStringList(u"o"_s) : QStringList());
    const qint64 before = peakMemory();
    QVERIFY(before > 0);
    QCOMPARE(build.run(), Result::Completed);
    const qint64 growth = peakMemory() - before;
    QVERIFY2(growth < 50'000, qPrintable(u"%1 kB"_s.arg(growth)));

    QVERIFY(QFileInfo(build.path(u"out/build.log"_s)).size() > 100'000'000);
    QCOMPARE(build.messages.last(), u"Info: the end"_s);
    qsizetype size = 0;
    for (const QString &message : std::as_const(build.messages))
        size += message.size() - 6;
    QVERIFY(size < BuildOutput::mostLogged + BuildOutput::mostKept + 1000);
    const QStringList notes = build.messages.filter(u"left out"_s);
    QCOMPARE(notes.size(), 1);
    QVERIFY(notes.first().endsWith(u" lines are left out here; all output is in \"%1\""_s.arg(
        build.path(u"out/build.log"_s))));
}

QTEST_GUILESS_MAIN(tst_BuildFlood)
#include "tst_BuildFlood.moc"
