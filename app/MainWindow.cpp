#include "app/MainWindow.h"

#include "app/ModeBar.h"
#include "app/openfile.h"
#include "app/programend.h"
#include "app/ScriptMenu.h"

#include <MorvalenCore/DesignManager.h>
#include <MorvalenCore/MorvalenManager.h>
#include <Qtilities/Logger.h>
#include <Qtilities/LoggerGui.h>
#include <Qtilities/QtilitiesApplication.h>

#include <QCloseEvent>
#include <QDockWidget>
#include <QFileDialog>
#include <QMenuBar>
#include <QSettings>
#include <QStackedWidget>
#include <QStatusBar>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;
using MorvalenCore::ExtensionWidgetParameters;
using MorvalenCore::MorvalenManager;
using Qtilities::CoreGui::LoggerGui;
using Qtilities::CoreGui::QtilitiesApplication;
using Qtilities::CoreGui::Interfaces::IMode;
using Qtilities::Logging::Logger;

namespace {

constexpr QSize usualSize(1180, 780);
constexpr int logHeight = 190;
constexpr int messageMilliseconds = 15'000;
// Changes with the set of docks and tool bars, so that an old layout is not restored wrongly.
constexpr int layoutVersion = 1;

} // namespace

MainWindow::MainWindow(QWidget *parent)
    : QMainWindow(parent),
      modeBar(new ModeBar(this)),
      stack(new QStackedWidget(this))
{
    setObjectName(u"mainWindow"_s);
    setWindowIcon(QIcon(u":/morvalen/morvalen.png"_s));
    addToolBar(Qt::LeftToolBarArea, modeBar);
    setCentralWidget(stack);
    createLogDock();
    createMenus();
    connect(modeBar, &ModeBar::chosen, this, &MainWindow::activateMode);
    connect(MorvalenManager::instance(), &MorvalenManager::extensionWidgetAdded, this,
            &MainWindow::showExtensionWidget);
    connect(DesignManager::instance(), &DesignManager::activeDesignChanged, this,
            &MainWindow::updateTitle);
    connect(Logger::instance(), &Logger::priorityMessage, statusBar(),
            [bar = statusBar()](Logger::MessageType, const QString &text) {
                bar->showMessage(text, messageMilliseconds);
            });
    updateTitle();
    restoreLayout();
}

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
    if (!mode || id == currentMode)
        return;
    currentMode = id;
    modeBar->choose(id);
    mode->aboutToBeActivated();
    stack->setCurrentWidget(mode->modeWidget());
    mode->justActivated();
    const auto *window = qobject_cast<QMainWindow *>(mode->modeWidget());
    QWidget *main = window ? window->centralWidget() : mode->modeWidget();
    main->setFocus();
}

void MainWindow::openFiles(const QStringList &files)
{
    for (const QString &file : files)
        openFile(file);
}

void MainWindow::showExtensionWidget(const ExtensionWidgetParameters &parameters)
{
    QWidget *widget = parameters.widget;
    if (!widget)
        return;
    QPointer<QDockWidget> &dock = extensionDocks[widget];
    if (!dock) {
        dock = new QDockWidget(parameters.title, this);
        dock->setAttribute(Qt::WA_DeleteOnClose);
        dock->setWidget(widget);
        addDockWidget(Qt::BottomDockWidgetArea, dock);
        tabifyDockWidget(logDock, dock);
        connect(widget, &QObject::destroyed, dock, &QObject::deleteLater);
        connect(widget, &QObject::destroyed, this,
                [this, widget] { extensionDocks.remove(widget); });
    }
    dock->show();
    dock->raise();
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    saveLayout();
    programend::save();
    event->accept();
    Q_EMIT closed();
}

void MainWindow::createLogDock()
{
    logDock = new QDockWidget(tr("Log"), this);
    logDock->setObjectName(u"logDock"_s);
    logDock->setWidget(LoggerGui::createSystemLogWidget(tr("Log")));
    addDockWidget(Qt::BottomDockWidgetArea, logDock);
    resizeDocks({logDock}, {logHeight}, Qt::Vertical);
}

void MainWindow::createMenus()
{
    QMenu *file = menuBar()->addMenu(tr("&File"));
    connect(file->addAction(tr("&Open..."), QKeySequence::Open), &QAction::triggered, this,
            &MainWindow::askForFiles);
    file->addSeparator();
    connect(file->addAction(tr("&Quit"), QKeySequence::Quit), &QAction::triggered, this,
            &QWidget::close);
    const QString scripts = QtilitiesApplication::applicationSessionPath() + u"/Scripts"_s;
    menuBar()->addMenu(new ScriptMenu(scripts, this));
    menuBar()->addMenu(tr("&View"))->addAction(logDock->toggleViewAction());
}

void MainWindow::restoreLayout()
{
    resize(usualSize);
    const QSettings settings(QtilitiesApplication::settingsFileName(), QSettings::IniFormat);
    restoreGeometry(settings.value(u"Window/geometry"_s).toByteArray());
    restoreState(settings.value(u"Window/state"_s).toByteArray(), layoutVersion);
}

void MainWindow::saveLayout() const
{
    QSettings settings(QtilitiesApplication::settingsFileName(), QSettings::IniFormat);
    settings.setValue(u"Window/geometry"_s, saveGeometry());
    settings.setValue(u"Window/state"_s, saveState(layoutVersion));
}

void MainWindow::askForFiles()
{
    openFiles(
        QFileDialog::getOpenFileNames(this, tr("Open Components and Projects"),
                                      DesignManager::instance()->path(DesignManager::DesignsPath),
                                      tr("Components and projects (*.xml);;All files (*)")));
}

void MainWindow::updateTitle()
{
    const auto active = DesignManager::instance()->activeDesigns();
    const QString program = u"Morvalen"_s;
    if (active.isEmpty() || !active.first())
        setWindowTitle(program);
    else
        setWindowTitle(active.first()->name() + u" \u2013 "_s + program);
}
