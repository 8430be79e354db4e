#include "app/DesignsMode.h"
#include "app/MainWindow.h"
#include "app/window/ModeBar.h"
#include "app/window/ScriptMenu.h"
#include "console/QtclConsole.h"
#include "scripting/TclScriptManager.h"
#include "tests/scripting/ScriptingHost.h"
#include "tests/TestClass.h"

#include <Qtilities/QtilitiesApplication.h>

#include <QDir>
#include <QDockWidget>
#include <QMenuBar>
#include <QScreen>
#include <QSettings>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>
#include <QTreeView>

using namespace Qt::Literals::StringLiterals;
using Qtilities::CoreGui::QtilitiesApplication;
using Qtilities::Logging::Logger;
using TclScripting::TclScriptManager;

// The console is one per process and goes with its window, so that all tests share one window.
class tst_MainWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanupTestCase();

    void modesAreChosen_data();
    void modesAreChosen();
    void theConsoleHasTheFocus();
    void priorityMessagesShowInTheStatusBar();
    void theLogShowsTheSystemsMessages();

    void noDesignIsOpen();
    void designsAreListed();
    void aDoubleClickActivates();
    void theTitleNamesTheActiveDesign();

    void filesAreOpened_data();
    void filesAreOpened();

    void scriptsAreListed();
    void aScriptRuns();
    void aScriptRunsWithItsLog();
    void anEmptyScriptIsFilledLater();
    void aScriptIsGone();

    void closingSaves();
    void theLayoutIsKept();

private:
    QString scriptFolder() const { return session.filePath(u"Scripts"_s); }
    void write(const QString &path, const QByteArray &bytes) const;
    void removeScripts() const;
    QStringList entries() const;
    QAction *entry(const QString &text) const;
    template <typename Widget>
    Widget *find(const char *name) const
    {
        return window->findChild<Widget *>(QString::fromLatin1(name));
    }

    QTemporaryDir session;
    std::unique_ptr<ScriptingHost> host;
    Logger log;
    std::unique_ptr<MainWindow> window;
    QtclConsole *console = nullptr;
};

void tst_MainWindow::initTestCase()
{
    QVERIFY(session.isValid());
    QVERIFY(QDir(session.path()).mkdir(u"Scripts"_s));
    QtilitiesApplication::setApplicationSessionPath(session.path());
    host = std::make_unique<ScriptingHost>();
    // The real log, and the real place of extension widgets.
    Logger::setInstance(&log);
    MorvalenCore::MorvalenManager::setInstance(&host->program);

    window = std::make_unique<MainWindow>();
    QtilitiesApplication::setMainWindow(window.get());
    auto *scripting = new TclScriptManager(nullptr, window.get());
    window->addMode(scripting);
    window->activateMode(DesignsMode::id);
    window->show();
    QVERIFY(QTest::qWaitForWindowActive(window.get(), patient()));
    // The console was made as a child of the window, and does not show before its mode does.
    console = QtclConsole::getInstance(nullptr, QString());
    QVERIFY(!console->isVisible());
    window->activateMode(scripting->modeID());
    QVERIFY(console->isVisible());
}

void tst_MainWindow::init()
{
    removeScripts();
    host->journal.take();
}

void tst_MainWindow::cleanupTestCase()
{
    QDir::setCurrent(QDir::rootPath());
    window.reset();
    Logger::setInstance(nullptr);
    host.reset();
}

void tst_MainWindow::write(const QString &path, const QByteArray &bytes) const
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

void tst_MainWindow::removeScripts() const
{
    QDir folder(scriptFolder());
    const QStringList names = folder.entryList(QDir::Files);
    for (const QString &name : names)
        QVERIFY(folder.remove(name));
    QTRY_COMPARE(entries().constFirst(), u"No Scripts in the Session's Folder"_s);
}

QStringList tst_MainWindow::entries() const
{
    QStringList texts;
    const QList<QAction *> all = find<ScriptMenu>("scriptMenu")->actions();
    for (const QAction *action : all)
        texts.append(action->isSeparator() ? u"-"_s : action->text());
    return texts;
}

QAction *tst_MainWindow::entry(const QString &text) const
{
    const QList<QAction *> all = find<ScriptMenu>("scriptMenu")->actions();
    for (QAction *action : all) {
        if (action->text() == text)
            return action;
    }
    return nullptr;
}

