#pragma once

#include "app/places/TextPlace.h"

#include <QColor>
#include <QPalette>

// Colours between those of a palette, so that what is marked is readable on light and on dark.
namespace shades {

// So many hundredths of the second colour in the first.
QColor mix(const QColor &first, const QColor &second, int hundredths);

QColor currentLine(const QPalette &palette);
QColor gutter(const QPalette &palette);
QColor quietText(const QPalette &palette);
// Of what is bad, of what may be, and of what is only to be known.
QColor severity(TextPlace::Severity severity, const QPalette &palette);
QColor found(const QPalette &palette);
// A bracket without its other one.
QColor unmatched(const QPalette &palette);

// Whether text is lighter than what is behind it.
bool isDark(const QPalette &palette);

} // namespace shades
