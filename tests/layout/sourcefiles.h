#pragma once

#include <QDir>
#include <QDirIterator>
#include <QFile>

// The project's own files, as the tests of its lists and of its style read them.
namespace sourcefiles {

inline const QString sourceDir = QStringLiteral(SOURCE_DIR);

// The files below a folder of the project, sorted.
inline QStringList below(const QString &folder, const QStringList &patterns)
{
    QStringList found;
    QDirIterator walk(sourceDir + u'/' + folder, patterns, QDir::Files,
                      QDirIterator::Subdirectories);
    while (walk.hasNext())
        found << walk.next();
    found.sort();
    return found;
}

inline QString textOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

inline QString relative(const QString &path) { return QDir(sourceDir).relativeFilePath(path); }

} // namespace sourcefiles
