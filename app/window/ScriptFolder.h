#pragma once

#include <QList>
#include <QStringList>

// A folder of Tcl scripts with its sub-folders, as it was when it was read. Links to folders are
// not followed, and what lies very deep is left out.
struct ScriptFolder
{
    QString path;
    // Absolute, in the order of menus.
    QStringList scripts;
    // Those with scripts in them or below them.
    QList<ScriptFolder> folders;

    static ScriptFolder read(const QString &path);

    bool isEmpty() const { return scripts.isEmpty() && folders.isEmpty(); }
    QStringList allScripts() const;

    bool operator==(const ScriptFolder &) const = default;
};
