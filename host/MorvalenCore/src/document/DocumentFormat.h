#pragma once

#include "document/DesignDocument.h"

#include <Qtilities/Status.h>

#include <memory>

namespace MorvalenCore {

// A format that designs are written in: where documents come from. Has no state, and lives as long
// as the program.
class DocumentFormat
{
public:
    virtual ~DocumentFormat() = default;

    // The name of the file in the working folder of a new design.
    virtual QString fileName() const = 0;

    // Reads the file at path; a relative path is of the process's folder. Remarks and the sentence
    // of a failure read "FILE:LINE: reason".
    virtual Qtilities::Core::Result<std::unique_ptr<DesignDocument>>
    open(const QString &path) const = 0;

    // A new document that save() will write to path, where no file may be by then. Fails when the
    // format cannot carry the identity or the name is empty.
    virtual Qtilities::Core::Result<std::unique_ptr<DesignDocument>>
    create(const DesignDocument::Identity &identity, const QString &path) const = 0;
};

} // namespace MorvalenCore
