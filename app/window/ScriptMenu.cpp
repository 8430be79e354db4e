#include "app/window/ScriptMenu.h"

#include "interp/ScriptRuns.h"

#include <MorvalenCore/ScriptManager.h>
#include <Qtilities/Logger.h>

#include <QDesktopServices>
#include <QDir>
#include <QUrl>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::AbstractScriptedAction;
using Qtilities::Logging::Logger;

namespace {

// For the text of an action, where an ampersand marks a key.
QString nameOf(const QString &script)
{
    return QFileInfo(script).fileName().replace(u'&', u"&&"_s);
}

} // namespace

ScriptMenu::ScriptMenu(const QString &folder, QWidget *parent)
    : QMenu(tr("&Scripts"), parent),
      scriptFolder(folder),
      runAgain(new QAction(tr("Run Last Script &Again"), this)),
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
    // A menu disconnects what is taken out of it from itself.
    connect(runAgain, &QAction::triggered, runAgain, [this] { run(QString(lastScript)); });
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

// Anew, since the folder may have been replaced by another one of its name.
void ScriptMenu::watch()
{
    watcher.removePath(scriptFolder);
    watcher.addPath(scriptFolder);
    readFolder();
}

void ScriptMenu::readFolder()
{
    QStringList found;
    const QFileInfoList entries =
        QDir(scriptFolder)
            .entryInfoList({u"*.tcl"_s}, QDir::Files,
                           QDir::Name | QDir::IgnoreCase | QDir::LocaleAware);
    for (const QFileInfo &entry : entries)
        found.append(entry.absoluteFilePath());
    if (found == files)
        return;
    files = found;
    rebuild();
}

void ScriptMenu::rebuild()
{
    // One of the old entries may be the one that is running.
    const QList<QAction *> old = actions();
    for (QAction *entry : old) {
        removeAction(entry);
        if (entry != showLog && entry != runAgain && entry != stop)
            entry->deleteLater();
    }
    for (const QString &script : std::as_const(files)) {
        QAction *entry = addAction(nameOf(script));
        connect(entry, &QAction::triggered, this, [this, script] { run(script); });
    }
    if (files.isEmpty())
        addAction(tr("No Scripts in the Session's Folder"))->setEnabled(false);
    addSeparator();
    addAction(runAgain);
    addAction(stop);
    addAction(showLog);
    connect(addAction(tr("Open Scripts &Folder")), &QAction::triggered, this,
            [this] { QDesktopServices::openUrl(QUrl::fromLocalFile(scriptFolder)); });
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
    action->execute(&started, &error);
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
