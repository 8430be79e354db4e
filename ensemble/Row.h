#pragma once

#include "ensemble/Answer.h"

#include <QStringList>

#include <span>

namespace ensemble {

class Call;

// An option of a call, such as "-node N": its name, and what stands behind it; a flag has nothing
// there.
struct Option
{
    const char *name;
    const char *value = nullptr;
    bool isRequired = false;
};

using Options = std::span<const Option>;

struct Row;
using Rows = std::span<const Row>;

// One subcommand: its word, its arguments as the usage text shows them, one word each (those in
// question marks may be left out, one that ends with dots stands for any number), its options,
// what it does, and the step that does it. A row of a group has rows of its own instead.
struct Row
{
    const char *word;
    const char *arguments = "";
    Options options = {};
    const char *does = "";
    Answer (*step)(const Call &) = nullptr;
    const Rows *items = nullptr;
};

// The call of a row as usage texts show it, such as "files ?-design ID? ?-node N?"; prefix is what
// stands in front of the word.
QString usageOf(const Row &row, const QString &prefix);

// "a", "a or b", "a, b or c".
QString choices(const QStringList &words);

QStringList wordsOf(Rows rows);
QStringList namesOf(Options options);

} // namespace ensemble
