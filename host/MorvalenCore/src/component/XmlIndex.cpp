#include "component/XmlIndex.h"

#include "component/XmlReader.h"

#include <algorithm>

namespace MorvalenCore {

XmlIndex XmlIndex::read(const QByteArray &bytes, const Wanted &wanted, const XmlLimits &limits)
{
    XmlReader reader(bytes, wanted, limits);
    return reader.read();
}

int XmlIndex::lineOf(const QByteArray &bytes, qsizetype offset)
{
    const auto end = bytes.begin() + std::min(offset, bytes.size());
    return 1 + static_cast<int>(std::count(bytes.begin(), end, '\n'));
}

} // namespace MorvalenCore
