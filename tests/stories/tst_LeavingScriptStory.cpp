// The program is to end while a script runs.

#include "app/ending/Leaving.h"
#include "app/MainWindow.h"
#include "interp/commandsManager.h"
#include "tests/patience.h"
#include "tests/stories/DialogVisits.h"
#include "tests/stories/RunningScriptTest.h"
#include "tests/TestClass.h"

#include <QMenu>
#include <QMessageBox>
#include <QtTest>

#include <csignal>

using namespace Qt::Literals::StringLiterals;

class tst_LeavingScriptStory : public RunningScriptTest
{
    Q_OBJECT

private Q_SLOTS:
    void ending_data();
    void ending();
    void theScriptEndsBeforeTheAnswer();
    void theSessionEnds();

private:
    void wantToEnd(const QByteArray &way);
};

void tst_LeavingScriptStory::ending_data()
{
    QTest::addColumn<QByteArray>("way");
    QTest::addColumn<bool>("leaves");
    for (const char *way : {"close", "quit", "key", "desktop"}) {
        for (const bool leaves : {false, true})
            QTest::addRow("end-%s-%s", way, leaves ? "yes" : "no") << QByteArray(way) << leaves;
    }
    // The second one in a row would end the process.
    QTest::newRow("end-terminated") << QByteArray("terminated") << true;
}

void tst_LeavingScriptStory::wantToEnd(const QByteArray &way)
{
    if (way == "close") {
        story->window().close();
    } else if (way == "quit") {
        QAction *quit = story->entry('f', u"Quit"_s);
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(quit && menu);
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(quit).center());
        story->closeMenus();
    } else if (way == "key") {
        QTest::keyClick(&console(), Qt::Key_Q, Qt::ControlModifier);
    } else if (way == "terminated") {
        ::raise(SIGTERM);
    } else {
        QEvent quit(QEvent::Quit);
        QCoreApplication::sendEvent(qApp, &quit);
    }
}

// The window asks, without keeping the script from going on; if the user agrees, script and window
// end.
void tst_LeavingScriptStory::ending()
{
    QFETCH(const QByteArray, way);
    QFETCH(const bool, leaves);
    QSignalSpy closed(&story->window(), &MainWindow::closed);
    QElapsedTimer sinceAnswer;
    QStringList asked;
    QTimer watch;
    watch.callOnTimeout(&console(), [&] {
        auto *box = story->find<QMessageBox>("stopAndLeave");
        if (!box || !box->isVisible())
            return;
        watch.stop();
        QVERIFY(ScriptRuns::instance()->isInPass());
        QVERIFY(story->window().isVisible());
        asked = {box->windowTitle(), box->text(), box->informativeText()};
        sinceAnswer.start();
        DialogVisits::press(box, leaves ? u"Stop and Leave"_s : u"Cancel"_s);
        if (!leaves)
            QTimer::singleShot(100, &console(), [this] { key(Qt::Key_Escape); });
    });
    meanwhile([&] {
        wantToEnd(way);
        watch.start(10);
    });
    QCOMPARE(typeAndRead(u"while 1 {}"_s), u"while 1 {}\n"_s + stopped);
    if (leaves)
        QTRY_COMPARE(closed.size(), 1);
    QCoreApplication::processEvents();
    QCOMPARE(closed.size(), leaves ? 1 : 0);
    QCOMPARE(story->window().isVisible(), !leaves);
    QVERIFY(sinceAnswer.elapsed() < patient(1'000));
    QCOMPARE(asked,
             (QStringList {u"Leave Morvalen"_s, u"A script is running."_s,
                           u"It is stopped where it is before the window closes."_s}));
    story->window().show();
    story->takeKeyboard();
}

void tst_LeavingScriptStory::theScriptEndsBeforeTheAnswer()
{
    const QSignalSpy closed(&story->window(), &MainWindow::closed);
    bool asked = false;
    meanwhile([&] {
        story->window().close();
        asked = story->find<QMessageBox>("stopAndLeave")->isVisible();
        Tcl_SetVar(commandsManager::getInstance(nullptr)->interp, "goesOn", "0", TCL_GLOBAL_ONLY);
    });
    QCOMPARE(typeAndRead(u"set goesOn 1; while {$goesOn} {}"_s),
             u"set goesOn 1; while {$goesOn} {}\nmorvalen > "_s);
    QVERIFY(asked);
    QTRY_COMPARE(closed.size(), 1);
    QVERIFY(!QApplication::activeModalWidget());
    story->window().show();
    story->takeKeyboard();
}

// A session's manager wants its answer at once, and the script goes on only then.
void tst_LeavingScriptStory::theSessionEnds()
{
    const QString question = u"A Command Is Running\nThe console is running a command."_s;
    auto *leaving = story->window().findChild<Leaving *>();
    QSignalSpy closed(&story->window(), &MainWindow::closed);
    QList<bool> answers;
    meanwhile([&] {
        for (const QString &button : {u"Cancel"_s, u"Quit Anyway"_s}) {
            DialogVisits visits({DialogVisits::answer(question, button)});
            answers.append(leaving->mayEndWithSession());
            QVERIFY(visits.areDone());
            QVERIFY(ScriptRuns::instance()->isInPass());
        }
    });
    QCOMPARE(typeAndRead(u"while 1 {}"_s), u"while 1 {}\n"_s + stopped);
    QCOMPARE(answers, (QList<bool> {false, true}));
    QTRY_COMPARE(closed.size(), 1);
    QVERIFY(leaving->mayEndWithSession());
    story->window().show();
    story->takeKeyboard();
}

TEST_CLASS(tst_LeavingScriptStory)
#include "tst_LeavingScriptStory.moc"
