#pragma once

#include "supervision/Process.h"

#include <vector>

namespace Supervision {

// What is told to whoever started the supervisor, a line each, fields separated by tabs:
//
//   error REASON       nothing was started
//   ended STATUS       the program has ended, with this status of waitpid()
//   left ID NAME ...   these processes were left behind, and are being ended
class Told
{
public:
    explicit Told(int toDescriptor) : descriptor(toDescriptor) { }

    void error(const std::string &reason) const { write("error\t" + reason); }
    void ended(int status) const { write("ended\t" + std::to_string(status)); }
    void left(const std::vector<Process> &processes) const;

private:
    void write(std::string line) const;

    int descriptor;
};

} // namespace Supervision
