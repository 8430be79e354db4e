#pragma once

#include "commands/ArgumentCount.h"
#include "commands/Outcome.h"

#include <QStringList>

#include <cstddef>

namespace commands {

template <typename Call>
struct Subcommand;

// A table of subcommands, tried from its first row to its last. Refers to an array that outlives
// it.
template <typename Call>
struct Subcommands
{
    constexpr Subcommands() = default;

    template <std::size_t Count>
    constexpr Subcommands(const Subcommand<Call> (&rows)[Count]) : first(rows),
                                                                   count(Count)
    {
    }

    constexpr const Subcommand<Call> *begin() const { return first; }
    constexpr const Subcommand<Call> *end() const { return first + count; }

    const Subcommand<Call> *first = nullptr;
    std::size_t count = 0;
};

// One word that a command understands: how many arguments a call with it may have, and the step
// that answers. A row without a step goes on with the next word and the items; one with both has a
// step that looks at the call first and then goes on by itself.
template <typename Call>
struct Subcommand
{
    const char *word;
    ArgumentCount arguments;
    Outcome (*step)(const Call &) = nullptr;
    Subcommands<Call> items = {};
};

// The arguments of a call, which is either just these or holds them beside what they are about.
inline const Arguments &argumentsOf(const Arguments &arguments) { return arguments; }

template <typename Call>
const Arguments &argumentsOf(const Call &call)
{
    return call.arguments;
}

// Runs the first row whose word stands at index in the call's arguments; the usage when there is
// none or when the call has not as many arguments as the row wants.
template <typename Call>
Outcome dispatch(Subcommands<Call> rows, const Call &call, int index = 1)
{
    for (const Subcommand<Call> &row : rows) {
        if (!argumentsOf(call).is(index, row.word))
            continue;
        if (!row.arguments.accepts(argumentsOf(call).count()))
            return Outcome::usage();
        return row.step ? row.step(call) : dispatch(row.items, call, index + 1);
    }
    return Outcome::usage();
}

// Every form that a table understands, such as "get name", in the order in which they are tried.
template <typename Call>
QStringList forms(Subcommands<Call> rows, const QString &prefix = {})
{
    QStringList all;
    for (const Subcommand<Call> &row : rows) {
        const QString form = prefix + QString::fromUtf8(row.word);
        if (row.items.count == 0)
            all.append(form);
        else
            all += forms(row.items, form + u' ');
    }
    return all;
}

} // namespace commands
