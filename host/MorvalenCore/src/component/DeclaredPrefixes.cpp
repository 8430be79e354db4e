#include "component/DeclaredPrefixes.h"

#include <cstring>

namespace MorvalenCore {

namespace {

QByteArrayView prefixOf(QByteArrayView name)
{
    const qsizetype colon = name.indexOf(':');
    return colon < 0 ? QByteArrayView() : name.first(colon);
}

} // namespace

// Bound by the standard.
DeclaredPrefixes::DeclaredPrefixes() : counts {{"xml", 1}, {"xmlns", 1}} { }

QByteArrayView DeclaredPrefixes::enter(QByteArrayView name, const char *const *attributes)
{
    ++depth;
    declare(attributes);
    if (!knows(prefixOf(name)))
        return prefixOf(name);
    for (; *attributes != nullptr; attributes += 2) {
        if (const QByteArrayView prefix = prefixOf(*attributes); !knows(prefix))
            return prefix;
    }
    return {};
}

void DeclaredPrefixes::leave()
{
    for (; !declarations.empty() && declarations.back().depth == depth; declarations.pop_back()) {
        const auto count = counts.find(declarations.back().prefix);
        if (--count->second != 0)
            continue;
        counts.erase(count);
        foundLast.clear();
    }
    --depth;
}

void DeclaredPrefixes::declare(const char *const *attributes)
{
    for (; *attributes != nullptr; attributes += 2) {
        if (std::strncmp(attributes[0], "xmlns:", 6) != 0 || *attributes[1] == '\0')
            continue;
        declarations.push_back({depth, attributes[0] + 6});
        ++counts[declarations.back().prefix];
    }
}

bool DeclaredPrefixes::knows(QByteArrayView prefix) const
{
    const std::string_view text(prefix.data(), size_t(prefix.size()));
    if (text == foundLast || text.empty())
        return true;
    if (!counts.contains(text))
        return false;
    foundLast = text;
    return true;
}

} // namespace MorvalenCore
