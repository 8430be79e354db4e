#include "console/QtclConsole.h"

#include "console/OutputLine.h"
#include "console/tclchannels.h"
#include "console/tclcompletion.h"
#include "interp/errorstack.h"
#include "interp/Evaluation.h"
#include "interp/ScriptRuns.h"
#include "interp/TclCallBack.h"
#include "interp/tcltext.h"

#include <QRegularExpression>

using namespace Qt::Literals::StringLiterals;

namespace {

// Results: TCL_ERROR; the usage text with the command's name in it.
int usage(Tcl_Interp *interp, const char *name, const QString &text)
{
    tcltext::appendResult(interp, text.arg(tcltext::fromTcl(name)));
    return TCL_ERROR;
}

} // namespace

QPointer<QtclConsole> QtclConsole::theInstance;

QtclConsole *QtclConsole::getInstance(QWidget *parent, const QString &welcomeText)
{
    if (!theInstance)
        theInstance = new QtclConsole(parent, welcomeText);
    return theInstance;
}

QtclConsole::QtclConsole(QWidget *parent, const QString &welcomeText)
    : QConsole(parent, welcomeText)
{
    using Binding = TclCallBack<QtclConsole>;
    Binding::registerMethod(this, "history", &QtclConsole::showHistory,
                            "Shows the commands history", nullptr);
    Binding::registerMethod(this, "set_prompt", &QtclConsole::setPrompt, "Set a new prompt",
                            nullptr);
    Binding::registerMethod(this, "save_script", &QtclConsole::saveScript,
                            "Saves a script of executed commands", nullptr);
    interp = commandsManager::getInstance(nullptr)->interp;
    tclchannels::install(interp, this);
    setPrompt(u"morvalen > "_s, true);
}

QtclConsole::~QtclConsole()
{
    const QStringList names = TclCallBack<QtclConsole>::methodNames;
    for (const QString &name : names)
        commandsManager::getInstance(nullptr)->unregisterFunction(name.toUtf8().constData());
    // It may be destroyed by the command that it runs; a mutex must not be while it is locked.
    Q_UNUSED(mutex.tryLock())
    mutex.unlock();
}

bool QtclConsole::isCommandComplete(const QString &command)
{
    return Tcl_CommandComplete(tcltext::toTcl(command).constData()) != 0;
}

QString QtclConsole::interpretCommand(const QString &command, int *res)
{
    // In a pass, Tcl is between two commands of something else.
    const ScriptRuns *runs = ScriptRuns::instance();
    if ((runs && runs->isInPass()) || !mutex.tryLock()) {
        *res = 1;
        return u"Command cannot be executed!"_s;
    }
    // The command may close the window that owns the console.
    const QPointer<QtclConsole> alive(this);
    Tcl_Interp *const commandInterp = interp;
    QString result;
    if (!command.isEmpty()) {
        // Tcl's own exit would end the program without asking.
        const QString torun = command == "exit"_L1 ? u"dbgExit"_s : command;
        Evaluation evaluation(torun);
        *res = evaluation.finish(Tcl_Eval(commandInterp, tcltext::toTcl(torun).constData()));
        result = tcltext::result(commandInterp);
        if (alive && outputLine) {
            outputLine->finish();
            errorLine->finish();
        }
        if (*res != TCL_OK)
            errorstack::tell(commandInterp, *res);
        if (alive)
            QConsole::interpretCommand(torun, res);
    }
    if (alive)
        mutex.unlock();
    return result;
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
    Tcl_ResetResult(commandInterp);
    if (argc != 1)
        return usage(commandInterp, argv[0], u"Usage: %1\n"_s);
    QString list;
    for (qsizetype i = 0; i < history.size(); ++i)
        list += u"%1\t%2\n"_s.arg(QString::number(i + 1), history.at(i));
    tcltext::appendResult(commandInterp, list);
    return TCL_OK;
}

int QtclConsole::setPrompt(void *, Tcl_Interp *commandInterp, int argc, const char **argv)
{
    Tcl_ResetResult(commandInterp);
    if (argc != 2)
        return usage(commandInterp, argv[0], u"Usage: %1 new_prompt\n"_s);
    QConsole::setPrompt(tcltext::fromTcl(argv[1]), false);
    return TCL_OK;
}

int QtclConsole::saveScript(void *, Tcl_Interp *commandInterp, int argc, const char **argv)
{
    Tcl_ResetResult(commandInterp);
    if (argc != 2)
        return usage(commandInterp, argv[0], u"Usage: %1 script_file_name\n"_s);
    // Inverted on purpose: scripts rely on an error for a file that was written.
    return QConsole::saveScript(tcltext::fromTcl(argv[1])) == 0 ? TCL_ERROR : TCL_OK;
}
