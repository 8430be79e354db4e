#pragma once

#include <limits>

namespace commands {

// How many arguments a call may have, the command word included.
struct ArgumentCount
{
    int least = 1;
    int most = std::numeric_limits<int>::max();

    constexpr bool accepts(int count) const { return count >= least && count <= most; }
};

inline constexpr ArgumentCount anyArguments {};
constexpr ArgumentCount exactly(int count) { return {count, count}; }
constexpr ArgumentCount between(int least, int most) { return {least, most}; }
constexpr ArgumentCount moreThan(int count) { return {count + 1}; }
constexpr ArgumentCount atMost(int count) { return {1, count}; }

} // namespace commands
