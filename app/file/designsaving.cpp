#include "app/file/designsaving.h"

#include "app/calls/HostCall.h"
#include "app/file/filedialogs.h"
#include "app/journal/journaling.h"
#include "app/messages/messages.h"

#include <MorvalenCore/DesignManager.h>
#include <Qtilities/ProjectManager.h>

#include <QCoreApplication>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;
using MorvalenCore::Interfaces::IDesign;
using Qtilities::Core::Status;
using Qtilities::ProjectManagement::ProjectManager;

namespace designsaving {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(designsaving)
};

bool writeProject(QWidget *parent, const QString &fileName)
{
    HostCall attempt(parent, Texts::tr("Not Saved"));
    const bool saved =
        attempt.takeAndLog(ProjectManager::instance()->trySaveProject(fileName, true));
    if (saved)
        journaling::projectSaved(fileName);
    if (saved)
        messages::tell(Texts::tr("Saved the project \"%1\"").arg(fileName));
    return saved;
}

// Designs that are open without a project belong to the one that is made for them.
bool haveProject(QWidget *parent)
{
    if (ProjectManager::instance()->currentProject())
        return true;
    HostCall attempt(parent, Texts::tr("Not Saved"));
    const bool made = attempt.takeAndLog(ProjectManager::instance()->tryNewProject());
    if (made)
        journaling::projectMade();
    return made;
}

} // namespace

IDesign *activeDesign()
{
    const QList<IDesign *> active = DesignManager::instance()->activeDesigns();
    return active.isEmpty() ? nullptr : active.first();
}

QStringList modifiedDesigns()
{
    QStringList modified = DesignManager::instance()->openDesignIds();
    modified.removeIf([](const QString &id) {
        const IDesign *design = DesignManager::instance()->design(id);
        return !design || !design->isModified();
    });
    return modified;
}

QString save(const QStringList &designIds)
{
    QStringList reasons;
    for (const QString &id : designIds) {
        IDesign *design = DesignManager::instance()->design(id);
        if (!design)
            continue;
        const Status saved = design->componentFileName().isEmpty()
            ? Status::notFound(
                Texts::tr("The design \"%1\" has no component file").arg(design->name()))
            : design->trySaveToComponentFile();
        if (saved.isOk())
            journaling::saved(*design);
        else
            reasons.append(saved.text());
    }
    return reasons.join(u'\n');
}

bool saveOrTell(QWidget *parent, const QStringList &designIds)
{
    const QString reasons = save(designIds);
    if (!reasons.isEmpty())
        messages::warn(parent, Texts::tr("Not Saved"), reasons.split(u'\n'));
    else if (!designIds.isEmpty())
        messages::tell(Texts::tr("Saved %1").arg(designIds.join(u", "_s)));
    return reasons.isEmpty();
}

bool saveProject(QWidget *parent)
{
    const QString fileName = ProjectManager::instance()->currentProjectFileName();
    return fileName.isEmpty() ? saveProjectAs(parent) : writeProject(parent, fileName);
}

bool saveProjectAs(QWidget *parent)
{
    const QString fileName = filedialogs::projectToSave(parent);
    return !fileName.isEmpty() && haveProject(parent) && writeProject(parent, fileName);
}

} // namespace designsaving
