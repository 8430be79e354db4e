#pragma once

#include <Qtilities/QtilitiesExport.h>
#include <Qtilities/Status.h>

#include <QByteArray>
#include <QString>

namespace Qtilities::Core {

// Writes a whole file so that whatever happens, a killed process or a full disk, there is the old
// file or the new one. The content goes to a temporary file beside the target, onto the disk, and
// then takes the target's place, whose permissions and owner it keeps; a link is followed. All of
// it happens in the folder that was found, even when somebody moves that meanwhile. What an earlier
// write left behind when it was killed is removed, not so what another process is writing right
// now. A file that may not be written stays as it is.
QTILITIES_EXPORT Status writeFileAtomically(const QString &fileName, const QByteArray &content);

// Makes a file that only its owner may read and write, unless there is one, so that what is written
// to it is nobody else's from the first byte on. The text of a failure is the reason alone.
QTILITIES_EXPORT Status makePrivateFile(const QString &fileName);

// Removes what writers of any files of a folder left there when they were killed. It is for folders
// whose files each have a new name, so that no later write does it.
QTILITIES_EXPORT void removeUnfinishedFiles(const QString &folder);

} // namespace Qtilities::Core
