#pragma once

#include "app/find/textmatching.h"

#include <Qtilities/Status.h>

// Putting another text in the place of what was found.
namespace replacing {

// The line of a match as it will be.
QString preview(const textmatching::Match &match, const QString &replacement);

// Replaces matches of one file, in the page that shows it, where it can be undone, else on disk,
// with coding and ends of lines kept. Nothing is changed when the file is no longer what was
// searched.
Qtilities::Core::Status replace(const QList<textmatching::Match> &matches,
                                const QString &replacement);

} // namespace replacing
