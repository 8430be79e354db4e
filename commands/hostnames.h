#pragma once

#include "interp/export.h"

#include <QString>

// Names that the scripting library and the application share: a key of the settings, and the
// categories of parsers.
namespace commands::hostnames {

TCLSCRIPTING_EXPORT extern const QString autoMaximizeDesignWidgets;
TCLSCRIPTING_EXPORT extern const QString inputParsers;
TCLSCRIPTING_EXPORT extern const QString outputParsers;
TCLSCRIPTING_EXPORT extern const QString diffParsers;
TCLSCRIPTING_EXPORT extern const QString infoParsers;

} // namespace commands::hostnames
