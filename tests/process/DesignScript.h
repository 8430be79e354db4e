#pragma once

#include "tests/process/Program.h"

// Runs scripts of the program on a new design named "d".
class DesignScript
{
public:
    DesignScript() : folder(program.session + QStringLiteral("/Designs/d")) { }

    // Runs the script in the folder of the design. The answers are "CODE TEXT" for each call of
    // "say", with "WF" for the current folder; "touch" makes an empty file.
    QStringList answers(const QByteArray &script, const QStringList &arguments = {}) const
    {
        const Ended ended = program.runScript(beginning + script, arguments);
        if (ended.status != 0)
            qWarning().noquote() << ended.status << ended.err;
        return QString::fromUtf8(ended.out).split(QChar(0x1e), Qt::SkipEmptyParts);
    }

    Program program;
    QString folder;

private:
    static inline const QByteArray beginning = R"(designs new d
cd [design get wfp]
fconfigure stdout -encoding utf-8
proc say args {
    set code [catch $args text]
    puts -nonewline "$code [string map [list [pwd] WF] $text]\x1e"
}
proc touch {name} {
    file mkdir [file dirname $name]
    close [open $name w]
}
)";
};
