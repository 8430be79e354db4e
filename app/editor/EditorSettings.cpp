#include "app/editor/EditorSettings.h"

#include <Qtilities/QtilitiesApplication.h>

#include <QFontDatabase>
#include <QSettings>

using namespace Qt::Literals::StringLiterals;
using Qtilities::CoreGui::QtilitiesApplication;

namespace {

const QString fontKey = u"Editor/font"_s;

} // namespace

EditorSettings *EditorSettings::instance()
{
    static EditorSettings settings;
    return &settings;
}

QFont EditorSettings::font() const
{
    const QSettings settings(QtilitiesApplication::settingsFileName(), QSettings::IniFormat);
    QFont font = defaultFont();
    const QString chosen = settings.value(fontKey).toString();
    if (!chosen.isEmpty())
        font.fromString(chosen);
    return font;
}

void EditorSettings::setFont(const QFont &font)
{
    QSettings settings(QtilitiesApplication::settingsFileName(), QSettings::IniFormat);
    if (font == defaultFont())
        settings.remove(fontKey);
    else
        settings.setValue(fontKey, font.toString());
    Q_EMIT fontChanged();
}

QFont EditorSettings::defaultFont() { return QFontDatabase::systemFont(QFontDatabase::FixedFont); }
