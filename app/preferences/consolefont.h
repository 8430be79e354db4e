#pragma once

#include <QFont>

class QConsole;

// The font of the console.
namespace consolefont {

// What the console has of its own accord.
QFont usual();

// Gives the console the font that the preferences say; nothing happens when it has that one.
void apply(QConsole *console);

} // namespace consolefont
