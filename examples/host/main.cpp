// example_host SESSION COMMAND...: runs commands on the designs of SESSION/designs.json; without
// commands, shows the console in a window.

#include "interp/QtNotifier.h"
#include "JsonDesignManager.h"
#include "scripting/TclScriptManager.h"

#include <Qtilities/Logger.h>
#include <Qtilities/ObjectManager.h>
#include <Qtilities/QtilitiesApplication.h>
#include <Qtilities/QtilitiesCoreApplication.h>
#include <Qtilities/StandardErrorEngine.h>
#include <Qtilities/statuslog.h>

#include <cstdio>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::QtilitiesCoreApplication;
using Qtilities::CoreGui::QtilitiesApplication;
using Qtilities::Logging::Logger;
using TclScripting::TclScriptManager;

int main(int argc, char **argv)
{
    QtilitiesApplication application(argc, argv);
    const QStringList words = application.arguments().sliced(1);
    if (words.isEmpty())
        return 2;
    application.setApplicationSessionPath(words.first());
    auto *const errors = new Qtilities::Logging::StandardErrorEngine;
    errors->setMessageTypes(Logger::Warning | Logger::Error);
    Logger::instance()->attachLoggerEngine(errors);

    // The managers, before the scripting manager.
    JsonDesignManager designs(application.applicationSessionPath() + u"/designs.json"_s);
    if (!Qtilities::Logging::logStatus(designs.read()))
        return 1;
    MorvalenCore::DesignManager::setInstance(&designs);
    QtilitiesCoreApplication::objectManager()->registerFactoryProvider(&designs);

    Qtk_InitNotifier(&application);
    Qtk_LetNotifierRest();
    TclScriptManager::logStartup();
    TclScriptManager manager(nullptr);
    manager.initializeMode();

    int code = 0;
    for (const QString &command : words.sliced(1))
        std::printf("%s\n", qPrintable(manager.execCommad(command, &code)));
    if (words.size() > 1)
        return code;
    manager.show();
    return QCoreApplication::exec();
}
