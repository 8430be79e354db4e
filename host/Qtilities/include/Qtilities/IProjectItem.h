#pragma once

#include <Qtilities/ProjectEntry.h>
#include <Qtilities/Status.h>

#include <QList>
#include <QString>

namespace Qtilities::ProjectManagement {

// A kind of thing that projects hold, such as designs. Whoever keeps these things implements it
// and adds it to the project manager, which knows nothing else about them.
class IProjectItem
{
public:
    virtual ~IProjectItem() = default;

    // What the project file calls them, a lower-case noun in the plural: "designs".
    virtual QString sectionName() const = 0;

    // What is open now, in the order of opening.
    virtual QList<ProjectEntry> entries() const = 0;

    // Whether it looks as if the entry could be opened; opens nothing.
    virtual Core::Status check(const ProjectEntry &entry) const = 0;

    // Opens an entry; one that is open already stays so, which is a success.
    virtual Core::Status open(const ProjectEntry &entry) = 0;

    // Makes an open entry the active one.
    virtual void activate(const ProjectEntry &entry) = 0;

    // Closes an entry, saving its unsaved changes. On failure it is still open, unchanged.
    virtual Core::Status close(const ProjectEntry &entry) = 0;
};

} // namespace Qtilities::ProjectManagement
