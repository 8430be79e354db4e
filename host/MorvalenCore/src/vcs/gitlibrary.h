#pragma once

#include "git/lastcommit.h"

#include <Qtilities/Status.h>

#include <QString>

namespace MorvalenCore {

// The folder that the host's shared libraries lie in.
QString libraryFolder();

// The function of the library MorvalenGit in that folder, which stays open. The sentence of a
// failure names the file.
Qtilities::Core::Result<LastCommit *> openGitLibrary(const QString &folder);

} // namespace MorvalenCore
