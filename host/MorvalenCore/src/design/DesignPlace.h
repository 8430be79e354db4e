#pragma once

#include "disk/WorkingFolder.h"

#include <Qtilities/Status.h>

#include <memory>

namespace MorvalenCore {

class DesignDocument;
class DesignState;
class DocumentFormat;

// Where a design lies on disk: makes the working folder of a new one, with the folders of its
// structure and a document in it, and brings back folders that are missing. Takes back what it made
// when it is destroyed, unless it was told to keep it. Part of its design.
class DesignPlace
{
public:
    DesignPlace(const DocumentFormat &documentFormat, DesignState &designState)
        : format(documentFormat),
          state(designState)
    {
    }

    // For a design that has no place yet. The design has the new document then; on failure nothing
    // is left on disk.
    Qtilities::Core::Status settleIn(const QString &path);
    // For a design that has one.
    Qtilities::Core::Status restoreFolders() const;

    void keep() { folder.keep(); }

private:
    using NewDocument = Qtilities::Core::Result<std::unique_ptr<DesignDocument>>;

    // What the design has without a working folder, written for a file.
    NewDocument copyFor(const QString &path) const;
    // The same with the file sets and folders of the structure.
    NewDocument newDocument(const QString &path, const QStringList &folders) const;
    QStringList structureFolders() const;

    const DocumentFormat &format;
    DesignState &state;
    WorkingFolder folder;
};

} // namespace MorvalenCore
