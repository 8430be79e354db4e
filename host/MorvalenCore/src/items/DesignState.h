#pragma once

#include "document/DesignDocument.h"

#include <Qtilities/Status.h>

#include <functional>
#include <memory>
#include <utility>

namespace MorvalenCore {

// What the parts of one design share: its document, and the one way in which it is changed. Part
// of its design.
class DesignState
{
public:
    explicit DesignState(std::unique_ptr<DesignDocument> document);
    ~DesignState();
    DesignState(const DesignState &) = delete;
    DesignState &operator=(const DesignState &) = delete;

    DesignDocument &document() { return component ? *component : made(); }
    const DesignDocument &document() const { return component ? *component : made(); }
    void setDocument(std::unique_ptr<DesignDocument> document);
    // The same, with one that is made when it is asked for; never null.
    using DocumentMaker = std::function<std::unique_ptr<DesignDocument>()>;
    void setDocument(const DocumentMaker &make);

    QString name() const { return document().text(DesignField::Name); }

    // Whether the design has a component file, and so a folder that paths can be of.
    bool isPlaced() const { return placed; }
    void setPlaced(bool flag);
    // The folder of the component file, absolute and clean; empty as long as there is none.
    QString folder() const;
    // The same without links on the way, as it was when the design came there. Whatever stands in
    // its place later is not the design's.
    QString folderOnDisk() const { return placed ? resolvedFolder : QString(); }

    // Read-only by its own flag, or because the component file cannot be written.
    bool isReadOnly() const;
    void setFileReadOnly(bool flag) { fileReadOnly = flag; }

    // Changes the design, unless it is read-only or the edit fails.
    using Edit = std::function<Qtilities::Core::Status()>;
    Qtilities::Core::Status change(const Edit &edit);

    // Called after each change of the design.
    std::function<void()> changed;

private:
    DesignDocument &made() const;

    mutable std::unique_ptr<DesignDocument> component;
    DocumentMaker makeDocument;
    bool placed = false;
    QString resolvedFolder;
    bool fileReadOnly = false;
};

} // namespace MorvalenCore
