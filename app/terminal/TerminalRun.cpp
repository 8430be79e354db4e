#include "app/terminal/TerminalRun.h"

#include "app/process/standardstreams.h"
#include "app/terminal/completion.h"
#include "interp/commandsManager.h"
#include "interp/ScriptRuns.h"
#include "interp/tcltext.h"

using namespace Qt::Literals::StringLiterals;

namespace {

const QString firstPrompt = u"morvalen > "_s;
const QString nextPrompt = u"> "_s;

bool isComplete(const QString &command)
{
    return Tcl_CommandComplete(tcltext::toTcl(command).constData()) != 0;
}

} // namespace

TerminalRun::TerminalRun(const QString &sessionFolder, const Console &theConsole)
    : console(theConsole),
      interp(commandsManager::getInstance(nullptr)->interp),
      editor(sessionFolder + u"/terminal-history"_s, terminalSignals,
             [this](const QString &text) { return completion::complete(interp, text); })
{
    // An event of Tcl's may run something while a line is edited.
    if (ScriptRuns *runs = ScriptRuns::instance())
        connect(&terminalSignals, &TerminalSignals::interrupted, runs, &ScriptRuns::stop);
}

void TerminalRun::run()
{
    QString command;
    QString line;
    for (;;) {
        const QString &prompt = command.isEmpty() ? firstPrompt : nextPrompt;
        const LineEditor::Outcome outcome = editor.read(prompt, &line);
        if (outcome == LineEditor::Outcome::End)
            return;
        if (outcome == LineEditor::Outcome::Interrupted) {
            command.clear();
            continue;
        }
        command += command.isEmpty() ? line : u'\n' + line;
        if (!isComplete(command + u'\n'))
            continue;
        if (!command.trimmed().isEmpty()) {
            editor.remember(command);
            runCommand(command);
        }
        command.clear();
    }
}

void TerminalRun::runCommand(const QString &command)
{
    int code = TCL_OK;
    interrupt.setOn(true);
    const QString text = console(command, &code);
    interrupt.setOn(false);
    // The terminal has shown ^C.
    if (interrupt.hasCome())
        editor.startOnFreshLine();
    if (code != TCL_OK)
        standardstreams::printError(text.isEmpty() ? u"\n"_s : text);
    else if (!text.isEmpty())
        standardstreams::printToTcl(text);
}
