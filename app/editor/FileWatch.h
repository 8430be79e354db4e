#pragma once

#include <QFileSystemWatcher>
#include <QHash>
#include <QObject>

#include <memory>

// Watches files, also those that are replaced by a renamed one, deleted, or made again. All pages
// share one watch, since the system gives a process few of them.
class FileWatch : public QObject
{
    Q_OBJECT

public:
    // The watch, which is there as long as somebody uses it.
    static std::shared_ptr<FileWatch> shared();

    // Each path that was added is removed as often.
    void add(const QString &path);
    void remove(const QString &path);

    // Watches a path again that was lost, such as one whose folder was away for a while.
    void renew(const QString &path);

Q_SIGNALS:
    // Something happened to the file itself, or somewhere in its folder.
    void fileTouched(const QString &path);
    void folderTouched(const QString &folder);

private:
    FileWatch();
    void retain(const QString &path);
    void release(const QString &path);

    QFileSystemWatcher watcher;
    QHash<QString, int> users;
};
