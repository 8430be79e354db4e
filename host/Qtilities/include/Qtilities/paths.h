#pragma once

#include <Qtilities/QtilitiesExport.h>

#include <QString>

namespace Qtilities::Core {

// What QFileInfo tells, for where hundreds of designs pass: the text alone, or one question to the
// system. QFileInfo keeps what it learns, for which it makes several objects, and running through
// all that takes longer than the answer when the processor has just been waiting for the disk.

// The parts of an absolute, clean path: what stands in front of its last slash, or the root, and
// what stands behind it.
QTILITIES_EXPORT QString folderOf(const QString &path);
QTILITIES_EXPORT QString fileNameOf(const QString &path);
// The path of something in a folder.
QTILITIES_EXPORT QString pathIn(const QString &folder, const QString &name);

QTILITIES_EXPORT bool isLink(const QString &path);
// Whether this process may write to what is there.
QTILITIES_EXPORT bool isWritable(const QString &path);
// Absolute, all links followed; empty when there is nothing there.
QTILITIES_EXPORT QString canonicalPath(const QString &path);

} // namespace Qtilities::Core
