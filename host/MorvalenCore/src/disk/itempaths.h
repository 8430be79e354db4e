#pragma once

#include <Qtilities/Status.h>

#include <QString>

namespace MorvalenCore {

// Paths of design items are kept as the text they came in, with environment variables ($NAME,
// ${NAME}, $(NAME), %NAME%) and Windows spellings. Three functions give the other forms.

// The actual path: absolute and clean, slashes only. A relative text is of folder. A text that
// begins with a variable or a drive is absolute as it is; variables stay.
QString actualItemPath(const QString &text, const QString &folder);

// The text under which a document in folder keeps a path: relative where an absolute path lies
// below the folder, else as given.
QString storedItemPath(const QString &text, const QString &folder);

// The path to touch on disk: absolute and clean, variables expanded; what is relative then is of
// folder. There is none when a variable is not set or the path is one of another system. What lies
// on disk under the very text is meant by it.
Qtilities::Core::Result<QString> tryPathOnDisk(const QString &actualPath, const QString &folder);

// The same, empty where there is none.
QString pathOnDisk(const QString &actualPath, const QString &folder);

} // namespace MorvalenCore
