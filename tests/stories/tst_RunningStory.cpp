// A script that runs: the window lives, and the user stops it.

#include "app/MainWindow.h"
#include "console/QtclConsole.h"
#include "interp/ScriptRuns.h"
#include "tests/stories/Story.h"
#include "tests/TestClass.h"

#include <QClipboard>
#include <QStatusBar>
#include <QToolButton>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;

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

    std::unique_ptr<Story> story;
    QTimer guard; // so that a failure does not last for ever
};

namespace {

const QString stopped = u"Script stopped\nmorvalen > "_s;

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

TEST_CLASS(tst_RunningStory)
#include "tst_RunningStory.moc"
