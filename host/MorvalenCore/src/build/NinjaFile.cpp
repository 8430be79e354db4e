#include "build/NinjaFile.h"

#include "build/ninjatext.h"
#include "build/StepStatements.h"

#include <Qtilities/atomicfile.h>
#include <Qtilities/makefolder.h>
#include <Qtilities/regularfile.h>

#include <QDir>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

namespace MorvalenCore {

NinjaFile::NinjaFile(const BuildPlan &plan) : folder(plan.targetFolder)
{
    content = firstLine();
    content += "ninja_required_version = 1.8\nalone_in = console\n";
    for (auto pool = plan.pools.cbegin(); pool != plan.pools.cend(); ++pool) {
        appendNinjaPool(&content, pool.key(), *pool);
        content += "alone_in" + ninjaPool(pool.key()) + " = console\n";
    }
    content += "\ninclude steps.ninja\n";

    const StepStatements statements(plan);
    stepsContent.reserve(200 * plan.steps.size() + 1000);
    stepsContent = firstLine() + "pipe = |\n" + statements.head();
    for (const QByteArray &statement : statements.ofSteps())
        stepsContent += statement;
}

QByteArray NinjaFile::firstLine() { return "# Written by Morvalen; changes are overwritten.\n"; }

QString NinjaFile::path() const { return folder + u"/build.ninja"_s; }

QString NinjaFile::stepsPath() const { return folder + u"/steps.ninja"_s; }

Status NinjaFile::makeFolder() const
{
    const Status made = Qtilities::Core::makeFolder(folder);
    return made.withText(u"The target path \"%1\" cannot be made: %2"_s.arg(folder, made.text()));
}

bool NinjaFile::liesIn(const QString &folder)
{
    const QString path = folder + u"/build.ninja"_s;
    const Result<QByteArray> head = Qtilities::Core::readRegularFile(path, firstLine().size());
    return !QFileInfo(path).isSymLink() && head.isOk() && head.value() == firstLine();
}

// The folder may have come with the design from anywhere: a link there would be followed to files
// that are no part of it, and a pipe waited for.
Status NinjaFile::checkFolder() const
{
    const QStringList names {u"build.ninja"_s, u"steps.ninja"_s, u"joint.ninja"_s, u"build.log"_s,
                             u".ninja*"_s,     u".morvalen_*"_s, u"step-*.sh"_s};
    const QDir::Filters all = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::CaseSensitive;
    for (const QFileInfo &info : QDir(folder).entryInfoList(names, all)) {
        if (info.isSymLink() || !info.isFile())
            return Status::conflict(
                u"\"%1\" is not a regular file; nothing is built there"_s.arg(info.filePath()));
    }
    return {};
}

Status NinjaFile::write() const
{
    Status status = checkFolder();
    if (status.isOk())
        status = writeOwn(path(), content);
    return status.isOk() ? writeOwn(stepsPath(), stepsContent) : status;
}

Status NinjaFile::writeOwn(const QString &path, const QByteArray &content)
{
    const Result<QByteArray> old = Qtilities::Core::readRegularFile(path);
    if (old.isOk() && old.value() == content)
        return {};
    if (old.isOk() && !old.value().isEmpty() && !old.value().startsWith(firstLine()))
        return Status::conflict(
            u"\"%1\" is not a file of Morvalen's; choose another target path"_s.arg(path));
    return Qtilities::Core::writeFileAtomically(path, content);
}

} // namespace MorvalenCore
