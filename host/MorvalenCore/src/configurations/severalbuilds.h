#pragma once

#include <MorvalenCore/BuildConfiguration.h>
#include <MorvalenCore/BuildOptions.h>

#include <QList>

#include <optional>

namespace MorvalenCore {

// What DesignManager::build() does, for configurations of designs of this program; nothing when one
// is not, or nothing is to be run.
std::optional<bool> buildSeveral(const QList<BuildConfiguration *> &configurations,
                                 const BuildOptions &options);

} // namespace MorvalenCore
