#include "BuildFixture.h"

#include <QRandomGenerator>
#include <QTest>

using namespace Qt::Literals::StringLiterals;
using namespace MorvalenCore;
using Result = BuildRun::Result;

namespace {

bool isAlive(const QByteArray &id)
{
    QFile stat(u"/proc/%1/stat"_s.arg(QString::fromLatin1(id)));
    return stat.open(QIODevice::ReadOnly) && !stat.readAll().contains(") Z ");
}

// A command that takes its time in one of the ways in which steps leave helpers in the background,
// whose ids it writes down, and then makes its output.
QString commandOf(int step, QRandomGenerator &random)
{
    const auto seconds = [&] { return QString::number(random.bounded(200) / 1000.0); };
    static const QStringList helpers = {
        u""_s,
        // Holds the output of the step.
        u"sleep 1000 & echo $! >> helpers; "_s,
        u"sh -c 'echo $$ >> helpers; exec sleep 1000' & "_s,
        // Lets go of it.
        u"sleep 1000 > /dev/null 2>&1 & echo $! >> helpers; "_s,
        // Loses its parent while the step runs, and holds the output until then or for longer.
        u"(sh -c 'echo $$ >> helpers; exec sleep %1' &); "_s,
        u"(sh -c 'echo $$ >> helpers; exec sleep 1000' &); "_s,
        // Leaves the session with it.
        u"setsid sh -c 'echo $$ >> helpers; exec sleep 1000' & "_s,
        // Starts others all the time.
        u"(i=0; while [ $i -lt 20 ]; do sleep 0.01; i=$((i+1)); done) & "_s,
    };
    const bool hasHelper = random.bounded(4) == 0;
    QString command = hasHelper ? helpers[random.bounded(int(helpers.size()))] : helpers.first();
    if (command.contains(u"%1"_s))
        command = command.arg(seconds());
    return command + u"sleep %1 | cat; echo end of %2; cp i $(OUTPUTS)"_s.arg(seconds()).arg(step);
}

} // namespace

// Many builds, many steps at once, helpers of all kinds: no step is ended, no helper stays.
class tst_BuildStorm : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void endsHelpersAndNoStep_data();
    void endsHelpersAndNoStep();
};

// As many builds as the environment asks for.
void tst_BuildStorm::endsHelpersAndNoStep_data()
{
    QTest::addColumn<int>("seed");
    const int builds = std::max(qEnvironmentVariableIntValue("MORVALEN_STORM"), 5);
    for (int seed = 1; seed <= builds; ++seed)
        QTest::addRow("storm-%d", seed) << seed;
}

void tst_BuildStorm::endsHelpersAndNoStep()
{
    QFETCH(const int, seed);
    QRandomGenerator random {quint32(seed)};
    BuildFixture build;
    build.options.jobs = 16;
    build.write(u"i"_s, "x");
    for (int step = 0; step < 60; ++step)
        build.add(u"step %1"_s.arg(step), commandOf(step, random), {u"i"_s},
                  {u"out/%1"_s.arg(step)});
    QCOMPARE(build.run(), Result::Completed);
    QCOMPARE(build.done.size(), 60);
    QCOMPARE(build.failed, QStringList());
    for (int step = 0; step < 60; ++step)
        QVERIFY(build.messages.contains(u"Info: end of %1"_s.arg(step)));
    for (const QByteArray &id : build.read(u"helpers"_s).split('\n')) {
        if (id.toInt() > 0)
            QVERIFY2(!isAlive(id), id.constData());
    }
}

QTEST_GUILESS_MAIN(tst_BuildStorm)
#include "tst_BuildStorm.moc"
