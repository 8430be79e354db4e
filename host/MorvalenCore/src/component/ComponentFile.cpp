#include "component/ComponentFile.h"

#include <Qtilities/atomicfile.h>

#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

#include <cerrno>
#include <utility>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::KnownFile;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

namespace MorvalenCore {

ComponentFile::ComponentFile(const QString &path) : file(path) { }

// Whether there is something that can be read as a whole.
Status ComponentFile::checkPath() const
{
    // The system would take the part in front of the zero for the name.
    if (path().contains(QChar(0)))
        return Status::invalidArgument(u"The path holds a zero byte."_s);
    struct stat status = {};
    if (::stat(QFile::encodeName(path()).constData(), &status) != 0) {
        const auto kind = errno == ENOENT ? Status::Kind::NotFound : Status::Kind::Io;
        return {kind, u"The file cannot be read: %1."_s.arg(qt_error_string(errno))};
    }
    if (S_ISDIR(status.st_mode))
        return Status::invalidArgument(u"The path is a directory, not a component file."_s);
    if (!S_ISREG(status.st_mode))
        return Status::invalidArgument(u"The path is no regular file."_s);
    if (status.st_size > greatestSize) {
        return Status::malformed(u"The file is larger than %1 MiB."_s.arg(greatestSize >> 20));
    }
    return {};
}

Result<QByteArray> ComponentFile::read()
{
    if (const Status status = checkPath(); !status.isOk())
        return status;
    const Result<KnownFile::Content> content = file.read(greatestSize + 1);
    if (!content.isOk() || content.value().bytes.size() != content.value().stamp.size) {
        return Status::io(u"The file cannot be read: %1."_s.arg(
            content.isOk() ? u"it changes meanwhile"_s : content.status().text()));
    }
    // The document holds the bytes anyway.
    file.know(content.value(), KnownFile::Keep::Bytes);
    return content.value().bytes;
}

Status ComponentFile::checkUnchanged()
{
    if (file.look(KnownFile::Trust::Stamp) != KnownFile::Disk::Changed)
        return {};
    if (const Status &unread = file.statusOfLook(); !unread.isOk())
        return unread.withText(
            u"The file %1 cannot be compared with what was read; it is not overwritten: %2"_s.arg(
                path(), unread.text()));
    if (unconfirmed && holds(*unconfirmed)) {
        file.knowWritten(*std::exchange(unconfirmed, {}));
        return {};
    }
    return file.isKnown()
        ? Status::conflict(
            u"The file %1 has changed on disk since it was read; it is not overwritten."_s.arg(
                path()))
        : Status::alreadyExists(
            u"The file %1 is there already; it is not overwritten."_s.arg(path()));
}

Status ComponentFile::write(const QByteArray &bytes)
{
    const Status status = checkUnchanged();
    return status.isOk() ? overwrite(bytes) : status;
}

Status ComponentFile::overwrite(const QByteArray &bytes)
{
    const Status written = Qtilities::Core::writeFileAtomically(path(), bytes);
    unconfirmed.reset();
    if (written.isOk() || holds(bytes))
        file.knowWritten(bytes);
    else
        unconfirmed = bytes;
    return written;
}

// A write can fail after the new file has taken its place.
bool ComponentFile::holds(const QByteArray &bytes) const
{
    const Result<KnownFile::Content> content = file.read(bytes.size() + 1);
    return content.isOk() && content.value().bytes == bytes;
}

} // namespace MorvalenCore
