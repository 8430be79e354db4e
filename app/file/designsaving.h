#pragma once

#include <MorvalenCore/IDesign.h>

#include <QStringList>

class QWidget;

// Saving designs and projects from the window. Why something cannot be saved, the user is told in a
// dialog.
namespace designsaving {

// Null when no design is active.
MorvalenCore::Interfaces::IDesign *activeDesign();

// The ids of open designs with unsaved changes.
QStringList modifiedDesigns();

// Saves designs to their component files. The reasons why some of them could not be saved, one a
// line; empty when all are.
QString save(const QStringList &designIds);

// The same, and tells the user. False when one of them could not be saved.
bool saveOrTell(QWidget *parent, const QStringList &designIds);

// Saves the open project to its file, or to one that is asked for. False when it is unsaved still.
bool saveProject(QWidget *parent);
bool saveProjectAs(QWidget *parent);

} // namespace designsaving
