#include "disk/renaming.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Status;

namespace MorvalenCore {

namespace {

// File systems that cannot rename without replacing get a second name first.
int renameWithoutReplacing(const QByteArray &from, const QByteArray &to)
{
    if (renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0)
        return 0;
    if (errno != EINVAL && errno != ENOSYS)
        return errno;
    if (linkat(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), 0) != 0)
        return errno;
    return unlink(from.constData()) == 0 ? 0 : errno;
}

} // namespace

Status renameOnDisk(const QString &from, const QString &to)
{
    const QFileInfo old(from);
    if (old.isDir() && !old.isSymLink())
        return Status::invalidArgument(u"\"%1\" is a folder"_s.arg(from));
    const int error = renameWithoutReplacing(QFile::encodeName(from), QFile::encodeName(to));
    if (error == 0)
        return {};
    if (error == EEXIST)
        return Status::alreadyExists(u"There is \"%1\" already"_s.arg(to));
    return Status::io(u"\"%1\" cannot be renamed to \"%2\": %3"_s.arg(
        from, to, QString::fromLocal8Bit(std::strerror(error))));
}

} // namespace MorvalenCore
