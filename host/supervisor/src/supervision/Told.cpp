#include "supervision/Told.h"

#include <algorithm>
#include <sys/socket.h>

namespace Supervision {

void Told::left(const std::vector<Process> &processes) const
{
    std::string line = "left";
    for (const Process &process : processes) {
        std::string name = process.name;
        std::replace(name.begin(), name.end(), '\t', '?');
        line += '\t' + std::to_string(process.id) + '\t' + name;
    }
    write(line);
}

// Nobody may be there any more to read it.
void Told::write(std::string line) const
{
    std::replace(line.begin(), line.end(), '\n', '?');
    line += '\n';
    for (size_t at = 0; at < line.size();) {
        const ssize_t size = send(descriptor, line.data() + at, line.size() - at, MSG_NOSIGNAL);
        if (size <= 0)
            return;
        at += size_t(size);
    }
}

} // namespace Supervision
