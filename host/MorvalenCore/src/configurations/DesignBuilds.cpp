#include "configurations/DesignBuilds.h"

#include "configurations/BuildRecords.h"
#include "configurations/ConfigurationItem.h"
#include "configurations/targetplaces.h"
#include "items/DesignState.h"

#include <Qtilities/statuslog.h>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Result;
using Qtilities::Core::Status;
using Qtilities::Logging::Logger;
using Qtilities::Logging::logStatus;

namespace MorvalenCore {

DesignBuilds::DesignBuilds(DesignState &designState, DesignFiles &fileItems)
    : state(designState),
      files(fileItems),
      records(std::make_unique<BuildRecords>(designState, fileItems))
{
}

DesignBuilds::~DesignBuilds() = default;

void DesignBuilds::load()
{
    const DocumentBuilds &written = state.document().builds();
    for (const QList all = written.configurations(); const BuildDescription &description : all)
        takeUp(description);
    takeUpDefault();
    activeName = written.activeName();
}

void DesignBuilds::takeUp(const BuildDescription &description)
{
    items.push_back(
        std::make_unique<ConfigurationItem>(*this, state, files, *records, description));
    loadRecord(*items.back());
}

void DesignBuilds::takeUpDefault()
{
    if (!find(ConfigurationItem::nameOfDefault())
        && !state.document().files().filesWithBuildCommand().isEmpty())
        takeUp({ConfigurationItem::nameOfDefault(), QString(), {}, {}});
}

void DesignBuilds::clear()
{
    items.clear();
    records->clear();
}

void DesignBuilds::saveRecords() { records->save(); }

void DesignBuilds::loadRecord(const ConfigurationItem &item)
{
    const Result<QString> targetPath = item.targetPathOnDisk();
    if (targetPath.isOk())
        records->load(targetPath.value());
}

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
        logStatus(state.change([&] { return state.document().builds().setActiveName(activeName); }),
                  Logger::Warning);
    else if (state.changed)
        state.changed();
}

Status DesignBuilds::checkName(const QString &name) const
{
    if (name.isEmpty())
        return Status::invalidArgument(u"The name of a build configuration cannot be empty"_s);
    if (name == u"."_s || name == u".."_s || std::any_of(name.cbegin(), name.cend(), [](QChar c) {
            return c == u'/' || c.category() == QChar::Other_Control;
        }))
        return Status::invalidArgument(
            u"A build configuration cannot have the name \"%1\""_s.arg(name));
    if (find(name))
        return Status::alreadyExists(
            u"The design \"%1\" has a build configuration \"%2\" already"_s.arg(state.name(),
                                                                                name));
    return {};
}

Status DesignBuilds::write(const BuildDescription &description, const QString &formerName)
{
    const Status named = description.name == formerName ? Status() : checkName(description.name);
    if (!named.isOk())
        return named;
    return state.document().builds().write(description, formerName);
}

Result<BuildConfiguration *> DesignBuilds::add(const QString &name)
{
    const Status status = state.change([&] {
        const BuildDescription description {name, {}, {}, {}};
        const Status accepted = checkName(name);
        const Status written = accepted.isOk() ? write(description, name) : accepted;
        if (written.isOk())
            takeUp(description);
        return written;
    });
    if (!status.isOk())
        return status;
    return items.back().get();
}

Status DesignBuilds::change(ConfigurationItem &item, const BuildDescription &description)
{
    const BuildDescription before = item.description();
    if (description == before)
        return {};
    return state.change([&] {
        const Status written = write(description, before.name);
        if (!written.isOk())
            return written;
        item.takeUp(description);
        if (description.targetPath != before.targetPath)
            allowTargetPath(description.targetPath, state.folder());
        loadRecord(item);
        DocumentBuilds &document = state.document().builds();
        const bool renamed = description.name != before.name;
        Status marked;
        if (renamed && document.activeName() == before.name)
            marked = document.setActiveName(description.name);
        if (renamed && activeName == before.name)
            activeName = description.name;
        takeUpDefault();
        return marked;
    });
}

Status DesignBuilds::remove(const QString &name)
{
    return state.change([&] {
        const BuildConfiguration *item = find(name);
        DocumentBuilds &written = state.document().builds();
        if (item && item->runState() == BuildConfiguration::Running)
            return Status::busy(
                u"The build \"%1\" of design \"%2\" is running"_s.arg(name, state.name()));
        if (!written.remove(name))
            return Status::notFound(
                u"The design \"%1\" has no build configuration \"%2\" of its own"_s.arg(
                    state.name(), name));
        Status marked;
        if (written.activeName() == name)
            marked = written.setActiveName({});
        std::erase_if(items, [item](const auto &other) { return other.get() == item; });
        takeUpDefault();
        return marked;
    });
}

} // namespace MorvalenCore
