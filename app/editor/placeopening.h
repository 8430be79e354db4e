#pragma once

#include <Qtilities/Status.h>

// Shows a place of a file in an editor.
namespace placeopening {

// Line and column are counted from 1; 0 leaves the cursor where it is. Of a file that has fewer
// lines the last one is shown, and the status says so.
Qtilities::Core::Status show(const QString &path, int line, int column);

} // namespace placeopening
