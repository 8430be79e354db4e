#include "app/MainWindow.h"

#include "app/builds/BuildMenu.h"
#include "app/builds/buildpages.h"
#include "app/builds/BuildProgress.h"
#include "app/calls/ChangeOrigins.h"
#include "app/calls/openfile.h"
#include "app/calls/runagain.h"
#include "app/designs/DesignTree.h"
#include "app/designs/DesignTreeView.h"
#include "app/DesignsMode.h"
#include "app/editor/EditorArea.h"
#include "app/ending/Leaving.h"
#include "app/ending/SuddenEnd.h"
#include "app/file/FileMenu.h"
#include "app/find/FileSearch.h"
#include "app/find/FindTools.h"
#include "app/help/HelpDock.h"
#include "app/help/HelpMenu.h"
#include "app/issues/IssueList.h"
#include "app/issues/IssueMarks.h"
#include "app/issues/IssueSources.h"
#include "app/issues/IssuesView.h"
#include "app/issues/WindowLinks.h"
#include "app/journal/JournalDock.h"
#include "app/journal/journaling.h"
#include "app/keeping/TextKeeper.h"
#include "app/live/LiveWindow.h"
#include "app/live/passrules.h"
#include "app/live/RunStatus.h"
#include "app/OpenThings.h"
#include "app/preferences/PreferencesDialog.h"
#include "app/process/programend.h"
#include "app/session/RecentFiles.h"
#include "app/window/EditMenu.h"
#include "app/window/ExtensionDocks.h"
#include "app/window/FocusMark.h"
#include "app/window/MenuKey.h"
#include "app/window/ModeBar.h"
#include "app/window/PaneKeys.h"
#include "app/window/RedoKey.h"
#include "app/window/ScriptMenu.h"
#include "app/window/ScriptsView.h"
#include "app/window/themes.h"
#include "app/window/ViewMenu.h"
#include "app/window/windowicons.h"
#include "app/window/windowlayout.h"
#include "app/WindowConsole.h"
#include "console/QtclConsole.h"

#include <MorvalenCore/DesignManager.h>
#include <Qtilities/Logger.h>
#include <Qtilities/LoggerGui.h>
#include <Qtilities/ProjectManager.h>
#include <Qtilities/QtilitiesApplication.h>

#include <QCloseEvent>
#include <QDockWidget>
#include <QMenuBar>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTextBrowser>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;
using Qtilities::CoreGui::LoggerGui;
using Qtilities::CoreGui::QtilitiesApplication;
using Qtilities::CoreGui::Interfaces::IMode;
using Qtilities::Logging::Logger;
using Qtilities::ProjectManagement::ProjectManager;

namespace {

constexpr int logHeight = 190;
// How much room the tree gets at first, at most so many hundredths of the window.
constexpr int treeCharacters = 76;
constexpr int treeShare = 60;
constexpr int messageMilliseconds = 15'000;

} // namespace

MainWindow::MainWindow(QWidget *parent)
    : QMainWindow(parent),
      modeBar(new ModeBar(this)),
      stack(new QStackedWidget(this)),
      designs(new DesignsMode(this)),
      tree(new DesignTree(this)),
      leaving(new Leaving(designs->editorArea(), this)),
      keeper(new TextKeeper(designs->editorArea(), this)),
      openThings(new OpenThings(this)),
      suddenEnd(new SuddenEnd(designs->editorArea(), keeper, this)),
      helpDock(new HelpDock(this)),
      links(std::make_unique<WindowLinks>()),
      issueList(new IssueList(this)),
      issues(new IssueSources(issueList, this)),
      console(new WindowConsole(this))
{
    setObjectName(u"mainWindow"_s);
    themes::apply();
    setWindowIcon(QIcon(u":/morvalen/morvalen.png"_s));
    addToolBar(Qt::LeftToolBarArea, modeBar);
    setCentralWidget(stack);
    createTreeDock();
    createLogDock();
    createIssuesDock();
    addDockWidget(Qt::RightDockWidgetArea, helpDock);
    helpDock->hide();
    connect(helpDock, &HelpDock::opened, this,
            [this](QTextBrowser *text) { links->attachTo(text); });
    createMenus();
    statusBar()->addPermanentWidget(new BuildProgress(this));
    new RecentFiles(this);
    new ChangeOrigins(this);
    connect(suddenEnd, &SuddenEnd::ending, openThings, &OpenThings::write);
    connect(leaving, &Leaving::asking, openThings, &OpenThings::holdPages);
    connect(leaving, &Leaving::answered, openThings, [this](bool agreed) {
        if (!agreed)
            openThings->letGoPages();
    });
    connect(modeBar, &ModeBar::chosen, this, &MainWindow::activateMode);
    new ExtensionDocks(logDock, this);
    connect(DesignManager::instance(), &DesignManager::activeDesignChanged, this,
            &MainWindow::updateTitle);
    connect(ProjectManager::instance(), &ProjectManager::currentProjectChanged, this,
            &MainWindow::updateTitle);
    connect(Logger::instance(), &Logger::priorityMessage, statusBar(),
            [bar = statusBar()](Logger::MessageType, const QString &text) {
                bar->showMessage(text, messageMilliseconds);
            });
    addMode(designs);
    windowicons::give(this);
    new FocusMark(this);
    new RedoKey(this);
    new MenuKey(this);
    updateTitle();
    windowlayout::restore(this);
}

