#pragma once

#include "document/ItemId.h"

#include <Qtilities/Status.h>

#include <QList>
#include <QString>

namespace MorvalenCore {

// The folders of a document. Paths are texts as they were given.
class DocumentFolders
{
public:
    virtual ~DocumentFolders() = default;

    virtual QList<FolderId> folders() const = 0;

    virtual QString path(FolderId folder) const = 0;
    // Levels joined by "::"; empty for none.
    virtual QString category(FolderId folder) const = 0;

    virtual Qtilities::Core::Result<FolderId> add(const QString &path, const QString &category) = 0;
    virtual void remove(FolderId folder) = 0;
    virtual Qtilities::Core::Status setPath(FolderId folder, const QString &path) = 0;
    virtual Qtilities::Core::Status setCategory(FolderId folder, const QString &category) = 0;
};

} // namespace MorvalenCore
