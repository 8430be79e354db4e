#pragma once

#include <QStringList>

class QWidget;

// What the user is asked before designs and projects close.
namespace closing {

// Asks about those of the designs that have unsaved changes. Closing a design saves it, so there
// is no answer that drops the changes; what cannot be saved may be left behind, and goes to the
// backups then. False when the designs are to stay open.
bool settleDesigns(QWidget *parent, const QStringList &designIds);

// Asks about the changes of the open project: the list of its designs. False when it is to stay
// open. Nothing is asked about a project that has a file when closing saves it.
bool settleProject(QWidget *parent, bool closingSaves);

// Closes a design when the user agrees. False when it is still open.
bool closeDesign(QWidget *parent, const QString &designId);

} // namespace closing
