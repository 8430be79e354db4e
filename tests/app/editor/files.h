#pragma once

#include <QFile>
#include <QTest>

// Files of the tests, written and read as bytes.
namespace files {

inline bool write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

// As other programs save: a new file takes the place of the old one.
inline bool replace(const QString &path, const QByteArray &bytes)
{
    const QString beside = path + QStringLiteral(".new");
    return write(beside, bytes)
        && ::rename(QFile::encodeName(beside).constData(), QFile::encodeName(path).constData())
        == 0;
}

inline QByteArray read(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(cannot be read)");
}

} // namespace files
