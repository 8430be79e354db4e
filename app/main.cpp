// The program: a desktop application for designs, and the same without a window for scripts.

#include "app/BatchRun.h"
#include "app/builds/BuildInterrupt.h"
#include "app/CommandLine.h"
#include "app/process/display.h"
#include "app/process/programend.h"
#include "app/process/qtmessages.h"
#include "app/process/standardstreams.h"
#include "app/process/TerminalProgress.h"
#include "app/session/Session.h"
#include "app/session/TemporarySession.h"
#include "app/terminal/TerminalRun.h"
#include "app/Translation.h"
#include "app/WindowRun.h"
#include "ensemble/ensemble.h"
#include "interp/commandsManager.h"
#include "interp/QtNotifier.h"
#include "interp/ScriptRuns.h"
#include "scripting/TclScriptManager.h"

#include <MorvalenCore/BuildSettings.h>
#include <MorvalenCore/DesignProjectItem.h>
#include <Qtilities/FileLoggerEngine.h>
#include <Qtilities/Logger.h>
#include <Qtilities/ProjectManager.h>
#include <Qtilities/QtilitiesApplication.h>
#include <Qtilities/StandardErrorEngine.h>
#include <Qtilities/statuslog.h>

#include <QDir>
#include <QLocale>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Result;
using Qtilities::Core::Status;
using Qtilities::CoreGui::QtilitiesApplication;
using Qtilities::Logging::FileLoggerEngine;
using Qtilities::Logging::Logger;
using Qtilities::Logging::LoggerEngine;
using Qtilities::Logging::logStatus;
using Qtilities::Logging::StandardErrorEngine;
using Qtilities::ProjectManagement::ProjectManager;
using TclScripting::TclScriptManager;

namespace {

constexpr int failure = 1;
constexpr int badCommandLine = 2;

int fail(const QString &reason, int status = badCommandLine)
{
    standardstreams::printError(u"morvalen: "_s + reason);
    return status;
}

int show(const QString &text) { return standardstreams::print(text) ? 0 : failure; }

QString version()
{
    return QCoreApplication::applicationName() + u' ' + QCoreApplication::applicationVersion();
}

// The log goes to a file of the session, and without a window to standard error.
void startLog(const CommandLine &line)
{
    if (!line.hasWindow()) {
        auto *engine = new StandardErrorEngine;
        engine->setMessageContexts(LoggerEngine::SystemWide);
        engine->setMessageTypes(line.logTypes);
        Logger::instance()->attachLoggerEngine(engine);
    }
    auto *file = new FileLoggerEngine(u"Log File"_s, line.sessionFolder + u"/Logs"_s);
    file->setMessageContexts(LoggerEngine::SystemWide);
    Logger::instance()->attachLoggerEngine(file);
    logStatus(file->open(), Logger::Warning);
}

int runInBatch(const CommandLine &line)
{
    TclScriptManager manager(nullptr);
    manager.initializeMode();
    programend::prepare(commandsManager::getInstance(nullptr)->interp);
    const TerminalProgress progress;
    BuildInterrupt interrupt;
    BatchRun run(line, manager);
    if (line.run != CommandLine::Run::Terminal)
        return run.run();
    run.prepare();
    // There is no window; but what runs can be stopped.
    Qtk_KeepWindowAlive([] {});
    QObject::connect(ScriptRuns::instance(), &ScriptRuns::stopping, &interrupt,
                     &BuildInterrupt::cancelBuilds);
    TerminalRun(line.sessionFolder, manager).run();
    return programend::save() ? 0 : failure;
}

// The arguments of the command line are not Qt's; without a window its platform is one that needs
// no display, and does not look for fonts, which took a quarter of such a start.
int runApplication(const CommandLine &line)
{
    static QByteArray arguments[] {"morvalen", "-platform", "minimal"};
    static char *argv[] {arguments[0].data(), arguments[1].data(), arguments[2].data(), nullptr};
    static int argc = 3;
    if (line.hasWindow()) {
        argc = 1;
        argv[1] = nullptr;
    }
    QtilitiesApplication application(argc, argv);
    QtilitiesApplication::setApplicationDisplayName(u"Morvalen"_s);
    QtilitiesApplication::setApplicationSessionPath(line.sessionFolder);
    startLog(line);
    MorvalenCore::BuildSettings::ask({line.jobs, line.keepGoing});
    if (line.hasTemporarySession)
        Logger::instance()->logMessage(
            QString(), Logger::Warning,
            u"HOME is not set; the session of this run is in the temporary folder \"%1\""_s.arg(
                line.sessionFolder));
    static MorvalenCore::DesignProjectItem designsOfProjects;
    ProjectManager::instance()->addProjectItem(&designsOfProjects);
    Qtk_InitNotifier(&application);
    Qtk_LetNotifierRest();
    ensemble::create(commandsManager::getInstance(nullptr)->interp, line.folder);
    // What startup.tcl leaves would be seen by nobody in a run without a window, and its error by
    // nobody at all.
    TclScriptManager::logStartup();
    if (!line.hasWindow())
        return runInBatch(line);
    const Translation translation(QLocale::system().uiLanguages());
    return WindowRun(line.files).run();
}

// The platform's place for it, else a temporary one.
Status chooseSession(CommandLine *line)
{
    line->sessionFolder = Session::defaultFolder();
    if (!line->sessionFolder.isEmpty())
        return {};
    const Result<QString> made = TemporarySession::make();
    line->hasTemporarySession = true;
    line->sessionFolder = made.isOk() ? made.value() : QString();
    return made.status();
}

Status prepareSession(CommandLine *line)
{
    const Status chosen = line->sessionFolder.isEmpty() ? chooseSession(line) : Status();
    return chosen.isOk() ? Session::prepare(line->sessionFolder) : chosen;
}

} // namespace

int main(int argc, char **argv)
{
    programend::begin();
    standardstreams::openClosedOnes();
    qtmessages::sendToLog();
    QCoreApplication::setApplicationName(u"morvalen"_s);
    QCoreApplication::setApplicationVersion(QStringLiteral(MORVALEN_VERSION));

    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    Result<CommandLine> parsed = CommandLine::parse(arguments, QDir::currentPath());
    if (!parsed.isOk())
        return fail(parsed.status().text() + u"\nTry \"morvalen --help\"."_s);
    CommandLine &line = parsed.value();
    if (line.run == CommandLine::Run::ShowHelp)
        return show(CommandLine::help());
    if (line.run == CommandLine::Run::ShowVersion)
        return show(version());

    if (line.run == CommandLine::Run::Terminal && !LineEditor::hasTerminal()) {
        line.run = CommandLine::Run::Script;
        line.script = CommandLine::standardInput;
    }
    const bool isScript = line.run == CommandLine::Run::Script;
    if (const Status script = isScript ? BatchRun::checkScript(line.script) : Status();
        !script.isOk())
        return fail(script.text());
    if (const Status shown = line.hasWindow() ? display::check() : Status(); !shown.isOk())
        return fail(shown.text(), failure);
    if (const Status prepared = prepareSession(&line); !prepared.isOk())
        return fail(prepared.text());
    programend::leave(runApplication(line));
}
