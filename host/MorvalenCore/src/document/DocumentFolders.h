#pragma once

#include "document/ItemId.h"

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

    virtual FolderId add(const QString &path, const QString &category,
                         QString *error = nullptr) = 0;
    virtual void remove(FolderId folder) = 0;
    virtual bool setPath(FolderId folder, const QString &path, QString *error = nullptr) = 0;
    virtual bool setCategory(FolderId folder, const QString &category,
                             QString *error = nullptr) = 0;
};

} // namespace MorvalenCore
