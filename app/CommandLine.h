#pragma once

#include <Qtilities/Status.h>

#include <QString>
#include <QStringList>

#include <optional>

// What the arguments of the command line ask for. Paths are absolute: a relative one is of the
// folder of the call.
struct CommandLine
{
    enum class Run { Window, Script, Commands, Terminal, ShowHelp, ShowVersion };

    Run run = Run::Window;
    // The folder of the call.
    QString folder;
    // Component and project files to open.
    QStringList files;
    // The script, which is standard input for "-", and the arguments behind it, which are its own.
    QString script;
    QStringList scriptArguments;
    QStringList commands;
    // Empty for the default one.
    QString sessionFolder;
    bool hasTemporarySession = false;
    // What of the log goes to standard error, a mask of Logger::MessageType.
    int logTypes = 0;
    // How the builds of this run are run, beside what the settings say.
    std::optional<int> jobs;
    bool keepGoing = false;

    bool hasWindow() const { return run == Run::Window; }

    // The name of the script that is standard input.
    static inline const QString standardInput = QStringLiteral("/dev/stdin");

    // Reads the arguments behind the program's name.
    static Qtilities::Core::Result<CommandLine> parse(const QStringList &arguments,
                                                      const QString &folder);

    // The text of --help, with a final line feed.
    static QString help();
};
