#pragma once

#include "tests/faults/Writer.h"

// The parts of writerKinds().
std::vector<WriterKind> designWriters();
std::vector<WriterKind> settingsWriters();
std::vector<WriterKind> buildWriters();
std::vector<WriterKind> textWriters();
std::vector<WriterKind> windowWriters();
