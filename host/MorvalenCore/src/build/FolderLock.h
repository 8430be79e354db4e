#pragma once

#include <QString>

namespace MorvalenCore {

// Keeps others, in this process and in any other, from using a folder while it is held. Goes with
// the process, however that ends. Where the file system has no locks, nobody is kept out.
class FolderLock
{
public:
    FolderLock() = default;
    ~FolderLock();
    FolderLock(const FolderLock &) = delete;
    FolderLock &operator=(const FolderLock &) = delete;

    // False when somebody else holds it.
    bool take(const QString &folder);

private:
    int descriptor = -1;
};

} // namespace MorvalenCore
