#include "designs/backup.h"

#include "design/Design.h"
#include "session/sessionsettings.h"

#include <Qtilities/atomicfile.h>
#include <Qtilities/makefolder.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

namespace MorvalenCore {

namespace {

// Leaves room for the rest of the file's name, which has 255 bytes at most.
constexpr qsizetype longestName = 200;

// A name that was read from a file may hold anything, and be of any length.
QString fileNameOf(QString name)
{
    name.replace(u'/', u'_');
    while (QFile::encodeName(name).size() > longestName)
        name.chop(name.back().isLowSurrogate() ? 2 : 1);
    return name;
}

// The number of the process keeps those apart who share a session.
QString newFile(const QString &folder, const QString &name)
{
    const QString time = QDateTime::currentDateTime().toString(u"yyyyMMdd-HHmmss"_s);
    const QString stem = u"%1/%2-%3-%4"_s.arg(folder, name, time,
                                              QString::number(QCoreApplication::applicationPid()));
    QString path = stem + u".xml"_s;
    for (int i = 2; QFileInfo::exists(path); ++i)
        path = u"%1-%2.xml"_s.arg(stem).arg(i);
    return path;
}

} // namespace

Result<QString> backUp(Design &design)
{
    const QString folder = sessionFolder(u"Backups"_s);
    if (const Status made = Qtilities::Core::makeFolder(folder); !made.isOk())
        return made.withText(u"The folder \"%1\" cannot be made: %2"_s.arg(folder, made.text()));
    Qtilities::Core::removeUnfinishedFiles(folder);
    const QString path = newFile(folder, fileNameOf(design.name()));
    const Status written = design.saveCopy(path);
    return written.isOk() ? Result<QString>(path) : written;
}

Status saveOrBackUp(Interfaces::IDesign *design)
{
    if (!design->isModified() || design->componentFileName().isEmpty())
        return {};
    const Status unsaved = design->trySaveToComponentFile();
    if (unsaved.isOk())
        return unsaved;
    auto *const own = dynamic_cast<Design *>(design);
    const Result<QString> copy = own ? backUp(*own) : Result<QString>(unsaved);
    if (!copy.isOk()) {
        const QString text = u"The changes of the design \"%1\" cannot be saved: %2"_s.arg(
            design->name(), copy.status().text());
        return copy.status().withText(text).after(unsaved);
    }
    Status secured;
    secured.addStep(unsaved);
    secured.addWarning(u"The changes of the design \"%1\" are in \"%2\" instead"_s.arg(
        design->name(), copy.value()));
    return secured;
}

} // namespace MorvalenCore
