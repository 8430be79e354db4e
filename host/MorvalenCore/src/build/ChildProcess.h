#pragma once

#include <QString>

#include <sys/types.h>

namespace MorvalenCore {

// A process of a build, as the log names it.
struct ChildProcess
{
    pid_t id;
    QString name;
};

} // namespace MorvalenCore
