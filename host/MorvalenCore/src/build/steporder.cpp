#include "build/steporder.h"

#include <algorithm>
#include <queue>

using namespace Qt::Literals::StringLiterals;

namespace MorvalenCore {

namespace {

// Which step makes a file.
using Makers = QHash<QString, int>;
// For each step, the others that it waits for, or that wait for it.
using Neighbours = QList<QList<int>>;

bool findMakers(const QList<PlannedStep> &steps, Makers *makers, QString *error)
{
    makers->reserve(steps.size());
    for (int index = 0; index < steps.size(); ++index) {
        for (const QString &output : steps[index].outputs) {
            const auto known = makers->constFind(output);
            if (known == makers->constEnd()) {
                makers->insert(output, index);
                continue;
            }
            *error = *known == index
                ? u"The step \"%1\" names its output \"%2\" twice"_s.arg(steps[index].name, output)
                : u"The steps \"%1\" and \"%2\" both make \"%3\""_s.arg(steps[*known].name,
                                                                        steps[index].name, output);
            return false;
        }
    }
    return true;
}

// Of steps none of which can begin, a circle of those that wait for each other.
QString circleAmong(const QList<PlannedStep> &steps, const Neighbours &waitsFor,
                    const QList<int> &stuck)
{
    QList<bool> isStuck(steps.size(), false);
    for (const int index : stuck)
        isStuck[index] = true;
    QList<int> way;
    QList<int> placeOnWay(steps.size(), -1);
    int at = stuck.first();
    while (placeOnWay[at] < 0) {
        placeOnWay[at] = int(way.size());
        way.append(at);
        at = *std::find_if(waitsFor[at].cbegin(), waitsFor[at].cend(),
                           [&](int other) { return isStuck[other]; });
    }
    way = way.mid(placeOnWay[at]);
    std::rotate(way.begin(), std::min_element(way.begin(), way.end()), way.end());

    if (way.size() == 1)
        return u"The step \"%1\" needs what it makes itself"_s.arg(steps[way.first()].name);
    QString names;
    for (const int index : std::as_const(way))
        names += u"\"%1\" waits for "_s.arg(steps[index].name);
    return u"The steps wait for each other: %1\"%2\""_s.arg(names, steps[way.first()].name);
}

} // namespace

bool orderSteps(QList<PlannedStep> *steps, QString *error)
{
    Makers makers;
    if (!findMakers(*steps, &makers, error))
        return false;

    const int count = int(steps->size());
    Neighbours waitsFor(count);
    Neighbours waitedForBy(count);
    QList<int> missing(count, 0);
    bool inOrder = true;
    for (int index = 0; index < count; ++index) {
        for (const QString &input : std::as_const((*steps)[index].inputs)) {
            const auto maker = makers.constFind(input);
            if (maker == makers.constEnd())
                continue;
            waitsFor[index].append(*maker);
            waitedForBy[*maker].append(index);
            ++missing[index];
            inOrder = inOrder && *maker < index;
        }
    }
    if (inOrder)
        return true;

    std::priority_queue<int, std::vector<int>, std::greater<>> ready;
    for (int index = 0; index < count; ++index) {
        if (missing[index] == 0)
            ready.push(index);
    }
    QList<PlannedStep> ordered;
    ordered.reserve(count);
    while (!ready.empty()) {
        const int index = ready.top();
        ready.pop();
        ordered.append((*steps)[index]);
        for (const int waiting : std::as_const(waitedForBy[index])) {
            if (--missing[waiting] == 0)
                ready.push(waiting);
        }
    }
    if (ordered.size() < count) {
        QList<int> stuck;
        for (int index = 0; index < count; ++index) {
            if (missing[index] > 0)
                stuck.append(index);
        }
        *error = circleAmong(*steps, waitsFor, stuck);
        return false;
    }
    *steps = ordered;
    return true;
}

} // namespace MorvalenCore
