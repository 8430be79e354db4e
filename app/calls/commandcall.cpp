#include "app/calls/commandcall.h"

#include "app/calls/HostCall.h"
#include "interp/tcltext.h"

#include <Qtilities/statuslog.h>

#include <vector>

CommandAnswer callCommand(commandsManager::CommandProc procedure, const QStringList &arguments)
{
    std::vector<QByteArray> texts;
    for (const QString &argument : arguments)
        texts.push_back(tcltext::toTcl(argument));
    std::vector<const char *> argv;
    for (const QByteArray &text : texts)
        argv.push_back(text.constData());
    argv.push_back(nullptr);
    Tcl_Interp *interp = commandsManager::getInstance(nullptr)->interp;
    const Qtilities::Logging::StatusCollector told;
    const int code = procedure(nullptr, interp, int(texts.size()), argv.data());
    CommandAnswer answer {code == TCL_OK, tcltext::result(interp), {}};
    for (const Qtilities::Core::Status &status : told.statuses())
        answer.reasons.append(HostCall::linesOf(status));
    return answer;
}
