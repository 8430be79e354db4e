#include "app/calls/openfile.h"

#include <MorvalenCore/DesignManager.h>
#include <Qtilities/ProjectManager.h>
#include <Qtilities/statuslog.h>

#include <QFile>
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
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    QXmlStreamReader reader(file.read(bytesToLookAt));
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
