#include <MorvalenCore/Cleaner.h>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::Interfaces::IDesign;

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
    bool isCleaned;
    QString line;
};

Outcome clean(IDesign &design, DesignFile &file)
{
    const QString path = file.actualPath();
    const bool wasThere = file.existsOnDisk();
    if (wasThere && !file.removeFromComputer(true))
        return {false, u"Failed to delete \"%1\"; it stays in the design"_s.arg(path)};
    if (!design.removeFile(path))
        return {false, u"Failed to remove \"%1\" from the design"_s.arg(path)};
    return {true,
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

} // namespace

Cleaner::Cleaner(QObject *parent) : QObject(parent) { }

Cleaner::~Cleaner() = default;

bool Cleaner::cleanDesign(IDesign *design, const DesignCleanParameters &parameters, QString *report)
{
    QString ignored;
    QString &text = report ? *report : ignored;
    if (!design) {
        text = u"There is no design to clean"_s;
        return false;
    }
    if (design->isReadOnly()) {
        text = u"The design \"%1\" is read-only and was not cleaned"_s.arg(design->name());
        return false;
    }

    const QString version = design->version(u"."_s);
    QStringList lines;
    qsizetype cleaned = 0;
    design->startProcessingCycle();
    for (DesignFile *file : design->filesUnderNode(QString(), true)) {
        if (!isSelected(*file, version, parameters.grouping))
            continue;
        const Outcome outcome = clean(*design, *file);
        cleaned += outcome.isCleaned ? 1 : 0;
        lines.append(outcome.line);
    }
    design->endProcessingCycle(true);
    const qsizetype selected = lines.size();
    lines.prepend(summary(*design, cleaned, selected));
    text = lines.join(u'\n');
    return cleaned == selected;
}

} // namespace MorvalenCore
