#pragma once

#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

namespace MorvalenCore {

// How a process is started.
struct ChildStartInfo
{
    // The program, by its path, and its arguments.
    QStringList command;
    QString folder;
    QProcessEnvironment environment;
    // A descriptor that it gets under the same number; -1 for none.
    int inherited = -1;
};

} // namespace MorvalenCore
