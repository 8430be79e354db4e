#include "items/DesignFiles.h"

#include "disk/itempaths.h"
#include "items/DesignState.h"
#include "items/filekinds.h"
#include "structures/structures.h"

using namespace Qt::Literals::StringLiterals;

namespace MorvalenCore {

namespace {

bool liesUnder(const QString &category, const QString &node, bool recursive)
{
    return category == node || (recursive && category.startsWith(node + "::"_L1));
}

} // namespace

DesignFiles::DesignFiles(DesignState &designState) : PathItems(designState), types(designState) { }

DesignFile *DesignFiles::findByName(const QString &fileName) const
{
    for (DesignFile *file : underNode(QString(), true)) {
        if (file->fileName() == fileName)
            return file;
    }
    return nullptr;
}

DesignFile *DesignFiles::add(const QString &path, const QString &node, QString *error)
{
    return addItem(path, error, [&](const QString &text, QString *reason) {
        return addEntry(text, node, reason);
    });
}

FileId DesignFiles::addEntry(const QString &text, const QString &node, QString *error)
{
    const FileSetId set = node.isEmpty() ? fileSetFor(text, error) : fileSetNamed(node, error);
    const FileId entry = set ? part().add(text, set, error) : FileId();
    if (!entry)
        return entry;
    const QString path = actualItemPath(text, state.folder());
    const QString category = categoryForFileName(path.section(u'/', -1));
    if (category != part().category(entry))
        part().setCategory(entry, category);
    types.added(entry);
    return entry;
}

FileSetId DesignFiles::fileSetFor(const QString &text, QString *error)
{
    const DocumentFiles &document = part();
    const DesignStructure *structure =
        findDesignStructure(state.document().text(DesignField::Structure));
    const QString wanted = structure ? structure->fileSetFor(text) : QString();
    if (!wanted.isEmpty() && !holdsGeneratedFiles(wanted))
        return fileSetNamed(wanted, error);
    if (const FileSetId set = types.firstSetWith(document.fileTypeOf(text)))
        return set;
    if (const FileSetId set = document.fileSet(u"files"_s); set && !holdsGeneratedFiles(u"files"_s))
        return set;
    for (const FileSetId set : document.fileSets()) {
        if (!document.isInGeneratedGroup(set))
            return set;
    }
    QString name = u"files"_s;
    for (int i = 2; document.fileSet(name); ++i)
        name = u"files_%1"_s.arg(i);
    return fileSetNamed(name, error);
}

bool DesignFiles::holdsGeneratedFiles(const QString &fileSet) const
{
    return part().isInGeneratedGroup(part().fileSet(fileSet));
}

FileSetId DesignFiles::fileSetNamed(const QString &name, QString *error)
{
    DocumentFiles &document = part();
    const FileSetId set = document.fileSet(name);
    return set ? set : document.addFileSet(name, error);
}

bool DesignFiles::setGenerated(DesignFile *file, const QString &by, QString *error)
{
    const auto *item = dynamic_cast<FileItem *>(file);
    return item && state.change(error, [&](QString *reason) {
        const QString version = state.document().text(DesignField::Version);
        return part().setGenerated(item->elements().first(), GeneratedInfo {by, version}, reason);
    });
}

QList<DesignFile *> DesignFiles::underNode(const QString &node, bool recursive) const
{
    return table.inOrder<DesignFile>(node.isEmpty() ? part().files()
                                                    : entriesUnderNode(node, recursive));
}

QList<FileId> DesignFiles::entriesUnderNode(const QString &node, bool recursive) const
{
    const DocumentFiles &document = part();
    QList<FileId> named;
    QList<FileId> grouped;
    bool isName = false;
    bool isGroup = false;
    for (const FileSetId &set : document.fileSets()) {
        if (document.name(set) == node) {
            isName = true;
            named += document.files(set);
        } else if (document.groups(set).contains(node)) {
            isGroup = true;
            grouped += document.files(set);
        }
    }
    if (isName || isGroup)
        return isName ? named : grouped;

    QList<FileId> below;
    for (const FileId &entry : document.files()) {
        const FileItem *item = table.byId(entry);
        if (item && liesUnder(document.category(item->elements().first()), node, recursive))
            below.append(entry);
    }
    return below;
}

bool DesignFiles::hasNode(const QString &node) const
{
    if (node.isEmpty())
        return false;
    const DocumentFiles &document = part();
    for (const FileSetId &set : document.fileSets()) {
        if (document.name(set) == node || document.groups(set).contains(node))
            return true;
    }
    return !entriesUnderNode(node, true).isEmpty();
}

QStringList DesignFiles::nodeNames() const
{
    QStringList names;
    for (const FileSetId &set : part().fileSets())
        names.append(part().name(set));
    names.removeDuplicates();
    return names;
}

} // namespace MorvalenCore
