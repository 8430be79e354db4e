#pragma once

#include "build/BuildPlan.h"

#include <QByteArray>

namespace MorvalenCore {

// What Ninja reads of a plan, in its target folder: steps.ninja, and build.ninja, which includes it
// for a run of that plan alone. In steps.ninja every step is one build statement whose description
// is the step's label, and whose command runs in the working folder. Whoever includes it says by
// variables what stands in front of the labels ("of"), and in which pool steps run that run alone
// ("alone_in" for those that are of no pool, that with a pool's name behind it for others).
//
// A step without outputs runs every time, alone and with its output shown as it comes: behind all
// steps before it in the plan, before all behind it. A step with outputs but without inputs comes
// behind all before it. Everything else runs side by side as the files allow.
class NinjaFile
{
public:
    explicit NinjaFile(const BuildPlan &plan);

    // Of build.ninja and steps.ninja.
    QString path() const;
    QString stepsPath() const;
    QByteArray text() const { return content; }
    QByteArray stepsText() const { return stepsContent; }

    // Makes the target folder.
    Qtilities::Core::Status makeFolder() const;
    // Whether a folder has a build.ninja that this class has written.
    static bool liesIn(const QString &folder);
    // Fails when a name that Ninja or this program uses there is that of something else than a
    // file.
    Qtilities::Core::Status checkFolder() const;

    // Writes both files into the target folder, atomically; leaves alone what is the same already.
    // Fails when that cannot be done, or when there is a file of somebody else's.
    Qtilities::Core::Status write() const;

    // The same for another file that begins with the first line of ours.
    static Qtilities::Core::Status writeOwn(const QString &path, const QByteArray &content);
    static QByteArray firstLine();

private:
    QString folder;
    QByteArray content;
    QByteArray stepsContent;
};

} // namespace MorvalenCore
