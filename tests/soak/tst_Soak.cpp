// Designs are made, edited, built, saved and closed in the window, again and again: what the
// program holds stays the same.
//
// MORVALEN_SOAK_SECONDS=N goes on for that time instead of a few rounds.

#include "app/journal/CommandJournal.h"
#include "app/MainWindow.h"
#include "console/QtclConsole.h"
#include "tests/reentrancy/buildingcomponent.h"
#include "tests/soak/Usage.h"
#include "tests/stories/Story.h"
#include "tests/TestClass.h"

#include <MorvalenCore/DesignManager.h>
#include <MorvalenCore/EditorManager.h>

#include <QElapsedTimer>

using namespace Qt::Literals::StringLiterals;

namespace {

// Caches and pools are filled by then.
constexpr int roundsOfWarmUp = 10;
constexpr int usualRounds = 20;
// Kilobytes by which the memory may grow in the second half of the rounds, and for each of them.
constexpr qint64 growth = 4 * 1024;
constexpr qint64 growthOfARound = 4;

} // namespace

class tst_Soak : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { story = std::make_unique<Story>(); }
    void cleanupTestCase() { story.reset(); }

    void nothingGrows();

private:
    void round(int number);
    void run(const QString &command) const;
    Usage settled() const;

    std::unique_ptr<Story> story;
};

void tst_Soak::run(const QString &command) const
{
    QString text;
    const bool done = story->console().execCommand(command, true, true, &text);
    QVERIFY2(done, qPrintable(command + u": "_s + text));
}

void tst_Soak::round(int number)
{
    const QString file = story->path(u"built/component.xml"_s);
    QDir().mkpath(story->path(u"built"_s));
    Story::write(file, buildingComponent("built", "echo $$; true"));
    run(u"designs new made%1"_s.arg(number % 7));
    run(u"files add a.v; files add b.v; files set_active a.v; sfile property set k int 5"_s);
    run(u"properties set p string x; folders add sub; design set description {%1}"_s.arg(number));
    run(u"close [open [sfile get actual_path] w]; sfile open; files list; overview"_s);
    run(u"designs add {%1}; build run; build run true; build refresh"_s.arg(file));
    run(u"catch {files add a.v; files add a.v}; log {round %1} warning; after 1 {set v 1}; vwait v"_s
            .arg(number));
    story->window().activateMode(number % 2 ? 105 : 0);
    QCoreApplication::processEvents();
    run(u"foreach id [designs list] {designs close $id true}"_s);
    run(u"project new; project save {%1}; project close"_s.arg(story->path(u"p.mvproject"_s)));
    // What the journal and the log keep is meant to grow.
    CommandJournal::instance()->clear();
    story->console().reset(QString());
    QDir(story->path(u"built"_s)).removeRecursively();
}

Usage tst_Soak::settled() const
{
    QTest::qWait(100);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return Usage::now();
}

void tst_Soak::nothingGrows()
{
    const int seconds = qEnvironmentVariableIntValue("MORVALEN_SOAK_SECONDS");
    int rounds = 0;
    while (rounds < roundsOfWarmUp && !QTest::currentTestFailed())
        round(rounds++);
    const Usage first = settled();
    QElapsedTimer timer;
    timer.start();
    Usage middle = first;
    int roundsSinceMiddle = 0;
    const auto isOver = [&](int share) {
        return seconds > 0 ? timer.elapsed() > 1000LL * seconds / share
                           : rounds - roundsOfWarmUp >= usualRounds / share;
    };
    for (bool isMiddle = false; !isOver(1) && !QTest::currentTestFailed(); ++roundsSinceMiddle) {
        if (!isMiddle && isOver(2)) {
            isMiddle = true;
            middle = settled();
            roundsSinceMiddle = 0;
        }
        round(rounds++);
    }
    const Usage last = settled();
    qInfo(
        "%d rounds in %lld s: memory %lld, %lld, %lld kB; descriptors %d, threads %d, objects %d, "
        "timers %d",
        rounds, timer.elapsed() / 1000, first.memory, middle.memory, last.memory, last.descriptors,
        last.threads, last.objects, last.timers);
    QCOMPARE(last.difference(middle), QString());
    const qint64 most = growth + growthOfARound * roundsSinceMiddle;
    QVERIFY2(last.memory - middle.memory < most,
             qPrintable(u"the memory grew by %1 kB in %2 rounds"_s.arg(last.memory - middle.memory)
                            .arg(roundsSinceMiddle)));
}

QTEST_MAIN(tst_Soak)
#include "tst_Soak.moc"