void tst_MainWindow::modesAreChosen_data()
{
    QTest::addColumn<bool>("byMouse");
    QTest::newRow("mode-1 with the mouse") << true;
    QTest::newRow("mode-2 with the keyboard") << false;
}

void tst_MainWindow::modesAreChosen()
{
    QFETCH(const bool, byMouse);
    auto *bar = find<ModeBar>("modeBar");
    const QList<QAction *> buttons = bar->actions();
    QCOMPARE(buttons.size(), 2);
    QCOMPARE(buttons[0]->text(), u"Designs"_s);
    QCOMPARE(buttons[1]->text(), u"Scripting"_s);
    const auto press = [&](int number) {
        if (byMouse)
            QTest::mouseClick(bar->widgetForAction(buttons[number]), Qt::LeftButton);
        else
            QTest::keyClick(window.get(), Qt::Key(Qt::Key_1 + number), Qt::AltModifier);
    };

    press(0);
    QCOMPARE(window->activeMode(), 1);
    QVERIFY(buttons[0]->isChecked() && !buttons[1]->isChecked());
    QVERIFY(!console->isVisible());
    press(1);
    QCOMPARE(window->activeMode(), 105);
    QVERIFY(!buttons[0]->isChecked() && buttons[1]->isChecked());
    QVERIFY(console->isVisible());
    press(1);
    QCOMPARE(window->activeMode(), 105);
    window->activateMode(4711);
    QCOMPARE(window->activeMode(), 105);
}

void tst_MainWindow::theConsoleHasTheFocus()
{
    QCOMPARE(QApplication::focusWidget(), console);
    QTest::keyClicks(console, u"expr {6 * 7}"_s);
    QTest::keyClick(console, Qt::Key_Return);
    QVERIFY(console->toPlainText().endsWith(u"morvalen > expr {6 * 7}\n42\nmorvalen > "_s));
}

void tst_MainWindow::priorityMessagesShowInTheStatusBar()
{
    log.logMessage(QString(), Logger::Error, u"ordinary"_s);
    QVERIFY(window->statusBar()->currentMessage() != u"ordinary"_s);
    log.logPriorityMessage(QString(), Logger::Error, u"urgent"_s);
    QCOMPARE(window->statusBar()->currentMessage(), u"urgent"_s);
}

void tst_MainWindow::theLogShowsTheSystemsMessages()
{
    const auto *view = find<QDockWidget>("logDock")->findChild<QTableView *>();
    QVERIFY(view);
    const auto lastLine = [view] {
        const QAbstractItemModel *model = view->model();
        return model->index(model->rowCount() - 1, model->columnCount() - 1).data().toString();
    };
    log.logMessage(QString(), Logger::Info, u"for all"_s);
    QTRY_COMPARE(lastLine(), u"for all"_s);
    log.logMessage(u"Somebody else"_s, Logger::Info, u"for somebody else"_s);
    log.logMessage(QString(), Logger::Info, u"for all again"_s);
    QTRY_COMPARE(lastLine(), u"for all again"_s);
    const QAbstractItemModel *model = view->model();
    QCOMPARE(model->index(model->rowCount() - 2, model->columnCount() - 1).data().toString(),
             u"for all"_s);
}

void tst_MainWindow::noDesignIsOpen()
{
    window->activateMode(DesignsMode::id);
    QVERIFY(!find<QTreeView>("designs")->isVisible());
}

void tst_MainWindow::designsAreListed()
{
    const auto *tree = find<QTreeView>("designs");
    const QAbstractItemModel *model = tree->model();
    window->activateMode(DesignsMode::id);
    host->designManager.openDesign(u"uart"_s)->folderPath = u"/area/uart"_s;
    FakeDesign *fifo = host->designManager.openDesign(u"fifo"_s);
    host->designManager.active = {fifo};
    Q_EMIT host->designManager.designAttached(QString());
    Q_EMIT host->designManager.activeDesignChanged();
    QTRY_COMPARE(model->rowCount(), 2);
    QVERIFY(tree->isVisible());
    const auto texts = [model](int row) {
        QStringList list;
        for (int column = 0; column < model->columnCount(); ++column)
            list.append(model->index(row, column).data().toString());
        return list;
    };
    const auto isBold = [model](int row) {
        return model->index(row, 0).data(Qt::FontRole).value<QFont>().bold();
    };
    const QString details = u"Custom Design 1.0"_s;
    QCOMPARE(texts(0), (QStringList {u"uart"_s, details, QString(), QString()}));
    QCOMPARE(model->index(0, 0).data(Qt::ToolTipRole).toString(),
             u"acme.global.uart.1.0\n/area/uart"_s);
    QVERIFY(!isBold(0));
    QCOMPARE(texts(1), (QStringList {u"fifo"_s, details, u"Active, No folder"_s, QString()}));
    QVERIFY(isBold(1));
}

