#include "scripting/startup.h"

#include "commands/conventions.h"

#include <Qtilities/Logger.h>
#include <Qtilities/QtilitiesApplication.h>

using namespace Qt::Literals::StringLiterals;
using Qtilities::CoreGui::QtilitiesApplication;
using Qtilities::Logging::Logger;

namespace TclScripting::startup {

namespace {

// The inside of a word in double quotes that stands for the text itself: the name of a folder is
// never run as code.
QString escapedForQuotes(const QString &text)
{
    QString escaped;
    for (const QChar c : text) {
        if (u"\\\"$["_s.contains(c))
            escaped += u'\\';
        escaped += c;
    }
    return escaped;
}

} // namespace

void listen(const std::function<void(const StartupNews &)> &listener)
{
    startupListener() = listener;
}

void log()
{
    const QString script = scriptsFolder() + u"/startup.tcl"_s;
    listen([script](const StartupNews &news) {
        const QString place =
            news.line > 0 ? u"%1:%2"_s.arg(script, QString::number(news.line)) : script;
        warn(place + u": "_s + news.text);
    });
}

void warn(const QString &text) { Logger::instance()->logMessage(QString(), Logger::Warning, text); }

void logSuccess()
{
    Logger::instance()->logMessage(QString(), Logger::Info,
                                   u"Successfully initialized Tcl script environment."_s);
}

QString scriptsFolder() { return QtilitiesApplication::applicationSessionPath() + u"/Scripts"_s; }

QString goToScripts() { return u"cd \"%1\""_s.arg(escapedForQuotes(preparePath(scriptsFolder()))); }

} // namespace TclScripting::startup
