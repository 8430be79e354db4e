#include "app/designs/ItemWatch.h"

#include <MorvalenCore/DesignManager.h>

#include <QFileInfo>
#include <QSet>

using MorvalenCore::DesignFile;
using MorvalenCore::DesignFolder;
using MorvalenCore::DesignManager;
using MorvalenCore::Interfaces::IDesign;

namespace {

// In milliseconds: what a script changes is gathered, and so is what another program does.
constexpr int watchDelay = 300;
constexpr int touchDelay = 200;

void addFolders(const IDesign &design, QSet<QString> *folders)
{
    for (const DesignFile *file : design.filesUnderNode(QString(), true)) {
        if (folders->size() >= ItemWatch::mostFolders)
            return;
        folders->insert(QFileInfo(file->actualPath()).path());
    }
    for (const DesignFolder *folder : design.folders())
        folders->insert(QFileInfo(folder->actualPath()).path());
}

} // namespace

ItemWatch::ItemWatch(QObject *parent) : QObject(parent)
{
    for (QTimer *timer : {&watchTimer, &touchTimer})
        timer->setSingleShot(true);
    watchTimer.setInterval(watchDelay);
    touchTimer.setInterval(touchDelay);
    watchTimer.callOnTimeout(this, &ItemWatch::watchAll);
    touchTimer.callOnTimeout(this, &ItemWatch::touched);
    connect(&watcher, &QFileSystemWatcher::directoryChanged, this, [this] {
        if (!touchTimer.isActive())
            touchTimer.start();
        // A folder may have come again.
        watchTimer.start();
    });
    const auto watchSoon = [this] {
        if (!watchTimer.isActive())
            watchTimer.start();
    };
    const DesignManager *manager = DesignManager::instance();
    connect(manager, &DesignManager::designAttached, this, watchSoon);
    connect(manager, &DesignManager::designClosed, this, watchSoon);
    connect(manager, &DesignManager::designChanged, this, watchSoon);
}

void ItemWatch::watchAll()
{
    QSet<QString> wanted;
    for (const QString &id : DesignManager::instance()->openDesignIds()) {
        if (const IDesign *design = DesignManager::instance()->design(id))
            addFolders(*design, &wanted);
    }
    const QStringList watched = watcher.directories();
    const QSet<QString> present(watched.cbegin(), watched.cend());
    const QStringList gone = (present - wanted).values();
    if (!gone.isEmpty())
        watcher.removePaths(gone);
    for (const QString &folder : wanted - present) {
        if (QFileInfo(folder).isDir())
            watcher.addPath(folder);
    }
}