void tst_MainWindow::aDoubleClickActivates()
{
    auto *tree = find<QTreeView>("designs");
    QCOMPARE(tree->model()->rowCount(), 2);
    host->journal.take();
    const QPoint row = tree->visualRect(tree->model()->index(0, 0)).center();
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, row);
    QTest::mouseDClick(tree->viewport(), Qt::LeftButton, {}, row);
    QCOMPARE(host->journal.take(),
             QStringList {u"manager.setActiveDesign(acme.global.uart.1.0)"_s});
}

void tst_MainWindow::theTitleNamesTheActiveDesign()
{
    host->designManager.active = {host->designManager.open.first()};
    Q_EMIT host->designManager.activeDesignChanged();
    QCOMPARE(window->windowTitle(), u"uart \u2013 Morvalen"_s);
    host->designManager.active = {nullptr};
    Q_EMIT host->designManager.activeDesignChanged();
    QCOMPARE(window->windowTitle(), u"Morvalen"_s);
    host->designManager.active.clear();
    Q_EMIT host->designManager.activeDesignChanged();
    QCOMPARE(window->windowTitle(), u"Morvalen"_s);
}

void tst_MainWindow::filesAreOpened_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("call");
    const QString design = u"manager.parseDesignFromFile(, %1)"_s;
    QTest::newRow("open-1 a component")
        << QByteArray("<?xml version=\"1.0\"?>\n<!-- x -->\n<i:component xmlns:i=\"urn:i\"/>")
        << design;
    QTest::newRow("open-2 not XML") << QByteArray("once upon a time") << design;
    QTest::newRow("open-3 empty") << QByteArray("") << design;
    QTest::newRow("open-4 missing") << QByteArray() << design;
    QTest::newRow("open-5 a project")
        << QByteArray("<?xml version=\"1.0\"?>\n<project version=\"1\"/>")
        << u"projects.openProject(%1)"_s;
    QTest::newRow("open-6 a component that names projects")
        << QByteArray("<component><project/></component>") << design;
}

void tst_MainWindow::filesAreOpened()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, call);
    const QString path = session.filePath(u"a file.xml"_s);
    QFile::remove(path);
    if (!bytes.isNull())
        write(path, bytes);
    window->openFiles({path});
    QCOMPARE(host->journal.take(), QStringList {call.arg(path)});
}

void tst_MainWindow::scriptsAreListed()
{
    const QStringList tail {u"-"_s,
                            u"&Run Script in Editor"_s,
                            u"Run Last Script &Again"_s,
                            u"&Stop Running Script"_s,
                            u"Show Execution &Log"_s,
                            u"-"_s,
                            u"&New Script..."_s,
                            u"&Edit Script"_s,
                            u"Save Recorded &Commands..."_s,
                            u"Open Scripts &Folder"_s};
    QCOMPARE(entries(), QStringList {u"No Scripts in the Session's Folder"_s} + tail);
    write(scriptFolder() + u"/b & c.tcl"_s, "set x 1");
    write(scriptFolder() + u"/A.tcl"_s, "set x 1");
    write(scriptFolder() + u"/notes.txt"_s, "set x 1");
    QVERIFY(QDir(scriptFolder()).mkdir(u"folder.tcl"_s));
    QTRY_COMPARE(entries(), (QStringList {u"A.tcl"_s, u"b && c.tcl"_s} + tail));
    QVERIFY(QDir(scriptFolder()).rmdir(u"folder.tcl"_s));
    QVERIFY(QFile::remove(scriptFolder() + u"/A.tcl"_s));
    QTRY_COMPARE(entries(), QStringList {u"b && c.tcl"_s} + tail);
}

