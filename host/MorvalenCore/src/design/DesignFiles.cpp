#include "design/DesignFiles.h"

#include "design/DesignState.h"
#include "design/filekinds.h"
#include "disk/itempaths.h"
#include "structures/structures.h"

using namespace Qt::Literals::StringLiterals;

namespace MorvalenCore {

namespace {

bool liesUnder(const QString &category, const QString &node, bool recursive)
{
    return category == node || (recursive && category.startsWith(node + "::"_L1));
}

} // namespace

DesignFiles::DesignFiles(DesignState &designState) : state(designState), types(designState) { }

void DesignFiles::load()
{
    const ComponentFiles &document = state.document().files();
    for (const FileId &entry : document.files()) {
        const QString key = actualItemPath(document.path(entry), state.folder());
        if (!key.isEmpty())
            takeUp(key, entry);
    }
}

void DesignFiles::clear()
{
    table.clear();
    types.clear();
}

FileItem *DesignFiles::takeUp(const QString &key, FileId entry)
{
    return table.insert(key, entry, [&] { return std::make_shared<FileItem>(*this, state, key); });
}

FileItem *DesignFiles::lookUp(const QString &path) const
{
    FileItem *item = table.byKey(actualItemPath(path, state.folder()));
    // A share of Windows, which is not the same as a path from the root.
    return item || !path.startsWith("//"_L1) ? item : table.byKey(path);
}

DesignFile *DesignFiles::find(const QString &path) const { return lookUp(path); }

DesignFile *DesignFiles::findByName(const QString &fileName) const
{
    for (DesignFile *file : underNode(QString(), true)) {
        if (file->fileName() == fileName)
            return file;
    }
    return nullptr;
}

QString DesignFiles::refusal(const QString &text, const QString &key) const
{
    if (!state.isPlaced())
        return u"The design \"%1\" has no working folder yet"_s.arg(state.name());
    if (text.isEmpty())
        return u"The path of a file cannot be empty"_s;
    if (table.byKey(key))
        return u"The design \"%1\" has the file \"%2\" already"_s.arg(state.name(), key);
    return {};
}

DesignFile *DesignFiles::add(const QString &path, const QString &node, QString *error)
{
    FileItem *item = nullptr;
    state.change(error, [&](QString *reason) {
        const QString key = actualItemPath(path, state.folder());
        *reason = refusal(path, key);
        if (!reason->isEmpty())
            return false;
        ComponentFiles &document = state.document().files();
        const QString text = storedItemPath(path, state.folder());
        const FileSetId set =
            node.isEmpty() ? fileSetFor(text, reason) : fileSetNamed(node, reason);
        const FileId entry = set ? document.add(text, set, reason) : FileId();
        if (!entry)
            return false;
        const QString category = categoryForFileName(key.section(u'/', -1));
        if (category != document.category(entry))
            document.setCategory(entry, category);
        types.added(entry);
        item = takeUp(key, entry);
        return true;
    });
    return item;
}

FileSetId DesignFiles::fileSetFor(const QString &text, QString *error)
{
    const ComponentFiles &document = state.document().files();
    const DesignStructure *structure =
        findDesignStructure(state.document().text(DesignField::Structure));
    const QString wanted = structure ? structure->fileSetFor(text) : QString();
    if (!wanted.isEmpty())
        return fileSetNamed(wanted, error);
    if (const FileSetId set = types.firstSetWith(document.fileTypeOf(text)))
        return set;
    if (const FileSetId set = document.fileSet(u"files"_s))
        return set;
    const QList<FileSetId> sets = document.fileSets();
    return sets.isEmpty() ? fileSetNamed(u"files"_s, error) : sets.first();
}

FileSetId DesignFiles::fileSetNamed(const QString &name, QString *error)
{
    ComponentFiles &document = state.document().files();
    const FileSetId set = document.fileSet(name);
    return set ? set : document.addFileSet(name, error);
}

bool DesignFiles::remove(const QString &path)
{
    const FileItem *item = lookUp(path);
    return item && state.change(nullptr, [&](QString *) {
        for (const FileId &entry : item->elements()) {
            types.removing(entry);
            state.document().files().remove(entry);
        }
        table.remove(item->actualPath());
        return true;
    });
}

void DesignFiles::move(FileItem *file, const QString &path)
{
    const QString key = actualItemPath(path, state.folder());
    if (key == file->actualPath())
        return;
    state.change(nullptr, [&](QString *reason) {
        *reason = refusal(path, key);
        if (!reason->isEmpty())
            return false;
        const QString text = storedItemPath(path, state.folder());
        for (const FileId &entry : file->elements()) {
            if (!state.document().files().setPath(entry, text, reason))
                return false;
        }
        table.rename(file->actualPath(), key);
        file->setKnownPath(key);
        return true;
    });
}

bool DesignFiles::setGenerated(DesignFile *file, const QString &by, QString *error)
{
    const auto *item = dynamic_cast<FileItem *>(file);
    return item && state.change(error, [&](QString *reason) {
        return state.document().files().setGenerated(
            item->elements().first(), {by, state.document().text(DesignField::Version)}, reason);
    });
}

QList<DesignFile *> DesignFiles::underNode(const QString &node, bool recursive) const
{
    return table.inOrder<DesignFile>(node.isEmpty() ? state.document().files().files()
                                                    : entriesUnderNode(node, recursive));
}

QList<FileId> DesignFiles::entriesUnderNode(const QString &node, bool recursive) const
{
    const ComponentFiles &document = state.document().files();
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
    const ComponentFiles &document = state.document().files();
    for (const FileSetId &set : document.fileSets()) {
        if (document.name(set) == node || document.groups(set).contains(node))
            return true;
    }
    return !entriesUnderNode(node, true).isEmpty();
}

} // namespace MorvalenCore
