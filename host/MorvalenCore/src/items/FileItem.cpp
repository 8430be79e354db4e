#include "items/FileItem.h"

#include "items/DesignFiles.h"

namespace MorvalenCore {

QString FileItem::node() const { return part().name(part().fileSet(firstElement())); }

bool FileItem::isGenerated() const { return part().generated(firstElement()).has_value(); }

QString FileItem::generatedVersion() const
{
    return part().generated(firstElement()).value_or(GeneratedInfo()).version;
}

} // namespace MorvalenCore
