#include "build/steporder.h"

#include <algorithm>
#include <queue>
#include <utility>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Status;

namespace MorvalenCore {

namespace {

// Which step makes a file.
using Makers = QHash<QString, int>;
// For each step, others, by their place in the list.
using Neighbours = QList<QList<int>>;

Status findMakers(const QList<PlannedStep> &steps, Makers *makers)
{
    makers->reserve(steps.size());
    for (int index = 0; index < steps.size(); ++index) {
        for (const QString &output : steps[index].outputs) {
            const auto known = makers->constFind(output);
            if (known == makers->constEnd()) {
                makers->insert(output, index);
                continue;
            }
            return Status::invalidArgument(
                *known == index ? u"The step \"%1\" names its output \"%2\" twice"_s.arg(
                    steps[index].name, output)
                                : u"The steps \"%1\" and \"%2\" both make \"%3\""_s.arg(
                                    steps[*known].name, steps[index].name, output));
        }
    }
    return {};
}

// Which step waits for which.
struct Dependencies
{
    Dependencies(const QList<PlannedStep> &steps, const Makers &makers)
        : waitsFor(steps.size()),
          waitedForBy(steps.size())
    {
        for (int index = 0; index < steps.size(); ++index) {
            for (const QString &input : steps[index].inputs) {
                const auto maker = makers.constFind(input);
                if (maker == makers.constEnd())
                    continue;
                waitsFor[index].append(*maker);
                waitedForBy[*maker].append(index);
                inOrder = inOrder && *maker < index;
            }
        }
    }

    Neighbours waitsFor;
    Neighbours waitedForBy;
    // As they are listed.
    bool inOrder = true;
};

// The places of the steps in an order in which none waits for a later one: the first of those that
// can begin comes first. Steps that can never begin are missing.
QList<int> topologicalOrder(const Dependencies &dependencies)
{
    QList<qsizetype> missing;
    std::priority_queue<int, std::vector<int>, std::greater<>> ready;
    for (const QList<int> &before : dependencies.waitsFor) {
        if (before.isEmpty())
            ready.push(int(missing.size()));
        missing.append(before.size());
    }
    QList<int> order;
    order.reserve(missing.size());
    while (!ready.empty()) {
        const int index = ready.top();
        ready.pop();
        order.append(index);
        for (const int waiting : dependencies.waitedForBy[index]) {
            if (--missing[waiting] == 0)
                ready.push(waiting);
        }
    }
    return order;
}

// A cycle among the steps that can never begin, beginning with the one listed first.
QList<int> findCycle(const Neighbours &waitsFor, const QList<int> &canBegin)
{
    QList<bool> isStuck(waitsFor.size(), true);
    for (const int index : canBegin)
        isStuck[index] = false;
    QList<int> way;
    QList<int> placeOnWay(waitsFor.size(), -1);
    int at = int(isStuck.indexOf(true));
    while (placeOnWay[at] < 0) {
        placeOnWay[at] = int(way.size());
        way.append(at);
        at = *std::find_if(waitsFor[at].cbegin(), waitsFor[at].cend(),
                           [&](int other) { return isStuck[other]; });
    }
    way = way.mid(placeOnWay[at]);
    std::rotate(way.begin(), std::min_element(way.begin(), way.end()), way.end());
    return way;
}

QString describeCycle(const QList<PlannedStep> &steps, const QList<int> &cycle)
{
    const QString first = steps[cycle.first()].name;
    if (cycle.size() == 1)
        return u"The step \"%1\" needs what it makes itself"_s.arg(first);
    QString names;
    for (const int index : cycle)
        names += u"\"%1\" waits for "_s.arg(steps[index].name);
    return u"The steps wait for each other: %1\"%2\""_s.arg(names, first);
}

} // namespace

Status orderSteps(QList<PlannedStep> *steps)
{
    Makers makers;
    const Status found = findMakers(*steps, &makers);
    if (!found.isOk())
        return found;
    const Dependencies dependencies(*steps, makers);
    if (dependencies.inOrder)
        return {};
    const QList<int> order = topologicalOrder(dependencies);
    if (order.size() < steps->size())
        return Status::invalidArgument(
            describeCycle(*steps, findCycle(dependencies.waitsFor, order)));
    QList<PlannedStep> ordered;
    ordered.reserve(order.size());
    for (const int index : order)
        ordered.append((*steps)[index]);
    *steps = ordered;
    return {};
}

QList<QList<int>> waysToGo(const QList<BuildPlan> &plans)
{
    QList<QList<int>> ways(plans.size());
    // The longest way of those that need a file.
    QHash<QString, int> behind;
    for (qsizetype plan = plans.size() - 1; plan >= 0; --plan) {
        const QList<PlannedStep> &steps = plans[plan].steps;
        QList<int> &way = ways[plan];
        way.resize(steps.size());
        int ofAll = 0;
        int ofThoseThatWaitForAll = 0;
        for (qsizetype index = steps.size() - 1; index >= 0; --index) {
            const PlannedStep &step = steps[index];
            int longest = step.outputs.isEmpty() ? ofAll : ofThoseThatWaitForAll;
            for (const QString &output : step.outputs)
                longest = std::max(longest, behind.value(output));
            way[index] = ++longest;
            ofAll = std::max(ofAll, longest);
            if (step.outputs.isEmpty() || step.inputs.isEmpty())
                ofThoseThatWaitForAll = std::max(ofThoseThatWaitForAll, longest);
            for (const QString &input : step.inputs)
                behind[input] = std::max(behind.value(input), longest);
        }
    }
    return ways;
}

} // namespace MorvalenCore
