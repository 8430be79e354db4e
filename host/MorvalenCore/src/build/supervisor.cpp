#include "build/supervisor.h"

#include <Qtilities/codefolder.h>

#include <QDir>
#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;

namespace MorvalenCore {

QString supervisorProgram()
{
    const QString asked = qEnvironmentVariable("MORVALEN_SUPERVISOR");
    if (!asked.isEmpty())
        return asked;
    // A library may lie one folder deeper, in that of its architecture.
    const QString name = u"/libexec/morvalen/supervise-build"_s;
    const QString folder =
        Qtilities::Core::codeFolder(reinterpret_cast<const void *>(&supervisorProgram));
    const QString deeper = QDir::cleanPath(folder + u"/../.."_s + name);
    return QFileInfo(deeper).isExecutable() ? deeper : QDir::cleanPath(folder + u"/.."_s + name);
}

} // namespace MorvalenCore
