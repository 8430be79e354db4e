#include <MorvalenCore/BuildSettings.h>

#include "session/sessionsettings.h"

#include <MorvalenCore/settingkeys.h>
#include <Qtilities/SettingsFile.h>

#include <QStringList>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Result;
using Qtilities::Core::SettingsFile;
using Qtilities::Core::Status;

namespace MorvalenCore {

namespace {

BuildSettings::Asked &askedNow()
{
    static BuildSettings::Asked asked;
    return asked;
}

// The settings' form takes a text with commas for a list; what this process has set is of its own
// type still.
QString textOf(const SettingsFile &settings, const QString &key)
{
    const QVariant value = settings.value(key);
    const bool isList = value.typeId() == QMetaType::QStringList;
    return (isList ? value.toStringList().join(u',') : value.toString()).trimmed();
}

Status readJobs(const SettingsFile &settings, std::optional<int> *jobs)
{
    const QString text = textOf(settings, SettingKeys::jobs);
    *jobs = BuildSettings::countFrom(text);
    if (text.isEmpty() || *jobs)
        return {};
    return Status::invalidArgument(
        u"The setting \"jobs\" must be a number of steps, at least 1, not \"%1\""_s.arg(text));
}

Status readKeepGoing(const SettingsFile &settings, bool *keepGoing)
{
    const QString text = textOf(settings, SettingKeys::keepGoing).toLower();
    *keepGoing = text == u"true"_s || text == u"1"_s;
    if (*keepGoing || text.isEmpty() || text == u"false"_s || text == u"0"_s)
        return {};
    return Status::invalidArgument(
        u"The setting \"keep_going\" must be \"true\" or \"false\", not \"%1\""_s.arg(text));
}

Status readPools(const SettingsFile &settings, QMap<QString, int> *pools)
{
    for (const QString &name : settings.keys(SettingKeys::pools)) {
        const QString text = textOf(settings, u"Pools/"_s + name);
        const std::optional<int> depth = BuildSettings::countFrom(text);
        if (!depth)
            return Status::invalidArgument(
                u"The pool \"%1\" must have a number of steps, at least 1, not \"%2\""_s.arg(name,
                                                                                             text));
        pools->insert(name, *depth);
    }
    return {};
}

} // namespace

Result<BuildSettings> BuildSettings::current()
{
    const SettingsFile settings(sessionSettingsFile());
    BuildSettings now;
    now.jobs = askedNow().jobs;
    if (!now.jobs) {
        if (const Status read = readJobs(settings, &now.jobs); !read.isOk())
            return read;
    }
    if (const Status read = readKeepGoing(settings, &now.keepGoing); !read.isOk())
        return read;
    now.keepGoing = now.keepGoing || askedNow().keepGoing;
    now.launcher = textOf(settings, SettingKeys::launcher);
    now.allocation = textOf(settings, u"Builds/allocation"_s);
    if (!now.jobs && !now.launcher.isEmpty())
        now.jobs = jobsWithLauncher;
    if (const Status read = readPools(settings, &now.pools); !read.isOk())
        return read;
    return now;
}

void BuildSettings::ask(const Asked &asked) { askedNow() = asked; }

std::optional<int> BuildSettings::countFrom(const QString &text)
{
    bool isNumber = false;
    const int count = text.toInt(&isNumber);
    return isNumber && count > 0 ? std::optional(count) : std::nullopt;
}

} // namespace MorvalenCore
