#pragma once

#include <QStringList>

class QWidget;

// Message boxes whose texts are plain, whatever characters the names and paths in them have.
namespace messages {

// Asks whether to go on; true when the user pressed the button with that text, which is not the
// default.
bool confirm(QWidget *parent, const QString &title, const QString &text, const QString &details,
             const QString &goOn);

// Tells the user what went wrong in a box of its own, without waiting for an answer; the window may
// be null. Of many lines the box shows the first, and the rest on demand.
void warn(QWidget *window, const QString &title, const QStringList &lines);

// A short word in the status bar of the main window.
void tell(const QString &text);

// Has the desktop show a folder, and tells when it cannot.
void showFolder(const QString &folder);

} // namespace messages
