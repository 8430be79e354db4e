#include "configurations/severalbuilds.h"

#include "configurations/ConfigurationItem.h"
#include "configurations/JointBuild.h"
#include "configurations/SpreadBuild.h"

namespace MorvalenCore {

std::optional<bool> buildSeveral(const QList<BuildConfiguration *> &configurations,
                                 const BuildOptions &options)
{
    QList<ConfigurationItem *> items;
    for (BuildConfiguration *configuration : configurations)
        items.append(qobject_cast<ConfigurationItem *>(configuration));
    if (options.isDry || items.isEmpty() || items.contains(nullptr))
        return std::nullopt;
    if (options.spread)
        return SpreadBuild(items, options).run();
    return items.size() == 1 ? items.first()->runWith(options) : JointBuild(items, options).run();
}

} // namespace MorvalenCore
