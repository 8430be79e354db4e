#pragma once

#include "document/DocumentSharedValues.h"

namespace MorvalenCore {

class ComponentTree;

// Shared properties of the items of a component document. The item is a FileId, FolderId or
// PropertyId. Names are unique within an item.
class SharedValues final : public DocumentSharedValues
{
public:
    explicit SharedValues(ComponentTree &tree);

    // In the order in which they were set first.
    QList<SharedValue> values(ItemId item) const override;

    // Adds it, or replaces value and type of the one of that name.
    Qtilities::Core::Status set(ItemId item, const SharedValue &value) override;
    // False when there is none of that name.
    bool remove(ItemId item, const QString &name) override;

private:
    std::uint32_t list(ItemId item) const;
    std::uint32_t find(ItemId item, const QString &name) const;
    void makeRoom(std::uint32_t property);

    ComponentTree &tree;
};

} // namespace MorvalenCore
