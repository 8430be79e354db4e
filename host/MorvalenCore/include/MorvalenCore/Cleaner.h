#pragma once

#include <MorvalenCore/DesignCleanParameters.h>
#include <MorvalenCore/IDesign.h>
#include <MorvalenCore/MorvalenCoreExport.h>

#include <QObject>

namespace MorvalenCore {

// Removes items of a design, from disk and from the design.
class MORVALENCORE_EXPORT Cleaner : public QObject
{
    Q_OBJECT

public:
    explicit Cleaner(QObject *parent = nullptr);
    ~Cleaner() override;

    // Cleans the selected items. The report lists each on a line of its own and is never empty.
    // False when an item could not be cleaned; the others are cleaned all the same.
    bool cleanDesign(Interfaces::IDesign *design, const DesignCleanParameters &parameters,
                     QString *report);
};

} // namespace MorvalenCore
