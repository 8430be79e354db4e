#pragma once

#include <Qtilities/Descriptor.h>
#include <Qtilities/QtilitiesExport.h>
#include <Qtilities/Status.h>

#include <QByteArray>
#include <QString>

#include <limits>

#include <sys/stat.h>

namespace Qtilities::Core {

// What lies under a name that anybody may have made. A pipe would keep who opens it waiting and a
// device would do worse, so nothing but a regular file is opened, or one that a link points
// at. The sentence of a failure is a reason only: "No such file or directory", "it is a folder",
// "it is not a file".

// Opens it for reading. *status, unless it is null, receives what fstat() says of what was opened.
QTILITIES_EXPORT Result<Descriptor> openRegularFile(const QString &fileName,
                                                    struct stat *status = nullptr);

// Makes it, or empties the one that is there, for writing. No link is followed.
QTILITIES_EXPORT Result<Descriptor> makeRegularFile(const QString &fileName);

// The rest of an opened file, cut off after that many bytes.
QTILITIES_EXPORT Result<QByteArray> readAll(const Descriptor &file, qint64 limit);

// What is in it, cut off after that many bytes.
QTILITIES_EXPORT Result<QByteArray>
readRegularFile(const QString &fileName, qint64 limit = std::numeric_limits<qint64>::max());

} // namespace Qtilities::Core
