#include "app/issues/placesearch.h"

#include <MorvalenCore/DesignFile.h>
#include <MorvalenCore/DesignManager.h>
#include <MorvalenCore/IDesign.h>

#include <QDir>
#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignFile;
using MorvalenCore::DesignManager;
using MorvalenCore::Interfaces::IDesign;

namespace placesearch {

namespace {

QList<IDesign *> designs()
{
    const DesignManager *manager = DesignManager::instance();
    QList<IDesign *> all = manager->activeDesigns();
    for (const QString &id : manager->openDesignIds()) {
        IDesign *design = manager->design(id);
        if (design && !all.contains(design))
            all.append(design);
    }
    return all;
}

QString fileOfDesigns(const QString &name)
{
    const QString end = u'/' + QDir::cleanPath(name);
    for (const IDesign *design : designs()) {
        for (const DesignFile *file : design->filesUnderNode(QString(), true)) {
            const QString path = file->actualPath();
            if (path.endsWith(end) && QFileInfo(path).isFile())
                return path;
        }
    }
    return {};
}

} // namespace

QString find(const QString &name, const QString &folder)
{
    if (name.isEmpty())
        return {};
    QStringList folders {folder, QDir::currentPath()};
    for (const IDesign *design : designs())
        folders.append(design->workingFolderPath());
    folders.removeAll(QString());
    for (const QString &candidate : std::as_const(folders)) {
        const QString path = QDir::cleanPath(QDir(candidate).absoluteFilePath(name));
        if (QFileInfo(path).isFile())
            return path;
    }
    return QDir::isRelativePath(name) ? fileOfDesigns(name) : QString();
}

} // namespace placesearch
