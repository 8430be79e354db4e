#pragma once

#include "build/BuildPlan.h"

#include <QByteArray>
#include <QSet>

#include <vector>

namespace MorvalenCore {

// Ninja's logs of several builds that it runs as one. A run of Ninja keeps one log, and what it
// finds outdated it finds by that; so what the builds have in theirs goes into that of the first
// before the run, and what the run has added goes back to each behind it. Then each can be run by
// itself again, and nothing that was made is forgotten or made twice.
//
// When the process is killed in between, the steps that were run have no good entry in the logs of
// the others and run once more.
class SharedLog
{
public:
    // Where the plans' target folders are; no output is of two plans.
    explicit SharedLog(const QList<BuildPlan> &plans);

    // The three in this order. A failure is a sentence for the user.
    Qtilities::Core::Status gather();
    // Steps of a plan are about to be run.
    Qtilities::Core::Status doubt(int plan, const QList<int> &steps);
    Qtilities::Core::Status giveBack();

private:
    struct Own
    {
        QString path;
        // Of the folder, without links on the way, before the run.
        QString place;
        QList<PlannedStep> steps;
        QSet<QByteArray> outputs;
        QByteArray before;
        bool isCutOff = false; // within a line
        bool isDoubted = false;
    };

    static bool isInPlace(const Own &log);
    static Qtilities::Core::Status replace(const Own &log, const QByteArray &text);

    std::vector<Own> logs;
    QByteArray version;
};

} // namespace MorvalenCore
