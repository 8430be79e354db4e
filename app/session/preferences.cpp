#include "app/session/preferences.h"

#include "app/session/Settings.h"

using namespace Qt::Literals::StringLiterals;

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
const QString launcherKey = u"Builds/launcher"_s;
const QString targetFoldersKey = u"Builds/target_folders"_s;

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

QString launcher() { return Settings().value(launcherKey).toString(); }

void setLauncher(const QString &prefix)
{
    Settings().set(launcherKey, prefix.isEmpty() ? QVariant() : QVariant(prefix));
}

QStringList targetFolders() { return Settings().value(targetFoldersKey).toStringList(); }

void setTargetFolders(const QStringList &folders)
{
    Settings().set(targetFoldersKey, folders.isEmpty() ? QVariant() : QVariant(folders));
}

bool isWritable() { return Settings().isWritable(); }

} // namespace preferences
