#include "design/FileItem.h"

#include "design/DesignFiles.h"

namespace MorvalenCore {

QString FileItem::node() const { return part().name(part().fileSet(firstElement())); }

QString FileItem::generatedVersion() const { return part().generated(firstElement()).version; }

} // namespace MorvalenCore
