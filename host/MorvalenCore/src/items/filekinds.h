#pragma once

#include <QString>

namespace MorvalenCore {

// The category of a new file by the kind that its name tells of, levels joined by "::"; "Other"
// for a name that tells nothing.
QString categoryForFileName(const QString &fileName);

} // namespace MorvalenCore
