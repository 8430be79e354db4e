#include <Qtilities/paths.h>

#include <QFile>

#include <cstdlib>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace Qtilities::Core {

namespace {

// The system would take the part in front of a zero for the path; of the empty one it knows
// nothing.
QByteArray forSystem(const QString &path)
{
    return path.contains(QChar()) ? QByteArray() : QFile::encodeName(path);
}

} // namespace

QString folderOf(const QString &path)
{
    return path.first(qMax<qsizetype>(path.lastIndexOf(u'/'), 1));
}

QString fileNameOf(const QString &path) { return path.sliced(path.lastIndexOf(u'/') + 1); }

QString pathIn(const QString &folder, const QString &name)
{
    return folder.endsWith(u'/') ? folder + name : folder + u'/' + name;
}

bool isLink(const QString &path)
{
    struct stat status = {};
    return ::lstat(forSystem(path).constData(), &status) == 0 && S_ISLNK(status.st_mode);
}

bool isWritable(const QString &path) { return ::access(forSystem(path).constData(), W_OK) == 0; }

QString canonicalPath(const QString &path)
{
    const std::unique_ptr<char, decltype(&std::free)> real(
        ::realpath(forSystem(path).constData(), nullptr), &std::free);
    return real ? QFile::decodeName(real.get()) : QString();
}

} // namespace Qtilities::Core
