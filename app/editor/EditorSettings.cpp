#include "app/editor/EditorSettings.h"

#include "app/session/Settings.h"

#include <QCoreApplication>
#include <QFontDatabase>
#include <QPointer>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString fontKey = u"Editor/font"_s;

} // namespace

EditorSettings *EditorSettings::instance()
{
    static QPointer<EditorSettings> settings;
    if (!settings)
        settings = new EditorSettings(qApp);
    return settings;
}

QFont EditorSettings::font() const
{
    QFont font = defaultFont();
    const QString chosen = Settings().value(fontKey).toString();
    if (!chosen.isEmpty())
        font.fromString(chosen);
    return font;
}

void EditorSettings::setFont(const QFont &font)
{
    Settings().set(fontKey, font == defaultFont() ? QVariant() : QVariant(font.toString()));
    Q_EMIT fontChanged();
}

QFont EditorSettings::defaultFont() { return QFontDatabase::systemFont(QFontDatabase::FixedFont); }
