#pragma once

#include "commands/conventions.h"

#include <QtGlobal>

namespace commands {

// Brackets one operation that changes the application's model: open as long as it lives. A scope
// ends before the command's answer is written.
class [[nodiscard]] ExecBracket
{
public:
    ExecBracket() { initExec(); }
    ~ExecBracket() { finalizeExec(); }
    Q_DISABLE_COPY_MOVE(ExecBracket)
};

} // namespace commands
