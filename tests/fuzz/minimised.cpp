#include "tests/fuzz/minimised.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>

#include <functional>

namespace {

constexpr qint64 longest = 120'000; // milliseconds for all of it
constexpr int longestTry = 60'000;

void write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
}

bool isFault(const QString &file, const QByteArray &input)
{
    write(file, input);
    QProcess process;
    process.setStandardErrorFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.start(QCoreApplication::applicationFilePath(), {file});
    if (!process.waitForFinished(longestTry)) {
        process.kill();
        process.waitForFinished();
        return true;
    }
    return process.exitStatus() == QProcess::CrashExit || process.exitCode() != 0;
}

// Leaves out ever smaller runs of pieces as long as the rest is still at fault.
QList<QByteArray> fewer(QList<QByteArray> pieces,
                        const std::function<bool(const QByteArray &)> &isStillFault)
{
    for (qsizetype run = (pieces.size() + 1) / 2; run > 0; run /= 2) {
        for (qsizetype at = 0; at < pieces.size();) {
            QList<QByteArray> rest = pieces;
            rest.remove(at, qMin(run, pieces.size() - at));
            if (isStillFault(rest.join()))
                pieces = rest;
            else
                at += run;
        }
    }
    return pieces;
}

QList<QByteArray> linesOf(const QByteArray &bytes)
{
    QList<QByteArray> lines;
    for (qsizetype at = 0; at < bytes.size();) {
        const qsizetype feed = bytes.indexOf('\n', at);
        const qsizetype end = feed < 0 ? bytes.size() : feed + 1;
        lines.append(bytes.sliced(at, end - at));
        at = end;
    }
    return lines;
}

QList<QByteArray> bytesOf(const QByteArray &bytes)
{
    QList<QByteArray> single;
    for (const char byte : bytes)
        single.append(QByteArray(1, byte));
    return single;
}

} // namespace

QString minimised(const QByteArray &input, const QString &file)
{
    QElapsedTimer timer;
    timer.start();
    const auto isStillFault = [&](const QByteArray &candidate) {
        return !timer.hasExpired(longest) && isFault(file, candidate);
    };
    QByteArray least = fewer(linesOf(input), isStillFault).join();
    least = fewer(bytesOf(least), isStillFault).join();
    write(file, least);
    return file;
}
