#pragma once

#include "build/BuildPlan.h"

#include <QByteArray>

namespace MorvalenCore {

// One of several builds that are run as one.
struct JointPart
{
    // In one line, and that of no other.
    QString name;
    BuildPlan plan;

    // What stands in front of its steps' names.
    QString prefix() const { return name + QStringLiteral(": "); }
};

// What Ninja reads of several plans that it runs as one. Of the steps that can begin, Ninja takes
// the one that its file has first: those come first that have most to come behind them, so that no
// long row of steps is left to the end, when there is nothing beside it to do.
QByteArray jointFileOf(const QList<JointPart> &parts);

} // namespace MorvalenCore
