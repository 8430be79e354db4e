#include "app/calls/openfile.h"
#include "app/journal/journaling.h"

#include <MorvalenCore/DesignManager.h>
#include <MorvalenCore/EditorManager.h>
#include <Qtilities/ProjectManager.h>
#include <Qtilities/regularfile.h>
#include <Qtilities/statuslog.h>

#include <QDir>
#include <QFileInfo>
#include <QXmlStreamReader>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;
using MorvalenCore::EditorManager;
using Qtilities::Core::Status;
using Qtilities::ProjectManagement::ProjectManager;

namespace {

constexpr qint64 bytesToLookAt = 65'536;

} // namespace

bool isProjectFile(const QString &path)
{
    const auto head = Qtilities::Core::readRegularFile(path, bytesToLookAt);
    if (!head.isOk())
        return false;
    QXmlStreamReader reader(head.value());
    return reader.readNextStartElement() && reader.name() == u"project"_s;
}

namespace {

Status openText(const QString &file)
{
    const Status status =
        EditorManager::instance()->tryCreateEditorForPath(file, QString(), true, false).status();
    Qtilities::Logging::logStatus(status);
    return status;
}

} // namespace

bool isTextFile(const QString &path)
{
    if (path.endsWith(u".xml"_s, Qt::CaseInsensitive))
        return false;
    const auto head = Qtilities::Core::readRegularFile(path, bytesToLookAt);
    if (!head.isOk())
        return false;
    QByteArray bytes = head.value();
    if (bytes.startsWith("\xEF\xBB\xBF"))
        bytes.remove(0, 3);
    return !bytes.trimmed().startsWith('<');
}

bool activateOpen(const QString &file)
{
    DesignManager *manager = DesignManager::instance();
    const QString path = QFileInfo(file).canonicalFilePath();
    for (const QString &id : path.isEmpty() ? QStringList() : manager->openDesignIds()) {
        const auto *design = manager->design(id);
        if (!design || QFileInfo(design->componentFileName()).canonicalFilePath() != path)
            continue;
        manager->setActiveDesign(id);
        journaling::activated(id);
        return true;
    }
    return false;
}

Status openFile(const QString &file)
{
    if (isTextFile(file))
        return openText(file);
    const bool isProject = isProjectFile(file);
    const Status status = isProject
        ? ProjectManager::instance()->tryOpenProject(file)
        : DesignManager::instance()->tryParseDesignFromFile(file).status();
    Qtilities::Logging::logStatus(status);
    if (status.isOk())
        journaling::opened(QDir::cleanPath(QFileInfo(file).absoluteFilePath()), isProject);
    return status;
}
