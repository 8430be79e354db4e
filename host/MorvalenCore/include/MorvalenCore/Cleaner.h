#pragma once

#include <MorvalenCore/DesignCleanParameters.h>
#include <MorvalenCore/IDesign.h>
#include <MorvalenCore/MorvalenCoreExport.h>

#include <QObject>

namespace MorvalenCore {

// Removes items of a design, from disk and from the design.
//
// The report lists each item on a line of its own and is never empty. The cleaning fails when an
// item could not be cleaned; the others are cleaned all the same.
class MORVALENCORE_EXPORT Cleaner : public QObject
{
    Q_OBJECT

public:
    explicit Cleaner(QObject *parent = nullptr);
    ~Cleaner() override;

    struct Cleaning
    {
        Qtilities::Core::Status status;
        QString report;
        // Why single items could not be cleaned.
        QList<Qtilities::Core::Status> failures;
    };

    // Cleans the selected items.
    Cleaning tryCleanDesign(Interfaces::IDesign *design, const DesignCleanParameters &parameters);
    // The same with the report in *report unless that is null; what single items failed for goes
    // to the log.
    bool cleanDesign(Interfaces::IDesign *design, const DesignCleanParameters &parameters,
                     QString *report);
};

} // namespace MorvalenCore
