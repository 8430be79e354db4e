#include "configurations/BuildRecords.h"

#include "items/DesignFiles.h"
#include "items/DesignState.h"
#include "log/hostlog.h"

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

namespace MorvalenCore {

BuildRecords::BuildRecords(DesignState &designState, DesignFiles &fileItems)
    : state(designState),
      files(fileItems)
{
    files.madeIsGone = [this](const QString &path) { forget(path); };
}

BuildRecords::~BuildRecords() { files.madeIsGone = nullptr; }

void BuildRecords::load(const QString &targetFolder)
{
    if (targetFolder.isEmpty() || records.contains(targetFolder))
        return;
    const Result<QList<MadeOutput>> read = OutputRecord(targetFolder, state.folder()).read();
    if (!read.isOk()) {
        logWarning(read.status().text());
        return;
    }
    Outputs &outputs = records[targetFolder];
    for (const MadeOutput &output : read.value()) {
        outputs.insert(output.path, output);
        files.setMade(output.path, {output.configuration, output.version});
    }
}

std::optional<BuildRecords::Writing> BuildRecords::note(const QString &targetFolder,
                                                        const QList<MadeOutput> &outputs)
{
    Outputs &record = records[targetFolder];
    bool isNew = false;
    for (const MadeOutput &output : outputs) {
        isNew = isNew || record.value(output.path) != output;
        record.insert(output.path, output);
        files.setMade(output.path, {output.configuration, output.version});
    }
    if (!isNew)
        return {};
    if (state.changed)
        state.changed();
    changed.remove(targetFolder);
    return writing(targetFolder);
}

void BuildRecords::forget(const QString &path)
{
    for (auto record = records.begin(); record != records.end(); ++record) {
        if (record->contains(path)) {
            record->take(path);
            changed.insert(record.key());
        }
    }
}

void BuildRecords::save()
{
    const QSet<QString> folders = std::exchange(changed, {});
    for (const QString &folder : folders) {
        if (const Status written = writing(folder).write(); !written.isOk())
            logWarning(written.text());
    }
}

BuildRecords::Writing BuildRecords::writing(const QString &targetFolder) const
{
    return {OutputRecord(targetFolder, state.folder()), records.value(targetFolder).values()};
}

} // namespace MorvalenCore
