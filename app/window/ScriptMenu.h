#pragma once

#include <QFileSystemWatcher>
#include <QHash>
#include <QMenu>
#include <QStringList>

namespace MorvalenCore {
class AbstractScriptedAction;
}

// The Tcl files of a folder, each of which runs as a scripted action, with or without its
// execution log; the last one runs again with a key. The menu follows the folder.
class ScriptMenu : public QMenu
{
    Q_OBJECT

public:
    explicit ScriptMenu(const QString &folder, QWidget *parent = nullptr);

    // The script files, in the order of the menu.
    QStringList scripts() const { return files; }

    // Runs one of the scripts. False when it could not be started, with the reason in the log.
    bool run(const QString &script);

    // The entry that stops what runs, from now on to be used while something does.
    void followRuns();

private:
    void watch();
    void readFolder();
    void rebuild();
    MorvalenCore::AbstractScriptedAction *actionFor(const QString &script);

    QString scriptFolder;
    QFileSystemWatcher watcher;
    QStringList files;
    QString lastScript;
    QAction *runAgain;
    QAction *showLog;
    QAction *stop;
    // The actions made so far, kept because each has a log window of its own.
    QHash<QString, MorvalenCore::AbstractScriptedAction *> actionOfScript;
    QStringList running;
};
