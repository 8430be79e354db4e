#include "tests/soak/Usage.h"

#include <MorvalenCore/BuildMonitor.h>
#include <MorvalenCore/ChangeBracket.h>
#include <MorvalenCore/DesignManager.h>
#include <Qtilities/Logger.h>
#include <Qtilities/ProjectManager.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTimer>
#include <QWidget>

#include <malloc.h>
#include <unistd.h>

// There only under the sanitizer.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes() __attribute__((weak));

using namespace Qt::Literals::StringLiterals;

namespace {

// A menu, a tip or a page may have come meanwhile.
constexpr int fewObjects = 5;

int entriesOf(const QString &folder)
{
    return int(
        QDir(folder).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size());
}

// The sanitizer keeps what was freed for a while: there the memory in use counts, not the resident.
qint64 heldKilobytes()
{
    if (__sanitizer_get_current_allocated_bytes)
        return qint64(__sanitizer_get_current_allocated_bytes() / 1024);
    QFile file(u"/proc/self/statm"_s);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').value(1).toLongLong() * (::sysconf(_SC_PAGESIZE) / 1024);
}

int childProcesses()
{
    QFile file(u"/proc/self/task/%1/children"_s.arg(::getpid()));
    const QByteArray ids =
        file.open(QIODevice::ReadOnly) ? file.readAll().simplified() : QByteArray();
    return ids.isEmpty() ? 0 : int(ids.count(' ')) + 1;
}

QObjectList roots()
{
    QObjectList all {qApp,
                     MorvalenCore::DesignManager::instance(),
                     MorvalenCore::ChangeBracket::instance(),
                     MorvalenCore::BuildMonitor::instance(),
                     Qtilities::Logging::Logger::instance(),
                     Qtilities::ProjectManagement::ProjectManager::instance()};
    for (QWidget *window : QApplication::topLevelWidgets())
        all.append(window);
    return all;
}

} // namespace

Usage Usage::now()
{
    ::malloc_trim(0);
    Usage usage;
    usage.memory = heldKilobytes();
    // One is that of the listing.
    usage.descriptors = entriesOf(u"/proc/self/fd"_s);
    usage.threads = entriesOf(u"/proc/self/task"_s);
    usage.children = childProcesses();
    for (const QObject *root : roots()) {
        usage.objects += int(root->findChildren<QObject *>().size());
        usage.timers += int(root->findChildren<QTimer *>().size());
    }
    return usage;
}

QString Usage::difference(const Usage &before) const
{
    const struct
    {
        const char *name;
        int was;
        int is;
        int most = 0; // that may be more
    } counts[] {{"descriptors", before.descriptors, descriptors},
                {"threads", before.threads, threads},
                {"objects", before.objects, objects, fewObjects},
                {"timers", before.timers, timers},
                {"child processes", before.children, children}};
    QString text;
    for (const auto &count : counts) {
        if (count.is - count.was > count.most)
            text += u"%1 %2, before %3; "_s.arg(QString::fromLatin1(count.name))
                        .arg(count.is)
                        .arg(count.was);
    }
    return text;
}
