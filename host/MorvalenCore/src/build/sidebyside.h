#pragma once

#include <cstddef>
#include <functional>

namespace MorvalenCore {

// Does the work for each number from 0 on, some at a time in other threads, and returns when all is
// done. It is for what waits for a disk: waiting for many files at once takes as long as for one.
void doSideBySide(size_t count, const std::function<void(size_t)> &work);

} // namespace MorvalenCore
