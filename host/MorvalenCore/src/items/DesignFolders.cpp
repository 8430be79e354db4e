#include "items/DesignFolders.h"

namespace MorvalenCore {

Qtilities::Core::Result<DesignFolder *> DesignFolders::add(const QString &path)
{
    return addItem(path, [&](const QString &text) { return part().add(text, QString()); });
}

QList<DesignFolder *> DesignFolders::all() const
{
    return table.inOrder<DesignFolder>(part().folders());
}

} // namespace MorvalenCore
