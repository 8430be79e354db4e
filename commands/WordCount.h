#pragma once

#include <limits>

namespace commands {

// How many words a call may have, the command word included.
struct WordCount
{
    int least = 1;
    int most = std::numeric_limits<int>::max();

    constexpr bool accepts(int count) const { return count >= least && count <= most; }
};

inline constexpr WordCount anyWords {};
constexpr WordCount exactly(int count) { return {count, count}; }
constexpr WordCount between(int least, int most) { return {least, most}; }
constexpr WordCount moreThan(int count) { return {count + 1}; }
constexpr WordCount atMost(int count) { return {1, count}; }

} // namespace commands
