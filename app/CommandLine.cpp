#include "app/CommandLine.h"

#include <MorvalenCore/BuildSettings.h>
#include <Qtilities/Logger.h>

#include <QDir>

#include <algorithm>
#include <array>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::BuildSettings;
using Qtilities::Core::Result;
using Qtilities::Core::Status;
using Qtilities::Logging::Logger;

namespace {

struct LogLevel
{
    QStringView name;
    int types;
};

constexpr int errors = Logger::Error | Logger::Fatal;
constexpr int warnings = errors | Logger::Warning;
constexpr int infos = warnings | Logger::Info;

constexpr std::array logLevels {
    LogLevel {u"error", errors},
    LogLevel {u"warning", warnings},
    LogLevel {u"info", infos},
    LogLevel {u"debug", infos | Logger::Debug | Logger::Trace},
};

QString optionOf(CommandLine::Run run)
{
    switch (run) {
    case CommandLine::Run::Script:
        return u"--batch"_s;
    case CommandLine::Run::Commands:
        return u"-c"_s;
    default:
        return u"--terminal"_s;
    }
}

// Goes through the arguments once, from left to right.
class Parser
{
public:
    Parser(const QStringList &arguments, const QString &folder) : rest(arguments), base(folder)
    {
        line.folder = folder;
    }

    Status run();

    CommandLine line;

private:
    // Takes one option; its value, if it wants one, stands behind an equals sign or is the next
    // argument.
    struct Option
    {
        QStringView name;
        QStringView shortName;
        QStringView value;
        Status (Parser::*take)(const QString &value);
    };
    static const std::array<Option, 9> options;

    Status takeArgument(const QString &argument);
    Status takeOption(const Option &option, const QString &argument, std::optional<QString> value);
    Status takeScript(const QString &value);
    Status takeCommand(const QString &value);
    Status takeTerminal(const QString &value);
    Status takeRun(CommandLine::Run run);
    Status takeSession(const QString &value);
    Status takeLogLevel(const QString &value);
    Status takeJobs(const QString &value);
    Status takeKeepGoing(const QString &value);
    Status takeHelp(const QString &value);
    Status takeVersion(const QString &value);

    QString absolute(const QString &path) const { return QDir(base).absoluteFilePath(path); }

