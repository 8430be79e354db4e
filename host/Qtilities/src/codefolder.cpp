#include <Qtilities/codefolder.h>

#include <QFile>
#include <QFileInfo>

#include <dlfcn.h>
#include <link.h>

namespace Qtilities::Core {

using namespace Qt::Literals::StringLiterals;

QString codeFolder(const void *address)
{
    Dl_info info {};
    link_map *map = nullptr;
    if (dladdr1(address, &info, reinterpret_cast<void **>(&map), RTLD_DL_LINKMAP) == 0 || !map)
        return {};
    // The loader knows the program by the word that it was called by.
    const bool isProgram = !map->l_name || *map->l_name == '\0';
    const QString file = isProgram ? u"/proc/self/exe"_s : QFile::decodeName(map->l_name);
    const QString place = QFileInfo(file).canonicalFilePath();
    return place.isEmpty() ? QString() : QFileInfo(place).path();
}

} // namespace Qtilities::Core
