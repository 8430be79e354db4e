#include "faults.h"

#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

using namespace Faults;

namespace {

std::string watched;
Fault armed;
pid_t thread = 0; // 0 while nothing is armed
int count = 0;
int met = 0;

template <typename Function>
Function *next(const char *name)
{
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

bool isWatched(const char *path)
{
    return std::strncmp(path, watched.c_str(), watched.size()) == 0
        && (path[watched.size()] == '/' || path[watched.size()] == '\0');
}

bool isWatched(int descriptor, const char *path = "")
{
    if (path[0] == '/')
        return isWatched(path);
    char link[64];
    char place[PATH_MAX];
    std::snprintf(link, sizeof(link), "/proc/self/fd/%d", descriptor);
    const ssize_t length = descriptor == AT_FDCWD ? readlink("/proc/self/cwd", place, PATH_MAX - 1)
                                                  : readlink(link, place, PATH_MAX - 1);
    if (length <= 0)
        return false;
    place[length] = '\0';
    return isWatched(place);
}

// Whether a call meets the fault now.
bool isMet(Call call)
{
    if (call != armed.call || ++count < armed.number)
        return false;
    if (count > armed.number && armed.effect == Effect::Fail)
        return false;
    ++met;
    if (armed.effect == Effect::Kill)
        kill(getpid(), SIGKILL);
    return true;
}

bool meets(Call call, const char *path)
{
    return thread == gettid() && isWatched(AT_FDCWD, path) && isMet(call);
}

bool meets(Call call, int descriptor, const char *path = "")
{
    return thread == gettid() && isWatched(descriptor, path) && isMet(call);
}

int failed()
{
    errno = armed.error;
    return -1;
}

int opened(const char *name, int folder, const char *path, int flags, mode_t mode)
{
    if (meets(Call::Open, folder, path))
        return failed();
    return next<int(int, const char *, int, ...)>(name)(folder, path, flags, mode);
}

mode_t modeOf(int flags, va_list list)
{
    return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(list, mode_t) : 0;
}

} // namespace

namespace Faults {

const char *nameOf(Call call)
{
    static constexpr const char *names[] = {"open",   "write", "fsync", "rename",
                                            "fchmod", "close", "mkdir", "unlink"};
    return names[int(call)];
}

void arm(const char *folder, const Fault &fault)
{
    watched = folder;
    armed = fault;
    count = met = 0;
    thread = gettid();
}

int disarm()
{
    thread = 0;
    return met;
}

} // namespace Faults

namespace {

// A program that the library is loaded into in front of others is killed where its environment
// says: "MORVALEN_KILL=CALL NUMBER FOLDER". The programs that it starts are not.
[[maybe_unused]] const bool isArmedFromOutside = [] {
    const char *wanted = std::getenv("MORVALEN_KILL");
    char name[16] = "";
    Fault fault {Call::Open, Effect::Kill, 0, 0};
    int length = 0;
    if (!wanted || std::sscanf(wanted, "%15s %d %n", name, &fault.number, &length) != 2)
        return false;
    const std::string folder = wanted + length;
    unsetenv("MORVALEN_KILL");
    unsetenv("LD_PRELOAD");
    for (const Call call : calls) {
        if (std::strcmp(nameOf(call), name) == 0)
            fault.call = call;
    }
    arm(folder.c_str(), fault);
    return true;
}();

} // namespace

// The system's functions, which this library stands in front of.
#define FORWARD(name, ...) next<decltype(name)>(#name)(__VA_ARGS__)
#define OPEN_IN_FOLDER(name, systemName, folder) \
    va_list list; \
    va_start(list, flags); \
    const mode_t mode = modeOf(flags, list); \
    va_end(list); \
    return opened(systemName, folder, path, flags, mode);

extern "C" int open(const char *path, int flags, ...) { OPEN_IN_FOLDER(open, "openat", AT_FDCWD) }

extern "C" int open64(const char *path, int flags, ...)
{
    OPEN_IN_FOLDER(open64, "openat64", AT_FDCWD)
}

extern "C" int openat(int folder, const char *path, int flags, ...)
{
    OPEN_IN_FOLDER(openat, "openat", folder)
}

extern "C" int openat64(int folder, const char *path, int flags, ...)
{
    OPEN_IN_FOLDER(openat64, "openat64", folder)
}

extern "C" ssize_t write(int descriptor, const void *bytes, size_t size)
{
    if (!meets(Call::Write, descriptor))
        return FORWARD(write, descriptor, bytes, size);
    if (armed.effect != Effect::WriteHalf || met > 1 || size < 2)
        return failed();
    return FORWARD(write, descriptor, bytes, size / 2);
}

// What is at stake is the end of the process, not of the machine: nothing waits for the disk.
extern "C" int fsync(int descriptor) { return meets(Call::Sync, descriptor) ? failed() : 0; }

extern "C" int fdatasync(int descriptor) { return meets(Call::Sync, descriptor) ? failed() : 0; }

extern "C" int rename(const char *from, const char *to) noexcept
{
    return meets(Call::Rename, to) ? failed() : FORWARD(rename, from, to);
}

extern "C" int renameat(int fromFolder, const char *from, int toFolder, const char *to) noexcept
{
    return meets(Call::Rename, toFolder, to) ? failed()
                                             : FORWARD(renameat, fromFolder, from, toFolder, to);
}

extern "C" int renameat2(int fromFolder, const char *from, int toFolder, const char *to,
                         unsigned int flags) noexcept
{
    return meets(Call::Rename, toFolder, to)
        ? failed()
        : FORWARD(renameat2, fromFolder, from, toFolder, to, flags);
}

extern "C" int fchmod(int descriptor, mode_t mode) noexcept
{
    return meets(Call::Mode, descriptor) ? failed() : FORWARD(fchmod, descriptor, mode);
}

extern "C" int chmod(const char *path, mode_t mode) noexcept
{
    return meets(Call::Mode, path) ? failed() : FORWARD(chmod, path, mode);
}

extern "C" int close(int descriptor)
{
    if (!meets(Call::Close, descriptor))
        return FORWARD(close, descriptor);
    FORWARD(close, descriptor);
    return failed();
}

extern "C" int mkdir(const char *path, mode_t mode) noexcept
{
    return meets(Call::MakeFolder, path) ? failed() : FORWARD(mkdir, path, mode);
}

extern "C" int unlink(const char *path) noexcept
{
    return meets(Call::Remove, path) ? failed() : FORWARD(unlink, path);
}

extern "C" int unlinkat(int folder, const char *path, int flags) noexcept
{
    return meets(Call::Remove, folder, path) ? failed() : FORWARD(unlinkat, folder, path, flags);
}

extern "C" int rmdir(const char *path) noexcept
{
    return meets(Call::Remove, path) ? failed() : FORWARD(rmdir, path);
}
