// A start-up script that never ends: the window comes, and the user stops the script.

#include "app/MainWindow.h"
#include "console/QtclConsole.h"
#include "interp/ScriptRuns.h"
#include "tests/patience.h"
#include "tests/stories/Story.h"
#include "tests/TestClass.h"

#include <Qtilities/Logger.h>

#include <QApplication>
#include <QLabel>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Logging::Logger;

class tst_StartingStory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theScriptIsStopped();

private:
    // Looks whether the window is there already, and then presses Escape in it.
    void lookForWindow();

    QTimer watch;
    QString shown;
    QString status;
    bool hadFocus = false;
};

void tst_StartingStory::lookForWindow()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        auto *console = window->findChild<QtclConsole *>();
        const auto *label = window->findChild<QLabel *>(u"runText"_s);
        if (!console || !console->isVisible() || !label || !label->isVisible())
            continue;
        watch.stop();
        shown = console->toPlainText();
        status = label->text();
        hadFocus = console == window->focusWidget();
        QTest::keyClicks(console, u"set a typed"_s);
        QTest::keyClick(console, Qt::Key_Escape);
        return;
    }
}

void tst_StartingStory::theScriptIsStopped()
{
    watch.callOnTimeout(this, &tst_StartingStory::lookForWindow);
    watch.start(20);
    QStringList errors;
    connect(Logger::instance(), &Logger::messageLogged, this,
            [&](const QString &, Logger::MessageType type, const QString &text) {
                if (type == Logger::Error)
                    errors.append(text);
            });
    const Story story("puts begun\nwhile 1 {}\nset behind 1\n");
    QVERIFY(shown.endsWith(u"\nbegun\nmorvalen > "_s));
    QVERIFY2(status.endsWith(u" s: source startup.tcl (Escape stops it)"_s), qPrintable(status));
    QVERIFY(hadFocus);
    QCOMPARE(errors.size(), 1);
    QVERIFY2(errors.first().startsWith(u"Script stopped\n"_s), qPrintable(errors.first()));
    QVERIFY2(errors.first().contains(u"Scripts/startup.tcl\" line 2)"_s),
             qPrintable(errors.first()));

    QVERIFY(!ScriptRuns::instance()->isRunning());
    QVERIFY(story.window().isVisible());
    QVERIFY(story.console().isVisible());
    QCOMPARE(story.window().activeMode(), 105);
    const qsizetype before = story.console().toPlainText().size();
    story.type(u"info exists behind"_s);
    QCOMPARE(story.console().toPlainText().sliced(before), u"info exists behind\n0\nmorvalen > "_s);
}

TEST_CLASS(tst_StartingStory)
#include "tst_StartingStory.moc"
