#include "configurations/SpreadBuild.h"

#include "configurations/ConfigurationItem.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

namespace MorvalenCore {

SpreadBuild::SpreadBuild(const QList<ConfigurationItem *> &configurations,
                         const BuildOptions &buildOptions)
    : waiting(configurations.begin(), configurations.end()),
      options(buildOptions)
{
}

SpreadBuild::~SpreadBuild() = default;

bool SpreadBuild::run()
{
    beginMore();
    if (!running.empty())
        loop.exec();
    // The loop also ends with the application's.
    goesOn = false;
    endAll();
    for (const QPointer<ConfigurationItem> &item : std::as_const(waiting)) {
        if (item)
            ConfigurationItem::logEndOf(item->buildRunner().leaveOut());
    }
    return allWell && waiting.isEmpty();
}

void SpreadBuild::beginMore()
{
    const size_t most = size_t(options.spread.value_or(1));
    while (goesOn && running.size() < most && !waiting.isEmpty()) {
        // One that is closed by now has no state any more.
        if (ConfigurationItem *item = waiting.takeFirst())
            begin(*item);
        else
            allWell = false;
    }
    if (running.empty())
        loop.quit();
}

void SpreadBuild::begin(ConfigurationItem &item)
{
    const Result<ConfigurationRunner::UnderWay> prepared = item.buildRunner().prepare();
    if (!prepared.isOk()) {
        ConfigurationItem::logEndOf(prepared.status());
        return count(prepared.status());
    }
    const KeptPlan &kept = *prepared.value().kept;
    auto owned = std::make_unique<BuildRun>(kept.plan, kept.file);
    BuildRun *run = owned.get();
    BuildRun::Options how = ConfigurationRunner::optionsFor(options);
    how.prefix = prepared.value().design + u": "_s;
    run->setOptions(how);
    item.buildRunner().connectToLog(*run);
    connect(run, &BuildRun::progressed, &item, [&item](int done, int total, const QString &step) {
        item.buildRunner().showProgress(done, total, step);
    });
    // Its end may come at once, and when its configuration goes.
    connect(
        run, &BuildRun::ended, this, [this, run] { take(run); }, Qt::QueuedConnection);
    running.emplace(run, Running {std::move(owned), prepared.value()});
    item.buildRunner().begin(*run);
    run->start(BuildRun::Kind::Outdated);
}

void SpreadBuild::take(BuildRun *run)
{
    const auto found = running.find(run);
    if (found == running.end() || !run->hasEnded())
        return;
    const Running ended = std::move(found->second);
    running.erase(found);
    count(ConfigurationRunner::end(ended.underWay, ended.run->endOfRun(),
                                   &ConfigurationItem::logEndOf));
    beginMore();
}

void SpreadBuild::count(const Status &status)
{
    if (status.isOk())
        return;
    allWell = false;
    if (status.kind() == Status::Kind::Cancelled
        || !ConfigurationRunner::optionsFor(options).keepGoing)
        goesOn = false;
}

void SpreadBuild::endAll()
{
    while (!running.empty()) {
        BuildRun *run = running.begin()->first;
        if (!run->hasEnded())
            run->endNow();
        take(run);
    }
}

} // namespace MorvalenCore
