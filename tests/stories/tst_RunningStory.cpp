// A script that runs: the window lives, the user watches, types ahead, and stops it.

#include "app/MainWindow.h"
#include "console/QtclConsole.h"
#include "interp/ScriptRuns.h"
#include "tests/process/builds/buildcomponent.h"
#include "tests/stories/Story.h"
#include "tests/TestClass.h"

#include <MorvalenCore/BuildConfiguration.h>
#include <Qtilities/Logger.h>

#include <QAbstractButton>
#include <QClipboard>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QScrollBar>
#include <QStatusBar>
#include <QToolButton>
#include <QTreeView>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::BuildConfiguration;

class tst_RunningStory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        story = std::make_unique<Story>();
        guard.setSingleShot(true);
        guard.callOnTimeout(ScriptRuns::instance(), &ScriptRuns::stop);
    }
    void cleanupTestCase() { story.reset(); }
    void init();
    void cleanup();

    void escapeStops_data();
    void escapeStops();
    void controlCStopsWhereNothingIsSelected();
    void controlCCopiesASelection();
    void theButtonStops();
    void theMenuStops();
    void aStopWhileNothingRunsDoesNothing();
    void whatRunsIsSaid();
    void whatIsShortIsNotShown();
    void theWindowIsPaintedAndScrolled();
    void modesAreSwitched();
    void designsAreLeftAlone();
    void menusAreLeftAlone();
    void typedKeysComeAtTheNextPrompt();
    void typedKeysCanBeCorrected();
    void typedKeysAreForgottenByAStop();
    void typedKeysAfterAWait();
    void pastedTextComesAtTheNextPrompt();
    void theHistoryHasWhatWasStopped();
    void aBuildOfTheScriptIsCancelled();
    void aFailureHasItsStackInTheLog();
    void closingAsks();

private:
    QtclConsole &console() const { return story->console(); }
    // The text of the console behind what is there now.
    QString typeAndRead(const QString &command) const
    {
        const qsizetype before = console().toPlainText().size();
        story->type(command);
        return console().toPlainText().sliced(before);
    }
    // Does something once a command runs.
    void meanwhile(const std::function<void()> &action) const
    {
        QTimer::singleShot(150, &console(), [action] {
            QVERIFY(ScriptRuns::instance()->isRunning());
            action();
        });
    }
    void key(int key, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::keyClick(&console(), Qt::Key(key), modifiers);
    }
    QString status() const { return story->window().statusBar()->currentMessage(); }

    std::unique_ptr<Story> story;
    QTimer guard; // so that a failure does not last for ever
};

namespace {

const QString stopped = u"Script stopped\nmorvalen > "_s;
const QString refusal = u"A script is running. Stop it first, with Escape."_s;

} // namespace

