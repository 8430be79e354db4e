#include "build/JointFile.h"

#include "build/NinjaFile.h"
#include "build/ninjatext.h"
#include "build/steporder.h"
#include "build/StepStatements.h"

#include <algorithm>
#include <vector>

namespace MorvalenCore {

namespace {

// A step of a plan, both by number.
struct Place
{
    int way;
    qsizetype part;
    qsizetype step;
};

std::vector<Place> placesByWay(const QList<JointPart> &parts)
{
    QList<BuildPlan> plans;
    for (const JointPart &part : parts)
        plans.append(part.plan);
    const QList<QList<int>> ways = waysToGo(plans);
    std::vector<Place> places;
    for (qsizetype part = 0; part < ways.size(); ++part) {
        for (qsizetype step = 0; step < ways[part].size(); ++step)
            places.push_back({ways[part][step], part, step});
    }
    std::stable_sort(places.begin(), places.end(),
                     [](const Place &one, const Place &two) { return one.way > two.way; });
    return places;
}

} // namespace

// Pools are known to all of it; a step that runs alone among those of its plan may run beside those
// of others, so it is in no pool but its own.
QByteArray jointFileOf(const QList<JointPart> &parts)
{
    QByteArray text = NinjaFile::firstLine() + "ninja_required_version = 1.8\npipe = |\n";
    QMap<QString, int> pools;
    for (const JointPart &part : parts)
        pools.insert(part.plan.pools);
    for (auto pool = pools.cbegin(); pool != pools.cend(); ++pool) {
        appendNinjaPool(&text, pool.key(), *pool);
        text += "alone_in" + ninjaPool(pool.key()) + " = " + ninjaPool(pool.key()) + '\n';
    }
    std::vector<StepStatements> statements;
    for (const JointPart &part : parts) {
        const QByteArray scope = QByteArray::number(statements.size() + 1);
        text += "\nof" + scope + " = ";
        appendNinjaValue(&text, part.prefix());
        text += '\n' + statements.emplace_back(part.plan, scope).head();
    }
    for (const Place &place : placesByWay(parts))
        text += statements[size_t(place.part)].ofSteps()[place.step];
    return text;
}

} // namespace MorvalenCore
