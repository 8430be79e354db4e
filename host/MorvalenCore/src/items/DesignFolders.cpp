#include "items/DesignFolders.h"

namespace MorvalenCore {

Qtilities::Core::Result<DesignFolder *> DesignFolders::add(const QString &path)
{
    return addItem(path, [&](const QString &text) {
        return added<FolderId>([&](QString *error) { return part().add(text, QString(), error); });
    });
}

QList<DesignFolder *> DesignFolders::all() const
{
    return table.inOrder<DesignFolder>(part().folders());
}

} // namespace MorvalenCore
