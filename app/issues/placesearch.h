#pragma once

#include <QString>

// Which file is meant by a name that a tool or Tcl has printed.
namespace placesearch {

// The absolute path of a file that is there; empty when none is. A relative name is looked for in
// the given folder, the folder of the process, the folders of the open designs, the active one
// first, and then among the files of the open designs by the end of their paths.
QString find(const QString &name, const QString &folder);

} // namespace placesearch