MainWindow::~MainWindow() = default;

void MainWindow::addMode(IMode *mode)
{
    modes.insert(mode->modeID(), mode);
    // The console is a child of the window from the start; its mode takes it out of sight.
    mode->initializeMode();
    stack->addWidget(mode->modeWidget());
    modeBar->addMode(mode->modeID(), mode->modeIcon(), mode->modeName());
}

void MainWindow::activateMode(int id)
{
    IMode *mode = modes.value(id);
    if (!mode)
        return;
    if (id == currentMode) {
        focusMode(mode);
        return;
    }
    currentMode = id;
    modeBar->choose(id);
    mode->aboutToBeActivated();
    stack->setCurrentWidget(mode->modeWidget());
    mode->justActivated();
    focusMode(mode);
}

void MainWindow::focusMode(IMode *mode)
{
    if (mode == designs && tree->isVisible())
        return tree->takeFocus();
    const auto *window = qobject_cast<QMainWindow *>(mode->modeWidget());
    QWidget *main = window ? window->centralWidget() : mode->modeWidget();
    main->setFocus();
}

void MainWindow::followRuns()
{
    statusBar()->addPermanentWidget(new RunStatus(this));
    new LiveWindow(this);
    findChild<ScriptMenu *>()->followRuns();
    for (const QString &name : {u"stopRunningScript"_s, u"fullScreen"_s, u"quit"_s})
        passrules::letWork(findChild<QAction *>(name));
}

// The mode that is to have the console comes when the script has ended.
void MainWindow::showWhileStarting()
{
    auto *starting = findChild<QtclConsole *>();
    if (!starting || isVisible())
        return;
    starting->keepTypedKeys();
    stack->addWidget(starting);
    stack->setCurrentWidget(starting);
    show();
    starting->setFocus();
}

void MainWindow::adoptConsole(QtclConsole *adopted)
{
    console->adopt(adopted);
    adopted->show(); // showWhileStarting() may have had it elsewhere
    paneKeys->add(adopted);
    links->attachTo(adopted);
    issues->followRuns();
}

void MainWindow::reopen() { openThings->restore(); }

void MainWindow::openFiles(const QStringList &files)
{
    for (const QString &file : files) {
        // One that was reopened already only comes to the front.
        if (!activateOpen(file))
            static_cast<void>(openFile(file));
    }
}

void MainWindow::closeSoon()
{
    suddenEnd->secure(tr("The program is asked to end from outside"));
    close();
}

void MainWindow::offerKeptTexts() { keeper->offer(this); }

void MainWindow::prepareForEnd()
{
    // What could not be saved is offered again.
    if (leaving->settleForGood())
        keeper->end();
    else
        keeper->keepNow();
    remember();
    // The libraries that threads use are gone before the process is.
    tree->endLooking();
    for (FileSearch *search : findChildren<FileSearch *>())
        search->end();
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    if (!leaving->mayLeave()) {
        event->ignore();
        return;
    }
    remember();
    keeper->end();
    programend::save();
    event->accept();
    Q_EMIT closed();
}

void MainWindow::createTreeDock()
{
    treeDock = new QDockWidget(tr("Designs"), this);
    treeDock->setObjectName(u"treeDock"_s);
    treeDock->setWidget(tree);
    addDockWidget(Qt::LeftDockWidgetArea, treeDock);
    const int widest = windowlayout::firstSize(this).width() * treeShare / 100;
    resizeDocks({treeDock}, {qMin(fontMetrics().averageCharWidth() * treeCharacters, widest)},
                Qt::Horizontal);
    connect(tree, &DesignTree::configurationActivated, this, &MainWindow::showConfiguration);
}

void MainWindow::showConfiguration(const QString &designId, const QString &name)
{
    activateMode(DesignsMode::id);
    buildpages::show(designs->editorArea(), designId, name);
}

void MainWindow::createLogDock()
{
    logDock = new QDockWidget(tr("Log"), this);
    logDock->setObjectName(u"logDock"_s);
    logDock->setWidget(LoggerGui::createSystemLogWidget(tr("Log")));
    addDockWidget(Qt::BottomDockWidgetArea, logDock);
    resizeDocks({logDock}, {logHeight}, Qt::Vertical);
}

void MainWindow::createIssuesDock()
{
    issuesDock = new QDockWidget(tr("Issues"), this);
    issuesDock->setObjectName(u"issuesDock"_s);
    issuesView = new IssuesView(issueList, issuesDock);
    issuesDock->setWidget(issuesView);
    addDockWidget(Qt::BottomDockWidgetArea, issuesDock);
    tabifyDockWidget(logDock, issuesDock);
    journalDock = new JournalDock(this);
    addDockWidget(Qt::BottomDockWidgetArea, journalDock);
    tabifyDockWidget(issuesDock, journalDock);
    connect(journalDock, &JournalDock::runWanted, this,
            [this](const QStringList &entries) { runAgain(entries, console->console()); });
    logDock->raise();
    new IssueMarks(issueList, designs->editorArea(), this);
}

