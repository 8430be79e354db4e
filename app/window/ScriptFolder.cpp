#include "app/window/ScriptFolder.h"

#include <QDir>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int deepest = 8;

ScriptFolder readBelow(const QString &path, int depth)
{
    constexpr QDir::SortFlags order = QDir::Name | QDir::IgnoreCase | QDir::LocaleAware;
    ScriptFolder folder {path, {}, {}};
    const QDir dir(path);
    for (const QFileInfo &entry : dir.entryInfoList({u"*.tcl"_s}, QDir::Files, order))
        folder.scripts.append(entry.absoluteFilePath());
    if (depth == deepest)
        return folder;
    for (const QFileInfo &entry :
         dir.entryInfoList(QDir::Dirs | QDir::NoSymLinks | QDir::NoDotAndDotDot, order)) {
        const ScriptFolder below = readBelow(entry.absoluteFilePath(), depth + 1);
        if (!below.isEmpty())
            folder.folders.append(below);
    }
    return folder;
}

} // namespace

ScriptFolder ScriptFolder::read(const QString &path) { return readBelow(path, 0); }

QStringList ScriptFolder::allScripts() const
{
    QStringList all = scripts;
    for (const ScriptFolder &folder : folders)
        all += folder.allScripts();
    return all;
}
