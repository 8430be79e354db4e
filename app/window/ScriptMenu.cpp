#include "app/window/ScriptMenu.h"
#include "app/journal/journaling.h"

#include "app/drawing/actionicons.h"
#include "app/editor/EditorArea.h"
#include "app/editor/EditorPage.h"
#include "app/messages/messages.h"
#include "app/window/scriptfiles.h"
#include "console/QtclConsole.h"
#include "interp/ScriptRuns.h"

#include <MorvalenCore/ScriptManager.h>
#include <Qtilities/Logger.h>

#include <QDirIterator>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::AbstractScriptedAction;
using Qtilities::Logging::Logger;

namespace {

// Of sub-folders.
constexpr int mostWatched = 500;

// For the text of an action, where an ampersand marks a key.
QString nameOf(const QString &script)
{
    return QFileInfo(script).fileName().replace(u'&', u"&&"_s);
}

} // namespace

ScriptMenu::ScriptMenu(const QString &folder, QWidget *parent)
    : QMenu(tr("&Scripts"), parent),
      scriptFolder(folder),
      editing(new QMenu(tr("&Edit Script"), this)),
      runAgain(new QAction(tr("Run Last Script &Again"), this)),
      runEditor(new QAction(tr("&Run Script in Editor"), this)),
      create(new QAction(tr("&New Script..."), this)),
      record(new QAction(tr("Save Recorded &Commands..."), this)),
      showLog(new QAction(tr("Show Execution &Log"), this)),
      stop(new QAction(tr("&Stop Running Script"), this))
{
    stop->setObjectName(u"stopRunningScript"_s);
    stop->setEnabled(false);
    setObjectName(u"scriptMenu"_s);
    showLog->setObjectName(u"showExecutionLog"_s);
    showLog->setCheckable(true);
    showLog->setChecked(true);
    runAgain->setObjectName(u"runLastScript"_s);
    runAgain->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_R);
    runAgain->setEnabled(false);
    runEditor->setObjectName(u"runShownScript"_s);
    runEditor->setShortcut(Qt::Key_F5);
    runEditor->setEnabled(false);
    create->setObjectName(u"newScript"_s);
    record->setObjectName(u"saveRecorded"_s);
    editing->setObjectName(u"editScript"_s);
    editing->setIcon(actionicons::icon(ActionIcon::Edit));
    // A menu disconnects what is taken out of it from itself.
    connect(runAgain, &QAction::triggered, runAgain, [this] { run(QString(lastScript)); });
    connect(runEditor, &QAction::triggered, runEditor, [this] { runShown(); });
    connect(create, &QAction::triggered, create, [this] { makeScript(); });
    connect(record, &QAction::triggered, record, [this] { saveRecorded(); });
    connect(&watcher, &QFileSystemWatcher::directoryChanged, this, &ScriptMenu::readFolder);
    connect(this, &QMenu::aboutToShow, this, &ScriptMenu::watch);
    watch();
    rebuild();
}

void ScriptMenu::followRuns()
{
    const ScriptRuns *runs = ScriptRuns::instance();
    if (!runs)
        return;
    connect(runs, &ScriptRuns::begun, stop, [this] { stop->setEnabled(true); });
    connect(runs, &ScriptRuns::ended, stop, [this] { stop->setEnabled(false); });
    // A menu disconnects what is taken out of it from itself.
    connect(stop, &QAction::triggered, runs, &ScriptRuns::stop);
}

void ScriptMenu::followEditors(EditorArea *area)
{
    editors = area;
    connect(area, &EditorArea::currentPageChanged, this, &ScriptMenu::showRunnable);
    showRunnable();
}

// Anew, since a folder may have been replaced by another one of its name.
void ScriptMenu::watch()
{
    if (!watcher.directories().isEmpty())
        watcher.removePaths(watcher.directories());
    watcher.addPath(scriptFolder);
    readFolder();
}

void ScriptMenu::readFolder()
{
    const ScriptFolder found = ScriptFolder::read(scriptFolder);
    watchBelow();
    if (found == files)
        return;
    files = found;
    rebuild();
}

// Also those without a script yet.
void ScriptMenu::watchBelow()
{
    QStringList folders;
    QDirIterator walk(scriptFolder, QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks,
                      QDirIterator::Subdirectories);
    while (walk.hasNext() && folders.size() < mostWatched)
        folders.append(walk.next());
    for (const QString &folder : watcher.directories())
        folders.removeAll(folder);
    if (!folders.isEmpty())
        watcher.addPaths(folders);
}

