#include "vcs/gitlibrary.h"

#include <Qtilities/regularfile.h>

#include <QFile>
#include <QFileInfo>

#include <dlfcn.h>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

namespace MorvalenCore {

// Programs can be linked with this very code, but all of them have that library.
QString libraryFolder()
{
    Dl_info info {};
    const auto *known = reinterpret_cast<const void *>(&Qtilities::Core::readRegularFile);
    if (dladdr(known, &info) == 0 || !info.dli_fname)
        return {};
    return QFileInfo(QFile::decodeName(info.dli_fname)).canonicalPath();
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
