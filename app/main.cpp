// The program: a desktop application for designs, and the same without a window for scripts.

#include "app/BatchRun.h"
#include "app/CommandLine.h"
#include "app/process/BuildInterrupt.h"
#include "app/process/display.h"
#include "app/process/programend.h"
#include "app/process/qtmessages.h"
#include "app/process/standardstreams.h"
#include "app/process/TerminalProgress.h"
#include "app/ProgramStart.h"
#include "app/terminal/TerminalRun.h"
#include "app/windowlibrary.h"
#include "commands/commandset.h"
#include "console/PlainConsole.h"
#include "interp/commandsManager.h"
#include "interp/QtNotifier.h"
#include "interp/ScriptRuns.h"
#include "scripting/startup.h"

#include <QCoreApplication>
#include <QDir>

using namespace Qt::Literals::StringLiterals;
using programstart::fail;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

namespace startup = TclScripting::startup;

namespace {

int show(const QString &text) { return standardstreams::print(text) ? 0 : programstart::failure; }

QString version()
{
    return QCoreApplication::applicationName() + u' ' + QCoreApplication::applicationVersion();
}

Result<CommandLine> readCommandLine(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    Result<CommandLine> parsed = CommandLine::parse(arguments, QDir::currentPath());
    if (parsed.isOk() && parsed.value().run == CommandLine::Run::Terminal
        && !standardstreams::haveTerminal()) {
        parsed.value().run = CommandLine::Run::Script;
        parsed.value().script = CommandLine::standardInput;
    }
    return parsed;
}

int runWithWindow(const CommandLine &line)
{
    const Status shown = display::check();
    return shown.isOk() ? windowlibrary::run(line) : fail(shown.text(), programstart::failure);
}

// What TclScriptManager does, but for the scripted actions, which need a window to be called from.
void bringTclUp(PlainConsole &console)
{
    commands::registerCommandSet(*commandsManager::getInstance(nullptr));
    startup::runScript(console);
    startup::logSuccess();
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

// From the application object to the status of the process; Qt's core is all that it needs.
int runPlain(const CommandLine &line)
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

int runWithoutWindow(CommandLine line)
{
    programend::begin();
    qtmessages::sendToLog();
    const bool isScript = line.run == CommandLine::Run::Script;
    if (const Status script = isScript ? BatchRun::checkScript(line.script) : Status();
        !script.isOk())
        return fail(script.text());
    if (const Status prepared = programstart::prepareSession(&line); !prepared.isOk())
        return fail(prepared.text());
    programend::leave(runPlain(line));
}

} // namespace

int main(int argc, char **argv)
{
    standardstreams::openClosedOnes();
    QCoreApplication::setApplicationName(u"morvalen"_s);
    QCoreApplication::setApplicationVersion(QStringLiteral(MORVALEN_VERSION));
    const Result<CommandLine> parsed = readCommandLine(argc, argv);
    if (!parsed.isOk())
        return fail(parsed.status().text() + u"\nTry \"morvalen --help\"."_s);
    const CommandLine &line = parsed.value();
    if (line.run == CommandLine::Run::ShowHelp)
        return show(CommandLine::help());
    if (line.run == CommandLine::Run::ShowVersion)
        return show(version());
    return line.hasWindow() ? runWithWindow(line) : runWithoutWindow(line);
}
