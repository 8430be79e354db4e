#include "design/DesignFolders.h"

#include "design/DesignState.h"
#include "disk/itempaths.h"

using namespace Qt::Literals::StringLiterals;

namespace MorvalenCore {

void DesignFolders::load()
{
    const ComponentFolders &document = state.document().folders();
    for (const FolderId &entry : document.folders()) {
        const QString key = actualItemPath(document.path(entry), state.folder());
        if (!key.isEmpty())
            takeUp(key, entry);
    }
}

FolderItem *DesignFolders::takeUp(const QString &key, FolderId entry)
{
    return table.insert(key, entry,
                        [&] { return std::make_shared<FolderItem>(*this, state, key); });
}

FolderItem *DesignFolders::lookUp(const QString &path) const
{
    return table.byKey(actualItemPath(path, state.folder()));
}

QString DesignFolders::refusal(const QString &text, const QString &key) const
{
    if (!state.isPlaced())
        return u"The design \"%1\" has no working folder yet"_s.arg(state.name());
    if (text.isEmpty())
        return u"The path of a folder cannot be empty"_s;
    if (table.byKey(key))
        return u"The design \"%1\" has the folder \"%2\" already"_s.arg(state.name(), key);
    return {};
}

DesignFolder *DesignFolders::add(const QString &path, QString *error)
{
    FolderItem *item = nullptr;
    state.change(error, [&](QString *reason) {
        const QString key = actualItemPath(path, state.folder());
        *reason = refusal(path, key);
        if (!reason->isEmpty())
            return false;
        const FolderId entry =
            state.document().folders().add(storedItemPath(path, state.folder()), QString(), reason);
        if (!entry)
            return false;
        item = takeUp(key, entry);
        return true;
    });
    return item;
}

bool DesignFolders::remove(const QString &path)
{
    const FolderItem *item = lookUp(path);
    return item && state.change(nullptr, [&](QString *) {
        for (const FolderId &entry : item->elements())
            state.document().folders().remove(entry);
        table.remove(item->actualPath());
        return true;
    });
}

void DesignFolders::move(FolderItem *folder, const QString &path)
{
    const QString key = actualItemPath(path, state.folder());
    if (key == folder->actualPath())
        return;
    state.change(nullptr, [&](QString *reason) {
        *reason = refusal(path, key);
        if (!reason->isEmpty())
            return false;
        const QString text = storedItemPath(path, state.folder());
        for (const FolderId &entry : folder->elements()) {
            if (!state.document().folders().setPath(entry, text, reason))
                return false;
        }
        table.rename(folder->actualPath(), key);
        folder->setKnownPath(key);
        return true;
    });
}

QList<DesignFolder *> DesignFolders::all() const
{
    return table.inOrder<DesignFolder>(state.document().folders().folders());
}

} // namespace MorvalenCore
