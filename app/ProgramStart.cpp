#include "app/ProgramStart.h"

#include "app/process/standardstreams.h"
#include "app/session/Session.h"
#include "app/session/TemporarySession.h"
#include "ensemble/ensemble.h"
#include "interp/commandsManager.h"
#include "interp/QtNotifier.h"

#include <MorvalenCore/BuildSettings.h>
#include <MorvalenCore/DesignProjectItem.h>
#include <Qtilities/FileLoggerEngine.h>
#include <Qtilities/Logger.h>
#include <Qtilities/ProjectManager.h>
#include <Qtilities/QtilitiesApplication.h>
#include <Qtilities/StandardErrorEngine.h>
#include <Qtilities/statuslog.h>

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

namespace programstart {

namespace {

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

} // namespace

int fail(const QString &reason, int status)
{
    standardstreams::printError(u"morvalen: "_s + reason);
    return status;
}

Status prepareSession(CommandLine *line)
{
    const Status chosen = line->sessionFolder.isEmpty() ? chooseSession(line) : Status();
    return chosen.isOk() ? Session::prepare(line->sessionFolder) : chosen;
}

void bringHostUp(const CommandLine &line)
{
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
    Qtk_InitNotifier(nullptr);
    Qtk_LetNotifierRest();
    ensemble::create(commandsManager::getInstance(nullptr)->interp, line.folder);
}

} // namespace programstart
