#pragma once

#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>

// Tells when something may have come into the folders of the open designs' items, or gone from
// them.
class ItemWatch : public QObject
{
    Q_OBJECT

public:
    // The system gives a process only so many watches.
    static constexpr int mostFolders = 2'000;

    explicit ItemWatch(QObject *parent = nullptr);

Q_SIGNALS:
    void touched();

private:
    void watchAll();

    QFileSystemWatcher watcher;
    QTimer watchTimer;
    QTimer touchTimer;
};
