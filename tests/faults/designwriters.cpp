// Component files, copies of them, new designs, and projects.

#include "tests/faults/DesignsOnDisk.h"
#include "tests/faults/writerkinds.h"

#include <MorvalenCore/DesignManager.h>
#include <MorvalenCore/DesignProjectItem.h>
#include <MorvalenCore/DesignStructureManager.h>
#include <MorvalenCore/IDesignEditing.h>
#include <Qtilities/InstanceFactoryInfo.h>
#include <Qtilities/ObjectManager.h>
#include <Qtilities/ProjectManager.h>
#include <Qtilities/QtilitiesCoreApplication.h>

#include <QDir>

#include <optional>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;
using MorvalenCore::Interfaces::IDesign;
using MorvalenCore::Interfaces::IDesignEditing;
using Qtilities::Core::Status;
using Qtilities::ProjectManagement::ProjectManager;

namespace {

class DesignWriter : public Writer
{
public:
    void prepare(const QString &folder) override
    {
        disk.emplace(folder);
        DesignsOnDisk::write(disk->path("ip/component.xml"), DesignsOnDisk::component("demo"));
        startAnew();
    }

    void startAnew() override
    {
        DesignsOnDisk::forgetAll();
        design = disk->open("ip/component.xml");
        design->setDescription(u"The new text"_s);
    }

protected:
    std::optional<DesignsOnDisk> disk;
    IDesign *design = nullptr;
};

class ComponentWriter : public DesignWriter
{
public:
    Status write() override { return design->trySaveToComponentFile(); }
};

class CopyWriter : public DesignWriter
{
public:
    void prepare(const QString &folder) override
    {
        DesignWriter::prepare(folder);
        DesignsOnDisk::write(disk->path("copy.xml"), "what was there");
    }
    Status write() override
    {
        return DesignManager::instance()->tryParseDesignToFile(design, disk->path("copy.xml"),
                                                               true);
    }
};

// A design that closes although its file belongs to somebody else by now.
class BackupWriter : public DesignWriter
{
public:
    void prepare(const QString &folder) override
    {
        DesignWriter::prepare(folder);
        DesignsOnDisk::write(disk->path("ip/component.xml"),
                             DesignsOnDisk::component("demo") + "<!-- theirs -->\n");
    }

    // A killed program has saved what it could.
    void startAnew() override
    {
        DesignsOnDisk::write(disk->path("ip/component.xml"), DesignsOnDisk::component("demo"));
        DesignWriter::startAnew();
        DesignsOnDisk::write(disk->path("ip/component.xml"),
                             DesignsOnDisk::component("demo") + "<!-- theirs -->\n");
    }

    Status write() override
    {
        return DesignManager::instance()->tryCloseDesign(u"v.l.demo.1.0"_s, false);
    }
};

// A file that gets another name, on disk and in the component file. There is one file of the two
// names, and it is the one that was there.
class RenamingWriter : public DesignWriter
{
public:
    void prepare(const QString &folder) override
    {
        DesignWriter::prepare(folder);
        DesignsOnDisk::write(disk->path("ip/old.v"), "theirs\n");
        design->addFile(u"old.v"_s, QString(), true, nullptr);
        if (!design->trySaveToComponentFile().isOk())
            qFatal("cannot make the design");
    }

    void startAnew() override
    {
        DesignsOnDisk::forgetAll();
        design = disk->open("ip/component.xml");
    }

    Status write() override
    {
        const QString old = disk->path("ip/old.v");
        Status status;
        if (design->fileByActualPath(old, false))
            status = editing()->tryRenameFile(old, disk->path("ip/new.v"));
        if (status.isOk())
            status = design->trySaveToComponentFile();
        if (QFile::exists(old) == QFile::exists(disk->path("ip/new.v")))
            return Status::failed(u"there are two files or none"_s);
        return status;
    }

private:
    IDesignEditing *editing() const { return qobject_cast<IDesignEditing *>(design->objectBase()); }
};

class NewDesignWriter : public Writer
{
public:
    void prepare(const QString &folder) override
    {
        disk.emplace(folder);
        QDir().mkpath(disk->path("session/Designs"));
    }

    Status write() override
    {
        auto *structures = MorvalenCore::DesignStructureManager::instance();
        std::unique_ptr<QObject> object(
            Qtilities::Core::QtilitiesCoreApplication::objectManager()
                ->factoryProvider(u"Design Factory"_s)
                ->createInstance({u"Design Factory"_s, u"Hardware Design"_s, u"fresh"_s}));
        auto *design = qobject_cast<IDesign *>(object.get());
        if (!design)
            return Status::failed(u"There is no factory"_s);
        design->setStructureId(structures->designStructureID(u"Hardware"_s));
        Status status =
            design->tryAssignPhysicalWorkingFolderPath(disk->path("session/Designs/fresh"));
        if (status.isOk())
            status = DesignManager::instance()->tryAttachDesign(design, true);
        if (status.isOk())
            object.release();
        return status;
    }

    // Nothing is deleted but through folders that are open, so that nothing else is deleted.
    void clearAway() override { QDir(disk->path("session/Designs/fresh")).removeRecursively(); }

    // What a killed process has left is for the user to remove: it looks like what another process
    // is about to make there.
    void startAnew() override
    {
        DesignsOnDisk::forgetAll();
        clearAway();
    }

private:
    std::optional<DesignsOnDisk> disk;
};

class ProjectWriter : public Writer
{
public:
    void prepare(const QString &folder) override
    {
        disk.emplace(folder);
        DesignsOnDisk::write(disk->path("a/component.xml"), DesignsOnDisk::component("a"));
        DesignsOnDisk::write(disk->path("b/component.xml"), DesignsOnDisk::component("b"));
        manager.emplace();
        manager->addProjectItem(&designs);
        disk->open("a/component.xml");
        const bool isSaved =
            manager->tryNewProject().isOk() && manager->trySaveProject(file(), true).isOk();
        if (!isSaved)
            qFatal("cannot save the first project");
        disk->open("b/component.xml");
    }

    Status write() override { return manager->trySaveProject(file(), true); }

    void startAnew() override
    {
        DesignsOnDisk::forgetAll();
        manager.emplace();
        manager->addProjectItem(&designs);
        if (!manager->tryOpenProject(file()).isOk())
            qFatal("cannot open the project");
        if (!DesignManager::instance()->design(u"v.l.b.1.0"_s))
            disk->open("b/component.xml");
    }

private:
    QString file() const { return disk->path("all.project"); }

    std::optional<DesignsOnDisk> disk;
    MorvalenCore::DesignProjectItem designs;
    std::optional<ProjectManager> manager;
};

} // namespace

std::vector<WriterKind> designWriters()
{
    return {{"component", [] { return std::make_unique<ComponentWriter>(); }},
            {"copy", [] { return std::make_unique<CopyWriter>(); }},
            {"backup", [] { return std::make_unique<BackupWriter>(); }},
            {"renamed file", [] { return std::make_unique<RenamingWriter>(); }},
            {"new design", [] { return std::make_unique<NewDesignWriter>(); }},
            {"project", [] { return std::make_unique<ProjectWriter>(); }}};
}