    QStringList rest;
    QString base;
    bool onlyFiles = false;
    bool finished = false;
};

const std::array<Parser::Option, 9> Parser::options {{
    {u"--batch", {}, u"SCRIPT", &Parser::takeScript},
    {{}, u"-c", u"COMMAND", &Parser::takeCommand},
    {u"--terminal", {}, {}, &Parser::takeTerminal},
    {u"--session", {}, u"DIR", &Parser::takeSession},
    {u"--log-level", {}, u"LEVEL", &Parser::takeLogLevel},
    {u"--jobs", {}, u"N", &Parser::takeJobs},
    {u"--keep-going", {}, {}, &Parser::takeKeepGoing},
    {u"--help", u"-h", {}, &Parser::takeHelp},
    {u"--version", u"-v", {}, &Parser::takeVersion},
}};

Status Parser::run()
{
    line.logTypes = warnings;
    while (!rest.isEmpty() && !finished) {
        if (const Status taken = takeArgument(rest.takeFirst()); !taken.isOk())
            return taken;
    }
    if (!line.hasWindow() && !line.files.isEmpty() && !finished)
        return Status::invalidArgument(
            u"files are opened in a window only: %1"_s.arg(line.files.first()));
    return {};
}

Status Parser::takeArgument(const QString &argument)
{
    if (onlyFiles || !argument.startsWith(u'-') || argument == u"-") {
        if (argument.isEmpty())
            return Status::invalidArgument(u"a file name is empty"_s);
        line.files.append(absolute(argument));
        return {};
    }
    if (argument == u"--") {
        onlyFiles = true;
        return {};
    }
    const qsizetype equals = argument.startsWith(u"--"_s) ? argument.indexOf(u'=') : -1;
    const QString name = argument.left(equals);
    for (const Option &option : options) {
        if (name == option.name || name == option.shortName)
            return takeOption(option, name,
                              equals < 0 ? std::nullopt : std::optional(argument.mid(equals + 1)));
    }
    return Status::invalidArgument(u"unknown option %1"_s.arg(name));
}

Status Parser::takeOption(const Option &option, const QString &argument,
                          std::optional<QString> value)
{
    const bool wantsValue = !option.value.isEmpty();
    if (!wantsValue && value)
        return Status::invalidArgument(u"%1 takes no value"_s.arg(argument));
    if (wantsValue && !value) {
        if (rest.isEmpty())
            return Status::invalidArgument(u"%1 needs %2 behind it"_s.arg(argument, option.value));
        value = rest.takeFirst();
    }
    return (this->*option.take)(value.value_or(QString()));
}

// A run is of one kind.
Status Parser::takeRun(CommandLine::Run run)
{
    if (line.run != CommandLine::Run::Window && line.run != run)
        return Status::invalidArgument(u"%1 and %2 exclude each other"_s.arg(
            optionOf(std::min(line.run, run)), optionOf(std::max(line.run, run))));
    line.run = run;
    return {};
}

Status Parser::takeScript(const QString &value)
{
    if (const Status taken = takeRun(CommandLine::Run::Script); !taken.isOk())
        return taken;
    if (value.isEmpty())
        return Status::invalidArgument(u"the name of the script is empty"_s);
    line.script = value == u"-"_s ? CommandLine::standardInput : absolute(value);
    line.scriptArguments = rest;
    rest.clear();
    return {};
}

Status Parser::takeCommand(const QString &value)
{
    line.commands.append(value);
    return takeRun(CommandLine::Run::Commands);
}

Status Parser::takeTerminal(const QString &) { return takeRun(CommandLine::Run::Terminal); }

Status Parser::takeSession(const QString &value)
{
    if (value.isEmpty())
        return Status::invalidArgument(u"the name of the session folder is empty"_s);
    line.sessionFolder = absolute(value);
    return {};
}

Status Parser::takeLogLevel(const QString &value)
{
    for (const LogLevel &level : logLevels) {
        if (value == level.name) {
            line.logTypes = level.types;
            return {};
        }
    }
    return Status::invalidArgument(
        u"unknown log level %1 (error, warning, info, debug)"_s.arg(value));
}

Status Parser::takeJobs(const QString &value)
{
    line.jobs = BuildSettings::countFrom(value);
    const QString shown = value.isEmpty() ? u"an empty word"_s : value;
    return line.jobs
        ? Status()
        : Status::invalidArgument(u"--jobs wants a number of at least 1, not %1"_s.arg(shown));
}

Status Parser::takeKeepGoing(const QString &)
{
    line.keepGoing = true;
    return {};
}

Status Parser::takeHelp(const QString &)
{
    line.run = CommandLine::Run::ShowHelp;
    finished = true;
    return {};
}

Status Parser::takeVersion(const QString &)
{
    line.run = CommandLine::Run::ShowVersion;
    finished = true;
    return {};
}

} // namespace

Result<CommandLine> CommandLine::parse(const QStringList &arguments, const QString &folder)
{
    Parser parser(arguments, folder);
    if (const Status parsed = parser.run(); !parsed.isOk())
        return parsed;
    return parser.line;
}

QString CommandLine::help()
{
    return uR"(Usage: morvalen [OPTION...] [FILE...]
       morvalen [OPTION...] --batch SCRIPT [ARG...]
       morvalen [OPTION...] -c COMMAND [-c COMMAND...]
       morvalen [OPTION...] --terminal

Opens the main window, and in it the component and project files named. With
--batch, -c or --terminal no window is opened and none is needed.

  --batch SCRIPT [ARG...]  runs the Tcl file SCRIPT, or standard input for -,
                           with the words behind it in argv, and ends
  -c COMMAND               runs a Tcl command and prints its result; stops at
                           the first one that fails
  --terminal               asks for commands in the terminal; when that is none,
                           runs standard input as a script
  --session DIR            keeps scripts, designs and settings in folder DIR,
                           which is made when it is missing
  --log-level LEVEL        which messages of the log go to standard error in a
                           run without a window: error, warning (the default),
                           info or debug
  --jobs N                 runs N steps of a build at the same time
  --keep-going             after a step of a build has failed, runs those that
                           do not depend on it
  -h, --help               shows this text
  -v, --version            shows the version

Relative paths are of the folder of the call, in scripts and commands too.

Exit status: 0 when all went well, 1 when a command failed or something could
not be saved at the end, 2 for a bad command line, session folder or an
unreadable script; else what quit or exit says.
)"_s;
}