void ScriptMenu::rebuild()
{
    // One of the old entries may be the one that is running.
    const QList<QAction *> kept {
        runAgain, runEditor, stop, showLog, create, record, editing->menuAction()};
    const QList<QAction *> old = actions();
    for (QAction *entry : old) {
        removeAction(entry);
        if (kept.contains(entry))
            continue;
        if (entry->menu())
            entry->menu()->deleteLater();
        else
            entry->deleteLater();
    }
    addScripts(this, files, &ScriptMenu::runFromMenu);
    if (files.isEmpty())
        addAction(tr("No Scripts in the Session's Folder"))->setEnabled(false);
    addSeparator();
    addActions({runEditor, runAgain, stop, showLog});
    addSeparator();
    editing->clear();
    addScripts(editing, files, &ScriptMenu::edit);
    editing->setEnabled(!files.isEmpty());
    addActions({create, editing->menuAction(), record});
    connect(addAction(actionicons::icon(ActionIcon::OpenFolder), tr("Open Scripts &Folder")),
            &QAction::triggered, this, [this] { messages::showFolder(scriptFolder); });
}

void ScriptMenu::addScripts(QMenu *menu, const ScriptFolder &folder, Use use)
{
    for (const ScriptFolder &below : folder.folders) {
        auto *submenu = new QMenu(nameOf(below.path), menu);
        menu->addMenu(submenu);
        addScripts(submenu, below, use);
    }
    for (const QString &script : folder.scripts) {
        QAction *entry = menu->addAction(nameOf(script));
        connect(entry, &QAction::triggered, this, [this, script, use] { (this->*use)(script); });
    }
}

void ScriptMenu::edit(const QString &script) { scriptfiles::edit(window(), script); }

// Named, so that it is known beforehand.
void ScriptMenu::showRunnable()
{
    const EditorPage *page = editors ? editors->currentPage() : nullptr;
    const QString script = page ? page->filePath() : QString();
    const bool isScript = script.endsWith(u".tcl"_s);
    runEditor->setEnabled(isScript);
    runEditor->setText(isScript ? tr("&Run \"%1\"").arg(nameOf(script))
                                : tr("&Run Script in Editor"));
}

void ScriptMenu::runShown()
{
    EditorPage *page = editors ? editors->currentPage() : nullptr;
    if (!page || (page->isModified() && !editors->savePage(page)))
        return;
    run(page->filePath());
}

void ScriptMenu::makeScript()
{
    const QString script = scriptfiles::askForNew(window(), scriptFolder, tr("New Script"));
    if (!script.isEmpty() && write(script))
        edit(script);
}

// An empty file, which nobody else has made meanwhile.
bool ScriptMenu::write(const QString &script)
{
    QFile file(script);
    if (file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        return true;
    messages::warn(window(), tr("Not Written"),
                   {tr("Cannot write \"%1\": %2").arg(script, file.errorString())});
    return false;
}

void ScriptMenu::saveRecorded()
{
    const QString script =
        scriptfiles::askForNew(window(), scriptFolder, tr("Save Recorded Commands"));
    if (script.isEmpty() || !write(script))
        return;
    QtclConsole *console = QtclConsole::getInstance(nullptr, QString());
    if (console->saveScript(script) == 0)
        edit(script);
    else
        messages::warn(window(), tr("Not Written"), {tr("Cannot write \"%1\"").arg(script)});
}

bool ScriptMenu::run(const QString &script)
{
    AbstractScriptedAction *action = actionFor(script);
    if (!action)
        return false;
    lastScript = script;
    runAgain->setText(tr("Run %1 &Again").arg(nameOf(script)));
    runAgain->setEnabled(true);
    action->setShowExecutionLog(showLog->isChecked());
    bool started = false;
    QString error;
    running.append(script);
    journaling::scriptBegins();
    action->execute(&started, &error);
    journaling::scriptEnded(script, started);
    running.removeOne(script);
    if (started)
        return true;
    // That a file is missing, the action has logged itself.
    if (action->filePathExists())
        Logger::instance()->logPriorityMessage(QString(), Logger::Error, error);
    // An action that found its file empty refuses to run ever after; the next run gets a new one.
    if (!running.contains(script))
        delete actionOfScript.take(script);
    return false;
}

AbstractScriptedAction *ScriptMenu::actionFor(const QString &script)
{
    AbstractScriptedAction *action = actionOfScript.value(script);
    if (!action) {
        action = MorvalenCore::ScriptManager::instance()->createAction(u"text/x-tcl"_s, script);
        if (!action)
            return nullptr;
        action->setParent(this);
        actionOfScript.insert(script, action);
    }
    return action;
}
