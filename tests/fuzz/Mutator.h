#pragma once

#include <QByteArray>
#include <QList>
#include <QRandomGenerator>

// Makes inputs out of good ones: bytes and pieces are changed, left out, moved, repeated, and mixed
// with words of the format and with what texts can hold at worst.
class Mutator
{
public:
    Mutator(const QList<QByteArray> &good, const QList<QByteArray> &words);

    QByteArray make(QRandomGenerator &random) const;

private:
    QByteArray changed(QByteArray input, QRandomGenerator &random) const;

    QList<QByteArray> goodOnes;
    QList<QByteArray> dictionary;
};
