#include "ProjectItems.h"

namespace Qtilities::ProjectManagement {

namespace {

using namespace Qt::Literals::StringLiterals;
using Core::Status;

Status located(const QString &fileName, int line, const Status &status)
{
    return line > 0 ? status.withText(u"%1:%2: %3"_s.arg(fileName).arg(line).arg(status.text()))
                    : status;
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

Status ProjectItems::check(const ProjectContent &content, const QString &fileName) const
{
    for (const ProjectSection &section : content.sections) {
        const IProjectItem *const item = itemFor(section.name);
        if (!item) {
            return located(fileName, section.line,
                           Status::malformed(u"<%1> is not known here"_s.arg(section.name)));
        }
        for (const ProjectEntry &entry : section.entries) {
            const Status status = item->check(entry);
            if (!status.isOk())
                return located(fileName, entry.line, status);
        }
    }
    return {};
}

Status ProjectItems::open(const QList<ProjectSection> &wanted, const QString &fileName)
{
    Status done;
    OpenEntries opened;
    for (const ProjectSection &section : wanted) {
        Status status = openSection(section, fileName, &opened);
        if (status.isOk()) {
            done.addStep(status);
            continue;
        }
        for (const auto &[item, entry] : opened)
            status.addStep(item->close(entry));
        return status.after(done);
    }
    for (const ProjectSection &section : wanted) {
        for (const ProjectEntry &entry : section.entries) {
            if (entry.active)
                itemFor(section.name)->activate(entry);
        }
    }
    return done;
}

// Notes what was not open before.
Status ProjectItems::openSection(const ProjectSection &section, const QString &fileName,
                                 OpenEntries *opened)
{
    Status done;
    IProjectItem *const item = itemFor(section.name);
    for (const ProjectEntry &entry : section.entries) {
        const qsizetype before = item->entries().size();
        const Status status = item->open(entry);
        if (!status.isOk())
            return located(fileName, entry.line, status).after(done);
        done.addStep(status);
        if (item->entries().size() > before)
            opened->append({item, entry});
    }
    return done;
}

Status ProjectItems::closeAll()
{
    Status done;
    const QList<ProjectSection> before = sections();
    for (const ProjectSection &section : before) {
        for (const ProjectEntry &entry : section.entries) {
            Status status = itemFor(section.name)->close(entry);
            if (!status.isOk()) {
                status.addStep(reopen(before));
                return status.after(done);
            }
            done.addStep(status);
        }
    }
    return done;
}

} // namespace Qtilities::ProjectManagement
