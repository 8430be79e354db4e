#pragma once

#include "document/DocumentFolders.h"

namespace MorvalenCore {

class ComponentTree;

// The folders of a component document, which the standard has no element for. Paths are texts as
// they were given.
class ComponentFolders final : public DocumentFolders
{
public:
    explicit ComponentFolders(ComponentTree &tree);

    QList<FolderId> folders() const override;
    bool contains(FolderId folder) const;

    QString path(FolderId folder) const override;
    // Levels joined by "::"; empty for none.
    QString category(FolderId folder) const override;

    Qtilities::Core::Result<FolderId> add(const QString &path, const QString &category) override;
    void remove(FolderId folder) override;
    Qtilities::Core::Status setPath(FolderId folder, const QString &path) override;
    Qtilities::Core::Status setCategory(FolderId folder, const QString &category) override;

private:
    ComponentTree &tree;
};

} // namespace MorvalenCore
