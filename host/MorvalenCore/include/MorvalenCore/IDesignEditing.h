#pragma once

#include <Qtilities/Status.h>

#include <QString>
#include <QtPlugin>

namespace MorvalenCore::Interfaces {

// What a design may offer beyond IDesign: its files get other names and places, and what was
// removed from it comes back. A design that offers it implements this interface beside IDesign.
// Paths may be absolute or relative to the folder of the component file. A design that is
// read-only refuses all of it.
class IDesignEditing
{
public:
    using Status = Qtilities::Core::Status;

    virtual ~IDesignEditing() = default;

    // Gives a file another path: on disk if it is there, in the design, and in the paths and
    // commands of build configurations that name it. Nothing is ever replaced; what cannot be done
    // leaves everything as it was. Refused while a build of the design is under way. A warning
    // names a configuration that could not be changed.
    virtual Status tryRenameFile(const QString &path, const QString &newPath) = 0;

    // Moves a file to another node, which is made where there is none.
    virtual Status tryMoveFile(const QString &path, const QString &node) = 0;

    // Brings back what was removed from the design since it was opened or read again, as it was in
    // the document. Nothing on disk changes.
    virtual Status tryRestoreFile(const QString &path) = 0;
    virtual Status tryRestoreFolder(const QString &path) = 0;
    virtual Status tryRestoreProperty(const QString &name) = 0;
};

} // namespace MorvalenCore::Interfaces

Q_DECLARE_INTERFACE(MorvalenCore::Interfaces::IDesignEditing,
                    "com.MorvalenCore.Interfaces.IDesignEditing/1.0")
