#pragma once

// Lets calls to the system fail, or the process end at one. A program that links the library before
// others has its calls, and those of all libraries in it, counted while a fault is armed: calls of
// the thread that armed it, about files at or below one folder.
namespace Faults {

enum class Call { Open, Write, Sync, Rename, Mode, Close, MakeFolder, Remove };
constexpr Call calls[] = {Call::Open, Call::Write, Call::Sync,       Call::Rename,
                          Call::Mode, Call::Close, Call::MakeFolder, Call::Remove};

enum class Effect {
    Fail, // The call does nothing and fails. A descriptor is closed all the same, as on Linux.
    FailFromThenOn, // And so do all further calls of its kind.
    WriteHalf, // Half of the bytes are written, and further writes fail.
    Kill, // The process is killed before the call.
};

struct Fault
{
    Call call = Call::Open;
    Effect effect = Effect::Fail;
    int number = 1; // which of the calls, from 1
    int error = 0;
};

const char *nameOf(Call call);

// The folder is absolute and without links.
void arm(const char *folder, const Fault &fault);

// How many calls have met the fault.
int disarm();

} // namespace Faults
