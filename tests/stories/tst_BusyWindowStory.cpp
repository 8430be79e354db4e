// What the window refuses while a script runs, and what else runs then.

#include "app/DesignsMode.h"
#include "app/journal/CommandJournal.h"
#include "app/MainWindow.h"
#include "tests/process/builds/buildcomponent.h"
#include "tests/stories/DialogVisits.h"
#include "tests/stories/RunningScriptTest.h"
#include "tests/TestClass.h"

#include <MorvalenCore/BuildConfiguration.h>
#include <MorvalenCore/ScriptManager.h>
#include <Qtilities/Logger.h>

#include <QMenu>
#include <QTreeView>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::AbstractScriptedAction;
using MorvalenCore::BuildConfiguration;
using Qtilities::Logging::Logger;

class tst_BusyWindowStory : public RunningScriptTest
{
    Q_OBJECT

private Q_SLOTS:
    void whatWouldChangeSomethingIsRefused_data();
    void whatWouldChangeSomethingIsRefused();
    void aBuildOfTheScriptIsCancelled();
    void aBuildThatWasThereBeforeGoesOn();
    void aScriptInAScriptIsRefused();
    void anActionIsDeletedWhileItRuns();
    void aFailureHasItsStackInTheLog();
    void aFailingScriptHasItsPlacesInBothLogs();

private:
    void tryToChange(const QByteArray &way);
};

namespace {

const QString refusal = u"A script is running. Stop it first, with Escape."_s;
} // namespace

void tst_BusyWindowStory::whatWouldChangeSomethingIsRefused_data()
{
    QTest::addColumn<QByteArray>("way");
    QTest::newRow("refused-1 a double click on a design") << QByteArray("tree");
    QTest::newRow("refused-2 an entry of a menu, by mouse") << QByteArray("menu");
    QTest::newRow("refused-3 an entry of a menu, by key") << QByteArray("menuKey");
    QTest::newRow("refused-4 a shortcut") << QByteArray("shortcut");
    QTest::newRow("refused-5 a script") << QByteArray("script");
    QTest::newRow("refused-6 a menu of the console") << QByteArray("context");
    QTest::newRow("refused-7 a drop") << QByteArray("drop");
}

void tst_BusyWindowStory::tryToChange(const QByteArray &way)
{
    MainWindow &window = story->window();
    if (way == "tree") {
        window.activateMode(DesignsMode::id);
        QTest::mouseDClick(story->find<QTreeView>("designs")->viewport(), Qt::LeftButton, {},
                           QPoint(30, 10));
    } else if (way == "menu" || way == "menuKey" || way == "script") {
        const bool isFile = way != "script";
        QAction *entry =
            isFile ? story->entry('f', u"Preferences..."_s) : story->entry('s', u"other.tcl"_s);
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(entry && menu);
        if (way == "menuKey") {
            menu->setActiveAction(entry);
            QTest::keyClick(menu, Qt::Key_Return);
        } else {
            QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(entry).center());
        }
    } else if (way == "shortcut") {
        QTest::keyClick(&console(), Qt::Key_Comma, Qt::ControlModifier);
    } else if (way == "context") {
        const QPoint place(5, 5);
        QContextMenuEvent event(QContextMenuEvent::Mouse, place,
                                console().viewport()->mapToGlobal(place));
        QCoreApplication::sendEvent(console().viewport(), &event);
    } else {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(story->path(u"x.xml"_s))});
        QDragEnterEvent event(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(console().viewport(), &event);
        QVERIFY(!event.isAccepted());
    }
}

void tst_BusyWindowStory::whatWouldChangeSomethingIsRefused()
{
    QFETCH(const QByteArray, way);
    Story::write(story->session() + u"/Scripts/other.tcl"_s, "set other ran\n");
    story->type(u"designs new uart"_s);
    const QString title = story->window().windowTitle();
    const DialogVisits none;
    QString said;
    meanwhile([&] {
        tryToChange(way);
        // Gliding over the entries of a menu leaves it there.
        QStatusTipEvent tip {QString()};
        QCoreApplication::sendEvent(&story->window(), &tip);
        said = status();
        story->closeMenus();
        QVERIFY(ScriptRuns::instance()->isRunning());
        QVERIFY(!QApplication::activeModalWidget());
        QTest::keyClick(&story->window(), Qt::Key_Escape);
    });
    const QStringList entries = CommandJournal::instance()->entries();
    story->type(u"while 1 {}"_s);
    QCOMPARE(CommandJournal::instance()->entries(), entries);
    QCOMPARE(said, refusal);
    QCOMPARE(status(), QString());
    QVERIFY(none.areDone());
    QCOMPARE(story->window().windowTitle(), title);
    story->window().activateMode(105);
    QCOMPARE(typeAndRead(u"info exists other"_s), u"info exists other\n0\nmorvalen > "_s);
    story->type(u"designs close [designs list] false"_s);
    story->type(u"file delete -force {"_s + story->session() + u"/Designs/uart}"_s);
}

void tst_BusyWindowStory::aBuildOfTheScriptIsCancelled()
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

