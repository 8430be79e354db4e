#pragma once

#include <MorvalenCore/MorvalenCoreExport.h>

#include <Qtilities/Status.h>

#include <QObject>
#include <QStringList>

namespace MorvalenCore {

// The structures that designs can have: their file sets and folders. One manager per process. One
// that leaves everything out has no structures.
class MORVALENCORE_EXPORT DesignStructureManager : public QObject
{
    Q_OBJECT

public:
    explicit DesignStructureManager(QObject *parent = nullptr);
    ~DesignStructureManager() override;

    // The manager: the one that was set, else one made on first use.
    static DesignStructureManager *instance();

    // Replaces the manager, which stays the caller's; null brings the default back.
    static void setInstance(DesignStructureManager *manager);

    virtual QStringList designStructureNames() const { return {}; }
    // Those usable for a design type; all for an empty type.
    virtual QStringList designStructureNamesForDesign(const QString &designType) const;

    // The default structure of a type, remembered in the settings; empty for an unknown type.
    virtual QString defaultStructureIdForDesignType(const QString &designType) const;
    virtual QString defaultStructureNameForDesignType(const QString &designType) const;
    virtual Qtilities::Core::Status
    trySetDefaultStructureNameForDesignType(const QString &designType,
                                            const QString &structureName);
    // The same for callers that can only take a bool; the log says nothing.
    virtual bool setDefaultStructureNameForDesignType(const QString &designType,
                                                      const QString &structureName);

    // The id of a structure; empty for an unknown name.
    virtual QString designStructureID(const QString &structureName) const;

    // The folder below which new designs of a structure get their working folders; with create it
    // is made when it is missing.
    virtual QString activeDesignRepositoryPathForStructure(const QString &structure,
                                                           bool create) const;
};

} // namespace MorvalenCore
