#include "items/DesignFolders.h"

namespace MorvalenCore {

DesignFolder *DesignFolders::add(const QString &path, QString *error)
{
    return addItem(path, error, [&](const QString &text, QString *reason) {
        return part().add(text, QString(), reason);
    });
}

QList<DesignFolder *> DesignFolders::all() const
{
    return table.inOrder<DesignFolder>(part().folders());
}

} // namespace MorvalenCore
