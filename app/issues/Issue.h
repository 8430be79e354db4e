#pragma once

#include "app/places/TextPlace.h"

// What a tool or a script has found wrong.
struct Issue
{
    TextPlace::Severity severity = TextPlace::Error;
    QString message;
    // Absolute, when it is known; as the tool wrote it otherwise. Empty when there is none.
    QString file;
    int line = 0;
    int column = 0;
    // The step of a build that it came from; empty for scripts.
    QString step;
    // All that was said of it, in lines.
    QString details;
};
