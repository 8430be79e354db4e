#pragma once

#include <QHashFunctions>
#include <QTypeInfo>

#include <cstdint>

namespace MorvalenCore {

// Names one element of an open component document. A value: cheap to copy, to compare and to hash.
// It stays valid whatever else is edited, and across saving; once its element is removed it names
// nothing, for good, and is never given out again. A default one names nothing.
struct ItemId
{
    std::uint32_t node = 0;

    explicit operator bool() const { return node != 0; }
    bool operator==(const ItemId &) const = default;
};

// The kinds of items, kept apart by the compiler.
struct FileSetId : ItemId
{
};
struct FileId : ItemId
{
};
struct FolderId : ItemId
{
};
struct PropertyId : ItemId
{
};

} // namespace MorvalenCore

// Lists of them are copied as bytes.
Q_DECLARE_TYPEINFO(MorvalenCore::FileSetId, Q_PRIMITIVE_TYPE);
Q_DECLARE_TYPEINFO(MorvalenCore::FileId, Q_PRIMITIVE_TYPE);
Q_DECLARE_TYPEINFO(MorvalenCore::FolderId, Q_PRIMITIVE_TYPE);
Q_DECLARE_TYPEINFO(MorvalenCore::PropertyId, Q_PRIMITIVE_TYPE);

namespace MorvalenCore {

inline size_t qHash(const ItemId &id, size_t seed = 0) { return ::qHash(id.node, seed); }

} // namespace MorvalenCore
