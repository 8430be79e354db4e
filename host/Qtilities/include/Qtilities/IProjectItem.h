#pragma once

#include <Qtilities/ProjectEntry.h>

#include <QList>
#include <QString>

namespace Qtilities::ProjectManagement {

// A kind of thing that projects hold, such as designs. Whoever keeps these things implements it
// and adds it to the project manager, which knows nothing else about them. Error texts are one
// sentence without a final line feed.
class IProjectItem
{
public:
    virtual ~IProjectItem() = default;

    // What the project file calls them, a lower-case noun in the plural: "designs".
    virtual QString sectionName() const = 0;

    // What is open now, in the order of opening.
    virtual QList<ProjectEntry> entries() const = 0;

    // Whether it looks as if the entry could be opened; opens nothing.
    virtual bool check(const ProjectEntry &entry, QString *error) const = 0;

    // Opens an entry; one that is open already stays so, which is a success.
    virtual bool open(const ProjectEntry &entry, QString *error) = 0;

    // Makes an open entry the active one.
    virtual void activate(const ProjectEntry &entry) = 0;

    // Closes an entry, saving its unsaved changes. On failure it is still open, unchanged.
    virtual bool close(const ProjectEntry &entry, QString *error) = 0;
};

} // namespace Qtilities::ProjectManagement
