#include "app/session/RecentFiles.h"

#include "app/session/preferences.h"
#include "app/session/Settings.h"
#include "interp/ScriptRuns.h"

#include <MorvalenCore/DesignManager.h>
#include <Qtilities/ProjectManager.h>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;
using Qtilities::ProjectManagement::ProjectManager;

namespace {

const QString keys[] = {u"Recent/designs"_s, u"Recent/projects"_s};

} // namespace

RecentFiles::RecentFiles(QObject *parent) : QObject(parent)
{
    // A script may open a thousand designs; the settings are written once.
    writeTimer.setSingleShot(true);
    writeTimer.callOnTimeout(this, &RecentFiles::write);
    connect(DesignManager::instance(), &DesignManager::designAttached, this,
            &RecentFiles::addDesign);
    connect(ProjectManager::instance(), &ProjectManager::currentProjectChanged, this,
            &RecentFiles::addProject);
}

QStringList RecentFiles::files(Kind kind) { return Settings().value(keys[kind]).toStringList(); }

void RecentFiles::clear()
{
    Settings settings;
    for (const QString &key : keys)
        settings.remove(key);
}

void RecentFiles::addDesign(const QString &designId)
{
    if (const auto *design = DesignManager::instance()->design(designId))
        add(Designs, design->componentFileName());
}

void RecentFiles::addProject()
{
    add(Projects, ProjectManager::instance()->currentProjectFileName());
}

void RecentFiles::add(Kind kind, const QString &file)
{
    if (file.isEmpty() || !preferences::remembers(preferences::RecentFiles))
        return;
    opened[kind].removeAll(file);
    opened[kind].append(file);
    writeTimer.start(0);
}

void RecentFiles::write()
{
    // The script goes on, and may open more.
    if (const ScriptRuns *runs = ScriptRuns::instance(); runs && runs->isInPass()) {
        writeTimer.start(0);
        return;
    }
    Settings settings;
    for (const Kind kind : {Designs, Projects}) {
        if (opened[kind].isEmpty())
            continue;
        QStringList all = settings.value(keys[kind]).toStringList();
        for (const QString &file : std::as_const(opened[kind])) {
            all.removeAll(file);
            all.prepend(file);
        }
        settings.set(keys[kind], QStringList(all.first(qMin<qsizetype>(all.size(), most))));
        opened[kind].clear();
    }
}
