#pragma once

#include "items/PathItem.h"

#include <MorvalenCore/DesignFile.h>

namespace MorvalenCore {

class DesignFiles;

// A file of a design.
class FileItem final : public PathItem<DesignFile, FileId, DesignFiles>
{
public:
    using Owner = DesignFiles;
    using PathItem::PathItem;

    QString node() const override;
    bool isGenerated() const override;
    QString generatedVersion() const override;
};

} // namespace MorvalenCore
