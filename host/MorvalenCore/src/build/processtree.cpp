#include "build/processtree.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>

using namespace Qt::Literals::StringLiterals;

namespace MorvalenCore {

namespace {

struct Entry
{
    pid_t id = 0;
    pid_t parent = 0;
    pid_t session = 0;
    QString name;
    bool alive = false;
};

QByteArray contentOf(const QByteArray &path)
{
    QFile file(QString::fromLatin1(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// "ID (NAME) STATE PARENT GROUP SESSION ..."; the name may hold brackets and blanks.
Entry entryOf(const QByteArray &id)
{
    const QByteArray text = contentOf("/proc/" + id + "/stat");
    const qsizetype nameBegin = text.indexOf('(') + 1;
    const qsizetype nameEnd = text.lastIndexOf(')');
    const QList<QByteArray> fields = text.mid(nameEnd + 2).split(' ');
    Entry entry;
    if (nameBegin < 1 || nameEnd < nameBegin || fields.size() < 4)
        return entry;
    entry.id = id.toInt();
    entry.parent = fields[1].toInt();
    entry.session = fields[3].toInt();
    entry.name = QString::fromUtf8(text.mid(nameBegin, nameEnd - nameBegin));
    entry.alive = fields[0] != "Z" && fields[0] != "X";
    return entry;
}

// With those that have ended and wait for their parents.
QList<Entry> allEntries()
{
    QList<Entry> entries;
    const QStringList ids = QDir(u"/proc"_s).entryList({u"[1-9]*"_s}, QDir::Dirs);
    for (const QString &id : ids) {
        const Entry entry = entryOf(id.toLatin1());
        if (entry.id != 0)
            entries.append(entry);
    }
    return entries;
}

QList<Entry> allProcesses()
{
    QList<Entry> entries = allEntries();
    entries.removeIf([](const Entry &entry) { return !entry.alive; });
    return entries;
}

// Names of the pipes that a process has open.
QSet<QString> pipesOf(pid_t process)
{
    QSet<QString> pipes;
    const QFileInfoList links =
        QDir(u"/proc/%1/fd"_s.arg(process)).entryInfoList(QDir::Files | QDir::System);
    for (const QFileInfo &link : links) {
        const QString target = QFile::symLinkTarget(link.filePath());
        if (target.contains(u"pipe:["_s))
            pipes.insert(target.mid(target.indexOf(u"pipe:["_s)));
    }
    return pipes;
}

QSet<pid_t> withDescendants(pid_t leader, const QList<Entry> &all)
{
    QSet<pid_t> ids {leader};
    for (qsizetype before = 0; before < ids.size();) {
        before = ids.size();
        for (const Entry &process : all) {
            if (ids.contains(process.parent))
                ids.insert(process.id);
        }
    }
    return ids;
}

bool carries(const Entry &process, const QByteArray &entry)
{
    const QByteArray environment =
        '\0' + contentOf("/proc/" + QByteArray::number(process.id) + "/environ");
    return environment.contains('\0' + entry + '\0');
}

} // namespace

QList<ChildProcess> processesOfSession(pid_t session)
{
    QList<ChildProcess> found;
    for (const Entry &process : allProcesses()) {
        if (process.session == session)
            found.append({process.id, process.name});
    }
    return found;
}

QList<ChildProcess> processesOfBuild(pid_t session, const QByteArray &entry)
{
    QList<ChildProcess> found;
    QSet<pid_t> ids;
    const QList<Entry> all = allProcesses();
    for (qsizetype before = -1; before < found.size();) {
        before = found.size();
        for (const Entry &process : all) {
            if (ids.contains(process.id))
                continue;
            if (process.session == session || ids.contains(process.parent)
                || carries(process, entry)) {
                ids.insert(process.id);
                found.append({process.id, process.name});
            }
        }
    }
    return found;
}

QList<pid_t> endedChildrenOf(pid_t parent)
{
    QList<pid_t> ended;
    for (const Entry &process : allEntries()) {
        if (process.parent == parent && !process.alive)
            ended.append(process.id);
    }
    return ended;
}

QList<ChildProcess> processesThatKeepWaiting(pid_t leader, const QByteArray &entry)
{
    const QSet<pid_t> attached = withDescendants(leader, allProcesses());
    QSet<QString> pipes = pipesOf(leader);
    for (const pid_t process : attached) {
        if (process != leader)
            pipes.subtract(pipesOf(process));
    }
    QList<ChildProcess> found = processesOfBuild(leader, entry);
    found.removeIf([&](const ChildProcess &process) {
        return attached.contains(process.id) || !pipesOf(process.id).intersects(pipes);
    });
    return found;
}

} // namespace MorvalenCore
