#include "build/supervisor.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <dlfcn.h>

using namespace Qt::Literals::StringLiterals;

namespace MorvalenCore {

namespace {

// Where the library, or the program that this is linked into, lies.
QString ownFolder()
{
    Dl_info info {};
    if (dladdr(reinterpret_cast<const void *>(&supervisorProgram), &info) == 0 || !info.dli_fname)
        return {};
    return QFileInfo(QFile::decodeName(info.dli_fname)).canonicalPath();
}

} // namespace

QString supervisorProgram()
{
    const QString asked = qEnvironmentVariable("MORVALEN_SUPERVISOR");
    if (!asked.isEmpty())
        return asked;
    // A library may lie one folder deeper, in that of its architecture.
    const QString name = u"/libexec/morvalen/supervise-build"_s;
    const QString folder = ownFolder();
    const QString deeper = QDir::cleanPath(folder + u"/../.."_s + name);
    return QFileInfo(deeper).isExecutable() ? deeper : QDir::cleanPath(folder + u"/.."_s + name);
}

} // namespace MorvalenCore
