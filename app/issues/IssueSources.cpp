#include "app/issues/IssueSources.h"

#include "app/issues/IssueList.h"
#include "app/issues/placesearch.h"
#include "app/places/placepatterns.h"
#include "interp/errorstack.h"
#include "interp/ScriptRuns.h"

#include <MorvalenCore/BuildConfiguration.h>
#include <MorvalenCore/BuildMonitor.h>
#include <MorvalenCore/DesignManager.h>
#include <MorvalenCore/IDesign.h>

#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::BuildConfiguration;
using MorvalenCore::BuildMonitor;
using MorvalenCore::DesignManager;
using MorvalenCore::Interfaces::IDesign;

namespace {

// Between the id of a design and the name of a configuration in the key of a source.
constexpr QChar separator = u'\n';

const IDesign *designOf(const BuildConfiguration *configuration)
{
    const DesignManager *manager = DesignManager::instance();
    for (const QString &id : manager->openDesignIds()) {
        const IDesign *design = manager->design(id);
        if (design
            && design->buildConfiguration(configuration->configurationName()) == configuration)
            return design;
    }
    return nullptr;
}

QString resolved(const QString &name, const QString &folder)
{
    const QString path = placesearch::find(name, folder);
    return path.isEmpty() ? name : path;
}

} // namespace

IssueSources::IssueSources(IssueList *theList, QObject *parent) : QObject(parent), list(theList)
{
    const BuildMonitor *monitor = BuildMonitor::instance();
    connect(monitor, &BuildMonitor::started, this, &IssueSources::begin);
    connect(monitor, &BuildMonitor::progressed, this,
            [this](BuildConfiguration *configuration, int, int, const QString &step) {
                beginStep(configuration, step);
            });
    connect(monitor, &BuildMonitor::said, this,
            [this](BuildConfiguration *configuration, int, const QString &line) {
                takeLine(configuration, line);
            });
    connect(monitor, &BuildMonitor::ended, this, &IssueSources::end);
    const DesignManager *designs = DesignManager::instance();
    connect(designs, &DesignManager::designClosed, this, &IssueSources::dropClosed);
    connect(designs, &DesignManager::designIdChanged, this, &IssueSources::dropClosed);
}

void IssueSources::followRuns()
{
    if (const ScriptRuns *runs = ScriptRuns::instance())
        connect(runs, &ScriptRuns::begun, this, &IssueSources::beginScript);
}

QString IssueSources::folderOf(const BuildConfiguration *configuration)
{
    const IDesign *design = configuration ? designOf(configuration) : nullptr;
    return design ? design->workingFolderPath() : QString();
}

void IssueSources::begin(BuildConfiguration *configuration)
{
    const IDesign *design = designOf(configuration);
    if (!design)
        return;
    const QString name = configuration->configurationName();
    Build build;
    build.key = design->id(u"."_s) + separator + name;
    build.title = design->name() + u": "_s + name;
    build.folder = design->workingFolderPath();
    list->keepSteps(build.key, configuration->stepNamesInOrder(-1));
    builds.insert(configuration, build);
}

void IssueSources::beginStep(BuildConfiguration *configuration, const QString &step)
{
    const auto build = builds.find(configuration);
    if (build == builds.end())
        return;
    endStep(&*build);
    build->step = step;
    list->dropStep(build->key, step);
}

void IssueSources::takeLine(BuildConfiguration *configuration, const QString &line)
{
    const auto build = builds.find(configuration);
    if (build == builds.end() || build->step.isEmpty())
        return;
    if (line.startsWith("FAILED: "_L1))
        build->hasFailed = true;
    build->reader.take(line);
}

void IssueSources::end(const BuildConfiguration *configuration)
{
    const auto build = builds.find(configuration);
    if (build == builds.end())
        return;
    endStep(&*build);
    builds.erase(build);
}

// A step that failed without a word that is understood is an issue itself.
void IssueSources::endStep(Build *build)
{
    QList<Issue> issues = build->reader.issues();
    bool hasError = false;
    for (Issue &issue : issues) {
        issue.file = resolved(issue.file, build->folder);
        issue.step = build->step;
        hasError = hasError || issue.severity == TextPlace::Error;
    }
    if (build->hasFailed && !hasError) {
        Issue failure;
        failure.message = tr("The step \"%1\" failed").arg(build->step);
        failure.step = build->step;
        failure.details = failure.message;
        issues.append(failure);
    }
    list->add(build->key, build->title, issues);
    build->reader = {};
    build->hasFailed = false;
}

void IssueSources::dropClosed()
{
    const QStringList open = DesignManager::instance()->openDesignIds();
    const QList<IssueList::Source> sources = list->sources();
    for (const IssueList::Source &source : sources) {
        const qsizetype end = source.key.indexOf(separator);
        if (end >= 0 && !open.contains(source.key.first(end)))
            list->drop(source.key);
    }
}

void IssueSources::beginScript()
{
    const QString script = errorstack::currentScript();
    const QString command = ScriptRuns::instance()->command();
    list->drop(script.isEmpty() ? sourceOfCommand.take(command) : resolved(script, QString()));
}

// The innermost place is where the error is, the outermost names the script. A command that was
// only mistyped has neither.
void IssueSources::takeStack(const QString &stack)
{
    Issue issue;
    QString script;
    for (const QString &line : stack.split(u'\n')) {
        for (const TextPlace &place : placepatterns::placesIn(line)) {
            if (place.file.isEmpty())
                continue;
            script = resolved(place.file, QString());
            if (!issue.file.isEmpty())
                continue;
            issue.file = script;
            issue.line = place.line;
        }
    }
    if (issue.file.isEmpty())
        return;
    issue.message = stack.section(u'\n', 0, 0);
    issue.details = stack;
    const ScriptRuns *runs = ScriptRuns::instance();
    if (runs && errorstack::currentScript().isEmpty())
        sourceOfCommand.insert(runs->command(), script);
    list->drop(script);
    list->add(script, QFileInfo(script).fileName(), {issue});
}
