#pragma once

#include <QStringList>

class QWidget;

// Opening files from the window.
namespace opening {

// Opens component and project files. Before a project opens, the user is asked about the open one;
// what cannot be opened, the user is told in one dialog.
void open(QWidget *parent, const QStringList &files);

// Whether the open project, with all that is open, may close now: nothing runs that could be harmed
// and the user agrees. True when no project is open.
bool mayCloseProject(QWidget *parent);

} // namespace opening
