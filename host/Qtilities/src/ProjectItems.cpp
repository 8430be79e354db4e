#include "ProjectItems.h"

#include <Qtilities/Logger.h>

namespace Qtilities::ProjectManagement {

namespace {

using namespace Qt::Literals::StringLiterals;
using Logging::Logger;

QString located(const QString &fileName, int line, const QString &reason)
{
    return line > 0 ? u"%1:%2: %3"_s.arg(fileName).arg(line).arg(reason) : reason;
}

void logError(const QString &text)
{
    Logger::instance()->logMessage(QString(), Logger::Error, text);
}

} // namespace

bool ProjectItems::add(IProjectItem *item)
{
    if (!item || itemFor(item->sectionName()))
        return false;
    items.append(item);
    return true;
}

IProjectItem *ProjectItems::itemFor(const QString &section) const
{
    for (IProjectItem *item : items) {
        if (item->sectionName() == section)
            return item;
    }
    return nullptr;
}

QList<ProjectSection> ProjectItems::sections() const
{
    QList<ProjectSection> open;
    for (const IProjectItem *item : items)
        open.append({item->sectionName(), item->entries(), 0});
    return open;
}

bool ProjectItems::check(const ProjectContent &content, const QString &fileName,
                         QString *error) const
{
    for (const ProjectSection &section : content.sections) {
        const IProjectItem *const item = itemFor(section.name);
        if (!item) {
            *error = located(fileName, section.line, u"<%1> is not known here"_s.arg(section.name));
            return false;
        }
        for (const ProjectEntry &entry : section.entries) {
            if (!item->check(entry, error)) {
                *error = located(fileName, entry.line, *error);
                return false;
            }
        }
    }
    return true;
}

bool ProjectItems::open(const QList<ProjectSection> &wanted, const QString &fileName,
                        QString *error)
{
    Opened opened;
    for (const ProjectSection &section : wanted) {
        int line = 0;
        if (openSection(section, &opened, &line, error))
            continue;
        *error = located(fileName, line, *error);
        QString closing;
        for (const auto &[item, entry] : opened) {
            if (!item->close(entry, &closing))
                logError(closing);
        }
        return false;
    }
    for (const ProjectSection &section : wanted) {
        for (const ProjectEntry &entry : section.entries) {
            if (entry.active)
                itemFor(section.name)->activate(entry);
        }
    }
    return true;
}

// Notes what was not open before; on failure *line tells which entry is to blame.
bool ProjectItems::openSection(const ProjectSection &section, Opened *opened, int *line,
                               QString *error)
{
    IProjectItem *const item = itemFor(section.name);
    for (const ProjectEntry &entry : section.entries) {
        const qsizetype before = item->entries().size();
        *line = entry.line;
        if (!item->open(entry, error))
            return false;
        if (item->entries().size() > before)
            opened->append({item, entry});
    }
    return true;
}

bool ProjectItems::closeAll(QString *error)
{
    const QList<ProjectSection> before = sections();
    for (const ProjectSection &section : before) {
        for (const ProjectEntry &entry : section.entries) {
            if (!itemFor(section.name)->close(entry, error)) {
                reopen(before);
                return false;
            }
        }
    }
    return true;
}

void ProjectItems::reopen(const QList<ProjectSection> &before)
{
    QString error;
    if (!open(before, QString(), &error))
        logError(error);
}

} // namespace Qtilities::ProjectManagement
