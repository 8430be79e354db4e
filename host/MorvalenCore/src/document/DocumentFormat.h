#pragma once

#include "document/DesignDocument.h"

#include <QStringList>

#include <memory>

namespace MorvalenCore {

// A format that designs are written in: where documents come from. Has no state, and lives as long
// as the program.
class DocumentFormat
{
public:
    // What open() gives: either a document, perhaps with warnings, or an error; each reads
    // "FILE:LINE: reason".
    struct Opened
    {
        std::unique_ptr<DesignDocument> document;
        QString error;
        QStringList warnings;
    };

    virtual ~DocumentFormat() = default;

    // The name of the file in the working folder of a new design.
    virtual QString fileName() const = 0;

    // Reads the file at path; a relative path is of the process's folder.
    virtual Opened open(const QString &path) const = 0;

    // A new document that save() will write to path, where no file may be by then. Null, with the
    // reason in *error, when the format cannot carry the identity or the name is empty.
    virtual std::unique_ptr<DesignDocument> create(const DesignDocument::Identity &identity,
                                                   const QString &path,
                                                   QString *error = nullptr) const = 0;
};

} // namespace MorvalenCore
