// Where the program enters the library that has the window.

#include "app/process/programend.h"
#include "app/process/qtmessages.h"
#include "app/ProgramStart.h"
#include "app/Translation.h"
#include "app/windowlibrary.h"
#include "app/WindowRun.h"
#include "scripting/TclScriptManager.h"

#include <Qtilities/QtilitiesApplication.h>

#include <QLocale>

using Qtilities::Core::Status;
using Qtilities::CoreGui::QtilitiesApplication;
using TclScripting::TclScriptManager;

namespace {

int run(const CommandLine &line)
{
    // The arguments of the command line are not Qt's.
    static char name[] = "morvalen";
    static char *argv[] {name, nullptr};
    static int argc = 1;
    QtilitiesApplication application(argc, argv);
    QtilitiesApplication::setApplicationDisplayName(QStringLiteral("Morvalen"));
    programstart::bringHostUp(line);
    TclScriptManager::logStartup();
    const Translation translation(QLocale::system().uiLanguages());
    return WindowRun(line.files).run();
}

} // namespace

extern "C" Q_DECL_EXPORT int morvalenWindowRun(const CommandLine &given)
{
    programend::begin();
    qtmessages::sendToLog();
    CommandLine line = given;
    if (const Status prepared = programstart::prepareSession(&line); !prepared.isOk())
        return programstart::fail(prepared.text());
    programend::leave(run(line));
}
