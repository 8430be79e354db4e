#pragma once

#include "ensemble/Call.h"

// What a design has, as lists and dictionaries.
namespace ensemble {

extern const Options filesOptions;

extern const Rows fileRows;

Answer listDesigns(const Call &call);
Answer listFiles(const Call &call);
Answer listFolders(const Call &call);
Answer listNodes(const Call &call);
Answer listProperties(const Call &call);
// Brings back an item that was removed.
Answer restore(const Call &call);

} // namespace ensemble
