#include "app/session/preferences.h"

#include "app/session/Settings.h"

#include <MorvalenCore/settingkeys.h>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;
namespace SettingKeys = MorvalenCore::SettingKeys;

namespace preferences {

namespace {

struct MemoryRow
{
    QString key;
    bool usually;
};

const MemoryRow memories[] = {
    {u"Remember/window_layout"_s, true},
    {u"Remember/recent_files"_s, true},
    {u"Remember/console_history"_s, false},
    {u"Remember/open_things"_s, true},
};

const QString fontKey = u"Console/font"_s;
const QString themeKey = u"Appearance/theme"_s;
const QString themeWords[] = {u"desktop"_s, u"light"_s, u"dark"_s};
const QString pagesKey = u"Builds/unsaved_pages"_s;
const QString pagesWords[] = {u"ask"_s, u"save"_s, u"leave"_s};

} // namespace

bool remembers(Memory memory)
{
    return Settings().value(memories[memory].key, memories[memory].usually).toBool();
}

void setRemembers(Memory memory, bool remember)
{
    const bool usual = remember == memories[memory].usually;
    Settings().set(memories[memory].key, usual ? QVariant() : QVariant(remember));
}

std::optional<QFont> consoleFont()
{
    const QString text = Settings().value(fontKey).toString();
    QFont chosen;
    if (text.isEmpty() || !chosen.fromString(text))
        return std::nullopt;
    return chosen;
}

void setConsoleFont(const std::optional<QFont> &font)
{
    Settings().set(fontKey, font ? QVariant(font->toString()) : QVariant());
}

QString launcher() { return Settings().value(SettingKeys::launcher).toString(); }

void setLauncher(const QString &prefix)
{
    Settings().set(SettingKeys::launcher, prefix.isEmpty() ? QVariant() : QVariant(prefix));
}

QStringList targetFolders() { return Settings().value(SettingKeys::targetFolders).toStringList(); }

void setTargetFolders(const QStringList &folders)
{
    Settings().set(SettingKeys::targetFolders, folders.isEmpty() ? QVariant() : QVariant(folders));
}

int jobs() { return std::max(0, Settings().value(SettingKeys::jobs).toInt()); }

void setJobs(int count)
{
    Settings().set(SettingKeys::jobs, count > 0 ? QVariant(count) : QVariant());
}

bool keepsGoing() { return Settings().value(SettingKeys::keepGoing).toBool(); }

void setKeepsGoing(bool keepGoing)
{
    Settings().set(SettingKeys::keepGoing, keepGoing ? QVariant(true) : QVariant());
}

QMap<QString, QString> pools()
{
    QMap<QString, QString> depths;
    const Settings settings;
    for (const QString &name : settings.keys(SettingKeys::pools))
        depths.insert(name, settings.value(SettingKeys::pools + u'/' + name).toString());
    return depths;
}

void setPools(const QMap<QString, QString> &depths)
{
    Settings settings;
    for (const QString &name : settings.keys(SettingKeys::pools)) {
        if (!depths.contains(name))
            settings.remove(SettingKeys::pools + u'/' + name);
    }
    for (auto pool = depths.cbegin(); pool != depths.cend(); ++pool)
        settings.set(SettingKeys::pools + u'/' + pool.key(), *pool);
}

PagesBeforeBuild pagesBeforeBuild()
{
    const QString word = Settings().value(pagesKey).toString();
    for (const auto choice : {PagesBeforeBuild::Save, PagesBeforeBuild::Leave}) {
        if (word == pagesWords[int(choice)])
            return choice;
    }
    return PagesBeforeBuild::Ask;
}

void setPagesBeforeBuild(PagesBeforeBuild choice)
{
    Settings().set(pagesKey,
                   choice == PagesBeforeBuild::Ask ? QVariant() : pagesWords[int(choice)]);
}

Theme theme()
{
    const QString word = Settings().value(themeKey).toString();
    for (const auto choice : {Theme::Light, Theme::Dark}) {
        if (word == themeWords[int(choice)])
            return choice;
    }
    return Theme::Desktop;
}

void setTheme(Theme theme)
{
    Settings().set(themeKey, theme == Theme::Desktop ? QVariant() : themeWords[int(theme)]);
}

bool isWritable() { return Settings().isWritten(); }

} // namespace preferences
