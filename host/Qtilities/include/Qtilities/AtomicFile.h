#pragma once

#include <Qtilities/QtilitiesExport.h>

#include <QByteArray>
#include <QString>

namespace Qtilities::Core::AtomicFile {

// Replaces the content of the file at path, or makes the file, so that whatever happens (a killed
// process, a full disk, a folder without permission) either the old content or the new one is
// there. The bytes go to a temporary file beside the target, which is synchronised with the disk
// and renamed over it. A link is followed to its target; the permission bits of an existing file
// stay, and a file without permission to write is not replaced. What a killed write to the same
// file left behind is removed. False, with the reason in *error (one sentence that names the
// file), when the content was not replaced. Two processes may write the same file at one time:
// the last one to finish wins.
QTILITIES_EXPORT bool write(const QString &path, const QByteArray &bytes, QString *error = nullptr);

} // namespace Qtilities::Core::AtomicFile
