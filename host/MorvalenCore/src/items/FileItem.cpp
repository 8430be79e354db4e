#include "items/FileItem.h"

#include "items/DesignFiles.h"
#include "items/filekinds.h"

#include <Qtilities/categorytext.h>

using Qtilities::Core::QtilitiesCategory;
using Qtilities::Core::Status;

namespace MorvalenCore {

QString FileItem::node() const
{
    return elements().isEmpty() ? DesignFiles::nodeOfMade()
                                : part().name(part().fileSet(firstElement()));
}

QtilitiesCategory FileItem::category() const
{
    return elements().isEmpty() ? Qtilities::Core::categoryFrom(categoryForFileName(fileName()))
                                : PathItem::category();
}

bool FileItem::isGenerated() const
{
    return madeBy || (!elements().isEmpty() && part().generated(firstElement()).has_value());
}

QString FileItem::generatedVersion() const
{
    if (madeBy || elements().isEmpty())
        return madeBy.value_or(GeneratedInfo()).version;
    return part().generated(firstElement()).value_or(GeneratedInfo()).version;
}

Status FileItem::enterDocument()
{
    return elements().isEmpty() ? owner().enterDocument(*this) : Status();
}

} // namespace MorvalenCore
