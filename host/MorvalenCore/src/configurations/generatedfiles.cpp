#include "configurations/generatedfiles.h"

#include "items/DesignFiles.h"

#include <Qtilities/regularfile.h>
#include <Qtilities/utf8text.h>

#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <optional>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

namespace MorvalenCore {

namespace {

// The files that Ninja has made in a target folder, by the log that it keeps there: lines of
// begin, end, time, path and hash, with tabs between them.
QSet<QString> filesMadeIn(const QString &targetFolder)
{
    QSet<QString> files;
    const Result<QByteArray> log =
        Qtilities::Core::readRegularFile(targetFolder + u"/.ninja_log"_s);
    if (!log.isOk())
        return files;
    for (const QByteArray &line : log.value().split('\n')) {
        const QList<QByteArray> fields = line.split('\t');
        if (fields.size() == 5)
            files.insert(Qtilities::Core::textOfUtf8(fields[3]));
    }
    return files;
}

bool isNoted(const QString &path, const DesignFiles &files)
{
    const DesignFile *file = files.find(path);
    return file && file->isGenerated();
}

} // namespace

Status checkOverwriting(const BuildPlan &plan, const DesignFiles &files)
{
    std::optional<QSet<QString>> made;
    for (const PlannedStep &step : plan.steps) {
        for (const QString &output : step.outputs) {
            if (!QFileInfo::exists(output) || isNoted(output, files))
                continue;
            if (!made)
                made = filesMadeIn(plan.targetFolder);
            if (!made->contains(output))
                return Status::conflict(
                    u"The step \"%1\" would overwrite \"%2\", which no build has made"_s.arg(
                        step.name, output));
        }
    }
    return {};
}

QList<int> stepsNotNoted(const BuildPlan &plan, const DesignFiles &files)
{
    QList<int> steps;
    for (int step = 0; step < plan.steps.size(); ++step) {
        const QStringList &outputs = plan.steps[step].outputs;
        if (std::any_of(outputs.cbegin(), outputs.cend(), [&](const QString &output) {
                return !isNoted(output, files) && QFileInfo::exists(output);
            }))
            steps.append(step);
    }
    return steps;
}

QList<MadeOutput> outputsOf(const BuildPlan &plan, const QList<int> &steps, const QString &version)
{
    QList<MadeOutput> outputs;
    for (const int step : steps) {
        for (const QString &output : plan.steps[step].outputs)
            outputs.append({output, plan.configuration, version});
    }
    return outputs;
}

} // namespace MorvalenCore
