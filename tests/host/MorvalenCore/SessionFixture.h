#pragma once

#include <MorvalenCore/DesignManager.h>
#include <MorvalenCore/DesignStructureManager.h>
#include <Qtilities/InstanceFactoryInfo.h>
#include <Qtilities/Logger.h>
#include <Qtilities/ObjectManager.h>
#include <Qtilities/QtilitiesApplication.h>
#include <Qtilities/QtilitiesCoreApplication.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <memory>

// A session in a folder of its own, with the program's own managers, and what the log says. Closes
// what is open when it goes.
class SessionFixture
{
public:
    SessionFixture()
    {
        Qtilities::CoreGui::QtilitiesApplication::setApplicationSessionPath(
            path(QStringLiteral("session")));
        log = QObject::connect(Qtilities::Logging::Logger::instance(),
                               &Qtilities::Logging::Logger::messageLogged,
                               [this](const QString &, auto type, const QString &text) {
                                   messages.append(Qtilities::Logging::Logger::messageTypeName(type)
                                                   + QStringLiteral(": ") + text);
                               });
    }

    ~SessionFixture()
    {
        closeAll();
        QObject::disconnect(log);
    }

    // A path below the test's folder.
    QString path(const QString &name) const
    {
        return QFileInfo(dir.path()).canonicalFilePath() + u'/' + name;
    }

    QString designs(const QString &name) const
    {
        return path(QStringLiteral("session/Designs/")) + name;
    }

    static MorvalenCore::DesignManager *manager()
    {
        return MorvalenCore::DesignManager::instance();
    }

    static Qtilities::Core::Interfaces::IFactoryProvider *factory()
    {
        manager();
        return Qtilities::Core::QtilitiesCoreApplication::objectManager()->factoryProvider(
            QStringLiteral("Design Factory"));
    }

    // What the command for new designs does. Null when the design is refused.
    MorvalenCore::Interfaces::IDesign *create(const QString &name,
                                              const QString &type = QStringLiteral("Custom Design"),
                                              const QString &structure = QStringLiteral("Flat"))
    {
        auto *structures = MorvalenCore::DesignStructureManager::instance();
        std::unique_ptr<QObject> object(
            factory()->createInstance({QStringLiteral("Design Factory"), type, name}));
        auto *design = qobject_cast<MorvalenCore::Interfaces::IDesign *>(object.get());
        if (!design)
            return nullptr;
        design->setVendor(QStringLiteral("local"));
        design->setLibrary(QStringLiteral("global"));
        design->setStructureId(structures->designStructureID(structure));
        const QString folder =
            structures->activeDesignRepositoryPathForStructure(structure, true) + u'/' + name;
        if (!design->assignPhysicalWorkingFolderPath(folder)
            || !manager()->attachDesign(design, true, 0))
            return nullptr;
        object.release();
        return design;
    }

    MorvalenCore::Interfaces::IDesign *open(const QString &file)
    {
        return manager()->parseDesignFromFile(QString(), file);
    }

    // Writes a component and opens it; what the log says of that is forgotten.
    MorvalenCore::Interfaces::IDesign *openComponent(const QByteArray &bytes)
    {
        const QString file = path(QStringLiteral("ip/component.xml"));
        write(file, bytes);
        auto *design = open(file);
        takeLog();
        return design;
    }

    // Saves, closes and opens a design again.
    MorvalenCore::Interfaces::IDesign *reopen(MorvalenCore::Interfaces::IDesign *design)
    {
        const QString file = design->componentFileName();
        if (!manager()->closeDesign(design->id(QStringLiteral(".")), false))
            return nullptr;
        QCoreApplication::processEvents();
        return open(file);
    }

    void closeAll()
    {
        for (const QString &id : manager()->openDesignIds()) {
            // Nothing keeps it from closing once its file is gone.
            if (!manager()->closeDesign(id, false))
                delete manager()->design(id)->objectBase();
        }
        QCoreApplication::processEvents();
    }

    static void write(const QString &file, const QByteArray &bytes)
    {
        QDir().mkpath(QFileInfo(file).path());
        QFile out(file);
        if (!out.open(QIODevice::WriteOnly) || out.write(bytes) != bytes.size())
            qFatal("cannot write %s", qPrintable(file));
    }

    static QByteArray read(const QString &file)
    {
        QFile in(file);
        return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
    }

    // What the log said since the last call.
    QStringList takeLog() { return std::exchange(messages, {}); }

private:
    QTemporaryDir dir;
    QStringList messages;
    QMetaObject::Connection log;
};
