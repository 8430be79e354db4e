#include "items/DesignFiles.h"

#include "disk/itempaths.h"
#include "items/DesignState.h"
#include "items/filekinds.h"
#include "structures/structures.h"

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

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

Result<DesignFile *> DesignFiles::add(const QString &path, const QString &node)
{
    return addItem(path, [&](const QString &text) { return addEntry(text, node); });
}

Result<FileId> DesignFiles::addEntry(const QString &text, const QString &node)
{
    const Result<FileSetId> set = node.isEmpty() ? fileSetFor(text) : fileSetNamed(node);
    if (!set.isOk())
        return set.status();
    const Result<FileId> entry =
        added<FileId>([&](QString *error) { return part().add(text, set.value(), error); });
    if (!entry.isOk())
        return entry;
    const QString path = actualItemPath(text, state.folder());
    const QString category = categoryForFileName(path.section(u'/', -1));
    if (category != part().category(entry.value()))
        part().setCategory(entry.value(), category);
    types.added(entry.value());
    return entry;
}

Result<FileSetId> DesignFiles::fileSetFor(const QString &text)
{
    const DocumentFiles &document = part();
    const DesignStructure *structure =
        findDesignStructure(state.document().text(DesignField::Structure));
    const QString wanted = structure ? structure->fileSetFor(text) : QString();
    if (!wanted.isEmpty() && !holdsGeneratedFiles(wanted))
        return fileSetNamed(wanted);
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
    return fileSetNamed(name);
}

bool DesignFiles::holdsGeneratedFiles(const QString &fileSet) const
{
    return part().isInGeneratedGroup(part().fileSet(fileSet));
}

Result<FileSetId> DesignFiles::fileSetNamed(const QString &name)
{
    if (const FileSetId set = part().fileSet(name))
        return set;
    return added<FileSetId>([&](QString *error) { return part().addFileSet(name, error); });
}

Status DesignFiles::setGenerated(DesignFile *file, const QString &by)
{
    const auto *item = dynamic_cast<FileItem *>(file);
    if (!item)
        return Status::unsupported(u"The file is not one of design \"%1\""_s.arg(state.name()));
    return state.change([&] {
        const GeneratedInfo info {by, state.document().text(DesignField::Version)};
        return statusOf([&](QString *error) {
            return part().setGenerated(item->elements().first(), info, error);
        });
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
