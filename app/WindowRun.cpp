#include "app/WindowRun.h"

#include "app/DesignsMode.h"
#include "app/editor/WindowEditorManager.h"
#include "app/issues/IssueSources.h"
#include "app/journal/CommandJournal.h"
#include "app/live/LiveWindow.h"
#include "app/MainWindow.h"
#include "app/process/BuildInterrupt.h"
#include "app/process/programend.h"
#include "console/QtclConsole.h"
#include "ensemble/ensemble.h"
#include "interp/commandsManager.h"
#include "interp/errorstack.h"
#include "interp/QtNotifier.h"
#include "scripting/TclScriptedAction.h"
#include "scripting/TclScriptManager.h"

#include <Qtilities/Logger.h>
#include <Qtilities/QtilitiesApplication.h>

#include <QFileInfo>
#include <QTimer>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::EditorManager;
using Qtilities::CoreGui::QtilitiesApplication;
using Qtilities::Logging::Logger;
using TclScripting::TclScriptManager;

namespace {

// A start-up script that takes longer is seen at work, and can be stopped.
constexpr int longStart = 500; // milliseconds

// A script that waits for an event must not keep the program alive without a window: the timer
// fires in the script's own wait, if there is one.
QMetaObject::Connection endWith(const MainWindow *window)
{
    return QObject::connect(window, &MainWindow::closed, qApp, [] {
        QCoreApplication::quit();
        QTimer::singleShot(0, qApp, [] { programend::leave(0); });
    });
}

// Runs the start-up script.
TclScriptManager *startScripting(MainWindow *window)
{
    QTimer patience;
    patience.setSingleShot(true);
    patience.callOnTimeout(window, &MainWindow::showWhileStarting);
    patience.start(longStart);
    const QMetaObject::Connection end = endWith(window);
    auto *scripting = new TclScriptManager(nullptr, window);
    QObject::disconnect(end);
    return scripting;
}

} // namespace

WindowRun::WindowRun(const QStringList &files) : mainWindow(std::make_unique<MainWindow>())
{
    MainWindow *window = mainWindow.get();
    CommandJournal::instance()->open();
    ensemble::setJournal([] { return CommandJournal::instance()->text(); });
    QtilitiesApplication::setMainWindow(window);
    Qtk_KeepWindowAlive(LiveWindow::pass);
    TclScripting::TclScriptedAction::setLogsHoldMessages(true);
    const auto tellOfErrors = [window] {
        errorstack::setReceiver([window](const QString &stack) {
            Logger::instance()->logMessage(QString(), Logger::Error, stack);
            window->issueSources()->takeStack(stack);
        });
    };
    // That there is no start-up script is no error to tell of.
    if (QFileInfo::exists(QtilitiesApplication::applicationSessionPath()
                          + u"/Scripts/startup.tcl"_s))
        tellOfErrors();
    window->followRuns();
    QObject::connect(&termination, &TerminationSignal::arrived, window, &MainWindow::closeSoon);
    TclScriptManager *scripting = startScripting(window);
    tellOfErrors();
    programend::prepare(commandsManager::getInstance(nullptr)->interp);
    window->addMode(scripting);
    window->adoptConsole(QtclConsole::getInstance(nullptr, QString()));
    DesignsMode *designs = window->designsMode();
    auto *editors = new WindowEditorManager(designs->editorArea(), designs);
    EditorManager::setInstance(editors);
    QObject::connect(editors, &WindowEditorManager::bringUpRequested, window,
                     [window] { window->activateMode(DesignsMode::id); });
    window->activateMode(files.isEmpty() ? scripting->modeID() : DesignsMode::id);
    window->show();
    programend::setExitHook([window] { window->prepareForEnd(); });
    QTimer::singleShot(0, window, [window, files] {
        window->reopen();
        if (!files.isEmpty())
            window->activateMode(DesignsMode::id);
        window->openFiles(files);
        window->offerKeptTexts();
    });
}

WindowRun::~WindowRun()
{
    programend::setExitHook({});
    errorstack::setReceiver({});
}

int WindowRun::run()
{
    const BuildInterrupt interrupt;
    endWith(mainWindow.get());
    return QCoreApplication::exec();
}
