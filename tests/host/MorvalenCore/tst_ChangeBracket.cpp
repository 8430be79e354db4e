#include "tests/TestClass.h"

#include <MorvalenCore/AbstractScriptedAction.h>
#include <MorvalenCore/ChangeBracket.h>

#include <QEventLoop>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <memory>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::AbstractScriptedAction;
using MorvalenCore::ChangeBracket;

namespace {

// Keeps the order of what a bracket tells.
class Journal
{
public:
    explicit Journal(ChangeBracket *bracket)
    {
        QObject::connect(bracket, &ChangeBracket::opened, bracket,
                         [this] { words << u"opened"_s; });
        QObject::connect(bracket, &ChangeBracket::closed, bracket,
                         [this] { words << u"closed"_s; });
    }

    QStringList words;
};

// Runs a step from within an event loop, as a command that a user typed runs, and then lets the
// loop turn for some time.
template <typename Step>
void runInEventLoop(Step step, int milliseconds = 20)
{
    QEventLoop loop;
    QTimer::singleShot(0, &loop, [&] {
        step();
        QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    });
    loop.exec();
}

// The same for a loop that has ended when the step has: nothing is carried out in it any more.
template <typename Step>
void runAndLeaveAtOnce(Step step)
{
    QEventLoop loop;
    QTimer::singleShot(0, &loop, [&] {
        step();
        loop.quit();
    });
    loop.exec();
}

} // namespace

// Brackets around changes: counted, told once, and never left open.
class tst_ChangeBracket : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { bracket = std::make_unique<ChangeBracket>(); }
    void cleanup() { bracket.reset(); }

    void tellsOnceForNestedBrackets();
    void ignoresAClosingWithoutAnOpening();
    void closesWhatWasLeftOpenWhenControlReturns();
    void closesEveryLevelThatWasLeftOpen();
    void opensAgainAfterItWasClosedForSomebody();
    void leavesABracketOpenInANestedEventLoop();
    void leavesABracketOpenWhileEventsAreProcessed();
    void closesWhatWasLeftOpenInANestedEventLoop();
    void closesWhatWasOpenedBehindARestOfANestedEventLoop();
    void closesWhatWasOpenedAfterSomebodyClosedTheOuterOne();
    void keepsABracketThatIsOpenBesideARestOfANestedEventLoop();
    void closesTheRestOfANestedEventLoopBeforeItsOwn();
    void breathesWhileAScriptWaits();
    void doesNotBreatheWhenNothingIsOpen();
    void keepsNothingOfAHundredThousandBrackets();
    void canBeReplaced();
    void bringsTheDefaultBackWhenTheReplacementIsGone();
    void isOpenedAndClosedByScriptedActions();

private:
    std::unique_ptr<ChangeBracket> bracket;
};

void tst_ChangeBracket::tellsOnceForNestedBrackets()
{
    const Journal journal(bracket.get());

    bracket->open();
    bracket->open();
    bracket->open();
    QCOMPARE(bracket->depth(), 3);
    bracket->close();
    bracket->close();
    QCOMPARE(bracket->depth(), 1);
    QCOMPARE(journal.words, QStringList {u"opened"_s});
    bracket->close();

    QCOMPARE(bracket->depth(), 0);
    QCOMPARE(journal.words, QStringList({u"opened"_s, u"closed"_s}));
}

void tst_ChangeBracket::ignoresAClosingWithoutAnOpening()
{
    const Journal journal(bracket.get());

    bracket->close();

    QCOMPARE(bracket->depth(), 0);
    QCOMPARE(journal.words, QStringList());

    bracket->open();
    QCOMPARE(bracket->depth(), 1);
}

void tst_ChangeBracket::closesWhatWasLeftOpenWhenControlReturns()
{
    const Journal journal(bracket.get());

    runInEventLoop([&] { bracket->open(); });

    QCOMPARE(bracket->depth(), 0);
    QCOMPARE(journal.words, QStringList({u"opened"_s, u"closed"_s}));
}

void tst_ChangeBracket::closesEveryLevelThatWasLeftOpen()
{
    const Journal journal(bracket.get());

    runInEventLoop([&] {
        bracket->open();
        bracket->open();
        bracket->close();
        bracket->open();
    });

    QCOMPARE(bracket->depth(), 0);
    QCOMPARE(journal.words, QStringList({u"opened"_s, u"closed"_s}));
}

void tst_ChangeBracket::opensAgainAfterItWasClosedForSomebody()
{
    const Journal journal(bracket.get());

    runInEventLoop([&] { bracket->open(); });
    runInEventLoop([&] { bracket->open(); });

    QCOMPARE(bracket->depth(), 0);
    QCOMPARE(journal.words, QStringList({u"opened"_s, u"closed"_s, u"opened"_s, u"closed"_s}));
}

void tst_ChangeBracket::leavesABracketOpenInANestedEventLoop()
{
    const Journal journal(bracket.get());
    int depthInside = -1;
    QStringList wordsInside;

    runInEventLoop([&] {
        bracket->open();
        // Somebody else's command runs meanwhile.
        runInEventLoop([&] {
            bracket->open();
            bracket->close();
        });
        depthInside = bracket->depth();
        wordsInside = journal.words;
        bracket->close();
    });

    QCOMPARE(depthInside, 1);
    QCOMPARE(wordsInside, QStringList {u"opened"_s});
    QCOMPARE(journal.words, QStringList({u"opened"_s, u"closed"_s}));
}

void tst_ChangeBracket::leavesABracketOpenWhileEventsAreProcessed()
{
    int depthInside = -1;

    runInEventLoop(
        [&] {
            bracket->open();
            for (int pass = 0; pass < 10; ++pass)
                QCoreApplication::processEvents();
            depthInside = bracket->depth();
        },
        150);

    QCOMPARE(depthInside, 1);
    QCOMPARE(bracket->depth(), 0);
}

