#include <MorvalenCore/DesignManager.h>
#include <MorvalenCore/DesignProjectItem.h>

#include <QFileInfo>

namespace MorvalenCore {

namespace {

using namespace Qt::Literals::StringLiterals;
using Interfaces::IDesign;
using Qtilities::Core::Status;

bool isSameFile(const QString &one, const QString &other)
{
    return one == other || (!one.isEmpty() && QFileInfo(one) == QFileInfo(other));
}

// The id of the open design of a component file; empty when there is none.
QString idOf(const QString &componentFile)
{
    const DesignManager *const manager = DesignManager::instance();
    for (const QString &id : manager->openDesignIds()) {
        const IDesign *const design = manager->design(id);
        if (design && isSameFile(design->componentFileName(), componentFile))
            return id;
    }
    return {};
}

// A failure gets the sentence, and its reason is told before.
Status whole(const Status &status, const QString &sentence)
{
    return status.isOk() ? status : Status(status.kind(), sentence).after(status);
}

} // namespace

QString DesignProjectItem::sectionName() const { return u"designs"_s; }

QList<DesignProjectItem::ProjectEntry> DesignProjectItem::entries() const
{
    const DesignManager *const manager = DesignManager::instance();
    const IDesign *const active = manager->activeDesigns().value(0);
    QList<ProjectEntry> all;
    for (const QString &id : manager->openDesignIds()) {
        const IDesign *const design = manager->design(id);
        if (design && !design->componentFileName().isEmpty())
            all.append({design->componentFileName(), design == active, 0});
    }
    return all;
}

Status DesignProjectItem::check(const ProjectEntry &entry) const
{
    return QFileInfo(entry.path).isFile()
        ? Status()
        : Status::notFound(u"There is no component file \"%1\""_s.arg(entry.path));
}

Status DesignProjectItem::open(const ProjectEntry &entry)
{
    if (!idOf(entry.path).isEmpty())
        return {};
    const Status opened = DesignManager::instance()->tryParseDesignFromFile(entry.path).status();
    return whole(opened, u"The design in \"%1\" cannot be opened"_s.arg(entry.path));
}

void DesignProjectItem::activate(const ProjectEntry &entry)
{
    const QString id = idOf(entry.path);
    if (!id.isEmpty())
        DesignManager::instance()->setActiveDesign(id);
}

Status DesignProjectItem::close(const ProjectEntry &entry)
{
    const QString id = idOf(entry.path);
    const Status closed =
        id.isEmpty() ? Status() : DesignManager::instance()->tryCloseDesign(id, false);
    return whole(closed, u"The design \"%1\" cannot be closed"_s.arg(id));
}

} // namespace MorvalenCore
