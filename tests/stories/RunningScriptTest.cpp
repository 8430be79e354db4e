#include "tests/stories/RunningScriptTest.h"

#include "tests/patience.h"

#include <QStatusBar>

using namespace Qt::Literals::StringLiterals;

void RunningScriptTest::initTestCase()
{
    story = std::make_unique<Story>();
    guard.setSingleShot(true);
    guard.callOnTimeout(ScriptRuns::instance(), &ScriptRuns::stop);
}

void RunningScriptTest::init()
{
    allow(4'000);
    story->window().activateMode(105);
    story->window().statusBar()->clearMessage();
    console().setFocus();
    console().moveCursor(QTextCursor::End);
    console().replaceCurrentCommand(QString());
}

void RunningScriptTest::cleanup()
{
    QVERIFY(!ScriptRuns::instance()->isRunning());
    QCOMPARE(typeAndRead(u"set still alive"_s), u"set still alive\nalive\nmorvalen > "_s);
}

void RunningScriptTest::allow(int milliseconds) { guard.start(patient(milliseconds)); }

QString RunningScriptTest::status() const { return story->window().statusBar()->currentMessage(); }

QString RunningScriptTest::typeAndRead(const QString &command) const
{
    const qsizetype before = console().toPlainText().size();
    story->type(command);
    return console().toPlainText().sliced(before);
}

void RunningScriptTest::meanwhile(const std::function<void()> &action) const
{
    QTimer::singleShot(150, &console(), [action] {
        QVERIFY(ScriptRuns::instance()->isRunning());
        action();
    });
}

void RunningScriptTest::key(int key, Qt::KeyboardModifiers modifiers) const
{
    QTest::keyClick(&console(), Qt::Key(key), modifiers);
}
