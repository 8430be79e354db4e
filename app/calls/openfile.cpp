#include "app/calls/openfile.h"

#include <MorvalenCore/DesignManager.h>
#include <Qtilities/ProjectManager.h>
#include <Qtilities/regularfile.h>
#include <Qtilities/statuslog.h>

#include <QXmlStreamReader>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;
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

Status openFile(const QString &file)
{
    const Status status = isProjectFile(file)
        ? ProjectManager::instance()->tryOpenProject(file)
        : DesignManager::instance()->tryParseDesignFromFile(file).status();
    Qtilities::Logging::logStatus(status);
    return status;
}
