#include "app/editor/shades.h"

namespace shades {

QColor mix(const QColor &first, const QColor &second, int hundredths)
{
    const auto between = [hundredths](int from, int to) {
        return from + (to - from) * hundredths / 100;
    };
    return {between(first.red(), second.red()), between(first.green(), second.green()),
            between(first.blue(), second.blue())};
}

QColor currentLine(const QPalette &palette)
{
    return mix(palette.color(QPalette::Base), palette.color(QPalette::Highlight), 12);
}

QColor gutter(const QPalette &palette)
{
    return mix(palette.color(QPalette::Base), palette.color(QPalette::Text), 5);
}

QColor quietText(const QPalette &palette)
{
    return mix(palette.color(QPalette::Base), palette.color(QPalette::Text), 50);
}

QColor severity(TextPlace::Severity severity, const QPalette &palette)
{
    if (severity == TextPlace::Error)
        return isDark(palette) ? QColor(0xff, 0x6b, 0x60) : QColor(0xc6, 0x28, 0x28);
    if (severity == TextPlace::Warning)
        return isDark(palette) ? QColor(0xff, 0xb7, 0x4d) : QColor(0xc7, 0x6a, 0x00);
    return palette.color(QPalette::Link);
}

QColor found(const QPalette &palette)
{
    return mix(palette.color(QPalette::Base), palette.color(QPalette::Highlight), 40);
}

QColor unmatched(const QPalette &palette)
{
    return mix(palette.color(QPalette::Base), severity(TextPlace::Error, palette), 50);
}

bool isDark(const QPalette &palette)
{
    return palette.color(QPalette::Text).lightness() > palette.color(QPalette::Base).lightness();
}

} // namespace shades
