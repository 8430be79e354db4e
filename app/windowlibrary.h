#pragma once

#include "app/CommandLine.h"

// The window lies in a library of its own, which is loaded for it: most of the start of a program
// with a window is the loading of libraries, which a script does not need.
namespace windowlibrary {

// What that library offers: runs the program with a window, and returns only when it cannot begin,
// with the status of the process.
using Run = int(const CommandLine &line);
constexpr const char *entry = "morvalenWindowRun";

// Runs it.
int run(const CommandLine &line);

} // namespace windowlibrary
