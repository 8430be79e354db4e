#include "items/itemdisk.h"

#include "disk/itempaths.h"
#include "disk/removal.h"
#include "items/DesignState.h"
#include "log/hostlog.h"
#include "session/protectedfolders.h"

#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Status;

namespace MorvalenCore {

namespace {

// The path with the design's folder resolved, which may be reached through links; what lies below
// it stays as it is, so that the guard sees links there.
QString withResolvedFolder(const QString &path, const DesignState &state)
{
    return path.startsWith(state.folder() + u'/')
        ? state.folderOnDisk() + path.mid(state.folder().size())
        : path;
}

bool isOnDisk(const QString &path, ItemKind kind)
{
    const QFileInfo info(path);
    return kind == ItemKind::File ? info.isFile() : info.isDir();
}

Status deleteFromDisk(const DesignState &state, const QString &actualPath, ItemKind kind,
                      Deletion how)
{
    if (state.isReadOnly())
        return Status::readOnly(u"The design \"%1\" is read-only"_s.arg(state.name()));
    QString error;
    const QString path = pathOnDisk(actualPath, state.folder(), &error);
    if (path.isEmpty())
        return Status::invalidArgument(error);
    const DeletionLimits limits {state.folderOnDisk(), protectedFolders()};
    const QString resolved = withResolvedFolder(path, state);
    const bool deleted = kind == ItemKind::File ? deleteFile(resolved, limits, how, &error)
                                                : deleteFolder(resolved, limits, how, &error);
    return deleted ? Status() : Status::io(error);
}

} // namespace

bool isItemOnDisk(const DesignState &state, const QString &actualPath, ItemKind kind)
{
    return isOnDisk(pathOnDisk(actualPath, state.folder()), kind);
}

bool removeItemFromDisk(const DesignState &state, const QString &actualPath, ItemKind kind,
                        bool permanently)
{
    return answer(deleteFromDisk(state, actualPath, kind,
                                 permanently ? Deletion::Permanent : Deletion::ToTrash));
}

GitHistory itemHistory(const DesignState &state, const QString &actualPath)
{
    return GitHistory::of(pathOnDisk(actualPath, state.folder()));
}

// The environment, which scripts can change, is read before another thread is at work.
AbstractDesignLinkedItem::StateLookup itemStateLookup(const DesignState &state,
                                                      const QString &actualPath, ItemKind kind)
{
    return [path = pathOnDisk(actualPath, state.folder()),
            kind](const std::atomic_bool &cancelled) -> LinkedItemState {
        const GitHistory history = GitHistory::of(path, &cancelled);
        return {isOnDisk(path, kind), history.revision, history.systemName};
    };
}

} // namespace MorvalenCore
