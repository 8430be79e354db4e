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
        for (auto held = holders.cbegin(); held != holders.cend(); ++held) {
            if (QFileInfo(held.key()).path() == folder)
                watcher.addPath(held.key());
        }
        Q_EMIT folderTouched(folder);
    });
}

void FileWatch::add(const QString &path)
{
    hold(path);
    hold(QFileInfo(path).path());
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

void FileWatch::hold(const QString &path)
{
    if (++holders[path] == 1)
        watcher.addPath(path);
}

void FileWatch::release(const QString &path)
{
    if (--holders[path] > 0)
        return;
    holders.remove(path);
    watcher.removePath(path);
}
