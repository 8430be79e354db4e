#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

// Finding a text in the bytes of a file.
namespace textmatching {

struct Pattern
{
    QString text;
    bool hasCase = true;
};

struct Match
{
    QString path;
    // Counted from 1; the column and the length are in characters.
    int line = 0;
    int column = 0;
    int length = 0;
    // The whole line.
    QString text;
};

// The matches in a file on disk, at most so many, which do not overlap. None in what is not text,
// no regular file, or cannot be read.
QList<Match> inFile(const QString &path, const Pattern &pattern, qsizetype most);

// The same in bytes that are in memory.
QList<Match> inBytes(const QString &path, QByteArrayView bytes, const Pattern &pattern,
                     qsizetype most);

} // namespace textmatching
