#include "tests/fuzz/Fuzzing.h"

#include "tests/fuzz/limits.h"
#include "tests/fuzz/minimised.h"

#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>

#include <cstdio>

using namespace Qt::Literals::StringLiterals;

namespace {

void say(const QString &text) { std::fprintf(stderr, "%s\n", qPrintable(text)); }

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(path));
    return file.readAll();
}

QStringList filesIn(const QString &path)
{
    const QFileInfo info(path);
    if (!info.isDir())
        return {info.absoluteFilePath()};
    QStringList files;
    QDirIterator entries(info.absoluteFilePath(), QDir::Files, QDirIterator::Subdirectories);
    while (entries.hasNext())
        files.append(entries.next());
    files.sort();
    return files;
}

} // namespace

Fuzzing::Fuzzing(const QString &subjectName, Subject &theSubject)
    : name(subjectName),
      subject(theSubject)
{
}

int Fuzzing::run(const QStringList &words)
{
    Options options;
    if (!understand(words, &options)) {
        say(u"usage: %1 ?--seed N? ?--first N? ?--count N? ?--seconds N? ?--found FOLDER?\n"
            "       %1 FILE|FOLDER..."_s.arg(name));
        return 2;
    }
    limits::boundMemory();
    const int status = tryFiles(options.files);
    const bool hasRandom = options.count > 0 || options.seconds > 0;
    return status == 0 && hasRandom ? tryRandom(options) : status;
}

bool Fuzzing::understand(const QStringList &words, Options *options)
{
    for (qsizetype at = 0; at < words.size(); ++at) {
        const QString &word = words[at];
        if (!word.startsWith(u"--"_s)) {
            options->files += filesIn(word);
            continue;
        }
        const QString value = words.value(++at);
        bool isNumber = false;
        const quint32 number = value.toUInt(&isNumber);
        if (word == u"--found")
            options->folder = QFileInfo(value).absoluteFilePath();
        else if (!isNumber)
            return false;
        else if (word == u"--seed")
            options->seed = number;
        else if (word == u"--first")
            options->first = number;
        else if (word == u"--count")
            options->count = number;
        else if (word == u"--seconds")
            options->seconds = int(number);
        else
            return false;
    }
    return !words.isEmpty();
}

int Fuzzing::tryFiles(const QStringList &files)
{
    int status = 0;
    for (const QString &file : files) {
        const QString wrong = tried(contentOf(file));
        if (wrong.isEmpty())
            continue;
        say(file + u": "_s + wrong);
        status = 1;
    }
    return status;
}

int Fuzzing::tryRandom(const Options &options)
{
    if (!options.folder.isEmpty())
        currentFile = options.folder + u'/' + name + u".current"_s;
    QElapsedTimer timer;
    timer.start();
    quint32 number = options.first;
    const auto isOver = [&] {
        return (options.count > 0 && number - options.first >= options.count)
            || (options.seconds > 0 && timer.hasExpired(1000LL * options.seconds));
    };
    for (; !isOver(); ++number) {
        const quint32 seeds[] {options.seed, number};
        QRandomGenerator random(seeds, 2);
        const QByteArray input = subject.make(random);
        keep(input);
        const QString wrong = tried(input);
        if (wrong.isEmpty())
            continue;
        say(u"%1: seed %2, input %3: %4"_s.arg(name).arg(options.seed).arg(number).arg(wrong));
        const QString file = QDir(options.folder.isEmpty() ? QDir::tempPath() : options.folder)
                                 .filePath(u"%1-%2-%3"_s.arg(name).arg(options.seed).arg(number));
        say(u"the smallest one found is in "_s + minimised(input, file));
        return 1;
    }
    if (!currentFile.isEmpty())
        QFile::remove(currentFile);
    say(u"%1: %2 inputs from seed %3 in %4 s, the slowest took %5 ms, no finding"_s.arg(name)
            .arg(number - options.first)
            .arg(options.seed)
            .arg(timer.elapsed() / 1000)
            .arg(slowest));
    return 0;
}

QString Fuzzing::tried(const QByteArray &input)
{
    const limits::Watch watch;
    QElapsedTimer timer;
    timer.start();
    const QString wrong = subject.finding(input);
    slowest = qMax(slowest, timer.elapsed());
    return wrong.isEmpty() ? watch.excess() : wrong;
}

void Fuzzing::keep(const QByteArray &input)
{
    if (currentFile.isEmpty())
        return;
    QFile file(currentFile);
    if (!file.open(QIODevice::WriteOnly) || file.write(input) != input.size())
        qFatal("cannot write %s", qPrintable(currentFile));
}
