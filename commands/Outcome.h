#pragma once

#include "commands/Arguments.h"

#include <QString>

#include <optional>
#include <tcl.h>

namespace commands {

// What a call of a command came to: one text and one return code. A step that does not understand
// its call answers with the usage, whose text is made only when it is shown.
class [[nodiscard]] Outcome
{
public:
    static Outcome ok(const QString &text) { return {TCL_OK, text}; }
    static Outcome error(const QString &text) { return {TCL_ERROR, text}; }

    // "true" or "false" as the answer to a question.
    static Outcome truth(bool value);

    // "true", or "false" as an error, so that a script can test with catch.
    static Outcome found(bool value);

    // The usage text, as an error or as a good answer.
    static Outcome usage() { return {TCL_ERROR, std::nullopt}; }
    static Outcome usageAsAnswer() { return {TCL_OK, std::nullopt}; }

    // The same outcome with its usage text, which usageText makes, put in where one is wanted.
    template <typename UsageText>
    Outcome withUsage(const UsageText &usageText) const
    {
        return answer ? *this : Outcome(code, usageText());
    }

    // Makes it the interpreter's result, the only one. Results: the return code.
    int report(Tcl_Interp *interp) const;

private:
    Outcome(int returnCode, const std::optional<QString> &text) : code(returnCode), answer(text) { }

    int code;
    std::optional<QString> answer;
};

// The body of a command procedure: clears the result, runs the command on its arguments and reports
// what it came to. Results: the return code.
template <typename Command>
int run(Tcl_Interp *interp, int argc, const char **argv, const Command &command)
{
    Tcl_ResetResult(interp);
    return command(Arguments(argc, argv)).report(interp);
}

} // namespace commands
