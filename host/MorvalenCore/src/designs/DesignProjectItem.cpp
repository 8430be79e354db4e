#include <MorvalenCore/DesignManager.h>
#include <MorvalenCore/DesignProjectItem.h>

#include <QFileInfo>

namespace MorvalenCore {

namespace {

using namespace Qt::Literals::StringLiterals;
using Interfaces::IDesign;

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

bool DesignProjectItem::check(const ProjectEntry &entry, QString *error) const
{
    const bool isFile = QFileInfo(entry.path).isFile();
    if (!isFile)
        *error = u"There is no component file \"%1\""_s.arg(entry.path);
    return isFile;
}

bool DesignProjectItem::open(const ProjectEntry &entry, QString *error)
{
    const bool isOpen = !idOf(entry.path).isEmpty()
        || DesignManager::instance()->parseDesignFromFile(QString(), entry.path);
    if (!isOpen)
        *error = u"The design in \"%1\" cannot be opened"_s.arg(entry.path);
    return isOpen;
}

void DesignProjectItem::activate(const ProjectEntry &entry)
{
    const QString id = idOf(entry.path);
    if (!id.isEmpty())
        DesignManager::instance()->setActiveDesign(id);
}

bool DesignProjectItem::close(const ProjectEntry &entry, QString *error)
{
    const QString id = idOf(entry.path);
    const bool isClosed = id.isEmpty() || DesignManager::instance()->closeDesign(id, false);
    if (!isClosed)
        *error = u"The design \"%1\" cannot be closed"_s.arg(id);
    return isClosed;
}

} // namespace MorvalenCore
