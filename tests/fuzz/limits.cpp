#include "tests/fuzz/limits.h"

#include "tests/patience.h"
#include "tests/sanitized.h"

#include <csignal>
#include <sys/resource.h>
#include <sys/time.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace limits {

namespace {

constexpr int secondsOfAnInput = patient(3'000) / 1000;

constexpr rlim_t mostMemory = rlim_t(4) << 30;
// Kilobytes by which the most that was ever in use may grow.
constexpr qint64 mostGrowth = (isSanitized ? 1024 : 256) * 1024;

qint64 mostInUse()
{
    rusage usage = {};
    ::getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

void setAlarm(int seconds)
{
    const itimerval after = {{0, 0}, {seconds, 0}};
    ::setitimer(ITIMER_REAL, &after, nullptr);
}

void endSlowOne(int)
{
    constexpr char text[] = "an input takes too long\n";
    [[maybe_unused]] const ssize_t written = ::write(2, text, sizeof text - 1);
    ::_exit(1);
}

} // namespace

void boundMemory()
{
    ::signal(SIGALRM, endSlowOne);
    if (isSanitized)
        return;
    const rlimit limit = {mostMemory, mostMemory};
    ::setrlimit(RLIMIT_AS, &limit);
}

Watch::Watch() : before(mostInUse()) { setAlarm(secondsOfAnInput); }

Watch::~Watch() { setAlarm(0); }

QString Watch::excess() const
{
    const qint64 growth = mostInUse() - before;
    return growth > mostGrowth ? u"takes %1 MiB more than anything before it"_s.arg(growth >> 10)
                               : QString();
}

} // namespace limits
