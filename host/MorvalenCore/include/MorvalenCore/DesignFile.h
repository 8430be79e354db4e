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

    bool existsOnDisk() const override;

    // The name of the node (file set) that holds the file.
    virtual QString node() const { return {}; }

    // Whether a build or a generator made the file, and the version that the design had then. The
    // version is empty for other files, and where the design had none.
    virtual bool isGenerated() const { return !generatedVersion().isEmpty(); }
    virtual QString generatedVersion() const { return {}; }
};

} // namespace MorvalenCore
