#include "designs/DoomedFolder.h"

#include "session/protectedfolders.h"

#include <QDir>
#include <QFileInfo>

using Qtilities::Core::Status;

namespace MorvalenCore {

namespace {

// The path with its parent resolved: where the folder lies, even when it is a link itself.
QString canonicalParent(const QString &path)
{
    const QFileInfo info(path);
    return path.isEmpty()
        ? QString()
        : QDir::cleanPath(QFileInfo(info.path()).canonicalFilePath() + u'/' + info.fileName());
}

} // namespace

DoomedFolder::DoomedFolder(const Interfaces::IDesign &design, const QString &designsFolder)
    : folder(canonicalParent(design.workingFolderPath())),
      limits {designsFolder, protectedFolders(&design)}
{
}

Status DoomedFolder::remove() const { return deleteFolder(folder, limits, Deletion::Permanent); }

} // namespace MorvalenCore
