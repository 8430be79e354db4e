#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

// What all application commands share: how they show their usage, hand back lists and paths, and
// bracket what changes the application's model.

// The body of a usage text: a line for each key, in ascending order, all help texts in one column.
// A leading apostrophe before an argument's name in a key marks it as optional.
QString prepareUsageMessage(QMap<QString, QString> usage);

// The elements in double quotes, separated by one blank, ready to be a Tcl result. Elements are not
// escaped; white space at both ends of the whole is lost.
QString stringListToTclList(QStringList list);

// A path as it is handed back to scripts: with the platform's separators.
QString preparePath(const QString &path);

// Open and close a bracket around changes of the model, so that views follow once at its end.
void initExec();
void finalizeExec();
