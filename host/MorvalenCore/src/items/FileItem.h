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
    Qtilities::Core::QtilitiesCategory category() const override;
    bool isGenerated() const override;
    QString generatedVersion() const override;
    Qtilities::Core::Status enterDocument() override;

    // For the collection: that a build has made the file, which the document need not know.
    const std::optional<GeneratedInfo> &made() const { return madeBy; }
    void setMade(const std::optional<GeneratedInfo> &info) { madeBy = info; }

private:
    std::optional<GeneratedInfo> madeBy;
};

} // namespace MorvalenCore