void MainWindow::createMenus()
{
    auto *file = new FileMenu(designs->editorArea(), this);
    connect(file, &FileMenu::preferencesWanted, this, [this] { askForPreferences(); });
    connect(file, &FileMenu::quitWanted, this, &QWidget::close);
    auto *view = new ViewMenu(modeBar, this);
    view->addDock(treeDock->toggleViewAction());
    view->addDock(logDock->toggleViewAction());
    view->addDock(issuesDock->toggleViewAction());
    view->addDock(journalDock->toggleViewAction());
    view->addDock(helpDock->toggleViewAction());
    auto *panes = new PaneKeys(this);
    for (QWidget *pane : std::initializer_list<QWidget *> {tree, designs->editorArea()})
        panes->add(pane);
    for (QDockWidget *dock : {logDock, issuesDock, static_cast<QDockWidget *>(journalDock),
                              static_cast<QDockWidget *>(helpDock)})
        panes->add(dock->widget());
    paneKeys = panes;
    view->addPlaces({issuesView->nextAction(), issuesView->previousAction(), panes->nextAction(),
                     panes->previousAction()});
    auto *help = new HelpMenu(this);
    connect(help, &HelpMenu::manualWanted, helpDock, &HelpDock::showCommand);
    auto *build = new BuildMenu(this);
    connect(build, &BuildMenu::configurationActivated, this, &MainWindow::showConfiguration);
    const QString scripts = QtilitiesApplication::applicationSessionPath() + u"/Scripts"_s;
    auto *scriptMenu = new ScriptMenu(scripts, this);
    scriptMenu->followEditors(designs->editorArea());
    createScriptsDock(scripts, scriptMenu, view);
    createFindTools(scriptMenu, view);
    auto *edit = new EditMenu(designs->editorArea()->editorActions(), this);
    edit->addPane({tree->treeView(), [this](QKeyCombination key) { return tree->canRun(key); },
                   [this](QKeyCombination key) { tree->runKey(key); }});
    for (QMenu *menu : std::initializer_list<QMenu *> {file, edit, view, build, scriptMenu, help})
        menuBar()->addMenu(menu);
}

void MainWindow::createScriptsDock(const QString &scripts, ScriptMenu *menu, ViewMenu *view)
{
    auto *scriptsDock = new QDockWidget(tr("Scripts"), this);
    scriptsDock->setObjectName(u"scriptsDock"_s);
    auto *scriptsView = new ScriptsView(scripts, scriptsDock);
    scriptsDock->setWidget(scriptsView);
    addDockWidget(Qt::RightDockWidgetArea, scriptsDock);
    scriptsDock->hide();
    view->addDock(scriptsDock->toggleViewAction());
    connect(scriptsView, &ScriptsView::editWanted, menu, &ScriptMenu::edit);
    connect(scriptsView, &ScriptsView::runWanted, menu, &ScriptMenu::run);
    connect(scriptsView, &ScriptsView::newWanted, menu, &ScriptMenu::makeScript);
}

void MainWindow::createFindTools(ScriptMenu *scripts, ViewMenu *view)
{
    auto *finding = new FindTools(designs->editorArea(), this);
    tabifyDockWidget(logDock, finding->dock());
    view->addDock(finding->dock()->toggleViewAction());
    view->addPlaces({finding->locateAction(), finding->findAction()});
    connect(finding, &FindTools::commandWanted, helpDock, &HelpDock::showCommand);
    connect(finding, &FindTools::settingWanted, this, &MainWindow::askForPreferences);
    connect(finding, &FindTools::designWanted, this, [this](const QString &id) {
        activateMode(DesignsMode::id);
        DesignManager::instance()->setActiveDesign(id);
        journaling::activated(id);
    });
    connect(finding, &FindTools::locatorWanted, this, [finding, scripts] {
        finding->showLocator(scripts->scripts(), PreferencesDialog::pageTitles());
    });
}

void MainWindow::askForPreferences(const QString &page)
{
    PreferencesDialog dialog(this);
    dialog.showPage(page);
    connect(&dialog, &PreferencesDialog::applied, this, &MainWindow::followPreferences);
    dialog.exec();
}

void MainWindow::followPreferences()
{
    themes::apply();
    console->followPreferences();
}

// Nothing ends it suddenly from here on.
void MainWindow::remember()
{
    suddenEnd->disarm();
    windowlayout::save(this);
    openThings->write();
    console->remember();
}

void MainWindow::updateTitle()
{
    const auto active = DesignManager::instance()->activeDesigns();
    QStringList parts;
    if (!active.isEmpty() && active.first())
        parts.append(active.first()->name());
    if (ProjectManager::instance()->currentProject())
        parts.append(ProjectManager::instance()->currentProjectName());
    parts.append(u"Morvalen"_s);
    setWindowTitle(parts.join(u" \u2013 "_s));
}
