#include "build/sidebyside.h"

#include <algorithm>
#include <atomic>
#include <csignal>
#include <vector>

#include <pthread.h>

namespace MorvalenCore {

namespace {

constexpr size_t mostThreads = 16;

struct Work
{
    const size_t count;
    const std::function<void(size_t)> &one;
    std::atomic<size_t> next = 0;

    void doAll()
    {
        for (size_t number = next++; number < count; number = next++)
            one(number);
    }
};

void *help(void *work)
{
    static_cast<Work *>(work)->doAll();
    return nullptr;
}

} // namespace

// This thread takes part, so that all is done also where there can be no other.
void doSideBySide(size_t count, const std::function<void(size_t)> &work)
{
    Work all {count, work};
    std::vector<pthread_t> helpers;
    // Signals are for those who wait for events.
    sigset_t signals;
    sigset_t before;
    sigfillset(&signals);
    pthread_sigmask(SIG_BLOCK, &signals, &before);
    while (helpers.size() + 1 < std::min(count, mostThreads)) {
        pthread_t helper;
        if (pthread_create(&helper, nullptr, help, &all) != 0)
            break;
        helpers.push_back(helper);
    }
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    all.doAll();
    for (const pthread_t helper : helpers)
        pthread_join(helper, nullptr);
}

} // namespace MorvalenCore
