#pragma once

// The rules about the console: its window, its prompt, and what it runs where.
namespace consoles {

void windowGone();
void windowGoneMeanwhile();
void commandInCommand();
void currentFolder();
void promptOfTheConsole();

} // namespace consoles
