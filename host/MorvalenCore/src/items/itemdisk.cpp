#include "items/itemdisk.h"

#include "disk/itempaths.h"
#include "disk/removal.h"
#include "items/DesignState.h"
#include "session/protectedfolders.h"

#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Result;
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

} // namespace

bool isItemOnDisk(const DesignState &state, const QString &actualPath, ItemKind kind)
{
    return isOnDisk(pathOnDisk(actualPath, state.folder()), kind);
}

Status removeItemFromDisk(const DesignState &state, const QString &actualPath, ItemKind kind,
                          bool permanently)
{
    if (state.isReadOnly())
        return Status::readOnly(u"The design \"%1\" is read-only"_s.arg(state.name()));
    const Result<QString> path = tryPathOnDisk(actualPath, state.folder());
    if (!path.isOk())
        return path.status();
    const DeletionLimits limits {state.folderOnDisk(), protectedFolders()};
    const Deletion how = permanently ? Deletion::Permanent : Deletion::ToTrash;
    const QString resolved = withResolvedFolder(path.value(), state);
    return kind == ItemKind::File ? deleteFile(resolved, limits, how)
                                  : deleteFolder(resolved, limits, how);
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
