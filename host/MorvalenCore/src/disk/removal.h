#pragma once

#include "disk/deletionguard.h"

namespace MorvalenCore {

// The only functions that delete from disk. Each asks the deletion guard first and never follows
// a link, not even one that takes a folder's place in the meantime. False when something is left,
// with the reason in *error.

// How a deletion is meant: for good, or so that it can be brought back.
enum class Deletion { Permanent, ToTrash };

// Deletes one regular file.
bool deleteFile(const QString &path, const DeletionLimits &limits, Deletion how, QString *error);

// Deletes a folder with all that is in it. Links in it are deleted, what they point at stays.
bool deleteFolder(const QString &path, const DeletionLimits &limits, Deletion how, QString *error);

// Deletes a folder only if it is empty.
bool deleteEmptyFolder(const QString &path, const DeletionLimits &limits, QString *error);

} // namespace MorvalenCore
