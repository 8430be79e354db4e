#pragma once

#include "build/BuildPlan.h"

#include <QByteArray>

namespace MorvalenCore {

// The build.ninja of a plan. Every step is one build statement whose description is the step's
// label, and whose command runs in the working folder.
//
// A step without outputs runs every time, alone and with its output shown as it comes: behind all
// steps before it in the plan, before all behind it. A step with outputs but without inputs comes
// behind all before it. Everything else runs side by side as the files allow.
class NinjaFile
{
public:
    explicit NinjaFile(const BuildPlan &plan);

    // Its path: build.ninja in the plan's target folder.
    QString path() const;

    QByteArray text() const { return content; }

    // Makes the target folder.
    Qtilities::Core::Status makeFolder() const;
    // Whether a folder has a build.ninja that this class has written.
    static bool liesIn(const QString &folder);
    // Fails when a name that Ninja or this program uses there is that of something else than a
    // file.
    Qtilities::Core::Status checkFolder() const;

    // Writes the file into the target folder, atomically; leaves it alone when it is the same
    // already. Fails when that cannot be done, or when there is a file of somebody else's.
    Qtilities::Core::Status write() const;

private:
    QString folder;
    QByteArray content;
};

} // namespace MorvalenCore
