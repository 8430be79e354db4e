#include "tests/faults/FaultSweep.h"

#include "tests/faults/faults.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

#include <cerrno>
#include <sys/wait.h>
#include <unistd.h>

using namespace Faults;
using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Status;

namespace {

constexpr int errors[] = {EIO, ENOSPC, EACCES, EROFS, EINTR};

// No system answers EINTR for ever, and whoever tries again until it is over would be right.
QList<Fault> faultsOf(Call call, FaultSweep::Extent extent)
{
    if (extent == FaultSweep::Extent::Selection)
        return {{call, Effect::Fail, 1, EIO}, {call, Effect::Kill, 1, 0}};
    QList<Fault> all {{call, Effect::Kill, 1, 0}};
    for (const int error : errors) {
        all.append({call, Effect::Fail, 1, error});
        if (error != EINTR)
            all.append({call, Effect::FailFromThenOn, 1, error});
    }
    if (call == Call::Write)
        all.append({call, Effect::WriteHalf, 1, ENOSPC});
    return all;
}

} // namespace

FaultSweep::FaultSweep(const WriterKind &writerKind)
    : kind(writerKind),
      folder(QFileInfo(QDir::tempPath()).canonicalFilePath()
             + u"/faults-%1-%2"_s.arg(getpid()).arg(QLatin1StringView(writerKind.name)))
{
}

void FaultSweep::run(Extent extent)
{
    begin();
    before = tree();
    const Status status = writer->write();
    after = tree();
    if (!status.isOk() || before == after)
        find(u"without a fault"_s, status.text());
    for (const Call call : calls) {
        for (Fault fault : faultsOf(call, extent)) {
            begin();
            while (fault.effect == Effect::Kill ? isKilled(fault) : fails(fault)) {
                ++(fault.effect == Effect::Kill ? kills : faults);
                ++fault.number;
                begin();
            }
        }
    }
    writer = nullptr;
    QDir(folder).removeRecursively();
}

void FaultSweep::begin()
{
    writer = nullptr;
    QDir(folder).removeRecursively();
    QDir().mkpath(folder);
    writer = kind.make();
    writer->prepare(folder);
}

// Copies that are kept in another place have the time in their names, and may be made twice: one
// whose way onto disk failed at its very end stays, since nobody knows what a loss of power would
// leave of it. What a process keeps aside lies in a folder of its own, behind a lock that names it.
FaultSweep::Tree FaultSweep::tree() const
{
    static const QRegularExpression time(u"-\\d{8}-\\d{6}-\\d+(-\\d+)?\\.xml$"_s);
    static const QRegularExpression process(u"/Unsaved/[^/]+"_s);
    Tree files;
    QDirIterator all(folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                     QDirIterator::Subdirectories);
    while (all.hasNext()) {
        const QFileInfo info = all.nextFileInfo();
        QFile file(info.filePath());
        const bool isLock = info.fileName() == u"lock"_s;
        const bool isRead = info.isFile() && !isLock && file.open(QIODevice::ReadOnly);
        const QByteArray content = isRead ? file.readAll()
                                          : QByteArray(info.isDir() ? "folder"
                                                           : isLock ? "lock"
                                                                    : "unreadable");
        QByteArray &noted = files[info.filePath()
                                      .mid(folder.size())
                                      .replace(time, u"-TIME.xml"_s)
                                      .replace(process, u"/Unsaved/PROCESS"_s)];
        noted = noted.isNull() || noted == content ? content : QByteArray("copies that differ");
    }
    return files;
}

void FaultSweep::find(const QString &when, const QString &what)
{
    findings += when + u": "_s + what;
}

QString FaultSweep::describe(const Fault &fault) const
{
    static constexpr const char *effects[] = {"", " for ever", " after half of it", ""};
    return u"%1: %2 %3 %4%5"_s.arg(
        QLatin1StringView(kind.name), QLatin1StringView(nameOf(fault.call)),
        QString::number(fault.number),
        fault.effect == Effect::Kill ? u"kill"_s : qt_error_string(fault.error),
        QLatin1StringView(effects[int(fault.effect)]));
}

bool FaultSweep::fails(const Fault &fault)
{
    arm(QFile::encodeName(folder).constData(), fault);
    const Status status = writer->write();
    if (disarm() == 0)
        return false;
    checkAfter(fault, status);
    return true;
}

void FaultSweep::checkAfter(const Fault &fault, const Status &status)
{
    const QString when = describe(fault);
    if (status.isOk() && tree() != after && fault.call != Call::Remove)
        find(when, u"says that it is done, and is not"_s);
    if (!status.isOk() && status.text().isEmpty())
        find(when, u"fails without a word"_s);
    if (!status.isOk() && writer->givesReasons()
        && !status.text().contains(qt_error_string(fault.error)))
        find(when, u"gives a wrong reason: "_s + status.text());
    checkFiles(when, fault.call == Call::Remove);
    if (fault.call == Call::Open && fault.effect == Effect::FailFromThenOn)
        writer->clearAway();
    if (!status.isOk())
        checkNext(when);
}

void FaultSweep::checkFiles(const QString &when, bool mayLeaveOthers)
{
    const Tree now = tree();
    for (auto file = now.cbegin(); file != now.cend(); ++file) {
        const bool isKnown = before.contains(file.key()) || after.contains(file.key());
        if (!isKnown && !mayLeaveOthers)
            find(when, u"leaves "_s + file.key());
        if (isKnown && !isWhole(file.key(), *file))
            find(when, file.key() + u" is neither the old nor the new one"_s);
    }
    for (auto file = before.cbegin(); file != before.cend(); ++file) {
        if (!now.contains(file.key()) && after.contains(file.key()))
            find(when, file.key() + u" is lost"_s);
    }
}

bool FaultSweep::isWhole(const QString &file, const QByteArray &content) const
{
    return content == before.value(file) || content == after.value(file)
        || (writer->growsInPlace() && after.value(file).startsWith(content));
}

void FaultSweep::checkNext(const QString &when)
{
    const Status status = writer->write();
    if (!status.isOk())
        return find(when, u"keeps the next write from it: "_s + status.text());
    const Tree now = tree();
    for (auto file = now.cbegin(); file != now.cend(); ++file) {
        if (!after.contains(file.key()))
            find(when, u"leaves for ever "_s + file.key());
    }
    for (auto file = after.cbegin(); file != after.cend(); ++file) {
        if (!now.contains(file.key()) || now.value(file.key()) != *file)
            find(when, u"keeps the next write from "_s + file.key());
    }
}

bool FaultSweep::isKilled(const Fault &fault)
{
    const pid_t child = fork();
    if (child == 0) {
        arm(QFile::encodeName(folder).constData(), fault);
        static_cast<void>(writer->write());
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    if (!WIFSIGNALED(status))
        return false;
    const QString when = describe(fault);
    checkFiles(when, true);
    writer->startAnew();
    checkNext(when);
    return true;
}
