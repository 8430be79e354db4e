#pragma once

#include <QStringList>

class QWidget;

// The questions for files, each starting where such files are; empty when the user gave up.
namespace filedialogs {

QStringList filesToOpen(QWidget *parent);
QString projectToOpen(QWidget *parent);
// With ".xml" behind a name that has no suffix.
QString projectToSave(QWidget *parent);

} // namespace filedialogs
