#pragma once

#include <QTextCursor>

#include <optional>

// The brackets of a text that belong together.
namespace brackets {

struct Pair
{
    int here = -1;
    int other = -1; // -1 when there is none
};

// The bracket before or behind the cursor, and its other one. One in a comment or a string belongs
// to another one there, as far as the text is coloured. Nothing when there is no bracket, or the
// other one is too far away to be looked for while the cursor moves.
std::optional<Pair> at(const QTextCursor &cursor);

} // namespace brackets
