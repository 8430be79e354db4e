#include "items/DesignFiles.h"

#include "disk/itempaths.h"
#include "items/DesignState.h"
#include "items/filekinds.h"
#include "structures/structures.h"

#include <Qtilities/categorytext.h>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

namespace MorvalenCore {

namespace {

bool liesUnder(const QString &category, const QString &node, bool recursive)
{
    return category == node
        || (recursive && category.startsWith(node + Qtilities::Core::levelSeparator()));
}

} // namespace

DesignFiles::DesignFiles(DesignState &designState) : PathItems(designState), types(designState) { }

void DesignFiles::clear()
{
    types.forget();
    setsForFiles.clear();
    PathItems::clear();
}

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
    if (const Status status = part().checkPath(text); !status.isOk())
        return status;
    const Result<FileSetId> set = fileSetOf(text, node);
    if (!set.isOk())
        return set.status();
    const Result<FileId> entry = part().add(text, set.value());
    if (!entry.isOk())
        return entry;
    const QString path = actualItemPath(text, state.folder());
    const QString category = categoryForFileName(path.section(u'/', -1));
    Status sorted;
    if (category != part().category(entry.value()))
        sorted = part().setCategory(entry.value(), category);
    types.added(entry.value());
    return sorted.isOk() ? entry : sorted;
}

Result<FileSetId> DesignFiles::fileSetOf(const QString &text, const QString &node)
{
    if (node.isEmpty())
        return fileSetFor(text);
    return node == nodeOfMade() ? fileSetForFiles(node) : fileSetNamed(node);
}

Result<FileSetId> DesignFiles::fileSetFor(const QString &text)
{
    const DocumentFiles &document = part();
    const DesignStructure *structure =
        findDesignStructure(state.document().text(DesignField::Structure));
    const QString wanted = structure ? structure->fileSetFor(text) : QString();
    if (!wanted.isEmpty() && !holdsGeneratedFiles(wanted))
        return fileSetForFiles(wanted);
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
    return fileSetForFiles(name);
}

bool DesignFiles::holdsGeneratedFiles(const QString &fileSet) const
{
    return part().isInGeneratedGroup(part().fileSet(fileSet));
}

Result<FileSetId> DesignFiles::fileSetNamed(const QString &name)
{
    if (const FileSetId set = part().fileSet(name))
        return set;
    return part().addFileSet(name);
}

Result<FileSetId> DesignFiles::fileSetForFiles(const QString &name)
{
    const bool isThere = bool(part().fileSet(name));
    const Result<FileSetId> set = fileSetNamed(name);
    if (!isThere && set.isOk())
        setsForFiles.append(set.value());
    return set;
}

Status DesignFiles::moveTo(const QString &path, const QString &node)
{
    const FileItem *item = lookUp(path);
    if (!item)
        return Status::notFound(
            u"The design \"%1\" does not have \"%2\""_s.arg(state.name(), path));
    if (item->node() == node)
        return {};
    return state.change([&] {
        const Status accepted = checkMove(*item, node);
        return accepted.isOk() ? moveEntry(item->elements().first(), node) : accepted;
    });
}

Status DesignFiles::checkMove(const FileItem &item, const QString &node) const
{
    if (item.elements().isEmpty())
        return Status::unsupported(
            u"The file \"%1\" is made by a build and stays among those"_s.arg(item.actualPath()));
    if (item.elements().size() > 1)
        return Status::unsupported(
            u"The file \"%1\" is in several file sets"_s.arg(item.actualPath()));
    // Cleaning deletes what is there.
    if (node == nodeOfMade() || holdsGeneratedFiles(node))
        return Status::invalidArgument(
            u"The file set \"%1\" is for generated files only"_s.arg(node));
    return {};
}

Status DesignFiles::moveEntry(FileId entry, const QString &node)
{
    const bool isThere = bool(part().fileSet(node));
    const Result<FileSetId> set = fileSetNamed(node);
    if (!set.isOk())
        return set.status();
    types.removing(entry);
    const Result<FileId> moved = part().move(entry, set.value());
    types.added(moved.isOk() ? moved.value() : entry);
    if (!moved.isOk()) {
        if (!isThere)
            part().removeEmpty(set.value());
        return moved.status();
    }
    table.replace(entry, moved.value());
    removed();
    return {};
}

void DesignFiles::removed()
{
    setsForFiles.removeIf([this](FileSetId set) {
        const bool isEmpty = part().files(set).isEmpty();
        if (isEmpty)
            part().removeEmpty(set);
        return isEmpty;
    });
}

void DesignFiles::setMade(const QString &path, const GeneratedInfo &info)
{
    FileItem *item = table.byKey(path);
    if (!item)
        item = table.insert(path, std::make_shared<FileItem>(*this, state, path));
    item->setMade(info);
}

Status DesignFiles::enterDocument(FileItem &item)
{
    const QString text = storedItemPath(item.actualPath(), state.folder());
    const Result<FileId> entry = addEntry(text, nodeOfMade());
    if (!entry.isOk())
        return entry.status();
    const Status noted = part().setGenerated(entry.value(), item.made());
    if (noted.isOk())
        table.insert(item.actualPath(), entry.value(), [] { return std::shared_ptr<FileItem>(); });
    return noted;
}

void DesignFiles::removing(FileItem &item)
{
    if (item.made() && madeIsGone)
        madeIsGone(item.actualPath());
    item.setMade({});
}

QList<DesignFile *> DesignFiles::underNode(const QString &node, bool recursive) const
{
    QList<DesignFile *> files = table.inOrder<DesignFile>(
        node.isEmpty() ? part().files() : entriesUnderNode(node, recursive));
    if (table.hasWithoutElements())
        files += madeUnderNode(node, recursive);
    return files;
}

QList<DesignFile *> DesignFiles::madeUnderNode(const QString &node, bool recursive) const
{
    QList<DesignFile *> made = table.withoutElements<DesignFile>();
    if (node.isEmpty() || node == nodeOfMade())
        return made;
    // A set or a group hides a category of its name.
    const bool isSet = isSetOrGroup(node);
    made.removeIf([&](const DesignFile *file) {
        return isSet || !liesUnder(textOf(file->category()), node, recursive);
    });
    return made;
}

bool DesignFiles::isSetOrGroup(const QString &node) const
{
    const DocumentFiles &document = part();
    const QList<FileSetId> sets = document.fileSets();
    return std::any_of(sets.cbegin(), sets.cend(), [&](FileSetId set) {
        return document.name(set) == node || document.groups(set).contains(node);
    });
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
    return isSetOrGroup(node) || !underNode(node, true).isEmpty();
}

QStringList DesignFiles::nodeNames() const
{
    QStringList names;
    for (const FileSetId &set : part().fileSets())
        names.append(part().name(set));
    if (table.hasWithoutElements())
        names.append(nodeOfMade());
    names.removeDuplicates();
    return names;
}

} // namespace MorvalenCore
