#pragma once

#include "tests/fakes/Journal.h"

#include <MorvalenCore/DesignStructureManager.h>

#include <QHash>

// Structures named in public members.
class FakeDesignStructureManager : public MorvalenCore::DesignStructureManager
{
public:
    explicit FakeDesignStructureManager(Journal &theJournal) : journal(theJournal) { }

    QStringList designStructureNames() const override { return names; }
    QStringList designStructureNamesForDesign(const QString &designType) const override
    {
        return designType.isEmpty() ? names : namesForType.value(designType);
    }
    QString defaultStructureIdForDesignType(const QString &designType) const override
    {
        return defaults.value(designType);
    }
    QString defaultStructureNameForDesignType(const QString &designType) const override
    {
        return defaults.value(designType);
    }
    bool setDefaultStructureNameForDesignType(const QString &designType,
                                              const QString &structureName) override
    {
        return journal.perform(callText("structures.setDefault", {designType, structureName}),
                               [&] { defaults.insert(designType, structureName); });
    }
    // For the window, which asks for the reason: the same call.
    Qtilities::Core::Status
    trySetDefaultStructureNameForDesignType(const QString &designType,
                                            const QString &structureName) override
    {
        using Qtilities::Core::Status;
        return setDefaultStructureNameForDesignType(designType, structureName)
            ? Status()
            : Status::failed(QStringLiteral("The manager refuses it"));
    }
    QString designStructureID(const QString &structureName) const override
    {
        return QStringLiteral("id of ") + structureName;
    }
    QString activeDesignRepositoryPathForStructure(const QString &structure,
                                                   bool create) const override
    {
        journal.perform(callText("structures.repositoryPath", {structure, callWord(create)}));
        return repository;
    }

    QStringList names = {QStringLiteral("Flat"), QStringLiteral("Deep one")};
    QHash<QString, QStringList> namesForType = {
        {QStringLiteral("Custom Design"), {QStringLiteral("Flat")}}};
    QHash<QString, QString> defaults = {{QStringLiteral("Custom Design"), QStringLiteral("Flat")}};
    QString repository = QStringLiteral("/repository/");

private:
    Journal &journal;
};
