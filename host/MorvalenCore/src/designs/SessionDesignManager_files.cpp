// Opening, saving and closing designs.

#include "design/Design.h"
#include "designs/backup.h"
#include "designs/SessionDesignManager.h"
#include "disk/removal.h"
#include "log/hostlog.h"
#include "session/protectedfolders.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::Interfaces::IDesign;

namespace MorvalenCore {

namespace {

// Whether there is nothing left that closing would lose. Changes that cannot be saved go to a
// backup; what went wrong is in the log.
bool isSafe(IDesign *design)
{
    QString error;
    if (!design->isModified() || design->componentFileName().isEmpty()
        || design->saveToComponentFile(&error))
        return true;
    logError(error);
    auto *own = dynamic_cast<Design *>(design);
    const QString copy = own ? backUp(*own, &error) : QString();
    if (copy.isEmpty())
        logError(
            u"The changes of the design \"%1\" cannot be saved: %2"_s.arg(design->name(), error));
    else
        logWarning(
            u"The changes of the design \"%1\" are in \"%2\" instead"_s.arg(design->name(), copy));
    return !copy.isEmpty();
}

// The path with its parent resolved: where the folder lies, even when it is a link itself.
QString canonicalParent(const QString &path)
{
    const QFileInfo info(path);
    return path.isEmpty()
        ? QString()
        : QDir::cleanPath(QFileInfo(info.path()).canonicalFilePath() + u'/' + info.fileName());
}

} // namespace

IDesign *SessionDesignManager::parseDesignFromFile(const QString &, const QString &fileName)
{
    if (fileName.isEmpty()) {
        logError(u"No file is named to open a design from"_s);
        return nullptr;
    }
    if (open.findByFile(fileName)) {
        logError(u"The component file \"%1\" is open already"_s.arg(fileName));
        return nullptr;
    }
    Design::Opened opened = Design::open(fileName);
    for (const QString &warning : opened.warnings)
        logWarning(warning);
    if (!opened.design) {
        logError(opened.error);
        return nullptr;
    }
    return attachDesign(opened.design.get(), true, 0) ? opened.design.release() : nullptr;
}

bool SessionDesignManager::parseDesignToFile(IDesign *design, const QString &fileName,
                                             const QString &, int *warnings, int *errors, int,
                                             bool overwrite)
{
    if (warnings)
        *warnings = 0;
    QString error;
    auto *own = dynamic_cast<Design *>(design);
    const IDesign *owner = open.findByFile(fileName);
    if (!own)
        error = u"The design cannot be written as a component file"_s;
    else if (fileName.isEmpty())
        error = u"No file is named to write the design \"%1\" to"_s.arg(own->name());
    else if (owner && owner != design)
        error = u"\"%1\" is the component file of the open design \"%2\""_s.arg(fileName,
                                                                                owner->name());
    else if (!overwrite && QFileInfo::exists(fileName))
        error = u"\"%1\" is there already"_s.arg(fileName);
    else if (own->saveCopy(fileName, &error)) {
        if (errors)
            *errors = 0;
        return true;
    }
    if (errors)
        *errors = 1;
    logError(error);
    return false;
}

bool SessionDesignManager::closeDesign(const QString &id, bool deleteWorkingFolder)
{
    IDesign *design = open.find(id);
    if (!design) {
        logError(u"No design with the id \"%1\" is open"_s.arg(id));
        return false;
    }
    const QString folder =
        deleteWorkingFolder ? canonicalParent(design->workingFolderPath()) : QString();
    const DeletionLimits limits {path(DesignsPath), protectedFolders(design)};
    const QString refusal = deletionRefusal(folder, limits);
    if (!refusal.isEmpty() && !isSafe(design))
        return false;

    disconnect(design->objectBase(), nullptr, this, nullptr);
    forget(design);
    if (auto *own = dynamic_cast<Design *>(design))
        own->close();
    closed.keep(std::unique_ptr<QObject>(design->objectBase()));

    QString error;
    if (deleteWorkingFolder && !deleteFolder(folder, limits, Deletion::Permanent, &error))
        logWarning(u"The working folder of the design \"%1\" stays: %2"_s.arg(id, error));
    return true;
}

bool SessionDesignManager::closeDesigns(const QStringList &ids, bool deleteWorkingFolders)
{
    bool allClosed = true;
    for (const QString &id : ids) {
        if (!closeDesign(id, deleteWorkingFolders))
            allClosed = false;
    }
    return allClosed;
}

void SessionDesignManager::prepareForShutdown(int &)
{
    for (IDesign *design : open.all())
        isSafe(design);
}

} // namespace MorvalenCore
