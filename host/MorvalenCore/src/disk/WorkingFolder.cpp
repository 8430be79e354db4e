#include "disk/WorkingFolder.h"

#include "disk/removal.h"

#include <Qtilities/makefolder.h>
#include <Qtilities/statuslog.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstring>
#include <sys/stat.h>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Status;
using Qtilities::Logging::Logger;
using Qtilities::Logging::logStatus;

namespace MorvalenCore {

namespace {

QStringList contentOf(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System
                                  | QDir::NoDotAndDotDot);
}

Status notEmpty(const QString &folder)
{
    return Status::alreadyExists(u"The folder \"%1\" is not empty"_s.arg(folder));
}

} // namespace

WorkingFolder::~WorkingFolder()
{
    if (!isKept)
        takeBack();
}

Status WorkingFolder::make(const QString &path, const QStringList &folders)
{
    const QFileInfo info(path);
    if (const Status above = Qtilities::Core::makeFolder(info.path()); !above.isOk())
        return above.withText(
            u"The folder \"%1\" cannot be made: %2"_s.arg(info.path(), above.text()));
    // Without links on the way, as the deletion guard wants it.
    place = QFileInfo(info.path()).canonicalFilePath() + u'/' + info.fileName();
    if (const Status status = makeFolder(place); !status.isOk()) {
        const QFileInfo there(place);
        if (!there.isDir() || there.isSymLink())
            return status;
        if (!contentOf(place).isEmpty())
            return notEmpty(place);
    }
    const Status claimed = claim(folders);
    if (!claimed.isOk())
        takeBack();
    return claimed;
}

Status WorkingFolder::makeFolder(const QString &path)
{
    if (mkdir(QFile::encodeName(path).constData(), 0777) != 0) {
        return Status::io(u"The folder \"%1\" cannot be made: %2"_s.arg(
            path, QString::fromLocal8Bit(std::strerror(errno))));
    }
    made.append(path);
    return {};
}

// The first folder in it decides who has the working folder: two who make theirs at one time see
// each other's.
Status WorkingFolder::claim(const QStringList &folders)
{
    for (const QString &name : folders) {
        const Status status = makeFolder(place + u'/' + name);
        if (!status.isOk())
            return status;
        if (name == folders.first() && contentOf(place) != QStringList {name})
            return notEmpty(place);
    }
    return {};
}

void WorkingFolder::takeBack()
{
    if (!file.isEmpty())
        logStatus(deleteFile(file, {place, {}}, Deletion::Permanent), Logger::Warning);
    // A folder stays when somebody else has put something into it.
    while (!made.isEmpty()) {
        const QString folder = made.takeLast();
        static_cast<void>(deleteEmptyFolder(folder, {QFileInfo(folder).path(), {}}));
    }
    file.clear();
}

} // namespace MorvalenCore
