#include "vcs/gitlibrary.h"

#include <Qtilities/codefolder.h>
#include <Qtilities/regularfile.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <dlfcn.h>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

namespace MorvalenCore {

// Programs can be linked with this very code; they have the host's lowest library, or its code,
// too.
QString libraryFolder()
{
    const auto *known = reinterpret_cast<const void *>(&Qtilities::Core::readRegularFile);
    const QString folder = Qtilities::Core::codeFolder(known);
    const QString fromProgram = QDir::cleanPath(folder + QStringLiteral("/" MORVALEN_LIBRARIES));
    const bool isBeside = QFileInfo::exists(folder + QStringLiteral("/" MORVALEN_GIT_LIBRARY));
    return isBeside ? folder : fromProgram;
}

Result<LastCommit *> openGitLibrary(const QString &folder)
{
    const QByteArray path = QFile::encodeName(folder + QStringLiteral("/" MORVALEN_GIT_LIBRARY));
    void *const library = dlopen(path.constData(), RTLD_LAZY | RTLD_LOCAL);
    void *const function = library ? dlsym(library, "morvalenLastCommit") : nullptr;
    if (function)
        return reinterpret_cast<LastCommit *>(function);
    const char *const reason = dlerror();
    return Status::io(
        u"Version control cannot be asked: %1"_s.arg(QString::fromLocal8Bit(reason ? reason : "")));
}

} // namespace MorvalenCore
