#pragma once

#include <QStringList>
#include <QWidget>

// Questions before something is deleted. They name exactly what; no is the answer that comes
// without thinking.
namespace questions {

enum class Deletion { None, ToTrash, Permanent };

// Whether the user agrees that these files or folders are deleted for good.
bool mayDelete(QWidget *window, const QString &question, const QStringList &paths);

// How the user wants these files or folders to be deleted, if at all.
Deletion howToDelete(QWidget *window, const QString &question, const QStringList &paths);

// Whether the user agrees that these items go from their designs, not from disk.
bool mayRemove(QWidget *window, const QStringList &names);

} // namespace questions
