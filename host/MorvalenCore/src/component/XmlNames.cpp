#include "component/XmlNames.h"

namespace MorvalenCore {

namespace {

std::string_view view(QByteArrayView bytes)
{
    return {bytes.data(), static_cast<size_t>(bytes.size())};
}

} // namespace

XmlNames::XmlNames()
{
    // As many as most documents have.
    scopes.reserve(4);
    names.reserve(32);
    spaces.emplace_back();
    scopes.emplace_back();
    scopes[outermost].prefix = "xml";
    scopes[outermost].space = space("http://www.w3.org/XML/1998/namespace");
}

std::uint32_t XmlNames::declare(std::uint32_t scope, QByteArrayView prefix, QByteArrayView uri)
{
    std::string key(view(prefix));
    key += ' ';
    key += view(uri);
    const auto known = scopes[scope].inner.find(key);
    if (known != scopes[scope].inner.end())
        return known->second;
    const auto number = static_cast<std::uint32_t>(scopes.size());
    scopes[scope].inner.emplace(std::move(key), number);
    scopes.push_back({scope, prefix.toByteArray(), space(uri), {}, {}});
    return number;
}

std::uint32_t XmlNames::name(std::uint32_t scope, QByteArrayView qualifiedName)
{
    Numbers &known = scopes[scope].names;
    const auto found = known.find(view(qualifiedName));
    if (found != known.end())
        return found->second;
    const auto number = static_cast<std::uint32_t>(names.size());
    known.emplace(std::string(view(qualifiedName)), number);
    const qsizetype colon = qualifiedName.indexOf(':');
    XmlName name;
    name.scope = scope;
    name.prefix = qualifiedName.first(colon < 0 ? 0 : colon).toByteArray();
    name.local = qualifiedName.sliced(colon + 1).toByteArray();
    name.space = lookUp(scope, name.prefix);
    names.push_back(std::move(name));
    return number;
}

std::uint32_t XmlNames::space(QByteArrayView uri)
{
    if (uri.isEmpty())
        return 0;
    const auto found = spaceNumbers.find(view(uri));
    if (found != spaceNumbers.end())
        return found->second;
    const auto number = static_cast<std::uint32_t>(spaces.size());
    spaceNumbers.emplace(std::string(view(uri)), number);
    spaces.push_back(uri.toByteArray());
    return number;
}

std::uint32_t XmlNames::lookUp(std::uint32_t scope, QByteArrayView prefix) const
{
    for (std::uint32_t at = scope;; at = scopes[at].outer) {
        if (scopes[at].prefix == prefix)
            return scopes[at].space;
        if (at == outermost)
            return 0;
    }
}

bool XmlNames::findPrefix(std::uint32_t scope, std::uint32_t space, QByteArray &prefix) const
{
    for (std::uint32_t at = scope; at != outermost; at = scopes[at].outer) {
        if (scopes[at].space == space && lookUp(scope, scopes[at].prefix) == space) {
            prefix = scopes[at].prefix;
            return true;
        }
    }
    return false;
}

} // namespace MorvalenCore
