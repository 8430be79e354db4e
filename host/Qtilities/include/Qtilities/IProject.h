#pragma once

#include <QString>

namespace Qtilities::ProjectManagement {

// An open project as others see it. What it holds comes from the project items.
class IProject
{
public:
    virtual ~IProject() = default;

    virtual QString projectName() const = 0;

    // The absolute, clean path of its file; empty as long as it was never saved.
    virtual QString projectFileName() const = 0;
};

} // namespace Qtilities::ProjectManagement
