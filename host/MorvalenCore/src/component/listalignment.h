#pragma once

#include <QList>
#include <QStringList>

namespace MorvalenCore {

// For each wanted entry the place of the present one that becomes it, or -1 for a new one. Places
// ascend, so that nothing needs to be moved: as many entries as possible keep their names, and
// what is between two of those is taken to be renamed. O(n log n).
QList<int> alignLists(const QStringList &present, const QStringList &wanted);

} // namespace MorvalenCore
