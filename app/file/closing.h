#pragma once

#include <QStringList>

class QWidget;

// What the user is asked before designs and projects close.
namespace closing {

// What is given up. It is carried out once the user has agreed to everything, so that whoever
// cancels has lost nothing.
struct GivenUp
{
    QStringList designIds;
    bool project = false;
};

// Asks about those of the designs that have unsaved changes. What is to be saved is saved; where
// that cannot be done it may be left behind, and goes to the backups when the design closes. False
// when the designs are to stay open.
bool settleDesigns(QWidget *parent, const QStringList &designIds, GivenUp *givenUp);

// Asks about the changes of the open project: the list of its designs. False when it is to stay
// open. What the designs that are closed with it change in the list counts for nothing.
bool settleProject(QWidget *parent, GivenUp *givenUp);

// Makes the designs that are given up what their files say, or closes those whose files are no
// good. False when one of them keeps its changes.
bool carryOut(QWidget *parent, const GivenUp &givenUp);

// Closes a design when the user agrees. False when it is still open.
bool closeDesign(QWidget *parent, const QString &designId);

} // namespace closing
