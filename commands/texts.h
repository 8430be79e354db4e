#pragma once

#include <QString>

#include <initializer_list>
#include <optional>
#include <span>

// The texts of the commands are tables with placeholders %1 to %9; here they become whole.
namespace commands {

// One line of a usage text: a subcommand with its arguments, and what it does.
struct UsageRow
{
    const char *key;
    const char *help;
};

using UsageRows = std::span<const UsageRow>;

// The text with its placeholders filled in one pass: a value that holds a placeholder itself is
// never looked into, one that is named twice is put in twice, one that has no value stays.
QString fill(QStringView text, std::initializer_list<QString> values);

// The whole usage text of a command: the header with its placeholders filled, then the rows.
QString usageText(QStringView header, std::initializer_list<QString> values, UsageRows rows);

// What a word says, in any case; nothing when it is neither "true" nor "false".
std::optional<bool> truthWord(const QString &word);

} // namespace commands