void tst_MainWindow::aScriptRuns()
{
    write(scriptFolder() + u"/job.tcl"_s, "puts {the job ran}");
    QTRY_VERIFY(entry(u"job.tcl"_s));
    entry(u"Show Execution &Log"_s)->setChecked(false);
    const auto docks = window->findChildren<QDockWidget *>().size();
    entry(u"job.tcl"_s)->trigger();
    QVERIFY(console->toPlainText().contains(u"the job ran"_s));
    QCOMPARE(window->findChildren<QDockWidget *>().size(), docks);
    QCOMPARE(window->statusBar()->currentMessage(),
             u"Successfully executed script: "_s + scriptFolder() + u"/job.tcl"_s);
}

void tst_MainWindow::aScriptRunsWithItsLog()
{
    write(scriptFolder() + u"/job.tcl"_s, "puts {the job ran}");
    QTRY_VERIFY(entry(u"job.tcl"_s));
    entry(u"Show Execution &Log"_s)->setChecked(true);
    entry(u"job.tcl"_s)->trigger();
    const auto logDock = [this]() -> QDockWidget * {
        const auto docks = window->findChildren<QDockWidget *>();
        for (QDockWidget *dock : docks) {
            if (dock->windowTitle() == u"Script Execution Log: job"_s)
                return dock;
        }
        return nullptr;
    };
    QPointer<QDockWidget> dock = logDock();
    QVERIFY(dock);
    QTRY_VERIFY(dock->isVisible());
    QPointer<QWidget> shown = dock->widget();
    entry(u"job.tcl"_s)->trigger();
    QCOMPARE(logDock(), dock);
    QCOMPARE(dock->widget(), shown);

    QVERIFY(dock->close());
    QTRY_VERIFY(!dock && !shown);
    entry(u"job.tcl"_s)->trigger();
    QVERIFY(logDock());
    logDock()->close();
}

void tst_MainWindow::anEmptyScriptIsFilledLater()
{
    write(scriptFolder() + u"/job.tcl"_s, "");
    QTRY_VERIFY(entry(u"job.tcl"_s));
    entry(u"Show Execution &Log"_s)->setChecked(false);
    entry(u"job.tcl"_s)->trigger();
    QCOMPARE(window->statusBar()->currentMessage(),
             u"Command cannot be executed! Script file is empty."_s);
    write(scriptFolder() + u"/job.tcl"_s, "puts {it has contents now}");
    entry(u"job.tcl"_s)->trigger();
    QVERIFY(console->toPlainText().contains(u"it has contents now"_s));
}

void tst_MainWindow::aScriptIsGone()
{
    write(scriptFolder() + u"/job.tcl"_s, "set x 1");
    QTRY_VERIFY(entry(u"job.tcl"_s));
    QVERIFY(QFile::remove(scriptFolder() + u"/job.tcl"_s));
    QSignalSpy messages(&log, &Logger::priorityMessage);
    find<ScriptMenu>("scriptMenu")->run(scriptFolder() + u"/job.tcl"_s);
    QCOMPARE(messages.size(), 1);
    QCOMPARE(messages.first().at(1).toString(),
             u"Executing script failed. The script file does not exist at path: "_s + scriptFolder()
                 + u"/job.tcl"_s);
}

void tst_MainWindow::closingSaves()
{
    QSignalSpy closed(window.get(), &MainWindow::closed);
    window->close();
    QCOMPARE(host->journal.take(), QStringList {u"manager.prepareForShutdown(0)"_s});
    QCOMPARE(closed.size(), 1);
    window->show();
}

void tst_MainWindow::theLayoutIsKept()
{
    const QSize size(760, 640); // within the screen, to which Qt 6.8 restores
    window->resize(size);
    window->close();
    QSettings settings(QtilitiesApplication::settingsFileName(), QSettings::IniFormat);
    QVERIFY(settings.contains(u"Window/geometry"_s));
    QCOMPARE(MainWindow().size(), size);
    settings.setValue(u"Window/geometry"_s, QByteArray("nonsense"));
    settings.sync();
    // The usual size, as far as the screen has room for it and a frame.
    const QSize screen = QGuiApplication::primaryScreen()->availableSize();
    QCOMPARE(MainWindow().size(), QSize(1180, 780).boundedTo(screen * 94 / 100));
}

TEST_CLASS(tst_MainWindow)
#include "tst_MainWindow.moc"
