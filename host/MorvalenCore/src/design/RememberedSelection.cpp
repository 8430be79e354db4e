#include "design/RememberedSelection.h"

namespace MorvalenCore {

namespace {

template <typename Item, typename Text>
QStringList textsOf(const QList<QPointer<Item>> &items, const Text &text)
{
    QStringList texts;
    for (const QPointer<Item> &item : items) {
        if (item)
            texts.append(text(*item));
    }
    return texts;
}

template <typename Item, typename Find>
QList<QPointer<Item>> found(const QStringList &texts, const Find &find)
{
    QList<QPointer<Item>> items;
    for (const QString &text : texts) {
        if (Item *item = find(text))
            items.append(item);
    }
    return items;
}

} // namespace

RememberedSelection::RememberedSelection(DesignFiles &designFiles, DesignFolders &designFolders,
                                         DesignProperties &designProperties)
    : files(designFiles),
      folders(designFolders),
      properties(designProperties),
      filePaths(
          textsOf(files.active.get(), [](const DesignFile &file) { return file.actualPath(); })),
      folderPaths(textsOf(folders.active.get(),
                          [](const DesignFolder &folder) { return folder.actualPath(); })),
      propertyNames(textsOf(properties.active.get(),
                            [](const DesignProperty &property) { return property.getName(); }))
{
}

void RememberedSelection::restore() const
{
    files.active.set(
        found<DesignFile>(filePaths, [this](const QString &path) { return files.find(path); }));
    folders.active.set(found<DesignFolder>(
        folderPaths, [this](const QString &path) { return folders.find(path); }));
    properties.active.set(found<DesignProperty>(
        propertyNames, [this](const QString &name) { return properties.find(name); }));
}

} // namespace MorvalenCore
