#include "app/PlainRun.h"

#include "app/BatchRun.h"
#include "app/process/BuildInterrupt.h"
#include "app/process/programend.h"
#include "app/process/TerminalProgress.h"
#include "app/ProgramStart.h"
#include "app/terminal/TerminalRun.h"
#include "commands/commandset.h"
#include "console/PlainConsole.h"
#include "interp/commandsManager.h"
#include "interp/QtNotifier.h"
#include "interp/ScriptRuns.h"
#include "scripting/startup.h"

#include <QCoreApplication>

namespace startup = TclScripting::startup;

namespace plainrun {

namespace {

// What TclScriptManager does, but for the scripted actions, which need a window to be called from.
void bringTclUp(PlainConsole &console)
{
    commands::registerCommandSet(*commandsManager::getInstance(nullptr));
    startup::runScript(console);
    startup::logSuccess();
    startup::watchForLateNotifier();
    programend::prepare(commandsManager::getInstance(nullptr)->interp);
}

int runInTerminal(const CommandLine &line, BatchRun &run, const BatchRun::Console &console,
                  BuildInterrupt &interrupt)
{
    run.prepare();
    // There is no window; but what runs can be stopped.
    Qtk_KeepWindowAlive([] {});
    QObject::connect(ScriptRuns::instance(), &ScriptRuns::stopping, &interrupt,
                     &BuildInterrupt::cancelBuilds);
    TerminalRun(line.sessionFolder, console).run();
    return programend::save() ? 0 : programstart::failure;
}

} // namespace

int run(const CommandLine &line)
{
    // The arguments of the command line are not Qt's.
    static char name[] = "morvalen";
    static char *argv[] {name, nullptr};
    static int argc = 1;
    QCoreApplication application(argc, argv);
    programstart::bringHostUp(line);
    // What startup.tcl leaves would be seen by nobody, and its error by nobody at all.
    startup::log();
    PlainConsole plainConsole;
    bringTclUp(plainConsole);
    const BatchRun::Console console = [&plainConsole](const QString &command, int *code) {
        return plainConsole.interpretCommand(command, code);
    };
    const TerminalProgress progress;
    BuildInterrupt interrupt;
    BatchRun batch(line, console);
    return line.run == CommandLine::Run::Terminal ? runInTerminal(line, batch, console, interrupt)
                                                  : batch.run();
}

} // namespace plainrun
