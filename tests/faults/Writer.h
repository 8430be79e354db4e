#pragma once

#include <Qtilities/Status.h>

#include <QByteArray>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

// Something of the program that writes to disk, in a folder of its own, from a state that has been
// saved to one with a change. The same steps always write the same bytes.
class Writer
{
public:
    virtual ~Writer() = default;

    // What write() goes out from, on disk and in memory.
    virtual void prepare(const QString &folder) = 0;

    virtual Qtilities::Core::Status write() = 0;

    // Forgets what is in memory, as the end of the program would, takes what is on disk, and makes
    // the change again.
    virtual void startAnew() = 0;

    // What the user has to do before the next write when nothing could be opened any more, so that
    // the program could not take back what it had made.
    virtual void clearAway() { }

    // Whether its files grow line by line, so that one that fails leaves the beginning of the new
    // one.
    virtual bool growsInPlace() const { return false; }

    // Whether the reason of the system must be in the text of a failure.
    virtual bool givesReasons() const { return true; }
};

struct WriterKind
{
    const char *name;
    std::function<std::unique_ptr<Writer>()> make;
};

// All of them.
const std::vector<WriterKind> &writerKinds();
