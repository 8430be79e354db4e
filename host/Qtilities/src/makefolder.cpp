#include <Qtilities/makefolder.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <sys/stat.h>

namespace Qtilities::Core {

namespace {

// The number of the error; 0 when the folder is there.
int make(const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    if (::mkdir(name.constData(), 0777) == 0)
        return 0;
    const int error = errno;
    struct stat status = {};
    if (error == EEXIST && ::stat(name.constData(), &status) == 0 && S_ISDIR(status.st_mode))
        return 0;
    return error;
}

int makeAll(const QString &path)
{
    const int error = make(path);
    const QString above = QFileInfo(path).path();
    if (error != ENOENT || above == path)
        return error;
    const int errorAbove = makeAll(above);
    return errorAbove != 0 ? errorAbove : make(path);
}

} // namespace

// QDir::mkpath() does not say why it fails.
Status makeFolder(const QString &path)
{
    if (path.isEmpty() || path.contains(QChar()))
        return Status::invalidArgument(QStringLiteral("that is not the name of a folder"));
    const int error = makeAll(QDir::cleanPath(QFileInfo(path).absoluteFilePath()));
    return error == 0 ? Status() : Status::io(qt_error_string(error));
}

} // namespace Qtilities::Core
