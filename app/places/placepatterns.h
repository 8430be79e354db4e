#pragma once

#include "app/places/TextPlace.h"

#include <QList>

// How compilers, simulators, synthesis tools and Tcl name places of files in what they print: one
// table, in the order in which its rows are tried.
namespace placepatterns {

// Characters of a line that are looked at.
constexpr qsizetype longestLine = 1000;

// The places that a line of a tool's output names; the first row that fits says what they are.
QList<TextPlace> placesIn(const QString &line);

// Whether the line shows a piece of source, or points into one, as tools print it below a message.
bool isExcerpt(const QString &line);

} // namespace placepatterns
