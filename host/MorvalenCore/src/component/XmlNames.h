#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <cstdint>
#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

namespace MorvalenCore {

// An element's name where it stands: what it says and what it means.
struct XmlName
{
    std::uint32_t scope = 0;
    // Number of the namespace; 0 is none.
    std::uint32_t space = 0;
    QByteArray prefix;
    QByteArray local;

    QByteArray qualified() const
    {
        QByteArray text;
        appendQualified(text);
        return text;
    }
    void appendQualified(QByteArray &text) const
    {
        if (!prefix.isEmpty()) {
            text += prefix;
            text += ':';
        }
        text += local;
    }
};

// The element names, namespaces and scopes of namespace declarations of one document. All three
// are small numbers, equal ones are kept once. Everything is in UTF-8, whatever the document's
// encoding is.
class XmlNames
{
public:
    XmlNames();

    // The scope outside of all elements, where only the prefix xml is bound.
    static constexpr std::uint32_t outermost = 0;

    // The scope inside an element that declares a prefix (empty for the default namespace).
    std::uint32_t declare(std::uint32_t scope, QByteArrayView prefix, QByteArrayView uri);

    // The number of a qualified name that is used in a scope.
    std::uint32_t name(std::uint32_t scope, QByteArrayView qualifiedName);

    const XmlName &at(std::uint32_t name) const { return names[name]; }

    // How many names and scopes are known.
    size_t size() const { return names.size() + scopes.size(); }

    // The number of a namespace, which is made known if it was not.
    std::uint32_t space(QByteArrayView uri);
    const QByteArray &uri(std::uint32_t space) const { return spaces[space]; }

    // What a prefix is bound to in a scope; 0 when to nothing.
    std::uint32_t lookUp(std::uint32_t scope, QByteArrayView prefix) const;

    // A prefix that is bound to the namespace in the scope: the innermost. False when none is.
    bool findPrefix(std::uint32_t scope, std::uint32_t space, QByteArray &prefix) const;

private:
    struct Hash
    {
        using is_transparent = void;
        size_t operator()(std::string_view text) const
        {
            return std::hash<std::string_view> {}(text);
        }
    };
    using Numbers = std::unordered_map<std::string, std::uint32_t, Hash, std::equal_to<>>;

    struct Scope
    {
        std::uint32_t outer = 0;
        QByteArray prefix;
        std::uint32_t space = 0;
        Numbers names;
        // Scopes just inside, by prefix and namespace.
        Numbers inner;
    };

    std::vector<Scope> scopes;
    std::vector<XmlName> names;
    std::vector<QByteArray> spaces;
    Numbers spaceNumbers;
};

} // namespace MorvalenCore
