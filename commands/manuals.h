#pragma once

#include "commands/texts.h"

#include <QStringList>

namespace commands {

// What a command with subcommands tells about itself: the rows of its usage text, and every form
// that its tables understand, those included that the usage text leaves out.
struct Manual
{
    UsageRows usage;
    QStringList (*forms)();
};

extern const Manual projectManual;
extern const Manual designsManual;
extern const Manual designManual;
extern const Manual filesManual;
extern const Manual fileManual;
extern const Manual foldersManual;
extern const Manual folderManual;
extern const Manual propertiesManual;
extern const Manual propertyManual;
extern const Manual buildsManual;
extern const Manual buildManual;

} // namespace commands
