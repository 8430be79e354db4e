#pragma once

#include "document/ItemId.h"

#include <Qtilities/Status.h>

#include <QList>
#include <QString>

namespace MorvalenCore {

// A shared property as the document has it. Types are the words bool, int, uint, double, string.
struct SharedValue
{
    QString name;
    QString type;
    QString value;

    bool operator==(const SharedValue &) const = default;
};

// Shared properties of the items of a document. The item is a FileId, FolderId or PropertyId. Names
// are unique within an item.
class DocumentSharedValues
{
public:
    virtual ~DocumentSharedValues() = default;

    // In the order in which they were set first.
    virtual QList<SharedValue> values(ItemId item) const = 0;

    // Adds it, or replaces value and type of the one of that name.
    virtual Qtilities::Core::Status set(ItemId item, const SharedValue &value) = 0;
    // False when there is none of that name.
    virtual bool remove(ItemId item, const QString &name) = 0;
};

} // namespace MorvalenCore
