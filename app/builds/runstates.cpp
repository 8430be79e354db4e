#include "app/builds/runstates.h"

#include <QCoreApplication>

using MorvalenCore::BuildConfiguration;

QString runstates::word(BuildConfiguration::RunState state)
{
    static constexpr const char *words[] = {
        QT_TRANSLATE_NOOP("runstates", "Idle"), QT_TRANSLATE_NOOP("runstates", "Running"),
        QT_TRANSLATE_NOOP("runstates", "Completed"), QT_TRANSLATE_NOOP("runstates", "Failed"),
        QT_TRANSLATE_NOOP("runstates", "Cancelled")};
    return QCoreApplication::translate("runstates", words[state]);
}
