#pragma once

#include "component/Generation.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace MorvalenCore {

// What the generations of IP-XACT differ in.
namespace Ipxact {

// The namespace of what this program adds to a component.
inline constexpr char ownNamespace[] = "urn:morvalen:host:1";

std::optional<Generation> generationOf(QByteArrayView uri);
QByteArrayView namespaceOf(Generation generation);
// "1685-2014" and the like.
QString nameOf(Generation generation);

// The place of a child element among its siblings: a smaller one stands in front. -1 for a child
// or parent that is not in the tables.
int childRank(Generation generation, QByteArrayView parent, QByteArrayView child);

// The word for the type of a file by the suffix of its name, "unknown" where there is none.
QString fileTypeOf(Generation generation, const QString &path);

} // namespace Ipxact
} // namespace MorvalenCore
