#pragma once

#include "component/ComponentDocument.h"

#include <QByteArray>

#include <memory>

// Documents for tests, written for them.
namespace ComponentTexts {

inline QByteArray uriOf(const char *generation)
{
    const QByteArray name(generation);
    if (name == "1685-2014" || name == "1685-2022")
        return "http://www.accellera.org/XMLSchema/IPXACT/" + name;
    return "http://www.spiritconsortium.org/XMLSchema/SPIRIT/" + name;
}

// A component with an identity; rest stands behind it, indented by two blanks.
inline QByteArray component(const QByteArray &rest, const char *generation = "1685-2014")
{
    return "<?xml version=\"1.0\"?>\n<i:component xmlns:i=\"" + uriOf(generation)
        + "\">\n  <i:vendor>v.org</i:vendor>\n  <i:library>lib</i:library>\n"
          "  <i:name>demo</i:name>\n  <i:version>1.0</i:version>\n"
        + rest + "</i:component>\n";
}

inline std::unique_ptr<MorvalenCore::ComponentDocument> open(const QByteArray &bytes)
{
    return MorvalenCore::ComponentDocument::fromBytes(bytes, QStringLiteral("/d/component.xml"))
        .valueOr(nullptr);
}

} // namespace ComponentTexts
