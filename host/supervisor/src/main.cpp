#include "supervision/Supervisor.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <unistd.h>

namespace {

// False for what is no whole number, or a negative one.
bool readNumber(const char *text, int *number)
{
    char *end = nullptr;
    const long value = std::strtol(text, &end, 10);
    *number = int(value);
    return end != text && *end == '\0' && value >= 0 && value <= 1'000'000'000;
}

} // namespace

// Run by the host, never by hand.
int main(int count, char **arguments)
{
    Supervision::Supervisor::Job job;
    int graceTime = 0;
    if (count < 5 || !readNumber(arguments[1], &job.control)
        || !readNumber(arguments[2], &graceTime)) {
        std::fprintf(stderr,
                     "usage: supervise-build SOCKET GRACE-MILLISECONDS NINJA PROGRAM "
                     "[ARGUMENT...]\n");
        return 2;
    }
    job.graceTime = std::chrono::milliseconds(graceTime);
    job.ninja = arguments[3];
    job.program = arguments + 4;
    Supervision::Supervisor(job).run();
    return 0;
}
