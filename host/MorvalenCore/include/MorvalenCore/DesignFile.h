#pragma once

#include <MorvalenCore/AbstractDesignLinkedItem.h>
#include <MorvalenCore/MorvalenCoreExport.h>

#include <Qtilities/TreeFileItem.h>

namespace MorvalenCore {

// A file of a design. Owned by its design; hold it in a QPointer across anything that may change
// the design.
class MORVALENCORE_EXPORT DesignFile : public Qtilities::CoreGui::TreeFileItem,
                                       public AbstractDesignLinkedItem
{
    Q_OBJECT

public:
    explicit DesignFile(QObject *parent = nullptr);
    ~DesignFile() override;

    // The name of the node (file set) that holds the file.
    virtual QString node() const = 0;

    // The version of the design whose build made the file; empty when no build did.
    virtual QString generatedVersion() const = 0;
    bool isGenerated() const { return !generatedVersion().isEmpty(); }
};

} // namespace MorvalenCore
