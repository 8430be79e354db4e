#include "configurations/JointBuild.h"

#include "build/sidebyside.h"
#include "configurations/ConfigurationItem.h"

#include <MorvalenCore/BuildMonitor.h>

#include <QFileInfo>
#include <QHash>
#include <QSet>

#include <algorithm>

#include <sys/resource.h>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

namespace MorvalenCore {

namespace {

// Each build holds the lock of its folder, and its log.
void allowOpenFiles(size_t builds)
{
    constexpr size_t others = 256;
    const size_t count = 2 * builds;
    rlimit limit {};
    if (getrlimit(RLIMIT_NOFILE, &limit) != 0 || limit.rlim_cur >= count + others)
        return;
    limit.rlim_cur = std::min<rlim_t>(count + others, limit.rlim_max);
    setrlimit(RLIMIT_NOFILE, &limit);
}

} // namespace

JointBuild::JointBuild(const QList<ConfigurationItem *> &configurations,
                       const BuildOptions &buildOptions)
    : items(configurations),
      options(buildOptions)
{
}

JointBuild::~JointBuild() = default;

bool JointBuild::run()
{
    allowOpenFiles(size_t(items.size()));
    for (ConfigurationItem *item : items)
        take(*item);
    writeFiles();
    refuseConflicts();
    refuseWithoutInputs();
    if (!allWell && !ConfigurationRunner::optionsFor(options).keepGoing) {
        for (const Part &part : parts)
            ConfigurationItem::logEndOf(part.underWay.configuration->buildRunner().leaveOut());
        return false;
    }
    if (!parts.empty())
        runParts();
    return allWell;
}

void JointBuild::take(ConfigurationItem &item)
{
    const Result<ConfigurationRunner::UnderWay> prepared = item.buildRunner().prepare();
    if (!prepared.isOk()) {
        ConfigurationItem::logEndOf(prepared.status());
        allWell = false;
        return;
    }
    Part part {prepared.value(), {}};
    const Refusal refusal = takeFolder(part);
    if (refusal.isOk())
        parts.push_back(std::move(part));
    else
        refuse(part.underWay, refusal);
}

Status JointBuild::takeFolder(Part &part)
{
    const KeptPlan &kept = *part.underWay.kept;
    const Status made = kept.file.makeFolder();
    if (!made.isOk())
        return made;
    if (!part.lock.take(kept.plan.targetFolder))
        return Status::busy(u"Another build is running in \"%1\""_s.arg(kept.plan.targetFolder));
    return {};
}

// Each in a folder of its own.
void JointBuild::writeFiles()
{
    std::vector<Status> written(parts.size());
    doSideBySide(parts.size(), [this, &written](size_t part) {
        written[part] = parts[part].underWay.kept->file.write();
    });
    auto next = written.cbegin();
    leaveOut([&next](const BuildPlan &) { return *next++; });
}

void JointBuild::refuse(const ConfigurationRunner::UnderWay &underWay, const Refusal &reason)
{
    allWell = false;
    ConfigurationItem::logEndOf(underWay.configuration->buildRunner().refuse(reason));
}

template <typename Check>
bool JointBuild::leaveOut(const Check &check)
{
    const size_t before = parts.size();
    std::erase_if(parts, [&](const Part &part) {
        const Refusal reason = check(part.underWay.kept->plan);
        if (!reason.isOk())
            refuse(part.underWay, reason);
        return !reason.isOk();
    });
    return parts.size() < before;
}

// A file that two designs make would belong to neither.
void JointBuild::refuseConflicts()
{
    QSet<QString> made;
    leaveOut([&made](const BuildPlan &plan) {
        for (const PlannedStep &step : plan.steps) {
            for (const QString &output : step.outputs) {
                if (made.contains(output))
                    return Status::conflict(
                        u"The step \"%1\" makes \"%2\", as a step of another design does"_s.arg(
                            step.name, output));
            }
        }
        for (const PlannedStep &step : plan.steps)
            made.unite(QSet<QString>(step.outputs.begin(), step.outputs.end()));
        return Status();
    });
}

// Ninja would run nothing at all. What one design makes another one may need.
void JointBuild::refuseWithoutInputs()
{
    QSet<QString> there;
    const auto isThere = [&there](const QString &path) {
        if (!there.contains(path) && QFileInfo::exists(path))
            there.insert(path);
        return there.contains(path);
    };
    bool again = true;
    while (again) {
        QSet<QString> made;
        for (const Part &part : parts) {
            for (const PlannedStep &step : part.underWay.kept->plan.steps)
                made.unite(QSet<QString>(step.outputs.begin(), step.outputs.end()));
        }
        again = leaveOut([&](const BuildPlan &plan) {
            for (const PlannedStep &step : plan.steps) {
                for (const QString &input : step.inputs) {
                    if (!made.contains(input) && !isThere(input))
                        return Status::notFound(
                            u"The step \"%1\" needs \"%2\", which is not there, and which no "
                            "step makes"_s.arg(step.name, input));
                }
            }
            return Status();
        });
    }
}

// Designs of the same name get numbers.
QList<JointPart> JointBuild::namedParts() const
{
    QSet<QString> names;
    QList<JointPart> named;
    for (const Part &part : parts) {
        QString name = part.underWay.design;
        for (int number = 2; names.contains(name); ++number)
            name = part.underWay.design + u" (%1)"_s.arg(number);
        names.insert(name);
        named.append({name, part.underWay.kept->plan});
    }
    return named;
}

void JointBuild::runParts()
{
    JointRun run(namedParts(), parts.front().underWay.kept->file);
    run.setOptions(ConfigurationRunner::optionsFor(options));
    QObject::connect(&run, &BuildRun::message, &run, [&](auto type, const QString &text) {
        ConfigurationItem *item = parts[size_t(run.speakingPart())].underWay.configuration;
        BuildMonitor::instance()->say(item, type, text);
    });
    QObject::connect(&run, &JointRun::partProgressed, &run,
                     [this](int part, int done, int total, const QString &step) {
                         if (ConfigurationItem *item = parts[size_t(part)].underWay.configuration)
                             item->buildRunner().showProgress(done, total, step);
                     });
    QObject::connect(&run, &JointRun::partStepsRun, &run,
                     [this](int part, const QList<RunningSteps::Step> &steps) {
                         const auto &underWay = parts[size_t(part)].underWay;
                         if (ConfigurationItem *item = underWay.configuration)
                             item->buildRunner().showRunning(*underWay.kept, steps);
                     });
    // Whoever hears of it may close a design.
    for (const Part &part : parts) {
        if (ConfigurationItem *item = part.underWay.configuration)
            item->buildRunner().begin(run);
    }
    run.run(BuildRun::Kind::Outdated);
    noteOutputs(run);
    for (size_t part = 0; part < parts.size(); ++part) {
        parts[part].lock = {};
        const Status ended = ConfigurationRunner::end(parts[part].underWay, run.endOf(int(part)),
                                                      &ConfigurationItem::logEndOf);
        allWell = allWell && ended.isOk();
    }
}

// Before anybody hears of an end.
void JointBuild::noteOutputs(const JointRun &run)
{
    struct Record
    {
        const KeptPlan &kept;
        BuildRecords::Writing writing;
        Status written;
    };
    std::vector<Record> records;
    for (size_t number = 0; number < parts.size(); ++number) {
        const ConfigurationRunner::UnderWay &part = parts[number].underWay;
        if (!part.configuration)
            continue;
        if (auto writing =
                part.configuration->buildRunner().note(*part.kept, run.endOf(int(number)).done))
            records.push_back({*part.kept, *std::move(writing), {}});
    }
    doSideBySide(records.size(), [&records](size_t record) {
        records[record].written = records[record].writing.write();
    });
    for (const Record &record : records)
        ConfigurationRunner::warnOfRecord(record.kept, record.written);
}

} // namespace MorvalenCore