void tst_BusyWindowStory::aBuildThatWasThereBeforeGoesOn()
{
    const QString component = story->path(u"component.xml"_s);
    Story::write(component, buildComponent(step("s", "sleep 300; cp in late", "in", "out")));
    Story::write(story->path(u"in"_s), "contents");
    story->type(u"designs add {"_s + component + u'}');
    BuildConfiguration *build = Story::activeDesign()->activeBuildConfiguration();
    QString shown;
    auto after = BuildConfiguration::Failed;
    QTimer watch;
    watch.callOnTimeout(&console(), [&] {
        if (build->runState() != BuildConfiguration::Running)
            return;
        watch.stop();
        meanwhile([this] { key(Qt::Key_Escape); });
        shown = typeAndRead(u"while 1 {}"_s);
        after = build->runState();
        build->cancel();
    });
    watch.start(20);
    QVERIFY(!build->run(false, false));
    QCOMPARE(shown, u"while 1 {}\n"_s + stopped);
    QCOMPARE(after, BuildConfiguration::Running);
    QCOMPARE(build->runState(), BuildConfiguration::Cancelled);
    story->type(u"designs close [designs list] false"_s);
}

// No second script begins while one waits, whoever asks for it; and a stop ends the first.
void tst_BusyWindowStory::aScriptInAScriptIsRefused()
{
    const QString scripts = story->session() + u"/Scripts/"_s;
    Story::write(scripts + u"outer.tcl"_s, "set ::outer begun\nvwait forever\n");
    Story::write(scripts + u"inner.tcl"_s, "set ::inner begun\n");
    const auto run = [this](const QString &name) {
        QAction *entry = story->entry('s', name);
        QVERIFY(entry);
        entry->trigger();
        story->closeMenus();
    };
    meanwhile([&] {
        run(u"inner.tcl"_s);
        QVERIFY(ScriptRuns::instance()->isRunning());
        key(Qt::Key_Escape);
    });
    const qsizetype before = console().toPlainText().size();
    run(u"outer.tcl"_s);
    const QString shown = console().toPlainText().sliced(before);
    QVERIFY2(shown.contains(u"Command cannot be executed!"_s), qPrintable(shown));
    QVERIFY2(shown.endsWith(stopped), qPrintable(shown));
    QCOMPARE(typeAndRead(u"list [info exists outer] [info exists inner]"_s),
             u"list [info exists outer] [info exists inner]\n1 0\nmorvalen > "_s);
}

void tst_BusyWindowStory::anActionIsDeletedWhileItRuns()
{
    const QString path = story->path(u"job.tcl"_s);
    Story::write(path, "puts begun\nwhile 1 {}\n");
    QPointer<AbstractScriptedAction> action =
        MorvalenCore::ScriptManager::instance()->createAction(u"text/x-tcl"_s, path);
    QVERIFY(action);
    action->setShowExecutionLog(true);
    meanwhile([&] {
        QVERIFY(ScriptRuns::instance()->isInPass());
        QFile::remove(path);
        delete action;
        QTimer::singleShot(100, &console(), [this] { key(Qt::Key_Escape); });
    });
    bool started = false;
    QCOMPARE(action->execute(&started, nullptr), 0);
    QVERIFY(started);
    QVERIFY(!action);
    QVERIFY(console().toPlainText().endsWith(u"begun\n"_s + stopped));
}

void tst_BusyWindowStory::aFailureHasItsStackInTheLog()
{
    QStringList errors;
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

void tst_BusyWindowStory::aFailingScriptHasItsPlacesInBothLogs()
{
    const QString scripts = story->session() + u"/Scripts/"_s;
    Story::write(scripts + u"lib.tcl"_s, "# a library\n\nproc f x {\n    nonsense $x\n}\n");
    Story::write(scripts + u"fails.tcl"_s, "source lib.tcl\nset a 1\nf 3\n");
    const QString stack = u"invalid command name \"nonsense\"\n    while executing\n"
                          "\"nonsense $x\"\n    (procedure \"f\" line 2, file \"%1lib.tcl\" "
                          "line 4)\n    invoked from within\n\"f 3\"\n"
                          "    (file \"%1fails.tcl\" line 3)"_s.arg(scripts);
    QStringList errors;
    const auto connection =
        connect(Logger::instance(), &Logger::messageLogged, this,
                [&](const QString &engine, Logger::MessageType type, const QString &text) {
                    if (type == Logger::Error)
                        errors.append(engine + u": "_s + text);
                });
    QAction *entry = story->entry('s', u"fails.tcl"_s);
    QVERIFY(entry);
    entry->trigger();
    story->closeMenus();
    QCOMPARE(errors,
             (QStringList {u": "_s + stack,
                           u": Script execution completed with an error, see the log for "
                           "details"_s,
                           u"Script.Exec.fails: "_s + stack}));
    errors.clear();
    story->type(u"f 4"_s);
    disconnect(connection);
    QCOMPARE(errors,
             QStringList {u": invalid command name \"nonsense\"\n    while executing\n"
                          "\"nonsense $x\"\n    (procedure \"f\" line 2, file \"%1lib.tcl\" "
                          "line 4)\n    invoked from within\n\"f 4\""_s.arg(scripts)});
}

TEST_CLASS(tst_BusyWindowStory)
#include "tst_BusyWindowStory.moc"
