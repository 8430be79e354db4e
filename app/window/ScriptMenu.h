#pragma once

#include "app/window/ScriptFolder.h"

#include <QFileSystemWatcher>
#include <QHash>
#include <QMenu>
#include <QPointer>
#include <QStringList>

namespace MorvalenCore {
class AbstractScriptedAction;
}

class EditorArea;

// The Tcl files of a folder and of its sub-folders, each of which runs as a scripted action, with
// or without its execution log; the last one runs again with a key, and so does the one in the
// editor. The menu follows the folder, and makes and edits scripts.
class ScriptMenu : public QMenu
{
    Q_OBJECT

public:
    explicit ScriptMenu(const QString &folder, QWidget *parent = nullptr);

    // The script files, in the order of the menu.
    QStringList scripts() const { return files.allScripts(); }

    // Runs one of the scripts. False when it could not be started, with the reason in the log.
    bool run(const QString &script);

    // The entry that stops what runs, from now on to be used while something does.
    void followRuns();

    // From now on runs what is in front in the editor, which is saved before.
    void followEditors(EditorArea *area);

    void edit(const QString &script);
    // Asks for a name, and shows a new script in the editor.
    void makeScript();

private:
    void watch();
    void readFolder();
    void watchBelow();
    void rebuild();
    using Use = void (ScriptMenu::*)(const QString &script);
    void addScripts(QMenu *menu, const ScriptFolder &folder, Use use);
    void runFromMenu(const QString &script) { run(script); }
    void showRunnable();
    void runShown();
    void saveRecorded();
    bool write(const QString &script);
    MorvalenCore::AbstractScriptedAction *actionFor(const QString &script);

    QString scriptFolder;
    QFileSystemWatcher watcher;
    ScriptFolder files;
    QString lastScript;
    QPointer<EditorArea> editors;
    QMenu *editing;
    QAction *runAgain;
    QAction *runEditor;
    QAction *create;
    QAction *record;
    QAction *showLog;
    QAction *stop;
    // The actions made so far, kept because each has a log window of its own.
    QHash<QString, MorvalenCore::AbstractScriptedAction *> actionOfScript;
    QStringList running;
};
