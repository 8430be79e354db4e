#include "build/SharedLog.h"

#include <Qtilities/Descriptor.h>
#include <Qtilities/regularfile.h>

#include <QFile>
#include <QFileInfo>
#include <QHash>

#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Descriptor;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

namespace MorvalenCore {

namespace {

// What Ninja writes nowadays; it begins anew when it does not know the version that it finds.
const char usualVersion[] = "# ninja log v5";

QByteArray firstLineOf(const QByteArray &log) { return log.left(log.indexOf('\n')); }

int numberOf(const QByteArray &version)
{
    return version.mid(version.lastIndexOf('v') + 1).toInt();
}

// Lines of begin, end, time, path and hash, with tabs between them.
QByteArray outputOf(const QByteArray &line)
{
    const qsizetype end = line.lastIndexOf('\t');
    const qsizetype begin = end > 0 ? line.lastIndexOf('\t', end - 1) : -1;
    return begin > 0 ? line.sliced(begin + 1, end - begin - 1) : QByteArray();
}

template <typename Takes>
void eachLine(const QByteArray &log, const Takes &takes)
{
    const QList<QByteArray> lines = log.split('\n');
    for (qsizetype i = 1; i < lines.size(); ++i) {
        if (const QByteArray output = outputOf(lines[i]); !output.isEmpty())
            takes(output, lines[i]);
    }
}

Status failed(const QString &path)
{
    return Status::io(u"Cannot write \"%1\": %2"_s.arg(path, qt_error_string(errno)));
}

// Empty when there is none yet.
Result<QByteArray> contentOf(const QString &path)
{
    const Result<QByteArray> content = Qtilities::Core::readRegularFile(path);
    if (content.isOk())
        return content;
    if (content.status().kind() == Status::Kind::NotFound)
        return QByteArray();
    return content.status().withText(
        u"Cannot read \"%1\": %2"_s.arg(path, content.status().text()));
}

// Ninja does not wait for the disk either: what is lost with the machine is made again.
Status write(const QString &path, const QByteArray &text, int flags)
{
    Descriptor file =
        Descriptor::open(QFile::encodeName(path), O_WRONLY | O_CREAT | O_NOFOLLOW | flags, 0666);
    return file && file.write(text) && file.close() ? Status() : failed(path);
}

} // namespace

SharedLog::SharedLog(const QList<BuildPlan> &plans) : version(usualVersion)
{
    for (const BuildPlan &plan : plans) {
        Own own {plan.targetFolder + u"/.ninja_log"_s, {}, plan.steps, {}, {}, false, false};
        for (const PlannedStep &step : plan.steps) {
            for (const QString &output : step.outputs)
                own.outputs.insert(output.toUtf8());
        }
        logs.push_back(std::move(own));
    }
}

// A step may put a link in the folder's place, and what it leads to is none of ours.
bool SharedLog::isInPlace(const Own &log)
{
    return QFileInfo(QFileInfo(log.path).path()).canonicalFilePath() == log.place;
}

Status SharedLog::replace(const Own &log, const QByteArray &text)
{
    if (!isInPlace(log))
        return Status::conflict(
            u"Another folder has taken the place of \"%1\""_s.arg(QFileInfo(log.path).path()));
    const QString fresh = log.path + u".morvalen"_s;
    Status done = write(fresh, text, O_TRUNC);
    if (done.isOk()
        && std::rename(QFile::encodeName(fresh).constData(),
                       QFile::encodeName(log.path).constData())
            != 0)
        done = failed(log.path);
    if (!done.isOk())
        QFile::remove(fresh);
    return done;
}

// A log of an older version is one that Ninja would not take either.
Status SharedLog::gather()
{
    int newest = 0;
    for (Own &log : logs) {
        log.place = QFileInfo(QFileInfo(log.path).path()).canonicalFilePath();
        const Result<QByteArray> before = contentOf(log.path);
        if (!before.isOk())
            return before.status();
        log.before = before.value();
        log.isCutOff = !log.before.isEmpty() && !log.before.endsWith('\n');
        if (const QByteArray line = firstLineOf(log.before); numberOf(line) > newest) {
            version = line;
            newest = numberOf(line);
        }
    }
    QByteArray all;
    for (const Own &log : logs) {
        if (firstLineOf(log.before) != version)
            continue;
        const bool isFirst = &log == &logs.front();
        eachLine(log.before, [&](const QByteArray &output, const QByteArray &line) {
            if (isFirst || log.outputs.contains(output))
                all += line + '\n';
        });
    }
    return all.isEmpty() ? Status() : replace(logs.front(), version + '\n' + all);
}

// No command has this hash.
Status SharedLog::doubt(int plan, const QList<int> &steps)
{
    Own &log = logs[size_t(plan)];
    if (plan == 0 || steps.isEmpty())
        return {};
    QByteArray text = log.before.isEmpty() ? version + '\n' : QByteArray(log.isCutOff ? "\n" : "");
    for (const int step : steps) {
        for (const QString &output : log.steps[step].outputs)
            text += "0\t0\t0\t" + output.toUtf8() + "\t0\n";
    }
    log.isDoubted = true;
    return write(log.path, text, O_APPEND);
}

Status SharedLog::giveBack()
{
    if (!isInPlace(logs.front()))
        return replace(logs.front(), {});
    const Result<QByteArray> content = contentOf(logs.front().path);
    if (!content.isOk())
        return content.status();
    const QByteArray &shared = content.value();
    // Later lines count.
    QHash<QByteArray, QByteArray> entries;
    QByteArray ownOfFirst;
    QSet<QByteArray> ofOthers;
    for (size_t i = 1; i < logs.size(); ++i)
        ofOthers.unite(logs[i].outputs);
    eachLine(shared, [&](const QByteArray &output, const QByteArray &line) {
        if (ofOthers.contains(output))
            entries.insert(output, line + '\n');
        else
            ownOfFirst += line + '\n';
    });
    const QByteArray head = shared.isEmpty() ? version : firstLineOf(shared);
    Status status;
    for (size_t i = 1; i < logs.size() && status.isOk(); ++i) {
        const Own &log = logs[i];
        if (!log.isDoubted)
            continue;
        QByteArray text = head + '\n';
        eachLine(log.before, [&](const QByteArray &output, const QByteArray &line) {
            if (firstLineOf(log.before) == head && !entries.contains(output))
                text += line + '\n';
        });
        for (const QByteArray &output : log.outputs)
            text += entries.value(output);
        status = replace(log, text);
    }
    if (!status.isOk() || shared.isEmpty())
        return status;
    return ownOfFirst.isEmpty() ? Status() : replace(logs.front(), head + '\n' + ownOfFirst);
}

} // namespace MorvalenCore
