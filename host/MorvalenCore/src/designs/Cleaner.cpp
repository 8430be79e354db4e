#include <MorvalenCore/Cleaner.h>
#include <Qtilities/statuslog.h>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::Interfaces::IDesign;
using Qtilities::Core::Status;
using Qtilities::Logging::Logger;
using Qtilities::Logging::logStatus;

namespace MorvalenCore {

namespace {

bool isSelected(const DesignFile &file, const QString &version, const ItemGrouping &grouping)
{
    if (!file.isGenerated())
        return !grouping.generatedItemsOnly();
    return file.generatedVersion() == version ? grouping.versionCurrent()
                                              : grouping.versionsPrevious();
}

// What came of one file.
struct Outcome
{
    Status status;
    QString line;
};

Outcome clean(IDesign &design, DesignFile &file)
{
    const QString path = file.actualPath();
    const bool wasThere = file.existsOnDisk();
    if (wasThere) {
        const Status deleted = file.tryRemoveFromComputer(true);
        if (!deleted.isOk())
            return {deleted, u"Failed to delete \"%1\"; it stays in the design"_s.arg(path)};
    }
    const Status removed = design.tryRemoveFile(path);
    if (!removed.isOk())
        return {removed, u"Failed to remove \"%1\" from the design"_s.arg(path)};
    return {removed,
            wasThere ? u"Deleted \"%1\""_s.arg(path)
                     : u"Removed \"%1\", which was not on disk"_s.arg(path)};
}

QString summary(const IDesign &design, qsizetype cleaned, qsizetype selected)
{
    if (selected == 0)
        return u"Nothing to clean in design \"%1\""_s.arg(design.name());
    return u"Cleaned %1 of %2 files of design \"%3\""_s.arg(
        QString::number(cleaned), QString::number(selected), design.name());
}

Cleaner::Cleaning refused(const Status &why) { return {why, why.text(), {}}; }

} // namespace

Cleaner::Cleaner(QObject *parent) : QObject(parent) { }

Cleaner::~Cleaner() = default;

bool Cleaner::cleanDesign(IDesign *design, const DesignCleanParameters &parameters, QString *report)
{
    const Cleaning cleaning = tryCleanDesign(design, parameters);
    for (const Status &failure : cleaning.failures)
        logStatus(failure, Logger::Warning);
    if (report)
        *report = cleaning.report;
    return cleaning.status.isOk();
}

Cleaner::Cleaning Cleaner::tryCleanDesign(IDesign *design, const DesignCleanParameters &parameters)
{
    if (!design)
        return refused(Status::notFound(u"There is no design to clean"_s));
    if (design->isReadOnly())
        return refused(Status::readOnly(
            u"The design \"%1\" is read-only and was not cleaned"_s.arg(design->name())));

    const QString version = design->version(u"."_s);
    Cleaning cleaning;
    QStringList lines;
    design->startProcessingCycle();
    for (DesignFile *file : design->filesUnderNode(QString(), true)) {
        if (!isSelected(*file, version, parameters.grouping))
            continue;
        const Outcome outcome = clean(*design, *file);
        if (!outcome.status.isOk())
            cleaning.failures.append(outcome.status);
        lines.append(outcome.line);
    }
    design->endProcessingCycle(true);
    const qsizetype selected = lines.size();
    const QString told = summary(*design, selected - cleaning.failures.size(), selected);
    if (!cleaning.failures.isEmpty())
        cleaning.status = Status::failed(told);
    lines.prepend(told);
    cleaning.report = lines.join(u'\n');
    return cleaning;
}

} // namespace MorvalenCore
