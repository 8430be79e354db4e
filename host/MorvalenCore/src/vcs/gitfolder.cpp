#include "vcs/gitfolder.h"

#include <Qtilities/regularfile.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QMutex>
#include <QSet>

#include <sys/stat.h>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::readRegularFile;

namespace MorvalenCore {

namespace {

constexpr qint64 longestLine = 16 * 1024;
// A repository borrows from a few others at most.
constexpr int mostFolders = 16;

// The paths in a file of lines, which are relative to a folder.
QStringList pathsIn(const QString &file, const QString &folder)
{
    QStringList paths;
    const auto content = readRegularFile(file, longestLine);
    if (!content.isOk())
        return paths;
    for (QByteArray line : content.value().split('\n')) {
        if (line.startsWith("gitdir: "))
            line.remove(0, 8);
        if (!line.trimmed().isEmpty())
            paths.append(QDir(folder).absoluteFilePath(QFile::decodeName(line.trimmed())));
    }
    return paths;
}

bool holdsOnlyFiles(const QString &folder)
{
    QDirIterator entries(folder,
                         QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories | QDirIterator::FollowSymlinks);
    while (entries.hasNext()) {
        const QFileInfo info = entries.nextFileInfo();
        if (info.exists() && !info.isFile() && !info.isDir())
            return false;
    }
    return true;
}

// Looks at all folders that belong to it: with work trees of their own there are two, and objects
// may be borrowed from other repositories.
bool isPlain(const QString &git)
{
    QStringList folders =
        QFileInfo(git).isDir() ? QStringList {git} : pathsIn(git, QFileInfo(git).path());
    for (qsizetype i = 0; i < folders.size(); ++i) {
        const QString folder = folders[i];
        if (i == mostFolders || !holdsOnlyFiles(folder))
            return false;
        folders += pathsIn(folder + u"/commondir"_s, folder);
        folders += pathsIn(folder + u"/objects/info/alternates"_s, folder + u"/objects"_s);
        folders += pathsIn(folder + u"/info/alternates"_s, folder);
        folders.removeDuplicates();
    }
    return true;
}

// A repository with a long history has a hundred thousand files; once is enough.
bool wasFoundPlain(const QString &git)
{
    static QMutex mutex;
    static QSet<QString> found;
    {
        const QMutexLocker lock(&mutex);
        if (found.contains(git))
            return true;
    }
    const bool plain = isPlain(git);
    if (plain) {
        const QMutexLocker lock(&mutex);
        found.insert(git);
    }
    return plain;
}

dev_t deviceOf(const QString &folder)
{
    struct stat status = {};
    return ::stat(QFile::encodeName(folder).constData(), &status) == 0 ? status.st_dev : 0;
}

bool isRepository(const QString &git)
{
    const QFileInfo info(git);
    return info.isFile() || (info.isDir() && QFileInfo(git + u"/HEAD"_s).exists());
}

} // namespace

QString gitFolderAround(const QString &path)
{
    QString folder = QFileInfo(path).isDir() ? path : QFileInfo(path).path();
    while (!QFileInfo::exists(folder))
        folder = QFileInfo(folder).path();
    const dev_t device = deviceOf(folder);
    while (true) {
        const QString git = folder + u"/.git"_s;
        if (isRepository(git))
            return wasFoundPlain(git) ? git : QString();
        const QString above = QFileInfo(folder).path();
        if (above == folder || deviceOf(above) != device)
            return {};
        folder = above;
    }
}

} // namespace MorvalenCore
