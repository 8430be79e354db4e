#include "build/buildpaths.h"

#include <QDir>

namespace MorvalenCore {

bool isBelow(const QString &path, const QString &folder)
{
    return path.size() > folder.size() + 1 && path.startsWith(folder)
        && (folder.endsWith(u'/') || path[folder.size()] == u'/');
}

QString absolutePath(const QString &path, const QString &folder)
{
    return QDir::cleanPath(QDir::isAbsolutePath(path) ? path : folder + u'/' + path);
}

QString pathSeenFrom(const QString &folder, const QString &path)
{
    if (!isBelow(path, folder))
        return path;
    return path.sliced(folder.endsWith(u'/') ? folder.size() : folder.size() + 1);
}

} // namespace MorvalenCore
