#include "commands/ArgumentCount.h"
#include "commands/commands.h"
#include "commands/Outcome.h"
#include "commands/texts.h"

#include <Qtilities/Logger.h>

using namespace Qt::Literals::StringLiterals;
using commands::ArgumentCount;
using commands::Arguments;
using commands::Outcome;
using Qtilities::Logging::Logger;

namespace {

using LogOperation = void (Logger::*)(const QString &, Logger::MessageType, const QVariant &,
                                      const QVariant &, const QVariant &, const QVariant &);

struct TypeWord
{
    QStringView word;
    Logger::MessageType type;
};

constexpr TypeWord typeWords[] = {
    {u"info", Logger::Info},
    {u"warning", Logger::Warning},
    {u"error", Logger::Error},
};

// The blanks before the line feeds belong to the text.
constexpr QStringView usage = u"Usage: %1 message type\n\n"
                              "Supported Types:\n - info \n - warning \n - error";

Outcome logTo(LogOperation operation, ArgumentCount accepted, const Arguments &arguments)
{
    if (accepted.accepts(arguments.count())) {
        const QString type = arguments.count() > 2 ? arguments[2] : u"info"_s;
        for (const TypeWord &row : typeWords) {
            if (row.word != type)
                continue;
            (Logger::instance()->*operation)(QString(), row.type, arguments[1], {}, {}, {});
            return Outcome::ok(u"Message logged"_s);
        }
    }
    return Outcome::error(commands::fill(usage, {arguments[0]}));
}

} // namespace

int LogQtiMessage(ClientData, Tcl_Interp *interp, int argc, const char **argv)
{
    return commands::run(interp, argc, argv, [](const Arguments &arguments) {
        return logTo(&Logger::logMessage, commands::between(2, 3), arguments);
    });
}

int LogQtiPriorityMessage(ClientData, Tcl_Interp *interp, int argc, const char **argv)
{
    return commands::run(interp, argc, argv, [](const Arguments &arguments) {
        return logTo(&Logger::logPriorityMessage, commands::exactly(3), arguments);
    });
}
