#pragma once

#include <QString>

class QWidget;

// Message boxes whose texts are plain, whatever characters the names and paths in them have.
namespace messages {

// Asks whether to go on; true when the user pressed the button with that text, which is not the
// default.
bool confirm(QWidget *parent, const QString &title, const QString &text, const QString &details,
             const QString &goOn);

// A short word in the status bar of the main window.
void tell(const QString &text);

} // namespace messages
