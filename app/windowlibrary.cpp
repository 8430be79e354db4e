#include "app/windowlibrary.h"

#include "app/ProgramStart.h"

#include <Qtilities/codefolder.h>

#include <QDir>
#include <QFile>

#include <dlfcn.h>

using namespace Qt::Literals::StringLiterals;

namespace windowlibrary {

int run(const CommandLine &line)
{
    const QString folder = Qtilities::Core::codeFolder(entry);
    const QString path = QDir::cleanPath(folder + QStringLiteral("/" MORVALEN_WINDOW_LIBRARY));
    void *const library = dlopen(QFile::encodeName(path).constData(), RTLD_LAZY | RTLD_LOCAL);
    void *const function = library ? dlsym(library, entry) : nullptr;
    if (function)
        return reinterpret_cast<Run *>(function)(line);
    const char *const reason = dlerror();
    return programstart::fail(
        u"cannot load the window: %1"_s.arg(QString::fromLocal8Bit(reason ? reason : "")),
        programstart::failure);
}

} // namespace windowlibrary
