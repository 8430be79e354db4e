#include "disk/WorkingFolder.h"

#include "disk/removal.h"
#include "log/hostlog.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstring>
#include <sys/stat.h>

using namespace Qt::Literals::StringLiterals;

namespace MorvalenCore {

namespace {

QStringList contentOf(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System
                                  | QDir::NoDotAndDotDot);
}

} // namespace

WorkingFolder::~WorkingFolder()
{
    if (!isKept)
        takeBack();
}

bool WorkingFolder::make(const QString &path, const QStringList &folders, QString *error)
{
    const QFileInfo info(path);
    if (!QDir().mkpath(info.path())) {
        *error = u"The folder \"%1\" cannot be made"_s.arg(info.path());
        return false;
    }
    // Without links on the way, as the deletion guard wants it.
    place = QFileInfo(info.path()).canonicalFilePath() + u'/' + info.fileName();
    if (!makeFolder(place, error)) {
        const QFileInfo there(place);
        if (!there.isDir() || there.isSymLink())
            return false;
        if (!contentOf(place).isEmpty()) {
            *error = u"The folder \"%1\" is not empty"_s.arg(place);
            return false;
        }
    }
    if (claim(folders, error))
        return true;
    takeBack();
    return false;
}

bool WorkingFolder::makeFolder(const QString &path, QString *error)
{
    if (mkdir(QFile::encodeName(path).constData(), 0777) != 0) {
        *error = u"The folder \"%1\" cannot be made: %2"_s.arg(
            path, QString::fromLocal8Bit(std::strerror(errno)));
        return false;
    }
    made.append(path);
    return true;
}

// The first folder in it decides who has the working folder: two who make theirs at one time see
// each other's.
bool WorkingFolder::claim(const QStringList &folders, QString *error)
{
    for (const QString &name : folders) {
        if (!makeFolder(place + u'/' + name, error))
            return false;
        if (name == folders.first() && contentOf(place) != QStringList {name}) {
            *error = u"The folder \"%1\" is not empty"_s.arg(place);
            return false;
        }
    }
    return true;
}

void WorkingFolder::takeBack()
{
    QString error;
    if (!file.isEmpty() && !deleteFile(file, {place, {}}, Deletion::Permanent, &error))
        logWarning(error);
    // A folder stays when somebody else has put something into it.
    while (!made.isEmpty()) {
        const QString folder = made.takeLast();
        deleteEmptyFolder(folder, {QFileInfo(folder).path(), {}}, &error);
    }
    file.clear();
}

} // namespace MorvalenCore
