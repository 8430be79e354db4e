#pragma once

#include <MorvalenCore/MorvalenCoreExport.h>

#include <Qtilities/IProjectItem.h>

namespace MorvalenCore {

// Makes the open designs part of projects, by their component files; a design that has none is
// left out. The program makes one and adds it to the project manager. It works on the design
// manager of the moment.
class MORVALENCORE_EXPORT DesignProjectItem : public Qtilities::ProjectManagement::IProjectItem
{
public:
    using ProjectEntry = Qtilities::ProjectManagement::ProjectEntry;

    // "designs"
    QString sectionName() const override;
    QList<ProjectEntry> entries() const override;
    Qtilities::Core::Status check(const ProjectEntry &entry) const override;
    Qtilities::Core::Status open(const ProjectEntry &entry) override;
    void activate(const ProjectEntry &entry) override;
    // The working folder stays.
    Qtilities::Core::Status close(const ProjectEntry &entry) override;
};

} // namespace MorvalenCore
