#pragma once

#include <MorvalenCore/DesignStructureManager.h>

namespace MorvalenCore {

// Offers the structures of structures.h. The default structures that the user has set are kept in
// the session's settings.
class StandardStructureManager final : public DesignStructureManager
{
    Q_OBJECT

public:
    using DesignStructureManager::DesignStructureManager;

    QStringList designStructureNames() const override;
    QStringList designStructureNamesForDesign(const QString &designType) const override;
    QString defaultStructureNameForDesignType(const QString &designType) const override;
    Qtilities::Core::Status
    trySetDefaultStructureNameForDesignType(const QString &designType,
                                            const QString &structureName) override;
};

} // namespace MorvalenCore
