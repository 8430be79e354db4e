#pragma once

#include "tests/fuzz/Subject.h"

#include <QStringList>

// Tries inputs of a subject, one after the other: those in files, or random ones for a time or a
// number. What is being tried is always on disk, so that an input that ends the process is not
// lost. Time and memory of each input are bounded. The first finding is made as small as it still
// is one, and ends the run.
class Fuzzing
{
public:
    Fuzzing(const QString &name, Subject &subject);

    // The words of the command line, without the program's name. Returns the exit status: 0
    // without a finding, 1 with one, 2 for words that are not understood.
    int run(const QStringList &words);

private:
    struct Options
    {
        quint32 seed = 1;
        quint32 first = 0;
        quint32 count = 0; // 0 for as long as the time lasts
        int seconds = 0;
        QString folder;
        QStringList files;
    };

    bool understand(const QStringList &words, Options *options);
    int tryFiles(const QStringList &files);
    int tryRandom(const Options &options);
    QString tried(const QByteArray &input);
    void keep(const QByteArray &input);

    QString name;
    Subject &subject;
    QString currentFile; // empty when nothing is kept
    qint64 slowest = 0; // milliseconds
};
