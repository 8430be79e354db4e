#pragma once

#include "ProjectFile.h"

#include <Qtilities/IProjectItem.h>

namespace Qtilities::ProjectManagement {

// The kinds of things that projects hold, and what is open of them. Operations do everything or
// nothing; a failure names file and line where the fault lies in a project file.
class ProjectItems
{
public:
    // The item stays the caller's. False for null and for a second one of the same section.
    bool add(IProjectItem *item);
    void remove(IProjectItem *item) { items.removeAll(item); }

    // What is open now, section by section.
    QList<ProjectSection> sections() const;

    // Whether it looks as if all that the file holds could be opened; opens nothing.
    Core::Status check(const ProjectContent &content, const QString &fileName) const;

    // Opens what the file holds beside what is open already.
    Core::Status open(const QList<ProjectSection> &wanted, const QString &fileName);

    // Closes all that is open.
    Core::Status closeAll();

    // Opens again what was open before.
    Core::Status reopen(const QList<ProjectSection> &before) { return open(before, {}); }

private:
    using OpenEntries = QList<std::pair<IProjectItem *, ProjectEntry>>;

    IProjectItem *itemFor(const QString &section) const;
    Core::Status openSection(const ProjectSection &section, const QString &fileName,
                             OpenEntries *opened);

    QList<IProjectItem *> items;
};

} // namespace Qtilities::ProjectManagement
