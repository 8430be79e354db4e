#include "app/session/preferences.h"

#include <Qtilities/QtilitiesApplication.h>

#include <QSettings>

using namespace Qt::Literals::StringLiterals;
using Qtilities::CoreGui::QtilitiesApplication;

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

QVariant read(const QString &key, const QVariant &usually = {})
{
    return QSettings(QtilitiesApplication::settingsFileName(), QSettings::IniFormat)
        .value(key, usually);
}

// An invalid value removes the key.
void write(const QString &key, const QVariant &value)
{
    QSettings settings(QtilitiesApplication::settingsFileName(), QSettings::IniFormat);
    if (value.isValid())
        settings.setValue(key, value);
    else
        settings.remove(key);
}

} // namespace

bool remembers(Memory memory)
{
    return read(memories[memory].key, memories[memory].usually).toBool();
}

void setRemembers(Memory memory, bool remember)
{
    const bool usual = remember == memories[memory].usually;
    write(memories[memory].key, usual ? QVariant() : QVariant(remember));
}

std::optional<QFont> consoleFont()
{
    const QString text = read(fontKey).toString();
    QFont chosen;
    if (text.isEmpty() || !chosen.fromString(text))
        return std::nullopt;
    return chosen;
}

void setConsoleFont(const std::optional<QFont> &font)
{
    write(fontKey, font ? QVariant(font->toString()) : QVariant());
}

QString launcher() { return read(launcherKey).toString(); }

void setLauncher(const QString &prefix)
{
    write(launcherKey, prefix.isEmpty() ? QVariant() : QVariant(prefix));
}

bool isWritable()
{
    QSettings settings(QtilitiesApplication::settingsFileName(), QSettings::IniFormat);
    settings.sync();
    return settings.status() == QSettings::NoError && settings.isWritable();
}

} // namespace preferences
