#include "console/QtclConsole.h"

#include "console/CommandGate.h"
#include "console/consolecommands.h"
#include "console/OutputLine.h"
#include "console/tclchannels.h"
#include "console/tclcompletion.h"
#include "interp/ScriptRuns.h"
#include "interp/tcltext.h"

#include <QRegularExpression>

using namespace Qt::Literals::StringLiterals;

namespace {

// A text may come before anybody has asked for the console.
[[maybe_unused]] const bool canBeMade = [] {
    tclchannels::setConsoleMaker([] { QtclConsole::getInstance(nullptr, QString()); });
    return true;
}();

} // namespace

QPointer<QtclConsole> QtclConsole::theInstance;

QtclConsole *QtclConsole::getInstance(QWidget *parent, const QString &welcomeText)
{
    if (!theInstance)
        theInstance = new QtclConsole(parent, welcomeText);
    return theInstance;
}

QtclConsole::QtclConsole(QWidget *parent, const QString &welcomeText)
    : QConsole(parent, welcomeText),
      gate(std::make_unique<CommandGate>())
{
    consolecommands::bind(this);
    interp = commandsManager::getInstance(nullptr)->interp;
    tclchannels::install(
        interp,
        {.console = this,
         .show = [this](bool isError,
                        const QString &text) { isError ? showError(text) : showOutput(text); },
         .gather = [this](bool isError,
                          const QByteArray &bytes) { return gather(isError, bytes); }});
    setPrompt(u"morvalen > "_s, true);
}

QtclConsole::~QtclConsole() { consolecommands::unbind<QtclConsole>(); }

bool QtclConsole::isCommandComplete(const QString &command)
{
    return Tcl_CommandComplete(tcltext::toTcl(command).constData()) != 0;
}

QString QtclConsole::interpretCommand(const QString &command, int *res)
{
    const auto endOutput = [this] {
        if (outputLine) {
            outputLine->finish();
            errorLine->finish();
        }
    };
    const auto take = [this, res](const QString &run) { QConsole::interpretCommand(run, res); };
    return gate->run(interp, command, res, {.console = this, .endOutput = endOutput, .take = take});
}

QStringList QtclConsole::suggestCommand(const QString &cmd, QString &prefix)
{
    static const QRegularExpression opening(u"[[{;\n]"_s);
    const qsizetype begin = cmd.lastIndexOf(opening) + 1;
    prefix = cmd.first(begin);
    const QString query = u"info commands [join {"_s + cmd.sliced(begin) + u"*}]"_s;
    if (Tcl_Eval(interp, tcltext::toTcl(query).constData()) != TCL_OK)
        return {};
    const QString names = tcltext::result(interp);
    return names.isEmpty() ? QStringList() : names.split(u' ');
}

// While an event of Tcl's waits, a command may come.
bool QtclConsole::isBusy() const
{
    const ScriptRuns *runs = ScriptRuns::instance();
    return runs && (runs->isInPass() || !runs->command().isEmpty());
}

void QtclConsole::keepTypedKeys()
{
    QConsole::keepTypedKeys();
    const ScriptRuns *runs = ScriptRuns::instance();
    if (!runs)
        return;
    // The prompt comes behind the end of the command.
    connect(runs, &ScriptRuns::ended, this, &QConsole::typeKeptKeys,
            Qt::ConnectionType(Qt::QueuedConnection | Qt::UniqueConnection));
    // As a terminal does.
    connect(runs, &ScriptRuns::stopping, this, &QConsole::forgetKeptKeys, Qt::UniqueConnection);
}

QStringList QtclConsole::suggestWord(const QString &text, QString &prefix)
{
    return tclcompletion::suggest(interp, text, prefix, wordsBehind);
}

void QtclConsole::setNextWords(const tclcompletion::NextWords &nextWords)
{
    wordsBehind = nextWords;
}

void QtclConsole::setWholeLines(bool whole)
{
    outputLine = whole ? line(outColor, &QtclConsole::logConsoleOutput) : nullptr;
    errorLine = whole ? line(errColor, &QtclConsole::logErrorOutput) : nullptr;
}

std::unique_ptr<OutputLine> QtclConsole::line(const QColor &color,
                                              void (QtclConsole::*tell)(const QString &))
{
    const auto tail = std::make_shared<QTextCursor>();
    return std::make_unique<OutputLine>(OutputLine::Receiver {
        .begin = [this, color, tail](const QString &text) { *tail = beginOutput(text, color); },
        .goOn = [this, color, tail](const QString &text) { continueOutput(*tail, text, color); },
        .tell = [this, tell](const QString &text) { (this->*tell)(text); }});
}

bool QtclConsole::gather(bool isError, const QByteArray &bytes)
{
    if (!outputLine)
        return false;
    (isError ? errorLine : outputLine)->write(bytes);
    return true;
}

void QtclConsole::logConsoleOutput(const QString &output) { Q_EMIT newConsoleOutput(output); }

void QtclConsole::logErrorOutput(const QString &output) { Q_EMIT newErrorOutput(output); }

void QtclConsole::showOutput(const QString &output)
{
    writeOutput(output, outColor);
    logConsoleOutput(output);
}

void QtclConsole::showError(const QString &output)
{
    writeOutput(output, errColor);
    logErrorOutput(output);
}

int QtclConsole::showHistory(void *, Tcl_Interp *commandInterp, int argc, const char **argv)
{
    return consolecommands::showHistory(commandInterp, argc, argv, history);
}

int QtclConsole::setPrompt(void *, Tcl_Interp *commandInterp, int argc, const char **argv)
{
    return consolecommands::setPrompt(commandInterp, argc, argv, [this](const QString &newPrompt) {
        QConsole::setPrompt(newPrompt, false);
    });
}

int QtclConsole::saveScript(void *, Tcl_Interp *commandInterp, int argc, const char **argv)
{
    return consolecommands::saveScript(commandInterp, argc, argv, [this](const QString &fileName) {
        return QConsole::saveScript(fileName);
    });
}
