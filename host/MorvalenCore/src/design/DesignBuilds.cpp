#include "design/DesignBuilds.h"

#include "design/ConfigurationItem.h"
#include "design/DesignState.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace MorvalenCore {

DesignBuilds::DesignBuilds(DesignState &designState, DesignFiles &fileItems)
    : state(designState),
      files(fileItems)
{
}

DesignBuilds::~DesignBuilds() = default;

void DesignBuilds::load()
{
    const ComponentDocument &document = state.document();
    for (const BuildDescription &description : document.builds().configurations())
        takeUp(description);
    if (!find(ConfigurationItem::nameOfDefault())
        && !document.files().filesWithBuildCommand().isEmpty())
        takeUp({ConfigurationItem::nameOfDefault(), QString(), {}, {}});
    activeName = document.builds().activeName();
}

void DesignBuilds::takeUp(const BuildDescription &description)
{
    items.push_back(std::make_unique<ConfigurationItem>(state, files, description));
}

void DesignBuilds::clear() { items.clear(); }

QStringList DesignBuilds::names() const
{
    QStringList list;
    for (const auto &item : items)
        list.append(item->configurationName());
    return list;
}

BuildConfiguration *DesignBuilds::find(const QString &name) const
{
    for (const auto &item : items) {
        if (item->configurationName() == name)
            return item.get();
    }
    return nullptr;
}

BuildConfiguration *DesignBuilds::active() const
{
    BuildConfiguration *named = find(activeName);
    return named || items.empty() ? named : items.front().get();
}

void DesignBuilds::setActive(const BuildConfiguration *configuration)
{
    if (!configuration || configuration == active()
        || find(configuration->configurationName()) != configuration)
        return;
    activeName = configuration->configurationName();
    if (!state.isReadOnly())
        state.change(nullptr, [&](QString *error) {
            return state.document().builds().setActiveName(activeName, error);
        });
    else if (state.changed)
        state.changed();
}

bool DesignBuilds::write(const BuildDescription &description, QString *error)
{
    return state.change(error, [&](QString *reason) {
        if (description.name.isEmpty()) {
            *reason = u"The name of a build configuration cannot be empty"_s;
            return false;
        }
        if (!state.document().builds().write(description, reason))
            return false;
        if (auto *item = static_cast<ConfigurationItem *>(find(description.name)))
            item->setDescription(description);
        else
            takeUp(description);
        return true;
    });
}

bool DesignBuilds::remove(const QString &name, QString *error)
{
    return state.change(error, [&](QString *reason) {
        if (!state.document().builds().remove(name)) {
            *reason = u"The design \"%1\" has no build configuration \"%2\" of its own"_s.arg(
                state.name(), name);
            return false;
        }
        std::erase_if(items, [&](const auto &item) { return item->configurationName() == name; });
        return true;
    });
}

} // namespace MorvalenCore
