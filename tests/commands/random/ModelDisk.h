#pragma once

#include <QSet>
#include <QString>

// What should be on disk, as far as a model of a design looks at it: files and folders by their
// absolute paths.
class ModelDisk
{
public:
    explicit ModelDisk(const QString &workingFolder) : designFolder(workingFolder) { }

    bool isFile(const QString &path) const { return files.contains(path); }
    bool isFolder(const QString &path) const { return path == u"/" || folders.contains(path); }

    // Makes the folders around it, too.
    void addFile(const QString &path)
    {
        files.insert(path);
        addFolder(path.section(u'/', 0, -2));
    }
    void addFolder(const QString &path)
    {
        for (QString folder = path; !folder.isEmpty(); folder = folder.section(u'/', 0, -2))
            folders.insert(folder);
    }
    void removeFile(const QString &path) { files.remove(path); }

    // What a design may delete: something that is there, strictly below its folder.
    bool deleteFile(const QString &path)
    {
        return path.startsWith(designFolder + u'/') && files.remove(path);
    }
    bool deleteFolder(const QString &path)
    {
        if (!path.startsWith(designFolder + u'/') || !isFolder(path))
            return false;
        const auto isBelow = [&path](const QString &other) {
            return other == path || other.startsWith(path + u'/');
        };
        files.removeIf(isBelow);
        folders.removeIf(isBelow);
        return true;
    }

private:
    QString designFolder;
    QSet<QString> files;
    QSet<QString> folders;
};
