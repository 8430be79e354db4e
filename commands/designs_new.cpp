#include "commands/designs_new.h"

#include "commands/ExecBracket.h"
#include "commands/texts.h"

#include <MorvalenCore/DesignManager.h>
#include <MorvalenCore/DesignStructureManager.h>
#include <MorvalenCore/IDesign.h>
#include <MorvalenCore/settingkeys.h>
#include <Qtilities/IFactoryProvider.h>
#include <Qtilities/ObjectManager.h>
#include <Qtilities/QtilitiesCoreApplication.h>
#include <Qtilities/SettingsFile.h>

#include <QDir>

#include <memory>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;
using MorvalenCore::DesignStructureManager;
using MorvalenCore::Interfaces::IDesign;

namespace commands {

namespace {

// The numbers 1 and 2 stand in the order of the texts, not in that of the steps.
constexpr struct
{
    QStringView tooFewArguments =
        u"Not enough parameters to create new design. Specify at least a name, type and structure";
    QStringView noSuchType = u"Design type \"%1\" is does not exist";
    QStringView noSuchStructure = u"File design structure \"%1\" does not exist";
    QStringView noFactory = u"Cannot find factory to construct design of type \"%1\"";
    QStringView notADesign = u"Something went wrong (1) while constructing design of type \"%1\"";
    QStringView notConstructed =
        u"Something went wrong (2) while constructing design of type \"%1\"";
    QStringView noWorkingFolder =
        u"Cannot assign a physical working folder path for the new design at path \"%1\"";
    QStringView notAttached = u"Failed to attach new design \"%1\" to the design manager";
    QStringView created = u"Successfully created new design \"%1\"";
} texts;

constexpr QStringView factoryName = u"Design Factory";

struct NewDesign
{
    QString name;
    QString type;
    QString structure;
    QString library;
    QString vendor;
};

QString defaultVendor()
{
    const Qtilities::Core::SettingsFile settings(DesignManager::instance()->settingsFileName());
    return settings.value(MorvalenCore::SettingKeys::vendor).toString();
}

NewDesign requested(const Arguments &arguments)
{
    NewDesign design;
    design.name = arguments[2];
    design.type = arguments.count() > 3 ? arguments[3] : u"Custom Design"_s;
    design.structure = arguments[4];
    if (design.structure.isEmpty()) {
        design.structure =
            DesignStructureManager::instance()->defaultStructureIdForDesignType(design.type);
    }
    design.library = arguments.count() > 5 ? arguments[5] : u"global"_s;
    design.vendor = arguments.count() > 6 ? arguments[6] : defaultVendor();
    return design;
}

// Why the design cannot be made; nothing when it can be tried.
std::optional<QString> refusal(const NewDesign &wanted)
{
    QString error;
    if (!DesignManager::instance()->checkDesignName(wanted.name, &error))
        return error;
    if (!DesignManager::instance()->designTypes().contains(wanted.type))
        return fill(texts.noSuchType, {wanted.type});
    if (!DesignStructureManager::instance()->designStructureNames().contains(wanted.structure))
        return fill(texts.noSuchStructure, {wanted.structure});
    return std::nullopt;
}

QString workingFolder(const NewDesign &wanted)
{
    const QString repository =
        DesignStructureManager::instance()->activeDesignRepositoryPathForStructure(wanted.structure,
                                                                                   true);
    return QDir::cleanPath(repository + QDir::separator() + wanted.name);
}

// What is made here is destroyed again unless the design manager takes it.
Outcome construct(const NewDesign &wanted)
{
    auto *factory = Qtilities::Core::QtilitiesCoreApplication::objectManager()->factoryProvider(
        factoryName.toString());
    if (!factory)
        return Outcome::error(fill(texts.noFactory, {wanted.type}));

    std::unique_ptr<QObject> object(
        factory->createInstance({factoryName.toString(), wanted.type, wanted.name}));
    if (!object)
        return Outcome::error(fill(texts.notConstructed, {wanted.type}));
    object->setObjectName(wanted.name);
    auto *design = qobject_cast<IDesign *>(object.get());
    if (!design)
        return Outcome::error(fill(texts.notADesign, {wanted.type}));

    design->setVendor(wanted.vendor);
    design->setLibrary(wanted.library);
    design->setName(wanted.name);
    design->setStructureId(DesignStructureManager::instance()->designStructureID(wanted.structure));

    const QString path = workingFolder(wanted);
    if (!design->assignPhysicalWorkingFolderPath(path))
        return Outcome::error(fill(texts.noWorkingFolder, {path}));
    if (!DesignManager::instance()->attachDesign(design, true, 0))
        return Outcome::error(fill(texts.notAttached, {wanted.name}));
    object.release();
    return Outcome::ok(fill(texts.created, {wanted.name}));
}

} // namespace

Outcome newDesign(const Arguments &arguments)
{
    if (arguments.count() < 3)
        return Outcome::error(texts.tooFewArguments.toString());
    const NewDesign wanted = requested(arguments);
    if (const std::optional<QString> why = refusal(wanted))
        return Outcome::error(*why);
    ExecBracket bracket;
    return construct(wanted);
}

} // namespace commands
