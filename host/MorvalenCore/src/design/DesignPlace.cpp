#include "design/DesignPlace.h"

#include "document/DocumentFormat.h"
#include "items/DesignState.h"
#include "structures/structures.h"

#include <Qtilities/makefolder.h>

#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Status;

namespace MorvalenCore {

Status DesignPlace::settleIn(const QString &path)
{
    const QStringList folders = structureFolders();
    if (const Status made = folder.make(path, folders); !made.isOk())
        return made;
    NewDocument document = newDocument(path + u'/' + format.fileName(), folders);
    const Status saved = document.isOk() ? document.value()->save() : document.status();
    if (!saved.isOk()) {
        // A write can fail after the file has taken its place.
        if (saved.kind() != Status::Kind::AlreadyExists
            && QFileInfo::exists(path + u'/' + format.fileName()))
            folder.addFile(format.fileName());
        folder.takeBack();
        return saved;
    }
    folder.addFile(format.fileName());
    state.setDocument(std::move(document).value());
    return {};
}

DesignPlace::NewDocument DesignPlace::newDocument(const QString &path,
                                                  const QStringList &folders) const
{
    NewDocument made = copyFor(path);
    if (!made.isOk())
        return made;
    for (const QString &name : folders) {
        Status added = made.value()->files().addFileSet(name).status();
        if (added.isOk())
            added = made.value()->folders().add(name, QString()).status();
        if (!added.isOk())
            return added;
    }
    return made;
}

DesignPlace::NewDocument DesignPlace::copyFor(const QString &path) const
{
    const DesignDocument &present = state.document();
    NewDocument document =
        format.create({present.text(DesignField::Vendor), present.text(DesignField::Library),
                       present.text(DesignField::Name), present.text(DesignField::Version)},
                      path);
    if (!document.isOk())
        return document;
    for (const DesignField field : {DesignField::Description, DesignField::Author,
                                    DesignField::Type, DesignField::Structure}) {
        const Status written = document.value()->setText(field, present.text(field));
        if (!written.isOk())
            return written;
    }
    document.value()->setReadOnly(present.isReadOnly());
    return document;
}

Status DesignPlace::restoreFolders() const
{
    QStringList folders {state.folder()};
    if (findDesignStructure(state.document().text(DesignField::Structure))) {
        for (const QString &name : structureFolders())
            folders.append(state.folder() + u'/' + name);
    }
    for (const QString &path : folders) {
        if (const Status made = Qtilities::Core::makeFolder(path); !made.isOk())
            return made.withText(u"The folder \"%1\" cannot be made: %2"_s.arg(path, made.text()));
    }
    return {};
}

// A new design without a structure gets the simplest one's.
QStringList DesignPlace::structureFolders() const
{
    const DesignStructure *structure =
        findDesignStructure(state.document().text(DesignField::Structure));
    return structure ? structure->fileSets : designStructures().first().fileSets;
}

} // namespace MorvalenCore