void tst_ChangeBracket::closesWhatWasLeftOpenInANestedEventLoop()
{
    int depthAfterNested = -1;

    runInEventLoop([&] {
        bracket->open();
        runInEventLoop([&] {
            bracket->open();
            bracket->open();
        });
        depthAfterNested = bracket->depth();
    });

    QCOMPARE(depthAfterNested, 1);
    QCOMPARE(bracket->depth(), 0);
}

// The second of the outer brackets is opened after the rest of the nested loop was closed, and the
// first with it: what is awaited for the outer loop must not take the rest for somebody's.
void tst_ChangeBracket::closesWhatWasOpenedBehindARestOfANestedEventLoop()
{
    runInEventLoop([&] {
        runAndLeaveAtOnce([&] { bracket->open(); });
        bracket->open();
        QCoreApplication::processEvents();
        bracket->close();
        bracket->open();
        bracket->open();
    });

    QTRY_COMPARE(bracket->depth(), 0);
}

void tst_ChangeBracket::closesWhatWasOpenedAfterSomebodyClosedTheOuterOne()
{
    int depthAfterNested = -1;

    runInEventLoop([&] {
        bracket->open();
        runInEventLoop([&] {
            bracket->open();
            bracket->close();
            bracket->close();
            bracket->open();
        });
        depthAfterNested = bracket->depth();
    });

    QCOMPARE(depthAfterNested, 0);
    QCOMPARE(bracket->depth(), 0);
}

void tst_ChangeBracket::keepsABracketThatIsOpenBesideARestOfANestedEventLoop()
{
    const Journal journal(bracket.get());
    int depthInside = -1;

    runInEventLoop([&] {
        runAndLeaveAtOnce([&] { bracket->open(); });
        bracket->open();
        QCoreApplication::processEvents();
        depthInside = bracket->depth();
        bracket->close();
    });

    QCOMPARE(depthInside, 1);
    QCOMPARE(journal.words, QStringList({u"opened"_s, u"closed"_s, u"opened"_s, u"closed"_s}));
}

void tst_ChangeBracket::closesTheRestOfANestedEventLoopBeforeItsOwn()
{
    int depthInside = -1;

    runInEventLoop([&] {
        bracket->open();
        runAndLeaveAtOnce([&] { bracket->open(); });
        bracket->close();
        depthInside = bracket->depth();
    });

    QCOMPARE(depthInside, 0);
    QCOMPARE(bracket->depth(), 0);
}

void tst_ChangeBracket::breathesWhileAScriptWaits()
{
    const Journal journal(bracket.get());
    QStringList wordsInside;
    int depthInside = -1;

    runInEventLoop([&] {
        bracket->open();
        QEventLoop waiting;
        connect(
            bracket.get(), &ChangeBracket::opened, &waiting, [&] { waiting.quit(); },
            Qt::QueuedConnection);
        waiting.exec();
        depthInside = bracket->depth();
        wordsInside = journal.words;
        bracket->close();
    });

    QCOMPARE(depthInside, 1);
    QCOMPARE(wordsInside, QStringList({u"opened"_s, u"closed"_s, u"opened"_s}));
    QCOMPARE(journal.words, QStringList({u"opened"_s, u"closed"_s, u"opened"_s, u"closed"_s}));
}

void tst_ChangeBracket::doesNotBreatheWhenNothingIsOpen()
{
    const Journal journal(bracket.get());

    runInEventLoop(
        [&] {
            bracket->open();
            bracket->close();
        },
        2 * ChangeBracket::breathInterval + 50);

    QCOMPARE(journal.words, QStringList({u"opened"_s, u"closed"_s}));
    QVERIFY(!bracket->findChild<QTimer *>());
}

void tst_ChangeBracket::keepsNothingOfAHundredThousandBrackets()
{
    qsizetype children = 0;

    runInEventLoop([&] {
        for (int count = 0; count < 100'000; ++count) {
            bracket->open();
            bracket->close();
        }
        children = bracket->children().size();
    });

    QVERIFY(children <= 1);
    QCOMPARE(bracket->children().size(), 0);
}

void tst_ChangeBracket::canBeReplaced()
{
    ChangeBracket *const standard = ChangeBracket::instance();
    QVERIFY(standard);

    ChangeBracket::setInstance(bracket.get());
    QCOMPARE(ChangeBracket::instance(), bracket.get());
    ChangeBracket::setInstance(nullptr);

    QCOMPARE(ChangeBracket::instance(), standard);
}

void tst_ChangeBracket::bringsTheDefaultBackWhenTheReplacementIsGone()
{
    ChangeBracket *const standard = ChangeBracket::instance();

    ChangeBracket::setInstance(bracket.get());
    bracket.reset();

    QCOMPARE(ChangeBracket::instance(), standard);
}

void tst_ChangeBracket::isOpenedAndClosedByScriptedActions()
{
    ChangeBracket::setInstance(bracket.get());

    AbstractScriptedAction::initExec();
    QCOMPARE(bracket->depth(), 1);
    AbstractScriptedAction::initExec();
    QCOMPARE(bracket->depth(), 2);
    AbstractScriptedAction::finalizeExec();
    AbstractScriptedAction::finalizeExec();
    QCOMPARE(bracket->depth(), 0);
    AbstractScriptedAction::finalizeExec();

    QCOMPARE(bracket->depth(), 0);
}

GUILESS_TEST_CLASS(tst_ChangeBracket)
#include "tst_ChangeBracket.moc"
