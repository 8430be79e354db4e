#include "app/session/preferences.h"

#include "app/session/Settings.h"

#include <MorvalenCore/settingkeys.h>

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
};

const QString fontKey = u"Console/font"_s;

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

bool isWritable() { return Settings().isWritten(); }

} // namespace preferences
