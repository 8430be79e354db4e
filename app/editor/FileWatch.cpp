#include "app/editor/FileWatch.h"

#include <QFileInfo>

std::shared_ptr<FileWatch> FileWatch::shared()
{
    static std::weak_ptr<FileWatch> current;
    std::shared_ptr<FileWatch> watch = current.lock();
    if (!watch) {
        watch.reset(new FileWatch);
        current = watch;
    }
    return watch;
}

// A watch clings to the file that it found. When another one has taken its name, the name is
// watched anew; when the folder came back, so is the folder.
FileWatch::FileWatch()
{
    connect(&watcher, &QFileSystemWatcher::fileChanged, this, [this](const QString &path) {
        watcher.removePath(path);
        watcher.addPath(path);
        Q_EMIT fileTouched(path);
    });
    connect(&watcher, &QFileSystemWatcher::directoryChanged, this, [this](const QString &folder) {
        for (auto used = users.cbegin(); used != users.cend(); ++used) {
            if (QFileInfo(used.key()).path() == folder)
                watcher.addPath(used.key());
        }
        Q_EMIT folderTouched(folder);
    });
}

void FileWatch::add(const QString &path)
{
    retain(path);
    retain(QFileInfo(path).path());
}

void FileWatch::remove(const QString &path)
{
    release(path);
    release(QFileInfo(path).path());
}

void FileWatch::renew(const QString &path)
{
    watcher.addPath(path);
    watcher.addPath(QFileInfo(path).path());
}

void FileWatch::retain(const QString &path)
{
    if (++users[path] == 1)
        watcher.addPath(path);
}

void FileWatch::release(const QString &path)
{
    if (--users[path] > 0)
        return;
    users.remove(path);
    watcher.removePath(path);
}
