#pragma once

#include <QPointer>

namespace Qtilities::Core {

// The one object of a class that a program works with: the one that was set, else a default made
// on first use. The default lives until the process ends, so that nothing can outlive it. One that
// was set stays its owner's; when it is destroyed, the default is back.
//
// A class keeps it in a function of its source file, allocated and never destroyed:
//
//     Replaceable<Logger> &slot()
//     {
//         static auto *const theSlot = new Replaceable<Logger>;
//         return *theSlot;
//     }
template <typename Class, typename Default = Class>
class Replaceable
{
public:
    Class *get()
    {
        if (replacement)
            return replacement;
        if (!standard)
            standard = new Default;
        return standard;
    }

    // The one that get() returned last; null when there is none yet.
    Class *current() const { return replacement ? replacement.data() : standard; }

    // Null brings the default back.
    void set(Class *object) { replacement = object; }

private:
    QPointer<Class> replacement;
    Class *standard = nullptr;
};

} // namespace Qtilities::Core
