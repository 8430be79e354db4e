#pragma once

#include <Qtilities/Descriptor.h>

#include <QString>

namespace MorvalenCore {

// Keeps others, in this process and in any other, from using a folder while it is held. Goes with
// the process, however that ends. Where the file system has no locks, nobody is kept out.
class FolderLock
{
public:
    // False when somebody else holds it.
    bool take(const QString &folder);

private:
    Qtilities::Core::Descriptor descriptor;
};

} // namespace MorvalenCore
