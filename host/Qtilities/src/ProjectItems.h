#pragma once

#include "ProjectFile.h"

#include <Qtilities/IProjectItem.h>

namespace Qtilities::ProjectManagement {

// The kinds of things that projects hold, and what is open of them. Operations do everything or
// nothing; their error texts name file and line where the fault lies in a project file.
class ProjectItems
{
public:
    // The item stays the caller's. False for null and for a second one of the same section.
    bool add(IProjectItem *item);
    void remove(IProjectItem *item) { items.removeAll(item); }

    // What is open now, section by section.
    QList<ProjectSection> sections() const;

    // Whether it looks as if all that the file holds could be opened; opens nothing.
    bool check(const ProjectContent &content, const QString &fileName, QString *error) const;

    // Opens what the file holds beside what is open already.
    bool open(const QList<ProjectSection> &wanted, const QString &fileName, QString *error);

    // Closes all that is open.
    bool closeAll(QString *error);

    // Opens again what was open before; what fails is logged.
    void reopen(const QList<ProjectSection> &before);

private:
    using Opened = QList<std::pair<IProjectItem *, ProjectEntry>>;

    IProjectItem *itemFor(const QString &section) const;
    bool openSection(const ProjectSection &section, Opened *opened, int *line, QString *error);

    QList<IProjectItem *> items;
};

} // namespace Qtilities::ProjectManagement
