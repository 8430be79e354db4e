// The program: a desktop application for designs, and the same without a window for scripts.

#include "app/BatchRun.h"
#include "app/CommandLine.h"
#include "app/PlainRun.h"
#include "app/process/display.h"
#include "app/process/programend.h"
#include "app/process/qtmessages.h"
#include "app/process/standardstreams.h"
#include "app/ProgramStart.h"
#include "app/windowlibrary.h"

#include <QCoreApplication>
#include <QDir>

using namespace Qt::Literals::StringLiterals;
using programstart::fail;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

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
    programend::leave(plainrun::run(line));
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
