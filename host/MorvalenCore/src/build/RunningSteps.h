#pragma once

#include "build/BuildPlan.h"

#include <QHash>

#include <sys/types.h>

namespace MorvalenCore {

// Which steps of a plan run now. Ninja tells of a step when it has ended; until then only its
// process does, which is known by its words. One that has put others in their place, or runs on
// another machine, is not found.
class RunningSteps
{
public:
    struct Step
    {
        // In the plan.
        int index = 0;
        qint64 milliseconds = 0;
    };

    explicit RunningSteps(const BuildPlan &ofPlan) : plan(ofPlan) { }

    // Those below a process, in the order of the plan.
    QList<Step> below(pid_t process);

    // The step that a process of these words is; -1 for none.
    int stepOf(const QStringList &words);

private:
    void gather();
    int lineOf(const QString &script) const;

    const BuildPlan &plan;
    // What the shell is given, and the words of simple commands.
    QHash<QString, int> lines;
    QHash<QStringList, int> programs;
};

} // namespace MorvalenCore
