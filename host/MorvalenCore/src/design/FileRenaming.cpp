#include "design/FileRenaming.h"

#include "design/Design.h"
#include "disk/itempaths.h"
#include "disk/renaming.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Status;

namespace MorvalenCore {

namespace {

bool isThere(const QString &path)
{
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
}

// The path as a whole: what stands before or behind it in a text is no part of a path.
QString replacedPath(const QString &text, const QString &from, const QString &to)
{
    const QRegularExpression whole(
        u"(?<![\\w./\\-])(\\./)?%1(?![\\w/\\-]|\\.\\w)"_s.arg(QRegularExpression::escape(from)),
        QRegularExpression::UseUnicodePropertiesOption);
    QString result;
    qsizetype done = 0;
    for (auto matches = whole.globalMatch(text); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        result += QStringView(text).sliced(done, match.capturedStart() - done);
        result += match.captured(1) + to;
        done = match.capturedEnd();
    }
    result += QStringView(text).sliced(done);
    return result;
}

} // namespace

FileRenaming::FileRenaming(Design &itsDesign, const QString &path, const QString &newPath)
    : design(itsDesign),
      asked(newPath),
      to(actualItemPath(newPath, itsDesign.workingFolderPath()))
{
    if (const DesignFile *file = design.fileByActualPath(path, false))
        from = file->actualPath();
    else
        asked = path;
}

Status FileRenaming::run()
{
    if (const Status refused = check(); !refused.isOk())
        return refused;
    if (from == to)
        return {};
    design.startProcessingCycle();
    Status status = rename();
    if (status.isOk())
        status = followInConfigurations();
    design.endProcessingCycle(true);
    return status;
}

Status FileRenaming::check() const
{
    if (from.isEmpty())
        return Status::notFound(
            u"The design \"%1\" does not have \"%2\""_s.arg(design.name(), asked));
    if (design.isReadOnly())
        return Status::readOnly(u"The design \"%1\" is read-only"_s.arg(design.name()));
    if (asked.isEmpty() || asked.endsWith(u'/') || asked.contains(QChar(u'\0')))
        return Status::invalidArgument(u"\"%1\" is no name for a file"_s.arg(asked));
    for (const QString &name : design.buildConfigurationNames()) {
        if (design.buildConfiguration(name)->runState() == BuildConfiguration::Running)
            return Status::busy(
                u"The build \"%1\" of design \"%2\" is running"_s.arg(name, design.name()));
    }
    if (from != to && design.fileByActualPath(to, false))
        return Status::alreadyExists(
            u"The design \"%1\" has the file \"%2\" already"_s.arg(design.name(), to));
    return {};
}

// First on disk, where most can be in the way; back again when the design does not want it.
Status FileRenaming::rename() const
{
    const QString folder = design.workingFolderPath();
    const QString old = pathOnDisk(from, folder);
    const QString wanted = pathOnDisk(to, folder);
    const bool isOnDisk = !old.isEmpty() && isThere(old);
    if (isOnDisk) {
        if (wanted.isEmpty())
            return Status::invalidArgument(u"\"%1\" is no path on this machine"_s.arg(to));
        if (!QFileInfo(QFileInfo(wanted).path()).isDir())
            return Status::notFound(u"There is no folder \"%1\""_s.arg(QFileInfo(wanted).path()));
        if (const Status renamed = renameOnDisk(old, wanted); !renamed.isOk())
            return renamed;
    }
    Status changed = design.fileByActualPath(from, false)->trySetActualPath(to);
    if (!changed.isOk() && isOnDisk)
        changed.addStep(renameOnDisk(wanted, old));
    return changed;
}

QString FileRenaming::followed(const QString &text) const
{
    const QDir folder(design.workingFolderPath());
    return replacedPath(replacedPath(text, from, to), folder.relativeFilePath(from),
                        storedItemPath(to, folder.path()));
}

Status FileRenaming::followInConfigurations() const
{
    Status status;
    for (const QString &name : design.buildConfigurationNames()) {
        BuildConfiguration *configuration = design.buildConfiguration(name);
        BuildDescription description = configuration->description();
        for (BuildMacro &macro : description.macros)
            macro.value = followed(macro.value);
        for (BuildStep &step : description.steps) {
            step.command = followed(step.command);
            for (QStringList *paths : {&step.inputs, &step.outputs}) {
                for (QString &path : *paths)
                    path = followed(path);
            }
        }
        if (description == configuration->description())
            continue;
        const Status changed = configuration->trySetDescription(description);
        if (!changed.isOk())
            status.addWarning(u"The build configuration \"%1\" still has the old name: %2"_s.arg(
                name, changed.text()));
    }
    return status;
}

} // namespace MorvalenCore
