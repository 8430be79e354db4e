// What is typed while a command runs.

#include "app/journal/CommandJournal.h"
#include "interp/commandsManager.h"
#include "tests/patience.h"
#include "tests/stories/JournalReplay.h"
#include "tests/stories/RunningScriptTest.h"
#include "tests/TestClass.h"

#include <QLabel>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;

class tst_TypingAheadStory : public RunningScriptTest
{
    Q_OBJECT

private Q_SLOTS:
    void typedKeysComeAtTheNextPrompt();
    void typedKeysCanBeCorrected();
    void typedKeysAreForgottenByAStop();
    void typedKeysAfterAWait();
    void pastedTextComesAtTheNextPrompt();
    void aWaitingEventLetsCommandsIn();
    void typedKeysComeWhenAnEventWaits();
    void typedCommandsRunAgain();
};

void tst_TypingAheadStory::typedKeysComeAtTheNextPrompt()
{
    QString shown;
    const QString loop =
        u"set e [expr {[clock milliseconds] + 600}]; while {[clock milliseconds] < $e} {}"_s;
    meanwhile([&] {
        QTest::keyClicks(&console(), u"set a 1"_s);
        key(Qt::Key_Return);
        QTest::keyClicks(&console(), u"set b"_s);
        shown = console().findChild<QLabel *>(u"typeAhead"_s)->text();
    });
    const qsizetype before = console().toPlainText().size();
    story->type(loop);
    const QString rest = loop + u"\nmorvalen > set a 1\n1\nmorvalen > set b"_s;
    QTRY_COMPARE(console().toPlainText().sliced(before), rest);
    QCOMPARE(shown, u"set a 1 \u23ce set b"_s);
    QVERIFY(!console().findChild<QLabel *>(u"typeAhead"_s)->isVisible());
    console().replaceCurrentCommand(QString());
}

void tst_TypingAheadStory::typedKeysCanBeCorrected()
{
    meanwhile([&] {
        QTest::keyClicks(&console(), u"set cx"_s);
        key(Qt::Key_Backspace);
        QTest::keyClicks(&console(), u" 2"_s);
    });
    story->type(u"after 500"_s);
    QTRY_COMPARE(console().getCurrentCommand(), u"set c 2"_s);
    console().replaceCurrentCommand(QString());
}

void tst_TypingAheadStory::typedKeysAreForgottenByAStop()
{
    meanwhile([&] {
        QTest::keyClicks(&console(), u"set wrong 1"_s);
        key(Qt::Key_Return);
        key(Qt::Key_Escape);
    });
    QCOMPARE(typeAndRead(u"while 1 {}"_s), u"while 1 {}\n"_s + stopped);
    QCoreApplication::processEvents();
    QCOMPARE(typeAndRead(u"info exists wrong"_s), u"info exists wrong\n0\nmorvalen > "_s);
}

void tst_TypingAheadStory::typedKeysAfterAWait()
{
    meanwhile([&] {
        QTest::keyClicks(&console(), u"puts hi"_s);
        key(Qt::Key_Return);
    });
    const qsizetype before = console().toPlainText().size();
    story->type(u"after 500 {set v 1}; vwait v; puts waited"_s);
    QTRY_COMPARE(console().toPlainText().sliced(before),
                 u"after 500 {set v 1}; vwait v; puts waited\nwaited\nmorvalen > puts hi\nhi\n"
                 "morvalen > "_s);
}

void tst_TypingAheadStory::pastedTextComesAtTheNextPrompt()
{
    QGuiApplication::clipboard()->setText(u"set pasted"_s);
    meanwhile([&] { key(Qt::Key_V, Qt::ControlModifier); });
    story->type(u"after 500"_s);
    QTRY_COMPARE(console().getCurrentCommand(), u"set pasted"_s);
    console().replaceCurrentCommand(QString());
}

// The prompt is there, and what is typed is run and stopped as if nothing waited.
void tst_TypingAheadStory::aWaitingEventLetsCommandsIn()
{
    QStringList shown;
    QTimer::singleShot(100, &console(), [&] {
        QVERIFY(ScriptRuns::instance()->isRunning());
        shown.append(typeAndRead(u"set a 1"_s));
        for (const QString &command : {u"while 1 {}"_s, u"vwait forever"_s}) {
            meanwhile([this] { key(Qt::Key_Escape); });
            shown.append(typeAndRead(command));
        }
        shown.append(typeAndRead(u"set ::released 1"_s));
    });
    story->type(u"after 0 {vwait ::released; set ::gone 1}"_s);
    QTRY_COMPARE(shown.size(), 4);
    QCOMPARE(shown,
             (QStringList {u"set a 1\n1\nmorvalen > "_s, u"while 1 {}\n"_s + stopped,
                           u"vwait forever\n"_s + stopped, u"set ::released 1\n1\nmorvalen > "_s}));
    QTRY_VERIFY(!ScriptRuns::instance()->isRunning());
    QCOMPARE(typeAndRead(u"set gone"_s), u"set gone\n1\nmorvalen > "_s);
}

// It works for a while first.
void tst_TypingAheadStory::typedKeysComeWhenAnEventWaits()
{
    bool isKept = false;
    QTimer watch;
    watch.callOnTimeout(&console(), [&] {
        if (!isKept && ScriptRuns::instance()->isInPass()) {
            QTest::keyClicks(&console(), u"set ::released 2"_s);
            key(Qt::Key_Return);
            isKept = console().findChild<QLabel *>(u"typeAhead"_s)->isVisible();
            Tcl_SetVar(commandsManager::getInstance(nullptr)->interp, "busy", "0", TCL_GLOBAL_ONLY);
        }
    });
    story->type(u"set busy 1; after 0 {while {$::busy} {}; vwait ::released; set ::gone 2}"_s);
    const qsizetype before = console().toPlainText().size();
    watch.start(10);
    QTRY_VERIFY(isKept);
    watch.stop();
    QTRY_COMPARE(console().toPlainText().sliced(before), u"set ::released 2\n2\nmorvalen > "_s);
    QTRY_VERIFY(!ScriptRuns::instance()->isRunning());
    QCOMPARE(typeAndRead(u"set gone"_s), u"set gone\n2\nmorvalen > "_s);
}

// In the order in which they ran, and without the one that was stopped.
void tst_TypingAheadStory::typedCommandsRunAgain()
{
    JournalReplay::begin();
    meanwhile([&] { key(Qt::Key_Escape); });
    story->type(u"while 1 {}"_s);
    meanwhile([&] {
        for (const QString &command : {u"files add a.v"_s, u"design save"_s}) {
            QTest::keyClicks(&console(), command);
            key(Qt::Key_Return);
        }
    });
    const QString first = u"designs new ahead; after 500"_s;
    story->type(first);
    QTRY_VERIFY(CommandJournal::instance()->entries().contains(u"design save"_s));
    QCOMPARE(CommandJournal::instance()->entries(),
             QStringList({first, u"files add a.v"_s, u"design save"_s}));
    JournalReplay::compare(*story);
    story->type(u"designs close [designs list] true"_s);
}

TEST_CLASS(tst_TypingAheadStory)
#include "tst_TypingAheadStory.moc"
