#pragma once

#include <QtGlobal>

#include <algorithm>

namespace Qtilities::Core {

// How many elements two sequences have in common at the begin, and of the others at the end.
struct CommonEnds
{
    qsizetype head = 0;
    qsizetype tail = 0;

    bool operator==(const CommonEnds &) const = default;
};

template <typename Sequence>
CommonEnds commonEnds(const Sequence &one, const Sequence &other)
{
    const auto shorter = std::min(one.size(), other.size());
    const auto head = std::mismatch(one.begin(), one.begin() + shorter, other.begin());
    const auto headSize = head.first - one.begin();
    const auto tail =
        std::mismatch(one.rbegin(), one.rbegin() + (shorter - headSize), other.rbegin());
    return {headSize, tail.first - one.rbegin()};
}

} // namespace Qtilities::Core