void tst_RunningStory::init()
{
    guard.start(20'000);
    story->window().activateMode(105);
    story->window().statusBar()->clearMessage();
    console().setFocus();
    console().moveCursor(QTextCursor::End);
    console().replaceCurrentCommand(QString());
}

void tst_RunningStory::cleanup()
{
    QVERIFY(!ScriptRuns::instance()->isRunning());
    QCOMPARE(typeAndRead(u"set still alive"_s), u"set still alive\nalive\nmorvalen > "_s);
}

void tst_RunningStory::escapeStops_data()
{
    QTest::addColumn<QString>("command");
    QTest::newRow("stop-1 an empty loop") << u"while 1 {}"_s;
    QTest::newRow("stop-2 one that writes") << u"for {set i 0} 1 {incr i} {set x $i}"_s;
    QTest::newRow("stop-3 after") << u"after 100000"_s;
    QTest::newRow("stop-4 vwait") << u"vwait forever"_s;
    QTest::newRow("stop-5 one that catches") << u"while 1 {catch {while 1 {}}}"_s;
}

void tst_RunningStory::escapeStops()
{
    QFETCH(const QString, command);
    meanwhile([this] { key(Qt::Key_Escape); });
    QCOMPARE(typeAndRead(command), command + u'\n' + stopped);
    const QTextBlock result = console().document()->lastBlock().previous();
    QCOMPARE(result.begin().fragment().charFormat().foreground().color(), QColor(Qt::red));
}

void tst_RunningStory::controlCStopsWhereNothingIsSelected()
{
    meanwhile([this] { key(Qt::Key_C, Qt::ControlModifier); });
    QCOMPARE(typeAndRead(u"while 1 {}"_s), u"while 1 {}\n"_s + stopped);
}

void tst_RunningStory::controlCCopiesASelection()
{
    meanwhile([this] {
        QTextCursor cursor = console().textCursor();
        cursor.movePosition(QTextCursor::Start);
        cursor.movePosition(QTextCursor::EndOfWord, QTextCursor::KeepAnchor);
        console().setTextCursor(cursor);
        key(Qt::Key_C, Qt::ControlModifier);
        QVERIFY(ScriptRuns::instance()->isRunning());
        key(Qt::Key_Escape);
    });
    story->type(u"while 1 {}"_s);
    QVERIFY(console().toPlainText().startsWith(QGuiApplication::clipboard()->text()));
    QVERIFY(!QGuiApplication::clipboard()->text().isEmpty());
    console().moveCursor(QTextCursor::End);
}

void tst_RunningStory::theButtonStops()
{
    auto *button = story->find<QToolButton>("stopScript");
    QVERIFY(!button->isVisible());
    QTimer::singleShot(600, &console(), [&] {
        QVERIFY(button->isVisible());
        QTest::mouseClick(button, Qt::LeftButton);
    });
    QCOMPARE(typeAndRead(u"while 1 {}"_s), u"while 1 {}\n"_s + stopped);
    QVERIFY(!button->isVisible());
}

void tst_RunningStory::theMenuStops()
{
    QAction *stop = story->action("stopRunningScript");
    QVERIFY(!stop->isEnabled());
    meanwhile([&] {
        QVERIFY(stop->isEnabled());
        QVERIFY(story->entry('s', stop->text().remove(u'&')));
        QWidget *menu = QApplication::activePopupWidget();
        QVERIFY(menu);
        QTest::mouseClick(menu, Qt::LeftButton, {},
                          qobject_cast<QMenu *>(menu)->actionGeometry(stop).center());
        story->closeMenus();
    });
    QCOMPARE(typeAndRead(u"while 1 {}"_s), u"while 1 {}\n"_s + stopped);
    QVERIFY(!stop->isEnabled());
}

void tst_RunningStory::aStopWhileNothingRunsDoesNothing()
{
    key(Qt::Key_Escape);
    key(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(typeAndRead(u"set a 1"_s), u"set a 1\n1\nmorvalen > "_s);
}

void tst_RunningStory::whatRunsIsSaid()
{
    const auto *label = story->find<QLabel>("runText");
    QString text;
    Qt::CursorShape cursor = Qt::ArrowCursor;
    QTimer::singleShot(800, &console(), [&] {
        text = label->isVisible() ? label->text() : QString();
        cursor = console().viewport()->cursor().shape();
        key(Qt::Key_Escape);
    });
    story->type(u"while 1 {};   # a comment that is longer than the status bar likes"_s);
    QCOMPARE(
        text,
        u"Running for 0 s: while 1 {};   # a comment that is longer\u2026 (Escape stops it)"_s);
    QCOMPARE(cursor, Qt::BusyCursor);
    QVERIFY(!label->isVisible());
    QCOMPARE(console().viewport()->cursor().shape(), Qt::IBeamCursor);
}

void tst_RunningStory::whatIsShortIsNotShown()
{
    story->type(u"set a 1"_s);
    QTest::qWait(300);
    QVERIFY(!story->find<QLabel>("runText")->isVisible());
}

void tst_RunningStory::theWindowIsPaintedAndScrolled()
{
    story->type(u"for {set i 0} {$i < 300} {incr i} {puts $i}"_s);
    QScrollBar *bar = console().verticalScrollBar();
    int place = -1;
    meanwhile([&] {
        QTest::keyClick(&console(), Qt::Key_PageUp);
        bar->setValue(3);
        place = bar->value();
        story->window().resize(story->window().size() + QSize(10, 10));
        key(Qt::Key_Escape);
    });
    story->type(u"while 1 {}"_s);
    QCOMPARE(place, 3);
}

void tst_RunningStory::modesAreSwitched()
{
    QWidget *designs = nullptr;
    bool switched = false;
    meanwhile([&] {
        const QList<QToolButton *> buttons =
            story->window().findChild<QWidget *>(u"modeBar"_s)->findChildren<QToolButton *>();
        for (QToolButton *button : buttons) {
            if (button->text().contains(u"Designs"_s) && button->isVisible())
                QTest::mouseClick(button, Qt::LeftButton);
        }
        switched = !console().isVisible();
        QTest::keyClick(&story->window(), Qt::Key_Escape);
    });
    story->type(u"while 1 {}"_s);
    QVERIFY(switched);
    Q_UNUSED(designs);
}

void tst_RunningStory::designsAreLeftAlone()
{
    story->type(u"designs new uart"_s);
    QString said;
    meanwhile([&] {
        for (QTreeView *tree : story->window().findChildren<QTreeView *>())
            QTest::mouseDClick(tree->viewport(), Qt::LeftButton, {}, QPoint(30, 10));
        said = status();
        story->action("newDesign") ? story->action("newDesign")->isEnabled() : false;
        key(Qt::Key_Escape);
    });
    story->type(u"while 1 {}"_s);
    QCOMPARE(said, refusal);
}

void tst_RunningStory::menusAreLeftAlone()
{
    QString said;
    meanwhile([&] {
        QVERIFY(story->entry('f', u"Preferences..."_s) || true);
        if (QWidget *menu = QApplication::activePopupWidget()) {
            QTest::keyClick(menu, Qt::Key_Down);
            QTest::keyClick(menu, Qt::Key_Return);
        }
        said = status();
        story->closeMenus();
        key(Qt::Key_Escape);
    });
    story->type(u"while 1 {}"_s);
    QCOMPARE(said, refusal);
    QVERIFY(!QApplication::activeModalWidget());
}

void tst_RunningStory::typedKeysComeAtTheNextPrompt()
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

void tst_RunningStory::typedKeysCanBeCorrected()
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

void tst_RunningStory::typedKeysAreForgottenByAStop()
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

void tst_RunningStory::typedKeysAfterAWait()
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

void tst_RunningStory::pastedTextComesAtTheNextPrompt()
{
    QGuiApplication::clipboard()->setText(u"set pasted"_s);
    meanwhile([&] { key(Qt::Key_V, Qt::ControlModifier); });
    story->type(u"after 500"_s);
    QTRY_COMPARE(console().getCurrentCommand(), u"set pasted"_s);
    console().replaceCurrentCommand(QString());
}

void tst_RunningStory::theHistoryHasWhatWasStopped()
{
    meanwhile([this] { key(Qt::Key_Escape); });
    story->type(u"while 1 {} ;# remember"_s);
    key(Qt::Key_Up);
    QCOMPARE(console().getCurrentCommand(), u"while 1 {} ;# remember"_s);
    console().replaceCurrentCommand(QString());
}

void tst_RunningStory::aBuildOfTheScriptIsCancelled()
{
    const QString component = story->path(u"component.xml"_s);
    Story::write(component, buildComponent(step("s", "sleep 300; cp in late", "in", "out")));
    Story::write(story->path(u"in"_s), "contents");
    story->type(u"designs add {"_s + component + u'}');
    const BuildConfiguration *build = Story::activeDesign()->activeBuildConfiguration();
    QTimer watch;
    watch.callOnTimeout(&console(), [&] {
        if (build->runState() != BuildConfiguration::Running)
            return;
        watch.stop();
        key(Qt::Key_Escape);
    });
    watch.start(20);
    QCOMPARE(typeAndRead(u"build run; set never 1"_s), u"build run; set never 1\n"_s + stopped);
    QCOMPARE(build->runState(), BuildConfiguration::Cancelled);
    QCOMPARE(typeAndRead(u"info exists never"_s), u"info exists never\n0\nmorvalen > "_s);
    story->type(u"designs close [designs list] false"_s);
}

void tst_RunningStory::aFailureHasItsStackInTheLog()
{
    QStringList errors;
    using Qtilities::Logging::Logger;
    const auto connection =
        connect(Logger::instance(), &Logger::messageLogged, this,
                [&](const QString &, Logger::MessageType type, const QString &text) {
                    if (type == Logger::Error)
                        errors.append(text);
                });
    story->type(u"proc f {} {error oops}; f"_s);
    disconnect(connection);
    QCOMPARE(errors,
             QStringList {u"oops\n    while executing\n\"error oops\"\n    (procedure \"f\" "
                          "line 1)\n    invoked from within\n\"f\""_s});
}

void tst_RunningStory::closingAsks()
{
    bool asked = false;
    meanwhile([&] {
        story->window().close();
        auto *box = story->find<QMessageBox>("stopAndLeave");
        QVERIFY(box && box->isVisible());
        QCOMPARE(box->text(), u"A script is running."_s);
        QVERIFY(story->window().isVisible());
        asked = true;
        QTest::mouseClick(box->button(QMessageBox::Cancel), Qt::LeftButton);
        QTimer::singleShot(100, &console(), [this] { key(Qt::Key_Escape); });
    });
    QCOMPARE(typeAndRead(u"while 1 {}"_s), u"while 1 {}\n"_s + stopped);
    QVERIFY(asked);
    QVERIFY(story->window().isVisible());
}

TEST_CLASS(tst_RunningStory)
#include "tst_RunningStory.moc"
