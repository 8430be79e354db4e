#pragma once

#include <QString>

class QWidget;

// Making and opening files of scripts.
namespace scriptfiles {

// Asks for the name of a script that is not there yet; its absolute path, whose folder is there,
// or an empty text when there is none. Of a name that cannot be used the user is told.
QString askForNew(QWidget *window, const QString &folder, const QString &title);

// Shows a script in the editor.
void edit(QWidget *window, const QString &script);

} // namespace scriptfiles
