#pragma once

#include "interp/tcltext.h"

#include <QString>

#include <cstring>

namespace commands {

// The arguments of one call as Tcl hands them over, the command word first. Does not own them.
// Arguments are compared as they are and become a QString only when somebody asks for their text.
class Arguments
{
public:
    Arguments(int argc, const char **argv) : number(argc), vector(argv) { }

    // How many there are, the command word included.
    int count() const { return number; }

    // Exact comparison; behind the last argument nothing matches.
    bool is(int index, const char *text) const
    {
        return index < number && std::strcmp(vector[index], text) == 0;
    }

    // The text of an argument; the null text behind the last one.
    QString operator[](int index) const
    {
        return index < number ? tcltext::fromTcl(vector[index]) : QString();
    }

private:
    int number;
    const char **vector;
};

} // namespace commands
