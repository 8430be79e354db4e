#include "tests/faults/DesignsOnDisk.h"

#include <MorvalenCore/DesignManager.h>
#include <Qtilities/QtilitiesApplication.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

using MorvalenCore::DesignManager;

DesignsOnDisk::DesignsOnDisk(const QString &sessionFolder) : folder(sessionFolder)
{
    forgetAll();
    Qtilities::CoreGui::QtilitiesApplication::setApplicationSessionPath(path("session"));
    write(path("session/settings.ini"),
          "[Designs]\nEnvironment\\organization_name=local\n\n[Own]\nkept=yes\n");
}

DesignsOnDisk::~DesignsOnDisk() { forgetAll(); }

void DesignsOnDisk::forgetAll()
{
    for (const QString &id : DesignManager::instance()->openDesignIds())
        delete DesignManager::instance()->design(id)->objectBase();
    QCoreApplication::processEvents();
}

void DesignsOnDisk::write(const QString &file, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(file).path());
    QFile out(file);
    if (!out.open(QIODevice::WriteOnly) || out.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(file));
}

QByteArray DesignsOnDisk::component(const char *name)
{
    return QByteArray(
               "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
               "<i:component xmlns:i=\"http://www.accellera.org/XMLSchema/IPXACT/1685-2014\">\n"
               "  <i:vendor>v</i:vendor>\n  <i:library>l</i:library>\n  <i:name>")
        + name + "</i:name>\n  <i:version>1.0</i:version>\n</i:component>\n";
}

QString DesignsOnDisk::path(const char *name) const
{
    return folder + u'/' + QString::fromLatin1(name);
}

MorvalenCore::Interfaces::IDesign *DesignsOnDisk::open(const char *file) const
{
    const auto opened = DesignManager::instance()->tryParseDesignFromFile(path(file));
    if (!opened.isOk())
        qFatal("cannot open %s: %s", file, qPrintable(opened.status().text()));
    return opened.value();
}
