#pragma once

#include <MorvalenCore/AbstractDesignLinkedItem.h>
#include <MorvalenCore/MorvalenCoreExport.h>

#include <Qtilities/TreeFileItem.h>

namespace MorvalenCore {

// A folder of a design. Owned by its design; hold it in a QPointer across anything that may change
// the design.
class MORVALENCORE_EXPORT DesignFolder : public Qtilities::CoreGui::TreeFileItem,
                                         public AbstractDesignLinkedItem
{
    Q_OBJECT

public:
    explicit DesignFolder(QObject *parent = nullptr);
    ~DesignFolder() override;

    bool existsOnDisk() const override;
};

} // namespace MorvalenCore
