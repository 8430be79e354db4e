#include "component/XmlTag.h"

#include "component/xmltext.h"

namespace MorvalenCore {

using XmlText::isBlank;

XmlTag::XmlTag(QByteArrayView tag) : bytes(tag)
{
    const auto endsName = [&](qsizetype at) {
        return isBlank(bytes[at]) || bytes[at] == '=' || bytes[at] == '/' || bytes[at] == '>';
    };
    qsizetype at = 1;
    while (!endsName(at))
        ++at;
    name = bytes.sliced(1, at - 1);
    endOfLast = at;
    for (;;) {
        while (isBlank(bytes[at]))
            ++at;
        if (bytes[at] == '/' || bytes[at] == '>')
            return;
        const qsizetype nameFrom = at;
        while (!endsName(at))
            ++at;
        const qsizetype nameTo = at;
        while (isBlank(bytes[at]) || bytes[at] == '=')
            ++at;
        const qsizetype valueFrom = at + 1;
        const qsizetype valueTo = bytes.indexOf(bytes[at], valueFrom);
        at = valueTo + 1;
        list.push_back({bytes.sliced(nameFrom, nameTo - nameFrom),
                        bytes.sliced(valueFrom, valueTo - valueFrom), endOfLast, at, valueFrom});
        endOfLast = at;
    }
}

bool XmlTag::isSelfClosing() const { return bytes[bytes.size() - 2] == '/'; }

} // namespace MorvalenCore
