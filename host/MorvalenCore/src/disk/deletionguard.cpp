#include "disk/deletionguard.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Status;

namespace MorvalenCore {

namespace {

// The home folder may be named by the environment and by the system, not always alike.
QStringList alwaysKept()
{
    static const QString systemsHome = [] {
        const passwd *user = getpwuid(getuid());
        return user ? QFile::decodeName(user->pw_dir) : QString();
    }();
    return {u"/"_s, QDir::homePath(), systemsHome, QDir::currentPath()};
}

bool sameOnDisk(const struct stat &left, const struct stat &right)
{
    return left.st_dev == right.st_dev && left.st_ino == right.st_ino;
}

// Whether the doomed one is what kept names, or a folder above it. Compared by what lies on disk,
// so that another spelling, a link or a second mount of the same folder does not matter.
bool holds(const struct stat &doomed, const QString &kept)
{
    const QString canonical = QFileInfo(kept).canonicalFilePath();
    QString step =
        canonical.isEmpty() ? QDir::cleanPath(QFileInfo(kept).absoluteFilePath()) : canonical;
    while (true) {
        struct stat here;
        if (stat(QFile::encodeName(step).constData(), &here) == 0 && sameOnDisk(doomed, here))
            return true;
        if (!S_ISDIR(doomed.st_mode))
            return false;
        const qsizetype slash = step.lastIndexOf(u'/');
        if (slash < 0 || step == u"/"_s)
            return false;
        step = slash == 0 ? u"/"_s : step.left(slash);
    }
}

Status refused(const QString &sentence) { return Status::invalidArgument(sentence); }

// The text of the path, before anything on disk is looked at.
Status checkText(const QString &path)
{
    if (path.isEmpty())
        return refused(u"An empty path is not deleted"_s);
    if (path.contains(QChar::Null))
        return refused(u"A path with a zero character is not deleted"_s);
    if (!path.startsWith(u'/'))
        return refused(u"\"%1\" is not deleted because it is not an absolute path"_s.arg(path));
    return {};
}

} // namespace

Status checkDeletion(const QString &path, const DeletionLimits &limits)
{
    if (const Status text = checkText(path); !text.isOk())
        return text;

    struct stat doomed;
    if (lstat(QFile::encodeName(path).constData(), &doomed) != 0)
        return refused(u"\"%1\" is not on disk"_s.arg(path));
    if (S_ISLNK(doomed.st_mode))
        return refused(u"\"%1\" is not deleted because it is a link"_s.arg(path));
    if (QFileInfo(path).canonicalFilePath() != path)
        return refused(u"\"%1\" is not deleted because it is not a canonical path"_s.arg(path));

    for (const QString &kept : alwaysKept() + limits.keep) {
        if (!kept.isEmpty() && holds(doomed, kept))
            return refused(
                u"\"%1\" is not deleted because it is or holds \"%2\""_s.arg(path, kept));
    }

    const QString below = QFileInfo(limits.below).canonicalFilePath();
    if (below.isEmpty() || !path.startsWith(below + u'/'))
        return refused(u"\"%1\" is not deleted because it does not lie below \"%2\""_s.arg(
            path, limits.below));
    return {};
}

} // namespace MorvalenCore
