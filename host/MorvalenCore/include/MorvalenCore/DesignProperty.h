#pragma once

#include <MorvalenCore/MorvalenCoreExport.h>

#include <Qtilities/AbstractTreeItem.h>
#include <Qtilities/QtilitiesProperty.h>

namespace MorvalenCore {

// A property of a design. Owned by its design; hold it in a QPointer across anything that may
// change the design.
class MORVALENCORE_EXPORT DesignProperty : public Qtilities::CoreGui::AbstractTreeItem
{
    Q_OBJECT

public:
    explicit DesignProperty(QObject *parent = nullptr);
    ~DesignProperty() override;

    // That of the data.
    QString getName(const Qtilities::Core::Observer *context = nullptr) const override;

    // Name, value, and the read-only and removable flags.
    virtual Qtilities::Core::QtilitiesProperty propertyData() const = 0;

    // Sets the value; a read-only property keeps its own.
    virtual Qtilities::Core::Status trySetValue(const QVariant &value);
    // The same for callers that take no answer; a warning in the log says why.
    virtual void setValue(const QVariant &value);
};

} // namespace MorvalenCore
