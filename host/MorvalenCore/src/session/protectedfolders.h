#pragma once

#include <MorvalenCore/IDesign.h>

namespace MorvalenCore {

// What no deletion may touch: the session with its folders, the projects and designs folders, and
// the folders and component files of all open designs. The folder and file of one design are left
// out when it is named.
QStringList protectedFolders(const Interfaces::IDesign *except = nullptr);

} // namespace MorvalenCore
