#pragma once

#include <QString>

// How much time and memory one input may take.
namespace limits {

// Ends the process when it takes more memory than any input needs. Sanitizers reserve too much of
// the address space for that; there only the growth is watched.
void boundMemory();

// Watches over one input, for as long as the object lives. One that takes too long ends the
// process, with a word.
class Watch
{
public:
    Watch();
    ~Watch();
    Q_DISABLE_COPY_MOVE(Watch)

    // What the input took too much of; empty when nothing.
    QString excess() const;

private:
    qint64 before;
};

} // namespace limits
