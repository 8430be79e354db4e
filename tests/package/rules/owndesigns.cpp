#include "owndesigns.h"

#include "rules.h"

#include "scripting/TclScriptManager.h"

#include <MorvalenCore/DesignManager.h>
#include <Qtilities/IFactoryProvider.h>
#include <Qtilities/ObjectManager.h>
#include <Qtilities/QtilitiesCoreApplication.h>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;
using MorvalenCore::DesignProperty;
using MorvalenCore::Interfaces::IDesign;
using Qtilities::Core::QtilitiesCoreApplication;
using Qtilities::Core::QtilitiesProperty;
using Qtilities::Core::Status;
using TclScripting::TclScriptManager;

namespace {

struct Width : DesignProperty
{
    QtilitiesProperty propertyData() const override { return {name, 8}; }

    QString name = u"width"_s;
};

struct RenamedWidth : Width
{
    Status trySetName(const QString &newName) override
    {
        name = newName;
        return {};
    }
};

class Cell : public QObject, public IDesign
{
    Q_OBJECT
    Q_INTERFACES(MorvalenCore::Interfaces::IDesign)

public:
    QObject *objectBase() override { return this; }
    const QObject *objectBase() const override { return this; }
    QString name() const override { return u"cell"_s; }
    QList<DesignProperty *> properties() const override { return {property}; }
    QString workingFolderPath() const override { return folder; }
    Status tryAssignPhysicalWorkingFolderPath(const QString &path) override
    {
        folder = path;
        return {};
    }

    DesignProperty *property = nullptr;

private:
    QString folder;
};

class Cells : public DesignManager, public Qtilities::Core::Interfaces::IFactoryProvider
{
public:
    Cells() { setInstance(this); }

    QStringList openDesignIds() const override { return {cell.name()}; }
    IDesign *design(const QString &) const override { return &cell; }
    QList<IDesign *> activeDesigns() const override { return {active}; }
    void setActiveDesign(const QString &) override { active = &cell; }
    QStringList designTypes() const override { return {u"Cell"_s}; }
    QString path(PathKind) const override { return designsPath; }
    Status tryAttachDesign(IDesign *design, bool) override
    {
        design->objectBase()->setParent(this);
        active = design;
        return {};
    }

    QString factoryName() const override { return u"Design Factory"_s; }
    QStringList instanceTags() const override { return designTypes(); }
    QObject *createInstance(const Qtilities::Core::InstanceFactoryInfo &) override
    {
        return new Cell;
    }

    mutable Cell cell;
    QString designsPath;

private:
    IDesign *active = &cell;
};

void rename(DesignProperty &property)
{
    Cells cells;
    cells.cell.property = &property;
    TclScriptManager manager(nullptr);
    run(manager, u"properties set_active width"_s);
    run(manager, u"sproperty set name depth"_s);
    run(manager, u"sproperty get name"_s);
}

// A type of the host's own has a structure, too.
void makeDesign(const QString &designsPath)
{
    Cells cells;
    cells.designsPath = designsPath;
    QtilitiesCoreApplication::objectManager()->registerFactoryProvider(&cells);
    TclScriptManager manager(nullptr);
    run(manager, u"designs structures get_default Cell"_s);
    run(manager, u"designs new nand Cell"_s);
    run(manager, u"designs designs_path"_s);
    run(manager, u"design get wfp"_s);
}

} // namespace

namespace owndesigns {

void nameIsItsOwn()
{
    Width width;
    rename(width);
}

void nameCanBeChanged()
{
    RenamedWidth width;
    rename(width);
}

void foldersWhereTheManagerSays() { makeDesign(sessionFolder + u"/Shelf"_s); }

void foldersOfTheSession() { makeDesign(QString()); }

} // namespace owndesigns

#include "owndesigns.moc"
