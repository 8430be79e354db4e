#pragma once

#include "tests/commands/random/ModelDesign.h"

#include <QRandomGenerator>

// Draws calls of the commands on a design and everything in it, and what happens to it besides:
// steps whose first word is one of those below.
class RandomCalls
{
public:
    static inline const QString reopen = QStringLiteral("<reopen>");
    static inline const QString makeFile = QStringLiteral("<make file>");
    static inline const QString makeFolder = QStringLiteral("<make folder>");
    static inline const QString removeFile = QStringLiteral("<remove file>");

    RandomCalls(const ModelDesign &modelDesign, quint32 seed) : model(modelDesign), random(seed) { }

    QList<QStringList> draw(int count);

private:
    int number(int below) { return int(random.bounded(below)); }
    QString one(const QStringList &words) { return words[number(int(words.size()))]; }
    QString path(const QList<ModelPath> &paths) { return paths[number(int(paths.size()))].word; }
    QStringList value();

    QStringList step();
    QStringList besides();
    QStringList design();
    QStringList collection(const QString &command, const QString &word);
    QStringList item(const QString &command, const QString &what, const QString &word);

    const ModelDesign &model;
    QRandomGenerator random;
};
