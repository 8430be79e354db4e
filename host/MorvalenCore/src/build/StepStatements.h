#pragma once

#include "build/BuildPlan.h"

#include <QByteArray>
#include <QList>

namespace MorvalenCore {

// What a file of Ninja's says of the steps of one plan. The file must give the variable "pipe" the
// value "|" in front of it, and says by variables what stands in front of the labels ("of"), and in
// which pool steps run that run alone ("alone_in" for those that are of no pool, that with a pool's
// name behind it for others).
//
// A file of several plans gives each a scope, a text that stands behind the names of the rules and
// of the variables but for those of pools.
class StepStatements
{
public:
    explicit StepStatements(const BuildPlan &plan, const QByteArray &scope = {});

    // The rules, and what they need.
    QByteArray head() const { return rules; }
    // For each step its build statement, and what that needs; they may come in any order.
    const QList<QByteArray> &ofSteps() const { return statements; }

private:
    QByteArray rules;
    QList<QByteArray> statements;
};

} // namespace MorvalenCore
