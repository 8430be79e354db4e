#include "app/editor/EditorSettings.h"

#include "app/session/Settings.h"

#include <QCoreApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QPointer>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString fontKey = u"Editor/font"_s;
const QString zoomKey = u"Editor/zoom"_s;
const QString tabWidthKey = u"Editor/tab_width"_s;
const QString tabsKey = u"Editor/indent_with_tabs"_s;
const QString followKey = u"Editor/indent_as_text"_s;

constexpr int smallestPoints = 4;
constexpr int largestPoints = 96;

// Measured, since not every font that is of fixed pitch says so: Noto Sans Mono does not.
bool isOfFixedPitch(const QFont &font)
{
    const QFontMetricsF metrics(font);
    const qreal width = metrics.horizontalAdvance(u'i');
    const QString others = u"W.m0"_s;
    return std::all_of(others.begin(), others.end(),
                       [&](QChar c) { return metrics.horizontalAdvance(c) == width; });
}

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

QFont EditorSettings::defaultFont()
{
    return fixedPitch(QFontDatabase::systemFont(QFontDatabase::FixedFont));
}

QFont EditorSettings::fixedPitch(const QFont &font)
{
    if (isOfFixedPitch(font))
        return font;
    QFont fixed(u"monospace"_s);
    fixed.setStyleHint(QFont::Monospace);
    fixed.setFixedPitch(true);
    fixed.setPointSize(QFontInfo(font).pointSize());
    return fixed;
}

QFont EditorSettings::shownFont() const
{
    QFont shown = font();
    shown.setPointSize(
        qBound(smallestPoints, QFontInfo(shown).pointSize() + zoom(), largestPoints));
    return shown;
}

int EditorSettings::zoom() const { return Settings().value(zoomKey).toInt(); }

// What would not be seen is not counted either.
void EditorSettings::setZoom(int points)
{
    const int usual = QFontInfo(font()).pointSize();
    const int bounded = qBound(smallestPoints - usual, points, largestPoints - usual);
    Settings().set(zoomKey, bounded == 0 ? QVariant() : QVariant(bounded));
    Q_EMIT fontChanged();
}

Indentation EditorSettings::indentation() const
{
    const Settings settings;
    return {!settings.value(tabsKey).toBool(),
            qBound(1, settings.value(tabWidthKey, Indentation().width).toInt(), widestTab)};
}

void EditorSettings::setIndentation(const Indentation &indentation)
{
    const int width = qBound(1, indentation.width, widestTab);
    {
        Settings settings;
        settings.set(tabsKey, indentation.hasSpaces ? QVariant() : QVariant(true));
        settings.set(tabWidthKey, width == Indentation().width ? QVariant() : QVariant(width));
    }
    Q_EMIT fontChanged();
}

bool EditorSettings::followsText() const { return Settings().value(followKey, true).toBool(); }

void EditorSettings::setFollowsText(bool follow)
{
    Settings().set(followKey, follow ? QVariant() : QVariant(false));
}
