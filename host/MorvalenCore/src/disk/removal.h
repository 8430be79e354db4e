#pragma once

#include "disk/deletionguard.h"

#include <Qtilities/Status.h>

namespace MorvalenCore {

// The only functions that delete from disk. Each asks the deletion guard first and never follows
// a link, not even one that takes a folder's place in the meantime. A failure means that something
// is left.

// How a deletion is meant: for good, or so that it can be brought back.
enum class Deletion { Permanent, ToTrash };

// Deletes one regular file.
Qtilities::Core::Status deleteFile(const QString &path, const DeletionLimits &limits, Deletion how);

// Deletes a folder with all that is in it. Links in it are deleted, what they point at stays.
Qtilities::Core::Status deleteFolder(const QString &path, const DeletionLimits &limits,
                                     Deletion how);

// Deletes a folder only if it is empty.
Qtilities::Core::Status deleteEmptyFolder(const QString &path, const DeletionLimits &limits);

} // namespace MorvalenCore
