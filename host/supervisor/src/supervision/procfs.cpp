#include "supervision/procfs.h"

#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <memory>
#include <sstream>

namespace Supervision {

namespace {

struct CloseFolder
{
    void operator()(DIR *folder) const { closedir(folder); }
};
using Folder = std::unique_ptr<DIR, CloseFolder>;

Folder openFolder(const std::string &path) { return Folder(opendir(path.c_str())); }

std::string contentOf(const std::string &path)
{
    std::string content;
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return content;
    char part[4096];
    for (ssize_t size = 0; (size = read(file, part, sizeof part)) > 0;)
        content.append(part, size_t(size));
    close(file);
    return content;
}

// Zero for a name that is no number.
pid_t numberOf(const char *name) { return name[0] >= '1' && name[0] <= '9' ? atoi(name) : 0; }

// The number in "pipe:[NUMBER]".
std::optional<ino_t> pipeOf(const std::string &link)
{
    char target[64];
    const ssize_t size = readlink(link.c_str(), target, sizeof target);
    if (size <= 7 || std::string_view(target, 6) != "pipe:[")
        return {};
    ino_t number = 0;
    if (std::from_chars(target + 6, target + size, number).ec != std::errc())
        return {};
    return number;
}

std::string folderOf(pid_t id) { return "/proc/" + std::to_string(id); }

} // namespace

// "ID (NAME) STATE PARENT GROUP SESSION ..."; the name may hold brackets and blanks.
std::optional<Process> processOf(pid_t id)
{
    const std::string text = contentOf(folderOf(id) + "/stat");
    const size_t nameBegin = text.find('(') + 1;
    const size_t nameEnd = text.rfind(')');
    if (nameBegin == 0 || nameEnd == std::string::npos || nameEnd < nameBegin)
        return {};
    Process process;
    process.id = id;
    process.name = text.substr(nameBegin, nameEnd - nameBegin);
    std::istringstream fields(text.substr(nameEnd + 1));
    std::string state;
    fields >> state >> process.parent >> process.group >> process.session;
    process.isAlive = state != "Z" && state != "X";
    std::string skipped;
    for (int field = 7; field < 22; ++field)
        fields >> skipped;
    fields >> process.start;
    if (!fields)
        return {};
    return process;
}

std::vector<Process> allProcesses()
{
    std::vector<Process> processes;
    const Folder folder = openFolder("/proc");
    while (const dirent *entry = folder ? readdir(folder.get()) : nullptr) {
        const pid_t id = numberOf(entry->d_name);
        if (id == 0)
            continue;
        if (std::optional<Process> process = processOf(id))
            processes.push_back(std::move(*process));
    }
    return processes;
}

std::vector<pid_t> someChildrenOf(pid_t parent)
{
    std::vector<pid_t> children;
    const std::string path = folderOf(parent) + "/task";
    const Folder threads = openFolder(path);
    bool isTold = false;
    while (const dirent *thread = threads ? readdir(threads.get()) : nullptr) {
        const std::string file = path + '/' + thread->d_name + "/children";
        if (numberOf(thread->d_name) == 0 || access(file.c_str(), R_OK) != 0)
            continue;
        isTold = true;
        std::istringstream ids(contentOf(file));
        for (pid_t id = 0; ids >> id;)
            children.push_back(id);
    }
    // Kernels can be made without these lists.
    if (!isTold && threads) {
        for (const Process &process : allProcesses()) {
            if (process.parent == parent)
                children.push_back(process.id);
        }
    }
    return children;
}

Pipes pipesOf(pid_t id)
{
    Pipes pipes;
    const std::string path = folderOf(id) + "/fd";
    const Folder folder = openFolder(path);
    pipes.isKnown = folder != nullptr;
    while (const dirent *entry = folder ? readdir(folder.get()) : nullptr) {
        const std::string link = path + '/' + entry->d_name;
        struct stat status;
        const std::optional<ino_t> pipe = pipeOf(link);
        if (!pipe || lstat(link.c_str(), &status) != 0)
            continue;
        if (status.st_mode & S_IRUSR)
            pipes.read.insert(*pipe);
        if (status.st_mode & S_IWUSR)
            pipes.written.insert(*pipe);
    }
    return pipes;
}

void sendSignal(const Process &process, int number)
{
    const int handle = int(syscall(SYS_pidfd_open, process.id, 0));
    if (handle < 0) {
        // Kernels before 5.3 know no handles, and some containers refuse them.
        if (errno != ESRCH)
            kill(process.id, number);
        return;
    }
    const std::optional<Process> now = processOf(process.id);
    if (now && now->start == process.start)
        syscall(SYS_pidfd_send_signal, handle, number, nullptr, 0);
    close(handle);
}

} // namespace Supervision
