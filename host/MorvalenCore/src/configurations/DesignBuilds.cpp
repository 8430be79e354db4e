#include "configurations/DesignBuilds.h"

#include "configurations/ConfigurationItem.h"
#include "items/DesignState.h"

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
    const DocumentBuilds &written = state.document().builds();
    for (const BuildDescription &description : written.configurations())
        takeUp(description);
    takeUpDefault();
    activeName = written.activeName();
}

void DesignBuilds::takeUp(const BuildDescription &description)
{
    items.push_back(std::make_unique<ConfigurationItem>(*this, state, files, description));
}

void DesignBuilds::takeUpDefault()
{
    if (!find(ConfigurationItem::nameOfDefault())
        && !state.document().files().filesWithBuildCommand().isEmpty())
        takeUp({ConfigurationItem::nameOfDefault(), QString(), {}, {}});
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

bool DesignBuilds::isFree(const QString &name, QString *error) const
{
    if (name.isEmpty())
        *error = u"The name of a build configuration cannot be empty"_s;
    else if (name == u"."_s || name == u".."_s
             || std::any_of(name.cbegin(), name.cend(), [](QChar c) {
                    return c == u'/' || c.category() == QChar::Other_Control;
                }))
        *error = u"A build configuration cannot have the name \"%1\""_s.arg(name);
    else if (find(name))
        *error =
            u"The design \"%1\" has a build configuration \"%2\" already"_s.arg(state.name(), name);
    else
        return true;
    return false;
}

BuildConfiguration *DesignBuilds::add(const QString &name, QString *error)
{
    const bool added = state.change(error, [&](QString *reason) {
        const BuildDescription description {name, {}, {}, {}};
        if (!isFree(name, reason) || !state.document().builds().write(description, reason))
            return false;
        takeUp(description);
        return true;
    });
    return added ? items.back().get() : nullptr;
}

bool DesignBuilds::change(ConfigurationItem &item, const BuildDescription &description,
                          QString *error)
{
    const BuildDescription before = item.description();
    if (description == before)
        return true;
    return state.change(error, [&](QString *reason) {
        DocumentBuilds &written = state.document().builds();
        const bool renamed = description.name != before.name;
        if ((renamed && !isFree(description.name, reason))
            || !written.write(description, reason, before.name))
            return false;
        item.takeUp(description);
        if (renamed && written.activeName() == before.name)
            written.setActiveName(description.name);
        if (renamed && activeName == before.name)
            activeName = description.name;
        takeUpDefault();
        return true;
    });
}

bool DesignBuilds::remove(const QString &name, QString *error)
{
    return state.change(error, [&](QString *reason) {
        const BuildConfiguration *item = find(name);
        DocumentBuilds &written = state.document().builds();
        if (item && item->runState() == BuildConfiguration::Running) {
            *reason = u"The build \"%1\" of design \"%2\" is running"_s.arg(name, state.name());
            return false;
        }
        if (!written.remove(name)) {
            *reason = u"The design \"%1\" has no build configuration \"%2\" of its own"_s.arg(
                state.name(), name);
            return false;
        }
        if (written.activeName() == name)
            written.setActiveName({});
        std::erase_if(items, [item](const auto &other) { return other.get() == item; });
        takeUpDefault();
        return true;
    });
}

} // namespace MorvalenCore
